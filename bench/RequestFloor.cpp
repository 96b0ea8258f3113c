// The same exchanges with libcurl alone: the same bytes on the wire, the same options, the same connection.

#include <unistd.h>

#include <string>

#include "BareRequest.h"
#include "Cases.h"
#include "Center.h"
#include "HandLine.h"
#include "RequestTexts.h"
#include "requests/FeatureCode.h"

namespace vantix::bench {

BareRequest AlarmPost(bool tls) {
    return {.url = ServerAddress(tls) + "/api/lapp/video/by/id",
            .form = "accessToken=at.4r7v0c2c8pqn6mzk1x9h5d3b-6tfu2w8y4j-1s0aq7e-lkn5vbxdr&alarmId=" +
                    std::string(kAlarmId) + "&channelNo=1&clientType=19&clientVersion=v5.25.0&deviceSerial=" + kSerial +
                    "&featureCode=" + PublicGetHDSign() + "&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515",
            .headers = {}};
}

BareRequest RecordsGet(bool tls) {
    return {
        .url = ServerAddress(tls) + "/v3/streaming/records?channelNo=1&deviceSerial=" + kSerial +
               "&recordType=1&size=100&startTime=" + kDay + "&stopTime=" + kDay,
        .form = "",
        .headers = {"clientType: 19", "clientVersion: v5.25.0", "customno: 100002", "featureCode: " + PublicGetHDSign(),
                    "lang: EN", "netType: UNKNOWN", "sessionId: " + std::string(kSession)}};
}

namespace {

template <BareRequest (*Make)(bool tls), bool Tls>
const BareRequest& Request() {
    static const BareRequest request = Make(Tls);
    return request;
}

template <BareRequest (*Make)(bool tls), bool Tls>
void Prepare() {
    Center().setLogLevel(kQuiet);
    Request<Make, Tls>();
}

template <BareRequest (*Make)(bool tls), bool Tls>
void SendAlone() {
    BareBody body;
    Require(Send(Request<Make, Tls>(), body) == CURLE_OK && body.Size() > 0, "libcurl failed");
}

/// The same with the lines that the rules of logging ask for, in their order; the token is not shown.
template <bool Tls>
void SendAndLog() {
    const BareRequest& request = Request<AlarmPost, Tls>();
    static const std::string shown = request.url + "?accessToken=***" + request.form.substr(request.form.find('&'));
    BareBody body;
    HandLine("[%d] VX   INFO \t<%s>\t<%d>,Returning B domain", getpid(), "CVantixDataCenter::getDomain", __LINE__);
    HandLine("[%d] VX   INFO \t<%s>\t<%d>,start Posts url and Param = %s", getpid(), "SyncRequest", __LINE__,
             shown.c_str());
    const CURLcode result = Send(request, body);
    HandLine("[%d] VX   INFO \t<%s>\t<%d>,strRsp:%s", getpid(), "CRequest::SyncRequest", __LINE__, body.Text());
    HandLine("[%d] VX   INFO \t<%s>\t<%d>,end Posts url and Param result = %d", getpid(), "SyncRequest", __LINE__,
             static_cast<int>(result));
    Require(result == CURLE_OK && body.Size() > 0, "libcurl failed");
}

/// The same on a connection that is kept.
template <bool Tls>
void SendKept() {
    static CURL* const handle = curl_easy_init();
    BareBody body;
    Require(SendWith(handle, Request<AlarmPost, Tls>(), body) == CURLE_OK && body.Size() > 0, "libcurl failed");
}

}  // namespace

std::vector<Case> RequestFloors() {
    return {
        MakeCase<Prepare<AlarmPost, false>, SendAlone<AlarmPost, false>>("floor/request/post/plain", kFewRounds),
        MakeCase<Prepare<AlarmPost, true>, SendAlone<AlarmPost, true>>("floor/request/post/tls", kFewRounds),
        MakeCase<Prepare<AlarmPost, false>, SendAndLog<false>>("floor/request/logged/plain", kFewRounds),
        MakeCase<Prepare<AlarmPost, true>, SendAndLog<true>>("floor/request/logged/tls", kFewRounds),
        MakeCase<Prepare<RecordsGet, false>, SendAlone<RecordsGet, false>>("floor/request/get/plain", kFewRounds),
        MakeCase<Prepare<RecordsGet, true>, SendAlone<RecordsGet, true>>("floor/request/get/tls", kFewRounds),
        MakeCase<Prepare<AlarmPost, false>, SendKept<false>>("floor/request/kept/plain", kFewRounds),
        MakeCase<Prepare<AlarmPost, true>, SendKept<true>>("floor/request/kept/tls", kFewRounds),
    };
}

}  // namespace vantix::bench
