#pragma once

#include "BasketExport.h"
#include "COperationPanel.h"

#include "COrderCommand.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace TC {

class COperationBasketWidget;

// The basket panel as the client creates and docks it: the entry class of the panel library.
//
// The client creates one per docked basket panel, with its panel number, and keeps it as long as
// the dock; nothing is torn down by hand, the children go with their Qt parent. It is a thin shell
// around one COperationBasketWidget, the panel's top-level form, to which it forwards the
// client's calls. A user whose role may not trade baskets (see canSeeContent) gets an empty panel
// that ignores every call.
//
// Everything runs on the user-interface thread. A typical host:
//
//     auto *panel = new TC::CBasketOperationPanel(panelId, dock);
//     panel->setParam(savedText);        // the text param() returned in the last session
//     dock->setWidget(panel);
//     ...                                // the client calls the operations below as events come
//     saveText(panel->param());          // before closing
class BASKETPANEL_EXPORT CBasketOperationPanel : public COperationPanel
{
    Q_OBJECT

public:
    // Builds the panel for the user of the client's user configuration (TC::getUserConfig()):
    // the basket form if canSeeContent() holds for the user's role, an empty panel otherwise.
    // panelId is the client's number of this dock; the panel's trader type becomes 4, the basket
    // trader. Fill the user configuration before creating the panel: the role it holds now decides
    // whether the panel has content.
    CBasketOperationPanel(int panelId, QWidget *parent);
    ~CBasketOperationPanel() override;

    // Restores the state kept by the client. Of a text with "|" pieces (the client's panel frame)
    // the third piece is the panel's own; a text with fewer pieces is taken whole. The panel's
    // text holds the form's parameters, the table's columns, the split position and the filter
    // boxes, "/" between them; a text of any shape is accepted, missing pieces are left alone.
    void setParam(const QString &text) override;
    // The state to keep for the next session, without the client's "|" pieces; empty for an
    // empty panel.
    QString param() const override;
    // A keyboard shortcut of the client, by its number: the form runs the order button it is
    // bound to. Returns true when the panel has content (the shortcut is then taken), false for
    // an empty panel.
    bool handleShortcut(int key, QKeyEvent *event) override;
    // An account changed (logged in, money or positions moved). The argument is not read: any
    // change refreshes the whole account list, since the form shows sums over all accounts.
    // Writes one timing line to the log ("[PT] ... time = ...").
    void requestAccount(const ttservice::CAccountInfo &account) override;
    // The user's account groups were edited: the account picker reloads them.
    void loadAccountGroupSettings() override;
    // The user's account list changed: the account picker reloads it. Writes one timing line to
    // the log, with the number of accounts.
    void refreshAccounts() override;
    // Positions handed over by another panel (or by the position exchange), to be traded as a
    // temporary list; flags say which kind of list (ETempBatchOrderFlag). The form sizes the
    // list and shows it in the confirmation table.
    void batchPositions(QVector<CPositionParam> positions, QFlags<ETempBatchOrderFlag> flags) override;
    // Switches to the tab of this operation word (TOT_BUY, TOT_SELL, ...). A word without any
    // of the panel's tab bits (TOT_ALL_TABS_MASK) is dropped silently.
    void setCurrentOperationType(quint64 word) override;
    // A manager's instruction for this panel, by its key in the trading service
    // (CTradeClient::getCommandByKey). Taken only by a user who may receive instructions
    // (canReceiveCommand) and only for a basket instruction; the form and table then show it, and
    // the order button executes it through CTradeClient::placeTasks.
    void setSingleCommand(std::string key) override;
    // As setSingleCommand, for one part of a split instruction: info names the part.
    void setSplitCommand(std::string key, const sSplitCmdInfo &info) override;
    // Enables or disables the order button for the instruction the panel shows; ignored unless
    // key is that instruction's key.
    void setEnableCmdOrder(std::string key, bool enable) override;
    // Rows to be traded, handed over by the client as text (tab-separated rows: code, name,
    // volume, weight, direction). Rows the form's check refuses are dropped with its message;
    // the others become a clipboard list of one copy, on the tab their directions call for.
    void patchCommand(QString text) override;
    // The user's stored baskets were added, removed or renamed (TC::CUserConfig): the basket
    // pickers reload them.
    void doSlotBasketSettingChanged() override;
    // The content of a stored basket changed: the order list is built again from it.
    void doSlotBasketContentChanged() override;
    // Shows the basket of this name, the last one the user composed in another panel.
    void doSlotFillComposeLastBasket(QString name) override;

    // The panel's top-level form: parameter form, filter toolbar and confirmation table. Null
    // for a user whose role may not see the panel's content.
    COperationBasketWidget *basketWidget() const { return m_basketWidget; }
    // The key of the last instruction given to the panel (setSingleCommand, setSplitCommand),
    // even one it did not show; empty at first.
    const std::string &commandKey() const { return m_commandKey; }

    // Roles whose users see the panel's content: 90, 91, 101, 100, 200, 80 (the manager roles
    // and 200, the trader).
    static bool canSeeContent(int role);
    // Roles whose users may receive an instruction: 90, 91, 200, 400, 80.
    static bool canReceiveCommand(int role);

private:
    void createUi();
    // Refreshes the accounts of the form and writes the timing line of the calling operation.
    double timedAccountRefresh();
    // Looks an instruction up for this panel and keeps its key; null unless the form should show it.
    boost::shared_ptr<ttservice::COrderCommand> takeCommand(const std::string &key);

    COperationBasketWidget *m_basketWidget = nullptr;
    std::string m_commandKey;
};

} // namespace TC
