# Empty compiler generated dependencies file for plovix_objects.
# This may be replaced when dependencies are built.
