#pragma once

#include "BasketServicesExport.h"

#include <QString>

#include <string>

namespace ttservice {

// The client's table of instrument types: whether an instrument belongs to a numbered type.
// The panel uses, among others, 126 (with "SH") and 100017 (with "SZ") for bond repurchases,
// 100003, 100004 and 100016 for instruments that need a live quote, 100024 and 100028 for
// display and key rules. What a number means is the client's; here every instrument belongs to
// no type until a test or the demo host marks it.
// Thread-safe.
class BASKET_SERVICES_EXPORT StockTypeCenter final
{
public:
    // Whether the instrument (market "SH", "SZ", ... and code) belongs to the type typeId.
    static bool isTypedStock(int typeId, const std::string &market, const std::string &code);
    // As above, with Qt texts.
    static bool isTypedStock(int typeId, const QString &market, const QString &code);
    // For literals on both sides, which would fit both of the others.
    static bool isTypedStock(int typeId, const char *market, const char *code)
    {
        return isTypedStock(typeId, std::string(market), std::string(code));
    }

    // --- control surface (tests and the demo host) ---
    static void setTypedStock(int typeId, const std::string &market, const std::string &code, bool typed = true);
    // No instrument has any type.
    static void reset();
};

} // namespace ttservice
