#include "fuzz/CommandSession.h"

#include "fuzz/FileInput.h"
#include "fuzz/OpenConfiguration.h"
#include "fuzz/ScriptedConfiguration.h"
#include "host/GmResBufExtention.h"
#include "kernel/OdRxObjectImpl.h"
#include "pia_tree/CPIAOutput.h"
#include "pia_tree/CPIAParser.h"

#include <gtest/gtest.h>

namespace
{
class Stranger : public OdRxObject
{
protected:
    ~Stranger() override = default;
};

// Texts that can be entered and do not lead out of the folder.
OdString asFileName(const OdString& text)
{
    OdString name;
    for (const OdChar c : text.view())
        name += c == '/' || c == 0 ? OdChar('_') : c;
    return name;
}

OdString someDeviceName(Input& input, const ScriptedRoom& printers)
{
    static const OdChar* const files[] = {OD_T("a.pc3"), OD_T("b.pc3"), OD_T("A.PC3"),   OD_T("a"),
                                          OD_T("plots"), OD_T(".pc3"),  OD_T("../a.pc3")};
    return input.flag() ? OdString(input.oneOf(files)) : printers.someName(input);
}

std::string someFile(Input& input)
{
    if (input.oneIn(3))
    {
        const auto bytes = input.bytes(600);
        return fileFrom(bytes.data(), bytes.size());
    }
    OpenConfiguration cfg;
    static_cast<GmPlotCfg3&>(cfg) = soundConfiguration();
    for (std::size_t changes = input.below(4); changes > 0; --changes)
        changeConfiguration(input, cfg);
    cfg.m_meta.m_driver_type = input.integer();
    CPBlock root(OD_T(""));
    EXPECT_TRUE(cfg.writeToBlock(root));
    std::string file;
    EXPECT_TRUE(CPIAOutput().writeToMemory(root, file));
    return file;
}

OdRxObjectPtr someValue(Input& input, ScriptedRoom& printers)
{
    switch (input.below(16))
    {
    case 0:
        return OdResBuf::newRb();
    case 1:
        return OdRxObjectImpl<Stranger>::createObject();
    case 2:
        return nullptr;
    case 3:
        return OdResBuf::newRb(kRtInt16, input.number<OdInt16>());
    case 4:
        return OdResBuf::newRb(kRtInt32, input.integer());
    case 5:
        return OdResBuf::newRb(kRtDouble, input.real());
    case 6:
        return OdResBuf::newRb(kRtBinaryChunk);
    case 7:
    case 8:
    case 9:
        return OdResBuf::newRb(kRtBool, input.flag());
    case 10:
    case 11:
        return GmResBufExtention::newVoid(input.oneIn(4) ? nullptr : printers.room().newWindow());
    default:
        return OdResBuf::newRb(kRtString, someDeviceName(input, printers));
    }
}
} // namespace

CommandSession::CommandSession(Input& input) : m_printers(input), m_interfaces(newGarmInterfaces())
{
    // A save puts the separator of Windows between folder and name; here it is part of the name.
    getMainInternalInterface()->setPlotCfgSearchPath(m_folder.addFolder("plots") + OD_T(";") + m_folder.path());
    if (input.flag())
        m_module.refuseThreads();
    for (const OdChar* name : {OD_T("deviceName"), OD_T("printerName"), OD_T("plotCfgName")})
        values().set(name, OdResBuf::newRb(kRtString, OD_T("a.pc3")));
    values().set(OD_T("bSystemPrinter"), OdResBuf::newRb(kRtBool, false));
    m_folder.addFile("a.pc3", someFile(input));
    m_put.insert("a.pc3");
}

CommandSession::~CommandSession()
{
    getMainInternalInterface()->setPlotCfgSearchPath({});
}

void CommandSession::putFile(Input& input)
{
    static const char* const names[] = {"a.pc3", "b.pc3", "plots/a.pc3", "plots/b.pc3.pc3", "a"};
    const char* const name = input.oneOf(names);
    m_folder.addFile(name, someFile(input));
    m_put.insert(name);
}

void CommandSession::setValue(Input& input)
{
    static const OdChar* const names[] = {OD_T("deviceName"), OD_T("printerName"),       OD_T("hwndPost"),
                                          OD_T("paperName"),  OD_T("plotCfgName"),       OD_T("bSystemPrinter"),
                                          OD_T("result"),     OD_T("canonicalModelName")};
    const OdString name = input.oneOf(names);
    values().set(name, someValue(input, m_printers));
}

void CommandSession::scriptUser(Input& input)
{
    EditorOutcome wanted;
    wanted.confirmed = !input.oneIn(4);
    wanted.modified = !input.oneIn(4);
    wanted.replaced = input.oneIn(4);
    const bool loses = input.oneIn(8);
    const bool exchanges = input.oneIn(4);
    if (exchanges)
    {
        wanted.cfg = new GmPlotCfg3(soundConfiguration());
        changeConfiguration(input, *wanted.cfg);
    }
    wanted.path = input.oneIn(4) ? input.text(40) : OdString();
    m_editor.onSheet = [wanted, loses, exchanges](EditorOutcome& outcome)
    {
        outcome.confirmed = wanted.confirmed;
        outcome.modified = wanted.modified;
        outcome.replaced = wanted.replaced;
        if (loses || exchanges)
            outcome.cfg = wanted.cfg;
        if (!wanted.path.isEmpty())
            outcome.path = wanted.path;
    };
    const std::optional<OdString> name = input.oneIn(4) ? std::nullopt : std::optional(asFileName(input.text(80)));
    m_editor.onName = [name](const OdString&) { return name; };
}

void CommandSession::expectWholeFiles() const
{
    const std::string start = "plots\\";
    for (const std::string& name : m_folder.names())
    {
        if (!name.starts_with(start))
        {
            EXPECT_TRUE(name == "plots" || m_put.contains(name)) << name;
            continue;
        }
        CPIAParser parser;
        EXPECT_TRUE(parser.parse(m_folder.bytesOf(name))) << name;
        EXPECT_TRUE(name.ends_with(".pc3")) << name;
    }
}

void CommandSession::finishChecks()
{
    while (m_module.waitingThreads() > 0)
        m_module.runLastThread();
    EXPECT_EQ(m_printers.room().count(room::Call::postMessage), m_checks);
}

void CommandSession::expectLeftAsFound()
{
    m_printers.endSabotage();
    m_printers.expectLeftAsFound();
    // An editor that returns no configuration is reported, and nothing is saved.
    for (const std::string& report : RecordedAsserts::reports())
    {
        EXPECT_EQ(report, "pCfg | GarmPC3Editor/Commands/PC3EditCommand");
    }
}
