// What records, return codes and requests are made of: plain structures without anything hidden, and 32-bit codes.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include "core/CVantixDataCenter.h"
#include "core/detail/DetailCaches.h"
#include "cserver/DeviceDetail.h"
#include "platform/Account.h"
#include "platform/DeviceDetail.h"
#include "platform/ResponseChecks.h"
#include "records/RefreshTokenInfo.h"
#include "records/RelayServerInfo.h"
#include "requests/RequestCall.h"
#include "transport/CRequest.h"
#include "vantix/IVantixDataCenter.h"
#include "vantix/records/BWCheckInfo.h"
#include "vantix/records/BelongDevInfo.h"
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
#include "vantix/records/VideoQualityInfo.h"
#include "vantix/records/VtmAddr.h"

namespace vantix::test {
namespace {

/// No virtual function, nothing private, no constructor of its own, and it may be copied.
template <class Record>
constexpr bool kIsPlain = std::is_aggregate_v<Record> && !std::is_polymorphic_v<Record> &&
                          std::is_default_constructible_v<Record> && std::is_copy_constructible_v<Record> &&
                          std::is_copy_assignable_v<Record> && std::is_nothrow_move_constructible_v<Record>;

template <class... Records>
constexpr bool kArePlain = (kIsPlain<Records> && ...);

static_assert(
    kArePlain<BWCheckInfo, BelongDevInfo, TimeSpan, CloudFileQuery, ConfigInfo, DevChannelInfo, DevDetailInfo>);
static_assert(
    kArePlain<DeviceListItem, DeviceList, P2PServerAddr, P2PDevInfo, P2PUserInfo, RecordFile, RecordFileList>);
static_assert(
    kArePlain<ServerInfo, TransparentMsgDetail, VideoQualityInfo, VtmAddr, RefreshTokenInfo, RelayServerInfo>);

/// Whether a member is of one of the types that records are made of.
template <class Record, class Field>
constexpr bool IsOneOf(Field Record::*) {
    return std::is_same_v<Field, int32_t> || std::is_same_v<Field, int64_t> || std::is_same_v<Field, bool> ||
           std::is_same_v<Field, std::string> || std::is_same_v<Field, std::vector<VtmAddr>> ||
           std::is_same_v<Field, std::vector<VideoQualityInfo>>;
}
static_assert(IsOneOf(&DevChannelInfo::videoLevel) && IsOneOf(&DevChannelInfo::deviceSerial));
static_assert(IsOneOf(&DevChannelInfo::iIsTrust) && IsOneOf(&DevChannelInfo::videoQualityInfos));
static_assert(IsOneOf(&DevDetailInfo::tCacheTime) && IsOneOf(&DevDetailInfo::isUpdate));
static_assert(IsOneOf(&DevDetailInfo::isFromCache) && IsOneOf(&DevDetailInfo::iRequestCost));
static_assert(IsOneOf(&BelongDevInfo::deviceSerial) && IsOneOf(&BelongDevInfo::vtmBackups));

// Return codes are signed and have 32 bits, in every layer.
template <class Result, class... Arguments>
Result ResultOfFunction(Result (*)(Arguments...));
template <class Result, class Class, class... Arguments>
Result ResultOfFunction(Result (Class::*)(Arguments...));
template <class Result, class Class, class... Arguments>
Result ResultOfFunction(Result (Class::*)(Arguments...) const);

template <auto kFunction>
constexpr bool kReturnsCode = std::is_same_v<int32_t, decltype(ResultOfFunction(kFunction))>;

static_assert(std::is_same_v<std::underlying_type_t<ReturnCode>, int32_t>);
static_assert(kReturnsCode<&CRequest::SyncRequestHeader> && kReturnsCode<&CRequest::SyncRequestUpload>);
static_assert(kReturnsCode<&PreparedRequest::Fetch> && kReturnsCode<&LogRefusal>);
static_assert(kReturnsCode<&GetConfigInfoFromPlatform> && kReturnsCode<&ParseConfigInfoFromPlatform>);
static_assert(kReturnsCode<&CheckResponseInfoFromPlatform> && kReturnsCode<&GetDevDetailInfoFromCServerBySerial>);
static_assert(kReturnsCode<&CVantixDataCenter::getDevDetailInfoSync> && kReturnsCode<&DetailCaches::getDeviceRecord>);
static_assert(kReturnsCode<&IVantixDataCenter::getDevDetailInfo> && kReturnsCode<&IVantixDataCenter::getBWCheckInfo>);

TEST(RecordKind, RecordsAreAggregatesOfTheirFields) {
    const VtmAddr address{"relay", 8554};
    EXPECT_EQ(address.strVtmAddr, "relay");
    EXPECT_EQ(address.iVtmPort, 8554);
    const TimeSpan span{.startTime = "a", .endTime = "b"};
    EXPECT_EQ(span.endTime, "b");
}

TEST(RecordKind, ReturnCodesKeepTheirSigns) {
    EXPECT_EQ(static_cast<int32_t>(VANTIX_ERROR), -1);
    EXPECT_LT(VANTIX_VERIFY_CODE_20031, VANTIX_ERROR);
    EXPECT_EQ(sizeof(ReturnCode), 4U);
}

}  // namespace
}  // namespace vantix::test
