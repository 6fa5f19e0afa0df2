#include "TextHelpers.h"

#include "StockKey.h"

#include <gtest/gtest.h>

#include <QKeyEvent>

#include <cfloat>
#include <cmath>
#include <limits>

namespace {

struct DoubleCase {
    const char *name;
    double value;
    int precision;
    int flags;
    const char *expected;
};

class FormatDouble : public ::testing::TestWithParam<DoubleCase>
{
};

TEST_P(FormatDouble, formatsAsTheTraderReadsIt)
{
    const DoubleCase &c = GetParam();
    EXPECT_EQ(WK::formatDoubleNumber(c.value, c.precision, c.flags), QString::fromUtf8(c.expected));
}

INSTANTIATE_TEST_SUITE_P(Toolkit, FormatDouble,
    ::testing::Values(
        DoubleCase{"Plain", 1234.5, 2, 0, "1234.50"},
        DoubleCase{"Segmented", 1234567.891, 2, WK::NF_SEGMENTED, "1,234,567.89"},
        DoubleCase{"SegmentedNegative", -1234567.5, 1, WK::NF_SEGMENTED, "-1,234,567.5"},
        DoubleCase{"SegmentedShort", 999.0, 0, WK::NF_SEGMENTED, "999"},
        DoubleCase{"SegmentedExactThousand", 1000.0, 0, WK::NF_SEGMENTED, "1,000"},
        DoubleCase{"BoolTrueIsSegmented", 12345.0, 0, true, "12,345"},
        DoubleCase{"RoundsUp", 2.346, 2, 0, "2.35"},
        DoubleCase{"ZeroDecimals", 7.6, 0, 0, "8"},
        DoubleCase{"NegativePrecisionIsZero", 7.4, -3, 0, "7"},
        DoubleCase{"NegativeZeroLosesItsSign", -0.001, 2, 0, "0.00"},
        DoubleCase{"Percent", 0.25, 2, WK::NF_PERCENT, "25.00%"},
        DoubleCase{"PercentNegative", -0.0123, 2, WK::NF_PERCENT, "-1.23%"},
        DoubleCase{"FivePlaces", 0.91234, 5, 0, "0.91234"},
        DoubleCase{"NoValue", DBL_MAX, 2, 0, "--"},
        DoubleCase{"NoValueSegmented", DBL_MAX, 2, WK::NF_SEGMENTED, "--"},
        DoubleCase{"Infinity", std::numeric_limits<double>::infinity(), 2, 0, "--"},
        DoubleCase{"NaN", std::numeric_limits<double>::quiet_NaN(), 2, 0, "--"}),
    [](const ::testing::TestParamInfo<DoubleCase> &info) { return std::string(info.param.name); });

TEST(FormatDoubleNumber, invalidTextCanBeChosen)
{
    EXPECT_EQ(WK::formatDoubleNumber(DBL_MAX, 5, 0, QStringLiteral("非法值")), QStringLiteral("非法值"));
    EXPECT_EQ(WK::formatDoubleNumber(DBL_MAX, 2, WK::NF_PERCENT, QStringLiteral("非法值")), QStringLiteral("非法值"));
}

TEST(FormatIntNumber, groupsOnlyWhenSegmented)
{
    EXPECT_EQ(WK::formatIntNumber(1234567), QStringLiteral("1234567"));
    EXPECT_EQ(WK::formatIntNumber(1234567, WK::NF_SEGMENTED), QStringLiteral("1,234,567"));
    EXPECT_EQ(WK::formatIntNumber(-1000, WK::NF_SEGMENTED), QStringLiteral("-1,000"));
    EXPECT_EQ(WK::formatIntNumber(0, WK::NF_SEGMENTED), QStringLiteral("0"));
    EXPECT_EQ(WK::formatIntNumber(std::numeric_limits<qint64>::min(), WK::NF_SEGMENTED),
              QStringLiteral("-9,223,372,036,854,775,808"));
}

struct StringCase {
    const char *name;
    const char *input;
    const char *expected;
};

class FormatNumberString : public ::testing::TestWithParam<StringCase>
{
};

TEST_P(FormatNumberString, groupsTheIntegerPart)
{
    const StringCase &c = GetParam();
    EXPECT_EQ(WK::formatNumberString(QString::fromUtf8(c.input)), QString::fromUtf8(c.expected));
}

INSTANTIATE_TEST_SUITE_P(Toolkit, FormatNumberString,
    ::testing::Values(StringCase{"Integer", "1300", "1,300"},
                      StringCase{"Decimal", "1234.5", "1,234.5"},
                      StringCase{"Negative", "-1234567", "-1,234,567"},
                      StringCase{"AlreadyGrouped", "1,234,567", "1,234,567"},
                      StringCase{"WronglyGrouped", "12,34", "1,234"},
                      StringCase{"Short", "12", "12"},
                      StringCase{"Empty", "", ""},
                      StringCase{"NotANumber", "abc", "abc"},
                      StringCase{"TrailingText", "12abc", "12abc"}),
    [](const ::testing::TestParamInfo<StringCase> &info) { return std::string(info.param.name); });

TEST(TextHelpers, unformatRemovesTheSeparators)
{
    EXPECT_EQ(WK::unformatNumberString(QStringLiteral(" 1,234,567.5 ")), QStringLiteral("1234567.5"));
}

TEST(TextHelpers, lettersAndDigitsAreSearchKeys)
{
    EXPECT_TRUE(WK::isKeyCharOrNum(Qt::Key_A));
    EXPECT_TRUE(WK::isKeyCharOrNum(Qt::Key_Z));
    EXPECT_TRUE(WK::isKeyCharOrNum(Qt::Key_0));
    EXPECT_TRUE(WK::isKeyCharOrNum(Qt::Key_9));
    EXPECT_FALSE(WK::isKeyCharOrNum(Qt::Key_Space));
    EXPECT_FALSE(WK::isKeyCharOrNum(Qt::Key_Return));
    EXPECT_FALSE(WK::isKeyCharOrNum(Qt::Key_F1));
    const QKeyEvent v(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(WK::isKeyCharOrNum(&v));
    EXPECT_FALSE(WK::isKeyCharOrNum(static_cast<const QKeyEvent *>(nullptr)));
}

TEST(TextHelpers, stockKeyIsTheRecordsKey)
{
    EXPECT_EQ(WK::vqStockKey(QStringLiteral("SH"), QStringLiteral("600000")),
              QString::fromStdString(utils::vqStockKey("SH", "600000")));
    EXPECT_EQ(WK::vqStockKey(QStringLiteral("SH"), QStringLiteral("600000")), QStringLiteral("600000.SH"));
}

TEST(TextHelpers, utf8RoundTrip)
{
    const std::string text = "篮子重名";
    EXPECT_EQ(WK::sToQs(text), QStringLiteral("篮子重名"));
    EXPECT_EQ(WK::qsToS(WK::sToQs(text)), text);
}

} // namespace
