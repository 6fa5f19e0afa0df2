// What the form checks before an order is generated for placing, and before a paste is taken.
#include "COpBasketParamsWidget.h"

#include "COpBasketParamsButtonsBar.h"
#include "COpBasketsComboBox.h"

#include "AccountHelpers.h"
#include "CAccountData.h"
#include "CExchangeClient.h"
#include "CMessageBox.h"
#include "CMessageTip.h"
#include "CMsgService.h"
#include "COpAccountsWidget.h"
#include "COpBasketFutureParamsWidget.h"
#include "CParameterCell.h"
#include "CQuoteClient.h"
#include "CTradeClient.h"
#include "CUserConfig.h"
#include "IDataCenter.h"
#include "TextHelpers.h"
#include "TradeUnits.h"
#include "TraderCenter.h"

#include "DoubleCompare.h"
#include "StockKey.h"

#include <QMessageBox>

#include <set>

namespace TC {
namespace {

using ttservice::CCodeOrderParam;

constexpr int kTraderRole = 200;


// The price a line is valued at: the last price, the reference close before the first trade.
double valuationPrice(const CCodeOrderParam &line, bool &hasQuote)
{
    const auto quote = CQuoteClient::instance()->getStockPrice(
        QString::fromStdString(utils::vqStockKey(line.m_stockInfo.m_market, line.m_stockInfo.m_stockCode)));
    hasQuote = static_cast<bool>(quote);
    if (!quote)
        return 0.0;
    return ttservice::hasValue(quote->m_lastPrice) ? quote->m_lastPrice : quote->m_lastClose;
}

QString sixDigitCode(const QString &code)
{
    return QString(QStringLiteral("000000") + code).right(6);
}

} // namespace

void COpBasketParamsWidget::reportCheckFailure(const QString &message, QString &error, QWidget *tipAnchor)
{
    error = message;
    const CMsgSetting setting = getUserConfig()->msgSetting(1);
    getMsgService()->showMsg(message, EMsgTypeDef(1), ttservice::MsgLevel(1), setting.m_showPopup,
                                     setting.m_playSound, QString());
    if (tipAnchor)
        WK::CMessageTip::showTip(tipAnchor, 65, message, 1, 2, 300);
}

bool COpBasketParamsWidget::check(QString &error, QString &log)
{
    const int batch = m_basketsCombo ? static_cast<int>(m_basketsCombo->batchOp()) : BATCH_NONE;

    // A batch-sell list names its own accounts.
    if (batch != BATCH_SELL && m_accountsWidget) {
        const QSet<QString> selected = m_accountsWidget->getSelectedAccounts();
        if (selected.isEmpty()) {
            reportCheckFailure(QStringLiteral("您没有选择任何账号!"), error, m_buttonsBar);
            return false;
        }
        for (const QString &key : m_accountsWidget->getDisplayedAccounts()) {
            if (!selected.contains(key))
                continue;
            if (ttservice::isLoginStatusReady(CTradeClient::instance()->getLoginStatus(key.toStdString())))
                continue;
            const auto account = getUserConfig()->getAccountData(key);
            QString name = account ? QString::fromStdString(account->m_accountName) : key;
            if (name.isEmpty() && account)
                name = QString::fromStdString(account->m_accountId);
            reportCheckFailure(QStringLiteral("账号 [%1] 尚未登录, 下单无法完成!").arg(name), error, nullptr);
            return false;
        }
    }

    if (m_hedgeWidget && m_hedgeWidget->isAutoHedgeCheck() && !m_hedgeWidget->check(error)) {
        // The hedge block has told the user itself; on the futures tabs the basket is the hedge.
        if ((m_tradeOpType & 0x5000) == 0)
            return false;
    }

    const QString basketName = currentBasketName();
    if (batch == BATCH_NONE) {
        if (getUserConfig()->getRole() != kTraderRole) {
            const QMap<QString, CBasketSetting> &baskets = getUserConfig()->baskets();
            const auto it = baskets.constFind(basketName);
            if (it == baskets.constEnd()) {
                reportCheckFailure(QStringLiteral("您选择的篮子不正确!"), error, m_basketsCombo);
                return false;
            }
            if (it->m_stocks.isEmpty()) {
                reportCheckFailure(QStringLiteral("您选择的篮子不包含任何股票!"), error, m_basketsCombo);
                return false;
            }
        } else if (basketName.isEmpty()) {
            // An instruction's basket need not be stored for the trader who executes it.
            reportCheckFailure(QStringLiteral("您选择的篮子不正确!"), error, m_basketsCombo);
            return false;
        }
    }

    // Zero copies pass: an instruction may be loaded before it is sized.
    const int copies = m_copiesCell ? static_cast<int>(m_copiesCell->toDouble()) : 0;
    if (copies < -ttservice::DOUBLE_EPSILON) {
        reportCheckFailure(QStringLiteral("篮子份数必须大于0!"), error, m_copiesCell);
        return false;
    }
    log = QStringLiteral("basket=%1, copies=%2").arg(basketName).arg(copies);
    return true;
}

bool COpBasketParamsWidget::checkOrderValid(std::vector<CCodeOrderParam> &params)
{
    double available = m_accountsWidget ? m_accountsWidget->getSelectAccountsAvailable() : 0.0;
    if (!ttservice::hasValue(available) || available < -ttservice::DOUBLE_EPSILON)
        available = 0.0;

    double need = 0.0;
    if (m_tradeOpType == TOT_BUY) {
        for (const CCodeOrderParam &line : params) {
            bool hasQuote = false;
            const double price = valuationPrice(line, hasQuote);
            if (hasQuote)
                need += line.m_volume * price;
        }
    } else if (m_tradeOpType == TOT_ALL && m_operationType == -1) {
        // What the sells bring in pays for the buys.
        for (const CCodeOrderParam &line : params) {
            bool hasQuote = false;
            const double price = valuationPrice(line, hasQuote);
            if (!hasQuote)
                continue;
            need += (isBuy(line.m_operationType) ? 1 : -1) * line.m_volume * price;
        }
    } else {
        return true;
    }
    if (need == ttservice::NO_VALUE)
        return true;
    return !(need - available > ttservice::DOUBLE_EPSILON);
}

QString COpBasketParamsWidget::accountsShortOfMoney(const std::vector<CCodeOrderParam> &lines) const
{
    // The same valuation as checkOrderValid, account by account: money one account lacks is not
    // made up by another account's cash.
    const bool net = m_tradeOpType == TOT_ALL && m_operationType == -1;
    if (m_tradeOpType != TOT_BUY && !net)
        return QString();
    QMap<QString, double> need;
    QMap<QString, boost::shared_ptr<ttservice::CAccountInfo>> accounts;
    for (const CCodeOrderParam &line : lines) {
        if (!line.m_account)
            continue;
        bool hasQuote = false;
        const double price = valuationPrice(line, hasQuote);
        if (!hasQuote || !ttservice::hasValue(price))
            continue;
        const QString key = QString::fromStdString(line.m_account->getKey());
        const double sign = isBuy(line.m_operationType) ? 1.0 : (net ? -1.0 : 0.0);
        need[key] += sign * double(line.m_volume) * price;
        accounts.insert(key, line.m_account);
    }
    const auto center = ttservice::TraderCenter::instance()->getDataCenter();
    QStringList lacking;
    for (auto it = need.constBegin(); it != need.constEnd(); ++it) {
        const auto data = center ? center->getAccountData(it.key().toStdString()) : boost::shared_ptr<ttservice::CAccountData>();
        const auto detail = data ? data->getAccountDetail() : boost::shared_ptr<ttservice::CAccountDetail>();
        const double available = detail && ttservice::hasValue(detail->m_available) ? std::max(0.0, detail->m_available) : 0.0;
        if (it.value() - available > ttservice::DOUBLE_EPSILON)
            lacking << QStringLiteral("%1 需 %2, 可用 %3")
                          .arg(accountDisplayIDQs(*accounts.value(it.key())), QString::number(it.value(), 'f', 2),
                               QString::number(available, 'f', 2));
    }
    if (lacking.isEmpty())
        return QString();
    return QStringLiteral("可用资金不足, 未下单: ") + lacking.join(QStringLiteral("; "));
}

quint64 COpBasketParamsWidget::getCommandOperationType(const QList<CBasketStockData> &rows) const
{
    std::set<int> sides;
    std::set<int> operations;
    bool futures = false;
    for (const CBasketStockData &row : rows) {
        sides.insert(row.m_entrustBs);
        operations.insert(row.m_operationType);
        futures = futures || ttservice::isFutureMarket(row.m_market.toStdString());
    }
    auto holdsAny = [&operations](std::initializer_list<int> wanted) {
        for (int op : wanted) {
            if (operations.count(op))
                return true;
        }
        return false;
    };
    if (futures)
        return holdsAny({10, 11, 12, 13}) || operations.size() > 1 ? TOT_ONEKEY_FUTURE : TOT_FUTURE;
    if (holdsAny({20, 21, 22, 24}))
        return TOT_CREDIT;
    if (sides.count(48) && sides.count(49))
        return TOT_ALL;
    if (sides.count(49))
        return TOT_SELL;
    return TOT_BUY;
}

namespace {

// What the lines of one paste tell about the whole of it.
struct PasteScan
{
    bool onlyFutures = true;
    bool hasWeight = false;
    QSet<QString> seenCodes;
    std::set<int> sides;
    std::set<int> operations;
};

// One pasted line into a row; false for a line of no known instrument or a stock seen before.
bool readPastedLine(const QString &line, PasteScan &scan, CBasketStockData &row)
{
    const CExchangeClient *exchange = CExchangeClient::instance();
    // A spreadsheet's rows end in "\r"; a stray space around a cell means nothing.
    QStringList columns = line.split(QLatin1Char('\t'));
    for (QString &column : columns)
        column = column.trimmed();
    if (!columns.isEmpty()) {
        const QString code = sixDigitCode(columns.at(0));
        const std::string market = exchange->getMarketByStockCode(code.toStdString(), std::string());
        QString lookup = columns.at(0);
        if (!market.empty()) {
            scan.onlyFutures = false;
            lookup = QString::fromStdString(market) + code;
        }
        if (!exchange->hasCode(lookup))
            return false;
        // Futures may repeat (one row per side); a stock appears once.
        if (scan.seenCodes.contains(lookup) && !scan.onlyFutures)
            return false;
        scan.seenCodes.insert(lookup);
        const auto info = exchange->getCodeInfo(lookup);
        if (!info)
            return false;
        row.m_market = QString::fromStdString(info->m_market);
        row.m_stockCode = QString::fromStdString(info->m_stockCode);
        row.m_stockName = QString::fromStdString(info->m_stockName);
    }

    bool ok = false;
    // The short form a trader types by hand: a code and a quantity.
    const int volumeColumn = columns.size() == 2 ? 1 : 2;
    if (columns.size() > volumeColumn) {
        const int volume = WK::unformatNumberString(columns.at(volumeColumn)).toInt(&ok, 10);
        if (ok && volume >= 0)
            row.m_volume = volume;
    }
    if (columns.size() < 4) {
        const auto quote = CQuoteClient::instance()->getStockPrice(row.key());
        row.m_weight = quote && ttservice::hasValue(quote->m_lastPrice) ? quote->m_lastPrice : 0.0;
        scan.hasWeight = false;
    } else {
        const double weight = columns.at(3).toDouble(&ok);
        if (ok)
            row.m_weight = weight;
        scan.hasWeight = true;
    }
    if (columns.size() > 4) {
        const QString direction = columns.at(4);
        row.m_operationType = direction == QLatin1String("0") || direction == QStringLiteral("买入")
            ? ttservice::OT_BUY
            : ttservice::OT_SELL;
        row.m_entrustBs = isBuy(row.m_operationType) ? 48 : 49;
        scan.sides.insert(row.m_entrustBs);
    }
    if (columns.size() == 7) {
        const int operation = columns.at(5).toInt(&ok, 10);
        if (ok)
            row.m_operationType = static_cast<ttservice::EOperationType>(operation);
        const int hedge = columns.at(6).toInt(&ok, 10);
        if (ok)
            row.m_hedgeFlag = static_cast<ttservice::EHedge_Flag_Type>(hedge);
        scan.operations.insert(row.m_operationType);
    }
    return true;
}

} // namespace

bool COpBasketParamsWidget::checkPatch(const QString &text, quint64 &word, bool fromCommand)
{
    PasteScan scan;
    QList<CBasketStockData> rows;

    for (const QString &line : text.split(QLatin1Char('\n'))) {
        CBasketStockData row;
        if (readPastedLine(line, scan, row))
            rows << row;
    }

    if (rows.isEmpty()) {
        // Nothing recognisable: the list on screen stays, and the trader learns what is read.
        WK::CMessageBox::warning(0, this, QStringLiteral("粘贴提示"),
                                 QStringLiteral("粘贴的内容中没有可识别的证券代码, 未粘贴。\n每行一只证券, 用Tab分隔: "
                                                "代码<Tab>数量, 或 代码<Tab>名称<Tab>数量<Tab>权重<Tab>方向(0买入, 1卖出)"),
                                 QMessageBox::Ok);
        return false;
    }
    quint64 tab = m_tradeOpType;
    if (fromCommand) {
        tab = getCommandOperationType(rows);
    } else {
        const bool futuresTab = (m_tradeOpType & 0x5000) != 0;
        if (scan.onlyFutures != futuresTab) {
            WK::CMessageBox::warning(0, this, QStringLiteral("粘贴提示"),
                                     QStringLiteral("复制的未成量交易类型与当前下单面板交易类型不一致, 无法粘贴数据!"),
                                     QMessageBox::Ok);
            return false;
        }
        // The futures and credit direction tests compare with the mode blocks' current operation;
        // the form has no such blocks yet, so only the stock sides are compared.
        const bool differs = ((m_tradeOpType & TOT_BUY) && scan.sides.count(49)) || ((m_tradeOpType & TOT_SELL) && scan.sides.count(48));
        if (differs)
            WK::CMessageBox::warning(0, this, QStringLiteral("粘贴提示"),
                                     QStringLiteral("复制的未成量交易方向与当前下单面板交易方向不一致, 请仔细核对!"),
                                     QMessageBox::Ok);
    }
    word = tab;
    m_clipboardStocks[tab] = rows;
    m_clipboardHasWeight = scan.hasWeight;
    return true;
}

} // namespace TC
