#pragma once

#include "BasketServicesExport.h"
#include "ICalculator.h"
#include "IDataCenter.h"

#include <boost/shared_ptr.hpp>

namespace ttservice {

class CMemoryDataCenter;

// Access to the client's data services: the data centre and the calculator.
// Here they are the in-memory implementations of this library (CMemoryDataCenter,
// CMemoryCalculator); tests may put fakes of their own in their place.
class BASKET_SERVICES_EXPORT TraderCenter final
{
public:
    // The one instance in the process, created on first use; never null, never freed.
    static TraderCenter *instance();

    // The data centre: accounts, their details and positions. Never null.
    boost::shared_ptr<IDataCenter> getDataCenter() const { return m_dataCenter; }
    // The calculator: fees, margins and buyable volumes. Never null.
    boost::shared_ptr<ICalculator> getCalculator() const { return m_calculator; }

    // --- control surface (tests and the demo host) ---
    // The in-memory data centre, where accounts are added. It stays reachable here even while a
    // test has put another data centre in its place.
    boost::shared_ptr<CMemoryDataCenter> memoryDataCenter() const { return m_memoryDataCenter; }
    void setDataCenter(boost::shared_ptr<IDataCenter> dataCenter);
    void setCalculator(boost::shared_ptr<ICalculator> calculator);
    // The in-memory implementations in place, with no accounts and no recorded queries.
    void reset();

private:
    TraderCenter();

    boost::shared_ptr<CMemoryDataCenter> m_memoryDataCenter;
    boost::shared_ptr<IDataCenter> m_dataCenter;
    boost::shared_ptr<ICalculator> m_calculator;
};

} // namespace ttservice
