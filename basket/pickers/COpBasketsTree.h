#pragma once

#include "BasketExport.h"
#include "COpBasketsTreeLogic.h"

#include "CBaseDialog.h"

#include "PanelEnums.h"
#include "TradeEnums.h"

#include <QString>

class QHideEvent;
class QShowEvent;
class QTreeWidget;
class QTreeWidgetItem;

namespace TC {

// The pop-up tree of COpBasketsComboBox: a frameless tool window listing the temporary lists
// and stored baskets that may be chosen now. It is refilled each time it shows; a choice goes
// up to the owner as event 1139 (id 0, the batch flag or 0, the name as text).
class BASKETPANEL_EXPORT COpBasketsTree final : public WK::CBaseDialog
{
    Q_OBJECT

public:
    explicit COpBasketsTree(QWidget *parent);
    ~COpBasketsTree() override;

    void addBatchFlag(ETempBatchOrderFlags flags);
    void reSetFlag(ETempBatchOrderFlags flags);
    ETempBatchOrderFlags getAllFlag() const;

    void setOperationType(ttservice::EOperationType op);
    void setBrokerType(ttservice::EVQBrokerType type);
    ttservice::EVQBrokerType getBrokerType() const;

    // Filters the whole tree.
    void setFilterText(const QString &text);
    void setFilterText(const QString &text, QTreeWidgetItem *item);

    bool canCustom() const;

    // Whether showing the tree makes it the active window; the combo keeps the focus with
    // false.
    void setAutoActivate(bool autoActivate);

    // Delivers the choice that item stands for; nothing for a null item, a group or an
    // unknown batch entry.
    void hideTree(QTreeWidgetItem *item);

    QTreeWidget *treeWidget() const { return m_treeWidget; }

    void themeChanged() override;

public Q_SLOTS:
    void slotItemClicked(QTreeWidgetItem *item, int column);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void createTree();

    COpBasketsTreeLogic m_logic;
    QTreeWidget *m_treeWidget = nullptr;
};

} // namespace TC
