#include "kernel/OdArray.h"
#include "kernel/OdTypes.h"

#include <gtest/gtest.h>

TEST(OdArray, anEmptyArrayHasNoAddress)
{
    const OdBinaryData none;
    EXPECT_TRUE(none.isEmpty());
    EXPECT_EQ(none.size(), 0U);
    EXPECT_EQ(none.getPtr(), nullptr);
    EXPECT_EQ(none.asArrayPtr(), nullptr);
}

TEST(OdArray, addedItemsAreZero)
{
    OdBinaryData bytes{1, 2};
    bytes.resize(4);
    EXPECT_EQ(bytes, (OdBinaryData{1, 2, 0, 0}));
    bytes.resize(1);
    EXPECT_EQ(bytes, OdBinaryData{1});
}

TEST(OdArray, copiesAreIndependent)
{
    const OdBinaryData original{1, 2, 3};
    OdBinaryData copy = original;
    copy[0] = 9;
    copy.append(4);
    EXPECT_EQ(original, (OdBinaryData{1, 2, 3}));
    EXPECT_EQ(copy, (OdBinaryData{9, 2, 3, 4}));
    EXPECT_EQ(copy.length(), 4U);
    copy.clear();
    EXPECT_TRUE(copy.empty());
}

TEST(OdArray, itemsAreContiguous)
{
    OdBinaryData bytes{1, 2, 3};
    bytes.asArrayPtr()[1] = 7;
    EXPECT_EQ(bytes.getPtr() + 1, &bytes[1]);
    int sum = 0;
    for (const OdUInt8 byte : bytes)
        sum += byte;
    EXPECT_EQ(sum, 11);
}
