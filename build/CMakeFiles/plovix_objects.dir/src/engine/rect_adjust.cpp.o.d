CMakeFiles/plovix_objects.dir/src/engine/rect_adjust.cpp.o: \
 /work/main/src/engine/rect_adjust.cpp /usr/include/stdc-predef.h \
 /work/main/src/engine/rect_adjust.h /work/main/src/platform/export.h
