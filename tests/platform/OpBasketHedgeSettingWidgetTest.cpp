#include "COpBasketFutureParamsWidget.h"
#include "COpBasketHedgeSettingWidget.h"
#include "EventRecorder.h"
#include "SubstituteFixture.h"

#include "CComboBox.h"
#include "CParameterCell.h"
#include "CPushButton.h"

#include <gtest/gtest.h>

namespace {

class OpBasketHedgeSettingWidget : public SubstituteTest
{
protected:
    // A form with its hedge block, and the pop-up made as the form makes it: with the form as
    // parent and no block given.
    void SetUp() override
    {
        SubstituteTest::SetUp();
        m_block = new TC::COpBasketFutureParamsWidget(6, 1, &m_form);
        m_block->setParam(QStringLiteral("IF2401,100,1,5"));
        m_popup = new TC::COpBasketHedgeSettingWidget(&m_form);
        m_popup->load();
    }

    WK::CPushButton *button(const QString &text) const
    {
        for (WK::CPushButton *b : m_popup->findChildren<WK::CPushButton *>()) {
            if (b->text() == text)
                return b;
        }
        return nullptr;
    }

    EventRecorder m_form;
    TC::COpBasketFutureParamsWidget *m_block = nullptr;
    TC::COpBasketHedgeSettingWidget *m_popup = nullptr;
};

TEST_F(OpBasketHedgeSettingWidget, loadShowsTheValuesOfTheFormsBlock)
{
    EXPECT_EQ(m_popup->hedgeWidget(), m_block);
    EXPECT_EQ(m_popup->hedgeTypeCombo()->currentData().toInt(), TC::COpBasketFutureParamsWidget::HT_SYNCHRONOUS);
    EXPECT_EQ(m_popup->volumeCell()->toInt(), 5);
}

TEST_F(OpBasketHedgeSettingWidget, okWritesTheEditsBackWithoutAnEvent)
{
    m_popup->hedgeTypeCombo()->setCurrentIndex(m_popup->hedgeTypeCombo()->findData(-1));
    m_popup->volumeCell()->setInt(0);

    button(QStringLiteral("确定"))->click();

    EXPECT_EQ(m_block->param(), QStringLiteral("IF2401,100,-1,0"));
    EXPECT_EQ(m_popup->result(), QDialog::Accepted);
    EXPECT_TRUE(m_form.seen.empty());
}

TEST_F(OpBasketHedgeSettingWidget, cancelLeavesTheBlockAsItWas)
{
    m_popup->volumeCell()->setInt(42);

    button(QStringLiteral("取消"))->click();

    EXPECT_EQ(m_block->contractVolume(), 5);
    EXPECT_EQ(m_popup->result(), QDialog::Rejected);
}

} // namespace
