#pragma once

#include "BasketPlatformExport.h"
#include "IDockableWidget.h"

#include "CAccountInfo.h"
#include "TradeEnums.h"

namespace TC {

// A docked trading panel: it has a trader type and hears about the user's accounts.
class BASKET_PLATFORM_EXPORT ITradeDockableWidget : public WK::IDockableWidget
{
    Q_OBJECT

public:
    ITradeDockableWidget(const QString &name, QWidget *parent);
    ~ITradeDockableWidget() override;

    void setTradeType(int traderType);
    int tradeType() const { return m_tradeType; }

    // An account changed (logged in, money or positions moved).
    virtual void requestAccount(const ttservice::CAccountInfo &account);
    // The user's account groups were edited.
    virtual void loadAccountGroupSettings();
    // The user's account list changed.
    virtual void refreshAccounts();

private:
    int m_tradeType = ttservice::VQ_TRADER_NONE;
};

} // namespace TC
