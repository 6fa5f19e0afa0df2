#pragma once

#include "CAccountData.h"
#include "CPortfolio.h"
#include "CPositionStatics.h"

#include <boost/shared_ptr.hpp>

#include <QMap>
#include <QSet>
#include <QString>
#include <QtGlobal>

#include <string>
#include <vector>

// Lookups of the user's investment portfolios (CUserConfig::portfolios()).
namespace TC {

// The portfolio with this key, null if there is none.
boost::shared_ptr<ttservice::CPortfolio> getPortfolioByKey(const QString &key);

// The keys of the accounts of the portfolio, if it is offered on the tab word (see
// CPortfolio::servesTradeWord); empty otherwise or for an unknown key.
QSet<QString> getPortfolioAccounts(const QString &key, quint64 tradeWord);

// Key to display name of every portfolio offered on the tab word, in key order.
QMap<QString, QString> getPortfolioNameMap(quint64 tradeWord);

// The positions of the portfolio in this account, each as the account's position statics
// record (a copy); empty for an unknown portfolio or a null account.
std::vector<boost::shared_ptr<ttservice::CPositionStatics>>
getPortfolioPositionStatics(const std::string &key, boost::shared_ptr<ttservice::CAccountData> account);

} // namespace TC
