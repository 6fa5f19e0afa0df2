#include "CTableItemDelegate.h"

#include "CTableModel.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QValidator>

namespace WK {

CTableItemDelegate::CTableItemDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
}

CTableItemDelegate::~CTableItemDelegate() = default;

void CTableItemDelegate::setColumnValidator(int column, QValidator *validator)
{
    QPointer<QValidator> old = m_validators.take(column);
    if (old && old != validator)
        delete old.data();
    if (!validator)
        return;
    validator->setParent(this);
    m_validators.insert(column, validator);
}

QValidator *CTableItemDelegate::columnValidator(int column) const
{
    return m_validators.value(column).data();
}

void CTableItemDelegate::columnRemoved(int column)
{
    setColumnValidator(column, nullptr);
    QHash<int, QPointer<QValidator>> moved;
    for (auto it = m_validators.cbegin(); it != m_validators.cend(); ++it)
        moved.insert(it.key() > column ? it.key() - 1 : it.key(), it.value());
    m_validators = moved;
}

void CTableItemDelegate::clearValidators()
{
    for (const QPointer<QValidator> &validator : qAsConst(m_validators))
        delete validator.data();
    m_validators.clear();
}

QWidget *CTableItemDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &index) const
{
    if (!(index.flags() & Qt::ItemIsEditable))
        return nullptr;
    auto *editor = new QLineEdit(parent);
    editor->setFrame(false);
    editor->setValidator(columnValidator(index.column()));
    const auto alignment = Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt());
    editor->setAlignment((alignment & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter);
    return editor;
}

void CTableItemDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *lineEdit = qobject_cast<QLineEdit *>(editor);
    if (!lineEdit)
        return;
    lineEdit->setText(index.data(Qt::EditRole).toString());
    lineEdit->selectAll();
}

void CTableItemDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    auto *lineEdit = qobject_cast<QLineEdit *>(editor);
    if (lineEdit && model)
        model->setData(index, lineEdit->text(), Qt::EditRole);
}

void CTableItemDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.data(CTableModel::BoldRole).toBool()) {
        option->font.setBold(true);
        option->fontMetrics = QFontMetrics(option->font);
    }
    // The selection is a light wash, so a cell's own colour stays readable on it.
    option->palette.setBrush(QPalette::HighlightedText, option->palette.brush(QPalette::Text));
}

bool CTableItemDelegate::isLoneCheckBox(const QModelIndex &index)
{
    return (index.flags() & Qt::ItemIsUserCheckable) && index.data(Qt::DisplayRole).toString().isEmpty();
}

void CTableItemDelegate::setGridLines(bool on, const QColor &color)
{
    m_gridLines = on;
    m_gridColor = color;
}

void CTableItemDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (!m_gridLines) {
        paintCell(painter, option, index);
        return;
    }
    // The last column and row of pixels of the cell are its grid lines, as in the view's grid.
    const QRect whole = option.rect;
    QStyleOptionViewItem inner(option);
    inner.rect.adjust(0, 0, -1, -1);
    paintCell(painter, inner, index);
    painter->fillRect(QRect(whole.right(), whole.top(), 1, whole.height()), m_gridColor);
    painter->fillRect(QRect(whole.left(), whole.bottom(), whole.width() - 1, 1), m_gridColor);
}

void CTableItemDelegate::paintCell(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (!isLoneCheckBox(index)) {
        QStyleOptionViewItem opt(option);
        initStyleOption(&opt, index);
        if (opt.features & (QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDecoration)
            || opt.features & QStyleOptionViewItem::WrapText) {
            QStyledItemDelegate::paint(painter, option, index);
            return;
        }
        paintText(painter, opt);
        return;
    }
    QStyleOptionViewItem opt(option);
    initStyleOption(&opt, index);
    const QWidget *widget = option.widget;
    QStyle *style = widget ? widget->style() : QApplication::style();
    const bool checked = opt.checkState == Qt::Checked;
    opt.features &= ~QStyleOptionViewItem::HasCheckIndicator;
    opt.text.clear();
    style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, widget);

    QStyleOptionViewItem box(opt);
    const int width = style->pixelMetric(QStyle::PM_IndicatorWidth, &opt, widget);
    const int height = style->pixelMetric(QStyle::PM_IndicatorHeight, &opt, widget);
    box.rect = QRect(option.rect.center().x() - width / 2, option.rect.center().y() - height / 2, width, height);
    box.state &= ~(QStyle::State_HasFocus | QStyle::State_On | QStyle::State_Off);
    box.state |= checked ? QStyle::State_On : QStyle::State_Off;
    style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, painter, widget);
}

// A cell of one line of text, drawn as the style's item view item draws it, with the text laid
// out once instead of three times (size, elision, drawing): a table's paint is mostly text.
void CTableItemDelegate::paintText(QPainter *painter, const QStyleOptionViewItem &opt) const
{
    const QWidget *widget = opt.widget;
    QStyle *style = widget ? widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &opt, painter, widget);
    if (!opt.text.isEmpty()) {
        const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &opt, widget) + 1;
        const QRect textRect = opt.rect.adjusted(margin, 0, -margin, 0);
        QPalette::ColorGroup group = (opt.state & QStyle::State_Enabled) ? QPalette::Normal : QPalette::Disabled;
        if (group == QPalette::Normal && !(opt.state & QStyle::State_Active))
            group = QPalette::Inactive;
        const QPalette::ColorRole role = (opt.state & QStyle::State_Selected) ? QPalette::HighlightedText : QPalette::Text;
        painter->save();
        painter->setFont(opt.font);
        painter->setPen(opt.palette.color(group, role));
        const QString shown = !textSurelyFits(opt.fontMetrics, opt.text, textRect.width())
                                      && opt.fontMetrics.horizontalAdvance(opt.text) > textRect.width()
                                  ? opt.fontMetrics.elidedText(opt.text, opt.textElideMode, textRect.width())
                                  : opt.text;
        painter->drawText(textRect, static_cast<int>(opt.displayAlignment | Qt::TextSingleLine), shown);
        painter->restore();
    }
    if (opt.state & QStyle::State_HasFocus) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(opt);
        focus.rect = opt.rect;
        focus.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
        style->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, widget);
    }
}

bool CTableItemDelegate::editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                                     const QModelIndex &index)
{
    if (!model || !isLoneCheckBox(index) || !(index.flags() & Qt::ItemIsEnabled))
        return QStyledItemDelegate::editorEvent(event, model, option, index);
    bool toggle = false;
    switch (event->type()) {
    case QEvent::MouseButtonRelease: {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() != Qt::LeftButton || !option.rect.contains(mouse->pos()))
            return false;
        toggle = true;
        break;
    }
    case QEvent::MouseButtonDblClick:
        return true; // a quick second click toggles nothing more
    case QEvent::KeyPress: {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key != Qt::Key_Space && key != Qt::Key_Select)
            return false;
        toggle = true;
        break;
    }
    default:
        return false;
    }
    if (!toggle)
        return false;
    const bool checked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    return model->setData(index, int(checked ? Qt::Unchecked : Qt::Checked), Qt::CheckStateRole);
}

} // namespace WK
