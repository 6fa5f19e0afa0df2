#include "CGlobalOrderParamTable.h"

#include "CTrdAlgoBaseTable.h"

#include <QStringList>

#include <cmath>

namespace TC {
namespace {

enum EField { FPriceType, FOrderType, FFixedPrice, FChecked, FVisible, FStepAbsolute, FStepValue, FStepRate,
              FKeepValid, FValidSeconds, FStepFlag, FStart, FEnd, FAlgorithms, FieldCount };

constexpr int kDaySeconds = 86400;

bool readInt(const QStringList &parts, int index, int &value)
{
    if (index >= parts.size())
        return false;
    bool ok = false;
    const int read = parts.at(index).trimmed().toInt(&ok);
    if (ok)
        value = read;
    return ok;
}

bool readDouble(const QStringList &parts, int index, double &value)
{
    if (index >= parts.size())
        return false;
    bool ok = false;
    const double read = parts.at(index).trimmed().toDouble(&ok);
    if (ok && std::isfinite(read) && read >= 0)
        value = read;
    return ok;
}

} // namespace

CGlobalOrderParamTable::CGlobalOrderParamTable(ttservice::EVQBrokerType brokerType, bool ordinaryAllowed,
                                               QWidget *parent, int, ttservice::EVqTraderType traderType, int)
    : COrderParamBaseTable(QStringLiteral("global_order_param_table"), brokerType, ordinaryAllowed, traderType, parent)
{
}

CGlobalOrderParamTable::~CGlobalOrderParamTable() = default;

QString CGlobalOrderParamTable::param() const
{
    const ttservice::COrderSetting setting = currentSetting();
    QStringList algorithms;
    for (auto it = algoTables().cbegin(); it != algoTables().cend(); ++it)
        algorithms << QString::number(it.key()) + QLatin1Char('`') + it.value()->uiString();
    QStringList fields;
    fields << QString::number(priceType()) << QString::number(orderType())
           << QString::number(ttservice::hasValue(fixedPrice()) ? fixedPrice() : 0.0, 'g', 15)
           << loadCheckParam().replace(QLatin1Char('*'), QLatin1Char('+'))
           << QString::number(expandItemsHidden() ? 0 : 1) << QString::number(setting.m_stepIsAbsolute ? 1 : 0)
           << QString::number(setting.m_stepValue, 'g', 15) << QString::number(setting.m_stepRate, 'g', 15)
           << QString::number(setting.m_keepValidTime ? 1 : 0) << QString::number(setting.m_validSeconds)
           << QString::number(setting.m_stepFlag) << QString::number(startSeconds()) << QString::number(endSeconds())
           << algorithms.join(QLatin1Char(','));
    return fields.join(QLatin1Char(';'));
}

void CGlobalOrderParamTable::setParam(const QString &text)
{
    if (text.isEmpty())
        return;
    const QStringList parts = text.split(QLatin1Char(';'));
    int number = 0;
    if (readInt(parts, FPriceType, number))
        setPriceType(number);
    if (readInt(parts, FOrderType, number))
        setOrderType(number);
    double price = 0.0;
    if (readDouble(parts, FFixedPrice, price))
        setFixedPrice(price);
    if (FChecked < parts.size())
        setCheckParam(QString(parts.at(FChecked)).replace(QLatin1Char('+'), QLatin1Char('*')));
    if (readInt(parts, FVisible, number))
        setExpandItemsHidden(number == 0);

    ttservice::COrderSetting setting = currentSetting();
    if (readInt(parts, FStepAbsolute, number))
        setting.m_stepIsAbsolute = number != 0;
    readDouble(parts, FStepValue, setting.m_stepValue);
    readDouble(parts, FStepRate, setting.m_stepRate);
    if (readInt(parts, FKeepValid, number))
        setting.m_keepValidTime = number != 0;
    if (readInt(parts, FValidSeconds, number) && number >= 0)
        setting.m_validSeconds = number;
    if (readInt(parts, FStepFlag, number))
        setting.m_stepFlag = number;
    int start = startSeconds();
    int end = endSeconds();
    if (readInt(parts, FStart, number) && number >= 0 && number < kDaySeconds)
        start = number;
    if (readInt(parts, FEnd, number) && number >= 0 && number < kDaySeconds)
        end = number;
    loadOpParam(setting, 0.001);
    setTimePeriod(start, end);

    if (FAlgorithms < parts.size()) {
        const QStringList entries = parts.at(FAlgorithms).split(QLatin1Char(','), Qt::SkipEmptyParts);
        for (const QString &entry : entries) {
            const int mark = entry.indexOf(QLatin1Char('`'));
            bool ok = false;
            const int type = entry.left(mark).toInt(&ok);
            if (mark > 0 && ok)
                setTableUIByParams(type, entry.mid(mark + 1));
        }
    }
    updateCmdLog();
}

void CGlobalOrderParamTable::saveParam()
{
    m_savedParam = param();
}

QString CGlobalOrderParamTable::getSingleVqAlgoUiParam(int) const
{
    const CTrdAlgoBaseTable *table = getTrdAlgoBaseTable(ttservice::ORDER_TYPE_INSTRUCTION);
    return table ? table->uiString() : QString();
}

void CGlobalOrderParamTable::setSingleVqAlgoParam(int, const QString &text)
{
    setTableUIByParams(ttservice::ORDER_TYPE_INSTRUCTION, text);
}

void CGlobalOrderParamTable::clear()
{
    COrderParamBaseTable::clear();
    m_savedParam.clear();
}

} // namespace TC
