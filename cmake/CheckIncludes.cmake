# Fails when a file of a layer includes what the layer may not know.
#   cmake -DLAYER=model -DROOT=<source root> -P CheckIncludes.cmake
#
# `layers_X` are the layers that files of X may include besides their own; `system_X` is a regular
# expression of the <headers> they may include besides the C++ standard library's (those without a
# dot, a slash or a capital letter). Targets alone cannot tell: Debian puts <xcb/xcb.h> and the like
# on the default path.
cmake_minimum_required(VERSION 3.25)

set(layers_base "")
set(layers_platform base)
set(layers_archive base)
set(layers_accessibility base platform)
set(layers_shortcuts base platform archive)
set(layers_services base platform archive)
set(layers_model base platform archive shortcuts services)
set(layers_geometry base platform accessibility model)
set(layers_ui base platform shortcuts services model)
set(layers_menubar base platform accessibility shortcuts services model geometry ui)
set(layers_app base platform accessibility services model ui menubar)
set(layers_desktop/shared base platform)
set(layers_desktop/memory base platform shortcuts ui menubar desktop/shared)
set(layers_desktop/linux base platform desktop/shared)
set(layers_desktop/qt base platform shortcuts ui menubar desktop/shared)

set(system_base "^(fmt/.*|unistd\\.h|fcntl\\.h|sys/(stat|types)\\.h)$")
set(system_archive "^(fmt|plist)/")
set(system_shortcuts "^fmt/")
set(system_services "^fmt/")
set(system_model "^(fmt/.*|zlib\\.h|unistd\\.h|fcntl\\.h|sys/(file|stat|types)\\.h)$")
set(system_geometry "^fmt/")
set(system_desktop/memory "^poll\\.h$")
set(system_desktop/linux "^(canberra\\.h|fmt/|linux/|poll\\.h|xcb/|xkbcommon/|sys/|unistd\\.h|fcntl\\.h|signal\\.h|spawn\\.h|sysexits\\.h)")
set(system_desktop/qt "^(Q[A-Za-z]+|sys/.*|unistd\\.h|fcntl\\.h|signal\\.h)$")

if(NOT DEFINED layers_${LAYER})
    message(FATAL_ERROR "cmake/CheckIncludes.cmake has no rule for the layer ${LAYER}")
endif()

file(GLOB_RECURSE files ${ROOT}/${LAYER}/*.h ${ROOT}/${LAYER}/*.cpp)
set(faults "")
foreach(file IN LISTS files)
    file(RELATIVE_PATH shown ${ROOT} ${file})
    file(STRINGS ${file} lines REGEX "^[ \t]*#[ \t]*include[ \t]")
    foreach(line IN LISTS lines)
        if(line MATCHES "include[ \t]+\"(.+)/[^/\"]+\"")
            if(NOT CMAKE_MATCH_1 STREQUAL LAYER AND NOT CMAKE_MATCH_1 IN_LIST layers_${LAYER})
                string(APPEND faults "\n  ${shown} may not include the layer ${CMAKE_MATCH_1}")
            endif()
        elseif(line MATCHES "include[ \t]+<([^>]+)>")
            set(header ${CMAKE_MATCH_1})
            if(NOT header MATCHES "^[a-z_0-9]+$"
               AND NOT (system_${LAYER} AND header MATCHES "${system_${LAYER}}"))
                string(APPEND faults "\n  ${shown} may not include <${header}>")
            endif()
        else()
            string(APPEND faults "\n  ${shown}: name the layer of every include: ${line}")
        endif()
    endforeach()
endforeach()
if(faults)
    message(FATAL_ERROR "Includes that the layer ${LAYER} may not have:${faults}")
endif()
