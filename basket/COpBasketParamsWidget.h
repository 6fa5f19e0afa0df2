#pragma once

#include "BasketExport.h"
#include "CBaseWidget.h"

#include "CBasketHedgeParam.h"
#include "CBasketStockData.h"
#include "CCodeOrderParam.h"
#include "CPositionParam.h"
#include "PanelEnums.h"

#include <QMap>
#include <QString>
#include <QVector>

#include <string>
#include <vector>

class QComboBox;
class QKeyEvent;
class QPaintEvent;

namespace WK {
class CComboBox;
class CMessageTip;
class CParameterCell;
class CPushButton;
class CSimpleTextWidget;
class CWidgetList;
} // namespace WK

namespace TC {

class CComboxNameWidget;
class COpAccountsWidget;
class COpBasketFutureParamsWidget;
class COpBasketHedgeSettingWidget;
class COpBasketParamsExpandBar;
class COpBasketReplaceStockToolBar;
class COpBasketsComboBox;
class COperationPushButtonGroup;

// The parameter form of the basket panel: the vertical tabs that choose the kind of trade, the
// accounts, the basket and the way of sizing it. The same class computes the order list
// m_orderParams, which the confirmation table edits in place.
class BASKETPANEL_EXPORT COpBasketParamsWidget : public WK::CBaseWidget
{
    Q_OBJECT

public:
    explicit COpBasketParamsWidget(QWidget *parent);
    ~COpBasketParamsWidget() override;

    // --- the form's text and state ---
    QString param() const;
    void setParam(const QString &text);

    // --- tabs and sizing modes ---
    void setCurrentOperationType(quint64 word);
    quint64 getTradeOpType() const { return m_tradeOpType; }
    int getOperationType() const { return m_operationType; }
    bool isComAllOp() const;
    int getOptTypeByCompact() const;
    quint64 getGgtTradeOpType(quint64 word) const;
    int getCurrentVolumnType() const;
    void resetVolumnCombobox();
    void resetVolumnTypeByAutoHedge();
    void setItemsVisible(int mode, int batchFlags);
    void resetCopiesValidator(double copies);
    void resetLayout();
    void updateCmdParamVisible();
    // The entrustment widgets show only for touch orders on the stock tabs.
    void updateEntrustVisible(bool hasTouchOrders);
    static bool isEntrustmentTypeVisible(quint64 word);
    bool isShowSystemBasket(quint64 word) const;
    bool hasHedgePermission() const;
    // The basket kind of the picker's current basket, -1 when the name is no stored basket.
    int currentBasketKind() const;
    QString currentBasketName() const;

    // --- small operations the panel and the other blocks call ---
    bool autoHedge() const;
    bool fillHedgeParam(ttservice::CBasketHedgeParam &param) const;
    void selectAccount(const QString &account);
    void setReplaceToolBar(COpBasketReplaceStockToolBar *bar);
    void clearBasketNum();
    void enableWidgetForExchangePosition(bool enable);
    int getTradePlatform() const;
    std::string get3rdPartyTradeParam() const;
    bool getTraderChangeEnable() const;
    static int getIndexVolume(const QString &market, const QString &code);
    void getIndexDataByBasket(double &price, int &volume) const;

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

    // --- widgets, for the panel and for tests ---
    COpAccountsWidget *accountsWidget() const { return m_accountsWidget; }
    COpBasketReplaceStockToolBar *replaceToolBar() const { return m_replaceToolBar; }
    COperationPushButtonGroup *tabGroup() const { return m_tabGroup; }
    COpBasketsComboBox *basketsCombo() const { return m_basketsCombo; }
    QComboBox *volumnCombobox() const { return m_volumnCombobox; }
    CComboxNameWidget *volumnRow() const { return m_volumnRow; }
    WK::CParameterCell *cell(int which) const;
    COpBasketFutureParamsWidget *hedgeWidget() const { return m_hedgeWidget; }
    WK::CPushButton *adjustButton() const { return m_adjustBtn; }
    WK::CWidgetList *contractRow() const { return m_contractRow; }
    WK::CComboBox *contractCombo() const { return m_contractCombo; }
    WK::CComboBox *entrustCombo() const { return m_entrustCombo; }
    WK::CBaseWidget *otherParams() const { return m_otherParams; }
    quint64 ggtOpType() const { return m_ggtOpType; }
    const QMap<quint64, QString> &accountParams() const { return m_accountParams; }
    const std::string &commandKey() const { return m_commandKey; }
    quint64 commandOpType() const { return m_commandOpType; }
    bool isCommandEnabled() const { return m_commandEnabled; }
    const QMap<int, QVector<CPositionParam>> &batchPositionsByFlag() const { return m_batchPositions; }

