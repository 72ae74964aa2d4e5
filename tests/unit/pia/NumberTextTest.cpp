#include "pia_tree/NumberText.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <optional>
#include <random>

namespace
{
using Limits = std::numeric_limits<double>;

// The number, or nothing if the text is refused. A refusal that changes the output gives that output.
template <class Number>
std::optional<Number> numberOf(std::string_view text)
{
    constexpr Number poison{-77};
    Number value = poison;
    return pia::readNumber(text, value) || value != poison ? std::optional(value) : std::nullopt;
}

bool isDouble(std::string_view text, double expected)
{
    const auto value = numberOf<double>(text);
    return value == expected && std::signbit(*value) == std::signbit(expected);
}
} // namespace

TEST(NumberText, integersAreWrittenInBaseTen)
{
    EXPECT_EQ(pia::numberText(0), OD_T("0"));
    EXPECT_EQ(pia::numberText(INT32_MIN), OD_T("-2147483648"));
    EXPECT_EQ(pia::numberText(INT32_MAX), OD_T("2147483647"));
}

TEST(NumberText, precisionOneWritesOneDigitAfterThePoint)
{
    EXPECT_EQ(pia::numberText(600.0, 1), OD_T("600.0"));
    EXPECT_EQ(pia::numberText(-0.26, 1), OD_T("-0.3"));
    EXPECT_EQ(pia::numberText(1e21, 1), OD_T("1000000000000000000000.0"));
    EXPECT_EQ(pia::numberText(Limits::max(), 1).getLength(), 311);
    EXPECT_EQ(pia::numberText(-Limits::max(), 1).getLength(), 312);
}

TEST(NumberText, everyPrecisionIsAllowed)
{
    EXPECT_EQ(pia::numberText(2.5, 0), OD_T("2"));
    EXPECT_EQ(pia::numberText(0.125, 3), OD_T("0.125"));
    EXPECT_EQ(pia::numberText(-Limits::max(), std::numeric_limits<int>::max()).getLength(), 1 + 309 + 1 + 1074);
    EXPECT_EQ(pia::numberText(0.1, std::numeric_limits<int>::min()), OD_T("0.1"));
}

TEST(NumberText, theDefaultFormHasPointOrExponent)
{
    EXPECT_EQ(pia::numberText(600.0, -1), OD_T("600.0"));
    EXPECT_EQ(pia::numberText(-0.0, -1), OD_T("-0.0"));
    EXPECT_EQ(pia::numberText(0.1, -1), OD_T("0.1"));
    EXPECT_EQ(pia::numberText(1e300, -1), OD_T("1e+300"));
    EXPECT_EQ(pia::numberText(215.9, -1), OD_T("215.9"));
}

TEST(NumberText, nanAndInfinityAreWords)
{
    for (const int precision : {-1, 1})
    {
        EXPECT_EQ(pia::numberText(Limits::quiet_NaN(), precision), OD_T("nan"));
        EXPECT_EQ(pia::numberText(-Limits::quiet_NaN(), precision), OD_T("nan"));
        EXPECT_EQ(pia::numberText(Limits::infinity(), precision), OD_T("inf"));
        EXPECT_EQ(pia::numberText(-Limits::infinity(), precision), OD_T("-inf"));
    }
}

TEST(NumberText, theDefaultFormReadsBackUnchanged)
{
    std::mt19937_64 random(20240601);
    for (int i = 0; i < 20000; ++i)
    {
        const auto value = std::bit_cast<double>(random());
        if (std::isnan(value))
            continue;
        const std::string text = odToUtf8(pia::numberText(value, -1));
        ASSERT_TRUE(isDouble(text, value)) << text;
    }
    for (const double value : {Limits::max(), Limits::min(), Limits::denorm_min(), Limits::epsilon()})
        EXPECT_TRUE(isDouble(odToUtf8(pia::numberText(value, -1)), value)) << value;
}

TEST(NumberText, readsIntegers)
{
    EXPECT_EQ(numberOf<std::int32_t>("600"), 600);
    EXPECT_EQ(numberOf<std::int32_t>("  +600  "), 600);
    EXPECT_EQ(numberOf<std::int32_t>("-2147483648"), INT32_MIN);
    EXPECT_EQ(numberOf<std::int32_t>("2147483647"), INT32_MAX);
    EXPECT_EQ(numberOf<std::int32_t>("000000000000000000000000000012"), 12);
    EXPECT_EQ(numberOf<std::int32_t>("-0"), 0);
}

TEST(NumberText, refusesAnythingButAnInteger)
{
    for (const char* text :
         {"",     " ",  "+",   "-",   "+-5", "--5", "- 5",  "5 5",        "1e5",         "600.0",
          "0x10", "5,", "nan", "inf", "\t5", "5\n", "five", "2147483648", "-2147483649", "99999999999999999999999"})
        EXPECT_EQ(numberOf<std::int32_t>(text), std::nullopt) << '"' << text << '"';
    EXPECT_EQ(numberOf<std::int32_t>(std::string_view("5\0", 2)), std::nullopt);
}

TEST(NumberText, readsDoubles)
{
    EXPECT_TRUE(isDouble("600", 600.0));
    EXPECT_TRUE(isDouble("  +600.0 ", 600.0));
    EXPECT_TRUE(isDouble("-.5", -0.5));
    EXPECT_TRUE(isDouble("1E5", 1e5));
    EXPECT_TRUE(isDouble("-0", -0.0));
    EXPECT_TRUE(isDouble("0e-999", 0.0));
    EXPECT_TRUE(isDouble("iNf", Limits::infinity()));
    EXPECT_TRUE(isDouble("-INF", -Limits::infinity()));
    EXPECT_TRUE(std::isnan(numberOf<double>(" NaN ").value()));
}

TEST(NumberText, refusesAnythingButADouble)
{
    for (const char* text :
         {"",         " ",      "+",    "-",  "+-5.0", ".",      "e5",     "1e",      "1.5.2", "0x1p3", "1,5",
          "infinity", "nan(1)", "nano", "in", "1e999", "-1e999", "1e-999", "-1e-999", "\t5",   "5 mm"})
        EXPECT_EQ(numberOf<double>(text), std::nullopt) << '"' << text << '"';
}
