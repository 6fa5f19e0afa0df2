#include "COpBasketParamsEditWidget.h"

#include "CBasketListExporter.h"
#include "CBasketSizingSummary.h"
#include "CHpfOpConfirmWidget.h"

#include "CTradeClient.h"
#include "CUserConfig.h"
#include "CBaseDialog.h"
#include "CMessageBox.h"
#include "COrderParamTable.h"
#include "CWidgetList.h"
#include "TextHelpers.h"

#include <QDateTime>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMimeData>
#include <QPushButton>

namespace TC {

COpBasketParamsEditWidget::COpBasketParamsEditWidget(QWidget *parent)
    : WK::CBaseWidget(QStringLiteral("qmzd_lorvenhal_opbasketparamseditwidget"), false, parent)
{
    setMinimumWidth(150);
    createUi();
}

COpBasketParamsEditWidget::~COpBasketParamsEditWidget() = default;

void COpBasketParamsEditWidget::createUi()
{
    auto *list = new WK::CWidgetList(Qt::Vertical, this);
    list->setMargin(0, 0, 0, 0);
    list->setSpacing(0);
    auto *toolRow = new WK::CWidgetList(Qt::Horizontal, list);
    auto *exportButton = new QPushButton(QStringLiteral("导出"), toolRow);
    exportButton->setObjectName(QStringLiteral("basket_export_button"));
    exportButton->setToolTip(QStringLiteral("把列表按所见导出为 CSV 或 .xlsx 文件"));
    exportButton->setFixedSize(44, 22);
    connect(exportButton, &QPushButton::clicked, this, &COpBasketParamsEditWidget::slotExport);
    toolRow->setMargin(2, 1, 2, 1);
    toolRow->addStretchSpace(1);
    toolRow->addFixedWidget(exportButton, 0, 0);
    toolRow->setMinimumHeight(24);
    list->addFixedWidget(toolRow, 3, 0);
    m_opConfirmWidget = new CHpfOpConfirmWidget(list);
    connect(m_opConfirmWidget, &CHpfOpConfirmWidget::sigRemoveData, this, &COpBasketParamsEditWidget::slotRemoveData);
    connect(m_opConfirmWidget, &CHpfOpConfirmWidget::sigBasketSettingChanged, this,
            &COpBasketParamsEditWidget::sigbasketSettingChanged);
    // A full confirmation table of a basket list: menu actions and the direction switch.
    m_opConfirmWidget->setTradeType(4);
    m_opConfirmWidget->setOpConfirmType(1);
    list->addStretchWidget(m_opConfirmWidget, 1, 3, 0);
    m_sizingSummary = new CBasketSizingSummary(list);
    m_sizingSummary->setTable(m_opConfirmWidget);
    list->addFixedWidget(m_sizingSummary, 3, 0);
    setInnerStretchWidget(list, 0, 0, 0, 0);
    setAcceptDrops(true);
}

void COpBasketParamsEditWidget::setWaitTest(bool wait)
{
    if (m_opConfirmWidget)
        m_opConfirmWidget->setWaitTest(wait);
}

void COpBasketParamsEditWidget::setBasketName(const QString &name)
{
    if (m_opConfirmWidget)
        m_opConfirmWidget->setBasketName(name);
    if (m_sizingSummary)
        m_sizingSummary->setBasketName(name);
}

void COpBasketParamsEditWidget::setLineEditable(bool editable)
{
    if (m_opConfirmWidget)
        m_opConfirmWidget->setLineEditable(editable);
}

void COpBasketParamsEditWidget::setAimedMoney(const QMap<QString, double> &aimed)
{
    if (m_sizingSummary)
        m_sizingSummary->setAimedMoney(aimed);
}

void COpBasketParamsEditWidget::setParam(const QString &text)
{
    if (m_opConfirmWidget)
        m_opConfirmWidget->setParam(text);
}

QString COpBasketParamsEditWidget::param() const
{
    return m_opConfirmWidget ? m_opConfirmWidget->param() : QString();
}

void COpBasketParamsEditWidget::loadParams(std::vector<ttservice::CCodeOrderParam> *list, quint64 word, bool canCustom)
{
    if (m_opConfirmWidget)
        m_opConfirmWidget->loadParams(list, word, canCustom, {}, {}, {}, {}, 0);
}

int COpBasketParamsEditWidget::tradeOpTypeToOptType(quint64 word)
{
    if (word == 512)
        return 18;
    if (word == 1024)
        return 19;
    return -1;
}

void COpBasketParamsEditWidget::setTradeOpType(quint64 word)
{
    if (!m_opConfirmWidget)
        return;
    m_opConfirmWidget->setTradeOperationType(word);
    m_opConfirmWidget->setOperationType(tradeOpTypeToOptType(word));
}

void COpBasketParamsEditWidget::setPasteDataFunc(const QString &hint, boost::function<void()> func)
{
    if (m_opConfirmWidget)
        m_opConfirmWidget->setPasteDataFunc(hint, std::move(func));
}

void COpBasketParamsEditWidget::updateOrderParams()
{
    if (m_opConfirmWidget)
        m_opConfirmWidget->updateParam();
}

ttservice::CCodeOrderParam *COpBasketParamsEditWidget::getParamByRowIndex(int row) const
{
    return m_opConfirmWidget ? m_opConfirmWidget->getParamByRowIndex(row) : nullptr;
}

std::vector<ttservice::CCodeOrderParam> COpBasketParamsEditWidget::getOrderParams() const
{
    return m_opConfirmWidget ? m_opConfirmWidget->getOrderParams() : std::vector<ttservice::CCodeOrderParam>();
}

void COpBasketParamsEditWidget::setCommand(const std::string &key, std::vector<ttservice::CCodeOrderParam> *list,
                                           quint64 word, bool canCustom, const sSplitCmdInfo &)
{
    m_commandKey = key;
    m_commandTradeOpType = word;
    if (!CTradeClient::instance()->getCommandByKey(key))
        return;
    if (m_opConfirmWidget)
        m_opConfirmWidget->loadParams(list, word, canCustom, {}, {}, {}, {}, 0);
}

void COpBasketParamsEditWidget::slotRemoveData(QVector<TC::CBasketStockData> rows)
{
    Q_EMIT sigRemoveData(rows);
}

bool COpBasketParamsEditWidget::exportList(const QString &path) const
{
    if (!m_opConfirmWidget || !m_opConfirmWidget->table() || path.isEmpty())
        return false;
    const CUserConfig *config = getUserConfig();
    const QString heading = CBasketListExporter::heading(
        m_opConfirmWidget->basketName(), m_opConfirmWidget->tradeOperationType(),
        QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")),
        config ? config->getUserName() : QString());
    using W = COpBasketConfirmWidget;
    const CBasketListExporter::Sheet sheet = CBasketListExporter::fromTable(
        *m_opConfirmWidget->table(),
        {W::COL_ACCOUNT, W::COL_MARKET, W::COL_CODE, W::COL_NAME, W::COL_OPERATION, W::COL_VOLUME, W::COL_LAST_PRICE,
         W::COL_COST, W::COL_STATUS},
        heading);
    QString error;
    if (CBasketListExporter::write(path, sheet, &error))
        return true;
    WK::CMessageBox::warning(0, const_cast<COpBasketParamsEditWidget *>(this), QStringLiteral("导出"), error);
    return false;
}

void COpBasketParamsEditWidget::slotExport()
{
    // Qt's file dialog is modal: a run without a user exports through exportList only.
    if (!WK::CBaseDialog::isInteractive())
        return;
    exportList(QFileDialog::getSaveFileName(this, QStringLiteral("导出列表"), QString(),
                                            QStringLiteral("CSV (*.csv);;Excel (*.xlsx)")));
}

void COpBasketParamsEditWidget::dragEnterEvent(QDragEnterEvent *event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.size() == 1 && urls.first().isLocalFile())
        event->acceptProposedAction();
}

void COpBasketParamsEditWidget::dropEvent(QDropEvent *event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.size() != 1 || !urls.first().isLocalFile())
        return;
    event->acceptProposedAction();
    Q_EMIT sigImportFile(urls.first().toLocalFile());
}

void COpBasketParamsEditWidget::keyPressEvent(QKeyEvent *event)
{
    if (WK::isKeyCharOrNum(event) && !(event->modifiers() & Qt::ControlModifier))
        Q_EMIT sig_bascketChange(event);
    QWidget::keyPressEvent(event);
}

} // namespace TC
