#pragma once

#include "COpBasketOptMemoryWidget.h"

#include "TradeEnums.h"

#include <QString>

namespace TC {

// The upper block of the futures tab: four operations on one parameter block for futures
// accounts. Buttons 54, 55, 56 and 57 stand for 0 "开多", 3 "开空", 14 "平多" and 15 "平空". What
// the user set is kept per operation and comes back when the operation is chosen again.
//
// Its text: the current operation, then the kept settings as operation and setting, all joined
// by "%".
class BASKETPANEL_EXPORT COpBasketFtrBuySellWidget final : public COpBasketOptMemoryWidget
{
    Q_OBJECT

public:
    explicit COpBasketFtrBuySellWidget(QWidget *parent);
    ~COpBasketFtrBuySellWidget() override;

    // Checks the button of the operation and brings its setting; the buttons stay free.
    void setCurrentOpt(ttservice::EOperationType operation);

    void setParam(const QString &text);

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

};

} // namespace TC
