#include "COpBasketConfirmWidget.h"

#include "COpBasketReplaceStockToolBar.h"

#include "CDoubleValidator.h"
#include "CIntValidator.h"
#include "CMessageBox.h"
#include "CSimpleInputDialog.h"
#include "CTableCellEvent.h"
#include "CTableModel.h"
#include "CWidgetList.h"
#include "TextHelpers.h"

#include "AccountHelpers.h"
#include "CBlackAndWhiteListService.h"
#include "CExchangeClient.h"
#include "CLogCenter.h"
#include "CQuoteClient.h"
#include "CQuoteRequest.h"
#include "CUserConfig.h"
#include "OperationHelpers.h"
#include "OperationSide.h"
#include "StockTypeCacheCenter.h"
#include "StockTypeCenter.h"
#include "TradeUnits.h"
#include "TraderCenter.h"

#include "DoubleCompare.h"
#include "StockKey.h"

#include <boost/format.hpp>

#include <QHash>
#include <QPointer>
#include <QStringList>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace TC {

using ttservice::CCodeOrderParam;

namespace {

constexpr int kTickMsec = 500;
constexpr int kMaxHintRows = 25;
constexpr int kBoldColumnFirst = 5;
constexpr int kBoldColumnLast = 9;
constexpr int kLastFilterColumn = 10;
constexpr int kFlagsOfTable = 0x600;        // totals line, column filters
constexpr int kFlagsOfConfirmTable = 0x3a000; // context menu, deleting and copying rows
constexpr int kCheckAlignment = 132;        // centred both ways
constexpr int kEventDirectionSwitched = 1075;
constexpr int kEventLineEdited = 1076;
constexpr int kTypeTickDecimals = 100024;
constexpr int kTypeMarketKeyed = 100028;
constexpr int kTypeRepurchaseSh = 126;
constexpr int kTypeRepurchaseSz = 100017;
constexpr double kRepurchaseUnitValue = 100.0;

bool isMoneyLine(const CCodeOrderParam &line)
{
    return line.m_operationType == ttservice::OT_MONEY || line.m_operationType == ttservice::OT_MONEY_TRANSFER;
}

QString stockKeyOf(const std::string &market, const std::string &code)
{
    return WK::sToQs(utils::vqStockKey(market, code));
}

// Market and code as a row shows and filters them: a money line has no instrument.
std::string shownMarket(const CCodeOrderParam &line)
{
    return isMoneyLine(line) ? std::string("-") : line.m_stockInfo.m_market;
}

std::string shownCode(const CCodeOrderParam &line)
{
    return isMoneyLine(line) ? std::string("-") : line.m_stockInfo.m_stockCode;
}

double changeRatioOf(double last, double lastClose)
{
    if (ttservice::isZero(lastClose) || ttservice::isEqual(lastClose, ttservice::NO_VALUE))
        return 0.0;
    return (last - lastClose) / lastClose;
}

bool hasCost(double cost)
{
    return std::isfinite(cost) && !ttservice::isEqual(cost, ttservice::NO_VALUE);
}

// Bond repurchases are worth a fixed amount per unit; the code alone tells, whatever the market.
bool isRepurchaseCode(const std::string &code)
{
    return ttservice::StockTypeCenter::isTypedStock(kTypeRepurchaseSh, std::string("SH"), code)
           || ttservice::StockTypeCenter::isTypedStock(kTypeRepurchaseSz, std::string("SZ"), code);
}

boost::shared_ptr<ttservice::CInstrumentDetail> instrumentOf(const std::string &market, const std::string &code)
{
    const std::string key = ttservice::StockTypeCenter::isTypedStock(kTypeMarketKeyed, market, code) ? market + code
                                                                                                    : code;
    return CExchangeClient::instance()->getCodeInfo(WK::sToQs(key));
}

// The value of one unit's price move: the contract multiple, 1 for instruments without one
// (stocks carry the "none" marks 0 or 0x7fffffff).
double valueMultiple(const ttservice::CInstrumentDetail &instrument)
{
    const int multiple = instrument.m_volumeMultiple;
    return multiple == 0 || multiple == 0x7fffffff ? 1.0 : static_cast<double>(multiple);
}

// The latest market value of a line from its quote and instrument record; NO_VALUE when either
// is missing or the quote has no last price.
double costOf(const CCodeOrderParam &line, const boost::shared_ptr<CPriceData> &price,
              const boost::shared_ptr<ttservice::CInstrumentDetail> &instrument)
{
    if (isMoneyLine(line))
        return line.m_money;
    if (isRepurchaseCode(line.m_stockInfo.m_stockCode))
        return static_cast<double>(line.m_volume) * kRepurchaseUnitValue;
    if (!price || !instrument)
        return ttservice::NO_VALUE;
    if (ttservice::isEqual(price->m_lastPrice, ttservice::NO_VALUE))
        return price->m_lastPrice;
    return static_cast<double>(line.m_volume) * price->m_lastPrice * valueMultiple(*instrument);
}

int marketIndex(const QString &market)
{
    static const QHash<QString, int> indexes = {
        {QStringLiteral("SH"), 0},   {QStringLiteral("SZ"), 1},   {QStringLiteral("IF"), 2},
        {QStringLiteral("SF"), 3},   {QStringLiteral("DF"), 4},   {QStringLiteral("ZF"), 5},
        {QStringLiteral("SHO"), 7},  {QStringLiteral("HGT"), 8},  {QStringLiteral("NEEQ"), 9},
        {QStringLiteral("SHGE"), 10}, {QStringLiteral("SGT"), 11}, {QStringLiteral("IFO"), 12},
        {QStringLiteral("SFO"), 13}, {QStringLiteral("DFO"), 14}, {QStringLiteral("ZFO"), 15},
    };
    return indexes.value(market, -1);
}

double priceTickOf(const QString &market, const QString &code)
{
    const QString prefix = code.left(2);
    switch (marketIndex(market)) {
    case 0: {
        const auto kinds = ttservice::StockTypeCacheCenter::getTypeStockCache(market, code);
        if (kinds->isStockB() || kinds->isETF() || kinds->isFund())
            return 0.001;
        return kinds->isGovernmentLoanRepurchase() ? 0.005 : 0.01;
    }
    case 1: {
        const auto kinds = ttservice::StockTypeCacheCenter::getTypeStockCache(market, code);
        if (kinds->isFund() || kinds->isLoan() || kinds->isGovernmentLoanRepurchase() || kinds->isMonetaryFund()
            || kinds->isGoldETF())
            return 0.001;
        return 0.01;
    }
    case 2:
        return prefix == QLatin1String("TF") ? 0.002 : 0.2;
    case 3:
        if (prefix == QLatin1String("au"))
            return 0.05;
        if (prefix == QLatin1String("ru") || prefix == QLatin1String("al") || prefix == QLatin1String("pb")
            || prefix == QLatin1String("zn"))
            return 5.0;
        return prefix == QLatin1String("cu") ? 10.0 : 1.0;
    case 4:
    case 5:
        return 1.0;
    case 7:
        return 0.0001;
    case 12:
    case 13:
    case 14:
    case 15:
        return 0.5;
    default:
        return 0.01;
    }
}

int tickDecimals(double tick)
{
    if (ttservice::isEqual(tick, ttservice::NO_VALUE))
        return 2;
    const double limit = tick <= 1e-5 ? 1e-6 : 1e-5;
    double x = tick;
    int decimals = 0;
    while (std::fabs(x - std::trunc(x)) >= limit && decimals <= 10) {
        x *= 10;
        ++decimals;
    }
    return decimals;
}

int lastPriceDecimals(const QString &market, const QString &code)
{
    if (!ttservice::StockTypeCenter::isTypedStock(kTypeTickDecimals, market, code))
        return 2;
    return tickDecimals(priceTickOf(market, code));
}

// What the account can trade of the line's instrument with this operation; 0 when unknown.
int64_t availableVolumeOf(const CCodeOrderParam &line, ttservice::EOperationType operation,
                          ttservice::ICalculator &calculator, const boost::shared_ptr<ttservice::CAccountData> &data)
{
    char entrustBs = 48;
    char offsetFlag = 48;
    const long long volume = calculator.calcAvailableVolume(
        data, line.m_stockInfo.m_market, line.m_stockInfo.m_stockCode, operation, ttservice::HEDGE_FLAG_SPECULATION,
        entrustBs, offsetFlag, line.m_price, ttservice::ICalculator::NO_VOLUME, 0);
    return volume > ttservice::ICalculator::NO_VOLUME - 1 ? 0 : volume;
}

boost::shared_ptr<ttservice::CAccountData> accountDataOf(const ttservice::CAccountInfo &account)
{
    const boost::shared_ptr<ttservice::IDataCenter> dataCenter = ttservice::TraderCenter::instance()->getDataCenter();
    return dataCenter ? dataCenter->getAccountData(account.getKey()) : boost::shared_ptr<ttservice::CAccountData>();
}

int64_t availableVolumeOf(const CCodeOrderParam &line, ttservice::EOperationType operation)
{
    const boost::shared_ptr<ttservice::ICalculator> calculator = ttservice::TraderCenter::instance()->getCalculator();
    if (!line.m_account || !calculator)
        return 0;
    return availableVolumeOf(line, operation, *calculator, accountDataOf(*line.m_account));
}

QString columnTitle(int column, int tradeType)
{
    switch (column) {
    case COpBasketConfirmWidget::COL_ACCOUNT:
        return QStringLiteral("账号");
    case COpBasketConfirmWidget::COL_MARKET:
        return QStringLiteral("市场");
    case COpBasketConfirmWidget::COL_CODE:
        return QStringLiteral("代码");
    case COpBasketConfirmWidget::COL_NAME:
        return tradeType == 2 || tradeType == 1024 ? QStringLiteral("合约名称") : QStringLiteral("股票名称");
    case COpBasketConfirmWidget::COL_OPERATION:
        return QStringLiteral("交易类型");
    case COpBasketConfirmWidget::COL_VOLUME:
        return QStringLiteral("分配量");
    case COpBasketConfirmWidget::COL_AVAILABLE:
        return QStringLiteral("可用量");
    case COpBasketConfirmWidget::COL_LAST_PRICE:
        return QStringLiteral("最新价");
    case COpBasketConfirmWidget::COL_CHANGE:
        return QStringLiteral("涨跌幅");
    case COpBasketConfirmWidget::COL_COST:
        return QStringLiteral("最新市值");
    case COpBasketConfirmWidget::COL_STATUS:
        return QStringLiteral("状态");
    case COpBasketConfirmWidget::COL_CHECK:
        return QStringLiteral("选择");
    default:
        return QString();
    }
}

// What the reason a line stands at 0 asks of its instrument: the same for the lines of every
// account, so a load looks it up once per instrument.
struct ZeroVolumeFacts
{
    QString m_key; // market and code as the services know them
    bool m_stopped = false;
    bool m_priced = false;
    int m_unit = 1;
};

ZeroVolumeFacts zeroVolumeFactsOf(const CCodeOrderParam &line)
{
    ZeroVolumeFacts facts;
    facts.m_key = QString::fromStdString(utils::vqStockKey(line.m_stockInfo.m_market, line.m_stockInfo.m_stockCode));
    facts.m_stopped = CQuoteClient::instance()->isStoppedStock(facts.m_key);
    const auto price = CQuoteClient::instance()->getStockPrice(facts.m_key);
    facts.m_priced = price && ttservice::hasValue(price->m_lastPrice) && !ttservice::isZero(price->m_lastPrice);
    facts.m_unit = std::max(1, ttservice::getTradeMinUnit(line.m_stockInfo.m_market, line.m_stockInfo.m_stockCode));
    return facts;
}

bool needsZeroVolumeReason(const CCodeOrderParam &line)
{
    return line.m_volume == 0 && line.m_operationType != ttservice::OT_MONEY
        && line.m_operationType != ttservice::OT_MONEY_TRANSFER;
}

// Why a line of an instrument that trades stands at 0, as its status cell says it: a line of 0
// is never sent, and the trader must see why it is there. For a line that needsZeroVolumeReason.
QString zeroVolumeReason(const CCodeOrderParam &line, int64_t available, const ZeroVolumeFacts &facts,
                         const QString &accountId)
{
    if (facts.m_stopped)
        return QStringLiteral("停牌");
    if (line.m_account && CBlackAndWhiteListService::instance()->isBlackStock(accountId, facts.m_key))
        return QStringLiteral("黑名单");
    if (!facts.m_priced)
        return QStringLiteral("无行情");
    const bool buy = ttservice::isBuyOperation(line.m_operationType);
    if (available < facts.m_unit)
        return buy ? QStringLiteral("资金不足") : QStringLiteral("无可用");
    return QStringLiteral("不足一手");
}

QString zeroVolumeReason(const CCodeOrderParam &line, int64_t available)
{
    if (!needsZeroVolumeReason(line))
        return QString();
    return zeroVolumeReason(line, available, zeroVolumeFactsOf(line),
                            line.m_account ? accountDisplayIDQs(line.m_account) : QString());
}

// The status texts as the display records keep them, made once: a quote writes one per line.
const std::string &statusText(COpBasketConfirmWidget::EOpConfirmFilterStatus status)
{
    static const std::string texts[] = {
        COpBasketConfirmWidget::getStatusString(COpBasketConfirmWidget::OCFS_NORMAL).toStdString(),
        COpBasketConfirmWidget::getStatusString(COpBasketConfirmWidget::OCFS_RISE_LIMIT).toStdString(),
        COpBasketConfirmWidget::getStatusString(COpBasketConfirmWidget::OCFS_FALL_LIMIT).toStdString(),
        COpBasketConfirmWidget::getStatusString(COpBasketConfirmWidget::OCFS_SUSPENDED).toStdString(),
    };
    const int index = static_cast<int>(status);
    return texts[index >= 0 && index <= 3 ? index : 0];
}

} // namespace

