#include "CLogCenter.h"

#include <log4cxx/appenderskeleton.h>
#include <log4cxx/consoleappender.h>
#include <log4cxx/helpers/loglog.h>
#include <log4cxx/level.h>
#include <log4cxx/logger.h>
#include <log4cxx/patternlayout.h>
#include <log4cxx/spi/location/locationinfo.h>

#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace utils {
namespace {

// Takes the lines when nobody configured log4cxx, so that log4cxx neither warns about a logger
// without appenders nor writes anywhere.
class CDiscardAppender final : public log4cxx::AppenderSkeleton
{
public:
    void close() override {}
    bool requiresLayout() const override { return false; }

protected:
    void append(const log4cxx::spi::LoggingEventPtr &, log4cxx::helpers::Pool &) override {}
};

log4cxx::LoggerPtr stdFileLogger()
{
    static const log4cxx::LoggerPtr logger = log4cxx::Logger::getLogger(CLogCenter::LOGGER_NAME);
    return logger;
}

void configureStdFileLogger()
{
    const log4cxx::LoggerPtr logger = stdFileLogger();
    if (std::getenv("TT_LOG_STDERR")) {
        auto layout = std::make_shared<log4cxx::PatternLayout>("%d{HH:mm:ss.SSS} %-5p [%c] %m%n");
        auto console = std::make_shared<log4cxx::ConsoleAppender>(layout, log4cxx::ConsoleAppender::getSystemErr());
        logger->addAppender(console);
        return;
    }
    const bool configured = !logger->getAllAppenders().empty()
        || !log4cxx::Logger::getRootLogger()->getAllAppenders().empty();
    if (!configured)
        logger->addAppender(std::make_shared<CDiscardAppender>());
}

} // namespace

CLogCenter::CLogCenter()
{
    configureStdFileLogger();
}

CLogCenter *CLogCenter::instance()
{
    static CLogCenter center;
    return &center;
}

bool CLogCenter::fileLogEnabled(int level) const
{
    return logEnabled() && level >= m_fileLogLevel.load();
}

std::string CLogCenter::addressText(const void *object)
{
    char buffer[2 + 2 * sizeof(std::uintptr_t) + 1];
    std::snprintf(buffer, sizeof buffer, "0x%llx",
                  static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(object)));
    return buffer;
}

void CLogCenter::write(int level, const void *object, const char *method, const char *sourcePath,
                       const std::string &text) const
{
    const std::string line = "[" + addressText(object) + "] [" + method + "] " + text;
    const log4cxx::spi::LocationInfo location(sourcePath, sourcePath, method, -1);
    stdFileLogger()->log(log4cxx::Level::toLevel(level), line, location);
}

void CLogCenter::writePlain(int level, const std::string &text) const
{
    stdFileLogger()->log(log4cxx::Level::toLevel(level), text, log4cxx::spi::LocationInfo());
}

void CLogCenter::reset()
{
    m_logEnabled.store(true);
    m_fileLogLevel.store(0);
}

std::string formatPrintf(const char *format, ...)
{
    va_list args;
    va_start(args, format);
    va_list copy;
    va_copy(copy, args);
    const int length = std::vsnprintf(nullptr, 0, format, copy);
    va_end(copy);
    std::string text;
    if (length > 0) {
        std::vector<char> buffer(static_cast<size_t>(length) + 1);
        std::vsnprintf(buffer.data(), buffer.size(), format, args);
        text.assign(buffer.data(), static_cast<size_t>(length));
    }
    va_end(args);
    return text;
}

} // namespace utils
