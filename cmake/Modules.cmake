# What every target of the project shares: warnings, instrumentation, and the two functions that turn a
# folder into a library and a file into a test program.

add_library(promoter_flags INTERFACE)
target_compile_options(promoter_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
  -Wnull-dereference -Wold-style-cast $<$<BOOL:${PROMOTER_WERROR}>:-Werror>)

function(promoter_instrument)
  if(PROMOTER_FUZZ OR PROMOTER_SANITIZE)
    # What the sanitizers do not see: an index or iterator past the end inside what is allocated.
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
  endif()
  if(PROMOTER_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
      -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
  endif()
  if(PROMOTER_SANITIZE)
    # Under the sanitizers gcc 12 takes members of std::regex for uninitialized.
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
      -Wno-maybe-uninitialized)
    add_link_options(-fsanitize=address,undefined)
  endif()
  if(PROMOTER_COVERAGE)
    add_compile_options(--coverage -fprofile-abs-path)
    add_link_options(--coverage)
  endif()
endfunction()

# promoter_target_name(adapters/sqlite out) -> promoter_adapters_sqlite
function(promoter_target_name folder out)
  string(REPLACE "/" "_" name ${folder})
  set(${out} promoter_${name} PARENT_SCOPE)
endfunction()

# promoter_library(<folder> [SOURCE_DIR <dir>] [DEPENDS <folder>...] [LINK <target>...])
# All .cpp files of src/<folder> as one static library; a folder of headers alone is an interface
# library. Includes are written from src/ ("platform/Connection.h"). Whoever takes an installed one
# calls it DistPromoterProg::<folder>, DistPromoterProg::adapters_sqlite.
function(promoter_library folder)
  cmake_parse_arguments(ARG "" "SOURCE_DIR" "DEPENDS;LINK" ${ARGN})
  promoter_target_name(${folder} name)
  set(dir ${PROJECT_SOURCE_DIR}/src/${folder})
  set(include ${PROJECT_SOURCE_DIR}/src)
  if(ARG_SOURCE_DIR)
    set(dir ${PROJECT_SOURCE_DIR}/${ARG_SOURCE_DIR})
    list(APPEND include ${PROJECT_SOURCE_DIR})
  endif()
  file(GLOB sources CONFIGURE_DEPENDS ${dir}/*.cpp ${dir}/*.h)
  set(units ${sources})
  list(FILTER units INCLUDE REGEX "\\.cpp$")
  set(scope PUBLIC)
  if(units)
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:promoter_flags>)
    if(PROMOTER_COVERAGE AND NOT folder MATCHES "^(adapters/|demo)")
      # Without it a function of a header that nobody calls leaves no trace to be missed by.
      target_compile_options(${name} PRIVATE -fkeep-inline-functions)
    endif()
  else()
    add_library(${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_include_directories(${name} ${scope} "$<BUILD_INTERFACE:${include}>"
    $<INSTALL_INTERFACE:include/distpromoterprog>)
  target_compile_features(${name} ${scope} cxx_std_20)
  string(REPLACE "/" "_" exported ${folder})
  set_target_properties(${name} PROPERTIES EXPORT_NAME ${exported})
  foreach(dependency ${ARG_DEPENDS})
    promoter_target_name(${dependency} target)
    target_link_libraries(${name} ${scope} ${target})
  endforeach()
  target_link_libraries(${name} ${scope} ${ARG_LINK})
endfunction()

# promoter_test(<name> SOURCES <file>... DEPENDS <folder>... [LINK <target>...])
# One test program with GoogleTest's main; ctest knows each test case by name.
function(promoter_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  foreach(dependency ${ARG_DEPENDS})
    promoter_target_name(${dependency} target)
    target_link_libraries(${name} PRIVATE ${target})
  endforeach()
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE promoter_flags GTest::gtest GTest::gmock ${ARG_LINK})
  if(NOT ARG_LINK MATCHES "Qt6")
    target_link_libraries(${name} PRIVATE GTest::gtest_main)
  endif()
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
endfunction()

promoter_instrument()
