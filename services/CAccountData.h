#pragma once

#include "BasketServicesExport.h"
#include "CAccountDetail.h"
#include "CAccountInfo.h"
#include "CPositionStatics.h"
#include "IData.h"

#include <boost/shared_ptr.hpp>

#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace ttservice {

// Data types of getData and getVector.
enum EAccountDataType : int {
    DATA_TYPE_POSITION_DETAIL = 545,    // CPositionDetail, one per position
    DATA_TYPE_PRODUCT_NET_VALUE = 580,  // CProductNetValue, keyed by CProductNetValue::genKey
    DATA_TYPE_EXCHANGE_RATE = 602,      // CExchangeRate of a connect account, one record
    DATA_TYPE_CREDIT_SLO = 13904,       // what the credit accounts' refresh query asks for
};

// Everything the client knows of one account: its record, its money, its positions and the
// further data kinds of the data centre by type number.
//
// The data is refreshed by the client's threads; a reader that reads more than one thing and
// needs them to agree holds a CAccountData::Lock for the length of the read. Every single
// getter is safe on its own.
class BASKET_SERVICES_EXPORT CAccountData
{
public:
    // Holds the account data's recursive mutex while it lives: the same thread may take it again
    // (and every getter takes it too), other threads wait.
    class Lock
    {
    public:
        explicit Lock(const CAccountData &data);
        // A null pointer locks nothing.
        explicit Lock(const boost::shared_ptr<CAccountData> &data);
        ~Lock();
        Lock(const Lock &) = delete;
        Lock &operator=(const Lock &) = delete;

    private:
        std::recursive_mutex *m_mutex = nullptr;
    };

    explicit CAccountData(boost::shared_ptr<CAccountInfo> info);
    virtual ~CAccountData() = default;

    boost::shared_ptr<CAccountInfo> getAccountInfo() const;
    // The money of the account; null until the client has it.
    boost::shared_ptr<CAccountDetail> getAccountDetail() const;
    // The record of this type with this key (IData::getKey), null if there is none.
    boost::shared_ptr<IData> getData(int dataType, const std::string &key) const;
    // All records of this type, in the order they came; cast each to the type's record.
    std::vector<boost::shared_ptr<IData>> getVector(int dataType) const;
    // The position statics of one instrument, null if the account holds none.
    boost::shared_ptr<CPositionStatics> getPositionStatic(const std::string &market, const std::string &code) const;
    // All position statics, in the order they came.
    std::vector<boost::shared_ptr<CPositionStatics>> getPositionStatics() const;

    // --- control surface (tests and the demo host) ---
    void setAccountDetail(const CAccountDetail &detail);
    void clearAccountDetail();
    // Replaces the positions. Also lists each as a CPositionDetail (data type 545) with the
    // same volume and m_canUseVolume as its sellable volume, as the client's query would.
    void setPositionStatics(const std::vector<CPositionStatics> &positions);
    // Adds a record of this type, replacing one with the same key.
    void setData(int dataType, boost::shared_ptr<IData> record);
    // Replaces all records of this type.
    void setVector(int dataType, std::vector<boost::shared_ptr<IData>> records);

private:
    mutable std::recursive_mutex m_mutex;
    boost::shared_ptr<CAccountInfo> m_info;
    boost::shared_ptr<CAccountDetail> m_detail;
    std::vector<boost::shared_ptr<CPositionStatics>> m_positions;
    std::map<int, std::vector<boost::shared_ptr<IData>>> m_records;
};

} // namespace ttservice
