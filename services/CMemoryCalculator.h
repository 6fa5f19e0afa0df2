#pragma once

#include "BasketServicesExport.h"
#include "ICalculator.h"

namespace ttservice {

// The calculator of this library, with plain rules of its own:
//
// calcBuyVolume: floor(money / price / unit) * unit, where unit is getTradeMinUnit(market, code)
//   (at least 1); capped at volume when volume is above 0; 0 for money of 0 or less.
//   NO_VOLUME, with a text in error, when price has no value or is 0 or less.
//
// calcAvailableVolume:
//   - no account data: 0;
//   - buy-side operations (TC::isBuy) but the closes of shorts, and opening a short (3): what
//     the account's available money buys at price, by
//     the rule of calcBuyVolume. A price without a value (or 0) is replaced by the quote
//     service's last price of the instrument (else its last close); with no price at all, or
//     no account detail, the result is 0;
//   - every other operation: m_canUseVolume of the account's position statics in the
//     instrument; a futures close (6 to 9, 14, 15) reads the position of the side it closes
//     (m_direction 48 long, 49 short); 0 without a position;
//   - the result is capped at limit. entrustBs and offsetFlag are left as they are.
class BASKET_SERVICES_EXPORT CMemoryCalculator final : public ICalculator
{
public:
    long long calcBuyVolume(boost::shared_ptr<CAccountData> account, double money, const std::string &market,
                            const std::string &code, double price, std::string &error, long long volume) override;
    long long calcAvailableVolume(boost::shared_ptr<CAccountData> account, const std::string &market,
                                  const std::string &code, EOperationType operation, EHedge_Flag_Type hedgeFlag,
                                  char &entrustBs, char &offsetFlag, double price, long long limit,
                                  int reserved) override;
};

} // namespace ttservice
