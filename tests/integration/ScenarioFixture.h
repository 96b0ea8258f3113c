#pragma once

#include <string>
#include <vector>

#include "DetailFixture.h"
#include "vantix/records/DeviceList.h"
#include "vantix/records/RecordFileList.h"

namespace vantix::test {

inline constexpr char kMorning[] = "2024-01-02 00:00:00";
inline constexpr char kEvening[] = "2024-01-02 23:59:59";

/// A request as a scenario expects it: who received it, under which path, and with whose credential.
struct JournalEntry {
    const char* server;  ///< "B" or "C".
    const char* path;
    std::string credential;  ///< The access token or the session; "none" when there is neither.
};

/// What one kind of user does, step by step. Each step says which requests it took, in their order.
class ScenarioFixture : public DetailFixture {
protected:
    void SetUp() override;

    /// What was received since the last time, oldest first, must be this.
    void ExpectJournal(const std::vector<JournalEntry>& entries) const;
    /// Nothing was received since the last time.
    void ExpectSilence() const { ExpectJournal({}); }

    /// What the platform's response holds in its "result"."data".
    static Json Data(const std::string& json) { return Json::parse(json).at("result").at("data"); }
    /// The serials of a device list, each once, in its order.
    static std::vector<std::string> Serials(const DeviceList& list);
    /// The names of the recordings that a query found.
    static std::vector<std::string> FileIds(const RecordFileList& list);
    /// The alarms of a list's response, by id, in its order.
    static std::vector<std::string> AlarmIds(const std::string& json);

    /// The account's alarms of a channel: 0 unread, 1 read, 2 all.
    int Alarms(const std::string& serial, int ch, int status, std::string& json) const {
        return Center().getAlarmList(serial, ch, 0, 20, kMorning, kEvening, -1, status, json);
    }
    /// Asks for an address and uploads a picture to it; the cloud's own note of what arrived.
    void UploadPicture(const std::string& serial, const std::string& credential, const char* server) const;
};

}  // namespace vantix::test
