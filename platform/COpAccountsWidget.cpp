#include "COpAccountsWidget.h"

#include "CUserConfig.h"

#include "DoubleCompare.h"
#include "TextHelpers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QStringList>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace TC {
namespace {

enum Column { ColumnAccount, ColumnName, ColumnAvailable, ColumnWeight, ColumnCount };
constexpr int KeyRole = Qt::UserRole + 1;

QVector<ttservice::EVQBrokerType> brokerTypesOf(quint64 word)
{
    switch (word) {
    case 0x1000:
    case 0x4000:
        return {ttservice::BROKER_TYPE_FUTURE};
    case 0x2000:
        return {ttservice::BROKER_TYPE_CREDIT};
    case 0x80000:
        return {ttservice::BROKER_TYPE_HGT};
    case 0x100000:
        return {ttservice::BROKER_TYPE_SGT};
    default:
        return {ttservice::BROKER_TYPE_STOCK};
    }
}

QString keyOf(const QTreeWidgetItem *item)
{
    return item->data(ColumnAccount, KeyRole).toString();
}

} // namespace

COpAccountsWidget::COpAccountsWidget(int id, int, int, QWidget *parent)
    : WK::CBaseWidget(QStringLiteral("op_accounts_widget"), false, parent), m_id(id)
{
    createUi();
    refreshAccounts();
}

COpAccountsWidget::~COpAccountsWidget() = default;

void COpAccountsWidget::createUi()
{
    m_toolBar = new QWidget(this);
    m_allCheck = new QCheckBox(QStringLiteral("全选"), m_toolBar);
    m_customCombo = new QComboBox(m_toolBar);
    m_customCombo->hide();
    m_tree = new QTreeWidget(this);
    m_tree->setColumnCount(ColumnCount);
    m_tree->setHeaderLabels({QStringLiteral("账号"), QStringLiteral("名称"), QStringLiteral("可用资金"), QStringLiteral("权重")});
    m_tree->setRootIsDecorated(false);
    m_tree->setUniformRowHeights(true);
    m_tree->setAlternatingRowColors(true);
    m_tree->header()->setStretchLastSection(true);
    m_tree->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);

    auto *barLayout = new QHBoxLayout(m_toolBar);
    barLayout->setContentsMargins(4, 2, 4, 2);
    barLayout->addWidget(m_allCheck);
    barLayout->addStretch(1);
    barLayout->addWidget(m_customCombo);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_toolBar);
    layout->addWidget(m_tree, 1);

    connect(m_allCheck, &QCheckBox::clicked, this, [this](bool checked) {
        m_filling = true;
        for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
            QTreeWidgetItem *item = m_tree->topLevelItem(i);
            if (!item->isDisabled())
                item->setCheckState(ColumnAccount, checked ? Qt::Checked : Qt::Unchecked);
        }
        m_filling = false;
        deliverEvent(1167, m_id, 0, QString(), nullptr);
    });
    connect(m_tree, &QTreeWidget::itemChanged, this, &COpAccountsWidget::onItemChanged);
    connect(m_customCombo, QOverload<int>::of(&QComboBox::activated), this, [this](int index) {
        deliverEvent(1168, m_id, static_cast<int>(m_customCombo->itemData(index).toULongLong()), QString(), nullptr);
    });
}

void COpAccountsWidget::setTradeOpType(quint64 word)
{
    if (word == m_tradeOpType)
        return;
    m_tradeOpType = word;
    refreshAccounts();
}

