#include "OrderSettingText.h"

namespace TC {

QString orderSettingToString(const ttservice::COrderSetting &setting)
{
    return QString::fromStdString(setting.toBson().jsonString());
}

ttservice::COrderSetting orderSettingFromString(const QString &text)
{
    ttservice::COrderSetting setting;
    bson::BSONObj obj;
    if (ttservice::parseJson(text.toStdString(), obj))
        setting.bsonValueFromObj(obj);
    return setting;
}

} // namespace TC
