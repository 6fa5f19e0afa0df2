#pragma once

#include "BasketToolkitExport.h"

#include <QHash>
#include <QString>
#include <QStyledItemDelegate>

namespace WK {

class CEventDeliverer;

// A push button drawn in every row of one table column. A click hands the receiver the event
// (5 unless set otherwise) with id = the row id, value = the column, text = the row id as text.
//
// Each row's button shows the cell's text unless it was given its own, and can be disabled,
// hidden and typed: type 3 is drawn in the colour of buying, type 1 in that of selling, others
// in the accent colour. The buttons are painted, not widgets, so a column of twenty thousand
// buttons costs nothing until it is seen.
class BASKET_TOOLKIT_EXPORT CBaseTableColumnPushButtonDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    CBaseTableColumnPushButtonDelegate(int column, CEventDeliverer *receiver, QObject *parent = nullptr);
    ~CBaseTableColumnPushButtonDelegate() override;

    int column() const { return m_column; }
    CEventDeliverer *receiver() const { return m_receiver; }
    void setReceiver(CEventDeliverer *receiver) { m_receiver = receiver; }
    void setEventNumber(int event) { m_event = event; }
    int eventNumber() const { return m_event; }
    // Text colour of the buttons.
    void setTextColorKey(const QString &key) { m_textColorKey = key; }
    QString textColorKey() const { return m_textColorKey; }

    void setButtonText(int rowId, const QString &text);
    QString buttonText(int rowId) const; // the row's own text; empty when it shows the cell's
    void setButtonEnabled(int rowId, bool enabled);
    bool isButtonEnabled(int rowId) const;
    void setButtonVisible(int rowId, bool visible);
    bool isButtonVisible(int rowId) const;
    void setButtonType(int rowId, int type);
    int buttonType(int rowId) const;
    void clearButtons();

    // The click of a row's button, as the user's would be; false (and nothing delivered) when
    // the button is disabled or hidden.
    bool click(int rowId);

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

Q_SIGNALS:
    void sigClicked(int rowId, int column);

protected:
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;

private:
    struct Button
    {
        QString m_text;
        bool m_enabled = true;
        bool m_visible = true;
        int m_type = 0;
    };

    static QRect buttonRect(const QRect &cell);

    int m_column = 0;
    CEventDeliverer *m_receiver = nullptr;
    int m_event = 5;
    QString m_textColorKey = QStringLiteral("clr_global_white");
    QHash<int, Button> m_buttons;
    int m_pressedRowId = -1;
};

} // namespace WK
