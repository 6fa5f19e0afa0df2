#pragma once

#include "BasketPlatformExport.h"
#include "CBaseWidget.h"

#include "CCodeOrderParam.h"
#include "COrderSetting.h"
#include "TradeEnums.h"

#include <QMap>
#include <QString>
#include <QVector>

#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QHBoxLayout;
class QSpinBox;
class QTimeEdit;
class QWheelEvent;

namespace WK {
class CPushButton;
} // namespace WK

namespace TC {

class CTrdAlgoBaseTable;

// The client's order parameter table: how the lines of an order are traded. Price type (with a
// fixed price), order type (plain or one of the algorithms), the algorithm's strategy and
// numbers, and the items that unfold with the form's expand button: start and end time of the
// algorithm, price step (a value or a rate of the price) and how long an order stays valid.
//
// Price types, as the order service numbers them (ttservice::EPriceType):
//   0 "最新价", 1 "买一价", 2 "卖一价", 3 "涨停价", 4 "跌停价", 5 "对手价", 11 "指定价", 13 "市价".
// Order types offered (ttservice::EOrderType): 0 "普通委托", 4 "TWAP", 5 "VWAP", and for stock
// accounts also 14 "VWAPPLUS" and 13 "三方算法", the algorithm of the outside platform whose
// strategies are the platform's default, "TWAP", "VWAP" and "SWITCH" (the position switch: a buy
// and a sell leg that move together). Futures accounts get 0 and 4. Algorithms are offered only
// while the flag holds FLAG_ALGORITHMS.
//
// Options (check ids): 0 "限时执行" applies the start and end time to the lines of an algorithm,
// 1 "价格保护" gives the lines the price step as a value (without it fillOrderParam leaves none).
// The setting's step flag is kept as it comes, for the order service.
//
// Events delivered to the parent: 114 (id 0) when the user changed anything, 220 (id 0) when the
// user asks for help on the order type. Changes made by calls deliver nothing.
class BASKET_PLATFORM_EXPORT COrderParamBaseTable : public WK::CBaseWidget
{
    Q_OBJECT

public:
    static constexpr int FLAG_ALGORITHMS = 0x1000000;
    static constexpr int PRICE_TYPE_OPPOSITE = 5;
    static constexpr int PRICE_TYPE_MARKET = 13;
    // Item ids of the table's rows, for hideAmountUsed and the tests.
    enum EItem { ItemPriceType = 6001, ItemFixedPrice = 6002, ItemOrderType = 6003, ItemStrategy = 6004,
                 ItemStartTime = 6005, ItemEndTime = 6007, ItemPriceStep = 6008, ItemValidTime = 6009 };

    // brokerType decides the order types offered; ordinaryAllowed is the deployment's plain
    // basket order right, kept for the order service's own checks; traderType is the panel's.
    COrderParamBaseTable(const QString &name, ttservice::EVQBrokerType brokerType, bool ordinaryAllowed,
                         ttservice::EVqTraderType traderType, QWidget *parent);
    ~COrderParamBaseTable() override;

    static QString priceTypeName(int priceType);
    static QString orderTypeName(int orderType);

    ttservice::EVQBrokerType brokerType() const { return m_brokerType; }
    bool ordinaryAllowed() const { return m_ordinaryAllowed; }
    ttservice::EVqTraderType traderType() const { return m_traderType; }

    void setFlag(int flag);
    int flag() const { return m_flag; }
    // The operation the lines take (ttservice::EOperationType); -1 for none.
    virtual void setOperationType(int operation);
    int operationType() const { return m_operationType; }

    ttservice::EPriceType priceType() const;
    // False, and nothing changed, for a price type the table does not offer.
    bool setPriceType(int priceType);
    QVector<int> offeredPriceTypes() const;
    double fixedPrice() const;
    void setFixedPrice(double price);

    ttservice::EOrderType orderType() const;
    // False, and nothing changed, for an order type the table does not offer.
    bool setOrderType(int orderType);
    QVector<int> offeredOrderTypes() const;

    // Whether the current order type is an algorithm of an outside platform (platform 3): such
    // an order travels with the parameter string of getAlgParamsStr.
    bool isTrdParamTable() const;
    // The strategy of the current algorithm, empty for a plain order or the platform's default.
    std::string getAlgoStrategyType() const;
    // The algorithm parameters of one line: "algo=VWAPPLUS;code=600000.SH;start=09:30:00;
    // end=15:00:00;strategy=...;interval=30;..."; empty for a plain order type.
    std::string getAlgParamsStr(const ttservice::CCodeOrderParam &line) const;
    // The lines' parameters joined by "@", in list order; empty for a plain order type.
    std::string getAlgParamsStr(const std::vector<ttservice::CCodeOrderParam> &lines) const;
    // The parameter table of an algorithm order type; null for other types.
    CTrdAlgoBaseTable *getTrdAlgoBaseTable(int orderType) const;
    // Chooses the strategy the algorithm of orderType offers first; empty for its first one.
    void resetStrategyType(int orderType, const QString &strategy);

