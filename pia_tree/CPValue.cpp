#include "pia_tree/CPValue.h"

#include "pia_tree/NumberText.h"

CPNum::CPNum(OdStringView name, std::int32_t value) : CPText(eNum, name, pia::numberText(value)) {}

CPNum::CPNum(OdStringView name, double value, int precision) : CPText(eNum, name, pia::numberText(value, precision)) {}
