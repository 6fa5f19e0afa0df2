#pragma once

#include <QString>

#include <ostream>
#include <sstream>
#include <string>

// Several values of one record as one text, '|' between them, so that a test compares a record
// with one expected line and a failure shows every field at once. Numbers keep 15 digits,
// truth values read true or false.
namespace fieldsdetail {
inline void put(std::ostream &out, const QString &value) { out << value.toStdString(); }
template <typename T>
void put(std::ostream &out, const T &value)
{
    out << value;
}
} // namespace fieldsdetail

template <typename... T>
std::string fields(const T &...values)
{
    std::ostringstream out;
    out.precision(15);
    out << std::boolalpha;
    ((fieldsdetail::put(out, values), out << '|'), ...);
    std::string text = out.str();
    if (!text.empty())
        text.pop_back();
    return text;
}
