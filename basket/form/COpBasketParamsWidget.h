#pragma once

#include "BasketExport.h"
#include "CBaseWidget.h"

#include "CBasketHedgeParam.h"
#include "CBasketStockData.h"
#include "CCodeOrderParam.h"
#include "CPositionParam.h"
#include "CPositionDetail.h"
#include "CSmartKeyboardDialog.h"
#include "CStockInfo.h"
#include "PanelEnums.h"
#include "sSplitCmdInfo.h"

#include <boost/format/format_fwd.hpp>

#include <boost/shared_ptr.hpp>

#include <QHash>
#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QVector>

#include <functional>
#include <string>
#include <vector>

class QComboBox;
class QKeyEvent;
class QPaintEvent;

namespace ttservice {
class COrderCommand;
} // namespace ttservice

namespace WK {
class CComboBox;
class CMessageTip;
class CParameterCell;
class CPushButton;
class CSimpleTextWidget;
class CWidgetList;
} // namespace WK

namespace mongo {
class BSONObj;
}

namespace TC {

class CComboxNameWidget;
class CGlobalOrderParamTable;
class COpBasketBuySellWidget;
class COpBasketCrdBuySellWidget;
class COpBasketFtrBuySellWidget;
class COpBasketFtrOneKeyWidget;
class COpBasketStockParamsWidget;
class CPriceData;
class CQuoteRequest;
class CAccount;
struct COpBasketOrder;
class COpAccountsWidget;
class COpBasketFutureParamsWidget;
class COpBasketHedgeSettingWidget;
class COpBasketParamsButtonsBar;
class COpBasketParamsExpandBar;
class COpBasketPatchSettingWidget;
class COpBasketReplaceStockToolBar;
class COpBasketsComboBox;
class COperationPushButtonGroup;
class COptBasketExchangePositionDialog;

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
    // The form's piece of the panel's text: a JSON object of short keys, each value a string.
    // Texts of older clients, fields joined by ";", are still read and upgraded on the next save.
    QString param() const;
    void setParam(const QString &text);
    void setOldParam(const QString &text);
    // The name under which the per-tab entry of the tab word is saved.
    std::string getBsonName(quint64 word) const;
    static quint64 getOpTypeFromQString(const QString &name);
    // The form's memory per tab word: the "*" text of saveHedgeParam.
    const QMap<quint64, QString> &hedgeParams() const { return m_hedgeParams; }

    // --- tabs and sizing modes ---
    void setCurrentOperationType(quint64 word);
    quint64 getTradeOpType() const { return m_tradeOpType; }
    int getOperationType() const { return m_operationType; }
    // By account as the table shows it, the money the last sizing meant for it: the total the
    // sizing mode gives, shared by the accounts' weights as their volumes are. Empty where the
    // list was not sized by money (copies, positions, an instruction, one account on the
    // one-key tab, whose buys spend what its sells free too).
    const QMap<QString, double> &aimedMoney() const { return m_aimedMoney; }
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

