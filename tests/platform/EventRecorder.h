#pragma once

#include "CBaseWidget.h"

#include <QString>

#include <vector>

// The parent of a widget under test: keeps every event that reaches it, and takes it.
class EventRecorder : public WK::CBaseWidget
{
public:
    struct Seen {
        int event;
        int id;
        int value;
        QString text;
    };

    EventRecorder()
        : WK::CBaseWidget(QStringLiteral("event_recorder"), false, nullptr)
    {
    }

    bool handleEvent(int event, int id, int value, QString text, void *) override
    {
        seen.push_back({event, id, value, text});
        return true;
    }

    std::vector<Seen> seen;
};
