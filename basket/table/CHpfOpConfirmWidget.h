#pragma once

#include "COpBasketConfirmWidget.h"

#include <QMap>

namespace TC {

// The confirmation table as the panel's form places it: the table of the order list with the
// operations the wrapper calls, the basket it shows, and whether its lines may be edited.
class BASKETPANEL_EXPORT CHpfOpConfirmWidget : public COpBasketConfirmWidget
{
    Q_OBJECT

public:
    explicit CHpfOpConfirmWidget(QWidget *parent);
    ~CHpfOpConfirmWidget() override;

    // The word and the maps carry what other kinds of lists need; a basket list needs none.
    void loadParams(std::vector<ttservice::CCodeOrderParam> *list, quint64 word, bool canCustom,
                    const QMap<QString, int> &intValues, const QMap<QString, QString> &textValues,
                    const QMap<QString, double> &firstValues, const QMap<QString, double> &secondValues, int flags);
    using COpBasketConfirmWidget::loadParams;

    void setBasketName(const QString &name) { m_basketName = name; }
    QString basketName() const { return m_basketName; }
    // Whether the user may change quantities: only in a basket of the user's own.
    void setLineEditable(bool editable);
    bool isLineEditable() const { return m_lineEditable; }

private:
    QString m_basketName;
    bool m_lineEditable = true;
};

} // namespace TC
