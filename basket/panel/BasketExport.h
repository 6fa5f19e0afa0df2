#pragma once

#include <QtGlobal>

// Classes of the panel library are exported so that the client can create and drive them.
#if defined(BASKETPANEL_LIBRARY)
#define BASKETPANEL_EXPORT Q_DECL_EXPORT
#else
#define BASKETPANEL_EXPORT Q_DECL_IMPORT
#endif
