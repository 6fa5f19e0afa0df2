#pragma once

#include "BasketToolkitExport.h"

#include <QFrame>
#include <QSet>
#include <QString>
#include <QStringList>

class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace WK {

// The filter of one table column: its distinct values with check boxes. It floats below the
// header as a popup and closes when the user clicks elsewhere; nothing waits for it.
class BASKET_TOOLKIT_EXPORT CTableColumnFilterPopup : public QFrame
{
    Q_OBJECT

public:
    // values: the column's distinct texts; accepted: the present filter, empty for none (every
    // value ticked).
    CTableColumnFilterPopup(int column, const QSet<QString> &values, const QSet<QString> &accepted, QWidget *parent);
    ~CTableColumnFilterPopup() override;

    int column() const { return m_column; }
    QStringList values() const; // as listed: numbers by value, then texts
    bool isValueChecked(const QString &value) const;
    void setValueChecked(const QString &value, bool checked);
    void setAllChecked(bool checked);
    // The ticked values; empty when all are ticked, which is no filter at all.
    QSet<QString> acceptedValues() const;

    // Applies the ticked values and closes; with nothing ticked there is nothing to apply.
    void accept();
    // Removes the column's filter and closes.
    void clearFilter();

Q_SIGNALS:
    void sigAccepted(int column, const QSet<QString> &accepted);

private:
    QListWidgetItem *itemOf(const QString &value) const;
    void updateButtons();

    int m_column = 0;
    QListWidget *m_list = nullptr;
    QPushButton *m_okButton = nullptr;
    QPushButton *m_clearButton = nullptr;
};

} // namespace WK
