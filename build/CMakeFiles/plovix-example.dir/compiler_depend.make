# Empty compiler generated dependencies file for plovix-example.
# This may be replaced when dependencies are built.
