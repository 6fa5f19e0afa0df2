#include "COperationBasketWidget.h"

#include "CHpfOpConfirmWidget.h"
#include "COpBasketCrdBuySellWidget.h"
#include "COpBasketParamsEditWidget.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketsComboBox.h"

#include "CSplitContainer.h"
#include "CTradeClient.h"
#include "CUserConfig.h"
#include "CWidgetList.h"
#include "OperationHelpers.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollArea>
#include <QStringList>

#include <set>
#include <stdexcept>

namespace TC {
namespace {

constexpr int kTraderRole = 200;
constexpr int kParamsStableLength = 345;

QString flagText(bool on)
{
    return on ? QStringLiteral("1") : QStringLiteral("0");
}

} // namespace

COperationBasketWidget::COperationBasketWidget(QWidget *parent)
    : WK::CBaseWidget(QStringLiteral("operation_basket_widget"), false, parent)
{
    createUi();
}

COperationBasketWidget::~COperationBasketWidget()
{
    m_commandKey.clear();
}

void COperationBasketWidget::createUi()
{
    m_splitContainer = new WK::CSplitContainer(Qt::Horizontal, 3, this);
    m_leftList = new WK::CWidgetList(Qt::Vertical, m_splitContainer);
    m_leftList->setMargin(0, 0, 0, 0);
    m_leftList->setSpacing(0);

    m_editWidget = new COpBasketParamsEditWidget(m_leftList);
    m_replaceToolBar = new COpBasketReplaceStockToolBar(m_leftList);
    if (COpBasketConfirmWidget *table = m_editWidget->confirmWidget())
        connect(m_replaceToolBar, &COpBasketReplaceStockToolBar::sigSetFilter, table, &COpBasketConfirmWidget::slotSetFilter);
    connect(m_editWidget, &COpBasketParamsEditWidget::sigbasketSettingChanged, this, &COperationBasketWidget::sigbasketSettingChanged);

    m_leftList->addFixedWidget(m_replaceToolBar, 3, 0);
    m_leftList->addStretchWidget(m_editWidget, 1, 3, 0);
    m_editWidget->setPasteDataFunc(QStringLiteral("格式为: 代码,名称,数量,权重,方向 使用tab分隔"),
                                   [this] { handlePaste(); });

    // The form never shrinks below what it needs: in a small dock it scrolls instead of letting
    // its blocks slide over one another, and it lays itself out again when the dock grows.
    m_paramsScroll = new QScrollArea(m_splitContainer);
    m_paramsScroll->setObjectName(QStringLiteral("params_scroll"));
    m_paramsScroll->setFrameShape(QFrame::NoFrame);
    m_paramsScroll->setWidgetResizable(true);
    m_paramsScroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_paramsWidget = new COpBasketParamsWidget(m_paramsScroll);
    m_paramsScroll->setWidget(m_paramsWidget);

    // The filter reaches the table twice on purpose: the table applies a filter idempotently,
    // and the second connection keeps the order of slots the table's status code relies on.
    if (COpBasketConfirmWidget *table = m_editWidget->confirmWidget())
        connect(m_replaceToolBar, &COpBasketReplaceStockToolBar::sigSetFilter, table, &COpBasketConfirmWidget::slotSetFilter);
    connect(m_editWidget, &COpBasketParamsEditWidget::sig_bascketChange, m_paramsWidget, &COpBasketParamsWidget::slot_bascketChange);
    connect(m_editWidget, &COpBasketParamsEditWidget::sigRemoveData, m_paramsWidget, &COpBasketParamsWidget::slotRemoveData);
    m_paramsWidget->setShownLinesSource([this]() {
        return m_editWidget && m_editWidget->confirmWidget() ? m_editWidget->confirmWidget()->shownOrderParams()
                                                             : std::vector<ttservice::CCodeOrderParam>();
    });
    // Queued: the preview of a dropped file opens once the drop has returned.
    connect(m_editWidget, &COpBasketParamsEditWidget::sigImportFile, m_paramsWidget,
            [this](const QString &path) {
                if (m_paramsWidget && m_paramsWidget->basketsCombo())
                    m_paramsWidget->basketsCombo()->importFile(path);
            },
            Qt::QueuedConnection);

    m_paramsWidget->setReplaceToolBar(m_replaceToolBar);
    // The table reads the same boxes to show why a line is left out.
    if (COpBasketConfirmWidget *table = m_editWidget->confirmWidget())
        table->setReplaceToolBar(m_replaceToolBar);

    m_splitContainer->setWidgets(m_leftList, m_paramsScroll, 0, kParamsStableLength);
    m_splitContainer->setFirstMinLength(200);
    setInnerStretchWidget(m_splitContainer, 0, 0, 0, 0);

    if (getUserConfig()->getRole() == kTraderRole)
        m_replaceToolBar->setEnabled(false);
}

QString COperationBasketWidget::param() const
{
    QStringList parts;
    if (m_paramsWidget)
        parts << m_paramsWidget->param();
    if (m_editWidget)
        parts << m_editWidget->param();
    if (m_splitContainer)
        parts << QString::number(m_splitContainer->stableLength());
    if (m_replaceToolBar) {
        parts << flagText(m_replaceToolBar->isFilter()) << flagText(m_replaceToolBar->isFilterZhangTing())
              << flagText(m_replaceToolBar->isFilterDieTing());
    }
    return parts.join(QLatin1Char('/'));
}

void COperationBasketWidget::setParam(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char('/'), Qt::KeepEmptyParts);
    if (m_paramsWidget)
        m_paramsWidget->setParam(parts.at(0));
    if (parts.size() > 1 && m_editWidget && m_editWidget->confirmWidget())
        m_editWidget->confirmWidget()->setParam(parts.at(1));
    if (parts.size() > 2 && m_splitContainer)
        m_splitContainer->setStableLength(parts.at(2).toInt(nullptr, 10));
    if (!m_replaceToolBar)
        return;

