#include "COpBasketReplaceStockToolBar.h"

#include "COpBasketsLineEdit.h"

#include "CAutoExpandToolBar.h"
#include "CCheckBox.h"
#include "CCreatePortfolioKeyboard.h"
#include "CMessageTip.h"
#include "CSimpleTextWidget.h"
#include "CWidgetList.h"
#include "TextHelpers.h"

#include "CQuoteClient.h"
#include "CUserConfig.h"
#include "LuaModuleCtrl.h"
#include "PortfolioLookup.h"

#include <QSignalBlocker>

#include <cmath>
#include <utility>

namespace TC {
namespace {

constexpr int kShownHeight = 48;
constexpr int kFoldedHeight = 25;
constexpr int kSecondRowHeight = 26;
constexpr int kBasketEditWidth = 110;
constexpr int kReplaceStopId = 8;
constexpr int kReplaceBasketId = 64;

// Operations below 20 that can open or close a portfolio: 6, 8, 10, 17 and 19.
constexpr quint32 kPortfolioOperationMask = 0xa0540;

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
    m_toolBar = new WK::CAutoExpandToolBar(rows);
    m_secondRow = new WK::CAutoExpandToolBar(rows);

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
    m_replaceStopCheck = makeBox(kReplaceStopId, QStringLiteral("替换停盘股"));
    m_replaceBasketEdit = new COpBasketsLineEdit(kReplaceBasketId, m_toolBar);
    m_replaceBasketEdit->setFixedWidth(kBasketEditWidth);
    m_replaceBasketEdit->setFontKey(QStringLiteral("fnt_default_normal_fix"));
    m_replaceBasketEdit->setHintText(m_basketHint);
    m_filterBlacklistCheck = makeBox(2, QStringLiteral("过滤黑名单"));
    m_replaceBlacklistCheck = makeBox(4, QStringLiteral("替换黑名单"));

    if (luawrapper::LuaModuleCtrl::checkModule({"mdl_order", "mdl_order_portfolio"})) {
        m_portfolioKeyboard = new WK::CCreatePortfolioKeyboard(PORTFOLIO_KEYBOARD_ID, m_secondRow);
        m_portfolioKeyboard->setPortfolioNameSource([this] {
            return QStringList(getPortfolioNameMap(m_tradeOpType).values());
        });
        m_portfolioKeyboard->initPortfolioModelList();
    }
    m_stopPercentText = new WK::CSimpleTextWidget(m_secondRow);
    m_stopPercentText->setColorKey(QStringLiteral("clr_global_rise"));
    m_stopPercentText->setFontKey(QStringLiteral("fnt_default_normal_fix"));
    m_stopPercentText->setText(QStringLiteral("停盘股权重占比:0.00%"), 100000);

