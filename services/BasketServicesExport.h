#pragma once

#include <QtGlobal>

// Classes of the stand-in library for the client's services, exported so that the panel and the client's
// host reach the one definition in the library. The stand-in libraries are built with default
// visibility as well, so that their free functions and the statics of header templates (the help
// dialog recorders) also exist once in a process.
#if defined(BASKET_SERVICES_LIBRARY)
#define BASKET_SERVICES_EXPORT Q_DECL_EXPORT
#else
#define BASKET_SERVICES_EXPORT Q_DECL_IMPORT
#endif
