#pragma once

#include "BasketExport.h"

#include "CEventWidgetT.h"

#include <boost/shared_ptr.hpp>

#include <QSet>
#include <QString>
#include <QTreeWidget>

class QTreeWidgetItem;

namespace ttservice {
class CAccountData;
}

namespace TC {

// The accounts of the position exchange: a root "账号" with one item per account, shown by its
// display id and keyed (data role 256) by the account key. The owner follows itemClicked.
class BASKETPANEL_EXPORT CExchangePositionAccountTreeWidget final : public WK::CEventWidgetT<QTreeWidget>
{
    Q_OBJECT

public:
    static constexpr int KEY_ROLE = 256;

    explicit CExchangePositionAccountTreeWidget(QWidget *parent);
    ~CExchangePositionAccountTreeWidget() override;

    // Lists the accounts the data centre knows, in the order of the user's accounts (keys the
    // user configuration lacks follow in key order). The one selected account, or the first
    // account when none or several are selected, becomes current and is reported once through
    // itemClicked.
    void setAccounts(const QSet<QString> &accounts, const QSet<QString> &selected);
    // The data of the current account; null when nothing or the root is current.
    boost::shared_ptr<ttservice::CAccountData> getSelectAccount() const;

    QTreeWidgetItem *rootItem() const { return m_rootItem; }

private:
    QTreeWidgetItem *m_rootItem = nullptr;
};

} // namespace TC