    // --- the order list ---
    // A new order from the picker's source of rows; the caller owns it. Null when there is no
    // picker or the source has nothing to give (an unknown basket name, for one).
    COpBasketOrder *createOrder(QString &error);
    // The same run into lines (emptied first); false where createOrder gives null.
    bool fillOrder(std::vector<ttservice::CCodeOrderParam> &lines, QString &error);
    // The current list, priced with the latest quotes; every reader works on this one vector.
    std::vector<ttservice::CCodeOrderParam> *getCodeOrderParams();
    std::vector<ttservice::CCodeOrderParam> *getCodeOrderParamsForOrder() { return getCodeOrderParams(); }
    // Refreshes the per-line order parameters when the list has not been rebuilt for 30 seconds.
    void updateCodeOrderParam();
    bool fillBasketOrderParam(std::vector<ttservice::CCodeOrderParam> &params, QString &error);
    // Sizes rows over the selected accounts: one line per row and account. useSplit divides a
    // row's volume over the accounts; without it every account gets the whole volume.
    bool fillParamByStocks(const QList<CBasketStockData> &stocks, std::vector<ttservice::CCodeOrderParam> &params,
                           QString &error, bool useSplit);
    // What every row of one sizing shares; defined beside the sizing.
    struct CSizingContext;
    // Sizes one row over the context's accounts and appends its lines.
    void sizeRow(const CBasketStockData &row, CSizingContext &context, std::vector<ttservice::CCodeOrderParam> &params,
                 QStringList &rowsLog);
    double getTotalMoney(double available, double totalAsset, double netValue) const;
    int getTotalVolume(const CBasketStockData &stock, double sumWeight, double totalMoney, int minUnit,
                       double indexValue, int indexCount) const;
    void fillCompParams(ttservice::CCodeOrderParam *param, ttservice::EOperationType operation);
    const std::string &orderRowsLog() const { return m_orderRowsLog; }
    quint32 lastGenTime() const { return m_lastGenTime; }
    const QSet<QString> &pendingQuotes() const { return m_pendingQuotes; }
    QStringList quoteRequestKeys() const { return m_quoteRequests.keys(); }

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
    // The order block's log of its parameters, sent with the order; empty without the block.
    std::string getCmdLog() const;
    // The block that stands for an operation on the current tab.
    COpBasketStockParamsWidget *getParamWidget(int operation) const;
    // The first table of the tab's blocks that carries an outside platform's algorithm.
    CGlobalOrderParamTable *getAlgorithmTable() const;
    // Price and order type of the tab's block for the operation; -1 without the block.
    int getPriceType(int operation) const;
    int getOrderType(int operation) const;
    static int getIndexVolume(const QString &market, const QString &code);
    void getIndexDataByBasket(double &indexValue, int &indexCount) const;

    void loadAccountGroupSettings();
    void refreshAccounts();
    void updateBasketSetting();
    void updateBasketConfirmData();
    void fillComposeLastBasket(const QString &name);
    void batchPositions(const QVector<CPositionParam> &positions, QFlags<ETempBatchOrderFlag> flags);
    // Keys of the accounts ticked in the picker; empty without one.
    QSet<QString> getSelectedAccounts() const;
    // The ticked accounts as the user configuration knows them; empty without a picker.
    QVector<boost::shared_ptr<CAccount>> getAccounts() const;
    // Every position of the account, empty ones included; empty for an unknown account.
    static std::vector<boost::shared_ptr<ttservice::CPositionDetail>> getAccoutPositions(const QString &accountKey);
    // What to sell of a holding at a sell ratio: the nearest whole lot of held x ratio (halves
    // up), never more than is held; the whole holding at 100% or when it is one lot or less.
    static int64_t sellRatioVolume(int64_t held, double ratio, int unit);

    // --- edits of the list that outlive a recalculation ---
    // A line of the confirmation table was edited (volume, direction).
    void changeBascketData(ttservice::CCodeOrderParam *line);
    void addOneBascketData(const ttservice::CStockInfo &stock);
    QList<CBasketStockData> paramDataToBasketStockData(const std::vector<ttservice::CCodeOrderParam> &lines,
                                                       const QString &basketName) const;
    void changeDelegateStyle();
    // Where the table's every line is read (unticked and filtered ones too): a list made from
    // the table starts from them. Without a source the form's own list stands in.
    void setShownLinesSource(std::function<std::vector<ttservice::CCodeOrderParam>()> source)
    {
        m_shownLinesSource = std::move(source);
    }
    void onSelectStock(const ttservice::CStockInfo &stock, ESmartKeyType type);
    // A paste starts as one copy of the pasted volumes when resetVolumn holds.
    void batchClipboard(bool resetVolumn);
    // The tab a paste of this tab's rows belongs to; moves the mode widgets to its operation.
    quint64 getClipBoardOperationType(quint64 tab) const;
    // The tab for a basket handed in from outside, by the operations of its rows.
    quint64 getAutoImportBasketsOpType(const QString &name);
    // Keys 400 (buy) and 401 (sell): the first press switches to the tab, the next one places.
    void doShortCutOrder(int key, QKeyEvent *event);

