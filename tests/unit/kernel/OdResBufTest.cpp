#include "kernel/OdResBuf.h"
#include "tests/support/ErrorCode.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <utility>

namespace
{
// Every kind with its getter and setter, so that all combinations can be tried.
struct Kind
{
    const char* name;
    int restype;
    std::function<void(const OdResBuf&)> get;
    std::function<void(OdResBuf&)> set;
};

const std::array<Kind, 7>& kinds()
{
    static const std::array<Kind, 7> all = {{
        {"string", 5005, [](const OdResBuf& b) { (void)b.getString(); }, [](OdResBuf& b) { b.setString(OD_T("x")); }},
        {"bool", 290, [](const OdResBuf& b) { (void)b.getBool(); }, [](OdResBuf& b) { b.setBool(true); }},
        {"int16", 5003, [](const OdResBuf& b) { (void)b.getInt16(); }, [](OdResBuf& b) { b.setInt16(1); }},
        {"int32", kRtInt32, [](const OdResBuf& b) { (void)b.getInt32(); }, [](OdResBuf& b) { b.setInt32(1); }},
        {"double", kRtDouble, [](const OdResBuf& b) { (void)b.getDouble(); }, [](OdResBuf& b) { b.setDouble(1); }},
        {"chunk", 310, [](const OdResBuf& b) { (void)b.getBinaryChunk(); },
         [](OdResBuf& b) { b.setBinaryChunk(OdBinaryData{1}); }},
        {"pointer", kRtPointer, [](const OdResBuf& b) { (void)b.getPointer(); },
         [](OdResBuf& b) { b.setPointer(nullptr); }},
    }};
    return all;
}
} // namespace

TEST(OdResBuf, newBufferHoldsEmptyValueOfItsKind)
{
    EXPECT_EQ(OdResBuf::newRb(5005)->getString(), OdString());
    EXPECT_FALSE(OdResBuf::newRb(290)->getBool());
    EXPECT_EQ(OdResBuf::newRb(5003)->getInt16(), 0);
    EXPECT_EQ(OdResBuf::newRb(kRtInt32)->getInt32(), 0);
    EXPECT_EQ(OdResBuf::newRb(kRtDouble)->getDouble(), 0.0);
    EXPECT_TRUE(OdResBuf::newRb(310)->getBinaryChunk().isEmpty());
    EXPECT_EQ(OdResBuf::newRb(kRtPointer)->getPointer(), nullptr);
}

TEST(OdResBuf, aNewBufferHasOneReference)
{
    EXPECT_EQ(OdResBuf::newRb(5005)->refCount(), 1);
}

TEST(OdResBuf, newRbAcceptsAValueOfEachKind)
{
    EXPECT_EQ(OdResBuf::newRb(5005, OdString(OD_T("A0")))->getString(), OD_T("A0"));
    EXPECT_EQ(OdResBuf::newRb(5005, OD_T("A0"))->getString(), OD_T("A0")) << "a literal is text, not a bool";
    EXPECT_TRUE(OdResBuf::newRb(290, true)->getBool());
    EXPECT_EQ(OdResBuf::newRb(5003, OdInt16(-7))->getInt16(), -7);
    EXPECT_EQ(OdResBuf::newRb(kRtInt32, OdInt32(70000))->getInt32(), 70000);
    EXPECT_EQ(OdResBuf::newRb(kRtDouble, 0.5)->getDouble(), 0.5);
    EXPECT_EQ(OdResBuf::newRb(310, OdBinaryData{1, 2})->getBinaryChunk(), (OdBinaryData{1, 2}));
}

TEST(OdResBuf, settersReplaceTheValue)
{
    const auto text = OdResBuf::newRb(5005, OD_T("old"));
    text->setString(OD_T("new"));
    EXPECT_EQ(text->getString(), OD_T("new"));

    int target = 0;
    const auto pointer = OdResBuf::newRb(kRtPointer);
    pointer->setPointer(&target);
    EXPECT_EQ(pointer->getPointer(), &target);
}

TEST(OdResBuf, reportsItsRestype)
{
    for (const Kind& kind : kinds())
        EXPECT_EQ(OdResBuf::newRb(kind.restype)->restype(), kind.restype) << kind.name;
}

TEST(OdResBuf, accessAsAnotherKindThrowsAndChangesNothing)
{
    for (const Kind& held : kinds())
        for (const Kind& asked : kinds())
        {
            SCOPED_TRACE(std::string(asked.name) + " accessor of a " + held.name);
            const auto buffer = OdResBuf::newRb(held.restype);
            if (&held == &asked)
            {
                EXPECT_NO_THROW(asked.get(*buffer));
                EXPECT_NO_THROW(asked.set(*buffer));
                continue;
            }
            EXPECT_THROW(asked.get(*buffer), OdError);
            EXPECT_THROW(asked.set(*buffer), OdError);
            EXPECT_EQ(buffer->restype(), held.restype);
            EXPECT_NO_THROW(held.get(*buffer));
        }
}

TEST(OdResBuf, anotherKindHasItsErrorCode)
{
    EXPECT_EQ(errorCodeOf([] { (void)OdResBuf::newRb(290)->getString(); }), eInvalidResBuf);
}

TEST(OdResBuf, aValueMustFitItsRestype)
{
    EXPECT_THROW(OdResBuf::newRb(5005, true), OdError);
    EXPECT_THROW(OdResBuf::newRb(5003, OdInt32(1)), OdError);
}

TEST(OdResBuf, aBufferWithoutAKindHoldsNothing)
{
    const auto none = OdResBuf::newRb();
    for (const Kind& kind : kinds())
    {
        EXPECT_THROW(kind.get(*none), OdError) << kind.name;
        EXPECT_THROW(kind.set(*none), OdError) << kind.name;
    }
}

TEST(OdResBuf, anUnknownRestypeIsRefused)
{
    for (const int restype : {0, -1, 1, 291, 5004})
        EXPECT_EQ(errorCodeOf([restype] { OdResBuf::newRb(restype); }), eInvalidInput) << restype;
}

TEST(OdResBuf, castReturnsTheObject)
{
    const OdRxObjectPtr object = OdResBuf::newRb(5005);
    EXPECT_EQ(OdResBuf::cast(object.get()).get(), object.get());
    EXPECT_EQ(OdResBuf::cast(nullptr), nullptr);
}