COpBasketConfirmWidget::COpBasketConfirmWidget(QWidget *parent)
    : WK::CBaseWidget(QStringLiteral("qmzd_lorvenhal_opconfirmwidget"), false, parent)
{
    createUi();
    m_timer = new QTimer(this);
    connect(m_timer, &QTimer::timeout, this, &COpBasketConfirmWidget::slotTimeout);
    if (!m_timer->isActive())
        m_timer->start(kTickMsec);
}

COpBasketConfirmWidget::~COpBasketConfirmWidget()
{
    m_timer->stop();
    disconnect();
    // Released without m_mutex: a callback running on a quote thread may be waiting for it, and
    // the release waits for that callback.
    QVector<boost::shared_ptr<CQuoteRequest>> requests;
    {
        std::lock_guard<std::recursive_mutex> lock(m_mutex);
        requests.swap(m_quoteRequests);
    }
    requests.clear();
    clearSlots();
}

// ---- settings ------------------------------------------------------------------------------

void COpBasketConfirmWidget::setWaitTest(bool wait)
{
    m_waitTest = wait;
}

void COpBasketConfirmWidget::setOpConfirmType(OpConfirmType type)
{
    m_opConfirmType = type;
    resetTable();
}

void COpBasketConfirmWidget::setParam(const QString &text)
{
    if (!m_table)
        return;
    // The layout comes back as the user left it, the tick's place and the widths included; a
    // text the table cannot read leaves the default, which has the tick first.
    if (m_table->loadConfigStr(text)) {
        m_layoutRestored = true;
        m_availableHiddenBySide = false; // the text holds the user's wish for the column
    }
    setOperationType(m_operationType);
}

QString COpBasketConfirmWidget::param() const
{
    if (!m_table)
        return QString();
    QString text = m_table->saveConfigStr();
    if (m_availableHiddenBySide && m_availableWanted) {
        // Hidden only because the list buys: saved as the user left it, shown.
        const QString hidden = QStringLiteral("%1:%2:0").arg(COL_AVAILABLE).arg(m_table->columnWidth(COL_AVAILABLE));
        const int at = text.indexOf(hidden);
        if (at > 0 && (text.at(at - 1) == QLatin1Char('|') || text.at(at - 1) == QLatin1Char(',')))
            text.replace(at + hidden.size() - 1, 1, QLatin1Char('1'));
    }
    return text;
}

void COpBasketConfirmWidget::setTradeType(int type)
{
    m_tradeType = type;
    if (m_table)
        m_table->setColumnTitle(COL_NAME, columnTitle(COL_NAME, m_tradeType));
}

void COpBasketConfirmWidget::setOperationType(int operation)
{
    m_operationType = operation;
    if (!m_table)
        return;
    // A buy needs money, not a position: what is available to sell tells nothing there.
    if (!m_availableHiddenBySide)
        m_availableWanted = m_table->isColumnVisible(COL_AVAILABLE);
    const bool buying = operation == ttservice::OT_BUY || operation == ttservice::OT_MARGIN_BUY;
    m_availableHiddenBySide = buying;
    m_table->setColumnVisible(COL_AVAILABLE, !buying && m_availableWanted);
}

void COpBasketConfirmWidget::setTradeOperationType(quint64 word)
{
    m_tradeOpType = word;
}

void COpBasketConfirmWidget::setReplaceToolBar(COpBasketReplaceStockToolBar *bar)
{
    m_replaceToolBar = bar;
    filterSwitches();
}

void COpBasketConfirmWidget::setPasteDataFunc(const QString &hint, boost::function<void()> func)
{
    if (m_table)
        m_table->setPasteDataFunc(hint, std::move(func));
}

void COpBasketConfirmWidget::slotSetFilter(int flags)
{
    if (flags == m_filterFlags)
        return;
    m_filterFlags = flags;
    filterSwitches();
    update();
}

int COpBasketConfirmWidget::quoteRequestCount() const
{
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    return m_quoteRequests.size();
}

// ---- table ---------------------------------------------------------------------------------

void COpBasketConfirmWidget::createUi()
{
    auto *list = new WK::CWidgetList(Qt::Vertical, this);
    list->setMargin(0, 0, 0, 0);
    list->setSpacing(0);
    m_table = new COrderParamTable(
        0, [this](int column) { return getTableItems(column); },
        [this](const COrderParamTable::FilterMap &filters) { filterData(filters); }, list);
    list->addStretchWidget(m_table, 1, 3, 0);
    m_table->setFlag(m_table->flag() | kFlagsOfTable);
    resetTable();
    setInnerStretchWidget(list, 0, 0, 0, 0);
}

void COpBasketConfirmWidget::resetTable()
{
    if (!m_table)
        return;
    m_table->clear();
    m_table->clearColumns();
    m_table->setColumnCount(COLUMN_COUNT);
    for (int column = 0; column < COLUMN_COUNT; ++column)
        m_table->setColumnTitle(column, columnTitle(column, m_tradeType));
    m_table->setColumnEditable(COL_VOLUME, true);
    for (int column = kBoldColumnFirst; column <= kBoldColumnLast; ++column)
        m_table->setColumnBoldFont(column, true);
    for (int column = 0; column < COLUMN_COUNT; ++column)
        m_table->setColumnFilterable(column, true);
    m_table->setColumnFlashChange(COL_COST, true);
    // A live market moves these three columns on every row: the table reads them from the
    // widget's copy when it needs them instead of storing a cell per row at every tick.
    for (int column : {COL_LAST_PRICE, COL_CHANGE, COL_COST})
        m_table->setColumnSource(column, [this, column](int rowId) { return shownValue(rowId, column); });

    // The toolkit keeps numbers as numbers; formats say how typed text is stored and how many
    // decimals a number shows when its cell does not say.
    m_table->setColumnFormat(COL_VOLUME, WK::CF_INT, 2);
    m_table->setColumnFormat(COL_AVAILABLE, WK::CF_INT, 0);
    m_table->setColumnFormat(COL_LAST_PRICE, WK::CF_DOUBLE, 2);
    m_table->setColumnFormat(COL_CHANGE, WK::CF_DOUBLE, 2, WK::NF_PERCENT);
    m_table->setColumnFormat(COL_COST, WK::CF_DOUBLE, 2);
    // The tick of a row is a check state of the model, not a widget per row: a list of twenty
    // thousand lines would otherwise carry as many widgets.
    m_table->setColumnCheckable(COL_CHECK, true);
    m_table->setColumnAlignment(COL_CHECK, Qt::Alignment(kCheckAlignment));
    for (int column = COL_ACCOUNT; column <= COL_OPERATION; ++column)
        m_table->setColumnAlignment(column, Qt::AlignLeft | Qt::AlignVCenter);
    m_table->setColumnAlignment(COL_STATUS, Qt::AlignHCenter | Qt::AlignVCenter);
    m_table->moveColumn(COL_CHECK, 0);
    m_fittedWidths.clear();

    const bool menuBuilt = (m_table->flag() & kFlagsOfConfirmTable) == kFlagsOfConfirmTable;
    if (m_opConfirmType == 1 && !menuBuilt) {
        m_table->setFlag(m_table->flag() | kFlagsOfConfirmTable);
        // The basket actions of the menu follow this separator.
        m_table->addMenuSeparator();
        m_table->addMenuAction(QStringLiteral("保存篮子"), [this] { slotSaveBasket(); });
        m_table->addMenuAction(QStringLiteral("帮助"), [this] { slotHelp(); });
    }
}

