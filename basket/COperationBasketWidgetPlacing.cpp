// The moment an order leaves the panel: the checks of an order button's press, then the hand-over
// of the form's list to the trading service.
#include "COperationBasketWidget.h"

#include "COpBasketParamsEditWidget.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketsComboBox.h"

#include "CAlgoParamDataHelper.h"
#include "CAlgorithmHelpDialog.h"
#include "CBasketHedgeManager.h"
#include "CComboBox.h"
#include "CLogCenter.h"
#include "CMsgService.h"
#include "COpBasketFutureParamsWidget.h"
#include "CTradeClient.h"
#include "CTradeStatistics.h"
#include "CUserConfig.h"
#include "CVqAlgorithmHelpDialog.h"

#include "Bson.h"

#include <boost/format.hpp>

namespace TC {
namespace {

using ttservice::CCodeOrderParam;

constexpr int kTraderRole = 200;

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

int COperationBasketWidget::fillAlgoParam(std::vector<CCodeOrderParam> &, std::string &, int &)
{
    // Without an algorithm table on the tab the list goes as a plain basket order.
    return 0;
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

    if (getUserConfig()->getRole() == kTraderRole)
        placeForCommand(orders, thirdParty, platform);
    else
        placeAsManager(orders, thirdParty, platform, createPortfolio, allowChange);
}

void COperationBasketWidget::placeAsManager(std::vector<CCodeOrderParam> &orders, std::string thirdParty, int platform,
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
        // An algorithm table would send the form's live list with its own parameters; the plain
        // hedged basket sends the copy.
        place(ttservice::EVqHedgeType(2), builder.obj(), platform);
        return;
    }

    int algoPlatform = 0;
    const int result = fillAlgoParam(orders, thirdParty, algoPlatform);
    TT_LOG_INFO(this, "TC::COperationBasketWidget::doOperation", "basket\\COperationBasketWidget",
                boost::format("placeCommands: [manual] basket compose. eTradePlatform = %1%") % algoPlatform);
    if (result == 0) {
        place(ttservice::EVqHedgeType(1), bson::BSONObj(), platform);
    } else if (result == 1) {
        if (orders.front().m_orderType == ttservice::ORDER_TYPE_INSTRUCTION)
            CVqAlgorithmHelpDialog::tryHelp(orders);
        place(ttservice::EVqHedgeType(1), bson::BSONObj(), algoPlatform);
    }
}

void COperationBasketWidget::placeForCommand(std::vector<CCodeOrderParam> &orders, std::string thirdParty, int platform)
{
    const boost::shared_ptr<ttservice::COrderCommand> command = CTradeClient::instance()->getCommandByKey(m_commandKey);
    if (!command)
        return; // an instruction handed elsewhere meanwhile: there is nothing to execute

    if (!m_paramsWidget->autoHedge()) {
        // A refusal of the algorithm check does not stop an instruction's execution.
        fillAlgoParam(orders, thirdParty, platform);
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
            return;
        }
        if (!CTradeClient::instance()->confirmTask(this, orders, false))
            return;
        CTradeClient::instance()->placeTasks(command->m_traderType, ttservice::EVqHedgeType(1), command, orders,
                                             command->m_stopLossType, true, "", {}, -1, thirdParty, nullptr, "",
                                             m_subCommandId);
        return;
    }
    TT_LOG_INFO(this, "TC::COperationBasketWidget::doOperation", "basket\\COperationBasketWidget",
                boost::format("trader placeCommands: [manual] basket compose."));
    if (!CTradeStatistics::instance()->checkMinAndInterval(orders))
        return;
    CTradeClient::instance()->placeTasks(command->m_traderType, command->m_hedgeType, command, orders,
                                         command->m_stopLossType, true, "", {}, -1, thirdParty, nullptr, "",
                                         m_subCommandId);
}

} // namespace TC