    // --- a manager's instruction executed by this trader ---
    // Loads the instruction's lines (or the part of a split instruction meant for this user) as
    // the order list of the tab word it belongs to; the caller has switched to that tab.
    void setCommand(const std::string &key, quint64 word);
    void setSplitCommand(const std::string &key, quint64 word, const sSplitCmdInfo &info);
    // What the trader may change of an instruction; basket and sizing stay locked either way.
    void setEnableForCommand(bool enable);
    // The order ratio of the instruction, in percent.
    double getCommandPercentage() const;
    // Rebuilds the instruction's lines, sizing what is left of each by the order ratio; false,
    // with nothing changed, while there is no instruction of this trader on this tab.
    bool updateParamsByCmd(bool fillUi);
    bool updateParamsBySubCmd(bool fillUi, const sSplitCmdInfo &info);
    // Whether an instruction was loaded that this trader can no longer execute (handed on,
    // finished or gone): its list stays on screen, but nothing may be sent against it.
    bool isCommandHandedOn() const;
    // Remembers what this panel sent for the loaded instruction, so that its next sizing is of
    // what is left after it, not of the same remainder again.
    void noteSentForCommand(const std::vector<ttservice::CCodeOrderParam> &sent);
    // --- checks before an order is generated or a paste is taken ---
    bool check(QString &error, QString &log);
    // False when the accounts' available money does not cover what the list buys.
    bool checkOrderValid(std::vector<ttservice::CCodeOrderParam> &params);
    // The accounts whose buys in these lines come to more than their own available money, as a
    // message naming each with what it needs and has; empty when every account can pay.
    QString accountsShortOfMoney(const std::vector<ttservice::CCodeOrderParam> &lines) const;
    // Parses pasted rows of unfilled volume and keeps them as the tab's clipboard list.
    bool checkPatch(const QString &text, quint64 &word, bool fromCommand);
    quint64 getCommandOperationType(const QList<CBasketStockData> &rows) const;
    const QMap<quint64, QList<CBasketStockData>> &clipboardStocks() const { return m_clipboardStocks; }
    bool clipboardHasWeight() const { return m_clipboardHasWeight; }
    void setBatchOp(QFlags<ETempBatchOrderFlag> flags, bool select);
    void saveHedgeParam() const;
    void loadHedgeParam();
    // Sizing back to its first mode with one copy, as a pasted instruction wants it.
    void resetSizingToOneCopy();

