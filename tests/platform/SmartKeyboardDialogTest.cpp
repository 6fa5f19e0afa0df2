#include "CSmartKeyboardDialog.h"

#include "CExchangeClient.h"
#include "SubstituteFixture.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QLineEdit>
#include <QScreen>
#include <QTableWidget>
#include <QTimer>
#include <QtTest/QTest>

#include <string>
#include <vector>

using TC::CSmartKeyboardDialog;

namespace {

struct Chosen {
    ttservice::CStockInfo stock;
    TC::ESmartKeyType type;
};

void addInstrument(const char *market, const char *code, const char *name)
{
    ttservice::CInstrumentDetail detail;
    detail.m_market = market;
    detail.m_stockCode = code;
    detail.m_stockName = name;
    TC::CExchangeClient::instance()->addInstrument(detail);
}

// "<code>.<market>" of every listed row, in order.
std::vector<std::string> listedKeys(const CSmartKeyboardDialog *keyboard)
{
    std::vector<std::string> keys;
    for (int row = 0; row < keyboard->matchCount(); ++row)
        keys.push_back(keyboard->matchAt(row).m_stockCode + "." + keyboard->matchAt(row).m_market);
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

    CSmartKeyboardDialog *keyboard = nullptr;
    std::vector<Chosen> chosen;
};

TEST_F(SmartKeyboard, isOneKeyboardPerProcess)
{
    EXPECT_EQ(CSmartKeyboardDialog::instance(), keyboard);
    EXPECT_FALSE(keyboard->isModal());
}

TEST_F(SmartKeyboard, theEndOfTheEventLoopDeletesItAndALaterCallMakesANewOne)
{
    QPointer<CSmartKeyboardDialog> before = keyboard;
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);

    QApplication::exec();

    EXPECT_TRUE(before.isNull());
    keyboard = CSmartKeyboardDialog::instance();
    ASSERT_NE(keyboard, nullptr);
    keyboard->setSearchText(QStringLiteral("600000"));
    EXPECT_EQ(keyboard->matchCount(), 1);
}

TEST_F(SmartKeyboard, typedCharacterOpensTheBoxWithItsMatches)
{
    QWidget panel;
    panel.resize(200, 40);
    panel.show();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_6, Qt::NoModifier, QStringLiteral("6"));
    key.ignore();

    keyboard->setChar(&key, &panel);

    EXPECT_TRUE(key.isAccepted());
    EXPECT_TRUE(keyboard->isVisible());
    EXPECT_EQ(keyboard->searchText(), QStringLiteral("6"));
    EXPECT_EQ(listedKeys(keyboard), (std::vector<std::string>{"600000.SH", "600036.SH", "601318.SSE"}));
    EXPECT_EQ(keyboard->currentRow(), 0);
}

TEST_F(SmartKeyboard, aNewCharacterStartsANewSearch)
{
    QWidget panel;
    keyboard->setSearchText(QStringLiteral("600"));
    QKeyEvent key(QEvent::KeyPress, Qt::Key_3, Qt::NoModifier, QStringLiteral("3"));

    keyboard->setChar(&key, &panel);

    EXPECT_EQ(keyboard->searchText(), QStringLiteral("3"));
    EXPECT_EQ(listedKeys(keyboard), (std::vector<std::string>{"300750.SZSE"}));
}

TEST_F(SmartKeyboard, typingNarrowsTheList)
{
    QWidget panel;
    QKeyEvent key(QEvent::KeyPress, Qt::Key_6, Qt::NoModifier, QStringLiteral("6"));
    keyboard->setChar(&key, &panel);

    QTest::keyClicks(keyboard->searchEdit(), QStringLiteral("0003"));

    EXPECT_EQ(keyboard->searchText(), QStringLiteral("60003"));
    EXPECT_EQ(listedKeys(keyboard), (std::vector<std::string>{"600036.SH"}));
}

struct MatchCase {
    const char *text;
    int tradeType;
    std::vector<std::string> keys;
};