void COpBasketConfirmWidget::clearSlots()
{
    m_otherParams.clear();
    m_otherRecords.clear();
    m_backupParams.clear();
    m_slotIndex.clear();
    m_slotRows.clear();
    m_rowSlots.clear();
    m_slotInstrument.clear();
    m_slotVolumes.clear();
    m_slotMoney.clear();
    m_instruments.clear();
    m_instrumentIndex.clear();
    m_changedSlots.clear();
    m_shownValues.clear();
}

QSet<QString> COpBasketConfirmWidget::replacementCodes(const QString &basketName) const
{
    QSet<QString> codes;
    const QMap<QString, CBasketSetting> &baskets = getUserConfig()->baskets();
    const auto it = baskets.constFind(basketName);
    if (it == baskets.constEnd())
        return codes;
    for (const CBasketStockData &row : it->m_stocks)
        codes.insert(row.m_market + row.m_stockCode);
    return codes;
}

// ---- slots ---------------------------------------------------------------------------------

bool COpBasketConfirmWidget::isLiveSlot(int slot) const
{
    return slot >= 0 && static_cast<size_t>(slot) < m_slotIndex.size() && m_slotIndex[static_cast<size_t>(slot)] != NO_SLOT
           && m_otherParams[static_cast<size_t>(slot)];
}

int COpBasketConfirmWidget::slotOfRow(int row) const
{
    if (row < 0 || static_cast<size_t>(row) >= m_rowSlots.size())
        return NO_SLOT;
    return m_rowSlots[static_cast<size_t>(row)];
}

CCodeOrderParam *COpBasketConfirmWidget::lineOfSlot(int slot) const
{
    if (!m_params || !isLiveSlot(slot))
        return nullptr;
    const int index = m_slotIndex[static_cast<size_t>(slot)];
    if (index == IN_BACKUP) {
        const auto it = m_backupParams.find(slot);
        return it == m_backupParams.end() ? nullptr : const_cast<CCodeOrderParam *>(&it->second);
    }
    // The caller owns the vector; an index it no longer holds finds nothing rather than memory
    // that is gone.
    return static_cast<size_t>(index) < m_params->size() ? &(*m_params)[static_cast<size_t>(index)] : nullptr;
}

CCodeOrderParam *COpBasketConfirmWidget::lineOfRow(int row) const
{
    return lineOfSlot(slotOfRow(row));
}

OtherOrderParam *COpBasketConfirmWidget::otherOfRow(int row) const
{
    const int slot = slotOfRow(row);
    return isLiveSlot(slot) ? m_otherParams[static_cast<size_t>(slot)] : nullptr;
}

void COpBasketConfirmWidget::bindRow(int row, int slot)
{
    if (row < 0)
        return;
    if (static_cast<size_t>(row) >= m_rowSlots.size())
        m_rowSlots.resize(static_cast<size_t>(row) + 1, NO_SLOT);
    m_rowSlots[static_cast<size_t>(row)] = slot;
    if (slot >= 0 && static_cast<size_t>(slot) < m_slotRows.size())
        m_slotRows[static_cast<size_t>(slot)] = row;
}

void COpBasketConfirmWidget::unbindRows()
{
    m_rowSlots.clear();
    std::fill(m_slotRows.begin(), m_slotRows.end(), -1);
}

void COpBasketConfirmWidget::arrangeList(const std::vector<int> &listed)
{
    if (!m_params)
        return;
    std::map<int, CCodeOrderParam> lines;
    for (size_t slot = 0; slot < m_slotIndex.size(); ++slot) {
        if (const CCodeOrderParam *line = lineOfSlot(static_cast<int>(slot)))
            lines.emplace(static_cast<int>(slot), *line);
    }
    std::vector<CCodeOrderParam> list;
    list.reserve(listed.size());
    for (int slot : listed) {
        auto it = lines.find(slot);
        if (it == lines.end())
            continue;
        m_slotIndex[static_cast<size_t>(slot)] = static_cast<int>(list.size());
        list.push_back(std::move(it->second));
        lines.erase(it);
    }
    for (auto &entry : lines)
        m_slotIndex[static_cast<size_t>(entry.first)] = IN_BACKUP;
    m_backupParams.swap(lines);
    m_params->swap(list);
}

void COpBasketConfirmWidget::setSlotVolume(int slot, const CCodeOrderParam &line)
{
    if (slot >= 0 && static_cast<size_t>(slot) < m_slotVolumes.size())
        m_slotVolumes[static_cast<size_t>(slot)] = line.m_volume;
}

// ---- loading -------------------------------------------------------------------------------

// What the lines of one load look up once and share.
struct COpBasketConfirmWidget::CLoadCaches
{
    QHash<const ttservice::CAccountInfo *, QString> accountIds;
    boost::shared_ptr<ttservice::ICalculator> calculator;
    std::unordered_map<const ttservice::CAccountInfo *, boost::shared_ptr<ttservice::CAccountData>> accountData;
    std::unordered_map<int, ZeroVolumeFacts> zeroVolumeFacts; // by instrument index
    QHash<int, QString> operationTexts;
    std::unordered_map<int, boost::shared_ptr<CPriceData>> instrumentPrice;
    std::unordered_map<int, EOpConfirmFilterStatus> instrumentStatus;
    FilterSwitches switches;
    bool replacing = false;
    QSet<QString> replacedCodes;
    int lastInstrument = -1; // of the line loaded before
};

void COpBasketConfirmWidget::loadParams(std::vector<CCodeOrderParam> *params)
{
    // The old subscriptions go first and outside the lock: releasing one waits for its running
    // callback, which may itself be waiting for m_mutex.
    {
        QVector<boost::shared_ptr<CQuoteRequest>> requests;
        {
            std::lock_guard<std::recursive_mutex> lock(m_mutex);
            requests.swap(m_quoteRequests);
        }
    }

    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    m_waitTest = false;
    m_params = params;
    clearSlots();
    if (!m_params || !m_table)
        return;

    std::vector<CCodeOrderParam> &lines = *m_params;
    const size_t count = lines.size();
    m_table->beginUpdate();
    prepareTableFor(lines);

    CLoadCaches caches;
    caches.replacing = m_replaceToolBar && m_replaceToolBar->isReplaceETF();
    if (caches.replacing)
        caches.replacedCodes = replacementCodes(m_replaceToolBar->basket());

    sortParam();

    m_otherParams.assign(count, nullptr);
    m_otherRecords.assign(count, OtherOrderParam());
    m_slotIndex.resize(count);
    m_slotRows.assign(count, -1);
    m_rowSlots.assign(count, NO_SLOT);
    m_slotInstrument.assign(count, -1);
    m_slotVolumes.assign(count, 0);
    m_slotMoney.assign(count, 0);
    m_shownValues.assign(count, ShownValues());
    caches.switches = filterSwitches();
    caches.calculator = ttservice::TraderCenter::instance()->getCalculator();
    m_quoteRequests.reserve(static_cast<int>(count));
    for (size_t i = 0; i < count; ++i)
        loadLine(static_cast<int>(i), lines[i], caches);
    m_table->endUpdate();

    updateStatData();
    fitColumnWidths();
}

// An empty table with the list's titles; the first line alone decides what column 5 holds for
// the whole list.
void COpBasketConfirmWidget::prepareTableFor(const std::vector<CCodeOrderParam> &lines)
{
    m_table->clear();
    m_table->clearFilter();
    // A new list starts unfiltered: no header carries the filter mark, no line is hidden.
    m_hiddenByFilter = 0;
    for (int column = 0; column < COLUMN_COUNT; ++column)
        m_table->setColumnTitle(column, columnTitle(column, m_tradeType));
    m_table->setRowCount(static_cast<int>(lines.size()));

    m_table->setColumnValidator(COL_VOLUME, nullptr);
    if (lines.empty())
        return;
    if (isMoneyLine(lines.front())) {
        m_table->setColumnFormat(COL_VOLUME, WK::CF_DOUBLE, 2);
        m_table->setColumnValidator(COL_VOLUME, new WK::CDoubleValidator(0.0, ttservice::NO_VALUE, 3));
    } else {
        m_table->setColumnFormat(COL_VOLUME, WK::CF_INT, 2);
        m_table->setColumnValidator(COL_VOLUME, new WK::CIntValidator(0, 0x7fffffff));
    }
}

// The same instrument stands on every account of the list: one record, one lookup and one
// subscription each. Returns the instrument's index.
int COpBasketConfirmWidget::instrumentIndexOf(const CCodeOrderParam &line, CLoadCaches &caches)
{
    // The lines of one instrument come one after another (one per account): the one before
    // answers most lines without building a key.
    if (caches.lastInstrument >= 0) {
        const InstrumentLines &last = m_instruments[static_cast<size_t>(caches.lastInstrument)];
        if (last.m_code == line.m_stockInfo.m_stockCode && last.m_market == line.m_stockInfo.m_market)
            return caches.lastInstrument;
    }
    caches.lastInstrument = instrumentIndexByKey(line);
    return caches.lastInstrument;
}

