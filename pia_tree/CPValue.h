#pragma once

#include "pia_tree/CPItem.h"

#include <cstdint>

// An item whose value is a text: string, number or binary payload.
class CPText : public CPItem
{
public:
    // Takes a name and a text, which are moved: a payload is too large to copy it more often than needed.
    struct Parts
    {
        OdString name;
        OdString text;
    };

    const OdString& text() const noexcept { return m_text; }

protected:
    CPText(EType type, OdStringView name, OdStringView text) : CPItem(type, name), m_text(text) {}
    CPText(EType type, Parts&& parts) noexcept : CPItem(type, std::move(parts.name)), m_text(std::move(parts.text)) {}

private:
    OdString m_text;
};

class CPStr : public CPText
{
public:
    CPStr(OdStringView name, OdStringView value) : CPText(eStr, name, value) {}
    explicit CPStr(Parts&& parts) noexcept : CPText(eStr, std::move(parts)) {}
};

// A binary payload, as text.
class CPBin : public CPText
{
public:
    CPBin(OdStringView name, OdStringView payload) : CPText(eBin, name, payload) {}
    explicit CPBin(Parts&& parts) noexcept : CPText(eBin, std::move(parts)) {}
};

// A number, stored as its text.
class CPNum : public CPText
{
public:
    CPNum(OdStringView name, std::int32_t value);
    // precision: digits after the point; -1 writes the shortest text that reads back as the same double.
    CPNum(OdStringView name, double value, int precision);
    CPNum(OdStringView name, OdStringView text) : CPText(eNum, name, text) {}
    explicit CPNum(Parts&& parts) noexcept : CPText(eNum, std::move(parts)) {}
};

class CPBool : public CPItem
{
public:
    CPBool(OdStringView name, bool value) : CPItem(eBool, name), m_value(value) {}
    bool value() const noexcept { return m_value; }

private:
    bool m_value;
};
