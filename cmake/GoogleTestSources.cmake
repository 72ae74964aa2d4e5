# GoogleTest from Debian's sources, for both platforms: there is no packaged binary for Windows or with sanitizers.
set(INSTALL_GTEST OFF)
set(gtest_force_shared_crt ON)
add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
foreach(target gtest gtest_main gmock gmock_main)
    # Third-party code, built with its own warnings but with our sanitizers.
    if(GARM_SANITIZERS)
        target_compile_options(${target} PRIVATE -fsanitize=${GARM_SANITIZERS})
    endif()
    # Like the tests themselves, it is not worth the time that optimising takes.
    target_compile_options(${target} PRIVATE -O0)
    target_compile_features(${target} PUBLIC cxx_std_20)
    if(NOT TARGET GTest::${target})
        add_library(GTest::${target} ALIAS ${target})
    endif()
endforeach()
