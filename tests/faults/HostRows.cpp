// A host that is at the end of its means, or changes its own process while the library is at work.

#include <csignal>
#include <ctime>
#include <iterator>
#include <stdexcept>

#include "faults/FaultRow.h"
#include "support/CommaLocale.h"
#include "support/DescriptorsLeft.h"
#include "support/EnvironmentVariable.h"
#include "support/FakeClock.h"
#include "support/NoThreads.h"

namespace vantix::test {
namespace {

/// A proxy that nobody serves.
std::string DeadProxy(const SimulatorClient& cloud) {
    return "http://" + cloud.ClosedPort().substr(sizeof("https://") - 1);
}

std::shared_ptr<void> DeadHttpsProxy(const SimulatorClient& cloud) {
    return std::make_shared<EnvironmentVariable>("https_proxy", DeadProxy(cloud));
}

std::shared_ptr<void> DeadProxyForAll(const SimulatorClient& cloud) {
    return std::make_shared<EnvironmentVariable>("ALL_PROXY", DeadProxy(cloud));
}

std::shared_ptr<void> NoThreadLeft(const SimulatorClient& /*cloud*/) { return std::make_shared<NoThreads>(); }

/// The system's own clock, off by so many seconds.
std::shared_ptr<void> ClockOffBy(int64_t seconds) {
    return std::make_shared<FakeClock>(static_cast<int64_t>(std::time(nullptr)) + seconds);
}

constexpr int64_t kDay = int64_t{24} * 60 * 60;
std::shared_ptr<void> ClockADayAhead(const SimulatorClient& /*cloud*/) { return ClockOffBy(kDay); }
std::shared_ptr<void> ClockADayBehind(const SimulatorClient& /*cloud*/) { return ClockOffBy(-kDay); }

std::shared_ptr<void> CommaLocaleInCpp(const SimulatorClient& /*cloud*/) { return std::make_shared<CppCommaLocale>(); }

#if defined(VANTIX_TEST_LOCALES)
std::shared_ptr<void> CommaLocaleInC(const SimulatorClient& /*cloud*/) {
    auto locale = std::make_shared<CCommaLocale>(VANTIX_TEST_LOCALES);
    if (!locale->IsSet()) {
        throw std::runtime_error("the locale with a decimal comma is not there");
    }
    return locale;
}
#endif

#if defined(__linux__)
std::shared_ptr<void> NoDescriptorLeft(const SimulatorClient& /*cloud*/) {
    return std::make_shared<DescriptorsLeft>(0);
}

class DefaultForBrokenPipes {
public:
    DefaultForBrokenPipes() : m_before(std::signal(SIGPIPE, SIG_DFL)) {}
    ~DefaultForBrokenPipes() { std::signal(SIGPIPE, m_before); }
    DefaultForBrokenPipes(const DefaultForBrokenPipes&) = delete;
    DefaultForBrokenPipes& operator=(const DefaultForBrokenPipes&) = delete;

private:
    void (*m_before)(int);
};

std::shared_ptr<void> DefaultSigpipe(const SimulatorClient& /*cloud*/) {
    return std::make_shared<DefaultForBrokenPipes>();
}

/// More than the buffers of a connection that nobody reads and that ends soon; an address may be as long as this.
const size_t kMuch = 7'000'000;

std::vector<FaultRow> LinuxRows() {
    const Outcome failure = {.result = kSomeTransportFailure, .requests = 0, .connections = 1};
    return {
        {.name = "NoDescriptorLeft", .condition = NoDescriptorLeft, .outcome = {.result = 100007, .requests = 0}},
        {.name = "BrokenPipeByAReset",
         .port = {{"then", "reset"}},
         .condition = DefaultSigpipe,
         .serial = std::string(kMuch, 'S'),
         .outcome = failure},
        {.name = "BrokenPipeByAnEnd",
         .port = {{"then", "close"}},
         .condition = DefaultSigpipe,
         .serial = std::string(kMuch, 'S'),
         .outcome = failure},
    };
}
#else
std::vector<FaultRow> LinuxRows() { return {}; }
#endif

/// Numbers are read and sent as ever, whatever the locale makes of points and of thousands.
std::vector<FaultRow> LocaleRows(const std::string& name, Condition locale) {
    const Json fractions = {{"devicePort", 8000.75}, {"version", 1.9}, {"cmdPort", 12345}};
    const Json read = {{"detail", {{"devicePort", 8000}, {"version", 1}, {"cmdPort", 12345}}}};
    constexpr size_t kTablesMiB = 5;  // the C library keeps a locale's tables
    return {
        {.name = name,
         .condition = locale,
         .device = fractions,
         .outcome =
             {.sent = "&cameraNo=1&clientType=19&", .handedOut = read, .isAsBefore = true, .keptMiB = kTablesMiB},
         .consumer = Outcome{.sent = "deviceSerial=S60000006&filter=CONNECTION",
                             .handedOut = {{"detail", {{"cmdPort", 12345}}}},
                             .isAsBefore = true,
                             .keptMiB = kTablesMiB}},
        {.name = name + "OfANumberAboveAThousand",
         .families = {Family::kPlatform},
         .condition = locale,
         .operation = "GetClouduploadUrl",
         .outcome = {.sent = "&urlExpireTime=3600", .keptMiB = kTablesMiB}},
    };
}

}  // namespace

std::vector<FaultRow> HostRows() {
    const Outcome same = {.isAsBefore = true};
    std::vector<FaultRow> rows = {
        {.name = "DeadHttpsProxy", .condition = DeadHttpsProxy, .outcome = {.result = 100007, .requests = 0}},
        {.name = "DeadProxyForAll", .condition = DeadProxyForAll, .outcome = {.result = 100007, .requests = 0}},
        {.name = "NoThreadLeft",
         .condition = NoThreadLeft,
         .outcome = same,
         .task = Outcome{.result = -1, .requests = 0}},
        {.name = "ClockADayAhead", .condition = ClockADayAhead, .outcome = same},
        {.name = "ClockADayBehind", .condition = ClockADayBehind, .outcome = same},
    };
    std::vector<FaultRow> locale = LocaleRows("CommaLocaleInCpp", CommaLocaleInCpp);
    std::move(locale.begin(), locale.end(), std::back_inserter(rows));
#if defined(VANTIX_TEST_LOCALES)
    locale = LocaleRows("CommaLocaleInC", CommaLocaleInC);
    std::move(locale.begin(), locale.end(), std::back_inserter(rows));
#endif
    for (FaultRow& row : LinuxRows()) {
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace vantix::test
