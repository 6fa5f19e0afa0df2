#pragma once

namespace TC {

// Puts every service substitute of this library back into a known empty state. Every test
// starts from it. After the call:
//   - user configuration: role 0, no name or id, no accounts, baskets, message settings, patch
//     sets, portfolios, products or rights;
//   - data centre and calculator: the in-memory ones, with no account data and no queries;
//   - order service: no recorded calls, no instructions, every account logged in, scripted
//     answers true, no handlers or observers;
//   - quotes: none, nothing suspended, no replay on request; live subscriptions are cut off;
//   - instruments, black and white lists, instrument types and kinds: none;
//   - hedge, messages, trade statistics, algorithm rights, parameter helper, help dialogs:
//     nothing recorded, scripted answers true;
//   - module switches: all off; logging: enabled, file level 0; enumeration names: built-in;
//   - clocks: CTimeService frozen at CTimeService::DEFAULT_TIME, utils::clockMSec frozen at 0.
void resetAllSubstitutes();

} // namespace TC
