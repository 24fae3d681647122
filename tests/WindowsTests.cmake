# Tests of the Windows build. Those that run do so under Wine, of which Debian has the 64-bit one:
# tests/<folder>/*_test.cpp is one program and one test of ctest, in a Wine prefix of its own, which
# starts empty.
set(control_tests ${CMAKE_CURRENT_SOURCE_DIR}/apps/activex)
add_test(NAME library_inspected
  COMMAND ${control_tests}/inspect.sh ${CMAKE_OBJDUMP} $<TARGET_FILE:promoter-activex>
    $<TARGET_FILE:promoter-activex-host> ${PROJECT_VERSION} ${PROMOTER_COMPANY}
    ${PROMOTER_COPYRIGHT})
if(PROMOTER_ARCH STREQUAL i686)
  return()
endif()

add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
foreach(library gtest gmock gtest_main)
  # Not ours to warn about.
  target_compile_options(${library} PRIVATE -w)
endforeach()

# promoter_wine_test(<name> COMMAND <program> <argument>...)
function(promoter_wine_test name)
  cmake_parse_arguments(ARG "" "" "COMMAND" ${ARGN})
  set(prefix ${CMAKE_BINARY_DIR}/wine/${name})
  add_test(NAME ${name} COMMAND ${PROJECT_SOURCE_DIR}/scripts/under-wine --fresh ${prefix} ${ARG_COMMAND})
  # What an approved file is to be compared with outlives the prefix.
  set_tests_properties(${name} PROPERTIES TIMEOUT 300 ENVIRONMENT "TEST_TMPDIR=Z:${CMAKE_BINARY_DIR}/")
endfunction()

# promoter_wine_folder_test(<folder> DEPENDS <folder>... [LINK <target>...])
function(promoter_wine_folder_test folder)
  cmake_parse_arguments(ARG "" "" "DEPENDS;LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  string(REPLACE "/" "_" name ${folder})
  add_executable(${name}_test ${sources})
  foreach(dependency ${ARG_DEPENDS})
    promoter_target_name(${dependency} target)
    target_link_libraries(${name}_test PRIVATE ${target})
  endforeach()
  target_include_directories(${name}_test PRIVATE ${CMAKE_CURRENT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name}_test PRIVATE promoter_flags gtest gmock gtest_main ${ARG_LINK})
  promoter_wine_test(${name}_test COMMAND $<TARGET_FILE:${name}_test>)
endfunction()

promoter_wine_folder_test(adapters/windows DEPENDS adapters/windows adapters/sqlite demo)
target_sources(adapters_windows_test PRIVATE support/Session.cpp)
target_compile_definitions(adapters_windows_test PRIVATE
  PROMOTER_ADO_SESSION="Z:${CMAKE_CURRENT_SOURCE_DIR}/adapters/windows/sessions/ado.txt")
promoter_wine_folder_test(apps/activex DEPENDS adapters/windows demo LINK promoter_activex_ids oleacc)
target_sources(apps_activex_test PRIVATE
  ${PROJECT_SOURCE_DIR}/apps/activex-host/PropertyBag.cpp ${PROJECT_SOURCE_DIR}/apps/activex-host/Site.cpp
  ${PROJECT_SOURCE_DIR}/apps/activex-host/Things.cpp
  adapters/windows/StandIn.cpp support/Session.cpp)
target_include_directories(apps_activex_test PRIVATE ${PROJECT_SOURCE_DIR}
  ${PROJECT_SOURCE_DIR}/apps/activex)
# Wine shows the whole file system as its drive Z.
target_compile_definitions(apps_activex_test PRIVATE
  PROMOTER_OCX="Z:$<TARGET_FILE:promoter-activex>"
  PROMOTER_CONTROL_SESSIONS="Z:${CMAKE_CURRENT_SOURCE_DIR}/apps/activex/sessions.txt"
  PROMOTER_BATCH_FORM="Z:${CMAKE_CURRENT_SOURCE_DIR}/accessibility/batch-form.txt")
add_dependencies(apps_activex_test promoter-activex)

add_test(NAME late_bound COMMAND ${control_tests}/late-bound.sh ${PROJECT_SOURCE_DIR}
  ${CMAKE_BINARY_DIR}/wine/late_bound $<TARGET_FILE:promoter-activex>
  $<TARGET_FILE:promoter-activex-host> ${PROJECT_VERSION})
add_test(NAME registration COMMAND ${control_tests}/registration.sh ${PROJECT_SOURCE_DIR}
  ${CMAKE_BINARY_DIR}/wine/registration $<TARGET_FILE:promoter-activex>)
# A planner's whole day in the control's windows, by mouse and by keys, on sample offices of its own.
promoter_wine_test(tour COMMAND $<TARGET_FILE:promoter-activex-host>
  --tour Z:${CMAKE_BINARY_DIR}/tour)
promoter_wine_test(tour-keys COMMAND $<TARGET_FILE:promoter-activex-host>
  --tour Z:${CMAKE_BINARY_DIR}/tour-keys --keys)
set_tests_properties(tour tour-keys PROPERTIES TIMEOUT 60)
set_tests_properties(late_bound registration PROPERTIES TIMEOUT 300)
