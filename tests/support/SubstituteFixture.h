#pragma once

#include "CMsgService.h"
#include "SubstituteReset.h"
#include "ToolkitRecords.h"

#include <QStringList>

#include <gtest/gtest.h>

// Every test that touches the client's services starts from empty substitutes and an empty
// record of message boxes and dialogs.
class SubstituteTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        TC::resetAllSubstitutes();
        WK::resetToolkitRecords();
    }
};

// The texts of the messages shown since the last reset, '|' between them.
inline QString shownMessages()
{
    QStringList texts;
    for (const auto &call : TC::getMsgService()->shownMessages())
        texts << call.m_text;
    return texts.join(QLatin1Char('|'));
}
