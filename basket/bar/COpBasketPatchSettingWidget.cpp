#include "COpBasketPatchSettingWidget.h"

#include "CAutoExpandToolBar.h"
#include "CGlobalOrderParamTable.h"
#include "CJiuGongImageWidget.h"
#include "CSmallNoNormalButton.h"
#include "CStandardTable.h"
#include "CTableCellEvent.h"
#include "CUserConfig.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

namespace TC {
namespace {

constexpr int kHeight = 296;
constexpr int kParamTableFlag = 0x1003fff;
// Grid lines, sorting, moving and resizing columns: the list is a plain list of names.
constexpr int kListFlagsOff = 122;
constexpr int kParamTableChanged = 114;

const QString kNewName = QStringLiteral("新建设置");
const QString kDefaultMark = QStringLiteral("默认");

QMap<QString, QString> &storedSets()
{
    return getUserConfig()->patchSettings();
}

void saveSets()
{
    getUserConfig()->savePatchSettings();
}

} // namespace

COpBasketPatchSettingWidget::COpBasketPatchSettingWidget(QWidget *parent)
    : WK::CFloatWidget(false, parent)
{
    setObjectName(QStringLiteral("basket_patch_setting_widget"));
    setWindowTitle(QStringLiteral("补单算法设置"));
    createUi();
}

COpBasketPatchSettingWidget::~COpBasketPatchSettingWidget() = default;

void COpBasketPatchSettingWidget::createUi()
{
    auto *toolBarBox = new WK::CJiuGongImageWidget(1, QStringLiteral("tc_img_widget_list_default_bg"), 2, 8, 2, 8, this);
    auto *toolBar = new WK::CAutoExpandToolBar(toolBarBox);
    auto *addButton = new WK::CSmallNoNormalButton(BtnAdd, QStringLiteral("增加"), toolBar);
    auto *deleteButton = new WK::CSmallNoNormalButton(BtnDelete, QStringLiteral("删除"), toolBar);
    auto *defaultButton = new WK::CSmallNoNormalButton(BtnSetDefault, QStringLiteral("设为默认"), toolBar);
    m_listTable = new WK::CStandardTable(this, WK::CBaseNormalTable::ST_SINGLE_ROW);
    auto *scroll = new QScrollArea(this);
    m_paramTable = new CGlobalOrderParamTable(ttservice::BROKER_TYPE_STOCK, false, scroll, 0,
                                              ttservice::VQ_TRADER_BASKET, 0);

    addButton->setObjectName(QStringLiteral("patch_add_button"));
    deleteButton->setObjectName(QStringLiteral("patch_delete_button"));
    defaultButton->setObjectName(QStringLiteral("patch_default_button"));
    m_listTable->setObjectName(QStringLiteral("patch_list_table"));
    m_paramTable->setObjectName(QStringLiteral("patch_param_table"));

    addButton->setFixedSize(35, 21);
    deleteButton->setFixedSize(35, 21);
    defaultButton->setFixedSize(60, 21);
    toolBar->setMargin(2, 1, 2, 1);
    toolBar->addToolItem(addButton, false);
    toolBar->addToolItem(deleteButton, false);
    toolBar->addSeparator();
    toolBar->addToolItem(defaultButton, false);
    toolBarBox->setFixedSize(250, 24);
    toolBarBox->setInnerStretchWidget(toolBar, 0, 0, 0, 0);

    m_listTable->setFlag(m_listTable->flag() & ~kListFlagsOff);
    // The second header is read whole at any font: its width follows the text.
    const QString defaultTitle = QStringLiteral("设为默认");
    const int defaultWidth = std::max(50, m_listTable->fontMetrics().horizontalAdvance(defaultTitle) + 16);
    m_listTable->addColumn(QStringLiteral("补单方式"), 227 - defaultWidth, Qt::AlignLeft | Qt::AlignVCenter);
    m_listTable->addColumn(defaultTitle, defaultWidth, Qt::AlignCenter);
    m_listTable->setColumnEditable(ColName, true);
    m_listTable->setFixedSize(253, 260);

    m_paramTable->setFlag(kParamTableFlag);
    m_paramTable->setExpandItemsHidden(false);
    // The timing items stand unfolded here; a table taller than the window scrolls.
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(m_paramTable);
    scroll->setFixedSize(303, 286);

    auto *left = new QVBoxLayout;
    left->setContentsMargins(0, 0, 0, 0);
    left->setSpacing(0);
    left->addWidget(toolBarBox);
    left->addWidget(m_listTable);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(5, 5, 5, 5);
    layout->setSpacing(1);
    layout->addLayout(left);
    layout->addWidget(scroll);
    setFixedSize(sizeHint().width(), kHeight);

    loadSetting(-1);
}

void COpBasketPatchSettingWidget::load()
{
    const QMap<QString, QString> &sets = storedSets();
    const QString defaultName = getUserConfig()->defaultPatchSetting();
    m_listTable->clear();
    m_defaultRow = -1;
    int first = -1;
    m_listTable->beginUpdate();
    for (auto it = sets.cbegin(); it != sets.cend(); ++it) {
        const bool isDefault = it.key() == defaultName;
        const int rowId = m_listTable->appendRow(QStringList{it.key(), isDefault ? kDefaultMark : QString()});
        if (first < 0)
            first = rowId;
        if (isDefault)
            m_defaultRow = rowId;
    }
    m_listTable->endUpdate();
    if (first >= 0)
        m_listTable->selectRow(first);
    loadSetting(first);
}

void COpBasketPatchSettingWidget::setOperationType(ttservice::EOperationType operation)
{
    m_paramTable->setOperationType(operation);
}

void COpBasketPatchSettingWidget::slotSetOperation(int operation)
{
    setOperationType(static_cast<ttservice::EOperationType>(operation));
}

bool COpBasketPatchSettingWidget::handleEvent(int event, int id, int value, QString text, void *data)
{
    switch (event) {
    case 5:
        if (id == BtnAdd)
            addSetting();
        else if (id == BtnDelete)
            deleteSetting();
        else if (id == BtnSetDefault)
            setDefaultSetting();
        return true;
    case WK::TE_ROW_SELECTED:
        loadSetting(value);
        return true;
    case WK::TE_VALIDATE_EDIT:
        renameSetting(id, static_cast<WK::CTableCellEvent *>(data));
        return true;
    case kParamTableChanged:
        storeParams();
        return true;
    default:
        return WK::CFloatWidget::handleEvent(event, id, value, text, data);
    }
}

void COpBasketPatchSettingWidget::addSetting()
{
    QMap<QString, QString> &sets = storedSets();
    QString name = kNewName;
    for (int number = 1; sets.contains(name); ++number)
        name = kNewName + QString::number(number);
    // A new set starts from the table's empty parameters.
    m_paramTable->clear();
    sets.insert(name, m_paramTable->param());
    const int rowId = m_listTable->appendRow(QStringList{name, QString()});
    if (sets.size() == 1) {
        getUserConfig()->defaultPatchSetting() = name;
        markDefault(rowId);
    }
    saveSets();
    m_listTable->selectRow(rowId);
    loadSetting(rowId);
}

void COpBasketPatchSettingWidget::deleteSetting()
{
    const int rowId = m_listTable->currentRowId();
    const QString name = selectedName();
    QMap<QString, QString> &sets = storedSets();
    if (rowId < 0 || !sets.contains(name))
        return;
    sets.remove(name);
    // No other set becomes the default by itself: which one is the user's choice.
    if (name == getUserConfig()->defaultPatchSetting()) {
        getUserConfig()->defaultPatchSetting().clear();
        m_defaultRow = -1;
    }
    saveSets();
    m_listTable->removeRow(rowId);
    // The view moves the selection to a neighbour, or to none; the parameters shown must be
    // that row's, never the deleted set's.
    loadSetting(m_listTable->currentRowId());
}

void COpBasketPatchSettingWidget::setDefaultSetting()
{
    const int rowId = m_listTable->currentRowId();
    const QString name = selectedName();
    if (rowId < 0 || !storedSets().contains(name))
        return;
    getUserConfig()->defaultPatchSetting() = name;
    saveSets();
    markDefault(rowId);
}

void COpBasketPatchSettingWidget::markDefault(int rowId)
{
    if (m_defaultRow >= 0 && m_listTable->hasRow(m_defaultRow))
        m_listTable->setItemText(m_defaultRow, ColDefault, QString());
    m_defaultRow = rowId;
    m_listTable->setItemText(rowId, ColDefault, kDefaultMark);
}

void COpBasketPatchSettingWidget::loadSetting(int rowId)
{
    m_paramTable->clear();
    const bool hasSet = rowId >= 0 && m_listTable->hasRow(rowId);
    m_paramTable->setEnabled(hasSet);
    if (!hasSet)
        return;
    const QString text = storedSets().value(m_listTable->itemText(rowId, ColName));
    if (!text.isEmpty())
        m_paramTable->setParam(text);
}

void COpBasketPatchSettingWidget::renameSetting(int rowId, WK::CTableCellEvent *edit)
{
    if (!edit || edit->m_column != ColName)
        return;
    const QString oldName = m_listTable->itemText(rowId, ColName);
    const QString newName = edit->m_text;
    if (newName == oldName)
        return;
    QMap<QString, QString> &sets = storedSets();
    // A set without a name could never be renamed or edited again.
    if (oldName.isEmpty() || newName.isEmpty() || sets.contains(newName)) {
        edit->m_text = oldName;
        edit->m_accept = false;
        return;
    }
    if (!sets.contains(oldName))
        return;
    sets.insert(newName, sets.take(oldName));
    if (oldName == getUserConfig()->defaultPatchSetting()) {
        getUserConfig()->defaultPatchSetting() = newName;
        m_defaultRow = rowId;
    }
    saveSets();
}

void COpBasketPatchSettingWidget::storeParams()
{
    const QString name = selectedName();
    if (name.isEmpty())
        return;
    storedSets()[name] = m_paramTable->param();
    saveSets();
}

QString COpBasketPatchSettingWidget::selectedName() const
{
    const int rowId = m_listTable->currentRowId();
    return rowId < 0 ? QString() : m_listTable->itemText(rowId, ColName);
}

} // namespace TC
