#include "CFuzzUserActions.h"

#include "CFuzzPanelHost.h"

#include "COpBasketFtrOneKeyWidget.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketStockParamsWidget.h"
#include "COpBasketsComboBox.h"
#include "COperationBasketWidget.h"

#include "CGlobalOrderParamTable.h"
#include "COpAccountsWidget.h"
#include "CParameterCell.h"
#include "CUserConfig.h"

#include <QComboBox>
#include <QStringList>

#include <algorithm>

namespace {

using TC::COpBasketParamsWidget;

const quint64 kTabs[] = {TC::TOT_BUY, TC::TOT_SELL, TC::TOT_ALL, TC::TOT_CREDIT, TC::TOT_FUTURE,
                         TC::TOT_ONEKEY_FUTURE, TC::TOT_HGT};

COpBasketParamsWidget *formOf(const TC::CBasketOperationPanel &panel)
{
    return panel.basketWidget() ? panel.basketWidget()->paramsWidget() : nullptr;
}

// A sizing value a trader types: small whole numbers, round sums of money, percentages.
double typedValue(int which, uint8_t argument)
{
    const int n = argument >> 3;
    switch (which) {
    case COpBasketParamsWidget::CellMoney: return n * 50000.0;
    case COpBasketParamsWidget::CellRatio:
    case COpBasketParamsWidget::CellSellRatio:
    case COpBasketParamsWidget::CellAssetRatio:
    case COpBasketParamsWidget::CellCmdRatio: return n * 5.0;
    default: return n;
    }
}

} // namespace

void CFuzzUserActions::apply(TC::CBasketOperationPanel &panel, const uint8_t *data, size_t size)
{
    for (size_t i = 0; i + 1 < size; i += 2)
        apply(panel, static_cast<EAction>(data[i] % ActionCount), data[i + 1]);
}

void CFuzzUserActions::apply(TC::CBasketOperationPanel &panel, EAction action, uint8_t argument)
{
    COpBasketParamsWidget *form = formOf(panel);
    if (!form)
        return;
    switch (action) {
    case Tab:
        form->handleEvent(5, static_cast<int>(kTabs[argument % (sizeof kTabs / sizeof kTabs[0])]), 0, QString(), nullptr);
        break;
    case Account:
        if (TC::COpAccountsWidget *accounts = form->accountsWidget()) {
            const QStringList shown = accounts->getDisplayedAccounts();
            if (!shown.isEmpty()) {
                const QString key = shown.at(argument % shown.size());
                accounts->setSelectedAccount(key, !accounts->getSelectedAccounts().contains(key));
            }
        }
        break;
    case Basket:
        if (form->basketsCombo()) {
            const QStringList names = TC::getUserConfig()->baskets().keys();
            if (!names.isEmpty())
                form->basketsCombo()->setBasket(names.at(argument % names.size()), false);
        }
        break;
    case Sizing:
        if (QComboBox *combo = form->volumnCombobox()) {
            if (combo->count() > 0) {
                // As the user picks a row: the form listens for activated only.
                const int row = argument % combo->count();
                combo->setCurrentIndex(row);
                Q_EMIT combo->activated(row);
            }
        }
        break;
    case Cell: {
        const int which = argument % 8;
        // The total lots are not typed: the saved per-tab text never brings them back (its reader
        // looks one field past where they are written, as clients have always read it), so a
        // restored panel showing other lots is known, not found.
        if (which == COpBasketParamsWidget::CellTotalLots)
            break;
        WK::CParameterCell *cell = form->cell(which);
        if (cell && cell->isVisibleTo(form) && cell->isEnabled())
            cell->setValue(typedValue(which, argument));
        break;
    }
    case PriceType:
    case OrderType:
        if (TC::COpBasketStockParamsWidget *block = form->getParamWidget(form->getOperationType())) {
            if (TC::CGlobalOrderParamTable *table = block->table()) {
                if (action == PriceType)
                    table->setPriceType(argument % 16);
                else
                    table->setOrderType(argument % 8);
            }
        }
        break;
    case Filter:
        if (TC::COpBasketReplaceStockToolBar *bar = form->replaceToolBar()) {
            bar->setFilterBox(argument % 3, (argument & 4) != 0);
            bar->updateFilter();
        }
        break;
    case ActionCount:
        break;
    }
    CFuzzPanelHost::settle();
}

QString CFuzzUserActions::describe(const TC::CBasketOperationPanel &panel)
{
    const COpBasketParamsWidget *form = formOf(panel);
    if (!form)
        return QString();
    QStringList lines;
    lines << QStringLiteral("tab %1 operation %2").arg(form->getTradeOpType()).arg(form->getOperationType());
    lines << QStringLiteral("basket %1").arg(form->currentBasketName());
    QStringList accounts = form->getSelectedAccounts().values();
    std::sort(accounts.begin(), accounts.end());
    lines << QStringLiteral("accounts %1").arg(accounts.join(QLatin1Char(',')));
    lines << QStringLiteral("sizing %1").arg(form->getCurrentVolumnType());
    for (int which = 0; which < 8; ++which) {
        const WK::CParameterCell *cell = form->cell(which);
        if (cell && cell->isVisibleTo(form))
            lines << QStringLiteral("cell %1 = %2").arg(which).arg(cell->toString());
    }
    if (form->getTradeOpType() == TC::TOT_ONEKEY_FUTURE && form->ftrOneKeyWidget()) {
        // The tab shows a block per side and no operation of its own; the form's stock block,
        // which would stand for operation -1, is hidden there.
        for (const TC::COpBasketStockParamsWidget *block :
             {form->ftrOneKeyWidget()->getBuyParam(), form->ftrOneKeyWidget()->getSellParam()}) {
            if (block)
                lines << QStringLiteral("side price type %1 order type %2").arg(block->getPriceType()).arg(block->getOrderType());
        }
    } else {
        lines << QStringLiteral("price type %1 order type %2")
                     .arg(form->getPriceType(form->getOperationType()))
                     .arg(form->getOrderType(form->getOperationType()));
    }
    if (const TC::COpBasketReplaceStockToolBar *bar = form->replaceToolBar())
        lines << QStringLiteral("filters %1 %2 %3").arg(bar->isFilter()).arg(bar->isFilterZhangTing()).arg(bar->isFilterDieTing());
    return lines.join(QLatin1Char('\n'));
}
