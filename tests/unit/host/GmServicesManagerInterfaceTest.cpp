#include "host/GmServicesManagerInterface.h"

#include "kernel/OdResBuf.h"
#include "kernel/OdRxObjectImpl.h"

#include <gtest/gtest.h>

#include <functional>

namespace
{
class OtherObject : public OdRxObject
{
public:
    explicit OtherObject(std::function<void()> atEnd = {}) : m_atEnd(std::move(atEnd)) {}
    ~OtherObject() override
    {
        if (m_atEnd)
            m_atEnd();
    }

private:
    std::function<void()> m_atEnd;
};

using NameList = std::vector<OdString>;

class NamedValues : public testing::Test
{
protected:
    GmServicesManagerInterface values;
};
} // namespace

TEST_F(NamedValues, returnsTheObjectItselfOrNull)
{
    const OdRxObjectPtr value = OdResBuf::newRb(kRtString, OD_T("A0"));
    values.set(OD_T("paperName"), value);
    EXPECT_EQ(values.get(OD_T("paperName")), value);
    EXPECT_EQ(values.get(OD_T("fileName")), nullptr);
}

TEST_F(NamedValues, namesAreExact)
{
    values.set(OD_T("result"), OdResBuf::newRb(kRtBool));
    EXPECT_EQ(values.get(OD_T("Result")), nullptr);
}

TEST_F(NamedValues, holdsObjectsOfAnyClass)
{
    values.set(OD_T("deviceName"), OdRxObjectPtr(OdRxObjectImpl<OtherObject>::createObject()));
    EXPECT_NE(values.get(OD_T("deviceName")), nullptr);
    EXPECT_THROW(odrxCastOrThrow<OdResBuf>(values.get(OD_T("deviceName"))), OdError_NotThatKindOfClass);
}

TEST_F(NamedValues, holdsAReferenceUntilReplacedOrRemoved)
{
    const OdResBufPtr value = OdResBuf::newRb(kRtBool);
    values.set(OD_T("a"), value);
    EXPECT_EQ(value->refCount(), 2);
    values.set(OD_T("a"), OdResBuf::newRb(kRtBool));
    EXPECT_EQ(value->refCount(), 1);

    values.set(OD_T("a"), value);
    EXPECT_TRUE(values.remove(OD_T("a")));
    EXPECT_EQ(value->refCount(), 1);
    EXPECT_FALSE(values.remove(OD_T("a")));

    values.set(OD_T("a"), value);
    values.clear();
    EXPECT_EQ(value->refCount(), 1);
    EXPECT_TRUE(values.names().empty());
}

TEST_F(NamedValues, aNullValueRemovesTheName)
{
    values.set(OD_T("a"), OdResBuf::newRb(kRtBool));
    values.set(OD_T("a"), nullptr);
    values.set(OD_T("b"), nullptr);
    EXPECT_TRUE(values.names().empty());
}

TEST_F(NamedValues, namesAreInTheOrderLastWritten)
{
    for (const OdChar* name : {OD_T("printerName"), OD_T("paperName"), OD_T("result"), OD_T("printerName")})
        values.set(name, OdResBuf::newRb(kRtBool));
    EXPECT_EQ(values.names(), (NameList{OD_T("paperName"), OD_T("result"), OD_T("printerName")}));
}

TEST_F(NamedValues, aValueCanBeStoredAgain)
{
    values.set(OD_T("a"), OdResBuf::newRb(kRtString, OD_T("text")));
    values.set(OD_T("a"), values.get(OD_T("a")));
    EXPECT_EQ(odrxCastOrThrow<OdResBuf>(values.get(OD_T("a")))->getString(), OD_T("text"));
}

TEST_F(NamedValues, aDestructorSeesAConsistentService)
{
    NameList seen;
    const auto look = [&] { seen = values.names(); };
    values.set(OD_T("keep"), OdResBuf::newRb(kRtBool));

    values.set(OD_T("a"), OdRxObjectPtr(OdRxObjectImpl<OtherObject>::createObject(look)));
    values.remove(OD_T("a"));
    EXPECT_EQ(seen, (NameList{OD_T("keep")}));

    values.set(OD_T("a"), OdRxObjectPtr(OdRxObjectImpl<OtherObject>::createObject(look)));
    values.clear();
    EXPECT_TRUE(seen.empty());
}
