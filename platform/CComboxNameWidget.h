#pragma once

#include "BasketPlatformExport.h"
#include "CBaseWidget.h"

#include <QString>

namespace WK {
class CComboBox;
class CSimpleTextWidget;
} // namespace WK

namespace TC {

// One row of a form: a name and a combo box beside it ("交易总量 [按组合股票数量 v]"). The name
// takes the width of its text, the combo the rest of the row.
//
// The combo carries the row's id: when the user chooses an item (the current one too) the row's
// parent receives event 64 with the id, the item's index as value and its text. Changes made by
// the program (setCurrentIndex, clear, addItem ...) deliver nothing.
class BASKET_PLATFORM_EXPORT CComboxNameWidget final : public WK::CBaseWidget
{
    Q_OBJECT

public:
    CComboxNameWidget(int id, const QString &name, QWidget *parent);
    ~CComboxNameWidget() override;

    int id() const { return m_id; }

    QString name() const;
    void setName(const QString &name);

    WK::CComboBox *comboBox() const { return m_combo; }
    WK::CSimpleTextWidget *nameWidget() const { return m_name; }

    // The width of the combo's drop-down list, which may be wider than the combo itself; 0
    // lets the list follow the combo.
    void setListViewWidth(int width);
    int listViewWidth() const { return m_listViewWidth; }

private:
    int m_id = 0;
    WK::CSimpleTextWidget *m_name = nullptr;
    WK::CComboBox *m_combo = nullptr;
    int m_listViewWidth = 0;
};

} // namespace TC
