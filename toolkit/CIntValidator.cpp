#include "CIntValidator.h"

#include "TextHelpers.h"

#include <algorithm>

namespace WK {

CIntValidator::CIntValidator(qint64 bottom, qint64 top, QObject *parent)
    : QValidator(parent)
{
    setRange(bottom, top);
}

CIntValidator::~CIntValidator() = default;

void CIntValidator::setRange(qint64 bottom, qint64 top)
{
    m_bottom = std::min(bottom, top);
    m_top = std::max(bottom, top);
    Q_EMIT changed();
}

QValidator::State CIntValidator::validate(QString &input, int &) const
{
    const QString plain = unformatNumberString(input);
    if (plain.isEmpty() || (plain == QLatin1String("-") && m_bottom < 0) || plain == QLatin1String("+"))
        return Intermediate;
    bool ok = false;
    const qint64 value = plain.toLongLong(&ok);
    if (!ok)
        return Invalid;
    if (value < 0 && m_bottom >= 0)
        return Invalid;
    if (value > m_top) {
        // More digits cannot bring a positive number back into range.
        return value > 0 ? Invalid : Intermediate;
    }
    return value < m_bottom ? Intermediate : Acceptable;
}

void CIntValidator::fixup(QString &input) const
{
    bool ok = false;
    const qint64 value = unformatNumberString(input).toLongLong(&ok);
    if (ok)
        input = QString::number(std::clamp(value, m_bottom, m_top));
}

} // namespace WK
