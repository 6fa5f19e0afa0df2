#pragma once

#include "BasketPlatformExport.h"
#include "CFloatWidget.h"

#include <QPointer>

namespace WK {
class CComboBox;
class CParameterCell;
class CPushButton;
} // namespace WK

namespace TC {

class COpBasketFutureParamsWidget;

// The pop-up "对冲设置" of the hedge block: the hedge type and the fixed number of futures lots,
// settings that a trader changes rarely and that would crowd the block.
//
// load() copies the block's values into the editors; "确定" writes them back to the block and
// closes, "取消" (or Escape, or a click outside) closes without a change. The pop-up delivers
// no events: what it changes is read from the block when an order is placed.
class BASKET_PLATFORM_EXPORT COpBasketHedgeSettingWidget final : public WK::CFloatWidget
{
    Q_OBJECT

public:
    explicit COpBasketHedgeSettingWidget(QWidget *parent);
    ~COpBasketHedgeSettingWidget() override;

    // The block that the pop-up edits. Without one set here, the first hedge block found under
    // the pop-up's parent widget.
    void setHedgeWidget(COpBasketFutureParamsWidget *widget);
    COpBasketFutureParamsWidget *hedgeWidget() const;

    void load();

    void onOK() override;
    bool handleEvent(int event, int id, int value, QString text, void *data) override;

    WK::CComboBox *hedgeTypeCombo() const { return m_typeCombo; }
    WK::CParameterCell *volumeCell() const { return m_volumeCell; }

private:
    QPointer<COpBasketFutureParamsWidget> m_hedgeWidget;
    WK::CComboBox *m_typeCombo = nullptr;
    WK::CParameterCell *m_volumeCell = nullptr;
    WK::CPushButton *m_okButton = nullptr;
    WK::CPushButton *m_cancelButton = nullptr;
};

} // namespace TC
