# GarmPC3Editor.grx: the module as the host loads it.
#
# Its application side is an object library of its own, so that a test program can link it and stand in for the host.
add_library(gm_module_objects OBJECT
    GarmPC3EditorApp.cpp
    GarmPC3EditorModule.cpp
    PC3ResourceSentry.cpp)
target_link_libraries(gm_module_objects PUBLIC garm_options)

add_library(GarmPC3Editor SHARED
    $<TARGET_OBJECTS:gm_module_objects> $<TARGET_OBJECTS:gm_dialog_objects> $<TARGET_OBJECTS:gm_commands_objects>
    $<TARGET_OBJECTS:gm_decisions_objects> $<TARGET_OBJECTS:gm_printing_objects> $<TARGET_OBJECTS:gm_model_objects>)
target_link_libraries(GarmPC3Editor PRIVATE mfc_subset pia_tree host_services spooler od_kernel garm_options)
set_target_properties(GarmPC3Editor PROPERTIES PREFIX "" SUFFIX .grx IMPORT_PREFIX "" IMPORT_SUFFIX .unused.a)
# What is marked for export, and nothing of the libraries linked in. The definition file is a by-product that the
# delay-import library is made of.
set(definitions ${CMAKE_CURRENT_BINARY_DIR}/GarmPC3Editor.def)
target_link_options(GarmPC3Editor PRIVATE -Wl,--output-def,${definitions})
add_dependencies(GarmPC3Editor GarmPC3EditorRes)

# garm_pc3editor_delayed: what a host links that uses the exported classes. The module is looked for at the first call
# of one of them, not at the start of the program, which with an ordinary import library ends before main when the
# module is missing. So load the module with LoadLibraryW first, and call nothing of it unless that worked: a call
# without the module raises the exception of the delay-load helper. Only functions can be had this way, no data.
set(delayed ${CMAKE_CURRENT_BINARY_DIR}/libGarmPC3Editor_delayed.a)
add_custom_command(OUTPUT ${delayed}
    COMMAND ${CMAKE_DLLTOOL} --input-def ${definitions} --dllname GarmPC3Editor.grx --output-delaylib ${delayed}
    DEPENDS GarmPC3Editor
    COMMENT "Delay-import library of GarmPC3Editor.grx"
    VERBATIM)
add_custom_target(GarmPC3Editor_delayed_library DEPENDS ${delayed})
add_library(garm_pc3editor_delayed INTERFACE)
add_dependencies(garm_pc3editor_delayed GarmPC3Editor_delayed_library)
target_link_libraries(garm_pc3editor_delayed INTERFACE ${delayed} delayimp garm_options)
target_compile_definitions(garm_pc3editor_delayed INTERFACE GARM_PC3EDITOR_IMPORT)
