# Targets of ours, all with the same options.

# garm_host_part(NAME sources...): a part of what the host brings. Natively a static library; on Windows its objects
# become part of GarmHost.dll, which host and module both import, so that one process has one command stack, one
# named-value service and one error type.
function(garm_host_part name)
    add_library(${name}_objects OBJECT ${ARGN})
    target_link_libraries(${name}_objects PUBLIC garm_options)
    if(WIN32)
        add_library(${name} INTERFACE)
        target_link_libraries(${name} INTERFACE GarmHost garm_options)
        set_property(GLOBAL APPEND PROPERTY GARM_HOST_PARTS ${name}_objects)
    else()
        add_library(${name} STATIC $<TARGET_OBJECTS:${name}_objects>)
        target_link_libraries(${name} PUBLIC garm_options)
    endif()
endfunction()

# garm_module_part(NAME sources... [LIBS libraries...]): a portable part of the module. Its objects are compiled once: the
# module links NAME_objects, so that all of them are in it, and the tests link the static library NAME, so that what they
# test is what is shipped.
function(garm_module_part name)
    cmake_parse_arguments(arg "" "" "LIBS" ${ARGN})
    add_library(${name}_objects OBJECT ${arg_UNPARSED_ARGUMENTS})
    target_link_libraries(${name}_objects PUBLIC garm_options)
    add_library(${name} STATIC $<TARGET_OBJECTS:${name}_objects>)
    target_link_libraries(${name} PUBLIC ${arg_LIBS} garm_options)
endfunction()

# What every test program includes, compiled once: GoogleTest's headers alone cost more than most of our tests. A compiler
# cache does better on the unchanged sources, because it does not know one precompiled header from another.
if(CMAKE_CXX_COMPILER_LAUNCHER)
    set(precompile OFF)
else()
    set(precompile ON)
endif()
option(GARM_PRECOMPILE_TESTS "Precompile the headers that test programs share" ${precompile})

function(garm_precompile_for_tests name)
    if(NOT GARM_PRECOMPILE_TESTS)
        return()
    endif()
    if(NOT TARGET garm_test_headers)
        file(WRITE ${PROJECT_BINARY_DIR}/garm_test_headers.cpp "")
        add_library(garm_test_headers OBJECT ${PROJECT_BINARY_DIR}/garm_test_headers.cpp)
        target_link_libraries(garm_test_headers PRIVATE GTest::gmock garm_options)
        target_compile_options(garm_test_headers PRIVATE -O0)
        target_precompile_headers(garm_test_headers PRIVATE
            $<$<BOOL:${WIN32}>:<windows.h$<ANGLE-R>> <gmock/gmock.h> <gtest/gtest.h> <functional> <map> <memory> <optional>
            <string> <vector>)
    endif()
    target_precompile_headers(${name} REUSE_FROM garm_test_headers)
endfunction()

# Each test program writes its report here; ./test counts the cases in them.
set(garm_reports ${PROJECT_BINARY_DIR}/reports)
file(MAKE_DIRECTORY ${garm_reports})
# What a sanitizer finds ends the program and is shown with its stack. Memory of a returned function is watched as well.
set(garm_test_environment ASAN_OPTIONS=detect_stack_use_after_return=1
    UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 TSAN_OPTIONS=halt_on_error=1)

# garm_add_test(NAME sources... [LIBS libraries...] [SCALES dpi...]): one GoogleTest program, run at 96 dpi, and once
# more at each of the scales.
function(garm_add_test name)
    cmake_parse_arguments(arg "" "" "LIBS;SCALES" ${ARGN})
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PRIVATE ${arg_LIBS} GTest::gmock GTest::gtest_main garm_options)
    # What is tested is built as it is shipped; optimising the tests themselves only takes time, and a lot of it.
    target_compile_options(${name} PRIVATE -O0)
    garm_precompile_for_tests(${name})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
    garm_run_test(${name} ${name})
    foreach(dpi IN LISTS arg_SCALES)
        garm_run_test(${name}_${dpi}dpi ${CMAKE_CROSSCOMPILING_EMULATOR} --dpi ${dpi} $<TARGET_FILE:${name}>)
    endforeach()
endfunction()

function(garm_run_test name)
    add_test(NAME ${name} COMMAND ${ARGN} WORKING_DIRECTORY ${garm_reports})
    # A Windows program finds the file on the drive that Wine maps to the root.
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "${garm_test_environment};GTEST_OUTPUT=xml:$<$<BOOL:${WIN32}>:Z:>${garm_reports}/${name}.xml"
        PROCESSOR_AFFINITY ON)
endfunction()
