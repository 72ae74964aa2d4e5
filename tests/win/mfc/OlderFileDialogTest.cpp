// What CFileDialog passes to the older dialog, and how it handles the results. The two system functions are defined
// here, so that they can also return what only other systems return.

#include "mfc/CFileDialog.h"

#include <cderr.h>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace
{
struct FakeSystem
{
    std::function<BOOL(OPENFILENAMEW&)> save;
    std::function<BOOL(OPENFILENAMEW&)> open;
    DWORD error = 0;
    int calls = 0;
};
FakeSystem fake;

BOOL answer(const std::function<BOOL(OPENFILENAMEW&)>& function, OPENFILENAMEW* parameters)
{
    ++fake.calls;
    if (function)
        return function(*parameters);
    ADD_FAILURE() << "the other function was meant";
    return FALSE;
}

BOOL WINAPI fakeSave(OPENFILENAMEW* parameters)
{
    return answer(fake.save, parameters);
}

BOOL WINAPI fakeOpen(OPENFILENAMEW* parameters)
{
    return answer(fake.open, parameters);
}

DWORD WINAPI fakeError()
{
    return fake.error;
}
} // namespace

// The pointers that the import library would have brought.
extern "C"
{
    extern const decltype(&fakeSave) __imp_GetSaveFileNameW;
    extern const decltype(&fakeOpen) __imp_GetOpenFileNameW;
    extern const decltype(&fakeError) __imp_CommDlgExtendedError;
    const decltype(&fakeSave) __imp_GetSaveFileNameW = &fakeSave;
    const decltype(&fakeOpen) __imp_GetOpenFileNameW = &fakeOpen;
    const decltype(&fakeError) __imp_CommDlgExtendedError = &fakeError;
}

namespace
{
class OlderFileDialogTest : public ::testing::Test
{
protected:
    OlderFileDialogTest() { fake = FakeSystem(); }
    ~OlderFileDialogTest() override { fake = FakeSystem(); }

    static constexpr DWORD flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT;
};

TEST_F(OlderFileDialogTest, getsEverythingThatWasAskedFor)
{
    CFileDialog dialog(FALSE, L"pc3", L"C:\\f\\n.pc3", flags, L"A (*.a)|*.a|B|*.b;*.c||", nullptr, 0, FALSE);
    dialog.m_ofn.lpstrInitialDir = L"C:\\i";
    dialog.m_ofn.lpstrTitle = L"Title";
    dialog.m_ofn.nFilterIndex = 2;
    fake.save = [](OPENFILENAMEW& parameters)
    {
        EXPECT_EQ(parameters.lStructSize, sizeof(OPENFILENAMEW));
        EXPECT_EQ(parameters.Flags, flags | OFN_EXPLORER);
        EXPECT_STREQ(parameters.lpstrDefExt, L"pc3");
        EXPECT_STREQ(parameters.lpstrFile, L"C:\\f\\n.pc3");
        EXPECT_GE(parameters.nMaxFile, 0x8000U);
        EXPECT_STREQ(parameters.lpstrInitialDir, L"C:\\i");
        EXPECT_STREQ(parameters.lpstrTitle, L"Title");
        EXPECT_EQ(parameters.nFilterIndex, 2U);
        const WCHAR expected[] = L"A (*.a)\0*.a\0B\0*.b;*.c\0";
        EXPECT_EQ(std::wstring(parameters.lpstrFilter, std::size(expected)),
                  std::wstring(expected, std::size(expected)));
        std::wstring(L"C:\\chosen.pc3").copy(parameters.lpstrFile, parameters.nMaxFile);
        parameters.lpstrFile[13] = 0;
        parameters.nFilterIndex = 1;
        return TRUE;
    };
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetPathName(), L"C:\\chosen.pc3");
    EXPECT_EQ(dialog.m_ofn.nFilterIndex, 1U);
    EXPECT_EQ(fake.calls, 1);
}

TEST_F(OlderFileDialogTest, getsNullForWhatWasNotAskedFor)
{
    CFileDialog dialog(TRUE, nullptr, nullptr, flags, nullptr, nullptr, 0, FALSE);
    fake.open = [](OPENFILENAMEW& parameters)
    {
        EXPECT_EQ(parameters.lpstrDefExt, nullptr);
        EXPECT_EQ(parameters.lpstrFilter, nullptr);
        EXPECT_STREQ(parameters.lpstrFile, L"");
        EXPECT_EQ(parameters.lpstrInitialDir, nullptr);
        return FALSE;
    };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(fake.calls, 1);
}

TEST_F(OlderFileDialogTest, refusingTheNameGivenIsAskedWithoutIt)
{
    CFileDialog dialog(FALSE, L"pc3", L"a<b", flags, nullptr, nullptr, 0, FALSE);
    fake.error = FNERR_INVALIDFILENAME;
    fake.save = [](OPENFILENAMEW& parameters)
    {
        EXPECT_STREQ(parameters.lpstrFile, fake.calls == 1 ? L"a<b" : L"");
        return FALSE;
    };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(fake.calls, 2);
    EXPECT_EQ(dialog.GetPathName(), L"a<b");
}

TEST_F(OlderFileDialogTest, anyOtherErrorIsACancel)
{
    for (const DWORD error : {0UL, static_cast<DWORD>(CDERR_MEMALLOCFAILURE), static_cast<DWORD>(FNERR_BUFFERTOOSMALL)})
    {
        fake = FakeSystem();
        fake.error = error;
        fake.save = [](OPENFILENAMEW& parameters)
        {
            parameters.lpstrFile[0] = L'X';
            return FALSE;
        };
        CFileDialog dialog(FALSE, L"pc3", L"kept", flags, nullptr, nullptr, 0, FALSE);
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
        EXPECT_EQ(fake.calls, 1);
        EXPECT_EQ(dialog.GetPathName(), L"kept");
    }
}

TEST_F(OlderFileDialogTest, anEndlessNameIsCutToTheBuffer)
{
    const std::wstring endless(0x10000, L'n');
    CFileDialog dialog(FALSE, nullptr, endless.c_str(), flags, nullptr, nullptr, 0, FALSE);
    fake.save = [](OPENFILENAMEW& parameters)
    {
        EXPECT_EQ(std::wcslen(parameters.lpstrFile), parameters.nMaxFile - 1);
        return FALSE;
    };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}
} // namespace
