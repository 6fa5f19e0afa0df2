#include "CComboBox.h"

#include <QAbstractItemView>
#include <QLineEdit>

namespace WK {

CComboBox::CComboBox(int id, QWidget *parent)
    : CEventWidgetT<QComboBox>(parent)
    , m_id(id)
{
    // activated comes from the user only, so restoring a saved index reports nothing.
    connect(this, QOverload<int>::of(&QComboBox::activated), this, [this](int index) {
        deliverEvent(64, m_id, index, itemText(index), nullptr);
    });
}

CComboBox::~CComboBox() = default;

void CComboBox::setFixFont(const QFont &font)
{
    CEventWidgetT<QComboBox>::setFixFont(font);
    if (QLineEdit *edit = lineEdit())
        edit->setFont(font);
    if (QAbstractItemView *list = view())
        list->setFont(font);
}

} // namespace WK
