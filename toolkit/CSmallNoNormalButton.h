#pragma once

#include "BasketToolkitExport.h"
#include "CPushButton.h"

namespace WK {

// The small text button of tool rows: no frame and no background while the mouse is away, so
// that a row of them reads as a row of words; a frame on hover, filled while pressed. Its
// padding is small enough for two characters in 35 pixels. Events as CPushButton.
class BASKET_TOOLKIT_EXPORT CSmallNoNormalButton final : public CPushButton
{
    Q_OBJECT

public:
    CSmallNoNormalButton(int id, const QString &text, QWidget *parent);
    ~CSmallNoNormalButton() override;

    void themeChanged() override;

private:
    void applySmallLook();
};

} // namespace WK
