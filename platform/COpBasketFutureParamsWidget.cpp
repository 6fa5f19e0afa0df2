#include "COpBasketFutureParamsWidget.h"

#include "CExchangeClient.h"
#include "CTimeService.h"
#include "OperationHelpers.h"

#include "CCheckBox.h"
#include "CComboBox.h"
#include "CMessageTip.h"
#include "CParameterCell.h"
#include "CSimpleTextWidget.h"

#include "CBasketHedgeParam.h"
#include "StockKey.h"

#include <QDate>
#include <QDateTime>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>
#include <QVector>

#include <algorithm>

namespace TC {
namespace {

// Ids of the block's own controls; their events end in the block.
constexpr int kCheckId = 1;
constexpr int kSettingLinkId = 2;
constexpr int kContractComboId = 3;
constexpr int kRatioCellId = 4;

constexpr double kMaxRatio = 200.0;
constexpr int kMaxVolume = 1000000;
constexpr int kRowHeight = 24;
constexpr long long kBeijingOffset = 8 * 3600;

const char *const kFuturesMarket = "CFFEX";

QDate thirdFriday(int year, int month)
{
    const QDate first(year, month, 1);
    const int toFriday = (Qt::Friday - first.dayOfWeek() + 7) % 7;
    return first.addDays(toFriday + 14);
}

} // namespace

COpBasketFutureParamsWidget::COpBasketFutureParamsWidget(int id, int style, QWidget *parent)
    : WK::CBaseWidget(QStringLiteral("basket_future_params_widget"), false, parent)
    , m_id(id)
    , m_style(style)
{
    createUi();
    setContractCodes(listedIndexFutures(getTimeService()->currentTime()));
    setHedgeContractCode(m_contractCombo->count() > 0 ? m_contractCombo->itemText(0) : QString());
    updateSummary();
    updateDetail();
}

COpBasketFutureParamsWidget::~COpBasketFutureParamsWidget() = default;

void COpBasketFutureParamsWidget::createUi()
{
    m_autoHedgeCheck = new WK::CCheckBox(kCheckId, QStringLiteral("自动对冲"), this);
    m_settingLink = new WK::CSimpleTextWidget(kSettingLinkId, QStringLiteral("对冲设置"), this);
    m_detail = new QWidget(this);
    auto *contractLabel = new WK::CSimpleTextWidget(0, QStringLiteral("对冲合约"), m_detail);
    m_contractCombo = new WK::CComboBox(kContractComboId, m_detail);
    m_directionText = new WK::CSimpleTextWidget(0, QString(), m_detail);
    m_ratioCell = new WK::CParameterCell(kRatioCellId, QStringLiteral("对冲比例"), QStringLiteral("%"), m_detail);
    m_summaryText = new WK::CSimpleTextWidget(0, QString(), m_detail);

    for (WK::CSimpleTextWidget *text : {m_settingLink, contractLabel, m_directionText, m_summaryText})
        text->setFontKey(QStringLiteral("fnt_default_normal"));
    m_autoHedgeCheck->setFontKey(QStringLiteral("fnt_default_normal"));
    m_contractCombo->setFontKey(QStringLiteral("fnt_default_normal"));
    m_settingLink->setClickable(true);
    m_settingLink->setColorKey(QStringLiteral("clr_clickable_simple_text"));
    m_contractCombo->setEditable(true);
    m_contractCombo->setInsertPolicy(QComboBox::NoInsert);
    m_contractCombo->setFixedSize(110, kRowHeight);
    m_contractCombo->setAccessibleName(QStringLiteral("对冲合约"));
    m_directionText->setColorKey(QStringLiteral("clr_text_hint"));
    m_ratioCell->setDoubleValidator(QStringLiteral("%"), 0.0, kMaxRatio, 0.01);
    m_ratioCell->setValue(100.0);
    m_ratioCell->setFixedSize(185, kRowHeight);
    m_summaryText->setColorKey(QStringLiteral("clr_text_hint"));

    auto *titleRow = new QHBoxLayout;
    titleRow->setContentsMargins(0, 0, 0, 0);
    titleRow->addWidget(m_autoHedgeCheck);
    titleRow->addStretch(1);
    titleRow->addWidget(m_settingLink);

    auto *contractRow = new QHBoxLayout;
    contractRow->setContentsMargins(0, 0, 0, 0);
    contractRow->setSpacing(6);
    contractRow->addWidget(contractLabel);
    contractRow->addWidget(m_contractCombo);
    contractRow->addSpacing(4);
    contractRow->addWidget(m_directionText);
    contractRow->addStretch(1);

    auto *ratioRow = new QHBoxLayout;
    ratioRow->setContentsMargins(0, 0, 0, 0);
    ratioRow->addWidget(m_ratioCell);
    ratioRow->addStretch(1);

    auto *detailLayout = new QVBoxLayout(m_detail);
    detailLayout->setContentsMargins(20, 0, 0, 0);
    detailLayout->setSpacing(4);
    detailLayout->addLayout(contractRow);
    detailLayout->addLayout(ratioRow);
    detailLayout->addWidget(m_summaryText);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 3, 6, 3);
    layout->setSpacing(4);
    layout->addLayout(titleRow);
    layout->addWidget(m_detail);
    layout->addStretch(1);

