#include "CMessageTip.h"

#include "CUiResource.h"

#include <QEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace WK {
namespace {

struct TipState {
    QPointer<CMessageTip> shared;
    QVector<MessageTipRecord> records;
};

TipState &state()
{
    static TipState s;
    return s;
}

struct LevelLook {
    QRgb background;
    QRgb border;
    QRgb text;
};

LevelLook lookOf(int level)
{
    switch (level) {
    case 1:
        return {0xfffdeceb, 0xfff0a4a2, 0xffc62f2c};
    case 2:
        return {0xfffff8e6, 0xffe8c66a, 0xff5c4400};
    default:
        return {0xffeef4fe, 0xffa9c6fa, 0xff1e4f9c};
    }
}

} // namespace

CMessageTip::CMessageTip(QWidget *anchor, int level, int showTime, QWidget *parent)
    : CBaseWidget(QStringLiteral("message_tip"), false, parent ? parent : anchor)
    , m_anchor(anchor)
    , m_level(level)
    , m_showTime(showTime)
{
    setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    m_label = new QLabel(this);
    m_label->setWordWrap(false);
    m_timer = new QTimer(this);
    m_timer->setSingleShot(true);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->addWidget(m_label);

    connect(m_timer, &QTimer::timeout, this, &QWidget::hide);
    if (anchor)
        anchor->installEventFilter(this);
    applyLevel(level);
}

CMessageTip::~CMessageTip() = default;

void CMessageTip::showTip(const QString &text, int alignment, int level, int style, int showTime, int keep)
{
    Q_UNUSED(style)
    state().records.append({m_anchor ? m_anchor->objectName() : QString(), text, alignment, level});
    m_level = level;
    m_showTime = showTime;
    applyLevel(level);
    m_label->setText(text);
    adjustSize();
    place(alignment);
    show();
    m_timer->stop();
    if (!keep && showTime > 0)
        m_timer->start(std::max(showTime, kMinimumShowTime));
}

QString CMessageTip::text() const
{
    return m_label->text();
}

void CMessageTip::showTip(QWidget *anchor, int alignment, const QString &text, int level, int style, int showTime)
{
    TipState &s = state();
    if (s.shared && s.shared->anchor() != anchor) {
        s.shared->hide();
        s.shared->deleteLater();
        s.shared = nullptr;
    }
    if (!anchor) {
        s.records.append({QString(), text, alignment, level});
        return;
    }
    if (!s.shared)
        s.shared = new CMessageTip(anchor, level, showTime);
    s.shared->showTip(text, alignment, level, style, showTime);
}

void CMessageTip::hideSharedTip()
{
    if (state().shared)
        state().shared->hide();
}

CMessageTip *CMessageTip::sharedTip()
{
    return state().shared;
}

QVector<MessageTipRecord> CMessageTip::records()
{
    return state().records;
}

void CMessageTip::clearRecords()
{
    state().records.clear();
}

bool CMessageTip::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_anchor && (event->type() == QEvent::Hide || event->type() == QEvent::Move))
        hide();
    return CBaseWidget::eventFilter(watched, event);
}

void CMessageTip::paintEvent(QPaintEvent *event)
{
    const LevelLook look = lookOf(m_level);
    QPainter painter(this);
    painter.fillRect(rect(), QColor::fromRgba(look.background));
    painter.setPen(QColor::fromRgba(look.border));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    CBaseWidget::paintEvent(event);
}

void CMessageTip::place(int alignment)
{
    if (!m_anchor)
        return;
    const QRect a(m_anchor->mapToGlobal(QPoint(0, 0)), m_anchor->size());
    const QSize s = size();
    QPoint pos;
    if (alignment & Qt::AlignRight)
        pos.setX(a.right() + 1 - s.width());
    else if (alignment & Qt::AlignHCenter)
        pos.setX(a.center().x() - s.width() / 2);
    else
        pos.setX(a.left());
    if (alignment & Qt::AlignTop)
        pos.setY(a.top() - s.height() - 2);
    else if (alignment & Qt::AlignVCenter) {
        pos = QPoint(a.right() + 3, a.center().y() - s.height() / 2);
    } else
        pos.setY(a.bottom() + 3);
    if (QScreen *screen = QGuiApplication::screenAt(a.center())) {
        const QRect area = screen->availableGeometry();
        pos.setX(std::clamp(pos.x(), area.left(), std::max(area.left(), area.right() + 1 - s.width())));
        pos.setY(std::clamp(pos.y(), area.top(), std::max(area.top(), area.bottom() + 1 - s.height())));
    }
    move(pos);
}

void CMessageTip::applyLevel(int level)
{
    const LevelLook look = lookOf(level);
    QPalette palette = m_label->palette();
    palette.setColor(QPalette::WindowText, QColor::fromRgba(look.text));
    m_label->setPalette(palette);
    m_label->setFont(CUiResource::instance()->getFont(QStringLiteral("fnt_default_normal")));
    update();
}

} // namespace WK
