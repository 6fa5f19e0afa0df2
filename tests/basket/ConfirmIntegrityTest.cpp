// The two promises of the confirmation table, checked after every step of long random sessions:
// (a) every row on screen shows its own line: the price, change and value of its own
//     instrument and the volume its line holds;
// (b) an order carries exactly the ticked rows on screen, in their order, with the volumes shown.
// A session mixes loads, sorts, column filters, unticks, edits, deletions, direction switches,
// orders, quotes from a worker thread and ticks, reproducibly from its seed.
#include "COpBasketConfirmWidget.h"

#include "COrderParamTable.h"
#include "CTableCellEvent.h"
#include "CTableModel.h"

#include "ConfirmTestSupport.h"
#include "SubstituteFixture.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <atomic>
#include <cmath>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

using namespace TC;
using namespace confirmtest;
using Widget = COpBasketConfirmWidget;

namespace {

constexpr int kStocks = 8;
constexpr int kAccounts = 3;
constexpr int kHeld = 500; // every account holds this much of every stock

std::string codeOf(int stock) { return std::to_string(600100 + stock); }
std::string accountOf(int account) { return "acc" + std::to_string(account); }
// Prices of different stocks never meet (stock i trades in [10 i + 10, 10 i + 11)), so a row
// that shows another stock's price cannot pass for its own.
double priceOf(int stock, int step) { return 10.0 * stock + 10.0 + 0.01 * (step % 100); }
double closeOf(int stock) { return 10.0 * stock + 10.0; }

struct Ref
{
    qint64 volume = 0;
    int operation = 18;
    bool deleted = false;
};

using Key = std::pair<std::string, std::string>; // account display id, code

class Session
{
public:
    Session(unsigned seed, int listOperation)
        : m_random(seed)
        , m_listOperation(listOperation)
    {
        m_form = std::make_unique<FormStub>();
        m_widget = new Widget(m_form.get());
        m_widget->setOpConfirmType(1);
        m_widget->setOperationType(listOperation);
        for (int a = 0; a < kAccounts; ++a) {
            std::vector<Held> held;
            for (int s = 0; s < kStocks; ++s)
                held.push_back({codeOf(s), kHeld});
            addAccount(accountOf(a), ttservice::BROKER_TYPE_STOCK, 1e12, held);
        }
        for (int s = 0; s < kStocks; ++s) {
            addInstrument("SH", codeOf(s));
            m_last[codeOf(s)] = priceOf(s, 0);
            CQuoteClient::instance()->setStockPrice(quote("SH", codeOf(s), priceOf(s, 0), closeOf(s)));
        }
    }

    ~Session()
    {
        delete m_widget;
        m_form.reset();
    }

    COrderParamTable *table() const { return m_widget->table(); }
    Widget *widget() const { return m_widget; }

    int pick(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(m_random); }

    // One random user action or market event, then the checks. Answers a description of what
    // was done, for the failure message.
    std::string step(int number)
    {
        using Action = std::string (Session::*)();
        static const Action actions[] = {&Session::load,   &Session::sort,   &Session::filter, &Session::clearFilters,
                                         &Session::toggleTick, &Session::edit, &Session::edit,  &Session::remove,
                                         &Session::place,  &Session::switchDirection, &Session::reset};
        const int choice = pick(12);
        const std::string what = choice < 11 ? (this->*actions[choice])() : quotes(number);
        m_widget->slotTimeout();
        return what;
    }

