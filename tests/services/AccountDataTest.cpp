#include "CAccountData.h"
#include "CProductNetValue.h"

#include "Fields.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

using namespace ttservice;

namespace {

boost::shared_ptr<CAccountData> makeData()
{
    boost::shared_ptr<CAccountInfo> info(new CAccountInfo);
    info->m_accountKey = "acc1";
    return boost::shared_ptr<CAccountData>(new CAccountData(info));
}

} // namespace

TEST(AccountDataLock, IsRecursiveOnOneThreadAndOtherThreadsWaitUntilItIsReleased)
{
    const boost::shared_ptr<CAccountData> data = makeData();
    std::atomic<bool> released{false};
    std::future<bool> reader;
    {
        CAccountData::Lock lock(data);
        CAccountData::Lock inner(*data);
        EXPECT_EQ(data->getAccountInfo()->getKey(), "acc1") << "getters work under the lock";
        reader = std::async(std::launch::async, [&] {
            CAccountData::Lock other(data);
            return released.load();
        });
        EXPECT_EQ(reader.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
        released = true;
    }
    EXPECT_TRUE(reader.get());
}

// A pushed record replaces the one of its key: a newer net value is the only one left.
TEST(AccountData, ARecordReplacesTheOneOfItsKey)
{
    const boost::shared_ptr<CAccountData> data = makeData();
    for (const double value : {1.25e6, 2.0}) {
        boost::shared_ptr<CProductNetValue> netValue(new CProductNetValue);
        netValue->m_productId = 7;
        netValue->m_netValue = value;
        data->setData(DATA_TYPE_PRODUCT_NET_VALUE, netValue);
    }
    const auto found = boost::dynamic_pointer_cast<CProductNetValue>(
        data->getData(DATA_TYPE_PRODUCT_NET_VALUE, CProductNetValue::genKey(7)));
    ASSERT_TRUE(found);
    EXPECT_EQ(fields(found->m_netValue, data->getVector(DATA_TYPE_PRODUCT_NET_VALUE).size(),
                     !data->getData(DATA_TYPE_POSITION_DETAIL, CProductNetValue::genKey(7))),
              "2|1|true");
}
