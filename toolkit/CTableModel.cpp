#include "CTableModel.h"

#include "CUiResource.h"
#include "TextHelpers.h"

#include "DoubleCompare.h"

#include <QColor>

#include <algorithm>
#include <cmath>
#include <utility>

namespace WK {

namespace {

quint64 flashKey(int rowId, int column)
{
    return (quint64(quint32(rowId)) << 32) | quint32(column);
}

// A double that stands for a number: not the no-value mark, not NaN or an infinity.
bool usableDouble(double value)
{
    return std::isfinite(value) && !ttservice::isNoValue(value);
}

qint64 doubleToInt(double value)
{
    // Out of the range of qint64 the conversion would be undefined; such a cell holds no count.
    if (!usableDouble(value) || std::fabs(value) >= 9.2e18)
        return 0;
    return static_cast<qint64>(value);
}

bool isIntegralType(int type)
{
    switch (type) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Bool:
        return true;
    default:
        return false;
    }
}

// What a cell sorts by: a number, a text, or nothing (empty cells and unknown values).
struct SortKey
{
    int m_kind = 2; // 0 number, 1 text, 2 nothing
    double m_number = 0;
    QString m_text;
};

int compareKeys(const SortKey &a, const SortKey &b)
{
    if (a.m_kind != b.m_kind)
        return a.m_kind < b.m_kind ? -1 : 1;
    if (a.m_kind == 0)
        return a.m_number < b.m_number ? -1 : (b.m_number < a.m_number ? 1 : 0);
    if (a.m_kind == 1)
        return a.m_text.compare(b.m_text);
    return 0;
}

const CTableColumn &emptyColumn()
{
    static const CTableColumn column;
    return column;
}

} // namespace

CTableModel::CTableModel(QObject *parent)
    : QAbstractTableModel(parent)
{
    m_clock.start();
    m_flashTimer.setInterval(100);
    connect(&m_flashTimer, &QTimer::timeout, this, &CTableModel::onFlashTimer);
}

CTableModel::~CTableModel() = default;

int CTableModel::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid())
        return 0;
    return visibleRowCount() + (m_totalsVisible ? 1 : 0);
}

int CTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant CTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.column() >= columnCount() || index.row() < 0)
        return QVariant();
    const int column = index.column();
    const CTableColumn &description = m_columns[static_cast<size_t>(column)];

    if (index.row() >= visibleRowCount()) {
        if (!m_totalsVisible || index.row() > visibleRowCount())
            return QVariant();
        switch (role) {
        case Qt::DisplayRole:
            if (m_totalsDirty)
                recomputeTotals();
            return m_totalsCache.value(column);
        case Qt::TextAlignmentRole:
            return int(description.m_alignment);
        case RowIdRole:
            return -1;
        case TotalsLineRole:
        case BoldRole:
            return true;
        default:
            return QVariant();
        }
    }

    const Row &row = m_rows[static_cast<size_t>(m_visible[static_cast<size_t>(index.row())])];
    const Cell &c = row.m_cells[static_cast<size_t>(column)];
    Cell scratch;
    switch (role) {
    case Qt::DisplayRole:
        return cellText(shownCell(row, column, scratch), column);
    case Qt::EditRole:
        return editText(shownCell(row, column, scratch), column);
    case Qt::TextAlignmentRole:
        return int(description.m_alignment);
    case Qt::ForegroundRole: {
        const QString &key = c.m_colorKey.isEmpty() ? description.m_colorKey : c.m_colorKey;
        if (key.isEmpty())
            return QVariant();
        return CUiResource::instance()->getColor(key);
    }
    case Qt::BackgroundRole: {
        if (!description.m_flashChange || m_flashing.empty())
            return QVariant();
        const Flash *it = flashOf(row.m_id, column);
        if (!it || m_clock.elapsed() - it->m_start >= m_flashDuration)
            return QVariant();
        const char *key = it->m_direction > 0 ? "clr_table_flash_rise"
                          : it->m_direction < 0 ? "clr_table_flash_fall"
                                                : "clr_table_flash";
        QColor color = CUiResource::instance()->getColor(QLatin1String(key));
        // A light wash of the colour: the cell's text must stay readable.
        color.setAlpha(it->m_direction == 0 ? 40 : 70);
        return color;
    }
    case Qt::CheckStateRole:
        if (!description.m_checkable)
            return QVariant();
        return int(c.m_checked ? Qt::Checked : Qt::Unchecked);
    case RowIdRole:
        return row.m_id;
    case TotalsLineRole:
        return false;
    case BoldRole:
        return description.m_bold;
    case NumberRole:
        return shownCell(row, column, scratch).m_number.toVariant();
    default:
        return QVariant();
    }
}

bool CTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const int rowId = index.isValid() ? rowIdAt(index.row()) : -1;
    if (rowId < 0 || index.column() >= columnCount())
        return false;
    const int column = index.column();
    if (role == Qt::CheckStateRole) {
        Cell *c = cell(rowId, column);
        if (!tableColumn(column).m_checkable || !c)
            return false;
        const bool checked = value.toInt() == Qt::Checked;
        if (c->m_checked == checked)
            return true;
        c->m_checked = checked;
        Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
        if (m_checkHandler)
            m_checkHandler(rowId, column, checked);
        return true;
    }
    if (role == Qt::EditRole) {
        if (!isItemEditable(rowId, column))
            return false;
        if (m_editHandler)
            return m_editHandler(rowId, column, value.toString());
        return setItemFromText(rowId, column, value.toString());
    }
    return false;
}

QVariant CTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return QVariant();
    if (role == Qt::DisplayRole)
        return m_columns[static_cast<size_t>(section)].m_title;
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignCenter);
    return QVariant();
}

Qt::ItemFlags CTableModel::flags(const QModelIndex &index) const
{
    if (!index.isValid() || index.column() >= columnCount())
        return Qt::NoItemFlags;
    const int rowId = rowIdAt(index.row());
    if (rowId < 0)
        return Qt::ItemIsEnabled; // the totals line is neither selected nor edited
    Qt::ItemFlags result = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (m_columns[static_cast<size_t>(index.column())].m_checkable)
        result |= Qt::ItemIsUserCheckable;
    if (isItemEditable(rowId, index.column()))
        result |= Qt::ItemIsEditable;
    return result;
}