    std::string load()
    {
        m_refs.clear();
        m_filters.clear();
        m_lines.clear();
        for (int a = 0; a < kAccounts; ++a) {
            for (int s = 0; s < kStocks; ++s) {
                if (pick(5) == 0)
                    continue;
                int operation = m_listOperation;
                if (operation == ttservice::OT_NONE)
                    operation = pick(2) == 0 ? ttservice::OT_BUY : ttservice::OT_SELL;
                const qint64 volume = 100 * (1 + pick(9));
                m_lines.push_back(line(accountOf(a), codeOf(s), operation, volume));
                Ref ref;
                ref.operation = operation;
                // What is sold is cut to what is held.
                ref.volume = operation == ttservice::OT_SELL ? std::min<qint64>(volume, kHeld) : volume;
                m_refs[{accountOf(a), codeOf(s)}] = ref;
            }
        }
        m_widget->loadParams(&m_lines);
        return "load " + std::to_string(m_lines.size());
    }

    std::string sort()
    {
        const int column = pick(Widget::COL_STATUS + 1);
        const Qt::SortOrder order = pick(2) == 0 ? Qt::AscendingOrder : Qt::DescendingOrder;
        table()->sortByColumn(column, order);
        return "sort " + std::to_string(column);
    }

    // The user ticks some values of the account, code or volume column in its filter menu.
    std::string filter()
    {
        static const int columns[] = {Widget::COL_ACCOUNT, Widget::COL_CODE, Widget::COL_VOLUME};
        const int column = columns[pick(3)];
        QSet<QString> values;
        for (const auto &entry : m_refs) {
            if (entry.second.deleted || pick(3) == 0)
                continue;
            values.insert(filterValue(entry.first, entry.second, column));
        }
        table()->setColumnFilter(column, WK::FT_EQUAL, values);
        if (values.isEmpty())
            m_filters.erase(column);
        else
            m_filters[column] = values;
        return "filter " + std::to_string(column) + " on " + std::to_string(values.size());
    }

    std::string clearFilters()
    {
        const std::map<int, QSet<QString>> filters = m_filters;
        for (const auto &entry : filters)
            table()->setColumnFilter(entry.first, WK::FT_EQUAL, QSet<QString>());
        m_filters.clear();
        return "clear filters";
    }

