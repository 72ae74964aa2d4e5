# garm_packaged_headers(NAME FOLDER): an interface target that makes one header folder of a distribution package
# visible, through a link in the build tree. A cross build must not see the machine's whole include folder, because its
# C library headers would shadow the target's.
function(garm_packaged_headers name folder)
    set(visible ${PROJECT_BINARY_DIR}/packaged/${name})
    get_filename_component(leaf ${folder} NAME)
    if(NOT EXISTS ${folder})
        message(FATAL_ERROR "${folder} is missing: install its package (see README.md)")
    endif()
    file(MAKE_DIRECTORY ${visible})
    file(CREATE_LINK ${folder} ${visible}/${leaf} SYMBOLIC)
    add_library(${name} INTERFACE)
    target_include_directories(${name} SYSTEM INTERFACE ${visible})
endfunction()
