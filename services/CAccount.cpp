#include "CAccount.h"

#include "TraderCenter.h"

#include <utility>

namespace TC {

CAccount::CAccount(const ttservice::CAccountInfo &info, QStringList groups)
    : ttservice::CAccountInfo(info), m_groups(std::move(groups))
{
}

boost::shared_ptr<ttservice::CAccountData> CAccount::getAccountData() const
{
    const boost::shared_ptr<ttservice::IDataCenter> center = ttservice::TraderCenter::instance()->getDataCenter();
    return center ? center->getAccountData(getKey()) : boost::shared_ptr<ttservice::CAccountData>();
}

bool CAccount::isInGroup(const QString &group) const
{
    return group.isEmpty() || m_groups.contains(group);
}

} // namespace TC
