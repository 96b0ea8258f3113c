#include "commands/Commands.h"
#include "operations/Arguments.h"

namespace vantix::ctl {
namespace {

constexpr std::array kToolCommands = {
    Command{"tour",
            kNoSlot,
            {},
            "shows what the data center does, against the loopback cloud",
            nullptr,
            &RunTour,
            {},
            "Fetches a detail, reads it from the cache, marks it for update, clears the caches, calls some other\n"
            "operations and provokes failures; then prints the requests that the cloud received, with secrets masked.\n"
            "Needs no account and no network."},
    Command{"detail",
            kNoSlot,
            {kSerial, kChannel},
            "prints a channel's detail",
            nullptr,
            &RunDetail,
            "encryptPwd",
            "Without a domain it asks the loopback cloud. Its sample account has the devices C10000001 (a camera),\n"
            "R20000016 (a recorder with 16 channels), B30000003 (a camera on that recorder) and others."},
    Command{
        "prefetch",
        kNoSlot,
        {{"tasks", "4"}, {"page-size", "50"}},
        "fetches the details of all channels of the account",
        nullptr,
        &RunPrefetch,
        {},
        "Reads the account's device list page by page and fetches every channel's detail, --tasks at once. Shows a\n"
        "progress bar, then a table of the channels. Fails when a fetch fails."},
    Command{"watch",
            kNoSlot,
            {kSerial, kChannel, {"interval", "2"}, {"times", "0"}},
            "shows how a channel's detail changes",
            nullptr,
            &RunWatch,
            "encryptPwd",
            "Fetches the detail repeatedly until it is interrupted, and prints what changes.\n"
            "With --json it prints a line of JSON for each change."},
    Command{
        "explain", kNoSlot, {{"code"}}, "explains a return code", nullptr, &RunExplain, {}, "vantixctl explain 310002"},
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

std::span<const Command> ToolCommands() { return kToolCommands; }

}  // namespace vantix::ctl
