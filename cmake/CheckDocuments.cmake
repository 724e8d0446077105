# Fails when a document names a file that is not there.
#   cmake -DROOT=<source root> -P CheckDocuments.cmake
#
# Names stand in backticks, below src/ or the root, with their ending or without it, and may have
# wildcards. What is built or installed is not looked for.
cmake_minimum_required(VERSION 3.25)

set(faults "")
foreach(document ARCHITECTURE.md CONTRIBUTING.md)
    file(READ ${ROOT}/${document} text)
    string(REGEX MATCHALL "`[A-Za-z_]+/[A-Za-z0-9_/.*-]*`" names "${text}")
    list(REMOVE_DUPLICATES names)
    list(FILTER names EXCLUDE REGEX "^`(bin|build)/")
    foreach(name IN LISTS names)
        string(REPLACE "`" "" name ${name})
        string(REGEX REPLACE "/$" "" name ${name})
        set(path ${ROOT}/src/${name})
        file(GLOB there ${ROOT}/${name} ${path} ${path}.h)
        if(NOT there)
            string(APPEND faults "\n  ${document} names ${name}, which is not there")
        endif()
    endforeach()
endforeach()
if(faults)
    message(FATAL_ERROR "Documents name files that are gone:${faults}")
endif()
