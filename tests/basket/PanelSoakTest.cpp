// The whole panel on a live market: 1000 stocks on 20 accounts while a feed thread publishes
// 10,000 quotes a second, and the interface thread does what a trader does all day (loads lists,
// sorts, filters, edits, switches tabs, places). Runs for BASKET_SOAK_SECONDS (15 by default)
// under AddressSanitizer with leak checking and again under ThreadSanitizer: a sanitizer report,
// a step that hangs or memory that keeps growing fails it.
#include "CBasketOperationPanel.h"
#include "COpBasketParamsEditWidget.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketsComboBox.h"
#include "COperationBasketWidget.h"
#include "CHpfOpConfirmWidget.h"

#include "COpAccountsWidget.h"
#include "COrderParamTable.h"
#include "CTradeClient.h"
#include "LuaModuleCtrl.h"
#include "ToolkitRecords.h"

#include "ConfirmTestSupport.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"

#include <QApplication>

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <string>
#include <thread>
#include <vector>

// ASan keeps freed blocks in a quarantine of up to 256 MB, which would read as growth; a small one
// still catches a use after free of the last steps.
extern "C" const char *__asan_default_options()
{
    return "quarantine_size_mb=16";
}

using namespace TC;
using namespace confirmtest;

namespace {

constexpr int kStocks = 1000;
constexpr int kAccounts = 20;
constexpr int kQuotesPerSecond = 10000;
constexpr int kQuotesPerRound = 100; // one round every 10 ms
constexpr auto kFeedInterval = std::chrono::milliseconds(1000 * kQuotesPerRound / kQuotesPerSecond);
// A step of the interface thread that takes longer than this is a hang.
constexpr auto kStepLimit = std::chrono::seconds(120);

std::string codeOf(int stock)
{
    return std::to_string(600000 + stock);
}

int soakSeconds()
{
    const char *text = std::getenv("BASKET_SOAK_SECONDS");
    const int seconds = text ? std::atoi(text) : 0;
    return seconds > 0 ? seconds : 15;
}

double residentMegabytes()
{
    std::ifstream statm("/proc/self/statm");
    long pages = 0;
    long resident = 0;
    statm >> pages >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

CBasketSetting basketOf(const QString &name, int first, int count)
{
    CBasketSetting basket;
    basket.m_name = name;
    for (int s = first; s < first + count; ++s)
        basket.m_stocks << sample::row("SH", codeOf(s).c_str(), 1.0 + s % 7, 100 * (1 + s % 5));
    return basket;
}

// Publishes quotes from its own thread at a steady rate, as the client's feed does.
class Feed
{
public:
    Feed()
        : m_thread([this] { run(); })
    {
    }
    ~Feed() { stop(); }

    void stop()
    {
        m_stop.store(true);
        if (m_thread.joinable())
            m_thread.join();
    }
    long published() const { return m_published.load(); }

private:
    void run()
    {
        std::mt19937 random(20261124u);
        std::uniform_int_distribution<int> move(-5, 5);
        std::vector<int> ticks(kStocks, 1000);
        auto next = std::chrono::steady_clock::now();
        for (int round = 0; !m_stop.load(); ++round) {
            for (int i = 0; i < kQuotesPerRound; ++i) {
                const int stock = (round * kQuotesPerRound + i) % kStocks;
                ticks[stock] = std::clamp(ticks[stock] + move(random), 910, 1090);
                CQuoteClient::instance()->publishQuote(quote("SH", codeOf(stock), ticks[stock] / 100.0, 10.0, 11.0, 9.0));
                m_published.fetch_add(1);
            }
            next += kFeedInterval;
            std::this_thread::sleep_until(next);
        }
    }

    std::atomic<bool> m_stop{false};
    std::atomic<long> m_published{0};
    std::thread m_thread;
};

// Aborts the process, with a message, when the interface thread makes no step for too long.
class Watchdog
{
public:
    Watchdog()
        : m_thread([this] { run(); })
    {
    }
    ~Watchdog()
    {
        m_stop.store(true);
        m_thread.join();
    }
    void stepped() { m_steps.fetch_add(1); }

private:
    void run()
    {
        long seen = -1;
        auto since = std::chrono::steady_clock::now();
        while (!m_stop.load()) {
            std::this_thread::sleep_for(std::chrono::milliseconds(200));
            const long now = m_steps.load();
            if (now != seen) {
                seen = now;
                since = std::chrono::steady_clock::now();
            } else if (std::chrono::steady_clock::now() - since > kStepLimit) {
                std::fprintf(stderr, "soak: the interface thread made no step for %lld s after step %ld\n",
                             static_cast<long long>(kStepLimit.count()), seen);
                std::abort();
            }
        }
    }

    std::atomic<bool> m_stop{false};
    std::atomic<long> m_steps{0};
    std::thread m_thread;
};

class PanelSoak : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        getUserConfig()->setRole(90);
        luawrapper::LuaModuleCtrl::instance()->setModules(
            {"mdl_order", "mdl_order_compose_basket_buy_sell", "mdl_order_compose_credits"}, true);
        std::vector<Held> held;
        for (int s = 0; s < kStocks; ++s) {
            addInstrument("SH", codeOf(s));
            CQuoteClient::instance()->setStockPrice(quote("SH", codeOf(s), 10.0, 10.0, 11.0, 9.0));
            if (s % 2 == 0)
                held.push_back({codeOf(s), 5000});
        }
        for (int a = 0; a < kAccounts; ++a)
            addAccount("acc-" + std::to_string(100 + a), ttservice::BROKER_TYPE_STOCK, 1e10, held);
        getUserConfig()->baskets().insert(QStringLiteral("全市场"), basketOf(QStringLiteral("全市场"), 0, kStocks));
        getUserConfig()->baskets().insert(QStringLiteral("后五百"), basketOf(QStringLiteral("后五百"), 500, 500));
    }
};

