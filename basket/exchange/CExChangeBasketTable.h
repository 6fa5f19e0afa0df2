#pragma once

#include "BasketExport.h"

#include "CBaseWidget.h"

#include "CBasketStockData.h"
#include "CPriceData.h"
#include "CStockInfo.h"
#include "TradeEnums.h"

#include <boost/shared_ptr.hpp>

#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QVector>
#include <QtGlobal>

#include <cstdint>

class QKeyEvent;
class QPaintEvent;
class QTimer;

namespace ttservice {
class CAccountData;
}

namespace WK {
class CBaseTableColumnPushButtonDelegate;
class CComboBox;
class COddEvenRowTable;
class CParameterCell;
} // namespace WK

namespace TC {

class COpBasketsLineEdit;
class CQuoteRequest;

// The target of a position exchange: a stored basket sized for the chosen account, either as a
// number of copies (the stored volumes are those of one copy) or as money spread by weight at
// the last prices and rounded down to trading units. The volumes (column 4) and, on the
// futures tab, the directions (column 6) can still be changed by hand.
//
// Under money sizing the prices are followed: once every awaited quote is in, the volumes are
// worked out, and later quotes work them out again (at most twice a second). What the user
// changed by hand in a row (its volume, its direction, rows added through addOneBascketData)
// stays through those recalculations; a new basket, sizing mode or amount starts afresh.
class BASKETPANEL_EXPORT CExChangeBasketTable final : public WK::CBaseWidget
{
    Q_OBJECT

public:
    enum EColumn {
        COL_ACCOUNT = 0,
        COL_MARKET = 1,
        COL_CODE = 2,
        COL_NAME = 3,
        COL_VOLUME = 4,
        COL_LAST_PRICE = 5,
        COL_DIRECTION = 6, // futures tab only
    };

    static constexpr int COMBO_ID = 1;
    static constexpr int BASKET_EDIT_ID = 3;
    static constexpr int COPIES_ID = 19;
    static constexpr int MONEY_ID = 58;
    static constexpr int EVENT_DIRECTION = 209;
    static constexpr int FOLLOW_INTERVAL_MS = 500;

    CExChangeBasketTable(QWidget *parent, quint64 word);
    ~CExChangeBasketTable() override;

    // Refused for a null account or one without its record.
    void setAccount(const boost::shared_ptr<ttservice::CAccountData> &account);
    // Shows these rows (repurchase codes dropped) as the target; the second argument is unused.
    void setBasketStockList(const QList<CBasketStockData> &list, int flag);
    void getBasketStockParam(QVector<CBasketStockData> &rows) const;
    // code -> operation (18, 19) -> row.
    void getBasketStockParam(QMap<QString, QMap<int, CBasketStockData>> &rows) const;
    // Adds the instrument to the target with weight 1 as a buy, unless it is there already.
    void addOneBascketData(const ttservice::CStockInfo &stock);
    void setTradeOperationType(quint64 word) { m_tradeOpType = word; }
    void setBrokerType(ttservice::EVQBrokerType type);
    // Ends every quote subscription (the dialog closed); resumeQuotes takes them up again.
    void unrequestAll();
    void resumeQuotes();

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

    WK::CComboBox *sizeCombo() const { return m_sizeCombo; }
    WK::CParameterCell *copiesCell() const { return m_copiesCell; }
    WK::CParameterCell *moneyCell() const { return m_moneyCell; }
    COpBasketsLineEdit *basketEdit() const { return m_basketEdit; }
    WK::COddEvenRowTable *table() const { return m_table; }
    const QList<CBasketStockData> &stockList() const { return m_stockList; }
    const QSet<QString> &pendingKeys() const { return m_pendingKeys; }
    QStringList quoteRequestKeys() const { return m_quoteRequests.keys(); }

Q_SIGNALS:
    // A letter or digit was typed over the table: the owner opens the instrument search.
    void sig_bascketChange(QKeyEvent *event);
    // Internal: a quote came in, possibly on the quote service's thread.
    void sigPriceData(QString stockKey);

protected:
    void calcVolumnByWeight(QList<CBasketStockData> list, double money);
    void calcVolumnByCopy(QList<CBasketStockData> list, int copies);
    void requestQuote(const QList<CBasketStockData> &list);
    // Runs on the publishing thread: only hands the key over to the widget's thread.
    void onPriceData(boost::shared_ptr<CPriceData> price, QString stockKey);
    void recalcVolumn();
    // The user changed what the target is: hand edits are dropped and the volumes worked out.
    void refreashTable();

    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void slotPriceData(QString stockKey);
    void slotFollowQuotes();

private:
    void createUi();
    bool isFutureWord() const { return m_tradeOpType == 16384; }
    bool hasStoredBasket() const;
    // The stored basket's rows and the rows the user added.
    QList<CBasketStockData> targetRows() const;
    QList<CBasketStockData> withUserEdits(QList<CBasketStockData> list) const;
    void setDirectionCells(int row, const CBasketStockData &data);
    void fillRow(int row, const CBasketStockData &data, const QString &accountText);
    void updateVolumeTotal();

    WK::CComboBox *m_sizeCombo = nullptr;
    WK::CParameterCell *m_copiesCell = nullptr;
    WK::CParameterCell *m_moneyCell = nullptr;
    COpBasketsLineEdit *m_basketEdit = nullptr;
    QList<CBasketStockData> m_stockList;
    quint64 m_tradeOpType = 0;
    WK::COddEvenRowTable *m_table = nullptr;
    WK::CBaseTableColumnPushButtonDelegate *m_directionButtons = nullptr;
    boost::shared_ptr<ttservice::CAccountData> m_account;
    QMap<QString, boost::shared_ptr<CQuoteRequest>> m_quoteRequests;
    QSet<QString> m_pendingKeys;
    int m_pendingCount = 0;

    // What the user changed by hand, by stock key.
    QList<CBasketStockData> m_addedRows;
    QMap<QString, int64_t> m_editedVolumes;
    QSet<QString> m_swappedKeys;
    QTimer *m_followTimer = nullptr;
};

} // namespace TC
