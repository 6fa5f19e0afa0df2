#include "OperationSide.h"

namespace ttservice {

bool isBuyOperation(EOperationType op)
{
    switch (op) {
    case OT_OPEN_LONG:
    case OT_CLOSE_SHORT_TODAY:
    case OT_CLOSE_SHORT_YESTERDAY:
    case OT_ONEKEY_BUY_TODAY:
    case OT_ONEKEY_BUY_YESTERDAY:
    case OT_CLOSE_SHORT:
    case OT_BUY:
    case OT_MARGIN_BUY:
    case OT_BUY_TO_RETURN:
    case OT_SPECIAL_BUY_TO_RETURN:
        return true;
    default:
        return false;
    }
}

} // namespace ttservice
