#pragma once

#include <QString>

namespace utils {

// An amount of money written in Chinese capital numerals, as on a cheque: 12345.6 gives
// "壹万贰仟叁佰肆拾伍元陆角", 100 gives "壹佰元整", 1005.07 gives "壹仟零伍元零柒分" and 0 gives
// "零元整". The amount is rounded to the fen (0.01); a negative amount starts with "负".
// Amounts of a thousand trillion (1e16) and above, and values that are not finite, give an
// empty text.
QString numToChinese(double amount);

} // namespace utils