    // --- widgets, for the panel and for tests ---
    COpAccountsWidget *accountsWidget() const { return m_accountsWidget; }
    COpBasketReplaceStockToolBar *replaceToolBar() const { return m_replaceToolBar; }
    COpBasketParamsButtonsBar *buttonsBar() const { return m_buttonsBar; }
    COperationPushButtonGroup *tabGroup() const { return m_tabGroup; }
    COpBasketsComboBox *basketsCombo() const { return m_basketsCombo; }
    QComboBox *volumnCombobox() const { return m_volumnCombobox; }
    CComboxNameWidget *volumnRow() const { return m_volumnRow; }
    WK::CParameterCell *cell(int which) const;
    COpBasketFutureParamsWidget *hedgeWidget() const { return m_hedgeWidget; }
    COpBasketPatchSettingWidget *patchSetting() const { return m_patchSetting; }
    COpBasketStockParamsWidget *stockParams() const { return m_stockParams; }
    COpBasketBuySellWidget *buySellWidget() const { return m_buySellWidget; }
    COpBasketCrdBuySellWidget *crdWidget() const { return m_crdWidget; }
    COpBasketFtrBuySellWidget *ftrWidget() const { return m_ftrWidget; }
    COpBasketFtrOneKeyWidget *ftrOneKeyWidget() const { return m_ftrOneKeyWidget; }
    COpBasketBuySellWidget *ggtWidget() const { return m_ggtWidget; }
    COpBasketParamsExpandBar *settingBar() const { return m_settingBar; }
    bool isExpanded() const { return m_expanded; }
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
    // The per-tab custom group: an editable copy of the list the tab showed. Mode 0 is the copy
    // of a stored basket's list, mode 8 the copy of pasted rows.
    struct CTabBasket
    {
        int m_batchFlags = 0;
        QList<CBasketStockData> m_basketList;
        QList<CBasketStockData> m_pasteList;
    };
    const QMap<quint64, CTabBasket> &tabBaskets() const { return m_tabBaskets; }
    int customGroupMode() const { return m_customGroupMode; }
    // The position exchange dialog of the all-directions (2048) or one-key futures (16384) tab;
    // null until it was first opened.
    COptBasketExchangePositionDialog *exchangeDialog(quint64 word) const;

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

protected Q_SLOTS:
    void slotRecalcOperationParam(QString stockKey);

protected:
    void paintEvent(QPaintEvent *event) override;
    // Drops rows that may never be traded here and marks those the toolbar filters out.
    void filterStockParam(QList<CBasketStockData> &rows);
    // The money the buys of a one-key list may use in one account: the cash, or the cash and
    // what the sells bring in, or 0 when even that falls short.
    double calcOneKeyAvailableMoney(const QList<CBasketStockData> &rows, const QString &accountKey,
                                    double sumWeight, double totalMoney) const;
    // Asks the trading service to refresh the account limits of the logged-in credit accounts.
    void updateAccountsSlo();
    void updateAccountSlo(const ttservice::CAccountInfo &account);

private:
    // --- switching tabs ---
    void enterTab(quint64 word);
    int showTabOperation(quint64 tab);
    void showAccountsFor(quint64 tab);
    void spreadOperation(quint64 tab, int op);

    // --- the form's events, one handler per group ---
    std::string userIdText() const;
    void onButtonPressed(int id);
    void switchTab(quint64 idWord);
    void toggleLock();
    bool onComboChosen(int id);
    bool onCellEdited(int id, const QString &text);
    void onCellTyped(int id);
    void onBarSwitch(int id, int value);
    void onBasketChosen(int value);
    void showPatchSetting();
    void showHedgeSetting();
    void copyCheckParamToOtherSide(void *table);
    void onAccountsChanged();

    // --- reading the form's text ---
    void readSavedTab(const mongo::BSONObj &obj);
    void readSavedBlocks(const mongo::BSONObj &obj);
    void readSavedSizing(const mongo::BSONObj &obj);
    void readSavedTabBlocks(const mongo::BSONObj &obj);
    void readSavedTabEntries(const mongo::BSONObj &obj);
    void finishRestore();
    void restoreBasket(const QString &name);
    // Chooses the sizing mode by its value, not by its row.
    void setCurrentVolumnIndex(int mode);
    void showCopiesOrMoney(int mode);
    void updateAccountsToolBar();

    void createUi();
    WK::CBaseWidget *createOtherParams();
    void createContractRow(WK::CWidgetList *list);
    void createBasketRow(WK::CWidgetList *list);
    void createSizingRow(WK::CWidgetList *list);
    void createCmdRow(WK::CWidgetList *list);
    WK::CParameterCell *makeCell(int id, const QString &label, const QString &unit, QWidget *parent);
    void createTabs();
    void disableForTrader();
    void saveCurrentAccountTableParam();
    void loadCurrentAccountTableParam();
    void setPickerBrokerType(int brokerType);
    // The broker type of the baskets the picker offers on a tab.
    static int pickerBrokerTypeOf(quint64 word);
    void reSetCopisesCell();
    void updateAccountsEnabled();
    void showTabBlocks(quint64 tabWord);
    void createModeBlocks();
    // The mode widget of a tab word, null for a word without one.
    QWidget *modeWidgetOf(quint64 word) const;
    // Price and order type for the rows of one direction (one-key futures) or of the form's
    // operation; the values stay as they are when the tab's block is missing.
    void orderTypesForRow(int rowOperation, ttservice::EPriceType &priceType, ttservice::EOrderType &orderType) const;
    const COpBasketStockParamsWidget *tabBlockFor(int operation) const;
    COpBasketStockParamsWidget *blockForRow(int rowOperation) const;
    // Every block of the current tab's mode widget.
    QVector<COpBasketStockParamsWidget *> tabBlocks() const;