int COpBasketConfirmWidget::instrumentIndexByKey(const CCodeOrderParam &line)
{
    const std::string instrumentKey = line.m_stockInfo.m_market + '.' + line.m_stockInfo.m_stockCode;
    auto found = m_instrumentIndex.find(instrumentKey);
    if (found != m_instrumentIndex.end())
        return found->second;
    InstrumentLines entry;
    entry.m_market = line.m_stockInfo.m_market;
    entry.m_code = line.m_stockInfo.m_stockCode;
    entry.m_instrument = instrumentOf(entry.m_market, entry.m_code);
    entry.m_repurchase = isRepurchaseCode(entry.m_code);
    entry.m_priceDecimals = lastPriceDecimals(WK::sToQs(entry.m_market), WK::sToQs(entry.m_code));
    entry.m_marketText = WK::sToQs(entry.m_market);
    entry.m_codeText = WK::sToQs(entry.m_code);
    entry.m_name = line.m_stockInfo.m_stockName;
    entry.m_nameText = WK::sToQs(entry.m_name);
    const int index = static_cast<int>(m_instruments.size());
    m_instrumentIndex.emplace(instrumentKey, index);
    m_instruments.push_back(std::move(entry));
    // Money lines subscribe too, under their real market and code.
    m_quoteRequests.append(CQuoteRequest::makeRequest(
        stockKeyOf(line.m_stockInfo.m_market, line.m_stockInfo.m_stockCode),
        [this](boost::shared_ptr<CPriceData> quote) { onLatestPrice(std::move(quote)); }));
    return index;
}

// Account, instrument and side: the cells that say whose line it is.
void COpBasketConfirmWidget::showIdentityCells(int row, const CCodeOrderParam &line, const InstrumentLines &instrument,
                                               bool money, CLoadCaches &caches)
{
    auto shownAccount = caches.accountIds.constFind(line.m_account.get());
    if (shownAccount == caches.accountIds.constEnd())
        shownAccount = caches.accountIds.insert(line.m_account.get(), accountDisplayIDQs(line.m_account));
    m_table->setItemText(row, COL_ACCOUNT, *shownAccount);
    if (money) {
        m_table->setItemText(row, COL_MARKET, QStringLiteral("-"));
        m_table->setItemText(row, COL_CODE, QStringLiteral("-"));
        m_table->setItemText(row, COL_NAME, QStringLiteral("-"));
    } else {
        m_table->setItemText(row, COL_MARKET, instrument.m_marketText);
        m_table->setItemText(row, COL_CODE, instrument.m_codeText);
        m_table->setItemText(row, COL_NAME, line.m_stockInfo.m_stockName == instrument.m_name
                                                ? instrument.m_nameText
                                                : WK::sToQs(line.m_stockInfo.m_stockName));
    }
    auto operationText = caches.operationTexts.constFind(line.m_operationType);
    if (operationText == caches.operationTexts.constEnd())
        operationText = caches.operationTexts.insert(line.m_operationType, operationToString(line.m_operationType));
    m_table->setItemText(row, COL_OPERATION, *operationText);
}

// One line into its row (at load the row is the line's slot).
void COpBasketConfirmWidget::loadLine(int slot, CCodeOrderParam &line, CLoadCaches &caches)
{
    const size_t i = static_cast<size_t>(slot);
    const int row = slot;
    m_slotIndex[i] = slot;
    const bool money = isMoneyLine(line);
    m_slotMoney[i] = money ? 1 : 0;
    // Lines without an account keep a record, so that nothing is lost, but get no row.
    if (!line.m_account) {
        m_otherRecords[i] = OtherOrderParam(0, 0.0, ttservice::NO_VALUE, 0.0, 0.0, std::string());
        m_otherParams[i] = &m_otherRecords[i];
        m_slotVolumes[i] = line.m_volume;
        return;
    }

    const int instrumentIndex = instrumentIndexOf(line, caches);
    InstrumentLines &instrument = m_instruments[static_cast<size_t>(instrumentIndex)];
    instrument.m_slots.push_back(slot);
    m_slotInstrument[i] = instrumentIndex;

    const int64_t available = availableAtLoad(line, caches);
    const std::string market = shownMarket(line);
    const std::string code = shownCode(line);
    // One quote of the instrument for all its lines; a money line asks under its shown key.
    if (!money && !caches.instrumentPrice.count(instrumentIndex))
        caches.instrumentPrice[instrumentIndex] = CQuoteClient::instance()->getStockPrice(stockKeyOf(market, code));
    const boost::shared_ptr<CPriceData> price = money ? CQuoteClient::instance()->getStockPrice(stockKeyOf(market, code))
                                                      : caches.instrumentPrice[instrumentIndex];
    const double lastPrice = price ? price->m_lastPrice : 0.0;

    showIdentityCells(row, line, instrument, money, caches);
    m_table->setItemInt(row, COL_AVAILABLE, available);

    // The status depends on the instrument alone: one test for the lines of all accounts.
    EOpConfirmFilterStatus status = OCFS_NORMAL;
    if (money) {
        status = filterStatusOf(market, code, caches.switches);
    } else {
        auto known = caches.instrumentStatus.find(instrumentIndex);
        if (known == caches.instrumentStatus.end())
            known = caches.instrumentStatus.emplace(instrumentIndex, filterStatusOf(market, code, caches.switches)).first;
        status = known->second;
    }
    m_table->setItemChecked(row, COL_CHECK, status == OCFS_NORMAL);
    if (money) {
        m_table->setItemDouble(row, COL_VOLUME, line.m_money, 2);
    } else {
        if (line.m_volume > available)
            line.m_volume = available;
        m_table->setItemInt(row, COL_VOLUME, line.m_volume);
    }
    showStatus(row, status, status == OCFS_NORMAL ? zeroReasonAtLoad(line, available, instrumentIndex, caches) : QString());
    m_slotVolumes[i] = line.m_volume;

    // On a money line the shown key has no quote; the value is the line's money anyway, and its
    // value cells show "-".
    const double cost = costOf(line, price, instrument.m_instrument);
    const double changeRatio = hasCost(cost) && !money && price ? changeRatioOf(lastPrice, price->m_lastClose) : 0.0;
    m_otherRecords[i] = OtherOrderParam(available, 0.0, cost, lastPrice, changeRatio, std::string());
    m_otherParams[i] = &m_otherRecords[i];
    // A new row: its values are filled, not changed, and do not light up.
    if (!money)
        m_shownValues[i] = shownValuesOf(m_otherRecords[i]);

    colourRow(row, line, caches.replacing, caches.replacedCodes);
    bindRow(row, slot);
}

QVector<int> COpBasketConfirmWidget::columnWidths() const
{
    QVector<int> widths;
    for (int column = 0; column < COLUMN_COUNT; ++column)
        widths.append(m_table->columnWidth(column));
    return widths;
}

void COpBasketConfirmWidget::fitColumnWidths()
{
    // Widths follow the list only until the user has widths of their own: a restored layout, or
    // a column resized since the last fit.
    if (m_layoutRestored || (!m_fittedWidths.isEmpty() && m_fittedWidths != columnWidths()))
        return;
    m_table->adjustVisibleRowsColumnWidth();
    m_fittedWidths = columnWidths();
}

// A display record's values as its row shows them: all three "-" while the value is not known.
COpBasketConfirmWidget::ShownValues COpBasketConfirmWidget::shownValuesOf(const OtherOrderParam &other)
{
    ShownValues values;
    if (!hasCost(other.m_cost))
        return values;
    values.m_lastPrice = other.m_lastPrice;
    values.m_changeRatio = other.m_changeRatio;
    values.m_cost = other.m_cost;
    values.m_priced = true;
    return values;
}

void COpBasketConfirmWidget::showValues(int slot, const ShownValues &values)
{
    const int left = storeValues(slot, values);
    if (left >= 0)
        m_table->model()->sourcedValuesChanged(m_slotRows[static_cast<size_t>(slot)], left, COL_COST);
    tellCostMoves();
}

int COpBasketConfirmWidget::storeValues(int slot, const ShownValues &values)
{
    if (slot < 0 || static_cast<size_t>(slot) >= m_shownValues.size())
        return -1;
    ShownValues &shown = m_shownValues[static_cast<size_t>(slot)];
    const bool costChanged = !ttservice::isEqual(shown.m_cost, values.m_cost) || hasCost(shown.m_cost) != hasCost(values.m_cost);
    const bool priceChanged = shown.m_priced != values.m_priced
                              || (values.m_priced && (!ttservice::isEqual(shown.m_lastPrice, values.m_lastPrice)
                                                      || !ttservice::isEqual(shown.m_changeRatio, values.m_changeRatio)));
    const double before = shown.m_cost;
    shown = values;
    const int row = m_slotRows[static_cast<size_t>(slot)];
    // The kept sums follow any move, even one too small to light the cell up.
    if (row >= 0 && m_table && before != values.m_cost) {
        moveCostTotal(row, before, values.m_cost);
        if (m_costListener)
            m_costMoves.emplace_back(row, hasCost(values.m_cost) ? values.m_cost : 0.0);
    }
    if (row < 0 || !m_table || (!costChanged && !priceChanged))
        return -1;
    if (costChanged) {
        // Up or down between two known values; to or from "-" it is only a change.
        const bool bothKnown = hasCost(before) && hasCost(values.m_cost);
        m_table->model()->flashCell(row, COL_COST,
                                    bothKnown ? (values.m_cost > before ? 1 : (values.m_cost < before ? -1 : 0)) : 0);
    }
    return priceChanged ? COL_LAST_PRICE : COL_COST;
}

void COpBasketConfirmWidget::tellCostMoves()
{
    if (m_costMoves.empty())
        return;
    if (m_costListener)
        m_costListener(m_costMoves);
    m_costMoves.clear();
}

