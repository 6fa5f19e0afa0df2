#include "CExchangePositionTable.h"

#include "COpBasketsPortfolioComboBox.h"

#include "AccountHelpers.h"
#include "CAccountData.h"
#include "CJiuGongImageWidget.h"
#include "COddEvenRowTable.h"
#include "CSimpleTextWidget.h"
#include "CUiResource.h"
#include "CUserConfig.h"
#include "CWidgetList.h"
#include "StockTypeCenter.h"
#include "TextHelpers.h"
#include "TypeManager.h"

#include "DoubleCompare.h"

#include <QPainter>
#include <QVBoxLayout>

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>

namespace TC {
namespace {

constexpr int kPortfolioMode = 2;
constexpr int kTypeRepurchaseSh = 126;
constexpr int kTypeRepurchaseSz = 100017;

// A damaged record (not a number, beyond any volume) holds nothing.
int64_t wholeVolume(double volume)
{
    return std::isfinite(volume) && std::fabs(volume) < 1e15 ? static_cast<int64_t>(std::llround(volume)) : 0;
}

// Adds a known value; the no-value mark adds nothing.
void addKnown(double &sum, double value)
{
    if (ttservice::hasValue(value))
        sum += value;
}

} // namespace

CExchangePositionTable::CExchangePositionTable(QWidget *parent, quint64 word)
    : WK::CBaseWidget(QStringLiteral("ExchangePositionTable"), false, parent)
    , m_tradeOpType(word)
{
    createUi();
}

CExchangePositionTable::~CExchangePositionTable() = default;

void CExchangePositionTable::createUi()
{
    auto *box = new WK::CJiuGongImageWidget(1, QStringLiteral("img_white_widget_bg"), 2, 28, 2, 27, this);
    auto *topRow = new WK::CWidgetList(Qt::Horizontal, box);
    topRow->setMargin(0, 0, 0, 0);
    topRow->setSpacing(4);
    if (getUserConfig()->hasPortfolio()) {
        auto *label = new WK::CSimpleTextWidget(0, QStringLiteral("选择持仓"), topRow);
        label->setFixedHeight(20);
        m_portfolioCombo = new COpBasketsPortfolioComboBox(COMBO_ID, m_tradeOpType, topRow);
        m_portfolioCombo->setFixedSize(110, 20);
        m_portfolioCombo->setFontKey(QStringLiteral("fnt_default_normal_fix"));
        topRow->addFixedWidget(label, 0, 0);
        topRow->addFixedWidget(m_portfolioCombo, 0, 0);
    } else {
        auto *label = new WK::CSimpleTextWidget(0, QStringLiteral("当前持仓"), topRow);
        label->setFixedHeight(20);
        topRow->addFixedWidget(label, 0, 0);
    }
    topRow->addStretchSpace(1);

    m_table = createInstrumentTable(box, isFutureWord());
    m_table->addColumn(QStringLiteral("持仓量"), 70);
    if (isFutureWord()) {
        m_table->addColumn(QStringLiteral("最新价"), 70);
        m_table->addColumn(QStringLiteral("方向"), 50, Qt::AlignCenter);
        m_table->addColumn(QStringLiteral("最新市值"), 100);
    } else {
        m_table->addColumn(QStringLiteral("可用量"), 70);
        m_table->addColumn(QStringLiteral("最新价"), 70);
        m_table->addColumn(QStringLiteral("最新市值"), 100);
        m_table->addColumn(QStringLiteral("可用市值"), 100);
    }
    m_table->setRowCount(10);

    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(4);
    layout->addWidget(topRow);
    layout->addWidget(m_table, 1);

    auto *outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);
    outer->addWidget(box);
}

