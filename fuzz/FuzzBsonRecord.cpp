// A BSON record as the client's services hand it over, read through IData: the first byte says
// whether it is an instruction for the panel (COrderCommand, with its lines and hedge object) or
// an update of the first stock account's money (CAccountDetail over the account's current one).
// Bytes that are no valid BSON document never reach a record: the data layer refuses them.
#include "CFuzzPanelHost.h"

#include "CAccountData.h"
#include "CTradeClient.h"
#include "CAccount.h"
#include "CUserConfig.h"

#include "CAccountDetail.h"
#include "CAccountInfo.h"
#include "CBasketHedgeParam.h"
#include "CCodeOrderParam.h"
#include "COrderCommand.h"
#include "COrderSetting.h"

#include <mongo/bson/bson_validate.h>

#include <boost/make_shared.hpp>

#include <vector>

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    CFuzzPanelHost::instance();
    return 0;
}

namespace {

// Every record the panel reads from BSON, read whole and as an update of a filled one.
void readAsEveryRecord(const bson::BSONObj &obj)
{
    ttservice::COrderCommand command;
    command.bsonValueFromObj(obj);
    command.bsonValueFromObj(obj, true, &command);
    ttservice::CCodeOrderParam line;
    line.bsonValueFromObj(obj);
    ttservice::CBasketHedgeParam hedge;
    hedge.bsonValueFromObj(obj, true, nullptr);
    ttservice::CAccountInfo info;
    info.bsonValueFromObj(obj);
    ttservice::CAccountDetail detail;
    detail.bsonValueFromObj(obj);
    ttservice::COrderSetting setting;
    setting.bsonValueFromObj(obj);
    // What was read is written and read again, as a record travels on.
    command.bsonValueFromObj(command.toBson());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 6)
        return 0;
    const char *bytes = reinterpret_cast<const char *>(data + 1);
    const size_t length = size - 1;
    if (!bson::validateBSON(bytes, length).isOK())
        return 0;
    std::vector<char> owned(bytes, bytes + length);
    const bson::BSONObj obj(owned.data());
    if (static_cast<size_t>(obj.objsize()) != length)
        return 0;
    readAsEveryRecord(obj);

    std::unique_ptr<TC::CBasketOperationPanel> panel = CFuzzPanelHost::instance().newPanel();
    if (data[0] & 1) {
        const auto account = TC::getUserConfig()->getAccountData(QStringLiteral("stk-001"));
        const auto accountData = account ? account->getAccountData() : nullptr;
        const auto current = accountData ? accountData->getAccountDetail() : nullptr;
        if (!current)
            return 0;
        ttservice::CAccountDetail detail;
        detail.bsonValueFromObj(obj, true, current.get());
        accountData->setAccountDetail(detail);
        panel->requestAccount(*account);
        CFuzzPanelHost::settle();
    } else {
        auto command = boost::make_shared<ttservice::COrderCommand>();
        command->bsonValueFromObj(obj);
        TC::CTradeClient::instance()->addCommand(command);
        panel->setSingleCommand(command->getKey());
        CFuzzPanelHost::settle();
    }
    CFuzzPanelHost::pressOrderButton(*panel);
    panel->param();
    return 0;
}
