#pragma once

namespace ttservice {

// Parameters of an automatic price: ticks added to the chosen price.
class CAutoPriceParam
{
public:
    int m_tickOffset = 0;
};

} // namespace ttservice
