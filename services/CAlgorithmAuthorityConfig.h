#pragma once

#include "BasketServicesExport.h"
#include "CCodeOrderParam.h"

#include <string>
#include <vector>

namespace TC {

// The client's algorithm rights: whether the user may place these lines with these algorithm
// strategies (the buy side's and the sell side's; the second is empty for a one-sided list).
// false stops the placing; the service tells the user why.
//
// Here the answer is scripted (true unless a test says otherwise) and every call is recorded.
// A plain singleton reached as CAlgorithmAuthorityConfig::instance().bCheckAuthority(...).
// User-interface thread only.
class BASKET_SERVICES_EXPORT CAlgorithmAuthorityConfig final
{
public:
    struct CCheckCall
    {
        std::vector<ttservice::CCodeOrderParam> m_orders;
        std::string m_buyStrategy;
        std::string m_sellStrategy;
    };

    // The one instance in the process, created on first use; never freed.
    static CAlgorithmAuthorityConfig &instance();

    // Whether the user may place these lines with these strategies: buyStrategy for the buy
    // lines, sellStrategy for the sell lines (empty for a one-sided list). The panel asks before
    // placing an algorithm order and stops on false; the service tells the user why.
    bool bCheckAuthority(const std::vector<ttservice::CCodeOrderParam> &orders, const std::string &buyStrategy,
                         const std::string &sellStrategy);

    // --- control surface (tests and the demo host) ---
    void setAuthorityResult(bool result) { m_result = result; }
    const std::vector<CCheckCall> &checks() const { return m_calls; }
    // Answer true, no recorded calls.
    void reset();

private:
    CAlgorithmAuthorityConfig() = default;

    bool m_result = true;
    std::vector<CCheckCall> m_calls;
};

} // namespace TC
