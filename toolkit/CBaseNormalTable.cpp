#include "CBaseNormalTable.h"

#include "CBaseTableColumnPushButtonDelegate.h"
#include "CDoubleValidator.h"
#include "CIntValidator.h"
#include "CTableCellEvent.h"
#include "CTableColumnFilterPopup.h"
#include "CTableItemDelegate.h"
#include "CTableModel.h"
#include "CTableView.h"
#include "CUiResource.h"
#include "TextHelpers.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTableView>

#include <algorithm>
#include <utility>

namespace WK {

CBaseNormalTable::CBaseNormalTable(const QString &name, int selectType, QWidget *parent)
    : CBaseWidget(name, false, parent)
    , m_model(new CTableModel(this))
    , m_view(new CTableView(this))
    , m_delegate(new CTableItemDelegate(this))
    , m_selectType(selectType)
{
    m_view->setObjectName(QStringLiteral("table_view"));
    m_view->setModel(m_model);
    m_view->setItemDelegate(m_delegate);
    m_view->setWordWrap(false);
    m_view->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
    QHeaderView *rows = m_view->verticalHeader();
    rows->hide();
    rows->setSectionResizeMode(QHeaderView::Fixed); // uniform rows: no per-row size hints
    rows->setDefaultSectionSize(24);
    QHeaderView *header = m_view->horizontalHeader();
    header->setHighlightSections(false);
    header->setDefaultAlignment(Qt::AlignCenter);
    header->setSectionsClickable(true);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    switch (selectType) {
    case ST_NONE:
        m_view->setSelectionMode(QAbstractItemView::NoSelection);
        break;
    case ST_SINGLE_CELL:
        m_view->setSelectionMode(QAbstractItemView::SingleSelection);
        m_view->setSelectionBehavior(QAbstractItemView::SelectItems);
        break;
    case ST_SINGLE_ROW:
        m_view->setSelectionMode(QAbstractItemView::SingleSelection);
        m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
        break;
    default:
        m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
        m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
        break;
    }
    m_view->installEventFilter(this);
    setInnerStretchWidget(m_view, 0, 0, 0, 0);

    m_model->setEditHandler([this](int rowId, int column, const QString &text) { return submitEdit(rowId, column, text); });
    m_model->setCheckHandler([this](int rowId, int column, bool checked) { onCheckToggled(rowId, column, checked); });
    connect(header, &QHeaderView::sectionClicked, this, &CBaseNormalTable::onHeaderClicked);
    connect(header, &QHeaderView::customContextMenuRequested, this, &CBaseNormalTable::onHeaderMenu);
    connect(header, &QHeaderView::sectionResized, this, [this](int column, int, int size) {
        // A hidden section reports 0; the width to come back to is the one before.
        if (size > 0 && validColumn(column))
            m_model->setColumnLayout(column, size, m_model->tableColumn(column).m_visible);
    });
    connect(m_view, &QTableView::customContextMenuRequested, this, &CBaseNormalTable::onContextMenu);
    connect(m_view, &QTableView::clicked, this, &CBaseNormalTable::onCellClicked);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex &current) { onCurrentRowChanged(current); });
    connect(m_model, &QAbstractItemModel::modelReset, this, [this]() {
        if (m_view->horizontalHeader()->count() != m_appliedColumnCount)
            applyAllColumns();
    });
    connect(m_model, &QAbstractItemModel::columnsInserted, this, [this](const QModelIndex &, int first, int last) {
        for (int column = first; column <= last; ++column)
            applyColumnToView(column);
        m_appliedColumnCount = columnCount();
    });

    applyFlags();
    applyLook();
}

CBaseNormalTable::~CBaseNormalTable() = default;

void CBaseNormalTable::setFlag(int flag)
{
    m_flag = flag;
    applyFlags();
}

void CBaseNormalTable::applyFlags()
{
    QHeaderView *header = m_view->horizontalHeader();
    // The delegate draws the grid; the view's own would cost more than the cells it frames.
    m_view->setShowGrid(false);
    applyGridLines();
    header->setSectionsMovable(m_flag & TF_COLUMN_MOVABLE);
    header->setSectionResizeMode((m_flag & TF_COLUMN_RESIZABLE) ? QHeaderView::Interactive : QHeaderView::Fixed);
    m_model->setTotalsVisible(m_flag & TF_TOTALS_LINE);
}

