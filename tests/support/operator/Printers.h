#pragma once

#include <string>

namespace editordriver
{
// A second printer on a driver that is installed; and away with it. Both throw std::runtime_error.
void addPrinter(const std::wstring& name, const std::wstring& driver);
void deletePrinter(const std::wstring& name);
} // namespace editordriver
