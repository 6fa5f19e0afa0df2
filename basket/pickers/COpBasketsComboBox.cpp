#include "COpBasketsComboBox.h"

#include "CBasketImportDialog.h"
#include "COpBasketsTree.h"

#include "BasketHelpers.h"
#include "CBasketSetting.h"
#include "CUserConfig.h"

#include "CBaseDialog.h"
#include "CMessageBox.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFocusEvent>
#include <QMimeData>
#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <QTimer>
#include <QTreeWidget>

#include <utility>

namespace TC {
namespace {

const int kChoiceRole = Qt::UserRole;

ETempBatchOrderFlags flagWord(int flags)
{
    return ETempBatchOrderFlags(ETempBatchOrderFlag(flags));
}

} // namespace

COpBasketsComboBox::COpBasketsComboBox(int id, QWidget *parent)
    : WK::CComboBox(id, parent)
{
    setObjectName(QStringLiteral("COpBasketsComboBox"));
    m_tree = new COpBasketsTree(this);
    m_tree->setAutoActivate(false);

    setEditable(true);
    // Typing only filters the tree: no item may be added, and no inline completion may turn a
    // partial name into the single item's text.
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    setFocusPolicy(Qt::StrongFocus);

    setAcceptDrops(true);

    connect(this, &QComboBox::editTextChanged, this, &COpBasketsComboBox::slotTextChanged);

    addItem(noBasketText());
}

COpBasketsComboBox::~COpBasketsComboBox() = default;

QString COpBasketsComboBox::noBasketText()
{
    return QStringLiteral("请选择篮子");
}

QString COpBasketsComboBox::enterBasketText()
{
    return QStringLiteral("请输入篮子名称");
}

bool COpBasketsComboBox::isFixedBasketName(const QString &name)
{
    return name == QStringLiteral("剪贴板组合") || name == QStringLiteral("自定义组合")
        || name == QStringLiteral("调仓组合");
}

void COpBasketsComboBox::placeTree(const QWidget *editor, QWidget *tree)
{
    if (!editor || !tree)
        return;
    const QPoint below = editor->mapToGlobal(QPoint(0, editor->height()));
    const QScreen *screen = QGuiApplication::screenAt(below);
    if (!screen)
        screen = editor->screen();
    const QRect available = screen ? screen->availableGeometry() : QRect();

    tree->show();
    tree->raise();

    const bool fitsBelow = below.y() + tree->height() <= available.bottom() + 1
        && below.x() + tree->width() <= available.right() + 1;
    if (fitsBelow) {
        tree->move(below);
    } else {
        const QPoint top = editor->mapToGlobal(QPoint(0, 0));
        tree->move(top.x(), top.y() - tree->height());
    }
}

void COpBasketsComboBox::setBatchOp(ETempBatchOrderFlags flags, bool notify)
{
    if (!m_tree)
        return;
    m_tree->addBatchFlag(flags);
    const QString name = batchFlagName(flags);
    setChoice(name, int(flags), name);
    if (notify)
        notifyChoice(int(flags), name);
}

void COpBasketsComboBox::setBatchOp(int flags, bool notify)
{
    setBatchOp(flagWord(flags), notify);
}

ETempBatchOrderFlags COpBasketsComboBox::batchOp() const
{
    return flagWord(itemData(0, kChoiceRole).toInt());
}

void COpBasketsComboBox::reSetFlag(ETempBatchOrderFlags flags)
{
    if (m_tree)
        m_tree->reSetFlag(flags);
}

ETempBatchOrderFlags COpBasketsComboBox::getAllFlag() const
{
    return m_tree ? m_tree->getAllFlag() : ETempBatchOrderFlags();
}

void COpBasketsComboBox::setOperationType(ttservice::EOperationType op)
{
    if (m_tree)
        m_tree->setOperationType(op);
}

void COpBasketsComboBox::setBrokerType(ttservice::EVQBrokerType type)
{
    if (!m_tree)
        return;
    m_tree->setBrokerType(type);
    updateBasketSetting();
}

ttservice::EVQBrokerType COpBasketsComboBox::getBrokerType() const
{
    return m_tree ? m_tree->getBrokerType() : ttservice::BROKER_TYPE_NONE;
}

void COpBasketsComboBox::setBasket(QString name, bool force)
{
    const int flags = int(nameBatchFlag(name));
    if (flags != 0) {
        const QString toolTip = batchFlagName(flagWord(flags));
        setChoice(name, flags, toolTip);
        notifyChoice(flags, name);
        return;
    }

    CUserConfig *config = getUserConfig();
    if (!config || !m_tree)
        return;
    QMap<QString, CBasketSetting> &baskets = config->baskets();
    if (!baskets.contains(name) && !force)
        return;
    // A forced name (an instruction's basket) is entered as an empty basket, so that it stays
    // a choice afterwards; an empty basket has the stock broker type, and on other broker types
    // such a name is refused here all the same.
    if (baskets[name].m_brokerType != m_tree->getBrokerType())
        return;

    setChoice(name, 0, QString());
    notifyChoice(0, name);
}

void COpBasketsComboBox::updateBasketSetting()
{
    const QString text = currentText();
    if (text == noBasketText())
        return;

    const CUserConfig *config = getUserConfig();
    const bool isStored = config && config->baskets().contains(text);
    const bool fitsBroker =
        isStored && m_tree && config->baskets().constFind(text)->m_brokerType == m_tree->getBrokerType();
    if (fitsBroker || isFixedBasketName(text)) {
        setToolTip(text);
        return;
    }

    setChoice(noBasketText(), 0, QString());
    notifyChoice(0, QString());
}

bool COpBasketsComboBox::canCustom() const
{
    switch (int(batchOp())) {
    case BATCH_NONE:
    case BATCH_CLIPBOARD:
    case 16:
    case 32:
        return true;
    default:
        return false;
    }
}

bool COpBasketsComboBox::importFile(const QString &path)
{
    if (path.isEmpty() || !m_tree)
        return false;
    const ttservice::EVQBrokerType brokerType = m_tree->getBrokerType();
    const CBasketFileReader::Result result =
        CBasketFileReader::readFile(path, brokerType == ttservice::BROKER_TYPE_FUTURE);
    const QString fileName = QFileInfo(path).fileName();
    if (!result.m_error.isEmpty()) {
        WK::CMessageBox::warning(0, this, QStringLiteral("导入篮子"), fileName + QStringLiteral("：") + result.m_error);
        return false;
    }
    CBasketImportDialog dialog(fileName, result, brokerType, this);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    setBasket(dialog.basketName(), false);
    return true;
}

void COpBasketsComboBox::slotImport()
{
    // Qt's file dialog is modal: a run without a user imports through importFile only.
    if (!WK::CBaseDialog::isInteractive())
        return;
    importFile(QFileDialog::getOpenFileName(this, QStringLiteral("导入篮子"), QString(),
                                            QStringLiteral("篮子文件 (*.csv *.txt *.xlsx)")));
}

void COpBasketsComboBox::dragEnterEvent(QDragEnterEvent *event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.size() == 1 && urls.first().isLocalFile())
        event->acceptProposedAction();
}

