#include "CSmartKeyboardDialog.h"

#include "CExchangeClient.h"
#include "Fields.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTableWidget>
#include <QTimer>
#include <QtTest/QTest>

#include <string>
#include <vector>

using TC::CSmartKeyboardDialog;

namespace {

struct Chosen { ttservice::CStockInfo stock; TC::ESmartKeyType type; };

void addInstrument(const char *market, const char *code, const char *name) { sample::addInstrument(market, code, 0x7fffffff, name); }

// "<code>.<market>" of every listed row, in order, after checking that the table shows them.
std::vector<std::string> listedKeys(const CSmartKeyboardDialog *keyboard)
{
    std::vector<std::string> keys;
    QTableWidget *table = keyboard->matchTable();
    EXPECT_EQ(table->rowCount(), keyboard->matchCount());
    for (int row = 0; row < keyboard->matchCount(); ++row) {
        const ttservice::CStockInfo stock = keyboard->matchAt(row);
        keys.push_back(stock.m_stockCode + "." + stock.m_market);
        if (row < table->rowCount()) {
            EXPECT_EQ(table->item(row, 0)->text().toStdString(), stock.m_stockCode);
            EXPECT_EQ(table->item(row, 1)->text().toStdString(), stock.m_stockName);
            EXPECT_EQ(table->item(row, 2)->text().toStdString(), stock.m_market);
        }
    }
    return keys;
}

class SmartKeyboard : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        keyboard = CSmartKeyboardDialog::instance();
        ASSERT_NE(keyboard, nullptr);
        keyboard->reset();
        // Added out of code order, so that the list's order is the keyboard's own doing.
        addInstrument("SHFE", "ag2406", "白银主力");
        addInstrument("CFFEX", "IF2401", "沪深股指期货");
        addInstrument("SH", "600036", "招商银行");
        addInstrument("SZ", "000001", "平安银行");
        addInstrument("SSE", "601318", "中国平安");
        addInstrument("SH", "600000", "浦发银行");
        addInstrument("SH", "000001", "上证指数");
        addInstrument("SZSE", "300750", "宁德时代");
        addInstrument("HK", "00700", "腾讯控股");
    }
    void TearDown() override { keyboard->reset(); }

    // A select function that keeps what it is handed.
    void recordChoices()
    {
        keyboard->setSelectStockFunc(
            [this](ttservice::CStockInfo stock, TC::ESmartKeyType type) { chosen.push_back({stock, type}); });
    }
    // The first character of a search, typed on the panel.
    void typeOn(QWidget *panel, const QString &text)
    {
        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, text);
        keyboard->setChar(&key, panel);
    }

    CSmartKeyboardDialog *keyboard = nullptr;
    QWidget panel;
    std::vector<Chosen> chosen;
};

TEST_F(SmartKeyboard, isOneKeyboardUntilTheEventLoopEndsThenALaterCallMakesANewOne)
{
    EXPECT_EQ(CSmartKeyboardDialog::instance(), keyboard);
    QPointer<CSmartKeyboardDialog> before = keyboard;
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QApplication::exec();

    EXPECT_TRUE(before.isNull());
    keyboard = CSmartKeyboardDialog::instance();
    ASSERT_NE(keyboard, nullptr);
    keyboard->setSearchText(QStringLiteral("600000"));
    EXPECT_EQ(keyboard->matchCount(), 1);
}

TEST_F(SmartKeyboard, aTypedCharacterOpensTheBoxWithANewSearchThatTypingNarrows)
{
    panel.resize(200, 40);
    panel.show();
    keyboard->setSearchText(QStringLiteral("300"));
    QKeyEvent key(QEvent::KeyPress, Qt::Key_6, Qt::NoModifier, QStringLiteral("6"));
    key.ignore();
    keyboard->setChar(&key, &panel);

    EXPECT_TRUE(key.isAccepted());
    EXPECT_TRUE(keyboard->isVisible());
    EXPECT_EQ(keyboard->searchText(), QStringLiteral("6"));
    EXPECT_EQ(listedKeys(keyboard), (std::vector<std::string>{"600000.SH", "600036.SH", "601318.SSE"}));
    EXPECT_EQ(keyboard->currentRow(), 0);

    QTest::keyClicks(keyboard->searchEdit(), QStringLiteral("0003"));
    EXPECT_EQ(keyboard->searchText(), QStringLiteral("60003"));
    EXPECT_EQ(listedKeys(keyboard), (std::vector<std::string>{"600036.SH"}));
}

