#include "CDemoLogging.h"
#include "CDemoBasketsText.h"
#include "CDemoFixRoute.h"
#include "CDemoMainWindow.h"
#include "CDemoOrdersPane.h"
#include "CDemoOrderLog.h"
#include "CDemoSavedState.h"
#include "CBasketOperationPanel.h"
#include "CSampleClient.h"
#include "CSampleData.h"
#include "CSampleInstructions.h"
#include "CSimulatedMarket.h"

#include "COpBasketParamsButtonsBar.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketsComboBox.h"
#include "COperationBasketWidget.h"

#include "BasketHelpers.h"
#include "CBasketHedgeManager.h"
#include "CMsgService.h"
#include "COpAccountsWidget.h"
#include "CSimpleTextWidget.h"
#include "CUserConfig.h"
#include "PatchSettingsText.h"
#include "CTradeClient.h"
#include "ToolkitRecords.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QPixmap>
#include <QSize>
#include <QStandardPaths>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

constexpr int kManagerRole = 90;
constexpr int kTraderRole = 200;

void printLine(const std::string &line)
{
    std::fputs(line.c_str(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

bool wantsScreenshot(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        if (qstrcmp(argv[i], "--screenshot") == 0 || qstrncmp(argv[i], "--screenshot=", 13) == 0)
            return true;
    }
    return false;
}

// What a user does first: tick the first account and pick a basket; the panel sizes it.
void chooseBasket(TC::CBasketOperationPanel *panel, const QString &name)
{
    TC::COperationBasketWidget *basketWidget = panel ? panel->basketWidget() : nullptr;
    TC::COpBasketParamsWidget *form = basketWidget ? basketWidget->paramsWidget() : nullptr;
    if (!form || !form->accountsWidget() || !form->basketsCombo())
        return;
    const QStringList accounts = form->accountsWidget()->getDisplayedAccounts();
    if (!accounts.isEmpty())
        form->accountsWidget()->setSelectedAccount(accounts.first(), true);
    // A temporary list ("持仓卖出组合" ...) is chosen by its name as well.
    if (!TC::getUserConfig()->baskets().contains(name) && TC::nameBatchFlag(name) == 0) {
        std::fprintf(stderr, "basket-demo: no stored basket named \"%s\"\n", qPrintable(name));
        return;
    }
    form->basketsCombo()->setBasket(name, false);
}

// The tabs by the names the --tab option takes.
quint64 tabWordOf(const QString &name)
{
    const struct
    {
        const char *name;
        quint64 word;
    } tabs[] = {{"buy", TC::TOT_BUY},       {"sell", TC::TOT_SELL},     {"onekey", TC::TOT_ALL},
                {"credit", TC::TOT_CREDIT}, {"futures", TC::TOT_FUTURE}, {"onekeyfutures", TC::TOT_ONEKEY_FUTURE},
                {"hgt", TC::TOT_HGT}};
    for (const auto &tab : tabs) {
        if (name == QLatin1String(tab.name))
            return tab.word;
    }
    return 0;
}

// The tab the panel is on; the buy tab for a panel without content.
quint64 currentTab(TC::CBasketOperationPanel *panel)
{
    TC::COperationBasketWidget *basketWidget = panel ? panel->basketWidget() : nullptr;
    return basketWidget && basketWidget->paramsWidget() ? basketWidget->paramsWidget()->getTradeOpType() : TC::TOT_BUY;
}

// A press of the tab button, as the user makes it.
void chooseTab(TC::CBasketOperationPanel *panel, quint64 word)
{
    TC::COperationBasketWidget *basketWidget = panel ? panel->basketWidget() : nullptr;
    if (basketWidget && basketWidget->paramsWidget())
        basketWidget->paramsWidget()->handleEvent(5, static_cast<int>(word), 0, QString(), nullptr);
}

// A list handed over as the client's position panel does: the first positions of the first two
// stock accounts, to buy more of or to sell.
void handOverPositions(TC::CBasketOperationPanel *panel, TC::ETempBatchOrderFlag flag)
{
    QVector<TC::CPositionParam> positions;
    for (const char *key : {"stk-001", "stk-002"}) {
        const auto account = TC::getUserConfig()->getAccountData(QString::fromLatin1(key));
        if (!account)
            continue;
        int taken = 0;
        for (const auto &position : TC::COpBasketParamsWidget::getAccoutPositions(QString::fromLatin1(key))) {
            if (!position || position->m_volume <= 0 || taken == 4)
                continue;
            TC::CPositionParam row;
            row.m_account = account.get();
            row.m_market = QString::fromStdString(position->m_market);
            row.m_stockCode = QString::fromStdString(position->m_stockCode);
            row.m_stockName = QString::fromStdString(position->m_stockName);
            row.m_volume = position->m_sellableVolume;
            positions.push_back(row);
            ++taken;
        }
    }
    if (panel)
        panel->batchPositions(positions, flag);
}

// The user's patch sets from their file, saved there again on every change. Damaged text gives
// no sets rather than a failed start.
void keepPatchSettings(const CDemoSavedState &store)
{
    const QString text = store.load();
    if (!text.isEmpty() && !TC::patchSettingsFromText(text, *TC::getUserConfig()))
        std::fprintf(stderr, "basket-demo: %s is no patch settings text; starting without patch sets\n",
                     qPrintable(store.filePath()));
    TC::getUserConfig()->setPatchSettingsStore([&store](const QString &changed) {
        if (!store.save(changed))
            std::fprintf(stderr, "basket-demo: could not save the patch sets to %s\n", qPrintable(store.filePath()));
    });
}

// Writes the user's own baskets: all stored baskets but the sample's and the panel's temporary
// lists.
void saveUserBaskets(const CDemoSavedState &store, const QStringList &sampleNames)
{
    QList<TC::CBasketSetting> own;
    for (const TC::CBasketSetting &basket : TC::getUserConfig()->baskets()) {
        if (!basket.m_name.isEmpty() && !sampleNames.contains(basket.m_name) && TC::nameBatchFlag(basket.m_name) == 0)
            own << basket;
    }
    if (!store.save(CDemoBasketsText::toText(own)))
        std::fprintf(stderr, "basket-demo: could not save the baskets to %s\n", qPrintable(store.filePath()));
}

// The baskets the user saved in earlier runs come back beside the sample's, and every change of
// the stored baskets is written to the user's file. Returns the sample's basket names.
QStringList keepUserBaskets(const CDemoSavedState &store, TC::CBasketOperationPanel *panel)
{
    const QStringList sampleNames = TC::getUserConfig()->baskets().keys();
    QList<TC::CBasketSetting> saved;
    const QString text = store.load();
    if (!text.isEmpty() && !CDemoBasketsText::fromText(text, saved))
        std::fprintf(stderr, "basket-demo: %s holds no baskets; starting with the sample's\n", qPrintable(store.filePath()));
    for (const TC::CBasketSetting &basket : saved) {
        if (!sampleNames.contains(basket.m_name))
            TC::getUserConfig()->baskets().insert(basket.m_name, basket);
    }
    if (!saved.isEmpty() && panel->basketWidget())
        panel->basketWidget()->updateBasketSetting();
    QObject::connect(panel, &TC::COperationPanel::sigBasketSettingChangedStr, panel,
                     [&store, sampleNames](const QString &) { saveUserBaskets(store, sampleNames); });
    return sampleNames;
}

// The client offers the patch settings from the bar's link, which the bar itself keeps hidden.
void showPatchLink(TC::CBasketOperationPanel *panel)
{
    TC::COperationBasketWidget *basketWidget = panel ? panel->basketWidget() : nullptr;
    TC::COpBasketParamsWidget *form = basketWidget ? basketWidget->paramsWidget() : nullptr;
    if (form && form->buttonsBar() && form->buttonsBar()->patchText())
        form->buttonsBar()->patchText()->show();
}

// A press of the order button.
void placeOrder(TC::CBasketOperationPanel *panel)
{
    if (TC::COperationBasketWidget *basketWidget = panel ? panel->basketWidget() : nullptr)
        basketWidget->handleEvent(1046, 0, 0, QString(), nullptr);
}

// What the command line asked for, read and checked.
struct DemoOptions
{
    int role = kManagerRole;
    bool screenshot = false;
    QString screenshotFile;
    QSize windowSize;
    bool tabSet = false;
    quint64 tab = TC::TOT_BUY;
    QString basket;
    bool commandSet = false;
    std::string command;
    bool place = false;
    bool batchSet = false;
    bool batchBuy = false;
    bool fresh = false;
    QString route;
    QString routeSettings;
    // Runs for scripts (a picture, an order to print) start from the defaults and leave the
    // user's saved state alone, so that they give the same result on every machine.
    bool scripted = false;
};

struct DemoCommandLine
{
    QCommandLineParser parser;
    QCommandLineOption role{QStringLiteral("role"), QStringLiteral("The user's role number (90 manager, 200 trader, 400 no basket rights)."),
                            QStringLiteral("N"), QString::number(kManagerRole)};
    QCommandLineOption screenshot{QStringLiteral("screenshot"), QStringLiteral("Render the window off screen into this PNG file and exit."),
                                  QStringLiteral("FILE")};
    QCommandLineOption size{QStringLiteral("size"), QStringLiteral("The window's size, WIDTHxHEIGHT (default 1480x860), e.g. 700x450."),
                            QStringLiteral("WxH")};
    QCommandLineOption basket{
        QStringLiteral("basket"),
        QStringLiteral("Start with this stored basket chosen for the first account, as a user would (a screenshot "
                       "starts with \"大盘蓝筹\"; \"\" chooses none)."),
        QStringLiteral("NAME")};
    QCommandLineOption tab{
        QStringLiteral("tab"),
        QStringLiteral("Start on this tab: buy, sell, onekey, credit, futures, onekeyfutures or hgt (the futures tabs "
                       "want --basket 股指期货组合)."),
        QStringLiteral("NAME")};
    QCommandLineOption command{
        QStringLiteral("command"),
        QStringLiteral("As the trader (--role 200), load the waiting instruction with this key first (cmd-buy-001, "
                       "cmd-onekey-001, cmd-credit-001, cmd-split-001, cmd-hedge-001)."),
        QStringLiteral("KEY")};
    QCommandLineOption place{QStringLiteral("place"),
                             QStringLiteral("Press the order button once the list is sized; the order is printed.")};
    QCommandLineOption batch{
        QStringLiteral("batch"),
        QStringLiteral("Hand the panel positions of two accounts as the client's position panel would: buy (to buy "
                       "more of) or sell."),
        QStringLiteral("KIND")};
    QCommandLineOption fresh{
        QStringLiteral("fresh"),
        QStringLiteral("Start from the panel's defaults instead of the state it was left in (the state is still saved "
                       "on exit).")};
    QCommandLineOption logFile{
        QStringLiteral("log-file"),
        QStringLiteral("Write the panel's log lines to this rolling log file (default: $BASKET_DEMO_LOG_FILE, else "
                       "basket-demo.log in the working directory)."),
        QStringLiteral("FILE")};
    QCommandLineOption logConfig{QStringLiteral("log-config"),
                                 QStringLiteral("Read this log4cxx configuration instead of basket-demo.log4cxx.properties."),
                                 QStringLiteral("FILE")};
    QCommandLineOption route{
        QStringLiteral("route"),
        QStringLiteral("Where orders go: fix (over FIX 4.4 to a simulated exchange in this process, which fills "
                       "them; the default) or record (only printed; the default of --place and --screenshot)."),
        QStringLiteral("ROUTE")};
    QCommandLineOption routeSettings{
        QStringLiteral("route-settings"),
        QStringLiteral("With --route fix: a QuickFIX settings file of your own counterparty instead of the simulated "
                       "exchange."),
        QStringLiteral("FILE")};

    explicit DemoCommandLine(const QApplication &app)
    {
        parser.setApplicationDescription(QStringLiteral("The basket operation panel on a sample client and a simulated market."));
        parser.addHelpOption();
        parser.addOptions({role, screenshot, size, basket, tab, command, place, batch, fresh, logFile, logConfig, route,
                           routeSettings});
        parser.process(app);
    }
};

// Fills the options from the command line; prints what is wrong and returns false.
bool checkOptions(const DemoCommandLine &line, DemoOptions *options)
{
    const QCommandLineParser &parser = line.parser;
    bool roleOk = false;
    options->role = parser.value(line.role).toInt(&roleOk);
    if (!roleOk) {
        std::fprintf(stderr, "basket-demo: --role wants a number, got \"%s\"\n", qPrintable(parser.value(line.role)));
        return false;
    }
    options->screenshot = parser.isSet(line.screenshot);
    options->screenshotFile = parser.value(line.screenshot);
    if (parser.isSet(line.size)) {
        const QStringList parts = parser.value(line.size).split(QLatin1Char('x'));
        bool wideOk = false;
        bool highOk = false;
        if (parts.size() == 2)
            options->windowSize = QSize(parts.at(0).toInt(&wideOk), parts.at(1).toInt(&highOk));
        const QSize size = options->windowSize;
        if (!wideOk || !highOk || size.width() < 200 || size.height() < 150 || size.width() > 8000 || size.height() > 8000) {
            std::fprintf(stderr, "basket-demo: --size wants WIDTHxHEIGHT between 200x150 and 8000x8000, got \"%s\"\n",
                         qPrintable(parser.value(line.size)));
            return false;
        }
    }
    options->tabSet = parser.isSet(line.tab);
    options->tab = options->tabSet ? tabWordOf(parser.value(line.tab)) : TC::TOT_BUY;
    if (options->tab == 0) {
        std::fprintf(stderr, "basket-demo: no tab named \"%s\"\n", qPrintable(parser.value(line.tab)));
        return false;
    }
    options->basket = parser.isSet(line.basket) ? parser.value(line.basket)
                                                : (options->screenshot ? QStringLiteral("大盘蓝筹") : QString());
    options->commandSet = parser.isSet(line.command);
    options->command = parser.value(line.command).toStdString();
    options->place = parser.isSet(line.place);
    options->fresh = parser.isSet(line.fresh);
    options->scripted = options->screenshot || options->place;
    options->route = parser.isSet(line.route) ? parser.value(line.route)
                                              : (options->scripted ? QStringLiteral("record") : QStringLiteral("fix"));
    if (options->route != QLatin1String("fix") && options->route != QLatin1String("record")) {
        std::fprintf(stderr, "basket-demo: --route wants fix or record, got \"%s\"\n", qPrintable(options->route));
        return false;
    }
    options->routeSettings = parser.value(line.routeSettings);
    options->batchSet = parser.isSet(line.batch);
    if (options->batchSet) {
        const QString kind = parser.value(line.batch);
        if (kind != QLatin1String("buy") && kind != QLatin1String("sell")) {
            std::fprintf(stderr, "basket-demo: --batch wants buy or sell, got \"%s\"\n", qPrintable(kind));
            return false;
        }
        options->batchBuy = kind == QLatin1String("buy");
    }
    return true;
}

// An instruction is loaded by the trader, and only one that is waiting.
bool checkCommand(const DemoOptions &options, const QVector<CSampleInstructions::Entry> &instructions)
{
    if (!options.commandSet)
        return true;
    const bool known = std::any_of(instructions.begin(), instructions.end(),
                                   [&options](const CSampleInstructions::Entry &entry) { return entry.key == options.command; });
    if (options.role == kTraderRole && known)
        return true;
    std::fprintf(stderr, "basket-demo: --command wants --role 200 and one of the waiting instructions, got \"%s\"\n",
                 options.command.c_str());
    return false;
}

// Every call the panel makes to the client is printed and shown in the window's log.
void observeClientCalls(CDemoMainWindow &window)
{
    TC::CTradeClient::instance()->setPlaceCommandsObserver([&window](const TC::CPlaceCommandsCall &call) {
        const std::string line = call.jsonString();
        printLine(line);
        for (const QString &order : CDemoOrderLog::linesOf(call))
            window.appendLog(order);
        window.appendDetail(QStringLiteral("placeCommands ") + QString::fromStdString(line));
    });
    TC::CTradeClient::instance()->setPlaceTasksObserver([&window](const TC::CPlaceTasksCall &call) {
        const std::string line = call.jsonString();
        printLine(line);
        for (const QString &order : CDemoOrderLog::linesOf(call))
            window.appendLog(order);
        window.appendDetail(QStringLiteral("placeTasks ") + QString::fromStdString(line));
    });
    TC::CBasketHedgeManager::instance()->setBasketCommandObserver(
        [&window](const TC::CBasketHedgeManager::CBasketCommandCall &call) {
            const std::string line = "{ \"hedgeService\" : \"onBasketCommand\", \"command\" : \""
                + (call.m_command ? call.m_command->m_commandKey : std::string()) + "\" }";
            printLine(line);
            window.appendLog(QStringLiteral("对冲服务接管指令 ")
                             + QString::fromStdString(call.m_command ? call.m_command->m_commandKey : std::string("-")));
            window.appendDetail(QStringLiteral("onBasketCommand ") + QString::fromStdString(line));
        });
    TC::getMsgService()->setObserver([&window](const TC::CMsgService::CShowMsgCall &call) {
        window.appendLog(QStringLiteral("提示  ") + call.m_text);
    });
}

void stopObservingClientCalls()
{
    TC::CTradeClient::instance()->setPlaceCommandsObserver({});
    TC::CTradeClient::instance()->setPlaceTasksObserver({});
    TC::getMsgService()->setObserver({});
    TC::CBasketHedgeManager::instance()->setBasketCommandObserver({});
}

// A fill or a reject over FIX is printed and shown in the log.
void showFinalAnswers(CDemoMainWindow &window, const std::vector<TC::COrderLineState> &lines)
{
    for (const TC::COrderLineState &line : lines) {
        if (line.m_status != TC::EOrderLineStatus::Filled && line.m_status != TC::EOrderLineStatus::Rejected)
            continue;
        printLine("{ \"report\" : \"" + line.m_clOrdId + "\", \"code\" : \"" + line.m_code + "\", \"status\" : \""
                  + TC::orderLineStatusText(line.m_status) + "\", \"cumQty\" : " + std::to_string(line.m_cumQty) + " }");
        window.appendLog(QStringLiteral("回报  %1 %2 %3 %4 %5 @ %6 %7")
                             .arg(QString::fromStdString(line.m_clOrdId),
                                  QString::fromStdString(line.m_market + "." + line.m_code),
                                  CDemoOrdersPane::statusText(line.m_status), QString::number(line.m_cumQty, 'f', 0),
                                  QString::number(line.m_orderQty, 'f', 0), QString::number(line.m_avgPx, 'f', 3),
                                  QString::fromStdString(line.m_text)));
    }
}

// Orders over FIX: what comes back shows in the orders pane and, for fills and rejects, in the
// log. Without a session the orders are only recorded.
std::unique_ptr<CDemoFixRoute> startFixRoute(CDemoMainWindow &window, const QVector<TC::CPriceData> &opening,
                                             const QString &settings)
{
    auto fixRoute = std::make_unique<CDemoFixRoute>(
        QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/fix"), opening, settings);
    QString error;
    if (!fixRoute->start(&error)) {
        std::fprintf(stderr, "basket-demo: %s; orders are only recorded\n", qPrintable(error));
        return nullptr;
    }
    auto *pane = new CDemoOrdersPane(&window);
    window.addOrdersPane(pane);
    QObject::connect(fixRoute->route(), &TC::CFixRoute::linesChanged, pane, &CDemoOrdersPane::showLines);
    QObject::connect(fixRoute->route(), &TC::CFixRoute::linesChanged, &window,
                     [&window](const std::vector<TC::COrderLineState> &lines) { showFinalAnswers(window, lines); });
    QObject::connect(fixRoute->route(), &TC::CFixRoute::connectionChanged, &window, [&window](bool on) {
        window.appendLog(on ? QStringLiteral("FIX 连接已登录") : QStringLiteral("FIX 连接断开: 未回报的委托状态未知"));
    });
    return fixRoute;
}

// What the user asked to start with, done as the user would do it.
void startAsAsked(CDemoMainWindow &window, const DemoOptions &options,
                  const QVector<CSampleInstructions::Entry> &instructions)
{
    // An explicit tab wins over the restored one.
    if (options.tabSet && options.tab != currentTab(window.panel()))
        chooseTab(window.panel(), options.tab);
    if (!options.basket.isEmpty())
        chooseBasket(window.panel(), options.basket);
    if (options.role == kTraderRole)
        window.showInstructions(instructions);
    if (options.commandSet)
        window.chooseInstruction(options.command);
    if (options.batchSet)
        handOverPositions(window.panel(), options.batchBuy ? TC::BATCH_BUY : TC::BATCH_SELL);
}

// The quotes of a new list come from the event loop: place once they have sized it, and over
// FIX once the session is up.
void placeWhenSized(CDemoMainWindow &window, CDemoFixRoute *fixRoute)
{
    if (fixRoute && !fixRoute->route()->isLoggedOn()) {
        auto placed = std::make_shared<bool>(false);
        QObject::connect(fixRoute->route(), &TC::CFixRoute::connectionChanged, &window, [&window, placed](bool on) {
            if (on && !*placed) {
                *placed = true; // once: a later reconnect places nothing again
                QTimer::singleShot(200, &window, [&window] { placeOrder(window.panel()); });
            }
        });
    } else {
        QTimer::singleShot(200, &window, [&window] { placeOrder(window.panel()); });
    }
}

void screenshotWhenShown(CDemoMainWindow &window, const QString &file, CDemoFixRoute *fixRoute, bool placing)
{
    auto shoot = [&window, file] {
        const bool saved = window.grab().save(file, "PNG");
        if (!saved)
            std::fprintf(stderr, "basket-demo: could not write %s\n", qPrintable(file));
        QApplication::exit(saved ? 0 : 1);
    };
    if (fixRoute && placing) {
        // The picture shows the answers: taken once every line sent has its final state, or
        // after ten seconds at most.
        TC::CFixRoute *route = fixRoute->route();
        QObject::connect(route, &TC::CFixRoute::linesChanged, &window, [route, shoot] {
            const std::vector<TC::COrderLineState> lines = route->lines();
            if (!lines.empty() && std::all_of(lines.begin(), lines.end(),
                                              [](const TC::COrderLineState &line) { return line.isFinal(); }))
                QTimer::singleShot(100, shoot);
        });
        QTimer::singleShot(10000, &window, shoot);
    } else {
        QTimer::singleShot(300, &window, shoot);
    }
}

} // namespace

int main(int argc, char **argv)
{
    // A screenshot needs no display: render off screen unless a platform was chosen.
    if (wantsScreenshot(argc, argv) && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");

    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("basket-demo"));
    const DemoCommandLine commandLine(app);
    // Before anything logs, as the client configures log4cxx at its start.
    CDemoLogging::configure(commandLine.parser.value(commandLine.logConfig), commandLine.parser.value(commandLine.logFile));
    DemoOptions options;
    if (!checkOptions(commandLine, &options))
        return 2;

    const CSampleData data;
    CSampleClient::install(data, options.role);
    const QVector<CSampleInstructions::Entry> instructions = CSampleInstructions::install(data);
    if (!checkCommand(options, instructions))
        return 2;
    // In the demo a person answers the panel's questions; a screenshot run must never wait.
    WK::setToolkitInteractive(!options.screenshot);

    const QVector<TC::CPriceData> opening = data.openingQuotes();
    CSimulatedMarket market(std::vector<TC::CPriceData>(opening.begin(), opening.end()));
    market.publishAll();

    const CDemoSavedState savedState(options.role);
    const QString saved = options.scripted || options.fresh ? QString() : savedState.load();
    const CDemoSavedState patchStore = CDemoSavedState::patchSettings(options.role);
    if (!options.scripted)
        keepPatchSettings(patchStore);
    if (!savedState.keptAsidePath().isEmpty())
        std::fprintf(stderr, "basket-demo: the saved state could not be read; kept as %s, starting from the defaults\n",
                     qPrintable(savedState.keptAsidePath()));

    CDemoMainWindow window;
    const CDemoSavedState basketStore = CDemoSavedState::userBaskets(options.role);
    const QStringList sampleBaskets = options.scripted ? QStringList() : keepUserBaskets(basketStore, window.panel());
    CDemoLogging::attachPane([&window](const QString &line) { window.appendDetail(QStringLiteral("日志 ") + line); });
    // As the client restores the panel: the text it was left with, or at first a wider
    // parameter form.
    window.panel()->setParam(saved.isEmpty() ? QStringLiteral("//500") : saved);
    observeClientCalls(window);
    std::unique_ptr<CDemoFixRoute> fixRoute;
    if (options.route == QLatin1String("fix"))
        fixRoute = startFixRoute(window, opening, options.routeSettings);
    showPatchLink(window.panel());
    if (options.windowSize.isValid())
        window.resize(options.windowSize);
    window.show();
    startAsAsked(window, options, instructions);

    if (options.place)
        placeWhenSized(window, fixRoute.get());
    if (options.screenshot)
        screenshotWhenShown(window, options.screenshotFile, fixRoute.get(), options.place);
    else
        market.start();
    const int result = app.exec();
    fixRoute.reset();
    market.stop();
    if (!options.scripted)
        saveUserBaskets(basketStore, sampleBaskets);
    if (!options.scripted && !savedState.save(window.panel()->param()))
        std::fprintf(stderr, "basket-demo: could not save the panel's state to %s\n", qPrintable(savedState.filePath()));
    stopObservingClientCalls();
    TC::getUserConfig()->setPatchSettingsStore({});
    CDemoLogging::detachPane();
    return result;
}
