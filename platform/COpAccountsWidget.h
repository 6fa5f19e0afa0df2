#pragma once

#include "BasketPlatformExport.h"
#include "CBaseWidget.h"

#include <QMap>
#include <QSet>
#include <QString>
#include <QVector>

class QCheckBox;
class QComboBox;
class QTreeWidget;
class QTreeWidgetItem;

namespace TC {

// The account picker of an operation panel: the user's accounts of the broker types that the
// current tab trades, each with a check box and a weight for splitting volumes.
//
// Events delivered upward: 1167 when the selection changes, 1168 with the chosen tab word as
// value when the connect combo changes.
class BASKET_PLATFORM_EXPORT COpAccountsWidget : public WK::CBaseWidget
{
    Q_OBJECT

public:
    // id: the widget's id on its form; the two flags are kept for the client's layout options
    // (show the money column, allow several accounts) and both are on in the basket panel.
    COpAccountsWidget(int id, int showMoney, int multiSelect, QWidget *parent);
    ~COpAccountsWidget() override;

    int id() const { return m_id; }

    // The tab word decides the broker types listed: stock accounts for the stock tabs, credit
    // accounts for the credit tab, futures accounts for the futures tabs, connect accounts for
    // the connect words.
    void setTradeOpType(quint64 word);
    quint64 tradeOpType() const { return m_tradeOpType; }

    // Reloads the accounts from the user configuration, keeping ticks and weights of accounts
    // that are still there.
    void refreshAccounts();
    // The user's account groups changed: the list is rebuilt the same way.
    void loadAccountGroupSettings();

    QSet<QString> getSelectedAccounts() const;
    QStringList getDisplayedAccounts() const;
    void setSelectedAccount(const QString &key, bool select);
    void clearCheckStatus();
    void setAllAccountEnable(bool enable);
    void setAccountEnabled(const QString &key, bool enable);
    // The weight of the account for splitting, 1 unless the user typed another.
    double getAccountWeight(const QString &key) const;
    void setAccountWeight(const QString &key, double weight);
    // How volumes are split over the selected accounts: 0 by weight.
    int splitType() const { return 0; }
    // Available money of the selected accounts together; NO_VALUE when none has any known.
    double getSelectAccountsAvailable() const;

    // Ticked accounts and weights as text, "key:weight" joined by ",", for the form's per-tab
    // memory and the panel's saved text. setParam ticks exactly the accounts it names; one that
    // the list does not show now (an account of another tab) is ticked when a refresh shows it.
    QString param() const;
    void setParam(const QString &text);

    void setShowToolBar(bool show);
    void addCustomCombox(const QMap<quint64, QString> &names);
    void setCustomComboxIndex(quint64 word);
    void setCustomComboxVisble(bool visible, bool enable);
    void adjustWidthByForce();

    int accountCount() const;

private:
    void createUi();
    QTreeWidgetItem *itemOf(const QString &key) const;
    void onItemChanged(QTreeWidgetItem *item, int column);
    void syncAllCheck();
    // Ticks an account; a weight text that is no weight leaves the weight as it is.
    void applyTick(QTreeWidgetItem *item, const QString &weight);

    int m_id = 0;
    quint64 m_tradeOpType = 0x200;
    QWidget *m_toolBar = nullptr;
    QCheckBox *m_allCheck = nullptr;
    QComboBox *m_customCombo = nullptr;
    QTreeWidget *m_tree = nullptr;
    bool m_filling = false;
    // Accounts named by setParam that the list did not show, with their weights.
    QMap<QString, QString> m_pendingTicks;
};

} // namespace TC
