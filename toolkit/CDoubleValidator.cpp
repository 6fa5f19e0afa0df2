#include "CDoubleValidator.h"

#include "TextHelpers.h"

#include <algorithm>

namespace WK {

CDoubleValidator::CDoubleValidator(double bottom, double top, int decimals, QObject *parent)
    : QValidator(parent)
{
    setRange(bottom, top, decimals);
}

CDoubleValidator::~CDoubleValidator() = default;

void CDoubleValidator::setRange(double bottom, double top, int decimals)
{
    m_bottom = std::min(bottom, top);
    m_top = std::max(bottom, top);
    m_decimals = std::clamp(decimals, 0, 15);
    Q_EMIT changed();
}

QValidator::State CDoubleValidator::validate(QString &input, int &) const
{
    const QString plain = unformatNumberString(input);
    if (plain.isEmpty() || (plain == QLatin1String("-") && m_bottom < 0))
        return Intermediate;
    const int dot = plain.indexOf(QLatin1Char('.'));
    if (dot >= 0) {
        if (m_decimals == 0 || plain.size() - dot - 1 > m_decimals)
            return Invalid;
        if (plain.indexOf(QLatin1Char('.'), dot + 1) >= 0)
            return Invalid;
    }
    for (const QChar c : plain) {
        if (!c.isDigit() && c != QLatin1Char('.') && c != QLatin1Char('-'))
            return Invalid;
    }
    bool ok = false;
    const double value = plain.toDouble(&ok);
    if (!ok)
        return plain.endsWith(QLatin1Char('.')) ? Intermediate : Invalid;
    if (value < 0 && m_bottom >= 0)
        return Invalid;
    if (value > m_top)
        return value > 0 ? Invalid : Intermediate;
    return value < m_bottom ? Intermediate : Acceptable;
}

void CDoubleValidator::fixup(QString &input) const
{
    bool ok = false;
    const double value = unformatNumberString(input).toDouble(&ok);
    if (ok)
        input = QString::number(std::clamp(value, m_bottom, m_top), 'f', m_decimals);
}

} // namespace WK
