#include "COpBasketHedgeSettingWidget.h"

#include "COpBasketFutureParamsWidget.h"

#include "CComboBox.h"
#include "CParameterCell.h"
#include "CPushButton.h"
#include "CSimpleTextWidget.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace TC {
namespace {

constexpr int kTypeComboId = 1;
constexpr int kVolumeCellId = 2;
constexpr int kOkId = 10;
constexpr int kCancelId = 11;
constexpr int kRowHeight = 24;

} // namespace

COpBasketHedgeSettingWidget::COpBasketHedgeSettingWidget(QWidget *parent)
    : WK::CFloatWidget(true, parent)
{
    setObjectName(QStringLiteral("basket_hedge_setting_widget"));
    setTitle(QStringLiteral("对冲设置"));

    auto *content = new QWidget(this);
    auto *typeLabel = new WK::CSimpleTextWidget(0, QStringLiteral("对冲方式"), content);
    m_typeCombo = new WK::CComboBox(kTypeComboId, content);
    m_volumeCell = new WK::CParameterCell(kVolumeCellId, QStringLiteral("对冲手数"), QStringLiteral("手"), content);
    auto *hint = new WK::CSimpleTextWidget(0, QStringLiteral("手数为0时按对冲比例计算"), content);
    m_okButton = new WK::CPushButton(kOkId, QStringLiteral("确定"), content);
    m_cancelButton = new WK::CPushButton(kCancelId, QStringLiteral("取消"), content);

    for (WK::CSimpleTextWidget *text : {typeLabel, hint})
        text->setFontKey(QStringLiteral("fnt_default_normal"));
    m_typeCombo->setFontKey(QStringLiteral("fnt_default_normal"));
    m_okButton->setFontKey(QStringLiteral("fnt_default_normal"));
    m_cancelButton->setFontKey(QStringLiteral("fnt_default_normal"));

    for (const int type : {COpBasketFutureParamsWidget::HT_BY_DEAL, COpBasketFutureParamsWidget::HT_SYNCHRONOUS,
                           COpBasketFutureParamsWidget::HT_MANUAL})
        m_typeCombo->addItem(COpBasketFutureParamsWidget::hedgeTypeName(type), type);
    m_typeCombo->setFixedSize(120, kRowHeight);
    m_volumeCell->setIntValidator(QStringLiteral("手"), 0, 1000000, 1);
    m_volumeCell->setFixedSize(185, kRowHeight);
    hint->setColorKey(QStringLiteral("clr_text_hint"));
    m_okButton->setDefault(true);
    m_okButton->setFixedHeight(kRowHeight);
    m_cancelButton->setFixedHeight(kRowHeight);

    auto *typeRow = new QHBoxLayout;
    typeRow->setSpacing(6);
    typeRow->addWidget(typeLabel);
    typeRow->addWidget(m_typeCombo);
    typeRow->addStretch(1);

    auto *buttonRow = new QHBoxLayout;
    buttonRow->setSpacing(8);
    buttonRow->addStretch(1);
    buttonRow->addWidget(m_okButton);
    buttonRow->addWidget(m_cancelButton);

    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addLayout(typeRow);
    layout->addWidget(m_volumeCell);
    layout->addWidget(hint);
    layout->addSpacing(4);
    layout->addLayout(buttonRow);
    setInnerStretchWidget(content, 12, 10, 12, 10);
    setFixedSize(240, kTitleHeight + 150);
}

COpBasketHedgeSettingWidget::~COpBasketHedgeSettingWidget() = default;

void COpBasketHedgeSettingWidget::setHedgeWidget(COpBasketFutureParamsWidget *widget)
{
    m_hedgeWidget = widget;
}

COpBasketFutureParamsWidget *COpBasketHedgeSettingWidget::hedgeWidget() const
{
    if (m_hedgeWidget)
        return m_hedgeWidget;
    QWidget *owner = parentWidget();
    return owner ? owner->findChild<COpBasketFutureParamsWidget *>() : nullptr;
}

void COpBasketHedgeSettingWidget::load()
{
    const COpBasketFutureParamsWidget *block = hedgeWidget();
    if (!block)
        return;
    const int index = m_typeCombo->findData(block->hedgeType());
    m_typeCombo->setCurrentIndex(index < 0 ? 0 : index);
    m_volumeCell->setInt(block->contractVolume());
}

void COpBasketHedgeSettingWidget::onOK()
{
    COpBasketFutureParamsWidget *block = hedgeWidget();
    if (!block)
        return;
    block->setHedgeType(m_typeCombo->currentData().toInt());
    block->setContractVolume(m_volumeCell->toInt());
}

bool COpBasketHedgeSettingWidget::handleEvent(int event, int id, int, QString, void *)
{
    if (event == 5 && id == kOkId)
        tryOK();
    else if (event == 5 && id == kCancelId)
        reject();
    // The pop-up is the root of its controls' events: none of them concerns the form.
    return true;
}

} // namespace TC
