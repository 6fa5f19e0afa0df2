#include "COperationPanel.h"

namespace TC {

COperationPanel::COperationPanel(int panelId, QWidget *parent)
    : ITradeDockableWidget(QStringLiteral("operation_panel"), parent), m_panelId(panelId)
{
}

COperationPanel::~COperationPanel() = default;

void COperationPanel::batchPositions(QVector<CPositionParam>, QFlags<ETempBatchOrderFlag>)
{
}

void COperationPanel::setCurrentOperationType(quint64)
{
}

void COperationPanel::setSingleCommand(std::string)
{
}

void COperationPanel::setSplitCommand(std::string, const sSplitCmdInfo &)
{
}

void COperationPanel::setEnableCmdOrder(std::string, bool)
{
}

void COperationPanel::patchCommand(QString)
{
}

void COperationPanel::doSlotBasketSettingChanged()
{
}

void COperationPanel::doSlotBasketContentChanged()
{
}

void COperationPanel::doSlotFillComposeLastBasket(QString)
{
}

} // namespace TC
