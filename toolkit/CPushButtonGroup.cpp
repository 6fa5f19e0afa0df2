#include "CPushButtonGroup.h"

#include "CPushButton.h"
#include "CWidgetList.h"

#include <QButtonGroup>

namespace WK {

CPushButtonGroup::CPushButtonGroup(int orientation, QWidget *parent)
    : CBaseWidget(QStringLiteral("push_button_group"), false, parent)
{
    m_list = new CWidgetList(orientation, this);
    m_group = new QButtonGroup(this);
    m_group->setExclusive(true);
    m_list->setMargin(0, 0, 0, 0);
    m_list->setSpacing(0);
    setInnerStretchWidget(m_list, 0, 0, 0, 0);
}

CPushButtonGroup::~CPushButtonGroup() = default;

CPushButton *CPushButtonGroup::addPushButton(int id, const QString &text)
{
    auto *button = new CPushButton(id, text, m_list);
    addPushButton(button);
    return button;
}

void CPushButtonGroup::addPushButton(CPushButton *button)
{
    if (!button || m_buttons.contains(button))
        return;
    button->setCheckable(true);
    m_group->addButton(button);
    m_buttons.append(button);
    m_list->addStretchWidget(button, 1, 0, 0);
}

void CPushButtonGroup::setCheckedByID(int id)
{
    if (CPushButton *b = button(id))
        b->setChecked(true);
}

CPushButton *CPushButtonGroup::checkedButton() const
{
    for (CPushButton *b : m_buttons) {
        if (b->isChecked())
            return b;
    }
    return nullptr;
}

int CPushButtonGroup::checkedId() const
{
    const CPushButton *b = checkedButton();
    return b ? b->id() : -1;
}

CPushButton *CPushButtonGroup::button(int id) const
{
    for (CPushButton *b : m_buttons) {
        if (b->id() == id)
            return b;
    }
    return nullptr;
}

} // namespace WK
