# Fails when a document names a file that is not there.
#   cmake -DROOT=<source root> -P CheckDocuments.cmake
#
# Names stand in backticks, below src/ or the root, with their ending or without it, and may have
# wildcards. A name whose first folder is neither below src/ nor the root is of something else, such
# as a place in an installation.
cmake_minimum_required(VERSION 3.25)

set(faults "")
foreach(document ARCHITECTURE.md CONTRIBUTING.md)
    file(READ ${ROOT}/${document} text)
    string(REGEX MATCHALL "`[A-Za-z_]+/[A-Za-z0-9_/.*-]*`" names "${text}")
    list(REMOVE_DUPLICATES names)
    list(FILTER names EXCLUDE REGEX "^`build/")
    foreach(name IN LISTS names)
        string(REPLACE "`" "" name ${name})
        string(REGEX REPLACE "/.*" "" folder ${name})
        string(REGEX REPLACE "/$" "" name ${name})
        foreach(root ${ROOT} ${ROOT}/src)
            file(GLOB there ${root}/${name} ${root}/${name}.h)
            if(there OR NOT EXISTS ${root}/${folder})
                continue()
            endif()
            string(APPEND faults "\n  ${document} names ${name}, which is not there")
        endforeach()
    endforeach()
endforeach()
if(faults)
    message(FATAL_ERROR "Documents name files that are gone:${faults}")
endif()
