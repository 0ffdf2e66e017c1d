# Empty dependencies file for plovixengine.
# This may be replaced when dependencies are built.
