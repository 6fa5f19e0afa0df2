#pragma once

#include "BasketExport.h"

#include "PanelEnums.h"
#include "TradeEnums.h"

#include <QIcon>
#include <QString>

#include <optional>

class QTreeWidget;
class QTreeWidgetItem;
class QWidget;

namespace TC {

// What the basket pickers' pop-up trees share: their state (the batch flags, the operation and
// the broker type they offer for), the filling and filtering of the QTreeWidget they show, and
// what a chosen item stands for. COpBasketsTree and COpBasketsTreeWidget differ only in their
// base class and window flags, and hand everything else to one of these.
class BASKETPANEL_EXPORT COpBasketsTreeLogic final
{
public:
    // The types of the tree's items (QTreeWidgetItem::type()).
    enum EItemType {
        ITEM_GROUP = 0,
        ITEM_BASKET = 1, // a stored basket of the user configuration
        ITEM_BATCH = 2,  // a temporary list, named by TC::batchFlagName
    };

    // Delivered upward with the choice: (event, 0, batch flag or 0, name, no data).
    static constexpr int EVENT_BASKET_CHOSEN = 1139;

    // Not a list: turns on the system groups (index and ETF baskets) of the tree.
    static constexpr int SYSTEM_BASKETS_FLAG = 64;
    // The batch flags whose lists the user may edit (8, 16, 32).
    static constexpr int CUSTOM_BATCH_FLAGS = 56;

    // What choosing an item delivers with event 1139: the batch flag (0 for a stored basket)
    // and the item's text.
    struct Choice {
        int flag = 0;
        QString name;
    };

    COpBasketsTreeLogic();

    // Makes the one-column tree without header that fills host (vertical layout, margin 0), with
    // the style sheet and icons of the present theme.
    QTreeWidget *createTreeWidget(QWidget *host);
    // Reads the colours and the icon again, for a theme change.
    void applyTheme(QTreeWidget *tree);

    void addBatchFlag(ETempBatchOrderFlags flags) { m_flags |= flags; }
    void reSetFlag(ETempBatchOrderFlags flags) { m_flags = flags; }
    ETempBatchOrderFlags getAllFlag() const { return m_flags; }

    void setOperationType(ttservice::EOperationType op) { m_operationType = op; }
    ttservice::EOperationType operationType() const { return m_operationType; }
    void setBrokerType(ttservice::EVQBrokerType type) { m_brokerType = type; }
    ttservice::EVQBrokerType getBrokerType() const { return m_brokerType; }

    // Empties tree and fills it with what may be chosen now: the batch entries that fit the
    // flags and the operation, and the stored baskets of the user configuration that fit the
    // broker type.
    void createTree(QTreeWidget *tree) const;

    // Shows the leaves under item whose text holds text (any case), all of them for an empty
    // text; an item with children is never hidden itself. A null item does nothing.
    static void setFilterText(const QString &text, QTreeWidgetItem *item);

    // Whether the current item is a list the user may edit: a stored basket, or a temporary
    // list while the flags hold 8, 16 or 32.
    bool canCustom(const QTreeWidgetItem *current) const;

    // What choosing item delivers; nothing for a null item, a group, or a temporary list whose
    // text names none of the batch flags 1, 2, 4, 8, 32.
    static std::optional<Choice> choiceOf(const QTreeWidgetItem *item);

    // The window flags of the combo's tool-window tree: a frameless tool window that stays on
    // top and doesn't take the focus from the editor.
    static Qt::WindowFlags toolWindowFlags();

    static QString styleSheet();

private:
    ETempBatchOrderFlags m_flags = ETempBatchOrderFlags(ETempBatchOrderFlag(SYSTEM_BASKETS_FLAG));
    ttservice::EOperationType m_operationType = ttservice::OT_BUY;
    ttservice::EVQBrokerType m_brokerType = ttservice::BROKER_TYPE_STOCK;
    QIcon m_groupIcon;
    QIcon m_itemIcon;
};

} // namespace TC
