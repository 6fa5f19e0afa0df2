#include "CExchangePositionAccountTreeWidget.h"

#include "CAccountData.h"
#include "CUserConfig.h"
#include "IDataCenter.h"
#include "TraderCenter.h"

#include <QFrame>
#include <QHeaderView>
#include <QStringList>

namespace TC {
namespace {

boost::shared_ptr<ttservice::CAccountData> accountDataOf(const QString &key)
{
    const auto center = ttservice::TraderCenter::instance()->getDataCenter();
    return center && !key.isEmpty() ? center->getAccountData(key.toStdString()) : boost::shared_ptr<ttservice::CAccountData>();
}

// A set has no order a user could follow: the accounts stand as the account picker lists them.
QStringList inUserOrder(const QSet<QString> &accounts)
{
    QStringList ordered;
    for (const boost::shared_ptr<CAccount> &account : getUserConfig()->getAccounts()) {
        const QString key = QString::fromStdString(account->getKey());
        if (accounts.contains(key))
            ordered << key;
    }
    QStringList others;
    for (const QString &key : accounts) {
        if (!ordered.contains(key))
            others << key;
    }
    others.sort();
    return ordered + others;
}

} // namespace

CExchangePositionAccountTreeWidget::CExchangePositionAccountTreeWidget(QWidget *parent)
    : WK::CEventWidgetT<QTreeWidget>(parent)
{
    setObjectName(QStringLiteral("CExchangePositionAccountTreeWidget"));
    setFixedWidth(150);
    setColumnCount(1);
    header()->hide();
    setFrameStyle(QFrame::NoFrame);
}

CExchangePositionAccountTreeWidget::~CExchangePositionAccountTreeWidget() = default;

void CExchangePositionAccountTreeWidget::setAccounts(const QSet<QString> &accounts, const QSet<QString> &selected)
{
    clear();
    m_rootItem = new QTreeWidgetItem(this, QStringList(QStringLiteral("账号")));
    m_rootItem->setExpanded(true);

    QTreeWidgetItem *chosen = nullptr;
    for (const QString &key : inUserOrder(accounts)) {
        const auto data = accountDataOf(key);
        const auto info = data ? data->getAccountInfo() : boost::shared_ptr<ttservice::CAccountInfo>();
        if (!info)
            continue;
        const QString text = !info->m_accountId.empty() ? QString::fromStdString(info->m_accountId) : key;
        auto *item = new QTreeWidgetItem(m_rootItem, QStringList(text));
        item->setData(0, KEY_ROLE, key);
        item->setToolTip(0, QString::fromStdString(info->m_accountName));
        if (!chosen && (selected.size() != 1 || selected.contains(key)))
            chosen = item;
    }
    if (chosen) {
        setCurrentItem(chosen);
        Q_EMIT itemClicked(chosen, 0);
    }
}

boost::shared_ptr<ttservice::CAccountData> CExchangePositionAccountTreeWidget::getSelectAccount() const
{
    const QTreeWidgetItem *item = currentItem();
    return item ? accountDataOf(item->data(0, KEY_ROLE).toString()) : boost::shared_ptr<ttservice::CAccountData>();
}

} // namespace TC
