#pragma once

#include <string>

#include "support/SimulatorClient.h"

namespace vantix::test {

/// What one generation of an owner's data is marked with: "g17.C10000001". Every text that tells responses apart is the
/// mark of its generation, every such number its number, so a record of two responses shows.
std::string Mark(int generation, const std::string& owner);

/// The owners of data that belongs to no device.
inline constexpr char kServersOwner[] = "servers";
inline constexpr char kP2PUserOwner[] = "p2puser";
inline constexpr char kConfigOwner[] = "config";
inline constexpr char kBandwidthOwner[] = "bandwidth";
inline constexpr char kMessageOwner[] = "message";

/// Replaces the cloud's data, part by part, each as a whole.
class Publisher {
public:
    explicit Publisher(const SimulatorClient& cloud);

    /// Gives all parts their first generation.
    void PublishAll();
    /// Gives the next part its next generation.
    void PublishNext();

private:
    void PublishDevice(const std::string& serial) const;
    void PublishAccount() const;

    const SimulatorClient& m_cloud;
    Json m_cameras;  ///< Of each device, by serial, as they were at first.
    size_t m_part = 0;
    int m_generation = 1;
};

}  // namespace vantix::test
