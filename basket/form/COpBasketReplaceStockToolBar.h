#pragma once

#include "BasketExport.h"
#include "CBaseWidget.h"

#include "CCodeOrderParam.h"

#include <QString>

#include <string>
#include <vector>

namespace WK {
class CAutoExpandToolBar;
class CCheckBox;
class CCreatePortfolioKeyboard;
class CSimpleTextWidget;
} // namespace WK

namespace TC {

class COpBasketsLineEdit;

// The strip of check boxes above the confirmation table: what the order list leaves out or
// replaces, whether it follows the market, whether the orders make a portfolio. It holds no
// logic of the list; the form and the table ask it through its queries. Every change of a box,
// of the replacing basket or of the portfolio keyboard goes up as event 1074 with the id of the
// control.
class BASKETPANEL_EXPORT COpBasketReplaceStockToolBar : public WK::CBaseWidget
{
    Q_OBJECT

public:
    static constexpr int EVENT_REFRESH_CONFIRM = 1074;
    // The portfolio keyboard's id, the same as its bit in sigSetFilter.
    static constexpr int PORTFOLIO_KEYBOARD_ID = 512;

    explicit COpBasketReplaceStockToolBar(QWidget *parent);
    ~COpBasketReplaceStockToolBar() override;

    // Each query is true only if its box exists, is visible and is ticked: a box hidden for the
    // present tab reads as false however it was left. A box folded away for want of room still
    // counts as visible.
    bool isFilter() const;
    bool isFilterZhangTing() const;
    bool isFilterDieTing() const;
    bool isFilterDirection() const;
    bool isFilterBlacklist() const;
    bool isReplaceBlacklist() const;
    bool isReplaceETF() const;

    // The keyboard's tick, false without the keyboard.
    bool isCreatePortfolio() const;
    // The keyboard's name, empty without the keyboard.
    std::string getPortfolioName() const;
    // The replacing basket's name, empty without its editor.
    QString basket() const;

    // Each setter ticks its box, then updateFilter().
    void setFilter(bool on);
    void setFilterZhangTing(bool on);
    void setFilterDieTing(bool on);
    void setFilterZhangdie(bool on);
    void setFilterDirection(bool on);
    void enableFilterBlacklistCheckBox(bool enable);
    void enableReplaceBlacklistCheckBox(bool enable);

    // Shows or hides the replace controls (ids 8, 64, 2 and 4).
    void setShowReplace(bool show);
    void setShowPortfolio(bool show);
    // Shows or hides the first row; the bar shrinks to the second row.
    void setToolBarShow(bool show);
    // Shows the filter boxes that the tab word has.
    void setTradeOperationType(quint64 word);
    quint64 tradeOperationType() const { return m_tradeOpType; }

    // Emits sigSetFilter with the bits of the ticked boxes, visible or not.
    void updateFilter();

    // The share of the basket's rows that cannot trade now, in the second row.
    void setStopPercentText(const QString &basketName);
    // The portfolio keyboard is enabled only for lines that can open or close a portfolio; the
    // tick stays as it is.
    void setPortfolioEnabled(const std::vector<ttservice::CCodeOrderParam> &lines);

    // The first three boxes of the first row (suspended, rise limit, fall limit), which the
    // panel's parameter text keeps; ticks without telling anyone.
    void setFilterBox(int place, bool on);

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

    WK::CCheckBox *checkBox(int id) const;
    COpBasketsLineEdit *replaceBasketEdit() const { return m_replaceBasketEdit; }
    // Null unless the portfolio module is on.
    WK::CCreatePortfolioKeyboard *portfolioKeyboard() const { return m_portfolioKeyboard; }
    WK::CAutoExpandToolBar *toolBar() const { return m_toolBar; }
    WK::CSimpleTextWidget *stopPercentText() const { return m_stopPercentText; }

Q_SIGNALS:
    void sigSetFilter(int flags);

private:
    void createUi();
    bool hasReplaceControls() const;
    bool isOn(const WK::CCheckBox *box) const;
    void setItemVisible(QWidget *item, bool visible);
    void warnOfSuspendedStocks();
    static void setBoxChecked(WK::CCheckBox *box, bool on);

    COpBasketsLineEdit *m_replaceBasketEdit = nullptr;
    WK::CCheckBox *m_replaceStopCheck = nullptr;
    WK::CCheckBox *m_filterStopCheck = nullptr;
    WK::CCheckBox *m_filterRiseCheck = nullptr;
    WK::CCheckBox *m_filterFallCheck = nullptr;
    WK::CCheckBox *m_filterDirectionCheck = nullptr;
    WK::CAutoExpandToolBar *m_toolBar = nullptr;
    quint64 m_tradeOpType = 512;
    WK::CCheckBox *m_filterBlacklistCheck = nullptr;
    WK::CCheckBox *m_replaceBlacklistCheck = nullptr;
    WK::CCheckBox *m_autoRefreshCheck = nullptr;
    WK::CCreatePortfolioKeyboard *m_portfolioKeyboard = nullptr;
    WK::CSimpleTextWidget *m_stopPercentText = nullptr;
    QString m_basketHint = QStringLiteral("请选择篮子");
    WK::CAutoExpandToolBar *m_secondRow = nullptr;
};

} // namespace TC
