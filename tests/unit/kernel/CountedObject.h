#pragma once

#include "kernel/OdRxObjectImpl.h"

// An object that tells whether it is still there.
class CountedObject : public OdRxObject
{
public:
    explicit CountedObject(int& living) : m_living(living) { ++m_living; }
    ~CountedObject() override { --m_living; }

private:
    int& m_living;
};
