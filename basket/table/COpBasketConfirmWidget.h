#pragma once

#include "BasketExport.h"
#include "CBaseWidget.h"

#include "CBasketStockData.h"
#include "OtherOrderParam.h"

#include "CCodeOrderParam.h"
#include "CInstrumentDetail.h"
#include "COrderParamTable.h"
#include "CPriceData.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <QMap>
#include <QSet>
#include <QString>
#include <QVector>

#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

class QTimer;

namespace WK {
struct CTableCellEvent;
} // namespace WK

namespace TC {

class COpBasketReplaceStockToolBar;
class CQuoteRequest;

// The confirmation table of the order list: one row per order line, before the list is sent.
//
// The widget works in place on the caller's vector given to loadParams: it cuts sells to what
// can be delivered, takes the user's edits, deletions and direction switches into the lines,
// and updateParam reduces the vector to the ticked rows shown. Row ids are the table's; after a
// load row id i is line i.
//
// Identity. Every loaded line is a slot (its place at the load) that keeps its own display
// record and, while it is shown, its own row, whatever the table's sort, the column filters,
// deletions or the take of the ticked rows do to the vector: the row and the record of a line
// are found through its slot, never by pairing positions in two lists. A line left out of the
// vector by updateParam (unticked, or hidden by a column filter) waits in m_backupParams, so it
// is still shown, edited and brought back by resetParam or by clearing the filter.
//
// Threads. Quote callbacks may run on any thread. There is one subscription per instrument; a
// quote touches only the slots of its instrument, and only their display records, under
// m_mutex; it never reads the caller's vector, which the form writes on its own thread. The
// 500 ms timer brings what changed to the screen. Everything else runs on the widget's thread.
class BASKETPANEL_EXPORT COpBasketConfirmWidget : public WK::CBaseWidget
{
    Q_OBJECT

public:
    // 1: the full confirmation table, with context menu actions and the direction switch;
    // 0: a plain one.
    using OpConfirmType = int;

    enum EOpConfirmFilterStatus {
        OCFS_NORMAL = 0,
        OCFS_RISE_LIMIT = 1,
        OCFS_FALL_LIMIT = 2,
        OCFS_SUSPENDED = 3,
    };

    // Table column numbers; the user may drag the columns, their numbers stay.
    enum EColumn {
        COL_ACCOUNT = 0,
        COL_MARKET = 1,
        COL_CODE = 2,
        COL_NAME = 3,
        COL_OPERATION = 4,
        COL_VOLUME = 5,
        COL_AVAILABLE = 6,
        COL_LAST_PRICE = 7,
        COL_CHANGE = 8,
        COL_COST = 9,
        COL_STATUS = 10,
        COL_CHECK = 11,
        COLUMN_COUNT = 12,
    };

    explicit COpBasketConfirmWidget(QWidget *parent);
    ~COpBasketConfirmWidget() override;

    void setWaitTest(bool wait);
    bool waitTest() const { return m_waitTest; }
    void setOpConfirmType(OpConfirmType type);
    OpConfirmType opConfirmType() const { return m_opConfirmType; }

    // The table's column layout as text.
    void setParam(const QString &text);
    QString param() const;

    // EVqTraderType: 2 and 1024 list contracts, every other type stocks.
    void setTradeType(int type);
    int tradeType() const { return m_tradeType; }
    // The one operation of the whole list, -1 for a list of both directions.
    void setOperationType(int operation);
    int operationType() const { return m_operationType; }
    // An instruction's lines keep the side the manager gave them.
    void setDirectionFixed(bool fixed) { m_directionFixed = fixed; }
    void setTradeOperationType(quint64 word);
    quint64 tradeOperationType() const { return m_tradeOpType; }
    void setReplaceToolBar(COpBasketReplaceStockToolBar *bar);
    void setPasteDataFunc(const QString &hint, boost::function<void()> func);

