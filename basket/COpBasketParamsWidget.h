#pragma once

#include "BasketExport.h"
#include "CBaseWidget.h"

#include "CBasketStockData.h"
#include "CCodeOrderParam.h"
#include "CPositionParam.h"
#include "PanelEnums.h"

#include <QMap>
#include <QString>
#include <QVector>

#include <string>
#include <vector>

class QKeyEvent;

namespace TC {

class COpAccountsWidget;
class COpBasketReplaceStockToolBar;

// The parameter form of the basket panel: tabs, accounts, basket and sizing; it also computes
// the order list m_orderParams, which the confirmation table edits in place.
class BASKETPANEL_EXPORT COpBasketParamsWidget : public WK::CBaseWidget
{
    Q_OBJECT

public:
    explicit COpBasketParamsWidget(QWidget *parent);
    ~COpBasketParamsWidget() override;

    QString param() const;
    void setParam(const QString &text);

    void setCurrentOperationType(quint64 word);
    quint64 getTradeOpType() const { return m_tradeOpType; }

    void loadAccountGroupSettings();
    void refreshAccounts();
    void updateBasketSetting();
    void updateBasketConfirmData();
    void fillComposeLastBasket(const QString &name);
    void batchPositions(const QVector<CPositionParam> &positions, QFlags<ETempBatchOrderFlag> flags);
    // Keys 400 (buy) and 401 (sell): the first press switches to the tab, the next one places.
    void doShortCutOrder(int key, QKeyEvent *event);

    void setCommand(const std::string &key, quint64 word);
    void setEnableForCommand(bool enable);
    bool checkPatch(const QString &text, quint64 &word, bool fromCommand);
    void setBatchOp(QFlags<ETempBatchOrderFlag> flags, bool select);
    void saveHedgeParam();
    void loadHedgeParam();
    // Sizing back to its first mode with one copy, as a pasted instruction wants it.
    void resetSizingToOneCopy();
    void selectAccount(const QString &account);
    void setReplaceToolBar(COpBasketReplaceStockToolBar *bar);

    COpAccountsWidget *accountsWidget() const { return m_accountsWidget; }
    COpBasketReplaceStockToolBar *replaceToolBar() const { return m_replaceToolBar; }
    const std::string &commandKey() const { return m_commandKey; }
    quint64 commandOpType() const { return m_commandOpType; }
    bool isCommandEnabled() const { return m_commandEnabled; }
    const QMap<int, QVector<CPositionParam>> &batchPositionsByFlag() const { return m_batchPositions; }

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

public Q_SLOTS:
    void slot_bascketChange(QKeyEvent *event);
    void slotRemoveData(QVector<TC::CBasketStockData> rows);

Q_SIGNALS:
    void sigRecalcOperationParam(QString stockKey);

private:
    void createUi();

    quint64 m_tradeOpType = TOT_BUY;
    int m_operationType = -1;
    COpAccountsWidget *m_accountsWidget = nullptr;
    COpBasketReplaceStockToolBar *m_replaceToolBar = nullptr;
    QString m_savedParam;
    std::string m_commandKey;
    quint64 m_commandOpType = 0;
    bool m_commandEnabled = true;
    QMap<int, QVector<CPositionParam>> m_batchPositions;
    std::vector<ttservice::CCodeOrderParam> m_orderParams;
};

} // namespace TC
