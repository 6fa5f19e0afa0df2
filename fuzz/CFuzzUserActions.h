#pragma once

#include "CBasketOperationPanel.h"

#include <QString>

#include <cstddef>
#include <cstdint>

// What a trader does on the form, read from bytes two at a time (an action, its argument): press
// a tab, tick or untick an account, choose a stored basket, change the sizing mode or a sizing
// value, choose a price or order type, tick a filter box of the toolbar. Used by the fuzz targets
// to reach the form's states and by the seed writer to reach real ones.
class CFuzzUserActions final
{
public:
    enum EAction { Tab, Account, Basket, Sizing, Cell, PriceType, OrderType, Filter, ActionCount };

    static void apply(TC::CBasketOperationPanel &panel, const uint8_t *data, size_t size);
    static void apply(TC::CBasketOperationPanel &panel, EAction action, uint8_t argument);

    // What a trader reads off the form: tab, operation, basket, ticked accounts, sizing mode and
    // values, the price and order type of the current operation, the toolbar's filters.
    static QString describe(const TC::CBasketOperationPanel &panel);
};
