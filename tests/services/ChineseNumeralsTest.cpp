#include "ChineseNumerals.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

struct AmountCase
{
    const char *name;
    double amount;
    const char *expected;
};

class NumToChinese : public ::testing::TestWithParam<AmountCase>
{
};

} // namespace

TEST_P(NumToChinese, WritesTheAmountAsOnACheque)
{
    const AmountCase &c = GetParam();
    EXPECT_EQ(utils::numToChinese(c.amount), QString::fromUtf8(c.expected));
}

INSTANTIATE_TEST_SUITE_P(
    Amounts, NumToChinese,
    ::testing::Values(AmountCase{"withJiao", 12345.6, "壹万贰仟叁佰肆拾伍元陆角"},
                      AmountCase{"zero", 0.0, "零元整"},
                      AmountCase{"hundred", 100.0, "壹佰元整"},
                      AmountCase{"ten", 10.0, "壹拾元整"},
                      AmountCase{"innerZeros", 1005.07, "壹仟零伍元零柒分"},
                      AmountCase{"jiaoAndFen", 0.56, "伍角陆分"},
                      AmountCase{"fenOnly", 0.05, "伍分"},
                      AmountCase{"zeroGroupBetween", 100000001.0, "壹亿零壹元整"},
                      AmountCase{"groupEndingInZero", 101000.0, "壹拾万壹仟元整"},
                      AmountCase{"groupStartingWithZero", 10000100.0, "壹仟万零壹佰元整"},
                      AmountCase{"tenThousandAndTen", 100010.0, "壹拾万零壹拾元整"},
                      AmountCase{"million", 1000000.0, "壹佰万元整"},
                      AmountCase{"roundedToTheFen", 2.999, "叁元整"},
                      AmountCase{"negative", -3.5, "负叁元伍角"}),
    [](const ::testing::TestParamInfo<AmountCase> &info) { return std::string(info.param.name); });

TEST(NumToChineseLimits, AmountsBeyondTheNumeralsGiveNoText)
{
    EXPECT_TRUE(utils::numToChinese(1e16).isEmpty());
    EXPECT_TRUE(utils::numToChinese(std::numeric_limits<double>::quiet_NaN()).isEmpty());
    EXPECT_EQ(utils::numToChinese(9999e12), QStringLiteral("玖仟玖佰玖拾玖万亿元整"));
}
