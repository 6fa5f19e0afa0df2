#pragma once

#include "BasketPlatformExport.h"
#include "COrderParamBaseTable.h"

#include <QString>

namespace TC {

// The order parameter table of the operation panels, with its own text form: what the user set
// travels in the panel's parameter string and in the patch settings.
//
// The text is 14 fields joined by ";": price type, order type, fixed price, checked options
// (joined by "+"), unfolded items shown (1 or 0), then the setting's step kind (1 for a value),
// step value, step rate, keep valid time, valid seconds, step flag, start and end time as seconds
// of the day, and last the algorithms as "type`uiString" joined by ",". It holds no "=", ":",
// "|", "/", "%", "*", "$" or "@", the separators of the texts it travels in.
class BASKET_PLATFORM_EXPORT CGlobalOrderParamTable final : public COrderParamBaseTable
{
    Q_OBJECT

public:
    // style and reserved select the client's variants of the table, all alike here.
    CGlobalOrderParamTable(ttservice::EVQBrokerType brokerType, bool ordinaryAllowed, QWidget *parent, int style,
                           ttservice::EVqTraderType traderType, int reserved);
    ~CGlobalOrderParamTable() override;

    QString param() const;
    // Reads a text of param(). Missing or damaged fields keep their value; an empty text changes
    // nothing.
    void setParam(const QString &text);
    // Takes the text as it is now; lastSavedParam gives it back.
    void saveParam();
    QString lastSavedParam() const { return m_savedParam; }

    // The UI string of the outside platform's algorithm (order type 13); traderType names the
    // panel that asks and is kept for the service.
    QString getSingleVqAlgoUiParam(int traderType) const;
    void setSingleVqAlgoParam(int traderType, const QString &text);

    void clear() override;

private:
    QString m_savedParam;
};

} // namespace TC
