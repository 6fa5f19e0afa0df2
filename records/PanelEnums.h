#pragma once

#include <QFlags>
#include <QtGlobal>

namespace TC {

// The tab word: one bit per tab of the form.
enum ETradeOperationType : quint64 {
    TOT_NONE = 0,
    TOT_BUY = 0x200,
    TOT_SELL = 0x400,
    TOT_ALL = 0x800,
    TOT_FUTURE = 0x1000,
    TOT_CREDIT = 0x2000,
    TOT_ONEKEY_FUTURE = 0x4000,
    TOT_HGT = 0x80000,
    TOT_SGT = 0x100000,
};

// Every tab bit at once; a word without any of these names no tab.
constexpr quint64 TOT_ALL_TABS_MASK = 0x187e00;

// The kind of temporary list a basket picker holds instead of a stored basket.
// Fixed to int: the flag words also carry bits of their own (64, the system groups), which an
// enumeration without a fixed type could not hold.
enum ETempBatchOrderFlag : int {
    BATCH_NONE = 0,
    BATCH_BUY = 1,
    BATCH_SELL = 2,
    BATCH_POSITION_SELL = 4,
    BATCH_CLIPBOARD = 8,
    BATCH_BUY_SELL = 16,     // the buy and sell lists of a position exchange
    BATCH_CUSTOM_GROUP = 32, // the custom group of the tab
};
Q_DECLARE_FLAGS(ETempBatchOrderFlags, ETempBatchOrderFlag)

// The sizing modes of the volume combo.
enum EVolumnType {
    VT_NONE = -1,
    VT_COPIES = 0,
    VT_MONEY = 1,
    VT_NET_VALUE = 2,
    VT_AVAILABLE = 3,
    VT_ASSET_RATIO = 4,
    VT_FUTURE_VALUE = 5,
    VT_INDEX_UNIT = 6,
};

enum EBasketDoOperationType {
    BDOT_NONE = -1,
    BDOT_NORMAL = 0,
    BDOT_HEDGE = 1,
};

// Message kinds of the message service; 1 and 4 are those of the placing path.
enum EMsgTypeDef {
    MSG_TYPE_NONE = 0,
    MSG_TYPE_ORDER = 1,
    MSG_TYPE_ORDER_RESULT = 4,
};

enum EUserAuth {
    USER_AUTH_NONE = 0,
    USER_AUTH_HEDGE = 1,
};

} // namespace TC

Q_DECLARE_OPERATORS_FOR_FLAGS(TC::ETempBatchOrderFlags)