    connect(m_autoHedgeCheck, &QCheckBox::toggled, this, [this] { updateDetail(); });
    // A typed contract counts when the user leaves the field or presses Return; a choice from
    // the list arrives as the combo's event 64.
    connect(m_contractCombo->lineEdit(), &QLineEdit::editingFinished, this, [this] { commitContract(); });
}

void COpBasketFutureParamsWidget::setOperationType(int operationType)
{
    m_operationType = operationType;
    m_directionText->setText(hedgeDirectionText());
}

QString COpBasketFutureParamsWidget::hedgeDirectionText() const
{
    if (m_operationType < 0)
        return QString();
    return isBuy(static_cast<ttservice::EOperationType>(m_operationType)) ? QStringLiteral("期货卖出")
                                                                         : QStringLiteral("期货买入");
}

void COpBasketFutureParamsWidget::setAutoHedge(bool on)
{
    m_autoHedgeCheck->setChecked(on);
}

bool COpBasketFutureParamsWidget::isAutoHedgeCheck() const
{
    return m_autoHedgeCheck->isChecked();
}

bool COpBasketFutureParamsWidget::fillHedgeParam(ttservice::CBasketHedgeParam &param) const
{
    if (!isAutoHedgeCheck())
        return false;
    const QString key = getHedgeStockCode();
    std::string market;
    std::string code;
    if (key.isEmpty() || !utils::splitStockKey(key.toStdString(), market, code))
        return false;
    param.m_enabled = true;
    param.m_hedgeType = m_hedgeType;
    param.m_contractCode = code;
    param.m_contractMarket = market;
    param.m_hedgeRatio = hedgeRatio();
    param.m_contractVolume = m_contractVolume;
    return true;
}

bool COpBasketFutureParamsWidget::check(QString &error) const
{
    if (!isAutoHedgeCheck())
        return true;
    const QString code = hedgeContractCode();
    if (!code.isEmpty() && CExchangeClient::instance()->getCodeInfo(getHedgeStockCode()))
        return true;
    error = code.isEmpty() ? QStringLiteral("请选择对冲合约!") : QStringLiteral("对冲合约 %1 不存在!").arg(code);
    WK::CMessageTip::showTip(m_contractCombo, 65, error, 1, 2, 300);
    return false;
}

QString COpBasketFutureParamsWidget::getHedgeStockCode() const
{
    const QString code = hedgeContractCode();
    if (code.isEmpty() || code.contains(QLatin1Char('.')))
        return code;
    std::string market = kFuturesMarket;
    if (const auto info = CExchangeClient::instance()->getCodeInfo(code)) {
        if (!info->m_market.empty())
            market = info->m_market;
    }
    return QString::fromStdString(utils::vqStockKey(market, code.toStdString()));
}

QString COpBasketFutureParamsWidget::param() const
{
    return QStringLiteral("%1,%2,%3,%4")
        .arg(hedgeContractCode(), QString::number(hedgeRatio(), 'g', 10), QString::number(m_hedgeType),
             QString::number(m_contractVolume));
}

void COpBasketFutureParamsWidget::setParam(const QString &text)
{
    if (text.isEmpty())
        return;
    const QStringList parts = text.split(QLatin1Char(','));
    setHedgeContractCode(parts.value(0));
    bool ok = false;
    if (parts.size() > 1) {
        const double ratio = parts.at(1).toDouble(&ok);
        if (ok)
            setHedgeRatio(ratio);
    }
    if (parts.size() > 2) {
        const int type = parts.at(2).toInt(&ok);
        if (ok)
            setHedgeType(type);
    }
    if (parts.size() > 3) {
        const int volume = parts.at(3).toInt(&ok);
        if (ok)
            setContractVolume(volume);
    }
}

void COpBasketFutureParamsWidget::setLocked(bool locked)
{
    m_locked = locked;
    applyLock();
}

QString COpBasketFutureParamsWidget::hedgeContractCode() const
{
    return m_contractCombo->currentText().trimmed().toUpper();
}

