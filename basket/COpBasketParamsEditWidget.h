#pragma once

#include "BasketExport.h"
#include "CBaseWidget.h"

#include "CBasketStockData.h"

#include <boost/function.hpp>

#include <QString>
#include <QVector>

#include <string>

class QKeyEvent;

namespace TC {

class COpBasketConfirmWidget;

// The wrapper of the confirmation table that the panel places in its form: it passes calls on
// to the table and reports the first key press.
class BASKETPANEL_EXPORT COpBasketParamsEditWidget : public WK::CBaseWidget
{
    Q_OBJECT

public:
    explicit COpBasketParamsEditWidget(QWidget *parent);
    ~COpBasketParamsEditWidget() override;

    void setParam(const QString &text);
    QString param() const;
    void setTradeOpType(quint64 word);
    void setPasteDataFunc(const QString &hint, boost::function<void()> func);

    COpBasketConfirmWidget *confirmWidget() const { return m_opConfirmWidget; }

Q_SIGNALS:
    void sigbasketSettingChanged(QString name);
    void sig_bascketChange(QKeyEvent *event);
    void sigRemoveData(QVector<TC::CBasketStockData> rows);

protected:
    // 512 is the buy operation 18, 1024 the sell operation 19, every other word none.
    static int tradeOpTypeToOptType(quint64 word);

private:
    COpBasketConfirmWidget *m_opConfirmWidget = nullptr;
    std::string m_commandKey;
    quint64 m_commandTradeOpType = 0;
};

} // namespace TC
