#include "COperationPushButtonGroup.h"

#include "CBasketParamTabButton.h"

#include "CPushButton.h"

#include <QBoxLayout>
#include <QButtonGroup>

namespace TC {

COperationPushButtonGroup::COperationPushButtonGroup(int orientation, int spacing, int margin, int exclusive,
                                                     QWidget *parent)
    : WK::CBaseWidget(QStringLiteral("operation_push_button_group"), false, parent)
    , m_orientation(orientation == Qt::Horizontal ? Qt::Horizontal : Qt::Vertical)
{
    m_group = new QButtonGroup(this);

    m_layout = new QBoxLayout(m_orientation == Qt::Vertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, this);
    m_layout->setContentsMargins(margin, margin, margin, margin);
    m_layout->setSpacing(spacing < 0 ? 0 : spacing);
    // Buttons are inserted in front of this stretch, so they keep their length and stay together.
    m_layout->addStretch(1);

    m_group->setExclusive(exclusive != 0);
}

COperationPushButtonGroup::~COperationPushButtonGroup() = default;

CBasketParamTabButton *COperationPushButtonGroup::addButton(int id, const QString &text)
{
    if (button(id))
        return nullptr;
    auto *tab = new CBasketParamTabButton(id, text, this);
    addButton(tab);
    return tab;
}

void COperationPushButtonGroup::addButton(WK::CPushButton *button)
{
    if (!button || m_buttons.contains(button) || this->button(button->id()))
        return;
    button->setParent(this);
    button->setCheckable(true);
    m_group->addButton(button);
    m_buttons.append(button);
    m_layout->insertWidget(m_layout->count() - 1, button);
    button->show();
}

void COperationPushButtonGroup::setCheckedByID(int id)
{
    if (WK::CPushButton *b = button(id))
        b->setChecked(true);
}

WK::CPushButton *COperationPushButtonGroup::checkedButton() const
{
    for (WK::CPushButton *b : m_buttons) {
        if (b->isChecked())
            return b;
    }
    return nullptr;
}

int COperationPushButtonGroup::checkedId() const
{
    const WK::CPushButton *b = checkedButton();
    return b ? b->id() : -1;
}

WK::CPushButton *COperationPushButtonGroup::button(int id) const
{
    for (WK::CPushButton *b : m_buttons) {
        if (b->id() == id)
            return b;
    }
    return nullptr;
}

bool COperationPushButtonGroup::isExclusive() const
{
    return m_group->exclusive();
}

} // namespace TC