void CBaseNormalTable::applyLook()
{
    const CUiResource *resources = CUiResource::instance();
    QPalette palette = m_view->palette();
    palette.setColor(QPalette::Base, resources->getColor(QStringLiteral("clr_table_background")));
    palette.setColor(QPalette::Text, resources->getColor(QStringLiteral("clr_text_default")));
    palette.setColor(QPalette::Highlight, resources->getColor(QStringLiteral("clr_table_selection_hover")));
    palette.setColor(QPalette::HighlightedText, resources->getColor(QStringLiteral("clr_text_default")));
    m_view->setPalette(palette);
    applyGridLines();
}

void CBaseNormalTable::applyGridLines()
{
    // The colour the view would give its own grid.
    QStyleOptionViewItem option;
    option.initFrom(m_view);
    const int hint = m_view->style()->styleHint(QStyle::SH_Table_GridLineColor, &option, m_view);
    m_delegate->setGridLines(m_flag & TF_GRID_LINES, QColor::fromRgba(static_cast<QRgb>(hint)));
    m_view->viewport()->update();
}

void CBaseNormalTable::themeChanged()
{
    CBaseWidget::themeChanged();
    applyLook();
    m_view->viewport()->update();
}

// ---- columns -------------------------------------------------------------------------------

bool CBaseNormalTable::validColumn(int column) const
{
    return column >= 0 && column < columnCount();
}

template <typename Change>
void CBaseNormalTable::changeColumn(int column, Change change)
{
    if (!validColumn(column))
        return;
    CTableColumn description = m_model->tableColumn(column);
    change(description);
    m_model->setTableColumn(column, description);
}

void CBaseNormalTable::applyColumnToView(int column)
{
    if (!validColumn(column))
        return;
    const CTableColumn &description = m_model->tableColumn(column);
    if (description.m_visible && description.m_width > 0)
        m_view->horizontalHeader()->resizeSection(column, description.m_width);
    m_view->setColumnHidden(column, !description.m_visible);
}

void CBaseNormalTable::applyAllColumns()
{
    for (int column = 0; column < columnCount(); ++column)
        applyColumnToView(column);
    m_appliedColumnCount = columnCount();
}

int CBaseNormalTable::addColumn(const QString &title, int width, Qt::Alignment alignment)
{
    return addColumn(CTableColumn(title, width, alignment));
}

int CBaseNormalTable::addColumn(const CTableColumn &column)
{
    const int number = m_model->addTableColumn(column);
    applyColumnToView(number);
    return number;
}

void CBaseNormalTable::removeColumn(int column)
{
    if (!validColumn(column))
        return;
    // Column delegates and validators move down with the columns after the removed one.
    QAbstractItemDelegate *removed = m_view->itemDelegateForColumn(column);
    for (int c = column; c + 1 < columnCount(); ++c)
        m_view->setItemDelegateForColumn(c, m_view->itemDelegateForColumn(c + 1));
    m_view->setItemDelegateForColumn(columnCount() - 1, nullptr);
    if (removed && removed->parent() == this) {
        bool stillUsed = false;
        for (int c = 0; c + 1 < columnCount() && !stillUsed; ++c)
            stillUsed = m_view->itemDelegateForColumn(c) == removed;
        if (!stillUsed)
            delete removed;
    }
    m_delegate->columnRemoved(column);
    if (m_externalFilters.contains(column)) {
        QMap<int, QSet<QString>> moved;
        for (auto it = m_externalFilters.cbegin(); it != m_externalFilters.cend(); ++it) {
            if (it.key() != column)
                moved.insert(it.key() > column ? it.key() - 1 : it.key(), it.value());
        }
        m_externalFilters = moved;
    }
    m_model->removeTableColumn(column);
    m_appliedColumnCount = columnCount();
}

void CBaseNormalTable::moveColumn(int column, int visualIndex)
{
    if (!validColumn(column))
        return;
    QHeaderView *header = m_view->horizontalHeader();
    header->moveSection(header->visualIndex(column), qBound(0, visualIndex, columnCount() - 1));
}

void CBaseNormalTable::clearColumns()
{
    QSet<QAbstractItemDelegate *> delegates;
    for (int column = 0; column < columnCount(); ++column) {
        if (QAbstractItemDelegate *delegate = m_view->itemDelegateForColumn(column))
            delegates.insert(delegate);
        m_view->setItemDelegateForColumn(column, nullptr);
    }
    for (QAbstractItemDelegate *delegate : qAsConst(delegates)) {
        if (delegate->parent() == this)
            delete delegate;
    }
    m_delegate->clearValidators();
    m_externalFilters.clear();
    m_model->clearTableColumns();
    m_view->horizontalHeader()->setSortIndicatorShown(false);
    m_appliedColumnCount = 0;
}

