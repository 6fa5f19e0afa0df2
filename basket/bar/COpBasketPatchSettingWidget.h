#pragma once

#include "BasketExport.h"
#include "CFloatWidget.h"

#include "TradeEnums.h"

#include <QString>

namespace WK {
class CStandardTable;
struct CTableCellEvent;
} // namespace WK

namespace TC {

class CGlobalOrderParamTable;

// The floating window "补单算法设置": named sets of order parameters for the orders that complete
// what a first order left unfilled, one of them the default.
//
// The window keeps nothing of its own. The sets are the user configuration's patchSettings()
// (name to the parameter table's text) and defaultPatchSetting(); every change (a set added,
// deleted, renamed or made the default, an edit of the selected set's parameters) is written
// there and saved at once. load() fills the list again from there.
//
// The list's buttons: id 0 "增加" adds "新建设置" (or the first free "新建设置N"), id 1 "删除"
// deletes the selected set, id 2 "设为默认" makes it the default. The first set ever added is
// the default; deleting the default leaves none. A set is renamed in place in the list; a name
// that another set has, or an empty one, is refused and the old name stands.
class BASKETPANEL_EXPORT COpBasketPatchSettingWidget final : public WK::CFloatWidget
{
    Q_OBJECT

public:
    explicit COpBasketPatchSettingWidget(QWidget *parent);
    ~COpBasketPatchSettingWidget() override;

    // The list from the user configuration, in name order; the first set selected and loaded.
    void load();
    void setOperationType(ttservice::EOperationType operation);

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

    CGlobalOrderParamTable *paramTable() const { return m_paramTable; }
    WK::CStandardTable *listTable() const { return m_listTable; }
    // The row id of the default set's row, -1 when no row holds the default.
    int defaultRow() const { return m_defaultRow; }

    enum EButton { BtnAdd = 0, BtnDelete = 1, BtnSetDefault = 2 };
    enum EColumn { ColName = 0, ColDefault = 1 };

public Q_SLOTS:
    void slotSetOperation(int operation);

private:
    void createUi();
    void addSetting();
    void deleteSetting();
    void setDefaultSetting();
    // Shows the set of the row in the parameter table; without a row the table is cleared and
    // locked, so that no edit is made that no set would keep.
    void loadSetting(int rowId);
    void renameSetting(int rowId, WK::CTableCellEvent *edit);
    void storeParams();
    QString selectedName() const;
    void markDefault(int rowId);

    CGlobalOrderParamTable *m_paramTable = nullptr;
    WK::CStandardTable *m_listTable = nullptr;
    int m_defaultRow = -1;
};

} // namespace TC
