#pragma once

#include "CSampleInstructions.h"

#include <QMainWindow>

class QDockWidget;
class QLabel;
class QListWidget;
class QPlainTextEdit;
class QVBoxLayout;

namespace TC {
class CBasketOperationPanel;
}

// The demo host's window: the basket panel docked on the left as the client docks it, and a
// pane that shows every order and message that leaves the panel.
class CDemoMainWindow final : public QMainWindow
{
    Q_OBJECT

public:
    explicit CDemoMainWindow(QWidget *parent = nullptr);
    ~CDemoMainWindow() override;

    TC::CBasketOperationPanel *panel() const { return m_panel; }

    // Lists the instructions waiting for this trader above the order log; choosing one hands it
    // to the panel as the client does (a split one as the part meant for this user).
    void showInstructions(const QVector<CSampleInstructions::Entry> &entries);
    // Chooses the instruction with this key as the trader would; false if none has it.
    bool chooseInstruction(const std::string &key);
    // Shows a pane of the orders sent over a route and their fills above the order log.
    void addOrdersPane(QWidget *pane);

public Q_SLOTS:
    // One line of the order log, what a trader reads; safe to call from any thread.
    void appendLog(const QString &line);
    // One line of the details behind the "明细" box: whole calls, the panel's own log lines.
    void appendDetail(const QString &line);

protected:
    // The panel keeps most of the height at any size of the window, the log the rest.
    void resizeEvent(QResizeEvent *event) override;

private:
    TC::CBasketOperationPanel *m_panel = nullptr;
    QDockWidget *m_dock = nullptr;
    QPlainTextEdit *m_log = nullptr;
    QPlainTextEdit *m_details = nullptr;
    QLabel *m_instructionsTitle = nullptr;
    QListWidget *m_instructions = nullptr;
    QVBoxLayout *m_layout = nullptr;
    QVector<CSampleInstructions::Entry> m_entries;
};