void COpAccountsWidget::refreshAccounts()
{
    QSet<QString> selected = getSelectedAccounts();
    QMap<QString, QString> weights;
    QSet<QString> disabled;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *item = m_tree->topLevelItem(i);
        weights.insert(keyOf(item), item->text(ColumnWeight));
        if (item->isDisabled())
            disabled.insert(keyOf(item));
    }

    m_filling = true;
    m_tree->clear();
    const auto accounts = getUserConfig()->getGroupAccountsMultiType(brokerTypesOf(m_tradeOpType), QString());
    for (const boost::shared_ptr<CAccount> &account : accounts) {
        const QString key = QString::fromStdString(account->m_accountKey);
        auto *item = new QTreeWidgetItem(m_tree);
        item->setData(ColumnAccount, KeyRole, key);
        item->setText(ColumnAccount, accountDisplayIDQs(*account));
        item->setText(ColumnName, QString::fromStdString(account->m_accountName));
        double available = ttservice::NO_VALUE;
        if (const auto data = account->getAccountData()) {
            if (const auto detail = data->getAccountDetail())
                available = detail->m_available;
        }
        item->setText(ColumnAvailable, WK::formatDoubleNumber(available, 2, WK::NF_SEGMENTED));
        item->setTextAlignment(ColumnAvailable, Qt::AlignRight | Qt::AlignVCenter);
        item->setText(ColumnWeight, weights.value(key, QStringLiteral("1")));
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable | Qt::ItemIsEditable);
        item->setCheckState(ColumnAccount, selected.contains(key) ? Qt::Checked : Qt::Unchecked);
        item->setDisabled(disabled.contains(key));
        const auto pending = m_pendingTicks.find(key);
        if (pending != m_pendingTicks.end()) {
            applyTick(item, pending.value());
            m_pendingTicks.erase(pending);
        }
    }
    m_filling = false;
    syncAllCheck();
    adjustWidthByForce();
}

void COpAccountsWidget::loadAccountGroupSettings()
{
    refreshAccounts();
}

int COpAccountsWidget::accountCount() const
{
    return m_tree->topLevelItemCount();
}

QTreeWidgetItem *COpAccountsWidget::itemOf(const QString &key) const
{
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        if (keyOf(m_tree->topLevelItem(i)) == key)
            return m_tree->topLevelItem(i);
    }
    return nullptr;
}

void COpAccountsWidget::onItemChanged(QTreeWidgetItem *, int column)
{
    if (column != ColumnAccount)
        return;
    syncAllCheck();
    if (m_filling)
        return;
    deliverEvent(1167, m_id, 0, QString(), nullptr);
}

// The select-all box says what the list shows, whoever ticked the accounts: the user one by
// one, the box itself, or a restored panel.
void COpAccountsWidget::syncAllCheck()
{
    bool any = false;
    bool all = true;
    for (int i = 0; i < m_tree->topLevelItemCount() && all; ++i) {
        const QTreeWidgetItem *item = m_tree->topLevelItem(i);
        if (item->isDisabled())
            continue;
        any = true;
        all = item->checkState(ColumnAccount) == Qt::Checked;
    }
    m_allCheck->setChecked(any && all);
}

QSet<QString> COpAccountsWidget::getSelectedAccounts() const
{
    QSet<QString> keys;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *item = m_tree->topLevelItem(i);
        if (item->checkState(ColumnAccount) == Qt::Checked)
            keys.insert(keyOf(item));
    }
    return keys;
}

QStringList COpAccountsWidget::getDisplayedAccounts() const
{
    QStringList keys;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i)
        keys << keyOf(m_tree->topLevelItem(i));
    return keys;
}

void COpAccountsWidget::setSelectedAccount(const QString &key, bool select)
{
    if (!select)
        m_pendingTicks.remove(key);
    QTreeWidgetItem *item = itemOf(key);
    if (!item)
        return;
    m_filling = true;
    item->setCheckState(ColumnAccount, select ? Qt::Checked : Qt::Unchecked);
    m_filling = false;
}

void COpAccountsWidget::clearCheckStatus()
{
    m_pendingTicks.clear();
    m_filling = true;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i)
        m_tree->topLevelItem(i)->setCheckState(ColumnAccount, Qt::Unchecked);
    m_filling = false;
}

void COpAccountsWidget::setAllAccountEnable(bool enable)
{
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i)
        m_tree->topLevelItem(i)->setDisabled(!enable);
    m_allCheck->setEnabled(enable);
    syncAllCheck();
}

