#include "CAutoExpandToolBar.h"

#include "CUiResource.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QScopedValueRollback>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace WK {
namespace {

constexpr int kDefaultSpacing = 4;
constexpr int kSeparatorWidth = 9;
constexpr int kOverflowMargin = 6;

} // namespace

CAutoExpandToolBar::CAutoExpandToolBar(QWidget *parent)
    : CBaseWidget(QStringLiteral("auto_expand_tool_bar"), false, parent)
{
    m_overflowButton = new QToolButton(this);
    m_overflowButton->setObjectName(QStringLiteral("overflow_button"));
    m_overflowButton->setText(QStringLiteral("»"));
    m_overflowButton->setAutoRaise(true);
    m_overflowButton->setFocusPolicy(Qt::NoFocus);

    // A plain frame, not a toolkit dialog: a dialog stops its children's events, and the items
    // lent to the drop-down must keep reporting through the row.
    m_overflowBox = new QFrame(this, Qt::Popup | Qt::FramelessWindowHint);
    m_overflowBox->setObjectName(QStringLiteral("overflow_box"));
    m_overflowBox->setFrameShape(QFrame::Box);
    m_overflowBox->setAutoFillBackground(true);
    QPalette palette = m_overflowBox->palette();
    palette.setColor(QPalette::Window, CUiResource::instance()->getColor(QStringLiteral("clr_widget_background")));
    palette.setColor(QPalette::WindowText, CUiResource::instance()->getColor(QStringLiteral("clr_tool_bar_border")));
    m_overflowBox->setPalette(palette);
    m_overflowBox->hide();

    m_layout = new QHBoxLayout(this);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(kDefaultSpacing);
    m_layout->addStretch(1);
    m_layout->addWidget(m_overflowButton, 0, Qt::AlignVCenter);
    m_overflowLayout = new QVBoxLayout(m_overflowBox);
    m_overflowLayout->setContentsMargins(kOverflowMargin, kOverflowMargin, kOverflowMargin, kOverflowMargin);
    m_overflowLayout->setSpacing(kDefaultSpacing);

    connect(m_overflowButton, &QToolButton::clicked, this, [this] { showOverflow(); });
    m_overflowBox->installEventFilter(this);

    m_overflowButton->hide();
}

CAutoExpandToolBar::~CAutoExpandToolBar()
{
    // The box goes with the row's children; its last hide must not reach a half-destroyed row.
    m_overflowBox->removeEventFilter(this);
}

void CAutoExpandToolBar::setMargin(int left, int top, int right, int bottom)
{
    m_layout->setContentsMargins(left, top, right, bottom);
    relayout();
}

void CAutoExpandToolBar::setSpacing(int spacing)
{
    m_layout->setSpacing(std::max(spacing, 0));
    relayout();
}

int CAutoExpandToolBar::spacing() const
{
    return std::max(m_layout->spacing(), 0);
}

void CAutoExpandToolBar::addToolItem(QWidget *widget, bool bound)
{
    if (!widget || widget == this)
        return;
    for (const Item &item : qAsConst(m_items)) {
        if (item.widget == widget)
            return;
    }
    // Items keep their width: the row folds rather than squeezes them.
    QSizePolicy policy = widget->sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Fixed);
    widget->setSizePolicy(policy);
    m_layout->insertWidget(m_layout->count() - 2, widget, 0, Qt::AlignVCenter);
    Item item;
    item.widget = widget;
    item.bound = bound;
    m_items.append(item);
    relayout();
}

void CAutoExpandToolBar::addSeparator()
{
    auto *line = new QFrame(this);
    line->setObjectName(QStringLiteral("tool_bar_separator"));
    line->setFrameShape(QFrame::VLine);
    line->setFrameShadow(QFrame::Plain);
    line->setFixedWidth(kSeparatorWidth);
    QPalette palette = line->palette();
    palette.setColor(QPalette::WindowText, CUiResource::instance()->getColor(QStringLiteral("clr_tool_bar_border")));
    line->setPalette(palette);
    m_layout->insertWidget(m_layout->count() - 2, line);
    Item item;
    item.widget = line;
    item.separator = true;
    m_items.append(item);
    relayout();
}

