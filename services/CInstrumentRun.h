#pragma once

#include "CCodeOrderParam.h"
#include "OperationHelpers.h"

#include <string>
#include <unordered_map>

namespace TC {

// What a pass over an order list needs per instrument, looked up once per instrument. The lines
// of one instrument come one after another (one per account), so a line of the same instrument
// as the one before is answered without building a key.
template <typename T>
class CInstrumentRun
{
public:
    // The value of line's instrument; make(line) gives it the first time the instrument comes.
    template <typename Make>
    const T &of(const ttservice::CCodeOrderParam &line, Make make)
    {
        if (!m_previous || !sameInstrument(*m_previous, line)) {
            std::string key = line.m_stockInfo.m_market + '.' + line.m_stockInfo.m_stockCode;
            auto known = m_values.find(key);
            if (known == m_values.end())
                known = m_values.emplace(std::move(key), make(line)).first;
            m_value = &known->second;
        }
        m_previous = &line;
        return *m_value;
    }

private:
    std::unordered_map<std::string, T> m_values;
    const ttservice::CCodeOrderParam *m_previous = nullptr;
    const T *m_value = nullptr;
};

} // namespace TC
