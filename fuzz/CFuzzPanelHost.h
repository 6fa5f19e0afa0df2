#pragma once

#include "CBasketOperationPanel.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <memory>

// The process every fuzz target runs in: an offscreen application and the demo's sample client
// (a manager with stock, credit, futures and connect accounts, stored baskets, quotes), so that
// each input meets a panel as a trader has it, not an empty one.
class CFuzzPanelHost final
{
public:
    // Made on the first call; lives until the process ends.
    static CFuzzPanelHost &instance();

    // A panel as the client restores it for a trader: the default text, the first stock account
    // ticked and the index basket chosen and sized. Message boxes and recorded service calls of
    // earlier inputs are dropped first, so memory stays flat over a long run.
    std::unique_ptr<TC::CBasketOperationPanel> newPanel(bool chooseBasket = true);
    // A second panel on the same client, as the client creates it before restoring its text.
    static std::unique_ptr<TC::CBasketOperationPanel> freshPanel();

    // Lets queued events (quotes, deferred recalculations) run.
    static void settle();
    // The order button, as the user presses it.
    static void pressOrderButton(TC::CBasketOperationPanel &panel);
    // The input as the text a client hands over: bytes read as UTF-8, damaged sequences included.
    static QString text(const uint8_t *data, size_t size);

    // Stops the process when a property of the panel does not hold, with the reason on stderr,
    // so that the fuzzer keeps the input.
    [[noreturn]] static void fail(const char *what, const QString &first, const QString &second);

private:
    CFuzzPanelHost();
};
