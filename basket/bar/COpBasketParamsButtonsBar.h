#pragma once

#include "BasketExport.h"
#include "CBaseWidget.h"

#include "TradeEnums.h"

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

namespace WK {
class CCheckBox;
class CPushButton;
class CSimpleTextWidget;
class CWidgetList;
} // namespace WK

namespace TC {

class COpButton;
class COpOneKeyFutureButtonsBarSettingWidget;

// The row at the bottom of the parameter form: the order buttons, the box that lets a trader
// change an instruction's parameters, the exchange rates of the Hong Kong tabs, the link to the
// patch settings and, on the futures tabs, the close order and hedge flag with the button that
// opens their setting box.
//
// Events delivered to the parent: 1046 when an order button is pressed (id 0, value 0),
// 1142 when the patch settings are wanted, 1147 when a futures setting changed.
class BASKETPANEL_EXPORT COpBasketParamsButtonsBar final : public WK::CBaseWidget
{
    Q_OBJECT

public:
    // Widget ids, as the events carry them.
    enum EWidgetId {
        ID_ORDER_BUTTON = 2,
        ID_BUY_BUTTON = 3,
        ID_SELL_BUTTON = 4,
        ID_PATCH_TEXT = 5,
        ID_SETTING_BUTTON = 6,
        ID_COMMAND_CHANGE = 8,
        ID_BUY_PARITY_TEXT = 9,
        ID_SELL_PARITY_TEXT = 10,
    };

    explicit COpBasketParamsButtonsBar(QWidget *parent);
    ~COpBasketParamsButtonsBar() override;

    // Shows the buttons and texts of this tab and operation.
    void setOperationType(ttservice::EOperationType op, quint64 tab);
    ttservice::EOperationType getOperationType() const { return m_operationType; }
    quint64 getTradeOpType() const { return m_tradeOpType; }

    // The operation to place with: on the futures tabs the close order picks between the
    // today and yesterday variants of a close.
    ttservice::EOperationType getFutureOptType(ttservice::EOperationType op) const;
    // Load a futures instruction's operation and hedge flag into the bar. The buy-and-sell
    // variant returns the operation the form shows for it.
    void setFutureOneKeyOptType(ttservice::EOperationType op, ttservice::EHedge_Flag_Type flag);
    ttservice::EOperationType setFutureBuySellOptType(ttservice::EOperationType op, ttservice::EHedge_Flag_Type flag);
    ttservice::EHedge_Flag_Type getHedgeFlag() const { return m_hedgeFlag; }
    bool isCloseTodayFirst() const { return m_closeTodayFirst; }

    bool getCommandChange() const;
    void setCommandChange(bool change);
    void setCommandChangeVisible(bool visible);

    // "closeTodayFirst:hedgeFlag", as "1:49".
    void setParam(const QString &text);
    QString param() const;

    // The exchange rates, shown on the Hong Kong tabs only.
    void setParities(double buy, double sell);

    // Opens the futures setting box beside the setting button.
    void changeBarSetting();
    // Where the box of this size opens for a button at this screen position: above and to the
    // left where it would run past the bottom or the right of the available area, never beyond
    // its top and left edges.
    static QPoint settingBoxPosition(const QPoint &buttonPos, const QSize &boxSize, const QRect &available);

    COpButton *buyButton() const { return m_buyButton; }
    COpButton *sellButton() const { return m_sellButton; }
    COpButton *orderButton() const { return m_orderButton; }
    WK::CPushButton *settingButton() const { return m_settingButton; }
    WK::CSimpleTextWidget *closeTypeText() const { return m_closeTypeText; }
    WK::CSimpleTextWidget *hedgeFlagText() const { return m_hedgeFlagText; }
    WK::CSimpleTextWidget *patchText() const { return m_patchText; }
    WK::CSimpleTextWidget *buyParityText() const { return m_buyParityText; }
    WK::CSimpleTextWidget *sellParityText() const { return m_sellParityText; }
    WK::CCheckBox *commandChangeBox() const { return m_commandChange; }
    WK::CWidgetList *rightList() const { return m_rightList; }
    COpOneKeyFutureButtonsBarSettingWidget *settingWidget() const { return m_settingWidget; }

    bool handleEvent(int event, int id, int value, QString text, void *data) override;
    void scaleChanged() override;

private:
    void createUi();
    void styleWidgets(bool pbManager);
    void layOut(WK::CWidgetList *commandRow, WK::CWidgetList *parityRow);
    void setFutureSettingVisible(bool setting, bool closeText, bool hedgeText);
    void updateFutureTexts();
    void updateSettingWidget();

    ttservice::EOperationType m_operationType = ttservice::OT_BUY;
    quint64 m_tradeOpType = 0;
    COpButton *m_buyButton = nullptr;
    COpButton *m_sellButton = nullptr;
    COpButton *m_orderButton = nullptr;
    WK::CCheckBox *m_commandChange = nullptr;
    WK::CPushButton *m_settingButton = nullptr;
    WK::CSimpleTextWidget *m_closeTypeText = nullptr;
    bool m_closeTodayFirst = false;
    WK::CSimpleTextWidget *m_hedgeFlagText = nullptr;
    ttservice::EHedge_Flag_Type m_hedgeFlag = ttservice::HEDGE_FLAG_SPECULATION;
    COpOneKeyFutureButtonsBarSettingWidget *m_settingWidget = nullptr;
    WK::CSimpleTextWidget *m_patchText = nullptr;
    WK::CSimpleTextWidget *m_buyParityText = nullptr;
    WK::CSimpleTextWidget *m_sellParityText = nullptr;
    WK::CWidgetList *m_rightList = nullptr;
};

} // namespace TC
