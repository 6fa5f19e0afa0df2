#pragma once

#include "BasketToolkitExport.h"
#include "CBaseWidget.h"

#include <QString>
#include <QStringList>

#include <functional>

class QCheckBox;
class QCompleter;
class QLineEdit;
class QStringListModel;

namespace WK {

// Whether the orders about to leave are to make a portfolio, and its name: a check box and a
// name editor that offers the user's portfolio names as completions. Every change of the tick,
// and every finished edit that changed the name, delivers event 60 with the id (value: 1 when
// ticked, else 0; text: the name). The name can be edited only while the box is ticked.
class BASKET_TOOLKIT_EXPORT CCreatePortfolioKeyboard : public CBaseWidget
{
    Q_OBJECT

public:
    CCreatePortfolioKeyboard(int id, QWidget *parent);
    ~CCreatePortfolioKeyboard() override;

    int id() const { return m_id; }

    // Where initPortfolioModelList takes the names it offers; the toolkit does not know the
    // user's portfolios itself.
    void setPortfolioNameSource(std::function<QStringList()> source);
    // Loads the names of the source into the completions; none without a source.
    void initPortfolioModelList();
    QStringList portfolioNames() const;

    bool isCreatePortfolio() const;
    QString getPortfolioNameText() const;
    void setPortfolioNameText(const QString &name);

    // Ticks or unticks the box (an actual change delivers event 60) and enables or disables the
    // whole keyboard.
    void setCheckAndEnable(bool checked, bool enabled);

    QCheckBox *checkBox() const { return m_check; }
    QLineEdit *nameEdit() const { return m_nameEdit; }

private:
    void notifyChange();

    int m_id = 0;
    QCheckBox *m_check = nullptr;
    QLineEdit *m_nameEdit = nullptr;
    QStringListModel *m_names = nullptr;
    QCompleter *m_completer = nullptr;
    std::function<QStringList()> m_nameSource;
    QString m_committedName;
};

} // namespace WK
