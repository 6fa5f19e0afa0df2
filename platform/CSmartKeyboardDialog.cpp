#include "CSmartKeyboardDialog.h"

#include "CExchangeClient.h"
#include "CUiResource.h"
#include "TradeUnits.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QScreen>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace TC {
namespace {

enum EColumn { COL_CODE = 0, COL_NAME = 1, COL_MARKET = 2, COLUMN_COUNT = 3 };

constexpr int kStockTradeType = 1;
constexpr int kDefaultTradeType = 2;
constexpr int kBoxWidth = 300;
constexpr int kBoxHeight = 320;

QPointer<CSmartKeyboardDialog> &sharedKeyboard()
{
    static QPointer<CSmartKeyboardDialog> keyboard;
    return keyboard;
}

// Text a key may start a search with: something the user can see. Control characters come with
// Enter, Tab, Backspace and Esc; a space alone would list every name with a space in it.
bool isSearchText(const QString &text)
{
    if (text.trimmed().isEmpty())
        return false;
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.isPrint(); });
}

ttservice::CStockInfo stockInfoOf(const ttservice::CInstrumentDetail &detail)
{
    ttservice::CStockInfo info(detail.m_market, detail.m_stockCode, detail.m_stockName);
    // The instrument service knows no separate exchange id; the code is what the exchanges use.
    info.m_exchangeId = detail.m_stockCode;
    return info;
}

QTableWidgetItem *cell(const std::string &text)
{
    auto *item = new QTableWidgetItem(QString::fromStdString(text));
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    return item;
}

} // namespace

CSmartKeyboardDialog *CSmartKeyboardDialog::instance()
{
    QPointer<CSmartKeyboardDialog> &keyboard = sharedKeyboard();
    if (!keyboard && qobject_cast<QApplication *>(QCoreApplication::instance())) {
        keyboard = new CSmartKeyboardDialog();
        // Without a parent nothing else deletes it, and a widget must go while the application
        // is still there: exec() deletes it on the way out. The guarded pointer then forgets it,
        // so a call after that makes a new one. An application that never runs exec() (a test)
        // leaves it be; the guarded pointer keeps it reachable until the process ends.
        QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, keyboard.data(),
                         &QObject::deleteLater);
    }
    return keyboard.data();
}

CSmartKeyboardDialog::CSmartKeyboardDialog()
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setObjectName(QStringLiteral("smart_keyboard"));
    setAttribute(Qt::WA_QuitOnClose, false);

    m_titleLabel = new QLabel(this);
    m_titleLabel->setObjectName(QStringLiteral("smart_keyboard_title"));

    m_edit = new QLineEdit(this);
    m_edit->setObjectName(QStringLiteral("smart_keyboard_edit"));
    m_edit->installEventFilter(this);

    m_table = new QTableWidget(0, COLUMN_COUNT, this);
    m_table->setObjectName(QStringLiteral("smart_keyboard_matches"));
    m_table->setHorizontalHeaderLabels({QStringLiteral("代码"), QStringLiteral("名称"), QStringLiteral("市场")});
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setShowGrid(false);
    m_table->setWordWrap(false);
    // The search box keeps the keyboard focus, so that typing goes on narrowing the list while
    // the mouse picks rows.
    m_table->setFocusPolicy(Qt::NoFocus);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(4);
    layout->addWidget(m_titleLabel);
    layout->addWidget(m_edit);
    layout->addWidget(m_table, 1);

    connect(m_edit, &QLineEdit::textChanged, this, [this] { refresh(); });
    connect(m_table, &QTableWidget::cellDoubleClicked, this, [this](int row, int) { chooseRow(row); });

    resize(kBoxWidth, kBoxHeight);
    setTitle(QStringLiteral("选择股票"));
    applyLook();
}

CSmartKeyboardDialog::~CSmartKeyboardDialog() = default;

void CSmartKeyboardDialog::setSelectStockFunc(SelectStockFunc func)
{
    m_selectFunc = std::move(func);
}

void CSmartKeyboardDialog::setTitle(const QString &title)
{
    m_titleLabel->setText(title);
    setWindowTitle(title);
}

QString CSmartKeyboardDialog::title() const
{
    return m_titleLabel->text();
}

void CSmartKeyboardDialog::setTradeType(int type)
{
    if (type == m_tradeType)
        return;
    m_tradeType = type;
    refresh();
}

void CSmartKeyboardDialog::setChar(QKeyEvent *event, QWidget *parent)
{
    if (!event || !isSearchText(event->text()))
        return;
    event->accept();
    setSearchText(event->text());
    placeNear(parent);
    show();
    raise();
    activateWindow();
    m_edit->setFocus(Qt::OtherFocusReason);
    m_edit->deselect();
    m_edit->end(false);
}

QString CSmartKeyboardDialog::searchText() const
{
    return m_edit->text();
}

void CSmartKeyboardDialog::setSearchText(const QString &text)
{
    if (text == m_edit->text()) {
        // The instruments may have changed since the last search.
        refresh();
        return;
    }
    m_edit->setText(text); // searches through textChanged
}

ttservice::CStockInfo CSmartKeyboardDialog::matchAt(int row) const
{
    if (row < 0 || row >= matchCount())
        return ttservice::CStockInfo();
    return stockInfoOf(m_matches[static_cast<std::size_t>(row)]);
}

int CSmartKeyboardDialog::currentRow() const
{
    return matchCount() > 0 ? m_table->currentRow() : -1;
}

