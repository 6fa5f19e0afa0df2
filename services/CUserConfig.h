#pragma once

#include "BasketServicesExport.h"
#include "AccountHelpers.h"
#include "BasketHelpers.h"
#include "CAccount.h"
#include "CAccountDetail.h"
#include "CAccountInfo.h"
#include "CBasketSetting.h"
#include "CMsgSetting.h"
#include "CPortfolio.h"
#include "CPositionStatics.h"
#include "CProductInfo.h"
#include "ComposeModules.h"
#include "OperationHelpers.h"
#include "OrderSettingText.h"
#include "PortfolioLookup.h"
#include "TradeEnums.h"

#include <boost/shared_ptr.hpp>

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace TC {

// The client's configuration of the logged-in user: who the user is (role, name, id, rights),
// the accounts the user may trade and their groups, and what the user keeps between sessions
// (baskets, patch parameter sets, message settings, portfolios).
//
// Reached by TC::getUserConfig() or CUserManager::instance()->getUserConfig(); never null.
// This header also brings the free functions over the user configuration (OperationHelpers.h,
// AccountHelpers.h, BasketHelpers.h, OrderSettingText.h, ComposeModules.h, PortfolioLookup.h).
//
// Here everything is held in memory and set through the control surface. User-interface thread
// only; the maps handed out by reference are the configuration's own and may be changed.
class BASKET_SERVICES_EXPORT CUserConfig final
{
public:
    // The user's role number (the roles that see or receive baskets are the panel's business).
    int getRole() const { return m_role; }
    // The user's name as the log lines and messages show it.
    QString getUserName() const { return m_userName; }
    // The user id that every order line carries in m_userId.
    std::string getUserId() const { return m_userId; }
    // The number of the user's accounts, for the timing line of an account refresh.
    int getAccountCount() const { return m_accounts.size(); }
    // Whether the user works with investment portfolios.
    bool hasPortfolio() const { return m_hasPortfolio; }
    // Whether the user has the right with this number (EUserAuth).
    bool hasUserAuth(int auth) const;
    // Whether the user is a manager who only suggests orders ("建议买入" ...).
    bool isPbManager() const { return m_pbManager; }
    // The user's choice of number format (digit grouping) for amounts; 0 is plain.
    int getSegmentedFormatFlag() const { return m_segmentedFormatFlag; }

    // The account with this key, null if the user has no such account.
    boost::shared_ptr<CAccount> getAccountData(QString key) const;
    // All accounts of the user, in the order they were added.
    QVector<boost::shared_ptr<CAccount>> getAccounts() const { return m_accounts; }
    // The accounts of these broker types in the group (the empty group: all accounts), in the
    // order they were added; no types: every type.
    QVector<boost::shared_ptr<CAccount>> getGroupAccountsMultiType(QVector<ttservice::EVQBrokerType> types,
                                                                   QString group) const;
    // The product the account belongs to, null if none is known.
    boost::shared_ptr<ttservice::CProductInfo> getAccountProduct(const ttservice::CAccountInfo &account) const;
    // The smallest volume step of an instruction's order by the user's rules: as
    // ttservice::getUiMinUnit (the trade unit for a buy, 1 for a sell).
    int getMinUnit(std::string market, std::string code, bool isBuy) const;

    // Stored baskets by name.
    QMap<QString, CBasketSetting> &baskets() { return m_baskets; }
    const QMap<QString, CBasketSetting> &baskets() const { return m_baskets; }
    // Message settings by message type (EMsgTypeDef); the flags of showMsg come from them.
    QMap<int, CMsgSetting> &msgSettings() { return m_msgSettings; }
    const QMap<int, CMsgSetting> &msgSettings() const { return m_msgSettings; }
    // The flags of the message type's setting, a default CMsgSetting's for a type without one.
    CMsgSetting msgSetting(int type) const { return m_msgSettings.value(type); }
    // Patch parameter sets: name to the parameter string of the set.
    QMap<QString, QString> &patchSettings() { return m_patchSettings; }
    const QMap<QString, QString> &patchSettings() const { return m_patchSettings; }
    // The name of the default patch set, empty for none.
    QString &defaultPatchSetting() { return m_defaultPatchSetting; }
    QString defaultPatchSetting() const { return m_defaultPatchSetting; }
    // Writes the patch sets and the default's name to the user's store at once; the panel calls
    // it after every change of either. Here the text of patchSettingsToText (PatchSettingsText.h)
    // goes to the store set by setPatchSettingsStore; without one the sets live in memory only.
    void savePatchSettings() const;
    // The user's portfolios by key (PortfolioLookup.h reads them).
    QMap<QString, boost::shared_ptr<ttservice::CPortfolio>> &portfolios() { return m_portfolios; }
    const QMap<QString, boost::shared_ptr<ttservice::CPortfolio>> &portfolios() const { return m_portfolios; }

    // --- control surface (tests and the demo host) ---
    // Adds (or replaces) an account of the user with its money and positions, and makes its data
    // in the data centre. The account is logged in unless CTradeClient::setLoginStatus says
    // otherwise. Returns the account.
    boost::shared_ptr<CAccount> addAccount(const ttservice::CAccountInfo &info,
                                           const ttservice::CAccountDetail &detail = ttservice::CAccountDetail(),
                                           const std::vector<ttservice::CPositionStatics> &positions = {},
                                           const QStringList &groups = QStringList());
    // The same without money: the account's data has no detail.
    boost::shared_ptr<CAccount> addAccountWithoutDetail(const ttservice::CAccountInfo &info,
                                                        const QStringList &groups = QStringList());
    void removeAccount(const std::string &key);
    void setRole(int role) { m_role = role; }
    void setUserName(const QString &name) { m_userName = name; }
    void setUserId(const std::string &id) { m_userId = id; }
    void setHasPortfolio(bool on) { m_hasPortfolio = on; }
    void setUserAuth(int auth, bool granted);
    void setPbManager(bool on) { m_pbManager = on; }
    void setSegmentedFormatFlag(int flag) { m_segmentedFormatFlag = flag; }
    void setAccountProduct(const std::string &accountKey, const ttservice::CProductInfo &product);
    // Adds (or replaces) a portfolio under its key.
    void addPortfolio(const ttservice::CPortfolio &portfolio);
    // Where savePatchSettings writes: the demo keeps the sets in a file, tests record the texts.
    void setPatchSettingsStore(std::function<void(const QString &text)> store) { m_patchSettingsStore = std::move(store); }
    // Role 0, empty name and id, no accounts, baskets, settings, portfolios, rights or products;
    // no patch settings store.
    void reset();

private:
    friend class CUserManager;
    CUserConfig() = default;
    boost::shared_ptr<CAccount> insertAccount(const ttservice::CAccountInfo &info, const QStringList &groups);

    int m_role = 0;
    QString m_userName;
    std::string m_userId;
    bool m_hasPortfolio = false;
    bool m_pbManager = false;
    int m_segmentedFormatFlag = 0;
    QVector<int> m_userAuths;
    QVector<boost::shared_ptr<CAccount>> m_accounts;
    std::map<std::string, ttservice::CProductInfo> m_products;
    QMap<QString, CBasketSetting> m_baskets;
    QMap<int, CMsgSetting> m_msgSettings;
    QMap<QString, QString> m_patchSettings;
    QString m_defaultPatchSetting;
    std::function<void(const QString &text)> m_patchSettingsStore;
    QMap<QString, boost::shared_ptr<ttservice::CPortfolio>> m_portfolios;
};

// The configuration of the logged-in user; never null.
CUserConfig *getUserConfig();

} // namespace TC
