#include "tests/win/editor/EditorTest.h"

#include "GarmPC3Editor/Decisions/GmTexts.h"
#include "GarmPC3Editor/GarmPC3EditorApp.h"
#include "host/GarmInterfaces.h"
#include "host/GmString.h"
#include "mfc/AfxModuleState.h"
#include "mfc/AfxThreadState.h"
#include "resources/Resource.h"

#include <commctrl.h>

#include <filesystem>
#include <utility>

namespace
{
HINSTANCE loadEnglishLibrary()
{
    wchar_t program[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    const auto path = std::filesystem::path(program).parent_path() / L"en" / L"GarmPC3EditorRes.dll";
    return ::LoadLibraryW(path.c_str());
}

room::Printer printer(const wchar_t* name, const wchar_t* driver)
{
    room::Printer made;
    made.name = name;
    made.driver = driver;
    made.port = L"LPT1:";
    made.papers = {{9, L"A4"}, {8, L"A3"}};
    made.driverExtra = 8;
    return made;
}
} // namespace

EditorTest::EditorTest() : m_library(loadEnglishLibrary()), m_libraryBefore(AfxGetResourceHandle())
{
    EXPECT_TRUE(m_library);
    ::InitCommonControls();
    theApp.m_hLangResourceDLL = library();
    AfxSetResourceHandle(library());
    getMainInternalInterface()->setPlotCfgSearchPath(m_folder.path());
    m_room.add(printer(L"Plotter A", L"Acme HP-GL"));
    m_room.add(printer(L"Plotter B", L"Acme HP-GL"));
    m_room.add(printer(L"Plotter C", L"Acme Raster"));
}

EditorTest::~EditorTest()
{
    EXPECT_EQ(windowsOfThread(), 0U) << "a window was left behind";
    EXPECT_EQ(AfxPermanentWindowCount(), 0U) << "an object is still in the map";
    EXPECT_EQ(m_room.openHandles(), 0);
    EXPECT_EQ(m_room.openContexts(), 0);
    EXPECT_EQ(m_room.strayCloses(), 0);
    EXPECT_EQ(AfxGetResourceHandle(), library()) << "the resources are not given back";
    getMainInternalInterface()->setPlotCfgSearchPath({});
    AfxSetResourceHandle(m_libraryBefore);
    theApp.m_hLangResourceDLL = nullptr;
}

std::wstring EditorTest::libraryText(UINT id, std::initializer_list<OdString> arguments) const
{
    return formatText(GmString::loadString(id, L"", library()), arguments).c_str();
}

void EditorTest::addPlotterSettingCopies(short copies)
{
    room::Printer plotter = printer(L"Plotter A", L"Acme HP-GL");
    plotter.merge = [copies](std::vector<BYTE>& block, const std::vector<BYTE>& input)
    {
        block = input;
        reinterpret_cast<DEVMODEW&>(*block.data()).dmCopies = copies;
    };
    m_room.add(plotter);
}

HWND EditorTest::changeAndConfirm(SheetDriver& user)
{
    const HWND sheet = user.awaitWindow();
    user.enter(sheet, IDC_DESCRIPTION, L"by hand");
    user.press(sheet, IDOK);
    return user.awaitWindow();
}

OdSharedPtr<GmPlotCfg3> EditorTest::newConfiguration()
{
    OdSharedPtr<GmPlotCfg3> cfg = GmPlotCfg3::create(L"Plotter A");
    EXPECT_TRUE(cfg);
    return cfg;
}

OdSharedPtr<GmPlotCfg3> EditorTest::read(const char* fileName) const
{
    bool modified = false;
    return GmPlotCfg3::read(m_folder.at(fileName), modified);
}
