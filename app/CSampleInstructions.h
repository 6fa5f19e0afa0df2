#pragma once

#include "sSplitCmdInfo.h"

#include <QString>
#include <QVector>

#include <string>

class CSampleData;

// Instructions a manager has sent to the demo's trader, waiting in the trading service: a plain
// buy, a one-key buy and sell, a credit buy, the trader's part of a split instruction and a
// hedged buy. Volumes and states are fixed, so that every run shows the same work to do.
class CSampleInstructions final
{
public:
    struct Entry
    {
        std::string key;
        QString title;       // what the list of waiting instructions shows
        bool split = false;  // given to the panel as the part of a split instruction
        TC::sSplitCmdInfo info;
    };

    // Builds the instructions for the current user of the user configuration (the last holder)
    // and adds them to the trading service. Call after the accounts are installed.
    static QVector<Entry> install(const CSampleData &data);
};
