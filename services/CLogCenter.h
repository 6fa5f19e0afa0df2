#pragma once

#include "BasketServicesExport.h"
#include "Clock.h"

#include <boost/format.hpp>

#include <atomic>
#include <string>

namespace utils {

// The client's logging centre: whether logging is on, and the one place that writes the panel's
// lines to log4cxx.
//
// Lines go to the logger "TTStdFile". Without a log4cxx configuration of the client's they go
// nowhere; set the environment variable TT_LOG_STDERR to any value to see them on standard error.
// A client that configures log4cxx itself (a configuration file, or its own appenders on
// "TTStdFile") gets the lines through its appenders as usual.
//
// Thread-safe: lines may be written from any thread.
class BASKET_SERVICES_EXPORT CLogCenter final
{
public:
    // The level of user actions and timings: log4cxx's INFO.
    static constexpr int LEVEL_INFO = 20000;
    static constexpr const char *LOGGER_NAME = "TTStdFile";

    // The one instance in the process, created on first use; never null, never freed.
    static CLogCenter *instance();

    // Whether the panel writes its lines at all. Test before building an expensive text.
    bool logEnabled() const { return m_logEnabled.load(); }
    // Whether lines of the given detail level go to the log file: logging is on and the level
    // is at least the configured file level (0 unless changed, so every level passes).
    bool fileLogEnabled(int level) const;

    // Writes one line "[<object address>] [<method>] <text>" at the given log4cxx level.
    // method and sourcePath must be texts of static storage (literals): log4cxx keeps the
    // pointers of its location record. sourcePath is the class's path under "basket\".
    // Writes even when logging is off: the TT_LOG_INFO macro tests first.
    void write(int level, const void *object, const char *method, const char *sourcePath,
               const std::string &text) const;
    // Writes a plain text line, for the printf-style file log lines.
    void writePlain(int level, const std::string &text) const;

    // The address as written in the prefix: "0x" and lower-case hex digits, "0x0" for null.
    static std::string addressText(const void *object);

    // --- control surface (tests and the demo host) ---
    void setLogEnabled(bool enabled) { m_logEnabled.store(enabled); }
    void setFileLogLevel(int level) { m_fileLogLevel.store(level); }
    // Logging on, file level 0.
    void reset();

private:
    CLogCenter();

    std::atomic<bool> m_logEnabled{true};
    std::atomic<int> m_fileLogLevel{0};
};

// printf-style formatting for the file log lines ("%s : order button clicked, %d").
std::string formatPrintf(const char *format, ...) __attribute__((format(printf, 1, 2)));

} // namespace utils

// One log line of the panel, written only if logging is enabled; the format expression is not
// evaluated otherwise. Usage:
//   TT_LOG_INFO(this, "TC::CBasketOperationPanel::requestAccount", "basket\\CBasketOperationPanel",
//               boost::format("User %1% Modify basket: %2%") % user % name);
// gives the line "[0x6020000001b0] [TC::CBasketOperationPanel::requestAccount] User ... ".
#define TT_LOG_INFO(object, method, sourcePath, formatExpression)                                        \
    do {                                                                                                  \
        if (::utils::CLogCenter::instance()->logEnabled())                                                \
            ::utils::CLogCenter::instance()->write(::utils::CLogCenter::LEVEL_INFO,                       \
                                                   static_cast<const void *>(object), method, sourcePath, \
                                                   ::boost::str(formatExpression));                        \
    } while (false)

// A printf-style line of the file log, written if fileLogEnabled(level) holds; the arguments
// are not evaluated otherwise. Usage: TT_FILE_LOG(51, "%s : order button clicked, %d", name, id);
#define TT_FILE_LOG(level, ...)                                                                  \
    do {                                                                                         \
        if (::utils::CLogCenter::instance()->fileLogEnabled(level))                              \
            ::utils::CLogCenter::instance()->writePlain(::utils::CLogCenter::LEVEL_INFO,         \
                                                        ::utils::formatPrintf(__VA_ARGS__));     \
    } while (false)