void CAutoExpandToolBar::doOperationInvisibleList(QWidget *widget, bool hide)
{
    const bool known = std::any_of(m_items.cbegin(), m_items.cend(), [widget](const Item &item) {
        return widget && item.widget == widget;
    });
    if (!known)
        return;
    if (hide) {
        m_invisible.insert(widget);
        m_folded.remove(widget);
        if (!widget->isHidden())
            widget->hide();
    } else if (m_invisible.remove(widget)) {
        // Counted as folded until relayout finds it a place, so that its hidden state is not
        // taken for its owner's.
        m_folded.insert(widget);
    }
    relayout();
}

bool CAutoExpandToolBar::isOnInvisibleList(const QWidget *widget) const
{
    return m_invisible.contains(widget);
}

QList<QWidget *> CAutoExpandToolBar::foldedItems() const
{
    QList<QWidget *> items;
    for (const Item &item : m_items) {
        if (item.widget && !item.separator && m_folded.contains(item.widget))
            items.append(item.widget);
    }
    return items;
}

bool CAutoExpandToolBar::isFolded(const QWidget *widget) const
{
    return widget && m_folded.contains(widget);
}

bool CAutoExpandToolBar::isItemVisibleTo(const QWidget *item, const QWidget *ancestor) const
{
    if (!item)
        return false;
    if (m_folded.contains(item) && !m_invisible.contains(item))
        return ancestor == this || isVisibleTo(ancestor);
    return item->isVisibleTo(ancestor);
}

bool CAutoExpandToolBar::isInUse(const Item &item) const
{
    if (!item.widget || m_invisible.contains(item.widget))
        return false;
    if (item.separator)
        return true;
    // Hidden without going on the invisible list: hidden by its owner all the same.
    return !item.widget->isHidden() || m_folded.contains(item.widget);
}

int CAutoExpandToolBar::itemWidth(const QWidget *widget)
{
    const int hint = std::max(widget->sizeHint().width(), 0);
    const int least = widget->minimumWidth();
    return std::min(std::max(hint, least), std::max(widget->maximumWidth(), least));
}

void CAutoExpandToolBar::relayout()
{
    // While the drop-down is open its items are not the row's to move.
    if (m_inRelayout || !m_lent.isEmpty())
        return;
    const QScopedValueRollback<bool> guard(m_inRelayout, true);

    int cut = m_items.size();
    if (isVisible()) {
        // Units in use: a separator alone, a run of bound items, any other item alone.
        struct Unit {
            int first = 0;
            int width = 0;
        };
        QVector<Unit> units;
        bool lastBound = false;
        for (int i = 0; i < m_items.size(); ++i) {
            const Item &item = m_items.at(i);
            if (!isInUse(item))
                continue;
            const int width = itemWidth(item.widget);
            if (item.bound && lastBound && !units.isEmpty()) {
                units.last().width += spacing() + width;
            } else {
                units.append(Unit{i, width});
            }
            lastBound = item.bound;
        }
        const QMargins margins = m_layout->contentsMargins();
        const int room = width() - margins.left() - margins.right();
        int total = 0;
        for (const Unit &unit : qAsConst(units))
            total += unit.width;
        total += spacing() * std::max(0, int(units.size()) - 1);
        if (total > room) {
            const int roomBesideButton = room - itemWidth(m_overflowButton) - spacing();
            int used = 0;
            for (int u = 0; u < units.size(); ++u) {
                const int next = used + (u > 0 ? spacing() : 0) + units.at(u).width;
                if (next > roomBesideButton) {
                    cut = units.at(u).first;
                    break;
                }
                used = next;
            }
        }
    }
    applyFolding(cut);
    // Folding leaves the hint alone; only items changing width or use move the parent's layout.
    const QSize hint = sizeHint();
    if (hint != m_lastSizeHint) {
        m_lastSizeHint = hint;
        updateGeometry();
    }
}