WK::CSourcedValue COpBasketConfirmWidget::shownValue(int rowId, int column) const
{
    WK::CSourcedValue value;
    const int slot = slotOfRow(rowId);
    if (slot < 0 || static_cast<size_t>(slot) >= m_shownValues.size())
        return value;
    const ShownValues &shown = m_shownValues[static_cast<size_t>(slot)];
    if (column == COL_COST) {
        value.m_known = hasCost(shown.m_cost);
        value.m_value = shown.m_cost;
        value.m_precision = 2;
    } else if (shown.m_priced) {
        value.m_known = true;
        value.m_value = column == COL_LAST_PRICE ? shown.m_lastPrice : shown.m_changeRatio;
        value.m_precision = column == COL_LAST_PRICE ? priceDecimalsOfSlot(slot) : 2;
    }
    if (!value.m_known)
        value.m_text = QStringLiteral("-");
    return value;
}

double COpBasketConfirmWidget::shownCost(int rowId) const
{
    const int slot = slotOfRow(rowId);
    if (slot < 0 || static_cast<size_t>(slot) >= m_shownValues.size())
        return 0.0;
    const double cost = m_shownValues[static_cast<size_t>(slot)].m_cost;
    return hasCost(cost) ? cost : 0.0;
}

bool COpBasketConfirmWidget::showsPrice(int rowId) const
{
    const int slot = slotOfRow(rowId);
    return slot >= 0 && static_cast<size_t>(slot) < m_shownValues.size() && m_shownValues[static_cast<size_t>(slot)].m_priced;
}

int COpBasketConfirmWidget::priceDecimalsOfSlot(int slot) const
{
    const int instrument = slot >= 0 && static_cast<size_t>(slot) < m_slotInstrument.size()
                               ? m_slotInstrument[static_cast<size_t>(slot)]
                               : -1;
    return instrument >= 0 ? m_instruments[static_cast<size_t>(instrument)].m_priceDecimals : 2;
}

int COpBasketConfirmWidget::writeRow(int slot, CCodeOrderParam *line, const OtherOrderParam &other)
{
    if (!m_table || !line)
        return -1;
    // The row shows what the load showed for the same line: a money line's quantity is its
    // money, and it has no instrument to show.
    const bool money = isMoneyLine(*line);
    const int row = m_table->addRowBegin();
    m_table->setItemText(row, COL_ACCOUNT, line->m_account ? accountDisplayIDQs(line->m_account) : QString());
    m_table->setItemText(row, COL_MARKET, WK::sToQs(shownMarket(*line)));
    m_table->setItemText(row, COL_CODE, WK::sToQs(shownCode(*line)));
    m_table->setItemText(row, COL_NAME, money ? QStringLiteral("-") : WK::sToQs(line->m_stockInfo.m_stockName));
    m_table->setItemText(row, COL_OPERATION, operationToString(line->m_operationType));
    m_table->setItemInt(row, COL_AVAILABLE, other.m_availableVolume);
    if (money)
        m_table->setItemDouble(row, COL_VOLUME, line->m_money, 2);
    else
        m_table->setItemInt(row, COL_VOLUME, line->m_volume);

    EOpConfirmFilterStatus status = OCFS_NORMAL;
    m_table->setItemChecked(row, COL_CHECK, !isParamFilter(*line, status));
    showStatus(row, status, status == OCFS_NORMAL ? zeroVolumeReason(*line, other.m_availableVolume) : QString());
    // A new row: its values are filled, not changed, and do not light up.
    if (slot >= 0 && static_cast<size_t>(slot) < m_shownValues.size())
        m_shownValues[static_cast<size_t>(slot)] = money ? ShownValues() : shownValuesOf(other);
    m_table->addRowEnd(true);
    return row;
}

int COpBasketConfirmWidget::getHeightHint() const
{
    if (!m_table)
        return 0;
    return m_table->itemHeight() * (std::min(m_table->rowCount(), kMaxHintRows) + 2);
}

std::vector<ttservice::CCodeOrderParam> COpBasketConfirmWidget::getOrderParams() const
{
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    return m_params ? *m_params : std::vector<ttservice::CCodeOrderParam>();
}

std::vector<ttservice::CCodeOrderParam> COpBasketConfirmWidget::shownOrderParams() const
{
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    std::vector<ttservice::CCodeOrderParam> lines;
    lines.reserve(m_slotIndex.size());
    for (size_t slot = 0; slot < m_slotIndex.size(); ++slot) {
        if (!isLiveSlot(static_cast<int>(slot)))
            continue;
        if (const CCodeOrderParam *line = lineOfSlot(static_cast<int>(slot)))
            lines.push_back(*line);
    }
    return lines;
}

void COpBasketConfirmWidget::slotSaveBasket(bool)
{
    WK::CSimpleInputDialog dialog(QStringLiteral("保存篮子"), QString(), this);
    dialog.setText(QStringLiteral("新建篮子"));
    dialog.getInput([this](const QString &name) { saveBasketCallBack(name); });
}

void COpBasketConfirmWidget::saveBasketCallBack(QString name)
{
    QMap<QString, CBasketSetting> &baskets = getUserConfig()->baskets();
    if (baskets.contains(name)) {
        WK::CMessageBox::warning(0, this, QStringLiteral("提示"), QStringLiteral("篮子重名"), QMessageBox::Ok);
        return;
    }
    CBasketSetting &basket = baskets[name];
    basket.m_name = name;
    if (m_table) {
        // One row per stock and side, however many accounts' lines were chosen: their volumes
        // and values add up, so that the basket sized over the same accounts gives them back.
        QHash<QString, int> rowOfStock;
        for (int row : m_table->selectedRows()) {
            const CCodeOrderParam *line = lineOfRow(row);
            CBasketStockData stock;
            stock.m_stockCode = m_table->itemText(row, COL_CODE);
            stock.m_stockName = m_table->itemText(row, COL_NAME);
            stock.m_volume = m_table->itemInt(row, COL_VOLUME);
            stock.m_market = m_table->itemText(row, COL_MARKET);
            // Weighted by money: the latest market value, cut to a whole number.
            stock.m_weight = m_table->itemInt(row, COL_COST);
            if (line && (line->m_operationType == ttservice::OT_BUY || line->m_operationType == ttservice::OT_SELL))
                stock.m_operationType = line->m_operationType;
            const QString key = stock.key() + QLatin1Char('|') + QString::number(int(stock.m_operationType));
            const auto known = rowOfStock.constFind(key);
            if (known != rowOfStock.constEnd()) {
                CBasketStockData &merged = basket.m_stocks[*known];
                merged.m_volume += stock.m_volume;
                merged.m_weight += stock.m_weight;
                continue;
            }
            rowOfStock.insert(key, basket.m_stocks.size());
            basket.m_stocks << stock;
        }
    }
    deliverEvent(1195, 0, 0, name, nullptr);
    Q_EMIT sigBasketSettingChanged(name);
}

void COpBasketConfirmWidget::slotHelp(bool)
{
    WK::CMessageBox::information(0, this, QStringLiteral("帮助"),
                                 QStringLiteral("此表格支持粘贴, 格式为: 代码,名称,数量,权重,方向(0为买入, 1为卖出), 使用tab分隔\n"
                                                "当日停牌的股票不会出现在此表格中"),
                                 QMessageBox::Ok);
}

CCodeOrderParam *COpBasketConfirmWidget::getParamByRowIndex(int rowIndex) const
{
    if (!m_params || !m_table)
        return nullptr;
    return lineOfRow(m_table->rowID(rowIndex));
}

int COpBasketConfirmWidget::instrumentOfRow(int rowId, const CCodeOrderParam &line) const
{
    const int slot = slotOfRow(rowId);
    if (slot < 0 || static_cast<size_t>(slot) >= m_slotInstrument.size())
        return -1;
    const int instrument = m_slotInstrument[static_cast<size_t>(slot)];
    if (instrument < 0 || static_cast<size_t>(instrument) >= m_instruments.size())
        return -1;
    // A line whose instrument was changed after the load is no longer the loaded instrument's.
    const InstrumentLines &lines = m_instruments[static_cast<size_t>(instrument)];
    return lines.m_code == line.m_stockInfo.m_stockCode && lines.m_market == line.m_stockInfo.m_market ? instrument : -1;
}

std::string COpBasketConfirmWidget::instrumentKey(int instrument) const
{
    if (instrument < 0 || static_cast<size_t>(instrument) >= m_instruments.size())
        return std::string();
    const InstrumentLines &lines = m_instruments[static_cast<size_t>(instrument)];
    return utils::vqStockKey(lines.m_market, lines.m_code);
}

// ---- cell events ---------------------------------------------------------------------------

bool COpBasketConfirmWidget::handleEvent(int event, int id, int value, QString text, void *data)
{
    switch (event) {
    case WK::TE_VALIDATE_EDIT:
        if (data)
            validateVolume(*static_cast<WK::CTableCellEvent *>(data));
        return true;
    case WK::TE_CELL_EDITED:
        if (value == COL_VOLUME)
            volumeEdited(id, text);
        return true;
    case WK::TE_ITEM_CHECKED:
        updateStatData();
        return true;
    case WK::TE_CELL_CLICKED:
        if (text.toInt() == COL_OPERATION)
            switchDirection(id);
        return true;
    case 50:
    case 51:
    case 52:
        // The table's other cell events end here too: none of them concerns the form.
        return true;
    case WK::TE_ROWS_DELETED:
        if (data)
            deleteRows(*static_cast<const std::set<int> *>(data));
        return true;
    default:
        return WK::CBaseWidget::handleEvent(event, id, value, text, data);
    }
}

