#include "kernel/OdText.h"
#include "tests/support/PrinterRoomTest.h"

#include <cstring>
#include <thread>

// The messages, message boxes and string resources of the room.

namespace
{
class RoomUser : public PrinterRoomTest
{
};
} // namespace

TEST_F(RoomUser, postedMessagesAreRecordedInOrder)
{
    const HWND window = room.newWindow();
    EXPECT_TRUE(::PostMessageW(window, WM_USER + 101, 1, 0));
    EXPECT_TRUE(::PostMessageW(window, WM_USER + 102, 0, 5));
    EXPECT_EQ(room.posted(), (std::vector<room::PostedMessage>{{window, 1125, 1, 0}, {window, 1126, 0, 5}}));
    EXPECT_FALSE(::PostMessageW(nullptr, 1, 0, 0));
    EXPECT_EQ(room.posted().size(), 2U);
}

TEST_F(RoomUser, aMessageOfAnotherThreadCanBeAwaited)
{
    const HWND window = room.newWindow();
    std::thread background([window] { ::PostMessageW(window, 1125, 0, 0); });
    room.awaitPosted(1);
    EXPECT_EQ(room.posted().size(), 1U);
    background.join();
}

TEST_F(RoomUser, messageBoxesAreRecordedAndAnswered)
{
    room.setMessageBoxAnswer(IDCANCEL);
    EXPECT_EQ(::MessageBoxW(nullptr, OD_T("text"), OD_T("caption"), MB_ICONERROR), IDCANCEL);
    ::MessageBoxW(nullptr, OD_T("text"), nullptr, MB_OK);
    const auto shown = room.shownMessages();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[0].text, OD_T("text"));
    EXPECT_EQ(shown[0].caption, OD_T("caption"));
    EXPECT_EQ(shown[0].type, MB_ICONERROR);
    EXPECT_FALSE(shown[1].caption.has_value());
}

TEST_F(RoomUser, stringsAreCopiedTruncatedOrReferenced)
{
    const HINSTANCE library = room.newLibrary();
    room.putString(library, 7, OD_T("seven"));
    OdChar buffer[8] = OD_T("poison!");
    EXPECT_EQ(::LoadStringW(library, 7, buffer, 8), 5);
    EXPECT_EQ(OdStringView(buffer), OD_T("seven"));
    EXPECT_EQ(::LoadStringW(library, 7, buffer, 4), 3);
    EXPECT_EQ(OdStringView(buffer), OD_T("sev"));

    const OdChar* direct = nullptr;
    EXPECT_EQ(::LoadStringW(library, 7, reinterpret_cast<OdChar*>(&direct), 0), 5);
    ASSERT_NE(direct, nullptr);
    EXPECT_EQ(OdStringView(direct, 5), OD_T("seven"));

    EXPECT_EQ(::LoadStringW(library, 8, buffer, 8), 0);
    EXPECT_EQ(buffer[0], 0);
    EXPECT_EQ(::LoadStringW(room.newLibrary(), 7, buffer, 8), 0);
}

TEST_F(RoomUser, textsCompareWithAndWithoutCase)
{
    EXPECT_EQ(::CompareStringW(LOCALE_INVARIANT, NORM_IGNORECASE, OD_T(".PC3"), 4, OD_T(".pc3"), -1), CSTR_EQUAL);
    EXPECT_NE(::CompareStringW(LOCALE_INVARIANT, 0, OD_T(".PC3"), 4, OD_T(".pc3"), -1), CSTR_EQUAL);
    EXPECT_EQ(::CompareStringW(LOCALE_INVARIANT, 0, OD_T("a"), -1, OD_T("b"), -1), CSTR_LESS_THAN);
    EXPECT_EQ(::CompareStringW(LOCALE_INVARIANT, 0, OD_T("b"), -1, OD_T("a"), -1), CSTR_GREATER_THAN);
    EXPECT_EQ(::CompareStringW(LOCALE_INVARIANT, 0, nullptr, -1, OD_T("a"), -1), 0);
}
