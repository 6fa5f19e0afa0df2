#include "COpBasketsPortfolioComboBox.h"

#include "COpBasketsPortfolioTree.h"

#include "CUserConfig.h"

#include <QGuiApplication>
#include <QScreen>

namespace TC {

COpBasketsPortfolioComboBox::COpBasketsPortfolioComboBox(int id, quint64 word, QWidget *parent)
    : WK::CComboBox(id, parent)
    , m_word(word)
{
    setObjectName(QStringLiteral("COpBasketsPortfolioComboBox"));
    m_tree = new COpBasketsPortfolioTree(word, this);
    addItem(COpBasketsPortfolioTree::currentPositionText());
}

COpBasketsPortfolioComboBox::~COpBasketsPortfolioComboBox() = default;

void COpBasketsPortfolioComboBox::updatePortfolioDataForCombo()
{
    const QString current = currentText();
    if (current == COpBasketsPortfolioTree::currentPositionText())
        return;
    const QMap<QString, QString> names = getPortfolioNameMap(m_word);
    const QString key = names.key(current);
    if (key.isEmpty()) {
        // The item keeps the value of a portfolio choice while listeners hear 1; they go by the
        // event, never by the item.
        setChoice(COpBasketsPortfolioTree::currentPositionText(), QString(), 2);
        deliverEvent(EVENT_PORTFOLIO_CHOSEN, id(), 1, QString(), nullptr);
        return;
    }
    setToolTip(current);
    deliverEvent(EVENT_PORTFOLIO_CHOSEN, id(), 2, key, nullptr);
}

QString COpBasketsPortfolioComboBox::getCurrentSelectedKey() const
{
    return m_tree ? m_tree->getPortfolioNameMap().key(currentText()) : QString();
}

void COpBasketsPortfolioComboBox::showPopup()
{
    showTree();
}

void COpBasketsPortfolioComboBox::hidePopup()
{
    hideTree();
}

bool COpBasketsPortfolioComboBox::handleEvent(int event, int id, int value, QString text, void *data)
{
    if (event == EVENT_TOOL_TIP) {
        setToolTip(text);
        return true;
    }
    if (event == EVENT_PORTFOLIO_CHOSEN) {
        const QString shown = value == 2 && m_tree ? m_tree->getPortfolioNameMap().value(text) : text;
        setChoice(shown, shown, value);
        deliverEvent(EVENT_PORTFOLIO_CHOSEN, this->id(), value, text, nullptr);
        return true;
    }
    return WK::CComboBox::handleEvent(event, id, value, text, data);
}

void COpBasketsPortfolioComboBox::showTree()
{
    if (!m_tree)
        return;
    const QPoint corner = mapToGlobal(QPoint(0, height()));
    const QScreen *screen = QGuiApplication::screenAt(corner);
    if (!screen)
        screen = this->screen();
    const QRect available = screen ? screen->availableGeometry() : QRect();
    const bool fits = available.isNull()
        || (corner.x() + m_tree->width() <= available.right() + 1 && corner.y() + m_tree->height() <= available.bottom() + 1);
    if (fits) {
        m_tree->move(corner);
    } else {
        const QPoint topRight = mapToGlobal(QPoint(width(), 0));
        m_tree->move(topRight.x() - m_tree->width(), topRight.y() - m_tree->height());
    }
    m_tree->show();
    m_tree->raise();
}

void COpBasketsPortfolioComboBox::hideTree()
{
    if (m_tree)
        m_tree->hide();
}

void COpBasketsPortfolioComboBox::setChoice(const QString &text, const QString &toolTip, int value)
{
    setItemText(0, text);
    setItemData(0, value);
    setToolTip(toolTip);
}

} // namespace TC
