#include "CParameterCell.h"

#include "CDoubleValidator.h"
#include "CIntValidator.h"
#include "CMessageTip.h"
#include "CUiResource.h"
#include "TextHelpers.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>
#include <climits>
#include <cmath>

namespace WK {
namespace {

int decimalsOf(double step)
{
    int decimals = 0;
    double x = std::fabs(step);
    while (decimals < 10 && std::fabs(x - std::round(x)) > 1e-9) {
        x *= 10;
        ++decimals;
    }
    return decimals;
}

} // namespace

CParameterCell::CParameterCell(int id, const QString &label, const QString &unit, QWidget *parent)
    : CBaseWidget(QStringLiteral("parameter_cell"), false, parent)
    , m_id(id)
{
    m_label = new QLabel(label, this);
    m_edit = new QLineEdit(this);
    m_unit = new QLabel(unit, this);
    m_intValidator = new CIntValidator(0, 2147483647, this);

    m_edit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_edit->setValidator(m_intValidator);
    m_edit->installEventFilter(this);
    m_label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    m_unit->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    row->addWidget(m_label);
    row->addWidget(m_edit, 1);
    row->addWidget(m_unit);

    connect(m_edit, &QLineEdit::textEdited, this, [this] { deliverEvent(107, m_id, toInt(), toString(), nullptr); });
    connect(m_edit, &QLineEdit::editingFinished, this, [this] { commit(); });
    // A refused key (a minus sign, a letter, one decimal too many) must not vanish without a
    // word: "-500,000" would otherwise read as 500,000.
    connect(m_edit, &QLineEdit::inputRejected, this, [this] {
        if (m_showTip)
            CMessageTip::showTip(m_edit, Qt::AlignLeft | Qt::AlignBottom,
                                 QStringLiteral("输入无效, ") + formatInvalidMessage(), 1, 2, 300);
    });

    applyLook();
    setInt(0);
}

CParameterCell::~CParameterCell() = default;

void CParameterCell::setInt(qint64 value)
{
    m_edit->setText(formatIntNumber(value, (m_flags & CF_SEGMENTED) ? NF_SEGMENTED : NF_NONE));
    m_committed = toString();
}

void CParameterCell::setDouble(double value)
{
    m_edit->setText(formatted(value));
    m_committed = toString();
}

void CParameterCell::setValue(double value)
{
    if (m_double)
        setDouble(value);
    else
        setInt(static_cast<qint64>(std::trunc(std::clamp(value, -9.0e18, 9.0e18))));
}

void CParameterCell::setString(const QString &text)
{
    m_edit->setText(text);
    m_committed = toString();
}

int CParameterCell::toInt() const
{
    return static_cast<int>(std::clamp<qint64>(toLongLong(), INT_MIN, INT_MAX));
}

qint64 CParameterCell::toLongLong() const
{
    bool ok = false;
    const qint64 whole = toString().toLongLong(&ok);
    if (ok)
        return whole;
    const double value = toDouble();
    return static_cast<qint64>(std::trunc(std::clamp(value, -9.0e18, 9.0e18)));
}

double CParameterCell::toDouble() const
{
    return toString().toDouble();
}

QString CParameterCell::toString() const
{
    return unformatNumberString(m_edit->text());
}

void CParameterCell::setPrecision(int precision)
{
    m_precision = std::clamp(precision, 0, 10);
    if (m_doubleValidator)
        m_doubleValidator->setRange(m_bottom, m_top, m_precision);
    if (m_double && !toString().isEmpty())
        setDouble(toDouble());
}

void CParameterCell::setIntValidator(const QString &unit, qint64 bottom, qint64 top, qint64 step)
{
    const double current = toDouble();
    m_double = false;
    m_bottom = static_cast<double>(std::min(bottom, top));
    m_top = static_cast<double>(std::max(bottom, top));
    m_step = step > 0 ? static_cast<double>(step) : 1.0;
    m_intValidator->setRange(bottom, top);
    m_edit->setValidator(m_intValidator);
    if (!unit.isEmpty())
        setUnit(unit);
    setValue(std::clamp(current, m_bottom, m_top));
}

void CParameterCell::setDoubleValidator(const QString &unit, double bottom, double top, double step)
{
    const double current = toDouble();
    m_double = true;
    m_bottom = std::min(bottom, top);
    m_top = std::max(bottom, top);
    m_step = step > 0 ? step : 0.01;
    m_precision = decimalsOf(m_step);
    if (!m_doubleValidator)
        m_doubleValidator = new CDoubleValidator(m_bottom, m_top, m_precision, this);
    m_doubleValidator->setRange(m_bottom, m_top, m_precision);
    m_edit->setValidator(m_doubleValidator);
    if (!unit.isEmpty())
        setUnit(unit);
    setValue(std::clamp(current, m_bottom, m_top));
}

void CParameterCell::setUnit(const QString &unit)
{
    m_unit->setText(unit);
}

QString CParameterCell::unit() const
{
    return m_unit->text();
}

void CParameterCell::setLabel(const QString &label)
{
    m_label->setText(label);
}

QString CParameterCell::label() const
{
    return m_label->text();
}

void CParameterCell::changeLabel(const QString &label, const QString &unit)
{
    if (!label.isEmpty())
        setLabel(label);
    if (!unit.isEmpty())
        setUnit(unit);
}

void CParameterCell::setShowTip(bool show)
{
    m_showTip = show;
}

void CParameterCell::setFlag(int flags)
{
    const double value = toDouble();
    const bool hadText = !toString().isEmpty();
    m_flags = flags;
    m_label->setVisible(!(flags & CF_HIDE_LABEL));
    m_unit->setVisible(!(flags & CF_HIDE_UNIT));
    applyLook();
    if (hadText)
        setValue(value);
}

void CParameterCell::setSegmented(bool segmented)
{
    setFlag(segmented ? (m_flags | CF_SEGMENTED) : (m_flags & ~CF_SEGMENTED));
}

void CParameterCell::setFontKeys(const QString &labelKey, const QString &valueKey)
{
    if (!labelKey.isEmpty())
        m_labelFontKey = labelKey;
    if (!valueKey.isEmpty())
        m_valueFontKey = valueKey;
    applyLook();
}

void CParameterCell::setColorKey(const QString &key)
{
    m_colorKey = key;
    applyLook();
}

void CParameterCell::setParameterCellFocus()
{
    m_edit->setFocus(Qt::OtherFocusReason);
    m_edit->selectAll();
}

QString CParameterCell::formatInvalidMessage() const
{
    const int decimals = m_double ? m_precision : 0;
    return QStringLiteral("请输入%1到%2之间的数值")
        .arg(formatDoubleNumber(m_bottom, decimals), formatDoubleNumber(m_top, decimals));
}

void CParameterCell::themeChanged()
{
    CBaseWidget::themeChanged();
    applyLook();
}

void CParameterCell::scaleChanged()
{
    CBaseWidget::scaleChanged();
    applyLook();
}

bool CParameterCell::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_edit && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            step(key == Qt::Key_Up ? 1 : -1);
            return true;
        }
    }
    return CBaseWidget::eventFilter(watched, event);
}