void CBaseNormalTable::setColumnCount(int count)
{
    count = std::max(0, count);
    if (count >= columnCount()) {
        m_model->setTableColumnCount(count);
        applyAllColumns();
        return;
    }
    m_model->beginUpdate();
    while (columnCount() > count)
        removeColumn(columnCount() - 1);
    m_model->endUpdate();
    applyAllColumns();
}

int CBaseNormalTable::columnCount() const
{
    return m_model->columnCount();
}

CTableColumn CBaseNormalTable::column(int column) const
{
    CTableColumn description = m_model->tableColumn(column);
    description.m_width = columnWidth(column);
    return description;
}

void CBaseNormalTable::setColumn(int column, const CTableColumn &description)
{
    if (!validColumn(column))
        return;
    m_model->setTableColumn(column, description);
    applyColumnToView(column);
}

void CBaseNormalTable::setColumnTitle(int column, const QString &title)
{
    changeColumn(column, [&title](CTableColumn &c) { c.m_title = title; });
}

void CBaseNormalTable::setColumnTitles(const QStringList &titles)
{
    for (int column = 0; column < titles.size() && column < columnCount(); ++column)
        setColumnTitle(column, titles.at(column));
}

QString CBaseNormalTable::columnTitle(int column) const
{
    return m_model->tableColumn(column).m_title;
}

void CBaseNormalTable::setColumnWidth(int column, int width)
{
    if (!validColumn(column) || width <= 0)
        return;
    m_model->setColumnLayout(column, width, isColumnVisible(column));
    if (isColumnVisible(column))
        m_view->horizontalHeader()->resizeSection(column, width);
}

int CBaseNormalTable::columnWidth(int column) const
{
    if (!validColumn(column))
        return 0;
    const int shown = m_view->horizontalHeader()->sectionSize(column);
    return shown > 0 ? shown : m_model->tableColumn(column).m_width;
}

void CBaseNormalTable::setColumnVisible(int column, bool visible)
{
    if (!validColumn(column))
        return;
    m_model->setColumnLayout(column, columnWidth(column), visible);
    applyColumnToView(column);
}

bool CBaseNormalTable::isColumnVisible(int column) const
{
    return validColumn(column) && m_model->tableColumn(column).m_visible;
}

void CBaseNormalTable::setColumnAlignment(int column, Qt::Alignment alignment)
{
    changeColumn(column, [alignment](CTableColumn &c) { c.m_alignment = alignment; });
}

void CBaseNormalTable::setColumnFormat(int column, EColumnFormat format, int precision, int numberFlags)
{
    changeColumn(column, [=](CTableColumn &c) {
        c.m_format = format;
        c.m_precision = precision;
        c.m_numberFlags = numberFlags;
    });
}

void CBaseNormalTable::setColumnEditable(int column, bool editable)
{
    changeColumn(column, [editable](CTableColumn &c) { c.m_editable = editable; });
}

void CBaseNormalTable::setColumnValidator(int column, QValidator *validator)
{
    if (!validColumn(column)) {
        delete validator;
        return;
    }
    m_delegate->setColumnValidator(column, validator);
}

void CBaseNormalTable::setColumnIntValidator(int column, qint64 bottom, qint64 top)
{
    if (!validColumn(column))
        return;
    setColumnValidator(column, new CIntValidator(bottom, top));
    if (m_model->tableColumn(column).m_format == CF_TEXT)
        changeColumn(column, [](CTableColumn &c) { c.m_format = CF_INT; });
}

void CBaseNormalTable::setColumnDoubleValidator(int column, double bottom, double top, int decimals)
{
    if (!validColumn(column))
        return;
    setColumnValidator(column, new CDoubleValidator(bottom, top, decimals));
    if (m_model->tableColumn(column).m_format == CF_TEXT)
        changeColumn(column, [](CTableColumn &c) { c.m_format = CF_DOUBLE; });
}

QValidator *CBaseNormalTable::columnValidator(int column) const
{
    return m_delegate->columnValidator(column);
}

void CBaseNormalTable::setColumnBoldFont(int column, bool bold)
{
    changeColumn(column, [bold](CTableColumn &c) { c.m_bold = bold; });
}

void CBaseNormalTable::setColumnFlashChange(int column, bool flash)
{
    changeColumn(column, [flash](CTableColumn &c) { c.m_flashChange = flash; });
}

void CBaseNormalTable::setColumnSource(int column, std::function<CSourcedValue(int rowId)> source)
{
    changeColumn(column, [&source](CTableColumn &c) { c.m_source = std::move(source); });
}

void CBaseNormalTable::setColumnFilterable(int column, bool filterable)
{
    changeColumn(column, [filterable](CTableColumn &c) { c.m_filterable = filterable; });
}

