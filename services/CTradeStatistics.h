#pragma once

#include "BasketServicesExport.h"
#include "CCodeOrderParam.h"

#include <vector>

namespace TC {

// The client's trade statistics: before an instruction's lines are placed, a test of the
// smallest order size and of the interval between orders; false stops the placing (the
// service tells the user why).
//
// Here the answer is scripted (true unless a test says otherwise) and every call is recorded.
// User-interface thread only.
class BASKET_SERVICES_EXPORT CTradeStatistics final
{
public:
    // The one instance in the process, created on first use; never null, never freed.
    static CTradeStatistics *instance();

    // Tests the lines of an instruction against the smallest order size and the interval between
    // orders before they are placed. The panel stops the placing on false; the service tells the
    // user why. The lines may be adjusted in place.
    bool checkMinAndInterval(std::vector<ttservice::CCodeOrderParam> &orders);

    // --- control surface (tests and the demo host) ---
    void setCheckResult(bool result) { m_result = result; }
    // The order lists of the calls, in order.
    const std::vector<std::vector<ttservice::CCodeOrderParam>> &checkedOrders() const { return m_calls; }
    // Answer true, no recorded calls.
    void reset();

private:
    CTradeStatistics() = default;

    bool m_result = true;
    std::vector<std::vector<ttservice::CCodeOrderParam>> m_calls;
};

} // namespace TC