    // Price type, price step, validity and time period. key names the setting for the order service and is
    // not read here.
    void saveOpParam(const QString &key, ttservice::COrderSetting &setting) const;
    // precision: the price tick the step value is shown to (0.01, 0.001).
    void loadOpParam(const ttservice::COrderSetting &setting, double precision);

    // Writes price type, price, order type, the algorithm's intervals, the price step as a value,
    // the step flag and, for an algorithm with the time option, the time period into line.
    // price, when it has a value, is the price of the line; a fixed price type without one takes
    // the table's fixed price. key and volume are the line's stock key and volume, for the
    // service's own checks: the line's m_volume is never written.
    void fillOrderParam(const QString &key, int volume, ttservice::CCodeOrderParam &line, double price) const;
    // The algorithm's start and end time (today, by the time service) as the line's validity,
    // for an algorithm order type with option 0 on; other lines are left alone.
    void transferTimePeriod(ttservice::CCodeOrderParam *line) const;

    // An instruction fixes the order type: it is chosen, and the user may change it only when
    // enable is true.
    void setEnableForCommand(int orderType, bool enable);
    // Takes price type, fixed price, order type and step of an instruction's line; fillUi false
    // leaves the table as it is. algoText is the line's algorithm UI string, may be empty.
    void loadFromOrderParam(const ttservice::CCodeOrderParam &line, bool fillUi, const QString &algoText);
    // The UI string of the algorithm of order type tableType; other types ignore it.
    void setTableUIByParams(int tableType, const QString &text);

    // The algorithm's numbers stay hidden: only order type and strategy show.
    void hideAlgTable();
    bool isAlgTableHidden() const { return m_algTableHidden; }
    // Hides or shows one item of every algorithm (CTrdAlgoBaseTable::EItem).
    void hideAmountUsed(bool hide, int item);

    // The items that unfold with the form's expand button.
    void setExpandItemsHidden(bool hidden);
    bool expandItemsHidden() const { return m_expandHidden; }
    // Remembers whether the unfolding items are hidden, for the saved text.
    void saveVisibleFlag();
    bool savedVisibleFlag() const { return m_savedVisibleFlag; }

    // The checked options as "0*1".
    QString loadCheckParam() const;
    // Reads a text of loadCheckParam; unknown ids are skipped, an option not named is unchecked.
    void setCheckParam(const QString &text);
    bool isOptionChecked(int id) const;
    // Redraws the option buttons after a copy of the options.
    void resetBtnType();

    // The parameters as one log text, as updateCmdLog last took it.
    std::string getCmdLog() const { return m_cmdLog; }
    void updateCmdLog();

    void handleWheel(QWheelEvent *event);
    void handleScaleChanged();

    // Back to the defaults: the opposite side's best price, plain order, default algorithms and setting, options
    // "0*1", nothing locked by an instruction.
    virtual void clear();

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

protected:
    // Seconds of the day (Beijing) of the start and end time.
    int startSeconds() const;
    int endSeconds() const;
    void setTimePeriod(int startSeconds, int endSeconds);
    ttservice::COrderSetting currentSetting() const;
    const QMap<int, CTrdAlgoBaseTable *> &algoTables() const { return m_algoTables; }

private:
    void createUi();
    void layOutRows(QHBoxLayout *strategyLayout, QWidget *stepBox, QWidget *validBox, QWidget *optionBox);
    void connectUserChanges();
    void addRow(int item, const QString &label, QWidget *field);
    void setRowVisible(int item, bool visible);
    void updateVisibility();
    void fillOrderTypes();
    void userChanged();

    ttservice::EVQBrokerType m_brokerType;
    bool m_ordinaryAllowed = true;
    ttservice::EVqTraderType m_traderType;
    int m_flag = 0;
    int m_operationType = -1;
    int m_stepFlag = 0;
    bool m_algTableHidden = false;
    bool m_expandHidden = true;
    bool m_savedVisibleFlag = false;
    std::string m_cmdLog;

    QFormLayout *m_layout = nullptr;
    QMap<int, QWidget *> m_rows;
    QComboBox *m_priceCombo = nullptr;
    QDoubleSpinBox *m_fixedPriceCell = nullptr;
    QComboBox *m_orderTypeCombo = nullptr;
    WK::CPushButton *m_helpBtn = nullptr;
    QWidget *m_strategyRow = nullptr;
    QMap<int, CTrdAlgoBaseTable *> m_algoTables;
    QTimeEdit *m_startEdit = nullptr;
    QTimeEdit *m_endEdit = nullptr;
    QComboBox *m_stepKindCombo = nullptr;
    QDoubleSpinBox *m_stepValueCell = nullptr;
    QDoubleSpinBox *m_stepRateCell = nullptr;
    QSpinBox *m_validCell = nullptr;
    QCheckBox *m_keepValidCheck = nullptr;
    QCheckBox *m_timeOption = nullptr;
    QCheckBox *m_guardOption = nullptr;
};

} // namespace TC