void CTableModel::sort(int column, Qt::SortOrder order)
{
    sortByColumn(column, order);
}

// ---- columns -------------------------------------------------------------------------------

int CTableModel::addTableColumn(const CTableColumn &column)
{
    const int number = columnCount();
    const bool quiet = m_updateDepth > 0 || m_resetStarted;
    if (quiet)
        ensureReset();
    else
        beginInsertColumns(QModelIndex(), number, number);
    m_columns.push_back(column);
    for (Row &row : m_rows)
        row.m_cells.emplace_back();
    m_totalsDirty = true;
    if (!quiet)
        endInsertColumns();
    return number;
}

bool CTableModel::removeTableColumn(int column)
{
    if (column < 0 || column >= columnCount())
        return false;
    const bool quiet = m_updateDepth > 0 || m_resetStarted;
    if (quiet)
        ensureReset();
    else
        beginRemoveColumns(QModelIndex(), column, column);
    m_columns.erase(m_columns.begin() + column);
    for (Row &row : m_rows)
        row.m_cells.erase(row.m_cells.begin() + column);

    // Filters, sort and totals texts follow the columns that move down by one.
    const bool filtered = m_filters.contains(column);
    QMap<int, QSet<QString>> filters;
    for (auto it = m_filters.cbegin(); it != m_filters.cend(); ++it) {
        if (it.key() != column)
            filters.insert(it.key() > column ? it.key() - 1 : it.key(), it.value());
    }
    m_filters = filters;
    QMap<int, QString> statTexts;
    for (auto it = m_statTexts.cbegin(); it != m_statTexts.cend(); ++it) {
        if (it.key() != column)
            statTexts.insert(it.key() > column ? it.key() - 1 : it.key(), it.value());
    }
    m_statTexts = statTexts;
    const bool sorted = m_sortColumn == column;
    if (m_sortColumn > column)
        --m_sortColumn;
    else if (sorted)
        m_sortColumn = -1;
    clearFlashes();
    m_totalsDirty = true;
    if (!quiet)
        endRemoveColumns();
    if (filtered || sorted)
        relayout();
    return true;
}

void CTableModel::clearTableColumns()
{
    beginUpdate();
    ensureReset();
    m_columns.clear();
    for (Row &row : m_rows)
        row.m_cells.clear();
    m_filters.clear();
    m_statTexts.clear();
    m_sortColumn = -1;
    clearFlashes();
    endUpdate();
}

void CTableModel::setTableColumnCount(int count)
{
    count = std::max(0, count);
    if (count == columnCount())
        return;
    if (count > columnCount()) {
        beginUpdate();
        while (columnCount() < count)
            addTableColumn(CTableColumn());
        endUpdate();
        return;
    }
    beginUpdate();
    while (columnCount() > count)
        removeTableColumn(columnCount() - 1);
    endUpdate();
}

const CTableColumn &CTableModel::tableColumn(int column) const
{
    if (column < 0 || column >= columnCount())
        return emptyColumn();
    return m_columns[static_cast<size_t>(column)];
}

void CTableModel::setTableColumn(int column, const CTableColumn &description)
{
    if (column < 0 || column >= columnCount())
        return;
    m_columns[static_cast<size_t>(column)] = description;
    m_totalsDirty = true;
    if (m_updateDepth > 0 || m_resetStarted) {
        m_relayoutPending = true;
        return;
    }
    Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, column), index(rowCount() - 1, column));
}

void CTableModel::setColumnLayout(int column, int width, bool visible)
{
    if (column < 0 || column >= columnCount())
        return;
    CTableColumn &description = m_columns[static_cast<size_t>(column)];
    if (width > 0)
        description.m_width = width;
    description.m_visible = visible;
}

// ---- rows ----------------------------------------------------------------------------------

int CTableModel::rowIdAt(int visualRow) const
{
    if (visualRow < 0 || visualRow >= visibleRowCount())
        return -1;
    return m_rows[static_cast<size_t>(m_visible[static_cast<size_t>(visualRow)])].m_id;
}

int CTableModel::visualRowOf(int rowId) const
{
    const int index = storageIndexOf(rowId);
    if (index < 0 || index >= static_cast<int>(m_visualPos.size()))
        return -1;
    return m_visualPos[static_cast<size_t>(index)];
}

QVector<int> CTableModel::rowIds() const
{
    QVector<int> ids;
    ids.reserve(dataRowCount());
    for (const Row &row : m_rows)
        ids.append(row.m_id);
    return ids;
}

QVector<int> CTableModel::visibleRowIds() const
{
    QVector<int> ids;
    ids.reserve(visibleRowCount());
    for (int index : m_visible)
        ids.append(m_rows[static_cast<size_t>(index)].m_id);
    return ids;
}

int CTableModel::createRow()
{
    Row row;
    row.m_id = m_nextId++;
    row.m_cells.resize(m_columns.size());
    m_indexById.push_back(dataRowCount());
    m_rows.push_back(std::move(row));
    m_visualPos.push_back(-1);
    return m_rows.back().m_id;
}

int CTableModel::appendRow(const QVector<QVariant> &values)
{
    beginUpdate();
    const int rowId = createRow();
    for (int column = 0; column < values.size(); ++column)
        setItemValue(rowId, column, values.at(column));
    endUpdate();
    return rowId;
}

int CTableModel::addRowBegin()
{
    beginUpdate();
    return createRow();
}

void CTableModel::addRowEnd(bool update)
{
    if (m_updateDepth <= 0)
        return;
    if (--m_updateDepth == 0)
        publish(update);
}