void CBaseNormalTable::setColumnCheckable(int column, bool checkable)
{
    changeColumn(column, [checkable](CTableColumn &c) { c.m_checkable = checkable; });
}

void CBaseNormalTable::setColumnSummed(int column, bool summed)
{
    changeColumn(column, [summed](CTableColumn &c) { c.m_summed = summed; });
}

void CBaseNormalTable::setColumnColorKey(int column, const QString &key)
{
    changeColumn(column, [&key](CTableColumn &c) { c.m_colorKey = key; });
}

void CBaseNormalTable::setColumnDelegate(int column, QAbstractItemDelegate *delegate)
{
    if (!validColumn(column))
        return;
    QAbstractItemDelegate *old = m_view->itemDelegateForColumn(column);
    m_view->setItemDelegateForColumn(column, delegate);
    if (old && old != delegate && old->parent() == this) {
        bool stillUsed = false;
        for (int c = 0; c < columnCount() && !stillUsed; ++c)
            stillUsed = m_view->itemDelegateForColumn(c) == old;
        if (!stillUsed)
            delete old;
    }
    if (delegate)
        delegate->setParent(this);
}

QVector<int> CBaseNormalTable::visualColumnOrder() const
{
    QVector<int> order;
    const QHeaderView *header = m_view->horizontalHeader();
    for (int visual = 0; visual < header->count(); ++visual)
        order.append(header->logicalIndex(visual));
    return order;
}

// ---- rows ----------------------------------------------------------------------------------

void CBaseNormalTable::setRowCount(int count)
{
    m_model->resizeRows(count);
}

int CBaseNormalTable::rowCount() const
{
    return m_model->visibleRowCount();
}

int CBaseNormalTable::dataRowCount() const
{
    return m_model->dataRowCount();
}

int CBaseNormalTable::addRowBegin()
{
    return m_model->addRowBegin();
}

void CBaseNormalTable::addRowEnd(bool update)
{
    m_model->addRowEnd(update);
}

int CBaseNormalTable::appendRow(const QVector<QVariant> &values)
{
    return m_model->appendRow(values);
}

int CBaseNormalTable::appendRow(const QStringList &texts)
{
    QVector<QVariant> values;
    values.reserve(texts.size());
    for (const QString &text : texts)
        values.append(text);
    return m_model->appendRow(values);
}

bool CBaseNormalTable::updateRow(int rowId, const QVector<QVariant> &values)
{
    return m_model->updateRow(rowId, values);
}

bool CBaseNormalTable::removeRow(int rowId)
{
    return m_model->removeRowById(rowId);
}

int CBaseNormalTable::removeRows(const std::set<int> &rowIds)
{
    return m_model->removeRowsById(rowIds);
}

void CBaseNormalTable::clear()
{
    m_model->clearRows();
    // Row ids start again from 0: per-row button states of the old rows must not carry over.
    for (int column = 0; column < columnCount(); ++column) {
        if (auto *buttons = qobject_cast<CBaseTableColumnPushButtonDelegate *>(m_view->itemDelegateForColumn(column)))
            buttons->clearButtons();
    }
}

void CBaseNormalTable::beginUpdate()
{
    m_model->beginUpdate();
}

void CBaseNormalTable::endUpdate()
{
    m_model->endUpdate();
}

void CBaseNormalTable::recalcAndUpdate()
{
    m_model->recalcAndUpdate();
}

int CBaseNormalTable::rowID(int visualRow) const
{
    return m_model->rowIdAt(visualRow);
}

int CBaseNormalTable::visualRow(int rowId) const
{
    return m_model->visualRowOf(rowId);
}

bool CBaseNormalTable::hasRow(int rowId) const
{
    return m_model->hasRow(rowId);
}

QVector<int> CBaseNormalTable::rowIds() const
{
    return m_model->rowIds();
}

// ---- cells ---------------------------------------------------------------------------------

bool CBaseNormalTable::setItemText(int rowId, int column, const QString &text)
{
    return m_model->setItemText(rowId, column, text);
}

bool CBaseNormalTable::setItemInt(int rowId, int column, qint64 value)
{
    return m_model->setItemInt(rowId, column, value);
}

bool CBaseNormalTable::setItemDouble(int rowId, int column, double value, int precision, int numberFlags)
{
    return m_model->setItemDouble(rowId, column, value, precision, numberFlags);
}

bool CBaseNormalTable::setItemValue(int rowId, int column, const QVariant &value)
{
    return m_model->setItemValue(rowId, column, value);
}

