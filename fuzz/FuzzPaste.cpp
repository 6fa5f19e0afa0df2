// Pasted rows: the user's Ctrl+V of the clipboard and the client's patchCommand, the first byte
// choosing which. The rows become a clipboard list that is sized and placed.
#include "CFuzzPanelHost.h"

#include "COperationBasketWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    CFuzzPanelHost::instance();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    std::unique_ptr<TC::CBasketOperationPanel> panel = CFuzzPanelHost::instance().newPanel();
    const QString text = CFuzzPanelHost::text(data + 1, size - 1);
    if (data[0] & 1) {
        panel->patchCommand(text);
    } else if (TC::COperationBasketWidget *basketWidget = panel->basketWidget()) {
        QApplication::clipboard()->setText(text);
        QKeyEvent press(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier);
        QApplication::sendEvent(basketWidget, &press);
    }
    CFuzzPanelHost::settle();
    CFuzzPanelHost::pressOrderButton(*panel);
    panel->param();
    return 0;
}
