#pragma once

#include "BasketExport.h"
#include "CBaseWidget.h"

#include "CCodeOrderParam.h"
#include "COrderSetting.h"
#include "TradeEnums.h"

#include <QMap>
#include <QString>

#include <string>
#include <vector>

class QWheelEvent;

namespace TC {

class CGlobalOrderParamTable;

// One order parameter block of the form: a parameter table, plus a memory of what the user set
// for each operation, so that switching from buy to sell brings back what was last set for sell.
// The settings that stand for every operation not visited yet live under m_defaultKey.
//
// Its text, with the memory on: "checkedIds=..:currentOrderType=..:<op>TrdParams=..:<op>=..:<vq>"
// where each "<op>=" entry is a setting as orderSettingToString writes it, with its ":" written
// as ";" and its "$" as "~", so that neither this list nor the one-key futures text that holds
// two blocks is split inside it. Without the memory the text is the table's own.
class BASKETPANEL_EXPORT COpBasketStockParamsWidget final : public WK::CBaseWidget
{
    Q_OBJECT

public:
    COpBasketStockParamsWidget(ttservice::EVQBrokerType brokerType, QWidget *parent, ttservice::EVqTraderType traderType);
    ~COpBasketStockParamsWidget() override;

    CGlobalOrderParamTable *table() const { return m_table; }

    ttservice::EPriceType getPriceType() const;
    ttservice::EOrderType getOrderType() const;
    void setExpandItemsHidden(bool hidden);
    void transferTimePeriod(ttservice::CCodeOrderParam *line) const;
    void hideAlgTable();
    void hideAmountUsed(bool hide, int item);
    void resetStrategyType(ttservice::EOrderType orderType, const QString &strategy);
    void saveVisibleFlag();
    // The block's order parameters into a line. They depend on the block's settings alone, not on
    // the key or the volume: sizing fills a row's template once for all its accounts.
    void fillParams(const QString &key, int volume, ttservice::CCodeOrderParam &line, double price) const;
    void setLocked(bool locked);
    void setSaveParam(bool save) { m_saveParam = save; }
    bool saveParamEnabled() const { return m_saveParam; }
    bool check(QString &error) const;
    std::string getCmdLog() const;

    int operationType() const { return m_operationType; }
    // Keeps what the table holds for the old operation and brings back what the new one had.
    // The first change keeps it for every operation not visited yet.
    void setOperationType(int operation);
    // The operation the block is built for: nothing is kept, so that the user's first change of
    // operation, not the block's start, decides what unvisited operations start from.
    void setStartOperation(int operation);

    QString param() const;
    void setParam(const QString &text);

    // Refreshes price, price bounds, step and validity of the lines from the latest quotes,
    // shortly before they leave.
    void updateSingleCodeOrderParam(std::vector<ttservice::CCodeOrderParam> &orders) const;

    // The default for an operation never set: the trading day's hours, today.
    static ttservice::COrderSetting defaultSetting();

    const QMap<int, ttservice::COrderSetting> &settings() const { return m_settings; }
    const QMap<int, QString> &trdParams() const { return m_trdParams; }
    QString commonTrdParams() const { return m_commonTrdParams; }
    int defaultKey() const { return m_defaultKey; }

    bool handleEvent(int event, int id, int value, QString text, void *data) override;
    void scaleChanged() override;

    // The algorithms' numbers the block shows, as "NAME`numbers" entries, and back.
    QString captureTrdParams() const;
    void applyTrdParams(const QString &text);

protected:
    void wheelEvent(QWheelEvent *event) override;

private:
    void loadSetting(const ttservice::COrderSetting &setting);

    CGlobalOrderParamTable *m_table = nullptr;
    int m_operationType = ttservice::OT_BUY;
    ttservice::EVQBrokerType m_brokerType;
    QMap<int, ttservice::COrderSetting> m_settings;
    QMap<int, QString> m_trdParams;
    QString m_commonTrdParams;
    int m_defaultKey = -2;
    bool m_saveParam = true;
    ttservice::EVqTraderType m_traderType;
};

} // namespace TC
