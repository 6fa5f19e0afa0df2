#include "CGlobalOrderParamTable.h"
#include "CTrdAlgoBaseTable.h"
#include "EventRecorder.h"
#include "Fields.h"
#include "SubstituteFixture.h"

#include "CPushButton.h"
#include "CTimeService.h"

#include "CCodeOrderParam.h"
#include "COrderSetting.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QStringList>

#include <vector>

namespace {

using ttservice::CCodeOrderParam;
using ttservice::COrderSetting;

constexpr int kBlockFlag = 0x1103fff;
// 2024-01-02 00:00:00 in Beijing, the day of the time service's default reading.
constexpr long long kDefaultDay = TC::CTimeService::DEFAULT_TIME - (9 * 3600 + 30 * 60);

TC::CGlobalOrderParamTable *makeTable(QWidget &parent, ttservice::EVQBrokerType broker = ttservice::BROKER_TYPE_STOCK,
                                      int flag = kBlockFlag)
{
    auto *table = new TC::CGlobalOrderParamTable(broker, true, &parent, 1, ttservice::VQ_TRADER_BASKET, 0);
    table->setFlag(flag);
    return table;
}

CCodeOrderParam lineOf(const char *market, const char *code, int64_t volume)
{
    CCodeOrderParam line;
    line.m_stockInfo.m_market = market;
    line.m_stockInfo.m_stockCode = code;
    line.m_volume = volume;
    return line;
}

class GlobalOrderParamTable : public SubstituteTest
{
protected:
    EventRecorder parent;
};

TEST_F(GlobalOrderParamTable, offersAlgorithmsByAccountKindAndFlag)
{
    EXPECT_EQ(makeTable(parent)->offeredOrderTypes(), (QVector<int>{0, 4, 5, 14, 13}));
    EXPECT_EQ(makeTable(parent, ttservice::BROKER_TYPE_FUTURE)->offeredOrderTypes(), (QVector<int>{0, 4}));
    EXPECT_EQ(makeTable(parent, ttservice::BROKER_TYPE_STOCK, 0x3fff)->offeredOrderTypes(), (QVector<int>{0}));
}

TEST_F(GlobalOrderParamTable, fillOrderParamWritesTheTableButNeverTheVolume)
{
    TC::CGlobalOrderParamTable *table = makeTable(parent);
    table->setPriceType(ttservice::PRICE_TYPE_FIXED);
    table->setFixedPrice(10.5);
    table->setOrderType(4);
    table->getTrdAlgoBaseTable(4)->setValue(TC::CTrdAlgoBaseTable::ItemOrderInterval, 45);
    COrderSetting stepped;
    stepped.m_stepValue = 0.02;
    table->loadOpParam(stepped, 0.01);

    CCodeOrderParam line = lineOf("SH", "600000", 1200);
    table->fillOrderParam(QStringLiteral("600000.SH"), 300, line, ttservice::NO_VALUE);
    // Volume, price type and price, order type and interval, the price step (protection is on by
    // default) and, by option 0, the algorithm's hours.
    EXPECT_EQ(fields(line.m_volume, line.m_priceType, line.m_price, line.m_orderType, line.m_orderInterval, line.m_priceStep,
                     line.m_validFrom - kDefaultDay, line.m_validTo - kDefaultDay),
              fields(1200, ttservice::PRICE_TYPE_FIXED, 10.5, 4, 45, 0.02, 9 * 3600 + 30 * 60, 15 * 3600));

    // A price handed in wins over the table's fixed price; a plain order has no intervals.
    table->setOrderType(0);
    CCodeOrderParam plain = lineOf("SZ", "000001", 0);
    table->fillOrderParam(QString(), 0, plain, 9.87);
    EXPECT_EQ(fields(plain.m_price, ttservice::isNoValue(plain.m_orderInterval), plain.m_validFrom), "9.87|true|0");
    table->setCheckParam(QStringLiteral("0"));
    table->fillOrderParam(QString(), 0, plain, 9.87);
    EXPECT_TRUE(ttservice::isNoValue(plain.m_priceStep));
}

TEST_F(GlobalOrderParamTable, settingRoundTripRoundsTheStepToThePrecision)
{
    TC::CGlobalOrderParamTable *table = makeTable(parent);
    COrderSetting setting;
    setting.m_stepIsAbsolute = false;
    setting.m_stepValue = 0.123;
    setting.m_stepRate = 0.005;
    setting.m_keepValidTime = true;
    setting.m_validSeconds = 120;
    setting.m_stepFlag = 2;
    setting.m_priceType = 4;
    setting.m_startTime = kDefaultDay + 10 * 3600;
    setting.m_endTime = kDefaultDay + 14 * 3600 + 30 * 60;
    table->loadOpParam(setting, 0.01);

    COrderSetting back;
    table->saveOpParam(QString(), back);
    EXPECT_EQ(fields(back.m_stepIsAbsolute, back.m_stepValue, back.m_stepRate, back.m_keepValidTime, back.m_validSeconds,
                     back.m_stepFlag, back.m_priceType, table->priceType(), back.m_startTime, back.m_endTime),
              fields(false, 0.12, 0.005, true, 120, 2, 4, 4, setting.m_startTime, setting.m_endTime));
}

TEST_F(GlobalOrderParamTable, anotherTableReadsTheTextBack)
{
    TC::CGlobalOrderParamTable *source = makeTable(parent);
    source->setPriceType(2);
    source->setOrderType(13);
    source->resetStrategyType(13, QStringLiteral("SWITCH"));
    source->getTrdAlgoBaseTable(14)->setValue(TC::CTrdAlgoBaseTable::ItemParticipation, 35);
    source->setCheckParam(QStringLiteral("1"));
    source->setExpandItemsHidden(false);
    const QString text = source->param();
    for (const char separator : {'=', ':', '|', '/', '%', '*', '$', '@'})
        EXPECT_FALSE(text.contains(QLatin1Char(separator))) << text.toStdString();

    TC::CGlobalOrderParamTable *target = makeTable(parent);
    target->setParam(text);
    EXPECT_EQ(target->param(), text);
    EXPECT_EQ(fields(target->getAlgoStrategyType(), target->getTrdAlgoBaseTable(14)->value(TC::CTrdAlgoBaseTable::ItemParticipation),
                     target->loadCheckParam()),
              "SWITCH|35|1");
}

TEST_F(GlobalOrderParamTable, aDamagedTextKeepsWhatItDoesNotSayWell)
{
    for (const char *text : {"", "buy low sell high", "77;99;abc", "0;0;-5;;1;1;-1;-2;0;-30;0;-9;999999",
                             "0;13;0;0;1;1;0;0;0;0;0;0;0;13`;x`y;`;13`NOPE#a#-1", ";;;;;;;;;;;;;;;;;;;;"}) {
        SCOPED_TRACE(text);
        TC::CGlobalOrderParamTable *table = makeTable(parent);
        table->setPriceType(1);
        table->setParam(QString::fromUtf8(text));
        EXPECT_TRUE(table->offeredPriceTypes().contains(table->priceType()));
        EXPECT_TRUE(table->offeredOrderTypes().contains(table->orderType()));
        COrderSetting setting;
        table->saveOpParam(QString(), setting);
        EXPECT_GE(setting.m_stepValue, 0.0);
        EXPECT_GE(setting.m_validSeconds, 0);
        EXPECT_GE(setting.m_endTime, kDefaultDay);
    }
}

TEST_F(GlobalOrderParamTable, outsideAlgorithmCarriesItsStrategyAndParameters)
{
    TC::CGlobalOrderParamTable *table = makeTable(parent);
    const std::vector<CCodeOrderParam> lines{lineOf("SH", "600000", 100), lineOf("SZ", "000001", 200)};
    EXPECT_FALSE(table->isTrdParamTable());
    EXPECT_EQ(table->getAlgParamsStr(lines), "");

    table->setOrderType(4); // the client's own platform
    EXPECT_FALSE(table->isTrdParamTable());

    table->setOrderType(13);
    table->resetStrategyType(13, QStringLiteral("SWITCH"));
    table->hideAmountUsed(true, TC::CTrdAlgoBaseTable::ItemMoneyLimit);
    EXPECT_TRUE(table->isTrdParamTable());
    EXPECT_EQ(table->getAlgoStrategyType(), "SWITCH");
    const QString text = QString::fromStdString(table->getAlgParamsStr(lines));
    const QStringList perLine = text.split(QLatin1Char('@'));
    ASSERT_EQ(perLine.size(), 2) << text.toStdString();
    EXPECT_TRUE(perLine[0].startsWith(QStringLiteral("algo=VQALGO;code=600000.SH;start=09:30:00;end=15:00:00;strategy=SWITCH")))
        << perLine[0].toStdString();
    EXPECT_TRUE(perLine[1].contains(QStringLiteral("code=000001.SZ")));
    EXPECT_FALSE(text.contains(QStringLiteral("money="))) << "a hidden item does not travel";

    table->setOrderType(14);
    table->resetStrategyType(14, QStringLiteral("VWAPPLUS"));
    EXPECT_EQ(table->getAlgoStrategyType(), "VWAPPLUS");
    EXPECT_FALSE(table->getTrdAlgoBaseTable(14)->setStrategy(QStringLiteral("SWITCH"))) << "only the outside platform switches";
    EXPECT_EQ(table->getAlgoStrategyType(), "VWAPPLUS");
}

TEST_F(GlobalOrderParamTable, onlyTheUsersChangesAreTold)
{
    TC::CGlobalOrderParamTable *table = makeTable(parent);
    table->setPriceType(3);
    table->setOrderType(5);
    table->loadOpParam(COrderSetting(), 0.01);
    EXPECT_TRUE(parent.seen.empty());

    auto *combo = table->findChild<QComboBox *>(QStringLiteral("price_type_combo"));
    ASSERT_NE(combo, nullptr);
    combo->setCurrentIndex(combo->findData(1));
    Q_EMIT combo->activated(combo->currentIndex());
    EXPECT_EQ(parent.seen, (EventRecorder::Events{{114, 0, 0, QString()}}));
    EXPECT_EQ(table->priceType(), 1);

    auto *help = table->findChild<WK::CPushButton *>();
    ASSERT_NE(help, nullptr);
    help->click();
    EXPECT_EQ(parent.seen, (EventRecorder::Events{{114, 0, 0, QString()}, {220, 0, 0, QString()}}));
}

TEST_F(GlobalOrderParamTable, instructionLocksTheOrderTypeUntilCleared)
{
    TC::CGlobalOrderParamTable *table = makeTable(parent);
    CCodeOrderParam line = lineOf("SH", "600000", 100);
    line.m_priceType = ttservice::PRICE_TYPE_FIXED;
    line.m_price = 12.34;
    line.m_orderType = ttservice::EOrderType(13);
    line.m_orderInterval = 90;
    table->setEnableForCommand(13, false);
    table->loadFromOrderParam(line, true, QStringLiteral("VWAP#90#60#15#0#100"));
    table->setTableUIByParams(4, QStringLiteral("#5#5#5#5#5")); // another table's text changes nothing here

    auto *orderCombo = table->findChild<QComboBox *>(QStringLiteral("order_type_combo"));
    // The combo's lock, order and price type, fixed price, strategy and participation; once
    // cleared, the check parameters too.
    EXPECT_EQ(fields(orderCombo->isEnabled(), table->orderType(), table->priceType(), table->fixedPrice(), table->getAlgoStrategyType(),
                     table->getTrdAlgoBaseTable(13)->value(TC::CTrdAlgoBaseTable::ItemParticipation)),
              fields(false, 13, ttservice::PRICE_TYPE_FIXED, 12.34, "VWAP", 15));
    table->clear();
    EXPECT_EQ(fields(orderCombo->isEnabled(), table->orderType(), table->priceType(), table->loadCheckParam()),
              fields(true, 0, TC::COrderParamBaseTable::PRICE_TYPE_OPPOSITE, "0*1"));
}

} // namespace
