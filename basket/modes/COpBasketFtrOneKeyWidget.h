#pragma once

#include "BasketExport.h"
#include "CBaseWidget.h"

#include <QString>

#include <string>

class QPaintEvent;

namespace WK {
class CPushButtonGroup;
} // namespace WK

namespace TC {

class COpBasketStockParamsWidget;

// The upper block of the one-key futures tab: a parameter block for the buying lines (button 60
// "买入") and one for the selling lines (61 "卖出"), for futures accounts; the button shows its
// side's block. Both sides trade in the same order, each line by the block of its direction.
//
// Its text: the current side, the buy block's text and the sell block's text, joined by "$".
class BASKETPANEL_EXPORT COpBasketFtrOneKeyWidget final : public WK::CBaseWidget
{
    Q_OBJECT

public:
    explicit COpBasketFtrOneKeyWidget(QWidget *parent);
    ~COpBasketFtrOneKeyWidget() override;

    COpBasketStockParamsWidget *getBuyParam() const { return m_buyParam; }
    COpBasketStockParamsWidget *getSellParam() const { return m_sellParam; }
    bool isCurrentBuy() const;
    // 60 shows the buy block, 61 the sell block, any other id hides both.
    void setCheckByID(int id);
    // 18 for 60, 19 for 61, -1 with neither checked.
    int currentOpt() const;
    int currentSide() const { return m_currentSide; }
    WK::CPushButtonGroup *buttonGroup() const { return m_group; }

    QString param() const;
    void setParam(const QString &text);
    std::string getCmdLog() const;
    void updateCmdLog();

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    WK::CPushButtonGroup *m_group = nullptr;
    COpBasketStockParamsWidget *m_buyParam = nullptr;
    COpBasketStockParamsWidget *m_sellParam = nullptr;
    int m_currentSide = 0;
};

} // namespace TC
