// Writes the seed corpus of every fuzz target from the real panel on the demo's sample client:
// the texts the panel itself writes after a trader's actions on each tab, the rows a trader
// copies out of a stored basket, the instructions a manager would send. Run by hand when the
// texts change (scripts/fuzz --write-seeds); the corpus is kept in fuzz/corpus.
#include "CFuzzPanelHost.h"
#include "CFuzzUserActions.h"

#include "COpBasketParamsWidget.h"
#include "COpBasketStockParamsWidget.h"
#include "COperationBasketWidget.h"
#include "OrderSettingText.h"

#include "CAccount.h"
#include "CGlobalOrderParamTable.h"
#include "CUserConfig.h"

#include "CBasketHedgeParam.h"
#include "COrderCommand.h"
#include "OperationSide.h"

#include "Bson.h"

#include <QDir>
#include <QFile>
#include <QStringList>

#include <cstdio>
#include <vector>

namespace {

using A = CFuzzUserActions;
using Script = std::vector<std::pair<A::EAction, uint8_t>>;

// Scripts of a trader's day, one starting on each tab (arguments index the tab, account, basket
// and mode lists of CFuzzUserActions).
const std::vector<Script> kScripts = {
    {},
    {{A::Tab, 0}, {A::Basket, 1}, {A::Sizing, 1}, {A::Cell, 1 | (40 << 3)}},
    {{A::Tab, 1}, {A::Account, 1}, {A::Basket, 2}, {A::PriceType, 3}},
    {{A::Tab, 2}, {A::Basket, 3}, {A::OrderType, 1}, {A::Filter, 4}},
    {{A::Tab, 3}, {A::Account, 2}, {A::Basket, 0}, {A::Cell, 0 | (3 << 3)}},
    {{A::Tab, 4}, {A::Basket, 4}, {A::Account, 3}},
    {{A::Tab, 5}, {A::Basket, 4}, {A::Sizing, 2}},
    {{A::Tab, 6}, {A::Account, 4}, {A::Basket, 5}},
    {{A::Tab, 1}, {A::Tab, 0}, {A::Filter, 5}, {A::Filter, 6}, {A::Tab, 2}, {A::PriceType, 5}},
};

class CSeedDir
{
public:
    CSeedDir(const QString &root, const char *target) : m_dir(root + QLatin1Char('/') + QLatin1String(target))
    {
        QDir().mkpath(m_dir);
    }
    void add(const QByteArray &bytes)
    {
        QFile file(QStringLiteral("%1/seed-%2").arg(m_dir).arg(m_count++, 2, 10, QLatin1Char('0')));
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
    }
    void add(const QString &text) { add(text.toUtf8()); }

private:
    QString m_dir;
    int m_count = 0;
};

QByteArray scriptBytes(const Script &script)
{
    QByteArray bytes;
    for (const auto &step : script)
        bytes.append(static_cast<char>(step.first)).append(static_cast<char>(step.second));
    return bytes;
}

std::unique_ptr<TC::CBasketOperationPanel> panelAfter(const Script &script)
{
    std::unique_ptr<TC::CBasketOperationPanel> panel = CFuzzPanelHost::instance().newPanel();
    const QByteArray bytes = scriptBytes(script);
    CFuzzUserActions::apply(*panel, reinterpret_cast<const uint8_t *>(bytes.constData()), static_cast<size_t>(bytes.size()));
    return panel;
}

TC::COpBasketParamsWidget *formOf(const TC::CBasketOperationPanel &panel)
{
    return panel.basketWidget() ? panel.basketWidget()->paramsWidget() : nullptr;
}

// The form's text as an older client wrote it: the same pieces joined by ";" in their old places.
QString oldFormText(const QString &formText)
{
    bson::BSONObj form;
    if (!ttservice::parseJson(formText.toStdString(), form))
        return QString();
    auto field = [&form](const char *key) { return QString::fromStdString(ttservice::bsonString(form, key, std::string())); };
    QStringList parts = {field("BS"),  field("SP"), field("HP"), field("AW"), field("BBox"),
                         field("BBP"), field("BSP"), QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("1"),
                         QStringLiteral("0"), field("BCPW"), field("BFPW"), field("BB"), QStringLiteral("0")};
    bson::BSONObj perTab;
    if (ttservice::parseJson(field("bsonParam").toStdString(), perTab)) {
        for (bson::BSONObjIterator it(perTab); it.more();)
            parts << QString::fromStdString(it.next().str());
    }
    return parts.join(QLatin1Char(';'));
}

// Rows as a trader copies them out of a stored basket: code, name, volume, weight, direction,
// and for futures the operation and hedge flag.
QString copiedRows(const TC::CBasketSetting &basket, int columns)
{
    QStringList lines;
    for (const TC::CBasketStockData &row : basket.m_stocks) {
        QStringList fields = {row.m_stockCode, row.m_stockName, QString::number(row.m_volume), QString::number(row.m_weight),
                              ttservice::isBuyOperation(row.m_operationType) ? QStringLiteral("买入") : QStringLiteral("卖出"),
                              QString::number(row.m_operationType), QString::number(row.m_hedgeFlag)};
        lines << QStringList(fields.mid(0, columns)).join(QLatin1Char('\t'));
        if (lines.size() == 40)
            break;
    }
    return lines.join(QLatin1Char('\n'));
}

QByteArray withKind(char kind, const bson::BSONObj &obj)
{
    return QByteArray(1, kind) + QByteArray(obj.objdata(), obj.objsize());
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s CORPUS_DIR\n", argv[0]);
        return 2;
    }
    const QString root = QString::fromLocal8Bit(argv[1]);
    CFuzzPanelHost::instance();

