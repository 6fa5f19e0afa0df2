#include "OrderSettingText.h"

#include <gtest/gtest.h>

using ttservice::COrderSetting;

TEST(OrderSettingText, RoundTripKeepsEveryField)
{
    COrderSetting setting;
    setting.m_stepIsAbsolute = false;
    setting.m_stepValue = 0.02;
    setting.m_stepRate = 0.005;
    setting.m_keepValidTime = true;
    setting.m_validSeconds = 90;
    setting.m_stepFlag = 2;
    setting.m_startTime = 1704159000;
    setting.m_endTime = 1704166200;

    const QString text = TC::orderSettingToString(setting);
    const COrderSetting back = TC::orderSettingFromString(text);
    EXPECT_TRUE(back.isEqual(setting)) << text.toStdString();
    EXPECT_EQ(back.m_validSeconds, 90);
    EXPECT_DOUBLE_EQ(back.m_stepRate, 0.005);
    EXPECT_EQ(back.m_endTime, 1704166200);
}

TEST(OrderSettingText, TextAvoidsTheSeparatorsOfTheParameterStrings)
{
    const QString text = TC::orderSettingToString(COrderSetting());
    EXPECT_FALSE(text.isEmpty());
    for (const QChar separator : {QLatin1Char('|'), QLatin1Char('/'), QLatin1Char('%'), QLatin1Char('='),
                                  QLatin1Char('*'), QLatin1Char('\n')})
        EXPECT_FALSE(text.contains(separator)) << text.toStdString();
}

TEST(OrderSettingText, BadTextGivesTheDefaultSetting)
{
    EXPECT_TRUE(TC::orderSettingFromString(QStringLiteral("not json")).isEqual(COrderSetting()));
    EXPECT_TRUE(TC::orderSettingFromString(QString()).isEqual(COrderSetting()));
}
