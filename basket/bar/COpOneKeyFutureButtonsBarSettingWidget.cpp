#include "COpOneKeyFutureButtonsBarSettingWidget.h"

#include "CLogCenter.h"
#include "CRadioButtonGroup.h"
#include "CSimpleTextWidget.h"
#include "CUiResource.h"
#include "CWidgetList.h"

#include <QRadioButton>

#include <utility>

namespace TC {
namespace {

constexpr int kWidth = 250;
constexpr int kHeight = 126;
const char kFontKey[] = "fnt_default_normal";

} // namespace

COpOneKeyFutureButtonsBarSettingWidget::COpOneKeyFutureButtonsBarSettingWidget(ttservice::EHedge_Flag_Type flag,
                                                                               bool closeTodayFirst, QWidget *parent)
    : WK::CFloatWidget(true, parent)
    , m_closeTodayFirst(closeTodayFirst)
    , m_hedgeFlag(flag)
{
    m_list = new WK::CWidgetList(Qt::Vertical, this);
    auto *hedgeRow = new WK::CWidgetList(Qt::Horizontal, m_list);
    auto *hedgeLabel = new WK::CSimpleTextWidget(0, QStringLiteral("套利模式"), hedgeRow);
    m_hedgeGroup = new WK::CRadioButtonGroup(hedgeRow);
    m_closeGroup = new WK::CRadioButtonGroup(m_list);

    setObjectName(QStringLiteral("one_key_future_buttons_bar_setting"));
    m_hedgeGroup->setObjectName(QStringLiteral("hedge_group"));
    m_closeGroup->setObjectName(QStringLiteral("close_group"));
    setTitle(QStringLiteral("下单板设置"));
    setFontKey(QLatin1String(kFontKey));

    m_hedgeGroup->addButton(QStringLiteral("投机"), ttservice::HEDGE_FLAG_SPECULATION, false);
    m_hedgeGroup->addButton(QStringLiteral("套利"), ttservice::HEDGE_FLAG_ARBITRAGE, false);
    m_hedgeGroup->addButton(QStringLiteral("套保"), ttservice::HEDGE_FLAG_HEDGE, false);
    m_closeGroup->addButton(QStringLiteral("优先平昨"), kCloseYesterdayFirstId, false);
    m_closeGroup->addButton(QStringLiteral("优先平今"), kCloseTodayFirstId, false);
    m_hedgeGroup->setFocusPolicy(Qt::NoFocus);
    m_closeGroup->setFocusPolicy(Qt::NoFocus);
    m_list->setFocusPolicy(Qt::NoFocus);

    m_list->setMargin(13, 13, 13, 13);
    m_list->setSpacing(0);
    hedgeRow->setFixedHeight(30);
    hedgeRow->setSpacing(0);
    hedgeRow->addFixedWidget(hedgeLabel, Qt::AlignVCenter, 0);
    hedgeRow->addStretchWidget(m_hedgeGroup, 1, Qt::AlignVCenter, 8);
    m_list->addFixedWidget(hedgeRow, 0, 0);
    m_list->addFixedWidget(m_closeGroup, 0, 0);
    m_list->addStretchSpace(1);
    setInnerWidget(m_list);

    applyRadioFont();
    updateUi();
}

COpOneKeyFutureButtonsBarSettingWidget::~COpOneKeyFutureButtonsBarSettingWidget() = default;

void COpOneKeyFutureButtonsBarSettingWidget::setHedgeType(ttservice::EHedge_Flag_Type flag)
{
    m_hedgeFlag = flag;
    updateUi();
}

void COpOneKeyFutureButtonsBarSettingWidget::setCheckState(bool closeTodayFirst)
{
    m_closeTodayFirst = closeTodayFirst;
    updateUi();
}

void COpOneKeyFutureButtonsBarSettingWidget::setCloseTypeVisible(bool visible)
{
    m_closeGroup->setVisible(visible);
    m_list->updateList();
}

bool COpOneKeyFutureButtonsBarSettingWidget::isCloseTypeVisible() const
{
    return !m_closeGroup->isHidden();
}

void COpOneKeyFutureButtonsBarSettingWidget::updateUi()
{
    m_closeGroup->setButtonCheckedByID(m_closeTodayFirst ? kCloseTodayFirstId : kCloseYesterdayFirstId);
    m_hedgeGroup->setButtonCheckedByID(m_hedgeFlag);
    setFixedSize(kWidth, kHeight);
}

void COpOneKeyFutureButtonsBarSettingWidget::scaleChanged()
{
    WK::CFloatWidget::scaleChanged();
    applyRadioFont();
}

// The fixed size is made for the panel's font. Radio buttons may have a class font of the
// platform's that the box's own font does not override, so they are given it one by one.
void COpOneKeyFutureButtonsBarSettingWidget::applyRadioFont()
{
    const QFont font = WK::CUiResource::instance()->getFont(QLatin1String(kFontKey));
    for (QRadioButton *radio : findChildren<QRadioButton *>())
        radio->setFont(font);
}

bool COpOneKeyFutureButtonsBarSettingWidget::handleEvent(int event, int id, int value, QString text, void *data)
{
    if (event != 85)
        return WK::CFloatWidget::handleEvent(event, id, value, std::move(text), data);

    switch (id) {
    case kCloseTodayFirstId:
        m_closeTodayFirst = true;
        break;
    case kCloseYesterdayFirstId:
        m_closeTodayFirst = false;
        break;
    case ttservice::HEDGE_FLAG_SPECULATION:
    case ttservice::HEDGE_FLAG_ARBITRAGE:
    case ttservice::HEDGE_FLAG_HEDGE:
        TT_LOG_INFO(this, "TC::COpOneKeyFutureButtonsBarSettingWidget::handleEvent",
                    "basket\\COpOneKeyFutureButtonsBarSettingWidget",
                    boost::format("future speculation hedgeType change : %1% to %2%") % static_cast<int>(m_hedgeFlag)
                        % id);
        m_hedgeFlag = static_cast<ttservice::EHedge_Flag_Type>(id);
        break;
    default:
        break;
    }
    // The bar is told even of a choice that changed nothing: it re-reads both values anyway.
    deliverEvent(1043, 0, 1, m_closeTodayFirst ? QStringLiteral("1") : QStringLiteral("0"));
    return true;
}

} // namespace TC
