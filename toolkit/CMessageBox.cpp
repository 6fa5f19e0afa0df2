#include "CMessageBox.h"

namespace WK {
namespace {

struct MessageBoxScript {
    bool interactive = false;
    bool scripted = false;
    QMessageBox::StandardButton answer = QMessageBox::NoButton;
    QVector<MessageBoxRecord> records;
};

MessageBoxScript &script()
{
    static MessageBoxScript s;
    return s;
}

QMessageBox::StandardButton defaultAnswer(QMessageBox::StandardButtons buttons,
                                          QMessageBox::StandardButton defaultButton)
{
    if (defaultButton != QMessageBox::NoButton && buttons.testFlag(defaultButton))
        return defaultButton;
    for (int bit = QMessageBox::FirstButton; bit <= QMessageBox::LastButton; bit <<= 1) {
        if (buttons & bit)
            return static_cast<QMessageBox::StandardButton>(bit);
    }
    return QMessageBox::Ok;
}

} // namespace

QMessageBox::StandardButton CMessageBox::information(int style, QWidget *parent, const QString &title,
                                                     const QString &text, QMessageBox::StandardButtons buttons,
                                                     QMessageBox::StandardButton defaultButton)
{
    return show(MessageBoxRecord::Information, style, parent, title, text, buttons, defaultButton);
}

QMessageBox::StandardButton CMessageBox::warning(int style, QWidget *parent, const QString &title,
                                                 const QString &text, QMessageBox::StandardButtons buttons,
                                                 QMessageBox::StandardButton defaultButton)
{
    return show(MessageBoxRecord::Warning, style, parent, title, text, buttons, defaultButton);
}

void CMessageBox::setInteractive(bool interactive)
{
    script().interactive = interactive;
}

bool CMessageBox::isInteractive()
{
    return script().interactive;
}

QVector<MessageBoxRecord> CMessageBox::records()
{
    return script().records;
}

void CMessageBox::clearRecords()
{
    script().records.clear();
}

void CMessageBox::setScriptedAnswer(QMessageBox::StandardButton answer)
{
    script().scripted = true;
    script().answer = answer;
}

void CMessageBox::clearScriptedAnswer()
{
    script().scripted = false;
    script().answer = QMessageBox::NoButton;
}

QMessageBox::StandardButton CMessageBox::show(MessageBoxRecord::Kind kind, int style, QWidget *parent,
                                              const QString &title, const QString &text,
                                              QMessageBox::StandardButtons buttons,
                                              QMessageBox::StandardButton defaultButton)
{
    MessageBoxRecord record;
    record.kind = kind;
    record.style = style;
    record.title = title;
    record.text = text;
    record.buttons = buttons;
    record.defaultButton = defaultButton;

    if (script().interactive) {
        QMessageBox box(kind == MessageBoxRecord::Warning ? QMessageBox::Warning : QMessageBox::Information,
                        title, text, buttons == QMessageBox::NoButton ? QMessageBox::Ok : buttons, parent);
        if (defaultButton != QMessageBox::NoButton)
            box.setDefaultButton(defaultButton);
        record.answer = static_cast<QMessageBox::StandardButton>(box.exec());
    } else {
        record.answer = script().scripted ? script().answer : defaultAnswer(buttons, defaultButton);
    }
    script().records.append(record);
    return record.answer;
}

} // namespace WK
