#pragma once

#include "kernel/OdRxObjectImpl.h"

// Counts its living instances.
class CountedObject : public OdRxObject
{
public:
    explicit CountedObject(int& living) : m_living(living) { ++m_living; }
    ~CountedObject() override { --m_living; }

private:
    int& m_living;
};