TEST_F(SmartKeyboard, matchesCodePrefixesAndNamesInCodeOrder)
{
    struct Row { const char *text; int tradeType; std::vector<std::string> keys; };
    const Row rows[] = {
        {"6", 2, {"600000.SH", "600036.SH", "601318.SSE"}},
        // One code on two markets: both, by market.
        {"000001", 2, {"000001.SH", "000001.SZ"}},
        {"0", 2, {"000001.SH", "000001.SZ", "00700.HK"}},
        {"0", 1, {"000001.SH", "000001.SZ"}},
        {"if", 2, {"IF2401.CFFEX"}},
        {"AG", 2, {"ag2406.SHFE"}},
        {"if", 1, {}},
        // Names match anywhere, codes only at the start.
        {"银行", 2, {"000001.SZ", "600000.SH", "600036.SH"}},
        {"平安", 1, {"000001.SZ", "601318.SSE"}},
        {"主力", 2, {"ag2406.SHFE"}},
        {"主力", 1, {}},
        {"0036", 2, {}},
        {"xyz", 2, {}},
        {"", 2, {}},
    };
    for (const Row &row : rows) {
        keyboard->setTradeType(row.tradeType);
        keyboard->setSearchText(QString::fromUtf8(row.text));
        EXPECT_EQ(listedKeys(keyboard), row.keys) << "text \"" << row.text << "\", trade type " << row.tradeType;
    }
}

TEST_F(SmartKeyboard, theListFollowsTheTradeTypeAtOnceAndSeesInstrumentsAddedSinceTheLastSearch)
{
    keyboard->setSearchText(QStringLiteral("I"));
    ASSERT_EQ(listedKeys(keyboard), (std::vector<std::string>{"IF2401.CFFEX"}));
    keyboard->setTradeType(1);
    EXPECT_EQ(keyboard->matchCount(), 0);
    EXPECT_EQ(keyboard->matchTable()->rowCount(), 0);
    keyboard->setTradeType(2);
    EXPECT_EQ(listedKeys(keyboard), (std::vector<std::string>{"IF2401.CFFEX"}));

    addInstrument("CFFEX", "IH2401", "上证50股指期货");
    keyboard->setSearchText(QStringLiteral("I"));
    EXPECT_EQ(listedKeys(keyboard), (std::vector<std::string>{"IF2401.CFFEX", "IH2401.CFFEX"}));
}

TEST_F(SmartKeyboard, enterHandsTheInstrumentAndItsKindToTheSelectFunction)
{
    struct Row { const char *text, *market, *code, *name; TC::ESmartKeyType type; };
    const Row rows[] = {
        {"IF2401", "CFFEX", "IF2401", "沪深股指期货", TC::SKT_FUTURE},
        {"ag", "SHFE", "ag2406", "白银主力", TC::SKT_FUTURE},
        {"600000", "SH", "600000", "浦发银行", TC::SKT_STOCK},
        {"601318", "SSE", "601318", "中国平安", TC::SKT_STOCK},
        {"00700", "HK", "00700", "腾讯控股", TC::SKT_STOCK},
    };
    recordChoices();
    for (const Row &row : rows) {
        SCOPED_TRACE(row.text);
        chosen.clear();
        const QString text = QString::fromUtf8(row.text);
        typeOn(&panel, text.left(1));
        keyboard->setSearchText(text);
        ASSERT_TRUE(keyboard->isVisible());

        QTest::keyClick(keyboard->searchEdit(), Qt::Key_Return);

        ASSERT_EQ(chosen.size(), 1u);
        const ttservice::CStockInfo &stock = chosen[0].stock;
        EXPECT_EQ(fields(stock.m_market, stock.m_stockCode, stock.m_stockName, stock.m_exchangeId, chosen[0].type, keyboard->isVisible()),
                  fields(row.market, row.code, row.name, row.code, row.type, false));
    }
}

TEST_F(SmartKeyboard, upAndDownMoveTheRowWithinTheListAndEnterChoosesIt)
{
    recordChoices();
    keyboard->setSearchText(QStringLiteral("6"));
    QLineEdit *edit = keyboard->searchEdit();
    QTest::keyClick(edit, Qt::Key_Up);
    EXPECT_EQ(keyboard->currentRow(), 0);
    for (int i = 0; i < 5; ++i)
        QTest::keyClick(edit, Qt::Key_Down);
    EXPECT_EQ(keyboard->currentRow(), 2);
    QTest::keyClick(edit, Qt::Key_Up);
    EXPECT_EQ(keyboard->currentRow(), 1);
    EXPECT_EQ(keyboard->searchText(), QStringLiteral("6")) << "the arrows move rows and type nothing";

    QTest::keyClick(edit, Qt::Key_Enter, Qt::KeypadModifier);
    ASSERT_EQ(chosen.size(), 1u);
    EXPECT_EQ(chosen[0].stock.m_stockCode, "600036");
}