void CExchangePositionTable::setAccount(const boost::shared_ptr<ttservice::CAccountData> &account)
{
    if (!account)
        return;
    std::vector<boost::shared_ptr<ttservice::CPositionStatics>> list;
    if (m_positionMode != kPortfolioMode) {
        // Copies taken under the lock: the client's threads refresh the records in place.
        ttservice::CAccountData::Lock lock(account);
        for (const auto &position : account->getPositionStatics())
            list.push_back(position ? boost::make_shared<ttservice::CPositionStatics>(*position) : position);
    } else if (m_portfolioCombo) {
        list = getPortfolioPositionStatics(m_portfolioCombo->getCurrentSelectedKey().toStdString(), account);
    }
    setPosition(list, accountDisplayIDQs(account->getAccountInfo()));
}

void CExchangePositionTable::clearTable()
{
    m_rowDirection.clear();
    m_table->clear();
}

void CExchangePositionTable::updatePortfolioDataForCombo()
{
    if (m_portfolioCombo)
        m_portfolioCombo->updatePortfolioDataForCombo();
}

void CExchangePositionTable::getPortfolioData(int &id, QString &name, QString &code) const
{
    if (!m_portfolioCombo || m_positionMode != kPortfolioMode)
        return;
    const auto portfolio = getPortfolioByKey(m_portfolioCombo->getCurrentSelectedKey());
    if (!portfolio)
        return;
    id = portfolio->m_portfolioId;
    name = QString::fromStdString(portfolio->m_portfolioName);
    code = QString::fromStdString(portfolio->m_portfolioCode);
}

WK::COddEvenRowTable *CExchangePositionTable::createInstrumentTable(QWidget *parent, bool futures)
{
    auto *table = new WK::COddEvenRowTable(parent, WK::CBaseNormalTable::ST_SINGLE_ROW);
    table->setFlag(table->flag() | WK::CBaseNormalTable::TF_TOTALS_LINE);
    const Qt::Alignment left = Qt::AlignLeft | Qt::AlignVCenter;
    table->addColumn(QStringLiteral("账号"), 90, left);
    table->addColumn(QStringLiteral("市场"), 50, left);
    table->addColumn(QStringLiteral("代码"), 70, left);
    table->addColumn(futures ? QStringLiteral("合约名称") : QStringLiteral("股票名称"), 90, left);
    return table;
}

bool CExchangePositionTable::isRepurchaseCode(const std::string &code)
{
    // The code alone tells, under both market names, whatever market the row names.
    return ttservice::StockTypeCenter::isTypedStock(kTypeRepurchaseSh, std::string("SH"), code)
        || ttservice::StockTypeCenter::isTypedStock(kTypeRepurchaseSz, std::string("SZ"), code);
}

double CExchangePositionTable::availableValue(const ttservice::CPositionStatics &position)
{
    const int64_t volume = wholeVolume(position.m_volume);
    if (volume <= 0 || !ttservice::hasValue(position.m_marketValue))
        return ttservice::NO_VALUE;
    const int64_t available = std::max<int64_t>(0, std::min(position.m_availableVolume, volume));
    return position.m_marketValue * static_cast<double>(available) / static_cast<double>(volume);
}

