#include "COpBasketParamsWidget.h"

#include "COpBasketReplaceStockToolBar.h"

#include "COpAccountsWidget.h"
#include "CWidgetList.h"

#include <QKeyEvent>

namespace TC {
namespace {

constexpr int kShortcutBuy = 400;
constexpr int kShortcutSell = 401;

} // namespace

COpBasketParamsWidget::COpBasketParamsWidget(QWidget *parent)
    : WK::CBaseWidget(QStringLiteral("basket_params_widget"), false, parent)
{
    setMinimumWidth(200);
    setFocusPolicy(static_cast<Qt::FocusPolicy>(11));
    createUi();
}

COpBasketParamsWidget::~COpBasketParamsWidget() = default;

void COpBasketParamsWidget::createUi()
{
    auto *root = new WK::CWidgetList(Qt::Vertical, this);
    root->setMargin(0, 0, 0, 0);
    root->setSpacing(0);
    m_accountsWidget = new COpAccountsWidget(8, 1, 1, this);
    m_accountsWidget->setMinimumWidth(340);
    m_accountsWidget->setTradeOpType(m_tradeOpType);
    root->addStretchWidget(m_accountsWidget, 1, 3, 0);
    setInnerStretchWidget(root, 0, 0, 0, 0);
}

QString COpBasketParamsWidget::param() const
{
    return m_savedParam;
}

void COpBasketParamsWidget::setParam(const QString &text)
{
    m_savedParam = text;
}

void COpBasketParamsWidget::setCurrentOperationType(quint64 word)
{
    if ((word & TOT_ALL_TABS_MASK) == 0)
        return;
    m_tradeOpType = word;
    if (m_accountsWidget) {
        m_accountsWidget->setTradeOpType(word);
        m_accountsWidget->loadAccountGroupSettings();
    }
    if (m_replaceToolBar)
        m_replaceToolBar->setTradeOperationType(word);
    deliverEvent(1072, 0, static_cast<int>(word), QString(), nullptr);
}

void COpBasketParamsWidget::loadAccountGroupSettings()
{
    if (m_accountsWidget)
        m_accountsWidget->loadAccountGroupSettings();
}

void COpBasketParamsWidget::refreshAccounts()
{
    if (m_accountsWidget)
        m_accountsWidget->refreshAccounts();
}

void COpBasketParamsWidget::updateBasketSetting()
{
}

void COpBasketParamsWidget::updateBasketConfirmData()
{
}

void COpBasketParamsWidget::fillComposeLastBasket(const QString &)
{
}

void COpBasketParamsWidget::batchPositions(const QVector<CPositionParam> &positions, QFlags<ETempBatchOrderFlag> flags)
{
    m_batchPositions[static_cast<int>(flags)] = positions;
}

void COpBasketParamsWidget::doShortCutOrder(int key, QKeyEvent *)
{
    if (key != kShortcutBuy && key != kShortcutSell)
        return;
    setFocus();
    const quint64 word = key == kShortcutBuy ? TOT_BUY : TOT_SELL;
    if (m_tradeOpType != word) {
        // The first press only switches the tab, so that the user sees what the next one sends.
        handleEvent(5, static_cast<int>(word), 0, QString(), nullptr);
        return;
    }
}

void COpBasketParamsWidget::setCommand(const std::string &key, quint64 word)
{
    m_commandKey = key;
    m_commandOpType = word;
}

void COpBasketParamsWidget::setEnableForCommand(bool enable)
{
    m_commandEnabled = enable;
}

bool COpBasketParamsWidget::checkPatch(const QString &, quint64 &, bool)
{
    return false;
}

void COpBasketParamsWidget::setBatchOp(QFlags<ETempBatchOrderFlag>, bool)
{
}

void COpBasketParamsWidget::saveHedgeParam()
{
}

void COpBasketParamsWidget::loadHedgeParam()
{
}

void COpBasketParamsWidget::resetSizingToOneCopy()
{
}

void COpBasketParamsWidget::selectAccount(const QString &account)
{
    if (m_accountsWidget)
        m_accountsWidget->setSelectedAccount(account, true);
}

void COpBasketParamsWidget::setReplaceToolBar(COpBasketReplaceStockToolBar *bar)
{
    m_replaceToolBar = bar;
}

bool COpBasketParamsWidget::handleEvent(int event, int id, int value, QString text, void *data)
{
    if (event == 5 && (static_cast<quint64>(id) & TOT_ALL_TABS_MASK) != 0) {
        setCurrentOperationType(static_cast<quint64>(id));
        return true;
    }
    return WK::CBaseWidget::handleEvent(event, id, value, text, data);
}

void COpBasketParamsWidget::slot_bascketChange(QKeyEvent *)
{
}

void COpBasketParamsWidget::slotRemoveData(QVector<TC::CBasketStockData>)
{
}

} // namespace TC
