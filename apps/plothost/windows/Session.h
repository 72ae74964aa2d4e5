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

    // Fills the reseller data store from the settings. Returns false with the reason, one line of UTF-8 without line
    // end, if the settings file cannot be read or is invalid; without --settings it need not exist.
    bool readSettings(std::string& whyNot) const;

    // The result of loading the module; each text is one line of UTF-8 without line end, or empty.
    struct Loaded
    {
        std::string whyNot = {}; // empty if the module is loaded
        std::string notes = {};  // a note for the user that is not a failure
    };
    Loaded loadModule();

    const OdString& searchPath() const noexcept { return m_searchPath; }

private:
    const Request& m_request;
    OdString m_searchPath;
    OdRxModule* m_module = nullptr;
};
} // namespace plothost