QString CBaseNormalTable::itemText(int rowId, int column) const
{
    return m_model->itemText(rowId, column);
}

QVariant CBaseNormalTable::itemValue(int rowId, int column) const
{
    return m_model->itemValue(rowId, column);
}

int CBaseNormalTable::itemInt(int rowId, int column) const
{
    return static_cast<int>(m_model->itemInt(rowId, column));
}

qint64 CBaseNormalTable::itemLonglong(int rowId, int column) const
{
    return m_model->itemInt(rowId, column);
}

double CBaseNormalTable::itemDouble(int rowId, int column) const
{
    return m_model->itemDouble(rowId, column);
}

void CBaseNormalTable::setItemColorKey(int rowId, int column, const QString &key)
{
    m_model->setItemColorKey(rowId, column, key);
}

void CBaseNormalTable::setRowColorKey(int rowId, const QString &key)
{
    m_model->setRowColorKey(rowId, key);
}

void CBaseNormalTable::setItemEditable(int rowId, int column, bool editable)
{
    m_model->setItemEditable(rowId, column, editable);
}

void CBaseNormalTable::setItemChecked(int rowId, int column, bool checked)
{
    m_model->setItemChecked(rowId, column, checked);
}

bool CBaseNormalTable::isItemChecked(int rowId, int column) const
{
    return m_model->isItemChecked(rowId, column);
}

void CBaseNormalTable::setAllChecked(int column, bool checked)
{
    m_model->setAllChecked(column, checked);
}

void CBaseNormalTable::setRowUserData(int rowId, const QVariant &data)
{
    m_model->setRowUserData(rowId, data);
}

QVariant CBaseNormalTable::rowUserData(int rowId) const
{
    return m_model->rowUserData(rowId);
}

void CBaseNormalTable::setRowUserPointer(int rowId, void *pointer)
{
    m_model->setRowUserData(rowId, QVariant::fromValue(pointer));
}

void *CBaseNormalTable::rowUserPointer(int rowId) const
{
    const QVariant data = m_model->rowUserData(rowId);
    return data.userType() == QMetaType::VoidStar ? data.value<void *>() : nullptr;
}

void CBaseNormalTable::setItemWidget(int rowId, int column, QWidget *widget)
{
    const int row = visualRow(rowId);
    if (row < 0 || !validColumn(column)) {
        delete widget;
        return;
    }
    m_view->setIndexWidget(m_model->index(row, column), widget);
}

QWidget *CBaseNormalTable::itemWidget(int rowId, int column) const
{
    const int row = visualRow(rowId);
    if (row < 0 || !validColumn(column))
        return nullptr;
    return m_view->indexWidget(m_model->index(row, column));
}

// ---- sort and filters ----------------------------------------------------------------------

void CBaseNormalTable::sortByColumn(int column, Qt::SortOrder order)
{
    m_model->sortByColumn(column, order);
    QHeaderView *header = m_view->horizontalHeader();
    header->setSortIndicatorShown(m_model->sortColumn() >= 0);
    if (m_model->sortColumn() >= 0)
        header->setSortIndicator(m_model->sortColumn(), order);
}

void CBaseNormalTable::clearSort()
{
    sortByColumn(-1, Qt::AscendingOrder);
}

void CBaseNormalTable::onHeaderClicked(int column)
{
    if (!(m_flag & TF_SORTABLE) || !validColumn(column))
        return;
    Qt::SortOrder order = Qt::AscendingOrder;
    if (m_model->sortColumn() == column && m_model->sortOrder() == Qt::AscendingOrder)
        order = Qt::DescendingOrder;
    sortByColumn(column, order);
}

void CBaseNormalTable::setColumnFilter(int column, const QSet<QString> &accepted)
{
    applyColumnFilter(column, accepted);
}

void CBaseNormalTable::applyColumnFilter(int column, const QSet<QString> &accepted)
{
    if (!validColumn(column))
        return;
    if (!m_filterDataFunc) {
        m_model->setColumnFilter(column, accepted);
        return;
    }
    if (accepted.isEmpty())
        m_externalFilters.remove(column);
    else
        m_externalFilters.insert(column, accepted);
    m_filterDataFunc(m_externalFilters);
}

void CBaseNormalTable::clearFilter(int column)
{
    // The owner who filters by itself is not called back: clearing comes before its own reload.
    if (column < 0)
        m_externalFilters.clear();
    else
        m_externalFilters.remove(column);
    m_model->clearFilter(column);
}

QMap<int, QSet<QString>> CBaseNormalTable::columnFilters() const
{
    return m_filterDataFunc ? m_externalFilters : m_model->columnFilters();
}

