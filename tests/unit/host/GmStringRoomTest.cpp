#include "host/GmString.h"

#include "tests/support/room/PrinterRoom.h"

#include <gtest/gtest.h>

namespace
{
class LoadStringFromRoom : public testing::Test
{
protected:
    OdString load(UINT id) const { return GmString::loadString(id, OD_T("fallback"), library); }

    static room::Text text(std::size_t length)
    {
        room::Text result;
        for (std::size_t i = 0; i < length; ++i)
            result.push_back(static_cast<OdChar>('a' + i % 26));
        return result;
    }

    PrinterRoom room;
    HINSTANCE library = room.newLibrary();
};
} // namespace

TEST_F(LoadStringFromRoom, textsOfEveryLengthAreComplete)
{
    for (const std::size_t length : {1U, 254U, 255U, 256U, 257U, 510U, 511U, 512U, 513U, 4096U, 65534U, 65535U})
    {
        room.putString(library, 7, text(length));
        EXPECT_EQ(load(7), OdString(text(length))) << length;
    }
}

TEST_F(LoadStringFromRoom, missingAndEmptyTextsGiveTheFallback)
{
    EXPECT_EQ(load(7), OD_T("fallback"));
    room.putString(library, 7, {});
    EXPECT_EQ(load(7), OD_T("fallback"));
    EXPECT_EQ(GmString::loadString(7, nullptr, library), OdString());
}

TEST_F(LoadStringFromRoom, withoutALibraryNothingIsLoaded)
{
    room.putString(nullptr, 7, OD_T("the program's own"));
    EXPECT_EQ(GmString::loadString(7, OD_T("fallback"), nullptr), OD_T("fallback"));
    EXPECT_EQ(room.count(room::Call::loadString), 0);
}

TEST_F(LoadStringFromRoom, aSystemErrorGivesTheFallback)
{
    room.putString(library, 7, OD_T("seven"));
    room.refuse(room::Call::loadString);
    EXPECT_EQ(load(7), OD_T("fallback"));
}
