#include "CTrdAlgoBaseTable.h"

#include "DataHelper.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>

#include <iterator>

namespace TC {

const CTrdAlgoBaseTable::Item CTrdAlgoBaseTable::kItems[5] = {
    {ItemOrderInterval, "下单间隔(秒)", "interval", 30, 3600},
    {ItemCancelInterval, "撤单间隔(秒)", "cancel", 60, 3600},
    {ItemParticipation, "参与率上限(%)", "pov", 20, 100},
    {ItemMoneyLimit, "资金上限(元)", "money", 0, 1e12},
    {ItemMoneyRate, "资金比例(%)", "moneyRate", 100, 100},
};

CTrdAlgoBaseTable::CTrdAlgoBaseTable(ttservice::EOrderType orderType, const QStringList &strategies, QWidget *parent)
    : QWidget(parent)
    , m_orderType(orderType)
    , m_strategies(strategies)
{
    setObjectName(QStringLiteral("trd_algo_table_") + paramName());
    if (!m_strategies.isEmpty()) {
        m_strategyCombo = new QComboBox(this);
        m_strategyCombo->setObjectName(QStringLiteral("algo_strategy_combo"));
    }
    m_layout = new QGridLayout(this);
    for (const Item &item : kItems) {
        m_labels.insert(item.id, new QLabel(QString::fromUtf8(item.label), this));
        auto *cell = new QDoubleSpinBox(this);
        cell->setObjectName(QString::number(item.id));
        cell->setMaximumHeight(24);
        cell->setRange(0, item.maximum);
        cell->setDecimals(item.id == ItemMoneyLimit ? 2 : 0);
        m_cells.insert(item.id, cell);
    }

    if (m_strategyCombo) {
        for (const QString &name : qAsConst(m_strategies))
            m_strategyCombo->addItem(name.isEmpty() ? QStringLiteral("默认") : name, name);
    }
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(2);
    // Two numbers a row: the block above the table is only some two hundred pixels high.
    int index = 0;
    for (const Item &item : kItems) {
        m_layout->addWidget(m_labels.value(item.id), index / 2, index % 2 * 2);
        m_layout->addWidget(m_cells.value(item.id), index / 2, index % 2 * 2 + 1);
        ++index;
    }

    if (m_strategyCombo)
        connect(m_strategyCombo, QOverload<int>::of(&QComboBox::activated), this, &CTrdAlgoBaseTable::sigChanged);
    for (QDoubleSpinBox *cell : qAsConst(m_cells))
        connect(cell, &QDoubleSpinBox::editingFinished, this, &CTrdAlgoBaseTable::sigChanged);

    clear();
}

CTrdAlgoBaseTable::~CTrdAlgoBaseTable() = default;

QString CTrdAlgoBaseTable::paramName() const
{
    return QString::fromStdString(ttservice::DataHelper::getParamStringByOrderType(m_orderType));
}

QString CTrdAlgoBaseTable::strategy() const
{
    if (!m_strategyCombo || m_strategyCombo->currentIndex() < 0)
        return QString();
    return m_strategyCombo->currentData().toString();
}

bool CTrdAlgoBaseTable::setStrategy(const QString &strategy)
{
    if (!m_strategyCombo)
        return strategy.isEmpty();
    const int index = strategy.isEmpty() ? 0 : m_strategyCombo->findData(strategy);
    if (index < 0)
        return false;
    m_strategyCombo->setCurrentIndex(index);
    return true;
}

double CTrdAlgoBaseTable::value(int item) const
{
    const QDoubleSpinBox *cell = m_cells.value(item);
    return cell ? cell->value() : 0.0;
}

void CTrdAlgoBaseTable::setValue(int item, double value)
{
    if (QDoubleSpinBox *cell = m_cells.value(item))
        cell->setValue(value);
}

void CTrdAlgoBaseTable::setItemHidden(int item, bool hidden)
{
    QDoubleSpinBox *cell = m_cells.value(item);
    if (!cell)
        return;
    if (hidden)
        m_hiddenItems.insert(item);
    else
        m_hiddenItems.remove(item);
    cell->setHidden(hidden);
    if (QLabel *label = m_labels.value(item))
        label->setHidden(hidden);
}

bool CTrdAlgoBaseTable::isItemHidden(int item) const
{
    return !m_cells.contains(item) || m_hiddenItems.contains(item);
}

QString CTrdAlgoBaseTable::uiString() const
{
    QStringList parts{strategy()};
    for (const Item &item : kItems)
        parts << QString::number(value(item.id), 'g', 15);
    return parts.join(QLatin1Char('#'));
}

void CTrdAlgoBaseTable::setUiFromString(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char('#'));
    if (parts.isEmpty())
        return;
    setStrategy(parts.at(0).trimmed());
    for (int i = 1; i < parts.size() && i <= static_cast<int>(std::size(kItems)); ++i) {
        bool ok = false;
        const double number = parts.at(i).trimmed().toDouble(&ok);
        if (ok && number >= 0)
            setValue(kItems[i - 1].id, number);
    }
}

void CTrdAlgoBaseTable::clear()
{
    setStrategy(QString());
    for (const Item &item : kItems)
        setValue(item.id, item.defaultValue);
}

std::string CTrdAlgoBaseTable::paramsText() const
{
    QStringList parts;
    if (m_strategyCombo)
        parts << QStringLiteral("strategy=") + strategy();
    for (const Item &item : kItems) {
        if (!isItemHidden(item.id))
            parts << QString::fromLatin1(item.key) + QLatin1Char('=') + QString::number(value(item.id), 'g', 15);
    }
    return parts.join(QLatin1Char(';')).toStdString();
}

} // namespace TC
