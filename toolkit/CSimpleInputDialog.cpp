#include "CSimpleInputDialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace WK {

CSimpleInputDialog::CSimpleInputDialog(const QString &title, const QString &label, QWidget *parent)
    : CCommonDialog(parent)
{
    setObjectName(QStringLiteral("simple_input_dialog"));
    auto *content = new QWidget(this);
    m_label = new QLabel(label, content);
    m_edit = new QLineEdit(content);
    m_okButton = new QPushButton(QStringLiteral("确定"), content);
    m_cancelButton = new QPushButton(QStringLiteral("取消"), content);

    m_label->setVisible(!label.isEmpty());
    m_edit->setMinimumWidth(240);
    m_okButton->setDefault(true);
    m_okButton->setFixedSize(60, 23);
    m_cancelButton->setFixedSize(60, 23);

    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(16, 14, 16, 12);
    column->setSpacing(8);
    column->addWidget(m_label);
    column->addWidget(m_edit);
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch(1);
    buttons->addWidget(m_okButton);
    buttons->addWidget(m_cancelButton);
    column->addLayout(buttons);

    connect(m_okButton, &QPushButton::clicked, this, [this] { tryOK(); });
    connect(m_cancelButton, &QPushButton::clicked, this, &QDialog::reject);

    setTitle(title);
    setInnerWidget(content);
}

CSimpleInputDialog::~CSimpleInputDialog() = default;

void CSimpleInputDialog::setText(const QString &text)
{
    m_edit->setText(text);
    m_edit->selectAll();
}

QString CSimpleInputDialog::text() const
{
    return m_edit->text();
}

QString CSimpleInputDialog::label() const
{
    return m_label->text();
}

int CSimpleInputDialog::getInput(std::function<void(const QString &)> onInput)
{
    m_onInput = std::move(onInput);
    const int result = exec();
    m_onInput = nullptr;
    return result;
}

bool CSimpleInputDialog::checkOK()
{
    return !m_edit->text().trimmed().isEmpty();
}

void CSimpleInputDialog::onOK()
{
    if (m_onInput)
        m_onInput(m_edit->text());
}

QStringList CSimpleInputDialog::recordTexts() const
{
    return {m_label->text(), m_edit->text()};
}

void CSimpleInputDialog::applyScriptedInput(const QString &input)
{
    m_edit->setText(input);
}

} // namespace WK
