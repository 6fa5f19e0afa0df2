#pragma once

#include "BasketExport.h"

#include "CFloatWidget.h"

#include <QMap>
#include <QString>
#include <QtGlobal>

class QHideEvent;
class QShowEvent;
class QTreeWidget;
class QTreeWidgetItem;

namespace TC {

// The pop-up of COpBasketsPortfolioComboBox: "当前持仓" (the account's positions as a whole)
// and, where the deployment offers portfolios, the user's investment portfolios of the tab.
// It is refilled each time it shows. Closing it reports the current item to the combo as event
// 1149: value 1 with the text "当前持仓", or value 2 with the portfolio's key as text.
class BASKETPANEL_EXPORT COpBasketsPortfolioTree final : public WK::CFloatWidget
{
    Q_OBJECT

public:
    // The types of the tree's items (QTreeWidgetItem::type()).
    enum EItemType {
        ITEM_GROUP = 0,
        ITEM_CURRENT_POSITION = 1,
        ITEM_PORTFOLIO = 2,
    };

    static constexpr int EVENT_PORTFOLIO_CHOSEN = 1149;

    COpBasketsPortfolioTree(quint64 word, QWidget *parent);
    ~COpBasketsPortfolioTree() override;

    static QString currentPositionText();

    // Empties the tree and fills it again from the user's portfolios.
    void refreshData();
    // Portfolio key to display name, as the tree was last filled.
    QMap<QString, QString> getPortfolioNameMap() const { return m_portfolioNames; }

    QTreeWidget *treeWidget() const { return m_treeWidget; }

public Q_SLOTS:
    void slotItemDoubleClicked(QTreeWidgetItem *item, int column);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void createTree();

    quint64 m_word = 0;
    QTreeWidget *m_treeWidget = nullptr;
    QMap<QString, QString> m_portfolioNames;
};

} // namespace TC
