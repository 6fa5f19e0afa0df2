#pragma once

#include "CFixRoute.h"
#include "CSimulatedExchange.h"

#include <QString>
#include <QVector>

#include <memory>

namespace TC {
class CPriceData;
}

// The demo's FIX route: the trade service's orders go over FIX 4.4 on loopback to a simulated
// exchange started in this process, which lists the sample's instruments at their opening
// quotes. With a settings file of the user's own, the route goes where that file says and no
// exchange is started.
class CDemoFixRoute final
{
public:
    // folder: where the generated settings, the message stores and the order id counter live.
    CDemoFixRoute(const QString &folder, const QVector<TC::CPriceData> &quotes, const QString &ownSettings);
    ~CDemoFixRoute();

    // Starts the exchange (if any) and the route, and hands the route to the trade service;
    // false with the reason when either cannot start.
    bool start(QString *error);
    TC::CFixRoute *route() const { return m_route.get(); }

private:
    QString m_folder;
    QVector<TC::CPriceData> m_quotes;
    QString m_ownSettings;
    std::unique_ptr<TC::CSimulatedExchange> m_exchange;
    std::unique_ptr<TC::CFixRoute> m_route;
};
