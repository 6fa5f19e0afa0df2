#pragma once

#include "BasketToolkitExport.h"
#include "CEventWidgetT.h"

#include <QPushButton>

namespace WK {

// A push button with an id. A click delivers event 5 with the id (value: 1 if the button is
// now checked, else 0; text: the button's text).
//
// An image key paints the button with that CUiResource image, stretched as a nine-patch, with a
// light overlay on hover and a darker one when pressed; without one the button has the toolkit's
// flat look. An icon key sets the icon.
class BASKET_TOOLKIT_EXPORT CPushButton : public CEventWidgetT<QPushButton>
{
    Q_OBJECT

public:
    CPushButton(int id, QWidget *parent);
    CPushButton(int id, const QString &text, QWidget *parent);
    ~CPushButton() override;

    int id() const { return m_id; }
    void setId(int id) { m_id = id; }

    void setImageKey(const QString &key);
    QString imageKey() const { return m_imageKey; }
    void setIconKey(const QString &key);
    QString iconKey() const { return m_iconKey; }
    // Text colour.
    void setColorKey(const QString &key);

    void themeChanged() override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void applyLook();

    int m_id = 0;
    QString m_imageKey;
    QString m_iconKey;
    QString m_colorKey;
};

} // namespace WK
