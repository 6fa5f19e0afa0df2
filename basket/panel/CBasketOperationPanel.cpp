#include "CBasketOperationPanel.h"

#include "COpBasketParamsWidget.h"
#include "COperationBasketWidget.h"

#include "CLogCenter.h"
#include "CTradeClient.h"
#include "CUserConfig.h"
#include "CWidgetList.h"

#include <boost/format.hpp>

#include <QLabel>
#include <QStringList>

#include <algorithm>
#include <initializer_list>

namespace TC {
namespace {

bool roleIn(int role, std::initializer_list<int> roles)
{
    return std::find(roles.begin(), roles.end(), role) != roles.end();
}

int userRole()
{
    return getUserConfig()->getRole();
}

} // namespace

bool CBasketOperationPanel::canSeeContent(int role)
{
    return roleIn(role, {90, 91, 101, 100, 200, 80});
}

bool CBasketOperationPanel::canReceiveCommand(int role)
{
    return roleIn(role, {90, 91, 200, 400, 80});
}

CBasketOperationPanel::CBasketOperationPanel(int panelId, QWidget *parent)
    : COperationPanel(panelId, parent)
{
    createUi();
    setTradeType(ttservice::VQ_TRADER_BASKET);
}

CBasketOperationPanel::~CBasketOperationPanel() = default;

void CBasketOperationPanel::createUi()
{
    auto *list = new WK::CWidgetList(Qt::Vertical, this);
    list->setMargin(0, 0, 0, 0);
    list->setSpacing(0);
    if (canSeeContent(userRole())) {
        m_basketWidget = new COperationBasketWidget(this);
        connect(m_basketWidget, &COperationBasketWidget::sigbasketSettingChanged,
                this, &COperationPanel::sigBasketSettingChangedStr);
        list->addStretchWidget(m_basketWidget, 1, 3, 0);
    } else {
        // A grey, empty dock would look broken: say why there is nothing to trade here.
        auto *reason = new QLabel(QStringLiteral("当前用户没有组合交易权限, 无法使用组合交易面板。\n如需使用, 请联系管理员开通权限。"),
                                  this);
        reason->setObjectName(QStringLiteral("no_rights_label"));
        reason->setAlignment(Qt::AlignCenter);
        reason->setWordWrap(true);
        list->addStretchWidget(reason, 1, 3, 0);
    }
    setInnerStretchWidget(list, 0, 0, 0, 0);
}

void CBasketOperationPanel::setParam(const QString &text)
{
    if (!m_basketWidget)
        return;
    // The outer pieces of the text belong to the client's panel frame; ours is the third.
    const QStringList parts = text.split(QLatin1Char('|'), Qt::KeepEmptyParts);
    m_basketWidget->setParam(parts.size() >= 3 ? parts.at(2) : text);
}

QString CBasketOperationPanel::param() const
{
    return m_basketWidget ? m_basketWidget->param() : QString();
}

bool CBasketOperationPanel::handleShortcut(int key, QKeyEvent *event)
{
    if (!m_basketWidget)
        return false;
    m_basketWidget->doShortCutOrder(key, event);
    return true;
}

double CBasketOperationPanel::timedAccountRefresh()
{
    const double start = utils::clockMSec();
    if (m_basketWidget)
        m_basketWidget->refreshAccounts();
    return utils::clockMSec() - start;
}

void CBasketOperationPanel::requestAccount(const ttservice::CAccountInfo &)
{
    if (!m_basketWidget)
        return;
    // Any account change refreshes the whole list: the form shows sums over all accounts.
    const double elapsed = timedAccountRefresh();
    TT_LOG_INFO(this, "TC::CBasketOperationPanel::requestAccount", "basket\\CBasketOperationPanel",
                boost::format("[PT] [panel_group|%1%] [panel|%2%] [trade_type|%3%], time = %4$.2f.")
                    % panelGroup() % panelId() % tradeType() % elapsed);
}

void CBasketOperationPanel::refreshAccounts()
{
    if (!m_basketWidget)
        return;
    const double elapsed = timedAccountRefresh();
    TT_LOG_INFO(this, "TC::CBasketOperationPanel::refreshAccounts", "basket\\CBasketOperationPanel",
                boost::format("[PT] [panel_group|%1%] [panel|%2%] [trade_type|%3%], time = %4$.2f, account_num = %5%.")
                    % panelGroup() % panelId() % tradeType() % elapsed % getUserConfig()->getAccountCount());
}

void CBasketOperationPanel::loadAccountGroupSettings()
{
    if (m_basketWidget)
        m_basketWidget->loadAccountGroupSettings();
}

void CBasketOperationPanel::batchPositions(QVector<CPositionParam> positions, QFlags<ETempBatchOrderFlag> flags)
{
    if (m_basketWidget)
        m_basketWidget->batchPositions(positions, flags);
}

void CBasketOperationPanel::setCurrentOperationType(quint64 word)
{
    // A word that names no tab of this panel is dropped without a message.
    if (m_basketWidget && (word & TOT_ALL_TABS_MASK) != 0)
        m_basketWidget->setCurrentOperationType(word);
}

boost::shared_ptr<ttservice::COrderCommand> CBasketOperationPanel::takeCommand(const std::string &key)
{
    if (!canReceiveCommand(userRole()) || !m_basketWidget)
        return nullptr;
    const boost::shared_ptr<ttservice::COrderCommand> command = CTradeClient::instance()->getCommandByKey(key);
    if (!command)
        return nullptr;
    // The key stays even for another trader type, so that a later enable call still matches it.
    m_commandKey = key;
    return command->m_traderType == ttservice::VQ_TRADER_BASKET ? command : nullptr;
}

void CBasketOperationPanel::setSingleCommand(std::string key)
{
    if (takeCommand(key))
        m_basketWidget->setCommand(key);
}

void CBasketOperationPanel::setSplitCommand(std::string key, const sSplitCmdInfo &info)
{
    if (takeCommand(key))
        m_basketWidget->setSplitCommand(key, info);
}

void CBasketOperationPanel::setEnableCmdOrder(std::string key, bool enable)
{
    if (!canReceiveCommand(userRole()) || !m_basketWidget || key != m_commandKey)
        return;
    const boost::shared_ptr<ttservice::COrderCommand> command = CTradeClient::instance()->getCommandByKey(key);
    if (command && command->m_traderType == ttservice::VQ_TRADER_BASKET)
        m_basketWidget->setEnableCmdOrder(key, enable);
}

void CBasketOperationPanel::patchCommand(QString text)
{
    if (m_basketWidget)
        m_basketWidget->patchCommand(text);
}

void CBasketOperationPanel::doSlotBasketSettingChanged()
{
    if (m_basketWidget)
        m_basketWidget->updateBasketSetting();
}

void CBasketOperationPanel::doSlotBasketContentChanged()
{
    if (m_basketWidget)
        m_basketWidget->updateBasketConfirmData();
}

void CBasketOperationPanel::doSlotFillComposeLastBasket(QString name)
{
    if (m_basketWidget)
        m_basketWidget->fillComposeLastBasket(name);
}

} // namespace TC