    CSeedDir panelParam(root, "panel_param");
    CSeedDir tableLayout(root, "table_layout");
    CSeedDir orderSetting(root, "order_setting");
    CSeedDir roundTrip(root, "param_round_trip");
    for (const Script &script : kScripts) {
        std::unique_ptr<TC::CBasketOperationPanel> panel = panelAfter(script);
        const QString text = panel->param();
        panelParam.add(text);
        roundTrip.add(scriptBytes(script));
        const QStringList pieces = text.split(QLatin1Char('/'));
        if (&script == &kScripts.front()) {
            // The client keeps its frame's pieces before the panel's own, and older clients
            // wrote the form's text with ";".
            panelParam.add(QStringLiteral("1|0|") + text);
            panelParam.add(oldFormText(pieces.at(0)) + QLatin1Char('/') + pieces.mid(1).join(QLatin1Char('/')));
        }
        if (pieces.size() > 1)
            tableLayout.add(pieces.at(1));
        TC::COpBasketParamsWidget *form = formOf(*panel);
        TC::COpBasketStockParamsWidget *block = form ? form->getParamWidget(form->getOperationType()) : nullptr;
        if (block && block->table()) {
            ttservice::COrderSetting setting;
            block->table()->saveOpParam(QString(), setting);
            orderSetting.add(TC::orderSettingToString(setting));
        }
    }

    CSeedDir paste(root, "paste");
    for (const TC::CBasketSetting &basket : TC::getUserConfig()->baskets()) {
        for (const int columns : {3, 5, 7})
            if (!basket.m_stocks.isEmpty())
                paste.add(QByteArray(1, static_cast<char>(columns & 1)) + copiedRows(basket, columns).toUtf8());
    }

    // Instructions as a manager sends them: the sized lines of a basket, with and without a hedge.
    CSeedDir bsonRecord(root, "bson_record");
    for (const Script &script : {kScripts.at(1), kScripts.at(2), kScripts.at(5)}) {
        std::unique_ptr<TC::CBasketOperationPanel> panel = panelAfter(script);
        TC::COpBasketParamsWidget *form = formOf(*panel);
        if (!form || !form->getCodeOrderParams())
            continue;
        ttservice::COrderCommand command;
        command.m_commandKey = "cmd-" + std::to_string(form->getTradeOpType());
        command.m_traderType = ttservice::VQ_TRADER_BASKET;
        for (const ttservice::CCodeOrderParam &line : *form->getCodeOrderParams()) {
            command.m_orders.push_back(line);
            if (command.m_orders.size() == 12)
                break;
        }
        ttservice::CBasketHedgeParam hedge;
        if (form->fillHedgeParam(hedge))
            command.m_hedgeBson = hedge.toBson();
        bsonRecord.add(withKind(0, command.toBson()));
        for (const auto &account : form->getAccounts()) {
            const auto data = account ? account->getAccountData() : nullptr;
            if (data && data->getAccountDetail())
                bsonRecord.add(withKind(1, data->getAccountDetail()->toBson()));
        }
    }
    std::printf("seeds written to %s\n", argv[1]);
    return 0;
}
