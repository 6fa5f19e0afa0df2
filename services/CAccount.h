#pragma once

#include "BasketServicesExport.h"
#include "CAccountData.h"
#include "CAccountInfo.h"

#include <boost/shared_ptr.hpp>

#include <QString>
#include <QStringList>

namespace TC {

// An account of the user as the user configuration lists it: the account's record (it is a
// CAccountInfo, so a pointer to it serves wherever an account record is wanted) with the
// account groups the user sorted it into, and access to its data in the data centre.
class BASKET_SERVICES_EXPORT CAccount final : public ttservice::CAccountInfo
{
public:
    CAccount() = default;
    explicit CAccount(const ttservice::CAccountInfo &info, QStringList groups = QStringList());

    // The user's account groups this account is in.
    QStringList m_groups;

    // The account's data in the data centre (TraderCenter), null if the data centre does not
    // know the account.
    boost::shared_ptr<ttservice::CAccountData> getAccountData() const;
    // Whether the account is in the group; every account is in the empty group.
    bool isInGroup(const QString &group) const;
};

} // namespace TC
