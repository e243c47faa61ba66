# How tests become tests of CTest, and what each of them is made of.

# The thread sanitizer needs its shadow where an address space laid out at random may lie.
if(ORVAN_SANITIZE MATCHES thread)
    execute_process(COMMAND setarch -R true RESULT_VARIABLE refused ERROR_QUIET)
    if(NOT refused)
        set(CMAKE_CROSSCOMPILING_EMULATOR setarch -R)
    endif()
endif()

# The tests' own code is compiled for the compiler's speed: it costs most of a build and little of
# a run.
add_library(orvan_tests_options INTERFACE)
target_compile_options(orvan_tests_options INTERFACE -O0)
if(WIN32)
    # This build's runtime library has no threads of its own.
    target_compile_definitions(orvan_tests_options INTERFACE DOCTEST_CONFIG_NO_MULTITHREADING)
endif()

# orvan_needs(TESTS WORD VALUES...): tells scripts/needed-for-tests about the tests of that name, or
# of all names that start with it and a colon. The words:
#   program TARGET     they are the cases of this test program,
#   source FILES       written in these files,
#   label LABEL        with this label;
#   build PRESET TARGETS   they run what these targets of a preset make;
#   packages PURPOSES      they take these packages, besides those to build.
set_property(GLOBAL PROPERTY orvan_needs "")
function(orvan_needs tests word)
    list(JOIN ARGN "\t" values)
    set_property(GLOBAL APPEND_STRING PROPERTY orvan_needs "${tests}\t${word}\t${values}\n")
endfunction()

# To be called when all tests are declared.
function(orvan_write_needs)
    get_property(needs GLOBAL PROPERTY orvan_needs)
    file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/tests/needs CONTENT "${needs}")
endfunction()

# orvan_add_suite(NAME LABEL PROPERTIES LIBRARIES...): every source of the folder in one test
# program, every test case a test of its own in CTest, named "<suite>: <sentence>".
# Further sources than the folder's own may be added with target_sources afterwards.
function(orvan_add_suite name label properties)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    add_executable(${name} ${sources})
    set(runner suite_runner)
    if(Qt6::Widgets IN_LIST ARGN)
        set(runner suite_runner_qt)
    endif()
    target_link_libraries(${name} PRIVATE ${runner} ${ARGN})
    target_precompile_headers(${name} REUSE_FROM ${runner})
    # Programs for another system can't be asked for their tests while they are built: tests/wine
    # starts them.
    if(CMAKE_CROSSCOMPILING)
        target_link_options(${name} PRIVATE -static)
        set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
        return()
    endif()
    # Single quotes keep the blank at the end.
    doctest_discover_tests(${name} TEST_PREFIX "'${name}: '" PROPERTIES ${properties})
    orvan_needs(${name} program ${name})
    orvan_needs(${name} source "$<JOIN:$<TARGET_PROPERTY:${name},SOURCES>,\t>")
    orvan_needs(${name} label ${label})
endfunction()

# orvan_test_suite(NAME LABEL LIBRARIES...): a suite that needs no desktop.
function(orvan_test_suite name label)
    orvan_add_suite(${name} ${label} "LABELS;${label};TIMEOUT;300" ${ARGN})
    if(NOT label STREQUAL quick)
        orvan_needs(${name} packages test desktop)
    endif()
endfunction()

# orvan_private_desktop(NAME LABEL [MANAGER]): a virtual desktop, under another window manager than
# openbox if one is named, that the tests with this fixture share, one after the other. CTest starts
# it before the first of them and stops it after the last; if it can't start, they fail. It lies in
# the folder NAME of the build.
set(ORVAN_DESKTOP ${CMAKE_CURRENT_LIST_DIR}/desktop)
function(orvan_private_desktop name label)
    set(dir ${CMAKE_BINARY_DIR}/${name})
    add_test(NAME "${name}: starts" COMMAND ${ORVAN_DESKTOP}/desktop start ${dir} ${ARGN})
    add_test(NAME "${name}: stops" COMMAND ${ORVAN_DESKTOP}/desktop stop ${dir})
    set_tests_properties("${name}: starts" PROPERTIES
        LABELS ${label} FIXTURES_SETUP ${name} TIMEOUT 300)
    set_tests_properties("${name}: stops" PROPERTIES
        LABELS ${label} FIXTURES_CLEANUP ${name} TIMEOUT 300)
    orvan_needs(${name} packages test desktop)
endfunction()

# What a test on a desktop is started with and told to CTest as: orvan_on_desktop(NAME LABEL LAUNCHER
# PROPERTIES), the last two being variables to set.
function(orvan_on_desktop name label launcher properties)
    set(${launcher} ${ORVAN_DESKTOP}/launcher ${CMAKE_BINARY_DIR}/${name} PARENT_SCOPE)
    set(${properties} LABELS ${label} FIXTURES_REQUIRED ${name} RESOURCE_LOCK ${name} TIMEOUT 300
        PARENT_SCOPE)
endfunction()

# orvan_desktop_suite(NAME LIBRARIES...): a suite whose tests run in the fixture "desktop", with a
# display, a window manager and a sound server whose output can be recorded.
function(orvan_desktop_suite name)
    orvan_on_desktop(desktop display launcher properties)
    # Known before the suite is made: its tests are written down with it.
    list(APPEND CMAKE_CROSSCOMPILING_EMULATOR ${launcher})
    orvan_add_suite(${name} display "${properties}" ${ARGN})
    orvan_needs(${name} packages test desktop)
endfunction()

# orvan_scenarios(SUITE SCRIPT SUBJECT LABEL [SYSTEM SYSTEM [WHICH]] [ON DESKTOP...]
# [AFTER FIXTURE...]): one test a scenario of a Python script, named by its sentence, each run on the
# subject; of the scenarios for one system, if one is given. They are shared out among the desktops,
# which are tested side by side.
function(orvan_scenarios suite script subject label)
    cmake_parse_arguments(PARSE_ARGV 4 tests "" "" "SYSTEM;ON;AFTER")
    get_filename_component(folder ${script} DIRECTORY)
    file(GLOB modules CONFIGURE_DEPENDS ${folder}/*.py)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${modules})

    execute_process(COMMAND ${Python3_EXECUTABLE} -B ${script} --list ${tests_SYSTEM}
        OUTPUT_VARIABLE sentences OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    string(REPLACE "\n" ";" sentences "${sentences}")
    set(desktops ${tests_ON})
    foreach(sentence IN LISTS sentences)
        set(launcher "")
        set(properties LABELS ${label} TIMEOUT 300)
        if(desktops)
            list(POP_FRONT desktops desktop)
            list(APPEND desktops ${desktop})
            orvan_on_desktop(${desktop} ${label} launcher properties)
        endif()
        set(name "${suite}: ${sentence}")
        add_test(NAME ${name}
            COMMAND ${launcher} ${Python3_EXECUTABLE} -B ${script} ${subject} ${sentence})
        set_tests_properties(${name} PROPERTIES ${properties})
        set_property(TEST ${name} APPEND PROPERTY FIXTURES_REQUIRED ${tests_AFTER})
    endforeach()
endfunction()
