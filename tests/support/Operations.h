#pragma once

/// @file
/// All operations of the interface as one table: slot, name, and how each is called with given arguments.

#include <array>
#include <cstdint>
#include <future>
#include <iosfwd>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "vantix/IVantixDataCenter.h"
#include "vantix/records/BWCheckInfo.h"
#include "vantix/records/CloudFileQuery.h"
#include "vantix/records/ConfigInfo.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"
#include "vantix/records/DeviceList.h"
#include "vantix/records/P2PDevInfo.h"
#include "vantix/records/P2PUserInfo.h"
#include "vantix/records/RecordFileList.h"
#include "vantix/records/ServerInfo.h"
#include "vantix/records/TransparentMsgDetail.h"

namespace vantix::test {

/// What operations are called with: each takes the members that its declaration names. The defaults are those of a
/// host that asks for the first camera of the sample account.
struct Arguments {
    std::string serial = "C10000001";
    int ch = 1;  ///< Also where an operation calls it a local index.
    std::string token{};
    bool retried = false;
    bool force = false;  ///< A fetch although a cached copy is there.

    int pageStart = 0;  ///< Also the offset of the list of shared devices.
    int pageSize = 50;
    std::string bizType = "GB";
    std::string platFormId = "P-7";
    TimeSpan span{"2024-01-02 00:00:00", "2024-01-02 23:59:59"};
    std::string alarmId = "AL1001";
    int alarmType = -1;
    int alarmStatus = 2;
    std::string msgSeq = "M0000001";
    int videoLevel = 0;
    bool playback = false;
    int spaceId = 77;
    int streamTokens = 4;
    int bandwidthType = 1;
    std::string checkTime = "1700000000";

    int recordType = 2;
    int location = 1;
    bool withLocation = true;
    bool sdkPath = false;
    int videoType = 0;
    CloudFileQuery cloudQuery{"2024-01-02", "", 10};
    std::string jsonQuery = R"({"deviceSerial":"C10000001"})";
    std::string fileName = "gate.jpg";
    int fileType = 1;
    int expireDays = 7;
    int urlExpireTime = 3600;
    std::string uploadBizType = "alarm";
    std::string url{};
    std::string localPath{};

    std::string refreshSessionId{};
    std::string text{};                           ///< Of settings: a text, an address, an id, a JSON array of tokens.
    std::optional<std::string> consumerDomain{};  ///< Of `setDomain`, where it is another one than `text`.
    std::string channelText = "1";
    int number = 1;  ///< Of settings and questions that take one.
    int tkType = 3;

    /// The same texts and the same number for everything.
    static Arguments AllOf(const std::string& serial, const std::string& token, const std::string& text, int number);
};

/// Everything that an operation may write to.
struct Outputs {
    std::string text{};
    const std::string* live = nullptr;  ///< The reference that a getter handed out.
    DevChannelInfo channel{};
    DevDetailInfo detail{};
    ServerInfo servers{};
    P2PUserInfo user{};
    P2PDevInfo p2pDevice{};
    std::vector<P2PServerAddr> p2pServers{};
    DeviceList devices{};
    RecordFileList files{};
    ConfigInfo config{};
    TransparentMsgDetail message{};
    BWCheckInfo bandwidth{};
    std::array<char, 4097> buffer{};
    std::future<int32_t> future{};
};

/// One operation. `call` returns the code of those that have one, 1 or 0 of those that say true or false, and else 0.
struct Operation {
    int slot;
    const char* name;
    int (*call)(IVantixDataCenter& center, const Arguments& arguments, Outputs& outputs);
};

void PrintTo(const Operation& operation, std::ostream* out);

/// All of them but the destructor, in the order of their slots.
std::span<const Operation> Operations();

/// The operation of this name; a name that no slot has is a `std::out_of_range`.
const Operation& OperationNamed(const std::string& name);

/// What a call returned.
struct CallResult {
    int returned = 0;      ///< By the operation itself.
    bool started = false;  ///< Whether it handed back a future.
    int result = 0;        ///< What the future yielded, or else `returned`.
};

/// Calls the operation and waits for its future, if it hands one back.
CallResult Call(IVantixDataCenter& center, const Operation& operation, const Arguments& arguments, Outputs& outputs);

/// The same by name.
CallResult Call(IVantixDataCenter& center, const std::string& operation, const Arguments& arguments, Outputs& outputs);

/// The same, for a caller that does not look at what is written; the result alone.
int Call(IVantixDataCenter& center, const std::string& operation, const Arguments& arguments);

/// The same, while other threads change settings; the result alone. It does not look at the mode behind the pointer of
/// `getPermissionMode`: that would race by contract.
int CallAmongThreads(IVantixDataCenter& center, const Operation& operation, const Arguments& arguments,
                     Outputs& outputs);

}  // namespace vantix::test
