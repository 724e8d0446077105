# panewright_layer(NAME folder SOURCES files... USES layers... LIBRARIES imported targets...)
#
# One static library per layer (an interface library where a layer is headers only), and a check,
# run before anything of the layer compiles, that its files include no layer that it does not use,
# and only the system headers that CheckIncludes.cmake allows it.
find_package(PkgConfig REQUIRED)

add_library(panewright_options INTERFACE)
target_include_directories(panewright_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(panewright_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wconversion
    -Wno-sign-conversion -Wno-missing-field-initializers
    # Frames are computed alike on every processor, also where one has a fused multiply-add.
    -ffp-contract=off
    # GCC 12 takes "text" + std::string() for an overlapping copy when it optimises.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # A header of libxcb can only be included with one of C++'s keywords renamed.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-keyword-macro>)

function(panewright_layer name)
    cmake_parse_arguments(LAYER "" "" "SOURCES;USES;LIBRARIES" ${ARGN})
    string(JOIN " " uses ${LAYER_USES})
    string(REPLACE "/" "_" target "panewright_${name}")
    list(TRANSFORM LAYER_USES PREPEND panewright_)
    list(TRANSFORM LAYER_USES REPLACE "/" "_")
    if(LAYER_SOURCES)
        add_library(${target} STATIC ${LAYER_SOURCES})
        set(scope PUBLIC)
    else()
        add_library(${target} INTERFACE)
        set(scope INTERFACE)
    endif()
    target_link_libraries(${target} ${scope} panewright_options ${LAYER_USES} ${LAYER_LIBRARIES})

    file(GLOB_RECURSE files CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h
        ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    set(stamp ${CMAKE_CURRENT_BINARY_DIR}/${target}.includes-checked)
    add_custom_command(OUTPUT ${stamp}
        COMMAND ${CMAKE_COMMAND} -DLAYER=${name} -DUSES=${uses} -DROOT=${PROJECT_SOURCE_DIR}/src
            -P ${PROJECT_SOURCE_DIR}/cmake/CheckIncludes.cmake
        COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
        DEPENDS ${files} ${PROJECT_SOURCE_DIR}/cmake/CheckIncludes.cmake
        COMMENT "Checking the includes of ${name}" VERBATIM)
    add_custom_target(${target}_includes ALL DEPENDS ${stamp})
    add_dependencies(${target} ${target}_includes)
endfunction()
