#pragma once

#include <QString>

// Where the demo host keeps the panel's text between two runs, as the client keeps it in its
// configuration: one file per user role in the user's configuration folder
// (QStandardPaths::AppConfigLocation, ~/.config/basket-demo on Linux).
class CDemoSavedState final
{
public:
    explicit CDemoSavedState(int role);
    // The user's patch parameter sets, kept apart from the panel's text: they belong to the
    // user's configuration, not to the panel (patch-settings-role-N.json in the same folder).
    static CDemoSavedState patchSettings(int role);

    QString filePath() const { return m_filePath; }
    // The text saved last; empty when there is none or it cannot be read.
    QString load() const;
    // Replaces the saved text whole or not at all; false when it could not be written.
    bool save(const QString &text) const;

private:
    CDemoSavedState(int role, const char *fileNamePattern);

    QString m_filePath;
};
