#include "tests/unit/commands/CommandTest.h"

#include "host/GmResBufExtention.h"
#include "kernel/OdRxObjectImpl.h"

#include <filesystem>

namespace
{
class Stranger : public OdRxObject
{
protected:
    ~Stranger() override = default;
};

room::Printer plotterA()
{
    room::Printer printer;
    printer.name = OD_T("Plotter A");
    printer.driver = OD_T("Acme HP-GL");
    printer.port = OD_T("LPT1:");
    printer.papers = {{9, OD_T("A4")}, {8, OD_T("A3")}};
    printer.driverExtra = 8;
    return printer;
}

// A configuration of "Plotter A" as stored in a file.
GmPlotCfg3 boundConfiguration()
{
    GmPlotCfg3 cfg;
    cfg.m_meta.m_driver_type = 1;
    cfg.m_meta.m_win_device_name = OD_T("Plotter A");
    cfg.m_meta.m_win_driver_name = OD_T("Acme HP-GL");
    cfg.m_meta.m_canonical_model_name = OD_T("Canonical");
    cfg.m_meta.m_localized_model_name = OD_T("Localized");
    cfg.m_media.m_size.m_name = OD_T("A3");
    cfg.m_custom = new GmCustomNode();
    cfg.m_custom->setNumber(220, OD_T("dmSize"), true);
    cfg.m_custom->setNumber(8, OD_T("dmDriverExtra"), true);
    cfg.m_custom->setNumber(1025, OD_T("dmSpecVersion"), true);
    cfg.m_custom->setRawData(OD_T("0102030405060708"), true);
    return cfg;
}
} // namespace

OdRxObjectPtr newStranger()
{
    return OdRxObjectImpl<Stranger>::createObject();
}

CommandTest::CommandTest() : m_interfaces(newGarmInterfaces())
{
    m_room.add(plotterA());
    getMainInternalInterface()->setPlotCfgSearchPath(m_folder.path());
}

CommandTest::~CommandTest()
{
    EXPECT_EQ(m_room.openHandles(), 0);
    EXPECT_EQ(m_room.openContexts(), 0);
    EXPECT_EQ(m_room.strayCloses(), 0);
    getMainInternalInterface()->setPlotCfgSearchPath({});
}

OdString CommandTest::putConfiguration(const OdString& fileName, const std::function<void(GmPlotCfg3&)>& change)
{
    GmPlotCfg3 cfg = boundConfiguration();
    if (change)
        change(cfg);
    OdString path = m_folder.at(fileName.c_str());
    EXPECT_TRUE(cfg.write(path));
    return path;
}

void CommandTest::saveToPlots()
{
    getMainInternalInterface()->setPlotCfgSearchPath(m_folder.addFolder("plots") + OD_T(";") + m_folder.path());
}

std::set<std::string> CommandTest::savedFiles() const
{
    const std::filesystem::path top(m_folder.path().c_str());
    const std::string start = inPlots("");
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(top))
    {
        const std::string path = entry.path().lexically_relative(top).string();
        if (entry.is_regular_file() && path.starts_with(start))
            names.insert(path.substr(start.size()));
    }
    return names;
}

void CommandTest::setText(const OdChar* name, const OdString& value)
{
    values().set(name, OdResBuf::newRb(kRtString, value));
}

void CommandTest::setFlag(const OdChar* name, bool value)
{
    values().set(name, OdResBuf::newRb(kRtBool, value));
}

void CommandTest::setAddress(const OdChar* name, void* value)
{
    values().set(name, GmResBufExtention::newVoid(value));
}

OdResBufPtr CommandTest::valueOf(const OdChar* name)
{
    OdResBufPtr value = odrxCast<OdResBuf>(values().get(name));
    EXPECT_TRUE(value) << "no value " << OdString(name);
    return value ? value : OdResBuf::newRb();
}
