CMakeFiles/plovix_objects.dir/src/engine/coordinates.cpp.o: \
 /work/main/src/engine/coordinates.cpp /usr/include/stdc-predef.h \
 /work/main/src/engine/coordinates.h /work/main/src/platform/export.h
