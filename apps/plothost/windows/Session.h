#pragma once

#include "kernel/OdString.h"
#include "plothost/Request.h"

#include <string>

class OdRxModule;

namespace plothost
{
// The host around one request: search path, language, and the module, which is unloaded at the end.
class Session
{
public:
    explicit Session(const Request& request);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Fills the reseller data store from the settings. False with the reason, one line of UTF-8 without line end, when
    // the settings file cannot be read or understood; without --settings it need not be there.
    bool readSettings(std::string& whyNot) const;

    // What came of loading the module; each text is one line of UTF-8 without line end, or empty.
    struct Loaded
    {
        std::string whyNot = {}; // empty when the module is loaded
        std::string notes = {};  // what the user should know although it is not a failure
    };
    Loaded loadModule();

    const OdString& searchPath() const noexcept { return m_searchPath; }

private:
    const Request& m_request;
    OdString m_searchPath;
    OdRxModule* m_module = nullptr;
};
} // namespace plothost