TEST_F(SmartKeyboard, matchesCodePrefixesAndNamesInCodeOrder)
{
    const MatchCase cases[] = {
        {"6", 2, {"600000.SH", "600036.SH", "601318.SSE"}},
        {"60003", 2, {"600036.SH"}},
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
    for (const MatchCase &c : cases) {
        keyboard->setTradeType(c.tradeType);
        keyboard->setSearchText(QString::fromUtf8(c.text));
        EXPECT_EQ(listedKeys(keyboard), c.keys) << "text \"" << c.text << "\", trade type " << c.tradeType;
        EXPECT_EQ(keyboard->matchTable()->rowCount(), static_cast<int>(c.keys.size())) << c.text;
    }
}

TEST_F(SmartKeyboard, theTableShowsCodeNameAndMarket)
{
    keyboard->setSearchText(QStringLiteral("6000"));

    ASSERT_EQ(keyboard->matchTable()->rowCount(), 2);
    EXPECT_EQ(keyboard->matchTable()->item(1, 0)->text(), QStringLiteral("600036"));
    EXPECT_EQ(keyboard->matchTable()->item(1, 1)->text(), QStringLiteral("招商银行"));
    EXPECT_EQ(keyboard->matchTable()->item(1, 2)->text(), QStringLiteral("SH"));
}

TEST_F(SmartKeyboard, listsAtMostFiftyOfTheFirstCodes)
{
    // Added from the highest code down, so that the first fifty added are the wrong ones.
    for (int i = 79; i >= 0; --i)
        addInstrument("SZ", std::to_string(500000 + i).c_str(), "fund");

    keyboard->setSearchText(QStringLiteral("5"));

    ASSERT_EQ(keyboard->matchCount(), CSmartKeyboardDialog::MAX_MATCHES);
    for (int row = 0; row < keyboard->matchCount(); ++row)
        EXPECT_EQ(keyboard->matchAt(row).m_stockCode, std::to_string(500000 + row));
}

TEST_F(SmartKeyboard, tradeTypeOneHidesFuturesAtOnce)
{
    keyboard->setSearchText(QStringLiteral("I"));
    ASSERT_EQ(listedKeys(keyboard), (std::vector<std::string>{"IF2401.CFFEX"}));

    keyboard->setTradeType(1);
    EXPECT_EQ(keyboard->matchCount(), 0);
    EXPECT_EQ(keyboard->matchTable()->rowCount(), 0);

    keyboard->setTradeType(2);
    EXPECT_EQ(listedKeys(keyboard), (std::vector<std::string>{"IF2401.CFFEX"}));
}

TEST_F(SmartKeyboard, aNewSearchSeesInstrumentsAddedSinceTheLast)
{
    keyboard->setSearchText(QStringLiteral("688"));
    ASSERT_EQ(keyboard->matchCount(), 0);
    addInstrument("SH", "688001", "华兴源创");

    keyboard->setSearchText(QStringLiteral("688"));

    EXPECT_EQ(listedKeys(keyboard), (std::vector<std::string>{"688001.SH"}));
}

struct ChoiceCase {
    const char *text;
    const char *market;
    const char *code;
    const char *name;
    TC::ESmartKeyType type;
};

TEST_F(SmartKeyboard, enterHandsTheInstrumentAndItsKindToTheSelectFunction)
{
    const ChoiceCase cases[] = {
        {"IF2401", "CFFEX", "IF2401", "沪深股指期货", TC::SKT_FUTURE},
        {"ag", "SHFE", "ag2406", "白银主力", TC::SKT_FUTURE},
        {"600000", "SH", "600000", "浦发银行", TC::SKT_STOCK},
        {"601318", "SSE", "601318", "中国平安", TC::SKT_STOCK},
        {"00700", "HK", "00700", "腾讯控股", TC::SKT_STOCK},
    };
    recordChoices();
    QWidget panel;
    for (const ChoiceCase &c : cases) {
        chosen.clear();
        const QString text = QString::fromUtf8(c.text);
        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, text.left(1));
        keyboard->setChar(&key, &panel);
        keyboard->setSearchText(text);
        ASSERT_TRUE(keyboard->isVisible()) << c.text;

        QTest::keyClick(keyboard->searchEdit(), Qt::Key_Return);

        ASSERT_EQ(chosen.size(), 1u) << c.text;
        EXPECT_EQ(chosen[0].stock.m_market, c.market);
        EXPECT_EQ(chosen[0].stock.m_stockCode, c.code);
        EXPECT_EQ(chosen[0].stock.m_stockName, c.name);
        EXPECT_EQ(chosen[0].stock.m_exchangeId, c.code);
        EXPECT_EQ(chosen[0].type, c.type) << c.text;
        EXPECT_FALSE(keyboard->isVisible()) << c.text;
    }
}

TEST_F(SmartKeyboard, upAndDownMoveTheRowEnterChooses)
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
    // The arrows move rows, not the cursor, and type nothing.
    EXPECT_EQ(keyboard->searchText(), QStringLiteral("6"));

    QTest::keyClick(edit, Qt::Key_Enter, Qt::KeypadModifier);

    ASSERT_EQ(chosen.size(), 1u);
    EXPECT_EQ(chosen[0].stock.m_stockCode, "600036");
}

TEST_F(SmartKeyboard, enterWithNothingListedChoosesNothing)
{
    recordChoices();
    QWidget panel;
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Z, Qt::NoModifier, QStringLiteral("z"));
    keyboard->setChar(&key, &panel);
    ASSERT_EQ(keyboard->matchCount(), 0);

    QTest::keyClick(keyboard->searchEdit(), Qt::Key_Down);
    QTest::keyClick(keyboard->searchEdit(), Qt::Key_Return);

    EXPECT_TRUE(chosen.empty());
    EXPECT_EQ(keyboard->currentRow(), -1);
    EXPECT_TRUE(keyboard->isVisible());
}

