// GarmHost.dll is made of the objects of its parts; a library needs one source of its own.
