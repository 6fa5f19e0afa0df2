#pragma once

#include "PanelEnums.h"

namespace TC {

// The two connect tabs (Shanghai and Shenzhen) share everything that sets them apart from the
// other tabs: the currency, the parities, the connect accounts and the sell-side word.
inline bool isConnectTab(quint64 word)
{
    return word == TOT_HGT || word == TOT_SGT;
}

} // namespace TC
