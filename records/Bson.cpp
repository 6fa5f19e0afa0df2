#include "Bson.h"

#include "DoubleCompare.h"

#include <limits>

namespace ttservice {

double bsonDouble(const bson::BSONObj &obj, const char *key, double fallback)
{
    const bson::BSONElement e = obj.getField(key);
    return e.isNumber() ? e.Number() : fallback;
}

namespace {

// A double outside the range of the integer it is read as (or not a number) is no value of it;
// converting it would be undefined, so the field reads as absent. The lowest value of the integer
// is a power of two, exact as a double, and its negation is the first value beyond the highest.
template <typename Int>
bool fitsIn(double value)
{
    const double lowest = static_cast<double>(std::numeric_limits<Int>::min());
    return value >= lowest && value < -lowest;
}

} // namespace

long long bsonInt64(const bson::BSONObj &obj, const char *key, long long fallback)
{
    const bson::BSONElement e = obj.getField(key);
    if (e.type() == bson::NumberDouble)
        return fitsIn<long long>(e.Number()) ? static_cast<long long>(e.Number()) : fallback;
    return e.isNumber() ? e.numberLong() : fallback;
}

int bsonInt(const bson::BSONObj &obj, const char *key, int fallback)
{
    const bson::BSONElement e = obj.getField(key);
    if (e.type() == bson::NumberDouble)
        return fitsIn<int>(e.Number()) ? static_cast<int>(e.Number()) : fallback;
    return e.isNumber() ? e.numberInt() : fallback;
}

bool bsonBool(const bson::BSONObj &obj, const char *key, bool fallback)
{
    const bson::BSONElement e = obj.getField(key);
    if (e.type() == bson::Bool)
        return e.boolean();
    if (e.type() == bson::NumberDouble)
        return e.Number() != 0.0;
    return e.isNumber() ? e.numberLong() != 0 : fallback;
}

std::string bsonString(const bson::BSONObj &obj, const char *key, const std::string &fallback)
{
    const bson::BSONElement e = obj.getField(key);
    return e.type() == bson::String ? e.str() : fallback;
}

void bsonAppendDouble(bson::BSONObjBuilder &builder, const char *key, double value)
{
    if (hasValue(value))
        builder.append(key, value);
}

bool parseJson(const std::string &text, bson::BSONObj &out)
{
    try {
        out = bson::fromjson(text).getOwned();
        return true;
    } catch (const std::exception &) {
        out = bson::BSONObj();
        return false;
    }
}

} // namespace ttservice
