#pragma once

#include "CBasketSetting.h"

#include <QList>
#include <QString>

// The user's own baskets as the demo keeps them in its configuration folder: one JSON object
// {"baskets": [...]} with each basket's name, kind, index and rows. The client keeps them in
// its user configuration; the demo has only files.
class CDemoBasketsText final
{
public:
    static QString toText(const QList<TC::CBasketSetting> &baskets);
    // The baskets of a text toText wrote. False, with baskets untouched, for a text that is no
    // such object; a basket without a name, or a row without a code, is left out.
    static bool fromText(const QString &text, QList<TC::CBasketSetting> &baskets);
};
