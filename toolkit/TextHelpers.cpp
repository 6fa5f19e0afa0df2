#include "TextHelpers.h"

#include "DoubleCompare.h"
#include "StockKey.h"

#include <QFontMetrics>
#include <QKeyEvent>

#include <cmath>

namespace WK {
namespace {

// Groups the digits of an unsigned integer part by three.
QString groupDigits(const QString &digits)
{
    QString grouped;
    grouped.reserve(digits.size() + digits.size() / 3);
    const int n = digits.size();
    for (int i = 0; i < n; ++i) {
        if (i > 0 && (n - i) % 3 == 0)
            grouped.append(QLatin1Char(','));
        grouped.append(digits.at(i));
    }
    return grouped;
}

// Splits "-1234.50" into sign, integer digits and the rest (".50"); false for no number.
bool splitNumber(const QString &text, QString &sign, QString &digits, QString &rest)
{
    int i = 0;
    if (i < text.size() && (text.at(i) == QLatin1Char('-') || text.at(i) == QLatin1Char('+'))) {
        sign = text.at(i) == QLatin1Char('-') ? QStringLiteral("-") : QString();
        ++i;
    }
    const int start = i;
    while (i < text.size() && text.at(i).isDigit())
        ++i;
    digits = text.mid(start, i - start);
    if (digits.isEmpty())
        return false;
    rest = text.mid(i);
    if (rest.isEmpty())
        return true;
    if (rest.at(0) != QLatin1Char('.'))
        return false;
    for (int j = 1; j < rest.size(); ++j) {
        if (!rest.at(j).isDigit())
            return false;
    }
    return true;
}

QString segmented(const QString &number)
{
    QString sign, digits, rest;
    if (!splitNumber(number, sign, digits, rest))
        return number;
    return sign + groupDigits(digits) + rest;
}

} // namespace

QString sToQs(const std::string &text)
{
    return QString::fromStdString(text);
}

std::string qsToS(const QString &text)
{
    return text.toStdString();
}

QString formatDoubleNumber(double value, int precision, int flags, const QString &invalidText)
{
    if (ttservice::isNoValue(value) || !std::isfinite(value))
        return invalidText;
    precision = qBound(0, precision, 15);
    if (flags & NF_PERCENT)
        value *= 100.0;
    QString text = QString::number(value, 'f', precision);
    if (text.startsWith(QLatin1Char('-'))) {
        bool allZero = true;
        for (int i = 1; i < text.size() && allZero; ++i)
            allZero = text.at(i) == QLatin1Char('0') || text.at(i) == QLatin1Char('.');
        if (allZero)
            text.remove(0, 1);
    }
    if (flags & NF_SEGMENTED)
        text = segmented(text);
    if (flags & NF_PERCENT)
        text.append(QLatin1Char('%'));
    return text;
}

QString formatIntNumber(qint64 value, int flags)
{
    QString text = QString::number(value);
    if (flags & NF_SEGMENTED)
        text = segmented(text);
    if (flags & NF_PERCENT)
        text.append(QLatin1Char('%'));
    return text;
}

QString formatNumberString(const QString &text)
{
    const QString plain = unformatNumberString(text);
    QString sign, digits, rest;
    if (!splitNumber(plain, sign, digits, rest))
        return text;
    return segmented(plain);
}

QString unformatNumberString(const QString &text)
{
    QString plain = text.trimmed();
    plain.remove(QLatin1Char(','));
    return plain;
}

bool isKeyCharOrNum(int key)
{
    return (key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9);
}

bool isKeyCharOrNum(const QKeyEvent *event)
{
    return event && isKeyCharOrNum(event->key());
}

QString vqStockKey(const QString &market, const QString &code)
{
    return sToQs(utils::vqStockKey(market.toStdString(), code.toStdString()));
}

bool textSurelyFits(const QFontMetrics &metrics, const QString &text, int width)
{
    constexpr int kLongest = 24;
    if (text.size() > kLongest)
        return false;
    int advance = 1 + (static_cast<int>(text.size()) + 1) / 2;
    for (const QChar c : text) {
        if (c.unicode() < 0x20 || c.unicode() > 0x7e)
            return false;
        advance += metrics.horizontalAdvance(c);
        if (advance > width)
            return false;
    }
    return true;
}

} // namespace WK
