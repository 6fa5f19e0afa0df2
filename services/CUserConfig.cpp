#include "CUserConfig.h"

#include "CMemoryDataCenter.h"
#include "PatchSettingsText.h"
#include "TradeUnits.h"
#include "TraderCenter.h"

#include <utility>

namespace TC {

bool CUserConfig::hasUserAuth(int auth) const
{
    return m_userAuths.contains(auth);
}

boost::shared_ptr<CAccount> CUserConfig::getAccountData(QString key) const
{
    const std::string wanted = key.toStdString();
    for (const boost::shared_ptr<CAccount> &account : m_accounts) {
        if (account->getKey() == wanted)
            return account;
    }
    return {};
}

QVector<boost::shared_ptr<CAccount>> CUserConfig::getGroupAccountsMultiType(QVector<ttservice::EVQBrokerType> types,
                                                                           QString group) const
{
    QVector<boost::shared_ptr<CAccount>> result;
    for (const boost::shared_ptr<CAccount> &account : m_accounts) {
        if (account->isInGroup(group) && (types.isEmpty() || types.contains(account->m_brokerType)))
            result.append(account);
    }
    return result;
}

boost::shared_ptr<ttservice::CProductInfo> CUserConfig::getAccountProduct(const ttservice::CAccountInfo &account) const
{
    const auto it = m_products.find(account.getKey());
    return it == m_products.end() ? boost::shared_ptr<ttservice::CProductInfo>()
                                  : boost::shared_ptr<ttservice::CProductInfo>(new ttservice::CProductInfo(it->second));
}

int CUserConfig::getMinUnit(std::string market, std::string code, bool isBuy) const
{
    return ttservice::getUiMinUnit(std::move(market), std::move(code), isBuy);
}

boost::shared_ptr<CAccount> CUserConfig::insertAccount(const ttservice::CAccountInfo &info, const QStringList &groups)
{
    removeAccount(info.getKey());
    boost::shared_ptr<CAccount> account(new CAccount(info, groups));
    m_accounts.append(account);
    return account;
}

boost::shared_ptr<CAccount> CUserConfig::addAccount(const ttservice::CAccountInfo &info,
                                                    const ttservice::CAccountDetail &detail,
                                                    const std::vector<ttservice::CPositionStatics> &positions,
                                                    const QStringList &groups)
{
    boost::shared_ptr<CAccount> account = insertAccount(info, groups);
    // The data centre's record of the account is the configuration's own object, so that both
    // services answer with the same account.
    const boost::shared_ptr<ttservice::CAccountData> data =
        ttservice::TraderCenter::instance()->memoryDataCenter()->addAccount(account);
    data->setAccountDetail(detail);
    data->setPositionStatics(positions);
    return account;
}

boost::shared_ptr<CAccount> CUserConfig::addAccountWithoutDetail(const ttservice::CAccountInfo &info,
                                                                 const QStringList &groups)
{
    boost::shared_ptr<CAccount> account = insertAccount(info, groups);
    ttservice::TraderCenter::instance()->memoryDataCenter()->addAccount(account);
    return account;
}

void CUserConfig::removeAccount(const std::string &key)
{
    for (int i = m_accounts.size() - 1; i >= 0; --i) {
        if (m_accounts.at(i)->getKey() == key)
            m_accounts.remove(i);
    }
    ttservice::TraderCenter::instance()->memoryDataCenter()->removeAccount(key);
}

void CUserConfig::setUserAuth(int auth, bool granted)
{
    m_userAuths.removeAll(auth);
    if (granted)
        m_userAuths.append(auth);
}

void CUserConfig::setAccountProduct(const std::string &accountKey, const ttservice::CProductInfo &product)
{
    m_products[accountKey] = product;
}

void CUserConfig::addPortfolio(const ttservice::CPortfolio &portfolio)
{
    m_portfolios[QString::fromStdString(portfolio.m_portfolioKey)] =
        boost::shared_ptr<ttservice::CPortfolio>(new ttservice::CPortfolio(portfolio));
}

void CUserConfig::savePatchSettings() const
{
    if (m_patchSettingsStore)
        m_patchSettingsStore(patchSettingsToText(*this));
}

void CUserConfig::reset()
{
    m_role = 0;
    m_userName.clear();
    m_userId.clear();
    m_hasPortfolio = false;
    m_pbManager = false;
    m_segmentedFormatFlag = 0;
    m_userAuths.clear();
    for (const boost::shared_ptr<CAccount> &account : m_accounts)
        ttservice::TraderCenter::instance()->memoryDataCenter()->removeAccount(account->getKey());
    m_accounts.clear();
    m_products.clear();
    m_baskets.clear();
    m_msgSettings.clear();
    m_patchSettings.clear();
    m_defaultPatchSetting.clear();
    m_patchSettingsStore = nullptr;
    m_portfolios.clear();
}

} // namespace TC