void CAutoExpandToolBar::applyFolding(int cut)
{
    QVector<bool> show(m_items.size(), false);
    QSet<const QWidget *> folded;
    // A separator shows only between two items shown on the row, and only one of a pair.
    int pendingSeparator = -1;
    bool itemBefore = false;
    for (int i = 0; i < m_items.size(); ++i) {
        const Item &item = m_items.at(i);
        if (!isInUse(item))
            continue;
        if (item.separator) {
            if (i < cut && itemBefore && pendingSeparator < 0)
                pendingSeparator = i;
            continue;
        }
        if (i >= cut) {
            folded.insert(item.widget);
            continue;
        }
        show[i] = true;
        itemBefore = true;
        if (pendingSeparator >= 0) {
            show[pendingSeparator] = true;
            pendingSeparator = -1;
        }
    }
    m_folded = folded;
    // Only real changes: a needless show or hide would ask for yet another layout pass.
    for (int i = 0; i < m_items.size(); ++i) {
        QWidget *widget = m_items.at(i).widget;
        if (widget && widget->isHidden() == show.at(i))
            widget->setVisible(show.at(i));
    }
    const bool anyFolded = !m_folded.isEmpty();
    if (m_overflowButton->isHidden() == anyFolded)
        m_overflowButton->setVisible(anyFolded);
}

void CAutoExpandToolBar::showOverflow()
{
    if (m_folded.isEmpty() || isOverflowShown())
        return;
    m_lent.clear();
    for (QWidget *widget : foldedItems()) {
        m_lent.append(widget);
        // Moves the item out of the row's layout and into the drop-down.
        m_overflowLayout->addWidget(widget, 0, Qt::AlignLeft);
        widget->show();
    }
    m_overflowBox->adjustSize();
    const QPoint corner(m_overflowButton->width() - m_overflowBox->width(), m_overflowButton->height());
    m_overflowBox->move(m_overflowButton->mapToGlobal(corner));
    m_overflowBox->show();
}

void CAutoExpandToolBar::hideOverflow()
{
    if (m_overflowBox->isVisible())
        m_overflowBox->hide();
    returnFoldedItems();
}

bool CAutoExpandToolBar::isOverflowShown() const
{
    return m_overflowBox->isVisible();
}

void CAutoExpandToolBar::returnFoldedItems()
{
    if (m_lent.isEmpty())
        return;
    const QList<QPointer<QWidget>> lent = m_lent;
    // Row order is layout order; in ascending order every earlier item is back in place.
    int layoutIndex = 0;
    for (const Item &item : qAsConst(m_items)) {
        if (!item.widget)
            continue;
        if (lent.contains(item.widget)) {
            m_layout->insertWidget(layoutIndex, item.widget, 0, Qt::AlignVCenter);
            // Still folded; relayout shows it if the row has room now.
            item.widget->hide();
        }
        ++layoutIndex;
    }
    m_lent.clear();
    relayout();
}

QSize CAutoExpandToolBar::sizeHint() const
{
    const QMargins margins = m_layout->contentsMargins();
    int width = 0;
    int height = m_overflowButton->sizeHint().height();
    int count = 0;
    for (const Item &item : m_items) {
        if (!isInUse(item))
            continue;
        width += itemWidth(item.widget);
        height = std::max(height, item.widget->sizeHint().height());
        ++count;
    }
    width += spacing() * std::max(0, count - 1);
    return QSize(width + margins.left() + margins.right(), height + margins.top() + margins.bottom());
}

QSize CAutoExpandToolBar::minimumSizeHint() const
{
    const QMargins margins = m_layout->contentsMargins();
    return QSize(itemWidth(m_overflowButton) + margins.left() + margins.right(), sizeHint().height());
}

bool CAutoExpandToolBar::event(QEvent *event)
{
    const bool handled = CBaseWidget::event(event);
    // An item changed its width or was shown or hidden by its owner.
    if (event->type() == QEvent::LayoutRequest)
        relayout();
    else if (event->type() == QEvent::Hide)
        hideOverflow();
    return handled;
}

bool CAutoExpandToolBar::eventFilter(QObject *watched, QEvent *event)
{
    // The drop-down closes by itself on a click outside it: the items go back then.
    if (watched == m_overflowBox && event->type() == QEvent::Hide)
        returnFoldedItems();
    return CBaseWidget::eventFilter(watched, event);
}

void CAutoExpandToolBar::resizeEvent(QResizeEvent *event)
{
    CBaseWidget::resizeEvent(event);
    relayout();
}

void CAutoExpandToolBar::showEvent(QShowEvent *event)
{
    CBaseWidget::showEvent(event);
    relayout();
}

} // namespace WK
