#include "CCreatePortfolioKeyboard.h"

#include <QCheckBox>
#include <QCompleter>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QStringListModel>

#include <utility>

namespace WK {
namespace {

constexpr int kNameWidth = 120;

} // namespace

CCreatePortfolioKeyboard::CCreatePortfolioKeyboard(int id, QWidget *parent)
    : CBaseWidget(QStringLiteral("create_portfolio_keyboard"), false, parent)
    , m_id(id)
{
    // Plain Qt controls: their changes leave this widget as its own event 60, not as theirs.
    m_check = new QCheckBox(QStringLiteral("创建组合"), this);
    m_nameEdit = new QLineEdit(this);
    m_nameEdit->setObjectName(QStringLiteral("portfolio_name"));
    m_nameEdit->setPlaceholderText(QStringLiteral("组合名称"));
    m_nameEdit->setFixedWidth(kNameWidth);
    m_names = new QStringListModel(this);
    m_completer = new QCompleter(m_names, this);
    m_completer->setCaseSensitivity(Qt::CaseInsensitive);
    m_completer->setFilterMode(Qt::MatchContains);
    m_nameEdit->setCompleter(m_completer);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(m_check);
    layout->addWidget(m_nameEdit);

    connect(m_check, &QCheckBox::toggled, this, [this](bool checked) {
        m_nameEdit->setEnabled(checked);
        notifyChange();
    });
    connect(m_nameEdit, &QLineEdit::editingFinished, this, [this] {
        if (m_nameEdit->text() != m_committedName)
            notifyChange();
    });

    m_nameEdit->setEnabled(false);
}

CCreatePortfolioKeyboard::~CCreatePortfolioKeyboard() = default;

void CCreatePortfolioKeyboard::setPortfolioNameSource(std::function<QStringList()> source)
{
    m_nameSource = std::move(source);
}

void CCreatePortfolioKeyboard::initPortfolioModelList()
{
    m_names->setStringList(m_nameSource ? m_nameSource() : QStringList());
}

QStringList CCreatePortfolioKeyboard::portfolioNames() const
{
    return m_names->stringList();
}

bool CCreatePortfolioKeyboard::isCreatePortfolio() const
{
    return m_check->isChecked();
}

QString CCreatePortfolioKeyboard::getPortfolioNameText() const
{
    return m_nameEdit->text().trimmed();
}

void CCreatePortfolioKeyboard::setPortfolioNameText(const QString &name)
{
    m_nameEdit->setText(name);
    m_committedName = name;
}

void CCreatePortfolioKeyboard::setCheckAndEnable(bool checked, bool enabled)
{
    m_check->setChecked(checked);
    setEnabled(enabled);
}

void CCreatePortfolioKeyboard::notifyChange()
{
    m_committedName = m_nameEdit->text();
    deliverEvent(60, m_id, m_check->isChecked() ? 1 : 0, getPortfolioNameText(), nullptr);
}

} // namespace WK
