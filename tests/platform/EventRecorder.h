#pragma once

#include "CBaseWidget.h"

#include <QString>

#include <ostream>
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
        bool operator==(const Seen &o) const
        {
            return event == o.event && id == o.id && value == o.value && text == o.text;
        }
    };
    using Events = std::vector<Seen>;

    EventRecorder()
        : WK::CBaseWidget(QStringLiteral("event_recorder"), false, nullptr)
    {
    }

    bool handleEvent(int event, int id, int value, QString text, void *) override
    {
        seen.push_back({event, id, value, text});
        return true;
    }

    Events seen;
};

inline void PrintTo(const EventRecorder::Seen &s, std::ostream *os)
{
    *os << "{" << s.event << ", " << s.id << ", " << s.value << ", \"" << s.text.toStdString() << "\"}";
}
