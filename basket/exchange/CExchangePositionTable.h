#pragma once

#include "BasketExport.h"

#include "CBaseWidget.h"

#include "CBasketStockData.h"
#include "CPositionStatics.h"

#include <boost/shared_ptr.hpp>

#include <QMap>
#include <QString>
#include <QVector>
#include <QtGlobal>

#include <string>
#include <vector>

class QPaintEvent;
class QWidget;

namespace ttservice {
class CAccountData;
}

namespace WK {
class COddEvenRowTable;
}

namespace TC {

class COpBasketsPortfolioComboBox;

// The positions of the account chosen for a position exchange, as a whole or, for a user with
// portfolios, inside the portfolio chosen in its combo. The exchange starts from the rows shown
// here (whole held volumes).
//
// Columns of the futures tab (word 16384): 账号, 市场, 代码, 合约名称, 持仓量, 最新价, 方向,
// 最新市值. Of the other tabs: 账号, 市场, 代码, 股票名称, 持仓量, 可用量, 最新价, 最新市值,
// 可用市值. The totals line sums the volumes and values.
class BASKETPANEL_EXPORT CExchangePositionTable final : public WK::CBaseWidget
{
    Q_OBJECT

public:
    enum EColumn {
        COL_ACCOUNT = 0,
        COL_MARKET = 1,
        COL_CODE = 2,
        COL_NAME = 3,
        COL_VOLUME = 4,
        // futures tab
        COL_FTR_LAST_PRICE = 5,
        COL_FTR_DIRECTION = 6,
        COL_FTR_MARKET_VALUE = 7,
        // other tabs
        COL_AVAILABLE = 5,
        COL_LAST_PRICE = 6,
        COL_MARKET_VALUE = 7,
        COL_AVAILABLE_VALUE = 8,
    };

    static constexpr int COMBO_ID = 2;

    CExchangePositionTable(QWidget *parent, quint64 word);
    ~CExchangePositionTable() override;

    // Shows the account's positions (of the chosen portfolio in portfolio mode); null does
    // nothing.
    void setAccount(const boost::shared_ptr<ttservice::CAccountData> &account);
    void clearTable();
    void setTradeOperationType(quint64 word) { m_tradeOpType = word; }
    void updatePortfolioDataForCombo();
    // The chosen portfolio's id, name and code in portfolio mode; otherwise the arguments stay.
    void getPortfolioData(int &id, QString &name, QString &code) const;

    // One row per table row: market, code, name and the whole held volume (and the side on the
    // futures tab), in the order the positions came.
    void getBasketStockParam(QVector<CBasketStockData> &rows) const;
    // The futures form: code -> side (48, 49) -> row; rows of one contract and side add up.
    void getBasketStockParam(QMap<QString, QMap<int, CBasketStockData>> &rows) const;

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

    // The value of the position that may be traded now: the market value in the share of the
    // volume that is available.
    static double availableValue(const ttservice::CPositionStatics &position);
    // The table both sides of the exchange start from: 账号, 市场, 代码 and the name (合约名称
    // on the futures tab, else 股票名称), with a totals line.
    static WK::COddEvenRowTable *createInstrumentTable(QWidget *parent, bool futures);
    // Bond repurchases are money, not positions: they never stand in an exchange.
    static bool isRepurchaseCode(const std::string &code);

    WK::COddEvenRowTable *table() const { return m_table; }
    COpBasketsPortfolioComboBox *portfolioCombo() const { return m_portfolioCombo; }
    int positionMode() const { return m_positionMode; }

protected:
    void setPosition(std::vector<boost::shared_ptr<ttservice::CPositionStatics>> list, const QString &accountText);
    void paintEvent(QPaintEvent *event) override;

private:
    void createUi();
    bool isFutureWord() const { return m_tradeOpType == 16384; }

    quint64 m_tradeOpType = 0;
    WK::COddEvenRowTable *m_table = nullptr;
    QMap<int, int> m_rowDirection;
    int m_positionMode = 1;
    COpBasketsPortfolioComboBox *m_portfolioCombo = nullptr;
};

} // namespace TC
