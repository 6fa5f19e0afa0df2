#pragma once

#include <QString>

// The text form in which the user's store keeps the patch parameter sets.
namespace TC {

class CUserConfig;

// The sets and the default's name as one JSON object: {"default": name, "sets": {name: text}}.
QString patchSettingsToText(const CUserConfig &config);

// Replaces the configuration's sets and default by those of a text of patchSettingsToText.
// Text that is no such object leaves no sets and no default, and answers false; a set whose
// text is not a string is dropped, and a default that names no set is no default.
bool patchSettingsFromText(const QString &text, CUserConfig &config);

} // namespace TC
