#pragma once

/// @file
/// What docs/operations.md says of the operations that a run calls, as literals. Those without a row are not called by
/// the input's choice: the upload (49), getDeviceRecordAlt (56), and of those from 60 on all but 67, 68 and 72. Of the
/// setters a run calls those of CoreRun::ChangeSetting; the domains stay the same, the address of the renewal is there
/// or not.

#include <cstddef>

namespace vantix::fuzz {

/// Which credential the platform's requests of an operation send. A kind of Tk token counts in the small-permission
/// mode; in the others it is the access token.
enum class Sends { Nothing, AccessToken, Tk1, Tk2, Tk3, ChannelToken, GivenToken };

/// In the B2C mode, when the requests go to the consumer servers and are those of their own, with the session.
enum class Consumer { Never, SharedChannel, SharedToken, SharedTokenOfChannel, Always };

/// In the B2C mode, when requests of the platform's form go to the consumer servers' domain.
enum class Place { Platform, Channel, FirstChannel, Token };

/// What an operation may do to the caches of device details.
enum class Caches { Nothing, Stores, Edits };

/// Which modes send requests.
enum class Modes { All, Ordinary, B2C, NotSmall };

struct OperationRule {
    int slot = 0;
    size_t mostRequests = 0;  ///< A first attempt, a renewal, a repeat; more where transient failures are repeated.
    Sends sends = Sends::Nothing;
    Place place = Place::Platform;
    Consumer consumer = Consumer::Never;
    Caches caches = Caches::Nothing;
    Modes modes = Modes::All;
};

inline constexpr OperationRule kRules[] = {
    {.slot = 1, .mostRequests = 3, .sends = Sends::Tk3, .place = Place::Channel},
    {.slot = 2, .mostRequests = 3, .sends = Sends::Tk3, .place = Place::Channel},
    {.slot = 3, .mostRequests = 3, .sends = Sends::Tk3, .place = Place::Channel},
    {.slot = 4,
     .mostRequests = 7,
     .sends = Sends::ChannelToken,
     .place = Place::Channel,
     .consumer = Consumer::SharedChannel,
     .caches = Caches::Stores},
    {.slot = 5,
     .mostRequests = 7,
     .sends = Sends::ChannelToken,
     .place = Place::Channel,
     .consumer = Consumer::SharedChannel,
     .caches = Caches::Stores},
    {.slot = 6, .mostRequests = 5, .sends = Sends::Tk3, .place = Place::Channel},
    {.slot = 7,
     .mostRequests = 3,
     .sends = Sends::Tk2,
     .place = Place::Channel,
     .consumer = Consumer::SharedTokenOfChannel},
    {.slot = 8,
     .mostRequests = 7,
     .sends = Sends::ChannelToken,
     .place = Place::Channel,
     .consumer = Consumer::SharedChannel,
     .caches = Caches::Stores},
    {.slot = 9, .mostRequests = 3, .sends = Sends::AccessToken, .consumer = Consumer::SharedToken},
    {.slot = 10, .mostRequests = 3, .sends = Sends::GivenToken, .place = Place::Channel},
    {.slot = 11, .mostRequests = 3, .sends = Sends::AccessToken, .consumer = Consumer::SharedToken},
    {.slot = 12, .mostRequests = 3, .sends = Sends::Tk3, .place = Place::Channel},
    {.slot = 13, .mostRequests = 3, .sends = Sends::Tk3, .place = Place::Channel},
    {.slot = 14, .mostRequests = 3, .sends = Sends::Tk2, .place = Place::Channel},
    {.slot = 15, .mostRequests = 3, .sends = Sends::Tk1},
    {.slot = 16, .mostRequests = 3, .sends = Sends::Tk1},
    {.slot = 17, .mostRequests = 3, .sends = Sends::Tk1},
    {.slot = 18, .mostRequests = 1, .consumer = Consumer::Always},
    {.slot = 19, .mostRequests = 3, .sends = Sends::Tk2, .place = Place::Channel},
    {.slot = 20, .mostRequests = 3, .sends = Sends::AccessToken},
    {.slot = 21, .mostRequests = 1},
    {.slot = 22, .mostRequests = 3, .sends = Sends::AccessToken, .place = Place::FirstChannel},
    {.slot = 23, .mostRequests = 3, .sends = Sends::AccessToken, .consumer = Consumer::SharedToken},
    {.slot = 24, .mostRequests = 3, .sends = Sends::AccessToken, .consumer = Consumer::SharedToken},
    {.slot = 25, .mostRequests = 3, .sends = Sends::Tk2, .consumer = Consumer::SharedTokenOfChannel},
    {.slot = 26,
     .mostRequests = 3,
     .sends = Sends::AccessToken,
     .place = Place::FirstChannel,
     .consumer = Consumer::SharedToken},
    {.slot = 27,
     .mostRequests = 3,
     .sends = Sends::Tk2,
     .place = Place::FirstChannel,
     .consumer = Consumer::SharedTokenOfChannel},
    {.slot = 28,
     .mostRequests = 3,
     .sends = Sends::AccessToken,
     .place = Place::FirstChannel,
     .consumer = Consumer::SharedToken},
    {.slot = 29,
     .mostRequests = 3,
     .sends = Sends::AccessToken,
     .place = Place::Channel,
     .consumer = Consumer::SharedToken},
    {.slot = 30},
    {.slot = 31, .caches = Caches::Edits},
    {.slot = 32, .mostRequests = 3, .sends = Sends::AccessToken, .place = Place::Channel},
    {.slot = 33, .mostRequests = 3, .sends = Sends::AccessToken},
    {.slot = 34, .mostRequests = 3, .sends = Sends::GivenToken, .consumer = Consumer::SharedToken},
    {.slot = 35, .mostRequests = 1, .sends = Sends::Tk2, .place = Place::Channel},
    {.slot = 36, .mostRequests = 1, .modes = Modes::NotSmall},
    {.slot = 37, .mostRequests = 1, .sends = Sends::GivenToken, .place = Place::Token, .modes = Modes::NotSmall},
    {.slot = 38},
    {.slot = 39, .mostRequests = 3, .sends = Sends::AccessToken, .modes = Modes::Ordinary},
    {.slot = 40, .mostRequests = 1, .sends = Sends::Tk3, .place = Place::Channel},
    {.slot = 41,
     .mostRequests = 3,
     .sends = Sends::AccessToken,
     .place = Place::Channel,
     .consumer = Consumer::SharedChannel},
    {.slot = 42, .mostRequests = 3, .sends = Sends::AccessToken, .place = Place::Channel},
    {.slot = 43, .mostRequests = 3, .sends = Sends::AccessToken, .place = Place::Channel},
    {.slot = 44, .mostRequests = 3, .sends = Sends::AccessToken, .place = Place::Channel},
    {.slot = 45, .mostRequests = 3, .sends = Sends::AccessToken, .place = Place::Channel},
    {.slot = 46, .mostRequests = 3, .sends = Sends::AccessToken, .place = Place::Channel},
    {.slot = 47, .mostRequests = 1, .sends = Sends::AccessToken, .place = Place::Channel},
    {.slot = 48, .mostRequests = 1, .sends = Sends::AccessToken, .place = Place::Channel},
    {.slot = 50, .caches = Caches::Edits},
    {.slot = 51},
    {.slot = 52, .caches = Caches::Edits},
    {.slot = 53},
    {.slot = 54},
    {.slot = 55},
    {.slot = 57, .mostRequests = 3, .sends = Sends::AccessToken},
    {.slot = 58, .mostRequests = 3, .sends = Sends::AccessToken},
    {.slot = 59, .mostRequests = 3, .sends = Sends::AccessToken},
    {.slot = 67, .caches = Caches::Edits},
    {.slot = 68},
    {.slot = 72, .mostRequests = 1, .consumer = Consumer::Always, .modes = Modes::B2C},
};

/// The operations with the argument "retried", which forbids the renewal.
inline constexpr int kSlotsWithRetried[] = {4,  5,  6,  8,  9,  10, 11, 12, 14, 15, 16, 17, 19,
                                            22, 23, 24, 25, 28, 29, 32, 34, 41, 43, 44, 45};

}  // namespace vantix::fuzz
