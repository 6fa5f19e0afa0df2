// The parameter form in instruction mode: a manager's instruction, or the part of a split
// instruction meant for this trader, becomes the order list, fills the tables and opens only
// the accounts it names.
#include "COpBasketParamsWidget.h"

#include "COpBasketBuySellWidget.h"
#include "COpBasketCrdBuySellWidget.h"
#include "COpBasketParamsButtonsBar.h"
#include "COpBasketStockParamsWidget.h"
#include "COpBasketsComboBox.h"
#include "ConnectTabs.h"

#include "CAccountData.h"
#include "CComboxNameWidget.h"
#include "CExchangeRate.h"
#include "CGlobalOrderParamTable.h"
#include "CMsgService.h"
#include "COpAccountsWidget.h"
#include "CParameterCell.h"
#include "CPushButton.h"
#include "CTradeClient.h"
#include "CUserConfig.h"
#include "IDataCenter.h"
#include "OperationHelpers.h"
#include "TraderCenter.h"

#include "DoubleCompare.h"

#include <QComboBox>

#include <algorithm>
#include <cmath>

namespace TC {
namespace {

using ttservice::CCodeOrderParam;

constexpr int kTraderRole = 200;

// A remaining volume of this size or more is the service's mark for "not known", never a volume.
constexpr qint64 kUnknownRemainder = 0x7fffffff;

// Only an instruction that is new (0) or partly executed (2), last handed to this user, may be
// executed here.
bool isExecutableBy(const ttservice::COrderCommand &command, const std::string &userId)
{
    return (command.m_commandState == 0 || command.m_commandState == 2) && !command.m_holderIds.empty()
        && command.m_holderIds.back() == userId;
}

QString sentKey(const std::string &commandKey, const CCodeOrderParam &line)
{
    return QStringLiteral("%1|%2|%3|%4")
        .arg(QString::fromStdString(commandKey), QString::fromStdString(line.m_account ? line.m_account->getKey() : std::string()),
             QString::fromStdString(line.m_stockInfo.m_market + line.m_stockInfo.m_stockCode),
             QString::number(int(line.m_operationType)));
}

} // namespace

void COpBasketParamsWidget::setCommand(const std::string &key, quint64 word)
{
    m_hasSplitInfo = false;
    m_splitInfo = sSplitCmdInfo();
    setSplitCommand(key, word, m_splitInfo);
}

void COpBasketParamsWidget::setSplitCommand(const std::string &key, quint64 word, const sSplitCmdInfo &info)
{
    m_commandEdits.clear();
    m_commandDeletions.clear();
    m_handedOnLines.clear();
    m_handedOnTaken = false;
    m_commandKey = key;
    m_commandOpType = word;
    const bool split = info.m_mainRecord || info.m_subRecord;
    m_hasSplitInfo = split;
    m_splitInfo = info;
    if (m_volumnCombobox)
        m_volumnCombobox->setCurrentIndex(0);
    if (m_copiesCell)
        m_copiesCell->setInt(1);
    if (m_cmdRatioCell)
        m_cmdRatioCell->setDouble(100);
    if (m_contractCell)
        m_contractCell->setInt(1);
    updateParamsByCmd(true);
    updateCmdParamVisible();
    setEnableForCommand(true);
}

void COpBasketParamsWidget::setEnableForCommand(bool enable)
{
    m_commandEnabled = enable;
    for (QWidget *widget : {static_cast<QWidget *>(m_otherParams), static_cast<QWidget *>(m_cmdRatioCell),
                            static_cast<QWidget *>(m_buttonsBar)}) {
        if (widget)
            widget->setEnabled(enable);
    }
    // The instruction's basket and sizing are the manager's: they stay locked either way.
    for (QWidget *widget : {static_cast<QWidget *>(m_basketsCombo), static_cast<QWidget *>(m_adjustBtn),
                            static_cast<QWidget *>(m_volumnRow),
                            static_cast<QWidget *>(m_volumnCombobox), static_cast<QWidget *>(m_copiesCell),
                            static_cast<QWidget *>(m_moneyCell), static_cast<QWidget *>(m_ratioCell),
                            static_cast<QWidget *>(m_sellRatioCell), static_cast<QWidget *>(m_assetRatioCell),
                            static_cast<QWidget *>(m_totalLotsCell)}) {
        if (widget)
            widget->setEnabled(false);
    }
}

double COpBasketParamsWidget::getCommandPercentage() const
{
    return m_cmdRatioCell ? m_cmdRatioCell->toDouble() : 0.0;
}

bool COpBasketParamsWidget::updateParamsByCmd(bool fillUi)
{
    // After a split instruction the trader's part is the list: the whole instruction would send
    // other traders' lines as well.
    if (m_hasSplitInfo)
        return updateParamsBySubCmd(fillUi, m_splitInfo);
    const boost::shared_ptr<ttservice::COrderCommand> command = CTradeClient::instance()->getCommandByKey(m_commandKey);
    if (!command || !isExecutableBy(*command, getUserConfig()->getUserId()) || m_commandOpType != m_tradeOpType)
        return false;
    return loadCommandLines(*command, command->m_orders, fillUi);
}

bool COpBasketParamsWidget::isCommandHandedOn() const
{
    if (m_commandKey.empty() || getUserConfig()->getRole() != kTraderRole)
        return false;
    const boost::shared_ptr<ttservice::COrderCommand> command = CTradeClient::instance()->getCommandByKey(m_commandKey);
    return !command || !isExecutableBy(*command, getUserConfig()->getUserId());
}

void COpBasketParamsWidget::forgetCommand()
{
    m_commandKey.clear();
    m_commandOpType = 0;
    m_hasSplitInfo = false;
    m_splitInfo = sSplitCmdInfo();
    m_commandEdits.clear();
    m_commandDeletions.clear();
    m_handedOnLines.clear();
    m_handedOnTaken = false;
}

void COpBasketParamsWidget::keepHandedOnList()
{
    // The list as it was when the instruction left this trader; from then on only the trader's
    // own changes apply to it: accounts unticked, lines edited or deleted.
    if (!m_handedOnTaken) {
        m_handedOnLines = shownLines();
        m_handedOnTaken = true;
    }
    const QSet<QString> selected = m_accountsWidget ? m_accountsWidget->getSelectedAccounts() : QSet<QString>();
    m_orderParams.clear();
    for (const CCodeOrderParam &line : m_handedOnLines) {
        const std::string account = line.m_account ? line.m_account->getKey() : std::string();
        const QString key = commandLineKey(account, line.m_stockInfo.m_market, line.m_stockInfo.m_stockCode);
        if (!selected.contains(QString::fromStdString(account)) || m_commandDeletions.contains(key))
            continue;
        m_orderParams.push_back(line);
        const auto edited = m_commandEdits.constFind(key);
        if (edited != m_commandEdits.constEnd())
            m_orderParams.back().m_volume = *edited;
    }
}

bool COpBasketParamsWidget::isCommandListOnView() const
{
    return !m_commandKey.empty() && getUserConfig()->getRole() == kTraderRole && m_commandOpType == m_tradeOpType;
}

QString COpBasketParamsWidget::commandLineKey(const std::string &accountKey, const std::string &market,
                                              const std::string &code) const
{
    return QString::fromStdString(m_commandKey + '|' + accountKey + '|' + market + code);
}

void COpBasketParamsWidget::noteSentForCommand(const std::vector<CCodeOrderParam> &sent)
{
    if (m_commandKey.empty())
        return;
    // What is left is sized anew after a press; lines the trader took out stay out.
    m_commandEdits.clear();
    const boost::shared_ptr<ttservice::COrderCommand> command = CTradeClient::instance()->getCommandByKey(m_commandKey);
    for (const CCodeOrderParam &line : sent) {
        const QString key = sentKey(m_commandKey, line);
        auto entry = m_sentForCommand.find(key);
        if (entry == m_sentForCommand.end()) {
            CSentForCommand first;
            // The traded volume the instruction's line had when this panel first sent of it:
            // what the service reports traded beyond it comes from what was sent here.
            if (command) {
                for (const CCodeOrderParam &own : command->m_orders) {
                    if (sentKey(m_commandKey, own) == key && ttservice::hasValue(own.m_tradedVolume))
                        first.m_tradedAtFirstSend = std::max(0.0, own.m_tradedVolume);
                }
            }
            entry = m_sentForCommand.insert(key, first);
        }
        entry->m_sent += std::max<qint64>(0, line.m_volume);
    }
}

bool COpBasketParamsWidget::updateParamsBySubCmd(bool fillUi, const sSplitCmdInfo &info)
{
    const boost::shared_ptr<ttservice::COrderCommand> command = CTradeClient::instance()->getCommandByKey(m_commandKey);
    const std::string userId = getUserConfig()->getUserId();
    if (!command || !isExecutableBy(*command, userId) || m_commandOpType != m_tradeOpType)
        return false;

    if (info.m_isMain) {
        const boost::shared_ptr<ttservice::CMainCommandSplitRecord> &main = info.m_mainRecord;
        if (!main || main->m_splitItems.size() < 2)
            return false;
        // Entry 0 is the whole instruction; the parts start at 1.
        for (size_t i = 1; i < main->m_splitItems.size(); ++i) {
            const boost::shared_ptr<ttservice::CCommandSplitItem> &item = main->m_splitItems[i];
            if (!item || item->m_records.empty() || !item->m_records.front() || item->m_records.front()->m_orders.empty())
                continue;
            if (!isSubCmdOrder(item->m_status))
                return false;
            return loadCommandLines(*command, item->m_records.front()->m_orders, fillUi);
        }
        return false;
    }
    const boost::shared_ptr<ttservice::CSubCommandRecord> &record = info.m_subRecord;
    if (!record || record->m_orders.empty() || !isSubCmdOrder(record->m_status) || record->m_userId != userId)
        return false;
    return loadCommandLines(*command, record->m_orders, fillUi);
}

// What is done of an instruction's line: an unknown traded volume counts as nothing traded yet;
// what this panel already sent counts as done until the service reports more traded than that.
double COpBasketParamsWidget::commandLineTraded(const CCodeOrderParam &line) const
{
    double traded = ttservice::isNoValue(line.m_tradedVolume) ? 0.0 : line.m_tradedVolume;
    const auto sent = m_sentForCommand.constFind(sentKey(m_commandKey, line));
    if (sent != m_sentForCommand.constEnd())
        traded = std::max(traded, sent->m_tradedAtFirstSend + double(sent->m_sent));
    return traded;
}

// The line's volume now: the ratio of what is left in whole lots, or the trader's own volume.
void COpBasketParamsWidget::sizeCommandLine(CCodeOrderParam &line, double traded, double ratio, const QString &ownKey,
                                            QStringList &cut)
{
    const qint64 remaining = static_cast<qint64>(std::floor(double(line.m_volume) - traded));
    const qint64 minUnit = std::max(1, getUserConfig()->getMinUnit(line.m_stockInfo.m_market, line.m_stockInfo.m_stockCode,
                                                                   isBuy(line.m_operationType)));
    if (remaining >= kUnknownRemainder || remaining < minUnit) {
        line.m_volume = 0;
    } else {
        const qint64 share = static_cast<qint64>(std::floor(double(remaining) * ratio));
        line.m_volume = std::max(minUnit, share / minUnit * minUnit);
    }
    // The trader's own volume for the line, never more than is left of it: a larger one
    // is brought down once, and said.
    const auto edited = m_commandEdits.find(ownKey);
    if (edited != m_commandEdits.end()) {
        const qint64 left = remaining < kUnknownRemainder ? std::max<qint64>(0, remaining) : 0;
        if (*edited > left) {
            *edited = left;
            cut << QString::fromStdString(line.m_stockInfo.m_stockCode);
        }
        line.m_volume = *edited;
    }
}

bool COpBasketParamsWidget::loadCommandLines(const ttservice::COrderCommand &command,
                                             const std::vector<CCodeOrderParam> &lines, bool fillUi)
{
    // Built aside and put in place at the end: choosing the basket below recalculates the form,
    // which comes back here, and must not find half a list.
    std::vector<CCodeOrderParam> params;
    QList<CBasketStockData> quoteRows;
    if (m_accountsWidget && m_basketsCombo) {
        if (fillUi) {
            m_accountsWidget->setEnabled(true);
            m_accountsWidget->setAllAccountEnable(false);
            // An instruction made without a basket names none; an empty name is no basket to enter.
            if (!command.m_basketName.empty())
                m_basketsCombo->setBasket(QString::fromStdString(command.m_basketName), true);
        }
        const QStringList tableTexts = QString::fromStdString(command.m_tableSettings).split(QLatin1Char('@'), Qt::KeepEmptyParts);
        const QStringList displayed = m_accountsWidget->getDisplayedAccounts();
        // An account the trader unticked stays out of every recalculation of the instruction.
        const QSet<QString> selected = fillUi ? QSet<QString>() : m_accountsWidget->getSelectedAccounts();
        QSet<QString> commandAccounts;
        // A ratio outside 0..100 % would execute more than is left, or a negative volume.
        const double ratio = std::min(1.0, std::max(0.0, getCommandPercentage() / 100.0));
        QStringList cut;
        for (size_t i = 0; i < lines.size(); ++i) {
            if (lines[i].m_orderType != ttservice::ORDER_TYPE_INSTRUCTION)
                continue;
            CCodeOrderParam line = lines[i];
            if (fillUi)
                fillCommandTable(line, command.m_tableType,
                                 int(i) < tableTexts.size() ? tableTexts.at(int(i)) : QString());
            const double traded = commandLineTraded(line);
            if (!(double(line.m_volume) > traded))
                continue;
            const QString key = line.m_account ? QString::fromStdString(line.m_account->getKey()) : QString();
            if (!displayed.contains(key) || (!fillUi && !selected.contains(key)))
                continue;
            const QString ownKey = commandLineKey(key.toStdString(), line.m_stockInfo.m_market, line.m_stockInfo.m_stockCode);
            if (m_commandDeletions.contains(ownKey))
                continue;
            if (fillUi) {
                m_accountsWidget->setAccountEnabled(key, true);
                commandAccounts.insert(key);
            }
            CBasketStockData row;
            row.m_market = QString::fromStdString(line.m_stockInfo.m_market);
            row.m_stockCode = QString::fromStdString(line.m_stockInfo.m_stockCode);
            quoteRows.append(row);

            sizeCommandLine(line, traded, ratio, ownKey, cut);
            line.m_tradedVolume = 0;
            line.m_orderStatus = 0;
            params.push_back(std::move(line));
        }
        if (!cut.isEmpty()) {
            const CMsgSetting setting = getUserConfig()->msgSetting(1);
            getMsgService()->showMsg(QStringLiteral("数量超出指令剩余数量, 已减至剩余: %1").arg(cut.join(QLatin1Char(' '))),
                                     EMsgTypeDef(1), ttservice::MsgLevel(1), setting.m_showPopup, setting.m_playSound, QString());
        }
        if (fillUi) {
            // The ticks show what is sent: exactly the instruction's accounts.
            m_accountsWidget->clearCheckStatus();
            for (const QString &key : commandAccounts)
                m_accountsWidget->setSelectedAccount(key, true);
        }
    }
    m_orderParams = std::move(params);
    requestQuotes(quoteRows);
    return true;
}

void COpBasketParamsWidget::fillCommandTable(const CCodeOrderParam &line, int tableType, const QString &tableText)
{
    const bool buy = isBuy(line.m_operationType);
    QWidget *modeWidget = nullptr;
    QWidget *otherBlock = nullptr;
    COpBasketStockParamsWidget *block = nullptr;
    if (m_commandOpType == TOT_ALL) {
        modeWidget = m_buySellWidget;
        if (m_buySellWidget)
            block = buy ? m_buySellWidget->getBuyParam() : m_buySellWidget->getSellParam();
        otherBlock = m_stockParams;
    } else if (m_commandOpType == TOT_CREDIT) {
        modeWidget = m_crdWidget;
        block = m_crdWidget ? m_crdWidget->getParamWidget() : nullptr;
    } else if (isConnectTab(m_commandOpType)) {
        modeWidget = m_ggtWidget;
        if (m_ggtWidget)
            block = buy ? m_ggtWidget->getBuyParam() : m_ggtWidget->getSellParam();
        otherBlock = m_stockParams;
    } else {
        modeWidget = m_stockParams;
        block = m_stockParams;
        otherBlock = m_buySellWidget;
    }
    if (modeWidget)
        modeWidget->setEnabled(true);
    if (block && block->table()) {
        CGlobalOrderParamTable *table = block->table();
        table->setEnableForCommand(line.m_orderType, false);
        table->loadFromOrderParam(line, true, QString());
        table->setTableUIByParams(tableType, tableText);
    }
    if (otherBlock)
        otherBlock->setEnabled(false);
}

void COpBasketParamsWidget::updateParamsByAccount()
{
    if (!m_accountsWidget)
        return;
    const QSet<QString> selected = m_accountsWidget->getSelectedAccounts();
    m_orderParams.erase(std::remove_if(m_orderParams.begin(), m_orderParams.end(),
                                       [&selected](const CCodeOrderParam &line) {
                                           return line.m_account
                                               && !selected.contains(QString::fromStdString(line.m_account->getKey()));
                                       }),
                        m_orderParams.end());
}

void COpBasketParamsWidget::setParities()
{
    if (!isConnectTab(m_tradeOpType) || !m_accountsWidget || !m_buttonsBar)
        return;
    const boost::shared_ptr<ttservice::IDataCenter> center = ttservice::TraderCenter::instance()->getDataCenter();
    double buyParity = 0.0;
    double sellParity = 0.0;
    for (const QString &key : m_accountsWidget->getDisplayedAccounts()) {
        const boost::shared_ptr<ttservice::CAccountData> data = center ? center->getAccountData(key.toStdString()) : nullptr;
        const auto rate = data ? boost::dynamic_pointer_cast<ttservice::CExchangeRate>(
                                     data->getData(ttservice::DATA_TYPE_EXCHANGE_RATE, ttservice::CExchangeRate().getKey()))
                               : nullptr;
        if (!rate)
            continue;
        // A rate the client has not filled yet prices nothing.
        buyParity = ttservice::isNoValue(rate->m_buyRate) ? 0.0 : (1 + rate->m_buyFloat) * rate->m_buyRate;
        sellParity = ttservice::isNoValue(rate->m_sellRate) ? 0.0 : (1 + rate->m_sellFloat) * rate->m_sellRate;
        break;
    }
    m_buttonsBar->setParities(buyParity, sellParity);
}

} // namespace TC
