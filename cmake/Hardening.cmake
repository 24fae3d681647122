# What makes it harder to turn a fault in memory into somebody else's code, and paths of the source
# folder instead of the machine's, for what is handed over on Linux. Compilers differ in what they
# know. Windows programs get theirs from mingw's own defaults; the test library_inspected looks.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
check_pie_supported(LANGUAGES CXX)
# The last one: the libraries go into programs alone and need not give way to another's functions.
foreach(option -fstack-protector-strong -fstack-clash-protection -fcf-protection
    -fno-semantic-interposition)
  string(MAKE_C_IDENTIFIER "PROMOTER_HAS${option}" known)
  check_cxx_compiler_flag(${option} ${known})
  if(${known})
    add_compile_options(${option})
  endif()
endforeach()
# A compiler or a C library that has no level 3 takes it for 2.
add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3 -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
add_link_options(-Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
