#include <gtest/gtest.h>

#include <QApplication>

// The platform plugins keep a few objects until process exit; leaks of our own code still count.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libQt5Gui\nleak:libQt5Core\nleak:libQt5Widgets\nleak:libfontconfig\nleak:libglib\n"
           "leak:libdbus\nleak:libX11\nleak:libxcb\nleak:libqoffscreen\n";
}

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