    // Shows the list and from then on edits it in place; the caller keeps owning it and must
    // not free it while it is shown. Null empties the widget.
    void loadParams(std::vector<ttservice::CCodeOrderParam> *params);
    // Reduces the list to the ticked rows in the order of the screen; the rows are kept aside
    // for resetParam.
    void updateParam();
    // Puts back every row that was in the table before updateParam, unticked ones too.
    void resetParam();

    // A copy of the list as it stands now; empty before the first load.
    std::vector<ttservice::CCodeOrderParam> getOrderParams() const;
    // Every line on screen, unticked and filtered ones included, in the order of the load: what
    // a list made from the table must hold, whatever the last take of the ticked rows left out.
    std::vector<ttservice::CCodeOrderParam> shownOrderParams() const;
    // The line of the row shown at this visual index, null when there is none.
    ttservice::CCodeOrderParam *getParamByRowIndex(int rowIndex) const;
    // The instruments of the last load, each one for the lines of every account: how many, the
    // instrument of a row (by row id) holding this line, -1 for none or where the line's
    // instrument changed since the load, and an instrument's stock key (market and code).
    int instrumentCount() const { return static_cast<int>(m_instruments.size()); }
    int instrumentOfRow(int rowId, const ttservice::CCodeOrderParam &line) const;
    std::string instrumentKey(int instrument) const;
    // What a row's value and price columns show, read without building a cell, for a pass over
    // every row: the value as it counts in sums (0 while it shows "-"), and whether a price shows.
    double shownCost(int rowId) const;
    bool showsPrice(int rowId) const;
    // Told of the rows whose value column now shows another value, with their shownCost from
    // then on, once per tick: a figure kept over the rows follows a tick by the rows it changed.
    using CostMoves = std::vector<std::pair<int, double>>; // row id, value
    void setCostListener(std::function<void(const CostMoves &moves)> listener) { m_costListener = std::move(listener); }
    // Height for the rows in view, at most 25 of them, with header and totals line.
    int getHeightHint() const;

    // Whether the toolbar's switches (suspended, rise limit, fall limit) leave the line out; the
    // status says why. Safe on any thread.
    bool isParamFilter(const ttservice::CCodeOrderParam &line, EOpConfirmFilterStatus &status) const;
    static QString getStatusString(EOpConfirmFilterStatus status);
    static const char *getStatusColor(EOpConfirmFilterStatus status);
    // Whether a value passes a column filter (WK::EFilterType: 0 equal, 1 contains; any other
    // type passes everything).
    static bool testFilter(int type, const QSet<QString> &values, const QString &value);

    // The latest market value of a line; NO_VALUE when it is not known.
    double recalcCost(const ttservice::CCodeOrderParam *line) const;
    // The quote callback of every row: stores the quote's values in the rows of its instrument.
    void onLatestPrice(boost::shared_ptr<CPriceData> price);

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

    COrderParamTable *table() const { return m_table; }
    int filterFlags() const { return m_filterFlags; }
    // Live quote subscriptions, one per instrument of the loaded list.
    int quoteRequestCount() const;

public Q_SLOTS:
    // The toolbar's filter word; applying the same word twice changes nothing.
    void slotSetFilter(int flags);
    // Shows what the quotes changed since the last tick.
    void slotTimeout();
    // The menu's "保存篮子": asks for a name and stores the selected rows as a new basket.
    void slotSaveBasket(bool checked = false);
    // The menu's "帮助": what may be pasted into the table.
    void slotHelp(bool checked = false);

Q_SIGNALS:
    void sigRemoveData(QVector<TC::CBasketStockData> rows);
    void sigBasketSettingChanged(QString name);

protected:
    // Stores the selected rows under name; a name in use is refused and changes nothing.
    void saveBasketCallBack(QString name);
    void createUi();
    void resetTable();
    QSet<QString> getTableItems(int column);
    void filterData(const COrderParamTable::FilterMap &filters);
    // The colours of a buy's replacement and suspended lines, after a load or a filter alike.
    void colourRow(int row, const ttservice::CCodeOrderParam &line, bool replacing, const QSet<QString> &replacedCodes);
    // The status cell: the switches' status, or why a line of a trading instrument stands at 0.
    void showStatus(int row, EOpConfirmFilterStatus status, const QString &zeroReason);
    // Moves the lines that the switches leave out to the end of the list, keeping the order on
    // both sides.
    void sortParam();
    void updateStatData();

private:
    // The toolbar's switches as last read on the widget's thread; quote callbacks read this copy.
    struct FilterSwitches
    {
        bool m_suspended = false;
        bool m_riseLimit = false;
        bool m_fallLimit = false;
    };

