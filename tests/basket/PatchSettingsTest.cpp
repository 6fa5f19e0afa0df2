#include "COpBasketBuySellWidget.h"
#include "COpBasketParamsButtonsBar.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketPatchSettingWidget.h"
#include "COperationBasketWidget.h"

#include "CGlobalOrderParamTable.h"
#include "CPushButton.h"
#include "CStandardTable.h"

#include "CUserConfig.h"
#include "LuaModuleCtrl.h"
#include "PatchSettingsText.h"
#include "Fields.h"
#include "SubstituteFixture.h"

#include <QComboBox>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

using namespace TC;

namespace {

const QString kNew = QStringLiteral("新建设置");
const QString kNew1 = QStringLiteral("新建设置1");
const QString kNew2 = QStringLiteral("新建设置2");

// The parameters of a set as the table writes them, with a price type of its own.
QString paramsWithPriceType(int priceType)
{
    CGlobalOrderParamTable table(ttservice::BROKER_TYPE_STOCK, false, nullptr, 0, ttservice::VQ_TRADER_BASKET, 0);
    table.setPriceType(priceType);
    return table.param();
}

class PatchSettings : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        saved.clear();
        getUserConfig()->setPatchSettingsStore([this](const QString &text) { saved.push_back(text); });
        widget = std::make_unique<COpBasketPatchSettingWidget>(nullptr);
    }

public:
    QMap<QString, QString> &sets() { return getUserConfig()->patchSettings(); }
    QString defaultName() { return getUserConfig()->defaultPatchSetting(); }
    WK::CStandardTable *list() const { return widget->listTable(); }
    // Sets "A" (the default, price type 1) and "B" (price type b), loaded.
    void loadAB(int b = 3)
    {
        sets().insert(QStringLiteral("A"), paramsWithPriceType(1));
        sets().insert(QStringLiteral("B"), paramsWithPriceType(b));
        getUserConfig()->defaultPatchSetting() = QStringLiteral("A");
        widget->load();
    }

    // A click of one of the list's buttons, as the user makes it.
    void press(const char *button)
    {
        auto *pushButton = widget->findChild<WK::CPushButton *>(QLatin1String(button));
        ASSERT_NE(pushButton, nullptr) << button;
        pushButton->click();
    }
    void add() { press("patch_add_button"); }
    void remove() { press("patch_delete_button"); }
    void makeDefault() { press("patch_default_button"); }

    int rowOf(const QString &name) const
    {
        for (int rowId : list()->rowIds()) {
            if (list()->itemText(rowId, COpBasketPatchSettingWidget::ColName) == name)
                return rowId;
        }
        return -1;
    }
    void select(const QString &name) { list()->selectRow(rowOf(name)); }
    QString selectedName() const { return list()->itemText(list()->currentRowId(), COpBasketPatchSettingWidget::ColName); }
    // The user types a new name over the row's name.
    bool rename(const QString &from, const QString &to) { return list()->submitEdit(rowOf(from), COpBasketPatchSettingWidget::ColName, to); }
    // The names of the rows that show the default mark.
    QStringList markedRows() const
    {
        QStringList marked;
        for (int rowId : list()->rowIds()) {
            if (list()->itemText(rowId, COpBasketPatchSettingWidget::ColDefault) == QStringLiteral("默认"))
                marked << list()->itemText(rowId, COpBasketPatchSettingWidget::ColName);
        }
        return marked;
    }
    // The user picks another price type in the parameter table.
    void userPicksPriceType(int priceType)
    {
        auto *combo = widget->paramTable()->findChild<QComboBox *>(QStringLiteral("price_type_combo"));
        ASSERT_NE(combo, nullptr);
        const int index = combo->findData(priceType);
        ASSERT_GE(index, 0);
        combo->setCurrentIndex(index);
        Q_EMIT combo->activated(index);
    }

    std::vector<QString> saved;
    std::unique_ptr<COpBasketPatchSettingWidget> widget;
};

