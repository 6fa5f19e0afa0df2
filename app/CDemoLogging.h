#pragma once

#include <QString>

#include <functional>

// The demo's logging, set up as the client sets up its own: log4cxx reads a configuration file
// (basket-demo.log4cxx.properties, which sends the panel's "TTStdFile" lines to a rolling log
// file), and the demo's log pane shows the same lines through an appender of its own.
class CDemoLogging final
{
public:
    // The name of the configuration file beside the demo (build tree) or under share/BasketPanel
    // (installed).
    static const char *const CONFIG_FILE_NAME;

    // Reads the log4cxx configuration: configFile if given, else the file found beside the
    // executable or in the installed data folder. The log file's path (logFile if given, else
    // BASKET_DEMO_LOG_FILE from the environment, else basket-demo.log in the working directory)
    // is put in BASKET_DEMO_LOG_FILE, which the configuration names. Call before anything logs:
    // the logging centre keeps its lines to itself when it finds log4cxx unconfigured. Returns
    // the configuration file read, or an empty text (and a warning on standard error) if none
    // could be read.
    static QString configure(const QString &configFile, const QString &logFile);
    // The log file the configuration writes to, as configure() chose it.
    static QString logFilePath();

    // Hands every "TTStdFile" line to show, from whichever thread wrote it, until detachPane().
    static void attachPane(std::function<void(const QString &)> show);
    static void detachPane();
};
