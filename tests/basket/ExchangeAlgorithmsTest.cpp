// The sells and buys of a position exchange: stocks by whole trading units, futures by side.
#include "COptBasketExchangePositionDialog.h"

#include "CAccountInfo.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace TC;

namespace {

constexpr int64_t kNone = -1;

CBasketStockData stockRow(const char *code, int64_t volume, int operation = ttservice::OT_BUY, int direction = 48)
{
    CBasketStockData r;
    r.m_market = code[0] == '6' ? QStringLiteral("SH") : QStringLiteral("CFFEX");
    r.m_stockCode = QString::fromLatin1(code);
    r.m_stockName = QStringLiteral("n") + r.m_stockCode;
    r.m_volume = volume;
    r.m_operationType = static_cast<ttservice::EOperationType>(operation);
    r.m_positionDirection = direction;
    return r;
}

// "code op volume text" of a stock line; "code oneKeyOp volume" of a futures line.
std::string describe(const CPositionParam &line, bool futures)
{
    std::string text = line.m_stockCode.toStdString() + " "
        + std::to_string(futures ? line.m_oneKeyOperation : line.m_operationType) + " " + std::to_string(line.m_volume);
    if (!futures && !line.m_directionText.isEmpty())
        text += " " + line.m_directionText.toStdString();
    return text;
}

std::vector<std::string> describeAll(const QVector<CPositionParam> &lines, bool futures)
{
    std::vector<std::string> out;
    for (const CPositionParam &line : lines)
        out.push_back(describe(line, futures));
    return out;
}

TEST_F(SubstituteTest, StockExchangeTradesTheDifferenceInWholeUnits)
{
    // held, target: kNone where the stock is not held, or has no target row.
    const struct { const char *name; int64_t held, target; std::vector<std::string> expected; } rows[] = {
        {"heldEqualsTarget", 1000, 1000, {}},
        {"sellsDownToTargetInUnits", 1000, 350, {"600000 19 600 卖"}},
        {"oddLotOfOneShareSoldWhole", 1, 0, {"600000 19 1 卖"}},
        {"oneLotHoldingSoldWhole", 100, 50, {"600000 19 100 卖"}},
        {"zeroTargetKeepsOddRemainder", 1050, 0, {"600000 19 1000 卖"}},
        // The 50 missing is below a unit: a buy of nothing is no line.
        {"buyBelowOneUnitLeftOut", 1000, 1050, {}},
        {"buysMissingUnits", 1000, 1250, {"600000 18 200 买"}},
        {"notHeldBoughtInUnits", kNone, 150, {"600000 18 100 买"}},
        {"notHeldBelowOneUnitNotBought", kNone, 80, {}},
        {"notInTargetSoldWhole", 1050, kNone, {"600000 19 1050"}},
        {"emptyHoldingNotInTarget", 0, kNone, {}}};
    sample::addInstrument("SH", "600000"); // unit 100
    for (const auto &c : rows) {
        QVector<CBasketStockData> held;
        QVector<CBasketStockData> target;
        if (c.held != kNone)
            held.push_back(stockRow("600000", c.held));
        if (c.target != kNone)
            target.push_back(stockRow("600000", c.target));
        EXPECT_EQ(describeAll(COptBasketExchangePositionDialog::calcStockExchange(held, target, {}), false), c.expected) << c.name;
    }
}

TEST_F(SubstituteTest, StockExchangeSellsInHeldOrderThenBuysInSortedOrder)
{
    QVector<CBasketStockData> held = {stockRow("600003", 500), stockRow("600001", 300), stockRow("600002", 100)};
    QVector<CBasketStockData> target = {stockRow("600009", 200), stockRow("600002", 400), stockRow("600005", 300),
                                        stockRow("600003", 200)};
    ttservice::CAccountInfo account;
    account.m_accountKey = "a1";
    COptBasketExchangePositionDialog::CExchangeTarget to;
    to.m_account = &account;
    to.m_positionAttr = 7;
    to.m_positionId = QStringLiteral("价值精选");
    to.m_extraKey = "JZJX";

    const QVector<CPositionParam> lines = COptBasketExchangePositionDialog::calcStockExchange(held, target, to);

    EXPECT_EQ(describeAll(lines, false),
              (std::vector<std::string>{"600003 19 300 卖", "600001 19 300", "600002 18 300 买", "600005 18 300 买",
                                        "600009 18 200 买"}));
    for (const CPositionParam &line : lines) {
        EXPECT_EQ(line.m_account, &account);
        EXPECT_EQ(line.m_positionAttr, 7);
        EXPECT_EQ(line.m_positionId, QStringLiteral("价值精选"));
        EXPECT_EQ(line.m_extraKey, "JZJX");
    }
}

TEST_F(SubstituteTest, FutureExchangeOpensAndClosesBySide)
{
    // held by m_positionDirection (48 long, 49 short), target by m_operationType (18 long, 19 short).
    const struct { const char *name; std::vector<CBasketStockData> held, target; std::vector<std::string> expected; } rows[] = {
        {"longAboveTargetClosesLong", {stockRow("IF01", 5)}, {stockRow("IF01", 3)}, {"IF01 14 2"}},
        {"longBelowTargetOpensLong", {stockRow("IF01", 5)}, {stockRow("IF01", 8)}, {"IF01 0 3"}},
        {"longAtTarget", {stockRow("IF01", 5)}, {stockRow("IF01", 5)}, {}},
        // One closing line: closing the holding twice would ask to close what is not held.
        {"untargetedContractClosedOnce", {stockRow("IF01", 5)}, {}, {"IF01 14 5"}},
        {"shortAboveTargetClosesShort", {stockRow("IC01", 4, 18, 49)}, {stockRow("IC01", 1, 19)}, {"IC01 15 3"}},
        {"shortBelowTargetOpensShort", {stockRow("IC01", 1, 18, 49)}, {stockRow("IC01", 3, 19)}, {"IC01 3 2"}},
        {"otherSideOpensAndHeldSideCloses", {stockRow("IF01", 5)}, {stockRow("IF01", 2, 19)}, {"IF01 3 2", "IF01 14 5"}},
        {"newContractOpensAfterHeldOnes", {stockRow("IH01", 2)},
         {stockRow("IH01", 2), stockRow("IC01", 1, 19), stockRow("IF01", 2)}, {"IC01 3 1", "IF01 0 2"}},
        {"zeroTargetWithoutHoldingNoLine", {}, {stockRow("IF01", 0)}, {}}};
    for (const auto &c : rows) {
        QMap<QString, QMap<int, CBasketStockData>> heldMap;
        QMap<QString, QMap<int, CBasketStockData>> targetMap;
        for (const CBasketStockData &h : c.held)
            heldMap[h.m_stockCode][h.m_positionDirection] = h;
        for (const CBasketStockData &t : c.target)
            targetMap[t.m_stockCode][t.m_operationType] = t;
        EXPECT_EQ(describeAll(COptBasketExchangePositionDialog::calcFutureExchange(heldMap, targetMap, {}), true), c.expected)
            << c.name;
    }
}

} // namespace
