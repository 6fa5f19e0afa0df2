#pragma once

// Internal to the route library (QuickFIX headers build as C++14 only).

#include <string>

namespace FIX {
class Session;
class SessionSettings;
} // namespace FIX

namespace TC {

// Sessions whose settings name no DataDictionary file run without one (UseDataDictionary=N): the
// Debian package ships none. Call before the sessions are made.
void ownDictionary(FIX::SessionSettings &settings);

// Lets such a session read the repeating groups of the messages the route and the simulated
// exchange trade (the orders of a NewOrderList, their strategy parameters, the orders of a
// ListStatus); nothing else is validated. A session with a dictionary file keeps it.
void useBasketDictionary(const FIX::SessionSettings &settings, FIX::Session *session);

// FIX 4.4 exchange code (207) of a market as the client names it; unknown markets pass as they are.
std::string exchangeOfMarket(const std::string &market);

} // namespace TC
