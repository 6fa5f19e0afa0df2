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

// The upper block of the credit tab: four operations on one parameter block. Buttons 108, 109,
// 52 and 53 stand for 20 "融资买入", 21 "融券卖出", 22 "买券还券" and 24 "卖券还款". What the
// user set is kept per operation and comes back when the operation is chosen again.
//
// Its text: the current operation, then the kept settings as operation and setting, all joined
// by "%".
class BASKETPANEL_EXPORT COpBasketCrdBuySellWidget final : public WK::CBaseWidget
{
    Q_OBJECT

public:
    explicit COpBasketCrdBuySellWidget(QWidget *parent);
    ~COpBasketCrdBuySellWidget() override;

    COpBasketStockParamsWidget *getParamWidget() const { return m_param; }
    // The operation of the checked button, -1 with none.
    int currentOpt() const;
    int currentOptMemory() const { return m_currentOpt; }
    // An instruction fixes the operation: its button is checked and the buttons are locked.
    void setCurrentOpt(ttservice::EOperationType operation);
    void switchMode(quint64 tab);
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

    quint64 m_tradeOpType = 0x800;
    int m_currentOpt = ttservice::OT_BUY;
    QMap<int, ttservice::COrderSetting> m_orderSettings;
    WK::CPushButtonGroup *m_group = nullptr;
    COpBasketStockParamsWidget *m_param = nullptr;
};

} // namespace TC
