#pragma once

#include "BasketExport.h"
#include "CBaseWidget.h"

#include "CBasketStockData.h"
#include "CCodeOrderParam.h"
#include "sSplitCmdInfo.h"

#include <boost/function.hpp>

#include <QString>
#include <QVector>

#include <string>
#include <vector>

class QDragEnterEvent;
class QDropEvent;
class QKeyEvent;

namespace TC {

class CBasketSizingSummary;
class CHpfOpConfirmWidget;

// The wrapper of the confirmation table that the panel places in its form: it passes calls on
// to the table, decides how an instruction's list is loaded and reports the first key press.
class BASKETPANEL_EXPORT COpBasketParamsEditWidget : public WK::CBaseWidget
{
    Q_OBJECT

public:
    explicit COpBasketParamsEditWidget(QWidget *parent);
    ~COpBasketParamsEditWidget() override;

    void setWaitTest(bool wait);
    void setBasketName(const QString &name);
    // By account as the table shows it: the money the sizing meant for it (empty where the list
    // was not sized by money).
    void setAimedMoney(const QMap<QString, double> &aimed);
    void setLineEditable(bool editable);
    void setParam(const QString &text);
    QString param() const;
    // Shows the list; the table edits it in place from then on.
    void loadParams(std::vector<ttservice::CCodeOrderParam> *list, quint64 word, bool canCustom);
    void setTradeOpType(quint64 word);
    void setPasteDataFunc(const QString &hint, boost::function<void()> func);
    // Takes the table's edits into the list: only the ticked rows stay.
    void updateOrderParams();
    ttservice::CCodeOrderParam *getParamByRowIndex(int row) const;
    CHpfOpConfirmWidget *getOpConfirmWidget() const { return m_opConfirmWidget; }
    CHpfOpConfirmWidget *confirmWidget() const { return m_opConfirmWidget; }
    CBasketSizingSummary *sizingSummary() const { return m_sizingSummary; }
    // The list as the table holds it, by value; empty without the table.
    std::vector<ttservice::CCodeOrderParam> getOrderParams() const;
    // Loads an instruction's list; an unknown instruction leaves the table as it is.
    void setCommand(const std::string &key, std::vector<ttservice::CCodeOrderParam> *list, quint64 word, bool canCustom,
                    const sSplitCmdInfo &info);
    const std::string &commandKey() const { return m_commandKey; }

    // Writes the list as shown (rows in view, screen order) to path, .xlsx by its suffix, else
    // CSV, under a line naming the basket, tab, time and user. A failure is told in a message box.
    bool exportList(const QString &path) const;
    quint64 commandTradeOpType() const { return m_commandTradeOpType; }

public Q_SLOTS:
    void slotRemoveData(QVector<TC::CBasketStockData> rows);
    // The "导出" button: asks where, then exportList.
    void slotExport();

Q_SIGNALS:
    void sig_bascketChange(QKeyEvent *event);
    void sigRemoveData(QVector<TC::CBasketStockData> rows);
    void sigSetFilter(int flags, bool on);
    void sigbasketSettingChanged(QString name);
    // A file was dropped on the table: the panel imports it through the basket picker.
    void sigImportFile(QString path);

protected:
    // 512 is the buy operation 18, 1024 the sell operation 19, every other word none.
    static int tradeOpTypeToOptType(quint64 word);
    // A letter or digit typed on the table starts a basket search; Ctrl combinations do not.
    void keyPressEvent(QKeyEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void createUi();

    CHpfOpConfirmWidget *m_opConfirmWidget = nullptr;
    CBasketSizingSummary *m_sizingSummary = nullptr;
    std::string m_commandKey;
    quint64 m_commandTradeOpType = 0;
};

} // namespace TC
