// The whole panel at a trader's scale, shown and painted off screen as the client docks it: a
// basket of 1000 stocks over 20 accounts (20,000 order lines), and a whole-market basket of 5000
// stocks over 20 accounts (100,000 lines). The argument of each benchmark is the stock count.
//
// Each figure is printed with its ratio to a floor measured in the same run at the same size: a
// bare QTableView over a plain model that loads and paints the same lines. The machine is
// shared, so the ratio is the figure to compare between runs, not the milliseconds.
#include "CBasketOperationPanel.h"
#include "CHpfOpConfirmWidget.h"
#include "COpBasketParamsEditWidget.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketsComboBox.h"
#include "COperationBasketWidget.h"

#include "CExchangeClient.h"
#include "COpAccountsWidget.h"
#include "COrderParamTable.h"
#include "CQuoteClient.h"
#include "CUserConfig.h"
#include "OperationHelpers.h"
#include "SubstituteReset.h"

#include <benchmark/benchmark.h>

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QPaintEvent>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

#include <malloc.h>

#include <chrono>
#include <ctime>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int kAccounts = 20;
constexpr int kWidth = 1600;
constexpr int kHeight = 1000;
constexpr int kManagerRole = 90;

std::map<int, double> g_floorSeconds; // stock count -> the floor of this run, per iteration

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

double threadCpuSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

int stocksOf(const benchmark::State &state)
{
    return int(state.range(0));
}

void reportRatio(benchmark::State &state, double secondsPerIteration)
{
    const double floor = g_floorSeconds[stocksOf(state)];
    if (floor > 0)
        state.counters["x_floor"] = secondsPerIteration / floor;
}

// The resident memory of the process, in bytes, after the allocator gave back what it could:
// the memory of an earlier benchmark must not hide this one's.
double residentBytes()
{
    malloc_trim(0);
    std::ifstream status("/proc/self/status");
    std::string key;
    while (status >> key) {
        if (key == "VmRSS:") {
            double kib = 0;
            status >> kib;
            return kib * 1024;
        }
        status.ignore(1 << 12, '\n');
    }
    return 0;
}

std::string codeOf(int stock)
{
    return std::to_string(600000 + stock);
}

TC::CPriceData quoteOf(int stock, double shift)
{
    TC::CPriceData quote;
    quote.m_market = "SH";
    quote.m_stockCode = codeOf(stock);
    quote.m_lastClose = 10 + stock % 50;
    quote.m_lastPrice = quote.m_lastClose + shift;
    quote.m_askPrice1 = quote.m_lastPrice + 0.01;
    quote.m_bidPrice1 = quote.m_lastPrice - 0.01;
    quote.m_upStopPrice = quote.m_lastClose * 1.1;
    quote.m_downStopPrice = quote.m_lastClose * 0.9;
    return quote;
}

// Two stored baskets of the same 1000 stocks with other volumes, so that every choice sizes and
// loads the whole list anew.
void fillClient(int stocks)
{
    TC::resetAllSubstitutes();
    TC::getUserConfig()->setRole(kManagerRole);
    for (int i = 0; i < stocks; ++i) {
        ttservice::CInstrumentDetail detail;
        detail.m_market = "SH";
        detail.m_stockCode = codeOf(i);
        detail.m_stockName = "股票" + std::to_string(i);
        TC::CExchangeClient::instance()->addInstrument(detail);
        TC::CQuoteClient::instance()->setStockPrice(quoteOf(i, 0.0));
    }
    for (int b = 0; b < 2; ++b) {
        TC::CBasketSetting basket;
        basket.m_name = QStringLiteral("大篮子%1").arg(b);
        for (int i = 0; i < stocks; ++i) {
            TC::CBasketStockData row;
            row.m_market = QStringLiteral("SH");
            row.m_stockCode = QString::fromStdString(codeOf(i));
            row.m_weight = 1.0 / stocks;
            row.m_volume = 100 * (1 + (i + b) % 10);
            basket.m_stocks << row;
        }
        TC::getUserConfig()->baskets().insert(basket.m_name, basket);
    }
    for (int a = 0; a < kAccounts; ++a) {
        ttservice::CAccountInfo info;
        info.m_accountKey = "acc" + std::to_string(a);
        info.m_accountId = "8800" + std::to_string(a);
        info.m_brokerType = ttservice::BROKER_TYPE_STOCK;
        ttservice::CAccountDetail detail;
        detail.m_accountKey = info.m_accountKey;
        detail.m_available = 1e9;
        detail.m_totalAsset = 2e9;
        TC::getUserConfig()->addAccount(info, detail);
    }
}

