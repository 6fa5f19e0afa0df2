#pragma once

#include "BasketServicesExport.h"

#include <QMap>
#include <QSet>
#include <QString>

namespace TC {

// The client's black and white list service. Each account (by its display id,
// TC::accountDisplayIDQs) has a black list of stock keys it must not buy, and for some black
// stocks a white stock to buy in their place.
// User-interface thread only.
class BASKET_SERVICES_EXPORT CBlackAndWhiteListService final
{
public:
    // The one instance in the process, created on first use; never null, never freed.
    static CBlackAndWhiteListService *instance();

    // Whether stockKey is on the black list of the account.
    bool isBlackStock(QString accountDisplayId, QString stockKey) const;
    // The stock key to buy instead of the black stock stockKey in this account; empty if the
    // stock is not black there or has no replacement.
    QString getWhiteStock(const QString &accountDisplayId, const QString &stockKey) const;

    // --- control surface (tests and the demo host) ---
    void addBlackStock(const QString &accountDisplayId, const QString &stockKey);
    void removeBlackStock(const QString &accountDisplayId, const QString &stockKey);
    // Puts the black stock on the list too, if it is not there yet.
    void setWhiteStock(const QString &accountDisplayId, const QString &blackStockKey, const QString &whiteStockKey);
    // Empty lists for every account.
    void reset();

private:
    CBlackAndWhiteListService() = default;

    QMap<QString, QSet<QString>> m_black;
    QMap<QString, QMap<QString, QString>> m_white;
};

} // namespace TC
