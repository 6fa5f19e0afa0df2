#pragma once

#include "BasketExport.h"

#include "CBaseWidget.h"

#include "TradeEnums.h"

#include <boost/shared_ptr.hpp>

#include <QString>
#include <QtGlobal>

class QKeyEvent;
class QTreeWidgetItem;

namespace ttservice {
class CAccountData;
}

namespace WK {
class CSplitContainer;
}

namespace TC {

class CExChangeBasketTable;
class CExchangePositionAccountTreeWidget;
class CExchangePositionTable;

// The body of the position exchange: the accounts on the left, the chosen account's positions
// in the middle and the target basket on the right; the user drags the border between the two
// tables.
class BASKETPANEL_EXPORT COpBasketsExchangePositionWidget final : public WK::CBaseWidget
{
    Q_OBJECT

public:
    static constexpr int EVENT_ACCOUNT_CHOSEN = 1208;

    COpBasketsExchangePositionWidget(QWidget *parent, quint64 word);
    ~COpBasketsExchangePositionWidget() override;

    CExchangePositionTable *getPositionTable() const { return m_positionTable; }
    CExChangeBasketTable *getBasketTable() const { return m_basketTable; }
    CExchangePositionAccountTreeWidget *getAccountTree() const { return m_accountTree; }
    boost::shared_ptr<ttservice::CAccountData> account() const { return m_account; }

    // Shows the account with this key in both tables; an unknown key leaves them as they are.
    void setAccount(const QString &key);
    void setTradeOperationType(quint64 word);
    void setBrokerType(ttservice::EVQBrokerType type);
    void unrequestAll();

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

public Q_SLOTS:
    void slotAccountChange(QTreeWidgetItem *item, int column);

Q_SIGNALS:
    void sig_bascketChange(QKeyEvent *event);

private:
    quint64 m_tradeOpType = 0;
    CExchangePositionAccountTreeWidget *m_accountTree = nullptr;
    CExchangePositionTable *m_positionTable = nullptr;
    CExChangeBasketTable *m_basketTable = nullptr;
    boost::shared_ptr<ttservice::CAccountData> m_account;
};

} // namespace TC