    COpBasketReplaceStockToolBar *bar = m_replaceToolBar;
    if (parts.size() > 3) {
        bar->setFilterBox(0, parts.at(3).toInt() != 0);
        bar->updateFilter();
    }
    if (parts.size() == 5) {
        // The older text kept one flag for both limit boxes.
        const bool on = parts.at(4).toInt() != 0;
        bar->setFilterBox(1, on);
        bar->setFilterBox(2, on);
        bar->updateFilter();
    } else if (parts.size() >= 6) {
        bar->setFilterBox(1, parts.at(4).toInt() != 0);
        bar->updateFilter();
        bar->setFilterBox(2, parts.at(5).toInt() != 0);
        bar->updateFilter();
    }
    if (bar->isFilterZhangTing() || bar->isFilterDieTing() || bar->isFilter()) {
        if (m_paramsWidget)
            m_paramsWidget->updateBasketConfirmData();
    }
}

void COperationBasketWidget::loadAccountGroupSettings()
{
    if (m_paramsWidget)
        m_paramsWidget->loadAccountGroupSettings();
}

void COperationBasketWidget::refreshAccounts()
{
    if (m_paramsWidget)
        m_paramsWidget->refreshAccounts();
}

void COperationBasketWidget::updateBasketSetting()
{
    if (m_paramsWidget)
        m_paramsWidget->updateBasketSetting();
}

void COperationBasketWidget::updateBasketConfirmData()
{
    if (m_paramsWidget)
        m_paramsWidget->updateBasketConfirmData();
}

void COperationBasketWidget::fillComposeLastBasket(const QString &name)
{
    if (m_paramsWidget)
        m_paramsWidget->fillComposeLastBasket(name);
}

void COperationBasketWidget::setCurrentOperationType(quint64 word)
{
    if (m_paramsWidget)
        m_paramsWidget->setCurrentOperationType(word);
}

void COperationBasketWidget::batchPositions(const QVector<CPositionParam> &positions, QFlags<ETempBatchOrderFlag> flags)
{
    if (m_paramsWidget)
        m_paramsWidget->batchPositions(positions, flags);
}

void COperationBasketWidget::doShortCutOrder(int key, QKeyEvent *event)
{
    if (m_paramsWidget)
        m_paramsWidget->doShortCutOrder(key, event);
}

quint64 COperationBasketWidget::tabWordOfLines(const std::vector<ttservice::CCodeOrderParam> &lines)
{
    std::string market;
    std::set<int> operations;
    for (const ttservice::CCodeOrderParam &line : lines) {
        market = line.m_stockInfo.m_market;
        operations.insert(line.m_operationType);
    }
    // The market decides first, and only the last line's market counts.
    if (market == "HGT" || market == "SSEHKEX")
        return TOT_HGT;
    if (market == "SGT" || market == "SZSEHKEX")
        return TOT_SGT;
    for (int op : {20, 21, 22, 24}) {
        if (operations.count(op))
            return TOT_CREDIT;
    }
    if (operations.count(18) && operations.count(19))
        return TOT_ALL;
    if (operations.count(19))
        return TOT_SELL;
    if (operations.count(18))
        return TOT_BUY;
    return TOT_NONE;
}

