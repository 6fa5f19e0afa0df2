#pragma once

#include "BasketExport.h"
#include "COperationPanel.h"

#include "COrderCommand.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace TC {

class COperationBasketWidget;

// The basket panel as the client creates and docks it: a thin shell around one
// COperationBasketWidget, to which it forwards the client's calls. A user whose role may not
// trade baskets gets an empty panel that ignores every call.
class BASKETPANEL_EXPORT CBasketOperationPanel : public COperationPanel
{
    Q_OBJECT

public:
    CBasketOperationPanel(int panelId, QWidget *parent);
    ~CBasketOperationPanel() override;

    void setParam(const QString &text) override;
    QString param() const override;
    bool handleShortcut(int key, QKeyEvent *event) override;
    void requestAccount(const ttservice::CAccountInfo &account) override;
    void loadAccountGroupSettings() override;
    void refreshAccounts() override;
    void batchPositions(QVector<CPositionParam> positions, QFlags<ETempBatchOrderFlag> flags) override;
    void setCurrentOperationType(quint64 word) override;
    void setSingleCommand(std::string key) override;
    void setSplitCommand(std::string key, const sSplitCmdInfo &info) override;
    void setEnableCmdOrder(std::string key, bool enable) override;
    void patchCommand(QString text) override;
    void doSlotBasketSettingChanged() override;
    void doSlotBasketContentChanged() override;
    void doSlotFillComposeLastBasket(QString name) override;

    COperationBasketWidget *basketWidget() const { return m_basketWidget; }
    const std::string &commandKey() const { return m_commandKey; }

    // Roles whose users see the panel's content, and those that may receive an instruction.
    static bool canSeeContent(int role);
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