void COpBasketConfirmWidget::validateVolume(WK::CTableCellEvent &cell)
{
    if (cell.m_column != COL_VOLUME || !m_table)
        return;
    const int row = cell.m_rowId;
    const qint64 available = m_table->itemLonglong(row, COL_AVAILABLE);
    qint64 volume = WK::unformatNumberString(cell.m_text).toLongLong();
    if (volume < 0) {
        cell.m_text = QStringLiteral("0");
        cell.m_accept = false;
        return;
    }
    const CCodeOrderParam *line = lineOfRow(row);
    if (line) {
        // A stock buy may ask for more than the money covers today; what is sold or closed must
        // exist, and a futures line is held to what the account can trade, as every load of the
        // list holds it: taken here, it would be cut at the next sizing.
        const ttservice::EOperationType operation = line->m_operationType;
        const bool futures = line->m_account && line->m_account->m_brokerType == ttservice::BROKER_TYPE_FUTURE;
        if (volume > available && (operation == ttservice::OT_SELL || isClose(operation) || futures)) {
            // The cell shows the most that can be sold, so the line takes it too: a refused
            // edit would leave the cell showing a quantity the order does not carry.
            cell.m_text = WK::formatNumberString(QString::number(available));
            cell.m_accept = true;
            return;
        }
        const int brokerType = line->m_account ? line->m_account->m_brokerType : ttservice::BROKER_TYPE_NONE;
        if ((brokerType == ttservice::BROKER_TYPE_STOCK || brokerType == ttservice::BROKER_TYPE_CREDIT)
            && !isMoneyLine(*line)) {
            const int unit = ttservice::getUiMinUnit(line->m_stockInfo.m_market, line->m_stockInfo.m_stockCode,
                                                     isBuy(operation));
            if (unit > 0)
                volume -= volume % unit;
            cell.m_text = QString::number(volume);
        }
    }
    cell.m_text = WK::formatNumberString(cell.m_text);
    cell.m_accept = true;
}

void COpBasketConfirmWidget::volumeEdited(int row, const QString &text)
{
    CCodeOrderParam *line = lineOfRow(row);
    OtherOrderParam *other = otherOfRow(row);
    if (!line || !m_table)
        return;
    double cost = ttservice::NO_VALUE;
    {
        std::lock_guard<std::recursive_mutex> lock(m_mutex);
        if (isMoneyLine(*line))
            line->m_money = WK::unformatNumberString(text).toDouble();
        else
            line->m_volume = WK::unformatNumberString(text).toLongLong();
        setSlotVolume(slotOfRow(row), *line);
        cost = recalcCost(line);
        if (other)
            other->m_cost = cost;
    }
    const int slot = slotOfRow(row);
    if (slot >= 0 && static_cast<size_t>(slot) < m_shownValues.size()) {
        // The quantity moves the value alone; price and change stay as they are.
        ShownValues values = m_shownValues[static_cast<size_t>(slot)];
        values.m_cost = cost;
        showValues(slot, values);
    }
    updateStatData();
    // The form keeps the edit, so that the next recalculation shows it again.
    deliverEvent(kEventLineEdited, row, 0, QString(), line);
}

void COpBasketConfirmWidget::switchDirection(int row)
{
    if (m_opConfirmType != 1 || m_operationType != ttservice::OT_NONE || m_directionFixed || !m_table)
        return;
    CCodeOrderParam *line = lineOfRow(row);
    if (!line)
        return;

    const ttservice::EOperationType before = line->m_operationType;
    ttservice::EOperationType next = before;
    QString shown;
    switch (line->m_operationType) {
    case ttservice::OT_BUY:
        next = ttservice::OT_SELL;
        shown = tr("卖出");
        break;
    case ttservice::OT_SELL:
        next = ttservice::OT_BUY;
        shown = tr("买入");
        break;
    case ttservice::OT_MARGIN_BUY:
        next = ttservice::OT_SHORT_SELL;
        shown = tr("融券卖出");
        break;
    case ttservice::OT_SHORT_SELL:
        next = ttservice::OT_MARGIN_BUY;
        shown = tr("融资买入");
        break;
    default:
        break;
    }
    if (next != line->m_operationType) {
        // The form pairs lines before the switch is stored: it still sees the old direction.
        deliverEvent(kEventDirectionSwitched, row, next, QString(), line);
        m_table->setItemText(row, COL_OPERATION, shown);
    }

    const boost::shared_ptr<CPriceData> price = CQuoteClient::instance()->getStockPrice(
        stockKeyOf(shownMarket(*line), shownCode(*line)));
    const double lastPrice = price ? price->m_lastPrice : 0.0;
    double cost = ttservice::NO_VALUE;
    double changeRatio = 0.0;
    int64_t available = 0;
    bool cut = false;
    {
        std::lock_guard<std::recursive_mutex> lock(m_mutex);
        line->m_operationType = next;
        available = availableVolumeOf(*line, next);
        if (line->m_volume > available) {
            line->m_volume = available;
            cut = true;
            setSlotVolume(slotOfRow(row), *line);
        }
        cost = recalcCost(line);
        changeRatio = price ? changeRatioOf(lastPrice, price->m_lastClose) : 0.0;
        if (OtherOrderParam *other = otherOfRow(row)) {
            other->m_availableVolume = available;
            other->m_cost = cost;
            other->m_lastPrice = lastPrice;
            other->m_changeRatio = changeRatio;
        }
    }
    m_table->setItemInt(row, COL_AVAILABLE, available);
    // Only a cut changes the quantity; a money line keeps its money in the cell.
    if (cut && !isMoneyLine(*line))
        m_table->setItemInt(row, COL_VOLUME, line->m_volume);
    if (hasCost(cost) && !isMoneyLine(*line)) {
        showValues(slotOfRow(row), shownValuesOf(OtherOrderParam(available, 0.0, cost, lastPrice, changeRatio, std::string())));
    } else {
        showValues(slotOfRow(row), ShownValues());
        m_table->setItemText(row, COL_STATUS, QString());
    }
    updateStatData();
    if (next != before || cut)
        deliverEvent(kEventLineEdited, row, 0, QString(), line);
}

void COpBasketConfirmWidget::deleteRows(const std::set<int> &rows)
{
    QVector<CBasketStockData> removed;
    {
        std::lock_guard<std::recursive_mutex> lock(m_mutex);
        bool listChanged = false;
        for (int row : rows) {
            if (const CCodeOrderParam *line = lineOfRow(row)) {
                CBasketStockData gone;
                gone.m_market = WK::sToQs(line->m_stockInfo.m_market);
                gone.m_stockCode = WK::sToQs(line->m_stockInfo.m_stockCode);
                gone.m_stockName = WK::sToQs(line->m_stockInfo.m_stockName);
                gone.m_volume = line->m_volume;
                gone.m_operationType = getBuyOrSellType(line->m_operationType);
                if (line->m_account)
                    gone.m_accountKey = line->m_account->getKey();
                removed.push_back(gone);
            }
            const int slot = slotOfRow(row);
            if (static_cast<size_t>(row) < m_rowSlots.size())
                m_rowSlots[static_cast<size_t>(row)] = NO_SLOT;
            if (!isLiveSlot(slot))
                continue;
            // The line goes for good: out of the vector or the backup, its record with it, so
            // that neither a quote nor a later filter brings it back.
            const size_t s = static_cast<size_t>(slot);
            if (m_slotIndex[s] == IN_BACKUP)
                m_backupParams.erase(slot);
            else
                listChanged = true;
            m_slotIndex[s] = NO_SLOT;
            m_slotRows[s] = -1;
            m_otherParams[s] = nullptr;
        }
        if (listChanged && m_params) {
            // The lines that remain keep their order in the vector.
            std::vector<std::pair<int, int>> listed; // index in the vector, slot
            for (size_t slot = 0; slot < m_slotIndex.size(); ++slot) {
                if (m_slotIndex[slot] >= 0)
                    listed.emplace_back(m_slotIndex[slot], static_cast<int>(slot));
            }
            std::sort(listed.begin(), listed.end());
            std::vector<CCodeOrderParam> &lines = *m_params;
            std::vector<bool> keep(lines.size(), false);
            for (const auto &entry : listed) {
                if (static_cast<size_t>(entry.first) < lines.size())
                    keep[static_cast<size_t>(entry.first)] = true;
            }
            size_t kept = 0;
            for (size_t i = 0; i < lines.size(); ++i) {
                if (!keep[i])
                    continue;
                if (kept != i)
                    lines[kept] = std::move(lines[i]);
                ++kept;
            }
            lines.resize(kept);
            int index = 0;
            for (const auto &entry : listed)
                m_slotIndex[static_cast<size_t>(entry.second)] = index++;
        }
    }
    updateStatData();
    // The form keeps the removal once the table's own event is over: it may regenerate the list
    // this table works on.
    if (!removed.isEmpty()) {
        QPointer<COpBasketConfirmWidget> self(this);
        QTimer::singleShot(0, this, [self, removed]() {
            if (self)
                Q_EMIT self->sigRemoveData(removed);
        });
    }
}

COpBasketConfirmWidget::FilterSwitches COpBasketConfirmWidget::filterSwitches() const
{
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    // Widgets are read on their own thread only; a quote thread takes the last copy.
    if (QThread::currentThread() == thread()) {
        FilterSwitches now;
        if (m_replaceToolBar) {
            now.m_suspended = m_replaceToolBar->isFilter();
            now.m_riseLimit = m_replaceToolBar->isFilterZhangTing();
            now.m_fallLimit = m_replaceToolBar->isFilterDieTing();
        }
        m_filterSwitches = now;
    }
    return m_filterSwitches;
}

bool COpBasketConfirmWidget::isParamFilter(const CCodeOrderParam &line, EOpConfirmFilterStatus &status) const
{
    status = filterStatusOf(shownMarket(line), shownCode(line));
    return status != OCFS_NORMAL;
}

// The status of an instrument under the toolbar's switches; a money line asks with "-" and "-".
COpBasketConfirmWidget::EOpConfirmFilterStatus COpBasketConfirmWidget::filterStatusOf(const std::string &marketText,
                                                                                      const std::string &codeText) const
{
    return filterStatusOf(marketText, codeText, filterSwitches());
}