void COpBasketFutureParamsWidget::setHedgeContractCode(const QString &code)
{
    const QString normalized = code.trimmed().toUpper();
    const int index = m_contractCombo->findText(normalized);
    if (index >= 0)
        m_contractCombo->setCurrentIndex(index);
    m_contractCombo->setEditText(normalized);
    m_committedContract = normalized;
}

void COpBasketFutureParamsWidget::setContractCodes(const QStringList &codes)
{
    const QString current = m_contractCombo->currentText();
    m_contractCombo->clear();
    m_contractCombo->addItems(codes);
    m_contractCombo->setEditText(current);
}

QStringList COpBasketFutureParamsWidget::contractCodes() const
{
    QStringList codes;
    for (int i = 0; i < m_contractCombo->count(); ++i)
        codes << m_contractCombo->itemText(i);
    return codes;
}

double COpBasketFutureParamsWidget::hedgeRatio() const
{
    return m_ratioCell->toDouble();
}

void COpBasketFutureParamsWidget::setHedgeRatio(double ratio)
{
    m_ratioCell->setValue(std::clamp(ratio, 0.0, kMaxRatio));
}

void COpBasketFutureParamsWidget::setHedgeType(int type)
{
    if (hedgeTypeName(type).isEmpty())
        return;
    m_hedgeType = type;
    updateSummary();
}

void COpBasketFutureParamsWidget::setContractVolume(int volume)
{
    m_contractVolume = std::clamp(volume, 0, kMaxVolume);
    updateSummary();
}

QString COpBasketFutureParamsWidget::hedgeTypeName(int type)
{
    switch (type) {
    case HT_MANUAL:
        return QStringLiteral("手动对冲");
    case HT_BY_DEAL:
        return QStringLiteral("按成交对冲");
    case HT_SYNCHRONOUS:
        return QStringLiteral("同步对冲");
    default:
        return QString();
    }
}

QStringList COpBasketFutureParamsWidget::listedIndexFutures(long long seconds)
{
    const QDate today = QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC).addSecs(kBeijingOffset).date();
    // The contract of a month expires on its third Friday; from the day after, the next month
    // is the current one.
    QDate current(today.year(), today.month(), 1);
    if (today > thirdFriday(today.year(), today.month()))
        current = current.addMonths(1);
    QVector<QDate> months{current, current.addMonths(1)};
    QDate quarter = months.last().addMonths(1);
    while (months.size() < 4) {
        if (quarter.month() % 3 == 0)
            months.append(quarter);
        quarter = quarter.addMonths(1);
    }

    QStringList codes;
    for (const char *product : {"IF", "IH", "IC", "IM"}) {
        for (const QDate &month : months)
            codes << QString::fromLatin1(product) + month.toString(QStringLiteral("yyMM"));
    }
    return codes;
}

bool COpBasketFutureParamsWidget::handleEvent(int event, int id, int value, QString text, void *data)
{
    switch (event) {
    case 60:
        if (id == kCheckId)
            return true;
        break;
    case 61:
        if (id == kCheckId) {
            deliverEvent(1137, m_id, isAutoHedgeCheck() ? 1 : 0, QString(), nullptr);
            return true;
        }
        break;
    case 9:
        if (id == kSettingLinkId) {
            deliverEvent(1143, m_id, 0, QString(), nullptr);
            return true;
        }
        break;
    case 64:
        if (id == kContractComboId) {
            commitContract();
            return true;
        }
        break;
    case 103:
    case 107:
        if (id == kRatioCellId)
            return true;
        break;
    default:
        break;
    }
    return WK::CBaseWidget::handleEvent(event, id, value, text, data);
}

QSize COpBasketFutureParamsWidget::sizeHint() const
{
    return QSize(340, isAutoHedgeCheck() ? kExpandedHeight : kTitleHeight);
}

void COpBasketFutureParamsWidget::commitContract()
{
    const QString code = hedgeContractCode();
    if (code == m_committedContract)
        return;
    setHedgeContractCode(code);
    deliverEvent(1088, m_id, 0, code, nullptr);
}

void COpBasketFutureParamsWidget::updateDetail()
{
    m_detail->setVisible(isAutoHedgeCheck());
    updateGeometry();
}

void COpBasketFutureParamsWidget::updateSummary()
{
    const QString volume = m_contractVolume > 0 ? QStringLiteral("%1手").arg(m_contractVolume) : QStringLiteral("按比例");
    m_summaryText->setText(QStringLiteral("对冲方式：%1　对冲手数：%2").arg(hedgeTypeName(m_hedgeType), volume));
}

void COpBasketFutureParamsWidget::applyLock()
{
    const bool editable = !m_locked;
    m_autoHedgeCheck->setEnabled(editable);
    m_settingLink->setEnabled(editable);
    m_contractCombo->setEnabled(editable);
    m_ratioCell->setEnabled(editable);
}

} // namespace TC
