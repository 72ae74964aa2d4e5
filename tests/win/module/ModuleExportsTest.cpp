#include "tests/win/module/LoadedModule.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cxxabi.h>
#include <memory>
#include <set>
#include <string>

// The exported interface is what hosts were built against, so it is written down here name by name: an export more or
// less is a decision, never an accident.
namespace
{
std::string demangled(const char* name)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> text(abi::__cxa_demangle(name, nullptr, nullptr, &status),
                                                           &std::free);
    return status == 0 ? text.get() : name;
}

std::set<std::string> exportsOf(HMODULE library)
{
    const auto* base = reinterpret_cast<const char*>(library);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto* exports = reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(
        base + headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT].VirtualAddress);
    const auto* names = reinterpret_cast<const DWORD*>(base + exports->AddressOfNames);
    std::set<std::string> result;
    for (DWORD i = 0; i < exports->NumberOfNames; ++i)
        result.insert(demangled(base + names[i]));
    return result;
}

const std::string text = "std::basic_string_view<wchar_t, std::char_traits<wchar_t> >";

const std::set<std::string> expected = {
    // The entry points
    "odrxCreateModuleObject",
    "odrxGetAPIVersion",
    // The language resource library
    "GarmPC3EditorApp::resourceInstance()",
    "PC3ResourceSentry::PC3ResourceSentry()",
    "PC3ResourceSentry::PC3ResourceSentry(PC3ResourceSentry const&)",
    "PC3ResourceSentry::operator=(PC3ResourceSentry const&)",
    "PC3ResourceSentry::~PC3ResourceSentry()",
    "vtable for PC3ResourceSentry",
    "typeinfo for PC3ResourceSentry",
    // The configuration
    "GmPlotCfg3::GmPlotCfg3()",
    "GmPlotCfg3::GmPlotCfg3(GmPlotCfg3 const&)",
    "GmPlotCfg3::operator=(GmPlotCfg3 const&)",
    "GmPlotCfg3::~GmPlotCfg3()",
    "GmPlotCfg3::read(OdString const&, bool&)",
    "GmPlotCfg3::create(OdString const&)",
    "GmPlotCfg3::write(OdString const&) const",
    "GmPlotCfg3::setToDefault()",
    "GmPlotCfg3::toDevMode() const",
    "GmPlotCfg3::updateFromDevMode(_devicemodeW const&, OdString const&, bool&)",
    "GmPlotCfg3::updateFromDevMode(DevModeView const&, OdString const&, bool&)",
    "GmPlotCfg3::init(CPIAParser&, bool&)",
    "GmPlotCfg3::writeToBlock(CPBlock&) const",
    "GmPlotCfg3::resolvePrinterByDriver()",
    "GmPlotCfg3::fromDevMode(_devicemodeW const&, OdString const&, bool, bool&)",
    "GmPlotCfg3::fromDevMode(DevModeView const&, OdString const&, bool, bool&)",
    "vtable for GmPlotCfg3",
    "typeinfo for GmPlotCfg3",
    // Its nodes
    "GmMetaNode::init(CPBlock const&)",
    "GmMetaNode::write(CPBlock&) const",
    "GmMediaNode::init(CPBlock const&)",
    "GmMediaNode::write(CPBlock&) const",
    "GmMediaNode::emptyBounds() const",
    "GmMediaNode::setBounds(HDC__*)",
    "GmMediaNode::swapBounds()",
    "GmSizeNode::init(CPBlock const&)",
    "GmSizeNode::write(CPBlock&) const",
    "GmSizeNode::setName(wchar_t const*)",
    "GmMediaDescriptionNode::init(CPBlock const&)",
    "GmMediaDescriptionNode::write(CPBlock&) const",
    "GmMediaBoundsNode::init(CPBlock const&)",
    "GmMediaBoundsNode::write(CPBlock&) const",
    "GmDestinationNode::init(CPBlock const&)",
    "GmDestinationNode::write(CPBlock&) const",
    "GmDestinationNode::setCollating(bool)",
    "GmDestinationNode::cCollatingName",
    "GmIoNode::init(CPBlock const&)",
    "GmIoNode::write(CPBlock&) const",
    "GmResColorMemNode::init(CPBlock const&)",
    "GmResColorMemNode::write(CPBlock&) const",
    "GmResolutionNode::init(CPBlock const&)",
    "GmResolutionNode::write(CPBlock&) const",
    "GmResolutionNode::set(_devicemodeW const&, HDC__*)",
    "GmResolutionNode::get(_devicemodeW&) const",
    "GmCustomNode::parse(CPBlock const&)",
    "GmCustomNode::write(CPBlock&) const",
    "GmCustomNode::setNumber(unsigned int, " + text + ", bool)",
    "GmCustomNode::getNumber(" + text + ", int&) const",
    "GmCustomNode::setRawData(OdString const&, bool)",
    "GmCustomNode::getRawData(OdString&) const",
    // The printer
    "GmPrnHelper::GmPrnHelper(wchar_t const*)",
    "GmPrnHelper::GmPrnHelper(GmPrnHelper const&)",
    "GmPrnHelper::operator=(GmPrnHelper const&)",
    "GmPrnHelper::~GmPrnHelper()",
    "GmPrnHelper::isValid() const",
    "GmPrnHelper::getPorts(OdString&)",
    "GmPrnHelper::getNewPlotCfg3Ptr()",
};

TEST(ModuleExports, areTheInterfaceAndNothingElse)
{
    const LoadedModule module;
    EXPECT_THAT(exportsOf(module.library()), ::testing::ContainerEq(expected));
}

TEST(ModuleExports, entryPointsAreFoundByTheirPlainNames)
{
    const LoadedModule module;
    EXPECT_NE(::GetProcAddress(module.library(), "odrxCreateModuleObject"), nullptr);
    EXPECT_NE(::GetProcAddress(module.library(), "odrxGetAPIVersion"), nullptr);
}
} // namespace