void CTableModel::resizeRows(int count)
{
    count = std::max(0, count);
    beginUpdate();
    ensureReset();
    if (count < dataRowCount()) {
        std::vector<int> tail;
        for (int i = count; i < dataRowCount(); ++i)
            tail.push_back(i);
        eraseRowsAt(tail);
    }
    m_rows.reserve(static_cast<size_t>(count));
    m_visualPos.reserve(static_cast<size_t>(count));
    m_indexById.reserve(static_cast<size_t>(m_nextId + count));
    while (dataRowCount() < count)
        createRow();
    endUpdate();
}

bool CTableModel::removeRowById(int rowId)
{
    const int index = storageIndexOf(rowId);
    if (index < 0)
        return false;
    if (m_updateDepth > 0 || m_resetStarted) {
        ensureReset();
        eraseRowsAt({index});
        return true;
    }
    const int visualRow = m_visualPos[static_cast<size_t>(index)];
    if (visualRow >= 0)
        beginRemoveRows(QModelIndex(), visualRow, visualRow);
    eraseRowsAt({index});
    if (visualRow >= 0)
        endRemoveRows();
    markTotalsDirty();
    return true;
}

int CTableModel::removeRowsById(const std::set<int> &rowIds)
{
    std::vector<int> indexes;
    for (int rowId : rowIds) {
        const int index = storageIndexOf(rowId);
        if (index >= 0)
            indexes.push_back(index);
    }
    if (indexes.size() == 1)
        return removeRowById(m_rows[static_cast<size_t>(indexes.front())].m_id) ? 1 : 0;
    if (indexes.empty())
        return 0;
    std::sort(indexes.begin(), indexes.end());
    beginUpdate();
    ensureReset();
    eraseRowsAt(indexes);
    endUpdate();
    return static_cast<int>(indexes.size());
}

void CTableModel::clearRows()
{
    beginUpdate();
    ensureReset();
    m_rows.clear();
    m_indexById.clear();
    m_visible.clear();
    m_visualPos.clear();
    ++m_visibleVersion;
    m_nextId = 0;
    m_firstUnpublished = 0;
    clearFlashes();
    m_flashTimer.stop();
    endUpdate();
}

void CTableModel::eraseRowsAt(const std::vector<int> &storageIndexes)
{
    if (storageIndexes.empty())
        return;
    // newIndex[i]: where row i goes, -1 when it is erased.
    std::vector<int> newIndex(m_rows.size(), 0);
    size_t next = 0;
    int kept = 0;
    int keptBeforeUnpublished = 0;
    for (size_t i = 0; i < m_rows.size(); ++i) {
        if (next < storageIndexes.size() && storageIndexes[next] == static_cast<int>(i)) {
            newIndex[i] = -1;
            m_indexById[static_cast<size_t>(m_rows[i].m_id)] = -1;
            const size_t id = static_cast<size_t>(m_rows[i].m_id);
            for (std::vector<Flash> &slots : m_flashes) {
                if (id < slots.size())
                    slots[id] = Flash();
            }
            ++next;
            continue;
        }
        newIndex[i] = kept;
        if (static_cast<int>(i) < m_firstUnpublished)
            ++keptBeforeUnpublished;
        if (kept != static_cast<int>(i))
            m_rows[static_cast<size_t>(kept)] = std::move(m_rows[i]);
        ++kept;
    }
    m_rows.resize(static_cast<size_t>(kept));
    m_firstUnpublished = keptBeforeUnpublished;
    // The cells of erased rows flash no more.
    m_flashing.erase(std::remove_if(m_flashing.begin(), m_flashing.end(),
                                    [this](quint64 key) {
                                        return !flashOf(static_cast<int>(key >> 32), static_cast<int>(key & 0xffffffffu));
                                    }),
                     m_flashing.end());

    std::vector<int> visible;
    visible.reserve(m_visible.size());
    for (int index : m_visible) {
        if (newIndex[static_cast<size_t>(index)] >= 0)
            visible.push_back(newIndex[static_cast<size_t>(index)]);
    }
    m_visible.swap(visible);
    rebuildIndex(storageIndexes.front());
    rebuildVisualPos();
}

void CTableModel::rebuildIndex(int from)
{
    for (int i = std::max(0, from); i < dataRowCount(); ++i)
        m_indexById[static_cast<size_t>(m_rows[static_cast<size_t>(i)].m_id)] = i;
}

void CTableModel::rebuildVisualPos()
{
    ++m_visibleVersion;
    m_visualPos.assign(m_rows.size(), -1);
    for (size_t v = 0; v < m_visible.size(); ++v)
        m_visualPos[static_cast<size_t>(m_visible[v])] = static_cast<int>(v);
}

// ---- batches and publishing ----------------------------------------------------------------

void CTableModel::beginUpdate()
{
    if (m_updateDepth++ == 0)
        m_batchClock = -1;
}

void CTableModel::endUpdate()
{
    if (m_updateDepth <= 0)
        return;
    if (--m_updateDepth == 0)
        publish(true);
}

void CTableModel::ensureReset()
{
    if (m_resetStarted)
        return;
    beginResetModel();
    m_resetStarted = true;
}

