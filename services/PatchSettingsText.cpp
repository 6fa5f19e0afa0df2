#include "PatchSettingsText.h"

#include "CUserConfig.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace TC {
namespace {

const QLatin1String kDefaultKey("default");
const QLatin1String kSetsKey("sets");

} // namespace

QString patchSettingsToText(const CUserConfig &config)
{
    QJsonObject sets;
    for (auto it = config.patchSettings().cbegin(); it != config.patchSettings().cend(); ++it)
        sets.insert(it.key(), it.value());
    QJsonObject root;
    root.insert(kDefaultKey, config.defaultPatchSetting());
    root.insert(kSetsKey, sets);
    return QString::fromUtf8(QJsonDocument(root).toJson(QJsonDocument::Indented));
}

bool patchSettingsFromText(const QString &text, CUserConfig &config)
{
    config.patchSettings().clear();
    config.defaultPatchSetting().clear();
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8(), &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        return false;
    const QJsonObject root = document.object();
    const QJsonObject sets = root.value(kSetsKey).toObject();
    for (auto it = sets.constBegin(); it != sets.constEnd(); ++it) {
        if (it.value().isString())
            config.patchSettings().insert(it.key(), it.value().toString());
    }
    const QString defaultName = root.value(kDefaultKey).toString();
    if (config.patchSettings().contains(defaultName))
        config.defaultPatchSetting() = defaultName;
    return true;
}

} // namespace TC
