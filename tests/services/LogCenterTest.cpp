#include "CLogCapture.h"
#include "CLogCenter.h"
#include "SubstituteReset.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace {

class LogCenter : public ::testing::Test
{
protected:
    void SetUp() override { TC::resetAllSubstitutes(); }
};

struct Panel
{
    int id = 3;
};

} // namespace

TEST_F(LogCenter, LineIsAddressMethodAndFormattedText)
{
    utils::CLogCapture capture;
    Panel panel;
    TT_LOG_INFO(&panel, "TC::CBasketOperationPanel::requestAccount", "basket\\CBasketOperationPanel",
                boost::format("[PT] [panel|%1%] time = %2$.2f.") % panel.id % 1.5);

    const std::vector<std::string> lines = capture.lines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0], "[" + utils::CLogCenter::addressText(&panel)
                            + "] [TC::CBasketOperationPanel::requestAccount] [PT] [panel|3] time = 1.50.");
    EXPECT_EQ(capture.sourceFiles(), std::vector<std::string>{"basket\\CBasketOperationPanel"});
    EXPECT_EQ(capture.levels(), std::vector<int>{20000});
    EXPECT_EQ(utils::CLogCenter::addressText(reinterpret_cast<const void *>(0x6020000001b0)), "0x6020000001b0");
    EXPECT_EQ(utils::CLogCenter::addressText(nullptr), "0x0");
}

TEST_F(LogCenter, CaptureEndsWithItsLifetimeAndCatchesTheLinesOfSeveralThreads)
{
    {
        utils::CLogCapture gone;
    }
    utils::CLogCapture capture;
    std::vector<std::thread> writers;
    for (int t = 0; t < 4; ++t) {
        writers.emplace_back([t] {
            for (int i = 0; i < 25; ++i)
                TT_LOG_INFO(nullptr, "TC::X::y", "basket\\X", boost::format("%1%-%2%") % t % i);
        });
    }
    for (std::thread &w : writers)
        w.join();
    EXPECT_EQ(capture.lines().size(), 100u);
}

TEST_F(LogCenter, FileLinesFollowTheFileLevelAndDisabledLoggingWritesAndFormatsNothing)
{
    utils::CLogCapture capture;
    TT_FILE_LOG(51, "%s : order button clicked, %d", "bar", 6);
    utils::CLogCenter::instance()->setFileLogLevel(60);
    TT_FILE_LOG(51, "%s : not written, %d", "bar", 7);
    EXPECT_EQ(capture.lines(), std::vector<std::string>{"bar : order button clicked, 6"});

    utils::CLogCenter::instance()->setFileLogLevel(0);
    utils::CLogCenter::instance()->setLogEnabled(false);
    int evaluated = 0;
    auto expensive = [&evaluated] {
        ++evaluated;
        return 1;
    };
    TT_LOG_INFO(this, "TC::X::y", "basket\\X", boost::format("%1%") % expensive());
    TT_FILE_LOG(51, "%s : order button clicked, %d", "bar", expensive());
    EXPECT_EQ(capture.lines().size(), 1u);
    EXPECT_EQ(evaluated, 0);
    EXPECT_FALSE(utils::CLogCenter::instance()->fileLogEnabled(51));
}
