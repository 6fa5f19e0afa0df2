#include "TextHelpers.h"

#include <gtest/gtest.h>

#include <QKeyEvent>

#include <cfloat>
#include <limits>

namespace {

TEST(TextHelpers, formatDoubleNumberWritesNumbersAsTheTraderReadsThem)
{
    struct Row {
        const char *name;
        double value;
        int precision, flags;
        const char *expected;
    };
    const Row rows[] = {
        {"plain", 1234.5, 2, 0, "1234.50"},
        {"segmented", 1234567.891, 2, WK::NF_SEGMENTED, "1,234,567.89"},
        {"segmentedNegative", -1234567.5, 1, WK::NF_SEGMENTED, "-1,234,567.5"},
        {"segmentedShort", 999.0, 0, WK::NF_SEGMENTED, "999"},
        {"segmentedExactThousand", 1000.0, 0, WK::NF_SEGMENTED, "1,000"},
        {"boolTrueIsSegmented", 12345.0, 0, true, "12,345"},
        {"roundsUp", 2.346, 2, 0, "2.35"},
        {"zeroDecimals", 7.6, 0, 0, "8"},
        {"negativePrecisionIsZero", 7.4, -3, 0, "7"},
        {"negativeZeroLosesItsSign", -0.001, 2, 0, "0.00"},
        {"percent", 0.25, 2, WK::NF_PERCENT, "25.00%"},
        {"percentNegative", -0.0123, 2, WK::NF_PERCENT, "-1.23%"},
        {"fivePlaces", 0.91234, 5, 0, "0.91234"},
        {"noValue", DBL_MAX, 2, 0, "--"},
        {"noValueSegmented", DBL_MAX, 2, WK::NF_SEGMENTED, "--"},
        {"infinity", std::numeric_limits<double>::infinity(), 2, 0, "--"},
        {"nan", std::numeric_limits<double>::quiet_NaN(), 2, 0, "--"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(WK::formatDoubleNumber(row.value, row.precision, row.flags), QString::fromUtf8(row.expected))
            << row.name;
    EXPECT_EQ(WK::formatDoubleNumber(DBL_MAX, 5, 0, QStringLiteral("非法值")), QStringLiteral("非法值"));
    EXPECT_EQ(WK::formatDoubleNumber(DBL_MAX, 2, WK::NF_PERCENT, QStringLiteral("非法值")), QStringLiteral("非法值"));

    EXPECT_EQ(WK::formatIntNumber(1234567), QStringLiteral("1234567"));
    EXPECT_EQ(WK::formatIntNumber(1234567, WK::NF_SEGMENTED), QStringLiteral("1,234,567"));
    EXPECT_EQ(WK::formatIntNumber(-1000, WK::NF_SEGMENTED), QStringLiteral("-1,000"));
    EXPECT_EQ(WK::formatIntNumber(0, WK::NF_SEGMENTED), QStringLiteral("0"));
    EXPECT_EQ(WK::formatIntNumber(std::numeric_limits<qint64>::min(), WK::NF_SEGMENTED),
              QStringLiteral("-9,223,372,036,854,775,808"));
}

TEST(TextHelpers, formatNumberStringGroupsTheIntegerPartAndUnformatUndoesIt)
{
    struct Row {
        const char *input, *expected;
    };
    const Row rows[] = {{"1300", "1,300"},           {"1234.5", "1,234.5"}, {"-1234567", "-1,234,567"},
                        {"1,234,567", "1,234,567"}, {"12,34", "1,234"},    {"12", "12"},
                        {"", ""},                   {"abc", "abc"},        {"12abc", "12abc"}};
    for (const Row &row : rows)
        EXPECT_EQ(WK::formatNumberString(QString::fromUtf8(row.input)), QString::fromUtf8(row.expected)) << row.input;
    EXPECT_EQ(WK::unformatNumberString(QStringLiteral(" 1,234,567.5 ")), QStringLiteral("1234567.5"));
}

TEST(TextHelpers, lettersAndDigitsAreSearchKeys)
{
    for (int key : {Qt::Key_A, Qt::Key_Z, Qt::Key_0, Qt::Key_9})
        EXPECT_TRUE(WK::isKeyCharOrNum(key)) << key;
    for (int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_F1})
        EXPECT_FALSE(WK::isKeyCharOrNum(key)) << key;
    const QKeyEvent v(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(WK::isKeyCharOrNum(&v));
    EXPECT_FALSE(WK::isKeyCharOrNum(static_cast<const QKeyEvent *>(nullptr)));
}

} // namespace
