// Edits of a generated list that outlive the next recalculation. A change is made on rows of the
// tab's custom group, never on lines: the next run of the sizing regenerates the lines from them.
#include "COpBasketParamsWidget.h"

#include "COpBasketCrdBuySellWidget.h"
#include "COpBasketFtrBuySellWidget.h"
#include "COpBasketParamsButtonsBar.h"
#include "COpBasketsComboBox.h"

#include "CExchangeClient.h"
#include "COperationPushButtonGroup.h"
#include "CParameterCell.h"
#include "CSmartKeyboardDialog.h"
#include "CUserConfig.h"
#include "LuaModuleCtrl.h"
#include "OperationHelpers.h"
#include "TradeUnits.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QPointer>
#include <QTimer>

#include <set>

namespace TC {
namespace {

using ttservice::CCodeOrderParam;

constexpr int kModeBasketList = 0;
constexpr int kModePasteList = 8;

CBasketStockData probeOf(const CCodeOrderParam &line)
{
    CBasketStockData probe;
    probe.m_market = QString::fromStdString(line.m_stockInfo.m_market);
    probe.m_stockCode = QString::fromStdString(line.m_stockInfo.m_stockCode);
    if (line.m_account)
        probe.m_accountKey = line.m_account->getKey();
    return probe;
}

bool sameStock(const CBasketStockData &row, const CBasketStockData &other)
{
    return row.m_market == other.m_market && row.m_stockCode == other.m_stockCode;
}

// A row without an account (a stock added from the keyboard) stands for the line of every
// account: before one account's line is edited or removed it becomes a row per account, each
// with the volume its line has now. False when the list has no such row.
bool splitForAccounts(QList<CBasketStockData> &rows, const CBasketStockData &stock,
                      const std::vector<CCodeOrderParam> &lines)
{
    int shared = -1;
    for (int i = 0; i < rows.size() && shared < 0; ++i) {
        if (rows[i].m_accountKey.empty() && sameStock(rows[i], stock))
            shared = i;
    }
    if (shared < 0)
        return false;
    const CBasketStockData row = rows.takeAt(shared);
    int at = shared;
    for (const CCodeOrderParam &line : lines) {
        const CBasketStockData probe = probeOf(line);
        if (probe.m_accountKey.empty() || !sameStock(row, probe))
            continue;
        CBasketStockData own = row;
        own.m_accountKey = probe.m_accountKey;
        own.m_volume = line.m_volume;
        rows.insert(at++, own);
    }
    return true;
}

// Writes the edited line back into the equal row; false when the list has no such row.
bool writeBack(QList<CBasketStockData> &rows, const CCodeOrderParam &line, bool withTouch, bool withPrice,
               const std::vector<CCodeOrderParam> &lines)
{
    const CBasketStockData probe = probeOf(line);
    int index = rows.indexOf(probe);
    if (index < 0 && !probe.m_accountKey.empty() && splitForAccounts(rows, probe, lines))
        index = rows.indexOf(probe);
    if (index < 0)
        return false;
    CBasketStockData &row = rows[index];
    row.m_operationType = getBuyOrSellType(line.m_operationType);
    row.m_volume = line.m_volume;
    if (withTouch) {
        row.m_touchPrice = line.m_touchPrice;
        row.m_touchType = line.m_touchType;
    }
    if (withPrice)
        row.m_price = line.m_price;
    return true;
}

} // namespace

QList<CBasketStockData> *COpBasketParamsWidget::customGroupList(quint64 tab)
{
    CTabBasket &entry = m_tabBaskets[tab];
    if (m_customGroupMode == kModeBasketList)
        return &entry.m_basketList;
    if (m_customGroupMode == kModePasteList)
        return &entry.m_pasteList;
    return nullptr;
}

QList<CBasketStockData> COpBasketParamsWidget::paramDataToBasketStockData(const std::vector<CCodeOrderParam> &lines,
                                                                          const QString &basketName) const
{
    bool useFixedPrice = false;
    const QMap<QString, CBasketSetting> &baskets = getUserConfig()->baskets();
    const auto basket = baskets.constFind(basketName);
    if (basket != baskets.constEnd() && !basket->m_stocks.isEmpty())
        useFixedPrice = basket->m_stocks.first().m_useFixedPrice;
    const bool touchModule = luawrapper::LuaModuleCtrl::checkModule({"mdl_order", "mdl_order_market_if_touched"});

    QList<CBasketStockData> rows;
    rows.reserve(static_cast<int>(lines.size()));
    for (const CCodeOrderParam &line : lines) {
        CBasketStockData row;
        row.m_market = QString::fromStdString(line.m_stockInfo.m_market);
        row.m_stockCode = QString::fromStdString(line.m_stockInfo.m_stockCode);
        row.m_stockName = QString::fromStdString(line.m_stockInfo.m_stockName);
        row.m_volume = line.m_volume;
        // A row carries its direction; the tab turns it into the tab's own operation again.
        row.m_operationType = getBuyOrSellType(line.m_operationType);
        row.m_price = line.m_price;
        row.m_useFixedPrice = useFixedPrice;
        if (touchModule) {
            row.m_touchPrice = line.m_touchPrice;
            row.m_touchType = line.m_touchType;
        }
        if (line.m_account)
            row.m_accountKey = line.m_account->getKey();
        rows.push_back(row);
    }
    return rows;
}

bool COpBasketParamsWidget::addRowTo(QList<CBasketStockData> &rows, const CBasketStockData &row, const QString &name) const
{
    // A stock the list has on any account is there already: a row for every account would
    // double its lines.
    for (const CBasketStockData &present : qAsConst(rows)) {
        if (present.m_market == row.m_market && present.m_stockCode == row.m_stockCode)
            return false;
    }
    CBasketStockData added = row;
    added.m_stockName = name;
    added.m_weight = 1.0;
    const bool buyTab = m_tabGroup && m_tabGroup->checkedId() == static_cast<int>(TOT_BUY);
    added.m_operationType = buyTab ? ttservice::OT_BUY : ttservice::OT_SELL;
    rows.push_back(added);
    return true;
}

void COpBasketParamsWidget::changeBascketData(CCodeOrderParam *line)
{
    if (!line || !m_basketsCombo)
        return;
    // An instruction's list is rebuilt from the instruction: the edit is kept beside it.
    if (isCommandListOnView()) {
        if (line->m_account)
            m_commandEdits.insert(commandLineKey(line->m_account->getKey(), line->m_stockInfo.m_market, line->m_stockInfo.m_stockCode),
                                  line->m_volume);
        // Sized again once the table's edit is over, so that a volume beyond what is left of the
        // instruction shows as what will leave.
        QTimer::singleShot(0, this, [this]() { recalculate(0); });
        return;
    }
    CTabBasket &entry = m_tabBaskets[m_tradeOpType];
    const int batch = static_cast<int>(m_basketsCombo->batchOp());
    // Only the lists rebuilt from the table read its lines: a copy of them, not made for nothing.
    const bool fromTable = batch == BATCH_CUSTOM_GROUP || batch == BATCH_CLIPBOARD || batch == BATCH_NONE;
    const std::vector<CCodeOrderParam> shown = fromTable ? shownLines() : std::vector<CCodeOrderParam>();
    switch (batch) {
    case BATCH_CUSTOM_GROUP: {
        QList<CBasketStockData> *rows = customGroupList(m_tradeOpType);
        const bool full = m_customGroupMode == kModeBasketList;
        if (rows && writeBack(*rows, *line, full, full, shown))
            setBatchOp(BATCH_CUSTOM_GROUP, false);
        break;
    }
    case BATCH_CLIPBOARD:
        // Pasted rows are for every account; the group takes the lines as shown, one row per
        // account, so that the edit of one account's line finds its row.
        entry.m_pasteList = paramDataToBasketStockData(shown, m_basketsCombo->currentText());
        if (writeBack(entry.m_pasteList, *line, false, false, shown)) {
            m_customGroupMode = kModePasteList;
            setBatchOp(BATCH_CUSTOM_GROUP, false);
        }
        break;
    case BATCH_BUY_SELL: {
        QVector<CPositionParam> &positions = m_batchBuySellPositions[m_tradeOpType];
        for (CPositionParam &position : positions) {
            if (position.m_market.toStdString() == line->m_stockInfo.m_market
                && position.m_stockCode.toStdString() == line->m_stockInfo.m_stockCode) {
                position.m_oneKeyOperation = line->m_operationType;
                position.m_volume = line->m_volume;
                setBatchOp(BATCH_BUY_SELL, false);
                break;
            }
        }
        break;
    }
    case BATCH_NONE: {
        entry.m_basketList = paramDataToBasketStockData(shown, m_basketsCombo->currentText());
        // The line's price is the market's of the moment, not one the user chose: it stays out.
        if (!writeBack(entry.m_basketList, *line, true, false, shown))
            break;
        // The group lives in the form only: a temporary list never joins the stored baskets.
        m_customGroupMode = kModeBasketList;
        setBatchOp(BATCH_CUSTOM_GROUP, false);
        break;
    }
    default:
        break;
    }
}

void COpBasketParamsWidget::addOneBascketData(const ttservice::CStockInfo &stock)
{
    handOverToExchangeDialog(stock);
    if (!m_basketsCombo)
        return;
    CBasketStockData row;
    row.m_market = QString::fromStdString(stock.m_market);
    row.m_stockCode = QString::fromStdString(stock.m_stockCode);
    const QString name = QString::fromStdString(stock.m_stockName);
    CTabBasket &entry = m_tabBaskets[m_tradeOpType];
    switch (static_cast<int>(m_basketsCombo->batchOp())) {
    case BATCH_NONE:
        // The group starts as the list on screen, so that what the user sized stays.
        entry.m_basketList = paramDataToBasketStockData(shownLines(), m_basketsCombo->currentText());
        if (addRowTo(entry.m_basketList, row, name)) {
            m_customGroupMode = kModeBasketList;
            setBatchOp(BATCH_CUSTOM_GROUP, true);
        }
        break;
    case BATCH_CLIPBOARD:
        entry.m_pasteList = paramDataToBasketStockData(shownLines(), m_basketsCombo->currentText());
        if (addRowTo(entry.m_pasteList, row, name)) {
            m_customGroupMode = kModePasteList;
            setBatchOp(BATCH_CUSTOM_GROUP, true);
        }
        break;
    case BATCH_CUSTOM_GROUP:
        if (QList<CBasketStockData> *rows = customGroupList(m_tradeOpType)) {
            if (addRowTo(*rows, row, name))
                setBatchOp(BATCH_CUSTOM_GROUP, true);
        }
        break;
    default:
        break;
    }
}

void COpBasketParamsWidget::slotRemoveData(QVector<TC::CBasketStockData> rows)
{
    if (!m_basketsCombo || rows.isEmpty())
        return;
    if (isCommandListOnView()) {
        for (const CBasketStockData &row : qAsConst(rows))
            m_commandDeletions.insert(commandLineKey(row.m_accountKey, row.m_market.toStdString(), row.m_stockCode.toStdString()));
        return;
    }
    CTabBasket &entry = m_tabBaskets[m_tradeOpType];
    QList<CBasketStockData> *list = nullptr;
    bool entered = false;
    switch (static_cast<int>(m_basketsCombo->batchOp())) {
    case BATCH_NONE:
        // The table has taken the lines out already: the lines left are the group.
        entry.m_basketList = paramDataToBasketStockData(shownLines(), m_basketsCombo->currentText());
        m_customGroupMode = kModeBasketList;
        list = &entry.m_basketList;
        entered = true;
        break;
    case BATCH_CLIPBOARD:
        entry.m_pasteList = paramDataToBasketStockData(shownLines(), m_basketsCombo->currentText());
        m_customGroupMode = kModePasteList;
        list = &entry.m_pasteList;
        entered = true;
        break;
    case BATCH_CUSTOM_GROUP:
        list = customGroupList(m_tradeOpType);
        break;
    default:
        break;
    }
    if (!list)
        return;
    bool removed = false;
    const std::vector<CCodeOrderParam> shown = shownLines();
    for (const CBasketStockData &row : qAsConst(rows)) {
        // The table has taken the line out already: a row shared by every account keeps the
        // lines that are left.
        removed = list->removeOne(row) || (!row.m_accountKey.empty() && splitForAccounts(*list, row, shown))
                  || removed;
    }
    if (removed || entered)
        setBatchOp(BATCH_CUSTOM_GROUP, true);
}

void COpBasketParamsWidget::changeDelegateStyle()
{
    bool touchOrders = false;
    for (const CBasketStockData &row : qAsConst(m_tabBaskets[m_tradeOpType].m_basketList)) {
        if (row.m_touchType == 1 || row.m_touchType == 2) {
            touchOrders = true;
            break;
        }
    }
    updateEntrustVisible(touchOrders);
}

void COpBasketParamsWidget::onSelectStock(const ttservice::CStockInfo &stock, ESmartKeyType)
{
    if (!m_basketsCombo)
        return;
    bool take = false;
    if (m_tradeOpType == TOT_FUTURE || m_tradeOpType == TOT_ONEKEY_FUTURE) {
        const auto info = CExchangeClient::instance()->getCodeInfo(QString::fromStdString(stock.m_stockCode));
        take = info && ttservice::isFutureMarket(info->m_market);
    } else {
        take = ttservice::isStockMarket(stock.m_market);
    }
    if (!take)
        return;
    addOneBascketData(stock);
    m_basketsCombo->setBasket(m_basketsCombo->currentText(), false);
}

void COpBasketParamsWidget::slot_bascketChange(QKeyEvent *event)
{
    if (!m_basketsCombo || !m_basketsCombo->canCustom())
        return;
    CSmartKeyboardDialog *keyboard = CSmartKeyboardDialog::instance();
    if (!keyboard)
        return;
    // The plain stock tabs offer stocks only; the others every instrument, which
    // onSelectStock then sorts out by the tab's markets.
    const bool stockTab = m_tradeOpType == TOT_BUY || m_tradeOpType == TOT_SELL || m_tradeOpType == TOT_ALL;
    keyboard->setTradeType(stockTab ? 1 : 2);
    // The keyboard outlives forms: a closed form must not be called back.
    QPointer<COpBasketParamsWidget> self(this);
    keyboard->setSelectStockFunc([self](ttservice::CStockInfo stock, ESmartKeyType type) {
        if (self)
            self->onSelectStock(stock, type);
    });
    const bool futures = m_tradeOpType == TOT_FUTURE || m_tradeOpType == TOT_ONEKEY_FUTURE;
    keyboard->setTitle(futures ? QStringLiteral("选择合约") : QStringLiteral("选择股票"));
    keyboard->setChar(event, this);
    keyboard->show();
}

void COpBasketParamsWidget::batchClipboard(bool resetVolumn)
{
    if (resetVolumn)
        resetSizingToOneCopy();
    setBatchOp(BATCH_CLIPBOARD, true);
}

void COpBasketParamsWidget::fillComposeLastBasket(const QString &name)
{
    setCurrentOperationType(getAutoImportBasketsOpType(name));
    if (m_basketsCombo)
        m_basketsCombo->setBasket(name, false);
}

quint64 COpBasketParamsWidget::getClipBoardOperationType(quint64 tab) const
{
    const QList<CBasketStockData> rows = m_clipboardStocks.value(tab);
    const quint64 word = getCommandOperationType(rows);
    if (rows.isEmpty())
        return word;
    // The mode widgets follow the paste: the first row speaks for the list.
    const ttservice::EOperationType operation = rows.first().m_operationType;
    const ttservice::EHedge_Flag_Type hedge = rows.first().m_hedgeFlag;
    if (word == TOT_CREDIT && m_crdWidget)
        m_crdWidget->setCurrentOpt(operation);
    else if (word == TOT_ONEKEY_FUTURE && m_buttonsBar)
        m_buttonsBar->setFutureOneKeyOptType(operation, hedge);
    else if (word == TOT_FUTURE && m_buttonsBar && m_ftrWidget)
        m_ftrWidget->setCurrentOpt(m_buttonsBar->setFutureBuySellOptType(operation, hedge));
    return word;
}

quint64 COpBasketParamsWidget::getAutoImportBasketsOpType(const QString &name)
{
    const QMap<QString, CBasketSetting> &baskets = getUserConfig()->baskets();
    const auto basket = baskets.constFind(name);
    if (basket == baskets.constEnd())
        return TOT_BUY;
    std::set<int> operations;
    bool futures = false;
    for (const CBasketStockData &row : basket->m_stocks) {
        operations.insert(row.m_operationType);
        futures = futures || ttservice::isFutureMarket(row.m_market.toStdString());
    }
    const bool buys = operations.count(ttservice::OT_BUY) > 0;
    const bool sells = operations.count(ttservice::OT_SELL) > 0;
    if (!futures)
        return buys && sells ? TOT_ALL : sells ? TOT_SELL : TOT_BUY;
    if (buys && sells)
        return TOT_ONEKEY_FUTURE;
    if (m_ftrWidget)
        m_ftrWidget->setCurrentOpt(sells ? ttservice::OT_OPEN_SHORT : ttservice::OT_OPEN_LONG);
    return TOT_FUTURE;
}

} // namespace TC
