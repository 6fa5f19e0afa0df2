#include "CComboxNameWidget.h"

#include "CComboBox.h"
#include "CSimpleTextWidget.h"

#include <QAbstractItemView>
#include <QHBoxLayout>

namespace TC {
namespace {

constexpr int kRowHeight = 24;
constexpr int kNameSpacing = 6;

} // namespace

CComboxNameWidget::CComboxNameWidget(int id, const QString &name, QWidget *parent)
    : WK::CBaseWidget(QStringLiteral("combox_name_widget"), false, parent)
    , m_id(id)
{
    m_name = new WK::CSimpleTextWidget(0, name, this);
    m_combo = new WK::CComboBox(id, this);

    m_name->setFontKey(QStringLiteral("fnt_default_normal"));
    m_combo->setFontKey(QStringLiteral("fnt_default_normal"));
    m_name->setFixedHeight(kRowHeight);
    m_combo->setFixedHeight(kRowHeight);
    m_combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_combo->setMinimumContentsLength(4);
    m_combo->setAccessibleName(name);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kNameSpacing);
    layout->addWidget(m_name, 0, Qt::AlignVCenter);
    layout->addWidget(m_combo, 1, Qt::AlignVCenter);
}

CComboxNameWidget::~CComboxNameWidget() = default;

QString CComboxNameWidget::name() const
{
    return m_name->text();
}

void CComboxNameWidget::setName(const QString &name)
{
    m_name->setText(name);
    m_combo->setAccessibleName(name);
}

void CComboxNameWidget::setListViewWidth(int width)
{
    m_listViewWidth = width < 0 ? 0 : width;
    // The popup is never narrower than its view's minimum width, nor than the combo.
    m_combo->view()->setMinimumWidth(m_listViewWidth);
}

} // namespace TC
