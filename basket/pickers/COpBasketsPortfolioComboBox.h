#pragma once

#include "BasketExport.h"

#include "CComboBox.h"

#include <QString>
#include <QtGlobal>

class QWidget;

namespace TC {

class COpBasketsPortfolioTree;

// The choice of positions for the position exchange: the account's positions as a whole
// ("当前持仓") or one investment portfolio. One item, index 0: its text is what is chosen, its
// data the value of the last choice. Instead of the standard list it opens a
// COpBasketsPortfolioTree. Each choice goes up as event 1149 with the combo's id: value 1 and
// an empty or "当前持仓" text for the positions as a whole, value 2 and the portfolio's key.
class BASKETPANEL_EXPORT COpBasketsPortfolioComboBox final : public WK::CComboBox
{
    Q_OBJECT

public:
    static constexpr int EVENT_PORTFOLIO_CHOSEN = 1149;
    static constexpr int EVENT_TOOL_TIP = 65;

    COpBasketsPortfolioComboBox(int id, quint64 word, QWidget *parent);
    ~COpBasketsPortfolioComboBox() override;

    // Keeps the choice valid after portfolios changed: a portfolio that is no longer offered
    // falls back to "当前持仓" (reported with value 1), one still there is reported again.
    void updatePortfolioDataForCombo();
    // The key of the chosen portfolio; empty when the positions as a whole are chosen.
    QString getCurrentSelectedKey() const;

    void showPopup() override;
    void hidePopup() override;

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

    COpBasketsPortfolioTree *tree() const { return m_tree; }

private:
    void showTree();
    void hideTree();
    void setChoice(const QString &text, const QString &toolTip, int value);

    COpBasketsPortfolioTree *m_tree = nullptr;
    quint64 m_word = 0;
};

} // namespace TC
