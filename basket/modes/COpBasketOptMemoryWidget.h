#pragma once

#include "BasketExport.h"
#include "CBaseWidget.h"

#include "COrderSetting.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <string>
#include <vector>

class QPaintEvent;

namespace WK {
class CPushButtonGroup;
} // namespace WK

namespace TC {

class COpBasketStockParamsWidget;

// What the credit and the futures blocks share: a row of operation buttons over one parameter
// block, and the settings the user left on each operation, brought back when it is chosen again.
//
// The text of such a block: the current operation, then each kept setting as operation and
// setting, all joined by "%".
class BASKETPANEL_EXPORT COpBasketOptMemoryWidget : public WK::CBaseWidget
{
    Q_OBJECT

public:
    struct ModeButton
    {
        int m_id;
        int m_operation;
        const char *m_text;
        bool m_sellSide;
    };

    ~COpBasketOptMemoryWidget() override;

    COpBasketStockParamsWidget *getParamWidget() const { return m_param; }
    // The operation of the checked button, -1 with none.
    int currentOpt() const;
    int currentOptMemory() const { return m_currentOpt; }
    WK::CPushButtonGroup *buttonGroup() const { return m_group; }
    const QMap<int, ttservice::COrderSetting> &orderSettings() const { return m_orderSettings; }

    QString param() const;
    std::string getCmdLog() const;

protected:
    COpBasketOptMemoryWidget(const QString &name, int brokerType, std::vector<ModeButton> buttons, int firstOperation,
                             QWidget *parent);

    // Keeps what the block shows now as the setting of the current operation.
    void keepCurrentSetting();
    // Brings back the kept setting of an operation, if there is one.
    void loadKeptSetting(int operation);
    // Puts a kept setting, order type included, into the block's table.
    void applySetting(const ttservice::COrderSetting &setting);
    // Reads the kept settings of a text split at "%", from its second part on; with onlyKnown,
    // only operations already kept are taken.
    void readKeptSettings(const QStringList &parts, bool onlyKnown);
    const std::vector<ModeButton> &buttons() const { return m_buttons; }
    // The current operation as the text writes it: a number that reads back as the same button.
    virtual int writtenCurrentOpt() const { return m_currentOpt; }

    void paintEvent(QPaintEvent *event) override;

    int m_currentOpt;
    QMap<int, ttservice::COrderSetting> m_orderSettings;
    WK::CPushButtonGroup *m_group = nullptr;
    COpBasketStockParamsWidget *m_param = nullptr;

private:
    std::vector<ModeButton> m_buttons;
};

} // namespace TC
