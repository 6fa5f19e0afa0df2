#include "CClOrdIdSource.h"

#include <chrono>
#include <cstdio>
#include <fstream>

namespace TC {

namespace {
constexpr long long kBlock = 100000;

long long clockStart()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::system_clock::now().time_since_epoch()).count() * 1000;
}
} // namespace

CClOrdIdSource::CClOrdIdSource(std::string counterPath)
    : m_path(std::move(counterPath))
{
    if (m_path.empty()) {
        m_next = clockStart();
        m_end = m_next + kBlock;
    }
}

bool CClOrdIdSource::reserve()
{
    long long start = m_end;
    {
        std::ifstream in(m_path);
        long long stored = 0;
        if (in >> stored && stored > start)
            start = stored;
    }
    const std::string temp = m_path + ".new";
    {
        std::ofstream out(temp, std::ios::trunc);
        out << (start + kBlock) << '\n';
        out.flush();
        if (!out)
            return false;
    }
    if (std::rename(temp.c_str(), m_path.c_str()) != 0)
        return false;
    m_next = start;
    m_end = start + kBlock;
    return true;
}

std::string CClOrdIdSource::next(const char *prefix)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    // A counter that cannot be written still gives ids unique in this run; they may repeat an
    // earlier run's only when the store folder itself is gone.
    if (m_next >= m_end && (m_path.empty() || !reserve())) {
        if (m_next == 0)
            m_next = clockStart();
        m_end = m_next + kBlock;
    }
    return prefix + std::to_string(m_next++);
}

} // namespace TC
