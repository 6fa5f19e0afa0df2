#pragma once

#include "BasketExport.h"
#include "CBaseWidget.h"

#include "CBasketHedgeParam.h"
#include "CBasketStockData.h"
#include "COrderCommand.h"
#include "CPositionParam.h"
#include "CVqOrderTag.h"
#include "PanelEnums.h"
#include "TaskImp.h"
#include "TradeEnums.h"
#include "sSplitCmdInfo.h"

#include <boost/shared_ptr.hpp>

#include <QString>
#include <QVector>

#include <string>

class QKeyEvent;
class QScrollArea;

namespace WK {
class CSplitContainer;
class CWidgetList;
} // namespace WK

namespace TC {

class COpBasketParamsEditWidget;
class COpBasketParamsWidget;
class COpBasketReplaceStockToolBar;

// The top form of the basket panel: the parameter form on one side of a split container, the
// filter toolbar above the confirmation table on the other. It places the orders and takes in
// the manager's instructions.
class BASKETPANEL_EXPORT COperationBasketWidget : public WK::CBaseWidget
{
    Q_OBJECT

public:
    explicit COperationBasketWidget(QWidget *parent);
    ~COperationBasketWidget() override;

    // The state of form, table, split and filter boxes, joined by "/".
    QString param() const;
    void setParam(const QString &text);

    void loadAccountGroupSettings();
    void refreshAccounts();
    void updateBasketSetting();
    void updateBasketConfirmData();
    void fillComposeLastBasket(const QString &name);
    void setCurrentOperationType(quint64 word);
    void batchPositions(const QVector<CPositionParam> &positions, QFlags<ETempBatchOrderFlag> flags);
    void doShortCutOrder(int key, QKeyEvent *event);

    void setCommand(const std::string &key);
    void setSplitCommand(const std::string &key, const sSplitCmdInfo &info);
    void setEnableCmdOrder(const std::string &key, bool enable);
    void patchCommand(const QString &text);
    // Ctrl+V and the table's paste function: clipboard rows become the current list.
    void handlePaste();

    bool handleEvent(int event, int id, int value, QString text, void *data) override;
    // Places the form's list: plain, algorithm or hedged for a manager, the instruction's tasks
    // for a trader. Changes nothing in the panel; the same list can be sent again.
    void doOperation();
    // Whether the list travels as an outside platform's algorithm order (1), as a plain basket
    // order (0), or not at all (-1, after telling the user why where the algorithm service would
    // not); fills the algorithm's parameter string and platform.
    EBasketDoOperationType fillAlgoParam(std::vector<ttservice::CCodeOrderParam> &orders, std::string &paramString,
                                         ttservice::ETradePlatform &platform);
    // Stores the hedge of an instruction's new order under the order's tag and tells the hedge
    // service; tasks is not read.
    void onPlaceTask(const bson::BSONObj &hedgeObject, const QVector<boost::shared_ptr<ttservice::TaskImp>> &tasks,
                     boost::shared_ptr<ttservice::CVqOrderTag> tag);

    COpBasketParamsWidget *paramsWidget() const { return m_paramsWidget; }
    COpBasketParamsEditWidget *editWidget() const { return m_editWidget; }
    COpBasketReplaceStockToolBar *replaceToolBar() const { return m_replaceToolBar; }
    WK::CSplitContainer *splitContainer() const { return m_splitContainer; }
    const std::string &commandKey() const { return m_commandKey; }
    int subCommandId() const { return m_subCommandId; }

Q_SIGNALS:
    void sigHedgeParam(const boost::shared_ptr<ttservice::CVqOrderTag> &tag, const ttservice::CBasketHedgeParam &param);
    void sigbasketSettingChanged(QString name);

public Q_SLOTS:
    // The hedge service connects to this by name: it places what is left of a hedged
    // instruction as tasks, each line's untraded volume.
    void slotPlaceAutoHedgeTaskForCommand(boost::shared_ptr<ttservice::COrderCommand> command);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void createUi();
    // The tab that the lines of an instruction belong to; 0 when they name none.
    static quint64 tabWordOfLines(const std::vector<ttservice::CCodeOrderParam> &lines);
    // Switches to the lines' tab and hands the instruction to form and table; split names the
    // part of a split instruction, null for a whole one.
    void showCommandLines(const std::string &key, const std::vector<ttservice::CCodeOrderParam> &lines,
                          const sSplitCmdInfo *split = nullptr);
    void onTabChanged(quint64 word);
    void onListGenerated(quint64 word, const QString &basketName);
    // An order button's press: the checks in their order, then doOperation.
    bool placeOrderRequested(int value);
    // Prices on their ticks, lines of nothing out, and a second press of the same lines asked
    // about; false when nothing is to leave.
    bool settleBeforeSending(std::vector<ttservice::CCodeOrderParam> &orders);
    // Each returns whether the list left.
    bool placeAsManager(std::vector<ttservice::CCodeOrderParam> &orders, std::string thirdParty, int platform,
                        bool createPortfolio, bool allowChange);
    bool placeForCommand(std::vector<ttservice::CCodeOrderParam> &orders, std::string thirdParty, int platform);
    void afterTasksSent(const std::vector<ttservice::CCodeOrderParam> &sent);
    void showAlgoRefusal(const QString &text) const;

    WK::CSplitContainer *m_splitContainer = nullptr;
    QScrollArea *m_paramsScroll = nullptr;
    COpBasketParamsWidget *m_paramsWidget = nullptr;
    COpBasketParamsEditWidget *m_editWidget = nullptr;
    COpBasketReplaceStockToolBar *m_replaceToolBar = nullptr;
    std::string m_commandKey;
    WK::CWidgetList *m_leftList = nullptr;
    int m_subCommandId = 0;
    // What left last and when (the time service's seconds), to catch a second press.
    QString m_lastSentFingerprint;
    long long m_lastSentTime = 0;
};

} // namespace TC
