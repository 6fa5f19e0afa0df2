#include "CBlackAndWhiteListService.h"

namespace TC {

CBlackAndWhiteListService *CBlackAndWhiteListService::instance()
{
    static CBlackAndWhiteListService service;
    return &service;
}

bool CBlackAndWhiteListService::isBlackStock(QString accountDisplayId, QString stockKey) const
{
    return m_black.value(accountDisplayId).contains(stockKey);
}

QString CBlackAndWhiteListService::getWhiteStock(const QString &accountDisplayId, const QString &stockKey) const
{
    if (!isBlackStock(accountDisplayId, stockKey))
        return QString();
    return m_white.value(accountDisplayId).value(stockKey);
}

void CBlackAndWhiteListService::addBlackStock(const QString &accountDisplayId, const QString &stockKey)
{
    m_black[accountDisplayId].insert(stockKey);
}

void CBlackAndWhiteListService::removeBlackStock(const QString &accountDisplayId, const QString &stockKey)
{
    m_black[accountDisplayId].remove(stockKey);
    m_white[accountDisplayId].remove(stockKey);
}

void CBlackAndWhiteListService::setWhiteStock(const QString &accountDisplayId, const QString &blackStockKey,
                                              const QString &whiteStockKey)
{
    addBlackStock(accountDisplayId, blackStockKey);
    m_white[accountDisplayId][blackStockKey] = whiteStockKey;
}

void CBlackAndWhiteListService::reset()
{
    m_black.clear();
    m_white.clear();
}

} // namespace TC