void CTableModel::publish(bool resort)
{
    const int total = dataRowCount();
    const int appended = total - m_firstUnpublished;
    // A load into an empty table, or one that more than doubles it, is cheaper as one reset.
    if (!m_resetStarted && appended > 1 && appended > visibleRowCount())
        ensureReset();

    if (m_resetStarted) {
        rebuildVisible();
        m_firstUnpublished = total;
        m_relayoutPending = false;
        m_dirtyTop = m_dirtyBottom = m_dirtyLeft = m_dirtyRight = -1;
        m_totalsDirty = true;
        m_totalsAnnounced = false;
        m_resetStarted = false;
        endResetModel();
        return;
    }

    bool relayoutNeeded = m_relayoutPending;
    if (appended > 0) {
        std::vector<int> fresh;
        for (int i = m_firstUnpublished; i < total; ++i) {
            if (!resort || rowPassesFilters(i))
                fresh.push_back(i);
        }
        m_firstUnpublished = total;
        const bool sorted = resort && m_sortColumn >= 0;
        if (fresh.size() == 1 && sorted && !relayoutNeeded) {
            const auto at = std::upper_bound(m_visible.begin(), m_visible.end(), fresh.front(),
                                             [this](int a, int b) { return lessThan(a, b); });
            const int visualRow = static_cast<int>(at - m_visible.begin());
            beginInsertRows(QModelIndex(), visualRow, visualRow);
            m_visible.insert(at, fresh.front());
            rebuildVisualPos();
            endInsertRows();
        } else if (!fresh.empty()) {
            const int first = visibleRowCount();
            beginInsertRows(QModelIndex(), first, first + static_cast<int>(fresh.size()) - 1);
            for (int index : fresh) {
                m_visualPos[static_cast<size_t>(index)] = visibleRowCount();
                m_visible.push_back(index);
            }
            ++m_visibleVersion;
            endInsertRows();
            relayoutNeeded = relayoutNeeded || sorted;
        }
        m_totalsDirty = true;
    }

    if (relayoutNeeded) {
        m_relayoutPending = false;
        relayout();
    } else if (m_dirtyTop >= 0) {
        Q_EMIT dataChanged(index(m_dirtyTop, m_dirtyLeft), index(m_dirtyBottom, m_dirtyRight));
    }
    m_dirtyTop = m_dirtyBottom = m_dirtyLeft = m_dirtyRight = -1;
    if (m_totalsDirty) {
        m_totalsAnnounced = false;
        markTotalsDirty();
    }
}

void CTableModel::recalcAndUpdate()
{
    if (m_updateDepth > 0 || m_resetStarted) {
        m_relayoutPending = true;
        return;
    }
    relayout();
}

bool CTableModel::rowPassesFilters(int storageIndex) const
{
    const Row &row = m_rows[static_cast<size_t>(storageIndex)];
    for (auto it = m_filters.cbegin(); it != m_filters.cend(); ++it) {
        if (it.key() >= columnCount())
            continue;
        Cell scratch;
        if (!textPassesFilter(it.value(), cellText(shownCell(row, it.key(), scratch), it.key())))
            return false;
    }
    return true;
}

void CTableModel::rebuildVisible()
{
    m_visible.clear();
    m_visible.reserve(m_rows.size());
    for (int i = 0; i < dataRowCount(); ++i) {
        if (rowPassesFilters(i))
            m_visible.push_back(i);
    }
    sortIndexes(m_visible);
    rebuildVisualPos();
}

namespace {

template <typename Number>
SortKey sortKeyOf(const Number &number, const QString &text)
{
    SortKey key;
    if (number.isDouble()) {
        const double value = number.toDouble();
        if (usableDouble(value)) {
            key.m_kind = 0;
            key.m_number = value;
        }
        return key;
    }
    if (number.isValid()) {
        key.m_kind = 0;
        key.m_number = number.toDouble();
        return key;
    }
    if (text.isEmpty())
        return key;
    bool ok = false;
    const double value = unformatNumberString(text).toDouble(&ok);
    if (ok && usableDouble(value)) {
        key.m_kind = 0;
        key.m_number = value;
    } else {
        key.m_kind = 1;
        key.m_text = text;
    }
    return key;
}

} // namespace

void CTableModel::sortIndexes(std::vector<int> &indexes) const
{
    if (m_sortColumn < 0 || m_sortColumn >= columnCount())
        return;
    // Keys are taken once; a stable sort keeps equal rows in the order they were added.
    std::sort(indexes.begin(), indexes.end());
    std::vector<std::pair<SortKey, int>> keyed;
    keyed.reserve(indexes.size());
    Cell scratch;
    for (int index : indexes) {
        const Cell &c = shownCell(m_rows[static_cast<size_t>(index)], m_sortColumn, scratch);
        keyed.emplace_back(sortKeyOf(c.m_number, c.m_text), index);
    }
    const bool ascending = m_sortOrder == Qt::AscendingOrder;
    std::stable_sort(keyed.begin(), keyed.end(), [ascending](const auto &a, const auto &b) {
        const int result = compareKeys(a.first, b.first);
        return ascending ? result < 0 : result > 0;
    });
    for (size_t i = 0; i < keyed.size(); ++i)
        indexes[i] = keyed[i].second;
}

bool CTableModel::lessThan(int a, int b) const
{
    Cell scratchA;
    Cell scratchB;
    const Cell &ca = shownCell(m_rows[static_cast<size_t>(a)], m_sortColumn, scratchA);
    const Cell &cb = shownCell(m_rows[static_cast<size_t>(b)], m_sortColumn, scratchB);
    const int result = compareKeys(sortKeyOf(ca.m_number, ca.m_text), sortKeyOf(cb.m_number, cb.m_text));
    return m_sortOrder == Qt::AscendingOrder ? result < 0 : result > 0;
}

void CTableModel::relayout()
{
    if (m_updateDepth > 0 || m_resetStarted) {
        m_relayoutPending = true;
        return;
    }
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    std::vector<int> beforeIds;
    beforeIds.reserve(static_cast<size_t>(before.size()));
    for (const QModelIndex &index : before)
        beforeIds.push_back(index.row() < visibleRowCount() ? rowIdAt(index.row()) : -2);
    rebuildVisible();
    QModelIndexList after;
    after.reserve(before.size());
    for (int i = 0; i < before.size(); ++i) {
        const int column = before.at(i).column();
        const int rowId = beforeIds[static_cast<size_t>(i)];
        int visualRow = -1;
        if (rowId == -2)
            visualRow = m_totalsVisible ? visibleRowCount() : -1;
        else
            visualRow = visualRowOf(rowId);
        after.append(visualRow >= 0 && column < columnCount() ? index(visualRow, column) : QModelIndex());
    }
    changePersistentIndexList(before, after);
    m_totalsDirty = true;
    m_totalsAnnounced = false;
    Q_EMIT layoutChanged();
}

// ---- cells ---------------------------------------------------------------------------------

CTableModel::Cell *CTableModel::cell(int rowId, int column)
{
    const int index = storageIndexOf(rowId);
    if (index < 0 || column < 0 || column >= columnCount())
        return nullptr;
    return &m_rows[static_cast<size_t>(index)].m_cells[static_cast<size_t>(column)];
}

