#pragma once

#include <QString>
#include <QtGlobal>

#include <string>

class QFontMetrics;
class QKeyEvent;

namespace WK {

// Flags of the number formats.
enum ENumberFormatFlag {
    NF_NONE = 0,
    NF_SEGMENTED = 0x1,    // thousands separators: 1,234,567.89
    NF_PERCENT = 0x10000,  // the value is a ratio shown as a percentage: 0.25 gives 25.00%
};

// UTF-8 text to QString, and back.
QString sToQs(const std::string &text);
std::string qsToS(const QString &text);

// A double with this many decimals (0 to 15), rounded. The no-value mark (DBL_MAX), an infinity
// and NaN show as invalidText. flags: ENumberFormatFlag bits; a bool true asks for
// NF_SEGMENTED. "-0.00" shows as "0.00".
QString formatDoubleNumber(double value, int precision, int flags = NF_NONE,
                           const QString &invalidText = QStringLiteral("--"));

// An integer; flags as formatDoubleNumber (NF_PERCENT adds "%" to the number as it is).
QString formatIntNumber(qint64 value, int flags = NF_NONE);

// Puts thousands separators into a number given as text ("1300" gives "1,300", "-1234.5" gives
// "-1,234.5"); separators already there are placed anew. A text that is no plain decimal number
// comes back unchanged.
QString formatNumberString(const QString &text);

// The inverse: the number text without separators.
QString unformatNumberString(const QString &text);

// A letter A to Z or a digit 0 to 9, the keys that start a search when typed over a list.
bool isKeyCharOrNum(int key);
bool isKeyCharOrNum(const QKeyEvent *event);

// The stock key of market and code, the same text as utils::vqStockKey.
QString vqStockKey(const QString &market, const QString &code);

// Whether a short text of plain ASCII (a number, a code) fits the width, from the advances of its
// characters: measuring the whole text shapes it, five times the cost, and a tick repaints a
// screen of numbers. Each character's advance comes rounded, so half a pixel per character and
// one more for kerning are added; any other text is measured.
bool textSurelyFits(const QFontMetrics &metrics, const QString &text, int width);

} // namespace WK
