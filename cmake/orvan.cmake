# What every target of the project shares: the include root, the warnings, the sanitizers.

add_library(orvan_options INTERFACE)
target_include_directories(orvan_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(orvan_options INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:-Wall;-Wextra;-Wpedantic;-Wconversion;-Wsign-conversion;-Wshadow;-Wold-style-cast;-Wnon-virtual-dtor;-Woverloaded-virtual;-Wnull-dereference>)

# A program's bytes must not tell in which folder it was built.
target_compile_options(orvan_options INTERFACE
    $<$<COMPILE_LANGUAGE:CXX,ASM>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>)

if(WIN32)
    # The oldest system that the program runs on; a call that it lacks isn't even declared.
    set(oldest_windows 0x0601) # Windows 7
    target_compile_definitions(orvan_options INTERFACE
        WINVER=${oldest_windows} _WIN32_WINNT=${oldest_windows})
endif()

if(MINGW)
    # GCC 12 takes some joining of texts for an overlapping copy once all of it is inlined.
    target_compile_options(orvan_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>)
endif()

# Without the check of virtual tables: it looks at memory by way of a pipe, and without a free file
# handle, which is a case that the tests bring about, it takes sound objects for broken ones.
if(ORVAN_SANITIZE)
    target_compile_options(orvan_options INTERFACE
        -fsanitize=${ORVAN_SANITIZE} -fno-sanitize=vptr -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    target_link_options(orvan_options INTERFACE -fsanitize=${ORVAN_SANITIZE})
endif()

# What the program's own code is compiled with besides: calls of the C library that can be checked
# are. It takes optimised code.
add_library(orvan_hardened INTERFACE)
if(NOT WIN32 AND NOT ORVAN_SANITIZE)
    target_compile_options(orvan_hardened INTERFACE
        $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>)
endif()

# The standard headers that cost most of a small file's compilation, parsed once for all libraries.
# They are a matter of time only: each file still includes what it uses.
set(ORVAN_STANDARD_HEADERS
    <algorithm> <array> <cmath> <cstdint> <cstdlib> <functional> <limits> <memory> <optional>
    <string> <string_view> <utility> <vector>)
file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/headers.cpp CONTENT "")
add_library(orvan_headers OBJECT ${CMAKE_BINARY_DIR}/headers.cpp)
target_link_libraries(orvan_headers PRIVATE orvan_options orvan_hardened)
target_precompile_headers(orvan_headers PRIVATE ${ORVAN_STANDARD_HEADERS})

# orvan_library(NAME SOURCES... [HEADERS HEADERS...]): a static library under the project's rules.
# The headers are parsed once, beside the standard ones.
function(orvan_library name)
    cmake_parse_arguments(PARSE_ARGV 1 library "" "" "HEADERS")
    add_library(${name} STATIC ${library_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PUBLIC orvan_options PRIVATE orvan_hardened)
    if(library_HEADERS)
        target_precompile_headers(${name} PRIVATE ${ORVAN_STANDARD_HEADERS} ${library_HEADERS})
    else()
        target_precompile_headers(${name} REUSE_FROM orvan_headers)
    endif()
endfunction()

find_program(ORVAN_CCACHE ccache)
if(ORVAN_CCACHE)
    # It is only told so that a precompiled header is no reason to refuse.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros ${ORVAN_CCACHE})
endif()

# orvan_link_platform(TARGET PLATFORM): links the player's own code with the platform that defines
# the seam. Both sides are searched again, as the seam's users and its definitions are separate.
function(orvan_link_platform target platform)
    target_link_libraries(${target} PRIVATE
        "$<LINK_GROUP:RESCAN,orvan_product,orvan_toolkit,${platform}>")
endfunction()

# orvan_resources(TARGET): gives a program for Windows the player's icon, version record and
# manifest.
function(orvan_resources target)
    set(resources ${PROJECT_SOURCE_DIR}/packaging/windows)
    target_sources(${target} PRIVATE ${resources}/orvan.rc)
    set_source_files_properties(${resources}/orvan.rc PROPERTIES
        INCLUDE_DIRECTORIES "${PROJECT_BINARY_DIR}/assets/packed"
        OBJECT_DEPENDS "${resources}/orvan.manifest;${ORVAN_PACKED_ICON}")
    add_dependencies(${target} orvan_packed_icon)
endfunction()
