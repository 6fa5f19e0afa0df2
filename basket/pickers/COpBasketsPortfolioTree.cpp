#include "COpBasketsPortfolioTree.h"

#include "COpBasketsTreeLogic.h"

#include "CUiResource.h"
#include "CUserConfig.h"
#include "LuaModuleCtrl.h"

#include <QHeaderView>
#include <QHideEvent>
#include <QIcon>
#include <QShowEvent>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace TC {

COpBasketsPortfolioTree::COpBasketsPortfolioTree(quint64 word, QWidget *parent)
    : WK::CFloatWidget(false, parent)
    , m_word(word)
{
    setObjectName(QStringLiteral("COpBasketsPortfolioTree"));
    m_treeWidget = new QTreeWidget(this);
    m_treeWidget->setColumnCount(1);
    m_treeWidget->header()->hide();
    m_treeWidget->setStyleSheet(COpBasketsTreeLogic::styleSheet());

    setFixedSize(200, 180);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(5, 5, 5, 5);
    layout->setSpacing(0);
    layout->addWidget(m_treeWidget);

    connect(m_treeWidget, &QTreeWidget::itemDoubleClicked, this, &COpBasketsPortfolioTree::slotItemDoubleClicked);
}

COpBasketsPortfolioTree::~COpBasketsPortfolioTree() = default;

QString COpBasketsPortfolioTree::currentPositionText()
{
    return QStringLiteral("当前持仓");
}

void COpBasketsPortfolioTree::refreshData()
{
    createTree();
}

void COpBasketsPortfolioTree::slotItemDoubleClicked(QTreeWidgetItem *, int)
{
    // The hide reports the current item, which the double click has made this one.
    hide();
}

void COpBasketsPortfolioTree::createTree()
{
    m_treeWidget->clear();
    const QIcon leafIcon(WK::CUiResource::instance()->getPixmap(QStringLiteral("tc_img_tree_basket_icon")));

    auto *current = new QTreeWidgetItem(m_treeWidget, QStringList(currentPositionText()), ITEM_CURRENT_POSITION);
    current->setIcon(0, leafIcon);
    if (!luawrapper::LuaModuleCtrl::checkModule({"mdl_order", "mdl_order_portfolio"}))
        return;

    QIcon groupIcon;
    groupIcon.addPixmap(style()->standardPixmap(QStyle::StandardPixmap(21)), QIcon::Normal, QIcon::Off);
    groupIcon.addPixmap(style()->standardPixmap(QStyle::StandardPixmap(22)), QIcon::Normal, QIcon::On);
    auto *group = new QTreeWidgetItem(m_treeWidget, QStringList(QStringLiteral("投资组合")), ITEM_GROUP);
    group->setIcon(0, groupIcon);

    m_portfolioNames = TC::getPortfolioNameMap(m_word);
    for (auto it = m_portfolioNames.constBegin(); it != m_portfolioNames.constEnd(); ++it) {
        auto *item = new QTreeWidgetItem(group, QStringList(it.value()), ITEM_PORTFOLIO);
        item->setIcon(0, leafIcon);
    }
    group->setExpanded(true);
}

void COpBasketsPortfolioTree::showEvent(QShowEvent *event)
{
    WK::CFloatWidget::showEvent(event);
    if (!event->spontaneous())
        createTree();
}

void COpBasketsPortfolioTree::hideEvent(QHideEvent *event)
{
    WK::CFloatWidget::hideEvent(event);
    if (event->spontaneous())
        return;
    const QTreeWidgetItem *item = m_treeWidget->currentItem();
    if (!item)
        return;
    const QString text = item->text(0);
    if (item->type() == ITEM_CURRENT_POSITION)
        deliverEvent(EVENT_PORTFOLIO_CHOSEN, 0, 1, text, nullptr);
    else if (item->type() == ITEM_PORTFOLIO)
        deliverEvent(EVENT_PORTFOLIO_CHOSEN, 0, 2, m_portfolioNames.key(text), nullptr);
}

} // namespace TC
