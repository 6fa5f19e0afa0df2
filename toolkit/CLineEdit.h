#pragma once

#include "BasketToolkitExport.h"
#include "CEventWidgetT.h"

#include <QLineEdit>

namespace WK {

// A line edit with an id. Each edit of the user delivers event 107 with the id and the text;
// the end of an edit (Return or leaving the field) that changed the text delivers event 103.
class BASKET_TOOLKIT_EXPORT CLineEdit : public CEventWidgetT<QLineEdit>
{
    Q_OBJECT

public:
    CLineEdit(int id, QWidget *parent);
    ~CLineEdit() override;

    int id() const { return m_id; }
    void setId(int id) { m_id = id; }

    // The grey hint shown while the field is empty, in this colour.
    void setHintText(const QString &text, const QString &colorKey = QStringLiteral("clr_text_hint"));
    // Text colour.
    void setColorKey(const QString &key);

    void themeChanged() override;

private:
    void applyLook();

    int m_id = 0;
    QString m_colorKey;
    QString m_hintColorKey = QStringLiteral("clr_text_hint");
    QString m_committedText;
};

} // namespace WK
