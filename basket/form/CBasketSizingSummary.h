#pragma once

#include "BasketExport.h"
#include "COpBasketConfirmWidget.h"

#include <QMap>
#include <QString>
#include <QVector>
#include <QWidget>

#include <memory>

class QLabel;
class QTimer;
class QToolButton;

namespace TC {

// The strip under the confirmation table that says what sizing left behind: per account, the
// money its ticked lines come to and its lines at 0 with their reasons; for the whole list, how
// far the sized weights are from the stored basket's (half the sum of absolute differences) and
// the largest single drift. It reads the table as shown, so its money agrees with the table's
// value column to the cent, and follows every reload and every quote tick of the table.
// Collapsed, it is one line.
class BASKETPANEL_EXPORT CBasketSizingSummary final : public QWidget
{
    Q_OBJECT

public:
    struct Account {
        QString m_account;
        int m_lines = 0;
        double m_money = 0.0;            // ticked lines, in cents as shown
        QMap<QString, int> m_zeroLines;  // lines at 0 by reason
        double m_aimed = -1.0;           // the money the sizing aimed at; below 0 where none
    };
    struct Summary {
        QVector<Account> m_accounts;     // in the order of the table
        bool m_hasDrift = false;         // the list is a stored basket with weights
        double m_drift = 0.0;            // percent
        QString m_largestKey;
        double m_largestDrift = 0.0;     // percent
    };

    explicit CBasketSizingSummary(QWidget *parent);
    ~CBasketSizingSummary() override;

    void setTable(COpBasketConfirmWidget *table);
    // aimed: by account as the table shows it, the money the sizing meant for it.
    static Summary compute(const COpBasketConfirmWidget &table, const QString &basketName,
                           const QMap<QString, double> &aimed = QMap<QString, double>());
    static QString lineText(const Summary &summary);
    static QStringList detailTexts(const Summary &summary);

    void setBasketName(const QString &name);
    void setAimedMoney(const QMap<QString, double> &aimed);
    void setCollapsed(bool collapsed);
    bool isCollapsed() const { return m_collapsed; }
    QString text() const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    void refresh();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void placeLabel();
    // What a pass over the table's lines learnt that only a reload, an edit, a tick box, a sort
    // or a filter changes: accounts, the ticked rows with their account and instrument, the rows
    // at 0. While quotes alone move the values, the strip adds values up over it again instead of
    // reading every line's account and instrument at every tick.
    struct Lines;
    static std::unique_ptr<Lines> gather(const COpBasketConfirmWidget &table, const QString &basketName,
                                         const QMap<QString, double> &aimed);
    static Summary sum(const COpBasketConfirmWidget &table, const Lines &lines);
    static void count(const COpBasketConfirmWidget &table, Lines &lines);
    static void move(Lines &lines, size_t ticked, double value);
    void costsMoved(const COpBasketConfirmWidget::CostMoves &moves);
    void scheduleRefresh();
    void linesChanged();

    COpBasketConfirmWidget *m_table = nullptr;
    std::unique_ptr<Lines> m_lines; // null until the next refresh gathers them again
    QString m_basketName;
    QMap<QString, double> m_aimed;
    bool m_collapsed = true;
    QToolButton *m_toggle = nullptr;
    QLabel *m_label = nullptr;
    QTimer *m_refreshTimer = nullptr;
    int m_labelLines = -1;  // of the text the label's height was measured for
    int m_labelHeight = 0;
};

} // namespace TC
