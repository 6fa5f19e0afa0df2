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
    // The baskets the user saved (baskets-role-N.json in the same folder).
    static CDemoSavedState userBaskets(int role);

    QString filePath() const { return m_filePath; }
    // The text saved last; empty when there is none or it cannot be read. A file that holds no
    // text of this store's kind (damaged, cut short, too large) is renamed aside, to the name that
    // keptAsidePath() then answers, so that the text saved on exit does not write over it.
    QString load() const;
    // Replaces the saved text whole or not at all; false when it could not be written, or when
    // the last load() found an unreadable file it could not move aside.
    bool save(const QString &text) const;
    // Where the last load() put an unreadable file; empty when it put none aside.
    QString keptAsidePath() const { return m_keptAside; }

private:
    CDemoSavedState(int role, const char *fileNamePattern, bool (*isKnownText)(const QString &));

    QString m_filePath;
    // Whether a file's text is of the kind this store writes; any other is kept aside.
    bool (*m_isKnownText)(const QString &) = nullptr;
    mutable QString m_keptAside;
    mutable bool m_unreadableInPlace = false;
};
