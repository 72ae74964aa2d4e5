#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/operator/SheetDriver.h"
#include "tests/support/room/PrinterRoom.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

// A test with windows of the editor, in English, on scripted printers: "Plotter A" and "Plotter B" on the driver "Acme
// HP-GL", and "Plotter C" on another one. Ends with no window, no window object and no printer left.
class EditorTest : public ::testing::Test
{
protected:
    EditorTest();
    ~EditorTest() override;

    HINSTANCE library() const noexcept { return m_library.get(); }
    // A text of the library, with what its places take.
    std::wstring libraryText(UINT id, std::initializer_list<OdString> arguments = {}) const;

    // A configuration of "Plotter A", as made for it.
    static OdSharedPtr<GmPlotCfg3> newConfiguration();
    // Adds a "Plotter A" whose driver sets that number of copies in every device mode that it merges.
    void addPlotterSettingCopies(short copies);
    // Changes the description to "by hand" in the sheet that comes up and confirms. The dialog that asks for the name.
    static HWND changeAndConfirm(SheetDriver& user);
    // The configuration in a file of the test's folder, null when it cannot be read.
    OdSharedPtr<GmPlotCfg3> read(const char* fileName) const;

    PrinterRoom m_room;
    TemporaryFolder m_folder;

private:
    LibraryHandle m_library;
    HINSTANCE m_libraryBefore;
};
