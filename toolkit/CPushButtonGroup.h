#pragma once

#include "BasketToolkitExport.h"
#include "CBaseWidget.h"

#include <QVector>

class QButtonGroup;

namespace WK {

class CPushButton;
class CWidgetList;

// A row or column of push buttons of which one at a time is checked, as tabs or modes are.
// A click delivers event 5 with the button's id through the group to the group's parent;
// setCheckedByID delivers nothing.
class BASKET_TOOLKIT_EXPORT CPushButtonGroup : public CBaseWidget
{
    Q_OBJECT

public:
    // orientation: 1 a row, 2 a column.
    CPushButtonGroup(int orientation, QWidget *parent);
    ~CPushButtonGroup() override;

    // Adds a button made here, or one made by the caller (which the group takes over).
    CPushButton *addPushButton(int id, const QString &text);
    void addPushButton(CPushButton *button);

    // Checks the button of this id; an unknown id leaves the check where it is.
    void setCheckedByID(int id);
    CPushButton *checkedButton() const;
    // The id of the checked button, -1 with none.
    int checkedId() const;
    CPushButton *button(int id) const;
    QVector<CPushButton *> buttons() const { return m_buttons; }

    CWidgetList *list() const { return m_list; }

private:
    CWidgetList *m_list = nullptr;
    QButtonGroup *m_group = nullptr;
    QVector<CPushButton *> m_buttons;
};

} // namespace WK