const CTableModel::Cell *CTableModel::cell(int rowId, int column) const
{
    const int index = storageIndexOf(rowId);
    if (index < 0 || column < 0 || column >= columnCount())
        return nullptr;
    return &m_rows[static_cast<size_t>(index)].m_cells[static_cast<size_t>(column)];
}

const CTableModel::Cell &CTableModel::shownCell(const Row &row, int column, Cell &scratch) const
{
    const Cell &stored = row.m_cells[static_cast<size_t>(column)];
    const auto &source = m_columns[static_cast<size_t>(column)].m_source;
    if (!source)
        return stored;
    const CSourcedValue value = source(row.m_id);
    scratch.m_number = value.m_known ? CellNumber::ofDouble(value.m_value) : CellNumber();
    scratch.m_text = value.m_known ? QString() : value.m_text;
    scratch.m_precision = static_cast<qint8>(qBound(-1, value.m_precision, 15));
    scratch.m_numberFlags = stored.m_numberFlags;
    return scratch;
}

const CTableModel::Cell *CTableModel::shownCell(int rowId, int column, Cell &scratch) const
{
    const int index = storageIndexOf(rowId);
    if (index < 0 || column < 0 || column >= columnCount())
        return nullptr;
    return &shownCell(m_rows[static_cast<size_t>(index)], column, scratch);
}

QString CTableModel::cellText(const Cell &c, int column) const
{
    if (!c.m_number.isValid())
        return c.m_text;
    return m_columns[static_cast<size_t>(column)].formatNumber(c.m_number.toVariant(), c.m_precision, c.m_numberFlags);
}

QString CTableModel::editText(const Cell &c, int column) const
{
    if (c.m_number.isDouble()) {
        const double value = c.m_number.toDouble();
        if (!usableDouble(value))
            return QString();
        return QString::number(value, 'f', c.m_precision >= 0 ? c.m_precision : m_columns[static_cast<size_t>(column)].m_precision);
    }
    if (c.m_number.isValid())
        return QString::number(c.m_number.m_int);
    return c.m_text;
}

bool CTableModel::storeCell(int rowId, int column, Cell &target, const CellNumber &number, const QString &text,
                            int precision, int numberFlags)
{
    // A number cell holds no text: its text needs no comparing.
    const bool sameText = number.isValid() ? target.m_text.isNull() : target.m_text == text;
    if (target.m_number == number && sameText && target.m_precision == qBound(-1, precision, 15)
        && target.m_numberFlags == numberFlags)
        return false;
    if (m_columns[static_cast<size_t>(column)].m_flashChange)
        noteFlash(rowId, column, target, number, text);
    target.m_number = number;
    if (!sameText)
        target.m_text = text;
    target.m_precision = static_cast<qint8>(qBound(-1, precision, 15));
    target.m_numberFlags = numberFlags;
    return true;
}

void CTableModel::cellChanged(int rowId, int column)
{
    const int visualRow = visualRowOf(rowId);
    announce(visualRow, visualRow, column, column);
    if (m_columns[static_cast<size_t>(column)].m_summed)
        markTotalsDirty();
}

// Cells from column left to right of one row changed (none when left is negative).
void CTableModel::announceRowChange(int rowId, int left, int right, bool summed)
{
    if (left < 0)
        return;
    const int visualRow = visualRowOf(rowId);
    announce(visualRow, visualRow, left, right);
    if (summed)
        markTotalsDirty();
}

void CTableModel::announce(int top, int bottom, int left, int right, const QVector<int> &roles)
{
    if (m_resetStarted || top < 0)
        return;
    if (m_updateDepth > 0) {
        // Within a batch the changes add up to one rectangle, announced when it ends.
        m_dirtyTop = m_dirtyTop < 0 ? top : std::min(m_dirtyTop, top);
        m_dirtyBottom = std::max(m_dirtyBottom, bottom);
        m_dirtyLeft = m_dirtyLeft < 0 ? left : std::min(m_dirtyLeft, left);
        m_dirtyRight = std::max(m_dirtyRight, right);
        return;
    }
    Q_EMIT dataChanged(index(top, left), index(bottom, right), roles);
}

bool CTableModel::setItemText(int rowId, int column, const QString &text)
{
    Cell *c = cell(rowId, column);
    if (!c)
        return false;
    if (storeCell(rowId, column, *c, CellNumber(), text, -1, -1))
        cellChanged(rowId, column);
    return true;
}

bool CTableModel::setItemInt(int rowId, int column, qint64 value)
{
    Cell *c = cell(rowId, column);
    if (!c)
        return false;
    if (storeCell(rowId, column, *c, CellNumber::ofInt(value), QString(), -1, -1))
        cellChanged(rowId, column);
    return true;
}

bool CTableModel::setItemDouble(int rowId, int column, double value, int precision, int numberFlags)
{
    Cell *c = cell(rowId, column);
    if (!c)
        return false;
    if (storeCell(rowId, column, *c, CellNumber::ofDouble(value), QString(), precision, numberFlags))
        cellChanged(rowId, column);
    return true;
}

bool CTableModel::setItemDoubles(int rowId, std::initializer_list<DoubleCell> cells)
{
    const int index = storageIndexOf(rowId);
    if (index < 0)
        return false;
    Row &row = m_rows[static_cast<size_t>(index)];
    int left = -1;
    int right = -1;
    bool summed = false;
    for (const DoubleCell &cell : cells) {
        if (cell.m_column < 0 || cell.m_column >= columnCount())
            continue;
        Cell &target = row.m_cells[static_cast<size_t>(cell.m_column)];
        if (!storeCell(rowId, cell.m_column, target, CellNumber::ofDouble(cell.m_value), QString(), cell.m_precision,
                       cell.m_numberFlags))
            continue;
        left = left < 0 ? cell.m_column : std::min(left, cell.m_column);
        right = std::max(right, cell.m_column);
        summed = summed || m_columns[static_cast<size_t>(cell.m_column)].m_summed;
    }
    announceRowChange(rowId, left, right, summed);
    return true;
}

