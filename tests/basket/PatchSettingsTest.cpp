#include "COpBasketBuySellWidget.h"
#include "COpBasketParamsButtonsBar.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketPatchSettingWidget.h"
#include "COperationBasketWidget.h"

#include "CGlobalOrderParamTable.h"
#include "CPushButton.h"
#include "CSimpleTextWidget.h"
#include "CStandardTable.h"

#include "CUserConfig.h"
#include "LuaModuleCtrl.h"
#include "PatchSettingsText.h"
#include "SubstituteFixture.h"

#include <QComboBox>
#include <QGuiApplication>
#include <QScreen>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

using namespace TC;

namespace {

const QString kMark = QStringLiteral("默认");

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
        getUserConfig()->setPatchSettingsStore([this](const QString &text) { saved.push_back(text); });
        widget = std::make_unique<COpBasketPatchSettingWidget>(nullptr);
    }

public:

    QMap<QString, QString> &sets() { return getUserConfig()->patchSettings(); }
    QString defaultName() { return getUserConfig()->defaultPatchSetting(); }
    WK::CStandardTable *list() const { return widget->listTable(); }

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
    bool rename(const QString &from, const QString &to)
    {
        return list()->submitEdit(rowOf(from), COpBasketPatchSettingWidget::ColName, to);
    }
    // The names of the rows that show the default mark.
    QStringList markedRows() const
    {
        QStringList marked;
        for (int rowId : list()->rowIds()) {
            if (list()->itemText(rowId, COpBasketPatchSettingWidget::ColDefault) == kMark)
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

// ---- names of new sets ---------------------------------------------------------------------

struct NamingCase {
    const char *name;
    QStringList stored;
    QString added;
};

class PatchNaming : public PatchSettings, public ::testing::WithParamInterface<NamingCase>
{
};

TEST_P(PatchNaming, addTakesTheFirstFreeNumberedName)
{
    for (const QString &name : GetParam().stored)
        sets().insert(name, QString());
    widget->load();
    add();
    EXPECT_EQ(sets().size(), GetParam().stored.size() + 1);
    EXPECT_TRUE(sets().contains(GetParam().added));
    EXPECT_EQ(selectedName(), GetParam().added);
}

INSTANTIATE_TEST_SUITE_P(
    Names, PatchNaming,
    ::testing::Values(NamingCase{"none", {}, QStringLiteral("新建设置")},
                      NamingCase{"plain", {QStringLiteral("新建设置")}, QStringLiteral("新建设置1")},
                      NamingCase{"plainAndOne", {QStringLiteral("新建设置"), QStringLiteral("新建设置1")}, QStringLiteral("新建设置2")},
                      NamingCase{"gapAtOne", {QStringLiteral("新建设置"), QStringLiteral("新建设置2")}, QStringLiteral("新建设置1")},
                      NamingCase{"onlyNumbered", {QStringLiteral("新建设置1")}, QStringLiteral("新建设置")},
                      NamingCase{"otherNames", {QStringLiteral("开盘补单")}, QStringLiteral("新建设置")}),
    [](const ::testing::TestParamInfo<NamingCase> &info) { return std::string(info.param.name); });

TEST_F(PatchSettings, aNewSetStartsFromTheTablesEmptyParameters)
{
    widget->load();
    add();
    select(QStringLiteral("新建设置"));
    userPicksPriceType(3);
    add();
    widget->paramTable()->clear();
    EXPECT_EQ(sets().value(QStringLiteral("新建设置1")), widget->paramTable()->param());
    EXPECT_NE(sets().value(QStringLiteral("新建设置")), sets().value(QStringLiteral("新建设置1")));
}

// ---- the default ---------------------------------------------------------------------------

TEST_F(PatchSettings, theFirstSetBecomesTheDefaultAndTheSecondDoesNot)
{
    widget->load();
    add();
    add();
    EXPECT_EQ(defaultName(), QStringLiteral("新建设置"));
    EXPECT_EQ(markedRows(), QStringList{QStringLiteral("新建设置")});
    EXPECT_EQ(widget->defaultRow(), rowOf(QStringLiteral("新建设置")));
}

TEST_F(PatchSettings, aFirstSetAddedBesideOthersIsNotTheDefault)
{
    sets().insert(QStringLiteral("开盘补单"), QString());
    widget->load();
    add();
    EXPECT_TRUE(defaultName().isEmpty());
    EXPECT_TRUE(markedRows().isEmpty());
}

TEST_F(PatchSettings, setAsDefaultMovesTheMarkToTheSelectedSet)
{
    widget->load();
    add();
    add();
    select(QStringLiteral("新建设置1"));
    makeDefault();
    EXPECT_EQ(defaultName(), QStringLiteral("新建设置1"));
    EXPECT_EQ(markedRows(), QStringList{QStringLiteral("新建设置1")});
}

TEST_F(PatchSettings, deletingTheDefaultLeavesNoDefaultAndShowsTheNeighboursParameters)
{
    sets().insert(QStringLiteral("A"), paramsWithPriceType(1));
    sets().insert(QStringLiteral("B"), paramsWithPriceType(3));
    getUserConfig()->defaultPatchSetting() = QStringLiteral("A");
    widget->load();
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

TEST_F(PatchSettings, deletingARowAboveTheDefaultKeepsOneMark)
{
    widget->load();
    add();
    add();
    add();
    select(QStringLiteral("新建设置2"));
    makeDefault();
    select(QStringLiteral("新建设置"));
    remove();
    select(QStringLiteral("新建设置1"));
    makeDefault();
    EXPECT_EQ(markedRows(), QStringList{QStringLiteral("新建设置1")});
    EXPECT_EQ(defaultName(), QStringLiteral("新建设置1"));
}

TEST_F(PatchSettings, deletingTheLastSetLocksTheEmptyTable)
{
    widget->load();
    add();
    remove();
    EXPECT_TRUE(sets().isEmpty());
    EXPECT_EQ(list()->rowCount(), 0);
    EXPECT_FALSE(widget->paramTable()->isEnabled());
}

// ---- renaming ------------------------------------------------------------------------------

struct RenameCase {
    const char *name;
    QString from;
    QString to;
    bool stored;           // the cell takes the new text
    QStringList setsAfter; // in name order
    QString defaultAfter;
};

class PatchRename : public PatchSettings, public ::testing::WithParamInterface<RenameCase>
{
};

// Two sets, "A" (the default, price type 1) and "B" (price type 3).
TEST_P(PatchRename, renamesOrRefusesAndKeepsEachSetsParameters)
{
    const RenameCase &c = GetParam();
    const QString a = paramsWithPriceType(1);
    const QString b = paramsWithPriceType(3);
    sets().insert(QStringLiteral("A"), a);
    sets().insert(QStringLiteral("B"), b);
    getUserConfig()->defaultPatchSetting() = QStringLiteral("A");
    widget->load();
    const int rowId = rowOf(c.from);
    const size_t savesBefore = saved.size();

    EXPECT_EQ(rename(c.from, c.to), c.stored);

    EXPECT_EQ(sets().keys(), c.setsAfter);
    EXPECT_EQ(defaultName(), c.defaultAfter);
    EXPECT_EQ(markedRows(), QStringList{c.defaultAfter});
    const QString shown = list()->itemText(rowId, COpBasketPatchSettingWidget::ColName);
    EXPECT_EQ(shown, c.stored ? c.to : c.from);
    // The parameters travel with the name; the other set keeps its own.
    const QString other = c.from == QLatin1String("A") ? QStringLiteral("B") : QStringLiteral("A");
    EXPECT_EQ(sets().value(shown), c.from == QLatin1String("A") ? a : b);
    EXPECT_EQ(sets().value(other), other == QLatin1String("A") ? a : b);
    EXPECT_EQ(saved.size(), savesBefore + (c.stored && c.from != c.to ? 1 : 0));
}

INSTANTIATE_TEST_SUITE_P(
    Names, PatchRename,
    ::testing::Values(
        RenameCase{"toAFreeName", QStringLiteral("B"), QStringLiteral("C"), true, {QStringLiteral("A"), QStringLiteral("C")}, QStringLiteral("A")},
        RenameCase{"theDefaultStaysDefault", QStringLiteral("A"), QStringLiteral("Z"), true, {QStringLiteral("B"), QStringLiteral("Z")}, QStringLiteral("Z")},
        RenameCase{"ontoATakenName", QStringLiteral("B"), QStringLiteral("A"), false, {QStringLiteral("A"), QStringLiteral("B")}, QStringLiteral("A")},
        RenameCase{"theDefaultOntoATakenName", QStringLiteral("A"), QStringLiteral("B"), false, {QStringLiteral("A"), QStringLiteral("B")}, QStringLiteral("A")},
        RenameCase{"toNothing", QStringLiteral("B"), QStringLiteral("  "), false, {QStringLiteral("A"), QStringLiteral("B")}, QStringLiteral("A")},
        RenameCase{"toItsOwnName", QStringLiteral("B"), QStringLiteral("B"), true, {QStringLiteral("A"), QStringLiteral("B")}, QStringLiteral("A")}),
    [](const ::testing::TestParamInfo<RenameCase> &info) { return std::string(info.param.name); });

TEST_F(PatchSettings, aRowWithoutANameCannotBeRenamed)
{
    sets().insert(QString(), QString());
    widget->load();
    EXPECT_FALSE(list()->submitEdit(list()->rowIds().value(0), COpBasketPatchSettingWidget::ColName, QStringLiteral("C")));
    EXPECT_EQ(sets().keys(), QStringList{QString()});
}

// ---- every change reaches the configuration at once ----------------------------------------

struct ChangeCase {
    const char *name;
    std::function<void(PatchSettings &)> change;
};

class PatchSaving : public PatchSettings, public ::testing::WithParamInterface<ChangeCase>
{
};

TEST_P(PatchSaving, theChangeIsSavedOnceAsTheConfigurationHoldsIt)
{
    sets().insert(QStringLiteral("A"), paramsWithPriceType(1));
    sets().insert(QStringLiteral("B"), paramsWithPriceType(1));
    getUserConfig()->defaultPatchSetting() = QStringLiteral("A");
    widget->load();
    const QString before = patchSettingsToText(*getUserConfig());
    saved.clear();

    GetParam().change(*this);

    ASSERT_EQ(saved.size(), 1u);
    EXPECT_EQ(saved.back(), patchSettingsToText(*getUserConfig()));
    EXPECT_NE(saved.back(), before);
}

INSTANTIATE_TEST_SUITE_P(
    Changes, PatchSaving,
    ::testing::Values(ChangeCase{"add", [](PatchSettings &t) { t.add(); }},
                      ChangeCase{"remove",
                                 [](PatchSettings &t) {
                                     t.select(QStringLiteral("B"));
                                     t.remove();
                                 }},
                      ChangeCase{"setDefault",
                                 [](PatchSettings &t) {
                                     t.select(QStringLiteral("B"));
                                     t.makeDefault();
                                 }},
                      ChangeCase{"rename", [](PatchSettings &t) { t.rename(QStringLiteral("B"), QStringLiteral("C")); }},
                      ChangeCase{"editParameters",
                                 [](PatchSettings &t) {
                                     t.select(QStringLiteral("B"));
                                     t.userPicksPriceType(3);
                                 }}),
    [](const ::testing::TestParamInfo<ChangeCase> &info) { return std::string(info.param.name); });

TEST_F(PatchSettings, anEditOfTheParametersGoesToTheSelectedSetOnly)
{
    sets().insert(QStringLiteral("A"), paramsWithPriceType(1));
    sets().insert(QStringLiteral("B"), paramsWithPriceType(1));
    widget->load();
    select(QStringLiteral("B"));
    userPicksPriceType(3);
    EXPECT_EQ(sets().value(QStringLiteral("B")), paramsWithPriceType(3));
    EXPECT_EQ(sets().value(QStringLiteral("A")), paramsWithPriceType(1));
}

// ---- loading and selecting -----------------------------------------------------------------

TEST_F(PatchSettings, loadListsTheSetsByNameMarksTheDefaultAndLoadsTheFirst)
{
    sets().insert(QStringLiteral("b"), paramsWithPriceType(3));
    sets().insert(QStringLiteral("a"), paramsWithPriceType(1));
    getUserConfig()->defaultPatchSetting() = QStringLiteral("b");
    widget->load();
    ASSERT_EQ(list()->rowCount(), 2);
    EXPECT_EQ(list()->itemText(list()->rowID(0), 0), QStringLiteral("a"));
    EXPECT_EQ(list()->itemText(list()->rowID(1), 0), QStringLiteral("b"));
    EXPECT_EQ(markedRows(), QStringList{QStringLiteral("b")});
    EXPECT_EQ(widget->defaultRow(), list()->rowID(1));
    EXPECT_EQ(selectedName(), QStringLiteral("a"));
    EXPECT_EQ(widget->paramTable()->priceType(), 1);
    EXPECT_TRUE(saved.empty());
}

TEST_F(PatchSettings, selectingASetLoadsItAndAnEmptyTextGivesTheDefaults)
{
    sets().insert(QStringLiteral("a"), paramsWithPriceType(1));
    sets().insert(QStringLiteral("b"), paramsWithPriceType(3));
    sets().insert(QStringLiteral("c"), QString());
    widget->load();
    select(QStringLiteral("b"));
    EXPECT_EQ(widget->paramTable()->priceType(), 3);
    select(QStringLiteral("c"));
    CGlobalOrderParamTable fresh(ttservice::BROKER_TYPE_STOCK, false, nullptr, 0, ttservice::VQ_TRADER_BASKET, 0);
    EXPECT_EQ(widget->paramTable()->param(), fresh.param());
    EXPECT_TRUE(saved.empty());
}

TEST_F(PatchSettings, withoutSetsNothingIsSelectedAndTheTableIsLocked)
{
    widget->load();
    EXPECT_EQ(list()->rowCount(), 0);
    EXPECT_EQ(list()->currentRowId(), -1);
    EXPECT_FALSE(widget->paramTable()->isEnabled());
    add();
    EXPECT_TRUE(widget->paramTable()->isEnabled());
}

// ---- the saved text ------------------------------------------------------------------------

TEST(PatchSettingsText, aTextGivesBackTheSetsAndTheDefault)
{
    TC::resetAllSubstitutes();
    CUserConfig *config = getUserConfig();
    config->patchSettings().insert(QStringLiteral("开盘补单"), QStringLiteral("5;0;;0*1"));
    config->patchSettings().insert(QStringLiteral("尾盘"), QString());
    config->defaultPatchSetting() = QStringLiteral("尾盘");
    const QString text = patchSettingsToText(*config);
    const QMap<QString, QString> sets = config->patchSettings();
    config->patchSettings().clear();
    config->defaultPatchSetting().clear();
    EXPECT_TRUE(patchSettingsFromText(text, *config));
    EXPECT_EQ(config->patchSettings(), sets);
    EXPECT_EQ(config->defaultPatchSetting(), QStringLiteral("尾盘"));
}

struct DamagedCase {
    const char *name;
    const char *text;
    bool read;
    QStringList sets;
    QString defaultName;
};

class DamagedPatchText : public SubstituteTest, public ::testing::WithParamInterface<DamagedCase>
{
};

TEST_P(DamagedPatchText, fallsBackToWhatCanBeRead)
{
    CUserConfig *config = getUserConfig();
    config->patchSettings().insert(QStringLiteral("old"), QString());
    config->defaultPatchSetting() = QStringLiteral("old");
    EXPECT_EQ(patchSettingsFromText(QString::fromUtf8(GetParam().text), *config), GetParam().read);
    EXPECT_EQ(config->patchSettings().keys(), GetParam().sets);
    EXPECT_EQ(config->defaultPatchSetting(), GetParam().defaultName);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, DamagedPatchText,
    ::testing::Values(DamagedCase{"empty", "", false, {}, QString()},
                      DamagedCase{"notJson", "新建设置=1;2", false, {}, QString()},
                      DamagedCase{"cutShort", "{\"default\": \"a\", \"sets\": {\"a\": \"1;", false, {}, QString()},
                      DamagedCase{"anArray", "[\"a\"]", false, {}, QString()},
                      DamagedCase{"setsNotAnObject", "{\"default\": \"a\", \"sets\": 7}", true, {}, QString()},
                      DamagedCase{"aSetNotAString", "{\"default\": \"b\", \"sets\": {\"a\": \"x\", \"b\": 5}}", true,
                                  {QStringLiteral("a")}, QString()},
                      DamagedCase{"defaultNotASet", "{\"default\": \"z\", \"sets\": {\"a\": \"x\"}}", true,
                                  {QStringLiteral("a")}, QString()}),
    [](const ::testing::TestParamInfo<DamagedCase> &info) { return std::string(info.param.name); });

// ---- in the form ---------------------------------------------------------------------------

const std::list<std::string> kModules = {"mdl_order", "mdl_order_compose_basket_buy_sell"};

class PatchInForm : public SubstituteTest
{
protected:
    void make(int role = 90)
    {
        getUserConfig()->setRole(role);
        luawrapper::LuaModuleCtrl::instance()->setModules(kModules, true);
        panel = std::make_unique<COperationBasketWidget>(nullptr);
        form = panel->paramsWidget();
        ASSERT_NE(form->patchSetting(), nullptr);
    }
    void onTab(quint64 word) { form->handleEvent(5, static_cast<int>(word), 0, QString(), nullptr); }
    int patchOperation() const { return form->patchSetting()->paramTable()->operationType(); }

    std::unique_ptr<COperationBasketWidget> panel;
    COpBasketParamsWidget *form = nullptr;
};

TEST_F(PatchInForm, theTabSwitchGivesThePatchTableTheTabsOperation)
{
    make();
    const std::pair<quint64, int> tabs[] = {{TOT_SELL, ttservice::OT_SELL}, {TOT_BUY, ttservice::OT_BUY},
                                            {TOT_ALL, ttservice::OT_BUY}};
    for (const auto &[word, operation] : tabs) {
        onTab(word);
        EXPECT_EQ(patchOperation(), operation) << word;
    }
}

TEST_F(PatchInForm, theOneKeySidesFollowToThePatchTable)
{
    make();
    onTab(TOT_ALL);
    ASSERT_NE(form->buySellWidget(), nullptr);
    form->buySellWidget()->handleEvent(5, 109, 0, QString(), nullptr);
    EXPECT_EQ(patchOperation(), ttservice::OT_SELL);
    form->buySellWidget()->handleEvent(5, 108, 0, QString(), nullptr);
    EXPECT_EQ(patchOperation(), ttservice::OT_BUY);
}

// Shows the panel with the bar's top right corner at this global point and clicks the link.
COpBasketPatchSettingWidget *openWithBarCornerAt(COperationBasketWidget &panel, COpBasketParamsWidget &form,
                                                 const QPoint &corner)
{
    COpBasketParamsButtonsBar *bar = form.buttonsBar();
    panel.show();
    panel.move(panel.pos() + corner - bar->mapToGlobal(bar->rect().topRight()));
    bar->patchText()->show();
    // The link's click reaches the form as event 1142.
    bar->handleEvent(9, 5, 0, QString(), nullptr);
    return form.patchSetting();
}

TEST_F(PatchInForm, theBarsLinkOpensTheWindowRisingFromTheBar)
{
    getUserConfig()->patchSettings().insert(QStringLiteral("开盘补单"), QString());
    make();
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    COpBasketPatchSettingWidget *window = form->patchSetting();
    const QPoint corner = screen.topLeft() + QPoint(window->width() + 20, window->height() + 20);
    openWithBarCornerAt(*panel, *form, corner);
    ASSERT_TRUE(window->isVisible());
    EXPECT_EQ(window->listTable()->rowCount(), 1);
    const COpBasketParamsButtonsBar *bar = form->buttonsBar();
    EXPECT_EQ(window->geometry().bottomRight(), bar->mapToGlobal(bar->rect().topRight()));
    window->hide();
}

TEST_F(PatchInForm, aWindowThatWouldLeaveTheScreenOpensBelowAndBesideTheBar)
{
    make();
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    COpBasketParamsButtonsBar *bar = form->buttonsBar();
    COpBasketPatchSettingWidget *window =
        openWithBarCornerAt(*panel, *form, screen.topLeft() + QPoint(bar->width() + 10, 20));
    ASSERT_TRUE(window->isVisible());
    const QRect barFrame(bar->mapToGlobal(QPoint(0, 0)), bar->size());
    EXPECT_GT(window->geometry().top(), barFrame.bottom());
    EXPECT_GT(window->geometry().left(), barFrame.right());
    window->hide();
}

TEST_F(PatchInForm, aTraderCannotChangeTheSets)
{
    make(200);
    EXPECT_FALSE(form->patchSetting()->isEnabled());
}

} // namespace