void COperationBasketWidget::showCommandLines(const std::string &key, const std::vector<ttservice::CCodeOrderParam> &lines,
                                              const sSplitCmdInfo *split)
{
    if (!m_paramsWidget || !m_editWidget)
        return;
    quint64 word = tabWordOfLines(lines);
    // Lines that name no tab leave the current tab in place.
    if (word == TOT_NONE)
        word = m_paramsWidget->getTradeOpType();
    m_paramsWidget->setCurrentOperationType(word);
    if (m_replaceToolBar)
        m_replaceToolBar->setShowReplace(word == TOT_BUY);
    if (word == TOT_CREDIT && m_paramsWidget->crdWidget()) {
        // The credit block takes the instruction's operation: the smallest number among its lines.
        std::set<int> operations;
        for (const ttservice::CCodeOrderParam &line : lines)
            operations.insert(line.m_operationType);
        m_paramsWidget->crdWidget()->setCurrentOpt(static_cast<ttservice::EOperationType>(*operations.begin()));
    }
    const sSplitCmdInfo whole(true, nullptr, nullptr);
    if (split)
        m_paramsWidget->setSplitCommand(key, word, *split);
    else
        m_paramsWidget->setCommand(key, word);
    const bool canCustom = m_paramsWidget->basketsCombo() && m_paramsWidget->basketsCombo()->canCustom();
    m_editWidget->setCommand(key, m_paramsWidget->getCodeOrderParams(), word, canCustom, split ? *split : whole);
}

void COperationBasketWidget::setCommand(const std::string &key)
{
    m_commandKey = key;
    const boost::shared_ptr<ttservice::COrderCommand> command = CTradeClient::instance()->getCommandByKey(key);
    if (!command)
        return;
    showCommandLines(command->getKey(), command->m_orders);
}

void COperationBasketWidget::setSplitCommand(const std::string &key, const sSplitCmdInfo &info)
{
    m_commandKey = key;
    std::vector<ttservice::CCodeOrderParam> lines;
    if (!info.m_isMain) {
        const boost::shared_ptr<ttservice::CSubCommandRecord> record = info.m_subRecord;
        if (!record || record->m_orders.empty() || !isSubCmdOrder(record->m_status))
            return;
        m_subCommandId = record->m_subCommandId;
        lines = record->m_orders;
    } else {
        const boost::shared_ptr<ttservice::CMainCommandSplitRecord> main = info.m_mainRecord;
        if (!main || main->m_splitItems.size() < 2)
            return;
        // Item 0 is the whole instruction; the parts start at index 1.
        size_t index = 1;
        while (index < main->m_splitItems.size()
               && (!main->m_splitItems[index] || main->m_splitItems[index]->m_records.empty()))
            ++index;
        if (index >= main->m_splitItems.size())
            throw std::out_of_range("invalid vector<T> subscript");
        const boost::shared_ptr<ttservice::CCommandSplitItem> item = main->m_splitItems[index];
        if (!isSubCmdOrder(item->m_status))
            return;
        m_subCommandId = 0;
        if (item->m_records.front())
            lines = item->m_records.front()->m_orders;
    }
    const boost::shared_ptr<ttservice::COrderCommand> command = CTradeClient::instance()->getCommandByKey(key);
    if (!command)
        return;
    showCommandLines(command->getKey(), lines, &info);
}

void COperationBasketWidget::setEnableCmdOrder(const std::string &key, bool enable)
{
    if (key != m_commandKey || !m_paramsWidget)
        return;
    m_paramsWidget->setEnableForCommand(enable);
}

void COperationBasketWidget::handlePaste()
{
    const QString text = QApplication::clipboard()->text();
    if (text.isEmpty() || !m_paramsWidget)
        return;
    quint64 word = TOT_BUY;
    if (m_paramsWidget->checkPatch(text, word, false))
        m_paramsWidget->batchClipboard(false);
}

void COperationBasketWidget::patchCommand(const QString &text)
{
    if (text.isEmpty() || !m_paramsWidget)
        return;
    quint64 word = TOT_BUY;
    if (!m_paramsWidget->checkPatch(text, word, true))
        return;
    m_paramsWidget->saveHedgeParam();
    m_paramsWidget->setCurrentOperationType(word);
    m_paramsWidget->loadHedgeParam();
    m_paramsWidget->batchClipboard(true);
}