void CTableModel::sourcedValuesChanged(int rowId, int left, int right)
{
    left = std::max(left, 0);
    right = std::min(right, columnCount() - 1);
    if (storageIndexOf(rowId) < 0 || left > right)
        return;
    bool summed = false;
    for (int column = left; column <= right; ++column)
        summed = summed || m_columns[static_cast<size_t>(column)].m_summed;
    announceRowChange(rowId, left, right, summed);
}

void CTableModel::sourcedColumnsChanged(int left, int right)
{
    left = std::max(left, 0);
    right = std::min(right, columnCount() - 1);
    if (visibleRowCount() == 0 || left > right)
        return;
    bool summed = false;
    for (int column = left; column <= right; ++column)
        summed = summed || m_columns[static_cast<size_t>(column)].m_summed;
    announce(0, visibleRowCount() - 1, left, right);
    if (summed)
        markTotalsDirty();
}

bool CTableModel::setItemValue(int rowId, int column, const QVariant &value)
{
    const int type = value.userType();
    if (!value.isValid())
        return cell(rowId, column) != nullptr;
    if (type == QMetaType::Double || type == QMetaType::Float)
        return setItemDouble(rowId, column, value.toDouble());
    if (isIntegralType(type))
        return setItemInt(rowId, column, value.toLongLong());
    return setItemText(rowId, column, value.toString());
}

bool CTableModel::setItemFromText(int rowId, int column, const QString &text)
{
    const Cell *c = cell(rowId, column);
    if (!c)
        return false;
    EColumnFormat kind = m_columns[static_cast<size_t>(column)].m_format;
    if (kind == CF_TEXT && c->m_number.isValid())
        kind = c->m_number.isDouble() ? CF_DOUBLE : CF_INT;
    const QString plain = unformatNumberString(text.trimmed());
    bool ok = false;
    if (kind == CF_INT) {
        const qint64 value = plain.toLongLong(&ok);
        if (ok)
            return setItemInt(rowId, column, value);
    } else if (kind == CF_DOUBLE) {
        const double value = plain.toDouble(&ok);
        if (ok)
            return setItemDouble(rowId, column, value, c->m_precision, c->m_numberFlags);
    }
    return setItemText(rowId, column, text);
}

bool CTableModel::updateRow(int rowId, const QVector<QVariant> &values)
{
    if (!hasRow(rowId))
        return false;
    int left = -1;
    int right = -1;
    bool summed = false;
    const int count = std::min(static_cast<int>(values.size()), columnCount());
    for (int column = 0; column < count; ++column) {
        const QVariant &value = values.at(column);
        if (!value.isValid())
            continue;
        Cell &c = *cell(rowId, column);
        bool changed = false;
        const int type = value.userType();
        if (type == QMetaType::Double || type == QMetaType::Float)
            changed = storeCell(rowId, column, c, CellNumber::ofDouble(value.toDouble()), QString(), c.m_precision,
                                c.m_numberFlags);
        else if (isIntegralType(type))
            changed = storeCell(rowId, column, c, CellNumber::ofInt(value.toLongLong()), QString(), -1, c.m_numberFlags);
        else
            changed = storeCell(rowId, column, c, CellNumber(), value.toString(), -1, -1);
        if (changed) {
            left = left < 0 ? column : left;
            right = column;
            summed = summed || m_columns[static_cast<size_t>(column)].m_summed;
        }
    }
    announceRowChange(rowId, left, right, summed);
    return true;
}

QString CTableModel::itemText(int rowId, int column) const
{
    Cell scratch;
    const Cell *c = shownCell(rowId, column, scratch);
    return c ? cellText(*c, column) : QString();
}

QVariant CTableModel::itemValue(int rowId, int column) const
{
    Cell scratch;
    const Cell *c = shownCell(rowId, column, scratch);
    if (!c)
        return QVariant();
    return c->m_number.isValid() ? c->m_number.toVariant() : QVariant(c->m_text);
}

QString CTableModel::itemEditText(int rowId, int column) const
{
    Cell scratch;
    const Cell *c = shownCell(rowId, column, scratch);
    return c ? editText(*c, column) : QString();
}

qint64 CTableModel::itemInt(int rowId, int column) const
{
    Cell scratch;
    const Cell *c = shownCell(rowId, column, scratch);
    if (!c)
        return 0;
    if (c->m_number.isDouble())
        return doubleToInt(c->m_number.toDouble());
    if (c->m_number.isValid())
        return c->m_number.m_int;
    const QString plain = unformatNumberString(c->m_text.trimmed());
    bool ok = false;
    const qint64 value = plain.toLongLong(&ok);
    return ok ? value : doubleToInt(plain.toDouble());
}

double CTableModel::itemDouble(int rowId, int column) const
{
    Cell scratch;
    const Cell *c = shownCell(rowId, column, scratch);
    if (!c)
        return 0.0;
    if (c->m_number.isValid())
        return c->m_number.toDouble();
    return unformatNumberString(c->m_text.trimmed()).toDouble();
}

void CTableModel::setItemColorKey(int rowId, int column, const QString &key)
{
    Cell *c = cell(rowId, column);
    if (!c || c->m_colorKey == key)
        return;
    c->m_colorKey = key;
    cellChanged(rowId, column);
}

void CTableModel::setRowColorKey(int rowId, const QString &key)
{
    if (!hasRow(rowId) || columnCount() == 0)
        return;
    for (int column = 0; column < columnCount(); ++column)
        cell(rowId, column)->m_colorKey = key;
    const int visualRow = visualRowOf(rowId);
    announce(visualRow, visualRow, 0, columnCount() - 1, {Qt::ForegroundRole});
}

QString CTableModel::itemColorKey(int rowId, int column) const
{
    const Cell *c = cell(rowId, column);
    return c ? c->m_colorKey : QString();
}

void CTableModel::setItemEditable(int rowId, int column, bool editable)
{
    Cell *c = cell(rowId, column);
    if (c)
        c->m_editable = editable ? 1 : 0;
}

