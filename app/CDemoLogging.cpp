#include "CDemoLogging.h"

#include "CLogCenter.h"

#include <log4cxx/appenderskeleton.h>
#include <log4cxx/file.h>
#include <log4cxx/logger.h>
#include <log4cxx/propertyconfigurator.h>
#include <log4cxx/spi/loggingevent.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cstdio>
#include <memory>
#include <utility>
#include <vector>

namespace {

constexpr const char *kLogFileVariable = "BASKET_DEMO_LOG_FILE";

// Passes each line on to the pane; the pane's append is safe from any thread.
class CPaneAppender final : public log4cxx::AppenderSkeleton
{
public:
    explicit CPaneAppender(std::function<void(const QString &)> show)
        : m_show(std::move(show))
    {
    }
    void close() override {}
    bool requiresLayout() const override { return false; }

protected:
    void append(const log4cxx::spi::LoggingEventPtr &event, log4cxx::helpers::Pool &) override
    {
        m_show(QString::fromStdString(event->getRenderedMessage()));
    }

private:
    std::function<void(const QString &)> m_show;
};

log4cxx::AppenderPtr &paneAppender()
{
    static log4cxx::AppenderPtr appender;
    return appender;
}

log4cxx::LoggerPtr stdFileLogger()
{
    return log4cxx::Logger::getLogger(utils::CLogCenter::LOGGER_NAME);
}

// log4cxx 1.0 (Debian 12) frees a size-rolling appender with a delete of the wrong size when it
// tears its loggers down at exit (AddressSanitizer: new-delete-type-mismatch). The appenders
// write every line through at once, so nothing is lost by keeping them alive to the very end of
// the process instead: a reference that is never released.
void keepAppendersToTheEnd()
{
    static auto *const kept = new std::vector<log4cxx::AppenderPtr>;
    for (const log4cxx::LoggerPtr &logger : {stdFileLogger(), log4cxx::Logger::getRootLogger()}) {
        for (const log4cxx::AppenderPtr &appender : logger->getAllAppenders())
            kept->push_back(appender);
    }
}

QString findConfigFile()
{
    const QDir bin(QCoreApplication::applicationDirPath());
    const QString candidates[] = {
        bin.filePath(QLatin1String(CDemoLogging::CONFIG_FILE_NAME)),
        bin.filePath(QStringLiteral(BASKET_DEMO_DATADIR_FROM_BIN "/") + QLatin1String(CDemoLogging::CONFIG_FILE_NAME)),
    };
    for (const QString &candidate : candidates) {
        if (QFileInfo(candidate).isFile())
            return QDir::cleanPath(candidate);
    }
    return QString();
}

} // namespace

const char *const CDemoLogging::CONFIG_FILE_NAME = "basket-demo.log4cxx.properties";

QString CDemoLogging::configure(const QString &configFile, const QString &logFile)
{
    QString logPath = logFile;
    if (logPath.isEmpty())
        logPath = qEnvironmentVariable(kLogFileVariable);
    if (logPath.isEmpty())
        logPath = QStringLiteral("basket-demo.log");
    // log4cxx opens the file relative to the working directory; an absolute path reads the same
    // in the configuration, in the pane and in a message.
    qputenv(kLogFileVariable, QFileInfo(logPath).absoluteFilePath().toLocal8Bit());

    const QString config = configFile.isEmpty() ? findConfigFile() : configFile;
    if (config.isEmpty() || !QFileInfo(config).isReadable()) {
        std::fprintf(stderr, "basket-demo: no log4cxx configuration %s; the panel's lines go to the log pane only\n",
                     config.isEmpty() ? CONFIG_FILE_NAME : qPrintable(config));
        return QString();
    }
    log4cxx::PropertyConfigurator::configure(log4cxx::File(config.toStdString()));
    keepAppendersToTheEnd();
    return config;
}

QString CDemoLogging::logFilePath()
{
    return qEnvironmentVariable(kLogFileVariable);
}

void CDemoLogging::attachPane(std::function<void(const QString &)> show)
{
    detachPane();
    paneAppender() = std::make_shared<CPaneAppender>(std::move(show));
    stdFileLogger()->addAppender(paneAppender());
}

void CDemoLogging::detachPane()
{
    if (!paneAppender())
        return;
    stdFileLogger()->removeAppender(paneAppender());
    paneAppender().reset();
}