void CBaseNormalTable::setFilterItemsFunc(std::function<QSet<QString>(int)> func)
{
    m_filterItemsFunc = std::move(func);
}

void CBaseNormalTable::setFilterDataFunc(std::function<void(const QMap<int, QSet<QString>> &)> func)
{
    m_filterDataFunc = std::move(func);
    if (m_filterDataFunc)
        m_model->clearFilter();
}

CTableColumnFilterPopup *CBaseNormalTable::showFilterPopup(int column)
{
    if (!validColumn(column) || !m_model->tableColumn(column).m_filterable)
        return nullptr;
    const QSet<QString> values = m_filterItemsFunc ? m_filterItemsFunc(column) : m_model->distinctTexts(column);
    auto *popup = new CTableColumnFilterPopup(column, values, columnFilters().value(column), this);
    connect(popup, &CTableColumnFilterPopup::sigAccepted, this, &CBaseNormalTable::applyColumnFilter);
    const QHeaderView *header = m_view->horizontalHeader();
    popup->move(header->mapToGlobal(QPoint(header->sectionViewportPosition(column), header->height())));
    popup->show();
    return popup;
}

void CBaseNormalTable::onHeaderMenu(const QPoint &pos)
{
    if (m_flag & TF_COLUMN_FILTER)
        showFilterPopup(m_view->horizontalHeader()->logicalIndexAt(pos));
}

// ---- totals --------------------------------------------------------------------------------

void CBaseNormalTable::setTotalsLineVisible(bool visible)
{
    setFlag(visible ? (m_flag | TF_TOTALS_LINE) : (m_flag & ~TF_TOTALS_LINE));
}

void CBaseNormalTable::setStatText(int column, const QString &text)
{
    m_model->setStatText(column, text);
}

QString CBaseNormalTable::statText(int column) const
{
    return m_model->statText(column);
}

// ---- edits and events ----------------------------------------------------------------------

void CBaseNormalTable::setValidateFunc(std::function<bool(int, int, QString &)> func)
{
    m_validateFunc = std::move(func);
}

bool CBaseNormalTable::submitEdit(int rowId, int column, const QString &text)
{
    if (!m_model->isItemEditable(rowId, column))
        return false;
    const QString typed = text.trimmed();
    if (QValidator *validator = columnValidator(column)) {
        QString probe = typed;
        int pos = 0;
        if (validator->validate(probe, pos) != QValidator::Acceptable)
            return false;
    }
    CTableCellEvent check(rowId, column, typed);
    if (m_validateFunc && !m_validateFunc(rowId, column, check.m_text))
        check.m_accept = false;
    if (check.m_accept)
        deliverEvent(TE_VALIDATE_EDIT, rowId, column, check.m_text, &check);
    if (!check.m_accept) {
        // A refusal may come with a correction (the largest amount allowed, the old name):
        // the cell shows it, but no edit took place.
        if (check.m_text != typed)
            m_model->setItemFromText(rowId, column, check.m_text);
        return false;
    }
    m_model->setItemFromText(rowId, column, check.m_text);
    // Handlers read numbers from the text: it goes without separators.
    CTableCellEvent edited(rowId, column, m_model->itemEditText(rowId, column));
    deliverEvent(TE_CELL_EDITED, rowId, column, edited.m_text, &edited);
    Q_EMIT sigCellEdited(rowId, column, edited.m_text);
    return true;
}

void CBaseNormalTable::onCheckToggled(int rowId, int column, bool checked)
{
    CTableCellEvent toggled(rowId, column, QString::number(column));
    toggled.m_checked = checked;
    deliverEvent(TE_ITEM_CHECKED, rowId, checked ? 1 : 0, toggled.m_text, &toggled);
    Q_EMIT sigItemChecked(rowId, column, checked);
}

void CBaseNormalTable::onCellClicked(const QModelIndex &index)
{
    const int rowId = m_model->rowIdAt(index.row());
    if (rowId < 0)
        return;
    CTableCellEvent clicked(rowId, index.column(), QString::number(index.column()));
    deliverEvent(TE_CELL_CLICKED, rowId, index.column(), clicked.m_text, &clicked);
    Q_EMIT sigCellClicked(rowId, index.column());
}

void CBaseNormalTable::onCurrentRowChanged(const QModelIndex &current)
{
    const int rowId = current.isValid() ? m_model->rowIdAt(current.row()) : -1;
    if (rowId < 0)
        return;
    deliverEvent(TE_ROW_SELECTED, rowId, rowId);
    Q_EMIT sigCurrentRowChanged(rowId);
}

