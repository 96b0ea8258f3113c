#pragma once

/// @file
/// The members of a detail answer and the fields that they fill, listed once more for the tests, by hand.

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "support/TestJson.h"
#include "vantix/records/BelongDevInfo.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"

namespace vantix::test {

template <class Record>
struct Member {
    const char* key;
    std::variant<std::string Record::*, int32_t Record::*> field;

    bool IsText() const { return field.index() == 0; }
    /// The field's value as JSON.
    nlohmann::json Of(const Record& record) const {
        return std::visit([&](auto pointer) { return nlohmann::json(record.*pointer); }, field);
    }
    void Set(Record& record, const nlohmann::json& value) const {
        std::visit([&](auto pointer) { value.get_to(record.*pointer); }, field);
    }
    bool IsEqualIn(const Record& left, const Record& right) const {
        return std::visit([&](auto pointer) { return left.*pointer == right.*pointer; }, field);
    }
};

/// "camera".
const std::vector<Member<DevChannelInfo>>& CameraMembers();
/// "device", and "belongDevice" inside it.
const std::vector<Member<BelongDevInfo>>& DeviceMembers();
/// Members of "supportExt" that are numbers as text.
const std::vector<Member<DevDetailInfo>>& CapabilityMembers();

/// The golden answer: every member is there, and no two have the same value.
nlohmann::json GoldenDetail();
/// Its text as the file has it.
std::string GoldenDetailText();

/// The parts of an answer.
inline nlohmann::json& Data(nlohmann::json& answer) { return answer["result"]["data"]; }
inline nlohmann::json& Camera(nlohmann::json& answer) { return Data(answer)["camera"]; }
inline nlohmann::json& Device(nlohmann::json& answer) { return Data(answer)["device"]; }

/// Whether two records are equal in every field that an answer fills.
bool Same(const DevChannelInfo& left, const DevChannelInfo& right);
bool Same(const BelongDevInfo& left, const BelongDevInfo& right);
bool Same(const DevDetailInfo& left, const DevDetailInfo& right);

}  // namespace vantix::test
