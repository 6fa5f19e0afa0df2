#pragma once

#include "CAccountInfo.h"
#include "TradeEnums.h"

#include <boost/shared_ptr.hpp>

#include <QString>

#include <string>

namespace ttservice {

// How an account is shown and keyed in lists (the black and white lists are kept by it): the
// broker's account id (m_accountId), or the account key when the account has no id. Empty for
// a null account.
std::string accountDisplayID(boost::shared_ptr<CAccountInfo> account);

// Whether an account with this login status can trade: the service reports 0 for an account
// that is logged in; every other status is a connection that is not (yet) usable.
bool isLoginStatusReady(EBROKER_LOGIN_STATUS status);

} // namespace ttservice

namespace TC {

// ttservice::accountDisplayID of the account, as a QString.
QString accountDisplayIDQs(const ttservice::CAccountInfo &account);
// The same for a pointer; empty for null.
QString accountDisplayIDQs(const boost::shared_ptr<ttservice::CAccountInfo> &account);

} // namespace TC
