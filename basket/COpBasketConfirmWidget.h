#pragma once

#include "BasketExport.h"
#include "CBaseWidget.h"

#include <boost/function.hpp>

#include <QString>

namespace TC {

// The confirmation table of the order list.
class BASKETPANEL_EXPORT COpBasketConfirmWidget : public WK::CBaseWidget
{
    Q_OBJECT

public:
    explicit COpBasketConfirmWidget(QWidget *parent);
    ~COpBasketConfirmWidget() override;

    // The table's own piece of the panel's parameter text.
    void setParam(const QString &text);
    QString param() const;

    void setPasteDataFunc(const QString &hint, boost::function<void()> func);
    void setTradeOperationType(quint64 word);
    void setOperationType(int operation);

    int filterFlags() const { return m_filterFlags; }
    quint64 tradeOperationType() const { return m_tradeOpType; }
    int operationType() const { return m_operationType; }

public Q_SLOTS:
    // The toolbar's filter word; applying the same word twice changes nothing.
    void slotSetFilter(int flags);

private:
    QString m_param;
    QString m_pasteHint;
    boost::function<void()> m_pasteFunc;
    int m_filterFlags = 0;
    quint64 m_tradeOpType = 512;
    int m_operationType = 18;
};

} // namespace TC
