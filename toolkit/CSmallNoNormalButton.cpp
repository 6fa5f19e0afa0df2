#include "CSmallNoNormalButton.h"

#include "CUiResource.h"

namespace WK {

CSmallNoNormalButton::CSmallNoNormalButton(int id, const QString &text, QWidget *parent)
    : CPushButton(id, text, parent)
{
    applySmallLook();
}

CSmallNoNormalButton::~CSmallNoNormalButton() = default;

void CSmallNoNormalButton::themeChanged()
{
    CPushButton::themeChanged();
    applySmallLook();
}

void CSmallNoNormalButton::applySmallLook()
{
    CUiResource *res = CUiResource::instance();
    setStyleSheet(QStringLiteral(
        "QPushButton { color: %1; background: transparent; border: 1px solid transparent; border-radius: 2px; padding: 0px 2px; }"
        "QPushButton:hover { border-color: %2; background: %3; }"
        "QPushButton:pressed { background: %2; color: %4; }"
        "QPushButton:disabled { color: %5; }")
        .arg(res->getColorSheetByKey(QStringLiteral("clr_text_default")),
             res->getColorSheetByKey(QStringLiteral("clr_accent")),
             res->getColorSheetByKey(QStringLiteral("clr_basket_param_tab_button_hover")),
             res->getColorSheetByKey(QStringLiteral("clr_global_white")),
             res->getColorSheetByKey(QStringLiteral("clr_text_disabled"))));
}

} // namespace WK
