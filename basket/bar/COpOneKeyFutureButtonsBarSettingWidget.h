#pragma once

#include "BasketExport.h"
#include "CFloatWidget.h"

#include "TradeEnums.h"

#include <QString>

namespace WK {
class CRadioButtonGroup;
class CWidgetList;
} // namespace WK

namespace TC {

// The floating box that the futures tabs open from the button bar: the hedge flag and whether
// today's position is closed first. Every choice of the user, also of the radio already
// chosen, delivers event 1043 to the parent (id 0, value 1, text "1" when today's position
// goes first, else "0"); the parent reads the hedge flag back with getHedgeType.
class BASKETPANEL_EXPORT COpOneKeyFutureButtonsBarSettingWidget final : public WK::CFloatWidget
{
    Q_OBJECT

public:
    static constexpr int kCloseYesterdayFirstId = 103;
    static constexpr int kCloseTodayFirstId = 102;

    COpOneKeyFutureButtonsBarSettingWidget(ttservice::EHedge_Flag_Type flag, bool closeTodayFirst, QWidget *parent);
    ~COpOneKeyFutureButtonsBarSettingWidget() override;

    void setHedgeType(ttservice::EHedge_Flag_Type flag);
    ttservice::EHedge_Flag_Type getHedgeType() const { return m_hedgeFlag; }
    void setCheckState(bool closeTodayFirst);
    bool isCloseTodayFirst() const { return m_closeTodayFirst; }

    // The close row is shown only where the operation closes a position.
    void setCloseTypeVisible(bool visible);
    bool isCloseTypeVisible() const;

    // Checks the radios of the stored values.
    void updateUi();

    bool handleEvent(int event, int id, int value, QString text, void *data) override;
    void scaleChanged() override;

private:
    void applyRadioFont();

    WK::CWidgetList *m_list = nullptr;
    WK::CRadioButtonGroup *m_closeGroup = nullptr;
    WK::CRadioButtonGroup *m_hedgeGroup = nullptr;
    bool m_closeTodayFirst = false;
    ttservice::EHedge_Flag_Type m_hedgeFlag = ttservice::HEDGE_FLAG_SPECULATION;
};

} // namespace TC
