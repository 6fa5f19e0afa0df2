#pragma once

#include "Bson.h"
#include "CCodeOrderParam.h"

#include <vector>

namespace TC {

// Writes order lines as a BSON array of their BSON forms (for the recorded calls' JSON lines;
// not part of the service interface).
inline void appendOrders(bson::BSONObjBuilder &builder, const char *field,
                         const std::vector<ttservice::CCodeOrderParam> &orders)
{
    bson::BSONArrayBuilder array(builder.subarrayStart(field));
    for (const ttservice::CCodeOrderParam &line : orders)
        array.append(line.toBson());
    array.done();
}

} // namespace TC
