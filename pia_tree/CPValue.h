#pragma once

#include "pia_tree/CPItem.h"

#include <cstdint>

// An item whose value is a text: string, number or binary payload.
class CPText : public CPItem
{
public:
    const OdString& text() const noexcept { return m_text; }

protected:
    CPText(EType type, OdStringView name, OdStringView text) : CPItem(type, name), m_text(text) {}

private:
    OdString m_text;
};

class CPStr : public CPText
{
public:
    CPStr(OdStringView name, OdStringView value) : CPText(eStr, name, value) {}
};

// Binary payload in text form.
class CPBin : public CPText
{
public:
    CPBin(OdStringView name, OdStringView payload) : CPText(eBin, name, payload) {}
};

// A number, kept as its text.
class CPNum : public CPText
{
public:
    CPNum(OdStringView name, std::int32_t value);
    // precision: digits after the point; -1 writes the shortest text that reads back as the same double.
    CPNum(OdStringView name, double value, int precision);
    CPNum(OdStringView name, OdStringView text) : CPText(eNum, name, text) {}
};

class CPBool : public CPItem
{
public:
    CPBool(OdStringView name, bool value) : CPItem(eBool, name), m_value(value) {}
    bool value() const noexcept { return m_value; }

private:
    bool m_value;
};