    std::string toggleTick()
    {
        const int rows = table()->rowCount();
        if (rows == 0)
            return "tick: no rows";
        const int visual = pick(rows);
        const QModelIndex index = table()->model()->index(visual, Widget::COL_CHECK);
        const bool checked = table()->isItemChecked(table()->rowID(visual), Widget::COL_CHECK);
        table()->model()->setData(index, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
        return "toggle tick";
    }

    // A row on screen chosen at random; -1 when there is none.
    int randomRow() { return table()->rowCount() > 0 ? table()->rowID(pick(table()->rowCount())) : -1; }

    std::string edit()
    {
        const int row = randomRow();
        if (row < 0)
            return "edit: no rows";
        const Key key = keyOfRow(row);
        const qint64 volume = 100 * pick(12);
        Ref &ref = m_refs[key];
        // More than is held cannot be sold: the cell and the line take what is held.
        if (table()->submitEdit(row, Widget::COL_VOLUME, QString::number(volume)))
            ref.volume = ref.operation == ttservice::OT_SELL ? std::min<qint64>(volume, kHeld) : volume;
        return "edit " + key.second + " to " + std::to_string(volume);
    }

    std::string remove()
    {
        const int row = randomRow();
        if (row < 0)
            return "delete: no rows";
        const Key key = keyOfRow(row);
        table()->selectRow(row);
        table()->deleteSelectedRows();
        m_refs[key].deleted = true;
        return "delete " + key.first + " " + key.second;
    }

    std::string switchDirection()
    {
        const int row = randomRow();
        if (row < 0)
            return "switch: no rows";
        WK::CTableCellEvent event(row, Widget::COL_OPERATION, QString::number(Widget::COL_OPERATION));
        m_widget->handleEvent(WK::TE_CELL_CLICKED, row, Widget::COL_OPERATION, event.m_text, &event);
        if (m_listOperation == ttservice::OT_NONE) {
            Ref &ref = m_refs[keyOfRow(row)];
            ref.operation = ref.operation == ttservice::OT_BUY ? ttservice::OT_SELL : ttservice::OT_BUY;
            if (ref.operation == ttservice::OT_SELL)
                ref.volume = std::min<qint64>(ref.volume, kHeld);
        }
        return "switch direction";
    }

    std::string reset()
    {
        m_widget->resetParam();
        return "reset";
    }

    // A quote for a few stocks, from the quote service's own thread.
    std::string quotes(int number, bool everyStock = false)
    {
        std::vector<CPriceData> round;
        for (int s = 0; s < kStocks; ++s) {
            if (!everyStock && pick(2) == 0)
                continue;
            const double last = priceOf(s, number);
            m_last[codeOf(s)] = last;
            round.push_back(quote("SH", codeOf(s), last, closeOf(s)));
        }
        std::thread([&round] {
            for (const CPriceData &price : round)
                CQuoteClient::instance()->publishQuote(price);
        }).join();
        return "quotes for " + std::to_string(round.size());
    }

    // (b): the list handed over is the ticked rows on screen, in screen order, with the
    // volumes shown, and nothing else.
    std::string place()
    {
        std::vector<std::pair<Key, qint64>> shown;
        for (int visual = 0; visual < table()->rowCount(); ++visual) {
            const int row = table()->rowID(visual);
            if (table()->isItemChecked(row, Widget::COL_CHECK))
                shown.emplace_back(keyOfRow(row), table()->itemLonglong(row, Widget::COL_VOLUME));
        }
        m_widget->updateParam();
        const std::vector<CCodeOrderParam> sent = m_widget->getOrderParams();
        std::vector<std::pair<Key, qint64>> carried;
        for (const CCodeOrderParam &l : sent)
            carried.emplace_back(Key(l.m_account->m_accountId, l.m_stockInfo.m_stockCode), l.m_volume);
        EXPECT_EQ(carried, shown) << "the order differs from the ticked rows on screen";
        return "place " + std::to_string(sent.size());
    }

    // (a), and that nothing the user kept was lost.
    void check(const std::string &what)
    {
        std::set<Key> onScreen;
        const bool moving = m_listOperation == ttservice::OT_BUY;
        for (int visual = 0; visual < table()->rowCount(); ++visual) {
            const int row = table()->rowID(visual);
            const Key key = keyOfRow(row);
            ASSERT_TRUE(onScreen.insert(key).second) << what << ": a line shows twice";
            const auto ref = m_refs.find(key);
            ASSERT_NE(ref, m_refs.end()) << what << ": a row of a line never loaded";
            ASSERT_FALSE(ref->second.deleted) << what << ": a deleted line came back";
            const qint64 volume = table()->itemLonglong(row, Widget::COL_VOLUME);
            EXPECT_EQ(volume, ref->second.volume) << what << ": volume of " << key.second;
            const CCodeOrderParam *held = m_widget->getParamByRowIndex(visual);
            ASSERT_NE(held, nullptr) << what;
            EXPECT_EQ(held->m_stockInfo.m_stockCode, key.second) << what;
            EXPECT_EQ(held->m_volume, volume) << what << ": the line behind the row holds another volume";

            const int stock = std::stoi(key.second) - 600100;
            const double last = table()->itemDouble(row, Widget::COL_LAST_PRICE);
            ASSERT_GE(last, closeOf(stock) - 1e-6) << what << ": " << key.second << " shows another stock's price";
            ASSERT_LT(last, closeOf(stock) + 1.0) << what << ": " << key.second << " shows another stock's price";
            if (moving) {
                EXPECT_NEAR(last, m_last[key.second], 1e-6) << what << ": " << key.second << " does not follow";
            }
            EXPECT_NEAR(table()->itemDouble(row, Widget::COL_CHANGE), (last - closeOf(stock)) / closeOf(stock), 1e-9)
                << what << ": change of " << key.second;
            if (moving) {
                EXPECT_NEAR(table()->itemDouble(row, Widget::COL_COST), double(volume) * last, 1e-6)
                    << what << ": value of " << key.second;
            }
        }
        // Every line the user kept shows when the filters let it.
        for (const auto &entry : m_refs) {
            if (entry.second.deleted || !passesFilters(entry.first, entry.second))
                continue;
            EXPECT_EQ(onScreen.count(entry.first), 1u) << what << ": " << entry.first.first << " "
                                                        << entry.first.second << " was lost";
        }
    }

private:
    Key keyOfRow(int row) const
    {
        return Key(table()->itemText(row, Widget::COL_ACCOUNT).toStdString(),
                   table()->itemText(row, Widget::COL_CODE).toStdString());
    }

    QString filterValue(const Key &key, const Ref &ref, int column) const
    {
        if (column == Widget::COL_ACCOUNT)
            return QString::fromStdString(key.first);
        if (column == Widget::COL_CODE)
            return QString::fromStdString(key.second);
        return QString::number(ref.volume);
    }

    // The last filtered column decides alone.
    bool passesFilters(const Key &key, const Ref &ref) const
    {
        bool pass = true;
        for (const auto &entry : m_filters)
            pass = entry.second.contains(filterValue(key, ref, entry.first));
        return pass;
    }

    std::mt19937 m_random;
    int m_listOperation;
    std::vector<CCodeOrderParam> m_lines; // destroyed after the widget, which works on it
    std::unique_ptr<FormStub> m_form;
    Widget *m_widget = nullptr;
    std::map<Key, Ref> m_refs;
    std::map<std::string, double> m_last;
    std::map<int, QSet<QString>> m_filters;
};

struct SessionCase { const char *name; unsigned seed; int listOperation; };

class ConfirmIntegrity : public SubstituteTest, public ::testing::WithParamInterface<SessionCase>
{
};

TEST_P(ConfirmIntegrity, EveryRowShowsItsOwnLineAndEveryOrderIsWhatTheScreenShows)
{
    const SessionCase &c = GetParam();
    Session session(c.seed, c.listOperation);
    session.load();
    session.check("first load");
    for (int number = 1; number <= 2500 && !::testing::Test::HasFailure(); ++number) {
        const std::string what = session.step(number);
        session.check("step " + std::to_string(number) + " (" + what + ")");
    }
}

INSTANTIATE_TEST_SUITE_P(Sessions, ConfirmIntegrity,
                         ::testing::Values(SessionCase{"buyList", 20261123u, ttservice::OT_BUY},
                                           SessionCase{"buyListOtherSeed", 77u, ttservice::OT_BUY},
                                           SessionCase{"mixedList", 4242u, ttservice::OT_NONE}),
                         [](const ::testing::TestParamInfo<SessionCase> &info) { return std::string(info.param.name); });

// A market running on its own thread the whole time the user works: the checks come once the
// market has stopped, on what the last tick shows.
TEST_F(SubstituteTest, AFreeRunningMarketDuringLoadFilterSortEditAndTick)
{
    Session session(99u, ttservice::OT_BUY);
    session.load();
    std::atomic<bool> stop{false};
    std::thread market([&stop] {
        for (int round = 0; !stop.load(); ++round) {
            for (int s = 0; s < kStocks; ++s)
                CQuoteClient::instance()->publishQuote(quote("SH", codeOf(s), priceOf(s, round), closeOf(s)));
        }
    });
    using Action = std::string (Session::*)();
    const Action actions[] = {&Session::load, &Session::sort, &Session::filter, &Session::edit, &Session::clearFilters};
    for (int number = 1; number <= 400; ++number) {
        if (number % 6 == 5)
            session.widget()->updateParam();
        else
            (session.*actions[number % 6])();
        session.widget()->slotTimeout();
    }
    stop.store(true);
    market.join();
    session.quotes(1234, true);
    session.widget()->slotTimeout();
    session.check("after the market stopped");
}

} // namespace
