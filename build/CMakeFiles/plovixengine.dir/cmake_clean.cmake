file(REMOVE_RECURSE
  "libplovixengine.pdb"
  "libplovixengine.so"
  "libplovixengine.so.0"
  "libplovixengine.so.0.1.0"
)

# Per-language clean rules from dependency scanning.
foreach(lang CXX)
  include(CMakeFiles/plovixengine.dir/cmake_clean_${lang}.cmake OPTIONAL)
endforeach()
