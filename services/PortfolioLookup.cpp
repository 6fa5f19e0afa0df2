#include "PortfolioLookup.h"

#include "CUserConfig.h"

namespace TC {

boost::shared_ptr<ttservice::CPortfolio> getPortfolioByKey(const QString &key)
{
    return getUserConfig()->portfolios().value(key);
}

QSet<QString> getPortfolioAccounts(const QString &key, quint64 tradeWord)
{
    QSet<QString> accounts;
    const boost::shared_ptr<ttservice::CPortfolio> portfolio = getPortfolioByKey(key);
    if (!portfolio || !portfolio->servesTradeWord(tradeWord))
        return accounts;
    for (const std::string &accountKey : portfolio->m_accountKeys)
        accounts.insert(QString::fromStdString(accountKey));
    return accounts;
}

QMap<QString, QString> getPortfolioNameMap(quint64 tradeWord)
{
    QMap<QString, QString> names;
    const QMap<QString, boost::shared_ptr<ttservice::CPortfolio>> &portfolios = getUserConfig()->portfolios();
    for (auto it = portfolios.constBegin(); it != portfolios.constEnd(); ++it) {
        if (it.value() && it.value()->servesTradeWord(tradeWord))
            names.insert(it.key(), QString::fromStdString(it.value()->m_portfolioName));
    }
    return names;
}

std::vector<boost::shared_ptr<ttservice::CPositionStatics>>
getPortfolioPositionStatics(const std::string &key, boost::shared_ptr<ttservice::CAccountData> account)
{
    std::vector<boost::shared_ptr<ttservice::CPositionStatics>> result;
    const boost::shared_ptr<ttservice::CPortfolio> portfolio = getPortfolioByKey(QString::fromStdString(key));
    const boost::shared_ptr<ttservice::CAccountInfo> info = account ? account->getAccountInfo() : nullptr;
    if (!portfolio || !info)
        return result;
    const auto it = portfolio->m_positions.find(info->getKey());
    if (it == portfolio->m_positions.end())
        return result;
    for (const ttservice::CPositionStatics &position : it->second)
        result.push_back(boost::shared_ptr<ttservice::CPositionStatics>(new ttservice::CPositionStatics(position)));
    return result;
}

} // namespace TC
