#pragma once

#include "DoubleCompare.h"

#include <cstdint>
#include <string>
#include <utility>

namespace TC {

// What a row of the confirmation table shows beside its order line: values that come from the
// account and the market, not from the line. Doubles without a value carry NO_VALUE.
struct OtherOrderParam
{
    OtherOrderParam() = default;
    OtherOrderParam(int64_t availableVolume, double reserved, double cost, double lastPrice, double changeRatio,
                    std::string note)
        : m_availableVolume(availableVolume)
        , m_reserved(reserved)
        , m_cost(cost)
        , m_lastPrice(lastPrice)
        , m_changeRatio(changeRatio)
        , m_note(std::move(note))
    {
    }

    int64_t m_availableVolume = 0;
    double m_reserved = 0.0;
    double m_cost = ttservice::NO_VALUE; // latest market value
    double m_lastPrice = 0.0;
    std::string m_statusText;            // empty until the first quote
    bool m_changed = false;              // a quote came since the table last showed the row
    double m_changeRatio = 0.0;          // (last - previous close) / previous close
    std::string m_note;
};

} // namespace TC
