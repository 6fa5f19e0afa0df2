#include "COpBasketStockParamsWidget.h"

#include "CGlobalOrderParamTable.h"
#include "CTrdAlgoBaseTable.h"

#include "CAlgorithmHelpDialog.h"
#include "CExchangeClient.h"
#include "CInstrumentRun.h"
#include "CQuoteClient.h"
#include "CTimeService.h"
#include "CVqAlgorithmHelpDialog.h"
#include "DataHelper.h"
#include "LuaModuleCtrl.h"
#include "OperationHelpers.h"
#include "OrderSettingText.h"

#include "StockKey.h"

#include <QFrame>
#include <QScrollArea>
#include <QStringList>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <climits>
#include <cmath>
#include <string>
#include <unordered_map>

namespace TC {
namespace {

using ttservice::CCodeOrderParam;
using ttservice::COrderSetting;
using ttservice::hasValue;
using ttservice::NO_VALUE;

constexpr int kTableFlag = 0x1103fff;
constexpr int kVqTraderType = 4;
constexpr long long kBeijingOffset = 8 * 3600;

// The setting's JSON holds ":", the separator of the block's own list, and "$" (of its 64-bit
// numbers), the separator of the one-key futures text that carries two blocks; neither ";" nor
// "~" ever occurs in it.
// What is kept for one operation. The block shows one order type for all of its operations
// (written once, as currentOrderType) and never reads one back from a kept setting, so none is
// kept: a copy per operation would only record whichever type was on view when it was left.
COrderSetting keptSetting(const CGlobalOrderParamTable &table)
{
    COrderSetting setting;
    table.saveOpParam(QString(), setting);
    setting.m_orderType = -1;
    return setting;
}

QString packSetting(const COrderSetting &setting)
{
    return orderSettingToString(setting).replace(QLatin1Char(':'), QLatin1Char(';')).replace(QLatin1Char('$'), QLatin1Char('~'));
}

COrderSetting unpackSetting(const QString &text)
{
    return orderSettingFromString(QString(text).replace(QLatin1Char(';'), QLatin1Char(':')).replace(QLatin1Char('~'), QLatin1Char('$')));
}

bool sameKept(const COrderSetting &a, const COrderSetting &b)
{
    return packSetting(a) == packSetting(b);
}

bool sameKept(const QString &a, const QString &b)
{
    return a == b;
}

// Keeps what an operation holds in one of the block's per-operation memories. The first value
// ever kept, under defaultKey, stands for every operation not visited yet. An operation that
// holds the same as that shared entry needs none of its own: it comes back the same, and a block
// restored onto an operation its text has no entry for writes the same text again.
template <typename Value>
void keep(QMap<int, Value> &memory, int defaultKey, int operation, const Value &value)
{
    if (memory.isEmpty())
        memory.insert(defaultKey, value);
    else if (memory.contains(operation) || !memory.contains(defaultKey) || !sameKept(memory.value(defaultKey), value))
        memory.insert(operation, value);
}

// Rounds to whole ticks; a value beyond the range of the tick count stays as it is.
double roundToTick(double value, double tick)
{
    const double ticks = value / tick + 0.5;
    if (!std::isfinite(ticks) || ticks >= static_cast<double>(INT_MAX) || ticks <= static_cast<double>(INT_MIN))
        return value;
    return static_cast<int>(std::floor(ticks)) * tick;
}

} // namespace

COpBasketStockParamsWidget::COpBasketStockParamsWidget(ttservice::EVQBrokerType brokerType, QWidget *parent,
                                                       ttservice::EVqTraderType traderType)
    : WK::CBaseWidget(QStringLiteral("basket_stock_params_widget"), false, parent)
    , m_brokerType(brokerType)
    , m_traderType(traderType)
{
    const bool ordinary = luawrapper::LuaModuleCtrl::checkModule({"mdl_order", "mdl_order_batch_ordinary"});
    auto *scroll = new QScrollArea(this);
    m_table = new CGlobalOrderParamTable(brokerType, ordinary, scroll, 1, traderType, 0);

    // The form gives a block a fixed height; an algorithm with its times unfolded is taller, and
    // the user scrolls to the rest rather than seeing every row squeezed.
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(m_table);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(scroll);

    m_table->setFlag(kTableFlag);
    setMinimumHeight(100);
    setFocusPolicy(static_cast<Qt::FocusPolicy>(11));
    setMouseTracking(true);
}

COpBasketStockParamsWidget::~COpBasketStockParamsWidget() = default;

COrderSetting COpBasketStockParamsWidget::defaultSetting()
{
    const long long now = getTimeService()->currentTime() + kBeijingOffset;
    const long long day = (now - ((now % 86400) + 86400) % 86400) - kBeijingOffset;
    COrderSetting setting;
    setting.m_startTime = static_cast<time_t>(day + 9 * 3600 + 30 * 60);
    setting.m_endTime = static_cast<time_t>(day + 15 * 3600);
    return setting;
}

ttservice::EPriceType COpBasketStockParamsWidget::getPriceType() const
{
    return m_table ? m_table->priceType() : ttservice::PRICE_TYPE_NONE;
}

ttservice::EOrderType COpBasketStockParamsWidget::getOrderType() const
{
    return m_table ? m_table->orderType() : ttservice::ORDER_TYPE_NONE;
}

void COpBasketStockParamsWidget::setExpandItemsHidden(bool hidden)
{
    if (!m_table)
        return;
    m_table->saveVisibleFlag();
    m_table->setExpandItemsHidden(hidden);
}

void COpBasketStockParamsWidget::transferTimePeriod(CCodeOrderParam *line) const
{
    if (m_table)
        m_table->transferTimePeriod(line);
}

void COpBasketStockParamsWidget::hideAlgTable()
{
    if (m_table)
        m_table->hideAlgTable();
}

void COpBasketStockParamsWidget::hideAmountUsed(bool hide, int item)
{
    if (m_table)
        m_table->hideAmountUsed(hide, item);
}

void COpBasketStockParamsWidget::resetStrategyType(ttservice::EOrderType orderType, const QString &strategy)
{
    if (m_table)
        m_table->resetStrategyType(orderType, strategy);
}

void COpBasketStockParamsWidget::saveVisibleFlag()
{
    if (m_table)
        m_table->saveVisibleFlag();
}

void COpBasketStockParamsWidget::fillParams(const QString &key, int volume, CCodeOrderParam &line, double price) const
{
    if (m_table)
        m_table->fillOrderParam(key, volume, line, price);
}

void COpBasketStockParamsWidget::setLocked(bool locked)
{
    if (m_table)
        m_table->setEnabled(!locked);
}

bool COpBasketStockParamsWidget::check(QString &) const
{
    return true;
}

std::string COpBasketStockParamsWidget::getCmdLog() const
{
    return m_table ? m_table->getCmdLog() : std::string();
}

QString COpBasketStockParamsWidget::captureTrdParams() const
{
    QStringList entries;
    if (!m_table)
        return QString();
    for (int type = 4; type <= 14; ++type) {
        const auto orderType = static_cast<ttservice::EOrderType>(type);
        const QString name = QString::fromStdString(ttservice::DataHelper::getParamStringByOrderType(orderType));
        const CTrdAlgoBaseTable *algo = m_table->getTrdAlgoBaseTable(type);
        if ((ttservice::DataHelper::isAlgoOrderType(orderType) || type == 12) && algo && !name.isEmpty())
            entries << name + QLatin1Char('`') + algo->uiString();
    }
    return entries.join(QLatin1Char(','));
}

void COpBasketStockParamsWidget::applyTrdParams(const QString &text)
{
    if (!m_table)
        return;
    const QStringList entries = text.split(QLatin1Char(','));
    for (const QString &entry : entries) {
        const QStringList pieces = entry.split(QLatin1Char('`'));
        if (pieces.size() < 2)
            continue;
        const ttservice::EOrderType type = ttservice::DataHelper::getOrderTypeByParamString(pieces.at(0).toStdString());
        if (type != ttservice::ORDER_TYPE_NONE && m_table->getTrdAlgoBaseTable(type))
            m_table->getTrdAlgoBaseTable(type)->setUiFromString(pieces.at(1));
    }
}

void COpBasketStockParamsWidget::loadSetting(const COrderSetting &setting)
{
    if (m_table)
        m_table->loadOpParam(setting, 0.001);
}

void COpBasketStockParamsWidget::setOperationType(int operation)
{
    if (!m_table)
        return;
    // The operation on view asked for again is no change: keeping now would take the table as
    // it stands for the first change and spend it before the user set anything.
    if (operation == -1 || !m_saveParam || operation == m_operationType) {
        setStartOperation(operation);
        return;
    }

    m_table->saveVisibleFlag();
    keep(m_settings, m_defaultKey, m_operationType, keptSetting(*m_table));
    const QString trdText = captureTrdParams();
    if (m_trdParams.isEmpty())
        m_commonTrdParams = trdText;
    keep(m_trdParams, m_defaultKey, m_operationType, trdText);

    m_operationType = operation;
    m_table->setOperationType(operation);

    if (m_settings.contains(operation))
        loadSetting(m_settings.value(operation));
    else if (m_settings.contains(m_defaultKey))
        loadSetting(m_settings.value(m_defaultKey));
    else
        loadSetting(defaultSetting());
    applyTrdParams(m_trdParams.contains(operation) ? m_trdParams.value(operation) : m_commonTrdParams);
}

void COpBasketStockParamsWidget::setStartOperation(int operation)
{
    m_operationType = operation;
    if (m_table)
        m_table->setOperationType(operation);
}

QString COpBasketStockParamsWidget::param() const
{
    if (!m_table)
        return QString();
    if (!m_saveParam) {
        m_table->saveVisibleFlag();
        m_table->saveParam();
        return m_table->param();
    }

    QStringList parts;
    parts << QStringLiteral("checkedIds=%1").arg(m_table->loadCheckParam());
    parts << QStringLiteral("currentOrderType=%1").arg(static_cast<int>(m_table->orderType()));
    // The operation on view is written even before it was ever left, or what the user set on it
    // (its settings and its algorithms' numbers) would be lost with the text; before the first
    // change, as the shared entry that change would keep. The table's own text is no choice
    // before it either: it reads back as the older form, whose settings are reset.
    QMap<int, QString> trdParams = m_trdParams;
    keep(trdParams, m_defaultKey, m_operationType, captureTrdParams());
    for (auto it = trdParams.cbegin(); it != trdParams.cend(); ++it)
        parts << QStringLiteral("%1TrdParams=").arg(it.key()) + it.value();
    QMap<int, COrderSetting> settings = m_settings;
    keep(settings, m_defaultKey, m_operationType, keptSetting(*m_table));
    for (auto it = settings.cbegin(); it != settings.cend(); ++it)
        parts << QStringLiteral("%1=").arg(it.key()) + packSetting(it.value());
    parts << m_table->getSingleVqAlgoUiParam(kVqTraderType);
    return parts.join(QLatin1Char(':'));
}

void COpBasketStockParamsWidget::setParam(const QString &text)
{
    if (!m_table)
        return;
    if (!m_saveParam) {
        if (!text.isEmpty())
            m_table->setParam(text);
        loadSetting(defaultSetting());
        return;
    }
    if (!text.contains(QLatin1Char('='))) {
        // The older form: the table's own text, from before the per-operation memory.
        m_table->setParam(text);
        if (m_operationType == -1)
            return;
        m_table->setCheckParam(QStringLiteral("0*1"));
        m_settings.insert(m_defaultKey, defaultSetting());
        loadSetting(m_settings.value(m_defaultKey));
        return;
    }

    const QStringList parts = text.split(QLatin1Char(':'));
    bool checkedIds = false;
    for (int i = 0; i + 1 < parts.size(); ++i) {
        const QString &part = parts.at(i);
        const int mark = part.indexOf(QLatin1Char('='));
        if (mark < 0)
            continue;
        const QString name = part.left(mark);
        const QString value = part.mid(mark + 1);
        if (name == QLatin1String("checkedIds")) {
            m_table->setCheckParam(value);
            checkedIds = true;
        } else if (name == QLatin1String("currentOrderType")) {
            m_table->setOrderType(value.toInt());
        } else if (name.contains(QLatin1String("TrdParams"))) {
            const QString key = name.left(name.indexOf(QLatin1String("TrdParams")));
            if (key.isEmpty())
                continue;
            m_trdParams.insert(key.toInt(), value);
            // The entry that stands for every operation not visited yet is what they start from.
            if (key.toInt() == m_defaultKey)
                m_commonTrdParams = value;
        } else if (!value.contains(QLatin1Char('='))) {
            COrderSetting setting = unpackSetting(value);
            setting.m_orderType = -1;
            m_settings.insert(name.toInt(), setting);
        }
    }
    m_table->setSingleVqAlgoParam(kVqTraderType, parts.constLast());
    if (!checkedIds)
        m_table->setCheckParam(QStringLiteral("0*1"));
    // An operation without an entry of its own shows the shared one, as a switch to it would.
    if (m_settings.contains(m_operationType))
        loadSetting(m_settings.value(m_operationType));
    else if (m_settings.contains(m_defaultKey))
        loadSetting(m_settings.value(m_defaultKey));
    if (m_trdParams.contains(m_operationType))
        applyTrdParams(m_trdParams.value(m_operationType));
    else if (m_trdParams.contains(m_defaultKey))
        applyTrdParams(m_commonTrdParams);
}

void COpBasketStockParamsWidget::updateSingleCodeOrderParam(std::vector<CCodeOrderParam> &orders) const
{
    if (!m_table)
        return;
    COrderSetting setting;
    m_table->saveOpParam(QString(), setting);
    const long long now = getTimeService()->currentTime();
    // The quote and the price tick belong to the instrument: looked up once for the lines of
    // every account.
    struct Instrument
    {
        boost::shared_ptr<CPriceData> m_quote;
        double m_tick = 0.0;
    };
    CInstrumentRun<Instrument> instruments;
    for (CCodeOrderParam &line : orders) {
        const Instrument &instrument = instruments.of(line, [](const CCodeOrderParam &first) {
            const QString code = QString::fromStdString(first.m_stockInfo.m_stockCode);
            const QString key =
                QString::fromStdString(utils::vqStockKey(first.m_stockInfo.m_market, first.m_stockInfo.m_stockCode));
            Instrument fresh;
            fresh.m_quote = CQuoteClient::instance()->getStockPrice(key);
            fresh.m_tick = CExchangeClient::instance()->hasFuture(code) ? CExchangeClient::instance()->getCodePriceTick(code)
                                                                        : CExchangeClient::instance()->getCodePriceTick(key);
            return fresh;
        });
        const boost::shared_ptr<CPriceData> &quote = instrument.m_quote;
        if (!quote)
            continue;

        const bool hasLast = hasValue(quote->m_lastPrice);
        double calcPrice = NO_VALUE;
        if (hasLast && line.m_priceType != ttservice::PRICE_TYPE_FIXED) {
            calcPrice = quote->getPriceForCalc(line.m_priceType, line.m_operationType, line.m_orderType, 0, nullptr);
            line.m_price = quote->getPriceForOrder(line.m_priceType, line.m_operationType, line.m_orderType, 0, nullptr);
        }
        fixPriceRange(setting, line, calcPrice, static_cast<ttservice::EOperationType>(m_operationType), quote);

        if (!hasValue(calcPrice)) {
            line.m_priceStep = NO_VALUE;
        } else {
            if (setting.m_stepIsAbsolute)
                line.m_priceStep = hasValue(setting.m_stepValue) ? setting.m_stepValue : NO_VALUE;
            else
                line.m_priceStep = hasValue(setting.m_stepRate) ? setting.m_stepRate * calcPrice : NO_VALUE;
            line.m_stepFlag = setting.m_stepFlag;
        }

        const double tick = hasLast ? instrument.m_tick : 0.0;
        if (tick > ttservice::DOUBLE_EPSILON) {
            for (double *value : {&line.m_priceStep, &line.m_priceLimitLow, &line.m_priceLimitHigh}) {
                if (hasValue(*value))
                    *value = roundToTick(*value, tick);
            }
        }

        if (!setting.m_keepValidTime) {
            line.m_validFrom = static_cast<int>(now);
            line.m_validTo = static_cast<int>(now + setting.m_validSeconds);
        }
    }
}

bool COpBasketStockParamsWidget::handleEvent(int event, int id, int value, QString text, void *data)
{
    if (event == 220) {
        if (getOrderType() == ttservice::ORDER_TYPE_INSTRUCTION)
            CVqAlgorithmHelpDialog::doHelp();
        else
            CAlgorithmHelpDialog::doHelp();
        return true;
    }
    if (event == 1138)
        return deliverEvent(1138, 0, 0, QString(), nullptr);
    return WK::CBaseWidget::handleEvent(event, id, value, text, data);
}

void COpBasketStockParamsWidget::scaleChanged()
{
    WK::CBaseWidget::scaleChanged();
    if (m_table)
        m_table->handleScaleChanged();
}

void COpBasketStockParamsWidget::wheelEvent(QWheelEvent *event)
{
    if (m_table)
        m_table->handleWheel(event);
}

} // namespace TC