TEST_F(PatchSettings, addTakesTheFirstFreeNumberedNameAndStartsFromTheTablesEmptyParameters)
{
    const struct {
        QStringList stored;
        QString added;
    } rows[] = {{{}, kNew}, {{kNew}, kNew1}, {{kNew, kNew1}, kNew2}, {{kNew, kNew2}, kNew1}, {{kNew1}, kNew},
                {{QStringLiteral("开盘补单")}, kNew}};
    for (const auto &row : rows) {
        SCOPED_TRACE(row.stored.join(QLatin1Char(',')).toStdString());
        SetUp();
        for (const QString &name : row.stored)
            sets().insert(name, QString());
        widget->load();
        add();
        EXPECT_EQ(sets().size(), row.stored.size() + 1);
        EXPECT_TRUE(sets().contains(row.added));
        EXPECT_EQ(selectedName(), row.added);
    }

    SetUp();
    widget->load();
    add();
    select(kNew);
    userPicksPriceType(3);
    add();
    widget->paramTable()->clear();
    EXPECT_EQ(sets().value(kNew1), widget->paramTable()->param());
    EXPECT_NE(sets().value(kNew), sets().value(kNew1));
}

TEST_F(PatchSettings, onlyTheVeryFirstSetBecomesTheDefaultAndTheMarkFollowsTheUsersChoice)
{
    widget->load();
    EXPECT_EQ(list()->currentRowId(), -1);
    EXPECT_FALSE(widget->paramTable()->isEnabled()) << "without sets the table is locked";
    add();
    EXPECT_TRUE(widget->paramTable()->isEnabled());
    add();
    add();
    EXPECT_EQ(defaultName(), kNew);
    EXPECT_EQ(markedRows(), QStringList{kNew});
    EXPECT_EQ(widget->defaultRow(), rowOf(kNew));

    select(kNew2);
    makeDefault();
    EXPECT_EQ(defaultName(), kNew2);
    EXPECT_EQ(markedRows(), QStringList{kNew2});
    // Deleting a row above the default leaves one mark when the next one is set.
    select(kNew);
    remove();
    select(kNew1);
    makeDefault();
    EXPECT_EQ(markedRows(), QStringList{kNew1});
    EXPECT_EQ(defaultName(), kNew1);

    // Deleting the last set locks the empty table.
    remove();
    select(kNew2);
    remove();
    EXPECT_TRUE(sets().isEmpty());
    EXPECT_EQ(list()->rowCount(), 0);
    EXPECT_FALSE(widget->paramTable()->isEnabled());

    SetUp();
    sets().insert(QStringLiteral("开盘补单"), QString());
    widget->load();
    add();
    EXPECT_TRUE(defaultName().isEmpty()) << "a first set added beside others";
    EXPECT_TRUE(markedRows().isEmpty());
}

TEST_F(PatchSettings, deletingTheDefaultLeavesNoDefaultAndShowsTheNeighboursParameters)
{
    loadAB();
    select(QStringLiteral("A"));
    remove();
    EXPECT_TRUE(defaultName().isEmpty());
    EXPECT_EQ(widget->defaultRow(), -1);
    EXPECT_TRUE(markedRows().isEmpty());
    EXPECT_EQ(sets().keys(), QStringList{QStringLiteral("B")});
    // Whatever row the list moved to, the table shows that row's set and nothing else.
    if (list()->currentRowId() >= 0) {
        EXPECT_EQ(selectedName(), QStringLiteral("B"));
        EXPECT_EQ(widget->paramTable()->priceType(), 3);
    } else {
        EXPECT_FALSE(widget->paramTable()->isEnabled());
    }
}

