#include "CBasketImportDialog.h"

#include "COpBasketsComboBox.h"

#include "CBasketSetting.h"
#include "CUserConfig.h"

#include "CStandardTable.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace TC {
namespace {

QString summaryOf(const QString &fileName, const CBasketFileReader::Result &result)
{
    const int refused = result.m_rows.size() - result.m_taken;
    QString weights;
    if (!result.m_hasWeights)
        weights = QStringLiteral("文件没有权重，按等权");
    else
        weights = QStringLiteral("权重合计 %1%（按%2读）")
                      .arg(result.m_weightSum, 0, 'f', 2)
                      .arg(result.m_percentWeights ? QStringLiteral("百分数") : QStringLiteral("小数"));
    return QStringLiteral("%1：共 %2 行，导入 %3 行，未导入 %4 行；%5")
        .arg(fileName)
        .arg(result.m_rows.size())
        .arg(result.m_taken)
        .arg(refused)
        .arg(weights);
}

QString directionText(const CBasketStockData &data)
{
    return data.m_operationType == ttservice::OT_SELL ? QStringLiteral("卖出") : QStringLiteral("买入");
}

} // namespace

CBasketImportDialog::CBasketImportDialog(const QString &fileName, const CBasketFileReader::Result &result,
                                         ttservice::EVQBrokerType brokerType, QWidget *parent)
    : WK::CCommonDialog(parent)
    , m_result(result)
    , m_brokerType(brokerType)
{
    setObjectName(QStringLiteral("basket_import_dialog"));
    auto *content = new QWidget(this);
    m_summary = new QLabel(summaryOf(fileName, result), content);
    m_table = new WK::CStandardTable(content, WK::CBaseNormalTable::ST_SINGLE_ROW);
    m_nameEdit = new QLineEdit(QFileInfo(fileName).completeBaseName(), content);
    m_replaceBox = new QCheckBox(QStringLiteral("替换同名篮子"), content);
    m_refusalLabel = new QLabel(content);
    m_okButton = new QPushButton(QStringLiteral("确定"), content);
    m_cancelButton = new QPushButton(QStringLiteral("取消"), content);

    m_summary->setWordWrap(true);
    m_refusalLabel->setStyleSheet(QStringLiteral("color: #d0342c"));
    m_refusalLabel->setWordWrap(true);
    m_okButton->setDefault(true);
    m_table->setMinimumSize(740, 320);
    const Qt::Alignment left = Qt::AlignLeft | Qt::AlignVCenter;
    const Qt::Alignment right = Qt::AlignRight | Qt::AlignVCenter;
    const struct {
        const char *title;
        int width;
        Qt::Alignment alignment;
    } columns[] = {{"行", 44, right},     {"代码", 116, left},     {"名称", 90, left}, {"方向", 48, left},
                   {"权重(%)", 92, right}, {"数量", 70, right}, {"结果", 260, left}};
    for (const auto &c : columns)
        m_table->addColumn(QString::fromUtf8(c.title), c.width, c.alignment);
    m_table->beginUpdate();
    for (const CBasketFileReader::Row &row : result.m_rows) {
        const bool taken = row.m_outcome == CBasketFileReader::Taken;
        m_table->appendRow(QStringList{QString::number(row.m_line), taken ? row.m_data.key() : row.m_codeText,
                                       row.m_data.m_stockName, taken ? directionText(row.m_data) : QString(),
                                       taken ? QString::number(row.m_data.m_weight, 'f', 4) : QString(),
                                       taken ? QString::number(row.m_data.m_volume) : QString(),
                                       taken ? CBasketFileReader::outcomeText(row.m_outcome) : row.m_reason});
    }
    m_table->endUpdate();

    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(16, 14, 16, 12);
    column->setSpacing(8);
    column->addWidget(m_summary);
    column->addWidget(m_table, 1);
    auto *nameRow = new QHBoxLayout;
    nameRow->addWidget(new QLabel(QStringLiteral("篮子名称"), content));
    nameRow->addWidget(m_nameEdit, 1);
    nameRow->addWidget(m_replaceBox);
    column->addLayout(nameRow);
    column->addWidget(m_refusalLabel);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_okButton);
    buttons->addWidget(m_cancelButton);
    column->addLayout(buttons);

    connect(m_okButton, &QPushButton::clicked, this, [this] { tryOK(); });
    connect(m_cancelButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_nameEdit, &QLineEdit::textChanged, this, [this] { m_refusalLabel->clear(); });
    connect(m_replaceBox, &QCheckBox::toggled, this, [this] { m_refusalLabel->clear(); });

    setTitle(QStringLiteral("导入篮子"));
    setInnerWidget(content);
}

CBasketImportDialog::~CBasketImportDialog() = default;

QString CBasketImportDialog::basketName() const
{
    return m_nameEdit->text().trimmed();
}

QString CBasketImportDialog::refusal() const
{
    if (m_result.m_taken == 0)
        return QStringLiteral("没有可导入的行");
    if (!m_result.weightsAddUp())
        return QStringLiteral("导入行的权重合计 %1%，与 100% 相差超过 %2 个百分点：请改正文件后再导入")
            .arg(m_result.m_weightSum, 0, 'f', 2)
            .arg(CBasketFileReader::WEIGHT_TOLERANCE);
    const QString name = basketName();
    if (name.isEmpty())
        return QStringLiteral("请输入篮子名称");
    if (COpBasketsComboBox::isFixedBasketName(name) || name == COpBasketsComboBox::noBasketText())
        return QStringLiteral("“%1”是保留名称，请换一个").arg(name);
    const CUserConfig *config = getUserConfig();
    if (config && config->baskets().contains(name)) {
        const CBasketSetting &stored = *config->baskets().constFind(name);
        if (stored.m_basketKind != 0)
            return QStringLiteral("“%1”是指数或 ETF 篮子，不能替换").arg(name);
        if (!m_replaceBox->isChecked())
            return QStringLiteral("已有篮子“%1”：换一个名称，或勾选“替换同名篮子”").arg(name);
    }
    return QString();
}

bool CBasketImportDialog::checkOK()
{
    showRefusal();
    return refusal().isEmpty();
}

void CBasketImportDialog::onOK()
{
    CUserConfig *config = getUserConfig();
    if (!config)
        return;
    CBasketSetting basket;
    basket.m_name = basketName();
    basket.m_basketKind = 0;
    basket.m_brokerType = m_brokerType;
    basket.m_stocks = m_result.takenStocks();
    config->baskets()[basket.m_name] = basket;
}

QStringList CBasketImportDialog::recordTexts() const
{
    return {m_summary->text(), basketName(), refusal()};
}

void CBasketImportDialog::applyScriptedInput(const QString &input)
{
    m_nameEdit->setText(input.section(QLatin1Char('\n'), 0, 0));
    m_replaceBox->setChecked(input.section(QLatin1Char('\n'), 1, 1) == QStringLiteral("替换"));
}

void CBasketImportDialog::showRefusal()
{
    m_refusalLabel->setText(refusal());
}

} // namespace TC