void CSmartKeyboardDialog::chooseRow(int row)
{
    if (row < 0 || row >= matchCount())
        return;
    const ttservice::CInstrumentDetail &detail = m_matches[static_cast<std::size_t>(row)];
    const ttservice::CStockInfo info = stockInfoOf(detail);
    const ESmartKeyType type = ttservice::isFutureMarket(detail.m_market) ? SKT_FUTURE : SKT_STOCK;
    // Hidden first: the function may open a message box, which the box would otherwise cover.
    hide();
    // A copy is called: the function may replace itself or reset the keyboard.
    const SelectStockFunc func = m_selectFunc;
    if (func)
        func(info, type);
}

void CSmartKeyboardDialog::reset()
{
    hide();
    m_selectFunc.clear();
    m_tradeType = kDefaultTradeType;
    const QSignalBlocker blocker(m_edit);
    m_edit->clear();
    refresh();
}

bool CSmartKeyboardDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_edit && event->type() == QEvent::KeyPress && handleKey(static_cast<QKeyEvent *>(event)))
        return true;
    return QWidget::eventFilter(watched, event);
}

void CSmartKeyboardDialog::keyPressEvent(QKeyEvent *event)
{
    if (!handleKey(event))
        QWidget::keyPressEvent(event);
}

void CSmartKeyboardDialog::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    // A click elsewhere ends the search, as it closes a pop-up.
    if (event->type() == QEvent::ActivationChange && isVisible() && !isActiveWindow())
        hide();
}

void CSmartKeyboardDialog::refresh()
{
    const QString text = m_edit->text().trimmed();
    m_matches = CExchangeClient::instance()->findInstruments(text, MAX_MATCHES, m_tradeType == kStockTradeType);

    m_table->setUpdatesEnabled(false);
    m_table->clearContents();
    m_table->setRowCount(matchCount());
    for (int row = 0; row < matchCount(); ++row) {
        const ttservice::CInstrumentDetail &detail = m_matches[static_cast<std::size_t>(row)];
        m_table->setItem(row, COL_CODE, cell(detail.m_stockCode));
        m_table->setItem(row, COL_NAME, cell(detail.m_stockName));
        m_table->setItem(row, COL_MARKET, cell(detail.m_market));
    }
    m_table->setUpdatesEnabled(true);
    if (matchCount() > 0)
        m_table->setCurrentCell(0, COL_CODE);
}

bool CSmartKeyboardDialog::handleKey(QKeyEvent *event)
{
    const int rowHeight = std::max(1, m_table->verticalHeader()->defaultSectionSize());
    const int page = std::max(1, m_table->viewport()->height() / rowHeight);
    switch (event->key()) {
    case Qt::Key_Up:
        moveCurrent(-1);
        return true;
    case Qt::Key_Down:
        moveCurrent(1);
        return true;
    case Qt::Key_PageUp:
        moveCurrent(-page);
        return true;
    case Qt::Key_PageDown:
        moveCurrent(page);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        chooseRow(currentRow());
        return true;
    case Qt::Key_Escape:
        hide();
        return true;
    default:
        return false;
    }
}

void CSmartKeyboardDialog::moveCurrent(int step)
{
    if (matchCount() == 0)
        return;
    const int row = std::max(0, std::min(matchCount() - 1, currentRow() + step));
    m_table->setCurrentCell(row, COL_CODE);
    m_table->scrollToItem(m_table->item(row, COL_CODE));
}

void CSmartKeyboardDialog::placeNear(QWidget *anchor)
{
    QScreen *screen = nullptr;
    QRect below;
    QRect above;
    if (anchor) {
        const QPoint topLeft = anchor->mapToGlobal(QPoint(0, 0));
        const QPoint bottomLeft = anchor->mapToGlobal(QPoint(0, anchor->height()));
        screen = QGuiApplication::screenAt(topLeft);
        below = QRect(bottomLeft, size());
        above = QRect(QPoint(topLeft.x(), topLeft.y() - height()), size());
    }
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    const QRect area = screen->availableGeometry();
    if (!anchor) {
        move(area.center() - rect().center());
        return;
    }
    QRect box = below;
    if (box.bottom() > area.bottom() && above.top() >= area.top())
        box = above;
    // Within the screen, the left and top edges winning over the right and bottom ones when the
    // box is larger than the screen.
    box.moveLeft(std::max(area.left(), std::min(box.left(), area.right() - box.width() + 1)));
    box.moveTop(std::max(area.top(), std::min(box.top(), area.bottom() - box.height() + 1)));
    move(box.topLeft());
}

void CSmartKeyboardDialog::scaleChanged()
{
    applyLook();
}

void CSmartKeyboardDialog::themeChanged()
{
    applyLook();
}

void CSmartKeyboardDialog::applyLook()
{
    WK::CUiResource *res = WK::CUiResource::instance();
    m_titleLabel->setFont(res->getFont(QStringLiteral("fnt_title")));
    m_edit->setFont(res->getFont(QStringLiteral("fnt_default_normal")));
    m_table->setFont(res->getFont(QStringLiteral("fnt_default_normal")));
    setStyleSheet(QStringLiteral("#smart_keyboard { background: %1; border: 1px solid %2; }"
                                 "#smart_keyboard_title { color: %3; }")
                      .arg(res->getColorSheetByKey(QStringLiteral("clr_widget_background")),
                           res->getColorSheetByKey(QStringLiteral("clr_widget_border")),
                           res->getColorSheetByKey(QStringLiteral("clr_text_default"))));
    setAttribute(Qt::WA_StyledBackground);
}

} // namespace TC
