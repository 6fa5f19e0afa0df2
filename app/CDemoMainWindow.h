#pragma once

#include <QMainWindow>

class QDockWidget;
class QPlainTextEdit;

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

public Q_SLOTS:
    // One line of the order log; safe to call from any thread.
    void appendLog(const QString &line);

private:
    TC::CBasketOperationPanel *m_panel = nullptr;
    QDockWidget *m_dock = nullptr;
    QPlainTextEdit *m_log = nullptr;
};
