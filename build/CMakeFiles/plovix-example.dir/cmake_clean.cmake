file(REMOVE_RECURSE
  "CMakeFiles/plovix-example.dir/examples/host_example.c.o"
  "CMakeFiles/plovix-example.dir/examples/host_example.c.o.d"
  "plovix-example"
  "plovix-example.pdb"
)

# Per-language clean rules from dependency scanning.
foreach(lang C)
  include(CMakeFiles/plovix-example.dir/cmake_clean_${lang}.cmake OPTIONAL)
endforeach()