    // --- the computing side ---
    void genOperation();
    void recalculate(int value);
    void deliverListChanged(int value);
    void requestQuotes(const QList<CBasketStockData> &rows);
    void fillOrderParamPrice();
    // Runs on the quote service's thread: only emits sigRecalcOperationParam.
    void recalcOperationParams(boost::shared_ptr<CPriceData> quote);
    bool fillBatchBuyParam(std::vector<ttservice::CCodeOrderParam> &params, QString &error);
    bool fillBatchSellParam(std::vector<ttservice::CCodeOrderParam> &params, QString &error);
    bool fillPositionSellParam(std::vector<ttservice::CCodeOrderParam> &params, QString &error);
    bool fillClipboard(std::vector<ttservice::CCodeOrderParam> &params, QString &error);
    bool fillBatchBuySellParam(std::vector<ttservice::CCodeOrderParam> &params, QString &error);
    bool fillCustomGroupParam(std::vector<ttservice::CCodeOrderParam> &params, QString &error);
    void getBatchBuyStockList(QList<CBasketStockData> &rows) const;
    // A line of a handed-over position or account position, before its block fills it.
    ttservice::CCodeOrderParam batchLine(const ttservice::CStockInfo &stock, int operation) const;
    // The line of a handed-over position: its account (copied), instrument and position keys.
    ttservice::CCodeOrderParam positionLine(const CPositionParam &position, int operation) const;
    void requestPositionQuotes(const QVector<CPositionParam> &positions);
    // The list the custom group's mode points at; null for a mode without one.
    QList<CBasketStockData> *customGroupList(quint64 tab);
    // Adds row unless the list has the stock already, on any account; true if it was added.
    bool addRowTo(QList<CBasketStockData> &rows, const CBasketStockData &row, const QString &name) const;
    void calcReplaceEtf(double stoppedMoney, const std::vector<boost::shared_ptr<ttservice::CAccountInfo>> &accounts,
                        std::vector<ttservice::CCodeOrderParam> &params, const std::vector<double> &weights);
    void calcReplaceBlacklist(std::vector<ttservice::CCodeOrderParam> &params);
    void keepBlackStocksUnbought(std::vector<ttservice::CCodeOrderParam> &params);
    void updateParamsByAccount();
    // Says which ticked accounts a custom group gives no line to, and why.
    void tellAccountsWithoutCustomLines();
    void setParities();
    // The common body of the two instruction loaders, over the lines they picked.
    bool loadCommandLines(const ttservice::COrderCommand &command, const std::vector<ttservice::CCodeOrderParam> &lines,
                          bool fillUi);
    double commandLineTraded(const ttservice::CCodeOrderParam &line) const;
    void sizeCommandLine(ttservice::CCodeOrderParam &line, double traded, double ratio, const QString &ownKey,
                         QStringList &cut);
    void fillCommandTable(const ttservice::CCodeOrderParam &line, int tableType, const QString &tableText);
    void logUserAction(const boost::format &text);
    void reportCheckFailure(const QString &message, QString &error, QWidget *tipAnchor);
    void showMoneyTip();
    // --- the position exchange dialogs ---
    void openExchangeDialog();
    // The dialog that sent an event (its data), else the current tab's.
    COptBasketExchangePositionDialog *exchangeDialogOf(void *sender) const;
    void takeExchangePositions(void *sender);
    void pushAccountsToExchangeDialog(void *sender);
    void handOverToExchangeDialog(const ttservice::CStockInfo &stock);

    quint64 m_tradeOpType = TOT_BUY;
    int m_operationType = -1;

