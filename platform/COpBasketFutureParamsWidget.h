#pragma once

#include "BasketPlatformExport.h"
#include "CBaseWidget.h"

#include <QString>
#include <QStringList>

namespace ttservice {
class CBasketHedgeParam;
} // namespace ttservice

namespace WK {
class CCheckBox;
class CComboBox;
class CParameterCell;
class CSimpleTextWidget;
} // namespace WK

namespace TC {

// The hedge block of the basket form: whether the basket is hedged automatically with an index
// futures contract, and with what.
//
// A title row holds the check box "自动对冲" and the link "对冲设置"; while the box is checked
// the rows below it show the contract (an editable list of index futures), the direction of the
// futures side for the form's operation, the hedge ratio, and a summary of the settings that the
// pop-up COpBasketHedgeSettingWidget edits (hedge type, fixed lots).
//
// Events delivered to the parent, with the block's id:
//   - 1137 when the user checks or unchecks the box: value 1 checked, 0 unchecked. setAutoHedge
//     delivers nothing.
//   - 1143 when the user clicks "对冲设置": the form opens the settings pop-up.
//   - 1088 (value 0) when the user commits another contract, since a sizing by contract value
//     depends on it.
// The events of the block's own controls stay inside the block.
class BASKET_PLATFORM_EXPORT COpBasketFutureParamsWidget final : public WK::CBaseWidget
{
    Q_OBJECT

public:
    // Hedge types of ttservice::CBasketHedgeParam::m_hedgeType.
    enum EHedgeType {
        HT_MANUAL = -1,    // no automatic hedge: the hedge is left to the trader
        HT_BY_DEAL = 0,    // futures follow the basket's fills
        HT_SYNCHRONOUS = 1 // futures go out together with the basket
    };

    static constexpr int kTitleHeight = 30;
    static constexpr int kExpandedHeight = 130;

    // style: 1 is the basket form's layout (title row above the parameters); other values give
    // the same layout.
    COpBasketFutureParamsWidget(int id, int style, QWidget *parent);
    ~COpBasketFutureParamsWidget() override;

    int id() const { return m_id; }
    int style() const { return m_style; }

    // The form's concrete operation (ttservice::EOperationType, -1 for none); decides the
    // direction shown for the futures side: a buying basket is hedged by selling futures.
    void setOperationType(int operationType);
    int operationType() const { return m_operationType; }
    // "期货卖出", "期货买入", or empty without an operation.
    QString hedgeDirectionText() const;

    void setAutoHedge(bool on);
    bool isAutoHedgeCheck() const;

    // Fills the hedge of a basket order: enabled, type, contract code and market, ratio and
    // lots. False, and the record untouched, when the box is unchecked or no contract is given.
    bool fillHedgeParam(ttservice::CBasketHedgeParam &param) const;
    // The stock key ("IF2401.CFFEX") of the hedge contract, whether or not the box is checked;
    // empty without a contract. The market is the instrument service's for the code, else the
    // financial futures exchange "CFFEX".
    QString getHedgeStockCode() const;
    // Whether a checked hedge can be placed: it needs a contract the instrument service knows.
    // On failure the text goes to error and a tip at the contract tells the user.
    bool check(QString &error) const;

    // The parameters as text, "code,ratio,type,lots" ("IF2401,100,0,0"): no "*", "|", "/" or ";"
    // so that the form's own texts can hold it. The check state is not part of it.
    QString param() const;
    // Reads a text of param(). An empty text changes nothing; a field that does not parse
    // leaves its parameter as it was.
    void setParam(const QString &text);

    // A locked block keeps its state: its check box and editors take no input.
    void setLocked(bool locked);
    bool isLocked() const { return m_locked; }

    // The contract as the user typed or chose it, in capitals.
    QString hedgeContractCode() const;
    void setHedgeContractCode(const QString &code);
    // The contracts offered in the list; the contract typed stays.
    void setContractCodes(const QStringList &codes);
    QStringList contractCodes() const;
    // Percent of the basket's value, 0 to 200; 100 at first.
    double hedgeRatio() const;
    void setHedgeRatio(double ratio);
    // One of EHedgeType, HT_BY_DEAL at first; other values are ignored.
    int hedgeType() const { return m_hedgeType; }
    void setHedgeType(int type);
    // Lots fixed by the user; 0 (at first) sizes the futures by the ratio.
    int contractVolume() const { return m_contractVolume; }
    void setContractVolume(int volume);

    // The user-visible name of a hedge type ("按成交对冲" ...), empty for an unknown one.
    static QString hedgeTypeName(int type);
    // The index futures listed at this moment (seconds since the epoch, Beijing trading day):
    // for IF, IH, IC and IM the current month (the next one after its third Friday), the
    // following month and the next two quarter months after that, as "IF2401".
    static QStringList listedIndexFutures(long long seconds);

    bool handleEvent(int event, int id, int value, QString text, void *data) override;
    QSize sizeHint() const override;

private:
    void createUi();
    void commitContract();
    void updateDetail();
    void updateSummary();
    void applyLock();

    int m_id = 0;
    int m_style = 1;
    int m_operationType = -1;
    int m_hedgeType = HT_BY_DEAL;
    int m_contractVolume = 0;
    bool m_locked = false;
    QString m_committedContract;

    WK::CCheckBox *m_autoHedgeCheck = nullptr;
    WK::CSimpleTextWidget *m_settingLink = nullptr;
    QWidget *m_detail = nullptr;
    WK::CComboBox *m_contractCombo = nullptr;
    WK::CSimpleTextWidget *m_directionText = nullptr;
    WK::CParameterCell *m_ratioCell = nullptr;
    WK::CSimpleTextWidget *m_summaryText = nullptr;
};

} // namespace TC
