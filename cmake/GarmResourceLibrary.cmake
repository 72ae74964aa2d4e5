# garm_resource_library(TARGET SCRIPT file.rc OUTPUT file.dll [INCLUDES folders...] [DEPENDS files...])
#
# A DLL that contains only resources: no code, no entry point, no imports, so that loading it never runs anything.
# CMake's own RC language cannot link such a library without the C runtime's entry point. The compiled script stays in
# the current build folder as TARGET.res, for checks that read it.
#
# The preprocessor finds what the script includes. DEPENDS is for pictures, which it does not see.
function(garm_resource_library target)
    cmake_parse_arguments(arg "" "SCRIPT;OUTPUT" "INCLUDES;DEPENDS" ${ARGN})
    set(object ${CMAKE_CURRENT_BINARY_DIR}/${target}.o)
    set(compiled ${CMAKE_CURRENT_BINARY_DIR}/${target}.res)
    set(includes)
    foreach(folder IN LISTS arg_INCLUDES)
        list(APPEND includes -I ${folder})
    endforeach()
    get_filename_component(folder ${arg_OUTPUT} DIRECTORY)
    add_custom_command(OUTPUT ${compiled}
        COMMAND ${CMAKE_RC_COMPILER} -O res ${includes} --preprocessor-arg=-MMD --preprocessor-arg=-MF
            --preprocessor-arg=${compiled}.d --preprocessor-arg=-MT --preprocessor-arg=${compiled}
            -i ${arg_SCRIPT} -o ${compiled}
        DEPENDS ${arg_SCRIPT} ${arg_DEPENDS}
        DEPFILE ${compiled}.d
        COMMENT "Resources of ${arg_OUTPUT}"
        VERBATIM)
    add_custom_command(OUTPUT ${arg_OUTPUT}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
        COMMAND ${CMAKE_RC_COMPILER} -J res -O coff -i ${compiled} -o ${object}
        COMMAND ${CMAKE_C_COMPILER} -shared -nostdlib -Wl,--entry=0 -o ${arg_OUTPUT} ${object}
        DEPENDS ${compiled}
        BYPRODUCTS ${object}
        COMMENT "Resource library ${arg_OUTPUT}"
        VERBATIM)
    add_custom_target(${target} ALL DEPENDS ${arg_OUTPUT})
endfunction()
