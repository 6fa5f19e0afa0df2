#pragma once

#include <cfloat>
#include <cmath>

namespace ttservice {

// A double that holds no value. Quotes, prices and sums that were never filled carry it.
constexpr double NO_VALUE = DBL_MAX;
constexpr double DOUBLE_EPSILON = 1e-5;

inline bool isNoValue(double v) { return v == NO_VALUE; }
inline bool hasValue(double v) { return v != NO_VALUE; }

// Prices and money are compared with a tolerance of 1e-5: closer than that is the same number.
inline bool isEqual(double a, double b) { return std::fabs(a - b) <= DOUBLE_EPSILON; }
inline bool isZero(double v) { return std::fabs(v) <= DOUBLE_EPSILON; }
inline bool isGreater(double a, double b) { return a - b > DOUBLE_EPSILON; }
inline bool isLess(double a, double b) { return b - a > DOUBLE_EPSILON; }

} // namespace ttservice