COpBasketConfirmWidget::EOpConfirmFilterStatus COpBasketConfirmWidget::filterStatusOf(
    const std::string &marketText, const std::string &codeText, const FilterSwitches &switches) const
{
    EOpConfirmFilterStatus status = OCFS_NORMAL;
    if (!switches.m_suspended && !switches.m_riseLimit && !switches.m_fallLimit)
        return status;
    const QString market = WK::sToQs(marketText);
    const QString code = WK::sToQs(codeText);
    // Later tests win: a fall limit over a rise limit, either over a suspension.
    if (switches.m_suspended && isStoppedStock(market, code))
        status = OCFS_SUSPENDED;
    if (!switches.m_riseLimit && !switches.m_fallLimit)
        return status;
    const boost::shared_ptr<CPriceData> price = CQuoteClient::instance()->getStockPrice(WK::vqStockKey(market, code));
    if (!price || !ttservice::hasValue(price->m_lastPrice))
        return status;
    const double last = price->m_lastPrice;
    if (switches.m_riseLimit && ttservice::hasValue(price->m_upStopPrice)
        && !ttservice::isLess(last, price->m_upStopPrice))
        status = OCFS_RISE_LIMIT;
    if (switches.m_fallLimit && ttservice::hasValue(price->m_downStopPrice)
        && !ttservice::isGreater(last, price->m_downStopPrice))
        status = OCFS_FALL_LIMIT;
    return status;
}

QString COpBasketConfirmWidget::getStatusString(EOpConfirmFilterStatus status)
{
    switch (status) {
    case OCFS_RISE_LIMIT:
        return QStringLiteral("涨停");
    case OCFS_FALL_LIMIT:
        return QStringLiteral("跌停");
    case OCFS_SUSPENDED:
        return QStringLiteral("停盘");
    default:
        return QStringLiteral("-");
    }
}

const char *COpBasketConfirmWidget::getStatusColor(EOpConfirmFilterStatus status)
{
    switch (status) {
    case OCFS_RISE_LIMIT:
        return "clr_global_rise";
    case OCFS_FALL_LIMIT:
        return "clr_global_fall";
    case OCFS_SUSPENDED:
        return "clr_op_basket_suspend_trade";
    default:
        return "";
    }
}

void COpBasketConfirmWidget::sortParam()
{
    if (!m_params)
        return;
    const FilterSwitches switches = filterSwitches();
    // No switch on: nothing is left out, and the order stands.
    if (!switches.m_suspended && !switches.m_riseLimit && !switches.m_fallLimit)
        return;
    std::vector<CCodeOrderParam> &lines = *m_params;
    std::vector<CCodeOrderParam> filtered;
    size_t kept = 0;
    for (size_t i = 0; i < lines.size(); ++i) {
        EOpConfirmFilterStatus status = OCFS_NORMAL;
        if (isParamFilter(lines[i], status)) {
            filtered.push_back(lines[i]);
            continue;
        }
        if (kept != i)
            lines[kept] = lines[i];
        ++kept;
    }
    lines.resize(kept);
    lines.insert(lines.end(), filtered.begin(), filtered.end());
}

QString COpBasketConfirmWidget::columnValue(const CCodeOrderParam &line, const OtherOrderParam *other, int column) const
{
    switch (column) {
    case COL_ACCOUNT:
        return line.m_account ? accountDisplayIDQs(line.m_account) : QString();
    case COL_MARKET:
        return WK::sToQs(line.m_stockInfo.m_market);
    case COL_CODE:
        return WK::sToQs(line.m_stockInfo.m_stockCode);
    case COL_NAME:
        return WK::sToQs(line.m_stockInfo.m_stockName);
    case COL_OPERATION:
        return operationToString(line.m_operationType);
    case COL_VOLUME:
        return isMoneyLine(line) ? QString::number(line.m_money, 'g', 6) : QString::number(line.m_volume);
    default:
        break;
    }
    if (!other)
        return QString();
    switch (column) {
    case COL_AVAILABLE:
        return QString::number(other->m_availableVolume);
    case COL_LAST_PRICE:
        return QString::number(other->m_lastPrice, 'g', 6);
    case COL_CHANGE:
        return QString::number(other->m_changeRatio, 'g', 6);
    case COL_COST:
        return QString::number(other->m_cost, 'g', 6);
    case COL_STATUS:
        return WK::sToQs(other->m_statusText);
    default:
        return QString();
    }
}

QSet<QString> COpBasketConfirmWidget::getTableItems(int column)
{
    QSet<QString> items;
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    if (!m_params || column < 0 || column > kLastFilterColumn)
        return items;
    // Every line the filter can bring back offers its values, those waiting beside the vector
    // after an order included.
    for (size_t slot = 0; slot < m_slotIndex.size(); ++slot) {
        const CCodeOrderParam *line = lineOfSlot(static_cast<int>(slot));
        if (!line || !line->m_account)
            continue;
        items.insert(columnValue(*line, m_otherParams[slot], column));
    }
    return items;
}

