#include "CCheckBox.h"

#include "CUiResource.h"

namespace WK {

CCheckBox::CCheckBox(int id, const QString &text, QWidget *parent)
    : CEventWidgetT<QCheckBox>(parent)
    , m_id(id)
{
    setText(text);
    applyLook();
    connect(this, &QCheckBox::toggled, this, [this](bool checked) {
        deliverEvent(60, m_id, checked ? 1 : 0, this->text(), nullptr);
    });
    connect(this, &QCheckBox::clicked, this, [this](bool checked) {
        deliverEvent(61, m_id, checked ? 1 : 0, this->text(), nullptr);
    });
}

CCheckBox::~CCheckBox() = default;

void CCheckBox::setColorKey(const QString &key)
{
    m_colorKey = key;
    applyLook();
}

void CCheckBox::themeChanged()
{
    CEventWidgetT<QCheckBox>::themeChanged();
    applyLook();
}

void CCheckBox::applyLook()
{
    QPalette palette = this->palette();
    const QColor color = CUiResource::instance()->getColor(m_colorKey.isEmpty() ? QStringLiteral("clr_text_default") : m_colorKey);
    palette.setColor(QPalette::WindowText, color);
    palette.setColor(QPalette::Text, color);
    setPalette(palette);
}

} // namespace WK
