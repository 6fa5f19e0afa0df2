#include "CDemoBasketsText.h"
#include "CDemoSavedState.h"
#include "Fields.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

class DemoSavedState : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(config.isValid());
        qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
        QCoreApplication::setApplicationName(QStringLiteral("basket-demo"));
    }

    // Files in the demo's folder other than the saved text itself.
    QStringList keptAside(const CDemoSavedState &state) const
    {
        const QFileInfo saved(state.filePath());
        QStringList names = saved.dir().entryList(QDir::Files);
        names.removeAll(saved.fileName());
        return names;
    }

    QTemporaryDir config;
};

const QByteArray kPanelText = R"({ "BS" : "512", "AW" : "stk-001" }/COL:0,1,2/500/0/0/0)";

} // namespace

TEST_F(DemoSavedState, APanelTextComesBackAndStaysWhereItIsAndNoOrAnEmptyFileGivesTheDefaults)
{
    const CDemoSavedState empty(200);
    EXPECT_TRUE(empty.load().isEmpty());
    write(empty.filePath(), QByteArray());
    EXPECT_TRUE(empty.load().isEmpty());
    EXPECT_TRUE(keptAside(empty).isEmpty());
    EXPECT_TRUE(empty.save(QStringLiteral("x")));

    QDir(config.path()).removeRecursively();
    const CDemoSavedState state(90);
    write(state.filePath(), kPanelText);
    EXPECT_EQ(state.load(), QString::fromUtf8(kPanelText));
    EXPECT_TRUE(state.keptAsidePath().isEmpty());
    EXPECT_TRUE(keptAside(state).isEmpty());
    EXPECT_EQ(contentOf(state.filePath()), kPanelText);
}

TEST_F(DemoSavedState, AnUnreadableTextIsKeptAsideWholeAndTheNextSaveWritesANewFile)
{
    const std::pair<const char *, QByteArray> rows[] = {
        {"notUtf8", QByteArray("{ \"BS\" : \"512\" }/\xff\xfe/500")},
        {"cutShort", kPanelText.left(12)},
        {"withNul", QByteArray("{ \"BS\" : \"512\" }\0/500", 21)},
        {"anotherProgramsJson", QByteArray("{ \"width\" : 3 }/500")},
        {"tooLarge", QByteArray(5 * 1024 * 1024, 'a')},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.first);
        QDir(config.path()).removeRecursively();
        const CDemoSavedState state(90);
        write(state.filePath(), row.second);

        EXPECT_TRUE(state.load().isEmpty());
        ASSERT_FALSE(state.keptAsidePath().isEmpty());
        EXPECT_EQ(keptAside(state), QStringList{QFileInfo(state.keptAsidePath()).fileName()});
        EXPECT_EQ(contentOf(state.keptAsidePath()), row.second);
        ASSERT_TRUE(state.save(QString::fromUtf8(kPanelText)));
        EXPECT_EQ(contentOf(state.filePath()), kPanelText);
        EXPECT_EQ(contentOf(state.keptAsidePath()), row.second) << "kept aside whole, and left alone by the save";
    }
}

// The patch sets are kept in a store of their own, in their own JSON: a text of that kind comes
// back as it is (it is no panel text), and only a damaged one is kept aside.
TEST_F(DemoSavedState, PatchSetsAreReadByTheirOwnKind)
{
    const CDemoSavedState patches = CDemoSavedState::patchSettings(90);
    const QByteArray sets = R"({ "default" : "尾盘补单", "sets" : { "尾盘补单" : "0;1" } })";
    write(patches.filePath(), sets);
    EXPECT_EQ(patches.load(), QString::fromUtf8(sets));
    EXPECT_TRUE(keptAside(patches).isEmpty());

    write(patches.filePath(), kPanelText);
    EXPECT_TRUE(patches.load().isEmpty());
    EXPECT_FALSE(patches.keptAsidePath().isEmpty());
    EXPECT_EQ(contentOf(patches.keptAsidePath()), kPanelText);
}

// The user's saved baskets come back as saved, in their own file; a damaged file keeps nothing
// from crashing and is kept aside like the others.
TEST_F(DemoSavedState, UserBasketsComeBackAndDamagedNumbersReadAsZero)
{
    TC::CBasketSetting basket;
    basket.m_name = QStringLiteral("我的篮子 %1");
    TC::CBasketStockData row;
    row.m_market = QStringLiteral("SH"), row.m_stockCode = QStringLiteral("600000"), row.m_stockName = QStringLiteral("浦发银行");
    row.m_volume = 300, row.m_weight = 0.25, row.m_operationType = ttservice::OT_SELL, row.m_price = 8.46, row.m_useFixedPrice = true;
    basket.m_stocks << row;

    const CDemoSavedState store = CDemoSavedState::userBaskets(90);
    ASSERT_TRUE(store.save(CDemoBasketsText::toText({basket})));
    QList<TC::CBasketSetting> read;
    ASSERT_TRUE(CDemoBasketsText::fromText(store.load(), read));
    ASSERT_EQ(read.size(), 1);
    EXPECT_EQ(read[0].m_name, basket.m_name);
    ASSERT_EQ(read[0].m_stocks.size(), 1);
    const TC::CBasketStockData &back = read[0].m_stocks[0];
    EXPECT_EQ(fields(back.key(), back.m_stockName, back.m_volume, back.m_weight, back.m_operationType, back.m_useFixedPrice, back.m_price),
              fields(row.key(), row.m_stockName, 300, 0.25, ttservice::OT_SELL, true, 8.46));

    ASSERT_TRUE(CDemoBasketsText::fromText(
        R"({"baskets":[{"name":"b","rows":[{"code":"600000","volume":1e300,"weight":"x"},{"volume":5}]},{"rows":[]}]})", read));
    ASSERT_EQ(read.size(), 1);
    ASSERT_EQ(read[0].m_stocks.size(), 1);
    EXPECT_EQ(read[0].m_stocks[0].m_volume, 0);
    EXPECT_FALSE(CDemoBasketsText::fromText(QStringLiteral("[1,2]"), read));

    write(store.filePath(), "{ \"sets\" : {} }");
    EXPECT_TRUE(store.load().isEmpty());
    EXPECT_FALSE(store.keptAsidePath().isEmpty());
}
