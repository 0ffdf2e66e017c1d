CMakeFiles/plovix_objects.dir/src/engine/tuning.cpp.o: \
 /work/main/src/engine/tuning.cpp /usr/include/stdc-predef.h \
 /work/main/src/engine/tuning.h /work/main/src/platform/export.h
