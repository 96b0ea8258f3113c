#include <vantix/records/BWCheckInfo.h>
#include <vantix/records/ConfigInfo.h>
#include <vantix/records/DeviceList.h>
#include <vantix/records/TransparentMsgDetail.h>

#include "operations/Arguments.h"
#include "operations/Operations.h"
#include "operations/Outcomes.h"

namespace vantix::ctl {
namespace {

constexpr Argument kPageStart{"page-start", "0"};
constexpr Argument kPageSize{"page-size", "20"};

Outcome AlarmList(const Call& call) {
    return outcomes::JsonText([&](std::string& json) {
        return call.center.getAlarmList(call.Serial(), call.Channel(), call.Number("page-start"),
                                        call.Number("page-size"), call.Text("start"), call.Text("end"),
                                        call.Number("alarm-type"), call.Number("status"), json);
    });
}

constexpr std::array kListOperations = {
    Command{"getDeviceInfoBySerial",
            14,
            {kSerial, kChannel},
            "the platform's list entry of a device",
            [](const Call& call) {
                return outcomes::JsonText([&](std::string& json) {
                    return call.center.getDeviceInfoBySerial(call.Serial(), call.Channel(), json);
                });
            }},
    Command{"getDevList",
            15,
            {kPageStart, kPageSize},
            "one page of the account's devices",
            [](const Call& call) {
                return outcomes::Filled<DeviceList>([&](DeviceList& list) {
                    return call.center.getDevList(call.Number("page-start"), call.Number("page-size"), list);
                });
            }},
    Command{"getDeviceList",
            16,
            {kPageStart, kPageSize, {"biz-type", ""}},
            "one page of the devices of a business type",
            [](const Call& call) {
                return outcomes::Filled<DeviceList>([&](DeviceList& list) {
                    return call.center.getDeviceList(call.Number("page-start"), call.Number("page-size"),
                                                     call.Text("biz-type"), list);
                });
            }},
    Command{"getShareDevList",
            17,
            {kPageStart, kPageSize},
            "one page of the devices that others share",
            [](const Call& call) {
                return outcomes::Filled<DeviceList>([&](DeviceList& list) {
                    return call.center.getShareDevList(call.Number("page-start"), call.Number("page-size"), list);
                });
            }},
    Command{"getB2CSharedDevList",
            18,
            {{"offset", "0"}, {"limit", "20"}},
            "devices shared on the consumer servers",
            [](const Call& call) {
                return outcomes::JsonText([&](std::string& json) {
                    return call.center.getB2CSharedDevList(call.Number("offset"), call.Number("limit"), json);
                });
            }},
    Command{"getAlarmList",
            19,
            {kSerial,
             kChannel,
             {"start", kEarliest},
             {"end", kLatest},
             {"alarm-type", "-1"},
             {"status", "2"},
             kPageStart,
             kPageSize},
            "one page of a channel's alarms",
            &AlarmList},
    Command{"getUsername",
            20,
            {},
            "the account's user name",
            [](const Call& call) {
                return outcomes::Text([&](std::string& name) { return call.center.getUsername(name); });
            }},
    Command{"getConfigInfo",
            21,
            {},
            "the platform's configuration",
            [](const Call& call) {
                return outcomes::Filled<ConfigInfo>(
                    [&](ConfigInfo& config) { return call.center.getConfigInfo(config); });
            }},
    Command{"getTransparentMsgDetail",
            22,
            {kSerial, {"msg-seq"}},
            "a message that a device sent through the platform",
            [](const Call& call) {
                return outcomes::Filled<TransparentMsgDetail>([&](TransparentMsgDetail& detail) {
                    return call.center.getTransparentMsgDetail(call.Serial(), call.Text("msg-seq"), detail);
                });
            }},
    Command{"setVideoDefinition",
            32,
            {kSerial, {"level"}, kChannel},
            "sets a channel's picture quality",
            [](const Call& call) {
                return outcomes::JsonText([&](std::string& response) {
                    return call.center.setVideoDefinition(call.Serial(), response, call.Channel(),
                                                          call.Number("level"));
                });
            }},
    Command{"setAlarmRead",
            33,
            {{"alarm-id"}},
            "marks an alarm as read",
            [](const Call& call) {
                return outcomes::Code([&] { return call.center.setAlarmRead(call.Text("alarm-id")); });
            }},
    Command{"getUserId",
            57,
            {},
            "the account's user id",
            [](const Call& call) {
                return outcomes::Text([&](std::string& userId) { return call.center.getUserId(userId); });
            }},
    Command{"getPushSessionId",
            58,
            {},
            "registers for push messages; the push session",
            [](const Call& call) {
                return outcomes::Text([&](std::string& sessionId) { return call.center.getPushSessionId(sessionId); });
            }},
    Command{"getBWCheckInfo",
            59,
            {{"check-type", "0"}, {"check-time", ""}, {"local-index", "1"}},
            "where the bandwidth may be measured",
            [](const Call& call) {
                return outcomes::Filled<BWCheckInfo>([&](BWCheckInfo& info) {
                    return call.center.getBWCheckInfo(call.Number("check-type"), call.Text("check-time"),
                                                      call.Number("local-index"), info);
                });
            }},
};

}  // namespace

std::span<const Command> ListOperations() { return kListOperations; }

}  // namespace vantix::ctl