TEST_F(PatchSettings, renameRenamesOrRefusesAndKeepsEachSetsParameters)
{
    const QString a = QStringLiteral("A"), b = QStringLiteral("B");
    const struct {
        QString from, to;
        bool stored;           // the cell takes the new text
        QStringList setsAfter; // in name order
        QString defaultAfter;
    } rows[] = {{b, "C", true, {a, "C"}, a},   {a, "Z", true, {b, "Z"}, "Z"}, {b, a, false, {a, b}, a},
                {a, b, false, {a, b}, a},      {b, "  ", false, {a, b}, a},   {b, b, true, {a, b}, a}};
    for (const auto &row : rows) {
        SCOPED_TRACE(QString(row.from + " to " + row.to).toStdString());
        SetUp();
        loadAB();
        const int rowId = rowOf(row.from);
        const size_t savesBefore = saved.size();

        EXPECT_EQ(rename(row.from, row.to), row.stored);

        EXPECT_EQ(sets().keys(), row.setsAfter);
        EXPECT_EQ(defaultName(), row.defaultAfter);
        EXPECT_EQ(markedRows(), QStringList{row.defaultAfter});
        const QString shown = list()->itemText(rowId, COpBasketPatchSettingWidget::ColName);
        EXPECT_EQ(shown, row.stored ? row.to : row.from);
        // The parameters travel with the name; the other set keeps its own.
        const QString other = row.from == a ? b : a;
        EXPECT_EQ(sets().value(shown), paramsWithPriceType(row.from == a ? 1 : 3));
        EXPECT_EQ(sets().value(other), paramsWithPriceType(other == a ? 1 : 3));
        EXPECT_EQ(saved.size(), savesBefore + (row.stored && row.from != row.to ? 1 : 0));
    }

    SetUp();
    sets().insert(QString(), QString());
    widget->load();
    EXPECT_FALSE(list()->submitEdit(list()->rowIds().value(0), COpBasketPatchSettingWidget::ColName, QStringLiteral("C")))
        << "a set without a name could never be renamed";
    EXPECT_EQ(sets().keys(), QStringList{QString()});
}

TEST_F(PatchSettings, everyChangeIsSavedOnceAsTheConfigurationHoldsIt)
{
    const struct {
        const char *name;
        std::function<void(PatchSettings &)> change;
    } rows[] = {{"add", [](PatchSettings &t) { t.add(); }},
                {"remove", [](PatchSettings &t) { t.select(QStringLiteral("B")); t.remove(); }},
                {"setDefault", [](PatchSettings &t) { t.select(QStringLiteral("B")); t.makeDefault(); }},
                {"rename", [](PatchSettings &t) { t.rename(QStringLiteral("B"), QStringLiteral("C")); }},
                {"editParameters", [](PatchSettings &t) { t.select(QStringLiteral("B")); t.userPicksPriceType(3); }}};
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        SetUp();
        loadAB(1);
        const QString before = patchSettingsToText(*getUserConfig());
        saved.clear();

        row.change(*this);

        ASSERT_EQ(saved.size(), 1u);
        EXPECT_EQ(saved.back(), patchSettingsToText(*getUserConfig()));
        EXPECT_NE(saved.back(), before);
    }
    // The edit of the parameters went to the selected set only.
    EXPECT_EQ(sets().value(QStringLiteral("B")), paramsWithPriceType(3));
    EXPECT_EQ(sets().value(QStringLiteral("A")), paramsWithPriceType(1));
}

TEST_F(PatchSettings, loadListsTheSetsByNameMarksTheDefaultAndSelectingASetLoadsIt)
{
    sets().insert(QStringLiteral("b"), paramsWithPriceType(3));
    sets().insert(QStringLiteral("a"), paramsWithPriceType(1));
    sets().insert(QStringLiteral("c"), QString());
    getUserConfig()->defaultPatchSetting() = QStringLiteral("b");
    widget->load();
    ASSERT_EQ(list()->rowCount(), 3);
    // The first two names, the default marked and known, the first set selected and shown.
    EXPECT_EQ(fields(list()->itemText(list()->rowID(0), 0), list()->itemText(list()->rowID(1), 0), markedRows().join(QLatin1Char(',')),
                     widget->defaultRow() == list()->rowID(1), selectedName(), widget->paramTable()->priceType()),
              "a|b|b|true|a|1");

    select(QStringLiteral("b"));
    EXPECT_EQ(widget->paramTable()->priceType(), 3);
    select(QStringLiteral("c"));
    const CGlobalOrderParamTable fresh(ttservice::BROKER_TYPE_STOCK, false, nullptr, 0, ttservice::VQ_TRADER_BASKET, 0);
    EXPECT_EQ(widget->paramTable()->param(), fresh.param()) << "an empty text gives the defaults";
    EXPECT_TRUE(saved.empty());
}

