
# Consider dependencies only in project.
set(CMAKE_DEPENDS_IN_PROJECT_ONLY OFF)

# The set of languages for which implicit dependencies are needed:
set(CMAKE_DEPENDS_LANGUAGES
  )

# The set of dependency files which are needed:
set(CMAKE_DEPENDS_DEPENDENCY_FILES
  "/work/main/src/engine/coordinates.cpp" "CMakeFiles/plovix_objects.dir/src/engine/coordinates.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/engine/coordinates.cpp.o.d"
  "/work/main/src/engine/rect_adjust.cpp" "CMakeFiles/plovix_objects.dir/src/engine/rect_adjust.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/engine/rect_adjust.cpp.o.d"
  "/work/main/src/engine/tuning.cpp" "CMakeFiles/plovix_objects.dir/src/engine/tuning.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/engine/tuning.cpp.o.d"
  "/work/main/src/image/dib.cpp" "CMakeFiles/plovix_objects.dir/src/image/dib.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/image/dib.cpp.o.d"
  "/work/main/src/image/flood_fill.cpp" "CMakeFiles/plovix_objects.dir/src/image/flood_fill.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/image/flood_fill.cpp.o.d"
  "/work/main/src/image/image_state.cpp" "CMakeFiles/plovix_objects.dir/src/image/image_state.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/image/image_state.cpp.o.d"
  "/work/main/src/image/point_array.cpp" "CMakeFiles/plovix_objects.dir/src/image/point_array.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/image/point_array.cpp.o.d"
  "/work/main/src/image/seed_fill.cpp" "CMakeFiles/plovix_objects.dir/src/image/seed_fill.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/image/seed_fill.cpp.o.d"
  "/work/main/src/image/segmentation.cpp" "CMakeFiles/plovix_objects.dir/src/image/segmentation.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/image/segmentation.cpp.o.d"
  "/work/main/src/model/back_projection.cpp" "CMakeFiles/plovix_objects.dir/src/model/back_projection.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/model/back_projection.cpp.o.d"
  "/work/main/src/model/histogram.cpp" "CMakeFiles/plovix_objects.dir/src/model/histogram.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/model/histogram.cpp.o.d"
  "/work/main/src/model/model_state.cpp" "CMakeFiles/plovix_objects.dir/src/model/model_state.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/model/model_state.cpp.o.d"
  "/work/main/src/model/object_size.cpp" "CMakeFiles/plovix_objects.dir/src/model/object_size.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/model/object_size.cpp.o.d"
  "/work/main/src/model/region.cpp" "CMakeFiles/plovix_objects.dir/src/model/region.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/model/region.cpp.o.d"
  "/work/main/src/model/selection.cpp" "CMakeFiles/plovix_objects.dir/src/model/selection.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/model/selection.cpp.o.d"
  "/work/main/src/platform/clock.cpp" "CMakeFiles/plovix_objects.dir/src/platform/clock.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/platform/clock.cpp.o.d"
  "/work/main/src/platform/log.cpp" "CMakeFiles/plovix_objects.dir/src/platform/log.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/platform/log.cpp.o.d"
  "/work/main/src/platform/memory.cpp" "CMakeFiles/plovix_objects.dir/src/platform/memory.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/platform/memory.cpp.o.d"
  "/work/main/src/tracking/driver.cpp" "CMakeFiles/plovix_objects.dir/src/tracking/driver.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/tracking/driver.cpp.o.d"
  "/work/main/src/tracking/lost_detection.cpp" "CMakeFiles/plovix_objects.dir/src/tracking/lost_detection.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/tracking/lost_detection.cpp.o.d"
  "/work/main/src/tracking/mean_shift.cpp" "CMakeFiles/plovix_objects.dir/src/tracking/mean_shift.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/tracking/mean_shift.cpp.o.d"
  "/work/main/src/tracking/ncc.cpp" "CMakeFiles/plovix_objects.dir/src/tracking/ncc.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/tracking/ncc.cpp.o.d"
  "/work/main/src/tracking/track_step.cpp" "CMakeFiles/plovix_objects.dir/src/tracking/track_step.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/tracking/track_step.cpp.o.d"
  "/work/main/src/tracking/tracker_state.cpp" "CMakeFiles/plovix_objects.dir/src/tracking/tracker_state.cpp.o" "gcc" "CMakeFiles/plovix_objects.dir/src/tracking/tracker_state.cpp.o.d"
  )

# Targets to which this target links.
set(CMAKE_TARGET_LINKED_INFO_FILES
  )

# Fortran module output directory.
set(CMAKE_Fortran_TARGET_MODULE_DIR "")