void CParameterCell::commit()
{
    // Showing the number in the cell's own format is no change of its own.
    const QString before = m_committed;
    bool ok = false;
    const double value = toString().toDouble(&ok);
    if (ok && (value < m_bottom - 1e-9 || value > m_top + 1e-9)) {
        setValue(std::clamp(value, m_bottom, m_top));
        if (m_showTip)
            CMessageTip::showTip(m_edit, Qt::AlignLeft | Qt::AlignBottom, formatInvalidMessage(), 1, 2, 300);
    } else if (ok) {
        setValue(value);
    }
    const QString now = toString();
    m_committed = now;
    if (now != before)
        deliverEvent(103, m_id, toInt(), now, nullptr);
}

void CParameterCell::step(int direction)
{
    if (!isEnabled() || m_edit->isReadOnly())
        return;
    // A step is an edit that ends at once.
    const QString before = m_committed;
    setValue(std::clamp(toDouble() + direction * m_step, m_bottom, m_top));
    m_committed = before;
    commit();
}

QString CParameterCell::formatted(double value) const
{
    return formatDoubleNumber(value, m_precision, (m_flags & CF_SEGMENTED) ? NF_SEGMENTED : NF_NONE, QString());
}

void CParameterCell::applyLook()
{
    CUiResource *res = CUiResource::instance();
    const QFont labelFont = res->getFont(m_labelFontKey);
    m_label->setFont(labelFont);
    m_unit->setFont(labelFont);
    m_edit->setFont((m_flags & CF_EMPHASIS) ? res->getFont(m_valueFontKey) : labelFont);
    const QString valueColor = res->getColorSheetByKey((m_flags & CF_EMPHASIS) ? m_colorKey : QStringLiteral("clr_text_default"));
    m_edit->setStyleSheet(QStringLiteral(
        "QLineEdit { color: %1; background: %2; border: 1px solid %3; border-radius: 2px; padding: 0 4px; }"
        "QLineEdit:focus { border-color: %4; }"
        "QLineEdit:disabled { color: %5; background: %6; }")
        .arg(valueColor, res->getColorSheetByKey(QStringLiteral("clr_widget_background")),
             res->getColorSheetByKey(QStringLiteral("clr_widget_border")),
             res->getColorSheetByKey(QStringLiteral("clr_accent")),
             res->getColorSheetByKey(QStringLiteral("clr_text_disabled")),
             res->getColorSheetByKey(QStringLiteral("clr_scrollbar_background"))));
    const QColor labelColor = res->getColor(QStringLiteral("clr_text_default"));
    for (QLabel *label : {m_label, m_unit}) {
        QPalette palette = label->palette();
        palette.setColor(QPalette::WindowText, labelColor);
        label->setPalette(palette);
    }
}

} // namespace WK
