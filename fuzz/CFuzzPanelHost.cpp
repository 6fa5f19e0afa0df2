#include "CFuzzPanelHost.h"

#include "CSampleClient.h"
#include "CSampleData.h"

#include "COpBasketParamsWidget.h"
#include "COpBasketsComboBox.h"
#include "COperationBasketWidget.h"

#include "CLogCenter.h"
#include "COpAccountsWidget.h"
#include "CQuoteClient.h"
#include "ToolkitRecords.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>

namespace {

int g_argc = 1;
char g_name[] = "basket-fuzz";
char *g_argv[] = {g_name, nullptr};

const CSampleData &sampleData()
{
    static const CSampleData data;
    return data;
}

} // namespace

// The platform plugins keep a few objects until process exit; leaks of our own code still count.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libQt5Gui\nleak:libQt5Core\nleak:libQt5Widgets\nleak:libfontconfig\nleak:libglib\n"
           "leak:libdbus\nleak:libX11\nleak:libxcb\nleak:libqoffscreen\n";
}

CFuzzPanelHost &CFuzzPanelHost::instance()
{
    static CFuzzPanelHost host;
    return host;
}

CFuzzPanelHost::CFuzzPanelHost()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt's own warnings about odd input (a bad JSON number, a missing column) would flood the
    // fuzzer's output; the panel answers them itself.
    qputenv("QT_LOGGING_RULES", "*=false");
    new QApplication(g_argc, g_argv);
}

std::unique_ptr<TC::CBasketOperationPanel> CFuzzPanelHost::newPanel(bool chooseBasket)
{
    CSampleClient::install(sampleData(), 90);
    utils::CLogCenter::instance()->setLogEnabled(false);
    WK::resetToolkitRecords();
    WK::setToolkitInteractive(false);
    for (const TC::CPriceData &quote : sampleData().openingQuotes())
        TC::CQuoteClient::instance()->setStockPrice(quote);

    std::unique_ptr<TC::CBasketOperationPanel> panel = freshPanel();
    panel->setParam(QStringLiteral("//500"));
    TC::COpBasketParamsWidget *form = panel->basketWidget() ? panel->basketWidget()->paramsWidget() : nullptr;
    if (chooseBasket && form && form->accountsWidget() && form->basketsCombo()) {
        const QStringList accounts = form->accountsWidget()->getDisplayedAccounts();
        if (!accounts.isEmpty())
            form->accountsWidget()->setSelectedAccount(accounts.first(), true);
        form->basketsCombo()->setBasket(QStringLiteral("大盘蓝筹"), false);
    }
    settle();
    return panel;
}

std::unique_ptr<TC::CBasketOperationPanel> CFuzzPanelHost::freshPanel()
{
    std::unique_ptr<TC::CBasketOperationPanel> panel(new TC::CBasketOperationPanel(1, nullptr));
    panel->resize(1400, 800);
    return panel;
}

void CFuzzPanelHost::settle()
{
    QApplication::processEvents();
}

void CFuzzPanelHost::pressOrderButton(TC::CBasketOperationPanel &panel)
{
    if (TC::COperationBasketWidget *basketWidget = panel.basketWidget())
        basketWidget->handleEvent(1046, 0, 0, QString(), nullptr);
    settle();
}

QString CFuzzPanelHost::text(const uint8_t *data, size_t size)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<int>(size));
}

void CFuzzPanelHost::fail(const char *what, const QString &first, const QString &second)
{
    std::fprintf(stderr, "property broken: %s\n  first:  %s\n  second: %s\n", what, qPrintable(first),
                 qPrintable(second));
    std::abort();
}
