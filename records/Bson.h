#pragma once

// The BSON of the legacy document-store driver, under the short name the panel uses for it.
#include <mongo/bson/bson.h>
#include <mongo/db/json.h>

#include <string>

namespace bson = mongo;

namespace ttservice {

// Typed reads with a fallback, so that a record can be restored from an object that lacks
// some fields (an older saved text, or a partial update).
double bsonDouble(const bson::BSONObj &obj, const char *key, double fallback);
long long bsonInt64(const bson::BSONObj &obj, const char *key, long long fallback);
int bsonInt(const bson::BSONObj &obj, const char *key, int fallback);
bool bsonBool(const bson::BSONObj &obj, const char *key, bool fallback);
std::string bsonString(const bson::BSONObj &obj, const char *key, const std::string &fallback);

// Writes a double unless it is the no-value mark: the mark does not survive the JSON text form
// (its shortest decimal rounds above the largest double), and a missing field reads back as it.
void bsonAppendDouble(bson::BSONObjBuilder &builder, const char *key, double value);

// Parses JSON text into an object. The parser reports bad text by throwing; this is the one
// place that catches it, so callers get false and an empty object instead.
bool parseJson(const std::string &text, bson::BSONObj &out);

} // namespace ttservice
