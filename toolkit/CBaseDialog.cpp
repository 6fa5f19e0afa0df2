#include "CBaseDialog.h"

namespace WK {
namespace {

struct DialogScript {
    bool interactive = false;
    int result = QDialog::Rejected;
    QString input;
    QVector<DialogRecord> records;
};

DialogScript &script()
{
    static DialogScript s;
    return s;
}

} // namespace

CBaseDialog::CBaseDialog(QWidget *parent, Qt::WindowFlags flags)
    : CEventWidgetT<QDialog>(parent)
{
    setWindowFlags(flags);
}

CBaseDialog::~CBaseDialog() = default;

bool CBaseDialog::handleEvent(int, int, int, QString, void *)
{
    return false;
}

bool CBaseDialog::checkOK()
{
    return true;
}

void CBaseDialog::onOK() {}

bool CBaseDialog::tryOK()
{
    if (!checkOK())
        return false;
    onOK();
    accept();
    return true;
}

int CBaseDialog::exec()
{
    if (script().interactive)
        return QDialog::exec();

    DialogRecord record;
    record.className = QString::fromLatin1(metaObject()->className());
    record.title = windowTitle();
    record.texts = recordTexts();
    record.input = script().input;
    int result = QDialog::Rejected;
    if (script().result == QDialog::Accepted) {
        applyScriptedInput(script().input);
        if (tryOK())
            result = QDialog::Accepted;
    }
    if (result != QDialog::Accepted)
        reject();
    record.result = result;
    script().records.append(record);
    return result;
}

void CBaseDialog::setInteractive(bool interactive)
{
    script().interactive = interactive;
}

bool CBaseDialog::isInteractive()
{
    return script().interactive;
}

void CBaseDialog::setScriptedAnswer(int result, const QString &input)
{
    script().result = result;
    script().input = input;
}

void CBaseDialog::clearScriptedAnswer()
{
    script().result = QDialog::Rejected;
    script().input.clear();
}

QVector<DialogRecord> CBaseDialog::records()
{
    return script().records;
}

void CBaseDialog::clearRecords()
{
    script().records.clear();
}

QStringList CBaseDialog::recordTexts() const
{
    return {};
}

void CBaseDialog::applyScriptedInput(const QString &) {}

} // namespace WK
