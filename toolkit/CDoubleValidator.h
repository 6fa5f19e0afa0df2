#pragma once

#include "BasketToolkitExport.h"

#include <QValidator>

namespace WK {

// Decimal numbers within a range, with at most so many decimals, typed with or without
// thousands separators; the decimal point is always ".".
class BASKET_TOOLKIT_EXPORT CDoubleValidator : public QValidator
{
    Q_OBJECT

public:
    CDoubleValidator(double bottom, double top, int decimals, QObject *parent = nullptr);
    ~CDoubleValidator() override;

    double bottom() const { return m_bottom; }
    double top() const { return m_top; }
    int decimals() const { return m_decimals; }
    void setRange(double bottom, double top, int decimals);

    State validate(QString &input, int &pos) const override;
    // An out-of-range number becomes the nearer bound.
    void fixup(QString &input) const override;

private:
    double m_bottom = 0;
    double m_top = 0;
    int m_decimals = 2;
};

} // namespace WK
