#include "kernel/OdRxObject.h"

OdRxObject::~OdRxObject() = default;
