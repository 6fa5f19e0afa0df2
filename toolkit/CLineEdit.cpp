#include "CLineEdit.h"

#include "CUiResource.h"

namespace WK {

CLineEdit::CLineEdit(int id, QWidget *parent)
    : CEventWidgetT<QLineEdit>(parent)
    , m_id(id)
{
    applyLook();
    connect(this, &QLineEdit::textEdited, this, [this](const QString &text) {
        deliverEvent(107, m_id, 0, text, nullptr);
    });
    connect(this, &QLineEdit::editingFinished, this, [this] {
        if (text() == m_committedText)
            return;
        m_committedText = text();
        deliverEvent(103, m_id, 0, m_committedText, nullptr);
    });
    // A text set by the program is the new reference, not an edit.
    connect(this, &QLineEdit::textChanged, this, [this](const QString &text) {
        if (!isModified())
            m_committedText = text;
    });
}

CLineEdit::~CLineEdit() = default;

void CLineEdit::setHintText(const QString &text, const QString &colorKey)
{
    m_hintColorKey = colorKey;
    setPlaceholderText(text);
    applyLook();
}

void CLineEdit::setColorKey(const QString &key)
{
    m_colorKey = key;
    applyLook();
}

void CLineEdit::themeChanged()
{
    CEventWidgetT<QLineEdit>::themeChanged();
    applyLook();
}

void CLineEdit::applyLook()
{
    CUiResource *res = CUiResource::instance();
    QPalette palette = this->palette();
    palette.setColor(QPalette::Text, res->getColor(m_colorKey.isEmpty() ? QStringLiteral("clr_text_default") : m_colorKey));
#if QT_VERSION >= QT_VERSION_CHECK(5, 12, 0)
    palette.setColor(QPalette::PlaceholderText, res->getColor(m_hintColorKey));
#endif
    setPalette(palette);
}

} // namespace WK
