#include "commands/Commands.h"

namespace vantix::ctl {
namespace {

constexpr Use kSerial{"serial"};
constexpr Use kChannel{"channel", "1"};

constexpr std::array kRows = {
    Command{"tour",
            kNoSlot,
            {},
            "shows what the data center does, against the loopback cloud",
            nullptr,
            &RunTour,
            {},
            "Fetches a detail, serves it from the cache, marks, clears, misses and fails; then prints what the cloud\n"
            "received, secrets masked. Needs no account and no network."},
    Command{"detail",
            kNoSlot,
            {kSerial, kChannel},
            "prints a channel's detail",
            nullptr,
            &RunDetail,
            "encryptPwd",
            "Without a domain it asks the loopback cloud, whose sample account has the devices C10000001 (a camera),\n"
            "R20000016 (a recorder with 16 channels), B30000003 (a camera behind it) and some more."},
    Command{"prefetch",
            kNoSlot,
            {{"tasks", "4"}, {"page-size", "50"}},
            "fetches the details of all the account's channels",
            nullptr,
            &RunPrefetch,
            {},
            "Walks the account's device list page by page and fetches every channel's detail, so many at once; shows\n"
            "a bar meanwhile and a table of what came. Fails when one of them did."},
    Command{"watch",
            kNoSlot,
            {kSerial, kChannel, {"interval", "2"}, {"times", "0"}},
            "shows how a channel's detail changes",
            nullptr,
            &RunWatch,
            "encryptPwd",
            "Fetches again and again until it is interrupted, and prints what is different from the time before.\n"
            "With --json a line of JSON for each change."},
    Command{"explain",
            kNoSlot,
            {{"code"}},
            "says a return code in words",
            nullptr,
            &RunExplain,
            {},
            "vantixctl explain 310002"},
    Command{"operations", kNoSlot, {}, "lists the operations of the interface by slot", nullptr, &RunOperations},
    Command{"completion",
            kNoSlot,
            {{"shell", "bash"}},
            "prints completion for a shell",
            nullptr,
            &RunCompletion,
            {},
            "source <(vantixctl completion bash)"},
    Command{"help", kNoSlot, {{"command", ""}}, "explains the tool or a command", nullptr, &RunHelp},
};

}  // namespace

std::span<const Command> ToolCommands() { return kRows; }

}  // namespace vantix::ctl