    // The loaded lines of one instrument, which share one subscription.
    struct InstrumentLines
    {
        std::string m_market;
        std::string m_code;
        std::vector<int> m_slots;
        boost::shared_ptr<ttservice::CInstrumentDetail> m_instrument;
        bool m_repurchase = false;
        int m_priceDecimals = 2;
        // As the rows show them, made once for the lines of every account.
        QString m_marketText;
        QString m_codeText;
        QString m_nameText;
        std::string m_name;
    };

    // What the value columns (last price, change, value) show of a slot. The display records
    // belong to the quote threads; these are the widget's, copied at each tick, and the table
    // reads them when it paints, sorts, filters or sums those columns.
    struct ShownValues
    {
        double m_lastPrice = 0.0;
        double m_changeRatio = 0.0;
        double m_cost = ttservice::NO_VALUE; // "-" when not known
        bool m_priced = false;               // false: price and change show "-"
    };

    static constexpr int NO_SLOT = -1;
    static constexpr int IN_BACKUP = -2;

    FilterSwitches filterSwitches() const;
    EOpConfirmFilterStatus filterStatusOf(const std::string &market, const std::string &code) const;
    EOpConfirmFilterStatus filterStatusOf(const std::string &market, const std::string &code,
                                          const FilterSwitches &switches) const;
    void clearSlots();
    // --- loading, by its phases ---
    struct CLoadCaches;
    void prepareTableFor(const std::vector<ttservice::CCodeOrderParam> &lines);
    int instrumentIndexOf(const ttservice::CCodeOrderParam &line, CLoadCaches &caches);
    int instrumentIndexByKey(const ttservice::CCodeOrderParam &line);
    void loadLine(int slot, ttservice::CCodeOrderParam &line, CLoadCaches &caches);
    QString zeroReasonAtLoad(const ttservice::CCodeOrderParam &line, int64_t available, int instrumentIndex,
                             CLoadCaches &caches);
    int64_t availableAtLoad(const ttservice::CCodeOrderParam &line, CLoadCaches &caches);
    void showIdentityCells(int row, const ttservice::CCodeOrderParam &line, const InstrumentLines &instrument, bool money,
                           CLoadCaches &caches);
    QVector<int> columnWidths() const;
    // Fits the columns to the rows in view unless the widths are the user's.
    void fitColumnWidths();
    QSet<QString> replacementCodes(const QString &basketName) const;
    // A new row for the line of a slot, showing it and its display record as they stand.
    int writeRow(int slot, ttservice::CCodeOrderParam *line, const OtherOrderParam &other);
    int priceDecimalsOfSlot(int slot) const;
    static ShownValues shownValuesOf(const OtherOrderParam &other);
    // The value columns of a slot from now on; a row that shows the slot is told, and its value
    // cell lights up when the value changed.
    void showValues(int slot, const ShownValues &values);
    // showValues without telling the table: answers the leftmost value column that changed, -1
    // for none (or no row). tellCostMoves then passes the changed values on.
    int storeValues(int slot, const ShownValues &values);
    void tellCostMoves();
    // The totals line's value: counted over the visible rows, then moved row by row while a
    // tick changes values, since a count per tick would read every row.
    void countCostTotal();
    void moveCostTotal(int row, double before, double after);
    void showCostTotal();
    WK::CSourcedValue shownValue(int rowId, int column) const;
    QString columnValue(const ttservice::CCodeOrderParam &line, const OtherOrderParam *other, int column) const;
    void validateVolume(WK::CTableCellEvent &cell);
    void volumeEdited(int row, const QString &text);
    void switchDirection(int row);
    void deleteRows(const std::set<int> &rows);

