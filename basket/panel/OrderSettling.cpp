#include "OrderSettling.h"

#include "CExchangeClient.h"
#include "StockKey.h"

#include "DoubleCompare.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace TC {
namespace {

// Decimals a tick is written with: 0.01 has 2, 0.2 has 1, 0.005 has 3; at most 6.
int decimalsOf(double tick)
{
    int decimals = 0;
    double scaled = tick;
    while (decimals < 6 && std::fabs(scaled - std::round(scaled)) > 1e-9 * std::max(1.0, scaled)) {
        scaled *= 10.0;
        ++decimals;
    }
    return decimals;
}

bool isMoneyOperation(ttservice::EOperationType operation)
{
    return operation == ttservice::OT_MONEY || operation == ttservice::OT_MONEY_TRANSFER;
}

} // namespace

double roundToTick(double price, double tick)
{
    if (!ttservice::hasValue(price) || !std::isfinite(price) || !(tick > 0.0) || !std::isfinite(tick))
        return price;
    const double ticks = std::round(price / tick);
    // Far beyond any real price the product would lose the tick's decimals anyway.
    if (std::fabs(ticks) > 1e12)
        return price;
    const double scale = std::pow(10.0, decimalsOf(tick));
    return std::round(ticks * tick * scale) / scale;
}

void putPricesOnTick(std::vector<ttservice::CCodeOrderParam> &lines)
{
    CExchangeClient *exchange = CExchangeClient::instance();
    for (ttservice::CCodeOrderParam &line : lines) {
        if (isMoneyOperation(line.m_operationType) || !ttservice::hasValue(line.m_price) || ttservice::isZero(line.m_price))
            continue;
        const std::string key = utils::vqStockKey(line.m_stockInfo.m_market, line.m_stockInfo.m_stockCode);
        line.m_price = roundToTick(line.m_price, exchange->getCodePriceTick(QString::fromStdString(key)));
    }
}

bool carriesNothing(const ttservice::CCodeOrderParam &line)
{
    if (isMoneyOperation(line.m_operationType))
        return !ttservice::hasValue(line.m_money) || !(line.m_money > ttservice::DOUBLE_EPSILON);
    return line.m_volume <= 0;
}

int dropEmptyLines(std::vector<ttservice::CCodeOrderParam> &lines)
{
    const auto kept = std::remove_if(lines.begin(), lines.end(), carriesNothing);
    const int dropped = static_cast<int>(lines.end() - kept);
    lines.erase(kept, lines.end());
    return dropped;
}

QString orderFingerprint(const std::vector<ttservice::CCodeOrderParam> &lines)
{
    QStringList parts;
    parts.reserve(static_cast<int>(lines.size()));
    for (const ttservice::CCodeOrderParam &line : lines) {
        const double quantity = isMoneyOperation(line.m_operationType) ? line.m_money : double(line.m_volume);
        parts << QStringLiteral("%1|%2|%3|%4|%5")
                     .arg(QString::fromStdString(line.m_account ? line.m_account->getKey() : std::string()),
                          QString::fromStdString(line.m_stockInfo.m_market), QString::fromStdString(line.m_stockInfo.m_stockCode),
                          QString::number(int(line.m_operationType)), QString::number(quantity, 'f', 2));
    }
    parts.sort();
    return parts.join(QLatin1Char('\n'));
}

} // namespace TC