// ---- selection -----------------------------------------------------------------------------

std::set<int> CBaseNormalTable::selectedRows() const
{
    std::set<int> rowIds;
    const QItemSelectionModel *selection = m_view->selectionModel();
    if (!selection)
        return rowIds;
    for (const QItemSelectionRange &range : selection->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            const int rowId = m_model->rowIdAt(row);
            if (rowId >= 0)
                rowIds.insert(rowId);
        }
    }
    return rowIds;
}

void CBaseNormalTable::selectRow(int rowId)
{
    const int row = visualRow(rowId);
    if (row >= 0)
        m_view->selectRow(row);
}

int CBaseNormalTable::currentRowId() const
{
    const QModelIndex current = m_view->currentIndex();
    return current.isValid() ? m_model->rowIdAt(current.row()) : -1;
}

int CBaseNormalTable::deleteSelectedRows()
{
    std::set<int> rowIds = selectedRows();
    if (rowIds.empty())
        return 0;
    const int count = m_model->removeRowsById(rowIds);
    deliverEvent(TE_ROWS_DELETED, 0, count, QString(), &rowIds);
    Q_EMIT sigRowsDeleted(rowIds);
    return count;
}

QString CBaseNormalTable::selectedRowsText() const
{
    std::vector<int> rows;
    for (int rowId : selectedRows())
        rows.push_back(visualRow(rowId));
    std::sort(rows.begin(), rows.end());
    QVector<int> columns;
    for (int column : visualColumnOrder()) {
        if (isColumnVisible(column))
            columns.append(column);
    }
    QStringList lines;
    for (int row : rows) {
        QStringList cells;
        for (int column : qAsConst(columns))
            cells.append(m_model->itemText(m_model->rowIdAt(row), column));
        lines.append(cells.join(QLatin1Char('\t')));
    }
    return lines.join(QLatin1Char('\n'));
}

void CBaseNormalTable::copySelectedRows()
{
    const QString text = selectedRowsText();
    if (!text.isEmpty())
        QGuiApplication::clipboard()->setText(text);
}

// ---- context menu and paste ----------------------------------------------------------------

QAction *CBaseNormalTable::addMenuAction(const QString &text, std::function<void()> func)
{
    auto *action = new QAction(text, this);
    connect(action, &QAction::triggered, this, [func = std::move(func)]() {
        if (func)
            func();
    });
    m_menuEntries.push_back(action);
    return action;
}

void CBaseNormalTable::addMenuSeparator()
{
    m_menuEntries.push_back(nullptr);
}

QMenu *CBaseNormalTable::createContextMenu()
{
    auto *menu = new QMenu(this);
    menu->setToolTipsVisible(true);
    const bool anySelected = !selectedRows().empty();
    if (m_flag & TF_COPY_ROWS) {
        QAction *copy = menu->addAction(QStringLiteral("复制"));
        copy->setEnabled(anySelected);
        connect(copy, &QAction::triggered, this, &CBaseNormalTable::copySelectedRows);
    }
    if (m_flag & TF_DELETE_ROWS) {
        QAction *remove = menu->addAction(QStringLiteral("删除"));
        remove->setEnabled(anySelected);
        connect(remove, &QAction::triggered, this, &CBaseNormalTable::deleteSelectedRows);
    }
    if (m_pasteFunc) {
        QAction *pasteAction = menu->addAction(QStringLiteral("粘贴"));
        pasteAction->setToolTip(m_pasteHint);
        connect(pasteAction, &QAction::triggered, this, &CBaseNormalTable::paste);
    }
    if (!menu->isEmpty() && !m_menuEntries.empty() && m_menuEntries.front())
        menu->addSeparator();
    for (QAction *action : m_menuEntries) {
        if (action)
            menu->addAction(action);
        else
            menu->addSeparator();
    }
    return menu;
}

void CBaseNormalTable::onContextMenu(const QPoint &pos)
{
    if (!(m_flag & TF_CONTEXT_MENU))
        return;
    QMenu *menu = createContextMenu();
    if (menu->isEmpty()) {
        delete menu;
        return;
    }
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(m_view->viewport()->mapToGlobal(pos));
}

void CBaseNormalTable::setPasteDataFunc(const QString &hint, std::function<void()> func)
{
    m_pasteHint = hint;
    m_pasteFunc = std::move(func);
}

bool CBaseNormalTable::paste()
{
    if (!m_pasteFunc)
        return false;
    m_pasteFunc();
    return true;
}