bool CTableModel::isItemEditable(int rowId, int column) const
{
    const Cell *c = cell(rowId, column);
    if (!c)
        return false;
    return c->m_editable < 0 ? m_columns[static_cast<size_t>(column)].m_editable : c->m_editable > 0;
}

void CTableModel::setItemChecked(int rowId, int column, bool checked)
{
    Cell *c = cell(rowId, column);
    if (!c || c->m_checked == checked)
        return;
    c->m_checked = checked;
    cellChanged(rowId, column);
}

bool CTableModel::isItemChecked(int rowId, int column) const
{
    const Cell *c = cell(rowId, column);
    return c && c->m_checked;
}

void CTableModel::setAllChecked(int column, bool checked)
{
    if (column < 0 || column >= columnCount())
        return;
    for (Row &row : m_rows)
        row.m_cells[static_cast<size_t>(column)].m_checked = checked;
    if (visibleRowCount() > 0)
        announce(0, visibleRowCount() - 1, column, column, {Qt::CheckStateRole});
}

void CTableModel::setRowUserData(int rowId, const QVariant &data)
{
    const int index = storageIndexOf(rowId);
    if (index >= 0)
        m_rows[static_cast<size_t>(index)].m_userData = data;
}

QVariant CTableModel::rowUserData(int rowId) const
{
    const int index = storageIndexOf(rowId);
    return index < 0 ? QVariant() : m_rows[static_cast<size_t>(index)].m_userData;
}

// ---- sort and filters ----------------------------------------------------------------------

void CTableModel::sortByColumn(int column, Qt::SortOrder order)
{
    m_sortColumn = column >= 0 && column < columnCount() ? column : -1;
    m_sortOrder = order;
    relayout();
}

void CTableModel::setColumnFilter(int column, const QSet<QString> &accepted)
{
    if (column < 0 || column >= columnCount())
        return;
    if (accepted.isEmpty()) {
        if (m_filters.remove(column) == 0)
            return;
    } else {
        m_filters.insert(column, accepted);
    }
    relayout();
}

void CTableModel::clearFilter(int column)
{
    if (column < 0) {
        if (m_filters.isEmpty())
            return;
        m_filters.clear();
    } else if (m_filters.remove(column) == 0) {
        return;
    }
    relayout();
}

QSet<QString> CTableModel::distinctTexts(int column) const
{
    QSet<QString> texts;
    if (column < 0 || column >= columnCount())
        return texts;
    Cell scratch;
    for (const Row &row : m_rows)
        texts.insert(cellText(shownCell(row, column, scratch), column));
    return texts;
}

