#pragma once

#include "CSampleData.h"

// Fills the client's services with a believable working day: a user of the chosen role with
// stock, credit, futures and connect accounts holding money and positions, the sample market's
// instruments, stored baskets, black and white lists and the deployment's modules.
class CSampleClient final
{
public:
    static void install(const CSampleData &data, int role);
};