TEST_F(SmartKeyboard, doubleClickChoosesTheRow)
{
    recordChoices();
    QWidget panel;
    QKeyEvent key(QEvent::KeyPress, Qt::Key_6, Qt::NoModifier, QStringLiteral("6"));
    keyboard->setChar(&key, &panel);
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

TEST_F(SmartKeyboard, chooseRowOutOfRangeDoesNothing)
{
    recordChoices();
    keyboard->setSearchText(QStringLiteral("6"));
    keyboard->show();

    for (int row : {-1, 3, 100})
        keyboard->chooseRow(row);

    EXPECT_TRUE(chosen.empty());
    EXPECT_TRUE(keyboard->isVisible());
    EXPECT_EQ(keyboard->matchAt(3).m_stockCode, "");
}

TEST_F(SmartKeyboard, escapeClosesWithoutChoosing)
{
    recordChoices();
    QWidget panel;
    QKeyEvent key(QEvent::KeyPress, Qt::Key_6, Qt::NoModifier, QStringLiteral("6"));
    keyboard->setChar(&key, &panel);
    ASSERT_TRUE(keyboard->isVisible());

    QTest::keyClick(keyboard->searchEdit(), Qt::Key_Escape);

    EXPECT_FALSE(keyboard->isVisible());
    EXPECT_TRUE(chosen.empty());
}

TEST_F(SmartKeyboard, activatingAnotherWindowClosesWithoutChoosing)
{
    recordChoices();
    QWidget panel;
    panel.show();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_6, Qt::NoModifier, QStringLiteral("6"));
    keyboard->setChar(&key, &panel);
    ASSERT_TRUE(QTest::qWaitForWindowActive(keyboard));

    panel.activateWindow();

    EXPECT_TRUE(QTest::qWaitFor([this] { return !keyboard->isVisible(); }, 1000));
    EXPECT_TRUE(chosen.empty());
}

TEST_F(SmartKeyboard, keysWithoutPrintableTextAreLeftToThePanel)
{
    struct KeyCase {
        int key;
        QString text;
    };
    const KeyCase cases[] = {
        {Qt::Key_Shift, QString()},
        {Qt::Key_Left, QString()},
        {Qt::Key_Return, QStringLiteral("\r")},
        {Qt::Key_Escape, QStringLiteral("\x1b")},
        {Qt::Key_Tab, QStringLiteral("\t")},
        {Qt::Key_Backspace, QStringLiteral("\b")},
        {Qt::Key_Space, QStringLiteral(" ")},
    };
    QWidget panel;
    keyboard->setSearchText(QStringLiteral("60"));
    for (const KeyCase &c : cases) {
        QKeyEvent key(QEvent::KeyPress, c.key, Qt::NoModifier, c.text);
        key.ignore();

        keyboard->setChar(&key, &panel);

        EXPECT_FALSE(key.isAccepted()) << c.key;
        EXPECT_FALSE(keyboard->isVisible()) << c.key;
        EXPECT_EQ(keyboard->searchText(), QStringLiteral("60")) << c.key;
    }
    keyboard->setChar(nullptr, &panel);
    EXPECT_FALSE(keyboard->isVisible());
}

TEST_F(SmartKeyboard, opensBelowThePanelOrAboveItNearTheBottomAlwaysOnScreen)
{
    QScreen *screen = QGuiApplication::primaryScreen();
    ASSERT_NE(screen, nullptr);
    const QRect area = screen->availableGeometry();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_6, Qt::NoModifier, QStringLiteral("6"));

    QWidget top;
    top.setGeometry(area.left() + 20, area.top() + 20, 200, 30);
    top.show();
    keyboard->setChar(&key, &top);
    EXPECT_EQ(keyboard->geometry().topLeft(), top.mapToGlobal(QPoint(0, top.height())));
    keyboard->hide();

    QWidget corner;
    corner.setGeometry(area.right() - 99, area.bottom() - 29, 100, 30);
    corner.show();
    keyboard->setChar(&key, &corner);
    const QRect box = keyboard->geometry();
    EXPECT_TRUE(area.contains(box)) << box.x() << "," << box.y() << " " << box.width() << "x" << box.height();
    EXPECT_LE(box.bottom(), corner.mapToGlobal(QPoint(0, 0)).y() - 1);
}

TEST_F(SmartKeyboard, theTitleIsTheHeaderAndTheWindowTitle)
{
    keyboard->setTitle(QStringLiteral("选择合约"));

    EXPECT_EQ(keyboard->title(), QStringLiteral("选择合约"));
    EXPECT_EQ(keyboard->windowTitle(), QStringLiteral("选择合约"));
}

TEST_F(SmartKeyboard, theSelectFunctionStaysUntilReplacedAndResetDropsIt)
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
    EXPECT_FALSE(keyboard->isVisible());
    EXPECT_EQ(keyboard->searchText(), QString());
    EXPECT_EQ(keyboard->matchCount(), 0);
    EXPECT_EQ(keyboard->tradeType(), 2);
    keyboard->setSearchText(QStringLiteral("600000"));
    keyboard->chooseRow(0);
    EXPECT_EQ(first + second, 3);
}

TEST_F(SmartKeyboard, theSelectFunctionMayResetTheKeyboard)
{
    // The function replaces itself while it runs; its captures must outlive the call.
    std::vector<std::string> seen;
    const std::string tag(64, 'x'); // on the heap, so that a freed capture shows
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
