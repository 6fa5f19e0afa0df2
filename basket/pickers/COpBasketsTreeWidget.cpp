#include "COpBasketsTreeWidget.h"

#include <QHideEvent>
#include <QShowEvent>
#include <QTreeWidget>

namespace TC {

COpBasketsTreeWidget::COpBasketsTreeWidget(QWidget *parent)
    : WK::CBaseWidget(QStringLiteral("COpBasketsTreeWidget"), false, parent)
{
    m_treeWidget = m_logic.createTreeWidget(this);

    connect(m_treeWidget, &QTreeWidget::itemClicked, this, &COpBasketsTreeWidget::slotItemClicked);
}

COpBasketsTreeWidget::~COpBasketsTreeWidget() = default;

void COpBasketsTreeWidget::addBatchFlag(ETempBatchOrderFlags flags)
{
    m_logic.addBatchFlag(flags);
}

void COpBasketsTreeWidget::reSetFlag(ETempBatchOrderFlags flags)
{
    m_logic.reSetFlag(flags);
}

ETempBatchOrderFlags COpBasketsTreeWidget::getAllFlag() const
{
    return m_logic.getAllFlag();
}

void COpBasketsTreeWidget::setOperationType(ttservice::EOperationType op)
{
    m_logic.setOperationType(op);
}

void COpBasketsTreeWidget::setBrokerType(ttservice::EVQBrokerType type)
{
    m_logic.setBrokerType(type);
}

ttservice::EVQBrokerType COpBasketsTreeWidget::getBrokerType() const
{
    return m_logic.getBrokerType();
}

void COpBasketsTreeWidget::setFilterText(const QString &text)
{
    setFilterText(text, m_treeWidget->topLevelItem(0));
}

void COpBasketsTreeWidget::setFilterText(const QString &text, QTreeWidgetItem *item)
{
    COpBasketsTreeLogic::setFilterText(text, item);
}

bool COpBasketsTreeWidget::canCustom() const
{
    return m_logic.canCustom(m_treeWidget->currentItem());
}

void COpBasketsTreeWidget::hideTree(QTreeWidgetItem *item)
{
    if (const auto choice = COpBasketsTreeLogic::choiceOf(item))
        deliverEvent(COpBasketsTreeLogic::EVENT_BASKET_CHOSEN, 0, choice->flag, choice->name, nullptr);
}

void COpBasketsTreeWidget::themeChanged()
{
    WK::CBaseWidget::themeChanged();
    m_logic.applyTheme(m_treeWidget);
}

void COpBasketsTreeWidget::slotItemClicked(QTreeWidgetItem *item, int)
{
    // The hide already delivers the current item, which a click has just made this one; the
    // owner is built to land on the same state when the choice then comes a second time.
    hide();
    hideTree(item);
}

void COpBasketsTreeWidget::createTree()
{
    m_logic.createTree(m_treeWidget);
}

void COpBasketsTreeWidget::showEvent(QShowEvent *event)
{
    WK::CBaseWidget::showEvent(event);
    // Refilled on every opening so that baskets saved or removed meanwhile are seen; a window
    // system's own show (a restore) is no opening.
    if (!event->spontaneous())
        createTree();
}

void COpBasketsTreeWidget::hideEvent(QHideEvent *event)
{
    WK::CBaseWidget::hideEvent(event);
    // Leaving the tree with a current item chooses it; a minimised window chooses nothing.
    if (!event->spontaneous())
        hideTree(m_treeWidget->currentItem());
}

} // namespace TC
