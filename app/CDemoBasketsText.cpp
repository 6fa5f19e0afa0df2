#include "CDemoBasketsText.h"

#include "DoubleCompare.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace {

QJsonObject rowObject(const TC::CBasketStockData &row)
{
    QJsonObject object{{QStringLiteral("market"), row.m_market},
                       {QStringLiteral("code"), row.m_stockCode},
                       {QStringLiteral("name"), row.m_stockName},
                       {QStringLiteral("weight"), row.m_weight},
                       {QStringLiteral("volume"), static_cast<double>(row.m_volume)},
                       {QStringLiteral("operation"), static_cast<int>(row.m_operationType)}};
    if (row.m_useFixedPrice && ttservice::hasValue(row.m_price))
        object.insert(QStringLiteral("price"), row.m_price);
    return object;
}

// A number of a damaged file that is no finite number, or beyond a volume, reads as 0.
double finiteOrZero(const QJsonValue &value, double limit)
{
    const double number = value.toDouble();
    return std::isfinite(number) && std::fabs(number) <= limit ? number : 0.0;
}

} // namespace

QString CDemoBasketsText::toText(const QList<TC::CBasketSetting> &baskets)
{
    QJsonArray list;
    for (const TC::CBasketSetting &basket : baskets) {
        QJsonArray rows;
        for (const TC::CBasketStockData &row : basket.m_stocks)
            rows.append(rowObject(row));
        list.append(QJsonObject{{QStringLiteral("name"), basket.m_name},
                                {QStringLiteral("kind"), basket.m_basketKind},
                                {QStringLiteral("broker"), static_cast<int>(basket.m_brokerType)},
                                {QStringLiteral("indexMarket"), basket.m_indexMarket},
                                {QStringLiteral("indexCode"), basket.m_indexCode},
                                {QStringLiteral("rows"), rows}});
    }
    return QString::fromUtf8(QJsonDocument(QJsonObject{{QStringLiteral("baskets"), list}}).toJson(QJsonDocument::Indented));
}

bool CDemoBasketsText::fromText(const QString &text, QList<TC::CBasketSetting> &baskets)
{
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    if (!document.isObject() || !document.object().value(QStringLiteral("baskets")).isArray())
        return false;
    QList<TC::CBasketSetting> read;
    for (const QJsonValue &value : document.object().value(QStringLiteral("baskets")).toArray()) {
        const QJsonObject object = value.toObject();
        TC::CBasketSetting basket;
        basket.m_name = object.value(QStringLiteral("name")).toString().trimmed();
        if (basket.m_name.isEmpty())
            continue;
        basket.m_basketKind = object.value(QStringLiteral("kind")).toInt();
        basket.m_brokerType = static_cast<ttservice::EVQBrokerType>(object.value(QStringLiteral("broker")).toInt());
        basket.m_indexMarket = object.value(QStringLiteral("indexMarket")).toString();
        basket.m_indexCode = object.value(QStringLiteral("indexCode")).toString();
        for (const QJsonValue &rowValue : object.value(QStringLiteral("rows")).toArray()) {
            const QJsonObject r = rowValue.toObject();
            TC::CBasketStockData row;
            row.m_stockCode = r.value(QStringLiteral("code")).toString();
            if (row.m_stockCode.isEmpty())
                continue;
            row.m_market = r.value(QStringLiteral("market")).toString();
            row.m_stockName = r.value(QStringLiteral("name")).toString();
            row.m_weight = finiteOrZero(r.value(QStringLiteral("weight")), 1e15);
            row.m_volume = static_cast<int64_t>(finiteOrZero(r.value(QStringLiteral("volume")), 1e15));
            row.m_operationType = static_cast<ttservice::EOperationType>(
                r.value(QStringLiteral("operation")).toInt(static_cast<int>(ttservice::OT_BUY)));
            if (r.contains(QStringLiteral("price"))) {
                row.m_price = finiteOrZero(r.value(QStringLiteral("price")), 1e12);
                row.m_useFixedPrice = true;
            }
            basket.m_stocks << row;
        }
        read << basket;
    }
    baskets = read;
    return true;
}