    // Slots: the loaded lines by their place at the load.
    bool isLiveSlot(int slot) const;
    int slotOfRow(int row) const;
    ttservice::CCodeOrderParam *lineOfSlot(int slot) const;
    ttservice::CCodeOrderParam *lineOfRow(int row) const;
    OtherOrderParam *otherOfRow(int row) const;
    void bindRow(int row, int slot);
    void unbindRows();
    // Rewrites the caller's vector with these slots' lines in this order; every other live slot
    // waits in m_backupParams.
    void arrangeList(const std::vector<int> &listed);
    void setSlotVolume(int slot, const ttservice::CCodeOrderParam &line);

    OpConfirmType m_opConfirmType = 0;
    int m_tradeType = 1;
    int m_operationType = 18;
    COrderParamTable *m_table = nullptr;
    std::vector<ttservice::CCodeOrderParam> *m_params = nullptr;
    // Slot -> display record; null once the user deleted the line. The records stand side by
    // side in m_otherRecords, made once per load, so that a tick over many rows reads memory
    // in order.
    std::vector<OtherOrderParam *> m_otherParams;
    std::vector<OtherOrderParam> m_otherRecords;
    COpBasketReplaceStockToolBar *m_replaceToolBar = nullptr;
    // Slot -> its line while the line is out of the vector (IN_BACKUP in m_slotIndex).
    std::map<int, ttservice::CCodeOrderParam> m_backupParams;
    QTimer *m_timer = nullptr;
    QVector<boost::shared_ptr<CQuoteRequest>> m_quoteRequests;
    // A std mutex rather than a QMutex: ThreadSanitizer sees through it, and it guards data
    // that quote threads write.
    mutable std::recursive_mutex m_mutex;
    bool m_waitTest = false;

    std::vector<int> m_slotIndex;      // slot -> index in *m_params, IN_BACKUP, or NO_SLOT when deleted
    std::vector<int> m_slotRows;       // slot -> row id, -1 while the line has no row
    std::vector<int> m_rowSlots;       // row id -> slot, NO_SLOT for a blank row
    std::vector<int> m_slotInstrument; // slot -> index in m_instruments
    // What a quote needs of a line, kept apart so that a quote thread never reads the vector;
    // guarded by m_mutex.
    std::vector<qint64> m_slotVolumes;
    std::vector<char> m_slotMoney;
    std::vector<InstrumentLines> m_instruments;
    std::unordered_map<std::string, int> m_instrumentIndex; // market + '.' + code -> instrument
    std::vector<int> m_changedSlots; // slots whose record a quote marked since the last tick
    std::vector<ShownValues> m_shownValues; // slot -> what its row shows; the widget's thread only
    // The visible rows' value in ten-thousandths of a yuan, as of the model's visibleRowsVersion
    // m_costTotalVersion; not known after a value too large to count that way.
    qint64 m_costTotal = 0;
    quint64 m_costTotalVersion = 0;
    bool m_costTotalKnown = false;
    std::function<void(const CostMoves &moves)> m_costListener;
    CostMoves m_costMoves; // gathered within a tick for m_costListener

    quint64 m_tradeOpType = 512;
    int m_filterFlags = 0;
    int m_hiddenByFilter = 0; // lines the column filters keep off the table
    // The user's column layout: restored from the saved text, or widths changed since the last
    // fit (m_fittedWidths, empty before the first).
    bool m_layoutRestored = false;
    // The available column hides itself for a buy; what the user wants of it is kept apart, so
    // the saved layout is the user's, not the side's.
    bool m_directionFixed = false;
    bool m_availableHiddenBySide = false;
    bool m_availableWanted = true;
    QVector<int> m_fittedWidths;
    mutable FilterSwitches m_filterSwitches; // guarded by m_mutex
};

} // namespace TC