// One trader's action on the panel, by its number.
class Trader
{
public:
    explicit Trader(CBasketOperationPanel &panel)
        : m_panel(panel)
        , m_form(panel.basketWidget()->paramsWidget())
        , m_table(panel.basketWidget()->editWidget()->confirmWidget())
    {
    }

    void selectEveryAccount()
    {
        for (const QString &key : m_form->accountsWidget()->getDisplayedAccounts())
            m_form->accountsWidget()->setSelectedAccount(key, true);
    }

    // A round of kRoundSteps steps does everything once; the list is built again (a load, a
    // tab switch, a placing) four times a round, since each builds 20,000 lines.
    static constexpr long kRoundSteps = 20;

    void step(long number)
    {
        COrderParamTable *table = m_table->table();
        const int rows = table->rowCount();
        switch (number % kRoundSteps) {
        case 0:
            m_form->basketsCombo()->setBasket(number % (2 * kRoundSteps) == 0 ? QStringLiteral("全市场") : QStringLiteral("后五百"), true);
            break;
        case 5:
        case 15: {
            static const quint64 tabs[] = {TOT_SELL, TOT_BUY, TOT_ALL, TOT_BUY};
            const long turn = number / 10;
            m_form->handleEvent(5, static_cast<int>(tabs[turn % 4]), 0, QString(), nullptr);
            if (turn % 4 == 3)
                selectEveryAccount();
            break;
        }
        case 10:
            m_panel.basketWidget()->handleEvent(1046, 0, 0, QString(), nullptr);
            // The order service here keeps every call it was given; the client's does not.
            CTradeClient::instance()->reset();
            WK::resetToolkitRecords();
            break;
        case 1:
        case 6:
        case 11:
            table->sortByColumn(pick(COpBasketConfirmWidget::COL_STATUS + 1), pick(2) ? Qt::AscendingOrder : Qt::DescendingOrder);
            break;
        case 2:
        case 12: {
            QSet<QString> codes;
            for (int i = 0; i < 50; ++i)
                codes.insert(QString::fromStdString(codeOf(pick(kStocks))));
            table->setColumnFilter(COpBasketConfirmWidget::COL_CODE, WK::FT_EQUAL, codes);
            break;
        }
        case 4:
        case 14:
            table->setColumnFilter(COpBasketConfirmWidget::COL_CODE, WK::FT_EQUAL, QSet<QString>());
            break;
        case 3:
        case 8:
        case 13:
        case 18:
            if (rows > 0)
                table->submitEdit(table->rowID(pick(rows)), COpBasketConfirmWidget::COL_VOLUME, QString::number(100 * (1 + pick(9))));
            break;
        default:
            m_table->slotTimeout();
            break;
        }
        QApplication::processEvents();
    }

private:
    int pick(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(m_random); }

