// Rows and calls are checked when they are compiled, and so is this: a wrong row is not consistent, a wrong call does
// not compile.

#include "requests/RequestRowChecks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>

#include "requests/EndpointTable.h"
#include "requests/RequestCall.h"
#include "support/TestRoutes.h"

namespace vantix::test {
namespace {

// ---- Rows

constexpr RequestRow kFormRow{.endpoint = endpoint::kUserName, .keys = {"deviceSerial", "cameraNo"}};
constexpr RequestRow kGetRow{.kind = RequestKind::Get, .endpoint = endpoint::kRelayServer};
constexpr RequestRow kJsonRow{.kind = RequestKind::JsonPost};
constexpr RequestRow kConsumer{.family = RequestFamily::Consumer,
                               .kind = RequestKind::Get,
                               .endpoint = endpoint::kConsumerRecords,
                               .headers = {.set = HeaderSet::B}};
constexpr RequestRow kAuthorization{.family = RequestFamily::Authorization, .endpoint = endpoint::kRefreshToken};

/// A row with one thing changed.
template <class Change>
constexpr bool IsConsistentWith(RequestRow row, Change change) {
    change(row);
    return IsConsistent(row);
}

static_assert(IsConsistent(kFormRow));
static_assert(IsConsistent(kGetRow));
static_assert(IsConsistent(kJsonRow));
static_assert(IsConsistent(kConsumer));
static_assert(IsConsistent(kAuthorization));

// A kind with a path of its own ignores an index, and no other kind can do without one.
static_assert(!IsConsistentWith(kFormRow, [](RequestRow& row) { row.endpoint = 0; }));
static_assert(!IsConsistentWith(kJsonRow, [](RequestRow& row) { row.endpoint = endpoint::kCloudFileDetails; }));
static_assert(!IsConsistentWith(kFormRow, [](RequestRow& row) { row.kind = RequestKind::TicketGet; }));
static_assert(!IsConsistentWith(kConsumer, [](RequestRow& row) { row.kind = RequestKind::Put; }));

// Only requests that send headers have some.
static_assert(IsConsistentWith(kGetRow, [](RequestRow& row) { row.headers.formContentType = true; }));
static_assert(!IsConsistentWith(kFormRow, [](RequestRow& row) { row.headers.formContentType = true; }));
static_assert(!IsConsistentWith(kConsumer, [](RequestRow& row) { row.kind = RequestKind::FormPost; }));

// Sessions belong to the consumer servers, access token, app key and client set to the platform.
static_assert(!IsConsistentWith(kGetRow, [](RequestRow& row) { row.headers.set = HeaderSet::A; }));
static_assert(!IsConsistentWith(kConsumer, [](RequestRow& row) { row.headers.set = HeaderSet::None; }));
static_assert(!IsConsistentWith(kConsumer, [](RequestRow& row) { row.common.accessToken = true; }));
static_assert(!IsConsistentWith(kConsumer, [](RequestRow& row) { row.common.clientSet = true; }));
static_assert(!IsConsistentWith(kConsumer, [](RequestRow& row) { row.common.appKey = true; }));
static_assert(IsConsistentWith(kAuthorization, [](RequestRow& row) { row.common.appKey = true; }));
static_assert(!IsConsistentWith(kAuthorization, [](RequestRow& row) { row.common.accessToken = true; }));

// A JSON post has no parameters.
static_assert(!IsConsistentWith(kJsonRow, [](RequestRow& row) { row.common.accessToken = true; }));
static_assert(!IsConsistentWith(kJsonRow, [](RequestRow& row) { row.common.clientSet = true; }));
static_assert(!IsConsistentWith(kJsonRow, [](RequestRow& row) { row.common.appKey = true; }));
static_assert(!IsConsistentWith(kJsonRow, [](RequestRow& row) { row.keys[0] = "deviceSerial"; }));
static_assert(!IsConsistentWith(kJsonRow, [](RequestRow& row) { row.optionalKeys[0] = "deviceSerial"; }));
static_assert(!IsConsistentWith(kJsonRow, [](RequestRow& row) { row.fixed[0] = {"version", "2.0"}; }));

// No key stands twice.
static_assert(!IsConsistentWith(kFormRow, [](RequestRow& row) { row.keys[2] = "deviceSerial"; }));
static_assert(!IsConsistentWith(kFormRow, [](RequestRow& row) { row.optionalKeys[0] = "cameraNo"; }));
static_assert(!IsConsistentWith(kFormRow, [](RequestRow& row) { row.fixed[0] = {"cameraNo", "1"}; }));
static_assert(!IsConsistentWith(kGetRow, [](RequestRow& row) {
    row.optionalKeys[0] = "location";
    row.optionalKeys[1] = "location";
}));
static_assert(!IsConsistentWith(kGetRow, [](RequestRow& row) {
    row.fixed[0] = {"version", "1.0"};
    row.fixed[1] = {"version", "2.0"};
}));
static_assert(!IsConsistentWith(kGetRow, [](RequestRow& row) {
    row.common.accessToken = true;
    row.keys[0] = "accessToken";
}));
static_assert(!IsConsistentWith(kGetRow, [](RequestRow& row) {
    row.common.appKey = true;
    row.fixed[0] = {"appKey", "mine"};
}));
static_assert(!IsConsistentWith(kGetRow, [](RequestRow& row) {
    row.common.clientSet = true;
    row.optionalKeys[0] = "sdkVersion";
}));

// ---- Calls

constexpr RequestRow kRow{.endpoint = endpoint::kUserName,
                          .keys = {"deviceSerial", "cameraNo"},
                          .optionalKeys = {"location"},
                          .fixed = {{"version", "2.0"}}};
constexpr RequestRow kNoKeys{.endpoint = endpoint::kUserName};

/// Whether a call with these parameters compiles.
template <const RequestRow& Row, class... Parameters>
constexpr bool kCompiles =
    std::is_constructible_v<RequestCall<Row>, CallSite, typename RequestCall<Row>::Route, const Parameters&...>;

using Serial = decltype("deviceSerial"_key = std::string());
using SerialText = decltype("deviceSerial"_key = "S");
using OptionalSerial = decltype("deviceSerial"_key = std::optional<std::string>());
using Camera = decltype("cameraNo"_key = 1);
using Location = decltype("location"_key = std::optional(2));
using PlainLocation = decltype("location"_key = 2);
using Version = decltype("version"_key = "3.0");

static_assert(kCompiles<kRow, Serial, Camera, Location>);
static_assert(kCompiles<kRow, Location, Camera, SerialText>, "the order is free");
static_assert(kCompiles<kNoKeys>);

// Too few.
static_assert(!kCompiles<kRow>);
static_assert(!kCompiles<kRow, Serial>);
static_assert(!kCompiles<kRow, Serial, Camera>);
static_assert(!kCompiles<kRow, Camera, Location>);
// Too many, also of one key.
static_assert(!kCompiles<kNoKeys, Camera>);
static_assert(!kCompiles<kRow, Serial, Camera, Location, Camera>);
static_assert(!kCompiles<kRow, Serial, SerialText, Location>);
// Unknown keys, and those that the row fixes.
static_assert(!kCompiles<kRow, Serial, decltype("channelNo"_key = 1), Location>);
static_assert(!kCompiles<kRow, Serial, decltype("CameraNo"_key = 1), Location>);
static_assert(!kCompiles<kRow, Serial, decltype("cameraN"_key = 1), Location>);
static_assert(!kCompiles<kRow, Serial, decltype("cameraNo "_key = 1), Location>);
static_assert(!kCompiles<kRow, Serial, Camera, Location, Version>);
// Optional keys take optional values, all others none.
static_assert(!kCompiles<kRow, Serial, Camera, PlainLocation>);
static_assert(!kCompiles<kRow, OptionalSerial, Camera, Location>);
// Values without a key, and keys without a value.
static_assert(!kCompiles<kRow, std::string, int, std::optional<int>>);
static_assert(!kCompiles<kRow, decltype("deviceSerial"_key), Camera, Location>);

/// Whether a value can be given to a key.
template <class Value>
constexpr bool kIsAccepted = std::is_assignable_v<decltype("cameraNo"_key), const Value&>;

static_assert(kIsAccepted<std::string>);
static_assert(kIsAccepted<const char*>);
static_assert(kIsAccepted<char[5]>);
static_assert(kIsAccepted<int>);
static_assert(kIsAccepted<std::optional<int>>);
static_assert(kIsAccepted<std::optional<std::string>>);
// Neither texts nor numbers.
static_assert(!kIsAccepted<bool>);
static_assert(!kIsAccepted<double>);
static_assert(!kIsAccepted<char>);
static_assert(!kIsAccepted<int64_t>);
static_assert(!kIsAccepted<uint32_t>);
static_assert(!kIsAccepted<std::nullptr_t>);
static_assert(!kIsAccepted<std::nullopt_t>);
static_assert(!kIsAccepted<std::optional<bool>>);
static_assert(!kIsAccepted<ParamMap>);

// A request takes the route of its family alone.
static_assert(std::is_constructible_v<RequestCall<kNoKeys>, CallSite, PlatformRoute>);
static_assert(!std::is_constructible_v<RequestCall<kNoKeys>, CallSite, ConsumerRoute>);
static_assert(!std::is_constructible_v<RequestCall<kNoKeys>, CallSite, AuthorizationRoute>);
static_assert(std::is_constructible_v<RequestCall<kConsumer>, CallSite, ConsumerRoute>);
static_assert(!std::is_constructible_v<RequestCall<kConsumer>, CallSite, PlatformRoute>);
static_assert(std::is_constructible_v<RequestCall<kAuthorization>, CallSite, AuthorizationRoute>);
static_assert(!std::is_constructible_v<RequestCall<kAuthorization>, CallSite, PlatformRoute>);
static_assert(!std::is_convertible_v<PlatformRoute, ConsumerRoute>);
static_assert(!std::is_convertible_v<ConsumerRoute, PlatformRoute>);

// Only the consumer servers' headers say what is handed in of this computer.
static_assert(std::is_constructible_v<RequestCall<kConsumer>, CallSite, ConsumerRoute, ClientInfo>);
static_assert(!std::is_constructible_v<RequestCall<kNoKeys>, CallSite, PlatformRoute, ClientInfo>);

// A JSON post takes its text, and nothing else does.
static_assert(std::is_constructible_v<RequestCall<kJsonRow>, CallSite, PlatformRoute, JsonBody>);
static_assert(!std::is_constructible_v<RequestCall<kJsonRow>, CallSite, PlatformRoute>);
static_assert(!std::is_constructible_v<RequestCall<kNoKeys>, CallSite, PlatformRoute, JsonBody>);

// ---- What a transfer that failed says

TEST(RequestRow, TransportFailureIsWordedByTheKindUnlessTheRowSaysOtherwise) {
    const struct {
        RequestKind kind;
        const char* text;
    } rows[] = {
        {RequestKind::FormPost, "SyncRequest error:%d"},           {RequestKind::JsonPost, "SyncRequest error:%d"},
        {RequestKind::TicketGet, "SyncRequest error:%d"},          {RequestKind::Get, "SyncRequestHeader error:%d"},
        {RequestKind::BodylessPost, "SyncRequestHeader error:%d"}, {RequestKind::Put, "SyncRequestHeader error:%d"}};
    for (const auto& row : rows) {
        EXPECT_STREQ(TransportFailureOf({.kind = row.kind}).format, row.text);
        EXPECT_STREQ(TransportFailureOf({.kind = row.kind, .transportFailure = "own words:%d"}).format, "own words:%d");
    }
}

}  // namespace
}  // namespace vantix::test
