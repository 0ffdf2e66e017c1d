file(REMOVE_RECURSE
  "libplovixengine_static.a"
  "libplovixengine_static.pdb"
)

# Per-language clean rules from dependency scanning.
foreach(lang CXX)
  include(CMakeFiles/plovixengine_static.dir/cmake_clean_${lang}.cmake OPTIONAL)
endforeach()
