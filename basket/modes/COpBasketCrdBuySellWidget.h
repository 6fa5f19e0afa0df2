#pragma once

#include "COpBasketOptMemoryWidget.h"

#include "TradeEnums.h"

#include <QString>

namespace TC {

// The upper block of the credit tab: four operations on one parameter block. Buttons 108, 109,
// 52 and 53 stand for 20 "融资买入", 21 "融券卖出", 22 "买券还券" and 24 "卖券还款". What the
// user set is kept per operation and comes back when the operation is chosen again.
//
// Its text: the current operation, then the kept settings as operation and setting, all joined
// by "%". A current 20 or 21 is written as 18 or 19: read back, 20 and 21 check button 53.
class BASKETPANEL_EXPORT COpBasketCrdBuySellWidget final : public COpBasketOptMemoryWidget
{
    Q_OBJECT

public:
    explicit COpBasketCrdBuySellWidget(QWidget *parent);
    ~COpBasketCrdBuySellWidget() override;

    // An instruction fixes the operation: its button is checked and the buttons are locked.
    void setCurrentOpt(ttservice::EOperationType operation);
    void switchMode(quint64 tab);

    void setParam(const QString &text);

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

protected:
    int writtenCurrentOpt() const override;

private:
    quint64 m_tradeOpType = 0x800;
};

} // namespace TC