void CExchangePositionTable::setPosition(std::vector<boost::shared_ptr<ttservice::CPositionStatics>> list,
                                         const QString &accountText)
{
    m_rowDirection.clear();
    m_table->clear();
    list.erase(std::remove_if(list.begin(), list.end(),
                              [](const boost::shared_ptr<ttservice::CPositionStatics> &p) {
                                  return p && (wholeVolume(p->m_volume) <= 0 || isRepurchaseCode(p->m_stockCode));
                              }),
               list.end());

    m_table->beginUpdate();
    m_table->setRowCount(static_cast<int>(list.size()));
    int64_t volumeSum = 0;
    int64_t availableSum = 0;
    double marketValueSum = 0;
    double availableValueSum = 0;
    for (int row = 0; row < static_cast<int>(list.size()); ++row) {
        const auto &p = list[static_cast<size_t>(row)];
        if (!p)
            continue;
        const int64_t volume = wholeVolume(p->m_volume);
        m_table->setItemText(row, COL_ACCOUNT, accountText);
        m_table->setItemText(row, COL_MARKET, QString::fromStdString(p->m_market));
        m_table->setItemText(row, COL_CODE, QString::fromStdString(p->m_stockCode));
        m_table->setItemText(row, COL_NAME, QString::fromStdString(p->m_stockName));
        m_table->setItemInt(row, COL_VOLUME, volume);
        if (isFutureWord()) {
            m_table->setItemDouble(row, COL_FTR_LAST_PRICE, p->m_lastPrice, 2);
            m_table->setItemText(row, COL_FTR_DIRECTION,
                                 QString::fromStdString(ttservice::TypeManager::instance()->getEnumItemName(
                                     "ttservice::EEntrustBS", p->m_direction, ttservice::EVqTraderType(0))));
            m_table->setItemDouble(row, COL_FTR_MARKET_VALUE, p->m_marketValue, 2);
            m_rowDirection[row] = p->m_direction;
        } else {
            const double value = availableValue(*p);
            m_table->setItemInt(row, COL_AVAILABLE, p->m_availableVolume);
            m_table->setItemDouble(row, COL_LAST_PRICE, p->m_lastPrice, 2);
            m_table->setItemDouble(row, COL_MARKET_VALUE, p->m_marketValue, 2);
            m_table->setItemDouble(row, COL_AVAILABLE_VALUE, value, 2);
            addKnown(availableValueSum, value);
        }
        volumeSum += volume;
        availableSum += p->m_availableVolume;
        addKnown(marketValueSum, p->m_marketValue);
    }
    m_table->endUpdate();

    // The held column totals what is held on both tabs.
    m_table->setStatText(COL_VOLUME, WK::formatIntNumber(volumeSum));
    if (!isFutureWord()) {
        m_table->setStatText(COL_AVAILABLE, WK::formatIntNumber(availableSum));
        m_table->setStatText(COL_AVAILABLE_VALUE,
                             WK::formatDoubleNumber(availableValueSum, 2, WK::NF_NONE, QStringLiteral("非法值")));
    }
    m_table->setStatText(COL_MARKET_VALUE, WK::formatDoubleNumber(marketValueSum, 2, WK::NF_NONE, QStringLiteral("非法值")));
    m_table->adjustVisibleRowsColumnWidth();
}

void CExchangePositionTable::getBasketStockParam(QVector<CBasketStockData> &rows) const
{
    rows.clear();
    for (int row = 0; row < m_table->dataRowCount(); ++row) {
        CBasketStockData data;
        data.m_market = m_table->itemText(row, COL_MARKET);
        data.m_stockCode = m_table->itemText(row, COL_CODE);
        if (data.m_stockCode.isEmpty())
            continue; // a row without a position
        data.m_stockName = m_table->itemText(row, COL_NAME);
        data.m_volume = m_table->itemLonglong(row, COL_VOLUME);
        if (isFutureWord())
            data.m_positionDirection = m_rowDirection.value(row, 48);
        rows.push_back(data);
    }
}

void CExchangePositionTable::getBasketStockParam(QMap<QString, QMap<int, CBasketStockData>> &rows) const
{
    QVector<CBasketStockData> list;
    getBasketStockParam(list);
    for (const CBasketStockData &data : qAsConst(list)) {
        QMap<int, CBasketStockData> &sides = rows[data.m_stockCode];
        auto it = sides.find(data.m_positionDirection);
        if (it != sides.end())
            it->m_volume += data.m_volume;
        else
            sides.insert(data.m_positionDirection, data);
    }
}

bool CExchangePositionTable::handleEvent(int event, int id, int value, QString text, void *data)
{
    if (event == 1149)
        m_positionMode = value;
    return WK::CBaseWidget::handleEvent(event, id, value, text, data);
}

void CExchangePositionTable::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), WK::CUiResource::instance()->getColor(QStringLiteral("clr_graph_background")));
}

} // namespace TC
