# One interface target carries what every target of ours is compiled with.
add_library(garm_options INTERFACE)
target_compile_features(garm_options INTERFACE cxx_std_20)
target_compile_options(garm_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Werror)
# As soon as GCC 12 optimises, it sees overlapping copies inside std::string and writes beyond the end inside
# std::vector::insert where there are none (its bugs 105651 and 105329). The sanitizers watch the same places.
target_compile_options(garm_options INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread>)
# What is shipped ends at once when something was written beyond an array on its stack. The sanitizers see that, and more,
# in the builds that have them.
target_compile_options(garm_options INTERFACE $<$<CONFIG:Release>:-fstack-protector-strong>)
target_include_directories(garm_options INTERFACE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/platform)
target_compile_definitions(garm_options INTERFACE $<$<CONFIG:Release>:NDEBUG>)

if(WIN32)
    # Windows 7 is the oldest system the host runs on; wide API by default. The last three make the GDI, spooler and
    # user functions plain external names instead of imports, so that a test program can define them and the tested
    # objects are the shipped ones.
    target_compile_definitions(garm_options INTERFACE
        _WIN32_WINNT=0x0601 WINVER=0x0601 UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _GDI32_ _SPOOL32_ _USER32_)
    target_include_directories(garm_options INTERFACE ${PROJECT_SOURCE_DIR}/platform/win32/windows)
    # One C++ runtime in host and module: errors are thrown from one to the other.
    target_link_options(garm_options INTERFACE -shared-libgcc)
    # The guard's code from the archive: by itself the compiler takes it from a DLL, one more to ship.
    target_link_libraries(garm_options INTERFACE $<$<CONFIG:Release>:-l:libssp.a>)
else()
    # The C library's own checks of sizes. They need an optimising build, and mingw's library has none.
    target_compile_definitions(garm_options INTERFACE $<$<CONFIG:Release>:_FORTIFY_SOURCE=2>)
    target_include_directories(garm_options INTERFACE ${PROJECT_SOURCE_DIR}/platform/win32/native)
endif()

if(GARM_SANITIZERS)
    set(sanitize -fsanitize=${GARM_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(garm_options INTERFACE ${sanitize})
    target_link_options(garm_options INTERFACE ${sanitize})
endif()
if(GARM_FUZZ)
    # Tells the fuzzer which branches an input took. The fuzz targets link its engine.
    target_compile_options(garm_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(GARM_COVERAGE)
    # Clang counts the decisions as they stand in the source; GCC would count the cleanup of exceptions as branches, too.
    set(count -fprofile-instr-generate -fcoverage-mapping -fprofile-update=atomic)
    target_compile_options(garm_options INTERFACE ${count})
    target_link_options(garm_options INTERFACE ${count})
endif()
