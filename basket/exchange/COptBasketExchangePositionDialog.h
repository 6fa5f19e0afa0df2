#pragma once

#include "BasketExport.h"

#include "CCommonDialog.h"

#include "CBasketStockData.h"
#include "CPositionParam.h"
#include "CStockInfo.h"
#include "TradeEnums.h"

#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QVector>
#include <QtGlobal>

#include <string>

class QHideEvent;
class QKeyEvent;
class QShowEvent;

namespace TC {

class COpBasketsExchangePositionWidget;

// The position exchange ("调仓"): moves the chosen account from what it holds to a target
// basket. It is shown, not run modally; "确定" delivers event 1146 (the dialog as data) to the
// form, which takes the lines from getExchangePositionParam into its confirmation table.
class BASKETPANEL_EXPORT COptBasketExchangePositionDialog final : public WK::CCommonDialog
{
    Q_OBJECT

public:
    static constexpr int EVENT_EXCHANGE_CONFIRMED = 1146;
    static constexpr int OK_ID = 0;
    static constexpr int CANCEL_ID = 1;

    // What every line of one exchange carries: the account and the chosen portfolio.
    struct CExchangeTarget
    {
        ttservice::CAccountInfo *m_account = nullptr;
        int m_positionAttr = -1;
        QString m_positionId;
        std::string m_extraKey;
    };

    COptBasketExchangePositionDialog(QWidget *parent, quint64 word);
    ~COptBasketExchangePositionDialog() override;

    // Lists these accounts in the tree (nothing without any); one selected account is chosen.
    void setAccount(const QSet<QString> &accounts, const QSet<QString> &selected);
    void setTradeOperationType(quint64 word);
    quint64 tradeOperationType() const { return m_tradeOpType; }
    void setBrokerType(ttservice::EVQBrokerType type);
    void setBasketStockList(const QList<CBasketStockData> &list, int flag);
    void addOneBascketData(const ttservice::CStockInfo &stock);
    // The sells and buys that turn the shown positions of the shown account into the target;
    // empty without an account.
    void getExchangePositionParam(QVector<CPositionParam> &result) const;

    // Stocks: a held row not in the target is sold whole; one in it is sold or bought by the
    // difference in whole trading units (a holding of one unit or less is sold whole); a target
    // row not held is bought in whole units. Sells come in held order, then the buys of stocks
    // not held in the target's sorted order. Lines that would trade nothing are left out.
    static QVector<CPositionParam> calcStockExchange(const QVector<CBasketStockData> &held,
                                                     QVector<CBasketStockData> target, const CExchangeTarget &to);
    // Futures, by contract (code) and side: held code -> direction (48, 49), target code ->
    // operation (18, 19). A side held and targeted trades the difference (open or close), a
    // targeted side not held opens, a held side not targeted closes once. Contract lots, no
    // rounding.
    static QVector<CPositionParam> calcFutureExchange(QMap<QString, QMap<int, CBasketStockData>> heldMap,
                                                      QMap<QString, QMap<int, CBasketStockData>> targetMap,
                                                      const CExchangeTarget &to);

    COpBasketsExchangePositionWidget *exchangeWidget() const { return m_exchangeWidget; }

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

Q_SIGNALS:
    void sig_bascketChange(QKeyEvent *event);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void createUi();

    COpBasketsExchangePositionWidget *m_exchangeWidget = nullptr;
    quint64 m_tradeOpType = 0;
};

} // namespace TC
