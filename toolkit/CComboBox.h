#pragma once

#include "BasketToolkitExport.h"
#include "CEventWidgetT.h"

#include <QComboBox>

namespace WK {

// A combo box with an id. When the user chooses an item (the current one too) it delivers event
// 64 with the id, the index as value and the item's text; changes made by the program deliver
// nothing.
class BASKET_TOOLKIT_EXPORT CComboBox : public CEventWidgetT<QComboBox>
{
    Q_OBJECT

public:
    CComboBox(int id, QWidget *parent);
    ~CComboBox() override;

    int id() const { return m_id; }
    void setId(int id) { m_id = id; }

    // The font of the editor and of the list.
    void setFixFont(const QFont &font) override;

private:
    int m_id = 0;
};

} // namespace WK
