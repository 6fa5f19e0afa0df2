#include "COpBasketsTreeLogic.h"

#include "BasketHelpers.h"
#include "CBasketSetting.h"
#include "CUiResource.h"
#include "CUserConfig.h"
#include "LuaModuleCtrl.h"

#include <QTreeWidget>
#include <QTreeWidgetItem>
#include <QVBoxLayout>

namespace TC {
namespace {

const QString kIconKey = QStringLiteral("tc_img_tree_basket_icon");

// The batch entries a choice may name, in the order their names are compared; 16 is set only
// by code and never offered.
const int kChoosableBatchFlags[] = {BATCH_BUY, BATCH_SELL, BATCH_POSITION_SELL, BATCH_CLIPBOARD, 32};

ETempBatchOrderFlags flagWord(int flag)
{
    return ETempBatchOrderFlags(ETempBatchOrderFlag(flag));
}

bool hasFlag(ETempBatchOrderFlags flags, int flag)
{
    return (int(flags) & flag) != 0;
}

} // namespace

COpBasketsTreeLogic::COpBasketsTreeLogic()
{
    const QIcon icon(WK::CUiResource::instance()->getPixmap(kIconKey));
    m_groupIcon = icon;
    m_itemIcon = icon;
}

QTreeWidget *COpBasketsTreeLogic::createTreeWidget(QWidget *host)
{
    auto *tree = new QTreeWidget(host);
    tree->setObjectName(QStringLiteral("basketsTree"));
    tree->setColumnCount(1);
    tree->setHeaderHidden(true);

    auto *layout = new QVBoxLayout(host);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(tree);

    applyTheme(tree);
    return tree;
}

void COpBasketsTreeLogic::applyTheme(QTreeWidget *tree)
{
    const QIcon icon(WK::CUiResource::instance()->getPixmap(kIconKey));
    m_groupIcon = icon;
    m_itemIcon = icon;
    if (!tree)
        return;
    tree->setStyleSheet(styleSheet());
    for (QTreeWidgetItemIterator it(tree); *it; ++it)
        (*it)->setIcon(0, (*it)->type() == ITEM_GROUP ? m_groupIcon : m_itemIcon);
}

void COpBasketsTreeLogic::createTree(QTreeWidget *tree) const
{
    if (!tree)
        return;
    tree->clear();

    auto addGroup = [this, tree](QTreeWidgetItem *parent, const QString &text) {
        auto *group = parent ? new QTreeWidgetItem(parent, ITEM_GROUP) : new QTreeWidgetItem(tree, ITEM_GROUP);
        group->setText(0, text);
        group->setIcon(0, m_groupIcon);
        group->setExpanded(true);
        return group;
    };
    auto addLeaf = [this](QTreeWidgetItem *parent, int type, const QString &text) {
        auto *leaf = new QTreeWidgetItem(parent, type);
        leaf->setText(0, text);
        leaf->setIcon(0, m_itemIcon);
    };

    QTreeWidgetItem *all = addGroup(nullptr, QStringLiteral("所有组合"));

    const bool sell = m_operationType == ttservice::OT_SELL;
    const bool buy = m_operationType == ttservice::OT_BUY;
    // Selling from positions is always on offer for a stock account, whatever the picker holds.
    if (sell && m_brokerType == ttservice::BROKER_TYPE_STOCK)
        addLeaf(all, ITEM_BATCH, batchFlagName(flagWord(BATCH_POSITION_SELL)));
    if (hasFlag(m_flags, BATCH_BUY) && buy)
        addLeaf(all, ITEM_BATCH, batchFlagName(flagWord(BATCH_BUY)));
    if (hasFlag(m_flags, BATCH_SELL) && sell)
        addLeaf(all, ITEM_BATCH, batchFlagName(flagWord(BATCH_SELL)));
    if (hasFlag(m_flags, BATCH_CLIPBOARD))
        addLeaf(all, ITEM_BATCH, batchFlagName(flagWord(BATCH_CLIPBOARD)));
    if (hasFlag(m_flags, 32))
        addLeaf(all, ITEM_BATCH, batchFlagName(flagWord(32)));

    CUserConfig *config = getUserConfig();
    if (!config || config->baskets().isEmpty())
        return;
    const QMap<QString, CBasketSetting> &baskets = config->baskets();

    QTreeWidgetItem *mine = addGroup(all, QStringLiteral("我的组合"));
    QTreeWidgetItem *index = nullptr;
    QTreeWidgetItem *etf = nullptr;
    if (hasFlag(m_flags, SYSTEM_BASKETS_FLAG)
        && luawrapper::LuaModuleCtrl::checkModule({"mdl_auth", "mdl_auth_etf_management"})) {
        QTreeWidgetItem *system = addGroup(all, QStringLiteral("系统组合"));
        index = addGroup(system, QStringLiteral("指数组合"));
        etf = addGroup(system, QStringLiteral("ETF组合"));
    }

    for (const CBasketSetting &setting : baskets) {
        if (setting.m_brokerType != m_brokerType || setting.m_name.isEmpty())
            continue;
        QTreeWidgetItem *parent = nullptr;
        switch (setting.m_basketKind) {
        case 0:
            parent = mine;
            break;
        case 1:
        case 2:
            parent = index;
            break;
        case 3:
        case 4:
            parent = etf;
            break;
        default:
            break;
        }
        if (parent)
            addLeaf(parent, ITEM_BASKET, setting.m_name);
    }
}

void COpBasketsTreeLogic::setFilterText(const QString &text, QTreeWidgetItem *item)
{
    if (!item)
        return;
    if (item->childCount() > 0) {
        for (int i = 0; i < item->childCount(); ++i)
            setFilterText(text, item->child(i));
        return;
    }
    item->setHidden(!text.isEmpty() && !item->text(0).contains(text, Qt::CaseInsensitive));
}

bool COpBasketsTreeLogic::canCustom(const QTreeWidgetItem *current) const
{
    if (!current)
        return false;
    switch (current->type()) {
    case ITEM_BASKET:
        return true;
    case ITEM_BATCH:
        // Asks the picker's flags, not the item: any editable list on offer makes a batch
        // entry customisable.
        return hasFlag(m_flags, CUSTOM_BATCH_FLAGS);
    default:
        return false;
    }
}

std::optional<COpBasketsTreeLogic::Choice> COpBasketsTreeLogic::choiceOf(const QTreeWidgetItem *item)
{
    if (!item)
        return std::nullopt;
    const QString text = item->text(0);
    switch (item->type()) {
    case ITEM_BASKET:
        return Choice{0, text};
    case ITEM_BATCH:
        for (int flag : kChoosableBatchFlags) {
            if (text == batchFlagName(flagWord(flag)))
                return Choice{flag, text};
        }
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

Qt::WindowFlags COpBasketsTreeLogic::toolWindowFlags()
{
    return Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus;
}

QString COpBasketsTreeLogic::styleSheet()
{
    const WK::CUiResource *res = WK::CUiResource::instance();
    return QStringLiteral(
               "QTreeWidget { border: none; outline: none; }"
               "QTreeWidget::item { height: 22px; }"
               "QTreeWidget::item:hover { background: %4; }"
               "QTreeWidget::item:selected { background: %3; }"
               "QScrollBar:vertical { background: %4; width: 8px; margin: 0px; border: none; }"
               "QScrollBar:horizontal { background: %4; height: 8px; margin: 0px; border: none; }"
               "QScrollBar::handle:vertical { background: %3; min-height: 20px; border-radius: 4px; }"
               "QScrollBar::handle:horizontal { background: %3; min-width: 20px; border-radius: 4px; }"
               "QScrollBar::handle:hover { background: %2; }"
               "QScrollBar::handle:pressed { background: %1; }"
               "QScrollBar::add-line, QScrollBar::sub-line { width: 0px; height: 0px; }"
               "QScrollBar::add-page, QScrollBar::sub-page { background: none; }")
        .arg(res->getColorSheetByKey(QStringLiteral("clr_scrollbar_slider_pressed")),
             res->getColorSheetByKey(QStringLiteral("clr_scrollbar_slider_hover")),
             res->getColorSheetByKey(QStringLiteral("clr_scrollbar_slider")),
             res->getColorSheetByKey(QStringLiteral("clr_scrollbar_background")));
}

} // namespace TC
