#pragma once

// The base of what this library throws. Exceptions are thrown by pointer; who catches one and does not throw it on
// calls Delete:
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

    // Ends the exception. Those of this library are static objects, so that throwing one needs no memory and a
    // forgotten one leaks nothing: there is nothing to do for them.
    virtual void Delete() {}
};
