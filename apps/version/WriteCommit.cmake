# Writes the commit that the folder FROM stands at into the source file TO, unless it is there: from
# git, or from the file "commit" of a source archive, else "unknown". Files that were changed since
# are told by a "+".
set(commit)
# A folder inside of somebody else's checkout is none of it.
if(EXISTS ${FROM}/.git)
  execute_process(COMMAND git -C ${FROM} rev-parse --short=12 HEAD
    OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  execute_process(COMMAND git -C ${FROM} diff-index --quiet HEAD --
    RESULT_VARIABLE changed OUTPUT_QUIET ERROR_QUIET)
  if(commit AND NOT changed EQUAL 0)
    string(APPEND commit "+")
  endif()
endif()
if(NOT commit)
  # git archive puts the commit and its time into it.
  file(STRINGS ${FROM}/apps/version/commit commit LIMIT_COUNT 1 REGEX "^[0-9a-f]+$")
endif()
if(NOT commit)
  set(commit unknown)
endif()
file(CONFIGURE OUTPUT ${TO} CONTENT "#include \"apps/version/Version.h\"

namespace version {

std::string_view Commit() {
  return \"${commit}\";
}

}  // namespace version
")
