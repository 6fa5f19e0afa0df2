#pragma once

#include "COrderSetting.h"

#include <QString>

// The text form of an order setting, as the parameter strings of the panel keep it.
namespace TC {

// The setting's BSON form as JSON text on one line. It holds no "|", "/", "%", "=" or "*",
// the separators of the texts it is embedded in.
QString orderSettingToString(const ttservice::COrderSetting &setting);

// The setting of a text of orderSettingToString; a default setting for text that is not such a
// form, and the default of each field the text lacks.
ttservice::COrderSetting orderSettingFromString(const QString &text);

} // namespace TC
