#pragma once

#include "kernel/OdString.h"

// The host's store of what a reseller may change about the product, such as the names of its printers.
namespace GmResellerData
{
// 0 and the value when the store has the key; otherwise another status, and value is untouched. Keys are exact.
int lookup(const OdString& key, OdString& value);

// How the host fills the store from its settings. A value replaces the one before.
void set(const OdString& key, const OdString& value);
void clear();
} // namespace GmResellerData
