#pragma once

#include "BasketExport.h"
#include "CBaseWidget.h"

#include "COrderSetting.h"
#include "TradeEnums.h"

#include <QMap>
#include <QString>

#include <string>

class QPaintEvent;

namespace WK {
class CPushButtonGroup;
} // namespace WK

namespace TC {

class COpBasketStockParamsWidget;

// The upper block of the futures tab: four operations on one parameter block for futures
// accounts. Buttons 54, 55, 56 and 57 stand for 0 "开多", 3 "开空", 14 "平多" and 15 "平空". What
// the user set is kept per operation and comes back when the operation is chosen again.
//
// Its text: the current operation, then the kept settings as operation and setting, all joined
// by "%".
class BASKETPANEL_EXPORT COpBasketFtrBuySellWidget final : public WK::CBaseWidget
{
    Q_OBJECT

public:
    explicit COpBasketFtrBuySellWidget(QWidget *parent);
    ~COpBasketFtrBuySellWidget() override;

    COpBasketStockParamsWidget *getParamWidget() const { return m_param; }
    // The operation of the checked button, -1 with none.
    int currentOpt() const;
    int currentOptMemory() const { return m_currentOpt; }
    // Checks the button of the operation and brings its setting; the buttons stay free.
    void setCurrentOpt(ttservice::EOperationType operation);
    WK::CPushButtonGroup *buttonGroup() const { return m_group; }
    const QMap<int, ttservice::COrderSetting> &orderSettings() const { return m_orderSettings; }

    QString param() const;
    void setParam(const QString &text);
    std::string getCmdLog() const;

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void keepCurrentSetting();

    int m_currentOpt = ttservice::OT_OPEN_LONG;
    QMap<int, ttservice::COrderSetting> m_orderSettings;
    WK::CPushButtonGroup *m_group = nullptr;
    COpBasketStockParamsWidget *m_param = nullptr;
};

} // namespace TC