    rows->setMargin(0, 0, 0, 0);
    rows->setSpacing(0);
    m_toolBar->setMargin(4, 0, 4, 0);
    m_toolBar->setSpacing(8);
    for (WK::CCheckBox *box : {m_filterStopCheck, m_filterRiseCheck, m_filterFallCheck, m_filterDirectionCheck})
        m_toolBar->addToolItem(box, false);
    m_toolBar->addSeparator();
    m_toolBar->addToolItem(m_autoRefreshCheck, false);
    m_toolBar->addSeparator();
    // The box and the basket that replaces leave the row together.
    m_toolBar->addToolItem(m_replaceStopCheck, true);
    m_toolBar->addToolItem(m_replaceBasketEdit, true);
    m_toolBar->addToolItem(m_filterBlacklistCheck, false);
    m_toolBar->addToolItem(m_replaceBlacklistCheck, false);
    m_secondRow->setMargin(4, 0, 4, 0);
    if (m_portfolioKeyboard) {
        m_secondRow->addToolItem(m_portfolioKeyboard, false);
        m_secondRow->addSeparator();
    }
    m_secondRow->addToolItem(m_stopPercentText, false);
    m_secondRow->setFixedHeight(kSecondRowHeight);
    rows->addFixedWidget(m_toolBar, 3, 0);
    rows->addStretchWidget(m_secondRow, 1, 3, 0);
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

bool COpBasketReplaceStockToolBar::hasReplaceControls() const
{
    return m_toolBar && m_replaceStopCheck && m_replaceBasketEdit && m_filterBlacklistCheck && m_replaceBlacklistCheck;
}

bool COpBasketReplaceStockToolBar::isOn(const WK::CCheckBox *box) const
{
    // "Visible" means not hidden for the present tab: the panel itself may not be on screen yet,
    // and a box the row folded away for want of room is still in use.
    return box && box->isChecked() && m_toolBar && m_toolBar->isItemVisibleTo(box, this);
}

bool COpBasketReplaceStockToolBar::isFilter() const { return isOn(m_filterStopCheck); }
bool COpBasketReplaceStockToolBar::isFilterZhangTing() const { return isOn(m_filterRiseCheck); }
bool COpBasketReplaceStockToolBar::isFilterDieTing() const { return isOn(m_filterFallCheck); }
bool COpBasketReplaceStockToolBar::isFilterDirection() const { return isOn(m_filterDirectionCheck); }
bool COpBasketReplaceStockToolBar::isFilterBlacklist() const { return isOn(m_filterBlacklistCheck); }
bool COpBasketReplaceStockToolBar::isReplaceBlacklist() const { return isOn(m_replaceBlacklistCheck); }
bool COpBasketReplaceStockToolBar::isReplaceETF() const { return isOn(m_replaceStopCheck); }

bool COpBasketReplaceStockToolBar::isCreatePortfolio() const
{
    return m_portfolioKeyboard && m_portfolioKeyboard->isCreatePortfolio();
}

std::string COpBasketReplaceStockToolBar::getPortfolioName() const
{
    return m_portfolioKeyboard ? WK::qsToS(m_portfolioKeyboard->getPortfolioNameText()) : std::string();
}

QString COpBasketReplaceStockToolBar::basket() const
{
    return m_replaceBasketEdit ? m_replaceBasketEdit->currentText() : QString();
}

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
    updateFilter();
}

void COpBasketReplaceStockToolBar::enableReplaceBlacklistCheckBox(bool enable)
{
    if (m_replaceBlacklistCheck)
        m_replaceBlacklistCheck->setEnabled(enable);
    updateFilter();
}

void COpBasketReplaceStockToolBar::setItemVisible(QWidget *item, bool visible)
{
    if (!item)
        return;
    item->setVisible(visible);
    // The row must know too, or it would bring the item back when it has room.
    m_toolBar->doOperationInvisibleList(item, !visible);
}

void COpBasketReplaceStockToolBar::setShowReplace(bool show)
{
    if (!hasReplaceControls())
        return;
    for (QWidget *item : {static_cast<QWidget *>(m_replaceStopCheck), static_cast<QWidget *>(m_replaceBasketEdit),
                          static_cast<QWidget *>(m_filterBlacklistCheck), static_cast<QWidget *>(m_replaceBlacklistCheck)})
        setItemVisible(item, show);
}

void COpBasketReplaceStockToolBar::setShowPortfolio(bool show)
{
    if (!m_portfolioKeyboard || !m_secondRow)
        return;
    m_portfolioKeyboard->setVisible(show);
    m_secondRow->doOperationInvisibleList(m_portfolioKeyboard, !show);
}

void COpBasketReplaceStockToolBar::setToolBarShow(bool show)
{
    if (m_toolBar)
        m_toolBar->setVisible(show);
    setFixedHeight(show ? kShownHeight : kFoldedHeight);
}

void COpBasketReplaceStockToolBar::setTradeOperationType(quint64 word)
{
    if (!hasReplaceControls())
        return;
    m_tradeOpType = word;
    setItemVisible(m_filterStopCheck, word != 4096 && word != 16384);
    setItemVisible(m_filterDirectionCheck, word == 512 || word == 1024);
    const bool limits = word == 512 || word == 1024 || word == 2048 || word == 8192;
    setItemVisible(m_filterRiseCheck, limits);
    setItemVisible(m_filterFallCheck, limits);
}

void COpBasketReplaceStockToolBar::updateFilter()
{
    // The box that replaces suspended stocks has no bit: the table does not filter by it.
    int flags = 0;
    for (WK::CCheckBox *box : {m_filterStopCheck, m_filterBlacklistCheck, m_replaceBlacklistCheck, m_filterRiseCheck,
                               m_filterFallCheck, m_filterDirectionCheck, m_autoRefreshCheck}) {
        if (box && box->isChecked())
            flags |= box->id();
    }
    if (isCreatePortfolio())
        flags |= PORTFOLIO_KEYBOARD_ID;
    Q_EMIT sigSetFilter(flags);
}

void COpBasketReplaceStockToolBar::warnOfSuspendedStocks()
{
    const QString name = m_replaceBasketEdit->currentText();
    const QMap<QString, CBasketSetting> &baskets = getUserConfig()->baskets();
    const auto found = baskets.constFind(name);
    if (found == baskets.cend())
        return;
    for (const CBasketStockData &row : found->m_stocks) {
        if (isStoppedStock(row.m_market, row.m_stockCode)) {
            // Only a warning: the basket is taken all the same.
            WK::CMessageTip::showTip(m_replaceBasketEdit, 64, QStringLiteral("替换的篮子中有停盘股"), 3, 2, 300);
            return;
        }
    }
}

bool COpBasketReplaceStockToolBar::handleEvent(int event, int id, int value, QString text, void *data)
{
    if (event != 60 && event != COpBasketsLineEdit::EVENT_BASKET_CHOSEN)
        return WK::CBaseWidget::handleEvent(event, id, value, std::move(text), data);
    if ((id == kReplaceStopId || id == kReplaceBasketId) && m_replaceBasketEdit && isReplaceETF())
        warnOfSuspendedStocks();
    updateFilter();
    deliverEvent(EVENT_REFRESH_CONFIRM, id, 0, QString(), nullptr);
    return true;
}

void COpBasketReplaceStockToolBar::setStopPercentText(const QString &basketName)
{
    // The weight of the suspended stocks, as the label says: the money that 替换停盘股 moves.
    // A stock at a price limit still trades and is not counted, so the figure does not jump
    // with the market. Without weights every row weighs the same.
    double ratio = 0.0;
    const QMap<QString, CBasketSetting> &baskets = getUserConfig()->baskets();
    const auto found = baskets.constFind(basketName);
    if (found != baskets.cend() && !found->m_stocks.isEmpty()) {
        double total = 0.0;
        double stopped = 0.0;
        int stoppedRows = 0;
        for (const CBasketStockData &row : found->m_stocks) {
            const bool suspended = isStoppedStock(row.m_market, row.m_stockCode);
            const double weight = std::isfinite(row.m_weight) && row.m_weight > 0.0 ? row.m_weight : 0.0;
            total += weight;
            if (suspended) {
                stopped += weight;
                ++stoppedRows;
            }
        }
        ratio = total > 0.0 ? stopped / total : double(stoppedRows) / double(found->m_stocks.size());
    }
    if (!m_stopPercentText)
        return;
    const QString percent = WK::formatDoubleNumber(ratio, 2, WK::NF_PERCENT, QStringLiteral("非法值"));
    m_stopPercentText->setText(QStringLiteral("停盘股权重占比:%1").arg(percent), 100000);
}

void COpBasketReplaceStockToolBar::setPortfolioEnabled(const std::vector<ttservice::CCodeOrderParam> &lines)
{
    bool enabled = false;
    for (const ttservice::CCodeOrderParam &line : lines) {
        const int op = int(line.m_operationType);
        if (op >= 0 && op < 20 && ((kPortfolioOperationMask >> op) & 1u)) {
            enabled = true;
            break;
        }
    }
    if (m_portfolioKeyboard)
        m_portfolioKeyboard->setCheckAndEnable(isCreatePortfolio(), enabled);
}

} // namespace TC
