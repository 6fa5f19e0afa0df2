#include "TypeManager.h"

#include "OperationHelpers.h"

namespace ttservice {

TypeManager::TypeManager()
{
    reset();
}

TypeManager *TypeManager::instance()
{
    static TypeManager manager;
    return &manager;
}

std::string TypeManager::getEnumItemName(std::string enumName, int value, EVqTraderType) const
{
    const auto it = m_names.find(std::make_tuple(enumName, value));
    if (it != m_names.end())
        return it->second;
    if (enumName == "ttservice::EOperationType") {
        const QString name = TC::operationToString(value);
        if (!name.isEmpty())
            return name.toStdString();
    }
    return std::to_string(value);
}

void TypeManager::setEnumItemName(const std::string &enumName, int value, const std::string &text)
{
    m_names[std::make_tuple(enumName, value)] = text;
}

void TypeManager::reset()
{
    m_names = {
        {{"ttservice::EEntrustBS", ENTRUST_BUY}, "买入"},
        {{"ttservice::EEntrustBS", ENTRUST_SELL}, "卖出"},
        {{"ttservice::EHedge_Flag_Type", HEDGE_FLAG_SPECULATION}, "投机"},
        {{"ttservice::EHedge_Flag_Type", HEDGE_FLAG_ARBITRAGE}, "套利"},
        {{"ttservice::EHedge_Flag_Type", HEDGE_FLAG_HEDGE}, "套保"},
        {{"ttservice::EVQBrokerType", BROKER_TYPE_FUTURE}, "期货"},
        {{"ttservice::EVQBrokerType", BROKER_TYPE_STOCK}, "股票"},
        {{"ttservice::EVQBrokerType", BROKER_TYPE_CREDIT}, "信用"},
        {{"ttservice::EVQBrokerType", BROKER_TYPE_HGT}, "沪港通"},
        {{"ttservice::EVQBrokerType", BROKER_TYPE_SGT}, "深港通"},
    };
}

} // namespace ttservice
