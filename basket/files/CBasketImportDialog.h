#pragma once

#include "BasketExport.h"
#include "CBasketFileReader.h"

#include "CCommonDialog.h"

#include "TradeEnums.h"

#include <QString>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace WK {
class CStandardTable;
} // namespace WK

namespace TC {

// The preview of a basket file before anything changes: every row with its outcome, the counts,
// the weight sum and a name for the basket. "确定" stores the taken rows as a basket of the
// user's own under that name; a name in use is refused unless "替换同名篮子" is ticked, and a
// file whose weights do not come to 100% is refused. Nothing is stored on "取消".
//
// Run without a user (tests), the scripted input is the name, followed by "\n替换" to tick the
// replacement.
class BASKETPANEL_EXPORT CBasketImportDialog final : public WK::CCommonDialog
{
    Q_OBJECT

public:
    CBasketImportDialog(const QString &fileName, const CBasketFileReader::Result &result,
                        ttservice::EVQBrokerType brokerType, QWidget *parent);
    ~CBasketImportDialog() override;

    QString basketName() const;
    // Why "确定" would be refused now; empty when it would store the basket.
    QString refusal() const;

    bool checkOK() override;
    void onOK() override;

    WK::CStandardTable *table() const { return m_table; }

protected:
    QStringList recordTexts() const override;
    void applyScriptedInput(const QString &input) override;

private:
    void showRefusal();

    CBasketFileReader::Result m_result;
    ttservice::EVQBrokerType m_brokerType;
    QLabel *m_summary = nullptr;
    WK::CStandardTable *m_table = nullptr;
    QLineEdit *m_nameEdit = nullptr;
    QCheckBox *m_replaceBox = nullptr;
    QLabel *m_refusalLabel = nullptr;
    QPushButton *m_okButton = nullptr;
    QPushButton *m_cancelButton = nullptr;
};

} // namespace TC