bool COpBasketConfirmWidget::testFilter(int type, const QSet<QString> &values, const QString &value)
{
    if (type == WK::FT_EQUAL)
        return values.contains(value);
    if (type != WK::FT_CONTAIN)
        return true;
    for (const QString &member : values) {
        if (!member.isEmpty() && value.contains(member, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

void COpBasketConfirmWidget::filterData(const COrderParamTable::FilterMap &filters)
{
    if (!m_table)
        return;
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    const bool replacing = m_replaceToolBar && m_replaceToolBar->isReplaceETF();
    const QSet<QString> replacedCodes = replacing ? replacementCodes(m_replaceToolBar->basket()) : QSet<QString>();
    m_table->beginUpdate();
    m_table->clear();
    unbindRows();
    int hidden = 0;
    if (m_params) {
        // Rows come back in the order of the load, each with its own record and colours.
        for (size_t s = 0; s < m_slotIndex.size(); ++s) {
            const int slot = static_cast<int>(s);
            CCodeOrderParam *line = lineOfSlot(slot);
            if (!line || !line->m_account)
                continue;
            OtherOrderParam *other = m_otherParams[s];
            bool pass = true;
            // The last column with chosen values decides alone: each test overwrites the one before.
            for (auto it = filters.cbegin(); it != filters.cend(); ++it) {
                if (it.value().second.isEmpty() || it.key() < 0 || it.key() > kLastFilterColumn)
                    continue;
                pass = testFilter(it.value().first, it.value().second, columnValue(*line, other, it.key()));
            }
            if (!pass) {
                ++hidden;
                continue;
            }
            const int row = writeRow(slot, line, *other);
            colourRow(row, *line, replacing, replacedCodes);
            bindRow(row, slot);
        }
    }
    m_table->endUpdate();
    m_hiddenByFilter = hidden;
    // A filtered column says so in its header: the lines it hides are not sent.
    for (int column = 0; column < COLUMN_COUNT; ++column) {
        const bool filtered = filters.contains(column) && !filters.value(column).second.isEmpty();
        m_table->setColumnTitle(column, columnTitle(column, m_tradeType) + (filtered ? QStringLiteral(" ▼") : QString()));
    }
    updateStatData();
}

void COpBasketConfirmWidget::colourRow(int row, const CCodeOrderParam &line, bool replacing, const QSet<QString> &replacedCodes)
{
    // On a buy with suspended stocks replaced: the replacement lines in one colour (their volume
    // is the replacement's, not the trader's to edit), the suspended stocks' in another.
    if (row < 0 || m_operationType != ttservice::OT_BUY || !replacing)
        return;
    const QString marketCode = WK::sToQs(line.m_stockInfo.m_market + line.m_stockInfo.m_stockCode);
    if (replacedCodes.contains(marketCode)) {
        m_table->setRowColorKey(row, QStringLiteral("clr_global_fall"));
        m_table->setItemEditable(row, COL_VOLUME, false);
    }
    if (CQuoteClient::instance()->isStoppedStock(stockKeyOf(shownMarket(line), shownCode(line))))
        m_table->setRowColorKey(row, QStringLiteral("clr_global_rise"));
}

void COpBasketConfirmWidget::showStatus(int row, EOpConfirmFilterStatus status, const QString &zeroReason)
{
    // The colour keys as the model keeps them, made once rather than once per line.
    static const QString colours[] = {
        QLatin1String(getStatusColor(OCFS_NORMAL)),
        QLatin1String(getStatusColor(OCFS_RISE_LIMIT)),
        QLatin1String(getStatusColor(OCFS_FALL_LIMIT)),
        QLatin1String(getStatusColor(OCFS_SUSPENDED)),
    };
    if (!zeroReason.isEmpty()) {
        m_table->setItemText(row, COL_STATUS, zeroReason);
        m_table->setItemColorKey(row, COL_STATUS, colours[OCFS_SUSPENDED]);
        return;
    }
    const int index = static_cast<int>(status);
    m_table->setItemText(row, COL_STATUS, getStatusString(status));
    m_table->setItemColorKey(row, COL_STATUS, colours[index >= 0 && index <= 3 ? index : 0]);
}

// The same reason as for a single line, with what the instrument and the account answer looked
// up once per load.
QString COpBasketConfirmWidget::zeroReasonAtLoad(const CCodeOrderParam &line, int64_t available, int instrumentIndex,
                                                 CLoadCaches &caches)
{
    if (!needsZeroVolumeReason(line))
        return QString();
    auto facts = caches.zeroVolumeFacts.find(instrumentIndex);
    if (facts == caches.zeroVolumeFacts.end())
        facts = caches.zeroVolumeFacts.emplace(instrumentIndex, zeroVolumeFactsOf(line)).first;
    const QString accountId = line.m_account ? caches.accountIds.value(line.m_account.get()) : QString();
    return TC::zeroVolumeReason(line, available, facts->second, accountId);
}

int64_t COpBasketConfirmWidget::availableAtLoad(const CCodeOrderParam &line, CLoadCaches &caches)
{
    if (!line.m_account || !caches.calculator)
        return 0;
    auto data = caches.accountData.find(line.m_account.get());
    if (data == caches.accountData.end())
        data = caches.accountData.emplace(line.m_account.get(), accountDataOf(*line.m_account)).first;
    return TC::availableVolumeOf(line, line.m_operationType, *caches.calculator, data->second);
}

void COpBasketConfirmWidget::updateStatData()
{
    if (!m_table)
        return;
    // Over the rows in the table: volumes as whole numbers, money with its decimals, values
    // that are not known ("-") left out.
    const WK::CTableModel *model = m_table->model();
    const bool moneyList = m_params && !m_params->empty() && isMoneyLine(m_params->front());
    m_table->setStatText(COL_VOLUME, moneyList ? QString::number(model->columnSum(COL_VOLUME), 'f', 2)
                                               : QString::number(model->columnIntSum(COL_VOLUME)));
    m_table->setStatText(COL_AVAILABLE, QString::number(model->columnIntSum(COL_AVAILABLE)));
    countCostTotal();
    showCostTotal();
    // What the column filters hide is not sent: the totals line says how much that is.
    m_table->setStatText(COL_ACCOUNT, m_hiddenByFilter > 0 ? QStringLiteral("筛选隐藏%1行").arg(m_hiddenByFilter) : QString());
}

double COpBasketConfirmWidget::recalcCost(const CCodeOrderParam *line) const
{
    if (!line)
        return ttservice::NO_VALUE;
    if (isMoneyLine(*line) || isRepurchaseCode(line->m_stockInfo.m_stockCode))
        return costOf(*line, nullptr, nullptr);
    const std::string &market = line->m_stockInfo.m_market;
    const std::string &code = line->m_stockInfo.m_stockCode;
    return costOf(*line, CQuoteClient::instance()->getStockPrice(stockKeyOf(market, code)), instrumentOf(market, code));
}

void COpBasketConfirmWidget::onLatestPrice(boost::shared_ptr<CPriceData> price)
{
    if (!price)
        return;
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    const auto found = m_instrumentIndex.find(price->m_market + '.' + price->m_stockCode);
    if (found == m_instrumentIndex.end())
        return;
    InstrumentLines &instrument = m_instruments[static_cast<size_t>(found->second)];
    if (!instrument.m_instrument) {
        // Looked up again: the instrument may have become known since the load.
        instrument.m_instrument = instrumentOf(instrument.m_market, instrument.m_code);
        if (!instrument.m_instrument)
            return;
    }
    const double last = price->m_lastPrice;
    const bool lastKnown = !ttservice::isEqual(last, ttservice::NO_VALUE);
    const double multiple = valueMultiple(*instrument.m_instrument);
    const double changeRatio = changeRatioOf(last, price->m_lastClose);
    // The status depends on the instrument alone (a money line asks with "-").
    const std::string &stockStatus = statusText(filterStatusOf(instrument.m_market, instrument.m_code));
    const std::string *moneyStatus = nullptr;

    // Every line of the instrument, on every account, and nothing else.
    for (int slot : instrument.m_slots) {
        const size_t s = static_cast<size_t>(slot);
        OtherOrderParam *other = m_otherParams[s];
        if (!other || m_slotIndex[s] == NO_SLOT)
            continue;
        const bool money = m_slotMoney[s] != 0;
        if (money) {
            if (!moneyStatus)
                moneyStatus = &statusText(filterStatusOf("-", "-"));
            other->m_statusText = *moneyStatus;
            // A money line is worth its money: a quote of its code changes nothing it shows.
            continue;
        }
        // Compared first: the status seldom changes, and a copy per line is most of a round.
        if (other->m_statusText != stockStatus)
            other->m_statusText = stockStatus;
        if (!lastKnown)
            continue;
        const double volume = static_cast<double>(m_slotVolumes[s]);
        other->m_lastPrice = last;
        other->m_cost = instrument.m_repurchase ? volume * kRepurchaseUnitValue : volume * last * multiple;
        other->m_changeRatio = changeRatio;
        if (!other->m_changed) {
            other->m_changed = true;
            m_changedSlots.push_back(slot);
        }
    }
}

void COpBasketConfirmWidget::slotTimeout()
{
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    // A sell or mixed list keeps the values it was loaded with: its quantities were cut to the
    // positions of that moment, and moving values would suggest otherwise.
    if (m_operationType != ttservice::OT_BUY || !m_table || m_changedSlots.empty())
        return;
    bool anyShown = false;
    WK::CTableModel *model = m_table->model();
    m_table->beginUpdate();
    // Only the lines a quote touched: a quiet market costs nothing here. A few changed rows are
    // announced one by one, so that rows out of view cost no repaint; past what a screen holds,
    // the value columns are announced once, and the view repaints what it shows of them.
    constexpr size_t kRowsAnnouncedAlone = 64;
    std::vector<std::pair<int, int>> announced; // row, leftmost changed column
    int left = COL_COST + 1;
    size_t changedRows = 0;
    for (int slot : m_changedSlots) {
        const size_t s = static_cast<size_t>(slot);
        OtherOrderParam *other = m_otherParams[s];
        if (!other || !other->m_changed)
            continue;
        other->m_changed = false;
        if (m_slotRows[s] < 0)
            continue; // out of the table now; a row made later shows the record as it stands
        anyShown = true;
        const int changedFrom = storeValues(slot, shownValuesOf(*other));
        if (changedFrom < 0)
            continue;
        left = std::min(left, changedFrom);
        if (++changedRows <= kRowsAnnouncedAlone)
            announced.emplace_back(m_slotRows[s], changedFrom);
    }
    if (changedRows > kRowsAnnouncedAlone) {
        model->sourcedColumnsChanged(left, COL_COST);
    } else {
        for (const std::pair<int, int> &row : announced)
            model->sourcedValuesChanged(row.first, row.second, COL_COST);
    }
    m_changedSlots.clear();
    m_table->endUpdate();
    tellCostMoves();
    if (!anyShown)
        return;
    // The rows in the table, values that are not known ("-") left out.
    if (!m_costTotalKnown || m_costTotalVersion != model->visibleRowsVersion())
        countCostTotal();
    showCostTotal();
}

namespace {

// A value in ten-thousandths of a yuan: prices are whole ticks (0.0001 at the finest) and volumes
// and multiples whole numbers, so a line's value is a whole number of them and a total kept across
// ticks stays exact. False for a value too large to count so; "-" counts 0.
bool valueUnits(double cost, qint64 &units)
{
    units = 0;
    if (!hasCost(cost))
        return true;
    if (!(std::fabs(cost) < 1e14))
        return false;
    const double scaled = cost * 1e4;
    units = static_cast<qint64>(scaled < 0.0 ? scaled - 0.5 : scaled + 0.5);
    return true;
}

} // namespace

void COpBasketConfirmWidget::countCostTotal()
{
    const WK::CTableModel *model = m_table->model();
    m_costTotalVersion = model->visibleRowsVersion();
    m_costTotal = 0;
    m_costTotalKnown = true;
    for (int visual = 0; visual < model->visibleRowCount() && m_costTotalKnown; ++visual) {
        qint64 units = 0;
        m_costTotalKnown = valueUnits(shownCost(model->rowIdAt(visual)), units)
                           && !__builtin_add_overflow(m_costTotal, units, &m_costTotal);
    }
}

void COpBasketConfirmWidget::moveCostTotal(int row, double before, double after)
{
    const WK::CTableModel *model = m_table->model();
    if (!m_costTotalKnown || m_costTotalVersion != model->visibleRowsVersion() || model->visualRowOf(row) < 0)
        return;
    qint64 was = 0;
    qint64 is = 0;
    m_costTotalKnown = valueUnits(before, was) && valueUnits(after, is)
                       && !__builtin_add_overflow(m_costTotal, is - was, &m_costTotal);
}

void COpBasketConfirmWidget::showCostTotal()
{
    // Past what ten-thousandths can count, the sum of the shown values as they are.
    const double total = m_costTotalKnown ? static_cast<double>(m_costTotal) / 1e4 : m_table->model()->columnSum(COL_COST);
    m_table->setStatText(COL_COST, QString::number(total, 'f', 2));
}

// ---- taking the ticked rows ----------------------------------------------------------------

void COpBasketConfirmWidget::updateParam()
{
    if (!m_params || !m_table)
        return;
    QStringList unticked;
    {
        std::lock_guard<std::recursive_mutex> lock(m_mutex);
        // The list becomes the ticked rows in the order of the screen; every other line waits
        // beside it, still shown and editable, so that the next take or a reset finds the
        // user's latest edits.
        std::vector<int> listed;
        const int rows = m_table->rowCount();
        listed.reserve(static_cast<size_t>(rows));
        for (int visual = 0; visual < rows; ++visual) {
            const int row = m_table->rowID(visual);
            const int slot = slotOfRow(row);
            const CCodeOrderParam *line = lineOfSlot(slot);
            // A row without a line never had a box to tick.
            if (!line)
                continue;
            if (m_table->isItemChecked(row, COL_CHECK)) {
                listed.push_back(slot);
                continue;
            }
            EOpConfirmFilterStatus status = OCFS_NORMAL;
            isParamFilter(*line, status);
            unticked.append(WK::sToQs(
                (boost::format("[act = %1%, stk = %2%, num = %3%, sts = %4%]") % ttservice::accountDisplayID(line->m_account)
                 % utils::vqStockKey(line->m_stockInfo.m_market, line->m_stockInfo.m_stockCode) % line->m_volume
                 % static_cast<int>(status))
                    .str()));
        }
        arrangeList(listed);
    }
    if (unticked.isEmpty())
        return;
    TT_LOG_INFO(this, "TC::COpBasketConfirmWidget::updateParam", "basket\\COpBasketConfirmWidget",
                boost::format("[unCheckParam] = %1%") % unticked.join(QLatin1Char(' ')).toStdString());
}

void COpBasketConfirmWidget::resetParam()
{
    if (!m_params)
        return;
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    // Every line the user has not deleted, in the order of the load.
    std::vector<int> all;
    all.reserve(m_slotIndex.size());
    for (size_t slot = 0; slot < m_slotIndex.size(); ++slot) {
        if (isLiveSlot(static_cast<int>(slot)))
            all.push_back(static_cast<int>(slot));
    }
    arrangeList(all);
}

} // namespace TC