// The panel in a window of a trader's screen size, every account ticked.
struct ShownPanel
{
    explicit ShownPanel(int stocks)
    {
        fillClient(stocks);
        window.resize(kWidth, kHeight);
        auto *layout = new QVBoxLayout(&window);
        panel = new TC::CBasketOperationPanel(1, &window);
        layout->addWidget(panel);
        window.show();
        QApplication::processEvents();
        TC::COperationBasketWidget *basketWidget = panel->basketWidget();
        form = basketWidget ? basketWidget->paramsWidget() : nullptr;
        TC::COpBasketParamsEditWidget *edit = basketWidget ? basketWidget->editWidget() : nullptr;
        confirm = edit ? edit->confirmWidget() : nullptr;
        if (!form || !confirm)
            return;
        form->refreshAccounts();
        for (const QString &key : form->accountsWidget()->getDisplayedAccounts())
            form->accountsWidget()->setSelectedAccount(key, true);
        paint();
    }

    bool ready() const { return form && confirm && confirm->table(); }

    void choose(int basket)
    {
        form->basketsCombo()->setBasket(QStringLiteral("大篮子%1").arg(basket), false);
    }

    // What the user sees: pending events handled, which paints what changed, as the client's
    // event loop does.
    void paint() { QApplication::processEvents(); }

    int tableRows() const { return confirm->table()->rowCount(); }

    // The first basket on screen, as a market benchmark starts; false after reporting why not.
    bool showBasket(benchmark::State &state)
    {
        if (!ready()) {
            state.SkipWithError("the panel has no form or table");
            return false;
        }
        choose(0);
        paint();
        return true;
    }

    QWidget window;
    TC::CBasketOperationPanel *panel = nullptr;
    TC::COpBasketParamsWidget *form = nullptr;
    TC::CHpfOpConfirmWidget *confirm = nullptr;
};

// Remembers how much of a widget its paint events covered.
class PaintWatch final : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            const QRect rect = static_cast<QPaintEvent *>(event)->rect();
            m_area += double(rect.width()) * rect.height();
            ++m_paints;
        }
        return false;
    }
    double m_area = 0;
    int m_paints = 0;
};

// A market round from the quote service's own thread: a quote for every stock, moved by the
// round's number. Answers the CPU the publishing thread spent, callbacks included.
double publishRoundFromWorker(int stocks, int round)
{
    double cpu = 0;
    std::thread worker([&cpu, stocks, round] {
        const double start = threadCpuSeconds();
        for (int i = 0; i < stocks; ++i)
            TC::CQuoteClient::instance()->publishQuote(quoteOf(i, 0.01 * (round % 9 + 1)));
        cpu = threadCpuSeconds() - start;
    });
    worker.join();
    return cpu;
}

// ---- the floor -----------------------------------------------------------------------------

// A plain model of the same lines: the least any table of them costs to load and paint.
class PlainModel final : public QAbstractTableModel
{
public:
    struct Row
    {
        QString account, market, code, name, operation, status;
        qint64 volume = 0, available = 0;
        double last = 0, change = 0, cost = 0;
        bool checked = true;
    };

    void load(std::vector<Row> rows)
    {
        beginResetModel();
        m_rows = std::move(rows);
        endResetModel();
    }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override
    {
        return parent.isValid() ? 0 : int(m_rows.size());
    }
    int columnCount(const QModelIndex &parent = QModelIndex()) const override { return parent.isValid() ? 0 : 12; }

    QVariant data(const QModelIndex &index, int role) const override
    {
        const Row &row = m_rows[size_t(index.row())];
        if (role == Qt::CheckStateRole && index.column() == 11)
            return row.checked ? Qt::Checked : Qt::Unchecked;
        if (role != Qt::DisplayRole)
            return QVariant();
        switch (index.column()) {
        case 0: return row.account;
        case 1: return row.market;
        case 2: return row.code;
        case 3: return row.name;
        case 4: return row.operation;
        case 5: return QString::number(row.volume);
        case 6: return QString::number(row.available);
        case 7: return QString::number(row.last, 'f', 2);
        case 8: return QString(QString::number(row.change * 100, 'f', 2) + QLatin1Char('%'));
        case 9: return QString::number(row.cost, 'f', 2);
        case 10: return row.status;
        default: return QVariant();
        }
    }

private:
    std::vector<Row> m_rows;
};

void BM_Floor_PlainTableLoadAndPaint(benchmark::State &state)
{
    const int stocks = stocksOf(state);
    fillClient(stocks);
    QWidget window;
    window.resize(kWidth, kHeight);
    auto *layout = new QVBoxLayout(&window);
    auto *view = new QTableView(&window);
    auto *model = new PlainModel;
    model->setParent(view);
    view->setModel(model);
    view->verticalHeader()->setDefaultSectionSize(22);
    view->verticalHeader()->hide();
    layout->addWidget(view);
    window.show();
    QApplication::processEvents();

    double total = 0;
    double painting = 0;
    for (auto _ : state) {
        const Clock::time_point start = Clock::now();
        std::vector<PlainModel::Row> rows;
        rows.reserve(size_t(stocks * kAccounts));
        for (int a = 0; a < kAccounts; ++a) {
            const QString account = QStringLiteral("8800%1").arg(a);
            for (int i = 0; i < stocks; ++i) {
                PlainModel::Row row;
                row.account = account;
                row.market = QStringLiteral("SH");
                row.code = QString::fromStdString(codeOf(i));
                row.name = QStringLiteral("股票%1").arg(i);
                row.operation = QStringLiteral("买入");
                row.status = QStringLiteral("-");
                row.volume = 100 * (1 + i % 10);
                row.last = 10 + i % 50;
                row.cost = double(row.volume) * row.last;
                rows.push_back(std::move(row));
            }
        }
        model->load(std::move(rows));
        const Clock::time_point loaded = Clock::now();
        QApplication::processEvents();
        const double seconds = secondsSince(start);
        total += seconds;
        painting += secondsSince(loaded);
        state.SetIterationTime(seconds);
    }
    g_floorSeconds[stocks] = total / double(state.iterations());
    state.counters["paint_ms"] = painting / double(state.iterations()) * 1e3;
    state.counters["rows_in_view"] = view->viewport()->height() / std::max(1, view->verticalHeader()->defaultSectionSize());
}
BENCHMARK(BM_Floor_PlainTableLoadAndPaint)->Arg(1000)->Arg(5000)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2.0);

