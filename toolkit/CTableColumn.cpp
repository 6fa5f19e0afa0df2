#include "CTableColumn.h"

namespace WK {

CTableColumn::CTableColumn(const QString &title, int width, Qt::Alignment alignment)
    : m_title(title)
    , m_width(width)
    , m_alignment(alignment)
{
}

QString CTableColumn::formatNumber(const QVariant &value, int precision, int numberFlags) const
{
    const int flags = numberFlags < 0 ? m_numberFlags : numberFlags;
    if (value.userType() == QMetaType::Double)
        return formatDoubleNumber(value.toDouble(), precision < 0 ? m_precision : precision, flags, m_invalidText);
    if (!value.isValid())
        return QString();
    return formatIntNumber(value.toLongLong(), flags);
}

} // namespace WK
