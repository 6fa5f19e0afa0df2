#pragma once

#include "BasketRecordsExport.h"

#include <QString>

namespace TC {

// How the user wants messages of one kind shown; the two flags go to showMsg as they are.
class BASKET_RECORDS_EXPORT CMsgSetting
{
public:
    bool m_showPopup = true;
    bool m_playSound = false;
    QString m_sound;
    int m_duration = 0;
};

} // namespace TC
