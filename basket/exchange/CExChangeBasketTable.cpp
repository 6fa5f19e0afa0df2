#include "CExChangeBasketTable.h"

#include "CExchangePositionTable.h"
#include "COpBasketsLineEdit.h"

#include "AccountHelpers.h"
#include "CAccountData.h"
#include "CBaseTableColumnPushButtonDelegate.h"
#include "CComboBox.h"
#include "CExchangeClient.h"
#include "COddEvenRowTable.h"
#include "CParameterCell.h"
#include "CQuoteClient.h"
#include "CQuoteRequest.h"
#include "CSimpleTextWidget.h"
#include "CUiResource.h"
#include "CUserConfig.h"
#include "CWidgetList.h"
#include "TextHelpers.h"
#include "TradeUnits.h"

#include "DoubleCompare.h"

#include <boost/bind/bind.hpp>

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include <cmath>

namespace TC {
namespace {

const QString kFixFont = QStringLiteral("fnt_default_normal_fix");

double lastPriceOf(const QString &stockKey)
{
    const auto quote = CQuoteClient::instance()->getStockPrice(stockKey);
    return quote && ttservice::hasValue(quote->m_lastPrice) && quote->m_lastPrice > 0 ? quote->m_lastPrice
                                                                                      : ttservice::NO_VALUE;
}

// What one unit of volume costs per unit of price: the contract multiple of a future, 1 else.
double volumeMultipleOf(const CBasketStockData &row)
{
    if (!ttservice::isFutureMarket(row.m_market.toStdString()))
        return 1.0;
    const auto info = CExchangeClient::instance()->getCodeInfo(row.m_stockCode);
    const int multiple = info ? info->m_volumeMultiple : 0;
    return multiple > 0 && multiple != 0x7fffffff ? multiple : 1.0;
}

WK::CSimpleTextWidget *makeText(const QString &text, QWidget *parent)
{
    auto *label = new WK::CSimpleTextWidget(0, text, parent);
    label->setFixedHeight(20);
    label->setFontKey(kFixFont);
    return label;
}

} // namespace

CExChangeBasketTable::CExChangeBasketTable(QWidget *parent, quint64 word)
    : WK::CBaseWidget(QStringLiteral("Exchange_basket_Table"), false, parent)
    , m_tradeOpType(word)
{
    createUi();
}

CExChangeBasketTable::~CExChangeBasketTable()
{
    // Before any member goes: a quote callback running now must not find a half-destroyed widget.
    unrequestAll();
}

void CExChangeBasketTable::createUi()
{
    auto *list = new WK::CWidgetList(Qt::Vertical, this);
    list->setMargin(0, 0, 0, 0);
    list->setSpacing(0);

    auto *bar = new WK::CWidgetList(Qt::Horizontal, list);
    bar->setFixedHeight(28);
    bar->setMargin(0, 0, 0, 0);
    bar->setSpacing(2);
    m_basketEdit = new COpBasketsLineEdit(BASKET_EDIT_ID, bar);
    m_basketEdit->setFixedWidth(110);
    m_basketEdit->setFontKey(kFixFont);
    m_sizeCombo = new WK::CComboBox(COMBO_ID, bar);
    m_sizeCombo->setFixedWidth(110);
    m_sizeCombo->setFontKey(kFixFont);
    if (isFutureWord())
        m_sizeCombo->addItems({QStringLiteral("按期货数量"), QStringLiteral("按期货权重")});
    else
        m_sizeCombo->addItems({QStringLiteral("按股票数量"), QStringLiteral("按股票权重")});
    m_copiesCell = new WK::CParameterCell(COPIES_ID, QStringLiteral("篮子份数"), QStringLiteral("份"), bar);
    m_copiesCell->setIntValidator(QStringLiteral("份"), 0, 1000000000);
    m_copiesCell->setInt(1);
    m_copiesCell->setFixedWidth(130);
    m_copiesCell->setFontKey(kFixFont);
    m_moneyCell = new WK::CParameterCell(MONEY_ID, QStringLiteral("总金额"), QStringLiteral("元"), bar);
    m_moneyCell->setDoubleValidator(QStringLiteral("元"), 0, 1000000000000.0, 0.01);
    m_moneyCell->setDouble(0);
    m_moneyCell->setFixedWidth(138);
    m_moneyCell->setFontKey(kFixFont);

    m_table = CExchangePositionTable::createInstrumentTable(list, isFutureWord());
    m_table->addColumn(QStringLiteral("分配量"), 80);
    m_table->setColumnIntValidator(COL_VOLUME, 0, 1000000000);
    m_table->setColumnEditable(COL_VOLUME, true);
    m_table->addColumn(QStringLiteral("最新价"), 70);
    if (isFutureWord()) {
        m_table->addColumn(QStringLiteral("方向"), 60, Qt::AlignCenter);
        m_directionButtons = new WK::CBaseTableColumnPushButtonDelegate(COL_DIRECTION, this);
        m_directionButtons->setEventNumber(EVENT_DIRECTION);
        m_directionButtons->setTextColorKey(QStringLiteral("clr_global_white"));
        m_table->setColumnDelegate(COL_DIRECTION, m_directionButtons);
        m_table->setColumnEditable(COL_DIRECTION, true);
    }
    m_followTimer = new QTimer(this);
    m_followTimer->setSingleShot(true);
    m_followTimer->setInterval(FOLLOW_INTERVAL_MS);

    bar->addFixedWidget(makeText(QStringLiteral("目标持仓"), bar), 0, 0);
    bar->addFixedWidget(m_basketEdit, 0, 0);
    bar->addFixedWidget(makeText(QStringLiteral("交易总量"), bar), 0, 0);
    bar->addFixedWidget(m_sizeCombo, 0, 0);
    bar->addFixedWidget(m_copiesCell, 0, 0);
    bar->addFixedSpace(20);
    bar->addFixedWidget(m_moneyCell, 0, 0);
    bar->addStretchSpace(1);
    list->addFixedWidget(bar, 0, 0);
    list->addStretchWidget(m_table, 1, 0, 0);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(list);

    // The quote callback runs on the quote service's thread; the work belongs to this one.
    connect(this, &CExChangeBasketTable::sigPriceData, this, &CExChangeBasketTable::slotPriceData, Qt::QueuedConnection);
    connect(m_followTimer, &QTimer::timeout, this, &CExChangeBasketTable::slotFollowQuotes);
    m_table->view()->installEventFilter(this);

    m_moneyCell->hide();
}

void CExChangeBasketTable::setAccount(const boost::shared_ptr<ttservice::CAccountData> &account)
{
    if (!account || !account->getAccountInfo())
        return;
    m_account = account;
    setBasketStockList(m_stockList, 1);
}

void CExChangeBasketTable::setBasketStockList(const QList<CBasketStockData> &list, int)
{
    if (&list != &m_stockList)
        m_stockList = list;
    m_stockList.erase(std::remove_if(m_stockList.begin(), m_stockList.end(),
                                     [](const CBasketStockData &row) {
                                         return CExchangePositionTable::isRepurchaseCode(row.m_stockCode.toStdString());
                                     }),
                      m_stockList.end());

    // The same rows as shown are updated in place, so that following the market neither
    // scrolls the table back nor drops the selection.
    bool sameRows = m_table->dataRowCount() == m_stockList.size();
    for (int row = 0; sameRows && row < m_stockList.size(); ++row)
        sameRows = m_table->itemText(row, COL_CODE) == m_stockList.at(row).m_stockCode
            && m_table->itemText(row, COL_MARKET) == m_stockList.at(row).m_market;
    if (!sameRows) {
        m_table->clear();
        m_table->setRowCount(m_stockList.size());
    }
    const auto info = m_account ? m_account->getAccountInfo() : boost::shared_ptr<ttservice::CAccountInfo>();
    if (info) {
        const QString accountText = accountDisplayIDQs(info);
        m_table->beginUpdate();
        for (int row = 0; row < m_stockList.size(); ++row)
            fillRow(row, m_stockList.at(row), accountText);
        m_table->endUpdate();
    }
    updateVolumeTotal();
    m_table->adjustVisibleRowsColumnWidth();
}

void CExChangeBasketTable::fillRow(int row, const CBasketStockData &data, const QString &accountText)
{
    m_table->setItemText(row, COL_ACCOUNT, accountText);
    m_table->setItemText(row, COL_MARKET, data.m_market);
    m_table->setItemText(row, COL_CODE, data.m_stockCode);
    m_table->setItemText(row, COL_NAME, data.m_stockName);
    m_table->setItemInt(row, COL_VOLUME, data.m_volume);
    m_table->setItemDouble(row, COL_LAST_PRICE, lastPriceOf(data.key()), 2);
    if (isFutureWord())
        setDirectionCells(row, data);
}

void CExChangeBasketTable::setDirectionCells(int row, const CBasketStockData &data)
{
    const ttservice::EOperationType side = getBuyOrSellType(data.m_operationType);
    m_table->setItemText(row, COL_DIRECTION, QString::fromStdString(ttservice::operationValueToString(side)));
    if (!m_directionButtons)
        return;
    m_directionButtons->setButtonEnabled(row, true);
    m_directionButtons->setButtonVisible(row, true);
    m_directionButtons->setButtonText(row, operationToString(side));
    m_directionButtons->setButtonType(row, side == ttservice::OT_BUY ? 3 : 1);
}

void CExChangeBasketTable::updateVolumeTotal()
{
    qint64 total = 0;
    for (const CBasketStockData &row : qAsConst(m_stockList))
        total += row.m_volume;
    m_table->setStatText(COL_VOLUME, WK::formatIntNumber(total));
}

void CExChangeBasketTable::getBasketStockParam(QVector<CBasketStockData> &rows) const
{
    rows = m_stockList.toVector();
}

void CExChangeBasketTable::getBasketStockParam(QMap<QString, QMap<int, CBasketStockData>> &rows) const
{
    for (const CBasketStockData &row : m_stockList)
        rows[row.m_stockCode][row.m_operationType] = row;
}

void CExChangeBasketTable::addOneBascketData(const ttservice::CStockInfo &stock)
{
    CBasketStockData row;
    row.m_market = QString::fromStdString(stock.m_market);
    row.m_stockCode = QString::fromStdString(stock.m_stockCode);
    if (!m_stockList.contains(row)) {
        row.m_stockName = QString::fromStdString(stock.m_stockName);
        row.m_weight = 1.0;
        row.m_operationType = ttservice::OT_BUY;
        m_stockList.append(row);
        if (!m_addedRows.contains(row))
            m_addedRows.append(row);
    }
    setBasketStockList(m_stockList, 1);
}

void CExChangeBasketTable::setBrokerType(ttservice::EVQBrokerType type)
{
    m_basketEdit->setBrokerType(type);
    m_basketEdit->updateBasketSetting();
}

void CExChangeBasketTable::unrequestAll()
{
    m_quoteRequests.clear();
    m_pendingKeys.clear();
    m_pendingCount = 0;
    if (m_followTimer)
        m_followTimer->stop();
}

void CExChangeBasketTable::resumeQuotes()
{
    if (m_sizeCombo->currentIndex() != 0)
        requestQuote(targetRows());
}

bool CExChangeBasketTable::hasStoredBasket() const
{
    const QString name = m_basketEdit->currentText();
    return !name.isEmpty() && getUserConfig()->baskets().contains(name);
}

QList<CBasketStockData> CExChangeBasketTable::targetRows() const
{
    QList<CBasketStockData> rows;
    if (hasStoredBasket())
        rows = getUserConfig()->baskets().value(m_basketEdit->currentText()).m_stocks;
    for (const CBasketStockData &added : m_addedRows) {
        if (!rows.contains(added))
            rows.append(added);
    }
    return rows;
}

QList<CBasketStockData> CExChangeBasketTable::withUserEdits(QList<CBasketStockData> list) const
{
    for (CBasketStockData &row : list) {
        const QString key = row.key();
        const auto edited = m_editedVolumes.constFind(key);
        if (edited != m_editedVolumes.constEnd())
            row.m_volume = edited.value();
        if (m_swappedKeys.contains(key))
            row.m_operationType = swapOperationType(row.m_operationType);
    }
    return list;
}

void CExChangeBasketTable::calcVolumnByCopy(QList<CBasketStockData> list, int copies)
{
    for (CBasketStockData &row : list) {
        // A damaged stored volume that no multiple can hold sizes to nothing.
        if (__builtin_mul_overflow(row.m_volume, static_cast<int64_t>(copies), &row.m_volume) || row.m_volume < 0)
            row.m_volume = 0;
    }
    setBasketStockList(withUserEdits(list), 1);
}

void CExChangeBasketTable::calcVolumnByWeight(QList<CBasketStockData> list, double money)
{
    double sum = 0;
    for (const CBasketStockData &row : list)
        sum += row.m_weight;
    if (ttservice::isZero(sum)) {
        for (CBasketStockData &row : list)
            row.m_volume = 0;
        setBasketStockList(withUserEdits(list), 1);
        return;
    }
    for (CBasketStockData &row : list) {
        // A row without a price has no volume yet: the stored volume of one copy would read as
        // the share of the money.
        const double last = lastPriceOf(row.key());
        if (!ttservice::hasValue(last)) {
            row.m_volume = 0;
            continue;
        }
        const double volume = std::trunc(money * row.m_weight / sum / (last * volumeMultipleOf(row)));
        const int64_t whole = volume > 0 && volume < 9.0e18 ? static_cast<int64_t>(volume) : 0;
        const int unit = ttservice::getStockTradeUnit(row.m_market.toStdString(), row.m_stockCode.toStdString());
        row.m_volume = (whole / unit) * unit;
    }
    setBasketStockList(withUserEdits(list), 1);
}

void CExChangeBasketTable::recalcVolumn()
{
    const QList<CBasketStockData> rows = targetRows();
    if (rows.isEmpty()) {
        setBasketStockList(QList<CBasketStockData>(), 1);
        return;
    }
    if (m_sizeCombo->currentIndex() == 0)
        calcVolumnByCopy(rows, m_copiesCell->toInt());
    else
        calcVolumnByWeight(rows, m_moneyCell->toDouble());
}

void CExChangeBasketTable::refreashTable()
{
    m_editedVolumes.clear();
    m_swappedKeys.clear();
    recalcVolumn();
    if (m_sizeCombo->currentIndex() != 0)
        requestQuote(targetRows());
}

void CExChangeBasketTable::requestQuote(const QList<CBasketStockData> &list)
{
    m_pendingKeys.clear();
    m_pendingCount = 0;
    QSet<QString> newKeys;
    for (const CBasketStockData &row : list) {
        const QString key = row.key();
        if (!m_quoteRequests.contains(key))
            newKeys.insert(key);
        // What has a price sizes now: only the missing prices are awaited.
        if (!ttservice::hasValue(lastPriceOf(key)))
            m_pendingKeys.insert(key);
    }
    m_pendingCount = m_pendingKeys.size();
    for (const QString &key : qAsConst(newKeys)) {
        m_quoteRequests.insert(key, CQuoteRequest::makeRequest(key, boost::bind(&CExChangeBasketTable::onPriceData, this,
                                                                                boost::placeholders::_1, key)));
    }
}

void CExChangeBasketTable::onPriceData(boost::shared_ptr<CPriceData>, QString stockKey)
{
    Q_EMIT sigPriceData(stockKey);
}

void CExChangeBasketTable::slotPriceData(QString stockKey)
{
    if (!m_quoteRequests.contains(stockKey))
        return; // a quote of a subscription dropped meanwhile
    if (m_pendingKeys.remove(stockKey)) {
        // The first prices: the volumes are worked out once every missing one is in.
        m_pendingCount = m_pendingKeys.size();
        if (m_pendingKeys.isEmpty())
            recalcVolumn();
        return;
    }
    if (!m_followTimer->isActive())
        m_followTimer->start();
}

void CExChangeBasketTable::slotFollowQuotes()
{
    // An edit in progress would be overwritten: the market waits until it is done.
    const QWidget *focus = QApplication::focusWidget();
    const QWidget *viewport = m_table->view()->viewport();
    if (focus && focus != viewport && viewport->isAncestorOf(focus)) {
        m_followTimer->start();
        return;
    }
    recalcVolumn();
}

bool CExChangeBasketTable::handleEvent(int event, int id, int value, QString text, void *data)
{
    switch (event) {
    case 47: {
        if (value != COL_VOLUME || id < 0 || id >= m_stockList.size()
            || m_table->itemText(id, COL_CODE) != m_stockList.at(id).m_stockCode)
            return true;
        CBasketStockData &row = m_stockList[id];
        row.m_volume = m_table->itemLonglong(id, COL_VOLUME);
        m_editedVolumes.insert(row.key(), row.m_volume);
        updateVolumeTotal();
        return true;
    }
    case 64:
        if (id != COMBO_ID)
            break;
        m_copiesCell->setVisible(value == 0);
        m_moneyCell->setVisible(value != 0);
        refreashTable();
        return true;
    case 103:
        refreashTable();
        return true;
    case EVENT_DIRECTION: {
        bool ok = false;
        const int row = text.toInt(&ok);
        if (!ok || row < 0 || row >= m_stockList.size() || m_table->itemText(row, COL_CODE) != m_stockList.at(row).m_stockCode)
            return true;
        CBasketStockData &stock = m_stockList[row];
        stock.m_operationType = swapOperationType(stock.m_operationType);
        const QString key = stock.key();
        if (!m_swappedKeys.remove(key))
            m_swappedKeys.insert(key);
        setDirectionCells(row, stock);
        return true;
    }
    case 1139:
        m_addedRows.clear();
        refreashTable();
        return true;
    default:
        break;
    }
    return WK::CBaseWidget::handleEvent(event, id, value, text, data);
}

void CExChangeBasketTable::keyPressEvent(QKeyEvent *event)
{
    if (WK::isKeyCharOrNum(event) && !(event->modifiers() & Qt::ControlModifier))
        Q_EMIT sig_bascketChange(event);
    QWidget::keyPressEvent(event);
}

bool CExChangeBasketTable::eventFilter(QObject *watched, QEvent *event)
{
    // The table takes the keys while it has the focus; a letter or digit there starts the
    // instrument search as it does over the widget.
    if (watched == m_table->view() && event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (WK::isKeyCharOrNum(key) && !(key->modifiers() & Qt::ControlModifier)) {
            Q_EMIT sig_bascketChange(key);
            return true;
        }
    }
    return WK::CBaseWidget::eventFilter(watched, event);
}

void CExChangeBasketTable::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), WK::CUiResource::instance()->getColor(QStringLiteral("clr_graph_background")));
}

} // namespace TC
