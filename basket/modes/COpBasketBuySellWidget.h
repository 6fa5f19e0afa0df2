#pragma once

#include "BasketExport.h"
#include "CBaseWidget.h"

#include "TradeEnums.h"

#include <QString>

#include <initializer_list>
#include <string>

class QPaintEvent;

namespace WK {
class CPushButton;
class CPushButtonGroup;
} // namespace WK

namespace TC {

class COpBasketStockParamsWidget;

// The upper block of the one-key buy and sell tab and of the connect tabs: the mode buttons
// "买入" (108) and "卖出" (109), and one parameter block per side, of which the chosen side shows.
// On the credit word 0x2000 the sides read "融资买入" and "融券卖出" and take operations 20 and 21.
class BASKETPANEL_EXPORT COpBasketBuySellWidget final : public WK::CBaseWidget
{
    Q_OBJECT

public:
    COpBasketBuySellWidget(ttservice::EVQBrokerType brokerType, QWidget *parent);
    ~COpBasketBuySellWidget() override;

    COpBasketStockParamsWidget *getBuyParam() const { return m_buyParam; }
    COpBasketStockParamsWidget *getSellParam() const { return m_sellParam; }
    // Whether the buy block shows; true when there is none.
    bool isCurrentBuy() const;
    // 108 shows the buy block, 109 the sell block, any other id hides both.
    void setCheckByID(int id);
    void switchMode(quint64 tab);
    quint64 tradeOpType() const { return m_tradeOpType; }
    WK::CPushButtonGroup *buttonGroup() const { return m_group; }

    std::string getCmdLog() const;
    void updateCmdLog();

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

    // A mode button as all four mode widgets make them: 80 by 23, buy or sell colours.
    static WK::CPushButton *addModeButton(WK::CPushButtonGroup *group, int id, const QString &text, bool sellSide);
    // The line under the buttons and the background shared by the mode widgets.
    static QWidget *makeSeparator(QWidget *parent);
    // The layout every mode widget has: its buttons, a line, then its blocks one under another.
    static void layoutModeBlock(QWidget *widget, WK::CPushButtonGroup *group, std::initializer_list<QWidget *> blocks);
    static void paintBackground(QWidget *widget);

Q_SIGNALS:
    // The operation the patch settings should follow: 18 or 19, on the credit word 20 or 21.
    void sigSetOperation(int operation);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void createUi();

    ttservice::EVQBrokerType m_brokerType;
    quint64 m_tradeOpType = 0x800;
    WK::CPushButtonGroup *m_group = nullptr;
    COpBasketStockParamsWidget *m_buyParam = nullptr;
    COpBasketStockParamsWidget *m_sellParam = nullptr;
};

} // namespace TC