void COpAccountsWidget::setAccountEnabled(const QString &key, bool enable)
{
    if (QTreeWidgetItem *item = itemOf(key))
        item->setDisabled(!enable);
    syncAllCheck();
}

double COpAccountsWidget::getAccountWeight(const QString &key) const
{
    const QTreeWidgetItem *item = itemOf(key);
    bool ok = false;
    const double weight = item ? item->text(ColumnWeight).toDouble(&ok) : 1.0;
    return ok && weight >= 0.0 ? weight : 1.0;
}

void COpAccountsWidget::setAccountWeight(const QString &key, double weight)
{
    if (QTreeWidgetItem *item = itemOf(key)) {
        m_filling = true;
        item->setText(ColumnWeight, QString::number(weight, 'g', 10));
        m_filling = false;
    }
}

double COpAccountsWidget::getSelectAccountsAvailable() const
{
    double sum = 0.0;
    bool any = false;
    for (const QString &key : getSelectedAccounts()) {
        const boost::shared_ptr<CAccount> account = getUserConfig()->getAccountData(key);
        const auto data = account ? account->getAccountData() : nullptr;
        const auto detail = data ? data->getAccountDetail() : nullptr;
        if (detail && ttservice::hasValue(detail->m_available)) {
            sum += detail->m_available;
            any = true;
        }
    }
    return any ? sum : ttservice::NO_VALUE;
}

QString COpAccountsWidget::param() const
{
    // "key:weight" of every ticked account, joined by ","; the weight as the split reads it, so
    // that whatever was typed into the cell cannot break the list.
    QStringList parts;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *item = m_tree->topLevelItem(i);
        if (item->checkState(ColumnAccount) == Qt::Checked) {
            const QString key = keyOf(item);
            parts << key + QLatin1Char(':') + QString::number(getAccountWeight(key), 'g', 10);
        }
    }
    return parts.join(QLatin1Char(','));
}

void COpAccountsWidget::setParam(const QString &text)
{
    m_pendingTicks.clear();
    m_filling = true;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i)
        m_tree->topLevelItem(i)->setCheckState(ColumnAccount, Qt::Unchecked);
    for (const QString &part : text.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const QString key = part.section(QLatin1Char(':'), 0, 0);
        const QString weight = part.section(QLatin1Char(':'), 1);
        QTreeWidgetItem *item = itemOf(key);
        if (!item) {
            // A text saved on another tab names accounts of another kind; they are ticked when
            // the list shows them.
            if (!key.isEmpty())
                m_pendingTicks.insert(key, weight);
            continue;
        }
        applyTick(item, weight);
    }
    m_filling = false;
}

void COpAccountsWidget::applyTick(QTreeWidgetItem *item, const QString &weight)
{
    item->setCheckState(ColumnAccount, Qt::Checked);
    bool ok = false;
    const double value = weight.toDouble(&ok);
    if (ok && value >= 0.0)
        item->setText(ColumnWeight, weight);
}

void COpAccountsWidget::setShowToolBar(bool show)
{
    m_toolBar->setVisible(show);
}

void COpAccountsWidget::addCustomCombox(const QMap<quint64, QString> &names)
{
    m_customCombo->clear();
    for (auto it = names.cbegin(); it != names.cend(); ++it)
        m_customCombo->addItem(it.value(), QVariant::fromValue<qulonglong>(it.key()));
}

void COpAccountsWidget::setCustomComboxIndex(quint64 word)
{
    const int index = m_customCombo->findData(QVariant::fromValue<qulonglong>(word));
    if (index >= 0)
        m_customCombo->setCurrentIndex(index);
}

void COpAccountsWidget::setCustomComboxVisble(bool visible, bool enable)
{
    m_customCombo->setVisible(visible);
    m_customCombo->setEnabled(enable);
}

void COpAccountsWidget::adjustWidthByForce()
{
    for (int column = 0; column < ColumnCount - 1; ++column)
        m_tree->resizeColumnToContents(column);
}

} // namespace TC
