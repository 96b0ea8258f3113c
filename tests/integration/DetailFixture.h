#pragma once

#include <cstdint>
#include <future>
#include <string>

#include "SampleAccount.h"
#include "support/CoreFixture.h"
#include "support/DetailJson.h"

namespace vantix::test {

inline constexpr char kDetailPath[] = "/api/device/detail";

/// A case about device details.
class DetailFixture : public CoreFixture {
protected:
    /// What an asynchronous call did.
    struct Asked : Detail {
        int returned = 0;
        bool started = false;  ///< Whether the future was filled.
        int fetched = 0;       ///< What it yielded.
    };

    /// Calls the asynchronous form and waits for its future.
    Asked Ask(const std::string& serial, int ch) const {
        Asked asked;
        std::future<int32_t> future;
        asked.returned = Center().getDevDetailInfo(serial, ch, asked.channel, asked.device, future);
        asked.started = future.valid();
        if (asked.started) {
            asked.fetched = future.get();
        }
        return asked;
    }
    int Fetch(const std::string& serial, int ch, Detail& detail) const {
        return Center().getDevDetailInfoSync(serial, ch, true, detail.channel, detail.device);
    }
    int Fetch(const std::string& serial, int ch) const {
        Detail detail;
        return Fetch(serial, ch, detail);
    }
    int ReadOrFetch(const std::string& serial, int ch, Detail& detail) const {
        return Center().getDevDetailInfoSync(serial, ch, false, detail.channel, detail.device);
    }
    int ReadCache(const std::string& serial, int ch, Detail& detail) const {
        return Center().getDevInfoCache(serial, ch, detail.channel, detail.device);
    }
    /// The cached pair of a channel, null when nothing is served.
    Json Cached(const std::string& serial, int ch) const {
        Detail detail;
        return ReadCache(serial, ch, detail) == 0 ? ToJson(detail) : Json();
    }
    size_t DetailRequests() const { return Cloud().Requests(kDetailPath).size(); }
};

}  // namespace vantix::test
