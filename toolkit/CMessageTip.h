#pragma once

#include "BasketToolkitExport.h"
#include "CBaseWidget.h"

#include <QPointer>
#include <QVector>

class QLabel;
class QTimer;

namespace WK {

// One tip as it was shown.
struct BASKET_TOOLKIT_EXPORT MessageTipRecord {
    QString anchorName; // objectName of the anchor
    QString text;
    int alignment = 0;
    int level = 1;
};

// A small note that shows next to a widget (the anchor) without taking the focus, and goes away
// by itself. Every tip shown is also recorded, so tests can see what the user was told.
//
// alignment: Qt alignment flags of the tip against its anchor: Qt::AlignBottom below it,
// Qt::AlignTop above it, Qt::AlignVCenter beside it on the right; Qt::AlignLeft,
// Qt::AlignHCenter and Qt::AlignRight line up the left edges, the centres or the right edges.
// 65 is below and left-aligned, 68 below and centred.
// level: 1 a warning (red text on a light red ground), 2 a notice (light yellow), any other a
// piece of information (light blue).
// style: the client's look of the tip; this toolkit has one look.
// showTime: how long the tip stays, in milliseconds, and at least 3 s so that it can be read; 0
// or less keeps it until it is hidden.
class BASKET_TOOLKIT_EXPORT CMessageTip : public CBaseWidget
{
    Q_OBJECT

public:
    // The tip belongs to the anchor unless another parent is given.
    CMessageTip(QWidget *anchor, int level, int showTime, QWidget *parent = nullptr);
    ~CMessageTip() override;

    // Shows this tip at its anchor. keep: non-zero keeps it until hidden, whatever the time.
    void showTip(const QString &text, int alignment, int level, int style, int showTime, int keep = 0);
    QString text() const;
    QWidget *anchor() const { return m_anchor; }

    // Shows the one shared tip at this anchor, replacing the shared tip shown before.
    static void showTip(QWidget *anchor, int alignment, const QString &text, int level = 1, int style = 2,
                        int showTime = 300);
    static void hideSharedTip();
    static CMessageTip *sharedTip();

    static QVector<MessageTipRecord> records();
    static void clearRecords();

    static constexpr int kMinimumShowTime = 3000;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void place(int alignment);
    void applyLevel(int level);

    QPointer<QWidget> m_anchor;
    QLabel *m_label = nullptr;
    QTimer *m_timer = nullptr;
    int m_level = 1;
    int m_showTime = 300;
};

} // namespace WK
