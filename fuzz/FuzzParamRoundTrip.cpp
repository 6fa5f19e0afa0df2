// A property, not a crash hunt: whatever a trader did on the form, the text the panel writes
// brings a fresh panel back to the same state, and that panel writes the same text again.
#include "CFuzzPanelHost.h"
#include "CFuzzUserActions.h"

#include <QRegularExpression>
#include <QStringList>

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    CFuzzPanelHost::instance();
    return 0;
}

namespace {

// The panel's text without the widths of the table's columns ("column:width:visible" entries of
// its second piece): the table fits them to the rows on screen at every load of a list, so they
// follow the list's content, not the trader; order and visibility of the columns still count.
QString withoutColumnWidths(const QString &text)
{
    QStringList pieces = text.split(QLatin1Char('/'));
    if (pieces.size() > 1) {
        static const QRegularExpression width(QStringLiteral("(\\d+):\\d+:([01])"));
        pieces[1].replace(width, QStringLiteral("\\1:*:\\2"));
    }
    return pieces.join(QLatin1Char('/'));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::unique_ptr<TC::CBasketOperationPanel> first = CFuzzPanelHost::instance().newPanel();
    CFuzzUserActions::apply(*first, data, size);
    const QString text = first->param();

    std::unique_ptr<TC::CBasketOperationPanel> second = CFuzzPanelHost::freshPanel();
    second->setParam(text);
    CFuzzPanelHost::settle();
    const QString again = second->param();
    if (withoutColumnWidths(again) != withoutColumnWidths(text))
        CFuzzPanelHost::fail("param() of the restored panel differs", text, again);
    const QString shown = CFuzzUserActions::describe(*first);
    const QString restored = CFuzzUserActions::describe(*second);
    if (shown != restored)
        CFuzzPanelHost::fail("the restored panel shows another state", shown, restored);
    return 0;
}
