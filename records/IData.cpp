#include "IData.h"

namespace ttservice {

bson::BSONObj IData::toBson() const
{
    bson::BSONObjBuilder builder;
    appendElements(builder);
    return builder.obj();
}

bson::BSONObj IData::toBsonWithBson(const bson::BSONObj &extra) const
{
    bson::BSONObjBuilder builder;
    appendElements(builder);
    bson::BSONObjIterator it(extra);
    while (it.more()) {
        const bson::BSONElement e = it.next();
        if (!builder.hasField(e.fieldName()))
            builder.append(e);
    }
    return builder.obj();
}

bool IData::isEqual(const IData &other) const
{
    return toBson().binaryEqual(other.toBson());
}

int IData::getOffset(int field) const
{
    if (field < 0)
        return -1;
    const bson::BSONObj obj = toBson();
    bson::BSONObjIterator it(obj);
    int index = 0;
    while (it.more()) {
        const bson::BSONElement e = it.next();
        if (index++ == field)
            return static_cast<int>(e.rawdata() - obj.objdata());
    }
    return -1;
}

} // namespace ttservice
