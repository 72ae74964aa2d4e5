#include "host/GmResellerData.h"

#include <map>
#include <mutex>

namespace
{
struct Store
{
    std::mutex mutex;
    std::map<OdString, OdString> values;
};

Store& store()
{
    static Store instance;
    return instance;
}
} // namespace

int GmResellerData::lookup(const OdString& key, OdString& value)
{
    Store& data = store();
    const std::lock_guard lock(data.mutex);
    const auto found = data.values.find(key);
    if (found == data.values.end())
        return 1;
    value = found->second;
    return 0;
}

void GmResellerData::set(const OdString& key, const OdString& value)
{
    Store& data = store();
    const std::lock_guard lock(data.mutex);
    data.values[key] = value;
}

void GmResellerData::clear()
{
    Store& data = store();
    const std::lock_guard lock(data.mutex);
    data.values.clear();
}
