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
    : m_filePath(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)
                 + QStringLiteral("/panel-role-%1.txt").arg(role))
{
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
