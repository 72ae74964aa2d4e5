#include "host/GmResBufExtention.h"

#include <gtest/gtest.h>

TEST(GmResBufExtention, returnsTheStoredAddress)
{
    int target = 0;
    EXPECT_EQ(GmResBufExtention::getVoid(GmResBufExtention::newVoid(&target)), &target);
    EXPECT_EQ(GmResBufExtention::getVoid(GmResBufExtention::newVoid(nullptr)), nullptr);
}

TEST(GmResBufExtention, aNullBufferHasNoAddress)
{
    EXPECT_EQ(GmResBufExtention::getVoid(OdResBufPtr()), nullptr);
}

TEST(GmResBufExtention, anotherKindThrows)
{
    EXPECT_THROW(GmResBufExtention::getVoid(OdResBuf::newRb(kRtInt32)), OdError);
}
