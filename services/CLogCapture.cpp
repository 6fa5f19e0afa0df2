#include "CLogCapture.h"

#include "CLogCenter.h"

#include <log4cxx/appenderskeleton.h>
#include <log4cxx/logger.h>
#include <log4cxx/spi/loggingevent.h>

#include <mutex>

namespace utils {

class CLogCapture::Appender final : public log4cxx::AppenderSkeleton
{
public:
    void close() override {}
    bool requiresLayout() const override { return false; }

    std::vector<std::string> lines() const
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_lines;
    }
    std::vector<std::string> files() const
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_files;
    }
    std::vector<int> levels() const
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_levels;
    }
    void clear()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_lines.clear();
        m_files.clear();
        m_levels.clear();
    }

protected:
    void append(const log4cxx::spi::LoggingEventPtr &event, log4cxx::helpers::Pool &) override
    {
        const char *file = event->getLocationInformation().getFileName();
        std::lock_guard<std::mutex> lock(m_mutex);
        m_lines.push_back(event->getRenderedMessage());
        m_files.push_back(file ? file : "");
        m_levels.push_back(event->getLevel()->toInt());
    }

private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_lines;
    std::vector<std::string> m_files;
    std::vector<int> m_levels;
};

CLogCapture::CLogCapture()
    : m_appender(std::make_shared<Appender>())
{
    // The centre configures the logger first, so that its own set-up does not run after us.
    CLogCenter::instance();
    log4cxx::Logger::getLogger(CLogCenter::LOGGER_NAME)->addAppender(m_appender);
}

CLogCapture::~CLogCapture()
{
    log4cxx::Logger::getLogger(CLogCenter::LOGGER_NAME)->removeAppender(m_appender);
}

std::vector<std::string> CLogCapture::lines() const
{
    return m_appender->lines();
}

std::vector<std::string> CLogCapture::sourceFiles() const
{
    return m_appender->files();
}

std::vector<int> CLogCapture::levels() const
{
    return m_appender->levels();
}

void CLogCapture::clear()
{
    m_appender->clear();
}

} // namespace utils
