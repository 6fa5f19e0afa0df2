#pragma once

#include "CCodeOrderParam.h"

#include <functional>
#include <vector>

namespace TC {

// What a help dialog substitute keeps of its calls (not part of the service interface).
struct CHelpDialogRecorder
{
    std::vector<std::vector<ttservice::CCodeOrderParam>> m_triedHelps;
    int m_helpCount = 0;
    // Set by a demo host that shows a real dialog; called after each recorded call.
    std::function<void(const std::vector<ttservice::CCodeOrderParam> *orders)> m_observer;

    bool tryHelp(const std::vector<ttservice::CCodeOrderParam> &orders)
    {
        m_triedHelps.push_back(orders);
        if (m_observer)
            m_observer(&orders);
        return true;
    }
    void doHelp()
    {
        ++m_helpCount;
        if (m_observer)
            m_observer(nullptr);
    }
    void reset()
    {
        m_triedHelps.clear();
        m_helpCount = 0;
        m_observer = nullptr;
    }
};

} // namespace TC
