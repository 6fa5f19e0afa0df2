#pragma once

#include "BasketToolkitExport.h"

#include <QValidator>

namespace WK {

// Whole numbers within a range, typed with or without thousands separators.
class BASKET_TOOLKIT_EXPORT CIntValidator : public QValidator
{
    Q_OBJECT

public:
    CIntValidator(qint64 bottom, qint64 top, QObject *parent = nullptr);
    ~CIntValidator() override;

    qint64 bottom() const { return m_bottom; }
    qint64 top() const { return m_top; }
    void setRange(qint64 bottom, qint64 top);

    State validate(QString &input, int &pos) const override;
    // An out-of-range number becomes the nearer bound.
    void fixup(QString &input) const override;

private:
    qint64 m_bottom = 0;
    qint64 m_top = 0;
};

} // namespace WK
