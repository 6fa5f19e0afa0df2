#include "BasketHelpers.h"

#include <gtest/gtest.h>

#include <algorithm>

using TC::CBasketStockData;

namespace {

CBasketStockData row(const char *market, const char *code, const char *account = "")
{
    CBasketStockData r;
    r.m_market = QString::fromUtf8(market);
    r.m_stockCode = QString::fromUtf8(code);
    r.m_accountKey = account;
    return r;
}

class BatchFlagName : public ::testing::TestWithParam<int>
{
};

} // namespace

TEST_P(BatchFlagName, NameAndFlagRoundTrip)
{
    const QFlags<TC::ETempBatchOrderFlag> flag(GetParam());
    const QString name = TC::batchFlagName(flag);
    EXPECT_FALSE(name.isEmpty());
    EXPECT_EQ(TC::nameBatchFlag(name), flag);
}

INSTANTIATE_TEST_SUITE_P(Lists, BatchFlagName, ::testing::Values(1, 2, 4, 8, 16, 32),
                         [](const ::testing::TestParamInfo<int> &info) { return "flag" + std::to_string(info.param); });

TEST(BatchFlagNames, FixedNamesOfThePickers)
{
    EXPECT_EQ(TC::batchFlagName(TC::BATCH_CLIPBOARD), QStringLiteral("剪贴板组合"));
    EXPECT_EQ(TC::batchFlagName(QFlags<TC::ETempBatchOrderFlag>(32)), QStringLiteral("自定义组合"));
    EXPECT_EQ(TC::batchFlagName(QFlags<TC::ETempBatchOrderFlag>(16)), QStringLiteral("调仓组合"));
    EXPECT_EQ(TC::batchFlagName(TC::BATCH_SELL), QStringLiteral("批量卖出组合"));
}

TEST(BatchFlagNames, WordsThatAreNoListHaveNoName)
{
    EXPECT_TRUE(TC::batchFlagName(TC::BATCH_NONE).isEmpty());
    EXPECT_TRUE(TC::batchFlagName(QFlags<TC::ETempBatchOrderFlag>(64)).isEmpty());
    EXPECT_TRUE(TC::batchFlagName(TC::BATCH_BUY | TC::BATCH_SELL).isEmpty());
    EXPECT_EQ(TC::nameBatchFlag(QStringLiteral("我的篮子")), QFlags<TC::ETempBatchOrderFlag>());
    EXPECT_EQ(TC::nameBatchFlag(QString()), QFlags<TC::ETempBatchOrderFlag>());
}

TEST(BasketStockOrder, AgreesWithTheCompareTraitsSoBisectionFindsRows)
{
    QVector<CBasketStockData> rows{row("SZ", "000002"), row("SH", "600000", "b"), row("SH", "600000", "a"),
                                   row("SH", "510300")};
    std::sort(rows.begin(), rows.end(), TC::basketStockLessThan);
    for (int i = 1; i < rows.size(); ++i)
        EXPECT_LT(TC::CBasketStockCompareTraits::compare(rows[i - 1], rows[i]), 0) << i;
    EXPECT_EQ(rows.front().m_stockCode, QStringLiteral("510300"));
    EXPECT_EQ(rows.back().m_market, QStringLiteral("SZ"));
    EXPECT_FALSE(TC::basketStockLessThan(rows[0], rows[0]));
}
