#pragma once

#include "SubstituteReset.h"
#include "ToolkitRecords.h"

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
