#pragma once

#include "BasketExport.h"

#include "CComboBox.h"

#include "PanelEnums.h"
#include "TradeEnums.h"

#include <QString>

class QDragEnterEvent;
class QDropEvent;
class QFocusEvent;
class QFont;
class QWidget;

namespace TC {

class COpBasketsTree;

// The basket picker of the parameter form: an editable combo with exactly one item, the chosen
// stored basket or temporary list ("batch"). Item 0's text is the name, its data (role 256)
// the batch flag of the choice, 0 for a stored basket. Instead of the standard list it opens a
// COpBasketsTree below itself, which the typed text filters. Every choice goes up as event 1139
// (the picker's id, the batch flag, the name as text, no data).
class BASKETPANEL_EXPORT COpBasketsComboBox final : public WK::CComboBox
{
    Q_OBJECT

public:
    static constexpr int EVENT_BASKET_CHOSEN = 1139;
    static constexpr int EVENT_TOOL_TIP = 65;

    COpBasketsComboBox(int id, QWidget *parent);
    ~COpBasketsComboBox() override;

    // The text before any choice, and the one a dropped choice falls back to.
    static QString noBasketText();
    // The text an emptied editor shows when the tree closes.
    static QString enterBasketText();
    // The temporary lists whose names survive updateBasketSetting though no stored basket
    // bears them: the clipboard, custom and rebalance baskets.
    static bool isFixedBasketName(const QString &name);
    // Puts a shown pop-up below editor, or above it when it would leave the screen there;
    // shared with COpBasketsLineEdit.
    static void placeTree(const QWidget *editor, QWidget *tree);

    // Adds flags to the tree's offer and makes them the choice (named batchFlagName(flags));
    // notify delivers event 1139.
    void setBatchOp(ETempBatchOrderFlags flags, bool notify);
    void setBatchOp(int flags, bool notify);
    // The batch flag of the choice: item 0's data.
    ETempBatchOrderFlags batchOp() const;

    // The tree's flags, set or read outright.
    void reSetFlag(ETempBatchOrderFlags flags);
    ETempBatchOrderFlags getAllFlag() const;

    void setOperationType(ttservice::EOperationType op);
    // Hands the type to the tree, then drops a choice that no longer fits it.
    void setBrokerType(ttservice::EVQBrokerType type);
    ttservice::EVQBrokerType getBrokerType() const;

    // Chooses name: a batch by its name, or a stored basket of the tree's broker type. An
    // unknown name is refused unless force holds; then it is entered as an empty basket.
    void setBasket(QString name, bool force);
    // Keeps the current text if it is still a choice (a stored basket of the tree's broker type,
    // or a fixed batch name); otherwise falls back to noBasketText() and reports the emptied
    // choice.
    void updateBasketSetting();

    // Whether the rows of the choice may be edited: a stored basket, the clipboard, the
    // rebalance and the custom lists.
    bool canCustom() const;

    // Reads a basket file (CSV or .xlsx), shows its preview and, on "确定", stores the basket
    // and chooses it. A file that cannot be read is told in a message box. Whether a basket
    // was stored.
    bool importFile(const QString &path);

    void setFixFont(const QFont &font) override;

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

    // The pop-up is the basket tree, not the standard list.
    void showPopup() override;
    void hidePopup() override;

    void showTree();
    void hideTree();

public Q_SLOTS:
    void slotTextChanged(const QString &text);
    // The "导入" button beside the picker: asks for a file, then importFile.
    void slotImport();

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    // A file dropped on the picker is imported.
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void setChoice(const QString &name, int flags, const QString &toolTip);
    void notifyChoice(int flags, const QString &name);

    COpBasketsTree *m_tree = nullptr;
};

} // namespace TC