bool CTableModel::textPassesFilter(const QSet<QString> &accepted, const QString &text)
{
    if (accepted.isEmpty())
        return true;
    for (const QString &member : accepted) {
        if (member.isEmpty() ? text.isEmpty() : text.contains(member, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

// ---- totals --------------------------------------------------------------------------------

void CTableModel::setTotalsVisible(bool visible)
{
    if (m_totalsVisible == visible)
        return;
    if (m_updateDepth > 0 || m_resetStarted) {
        ensureReset();
        m_totalsVisible = visible;
        return;
    }
    const int row = visibleRowCount();
    if (visible)
        beginInsertRows(QModelIndex(), row, row);
    else
        beginRemoveRows(QModelIndex(), row, row);
    m_totalsVisible = visible;
    m_totalsDirty = true;
    m_totalsAnnounced = false;
    if (visible)
        endInsertRows();
    else
        endRemoveRows();
}

void CTableModel::setStatText(int column, const QString &text)
{
    if (column < 0 || column >= columnCount())
        return;
    m_statTexts.insert(column, text);
    m_totalsDirty = true;
    markTotalsDirty();
}

void CTableModel::clearStatTexts()
{
    m_statTexts.clear();
    m_totalsDirty = true;
    markTotalsDirty();
}

QString CTableModel::statText(int column) const
{
    if (m_totalsDirty)
        recomputeTotals();
    return m_totalsCache.value(column);
}

double CTableModel::columnSum(int column) const
{
    double sum = 0.0;
    if (column < 0 || column >= columnCount())
        return sum;
    const auto &source = m_columns[static_cast<size_t>(column)].m_source;
    Cell scratch;
    for (int index : m_visible) {
        if (source) {
            const CSourcedValue value = source(m_rows[static_cast<size_t>(index)].m_id);
            if (value.m_known) {
                if (usableDouble(value.m_value))
                    sum += value.m_value;
                continue;
            }
        }
        const Cell &c = shownCell(m_rows[static_cast<size_t>(index)], column, scratch);
        if (c.m_number.isValid()) {
            const double value = c.m_number.toDouble();
            if (usableDouble(value))
                sum += value;
            continue;
        }
        const SortKey key = sortKeyOf(c.m_number, c.m_text);
        if (key.m_kind == 0)
            sum += key.m_number;
    }
    return sum;
}

qint64 CTableModel::columnIntSum(int column) const
{
    qint64 sum = 0;
    if (column < 0 || column >= columnCount())
        return sum;
    Cell scratch;
    for (int index : m_visible) {
        const Cell &c = shownCell(m_rows[static_cast<size_t>(index)], column, scratch);
        if (c.m_number.isDouble())
            sum += doubleToInt(c.m_number.m_double);
        else if (c.m_number.isValid())
            sum += c.m_number.m_int;
        else if (!c.m_text.isEmpty())
            sum += itemInt(m_rows[static_cast<size_t>(index)].m_id, column);
    }
    return sum;
}

void CTableModel::markTotalsDirty()
{
    m_totalsDirty = true;
    if (!m_totalsVisible || m_updateDepth > 0 || m_resetStarted || m_totalsAnnounced || columnCount() == 0)
        return;
    m_totalsAnnounced = true;
    const int row = visibleRowCount();
    Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
}

void CTableModel::recomputeTotals() const
{
    m_totalsCache.fill(QString(), columnCount());
    for (int column = 0; column < columnCount(); ++column) {
        const auto text = m_statTexts.constFind(column);
        if (text != m_statTexts.constEnd()) {
            m_totalsCache[column] = *text;
            continue;
        }
        const CTableColumn &description = m_columns[static_cast<size_t>(column)];
        if (!description.m_summed)
            continue;
        // Whole numbers add up exactly and show as such; one decimal value makes a decimal sum.
        qint64 intSum = 0;
        double sum = 0.0;
        bool integral = description.m_format != CF_DOUBLE;
        Cell scratch;
        for (int index : m_visible) {
            const Cell &c = shownCell(m_rows[static_cast<size_t>(index)], column, scratch);
            if (c.m_number.isValid() && !c.m_number.isDouble()) {
                intSum += c.m_number.m_int;
                sum += static_cast<double>(c.m_number.m_int);
                continue;
            }
            const SortKey key = sortKeyOf(c.m_number, c.m_text);
            if (key.m_kind != 0)
                continue;
            sum += key.m_number;
            integral = false;
        }
        m_totalsCache[column] = integral ? formatIntNumber(intSum, description.m_numberFlags)
                                         : formatDoubleNumber(sum, description.m_precision,
                                                              description.m_numberFlags, description.m_invalidText);
    }
    m_totalsDirty = false;
    m_totalsAnnounced = false;
}

// ---- flashing ------------------------------------------------------------------------------

void CTableModel::noteFlash(int rowId, int column, const Cell &before, const CellNumber &number, const QString &text)
{
    // A cell that gets its first value is being filled, not changed.
    const bool hadValue = before.m_number.isValid() || !before.m_text.isEmpty();
    if (!hadValue)
        return;
    int direction = 0;
    if (before.m_number.isValid() && number.isValid() && usableDouble(before.m_number.toDouble())
        && usableDouble(number.toDouble())) {
        const double old = before.m_number.toDouble();
        const double now = number.toDouble();
        direction = now > old ? 1 : (now < old ? -1 : 0);
    } else {
        const SortKey old = sortKeyOf(before.m_number, before.m_text);
        const SortKey now = sortKeyOf(number, text);
        if (old.m_kind == 0 && now.m_kind == 0)
            direction = now.m_number > old.m_number ? 1 : (now.m_number < old.m_number ? -1 : 0);
    }
    recordFlash(rowId, column, direction);
}

void CTableModel::flashCell(int rowId, int column, int direction)
{
    if (storageIndexOf(rowId) < 0 || column < 0 || column >= columnCount()
        || !m_columns[static_cast<size_t>(column)].m_flashChange)
        return;
    recordFlash(rowId, column, direction < 0 ? -1 : (direction > 0 ? 1 : 0));
}

void CTableModel::recordFlash(int rowId, int column, int direction)
{
    if (m_flashes.size() <= static_cast<size_t>(column))
        m_flashes.resize(static_cast<size_t>(column) + 1);
    std::vector<Flash> &slots = m_flashes[static_cast<size_t>(column)];
    if (slots.size() <= static_cast<size_t>(rowId))
        slots.resize(std::max(static_cast<size_t>(rowId) + 1, static_cast<size_t>(m_nextId)));
    Flash &slot = slots[static_cast<size_t>(rowId)];
    if (slot.m_start < 0)
        m_flashing.push_back(flashKey(rowId, column));
    // The cells a batch lights up start together: a tick that moves every row reads the clock
    // once, not once per cell.
    qint64 start = m_batchClock;
    if (m_updateDepth == 0 || start < 0)
        start = m_clock.elapsed();
    if (m_updateDepth > 0)
        m_batchClock = start;
    slot = Flash{start, direction};
    if (!m_flashTimer.isActive())
        m_flashTimer.start();
}

const CTableModel::Flash *CTableModel::flashOf(int rowId, int column) const
{
    if (rowId < 0 || column < 0 || static_cast<size_t>(column) >= m_flashes.size())
        return nullptr;
    const std::vector<Flash> &slots = m_flashes[static_cast<size_t>(column)];
    if (static_cast<size_t>(rowId) >= slots.size() || slots[static_cast<size_t>(rowId)].m_start < 0)
        return nullptr;
    return &slots[static_cast<size_t>(rowId)];
}

void CTableModel::clearFlashes()
{
    m_flashes.clear();
    m_flashing.clear();
}

bool CTableModel::isFlashing(int rowId, int column) const
{
    const Flash *flash = flashOf(rowId, column);
    return flash && m_clock.elapsed() - flash->m_start < m_flashDuration;
}

void CTableModel::onFlashTimer()
{
    const qint64 now = m_clock.elapsed();
    const bool quiet = m_updateDepth > 0 || m_resetStarted;
    // The cells whose flash ended are repainted together: a market that moved every row would
    // otherwise cost one announcement per cell.
    int top = -1;
    int bottom = -1;
    int left = -1;
    int right = -1;
    size_t kept = 0;
    for (const quint64 key : m_flashing) {
        const int rowId = static_cast<int>(key >> 32);
        const int column = static_cast<int>(key & 0xffffffffu);
        // A flashing cell has its slot until clearFlashes, which empties this list too.
        Flash &flash = m_flashes[static_cast<size_t>(column)][static_cast<size_t>(rowId)];
        if (flash.m_start < 0)
            continue; // its row went away
        if (now - flash.m_start < m_flashDuration) {
            m_flashing[kept++] = key;
            continue;
        }
        flash = Flash();
        const int visualRow = visualRowOf(rowId);
        if (quiet || visualRow < 0 || column >= columnCount())
            continue;
        top = top < 0 ? visualRow : std::min(top, visualRow);
        bottom = std::max(bottom, visualRow);
        left = left < 0 ? column : std::min(left, column);
        right = std::max(right, column);
    }
    if (top >= 0)
        Q_EMIT dataChanged(index(top, left), index(bottom, right), {Qt::BackgroundRole});
    m_flashing.resize(kept);
    if (m_flashing.empty())
        m_flashTimer.stop();
}

} // namespace WK
