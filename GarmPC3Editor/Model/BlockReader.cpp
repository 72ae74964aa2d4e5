#include "GarmPC3Editor/Model/BlockReader.h"

#include "pia_tree/CPValue.h"

#include <utility>

namespace
{
bool hasItemNamed(const CPBlock& block, OdStringView name)
{
    for (unsigned i = 0; i < block.size(); ++i)
        if (block.nameAt(i) == name)
            return true;
    return false;
}
} // namespace

OdString BlockReader::path() const
{
    if (!m_outer)
        return OdString(m_name);
    const OdString outer = m_outer->path();
    return outer.isEmpty() ? OdString(m_name) : outer + OD_T("/") + m_name;
}

bool BlockReader::failAtKey(OdStringView key, ValueKind expected) const
{
    Fault fault{.code = FaultCode::missingKey, .block = path(), .key = OdString(key), .expected = expected};
    const bool wantsNumber = expected == ValueKind::wholeNumber || expected == ValueKind::number;
    if (const auto number = wantsNumber ? m_block.find(key, CPItem::eNum) : nullptr)
    {
        fault.code = FaultCode::notANumber;
        fault.text = static_cast<const CPText&>(*number).text();
    }
    else if (hasItemNamed(m_block, key))
        fault.code = FaultCode::otherKind;
    m_report.fault = std::move(fault);
    return false;
}

bool BlockReader::failAtBlock(OdStringView key) const
{
    OdString block = path();
    if (!block.isEmpty())
        block += OD_T("/");
    block += key;
    m_report.fault = Fault{.code = FaultCode::missingBlock, .block = std::move(block)};
    return false;
}

bool BlockReader::failAtCustomItem(OdStringView name) const
{
    m_report.fault = Fault{.code = FaultCode::badCustomItem, .block = path(), .key = OdString(name)};
    return false;
}

void BlockReader::leaveOut() const
{
    m_report.leftOut.push_back(std::exchange(m_report.fault, Fault()));
}
