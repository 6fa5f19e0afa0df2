#include "TraderCenter.h"

#include "CMemoryCalculator.h"
#include "CMemoryDataCenter.h"

#include <utility>

namespace ttservice {

TraderCenter::TraderCenter()
    : m_memoryDataCenter(new CMemoryDataCenter)
    , m_dataCenter(m_memoryDataCenter)
    , m_calculator(new CMemoryCalculator)
{
}

TraderCenter *TraderCenter::instance()
{
    static TraderCenter center;
    return &center;
}

void TraderCenter::setDataCenter(boost::shared_ptr<IDataCenter> dataCenter)
{
    m_dataCenter = dataCenter ? std::move(dataCenter) : m_memoryDataCenter;
}

void TraderCenter::setCalculator(boost::shared_ptr<ICalculator> calculator)
{
    m_calculator = calculator ? std::move(calculator) : boost::shared_ptr<ICalculator>(new CMemoryCalculator);
}

void TraderCenter::reset()
{
    m_memoryDataCenter->reset();
    m_dataCenter = m_memoryDataCenter;
    m_calculator.reset(new CMemoryCalculator);
}

} // namespace ttservice