    // Which value cell cell() answers.
    enum ECell { CellCopies, CellMoney, CellRatio, CellSellRatio, CellAssetRatio, CellCmdRatio, CellContract, CellTotalLots };

    bool handleEvent(int event, int id, int value, QString text, void *data) override;
    void scaleChanged() override;

public Q_SLOTS:
    void slot_bascketChange(QKeyEvent *event);
    void slotRemoveData(QVector<TC::CBasketStockData> rows);

Q_SIGNALS:
    void sigRecalcOperationParam(QString stockKey);
    void sigOnDealDetail();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void createUi();
    WK::CBaseWidget *createOtherParams();
    WK::CParameterCell *makeCell(int id, const QString &label, const QString &unit, QWidget *parent);
    void createTabs();
    void disableForTrader();
    void saveCurrentAccountTableParam();
    void loadCurrentAccountTableParam();
    void setPickerBrokerType(int brokerType);
    void reSetCopisesCell();
    void updateAccountsEnabled();
    void showTabBlocks(quint64 tabWord);

    quint64 m_tradeOpType = TOT_BUY;
    int m_operationType = -1;

    COperationPushButtonGroup *m_tabGroup = nullptr;
    COpBasketParamsExpandBar *m_settingBar = nullptr;
    WK::CWidgetList *m_rightList = nullptr;
    WK::CPushButton *m_expandBtn = nullptr;
    bool m_expanded = false;
    COpAccountsWidget *m_accountsWidget = nullptr;
    WK::CBaseWidget *m_otherParams = nullptr;
    COpBasketFutureParamsWidget *m_hedgeWidget = nullptr;
    COpBasketHedgeSettingWidget *m_hedgeSetting = nullptr;
    COpBasketReplaceStockToolBar *m_replaceToolBar = nullptr;
    COpBasketsComboBox *m_basketsCombo = nullptr;
    CComboxNameWidget *m_volumnRow = nullptr;
    QComboBox *m_volumnCombobox = nullptr;
    WK::CParameterCell *m_copiesCell = nullptr;
    WK::CParameterCell *m_moneyCell = nullptr;
    WK::CParameterCell *m_ratioCell = nullptr;
    WK::CParameterCell *m_sellRatioCell = nullptr;
    WK::CParameterCell *m_assetRatioCell = nullptr;
    WK::CParameterCell *m_cmdRatioCell = nullptr;
    WK::CParameterCell *m_contractCell = nullptr;
    WK::CParameterCell *m_totalLotsCell = nullptr;
    QWidget *m_cmdRatioRow = nullptr;
    WK::CMessageTip *m_moneyTip = nullptr;
    WK::CPushButton *m_adjustBtn = nullptr;
    WK::CSimpleTextWidget *m_entrustLabel = nullptr;
    WK::CComboBox *m_entrustCombo = nullptr;
    WK::CWidgetList *m_contractRow = nullptr;
    WK::CSimpleTextWidget *m_contractLabel = nullptr;
    WK::CComboBox *m_contractCombo = nullptr;
    quint64 m_ggtOpType = TOT_HGT;
    QMap<quint64, QString> m_ggtNames;
    QMap<quint64, QString> m_accountParams;
    QMap<quint64, QString> m_hedgeParams;
    bool m_inOpTypeChange = false;
    bool m_locked = false;
    std::string m_commandKey;
    quint64 m_commandOpType = 0;
    std::string m_thirdPartyParam;

    QString m_savedParam;
    bool m_commandEnabled = true;
    QMap<int, QVector<CPositionParam>> m_batchPositions;
    std::vector<ttservice::CCodeOrderParam> m_orderParams;
};

} // namespace TC
