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
    // The text saved last; empty when there is none or it cannot be read.
    QString load() const;
    // Replaces the saved text whole or not at all; false when it could not be written.
    bool save(const QString &text) const;

private:
    QString m_filePath;
};
