# Empty compiler generated dependencies file for plovixengine_static.
# This may be replaced when dependencies are built.