    CBasketOperationPanel &m_panel;
    COpBasketParamsWidget *m_form;
    CHpfOpConfirmWidget *m_table;
    std::mt19937 m_random{77u};
};

} // namespace

TEST_F(PanelSoak, ALiveMarketWhileTheTraderWorksLeavesNoReportNoHangAndFlatMemory)
{
    CBasketOperationPanel panel(1, nullptr);
    panel.resize(1400, 800);
    panel.show();
    Trader trader(panel);
    trader.selectEveryAccount();
    trader.step(0);
    ASSERT_GT(panel.basketWidget()->editWidget()->confirmWidget()->table()->rowCount(), 0);

    const int seconds = soakSeconds();
    // Memory may grow while caches fill during the first minute (a third of a shorter run) and
    // the first round of steps.
    const auto warmUp = std::chrono::seconds(std::min(60, seconds / 3));
    const auto start = std::chrono::steady_clock::now();
    const auto end = start + std::chrono::seconds(seconds);
    double afterWarmUp = 0.0;
    double peak = residentMegabytes();
    double peakAfterWarmUp = 0.0;
    long stepsAfterWarmUp = 0;
    double last = peak;
    long steps = 0;
    {
        Watchdog watchdog;
        Feed feed;
        // At least one whole round, however slow the machine.
        while (std::chrono::steady_clock::now() < end || steps < Trader::kRoundSteps) {
            trader.step(++steps);
            watchdog.stepped();
            last = residentMegabytes();
            peak = std::max(peak, last);
            if (afterWarmUp > 0.0) {
                peakAfterWarmUp = std::max(peakAfterWarmUp, last);
                ++stepsAfterWarmUp;
            } else if (steps >= Trader::kRoundSteps && std::chrono::steady_clock::now() - start >= warmUp) {
                afterWarmUp = last;
            }
        }
        feed.stop();
        const double elapsed = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        std::printf("soak: %d s, %ld steps, %ld quotes (%.0f a second), RSS %.1f MB after warm-up, %.1f MB at the "
                    "end, %.1f MB peak\n",
                    seconds, steps, feed.published(), feed.published() / elapsed, afterWarmUp, last, peak);
        RecordProperty("quotes", static_cast<int>(feed.published()));
        RecordProperty("peak_rss_mb", static_cast<int>(peak));
        // The feed keeps its pace unless the machine starves it.
        EXPECT_GT(feed.published(), static_cast<long>(0.5 * kQuotesPerSecond * elapsed));
    }
#ifndef __SANITIZE_THREAD__
    // Flat: what was held after the warm-up is all the run needs, give or take the allocator.
    // (ThreadSanitizer's own memory grows with the history it keeps, so only the other builds
    // measure.) A run too short for a whole round after the warm-up has nothing to compare.
    if (stepsAfterWarmUp >= Trader::kRoundSteps)
        EXPECT_LT(peakAfterWarmUp - afterWarmUp, 16.0 + 0.1 * afterWarmUp)
            << "after warm-up " << afterWarmUp << " MB, highest later " << peakAfterWarmUp << " MB";
    else
        std::printf("soak: %ld steps after the warm-up, too few to judge the memory\n", stepsAfterWarmUp);
#endif
}
