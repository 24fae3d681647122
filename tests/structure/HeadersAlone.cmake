# Each header must compile alone: one generated source a header, all in one object library. It
# includes the header twice, so that a missing guard shows too. Once is enough: not again under the
# sanitizers.
if(PROMOTER_SANITIZE)
  return()
endif()
file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}
  ${PROJECT_SOURCE_DIR}/src/*.h ${PROJECT_SOURCE_DIR}/demo/*.h)
set(units)
set(libraries promoter_flags)
foreach(header ${headers})
  get_filename_component(folder ${header} DIRECTORY)
  string(REGEX REPLACE "^src/" "" folder ${folder})
  promoter_target_name(${folder} library)
  # An adapter of another platform is no target here, and its headers cannot compile.
  if(TARGET ${library})
    string(REGEX REPLACE "^src/" "" written ${header})
    set(unit ${CMAKE_CURRENT_BINARY_DIR}/headers/${written}.cpp)
    file(CONFIGURE OUTPUT ${unit} CONTENT "#include \"${written}\"\n#include \"${written}\"\n")
    list(APPEND units ${unit})
    list(APPEND libraries ${library})
  endif()
endforeach()
list(REMOVE_DUPLICATES libraries)
add_library(headers_alone OBJECT ${units})
target_link_libraries(headers_alone PRIVATE ${libraries})
