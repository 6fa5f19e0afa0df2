#pragma once

#include "BasketExport.h"
#include "CBaseWidget.h"

#include "CCodeOrderParam.h"

#include <QString>

#include <vector>

namespace WK {
class CCheckBox;
class CSimpleTextWidget;
class CWidgetList;
} // namespace WK

namespace TC {

// The strip of check boxes above the confirmation table: what the order list leaves out or
// replaces. It holds no logic of the list; the form and the table ask it through its queries.
class BASKETPANEL_EXPORT COpBasketReplaceStockToolBar : public WK::CBaseWidget
{
    Q_OBJECT

public:
    explicit COpBasketReplaceStockToolBar(QWidget *parent);
    ~COpBasketReplaceStockToolBar() override;

    // Each query is true only if its box exists, is visible and is ticked.
    bool isFilter() const;
    bool isFilterZhangTing() const;
    bool isFilterDieTing() const;
    bool isFilterDirection() const;
    bool isFilterBlacklist() const;
    bool isReplaceBlacklist() const;
    bool isReplaceETF() const;

    // Each setter ticks its box, then updateFilter().
    void setFilter(bool on);
    void setFilterZhangTing(bool on);
    void setFilterDieTing(bool on);
    void setFilterZhangdie(bool on);
    void setFilterDirection(bool on);
    void enableFilterBlacklistCheckBox(bool enable);
    void enableReplaceBlacklistCheckBox(bool enable);

    void setShowReplace(bool show);
    void setShowPortfolio(bool show);
    void setToolBarShow(bool show);
    void setTradeOperationType(quint64 word);

    // Emits sigSetFilter with the bits of the ticked boxes, visible or not.
    void updateFilter();

    // The first three boxes of the first row (suspended, rise limit, fall limit), which the
    // panel's parameter text keeps; ticks without telling anyone.
    void setFilterBox(int place, bool on);

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

    WK::CCheckBox *checkBox(int id) const;

Q_SIGNALS:
    void sigSetFilter(int flags);

private:
    void createUi();
    bool isOn(const WK::CCheckBox *box) const;
    void setBoxVisible(WK::CCheckBox *box, bool visible);
    static void setBoxChecked(WK::CCheckBox *box, bool on);

    WK::CCheckBox *m_replaceStopCheck = nullptr;
    WK::CCheckBox *m_filterStopCheck = nullptr;
    WK::CCheckBox *m_filterRiseCheck = nullptr;
    WK::CCheckBox *m_filterFallCheck = nullptr;
    WK::CCheckBox *m_filterDirectionCheck = nullptr;
    WK::CWidgetList *m_toolBar = nullptr;
    quint64 m_tradeOpType = 512;
    WK::CCheckBox *m_filterBlacklistCheck = nullptr;
    WK::CCheckBox *m_replaceBlacklistCheck = nullptr;
    WK::CCheckBox *m_autoRefreshCheck = nullptr;
    WK::CSimpleTextWidget *m_stopPercentText = nullptr;
    QString m_basketHint = QStringLiteral("请选择篮子");
};

} // namespace TC
