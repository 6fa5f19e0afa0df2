#pragma once

#include <mutex>
#include <string>

namespace TC {

// Order ids that are never given twice, over restarts too: numbers are taken in blocks, and a
// block is written to the counter file before its first number is used. A restart starts at the
// next block, leaving the rest of the last one unused. Thread-safe.
class CClOrdIdSource
{
public:
    // counterPath: the file holding the next free number (created when missing). Empty: numbers
    // start from the current time in milliseconds, unique as long as the clock goes forward.
    explicit CClOrdIdSource(std::string counterPath);

    // prefix followed by the next number.
    std::string next(const char *prefix);

private:
    bool reserve();

    std::mutex m_mutex;
    std::string m_path;
    long long m_next = 0;
    long long m_end = 0;
};

} // namespace TC
