# The floors of the source tree, checked on the #include lines: a folder may
# include its own floor and those below it, never one above.
#
#   services/, frame/   nothing of store/, patterns/, modules/, host/, web/, cli/
#                       (frame/head/ too: the head tables are assembled from the
#                       modules' declarations in modules/, not by naming them)
#   store/              nothing of patterns/, modules/, host/, web/, cli/
#   patterns/           nothing of modules/, host/, web/, cli/
#
# Run as: cmake -DROOT=<source folder> -P check_layers.cmake. Prints every
# offending include as "file: #include ... (folder/ may not include x/)" and
# fails if there is one.
if(NOT ROOT)
  message(FATAL_ERROR "check_layers.cmake: ROOT (the source folder) is not set")
endif()

set(offences 0)

# Checks the sources under ROOT/<dir> against the folders in `forbidden`,
# leaving out files under the folders named in ARGN.
function(check_floor dir forbidden)
  if(NOT IS_DIRECTORY ${ROOT}/${dir})
    message(FATAL_ERROR "check_layers.cmake: no folder ${ROOT}/${dir}")
  endif()
  file(GLOB_RECURSE files RELATIVE ${ROOT}
       ${ROOT}/${dir}/*.h ${ROOT}/${dir}/*.hh ${ROOT}/${dir}/*.hpp
       ${ROOT}/${dir}/*.cc ${ROOT}/${dir}/*.cpp ${ROOT}/${dir}/*.inc)
  set(count ${offences})
  foreach(file ${files})
    set(skip FALSE)
    foreach(except ${ARGN})
      if(file MATCHES "^${except}/")
        set(skip TRUE)
      endif()
    endforeach()
    if(skip)
      continue()
    endif()
    file(STRINGS ${ROOT}/${file} includes
         REGEX "^[ \t]*#[ \t]*include[ \t]*[\"<]")
    foreach(line ${includes})
      string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]*[\"<]([^\">]*)[\">].*$" "\\1"
             path "${line}")
      foreach(upper ${forbidden})
        if(path MATCHES "^${upper}/")
          message("${file}: #include \"${path}\" (${dir}/ may not include ${upper}/)")
          math(EXPR count "${count} + 1")
        endif()
      endforeach()
    endforeach()
  endforeach()
  set(offences ${count} PARENT_SCOPE)
endfunction()

check_floor(services "store;patterns;modules;host;web;cli")
check_floor(frame "store;patterns;modules;host;web;cli")
check_floor(store "patterns;modules;host;web;cli")
check_floor(patterns "modules;host;web;cli")

if(offences GREATER 0)
  message(FATAL_ERROR "${offences} include(s) reach a floor above their own")
endif()
message("floors: every include stays on its floor or below")
