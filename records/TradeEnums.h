#pragma once

// Enumerations of the client's data layer. Only the numbers matter: they travel in saved
// parameter strings and in the calls to the order service.

namespace ttservice {

// The concrete operation of one order line.
enum EOperationType : int {
    OT_NONE = -1,
    OT_OPEN_LONG = 0,            // "开多"
    OT_OPEN_SHORT = 3,           // "开空"
    OT_CLOSE_LONG_TODAY = 6,
    OT_CLOSE_LONG_YESTERDAY = 7,
    OT_CLOSE_SHORT_TODAY = 8,
    OT_CLOSE_SHORT_YESTERDAY = 9,
    OT_ONEKEY_SELL_TODAY = 10,
    OT_ONEKEY_SELL_YESTERDAY = 11,
    OT_ONEKEY_BUY_TODAY = 12,
    OT_ONEKEY_BUY_YESTERDAY = 13,
    OT_CLOSE_LONG = 14,          // "平多" as the form shows it
    OT_CLOSE_SHORT = 15,         // "平空" as the form shows it
    OT_BUY = 18,
    OT_SELL = 19,
    OT_MARGIN_BUY = 20,
    OT_SHORT_SELL = 21,
    OT_BUY_TO_RETURN = 22,
    OT_SELL_TO_REPAY = 24,
    OT_MONEY = 25,               // a money line: the quantity is money, there is no instrument
    OT_MONEY_TRANSFER = 1024,    // the other kind of money line
    OT_SPECIAL_SHORT_SELL = 1010,
    OT_SPECIAL_BUY_TO_RETURN = 1011,
};

enum EOrderType : int {
    ORDER_TYPE_NONE = -1,
    ORDER_TYPE_NORMAL = 0,
    ORDER_TYPE_TOUCH = 1,
    ORDER_TYPE_PLATFORM6_NORMAL = 6,
    ORDER_TYPE_PLATFORM6_TOUCH = 7,
    ORDER_TYPE_INSTRUCTION = 13,
    ORDER_TYPE_VWAPPLUS = 14,
};

enum EPriceType : int {
    PRICE_TYPE_NONE = -1,
    PRICE_TYPE_LAST = 0,
    PRICE_TYPE_BID1 = 1,
    PRICE_TYPE_ASK1 = 2,
    PRICE_TYPE_UP_LIMIT = 3,
    PRICE_TYPE_DOWN_LIMIT = 4,
    PRICE_TYPE_FIXED = 11,
};

enum ETradePlatform : int {
    TRADE_PLATFORM_NONE = 0,
    TRADE_PLATFORM_REMAP = 6, // the platform whose touch orders take other order types
};

enum EVqTraderType : int {
    VQ_TRADER_NONE = 0,
    VQ_TRADER_BASKET = 4,
};

enum EVqHedgeType : int {
    VQ_HEDGE_NONE = 0,
    VQ_NOT_HEDGED = 1,
    VQ_HEDGED = 2,
};

enum EHedge_Flag_Type : int {
    HEDGE_FLAG_SPECULATION = 49,
    HEDGE_FLAG_ARBITRAGE = 50,
    HEDGE_FLAG_HEDGE = 51,
};

enum EVQBrokerType : int {
    BROKER_TYPE_NONE = 0,
    BROKER_TYPE_FUTURE = 1,
    BROKER_TYPE_STOCK = 2,
    BROKER_TYPE_CREDIT = 3,
    BROKER_TYPE_HGT = 7,
    BROKER_TYPE_SGT = 11,
};

enum EVqStopLossType : int {
    VQ_STOP_LOSS_NONE = 0,
};

enum EFtSpecBtnBarType : int {
    FT_SPEC_BTN_BAR_NONE = 0,
};

enum EVqLimitedPriceType : int {
    VQ_LIMITED_PRICE_NONE = 0,
};

enum EOrderStrategyType : int {
    ORDER_STRATEGY_NONE = 0,
};

enum EtfHedgeStatus : int {
    ETF_HEDGE_NONE = 0,
};

// 0 is the one state in which an account can trade.
enum EBROKER_LOGIN_STATUS : int {
    LOGIN_STATUS_READY = 0,
    LOGIN_STATUS_CONNECTING = 1,
    LOGIN_STATUS_DISCONNECTED = 2,
    LOGIN_STATUS_FAILED = 3,
};

enum MsgLevel : int {
    MSG_LEVEL_NORMAL = 0,
    MSG_LEVEL_ORDER = 1,
};

enum ESubCommandStatus : int {
    SUB_COMMAND_NONE = 0,
    SUB_COMMAND_ORDER = 1,
};

// Entrust sides as the clipboard and the hedge service write them.
constexpr int ENTRUST_BUY = 48;
constexpr int ENTRUST_SELL = 49;

} // namespace ttservice
