#pragma once

#include "BasketServicesExport.h"
#include "CAccountData.h"
#include "TradeEnums.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace ttservice {

// The client's trading calculator: volumes an account can trade. Reached through
// TraderCenter::instance()->getCalculator().
class BASKET_SERVICES_EXPORT ICalculator
{
public:
    // The mark of a volume that could not be worked out.
    static constexpr long long NO_VOLUME = 0x7fffffffffffffffLL;

    virtual ~ICalculator() = default;

    // The volume of code that money buys at price for this account, in whole trade units.
    // volume, when above 0, is the volume wanted and caps the result. NO_VOLUME, with a text in
    // error, when it cannot be worked out (no price, a price of 0, no account data).
    virtual long long calcBuyVolume(boost::shared_ptr<CAccountData> account, double money, const std::string &market,
                                    const std::string &code, double price, std::string &error,
                                    long long volume) = 0;

    // The volume of code that this account can trade now with this operation: what a buy can pay
    // for, or what a sell or a close can deliver. entrustBs and offsetFlag are the client's
    // side and offset characters ('0' = 48 for none), read and possibly rewritten. price is the
    // line's price (NO_VALUE when it has none), limit an upper bound of the result
    // (NO_VOLUME for none), reserved is passed on (0). Returns 0 when nothing can be traded
    // and NO_VOLUME when it cannot be worked out.
    virtual long long calcAvailableVolume(boost::shared_ptr<CAccountData> account, const std::string &market,
                                          const std::string &code, EOperationType operation,
                                          EHedge_Flag_Type hedgeFlag, char &entrustBs, char &offsetFlag,
                                          double price, long long limit, int reserved) = 0;
};

} // namespace ttservice
