#include "CDemoSavedState.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace {

// A panel's text is a few kilobytes; a file far larger is no text the demo wrote.
constexpr qint64 kMaxSavedSize = 4 * 1024 * 1024;

} // namespace

CDemoSavedState::CDemoSavedState(int role)
    : CDemoSavedState(role, "/panel-role-%1.txt")
{
}

CDemoSavedState::CDemoSavedState(int role, const char *fileNamePattern)
    : m_filePath(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)
                 + QString::fromLatin1(fileNamePattern).arg(role))
{
}

CDemoSavedState CDemoSavedState::patchSettings(int role)
{
    return CDemoSavedState(role, "/patch-settings-role-%1.json");
}

QString CDemoSavedState::load() const
{
    QFile file(m_filePath);
    if (file.size() > kMaxSavedSize || !file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}

bool CDemoSavedState::save(const QString &text) const
{
    if (!QDir().mkpath(QFileInfo(m_filePath).absolutePath()))
        return false;
    QSaveFile file(m_filePath);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    const QByteArray bytes = text.toUtf8();
    return file.write(bytes) == bytes.size() && file.commit();
}
