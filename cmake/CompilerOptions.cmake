# One interface target carries the options that every target of ours is compiled with.
add_library(garm_options INTERFACE)
target_compile_features(garm_options INTERFACE cxx_std_20)
target_compile_options(garm_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Werror)
# When GCC 12 optimises, it reports overlapping copies in std::string and writes past the end in std::vector::insert
# where there are none (its bugs 105651 and 105329). The sanitizers watch the same places.
target_compile_options(garm_options INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread>)
# Shipped code ends the program at once if something was written past an array on the stack. Builds with sanitizers
# detect this and more.
target_compile_options(garm_options INTERFACE $<$<CONFIG:Release>:-fstack-protector-strong>)
target_include_directories(garm_options INTERFACE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/platform)
target_compile_definitions(garm_options INTERFACE $<$<CONFIG:Release>:NDEBUG>)

if(WIN32)
    # Windows 7 is the oldest system that the host runs on; the wide API is the default. The last three macros declare
    # the GDI, spooler and user functions as plain external names instead of imports, so that a test program can define
    # them and the tested objects are the shipped ones.
    target_compile_definitions(garm_options INTERFACE
        _WIN32_WINNT=0x0601 WINVER=0x0601 UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _GDI32_ _SPOOL32_ _USER32_)
    target_include_directories(garm_options INTERFACE ${PROJECT_SOURCE_DIR}/platform/win32/windows)
    # One C++ runtime for host and module, because errors are thrown from one to the other.
    target_link_options(garm_options INTERFACE -shared-libgcc)
    # Links the guard's code statically; by default the compiler takes it from a DLL, which would be one more to ship.
    target_link_libraries(garm_options INTERFACE $<$<CONFIG:Release>:-l:libssp.a>)
else()
    # The C library's own size checks. They need an optimising build, and mingw's library does not have them.
    target_compile_definitions(garm_options INTERFACE $<$<CONFIG:Release>:_FORTIFY_SOURCE=2>)
    target_include_directories(garm_options INTERFACE ${PROJECT_SOURCE_DIR}/platform/win32/native)
endif()

if(GARM_SANITIZERS)
    set(sanitize -fsanitize=${GARM_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(garm_options INTERFACE ${sanitize})
    target_link_options(garm_options INTERFACE ${sanitize})
endif()
if(GARM_FUZZ)
    # Reports to the fuzzer which branches an input took. The fuzz targets link its engine.
    target_compile_options(garm_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
