#pragma once

#include "BasketPlatformExport.h"
#include "CBaseWidget.h"

#include <QString>
#include <QVector>

class QBoxLayout;
class QButtonGroup;

namespace WK {
class CPushButton;
} // namespace WK

namespace TC {

class CBasketParamTabButton;

// The tabs of an operation panel: a row or column of checkable buttons, each with the id of the
// tab it opens (the basket form uses its tab words).
//
// Pressing a tab (by the user) delivers event 5 to the group's parent with the tab's id, value 1
// for a checked tab, and the tab's text; pressing the tab that is already current delivers it
// again. setCheckedByID delivers nothing. Buttons keep their own length along the group; the
// rest of the group stays empty.
class BASKET_PLATFORM_EXPORT COperationPushButtonGroup final : public WK::CBaseWidget
{
    Q_OBJECT

public:
    // orientation: 1 a row, 2 a column. spacing: pixels between neighbouring buttons. margin:
    // pixels around the buttons. exclusive: 1 keeps exactly one button checked, 0 lets each
    // button keep its own check.
    COperationPushButtonGroup(int orientation, int spacing, int margin, int exclusive, QWidget *parent);
    ~COperationPushButtonGroup() override;

    // Adds a tab made here with the group's look; null if the group has a button of this id.
    CBasketParamTabButton *addButton(int id, const QString &text);
    // Adds a button made by the caller; the group takes it over. A null button, one already in
    // the group or one whose id the group has already is ignored.
    void addButton(WK::CPushButton *button);

    // Checks the button of this id and delivers nothing; an unknown id leaves the check as it is.
    void setCheckedByID(int id);
    WK::CPushButton *checkedButton() const;
    // The id of the checked button, -1 with none.
    int checkedId() const;
    WK::CPushButton *button(int id) const;
    QVector<WK::CPushButton *> buttons() const { return m_buttons; }

    int orientation() const { return m_orientation; }
    bool isExclusive() const;

private:
    int m_orientation = Qt::Vertical;
    QBoxLayout *m_layout = nullptr;
    QButtonGroup *m_group = nullptr;
    QVector<WK::CPushButton *> m_buttons;
};

} // namespace TC
