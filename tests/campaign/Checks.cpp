#include "campaign/Checks.h"

#include "GarmPC3Editor/GmCustomNode.h"
#include "files/FileAccess.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace campaign
{
namespace
{
// A pattern that no driver produces by chance: every byte differs from its neighbours and none is 0.
std::string pattern(std::size_t bytes)
{
    std::string text;
    for (std::size_t i = 0; i < bytes; ++i)
    {
        const auto value = static_cast<BYTE>(1 + (i * 37 + 90) % 255);
        text += odHex<char>({&value, 1});
    }
    return text;
}

std::string rawData(const GmPlotCfg3& configuration)
{
    OdString text;
    return configuration.m_custom && configuration.m_custom->getRawData(text) ? odToUtf8(text) : std::string();
}

std::string contentOf(const OdString& path)
{
    files::ByteBuffer bytes;
    if (files::readFile(path.c_str(), bytes))
        return {};
    const auto view = bytes.view();
    return {reinterpret_cast<const char*>(view.data()), view.size()};
}

class QueueCheck
{
public:
    QueueCheck(const OdString& printer, const OdString& folder, Transcript& transcript)
        : m_driver(printer), m_transcript(transcript), m_path(folder + OD_T("\\") + printer + OD_T(".pc3")),
          m_copy(folder + OD_T("\\") + printer + OD_T(" again.pc3"))
    {
    }

    void run();

private:
    bool make();
    bool writeAndRead();
    bool devMode();
    bool passThroughDriver();
    void orientations();
    void turned(const Merged& answer, bool lackedMargin);
    void customSettings();

    Driver m_driver;
    Transcript& m_transcript;
    OdString m_path;
    OdString m_copy;
    OdSharedPtr<GmPlotCfg3> m_made;
    OdSharedPtr<GmPlotCfg3> m_read;
    std::vector<BYTE> m_defaults;
    bool m_exchanged = false; // width and length, by a rule of the import
};

void QueueCheck::run()
{
    m_transcript.step("create");
    if (!make())
        return;
    m_transcript.step("write and read");
    if (!writeAndRead())
        return;
    m_transcript.step("device mode");
    if (!devMode())
        return;
    m_transcript.step("driver");
    if (!passThroughDriver())
        return;
    m_transcript.step("papers");
    checkPapers(*m_read, m_driver, m_transcript);
    m_transcript.step("orientations");
    orientations();
    m_transcript.step("custom settings");
    customSettings();
}

bool QueueCheck::make()
{
    const DevModeBlock defaults = m_driver.defaults();
    const auto bytes = defaults.view().bytes();
    m_defaults.assign(bytes.begin(), bytes.end());
    m_made = GmPlotCfg3::create(m_driver.printerName());
    if (!m_transcript.require("create", static_cast<bool>(m_made), "no configuration", m_driver.interview()))
        return false;
    m_transcript.held("create");
    return true;
}

bool QueueCheck::writeAndRead()
{
    if (!m_transcript.require("write", m_made->write(m_path), "the file was not written", {}))
        return false;
    m_transcript.held("write");
    bool modified = true;
    m_read = GmPlotCfg3::read(m_path, modified);
    if (!m_transcript.require("read", m_read && !modified, m_read ? "bound to another printer" : "not read", {}))
        return false;
    // Writing the configuration again gives the same file.
    const bool same = m_read->write(m_copy) && !contentOf(m_path).empty() && contentOf(m_path) == contentOf(m_copy);
    if (m_transcript.require("read", same, "written again it is another file", {}))
        m_transcript.held("read");
    return true;
}

bool QueueCheck::devMode()
{
    const std::vector<BYTE> bytes = blockOf(*m_read);
    const DevModeView block(bytes);
    const DevModeView defaults(m_defaults);
    if (!m_transcript.require("toDevMode", block && block.bytes().size() == bytes.size(), "no block", {}))
        return false;
    const bool fits = block.size() == defaults.size() && block.driverExtra() == defaults.driverExtra();
    const std::string sizes = "sizes are " + std::to_string(block.size()) + " + " +
                              std::to_string(block.driverExtra()) + ", the driver's are " +
                              std::to_string(defaults.size()) + " + " + std::to_string(defaults.driverExtra());
    if (m_transcript.require("toDevMode", fits, sizes, {}))
        m_transcript.held("toDevMode");
    if (m_transcript.require("custom", std::ranges::equal(block.privateBytes(), defaults.privateBytes()),
                             "the driver's bytes " + odHex<char>(defaults.privateBytes()) + " are kept as " +
                                 odHex<char>(block.privateBytes()),
                             {}))
        m_transcript.held("custom");
    return true;
}

// The driver must return the flagged fields unchanged; the others are up to the driver.
std::string differenceOf(const DevModeView& given, const DevModeView& answered)
{
    const Json before = fieldsOf(given);
    const Json after = fieldsOf(answered);
    std::string text;
    for (const auto& [name, value] : before.items())
        if (name != "dmFields" && (!after.contains(name) || after[name] != value))
            text += (text.empty() ? "" : ", ") + name;
    return text;
}

bool QueueCheck::passThroughDriver()
{
    const std::vector<BYTE> bytes = blockOf(*m_read);
    const Merged answer = m_driver.merge(bytes);
    if (!m_transcript.require("driver", answer.isBlock(), "the driver refuses the block", {answer.call}))
        return false;
    const std::string difference = differenceOf(DevModeView(bytes), answer.block.view());
    if (m_transcript.require("driver", difference.empty(), "the driver answers another " + difference, {answer.call}))
        m_transcript.held("driver");
    if (!takeBack(*m_read, answer, m_driver, "take back", m_transcript))
        return false;
    m_transcript.held("take back");
    return true;
}

void QueueCheck::orientations()
{
    for (const short orientation : {short{DMORIENT_LANDSCAPE}, short{DMORIENT_PORTRAIT}})
    {
        GmPlotCfg3 choice(*m_read);
        choice.m_media.m_dm_orientation = orientation;
        const Merged answer = m_driver.merge(blockOf(choice));
        const bool answered = answer.isBlock() && answer.block.view().fields().dmOrientation == orientation;
        const bool lackedMargin = lacksMargin(*m_read);
        if (m_transcript.require("orientation", answered, "not the orientation that was chosen", {answer.call}) &&
            takeBack(*m_read, answer, m_driver, "orientation", m_transcript) &&
            m_transcript.require("orientation", m_read->m_media.m_dm_orientation == orientation,
                                 "taken back as " + std::to_string(m_read->m_media.m_dm_orientation), {answer.call}))
            turned(answer, lackedMargin);
    }
}

// Width and length must be those of the device in its new orientation. But unknown bounds are read from the device,
// which is already turned, and are then turned with the orientation (quirk 14); afterwards they are known and stay like
// that.
void QueueCheck::turned(const Merged& answer, bool lackedMargin)
{
    if (lacksMargin(*m_read))
        m_exchanged = false; // the second import computed them again and turned nothing
    else if (lackedMargin)
        m_exchanged = true;

    Sheet expected = m_driver.sheet(answer.block.view());
    if (m_exchanged)
        std::swap(expected.width, expected.length);
    const GmMediaBoundsNode& bounds = m_read->m_media.m_size.m_media_description.m_media_bounds;
    if (!sameLength(bounds.m_urx, expected.width) || !sameLength(bounds.m_ury, expected.length))
        m_transcript.failed("orientation",
                            std::to_string(bounds.m_urx) + " x " + std::to_string(bounds.m_ury) + " mm instead of " +
                                std::to_string(expected.width) + " x " + std::to_string(expected.length),
                            {answer.call});
    else if (m_exchanged)
        m_transcript.heldByRule("orientation", "one margin");
    else
        m_transcript.held("orientation");
}

void QueueCheck::customSettings()
{
    bool modified = false;
    OdSharedPtr<GmPlotCfg3> configuration = GmPlotCfg3::read(m_path, modified);
    const std::string bytes = pattern(DevModeView(m_defaults).driverExtra());
    const bool kept = configuration && configuration->m_custom &&
                      configuration->m_custom->setRawData(OdString(odFromUtf8(bytes)), false) &&
                      configuration->write(m_copy) && (configuration = GmPlotCfg3::read(m_copy, modified));
    if (!m_transcript.require("custom", kept, "the driver's bytes cannot be set, written and read", {}))
        return;
    const std::vector<BYTE> block = blockOf(*configuration);
    const std::string inBlock = odHex<char>(DevModeView(block).privateBytes());
    if (!m_transcript.require("custom", rawData(*configuration) == bytes, "read as " + rawData(*configuration), {}) ||
        !m_transcript.require("custom", inBlock == bytes, "in the block as " + inBlock, {}))
        return;

    const Merged answer = m_driver.merge(block);
    if (!m_transcript.require(
            "custom",
            answer.isBlock() && configuration->updateFromDevMode(answer.block.view(), m_driver.printerName(), modified),
            "not taken back", {answer.call}))
        return;
    const std::string answered = odHex<char>(answer.block.view().privateBytes());
    if (m_transcript.require("custom", rawData(*configuration) == answered,
                             "the driver's answer " + answered + " is taken over as " + rawData(*configuration), {}))
        m_transcript.held("custom");
    m_transcript.fact("driver keeps private bytes", answered == bytes);
}
} // namespace

bool lacksMargin(const GmPlotCfg3& configuration)
{
    return configuration.m_media.m_actual_printable_bounds_llx <= 0 ||
           configuration.m_media.m_actual_printable_bounds_lly <= 0;
}

bool sameLength(double one, double other)
{
    return std::abs(one - other) <= 0.5;
}

std::vector<BYTE> blockOf(const GmPlotCfg3& configuration)
{
    const OdArray<unsigned char> bytes = configuration.toDevMode();
    return {bytes.begin(), bytes.end()};
}

bool takeBack(GmPlotCfg3& configuration, const Merged& answer, const Driver& driver, const char* check,
              Transcript& transcript)
{
    const OdString& name = driver.printerName();
    bool modified = false;
    if (!transcript.require(check, configuration.updateFromDevMode(answer.block.view(), name, modified),
                            "the answer is not taken over", {answer.call}))
        return false;
    modified = true;
    if (!transcript.require(check, configuration.updateFromDevMode(answer.block.view(), name, modified),
                            "the answer is not taken over again", {answer.call}))
        return false;
    const bool expected = lacksMargin(configuration);
    if (modified != expected)
        transcript.failed("again", modified ? "a change the second time" : "no change, although there are no margins",
                          {answer.call});
    else if (expected)
        transcript.heldByRule("again", "no margins");
    else
        transcript.held("again");
    return true;
}

void checkQueue(const OdString& printer, const OdString& folder, Transcript& transcript)
{
    QueueCheck(printer, folder, transcript).run();
}
} // namespace campaign
