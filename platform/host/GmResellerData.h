#pragma once

#include "kernel/OdString.h"

// The host's store of what a reseller may change in the product, such as the names of its printers.
namespace GmResellerData
{
// Returns 0 and the value if the store has the key; otherwise another status, and value is untouched. Keys match
// exactly.
int lookup(const OdString& key, OdString& value);

// Used by the host to fill the store from its settings. Replaces an earlier value.
void set(const OdString& key, const OdString& value);
void clear();
} // namespace GmResellerData