TEST_F(SmartKeyboard, doubleClickChoosesTheRow)
{
    recordChoices();
    typeOn(&panel, QStringLiteral("6"));
    QTableWidget *table = keyboard->matchTable();
    const QRect rowRect = table->visualItemRect(table->item(2, 0));
    ASSERT_TRUE(rowRect.isValid());

    // A double click reaches a widget as press, release, double click, release; the widget
    // form of mouseDClick sends the last two only.
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, rowRect.center());
    ASSERT_TRUE(chosen.empty());
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, rowRect.center());

    ASSERT_EQ(chosen.size(), 1u);
    EXPECT_EQ(chosen[0].stock.m_stockCode, "601318");
    EXPECT_EQ(chosen[0].type, TC::SKT_STOCK);
    EXPECT_FALSE(keyboard->isVisible());
}

TEST_F(SmartKeyboard, nothingIsChosenWithNothingListedOutOfRangeOrOnEscape)
{
    recordChoices();
    typeOn(&panel, QStringLiteral("z"));
    ASSERT_EQ(keyboard->matchCount(), 0);
    QTest::keyClick(keyboard->searchEdit(), Qt::Key_Down);
    QTest::keyClick(keyboard->searchEdit(), Qt::Key_Return);
    EXPECT_EQ(keyboard->currentRow(), -1);
    EXPECT_TRUE(keyboard->isVisible());

    keyboard->setSearchText(QStringLiteral("6"));
    for (int row : {-1, 3, 100})
        keyboard->chooseRow(row);
    EXPECT_TRUE(keyboard->isVisible());
    EXPECT_EQ(keyboard->matchAt(3).m_stockCode, "");

    QTest::keyClick(keyboard->searchEdit(), Qt::Key_Escape);
    EXPECT_FALSE(keyboard->isVisible());
    EXPECT_TRUE(chosen.empty());
}

TEST_F(SmartKeyboard, activatingAnotherWindowClosesWithoutChoosing)
{
    recordChoices();
    panel.show();
    typeOn(&panel, QStringLiteral("6"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(keyboard));

    panel.activateWindow();

    EXPECT_TRUE(QTest::qWaitFor([this] { return !keyboard->isVisible(); }, 1000));
    EXPECT_TRUE(chosen.empty());
}

TEST_F(SmartKeyboard, keysWithoutPrintableTextAreLeftToThePanel)
{
    const std::pair<int, QString> keys[] = {
        {Qt::Key_Shift, QString()},           {Qt::Key_Left, QString()},
        {Qt::Key_Return, QStringLiteral("\r")}, {Qt::Key_Escape, QStringLiteral("\x1b")},
        {Qt::Key_Tab, QStringLiteral("\t")},    {Qt::Key_Backspace, QStringLiteral("\b")},
        {Qt::Key_Space, QStringLiteral(" ")},
    };
    keyboard->setSearchText(QStringLiteral("60"));
    for (const auto &k : keys) {
        QKeyEvent key(QEvent::KeyPress, k.first, Qt::NoModifier, k.second);
        key.ignore();
        keyboard->setChar(&key, &panel);
        EXPECT_FALSE(key.isAccepted()) << k.first;
        EXPECT_FALSE(keyboard->isVisible()) << k.first;
        EXPECT_EQ(keyboard->searchText(), QStringLiteral("60")) << k.first;
    }
    keyboard->setChar(nullptr, &panel);
    EXPECT_FALSE(keyboard->isVisible());
}

TEST_F(SmartKeyboard, theSelectFunctionStaysUntilReplacedOrResetAndMayResetTheKeyboardItself)
{
    int first = 0;
    int second = 0;
    keyboard->setSelectStockFunc([&first](ttservice::CStockInfo, TC::ESmartKeyType) { ++first; });
    keyboard->setSearchText(QStringLiteral("600000"));
    keyboard->chooseRow(0);
    keyboard->chooseRow(0);
    EXPECT_EQ(first, 2);
    keyboard->setSelectStockFunc([&second](ttservice::CStockInfo, TC::ESmartKeyType) { ++second; });
    keyboard->chooseRow(0);
    EXPECT_EQ(first, 2);
    EXPECT_EQ(second, 1);

    keyboard->setTradeType(1);
    keyboard->show();
    keyboard->reset();
    EXPECT_EQ(fields(keyboard->isVisible(), keyboard->searchText(), keyboard->matchCount(), keyboard->tradeType()), "false||0|2");
    keyboard->setSearchText(QStringLiteral("600000"));
    keyboard->chooseRow(0);
    EXPECT_EQ(first + second, 3);

    // A function that resets the keyboard replaces itself while it runs; its captures must
    // outlive the call (the text is on the heap, so that a freed capture shows).
    std::vector<std::string> seen;
    const std::string tag(64, 'x');
    keyboard->setSelectStockFunc([this, &seen, tag](ttservice::CStockInfo stock, TC::ESmartKeyType) {
        keyboard->reset();
        seen.push_back(tag + stock.m_stockCode);
    });
    keyboard->setSearchText(QStringLiteral("600036"));
    keyboard->chooseRow(0);
    EXPECT_EQ(seen, (std::vector<std::string>{tag + "600036"}));
    EXPECT_EQ(keyboard->matchCount(), 0);
}

} // namespace
