#pragma once

#include "CBaseWidget.h"

#include <QString>
#include <QStringList>

#include <ostream>
#include <vector>

// The parent of a widget under test: keeps every event that reaches it, and takes it. Each is kept
// as it came and as the text "event,id,value,text" (",data" appended when data comes along).
class EventRecorder : public WK::CBaseWidget
{
public:
    struct Seen {
        int event;
        int id;
        int value;
        QString text;
        void *data = nullptr;
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

    bool handleEvent(int event, int id, int value, QString text, void *data) override
    {
        seen.push_back({event, id, value, text, data});
        received << QStringLiteral("%1,%2,%3,%4").arg(event).arg(id).arg(value).arg(text)
                + (data ? QStringLiteral(",data") : QString());
        return true;
    }

    Events seen;
    QStringList received;
};

inline void PrintTo(const EventRecorder::Seen &s, std::ostream *os)
{
    *os << "{" << s.event << ", " << s.id << ", " << s.value << ", \"" << s.text.toStdString() << "\"}";
}
