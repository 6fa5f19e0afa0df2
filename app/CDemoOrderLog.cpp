#include "CDemoOrderLog.h"

#include "AccountHelpers.h"
#include "COrderParamBaseTable.h"
#include "OperationHelpers.h"

#include "DoubleCompare.h"

#include <QLocale>

namespace {

QString quantityOf(const ttservice::CCodeOrderParam &line)
{
    const QLocale locale(QLocale::Chinese, QLocale::China);
    if (line.m_operationType == ttservice::OT_MONEY || line.m_operationType == ttservice::OT_MONEY_TRANSFER)
        return locale.toString(ttservice::hasValue(line.m_money) ? line.m_money : 0.0, 'f', 2) + QStringLiteral(" 元");
    return locale.toString(static_cast<qlonglong>(line.m_volume));
}

QString priceOf(const ttservice::CCodeOrderParam &line)
{
    const QString type = TC::COrderParamBaseTable::priceTypeName(line.m_priceType);
    if (!ttservice::hasValue(line.m_price) || ttservice::isZero(line.m_price))
        return type;
    return QString::number(line.m_price, 'g', 12) + QLatin1Char(' ') + type;
}

} // namespace

QString CDemoOrderLog::lineOf(const ttservice::CCodeOrderParam &line, const QString &source)
{
    const QString name = QString::fromStdString(line.m_stockInfo.m_stockName);
    const QString orderType = TC::COrderParamBaseTable::orderTypeName(line.m_orderType);
    return QStringLiteral("%1  %2 %3  %4 %5  @ %6  %7  [%8]")
        .arg(line.m_account ? TC::accountDisplayIDQs(line.m_account) : QStringLiteral("-"),
             QString::fromStdString(line.m_stockInfo.m_stockCode), name.isEmpty() ? QStringLiteral("-") : name,
             TC::operationToString(line.m_operationType), quantityOf(line), priceOf(line),
             orderType.isEmpty() ? QString::number(int(line.m_orderType)) : orderType, source);
}

QStringList CDemoOrderLog::linesOf(const TC::CPlaceCommandsCall &call)
{
    const QString basket = QString::fromStdString(call.m_basketName);
    const QString source = (call.m_hedgeType == ttservice::EVqHedgeType(2) ? QStringLiteral("对冲篮子 ")
                                                                           : QStringLiteral("篮子 "))
        + (basket.isEmpty() ? QStringLiteral("-") : basket);
    QStringList lines;
    for (const ttservice::CCodeOrderParam &line : call.m_orders)
        lines << QStringLiteral("下单  ") + lineOf(line, source);
    return lines;
}

QStringList CDemoOrderLog::linesOf(const TC::CPlaceTasksCall &call)
{
    const QString source = QStringLiteral("指令 ")
        + QString::fromStdString(call.m_command ? call.m_command->m_commandKey : std::string("-"));
    QStringList lines;
    for (const ttservice::CCodeOrderParam &line : call.m_orders)
        lines << QStringLiteral("执行  ") + lineOf(line, source);
    return lines;
}
