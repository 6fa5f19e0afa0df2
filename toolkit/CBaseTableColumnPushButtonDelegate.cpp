#include "CBaseTableColumnPushButtonDelegate.h"

#include "CEventDeliverer.h"
#include "CTableModel.h"
#include "CUiResource.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace WK {

CBaseTableColumnPushButtonDelegate::CBaseTableColumnPushButtonDelegate(int column, CEventDeliverer *receiver,
                                                                       QObject *parent)
    : QStyledItemDelegate(parent)
    , m_column(column)
    , m_receiver(receiver)
{
}

CBaseTableColumnPushButtonDelegate::~CBaseTableColumnPushButtonDelegate() = default;

void CBaseTableColumnPushButtonDelegate::setButtonText(int rowId, const QString &text)
{
    m_buttons[rowId].m_text = text;
}

QString CBaseTableColumnPushButtonDelegate::buttonText(int rowId) const
{
    return m_buttons.value(rowId).m_text;
}

void CBaseTableColumnPushButtonDelegate::setButtonEnabled(int rowId, bool enabled)
{
    m_buttons[rowId].m_enabled = enabled;
}

bool CBaseTableColumnPushButtonDelegate::isButtonEnabled(int rowId) const
{
    return m_buttons.value(rowId).m_enabled;
}

void CBaseTableColumnPushButtonDelegate::setButtonVisible(int rowId, bool visible)
{
    m_buttons[rowId].m_visible = visible;
}

bool CBaseTableColumnPushButtonDelegate::isButtonVisible(int rowId) const
{
    return m_buttons.value(rowId).m_visible;
}

void CBaseTableColumnPushButtonDelegate::setButtonType(int rowId, int type)
{
    m_buttons[rowId].m_type = type;
}

int CBaseTableColumnPushButtonDelegate::buttonType(int rowId) const
{
    return m_buttons.value(rowId).m_type;
}

void CBaseTableColumnPushButtonDelegate::clearButtons()
{
    m_buttons.clear();
}

bool CBaseTableColumnPushButtonDelegate::click(int rowId)
{
    if (rowId < 0 || !isButtonEnabled(rowId) || !isButtonVisible(rowId))
        return false;
    if (m_receiver)
        m_receiver->handleEvent(m_event, rowId, m_column, QString::number(rowId), nullptr);
    Q_EMIT sigClicked(rowId, m_column);
    return true;
}

QRect CBaseTableColumnPushButtonDelegate::buttonRect(const QRect &cell)
{
    return cell.adjusted(3, 2, -3, -2);
}

void CBaseTableColumnPushButtonDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                               const QModelIndex &index) const
{
    QStyleOptionViewItem opt(option);
    initStyleOption(&opt, index);
    const QString cellText = opt.text;
    opt.text.clear();
    const QWidget *widget = option.widget;
    QStyle *style = widget ? widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, widget);

    const int rowId = index.data(CTableModel::RowIdRole).toInt();
    if (rowId < 0 || !isButtonVisible(rowId))
        return;
    const Button button = m_buttons.value(rowId);
    const char *key = !button.m_enabled      ? "clr_text_disabled"
                      : button.m_type == 3 ? "clr_global_rise"
                      : button.m_type == 1 ? "clr_global_fall"
                                           : "clr_accent";
    QColor fill = CUiResource::instance()->getColor(QLatin1String(key));
    if (m_pressedRowId == rowId)
        fill = fill.darker(115);

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    QPainterPath path;
    path.addRoundedRect(QRectF(buttonRect(option.rect)), 3, 3);
    painter->fillPath(path, fill);
    painter->setPen(CUiResource::instance()->getColor(m_textColorKey));
    painter->setFont(opt.font);
    painter->drawText(buttonRect(option.rect), Qt::AlignCenter, button.m_text.isEmpty() ? cellText : button.m_text);
    painter->restore();
}

QWidget *CBaseTableColumnPushButtonDelegate::createEditor(QWidget *, const QStyleOptionViewItem &,
                                                          const QModelIndex &) const
{
    return nullptr; // the column is pressed, never typed into
}

bool CBaseTableColumnPushButtonDelegate::editorEvent(QEvent *event, QAbstractItemModel *, const QStyleOptionViewItem &option,
                                                     const QModelIndex &index)
{
    const int rowId = index.data(CTableModel::RowIdRole).toInt();
    if (rowId < 0)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() != Qt::LeftButton || !buttonRect(option.rect).contains(mouse->pos()))
            return false;
        m_pressedRowId = rowId;
        return true;
    }
    case QEvent::MouseButtonRelease: {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        const bool wasPressed = m_pressedRowId == rowId;
        m_pressedRowId = -1;
        if (mouse->button() != Qt::LeftButton || !wasPressed || !buttonRect(option.rect).contains(mouse->pos()))
            return false;
        click(rowId);
        return true;
    }
    case QEvent::MouseButtonDblClick:
        return true;
    default:
        return false;
    }
}

} // namespace WK
