#pragma once

#include "BasketToolkitExport.h"
#include "CBaseWidget.h"

#include <QVector>

class QBoxLayout;
class QButtonGroup;
class QRadioButton;

namespace WK {

// Radio buttons of which one is chosen. Each click of the user delivers event 85 with the
// button's id, also on the button already chosen; setButtonCheckedByID delivers nothing.
class BASKET_TOOLKIT_EXPORT CRadioButtonGroup : public CBaseWidget
{
    Q_OBJECT

public:
    // orientation: 1 a row (the default), 2 a column.
    explicit CRadioButtonGroup(QWidget *parent, int orientation = Qt::Horizontal);
    ~CRadioButtonGroup() override;

    QRadioButton *addButton(const QString &text, int id, bool checked);
    void setButtonCheckedByID(int id);
    // The id of the chosen button, -1 with none.
    int checkedId() const;
    QRadioButton *button(int id) const;
    int count() const { return m_buttons.size(); }

    void setSpacing(int spacing);
    // The focus policy of the group and of its buttons.
    void setFocusPolicy(Qt::FocusPolicy policy);
    // Text colour of the buttons.
    void setColorKey(const QString &key);

    void themeChanged() override;

private:
    struct Entry {
        int id;
        QRadioButton *button;
    };
    void applyLook(QRadioButton *button) const;

    QBoxLayout *m_layout = nullptr;
    QButtonGroup *m_group = nullptr;
    QVector<Entry> m_buttons;
    QString m_colorKey = QStringLiteral("clr_text_default");
};

} // namespace WK
