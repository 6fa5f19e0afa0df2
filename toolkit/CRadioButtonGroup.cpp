#include "CRadioButtonGroup.h"

#include "CUiResource.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QRadioButton>

namespace WK {

CRadioButtonGroup::CRadioButtonGroup(QWidget *parent, int orientation)
    : CBaseWidget(QStringLiteral("radio_button_group"), false, parent)
{
    m_layout = new QBoxLayout(orientation == Qt::Vertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, this);
    m_group = new QButtonGroup(this);
    m_group->setExclusive(true);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(12);
    m_layout->addStretch(1);
}

CRadioButtonGroup::~CRadioButtonGroup() = default;

QRadioButton *CRadioButtonGroup::addButton(const QString &text, int id, bool checked)
{
    auto *radio = new QRadioButton(text, this);
    radio->setFocusPolicy(focusPolicy());
    applyLook(radio);
    m_group->addButton(radio);
    m_buttons.append({id, radio});
    // before the closing stretch, which keeps the buttons together at the start
    m_layout->insertWidget(m_layout->count() - 1, radio);
    if (checked)
        radio->setChecked(true);
    connect(radio, &QRadioButton::clicked, this, [this, id] { deliverEvent(85, id, 0, QString(), nullptr); });
    return radio;
}

void CRadioButtonGroup::setButtonCheckedByID(int id)
{
    if (QRadioButton *radio = button(id))
        radio->setChecked(true);
}

int CRadioButtonGroup::checkedId() const
{
    for (const Entry &e : m_buttons) {
        if (e.button->isChecked())
            return e.id;
    }
    return -1;
}

QRadioButton *CRadioButtonGroup::button(int id) const
{
    for (const Entry &e : m_buttons) {
        if (e.id == id)
            return e.button;
    }
    return nullptr;
}

void CRadioButtonGroup::setSpacing(int spacing)
{
    m_layout->setSpacing(spacing < 0 ? -1 : spacing);
}

void CRadioButtonGroup::setFocusPolicy(Qt::FocusPolicy policy)
{
    QWidget::setFocusPolicy(policy);
    for (const Entry &e : m_buttons)
        e.button->setFocusPolicy(policy);
}

void CRadioButtonGroup::setColorKey(const QString &key)
{
    m_colorKey = key;
    for (const Entry &e : m_buttons)
        applyLook(e.button);
}

void CRadioButtonGroup::themeChanged()
{
    CBaseWidget::themeChanged();
    for (const Entry &e : m_buttons)
        applyLook(e.button);
}

void CRadioButtonGroup::applyLook(QRadioButton *button) const
{
    QPalette palette = button->palette();
    palette.setColor(QPalette::WindowText, CUiResource::instance()->getColor(m_colorKey));
    button->setPalette(palette);
}

} // namespace WK
