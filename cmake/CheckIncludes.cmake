# Fails when a file of a layer includes what the layer may not know.
#   cmake -DLAYER=model "-DUSES=base archive" -DROOT=<source root> -P CheckIncludes.cmake
#
# Files may include their own layer, those that it USES, the C++ standard library (headers without a
# dot, a slash or a capital letter), and for the layer X the <headers> that the regular expression
# `system_X` matches. Targets alone cannot tell: Debian puts <xcb/xcb.h> and the like on the default
# path.
cmake_minimum_required(VERSION 3.25)

set(system_base "^(fmt/.*|unistd\\.h|fcntl\\.h|sys/(stat|types)\\.h)$")
set(system_command "^(CLI/CLI\\.hpp|dbus/dbus\\.h|dlfcn\\.h|fcntl\\.h|sysexits\\.h|unistd\\.h)$")
set(system_archive "^(fmt|plist)/")
set(system_shortcuts "^fmt/")
set(system_services "^fmt/")
set(system_model "^(fmt/.*|zlib\\.h|unistd\\.h|fcntl\\.h|sys/(file|stat|types)\\.h)$")
set(system_geometry "^fmt/")
set(system_app "^fmt/")
set(system_updates "^(curl/curl|expat|sys/resource)\\.h$")
set(system_desktop/shared "^fmt/")
set(system_desktop/memory "^poll\\.h$")
set(system_desktop/freedesktop "^(canberra\\.h|dlfcn\\.h|fmt/.*|sys/(stat|wait)\\.h|unistd\\.h)$")
set(system_desktop/linux "^(cxxabi\\.h|fcntl\\.h|fmt/.*|linux/.*|mntent\\.h|s(ignal|pawn)\\.h|sys/(file|inotify|mman|prctl|resource|signalfd|stat|syscall|types|wait)\\.h|sysexits\\.h|ucontext\\.h|unistd\\.h)$")
set(system_crash_report "^(cxxabi\\.h|elf\\.h|elfutils/libdwfl\\.h|fcntl\\.h|fmt/.*|signal\\.h|sys/(file|resource|stat)\\.h|unistd\\.h)$")
set(system_desktop/x11 "^(fmt/|poll\\.h|sys/|unistd\\.h|xcb/|xkbcommon/)")
set(system_desktop/dbus "^(Q[A-Za-z]+|dbus/dbus\\.h)$")
set(system_desktop/qt "^Q[A-Za-z]+$")

separate_arguments(uses UNIX_COMMAND "${USES}")
file(GLOB_RECURSE files ${ROOT}/${LAYER}/*.h ${ROOT}/${LAYER}/*.cpp)
set(faults "")
foreach(file IN LISTS files)
    file(RELATIVE_PATH shown ${ROOT} ${file})
    file(STRINGS ${file} lines REGEX "^[ \t]*#[ \t]*include[ \t]")
    foreach(line IN LISTS lines)
        if(line MATCHES "include[ \t]+\"(.+)/[^/\"]+\"")
            if(NOT CMAKE_MATCH_1 STREQUAL LAYER AND NOT CMAKE_MATCH_1 IN_LIST uses)
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
