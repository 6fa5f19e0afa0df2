#pragma once

#include "BasketExport.h"

#include "CLineEdit.h"

#include "PanelEnums.h"
#include "TradeEnums.h"

#include <QString>

class QFocusEvent;
class QFont;
class QWidget;

namespace TC {

class COpBasketsTreeWidget;

// The basket picker in the shape of a line edit, for the replace toolbar and the position
// exchange: its text is the chosen stored basket or temporary list, m_batchOp the batch flag of
// the choice (0 for a stored basket). Focus opens a COpBasketsTreeWidget below it, which the
// typed text filters. Every choice goes up as event 1139 (the picker's id, the batch flag, the
// name as text, no data).
class BASKETPANEL_EXPORT COpBasketsLineEdit final : public WK::CLineEdit
{
    Q_OBJECT

public:
    static constexpr int EVENT_BASKET_CHOSEN = 1139;

    COpBasketsLineEdit(int id, QWidget *parent);
    ~COpBasketsLineEdit() override;

    // Adds flags to the tree's offer and makes them the choice (named batchFlagName(flags));
    // notify delivers event 1139.
    void setBatchOp(ETempBatchOrderFlags flags, bool notify);
    void setBatchOp(int flags, bool notify);
    ETempBatchOrderFlags batchOp() const { return m_batchOp; }

    // The tree's flags, set or read outright.
    void reSetFlag(ETempBatchOrderFlags flags);
    ETempBatchOrderFlags getAllFlag() const;

    void setOperationType(ttservice::EOperationType op);
    // Only hands the type to the tree; the owner decides when to call updateBasketSetting.
    void setBrokerType(ttservice::EVQBrokerType type);
    ttservice::EVQBrokerType getBrokerType() const;

    // Chooses name: a batch by its name, or a stored basket whatever its broker type. An
    // unknown name is refused unless force holds.
    void setBasket(QString name, bool force);
    // Keeps the text if it is a stored basket or a fixed batch name; otherwise clears the
    // choice and reports it emptied.
    void updateBasketSetting();

    // Whether the rows of the choice may be edited: a stored basket, the clipboard, the
    // rebalance and the custom lists.
    bool canCustom() const;

    // The combo's reading of the choice: both give the text, the index is ignored.
    QString currentText() const;
    QString itemText(int index) const;

    void setFixFont(const QFont &font) override;

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

    void showTree();
    void hideTree();

public Q_SLOTS:
    void slotTextChanged(const QString &text);
    void slotTextFinished();

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void setChoice(const QString &name, ETempBatchOrderFlags flags, const QString &toolTip);
    void notifyChoice(int flags, const QString &name);

    COpBasketsTreeWidget *m_tree = nullptr;
    ETempBatchOrderFlags m_batchOp = BATCH_NONE;
};

} // namespace TC
