#pragma once

#include "BasketPlatformExport.h"
#include "ITradeDockableWidget.h"

#include "CPositionParam.h"
#include "PanelEnums.h"
#include "sSplitCmdInfo.h"

#include <QString>
#include <QVector>

#include <string>

namespace TC {

// Base of the client's operation panels. The client creates a panel with its panel number,
// docks it in a panel group and calls the operations below; a panel overrides those it serves.
class BASKET_PLATFORM_EXPORT COperationPanel : public ITradeDockableWidget
{
    Q_OBJECT

public:
    COperationPanel(int panelId, QWidget *parent);
    ~COperationPanel() override;

    int panelId() const { return m_panelId; }
    // The dock group the client put the panel in; 0 until the client says.
    int panelGroup() const { return m_panelGroup; }
    void setPanelGroup(int group) { m_panelGroup = group; }

    // Positions handed over from another panel, to be traded as a temporary list.
    virtual void batchPositions(QVector<CPositionParam> positions, QFlags<ETempBatchOrderFlag> flags);
    // Switch to the tab of this operation word.
    virtual void setCurrentOperationType(quint64 word);
    // A manager's instruction, given by its key.
    virtual void setSingleCommand(std::string key);
    virtual void setSplitCommand(std::string key, const sSplitCmdInfo &info);
    virtual void setEnableCmdOrder(std::string key, bool enable);
    // Rows to be traded that the client pastes in.
    virtual void patchCommand(QString text);
    // The user's stored baskets were added, removed or renamed.
    virtual void doSlotBasketSettingChanged();
    // The content of a stored basket changed.
    virtual void doSlotBasketContentChanged();
    // Show the basket of this name, the last one the user composed elsewhere.
    virtual void doSlotFillComposeLastBasket(QString name);

Q_SIGNALS:
    // The panel changed a stored basket; the client tells its other panels.
    void sigBasketSettingChangedStr(QString name);

private:
    int m_panelId = 0;
    int m_panelGroup = 0;
};

} // namespace TC
