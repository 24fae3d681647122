# Cross build for Windows with mingw-w64; PROMOTER_ARCH is x86_64 or i686.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES PROMOTER_ARCH)
set(CMAKE_SYSTEM_PROCESSOR ${PROMOTER_ARCH})
set(prefix ${PROMOTER_ARCH}-w64-mingw32)
# By name: the plain compilers may be the variant whose C++ library knows no threads.
set(CMAKE_C_COMPILER ${prefix}-gcc-posix)
set(CMAKE_CXX_COMPILER ${prefix}-g++-posix)
set(CMAKE_RC_COMPILER ${prefix}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${prefix})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# A control in a host's process brings its own runtime.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
