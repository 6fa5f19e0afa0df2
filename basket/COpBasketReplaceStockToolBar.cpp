#include "COpBasketReplaceStockToolBar.h"

#include "CCheckBox.h"
#include "CSimpleTextWidget.h"
#include "CWidgetList.h"

#include <QSignalBlocker>

namespace TC {
namespace {

constexpr int kShownHeight = 48;
constexpr int kFoldedHeight = 25;

} // namespace

COpBasketReplaceStockToolBar::COpBasketReplaceStockToolBar(QWidget *parent)
    : WK::CBaseWidget(QStringLiteral("replace_tool_bar"), false, parent)
{
    createUi();
}

COpBasketReplaceStockToolBar::~COpBasketReplaceStockToolBar() = default;

void COpBasketReplaceStockToolBar::createUi()
{
    auto *rows = new WK::CWidgetList(Qt::Vertical, this);
    m_toolBar = new WK::CWidgetList(Qt::Horizontal, rows);
    auto *secondRow = new WK::CWidgetList(Qt::Horizontal, rows);

    auto makeBox = [this](int id, const QString &text) {
        auto *box = new WK::CCheckBox(id, text, m_toolBar);
        box->setColorKey(QStringLiteral("clr_basket_checkbox_text"));
        // A box never gives up its text to a narrow table: the row folds instead.
        box->setMinimumWidth(box->sizeHint().width());
        return box;
    };
    m_filterStopCheck = makeBox(1, QStringLiteral("过滤停盘股"));
    m_filterRiseCheck = makeBox(16, QStringLiteral("过滤涨停股"));
    m_filterFallCheck = makeBox(32, QStringLiteral("过滤跌停股"));
    m_filterDirectionCheck = makeBox(128, QStringLiteral("过滤反向股"));
    m_autoRefreshCheck = makeBox(256, QStringLiteral("自动刷新"));
    m_replaceStopCheck = makeBox(8, QStringLiteral("替换停盘股"));
    m_filterBlacklistCheck = makeBox(2, QStringLiteral("过滤黑名单"));
    m_replaceBlacklistCheck = makeBox(4, QStringLiteral("替换黑名单"));

    m_stopPercentText = new WK::CSimpleTextWidget(secondRow);
    m_stopPercentText->setColorKey(QStringLiteral("clr_global_rise"));
    m_stopPercentText->setFontKey(QStringLiteral("fnt_default_normal_fix"));
    m_stopPercentText->setText(QStringLiteral("停盘股权重占比:0.00%"), 100000);

    rows->setMargin(0, 0, 0, 0);
    rows->setSpacing(0);
    m_toolBar->setMargin(4, 0, 4, 0);
    m_toolBar->setSpacing(8);
    for (WK::CCheckBox *box : {m_filterStopCheck, m_filterRiseCheck, m_filterFallCheck, m_filterDirectionCheck})
        m_toolBar->addFixedWidget(box, 0, 0);
    m_toolBar->addFixedSpace(8);
    m_toolBar->addFixedWidget(m_autoRefreshCheck, 0, 0);
    m_toolBar->addFixedSpace(8);
    for (WK::CCheckBox *box : {m_replaceStopCheck, m_filterBlacklistCheck, m_replaceBlacklistCheck})
        m_toolBar->addFixedWidget(box, 0, 0);
    m_toolBar->addStretchSpace(1);
    secondRow->setMargin(4, 0, 4, 0);
    secondRow->addFixedWidget(m_stopPercentText, 0, 0);
    secondRow->addStretchSpace(1);
    secondRow->setFixedHeight(26);
    rows->addFixedWidget(m_toolBar, 3, 0);
    rows->addStretchWidget(secondRow, 1, 3, 0);
    setInnerStretchWidget(rows, 0, 0, 0, 0);
    setFixedHeight(kShownHeight);
}

WK::CCheckBox *COpBasketReplaceStockToolBar::checkBox(int id) const
{
    for (WK::CCheckBox *box : {m_replaceStopCheck, m_filterStopCheck, m_filterRiseCheck, m_filterFallCheck,
                               m_filterDirectionCheck, m_filterBlacklistCheck, m_replaceBlacklistCheck, m_autoRefreshCheck}) {
        if (box && box->id() == id)
            return box;
    }
    return nullptr;
}

bool COpBasketReplaceStockToolBar::isOn(const WK::CCheckBox *box) const
{
    // "Visible" means not hidden for the present tab; the panel itself may not be on screen yet.
    return box && box->isVisibleTo(this) && box->isChecked();
}

bool COpBasketReplaceStockToolBar::isFilter() const { return isOn(m_filterStopCheck); }
bool COpBasketReplaceStockToolBar::isFilterZhangTing() const { return isOn(m_filterRiseCheck); }
bool COpBasketReplaceStockToolBar::isFilterDieTing() const { return isOn(m_filterFallCheck); }
bool COpBasketReplaceStockToolBar::isFilterDirection() const { return isOn(m_filterDirectionCheck); }
bool COpBasketReplaceStockToolBar::isFilterBlacklist() const { return isOn(m_filterBlacklistCheck); }
bool COpBasketReplaceStockToolBar::isReplaceBlacklist() const { return isOn(m_replaceBlacklistCheck); }
bool COpBasketReplaceStockToolBar::isReplaceETF() const { return isOn(m_replaceStopCheck); }

void COpBasketReplaceStockToolBar::setBoxChecked(WK::CCheckBox *box, bool on)
{
    if (!box)
        return;
    // A tick set by code is not a user's change: the caller decides when the filter is sent.
    const QSignalBlocker blocker(box);
    box->setChecked(on);
}

void COpBasketReplaceStockToolBar::setFilterBox(int place, bool on)
{
    WK::CCheckBox *boxes[] = {m_filterStopCheck, m_filterRiseCheck, m_filterFallCheck};
    if (place >= 0 && place < 3)
        setBoxChecked(boxes[place], on);
}

void COpBasketReplaceStockToolBar::setFilter(bool on)
{
    setFilterBox(0, on);
    updateFilter();
}

void COpBasketReplaceStockToolBar::setFilterZhangTing(bool on)
{
    setFilterBox(1, on);
    updateFilter();
}

void COpBasketReplaceStockToolBar::setFilterDieTing(bool on)
{
    setFilterBox(2, on);
    updateFilter();
}

void COpBasketReplaceStockToolBar::setFilterZhangdie(bool on)
{
    setFilterBox(1, on);
    setFilterBox(2, on);
    updateFilter();
}

void COpBasketReplaceStockToolBar::setFilterDirection(bool on)
{
    setBoxChecked(m_filterDirectionCheck, on);
    updateFilter();
}

void COpBasketReplaceStockToolBar::enableFilterBlacklistCheckBox(bool enable)
{
    if (m_filterBlacklistCheck)
        m_filterBlacklistCheck->setEnabled(enable);
}

void COpBasketReplaceStockToolBar::enableReplaceBlacklistCheckBox(bool enable)
{
    if (m_replaceBlacklistCheck)
        m_replaceBlacklistCheck->setEnabled(enable);
}

void COpBasketReplaceStockToolBar::setBoxVisible(WK::CCheckBox *box, bool visible)
{
    if (box)
        box->setVisible(visible);
}

void COpBasketReplaceStockToolBar::setShowReplace(bool show)
{
    if (!m_replaceStopCheck || !m_filterBlacklistCheck || !m_replaceBlacklistCheck)
        return;
    for (WK::CCheckBox *box : {m_replaceStopCheck, m_filterBlacklistCheck, m_replaceBlacklistCheck})
        setBoxVisible(box, show);
}

void COpBasketReplaceStockToolBar::setShowPortfolio(bool)
{
    // The portfolio keyboard is a switched-on feature that this bar does not have yet.
}

void COpBasketReplaceStockToolBar::setToolBarShow(bool show)
{
    if (m_toolBar)
        m_toolBar->setVisible(show);
    setFixedHeight(show ? kShownHeight : kFoldedHeight);
}

void COpBasketReplaceStockToolBar::setTradeOperationType(quint64 word)
{
    if (!m_toolBar || !m_replaceStopCheck || !m_filterBlacklistCheck || !m_replaceBlacklistCheck)
        return;
    m_tradeOpType = word;
    setBoxVisible(m_filterStopCheck, word != 4096 && word != 16384);
    setBoxVisible(m_filterDirectionCheck, word == 512 || word == 1024);
    const bool limits = word == 512 || word == 1024 || word == 2048 || word == 8192;
    setBoxVisible(m_filterRiseCheck, limits);
    setBoxVisible(m_filterFallCheck, limits);
}

void COpBasketReplaceStockToolBar::updateFilter()
{
    int flags = 0;
    for (WK::CCheckBox *box : {m_filterStopCheck, m_filterBlacklistCheck, m_replaceBlacklistCheck, m_filterRiseCheck,
                               m_filterFallCheck, m_filterDirectionCheck, m_autoRefreshCheck}) {
        if (box && box->isChecked())
            flags |= box->id();
    }
    Q_EMIT sigSetFilter(flags);
}

bool COpBasketReplaceStockToolBar::handleEvent(int event, int id, int value, QString text, void *data)
{
    if (event != 60 && event != 1139)
        return WK::CBaseWidget::handleEvent(event, id, value, text, data);
    updateFilter();
    deliverEvent(1074, id, 0, QString(), nullptr);
    return true;
}

} // namespace TC
