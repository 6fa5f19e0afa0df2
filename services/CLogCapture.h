#pragma once

#include "BasketServicesExport.h"

#include <memory>
#include <string>
#include <vector>

namespace utils {

// Catches the lines written to the logger "TTStdFile" while it lives, for tests that assert on
// whole log lines. Attaches an appender on construction and detaches it on destruction.
// Thread-safe: lines may come from any thread while lines() is read.
class BASKET_SERVICES_EXPORT CLogCapture final
{
public:
    CLogCapture();
    ~CLogCapture();
    CLogCapture(const CLogCapture &) = delete;
    CLogCapture &operator=(const CLogCapture &) = delete;

    // The messages caught so far, in the order written, each a whole line without line break.
    std::vector<std::string> lines() const;
    // The source file names of the location records, parallel to lines().
    std::vector<std::string> sourceFiles() const;
    // The log4cxx levels, parallel to lines().
    std::vector<int> levels() const;
    void clear();

private:
    class Appender;
    std::shared_ptr<Appender> m_appender;
};

} // namespace utils
