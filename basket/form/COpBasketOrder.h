#pragma once

#include "CCodeOrderParam.h"

#include <QVector>

namespace TC {

// The result of one run of the order computation: the generated lines, and one default line
// that travels with them for callers that want a template.
struct COpBasketOrder
{
    QVector<ttservice::CCodeOrderParam> m_params;
    ttservice::CCodeOrderParam m_param;
};

} // namespace TC
