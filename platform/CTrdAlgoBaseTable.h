#pragma once

#include "BasketPlatformExport.h"
#include "TradeEnums.h"

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <string>

class QComboBox;
class QDoubleSpinBox;
class QGridLayout;
class QLabel;

namespace TC {

// The parameters of one algorithm order type inside an order parameter table: the strategy the
// algorithm runs (for the algorithms that offer more than one) and its numbers.
//
// Numbers, by item id (the same ids in every algorithm):
//   6010 "下单间隔" seconds between child orders, 6011 "撤单间隔" seconds before an unfilled child
//   order is withdrawn, 6012 "参与率上限" percent of the market's volume, 6006 "资金上限" money the
//   algorithm may hold, 6013 "资金比例" percent of the account's money. The last two mean nothing
//   to a sell, whose table hides them.
//
// The UI string is the strategy and the numbers joined by "#", in the order above: it holds none
// of "=", ":", ",", "`", ";", "|", "/", "%", "*", "$", "@", so the texts of the blocks can carry it.
class BASKET_PLATFORM_EXPORT CTrdAlgoBaseTable final : public QWidget
{
    Q_OBJECT

public:
    enum EItem { ItemOrderInterval = 6010, ItemCancelInterval = 6011, ItemParticipation = 6012,
                 ItemMoneyLimit = 6006, ItemMoneyRate = 6013 };

    // strategies: those offered, the first is the default; an empty list offers none, and an
    // empty name in it stands for the platform's default strategy, shown as "默认".
    CTrdAlgoBaseTable(ttservice::EOrderType orderType, const QStringList &strategies, QWidget *parent);
    ~CTrdAlgoBaseTable() override;

    ttservice::EOrderType orderType() const { return m_orderType; }
    // The order type's parameter name ("TWAP"), as the order service knows it.
    QString paramName() const;

    QStringList strategies() const { return m_strategies; }
    QString strategy() const;
    // Chooses a strategy the table offers; an empty name chooses the first. False, and nothing
    // changed, for a name it does not offer.
    bool setStrategy(const QString &strategy);

    double value(int item) const;
    void setValue(int item, double value);
    void setItemHidden(int item, bool hidden);
    bool isItemHidden(int item) const;

    QString uiString() const;
    // Reads a text of uiString. Missing or damaged parts leave their value as it was.
    void setUiFromString(const QString &text);
    // Back to the first strategy and the default numbers.
    void clear();

    // "strategy=VWAPPLUS;interval=30;..." for the order service, strategy first, numbers in item
    // order; the strategy is left out when the algorithm offers none.
    std::string paramsText() const;

    // The strategy combo, for the parameter table's own row; null without strategies.
    QComboBox *strategyCombo() const { return m_strategyCombo; }

Q_SIGNALS:
    // The user changed the strategy or a number; changes made by calls are not told.
    void sigChanged();

private:
    struct Item
    {
        int id;
        const char *label;
        const char *key;
        double defaultValue;
        double maximum;
    };
    static const Item kItems[5];

    ttservice::EOrderType m_orderType;
    QStringList m_strategies;
    QComboBox *m_strategyCombo = nullptr;
    QGridLayout *m_layout = nullptr;
    QMap<int, QLabel *> m_labels;
    QMap<int, QDoubleSpinBox *> m_cells;
    QSet<int> m_hiddenItems;
};

} // namespace TC
