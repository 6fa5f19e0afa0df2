#include "ITradeDockableWidget.h"

namespace TC {

ITradeDockableWidget::ITradeDockableWidget(const QString &name, QWidget *parent)
    : WK::IDockableWidget(name, false, parent)
{
}

ITradeDockableWidget::~ITradeDockableWidget() = default;

void ITradeDockableWidget::setTradeType(int traderType)
{
    m_tradeType = traderType;
}

void ITradeDockableWidget::requestAccount(const ttservice::CAccountInfo &)
{
}

void ITradeDockableWidget::loadAccountGroupSettings()
{
}

void ITradeDockableWidget::refreshAccounts()
{
}

} // namespace TC
