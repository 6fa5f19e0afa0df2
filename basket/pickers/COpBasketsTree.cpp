#include "COpBasketsTree.h"

#include <QHideEvent>
#include <QShowEvent>
#include <QTreeWidget>

namespace TC {

COpBasketsTree::COpBasketsTree(QWidget *parent)
    : WK::CBaseDialog(parent, COpBasketsTreeLogic::toolWindowFlags())
{
    setObjectName(QStringLiteral("COpBasketsTree"));
    m_treeWidget = m_logic.createTreeWidget(this);

    connect(m_treeWidget, &QTreeWidget::itemClicked, this, &COpBasketsTree::slotItemClicked);
}

COpBasketsTree::~COpBasketsTree() = default;

void COpBasketsTree::addBatchFlag(ETempBatchOrderFlags flags)
{
    m_logic.addBatchFlag(flags);
}

void COpBasketsTree::reSetFlag(ETempBatchOrderFlags flags)
{
    m_logic.reSetFlag(flags);
}

ETempBatchOrderFlags COpBasketsTree::getAllFlag() const
{
    return m_logic.getAllFlag();
}

void COpBasketsTree::setOperationType(ttservice::EOperationType op)
{
    m_logic.setOperationType(op);
}

void COpBasketsTree::setBrokerType(ttservice::EVQBrokerType type)
{
    m_logic.setBrokerType(type);
}

ttservice::EVQBrokerType COpBasketsTree::getBrokerType() const
{
    return m_logic.getBrokerType();
}

void COpBasketsTree::setFilterText(const QString &text)
{
    setFilterText(text, m_treeWidget->topLevelItem(0));
}

void COpBasketsTree::setFilterText(const QString &text, QTreeWidgetItem *item)
{
    COpBasketsTreeLogic::setFilterText(text, item);
}

bool COpBasketsTree::canCustom() const
{
    return m_logic.canCustom(m_treeWidget->currentItem());
}

void COpBasketsTree::setAutoActivate(bool autoActivate)
{
    setAttribute(Qt::WA_ShowWithoutActivating, !autoActivate);
}

void COpBasketsTree::hideTree(QTreeWidgetItem *item)
{
    if (const auto choice = COpBasketsTreeLogic::choiceOf(item))
        deliverEvent(COpBasketsTreeLogic::EVENT_BASKET_CHOSEN, 0, choice->flag, choice->name, nullptr);
}

void COpBasketsTree::themeChanged()
{
    WK::CBaseDialog::themeChanged();
    m_logic.applyTheme(m_treeWidget);
}

void COpBasketsTree::slotItemClicked(QTreeWidgetItem *item, int)
{
    // The hide already delivers the current item, which a click has just made this one; the
    // owner is built to land on the same state when the choice then comes a second time.
    hide();
    hideTree(item);
}

void COpBasketsTree::createTree()
{
    m_logic.createTree(m_treeWidget);
}

void COpBasketsTree::showEvent(QShowEvent *event)
{
    WK::CBaseDialog::showEvent(event);
    // Refilled on every opening so that baskets saved or removed meanwhile are seen; a window
    // system's own show (a restore) is no opening.
    if (!event->spontaneous())
        createTree();
}

void COpBasketsTree::hideEvent(QHideEvent *event)
{
    WK::CBaseDialog::hideEvent(event);
    // Leaving the tree with a current item chooses it; a minimised window chooses nothing.
    if (!event->spontaneous())
        hideTree(m_treeWidget->currentItem());
}

} // namespace TC
