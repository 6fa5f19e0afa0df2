#include "PriceLimits.h"

#include "CExchangeClient.h"
#include "SubstituteFixture.h"

using namespace TC;

namespace {

struct LimitCase
{
    const char *name;
    double last;
    double limit;
    bool upper;
    bool lower;
};

class PriceLimits : public SubstituteTest, public ::testing::WithParamInterface<LimitCase>
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        ttservice::CInstrumentDetail stock;
        stock.m_market = "SH";
        stock.m_stockCode = "600000";
        // A tick that binary doubles hold exactly, so "exactly one tick" is exact.
        stock.m_priceTick = 0.25;
        CExchangeClient::instance()->addInstrument(stock);
    }
};

} // namespace

TEST_P(PriceLimits, MarksWithinOneTickOrBeyond)
{
    const LimitCase &c = GetParam();
    EXPECT_EQ(isUpperLimitStock(QStringLiteral("SH"), QStringLiteral("600000"), c.last, c.limit), c.upper);
    EXPECT_EQ(isLowerLimitStock(QStringLiteral("SH"), QStringLiteral("600000"), c.last, c.limit), c.lower);
}

INSTANTIATE_TEST_SUITE_P(Cases, PriceLimits,
    ::testing::Values(LimitCase{"atTheLimit", 11.00, 11.00, true, true},
                      LimitCase{"lessThanOneTickBelow", 10.875, 11.00, true, true},
                      LimitCase{"exactlyOneTickBelow", 10.75, 11.00, false, true},
                      LimitCase{"exactlyOneTickAbove", 11.25, 11.00, true, false},
                      LimitCase{"wellBelow", 10.50, 11.00, false, true},
                      LimitCase{"aboveTheLimit", 11.50, 11.00, true, false}),
    [](const ::testing::TestParamInfo<LimitCase> &info) { return std::string(info.param.name); });

TEST_F(PriceLimits, UnknownInstrumentHasNoTick)
{
    EXPECT_FALSE(isUpperLimitStock(QStringLiteral("SZ"), QStringLiteral("000001"), 9.99, 10.0));
    EXPECT_TRUE(isUpperLimitStock(QStringLiteral("SZ"), QStringLiteral("000001"), 10.01, 10.0));
}
