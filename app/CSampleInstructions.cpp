#include "CSampleInstructions.h"

#include "CSampleData.h"

#include "CBasketHedgeParam.h"
#include "CTradeClient.h"
#include "OperationSide.h"
#include "CUserConfig.h"

#include <boost/make_shared.hpp>

#include <initializer_list>

namespace {

constexpr const char *kManagerId = "u-20001";

struct Line
{
    const char *account;
    int stock; // index into the sample stocks
    int operation;
    int volume;
    int traded;
};

ttservice::CCodeOrderParam lineOf(const CSampleData &data, const Line &l)
{
    const CSampleInstrument &stock = data.stocks().at(l.stock % data.stocks().size());
    ttservice::CCodeOrderParam line;
    line.m_account = TC::getUserConfig()->getAccountData(QString::fromLatin1(l.account));
    line.m_stockInfo = ttservice::CStockInfo(stock.market.toStdString(), stock.code.toStdString(), stock.name.toStdString());
    line.m_operationType = static_cast<ttservice::EOperationType>(l.operation);
    line.m_orderType = ttservice::ORDER_TYPE_INSTRUCTION;
    // Buys pay the offer and sells take the bid, as a manager sending a working order would.
    line.m_priceType = ttservice::isBuyOperation(line.m_operationType) ? ttservice::PRICE_TYPE_ASK1 : ttservice::PRICE_TYPE_BID1;
    line.m_volume = l.volume;
    line.m_tradedVolume = l.traded;
    line.m_userId = kManagerId;
    return line;
}

boost::shared_ptr<ttservice::COrderCommand> command(const CSampleData &data, const std::string &key, int id,
                                                    const char *basket, std::initializer_list<Line> lines)
{
    auto c = boost::make_shared<ttservice::COrderCommand>();
    c->m_commandKey = key;
    c->m_commandId = id;
    c->m_traderType = ttservice::VQ_TRADER_BASKET;
    c->m_hedgeType = ttservice::EVqHedgeType(1);
    c->m_basketName = basket;
    c->m_holderIds = {kManagerId, TC::getUserConfig()->getUserId()};
    for (const Line &l : lines) {
        c->m_orders.push_back(lineOf(data, l));
        if (l.traded > 0)
            c->m_commandState = 2; // partly executed already
    }
    return c;
}

} // namespace

QVector<CSampleInstructions::Entry> CSampleInstructions::install(const CSampleData &data)
{
    QVector<Entry> entries;
    TC::CTradeClient *trade = TC::CTradeClient::instance();
    auto add = [&](const boost::shared_ptr<ttservice::COrderCommand> &c, const char *title) {
        trade->addCommand(c);
        Entry entry;
        entry.key = c->m_commandKey;
        entry.title = QString::fromUtf8(title);
        entries.push_back(entry);
    };

    // 红利精选's stocks are 100, 105, 110 ...; one line is half done. The manager set the
    // algorithm's intervals and participation (strategy#order interval#cancel interval#rate).
    const boost::shared_ptr<ttservice::COrderCommand> buy =
        command(data, "cmd-buy-001", 5001, "红利精选",
                {{"stk-001", 100, 18, 2000, 0}, {"stk-001", 105, 18, 1500, 0}, {"stk-001", 110, 18, 3000, 1000},
                 {"stk-002", 100, 18, 1000, 0}, {"stk-002", 115, 18, 800, 0}});
    buy->m_tableType = ttservice::ORDER_TYPE_INSTRUCTION;
    buy->m_tableSettings = "#20#40#15@#20#40#15@#20#40#15@#20#40#15@#20#40#15";
    add(buy, "王经理 · 买入 红利精选 (两个账户, 一笔已成交一部分)");
    // stk-001 holds stocks 0, 3, 6, ...: it sells two of them and buys two growth stocks.
    add(command(data, "cmd-onekey-001", 5002, "科技成长",
                {{"stk-001", 40, 18, 1000, 0}, {"stk-001", 42, 18, 1200, 0}, {"stk-001", 3, 19, 2000, 0},
                 {"stk-001", 6, 19, 1000, 0}}),
        "王经理 · 一键买卖 (买两只, 卖两只持仓)");
    add(command(data, "cmd-credit-001", 5003, "",
                {{"crd-001", 10, 20, 1000, 0}, {"crd-001", 13, 20, 600, 0}}),
        "王经理 · 融资买入 (信用一号)");

    // A split: the whole goes to two traders; this trader's part is the lines of 量化三号.
    const boost::shared_ptr<ttservice::COrderCommand> whole =
        command(data, "cmd-split-001", 5004, "大盘蓝筹",
                {{"stk-001", 0, 18, 3000, 0}, {"stk-001", 9, 18, 2000, 0}, {"stk-003", 0, 18, 1200, 0},
                 {"stk-003", 9, 18, 800, 0}});
    auto part = boost::make_shared<ttservice::CSubCommandRecord>();
    part->m_subCommandId = 31;
    part->m_status = ttservice::SUB_COMMAND_ORDER;
    part->m_userId = TC::getUserConfig()->getUserId();
    part->m_orders = {whole->m_orders[2], whole->m_orders[3]};
    trade->addCommand(whole);
    Entry split;
    split.key = whole->m_commandKey;
    split.title = QStringLiteral("王经理 · 拆分指令 大盘蓝筹 (本人部分: 量化三号)");
    split.split = true;
    split.info = TC::sSplitCmdInfo(false, nullptr, part);
    entries.push_back(split);

    // Hedged: the hedge service takes it over and places basket and futures itself.
    const boost::shared_ptr<ttservice::COrderCommand> hedged =
        command(data, "cmd-hedge-001", 5005, "大盘蓝筹", {{"stk-002", 12, 18, 2000, 0}, {"stk-002", 15, 18, 1000, 0}});
    hedged->m_hedgeType = ttservice::EVqHedgeType(2);
    ttservice::CBasketHedgeParam hedge;
    hedge.m_enabled = true;
    hedge.m_hedgeType = 0;
    hedged->m_hedgeBson = hedge.toBson();
    add(hedged, "王经理 · 对冲买入 大盘蓝筹 (交对冲服务执行)");
    return entries;
}
