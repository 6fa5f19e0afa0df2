#include "DataHelper.h"

#include "OperationSide.h"

namespace ttservice {
namespace {

struct OrderTypeRow
{
    int orderType;
    const char *name;
    bool algorithm;
    int platform;
};

const OrderTypeRow kOrderTypes[] = {
    {4, "TWAP", true, 1},     {5, "VWAP", true, 1},   {8, "POV", true, 1},
    {9, "ICEBERG", true, 1},  {10, "SNIPER", true, 1}, {11, "STEPPER", true, 1},
    {12, "T0", false, 2},     {13, "VQALGO", true, 3}, {14, "VWAPPLUS", true, 3},
};

const OrderTypeRow *findRow(int orderType)
{
    for (const OrderTypeRow &row : kOrderTypes) {
        if (row.orderType == orderType)
            return &row;
    }
    return nullptr;
}

} // namespace

ETradePlatform DataHelper::getPlatformTypeByOrderType(EOrderType orderType)
{
    const OrderTypeRow *row = findRow(orderType);
    return static_cast<ETradePlatform>(row ? row->platform : 0);
}

EOrderType DataHelper::getOrderTypeByParamString(std::string name)
{
    for (const OrderTypeRow &row : kOrderTypes) {
        if (name == row.name)
            return static_cast<EOrderType>(row.orderType);
    }
    return ORDER_TYPE_NONE;
}

std::string DataHelper::getParamStringByOrderType(EOrderType orderType)
{
    const OrderTypeRow *row = findRow(orderType);
    return row ? row->name : std::string();
}

bool DataHelper::isAlgoOrderType(EOrderType orderType)
{
    const OrderTypeRow *row = findRow(orderType);
    return row && row->algorithm;
}

bool DataHelper::isBuy(EOperationType operation)
{
    return isBuyOperation(operation);
}

} // namespace ttservice
