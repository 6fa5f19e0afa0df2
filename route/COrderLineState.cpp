#include "COrderLineState.h"

namespace TC {

const char *orderLineStatusText(EOrderLineStatus status)
{
    switch (status) {
    case EOrderLineStatus::Sent: return "sent";
    case EOrderLineStatus::Unknown: return "unknown";
    case EOrderLineStatus::Acknowledged: return "acknowledged";
    case EOrderLineStatus::PartlyFilled: return "partly filled";
    case EOrderLineStatus::Filled: return "filled";
    case EOrderLineStatus::Rejected: return "rejected";
    case EOrderLineStatus::Cancelled: return "cancelled";
    }
    return "?";
}

} // namespace TC
