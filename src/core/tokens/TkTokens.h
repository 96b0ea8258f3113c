#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "base/Guarded.h"

namespace vantix {

/// What a Tk token is for.
namespace tk {
inline constexpr int kGlobal = 1;  ///< The account as a whole; the only one that belongs to no device.
inline constexpr int kDevice = 2;
inline constexpr int kVideo = 3;  ///< Streams and recordings.
inline constexpr int kPreview = 4;
inline constexpr int kPlayback = 5;
inline constexpr int kTalk = 6;
}  // namespace tk

/// The Tk tokens of one channel, one for each use.
struct DeviceTkTokens {
    std::string deviceTkToken;
    std::string deviceVideoTkToken;
    std::string previewTkToken;
    std::string playTackTkToken;
    std::string talkTkToken;
    std::string deviceSerial;
    std::string channelNo;
};

/// By serial and channel without a separator.
using DeviceTkTokenMap = std::unordered_map<std::string, DeviceTkTokens>;

/// The Tk tokens that the host sets for its channels. A new map replaces the old one as a whole; a reader uses the
/// current one. Lines bear the core's tags.
class TkTokens {
public:
    /// Replaces the tokens by those of a JSON array; a text that is not JSON leaves the old ones.
    void SetDeviceTkTokens(const std::string& szDeviceTkTokens);

    /// A channel's token of this kind; empty when there is none. `globalToken` is that of kind 1.
    std::string getDeviceTkTokens(int tkType, const std::string& strSerial, int iChannelNo,
                                  const std::string& globalToken) const;
    std::string getDeviceTkTokens(int tkType, const std::string& strSerial, const std::string& strChannelNo,
                                  const std::string& globalToken) const;

private:
    std::string Find(int tkType, const std::string& key) const;

    Guarded<std::shared_ptr<const DeviceTkTokenMap>> m_mapDeviceTkTokens{std::make_shared<const DeviceTkTokenMap>()};
};

}  // namespace vantix
