// The panel's whole parameter string, as the client hands back what it saved: the client frame's
// "|" pieces, the panel's "/" pieces, the form's JSON or older ";" text, the per-tab "*" texts,
// the blocks' ":" and "=" texts, the table's layout and the toolbar's flags. Whatever the text,
// the panel must stay usable: it writes its text again and places an order from the list.
#include "CFuzzPanelHost.h"

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    CFuzzPanelHost::instance();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::unique_ptr<TC::CBasketOperationPanel> panel = CFuzzPanelHost::instance().newPanel();
    panel->setParam(CFuzzPanelHost::text(data, size));
    CFuzzPanelHost::settle();
    const QString kept = panel->param();
    CFuzzPanelHost::pressOrderButton(*panel);
    // What the panel writes after any text must itself be a text it reads.
    panel->setParam(kept);
    CFuzzPanelHost::settle();
    return 0;
}
