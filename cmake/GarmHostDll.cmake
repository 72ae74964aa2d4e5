# GarmHost.dll: everything that the host provides, in one library. Included last, when all parts are known.
get_property(parts GLOBAL PROPERTY GARM_HOST_PARTS)
add_library(GarmHost SHARED ${PROJECT_SOURCE_DIR}/platform/host/windows/GarmHost.cpp)
target_link_libraries(GarmHost PRIVATE garm_options ${parts})
set_target_properties(GarmHost PROPERTIES PREFIX "")
# Nothing in it is marked for export, so every symbol is exported: it replaces three libraries whose headers are ours.
target_link_options(GarmHost PRIVATE -Wl,--export-all-symbols -Wl,--exclude-libs,libz.a,--exclude-libs,libssp.a)