TEST_F(PatchSettings, aSavedTextGivesBackTheSetsAndTheDefaultAndADamagedOneWhatCanBeRead)
{
    CUserConfig *config = getUserConfig();
    config->patchSettings().insert(QStringLiteral("开盘补单"), QStringLiteral("5;0;;0*1"));
    config->patchSettings().insert(QStringLiteral("尾盘"), QString());
    config->defaultPatchSetting() = QStringLiteral("尾盘");
    const QString text = patchSettingsToText(*config);
    const QMap<QString, QString> stored = config->patchSettings();
    config->patchSettings().clear();
    config->defaultPatchSetting().clear();
    EXPECT_TRUE(patchSettingsFromText(text, *config));
    EXPECT_EQ(config->patchSettings(), stored);
    EXPECT_EQ(config->defaultPatchSetting(), QStringLiteral("尾盘"));

    const struct { const char *text; bool read; QStringList sets; } damaged[] = {{"", false, {}},
                   {"新建设置=1;2", false, {}},
                   {"{\"default\": \"a\", \"sets\": {\"a\": \"1;", false, {}},
                   {"[\"a\"]", false, {}},
                   {"{\"default\": \"a\", \"sets\": 7}", true, {}},
                   {"{\"default\": \"b\", \"sets\": {\"a\": \"x\", \"b\": 5}}", true, {QStringLiteral("a")}},
                   {"{\"default\": \"z\", \"sets\": {\"a\": \"x\"}}", true, {QStringLiteral("a")}}};
    for (const auto &row : damaged) {
        SCOPED_TRACE(row.text);
        config->patchSettings() = {{QStringLiteral("old"), QString()}};
        config->defaultPatchSetting() = QStringLiteral("old");
        EXPECT_EQ(patchSettingsFromText(QString::fromUtf8(row.text), *config), row.read);
        EXPECT_EQ(config->patchSettings().keys(), row.sets);
        EXPECT_EQ(config->defaultPatchSetting(), QString()) << "no default that is no set";
    }
}

// ---- in the form ----

class PatchInForm : public SubstituteTest
{
protected:
    void make(int role = 90)
    {
        getUserConfig()->setRole(role);
        luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_compose_basket_buy_sell"}, true);
        panel = std::make_unique<COperationBasketWidget>(nullptr);
        form = panel->paramsWidget();
        ASSERT_NE(form->patchSetting(), nullptr);
    }
    void onTab(quint64 word) { form->handleEvent(5, static_cast<int>(word), 0, QString(), nullptr); }
    int patchOperation() const { return form->patchSetting()->paramTable()->operationType(); }

    std::unique_ptr<COperationBasketWidget> panel;
    COpBasketParamsWidget *form = nullptr;
};

TEST_F(PatchInForm, thePatchTableTakesTheOperationOfTheTabAndOfTheOneKeySide)
{
    make();
    const std::pair<quint64, int> tabs[] = {{TOT_SELL, ttservice::OT_SELL}, {TOT_BUY, ttservice::OT_BUY}, {TOT_ALL, ttservice::OT_BUY}};
    for (const auto &[word, operation] : tabs) {
        onTab(word);
        EXPECT_EQ(patchOperation(), operation) << word;
    }
    ASSERT_NE(form->buySellWidget(), nullptr);
    form->buySellWidget()->handleEvent(5, 109, 0, QString(), nullptr);
    EXPECT_EQ(patchOperation(), ttservice::OT_SELL);
    form->buySellWidget()->handleEvent(5, 108, 0, QString(), nullptr);
    EXPECT_EQ(patchOperation(), ttservice::OT_BUY);
}

TEST_F(PatchInForm, theBarsLinkOpensTheLoadedSetsWhichATraderCannotChange)
{
    getUserConfig()->patchSettings().insert(QStringLiteral("开盘补单"), QString());
    make();
    form->buttonsBar()->handleEvent(9, 5, 0, QString(), nullptr); // the link's click
    COpBasketPatchSettingWidget *window = form->patchSetting();
    ASSERT_TRUE(window->isVisible());
    EXPECT_EQ(window->listTable()->rowCount(), 1);
    EXPECT_TRUE(window->isEnabled());
    window->hide();

    make(200);
    EXPECT_FALSE(form->patchSetting()->isEnabled());
}

} // namespace
