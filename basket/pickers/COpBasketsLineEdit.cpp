#include "COpBasketsLineEdit.h"

#include "COpBasketsComboBox.h"
#include "COpBasketsTreeLogic.h"
#include "COpBasketsTreeWidget.h"

#include "BasketHelpers.h"
#include "CBasketSetting.h"
#include "CUserConfig.h"

#include <QFocusEvent>
#include <QTreeWidget>

#include <utility>

namespace TC {
namespace {

ETempBatchOrderFlags flagWord(int flags)
{
    return ETempBatchOrderFlags(ETempBatchOrderFlag(flags));
}

} // namespace

COpBasketsLineEdit::COpBasketsLineEdit(int id, QWidget *parent)
    : WK::CLineEdit(id, parent)
{
    setObjectName(QStringLiteral("COpBasketsLineEdit"));
    m_tree = new COpBasketsTreeWidget(this);
    // As a child the tree would be clipped to this one-line editor; it opens as a window of its
    // own instead, still owned by the editor and still reporting to it, and leaves the focus
    // here so that typing goes on filtering it.
    m_tree->setWindowFlags(COpBasketsTreeLogic::toolWindowFlags());
    m_tree->setAttribute(Qt::WA_ShowWithoutActivating);
    m_tree->hide();

    setFocusPolicy(Qt::StrongFocus);
    setHintText(COpBasketsComboBox::enterBasketText(), QStringLiteral("clr_text_default"));

    connect(this, &QLineEdit::textChanged, this, &COpBasketsLineEdit::slotTextChanged);
    connect(this, &QLineEdit::editingFinished, this, &COpBasketsLineEdit::slotTextFinished);
}

COpBasketsLineEdit::~COpBasketsLineEdit() = default;

void COpBasketsLineEdit::setBatchOp(ETempBatchOrderFlags flags, bool notify)
{
    if (!m_tree)
        return;
    m_tree->addBatchFlag(flags);
    const QString name = batchFlagName(flags);
    setChoice(name, flags, name);
    if (notify)
        notifyChoice(int(flags), name);
}

void COpBasketsLineEdit::setBatchOp(int flags, bool notify)
{
    setBatchOp(flagWord(flags), notify);
}

void COpBasketsLineEdit::reSetFlag(ETempBatchOrderFlags flags)
{
    if (m_tree)
        m_tree->reSetFlag(flags);
}

ETempBatchOrderFlags COpBasketsLineEdit::getAllFlag() const
{
    return m_tree ? m_tree->getAllFlag() : ETempBatchOrderFlags();
}

void COpBasketsLineEdit::setOperationType(ttservice::EOperationType op)
{
    if (m_tree)
        m_tree->setOperationType(op);
}

void COpBasketsLineEdit::setBrokerType(ttservice::EVQBrokerType type)
{
    if (m_tree)
        m_tree->setBrokerType(type);
}

ttservice::EVQBrokerType COpBasketsLineEdit::getBrokerType() const
{
    return m_tree ? m_tree->getBrokerType() : ttservice::BROKER_TYPE_NONE;
}

void COpBasketsLineEdit::setBasket(QString name, bool force)
{
    const ETempBatchOrderFlags flags = nameBatchFlag(name);
    if (flags) {
        setChoice(name, flags, batchFlagName(flags));
        notifyChoice(int(flags), name);
        return;
    }

    const CUserConfig *config = getUserConfig();
    if (!force && !(config && config->baskets().contains(name)))
        return;

    setChoice(name, BATCH_NONE, QString());
    notifyChoice(0, name);
}

void COpBasketsLineEdit::updateBasketSetting()
{
    const QString name = text();
    const CUserConfig *config = getUserConfig();
    if ((config && config->baskets().contains(name)) || COpBasketsComboBox::isFixedBasketName(name)) {
        setToolTip(name);
        return;
    }

    setChoice(QString(), BATCH_NONE, QString());
    notifyChoice(0, QString());
}

bool COpBasketsLineEdit::canCustom() const
{
    switch (int(m_batchOp)) {
    case BATCH_NONE:
    case BATCH_CLIPBOARD:
    case 16:
    case 32:
        return true;
    default:
        return false;
    }
}

QString COpBasketsLineEdit::currentText() const
{
    return text();
}

QString COpBasketsLineEdit::itemText(int) const
{
    return text();
}

void COpBasketsLineEdit::setFixFont(const QFont &font)
{
    WK::CLineEdit::setFixFont(font);
    if (m_tree)
        m_tree->treeWidget()->setFont(font);
}

bool COpBasketsLineEdit::handleEvent(int event, int id, int value, QString text, void *data)
{
    if (event != EVENT_BASKET_CHOSEN)
        return WK::CLineEdit::handleEvent(event, id, value, std::move(text), data);
    // A click on the tree reports the same choice twice (its hide and the click itself); both
    // land on the same state here and both go up.
    const ETempBatchOrderFlags flags = flagWord(value);
    setChoice(text, flags, batchFlagName(flags));
    notifyChoice(value, text);
    return true;
}

void COpBasketsLineEdit::showTree()
{
    COpBasketsComboBox::placeTree(this, m_tree);
}

void COpBasketsLineEdit::hideTree()
{
    if (m_tree)
        m_tree->hide();
}

void COpBasketsLineEdit::slotTextChanged(const QString &text)
{
    if (m_tree)
        m_tree->setFilterText(text, m_tree->treeWidget()->topLevelItem(0));
}

void COpBasketsLineEdit::slotTextFinished()
{
    clearFocus();
}

void COpBasketsLineEdit::focusInEvent(QFocusEvent *event)
{
    WK::CLineEdit::focusInEvent(event);
    showTree();
}

void COpBasketsLineEdit::focusOutEvent(QFocusEvent *event)
{
    WK::CLineEdit::focusOutEvent(event);
    hideTree();
}

void COpBasketsLineEdit::setChoice(const QString &name, ETempBatchOrderFlags flags, const QString &toolTip)
{
    setText(name);
    m_batchOp = flags;
    setToolTip(toolTip);
}

void COpBasketsLineEdit::notifyChoice(int flags, const QString &name)
{
    deliverEvent(EVENT_BASKET_CHOSEN, id(), flags, name, nullptr);
}

} // namespace TC