    COperationPushButtonGroup *m_tabGroup = nullptr;
    COpBasketParamsExpandBar *m_settingBar = nullptr;
    COpBasketStockParamsWidget *m_stockParams = nullptr;
    COpBasketBuySellWidget *m_buySellWidget = nullptr;
    COpBasketCrdBuySellWidget *m_crdWidget = nullptr;
    COpBasketFtrBuySellWidget *m_ftrWidget = nullptr;
    COpBasketFtrOneKeyWidget *m_ftrOneKeyWidget = nullptr;
    COpBasketBuySellWidget *m_ggtWidget = nullptr;
    WK::CWidgetList *m_rightList = nullptr;
    WK::CPushButton *m_expandBtn = nullptr;
    bool m_expanded = false;
    COpAccountsWidget *m_accountsWidget = nullptr;
    WK::CBaseWidget *m_otherParams = nullptr;
    COpBasketParamsButtonsBar *m_buttonsBar = nullptr;
    COpBasketFutureParamsWidget *m_hedgeWidget = nullptr;
    COpBasketHedgeSettingWidget *m_hedgeSetting = nullptr;
    COpBasketPatchSettingWidget *m_patchSetting = nullptr;
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
    mutable QMap<quint64, QString> m_hedgeParams;
    bool m_inOpTypeChange = false;
    bool m_locked = false;
    std::string m_commandKey;
    quint64 m_commandOpType = 0;
    // Per instruction line (instruction, account, stock, operation): the volume sent from here
    // and the traded volume the line had when the first of it was sent.
    struct CSentForCommand
    {
        qint64 m_sent = 0;
        double m_tradedAtFirstSend = 0.0;
    };
    QHash<QString, CSentForCommand> m_sentForCommand;
    // The trader's own changes to the loaded instruction's list, by account and instrument:
    // every recalculation rebuilds the list from the instruction and applies them again.
    QHash<QString, qint64> m_commandEdits;
    QSet<QString> m_commandDeletions;
    bool isCommandListOnView() const;
    std::vector<ttservice::CCodeOrderParam> m_handedOnLines;
    bool m_handedOnTaken = false;
    void keepHandedOnList();
    // A list the client hands the form (positions to trade) takes the instruction's place:
    // the press then sends that list, not the instruction's lines.
    void forgetCommand();
    QString commandLineKey(const std::string &accountKey, const std::string &market, const std::string &code) const;
    std::string m_thirdPartyParam;

    bool m_commandEnabled = true;
    // The part of a split instruction this trader executes; without it, the whole instruction.
    bool m_hasSplitInfo = false;
    sSplitCmdInfo m_splitInfo;
    QVector<CPositionParam> m_batchBuyPositions;
    QVector<CPositionParam> m_batchSellPositions;
    QMap<quint64, QVector<CPositionParam>> m_batchBuySellPositions;
    std::vector<ttservice::CCodeOrderParam> m_orderParams;
    QMap<QString, double> m_aimedMoney;
    std::function<std::vector<ttservice::CCodeOrderParam>()> m_shownLinesSource;
    std::vector<ttservice::CCodeOrderParam> shownLines() const
    {
        return m_shownLinesSource ? m_shownLinesSource() : m_orderParams;
    }
    QMap<QString, boost::shared_ptr<CQuoteRequest>> m_quoteRequests;
    QSet<QString> m_pendingQuotes;
    quint32 m_lastGenTime = 0;
    std::string m_orderRowsLog;
    // The black buys the replacement could not exchange, as the trader was last told of them.
    QString m_unreplacedBlackNote;
    // Rows pasted for each tab, and whether the pasted text had a weight column.
    QMap<quint64, QList<CBasketStockData>> m_clipboardStocks;
    bool m_clipboardHasWeight = false;
    // Per tab: the picker's flags, so that a tab comes back with the list it showed, and the
    // custom group's lists.
    QMap<quint64, CTabBasket> m_tabBaskets;
    int m_customGroupMode = 0;
    COptBasketExchangePositionDialog *m_exchangeDialog = nullptr;
    COptBasketExchangePositionDialog *m_ftrExchangeDialog = nullptr;
};

} // namespace TC
