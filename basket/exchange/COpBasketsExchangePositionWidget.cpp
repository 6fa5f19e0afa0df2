#include "COpBasketsExchangePositionWidget.h"

#include "CExChangeBasketTable.h"
#include "CExchangePositionAccountTreeWidget.h"
#include "CExchangePositionTable.h"

#include "CAccountData.h"
#include "CSplitContainer.h"
#include "CUserConfig.h"
#include "CWidgetList.h"
#include "IDataCenter.h"
#include "LuaModuleCtrl.h"
#include "TraderCenter.h"

#include <QTreeWidgetItem>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace TC {

COpBasketsExchangePositionWidget::COpBasketsExchangePositionWidget(QWidget *parent, quint64 word)
    : WK::CBaseWidget(QStringLiteral("exchange_position_widget"), false, parent)
    , m_tradeOpType(word)
{
    auto *list = new WK::CWidgetList(Qt::Horizontal, this);
    list->setMargin(0, 0, 0, 0);
    list->setSpacing(1);
    m_accountTree = new CExchangePositionAccountTreeWidget(list);
    auto *tables = new WK::CSplitContainer(Qt::Horizontal, 4, list);
    m_positionTable = new CExchangePositionTable(tables, word);
    m_basketTable = new CExChangeBasketTable(tables, word);

    tables->setWidgets(m_positionTable, m_basketTable, 300, 620);
    list->addFixedWidget(m_accountTree, 0, 0);
    list->addStretchWidget(tables, 1, 0, 0);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(list);

    connect(m_accountTree, &QTreeWidget::itemClicked, this, &COpBasketsExchangePositionWidget::slotAccountChange);
    connect(m_basketTable, &CExChangeBasketTable::sig_bascketChange, this, &COpBasketsExchangePositionWidget::sig_bascketChange);
}

COpBasketsExchangePositionWidget::~COpBasketsExchangePositionWidget() = default;

void COpBasketsExchangePositionWidget::setAccount(const QString &key)
{
    const auto center = ttservice::TraderCenter::instance()->getDataCenter();
    const auto data = center && !key.isEmpty() ? center->getAccountData(key.toStdString())
                                               : boost::shared_ptr<ttservice::CAccountData>();
    if (!data)
        return;
    m_account = data;
    m_positionTable->setAccount(data);
    m_basketTable->setAccount(data);
}

void COpBasketsExchangePositionWidget::setTradeOperationType(quint64 word)
{
    m_tradeOpType = word;
    m_positionTable->setTradeOperationType(word);
    m_basketTable->setTradeOperationType(word);
}

void COpBasketsExchangePositionWidget::setBrokerType(ttservice::EVQBrokerType type)
{
    m_basketTable->setBrokerType(type);
    if (luawrapper::LuaModuleCtrl::checkModule({"mdl_order", "mdl_order_portfolio"}))
        m_positionTable->updatePortfolioDataForCombo();
}

void COpBasketsExchangePositionWidget::unrequestAll()
{
    m_basketTable->unrequestAll();
}

void COpBasketsExchangePositionWidget::slotAccountChange(QTreeWidgetItem *item, int)
{
    if (!item)
        return;
    const QString key = item->data(0, CExchangePositionAccountTreeWidget::KEY_ROLE).toString();
    setAccount(key);
    deliverEvent(EVENT_ACCOUNT_CHOSEN, 0, 0, key, nullptr);
}

bool COpBasketsExchangePositionWidget::handleEvent(int event, int id, int value, QString text, void *data)
{
    if (event == 1149 && value == 2) {
        // Only the portfolio's accounts can hold its positions.
        m_positionTable->clearTable();
        const QSet<QString> accounts = getPortfolioAccounts(text, m_tradeOpType);
        // The account in view stays chosen when the portfolio has it.
        QSet<QString> selected;
        const auto info = m_account ? m_account->getAccountInfo() : boost::shared_ptr<ttservice::CAccountInfo>();
        if (info && accounts.contains(QString::fromStdString(info->getKey())))
            selected.insert(QString::fromStdString(info->getKey()));
        m_accountTree->setAccounts(accounts, selected);
        return true;
    }
    return WK::CBaseWidget::handleEvent(event, id, value, text, data);
}

} // namespace TC