void COperationBasketWidget::onTabChanged(quint64 word)
{
    if (m_editWidget)
        m_editWidget->setTradeOpType(word);
    // A line's side switched in the table lasts only where the form sizes each row by its own
    // side; where one operation is set for the whole list (the credit block's, say) the next
    // recalculation would quietly switch it back. An instruction's lines keep the manager's.
    if (m_editWidget->confirmWidget()) {
        const bool instruction = !m_paramsWidget->commandKey().empty() && m_paramsWidget->commandOpType() == word;
        m_editWidget->confirmWidget()->setDirectionFixed(instruction || m_paramsWidget->getOperationType() != -1);
    }
    if (m_replaceToolBar) {
        m_replaceToolBar->setShowReplace(word == TOT_BUY);
        m_replaceToolBar->setShowPortfolio(word == TOT_BUY || word == TOT_ALL || word == TOT_FUTURE
                                           || word == TOT_ONEKEY_FUTURE);
    }
}

void COperationBasketWidget::onListGenerated(quint64 word, const QString &basketName)
{
    if (m_replaceToolBar) {
        const bool stocks = word != TOT_FUTURE && word != TOT_ONEKEY_FUTURE;
        // Futures lists have no suspended stocks or blacklists to replace. The blacklist boxes
        // stay the trader's to untick once a list is shown.
        m_replaceToolBar->setToolBarShow(stocks);
        m_replaceToolBar->setStopPercentText(basketName);
    }
    if (m_leftList)
        m_leftList->updateWidgetLength();
    if (!m_paramsWidget || !m_editWidget)
        return;
    // The client may have switched the tab itself (a position batch, a paste, an instruction):
    // the table must fix the lines' direction as the tab the list was made on does.
    m_editWidget->setTradeOpType(word);
    // A line's side switched in the table lasts only where the form sizes each row by its own
    // side; where one operation is set for the whole list (the credit block's, say) the next
    // recalculation would quietly switch it back. An instruction's lines keep the manager's.
    if (m_editWidget->confirmWidget()) {
        const bool instruction = !m_paramsWidget->commandKey().empty() && m_paramsWidget->commandOpType() == word;
        m_editWidget->confirmWidget()->setDirectionFixed(instruction || m_paramsWidget->getOperationType() != -1);
    }
    m_editWidget->setBasketName(basketName);
    m_editWidget->setAimedMoney(m_paramsWidget->aimedMoney());
    const bool canCustom = m_paramsWidget->basketsCombo() && m_paramsWidget->basketsCombo()->canCustom();
    std::vector<ttservice::CCodeOrderParam> *list = m_paramsWidget->getCodeOrderParams();
    m_editWidget->loadParams(list, word, canCustom);
    // An unknown name (a temporary list) counts as a basket of the user's own; it is read without
    // entering it among the stored baskets.
    const QMap<QString, CBasketSetting> &baskets = getUserConfig()->baskets();
    m_editWidget->setLineEditable(baskets.value(basketName).m_basketKind == 0);
    // The lines as the table holds them now (sells cut to what can be delivered).
    if (m_replaceToolBar && list)
        m_replaceToolBar->setPortfolioEnabled(*list);
}

bool COperationBasketWidget::handleEvent(int event, int id, int value, QString text, void *data)
{
    switch (event) {
    case 5:    // a button of a child: nothing above this form needs to hear of it
    case 1138: // a parameter changed in a table: already applied where it happened
        return true;
    case 1046:
        return placeOrderRequested(value);
    case 1070:
        onListGenerated(static_cast<quint64>(static_cast<quint32>(id)), text);
        return true;
    case 1072:
        onTabChanged(static_cast<quint64>(value));
        return true;
    case 1074:
        if (m_paramsWidget)
            m_paramsWidget->updateBasketConfirmData();
        return true;
    case 1075:
        if (m_paramsWidget)
            m_paramsWidget->fillCompParams(static_cast<ttservice::CCodeOrderParam *>(data),
                                           static_cast<ttservice::EOperationType>(value));
        if (m_replaceToolBar && m_editWidget)
            m_replaceToolBar->setPortfolioEnabled(m_editWidget->getOrderParams());
        return true;
    case 1076:
        if (m_paramsWidget) {
            m_paramsWidget->changeBascketData(static_cast<ttservice::CCodeOrderParam *>(data));
            m_paramsWidget->changeDelegateStyle();
        }
        return true;
    case 1208:
        if (m_paramsWidget)
            m_paramsWidget->selectAccount(text);
        return true;
    default:
        return WK::CBaseWidget::handleEvent(event, id, value, text, data);
    }
}

void COperationBasketWidget::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_V:
        if (event->modifiers() & Qt::ControlModifier)
            handlePaste();
        event->accept();
        return;
    case Qt::Key_W:
        // Shift+W belongs to the client's frame: let it travel up.
        if (event->modifiers() == Qt::ShiftModifier)
            event->ignore();
        else
            event->accept();
        return;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
}

void COperationBasketWidget::paintEvent(QPaintEvent *event)
{
    WK::CBaseWidget::paintEvent(event);
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
}

} // namespace TC
