// The confirmation table's layout text (column order, widths, visibility), in its place in the
// panel's text, on a panel whose table shows a sized basket; the table is then drawn.
#include "CFuzzPanelHost.h"

#include <QStringList>

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    CFuzzPanelHost::instance();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::unique_ptr<TC::CBasketOperationPanel> panel = CFuzzPanelHost::instance().newPanel();
    QStringList parts = panel->param().split(QLatin1Char('/'));
    if (parts.size() < 2)
        return 0;
    // A "/" ends the piece in the panel's text, so the layout never holds one.
    parts[1] = CFuzzPanelHost::text(data, size).remove(QLatin1Char('/'));
    panel->setParam(parts.join(QLatin1Char('/')));
    CFuzzPanelHost::settle();
    panel->grab();
    panel->param();
    return 0;
}
