#pragma once

#include "BasketServicesExport.h"

#include <string>
#include <utility>

namespace utils {

// The error record the client's services fill in when a request fails. A default record means
// success; the services set a non-zero code and a text for the user.
class BASKET_SERVICES_EXPORT TTError
{
public:
    int m_code = 0;
    std::string m_message;

    bool isError() const { return m_code != 0; }
    void set(int code, std::string message)
    {
        m_code = code;
        m_message = std::move(message);
    }
    void clear()
    {
        m_code = 0;
        m_message.clear();
    }
};

} // namespace utils
