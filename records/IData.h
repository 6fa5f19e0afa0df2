#pragma once

#include "BasketRecordsExport.h"
#include "Bson.h"

#include <string>

namespace ttservice {

// Base of every record of the data layer: a key that identifies the record and a BSON form
// in which it is stored and exchanged.
class BASKET_RECORDS_EXPORT IData
{
public:
    virtual ~IData() = default;

    // Identity of the record among records of its kind (an account key, a stock key ...).
    virtual std::string getKey() const = 0;

    // Writes the record's fields, under short keys, into an object being built.
    virtual void appendElements(bson::BSONObjBuilder &builder) const = 0;

    // Reads the fields back. Fields missing from obj keep the value of base when one is given
    // and partial is true, else the record's default.
    virtual void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) = 0;

    bson::BSONObj toBson() const;
    // The record's fields followed by those fields of extra that the record does not have.
    bson::BSONObj toBsonWithBson(const bson::BSONObj &extra) const;
    // Two records are equal when their BSON forms are.
    bool isEqual(const IData &other) const;
    // Offset of a numbered field in the record's BSON form, -1 when the record has no such field.
    int getOffset(int field) const;
};

} // namespace ttservice
