# Cross build for 64-bit ARM Linux with Debian's g++-aarch64-linux-gnu. Target libraries beyond
# the C and C++ runtime come from Debian multiarch (/usr/lib/aarch64-linux-gnu, e.g. libpng-dev:arm64).
#   cmake -S . -B build-aarch64 -DCMAKE_TOOLCHAIN_FILE=cmake/toolchains/aarch64-linux-gnu.cmake
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)

set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)

set(PLOVIX_AARCH64_SYSROOT /usr/aarch64-linux-gnu)
set(CMAKE_FIND_ROOT_PATH ${PLOVIX_AARCH64_SYSROOT} /)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# ctest and gtest_discover_tests run every target binary under qemu-user. With Debian's arm64
# runtime installed (multiarch libc6 and libstdc++6) programs load it whole; otherwise the cross
# toolchain's copies serve. Never both: one glibc's loader with another build's libc is unsupported.
if(EXISTS /lib/ld-linux-aarch64.so.1)
  set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64)
else()
  set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64 -L ${PLOVIX_AARCH64_SYSROOT})
endif()
