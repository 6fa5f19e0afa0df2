#include "COrderParamBaseTable.h"

#include "CTrdAlgoBaseTable.h"

#include "CPushButton.h"

#include "CTimeService.h"
#include "DataHelper.h"

#include "StockKey.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QSpinBox>
#include <QTime>
#include <QTimeEdit>
#include <QWheelEvent>

#include <cmath>

namespace TC {
namespace {

using ttservice::hasValue;
using ttservice::NO_VALUE;

constexpr long long kBeijingOffset = 8 * 3600;
constexpr int kDaySeconds = 86400;
constexpr int kDefaultStart = 9 * 3600 + 30 * 60;
constexpr int kDefaultEnd = 15 * 3600;
constexpr int kHelpButtonId = 220;
constexpr int kRowHeight = 24;

struct NamedType
{
    int type;
    const char *name;
};

const NamedType kPriceTypes[] = {
    {0, "最新价"}, {1, "买一价"}, {2, "卖一价"}, {3, "涨停价"}, {4, "跌停价"},
    {COrderParamBaseTable::PRICE_TYPE_OPPOSITE, "对手价"}, {11, "指定价"},
    {COrderParamBaseTable::PRICE_TYPE_MARKET, "市价"},
};

const NamedType kOrderTypes[] = {
    {0, "普通委托"}, {4, "TWAP"}, {5, "VWAP"}, {14, "VWAPPLUS"}, {13, "三方算法"},
};

long long dayStart(long long now)
{
    const long long local = now + kBeijingOffset;
    long long day = local / kDaySeconds;
    if (local % kDaySeconds < 0)
        --day;
    return day * kDaySeconds - kBeijingOffset;
}

int secondsOfDay(long long time)
{
    const long long local = (time + kBeijingOffset) % kDaySeconds;
    return static_cast<int>(local < 0 ? local + kDaySeconds : local);
}

QString clockText(int seconds)
{
    return QTime(0, 0).addSecs(seconds).toString(QStringLiteral("HH:mm:ss"));
}

} // namespace

COrderParamBaseTable::COrderParamBaseTable(const QString &name, ttservice::EVQBrokerType brokerType,
                                           bool ordinaryAllowed, ttservice::EVqTraderType traderType,
                                           QWidget *parent)
    : WK::CBaseWidget(name, false, parent)
    , m_brokerType(brokerType)
    , m_ordinaryAllowed(ordinaryAllowed)
    , m_traderType(traderType)
{
    createUi();
}

COrderParamBaseTable::~COrderParamBaseTable() = default;

QString COrderParamBaseTable::priceTypeName(int priceType)
{
    for (const NamedType &item : kPriceTypes) {
        if (item.type == priceType)
            return QString::fromUtf8(item.name);
    }
    return QString();
}

QString COrderParamBaseTable::orderTypeName(int orderType)
{
    for (const NamedType &item : kOrderTypes) {
        if (item.type == orderType)
            return QString::fromUtf8(item.name);
    }
    return QString();
}

void COrderParamBaseTable::createUi()
{
    m_priceCombo = new QComboBox(this);
    m_fixedPriceCell = new QDoubleSpinBox(this);
    m_orderTypeCombo = new QComboBox(this);
    m_helpBtn = new WK::CPushButton(kHelpButtonId, QStringLiteral("?"), this);
    m_strategyRow = new QWidget(this);
    auto *strategyLayout = new QHBoxLayout(m_strategyRow);
    const bool futures = m_brokerType == ttservice::BROKER_TYPE_FUTURE;
    const QStringList outsideStrategies{QString(), QStringLiteral("TWAP"), QStringLiteral("VWAP"), QStringLiteral("SWITCH")};
    for (const NamedType &item : kOrderTypes) {
        if (item.type == 0 || (futures && item.type != 4))
            continue;
        QStringList strategies;
        if (item.type == ttservice::ORDER_TYPE_INSTRUCTION)
            strategies = outsideStrategies;
        else if (item.type == ttservice::ORDER_TYPE_VWAPPLUS)
            strategies = QStringList{QStringLiteral("VWAPPLUS"), QStringLiteral("VWAP")};
        m_algoTables.insert(item.type, new CTrdAlgoBaseTable(static_cast<ttservice::EOrderType>(item.type), strategies, this));
    }
    m_startEdit = new QTimeEdit(this);
    m_endEdit = new QTimeEdit(this);
    auto *stepBox = new QWidget(this);
    m_stepKindCombo = new QComboBox(stepBox);
    m_stepValueCell = new QDoubleSpinBox(stepBox);
    m_stepRateCell = new QDoubleSpinBox(stepBox);
    auto *validBox = new QWidget(this);
    m_validCell = new QSpinBox(validBox);
    m_keepValidCheck = new QCheckBox(QStringLiteral("保持"), validBox);
    auto *optionBox = new QWidget(this);
    m_timeOption = new QCheckBox(QStringLiteral("限时执行"), optionBox);
    m_guardOption = new QCheckBox(QStringLiteral("价格保护"), optionBox);

    m_priceCombo->setObjectName(QStringLiteral("price_type_combo"));
    m_fixedPriceCell->setObjectName(QStringLiteral("fixed_price_cell"));
    m_orderTypeCombo->setObjectName(QStringLiteral("order_type_combo"));
    m_startEdit->setObjectName(QStringLiteral("start_time_edit"));
    m_endEdit->setObjectName(QStringLiteral("end_time_edit"));
    m_stepKindCombo->setObjectName(QStringLiteral("step_kind_combo"));
    m_stepValueCell->setObjectName(QStringLiteral("step_value_cell"));
    m_stepRateCell->setObjectName(QStringLiteral("step_rate_cell"));
    m_validCell->setObjectName(QStringLiteral("valid_seconds_cell"));
    m_timeOption->setObjectName(QStringLiteral("option_0"));
    m_guardOption->setObjectName(QStringLiteral("option_1"));

    for (const NamedType &item : kPriceTypes)
        m_priceCombo->addItem(QString::fromUtf8(item.name), item.type);
    m_fixedPriceCell->setRange(0, 1e8);
    m_fixedPriceCell->setDecimals(3);
    m_helpBtn->setFixedSize(20, 20);
    m_startEdit->setDisplayFormat(QStringLiteral("HH:mm:ss"));
    m_endEdit->setDisplayFormat(QStringLiteral("HH:mm:ss"));
    m_stepKindCombo->addItem(QStringLiteral("按价格"), true);
    m_stepKindCombo->addItem(QStringLiteral("按比例"), false);
    m_stepValueCell->setRange(0, 1e6);
    m_stepValueCell->setDecimals(3);
    m_stepRateCell->setRange(0, 100);
    m_stepRateCell->setDecimals(2);
    m_stepRateCell->setSuffix(QStringLiteral("%"));
    m_validCell->setRange(0, kDaySeconds);
    m_validCell->setSuffix(QStringLiteral("秒"));

    layOutRows(strategyLayout, stepBox, validBox, optionBox);
    connectUserChanges();
    clear();
}

// One row per item, in the order a trader reads an order: price, type, strategy, time, step.
void COrderParamBaseTable::layOutRows(QHBoxLayout *strategyLayout, QWidget *stepBox, QWidget *validBox, QWidget *optionBox)
{
    m_layout = new QFormLayout(this);
    m_layout->setContentsMargins(4, 2, 4, 2);
    m_layout->setSpacing(2);
    addRow(ItemPriceType, QStringLiteral("价格类型"), m_priceCombo);
    addRow(ItemFixedPrice, QStringLiteral("指定价格"), m_fixedPriceCell);
    auto *orderBox = new QWidget(this);
    auto *orderLayout = new QHBoxLayout(orderBox);
    orderLayout->setContentsMargins(0, 0, 0, 0);
    orderLayout->addWidget(m_orderTypeCombo, 1);
    orderLayout->addWidget(m_helpBtn);
    addRow(ItemOrderType, QStringLiteral("委托类型"), orderBox);
    strategyLayout->setContentsMargins(0, 0, 0, 0);
    for (CTrdAlgoBaseTable *table : qAsConst(m_algoTables)) {
        if (table->strategyCombo())
            strategyLayout->addWidget(table->strategyCombo());
    }
    addRow(ItemStrategy, QStringLiteral("算法策略"), m_strategyRow);
    for (CTrdAlgoBaseTable *table : qAsConst(m_algoTables))
        m_layout->addRow(table);
    addRow(ItemStartTime, QStringLiteral("开始时间"), m_startEdit);
    addRow(ItemEndTime, QStringLiteral("结束时间"), m_endEdit);
    auto *stepLayout = new QHBoxLayout(stepBox);
    stepLayout->setContentsMargins(0, 0, 0, 0);
    stepLayout->addWidget(m_stepKindCombo);
    stepLayout->addWidget(m_stepValueCell, 1);
    stepLayout->addWidget(m_stepRateCell, 1);
    addRow(ItemPriceStep, QStringLiteral("价格步长"), stepBox);
    auto *validLayout = new QHBoxLayout(validBox);
    validLayout->setContentsMargins(0, 0, 0, 0);
    validLayout->addWidget(m_validCell, 1);
    validLayout->addWidget(m_keepValidCheck);
    addRow(ItemValidTime, QStringLiteral("有效时间"), validBox);
    auto *optionLayout = new QHBoxLayout(optionBox);
    optionLayout->setContentsMargins(0, 0, 0, 0);
    optionLayout->addWidget(m_timeOption);
    optionLayout->addWidget(m_guardOption);
    optionLayout->addStretch(1);
    m_layout->addRow(optionBox);
}

void COrderParamBaseTable::connectUserChanges()
{
    // Only the user's own actions count as a change: activated, editingFinished and clicked
    // are not sent for the calls that load a setting.
    connect(m_priceCombo, QOverload<int>::of(&QComboBox::activated), this, [this] {
        updateVisibility();
        userChanged();
    });
    connect(m_orderTypeCombo, QOverload<int>::of(&QComboBox::activated), this, [this] {
        updateVisibility();
        userChanged();
    });
    connect(m_stepKindCombo, QOverload<int>::of(&QComboBox::activated), this, [this] {
        updateVisibility();
        userChanged();
    });
    for (QAbstractSpinBox *edit : {static_cast<QAbstractSpinBox *>(m_fixedPriceCell), static_cast<QAbstractSpinBox *>(m_startEdit),
                                   static_cast<QAbstractSpinBox *>(m_endEdit), static_cast<QAbstractSpinBox *>(m_stepValueCell),
                                   static_cast<QAbstractSpinBox *>(m_stepRateCell), static_cast<QAbstractSpinBox *>(m_validCell)})
        connect(edit, &QAbstractSpinBox::editingFinished, this, &COrderParamBaseTable::userChanged);
    for (QCheckBox *box : {m_keepValidCheck, m_timeOption, m_guardOption})
        connect(box, &QCheckBox::clicked, this, &COrderParamBaseTable::userChanged);
    for (CTrdAlgoBaseTable *table : qAsConst(m_algoTables))
        connect(table, &CTrdAlgoBaseTable::sigChanged, this, &COrderParamBaseTable::userChanged);
}

void COrderParamBaseTable::addRow(int item, const QString &label, QWidget *field)
{
    // Rows as high as the form's own cells, so that a block shows most of them without scrolling.
    field->setMaximumHeight(kRowHeight);
    m_layout->addRow(label, field);
    m_rows.insert(item, field);
}

void COrderParamBaseTable::setRowVisible(int item, bool visible)
{
    QWidget *field = m_rows.value(item);
    if (!field)
        return;
    field->setVisible(visible);
    if (QWidget *label = m_layout->labelForField(field))
        label->setVisible(visible);
}

void COrderParamBaseTable::updateVisibility()
{
    const int order = orderType();
    CTrdAlgoBaseTable *current = getTrdAlgoBaseTable(order);
    const bool hasStrategy = current && current->strategyCombo();
    for (CTrdAlgoBaseTable *table : qAsConst(m_algoTables)) {
        if (table->strategyCombo())
            table->strategyCombo()->setVisible(table == current);
        table->setVisible(table == current && !m_algTableHidden);
    }
    setRowVisible(ItemFixedPrice, priceType() == ttservice::PRICE_TYPE_FIXED);
    setRowVisible(ItemStrategy, hasStrategy);
    setRowVisible(ItemStartTime, current && !m_expandHidden);
    setRowVisible(ItemEndTime, current && !m_expandHidden);
    setRowVisible(ItemPriceStep, !m_expandHidden);
    setRowVisible(ItemValidTime, !m_expandHidden);
    const bool absolute = m_stepKindCombo->currentData().toBool();
    m_stepValueCell->setVisible(absolute);
    m_stepRateCell->setVisible(!absolute);
}

void COrderParamBaseTable::fillOrderTypes()
{
    const int current = orderType();
    m_orderTypeCombo->clear();
    for (const NamedType &item : kOrderTypes) {
        if (item.type != 0 && (!(m_flag & FLAG_ALGORITHMS) || !m_algoTables.contains(item.type)))
            continue;
        m_orderTypeCombo->addItem(QString::fromUtf8(item.name), item.type);
    }
    const int index = m_orderTypeCombo->findData(current);
    m_orderTypeCombo->setCurrentIndex(index >= 0 ? index : 0);
}

void COrderParamBaseTable::userChanged()
{
    updateCmdLog();
    deliverEvent(114, 0, 0, QString(), nullptr);
}

void COrderParamBaseTable::setFlag(int flag)
{
    m_flag = flag;
    fillOrderTypes();
    updateVisibility();
}

void COrderParamBaseTable::setOperationType(int operation)
{
    m_operationType = operation;
}

ttservice::EPriceType COrderParamBaseTable::priceType() const
{
    return static_cast<ttservice::EPriceType>(m_priceCombo->currentIndex() < 0 ? -1 : m_priceCombo->currentData().toInt());
}

bool COrderParamBaseTable::setPriceType(int priceType)
{
    const int index = m_priceCombo->findData(priceType);
    if (index < 0)
        return false;
    m_priceCombo->setCurrentIndex(index);
    updateVisibility();
    return true;
}

QVector<int> COrderParamBaseTable::offeredPriceTypes() const
{
    QVector<int> types;
    for (int i = 0; i < m_priceCombo->count(); ++i)
        types << m_priceCombo->itemData(i).toInt();
    return types;
}

double COrderParamBaseTable::fixedPrice() const
{
    return ttservice::isZero(m_fixedPriceCell->value()) ? NO_VALUE : m_fixedPriceCell->value();
}

void COrderParamBaseTable::setFixedPrice(double price)
{
    m_fixedPriceCell->setValue(hasValue(price) && price > 0 ? price : 0.0);
}

ttservice::EOrderType COrderParamBaseTable::orderType() const
{
    if (m_orderTypeCombo->currentIndex() < 0)
        return ttservice::ORDER_TYPE_NORMAL;
    return static_cast<ttservice::EOrderType>(m_orderTypeCombo->currentData().toInt());
}

bool COrderParamBaseTable::setOrderType(int orderType)
{
    const int index = m_orderTypeCombo->findData(orderType);
    if (index < 0)
        return false;
    m_orderTypeCombo->setCurrentIndex(index);
    updateVisibility();
    return true;
}

QVector<int> COrderParamBaseTable::offeredOrderTypes() const
{
    QVector<int> types;
    for (int i = 0; i < m_orderTypeCombo->count(); ++i)
        types << m_orderTypeCombo->itemData(i).toInt();
    return types;
}

bool COrderParamBaseTable::isTrdParamTable() const
{
    return ttservice::DataHelper::getPlatformTypeByOrderType(orderType()) == 3;
}

std::string COrderParamBaseTable::getAlgoStrategyType() const
{
    const CTrdAlgoBaseTable *table = getTrdAlgoBaseTable(orderType());
    return table ? table->strategy().toStdString() : std::string();
}

std::string COrderParamBaseTable::getAlgParamsStr(const ttservice::CCodeOrderParam &line) const
{
    const CTrdAlgoBaseTable *table = getTrdAlgoBaseTable(orderType());
    if (!table)
        return std::string();
    QString text = QStringLiteral("algo=%1;code=%2;start=%3;end=%4")
                       .arg(table->paramName(),
                            QString::fromStdString(utils::vqStockKey(line.m_stockInfo.m_market, line.m_stockInfo.m_stockCode)),
                            clockText(startSeconds()), clockText(endSeconds()));
    const std::string numbers = table->paramsText();
    if (!numbers.empty())
        text += QLatin1Char(';') + QString::fromStdString(numbers);
    return text.toStdString();
}

std::string COrderParamBaseTable::getAlgParamsStr(const std::vector<ttservice::CCodeOrderParam> &lines) const
{
    std::string text;
    if (!getTrdAlgoBaseTable(orderType()))
        return text;
    for (size_t i = 0; i < lines.size(); ++i) {
        if (i > 0)
            text += '@';
        text += getAlgParamsStr(lines[i]);
    }
    return text;
}

CTrdAlgoBaseTable *COrderParamBaseTable::getTrdAlgoBaseTable(int orderType) const
{
    return m_algoTables.value(orderType, nullptr);
}

void COrderParamBaseTable::resetStrategyType(int orderType, const QString &strategy)
{
    if (CTrdAlgoBaseTable *table = getTrdAlgoBaseTable(orderType))
        table->setStrategy(strategy);
}

int COrderParamBaseTable::startSeconds() const
{
    return QTime(0, 0).secsTo(m_startEdit->time());
}

int COrderParamBaseTable::endSeconds() const
{
    return QTime(0, 0).secsTo(m_endEdit->time());
}

void COrderParamBaseTable::setTimePeriod(int startSeconds, int endSeconds)
{
    m_startEdit->setTime(QTime(0, 0).addSecs(startSeconds));
    m_endEdit->setTime(QTime(0, 0).addSecs(endSeconds));
}

ttservice::COrderSetting COrderParamBaseTable::currentSetting() const
{
    ttservice::COrderSetting setting;
    setting.m_stepIsAbsolute = m_stepKindCombo->currentData().toBool();
    setting.m_stepValue = m_stepValueCell->value();
    setting.m_stepRate = m_stepRateCell->value() / 100.0;
    setting.m_keepValidTime = m_keepValidCheck->isChecked();
    setting.m_validSeconds = m_validCell->value();
    setting.m_stepFlag = m_stepFlag;
    setting.m_priceType = priceType();
    setting.m_orderType = orderType();
    setting.m_fixedPrice = m_fixedPriceCell->value();
    const long long day = dayStart(getTimeService()->currentTime());
    setting.m_startTime = static_cast<time_t>(day + startSeconds());
    setting.m_endTime = static_cast<time_t>(day + endSeconds());
    return setting;
}

void COrderParamBaseTable::saveOpParam(const QString &, ttservice::COrderSetting &setting) const
{
    setting = currentSetting();
}

void COrderParamBaseTable::loadOpParam(const ttservice::COrderSetting &setting, double precision)
{
    const bool validPrecision = std::isfinite(precision) && precision > 1e-9 && precision < 1;
    const int decimals = validPrecision ? qBound(0, static_cast<int>(std::lround(-std::log10(precision))), 6) : 3;
    m_stepValueCell->setDecimals(decimals);
    m_fixedPriceCell->setDecimals(decimals);
    const double value = std::isfinite(setting.m_stepValue) && setting.m_stepValue > 0 ? setting.m_stepValue : 0.0;
    m_stepValueCell->setValue(validPrecision ? std::round(value / precision) * precision : value);
    const double rate = std::isfinite(setting.m_stepRate) && setting.m_stepRate > 0 ? setting.m_stepRate : 0.0;
    m_stepRateCell->setValue(rate * 100.0);
    m_stepKindCombo->setCurrentIndex(setting.m_stepIsAbsolute ? 0 : 1);
    m_keepValidCheck->setChecked(setting.m_keepValidTime);
    m_validCell->setValue(setting.m_validSeconds);
    m_stepFlag = setting.m_stepFlag;
    if (setting.m_priceType != ttservice::PRICE_TYPE_NONE)
        setPriceType(setting.m_priceType);
    if (std::isfinite(setting.m_fixedPrice) && setting.m_fixedPrice >= 0)
        setFixedPrice(setting.m_fixedPrice);
    // A setting without times (a damaged or very old text) keeps the trading day's hours.
    const int start = setting.m_startTime > 0 ? secondsOfDay(setting.m_startTime) : kDefaultStart;
    const int end = setting.m_endTime > 0 ? secondsOfDay(setting.m_endTime) : kDefaultEnd;
    setTimePeriod(start, end);
    updateVisibility();
}

void COrderParamBaseTable::fillOrderParam(const QString &, int, ttservice::CCodeOrderParam &line, double price) const
{
    line.m_priceType = priceType();
    if (line.m_priceType == ttservice::PRICE_TYPE_FIXED)
        line.m_price = hasValue(price) ? price : fixedPrice();
    else if (hasValue(price))
        line.m_price = price;
    line.m_orderType = orderType();
    const CTrdAlgoBaseTable *table = getTrdAlgoBaseTable(line.m_orderType);
    line.m_orderInterval = table ? table->value(CTrdAlgoBaseTable::ItemOrderInterval) : NO_VALUE;
    line.m_cancelInterval = table ? table->value(CTrdAlgoBaseTable::ItemCancelInterval) : NO_VALUE;
    // The step alone, read straight from its cells: this runs for every line of a list.
    line.m_stepFlag = m_stepFlag;
    const double stepValue = m_stepValueCell->value();
    const bool stepped = m_guardOption->isChecked() && m_stepKindCombo->currentData().toBool()
        && stepValue > ttservice::DOUBLE_EPSILON;
    line.m_priceStep = stepped ? stepValue : NO_VALUE;
    transferTimePeriod(&line);
}

void COrderParamBaseTable::transferTimePeriod(ttservice::CCodeOrderParam *line) const
{
    if (!line || !getTrdAlgoBaseTable(orderType()) || !m_timeOption->isChecked())
        return;
    const long long day = dayStart(getTimeService()->currentTime());
    line->m_validFrom = static_cast<int>(day + startSeconds());
    line->m_validTo = static_cast<int>(day + endSeconds());
}

void COrderParamBaseTable::setEnableForCommand(int orderType, bool enable)
{
    setOrderType(orderType);
    m_orderTypeCombo->setEnabled(enable);
}

void COrderParamBaseTable::loadFromOrderParam(const ttservice::CCodeOrderParam &line, bool fillUi, const QString &algoText)
{
    if (!fillUi)
        return;
    setPriceType(line.m_priceType);
    if (line.m_priceType == ttservice::PRICE_TYPE_FIXED)
        setFixedPrice(line.m_price);
    setOrderType(line.m_orderType);
    if (hasValue(line.m_priceStep) && line.m_priceStep > 0) {
        m_stepKindCombo->setCurrentIndex(0);
        m_stepValueCell->setValue(line.m_priceStep);
    }
    m_stepFlag = line.m_stepFlag;
    if (CTrdAlgoBaseTable *table = getTrdAlgoBaseTable(line.m_orderType)) {
        if (hasValue(line.m_orderInterval))
            table->setValue(CTrdAlgoBaseTable::ItemOrderInterval, line.m_orderInterval);
        if (hasValue(line.m_cancelInterval))
            table->setValue(CTrdAlgoBaseTable::ItemCancelInterval, line.m_cancelInterval);
        if (!algoText.isEmpty())
            table->setUiFromString(algoText);
    }
    updateVisibility();
    updateCmdLog();
}

void COrderParamBaseTable::setTableUIByParams(int tableType, const QString &text)
{
    if (CTrdAlgoBaseTable *table = getTrdAlgoBaseTable(tableType))
        table->setUiFromString(text);
}

void COrderParamBaseTable::hideAlgTable()
{
    m_algTableHidden = true;
    updateVisibility();
}

void COrderParamBaseTable::hideAmountUsed(bool hide, int item)
{
    for (CTrdAlgoBaseTable *table : qAsConst(m_algoTables))
        table->setItemHidden(item, hide);
}

void COrderParamBaseTable::setExpandItemsHidden(bool hidden)
{
    m_expandHidden = hidden;
    updateVisibility();
}

void COrderParamBaseTable::saveVisibleFlag()
{
    m_savedVisibleFlag = !m_expandHidden;
}

QString COrderParamBaseTable::loadCheckParam() const
{
    QStringList ids;
    if (m_timeOption->isChecked())
        ids << QStringLiteral("0");
    if (m_guardOption->isChecked())
        ids << QStringLiteral("1");
    return ids.join(QLatin1Char('*'));
}

void COrderParamBaseTable::setCheckParam(const QString &text)
{
    bool time = false;
    bool guard = false;
    const QStringList ids = text.split(QLatin1Char('*'), Qt::SkipEmptyParts);
    for (const QString &id : ids) {
        const QString trimmed = id.trimmed();
        time = time || trimmed == QLatin1String("0");
        guard = guard || trimmed == QLatin1String("1");
    }
    m_timeOption->setChecked(time);
    m_guardOption->setChecked(guard);
}

bool COrderParamBaseTable::isOptionChecked(int id) const
{
    if (id == 0)
        return m_timeOption->isChecked();
    if (id == 1)
        return m_guardOption->isChecked();
    return false;
}

void COrderParamBaseTable::resetBtnType()
{
    m_timeOption->update();
    m_guardOption->update();
    updateVisibility();
}

void COrderParamBaseTable::updateCmdLog()
{
    const ttservice::COrderSetting setting = currentSetting();
    QString text = QStringLiteral("pt=%1;ot=%2").arg(priceTypeName(priceType()), orderTypeName(orderType()));
    if (priceType() == ttservice::PRICE_TYPE_FIXED)
        text += QStringLiteral(";price=%1").arg(m_fixedPriceCell->value());
    if (const CTrdAlgoBaseTable *table = getTrdAlgoBaseTable(orderType()))
        text += QStringLiteral(";start=%1;end=%2;%3")
                    .arg(clockText(startSeconds()), clockText(endSeconds()), QString::fromStdString(table->paramsText()));
    text += setting.m_stepIsAbsolute ? QStringLiteral(";step=%1").arg(setting.m_stepValue)
                                     : QStringLiteral(";stepRate=%1").arg(setting.m_stepRate);
    text += QStringLiteral(";valid=%1").arg(setting.m_validSeconds);
    m_cmdLog = text.toStdString();
}

void COrderParamBaseTable::handleWheel(QWheelEvent *event)
{
    // The table scrolls with its block; a wheel over it must not change a combo's choice.
    if (event)
        event->ignore();
}

void COrderParamBaseTable::handleScaleChanged()
{
    updateVisibility();
    updateGeometry();
}

void COrderParamBaseTable::clear()
{
    // A basket is meant to trade at once: the opposite side's best price is the default.
    m_priceCombo->setCurrentIndex(m_priceCombo->findData(PRICE_TYPE_OPPOSITE));
    m_fixedPriceCell->setValue(0);
    m_orderTypeCombo->setEnabled(true);
    m_orderTypeCombo->setCurrentIndex(0);
    for (CTrdAlgoBaseTable *table : qAsConst(m_algoTables))
        table->clear();
    loadOpParam(ttservice::COrderSetting(), 0.01);
    setCheckParam(QStringLiteral("0*1"));
    updateVisibility();
    updateCmdLog();
}

bool COrderParamBaseTable::handleEvent(int event, int id, int value, QString text, void *data)
{
    if (event == 5 && id == kHelpButtonId) {
        deliverEvent(220, 0, 0, QString(), nullptr);
        return true;
    }
    return WK::CBaseWidget::handleEvent(event, id, value, text, data);
}

} // namespace TC
