#include "ChineseNumerals.h"

#include <cmath>

namespace utils {
namespace {

const QString kDigits[] = {
    QStringLiteral("零"), QStringLiteral("壹"), QStringLiteral("贰"), QStringLiteral("叁"), QStringLiteral("肆"),
    QStringLiteral("伍"), QStringLiteral("陆"), QStringLiteral("柒"), QStringLiteral("捌"), QStringLiteral("玖"),
};
// Units inside a group of four digits, from the thousands down.
const QString kGroupUnits[] = {QStringLiteral("仟"), QStringLiteral("佰"), QStringLiteral("拾"), QString()};
// Units of the groups themselves, from the lowest up.
const QString kSectionUnits[] = {QString(), QStringLiteral("万"), QStringLiteral("亿"), QStringLiteral("万亿")};

QString integerPart(long long value)
{
    int groups[4] = {0, 0, 0, 0};
    for (int i = 0; i < 4; ++i) {
        groups[i] = static_cast<int>(value % 10000);
        value /= 10000;
    }
    QString text;
    // A zero is written once, and only between two non-zero digits.
    bool zeroPending = false;
    for (int section = 3; section >= 0; --section) {
        const int group = groups[section];
        if (group == 0) {
            if (!text.isEmpty())
                zeroPending = true;
            continue;
        }
        if (!text.isEmpty() && group < 1000)
            zeroPending = true;
        int divisor = 1000;
        for (int position = 0; position < 4; ++position, divisor /= 10) {
            const int digit = group / divisor % 10;
            if (digit == 0) {
                if (!text.isEmpty())
                    zeroPending = true;
                continue;
            }
            if (zeroPending && !text.isEmpty())
                text += kDigits[0];
            zeroPending = false;
            text += kDigits[digit] + kGroupUnits[position];
        }
        text += kSectionUnits[section];
        // Zeros at the end of a group belong to it; the next group decides on its own.
        zeroPending = false;
    }
    return text;
}

} // namespace

QString numToChinese(double amount)
{
    if (!std::isfinite(amount) || std::fabs(amount) >= 1e16)
        return QString();
    const long long cents = std::llround(std::fabs(amount) * 100.0);
    if (cents == 0)
        return QStringLiteral("零元整");

    const long long yuan = cents / 100;
    const int jiao = static_cast<int>(cents / 10 % 10);
    const int fen = static_cast<int>(cents % 10);

    QString text = amount < 0 ? QStringLiteral("负") : QString();
    if (yuan > 0)
        text += integerPart(yuan) + QStringLiteral("元");
    if (jiao == 0 && fen == 0)
        return text + QStringLiteral("整");
    if (jiao > 0)
        text += kDigits[jiao] + QStringLiteral("角");
    else if (yuan > 0)
        text += kDigits[0];
    if (fen > 0)
        text += kDigits[fen] + QStringLiteral("分");
    return text;
}

} // namespace utils
