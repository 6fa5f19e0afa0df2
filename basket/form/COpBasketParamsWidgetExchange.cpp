// The form's side of the position exchange: it opens one dialog per tab that offers it, feeds
// it the accounts and instruments, and takes its sells and buys into the confirmation table.
#include "COpBasketParamsWidget.h"

#include "COptBasketExchangePositionDialog.h"

#include "COpAccountsWidget.h"
#include "COperationPushButtonGroup.h"

#include <QKeyEvent>

namespace TC {

COptBasketExchangePositionDialog *COpBasketParamsWidget::exchangeDialog(quint64 word) const
{
    if (word == TOT_ONEKEY_FUTURE)
        return m_ftrExchangeDialog;
    return word == TOT_ALL ? m_exchangeDialog : nullptr;
}

COptBasketExchangePositionDialog *COpBasketParamsWidget::exchangeDialogOf(void *sender) const
{
    if (sender && (sender == m_exchangeDialog || sender == m_ftrExchangeDialog))
        return static_cast<COptBasketExchangePositionDialog *>(sender);
    return exchangeDialog(m_tradeOpType);
}

void COpBasketParamsWidget::openExchangeDialog()
{
    const quint64 tab = m_tradeOpType;
    if (tab != TOT_ALL && tab != TOT_ONEKEY_FUTURE)
        return;
    COptBasketExchangePositionDialog *&dialog = tab == TOT_ONEKEY_FUTURE ? m_ftrExchangeDialog : m_exchangeDialog;
    if (!dialog) {
        dialog = new COptBasketExchangePositionDialog(this, tab);
        connect(dialog, &COptBasketExchangePositionDialog::sig_bascketChange, this, &COpBasketParamsWidget::slot_bascketChange);
    }
    if (m_accountsWidget) {
        const QStringList displayed = m_accountsWidget->getDisplayedAccounts();
        dialog->setAccount(QSet<QString>(displayed.cbegin(), displayed.cend()), getSelectedAccounts());
    }
    dialog->setBrokerType(tab == TOT_ONEKEY_FUTURE ? ttservice::BROKER_TYPE_FUTURE : ttservice::BROKER_TYPE_STOCK);
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

void COpBasketParamsWidget::takeExchangePositions(void *sender)
{
    COptBasketExchangePositionDialog *dialog = exchangeDialogOf(sender);
    if (!dialog)
        return;
    QVector<CPositionParam> lines;
    dialog->getExchangePositionParam(lines);
    // The lines are the dialog's tab's: the form goes there first if the user moved on meanwhile.
    const quint64 word = dialog->tradeOperationType();
    if (word != m_tradeOpType) {
        if (m_tabGroup)
            m_tabGroup->setCheckedByID(static_cast<int>(word));
        handleEvent(5, static_cast<int>(word), 0, QString(), nullptr);
    }
    batchPositions(lines, BATCH_BUY_SELL);
}

void COpBasketParamsWidget::pushAccountsToExchangeDialog(void *sender)
{
    COptBasketExchangePositionDialog *dialog = exchangeDialogOf(sender);
    if (!dialog || !dialog->isVisible() || !m_accountsWidget)
        return;
    const QStringList displayed = m_accountsWidget->getDisplayedAccounts();
    dialog->setAccount(QSet<QString>(displayed.cbegin(), displayed.cend()), getSelectedAccounts());
}

void COpBasketParamsWidget::handOverToExchangeDialog(const ttservice::CStockInfo &stock)
{
    // The dialog in view on this tab takes the instrument into its target.
    COptBasketExchangePositionDialog *dialog = exchangeDialog(m_tradeOpType);
    if (dialog && dialog->isVisible())
        dialog->addOneBascketData(stock);
}

} // namespace TC
