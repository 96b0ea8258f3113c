#pragma once

/// @file
/// The data center as a host has it, and a cache that is filled without a network.

#include <cstddef>
#include <string>
#include <vector>

#include "vantix/IVantixDataCenter.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"

namespace vantix::bench {

/// Log levels: every line is dropped; the level that a library has at first.
constexpr int kQuiet = 6;
constexpr int kUsual = 3;

/// Requests to this address get canned responses, see CannedResponses.cpp; all others go over the network.
constexpr char kCannedAddress[] = "https://cloud.example.test";

IVantixDataCenter& Center();

/// The records of one channel.
struct Records {
    DevChannelInfo channel;
    DevDetailInfo detail;
};

/// A channel: the device's serial and the channel's number.
struct Channel {
    std::string serial;
    int number = 1;
};

/// So many channels, each of a device of its own, or 64 on each recorder.
std::vector<Channel> ChannelsOfDevices(size_t count);
std::vector<Channel> ChannelsOfRecorders(size_t count);

/// The place after this one, in an order in which neighbours in the cache are not neighbours in time.
size_t NextPlace(size_t place, size_t count);

/// Sends everything to the canned responses, with an empty cache, and drops log lines.
void UseCannedResponses();
/// Sends everything to this address.
void UseAddress(const std::string& address);

/// Fetches a channel synchronously, whatever is cached.
void Fetch(const Channel& channel, Records& records);

/// A cache with so many devices of one channel; filled only when it holds another number.
const std::vector<Channel>& FilledCache(size_t devices);

}  // namespace vantix::bench
