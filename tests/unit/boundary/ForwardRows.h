#pragma once

/// @file
/// The slots that send a request, each with a value of its own for every argument.

#include <future>
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

/// Everything that the slots of this file write to.
struct ForwardOutputs {
    std::string text;
    DevChannelInfo channelInfo;
    DevDetailInfo detail;
    ServerInfo serverInfo;
    P2PUserInfo userInfo;
    P2PDevInfo devInfo;
    std::vector<P2PServerAddr> servers;
    DeviceList list;
    RecordFileList files;
    ConfigInfo config;
    TransparentMsgDetail message;
    BWCheckInfo bandwidth;
    std::future<int32_t> future;
};

/// A slot that sends a request: each argument has a value of its own.
struct ForwardRow {
    const char* name;
    int (*call)(IVantixDataCenter& d, ForwardOutputs& o, bool retried);
    const char* path;                     ///< Method and path.
    std::vector<std::string> parameters;  ///< Those that the arguments become.
    bool takesRetried = false;
    int unreachable = 100007;  ///< The result when the transfer fails with code 7,
    int expired = 310002;      ///< and when the access token has expired.
};

/// Those of details and servers, of lists and account, of tokens and recordings.
const std::vector<ForwardRow>& DetailForwards();
const std::vector<ForwardRow>& ListForwards();
const std::vector<ForwardRow>& RecordingForwards();

}  // namespace vantix::test
