#include "CDemoSavedState.h"

#include "CDemoBasketsText.h"

#include "Bson.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTextCodec>

namespace {

// A panel's text is a few kilobytes; a file far larger is no text the demo wrote.
constexpr qint64 kMaxSavedSize = 4 * 1024 * 1024;

// Whether the bytes are UTF-8 text without NUL characters; the text is left in text.
bool isUtf8Text(const QByteArray &bytes, QString &text)
{
    QTextCodec::ConverterState state;
    text = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && !text.contains(QChar(0));
}

// A text the panel wrote: its form piece (before the first "/") is the form's JSON object.
// Nothing is a text too (a panel without content writes none).
bool isPanelText(const QString &text)
{
    if (text.isEmpty())
        return true;
    bson::BSONObj form;
    return ttservice::parseJson(text.section(QLatin1Char('/'), 0, 0).toStdString(), form) && form.hasField("BS");
}

// A text of the patch sets: one JSON object that holds the sets.
bool isPatchSettingsText(const QString &text)
{
    if (text.isEmpty())
        return true;
    bson::BSONObj sets;
    return ttservice::parseJson(text.toStdString(), sets) && sets.hasField("sets");
}

// A text of the user's baskets.
bool isBasketsText(const QString &text)
{
    QList<TC::CBasketSetting> baskets;
    return text.isEmpty() || CDemoBasketsText::fromText(text, baskets);
}

} // namespace

CDemoSavedState::CDemoSavedState(int role)
    : CDemoSavedState(role, "/panel-role-%1.txt", isPanelText)
{
}

CDemoSavedState::CDemoSavedState(int role, const char *fileNamePattern, bool (*isKnownText)(const QString &))
    : m_filePath(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)
                 + QString::fromLatin1(fileNamePattern).arg(role))
    , m_isKnownText(isKnownText)
{
}

CDemoSavedState CDemoSavedState::patchSettings(int role)
{
    return CDemoSavedState(role, "/patch-settings-role-%1.json", isPatchSettingsText);
}

CDemoSavedState CDemoSavedState::userBaskets(int role)
{
    return CDemoSavedState(role, "/baskets-role-%1.json", isBasketsText);
}

QString CDemoSavedState::load() const
{
    m_keptAside.clear();
    m_unreadableInPlace = false;
    QFile file(m_filePath);
    if (!file.exists())
        return QString();
    QString text;
    if (file.size() <= kMaxSavedSize && file.open(QIODevice::ReadOnly) && isUtf8Text(file.readAll(), text)
        && m_isKnownText(text))
        return text;
    file.close();
    // Kept for whoever wants to look at it or put it back; the panel starts from its defaults.
    const QString aside = m_filePath + QStringLiteral(".unreadable-")
        + QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss-zzz"));
    if (QFile::rename(m_filePath, aside))
        m_keptAside = aside;
    else
        m_unreadableInPlace = true;
    return QString();
}

bool CDemoSavedState::save(const QString &text) const
{
    if (m_unreadableInPlace)
        return false;
    if (!QDir().mkpath(QFileInfo(m_filePath).absolutePath()))
        return false;
    QSaveFile file(m_filePath);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    const QByteArray bytes = text.toUtf8();
    return file.write(bytes) == bytes.size() && file.commit();
}
