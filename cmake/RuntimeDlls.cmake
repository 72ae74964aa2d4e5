# The compiler's runtime libraries, copied beside our programs. Errors are thrown from module to host, which works only
# with one shared runtime, and a program started without a search path must find it.
foreach(name libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
        OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT IS_ABSOLUTE "${path}")
        message(FATAL_ERROR "The compiler does not know its runtime library ${name}")
    endif()
    set(copy ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name})
    add_custom_command(OUTPUT ${copy} DEPENDS ${path} VERBATIM
        COMMAND ${CMAKE_COMMAND} -E copy ${path} ${copy})
    list(APPEND garm_runtime_dlls ${copy})
endforeach()
add_custom_target(runtime_dlls ALL DEPENDS ${garm_runtime_dlls})
