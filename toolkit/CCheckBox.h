#pragma once

#include "BasketToolkitExport.h"
#include "CEventWidgetT.h"

#include <QCheckBox>

namespace WK {

// A check box with an id. Every change of its state delivers event 60 (value 1 when checked,
// else 0), whether the user or the program changed it; a click of the user then also delivers
// event 61 with the new state.
class BASKET_TOOLKIT_EXPORT CCheckBox : public CEventWidgetT<QCheckBox>
{
    Q_OBJECT

public:
    CCheckBox(int id, const QString &text, QWidget *parent);
    ~CCheckBox() override;

    int id() const { return m_id; }
    void setId(int id) { m_id = id; }

    // Text colour.
    void setColorKey(const QString &key);
    QString colorKey() const { return m_colorKey; }

    void themeChanged() override;

private:
    void applyLook();

    int m_id = 0;
    QString m_colorKey;
};

} // namespace WK
