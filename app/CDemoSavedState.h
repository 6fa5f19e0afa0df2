#pragma once

#include <QString>

// Where the demo host keeps the panel's text between two runs, as the client keeps it in its
// configuration: one file per user role in the user's configuration folder
// (QStandardPaths::AppConfigLocation, ~/.config/basket-demo on Linux).
class CDemoSavedState final
{
public:
    explicit CDemoSavedState(int role);

    QString filePath() const { return m_filePath; }
    // The text saved last; empty when there is none or it cannot be read. A file that holds no
    // text the panel wrote (damaged, cut short, too large) is renamed aside, to the name that
    // keptAsidePath() then answers, so that the text saved on exit does not write over it.
    QString load() const;
    // Replaces the saved text whole or not at all; false when it could not be written, or when
    // the last load() found an unreadable file it could not move aside.
    bool save(const QString &text) const;
    // Where the last load() put an unreadable file; empty when it put none aside.
    QString keptAsidePath() const { return m_keptAside; }

private:
    QString m_filePath;
    mutable QString m_keptAside;
    mutable bool m_unreadableInPlace = false;
};
