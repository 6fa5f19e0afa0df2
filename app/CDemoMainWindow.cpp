#include "CDemoMainWindow.h"

#include "CBasketOperationPanel.h"

#include <QAction>
#include <QCheckBox>
#include <QDateTime>
#include <QDockWidget>
#include <QFont>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMetaObject>
#include <QPlainTextEdit>
#include <QVBoxLayout>

CDemoMainWindow::CDemoMainWindow(QWidget *parent)
    : QMainWindow(parent)
{
    setWindowTitle(QStringLiteral("组合交易 - 演示"));

    auto *central = new QWidget(this);
    auto *title = new QLabel(QStringLiteral("委托记录 (每一笔离开面板的委托一行, 及面板的提示)"), central);
    auto *detailsBox = new QCheckBox(QStringLiteral("明细"), central);
    detailsBox->setObjectName(QStringLiteral("details_box"));
    detailsBox->setToolTip(QStringLiteral("显示每次下单调用的完整内容和面板日志"));
    m_log = new QPlainTextEdit(central);
    m_log->setReadOnly(true);
    m_log->setObjectName(QStringLiteral("order_log"));
    m_log->setPlaceholderText(QStringLiteral("尚无委托"));
    m_details = new QPlainTextEdit(central);
    m_details->setReadOnly(true);
    m_details->setObjectName(QStringLiteral("details_log"));
    m_details->setPlaceholderText(QStringLiteral("尚无明细"));
    m_details->hide();
    connect(detailsBox, &QCheckBox::toggled, m_details, &QWidget::setVisible);
    QFont mono(QStringLiteral("monospace"));
    mono.setStyleHint(QFont::TypeWriter);
    m_log->setFont(mono);
    m_details->setFont(mono);

    m_dock = new QDockWidget(QStringLiteral("组合交易"), this);
    m_dock->setObjectName(QStringLiteral("basket_dock"));
    m_dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    m_panel = new TC::CBasketOperationPanel(1, m_dock);

    m_instructionsTitle = new QLabel(QStringLiteral("待执行指令 (单击载入面板, 调整下单比例后下单)"), central);
    m_instructions = new QListWidget(central);
    m_instructions->setObjectName(QStringLiteral("instruction_list"));
    m_instructions->setMaximumHeight(110);
    m_instructionsTitle->hide();
    m_instructions->hide();
    connect(m_instructions, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row < 0 || row >= m_entries.size())
            return;
        const CSampleInstructions::Entry &entry = m_entries.at(row);
        if (entry.split)
            m_panel->setSplitCommand(entry.key, entry.info);
        else
            m_panel->setSingleCommand(entry.key);
        appendLog(QStringLiteral("载入指令 ") + QString::fromStdString(entry.key) + QStringLiteral(" ") + entry.title);
    });

    auto *layout = m_layout = new QVBoxLayout(central);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(m_instructionsTitle);
    layout->addWidget(m_instructions);
    auto *titleRow = new QHBoxLayout;
    titleRow->addWidget(title, 1);
    titleRow->addWidget(detailsBox);
    layout->addLayout(titleRow);
    layout->addWidget(m_log, 2);
    layout->addWidget(m_details, 1);
    setCentralWidget(central);
    m_dock->setWidget(m_panel);
    addDockWidget(Qt::TopDockWidgetArea, m_dock);
    resize(1480, 860);

    // Ctrl+Q closes the window the way the window's close button does, so that the panel's state
    // is saved also where there is no window manager to press it.
    auto *quit = new QAction(QStringLiteral("退出"), this);
    quit->setShortcut(QKeySequence::Quit);
    quit->setShortcutContext(Qt::ApplicationShortcut);
    addAction(quit);
    connect(quit, &QAction::triggered, this, &QWidget::close);
}

CDemoMainWindow::~CDemoMainWindow() = default;

void CDemoMainWindow::showInstructions(const QVector<CSampleInstructions::Entry> &entries)
{
    m_entries = entries;
    m_instructions->clear();
    for (const CSampleInstructions::Entry &entry : entries)
        m_instructions->addItem(QString::fromStdString(entry.key) + QStringLiteral("  ") + entry.title);
    m_instructionsTitle->setVisible(!entries.isEmpty());
    m_instructions->setVisible(!entries.isEmpty());
}

bool CDemoMainWindow::chooseInstruction(const std::string &key)
{
    for (int row = 0; row < m_entries.size(); ++row) {
        if (m_entries.at(row).key == key) {
            m_instructions->setCurrentRow(row);
            return true;
        }
    }
    return false;
}

void CDemoMainWindow::addOrdersPane(QWidget *pane)
{
    auto *title = new QLabel(QStringLiteral("FIX 委托与成交"), centralWidget());
    const int at = m_layout->indexOf(m_log) - 1; // above the log's title row
    m_layout->insertWidget(at, title);
    m_layout->insertWidget(at + 1, pane, 2);
}

void CDemoMainWindow::appendLog(const QString &line)
{
    // Orders may leave from a callback on another thread; the pane is touched on its own.
    QMetaObject::invokeMethod(this, [this, line] {
        m_log->appendPlainText(QDateTime::currentDateTime().toString(QStringLiteral("HH:mm:ss ")) + line);
    }, Qt::AutoConnection);
}

void CDemoMainWindow::appendDetail(const QString &line)
{
    QMetaObject::invokeMethod(this, [this, line] {
        m_details->appendPlainText(QDateTime::currentDateTime().toString(QStringLiteral("HH:mm:ss ")) + line);
    }, Qt::AutoConnection);
}

void CDemoMainWindow::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    // The panel is the main job of the window: it gets about two thirds of the height.
    resizeDocks({m_dock}, {height() * 2 / 3}, Qt::Vertical);
}
