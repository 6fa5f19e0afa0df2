#pragma once

#include "BasketRecordsExport.h"
#include "CAccountInfo.h"

#include <QMetaType>
#include <QString>

#include <cstdint>
#include <string>

namespace TC {

// A position handed to the panel by another panel of the client or by the exchange dialog.
class BASKET_RECORDS_EXPORT CPositionParam
{
public:
    ttservice::CAccountInfo *m_account = nullptr; // owned by the client's account list
    QString m_market;
    QString m_stockCode;
    QString m_stockName;
    QString m_directionText; // "买" or "卖" on a line of the position exchange; empty for a whole sale
    int64_t m_volume = 0;
    int m_operationType = -1;
    int m_positionAttr = 0;
    QString m_positionId;
    int m_oneKeyOperation = -1; // the row's operation on the one-key futures tab
    std::string m_extraKey;
};

} // namespace TC

Q_DECLARE_METATYPE(TC::CPositionParam)
