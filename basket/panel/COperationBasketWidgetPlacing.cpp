// The moment an order leaves the panel: the checks of an order button's press, then the hand-over
// of the form's list to the trading service.
#include "COperationBasketWidget.h"

#include "COpBasketParamsEditWidget.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketStockParamsWidget.h"
#include "COpBasketsComboBox.h"
#include "OrderSettling.h"

#include "CGlobalOrderParamTable.h"

#include "CAlgoParamDataHelper.h"
#include "CAlgorithmAuthorityConfig.h"
#include "CAlgorithmHelpDialog.h"
#include "CBasketHedgeManager.h"
#include "CComboBox.h"
#include "CLogCenter.h"
#include "CMsgService.h"
#include "COpBasketFutureParamsWidget.h"
#include "CTradeClient.h"
#include "CTradeStatistics.h"
#include "CUserConfig.h"
#include "CMessageBox.h"
#include "CTimeService.h"
#include "CVqAlgorithmHelpDialog.h"
#include "DataHelper.h"
#include "TradeUnits.h"

#include "Bson.h"

#include <boost/format.hpp>

#include <QPointer>
#include <QSet>

namespace TC {
namespace {

using ttservice::CCodeOrderParam;

constexpr int kTraderRole = 200;
constexpr EBasketDoOperationType kRefused = BDOT_NONE;
constexpr EBasketDoOperationType kPlainOrder = BDOT_NORMAL;
// The third answer of fillAlgoParam: the list goes as the algorithm platform's order.
constexpr auto kAlgorithmOrder = static_cast<EBasketDoOperationType>(1);
// The position switch strategy: its buy and sell legs must both run it.
const std::string kSwitchStrategy = "SWITCH";
// The same lines sent again within this many seconds are asked about first.
constexpr long long kRepeatSeconds = 60;

void showSettingMsg(const QString &text, int type, bool forceSecondFlag = false)
{
    const CMsgSetting setting = getUserConfig()->msgSetting(type);
    getMsgService()->showMsg(text, EMsgTypeDef(type), ttservice::MsgLevel(1), setting.m_showPopup,
                             forceSecondFlag || setting.m_playSound, QString());
}

} // namespace

bool COperationBasketWidget::placeOrderRequested(int value)
{
    QString message;
    QString operationName;
    if (m_paramsWidget && !m_paramsWidget->check(message, operationName)) {
        showSettingMsg(message, 4);
        return true;
    }
    TT_LOG_INFO(this, "TC::COperationBasketWidget::handleEvent", "basket\\COperationBasketWidget",
                boost::format("User %1% do basket operation %2%") % getUserConfig()->getUserName().toStdString()
                    % operationName.toStdString());

    const std::vector<CCodeOrderParam> orders =
        m_editWidget ? m_editWidget->getOrderParams() : std::vector<CCodeOrderParam>();
    if (orders.empty()) {
        showSettingMsg(QStringLiteral("您选择的篮子不包含任何股票!"), 1);
        return true;
    }

    std::vector<CCodeOrderParam> checked = orders;
    const bool valid = !m_paramsWidget || m_paramsWidget->checkOrderValid(checked);
    if ((!valid && m_paramsWidget && m_editWidget) || value == -1) {
        // Nothing is placed: the user sees the list with no volumes and sizes it anew.
        showSettingMsg(QStringLiteral("可用资金不足!"), 4, true);
        if (m_paramsWidget && m_editWidget) {
            std::vector<CCodeOrderParam> *list = m_paramsWidget->getCodeOrderParams();
            for (CCodeOrderParam &line : *list)
                line.m_volume = 0;
            m_paramsWidget->clearBasketNum();
            const bool canCustom = m_paramsWidget->basketsCombo() && m_paramsWidget->basketsCombo()->canCustom();
            m_editWidget->loadParams(list, m_paramsWidget->getTradeOpType(), canCustom);
        }
        return true;
    }

    // Lines that touch off together must share how they are worked, or they would not.
    const CCodeOrderParam &first = orders.front();
    bool anyTouch = false;
    bool differs = false;
    for (const CCodeOrderParam &line : orders) {
        anyTouch = anyTouch || line.m_touchType != 0;
        differs = differs || line.m_orderType != first.m_orderType || line.m_orderInterval != first.m_orderInterval
            || line.m_cancelInterval != first.m_cancelInterval;
    }
    const WK::CComboBox *delegateMode = m_paramsWidget ? m_paramsWidget->entrustCombo() : nullptr;
    if (anyTouch && differs && m_paramsWidget && m_paramsWidget->getTradeOpType() == TOT_ALL && delegateMode
        && delegateMode->currentIndex() == 0) {
        showSettingMsg(QStringLiteral("一键买卖进行全部触价委托时,请统一算法类型,下单间隔,撤单间隔!"), 1);
        return true;
    }
    doOperation();
    return true;
}

void COperationBasketWidget::showAlgoRefusal(const QString &text) const
{
    // The pop-up is forced here: the user must see why nothing left.
    getMsgService()->showMsg(text, EMsgTypeDef(4), ttservice::MsgLevel(1), true,
                             getUserConfig()->msgSetting(4).m_playSound, QString());
}

EBasketDoOperationType COperationBasketWidget::fillAlgoParam(std::vector<CCodeOrderParam> &orders, std::string &paramString,
                                                             ttservice::ETradePlatform &platform)
{
    const CGlobalOrderParamTable *table = m_paramsWidget ? m_paramsWidget->getAlgorithmTable() : nullptr;
    if (!table)
        return kPlainOrder;

    const quint64 tab = m_paramsWidget->getTradeOpType();
    if (tab != TOT_ALL && tab != TOT_HGT && tab != TOT_SGT && tab != TOT_ONEKEY_FUTURE) {
        const std::string strategy = table->getAlgoStrategyType();
        if (!CAlgorithmAuthorityConfig::instance().bCheckAuthority(orders, strategy, ""))
            return kRefused;
        platform = ttservice::DataHelper::getPlatformTypeByOrderType(table->orderType());
        paramString = table->getAlgParamsStr(orders);
        return kAlgorithmOrder;
    }

    // On one-key futures the buy block stands for operation 0, elsewhere for a plain buy.
    const COpBasketStockParamsWidget *buyBlock = m_paramsWidget->getParamWidget(tab == TOT_ONEKEY_FUTURE ? 0 : 18);
    const COpBasketStockParamsWidget *sellBlock = m_paramsWidget->getParamWidget(19);
    const CGlobalOrderParamTable *buyTable = buyBlock ? buyBlock->table() : nullptr;
    const CGlobalOrderParamTable *sellTable = sellBlock ? sellBlock->table() : nullptr;
    if (!buyTable || !sellTable)
        return kPlainOrder;

    paramString.clear();
    double buyCount = 0;
    double sellCount = 0;
    for (size_t i = 0; i < orders.size(); ++i) {
        if (i > 0)
            paramString += '@';
        if (ttservice::DataHelper::isBuy(orders[i].m_operationType)) {
            paramString += buyTable->getAlgParamsStr(orders[i]);
            buyCount += 1;
        } else {
            paramString += sellTable->getAlgParamsStr(orders[i]);
            sellCount += 1;
        }
    }

    // A one-sided list over a plain table goes as a plain order, though with the string filled.
    auto oneSide = [&](const CGlobalOrderParamTable *side) {
        if (!side->isTrdParamTable())
            return kPlainOrder;
        const std::string strategy = side->getAlgoStrategyType();
        if (strategy == kSwitchStrategy) {
            showAlgoRefusal(QStringLiteral("一键买卖,换仓策略仅支持同买同卖操作"));
            return kRefused;
        }
        if (!CAlgorithmAuthorityConfig::instance().bCheckAuthority(orders, strategy, ""))
            return kRefused;
        platform = ttservice::DataHelper::getPlatformTypeByOrderType(side->orderType());
        return kAlgorithmOrder;
    };
    if (ttservice::isZero(buyCount))
        return oneSide(sellTable);
    if (ttservice::isZero(sellCount))
        return oneSide(buyTable);

    if (buyTable->orderType() != sellTable->orderType()) {
        showAlgoRefusal(QStringLiteral("仅支持买入卖出,相同三方算法下单"));
        return kRefused;
    }
    const std::string buyStrategy = buyTable->getAlgoStrategyType();
    const std::string sellStrategy = sellTable->getAlgoStrategyType();
    if (!CAlgorithmAuthorityConfig::instance().bCheckAuthority(orders, buyStrategy, sellStrategy))
        return kRefused;
    if (buyStrategy != sellStrategy && (buyStrategy == kSwitchStrategy || sellStrategy == kSwitchStrategy)) {
        showAlgoRefusal(QStringLiteral("一键买卖,买卖双方均需设置换仓策略，否则两边进度不能有效控制"));
        return kRefused;
    }
    platform = ttservice::DataHelper::getPlatformTypeByOrderType(buyTable->orderType());
    return kAlgorithmOrder;
}

void COperationBasketWidget::slotPlaceAutoHedgeTaskForCommand(boost::shared_ptr<ttservice::COrderCommand> command)
{
    if (!command || command->m_hedgeBson.objsize() < 6)
        return;
    std::vector<CCodeOrderParam> orders = command->m_orders;
    for (CCodeOrderParam &line : orders) {
        // A traded volume that never came counts as nothing traded.
        const double traded = ttservice::hasValue(line.m_tradedVolume) && line.m_tradedVolume > 0 ? line.m_tradedVolume : 0.0;
        line.m_volume -= static_cast<int64_t>(traded + 0.5);
        const bool futuresAccount = line.m_account && line.m_account->m_brokerType == ttservice::BROKER_TYPE_FUTURE;
        if (!futuresAccount) {
            const int unit = ttservice::getTradeMinUnit(line.m_stockInfo.m_market, line.m_stockInfo.m_stockCode);
            if (unit != 0)
                line.m_volume -= line.m_volume % unit;
        }
        line.m_tradedVolume = 0;
    }
    const bson::BSONObj hedgeObject = command->m_hedgeBson.getOwned();
    const QPointer<COperationBasketWidget> self(this);
    PlaceTasksCallback callback = [self, hedgeObject](const QVector<boost::shared_ptr<ttservice::TaskImp>> &tasks,
                                                      boost::shared_ptr<ttservice::CVqOrderTag> tag) {
        if (self)
            self->onPlaceTask(hedgeObject, tasks, tag);
    };
    CTradeClient::instance()->placeTasks(ttservice::EVqTraderType(4), ttservice::EVqHedgeType(1), command, orders,
                                         ttservice::EVqStopLossType(0), false, "", callback, -1, "", nullptr, "", 0);
}

void COperationBasketWidget::onPlaceTask(const bson::BSONObj &hedgeObject,
                                         const QVector<boost::shared_ptr<ttservice::TaskImp>> &,
                                         boost::shared_ptr<ttservice::CVqOrderTag> tag)
{
    if (!tag)
        return;
    ttservice::CBasketHedgeParam hedge;
    hedge.bsonValueFromObj(hedgeObject, true, nullptr);
    const std::string key = tag->m_orderTagKey + "____" + tag->m_orderTagName + "____" + std::to_string(tag->m_orderTagSeq);
    saveHedgeParam(key, hedge);
    Q_EMIT sigHedgeParam(tag, hedge);
}

void COperationBasketWidget::doOperation()
{
    if (!m_paramsWidget || !m_editWidget)
        return;
    COpBasketParamsWidget *form = m_paramsWidget;
    bool createPortfolio = getUserConfig()->hasPortfolio();
    const bool allowChange = form->getTraderChangeEnable();
    const int platform = form->getTradePlatform();
    std::string thirdParty = form->get3rdPartyTradeParam();

    m_editWidget->updateOrderParams();
    form->updateCodeOrderParam();
    CAlgorithmHelpDialog::tryHelp(*form->getCodeOrderParams());
    std::vector<CCodeOrderParam> orders = *form->getCodeOrderParams();

    if (platform == ttservice::TRADE_PLATFORM_REMAP) {
        for (CCodeOrderParam &line : orders) {
            const WK::CComboBox *delegateMode = form->entrustCombo();
            if (!delegateMode || delegateMode->currentIndex() != 1)
                continue;
            if (line.m_orderType == 0)
                line.m_orderType = ttservice::EOrderType(6);
            else if (line.m_orderType == 1)
                line.m_orderType = ttservice::EOrderType(7);
        }
    }
    if (m_replaceToolBar) {
        createPortfolio = m_replaceToolBar->isCreatePortfolio();
        if (createPortfolio) {
            for (CCodeOrderParam &line : orders)
                line.m_portfolioName = m_replaceToolBar->getPortfolioName();
        }
    }
    // Connect accounts cannot hold a portfolio.
    if (!orders.empty() && orders.front().m_account
        && (orders.front().m_account->m_brokerType == ttservice::BROKER_TYPE_SGT
            || orders.front().m_account->m_brokerType == ttservice::BROKER_TYPE_HGT))
        createPortfolio = false;

    if (!settleBeforeSending(orders))
        return;
    const QString fingerprint = orderFingerprint(orders);
    const bool placed = getUserConfig()->getRole() == kTraderRole
        ? placeForCommand(orders, thirdParty, platform)
        : placeAsManager(orders, thirdParty, platform, createPortfolio, allowChange);
    if (placed) {
        m_lastSentFingerprint = fingerprint;
        m_lastSentTime = getTimeService()->currentTime();
    }
}

bool COperationBasketWidget::settleBeforeSending(std::vector<CCodeOrderParam> &orders)
{
    // No exchange takes a price between two ticks or a line of nothing. A line of 0 stays on
    // screen, where the trader sees why it is 0, but never leaves.
    putPricesOnTick(orders);
    const int dropped = dropEmptyLines(orders);
    if (orders.empty()) {
        showSettingMsg(QStringLiteral("没有可下单的委托: 勾选的委托数量均为0, 未下单"), 1);
        return false;
    }
    const QString shortOfMoney = m_paramsWidget->accountsShortOfMoney(orders);
    if (!shortOfMoney.isEmpty()) {
        showSettingMsg(shortOfMoney, 4, true);
        return false;
    }
    if (dropped > 0)
        TT_LOG_INFO(this, "TC::COperationBasketWidget::doOperation", "basket\\COperationBasketWidget",
                    boost::format("%1% lines of volume 0 not sent") % dropped);

    // The same lines pressed again within a minute are most likely a second press, not a
    // second order: ask before sending them twice.
    const long long now = getTimeService()->currentTime();
    if (!m_lastSentFingerprint.isEmpty() && now - m_lastSentTime < kRepeatSeconds && now >= m_lastSentTime
        && orderFingerprint(orders) == m_lastSentFingerprint) {
        const QMessageBox::StandardButton answer = WK::CMessageBox::warning(
            0, this, QStringLiteral("重复下单"),
            QStringLiteral("这些委托(相同账号、代码、方向、数量)刚刚已经下过单, 确定再下一次吗?"),
            QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
        if (answer != QMessageBox::Yes)
            return false;
    }
    return true;
}

bool COperationBasketWidget::placeAsManager(std::vector<CCodeOrderParam> &orders, std::string thirdParty, int platform,
                                            bool createPortfolio, bool allowChange)
{
    COpBasketParamsWidget *form = m_paramsWidget;
    const std::string basketName = form->currentBasketName().toStdString();
    const std::string commandLog = form->getCmdLog();
    auto place = [&](ttservice::EVqHedgeType hedgeType, const bson::BSONObj &hedgeBson, int tradePlatform) {
        CTradeClient::instance()->placeCommands(
            ttservice::EVqTraderType(4), hedgeType, ttservice::EFtSpecBtnBarType(0), orders, {},
            ttservice::EVqStopLossType(0), false, true, createPortfolio, {}, hedgeBson, "",
            ttservice::ETradePlatform(tradePlatform), thirdParty, ttservice::EVqLimitedPriceType(allowChange ? 1 : 0),
            basketName, QString(), ttservice::EOrderStrategyType(-1), false, false, -1, "", {},
            ttservice::EtfHedgeStatus(-1), commandLog, bson::BSONObj());
    };

    if (form->autoHedge()) {
        ttservice::CBasketHedgeParam hedge;
        form->fillHedgeParam(hedge);
        bson::BSONObjBuilder builder;
        hedge.appendElements(builder);
        TT_LOG_INFO(this, "TC::COperationBasketWidget::doOperation", "basket\\COperationBasketWidget",
                    boost::format("placeCommands: [manual] basket hedge. type=%1%") % hedge.m_hedgeType);
        const CGlobalOrderParamTable *table = form->getAlgorithmTable();
        if (!table) {
            place(ttservice::EVqHedgeType(2), builder.obj(), platform);
            return true;
        }
        const std::vector<CCodeOrderParam> fresh = *form->getCodeOrderParams();
        thirdParty = table->getAlgParamsStr(fresh);
        if (!CAlgorithmAuthorityConfig::instance().bCheckAuthority(fresh, table->getAlgoStrategyType(), ""))
            return false;
        // The form's list leaves, not the adjusted copy: a hedged algorithm order is sized by the
        // algorithm, the copy's last adjustments do not reach it. It is settled all the same.
        std::vector<CCodeOrderParam> live = *form->getCodeOrderParams();
        putPricesOnTick(live);
        dropEmptyLines(live);
        CTradeClient::instance()->placeCommands(
            ttservice::EVqTraderType(4), ttservice::EVqHedgeType(2), ttservice::EFtSpecBtnBarType(0), live, {},
            ttservice::EVqStopLossType(0), false, true, createPortfolio, {}, builder.obj(), "",
            ttservice::DataHelper::getPlatformTypeByOrderType(table->orderType()), thirdParty,
            ttservice::EVqLimitedPriceType(allowChange ? 1 : 0), basketName, QString(), ttservice::EOrderStrategyType(-1),
            false, false, -1, "", {}, ttservice::EtfHedgeStatus(-1), commandLog, bson::BSONObj());
        return true;
    }

    ttservice::ETradePlatform algoPlatform = ttservice::TRADE_PLATFORM_NONE;
    const int result = fillAlgoParam(orders, thirdParty, algoPlatform);
    TT_LOG_INFO(this, "TC::COperationBasketWidget::doOperation", "basket\\COperationBasketWidget",
                boost::format("placeCommands: [manual] basket compose. eTradePlatform = %1%") % algoPlatform);
    if (result == 0) {
        place(ttservice::EVqHedgeType(1), bson::BSONObj(), platform);
        return true;
    }
    if (result == 1) {
        if (orders.front().m_orderType == ttservice::ORDER_TYPE_INSTRUCTION)
            CVqAlgorithmHelpDialog::tryHelp(orders);
        place(ttservice::EVqHedgeType(1), bson::BSONObj(), algoPlatform);
        return true;
    }
    return false;
}

bool COperationBasketWidget::placeForCommand(std::vector<CCodeOrderParam> &orders, std::string thirdParty, int platform)
{
    const boost::shared_ptr<ttservice::COrderCommand> command = CTradeClient::instance()->getCommandByKey(m_commandKey);
    if (!command || m_paramsWidget->isCommandHandedOn()) {
        // The list on screen is that of an instruction that is no longer this trader's.
        showSettingMsg(QStringLiteral("该指令已转交他人、已结束或已撤销, 不能再执行, 未下单"), 4);
        return false;
    }
    // Only the instruction's own lines may leave as its tasks: a list chosen since (positions
    // handed over, a paste) is not this instruction.
    QSet<QString> own;
    auto lineKey = [](const CCodeOrderParam &line) {
        return QString::fromStdString((line.m_account ? line.m_account->getKey() : std::string()) + '|'
                                      + line.m_stockInfo.m_market + line.m_stockInfo.m_stockCode);
    };
    for (const CCodeOrderParam &line : command->m_orders)
        own.insert(lineKey(line));
    for (const CCodeOrderParam &line : orders) {
        if (!own.contains(lineKey(line))) {
            showSettingMsg(QStringLiteral("列表中有不属于指令 %1 的委托(%2 %3), 未下单; 请重新载入该指令")
                               .arg(QString::fromStdString(command->m_commandKey),
                                    QString::fromStdString(line.m_account ? line.m_account->getKey() : std::string()),
                                    QString::fromStdString(line.m_stockInfo.m_stockCode)),
                           4);
            return false;
        }
    }

    if (!m_paramsWidget->autoHedge()) {
        // A refusal of the algorithm check does not stop an instruction's execution.
        auto algoPlatform = static_cast<ttservice::ETradePlatform>(platform);
        fillAlgoParam(orders, thirdParty, algoPlatform);
        platform = algoPlatform;
        QMap<int, boost::shared_ptr<ttservice::COrderCommand>> commands;
        commands.insert(command->m_commandId, command);
        CAlgoParamDataHelper::resetAlgoParam(thirdParty, commands);
    }

    ttservice::CBasketHedgeParam hedge;
    hedge.bsonValueFromObj(command->m_hedgeBson, true, nullptr);
    if (command->m_traderType == 4 && command->m_hedgeType == 2 && hedge.m_enabled) {
        TT_LOG_INFO(this, "TC::COperationBasketWidget::doOperation", "basket\\COperationBasketWidget",
                    boost::format("trader placeCommands: [manual] basket hedge. type=%1%") % hedge.m_hedgeType);
        if (hedge.m_hedgeType != -1) {
            CBasketHedgeManager::instance()->onBasketCommand(command, true);
            return true;
        }
        if (!CTradeClient::instance()->confirmTask(this, orders, false))
            return false;
        CTradeClient::instance()->placeTasks(command->m_traderType, ttservice::EVqHedgeType(1), command, orders,
                                             command->m_stopLossType, true, "", {}, -1, thirdParty, nullptr, "",
                                             m_subCommandId);
        afterTasksSent(orders);
        return true;
    }
    TT_LOG_INFO(this, "TC::COperationBasketWidget::doOperation", "basket\\COperationBasketWidget",
                boost::format("trader placeCommands: [manual] basket compose."));
    if (!CTradeStatistics::instance()->checkMinAndInterval(orders))
        return false;
    CTradeClient::instance()->placeTasks(command->m_traderType, command->m_hedgeType, command, orders,
                                         command->m_stopLossType, true, "", {}, -1, thirdParty, nullptr, "",
                                         m_subCommandId);
    afterTasksSent(orders);
    return true;
}

void COperationBasketWidget::afterTasksSent(const std::vector<CCodeOrderParam> &sent)
{
    // The instruction's next sizing is of what is left after these tasks; the table shows it at
    // once, so that a second press cannot send the same remainder again.
    m_paramsWidget->noteSentForCommand(sent);
    m_paramsWidget->updateBasketConfirmData();
}

} // namespace TC
