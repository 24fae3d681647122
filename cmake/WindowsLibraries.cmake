# What the Windows build brings along, since a cross compiler finds no libraries of the system:
# SQLite as its amalgamation (scripts/fetch-sqlite puts it into build/sqlite).
set(PROMOTER_SQLITE ${PROJECT_SOURCE_DIR}/build/sqlite CACHE PATH "Folder of sqlite3.c")
if(NOT EXISTS ${PROMOTER_SQLITE}/sqlite3.c)
  message(FATAL_ERROR "There is no ${PROMOTER_SQLITE}/sqlite3.c; scripts/fetch-sqlite fetches it.")
endif()
enable_language(C RC)
# From which archives something came along: scripts/notices reads it there.
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/maps)
add_link_options(-Wl,-Map,${PROJECT_BINARY_DIR}/maps/$<TARGET_PROPERTY:NAME>.map)
add_library(promoter_sqlite3 STATIC ${PROMOTER_SQLITE}/sqlite3.c)
target_include_directories(promoter_sqlite3 SYSTEM PUBLIC ${PROMOTER_SQLITE})
target_compile_definitions(promoter_sqlite3 PRIVATE SQLITE_OMIT_LOAD_EXTENSION
  SQLITE_THREADSAFE=1 SQLITE_DQS=0 SQLITE_OS_WINRT=0)
add_library(SQLite::SQLite3 ALIAS promoter_sqlite3)

target_compile_definitions(promoter_flags INTERFACE
  UNICODE _UNICODE STRICT NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0601)
# COM's interfaces are never deleted through their pointers, and have no virtual destructor.
target_compile_options(promoter_flags INTERFACE -Wno-non-virtual-dtor)
# The same sources give the same bytes, whenever they are linked.
target_link_options(promoter_flags INTERFACE -Wl,--no-insert-timestamp)

set(PROMOTER_COMPANY ${PROJECT_NAME} CACHE STRING "Who publishes it, as Windows shows it")
set(PROMOTER_COPYRIGHT ${PROJECT_NAME} CACHE STRING "The copyright line, as Windows shows it")

# promoter_version_resource(<target> FILE <name> INTERNAL_NAME <name> DESCRIPTION <text>
#   FILETYPE <VFT_...> [SELF_REGISTERS])
# What the properties of the file show of it; the version is apps/version's.
function(promoter_version_resource target)
  cmake_parse_arguments(ARG "SELF_REGISTERS" "FILE;INTERNAL_NAME;DESCRIPTION;FILETYPE" "" ${ARGN})
  string(REPLACE "\"" "\"\"" company "${PROMOTER_COMPANY}")
  string(REPLACE "\"" "\"\"" copyright "${PROMOTER_COPYRIGHT}")
  if(ARG_SELF_REGISTERS)
    set(self_registers "      VALUE \"OLESelfRegister\", \"\"\n")
  endif()
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/version.rc)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${resource} @ONLY)
  set(numbers ${PROJECT_BINARY_DIR}/apps/version/made)
  set_source_files_properties(${resource} PROPERTIES INCLUDE_DIRECTORIES ${numbers}
    OBJECT_DEPENDS ${numbers}/VersionNumber.h)
  target_sources(${target} PRIVATE ${resource})
endfunction()
