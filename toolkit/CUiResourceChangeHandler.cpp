#include "CUiResourceChangeHandler.h"

#include "CUiResource.h"

namespace WK {

CUiResourceChangeHandler::CUiResourceChangeHandler()
{
    CUiResource::instance()->registerHandler(this);
}

CUiResourceChangeHandler::~CUiResourceChangeHandler()
{
    CUiResource::instance()->unregisterHandler(this);
}

void CUiResourceChangeHandler::scaleChanged() {}

void CUiResourceChangeHandler::themeChanged() {}

} // namespace WK
