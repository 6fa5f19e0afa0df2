#include "AccountHelpers.h"

namespace ttservice {
namespace {

std::string displayId(const CAccountInfo &account)
{
    return account.m_accountId.empty() ? account.getKey() : account.m_accountId;
}

} // namespace

std::string accountDisplayID(boost::shared_ptr<CAccountInfo> account)
{
    return account ? displayId(*account) : std::string();
}

bool isLoginStatusReady(EBROKER_LOGIN_STATUS status)
{
    return status == LOGIN_STATUS_READY;
}

} // namespace ttservice

namespace TC {

QString accountDisplayIDQs(const ttservice::CAccountInfo &account)
{
    return QString::fromStdString(ttservice::displayId(account));
}

QString accountDisplayIDQs(const boost::shared_ptr<ttservice::CAccountInfo> &account)
{
    return account ? accountDisplayIDQs(*account) : QString();
}

} // namespace TC
