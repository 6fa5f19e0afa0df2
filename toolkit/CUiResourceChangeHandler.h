#pragma once

#include "BasketToolkitExport.h"

namespace WK {

// Something that follows the user-interface resources: while it lives it is registered with
// CUiResource, which calls scaleChanged when the scale changes and themeChanged when colours,
// fonts or images change. Both run on the user-interface thread.
class BASKET_TOOLKIT_EXPORT CUiResourceChangeHandler
{
public:
    CUiResourceChangeHandler();
    virtual ~CUiResourceChangeHandler();

    CUiResourceChangeHandler(const CUiResourceChangeHandler &) = delete;
    CUiResourceChangeHandler &operator=(const CUiResourceChangeHandler &) = delete;

    virtual void scaleChanged();
    virtual void themeChanged();
};

} // namespace WK
