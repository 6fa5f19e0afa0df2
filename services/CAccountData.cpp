#include "CAccountData.h"

#include "CPositionDetail.h"

#include <cmath>
#include <utility>

namespace ttservice {

CAccountData::Lock::Lock(const CAccountData &data)
    : m_mutex(&data.m_mutex)
{
    m_mutex->lock();
}

CAccountData::Lock::Lock(const boost::shared_ptr<CAccountData> &data)
    : m_mutex(data ? &data->m_mutex : nullptr)
{
    if (m_mutex)
        m_mutex->lock();
}

CAccountData::Lock::~Lock()
{
    if (m_mutex)
        m_mutex->unlock();
}

CAccountData::CAccountData(boost::shared_ptr<CAccountInfo> info)
    : m_info(std::move(info))
{
}

boost::shared_ptr<CAccountInfo> CAccountData::getAccountInfo() const
{
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    return m_info;
}

boost::shared_ptr<CAccountDetail> CAccountData::getAccountDetail() const
{
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    return m_detail;
}

boost::shared_ptr<IData> CAccountData::getData(int dataType, const std::string &key) const
{
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    const auto it = m_records.find(dataType);
    if (it == m_records.end())
        return {};
    for (const boost::shared_ptr<IData> &record : it->second) {
        if (record && record->getKey() == key)
            return record;
    }
    return {};
}

std::vector<boost::shared_ptr<IData>> CAccountData::getVector(int dataType) const
{
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    const auto it = m_records.find(dataType);
    return it == m_records.end() ? std::vector<boost::shared_ptr<IData>>() : it->second;
}

boost::shared_ptr<CPositionStatics> CAccountData::getPositionStatic(const std::string &market,
                                                                    const std::string &code) const
{
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    for (const boost::shared_ptr<CPositionStatics> &position : m_positions) {
        if (position->m_market == market && position->m_stockCode == code)
            return position;
    }
    return {};
}

std::vector<boost::shared_ptr<CPositionStatics>> CAccountData::getPositionStatics() const
{
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    return m_positions;
}

void CAccountData::setAccountDetail(const CAccountDetail &detail)
{
    auto copy = boost::shared_ptr<CAccountDetail>(new CAccountDetail(detail));
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    if (m_info && copy->m_accountKey.empty())
        copy->m_accountKey = m_info->getKey();
    m_detail = copy;
}

void CAccountData::clearAccountDetail()
{
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    m_detail.reset();
}

void CAccountData::setPositionStatics(const std::vector<CPositionStatics> &positions)
{
    std::vector<boost::shared_ptr<CPositionStatics>> statics;
    std::vector<boost::shared_ptr<IData>> details;
    for (const CPositionStatics &position : positions) {
        statics.push_back(boost::shared_ptr<CPositionStatics>(new CPositionStatics(position)));
        boost::shared_ptr<CPositionDetail> detail(new CPositionDetail);
        detail->m_market = position.m_market;
        detail->m_stockCode = position.m_stockCode;
        detail->m_stockName = position.m_stockName;
        detail->m_volume = static_cast<int64_t>(std::llround(position.m_volume));
        detail->m_sellableVolume = static_cast<int64_t>(std::llround(position.m_canUseVolume));
        details.push_back(detail);
    }
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    m_positions = std::move(statics);
    m_records[DATA_TYPE_POSITION_DETAIL] = std::move(details);
}

void CAccountData::setData(int dataType, boost::shared_ptr<IData> record)
{
    if (!record)
        return;
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    std::vector<boost::shared_ptr<IData>> &records = m_records[dataType];
    const std::string key = record->getKey();
    for (boost::shared_ptr<IData> &existing : records) {
        if (existing && existing->getKey() == key) {
            existing = std::move(record);
            return;
        }
    }
    records.push_back(std::move(record));
}

void CAccountData::setVector(int dataType, std::vector<boost::shared_ptr<IData>> records)
{
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    m_records[dataType] = std::move(records);
}

} // namespace ttservice
