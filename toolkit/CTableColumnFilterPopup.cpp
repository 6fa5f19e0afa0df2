#include "CTableColumnFilterPopup.h"

#include "TextHelpers.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace WK {

namespace {

constexpr int ValueRole = Qt::UserRole + 1;

// Numbers in their order first, then texts; the empty value last.
bool valueLess(const QString &a, const QString &b)
{
    if (a.isEmpty() != b.isEmpty())
        return b.isEmpty();
    bool aNumber = false;
    bool bNumber = false;
    const double x = unformatNumberString(a).toDouble(&aNumber);
    const double y = unformatNumberString(b).toDouble(&bNumber);
    if (aNumber != bNumber)
        return aNumber;
    if (aNumber && x != y)
        return x < y;
    return a < b;
}

} // namespace

CTableColumnFilterPopup::CTableColumnFilterPopup(int column, const QSet<QString> &values,
                                                 const QSet<QString> &accepted, QWidget *parent)
    : QFrame(parent, Qt::Popup)
    , m_column(column)
    , m_list(new QListWidget(this))
    , m_okButton(new QPushButton(QStringLiteral("确定"), this))
    , m_clearButton(new QPushButton(QStringLiteral("清除筛选"), this))
{
    setObjectName(QStringLiteral("table_column_filter_popup"));
    setFrameShape(QFrame::StyledPanel);
    setAttribute(Qt::WA_DeleteOnClose);

    auto *buttons = new QHBoxLayout;
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->addStretch(1);
    buttons->addWidget(m_clearButton);
    buttons->addWidget(m_okButton);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);

    QStringList sorted(values.cbegin(), values.cend());
    std::sort(sorted.begin(), sorted.end(), valueLess);
    for (const QString &value : qAsConst(sorted)) {
        auto *item = new QListWidgetItem(value.isEmpty() ? QStringLiteral("(空白)") : value, m_list);
        item->setData(ValueRole, value);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        item->setCheckState(accepted.isEmpty() || accepted.contains(value) ? Qt::Checked : Qt::Unchecked);
    }
    resize(200, 260);

    connect(m_okButton, &QPushButton::clicked, this, &CTableColumnFilterPopup::accept);
    connect(m_clearButton, &QPushButton::clicked, this, &CTableColumnFilterPopup::clearFilter);
    connect(m_list, &QListWidget::itemChanged, this, &CTableColumnFilterPopup::updateButtons);
    updateButtons();
}

CTableColumnFilterPopup::~CTableColumnFilterPopup() = default;

QStringList CTableColumnFilterPopup::values() const
{
    QStringList result;
    for (int i = 0; i < m_list->count(); ++i)
        result.append(m_list->item(i)->data(ValueRole).toString());
    return result;
}

QListWidgetItem *CTableColumnFilterPopup::itemOf(const QString &value) const
{
    for (int i = 0; i < m_list->count(); ++i) {
        if (m_list->item(i)->data(ValueRole).toString() == value)
            return m_list->item(i);
    }
    return nullptr;
}

bool CTableColumnFilterPopup::isValueChecked(const QString &value) const
{
    const QListWidgetItem *item = itemOf(value);
    return item && item->checkState() == Qt::Checked;
}

void CTableColumnFilterPopup::setValueChecked(const QString &value, bool checked)
{
    if (QListWidgetItem *item = itemOf(value))
        item->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
}

void CTableColumnFilterPopup::setAllChecked(bool checked)
{
    for (int i = 0; i < m_list->count(); ++i)
        m_list->item(i)->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
}

QSet<QString> CTableColumnFilterPopup::acceptedValues() const
{
    QSet<QString> accepted;
    for (int i = 0; i < m_list->count(); ++i) {
        if (m_list->item(i)->checkState() == Qt::Checked)
            accepted.insert(m_list->item(i)->data(ValueRole).toString());
    }
    if (accepted.size() == m_list->count())
        accepted.clear();
    return accepted;
}

void CTableColumnFilterPopup::accept()
{
    bool anyChecked = false;
    for (int i = 0; i < m_list->count() && !anyChecked; ++i)
        anyChecked = m_list->item(i)->checkState() == Qt::Checked;
    if (!anyChecked && m_list->count() > 0)
        return;
    Q_EMIT sigAccepted(m_column, acceptedValues());
    close();
}

void CTableColumnFilterPopup::clearFilter()
{
    Q_EMIT sigAccepted(m_column, QSet<QString>());
    close();
}

void CTableColumnFilterPopup::updateButtons()
{
    bool anyChecked = m_list->count() == 0;
    for (int i = 0; i < m_list->count() && !anyChecked; ++i)
        anyChecked = m_list->item(i)->checkState() == Qt::Checked;
    m_okButton->setEnabled(anyChecked);
}

} // namespace WK
