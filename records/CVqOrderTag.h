#pragma once

#include "BasketRecordsExport.h"
#include "IData.h"

#include <string>

namespace ttservice {

// The tag under which the order service groups the tasks of one placing.
class BASKET_RECORDS_EXPORT CVqOrderTag : public IData
{
public:
    std::string m_orderTagName;
    std::string m_orderTagKey;
    int m_orderTagSeq = 0;

    std::string getKey() const override { return m_orderTagKey; }
    void appendElements(bson::BSONObjBuilder &builder) const override;
    void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) override;
};

} // namespace ttservice