void COpBasketsComboBox::dropEvent(QDropEvent *event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.size() != 1 || !urls.first().isLocalFile())
        return;
    event->acceptProposedAction();
    // The preview opens after the drop has returned to the dragging program.
    const QString path = urls.first().toLocalFile();
    QTimer::singleShot(0, this, [this, path] { importFile(path); });
}

void COpBasketsComboBox::setFixFont(const QFont &font)
{
    WK::CComboBox::setFixFont(font);
    if (m_tree)
        m_tree->treeWidget()->setFont(font);
}

bool COpBasketsComboBox::handleEvent(int event, int id, int value, QString text, void *data)
{
    switch (event) {
    case EVENT_BASKET_CHOSEN:
        // A click on the tree reports the same choice twice (its hide and the click itself);
        // both land on the same state here and both go up.
        setChoice(text, value, batchFlagName(flagWord(value)));
        notifyChoice(value, text);
        hideTree();
        clearFocus();
        return true;
    case EVENT_TOOL_TIP:
        setToolTip(text);
        return true;
    default:
        return WK::CComboBox::handleEvent(event, id, value, std::move(text), data);
    }
}

void COpBasketsComboBox::showPopup()
{
    showTree();
}

void COpBasketsComboBox::hidePopup()
{
    hideTree();
}

void COpBasketsComboBox::showTree()
{
    placeTree(this, m_tree);
}

void COpBasketsComboBox::hideTree()
{
    if (m_tree)
        m_tree->hide();
    if (currentText().isEmpty())
        setCurrentText(enterBasketText());
}

void COpBasketsComboBox::slotTextChanged(const QString &text)
{
    if (m_tree)
        m_tree->setFilterText(text, m_tree->treeWidget()->topLevelItem(0));
}

void COpBasketsComboBox::focusInEvent(QFocusEvent *event)
{
    WK::CComboBox::focusInEvent(event);
    showTree();
}

void COpBasketsComboBox::focusOutEvent(QFocusEvent *event)
{
    WK::CComboBox::focusOutEvent(event);
    hideTree();
}

void COpBasketsComboBox::setChoice(const QString &name, int flags, const QString &toolTip)
{
    setItemText(0, name);
    setItemData(0, flags, kChoiceRole);
    // The edit may still hold a typed filter while the item's text stays as it was; the choice
    // replaces it either way.
    setCurrentText(name);
    setToolTip(toolTip);
}

void COpBasketsComboBox::notifyChoice(int flags, const QString &name)
{
    deliverEvent(EVENT_BASKET_CHOSEN, id(), flags, name, nullptr);
}

} // namespace TC
