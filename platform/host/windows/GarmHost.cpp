// GarmHost.dll consists of the objects of its parts, but a library needs one source of its own.
