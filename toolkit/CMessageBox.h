#pragma once

#include "BasketToolkitExport.h"

#include <QMessageBox>
#include <QString>
#include <QVector>

class QWidget;

namespace WK {

// One message box as it was asked for.
struct BASKET_TOOLKIT_EXPORT MessageBoxRecord {
    enum Kind { Information, Warning };
    Kind kind = Information;
    int style = 0;
    QString title;
    QString text;
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
    QMessageBox::StandardButton answer = QMessageBox::NoButton;
};

// Message boxes of the toolkit. In the demo (interactive) they are real modal message boxes.
// Otherwise, the default, they never show and never block: each call is recorded and answered
// at once, with the scripted answer if one is set, else with the default button if it is one of
// the buttons, else with the first of the buttons (in Qt's order of values: Ok before Cancel,
// Yes before No), else Ok.
class BASKET_TOOLKIT_EXPORT CMessageBox final
{
public:
    CMessageBox() = delete;

    // style: the client's look of the box; this toolkit has one look and keeps the value in the
    // record.
    static QMessageBox::StandardButton information(int style, QWidget *parent, const QString &title,
                                                   const QString &text,
                                                   QMessageBox::StandardButtons buttons = QMessageBox::Ok,
                                                   QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);
    static QMessageBox::StandardButton warning(int style, QWidget *parent, const QString &title,
                                               const QString &text,
                                               QMessageBox::StandardButtons buttons = QMessageBox::Ok,
                                               QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);

    // Test and demo switches.
    static void setInteractive(bool interactive);
    static bool isInteractive();
    static QVector<MessageBoxRecord> records();
    static void clearRecords();
    // The answer of every box from now on, until clearScriptedAnswer.
    static void setScriptedAnswer(QMessageBox::StandardButton answer);
    static void clearScriptedAnswer();

private:
    static QMessageBox::StandardButton show(MessageBoxRecord::Kind kind, int style, QWidget *parent,
                                            const QString &title, const QString &text,
                                            QMessageBox::StandardButtons buttons,
                                            QMessageBox::StandardButton defaultButton);
};

} // namespace WK
