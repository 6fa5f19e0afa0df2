#pragma once

#include "CCodeOrderParam.h"

#include <functional>
#include <vector>

namespace TC {

// The behaviour shared by the help dialog substitutes: nothing is shown, every call is recorded,
// and tryHelp answers true (go on placing). A demo host may show a dialog of its own through the
// observer. Each dialog class derives from this with itself as Dialog, so that each keeps its
// own record. User-interface thread only.
template <typename Dialog>
class CHelpDialogRecorder
{
public:
    using Observer = std::function<void(const std::vector<ttservice::CCodeOrderParam> *)>;

    // Shows the help for these lines if the user wants it; true lets the placing go on.
    static bool tryHelp(const std::vector<ttservice::CCodeOrderParam> &orders)
    {
        state().m_triedHelps.push_back(orders);
        if (state().m_observer)
            state().m_observer(&orders);
        return true;
    }
    static void doHelp()
    {
        ++state().m_helpCount;
        if (state().m_observer)
            state().m_observer(nullptr);
    }

    // --- control surface (tests and the demo host) ---
    // The line lists of the tryHelp calls, in order.
    static const std::vector<std::vector<ttservice::CCodeOrderParam>> &triedHelps() { return state().m_triedHelps; }
    static int helpCount() { return state().m_helpCount; }
    // Called after each call, with the lines of a tryHelp or null for a doHelp.
    static void setObserver(Observer observer) { state().m_observer = std::move(observer); }
    // No recorded calls, no observer.
    static void reset() { state() = State(); }

private:
    struct State
    {
        std::vector<std::vector<ttservice::CCodeOrderParam>> m_triedHelps;
        int m_helpCount = 0;
        Observer m_observer;
    };

    static State &state()
    {
        static State s;
        return s;
    }
};

} // namespace TC
