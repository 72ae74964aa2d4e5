#pragma once

// The base of what this library throws. Exceptions are thrown by pointer. A handler that does not rethrow calls Delete:
//
//     catch (CException* e)
//     {
//         e->Delete();
//     }
class CException
{
public:
    CException() = default;
    CException(const CException&) = delete;
    CException& operator=(const CException&) = delete;
    virtual ~CException() = default;

    // Releases the exception. Those of this library are static objects, so throwing one needs no memory, forgetting one
    // leaks nothing, and there is nothing to release.
    virtual void Delete() {}
};
