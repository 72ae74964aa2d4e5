#pragma once

#include "kernel/OdString.h"
#include "plothost/DriverQuestions.h"

#include <optional>
#include <span>
#include <vector>

// The host's paper list, which the dialog of the product family's own printers copies.
namespace plothost
{
// The paper whose size the user types; a literal that is the same in every language.
inline constexpr const OdChar* customPaper = OD_T("Custom");

// The driver's papers in its order, then "Custom". If the configuration's own paper is not among them, it comes first,
// so that editing does not silently change it.
std::vector<OdString> paperList(const std::vector<DriverPaper>& driversPapers, const OdString& ownPaper);

// The first paper with exactly that name, else ignoring case; nothing if there is none.
std::optional<std::size_t> paperNamed(const std::vector<OdString>& papers, const OdString& name);

// The name of the first paper with the code of a DEVMODE; "" if there is none.
OdString paperOf(std::span<const BYTE> devMode, const std::vector<DriverPaper>& driversPapers);
} // namespace plothost