bool CBaseNormalTable::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_view || event->type() != QEvent::KeyPress)
        return CBaseWidget::eventFilter(watched, event);
    auto *key = static_cast<QKeyEvent *>(event);
    if (key->matches(QKeySequence::Paste))
        return paste();
    if (key->matches(QKeySequence::Copy) && (m_flag & TF_COPY_ROWS)) {
        copySelectedRows();
        return true;
    }
    if (key->key() == Qt::Key_Delete && key->modifiers() == Qt::NoModifier && (m_flag & TF_DELETE_ROWS)) {
        deleteSelectedRows();
        return true;
    }
    if (isKeyCharOrNum(key) && !(key->modifiers() & Qt::ControlModifier)) {
        // Letters and digits typed over a table start the owner's search, not the view's.
        key->ignore();
        return true;
    }
    return CBaseWidget::eventFilter(watched, event);
}

// ---- column layout -------------------------------------------------------------------------

QString CBaseNormalTable::saveConfigStr() const
{
    QStringList entries;
    for (int column : visualColumnOrder()) {
        entries.append(QStringLiteral("%1:%2:%3")
                           .arg(column)
                           .arg(columnWidth(column))
                           .arg(isColumnVisible(column) ? 1 : 0));
    }
    return QStringLiteral("v1|") + entries.join(QLatin1Char(','));
}

bool CBaseNormalTable::loadConfigStr(const QString &text)
{
    const QString prefix = QStringLiteral("v1|");
    if (!text.startsWith(prefix))
        return false;
    struct Entry
    {
        int m_column = 0;
        int m_width = 0;
        bool m_visible = true;
    };
    std::vector<Entry> entries;
    const QStringList parts = text.mid(prefix.size()).split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        const QStringList fields = part.split(QLatin1Char(':'));
        bool ok[3] = {false, false, false};
        if (fields.size() != 3)
            return false;
        Entry entry;
        entry.m_column = fields.at(0).toInt(&ok[0]);
        entry.m_width = fields.at(1).toInt(&ok[1]);
        const int visible = fields.at(2).toInt(&ok[2]);
        if (!ok[0] || !ok[1] || !ok[2] || (visible != 0 && visible != 1))
            return false;
        entry.m_visible = visible == 1;
        entries.push_back(entry);
    }
    // Columns the text does not know (a newer table) keep their order behind the known ones.
    QSet<int> placed;
    int target = 0;
    for (const Entry &entry : entries) {
        if (!validColumn(entry.m_column) || placed.contains(entry.m_column))
            continue;
        placed.insert(entry.m_column);
        m_model->setColumnLayout(entry.m_column, entry.m_width, entry.m_visible);
        applyColumnToView(entry.m_column);
        moveColumn(entry.m_column, target++);
    }
    return true;
}

int CBaseNormalTable::itemHeight() const
{
    return m_view->verticalHeader()->defaultSectionSize();
}

void CBaseNormalTable::setItemHeight(int height)
{
    if (height > 0)
        m_view->verticalHeader()->setDefaultSectionSize(height);
}

void CBaseNormalTable::adjustVisibleRowsColumnWidth()
{
    const int rows = m_model->rowCount();
    int first = std::max(0, m_view->rowAt(0));
    int last = m_view->rowAt(m_view->viewport()->height() - 1);
    // Not laid out yet (or rows end above the bottom): a screenful from the top is enough.
    if (last < 0)
        last = std::min(rows, first + 50) - 1;
    QFont bold = m_view->font();
    bold.setBold(true);
    const QFontMetrics plainMetrics(m_view->font());
    const QFontMetrics boldMetrics(bold);
    const QFontMetrics headerMetrics(m_view->horizontalHeader()->font());
    const int indicator = m_view->style()->pixelMetric(QStyle::PM_IndicatorWidth);
    for (int column = 0; column < columnCount(); ++column) {
        if (!isColumnVisible(column))
            continue;
        int width = headerMetrics.horizontalAdvance(columnTitle(column)) + 24;
        // The totals line is read too: a sum wider than any of its cells must not be cut.
        width = std::max(width, boldMetrics.horizontalAdvance(statText(column)) + 16);
        const bool checkable = m_model->tableColumn(column).m_checkable;
        for (int row = first; row <= last; ++row) {
            const QModelIndex index = m_model->index(row, column);
            const QString text = index.data(Qt::DisplayRole).toString();
            const bool isBold = index.data(CTableModel::BoldRole).toBool();
            int cell = (isBold ? boldMetrics : plainMetrics).horizontalAdvance(text) + 12;
            if (checkable)
                cell += indicator + 6;
            width = std::max(width, cell);
        }
        setColumnWidth(column, width);
    }
}

} // namespace WK
