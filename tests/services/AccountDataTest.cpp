#include "CAccountData.h"
#include "CPositionDetail.h"
#include "CProductNetValue.h"

#include "Fields.h"
#include "SampleMarket.h"

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

CPositionStatics position(const char *code, double volume, double canUse) { return sample::held("SZ", code, volume, canUse); }

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

TEST(AccountData, PositionsAreFoundByInstrumentAndListedAsDetails)
{
    const boost::shared_ptr<CAccountData> data = makeData();
    data->setPositionStatics({position("000001", 1000, 600), position("000002", 50, 50)});
    const boost::shared_ptr<CPositionStatics> found = data->getPositionStatic("SZ", "000002");
    ASSERT_TRUE(found);
    EXPECT_DOUBLE_EQ(found->m_volume, 50);
    EXPECT_FALSE(data->getPositionStatic("SH", "000002"));

    const std::vector<boost::shared_ptr<IData>> details = data->getVector(DATA_TYPE_POSITION_DETAIL);
    ASSERT_EQ(details.size(), 2u);
    const auto first = boost::dynamic_pointer_cast<CPositionDetail>(details[0]);
    ASSERT_TRUE(first);
    EXPECT_EQ(fields(first->m_stockCode, first->m_volume, first->m_sellableVolume), "000001|1000|600");
}

TEST(AccountData, RecordsAreFoundByTypeAndKey)
{
    const boost::shared_ptr<CAccountData> data = makeData();
    boost::shared_ptr<CProductNetValue> netValue(new CProductNetValue);
    netValue->m_productId = 7;
    netValue->m_netValue = 1.25e6;
    data->setData(DATA_TYPE_PRODUCT_NET_VALUE, netValue);

    const auto found = boost::dynamic_pointer_cast<CProductNetValue>(
        data->getData(DATA_TYPE_PRODUCT_NET_VALUE, CProductNetValue::genKey(7)));
    ASSERT_TRUE(found);
    EXPECT_DOUBLE_EQ(found->m_netValue, 1.25e6);
    EXPECT_FALSE(data->getData(DATA_TYPE_PRODUCT_NET_VALUE, CProductNetValue::genKey(8)) || data->getData(DATA_TYPE_POSITION_DETAIL, CProductNetValue::genKey(7)))
        << "another key or another type finds nothing";

    boost::shared_ptr<CProductNetValue> newer(new CProductNetValue);
    newer->m_productId = 7;
    newer->m_netValue = 2.0;
    data->setData(DATA_TYPE_PRODUCT_NET_VALUE, newer);
    EXPECT_EQ(data->getVector(DATA_TYPE_PRODUCT_NET_VALUE).size(), 1u);

    // The money record takes the account's key.
    CAccountDetail detail;
    detail.m_available = 100.0;
    data->setAccountDetail(detail);
    ASSERT_TRUE(data->getAccountDetail());
    EXPECT_EQ(data->getAccountDetail()->m_accountKey, "acc1");
    data->clearAccountDetail();
    EXPECT_FALSE(data->getAccountDetail());
}