// ---- the panel -----------------------------------------------------------------------------

// A basket chosen until the table shows all its lines on screen. Also answers the resident
// memory per line the panel holds with the basket shown, sizing and quotes included.
void BM_Panel_ChooseBasketUntilPainted(benchmark::State &state)
{
    const int stocks = stocksOf(state);
    const double residentBefore = residentBytes();
    ShownPanel shown(stocks);
    if (!shown.ready()) {
        state.SkipWithError("the panel has no form or table");
        return;
    }
    int basket = 0;
    double total = 0;
    double sizing = 0;
    for (auto _ : state) {
        basket = 1 - basket;
        const Clock::time_point start = Clock::now();
        shown.choose(basket);
        const Clock::time_point chosen = Clock::now();
        shown.paint();
        const double seconds = secondsSince(start);
        total += seconds;
        sizing += std::chrono::duration<double>(chosen - start).count();
        state.SetIterationTime(seconds);
    }
    const double residentAfter = residentBytes();
    if (shown.tableRows() != stocks * kAccounts)
        state.SkipWithError("the table does not show one row per stock and account");
    const double iterations = double(state.iterations());
    // Where the time goes: sizing the basket and loading the table, then the paint.
    state.counters["list_ms"] = sizing / iterations * 1e3;
    state.counters["paint_ms"] = (total - sizing) / iterations * 1e3;
    state.counters["rows_in_view"] = shown.confirm->table()->view()->viewport()->height()
                                     / std::max(1, shown.confirm->table()->itemHeight());
    state.counters["rss_per_line"] = (residentAfter - residentBefore) / double(stocks * kAccounts);
    reportRatio(state, total / iterations);
}
BENCHMARK(BM_Panel_ChooseBasketUntilPainted)->Arg(1000)->Arg(5000)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2.0);

// A quote for each stock, published from a worker thread while the list is on
// screen; the time is the CPU the publishing thread spends, callbacks included.
void BM_Panel_MarketRoundFromWorker(benchmark::State &state)
{
    const int stocks = stocksOf(state);
    ShownPanel shown(stocks);
    if (!shown.showBasket(state))
        return;
    int round = 0;
    double total = 0;
    for (auto _ : state) {
        ++round;
        const double cpu = publishRoundFromWorker(stocks, round);
        total += cpu;
        state.SetIterationTime(cpu);
        state.PauseTiming();
        shown.paint();
        state.ResumeTiming();
    }
    reportRatio(state, total / double(state.iterations()));
}
BENCHMARK(BM_Panel_MarketRoundFromWorker)->Arg(1000)->Arg(5000)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2.0);

// The half-second tick after a quote for every stock changed every row, with the repaint
// of the table it causes.
void BM_Panel_TickAfterMarketRound(benchmark::State &state)
{
    const int stocks = stocksOf(state);
    ShownPanel shown(stocks);
    if (!shown.showBasket(state))
        return;
    PaintWatch watch;
    QWidget *viewport = shown.confirm->table()->view()->viewport();
    viewport->installEventFilter(&watch);
    int round = 0;
    double total = 0;
    double tick = 0;
    for (auto _ : state) {
        ++round;
        publishRoundFromWorker(stocks, round);
        const Clock::time_point start = Clock::now();
        shown.confirm->slotTimeout();
        const Clock::time_point ticked = Clock::now();
        shown.paint();
        const double seconds = secondsSince(start);
        total += seconds;
        tick += std::chrono::duration<double>(ticked - start).count();
        state.SetIterationTime(seconds);
    }
    state.counters["tick_ms"] = tick / double(state.iterations()) * 1e3;
    // The share of the table's visible area a tick repaints.
    state.counters["repainted"] = watch.m_area / std::max(1, watch.m_paints)
                                  / (double(viewport->width()) * viewport->height());
    state.counters["paint_ms"] = (total - tick) / double(state.iterations()) * 1e3;
    reportRatio(state, total / double(state.iterations()));
}
BENCHMARK(BM_Panel_TickAfterMarketRound)->Arg(1000)->Arg(5000)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2.0);

} // namespace
