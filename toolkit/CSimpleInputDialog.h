#pragma once

#include "BasketToolkitExport.h"
#include "CCommonDialog.h"

#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace WK {

// Asks the user for one line of text: a label, a line edit, "确定" and "取消". An empty (or
// blank) text cannot be confirmed.
class BASKET_TOOLKIT_EXPORT CSimpleInputDialog : public CCommonDialog
{
    Q_OBJECT

public:
    // title: the window title; label: the text above the line edit, none when empty.
    CSimpleInputDialog(const QString &title, const QString &label, QWidget *parent);
    ~CSimpleInputDialog() override;

    // The proposed text, selected so that typing replaces it.
    void setText(const QString &text);
    QString text() const;
    QString label() const;

    // Runs the dialog; when the user confirms, onInput gets the text. Returns the dialog's
    // result.
    int getInput(std::function<void(const QString &)> onInput = {});

    bool checkOK() override;
    void onOK() override;

    QLineEdit *lineEdit() const { return m_edit; }

protected:
    QStringList recordTexts() const override;
    void applyScriptedInput(const QString &input) override;

private:
    QLabel *m_label = nullptr;
    QLineEdit *m_edit = nullptr;
    QPushButton *m_okButton = nullptr;
    QPushButton *m_cancelButton = nullptr;
    std::function<void(const QString &)> m_onInput;
};

} // namespace WK
