#pragma once

#include "BasketToolkitExport.h"
#include "CEventWidgetT.h"

#include <QDialog>
#include <QString>
#include <QStringList>
#include <QVector>

namespace WK {

// What a dialog run without a user showed and answered (see CBaseDialog::setInteractive).
struct BASKET_TOOLKIT_EXPORT DialogRecord {
    QString className;
    QString title;
    QStringList texts; // the dialog's own texts, as they stood when it opened
    int result = QDialog::Rejected;
    QString input;     // the scripted input handed to the dialog
};

// The base of the toolkit's dialogs and floating boxes, on the event bus.
//
// A dialog is the root of its children's events: handleEvent takes what the dialog knows and
// stops the rest there, so that its buttons' events (ids 0, 1, ...) never reach the panel below.
// What the panel must hear the dialog delivers itself, to its own parent deliverer.
//
// The OK path: tryOK() asks checkOK(), which may refuse and keep the dialog open; then onOK()
// does the dialog's work and the dialog closes accepted.
//
// exec() never blocks unless the toolkit is interactive (the demo switches that on). Otherwise
// it records the dialog (class, title, texts) and answers at once with the scripted answer:
// Rejected by default; with Accepted, the scripted input goes into the dialog and the OK path
// runs, so a refusal of checkOK gives Rejected.
class BASKET_TOOLKIT_EXPORT CBaseDialog : public CEventWidgetT<QDialog>
{
    Q_OBJECT

public:
    explicit CBaseDialog(QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::Dialog);
    ~CBaseDialog() override;

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

    virtual bool checkOK();
    virtual void onOK();
    bool tryOK();

    int exec() override;

    // Test and demo switches, shared by every dialog.
    static void setInteractive(bool interactive);
    static bool isInteractive();
    static void setScriptedAnswer(int result, const QString &input = QString());
    static void clearScriptedAnswer();
    static QVector<DialogRecord> records();
    static void clearRecords();

protected:
    // The texts a run without a user records.
    virtual QStringList recordTexts() const;
    // Where a scripted input goes before the OK path runs.
    virtual void applyScriptedInput(const QString &input);
};

} // namespace WK
