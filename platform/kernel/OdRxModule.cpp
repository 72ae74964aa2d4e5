#include "kernel/OdRxModule.h"

OdRxModule::~OdRxModule() = default;
