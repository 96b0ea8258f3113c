// A host that is at the end of its means, or changes its own process while the library is at work.

#include <clocale>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <locale>

#include "faults/FaultRow.h"
#include "support/FakeClock.h"
#include "support/NoThreads.h"
#include "support/ProcessUsage.h"

#if defined(__linux__)
#include <sys/resource.h>
#endif

namespace vantix::test {
namespace {

/// Sets a variable of the environment while it exists.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const std::string& value) : m_name(name) { Set(value.c_str()); }
    ~EnvironmentVariable() { Set(""); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    void Set(const char* value) const {
#if defined(_WIN32)
        _putenv_s(m_name, value);
#else
        if (*value == '\0') {
            unsetenv(m_name);
        } else {
            setenv(m_name, value, 1);
        }
#endif
    }

    const char* m_name;
};

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

/// Digits grouped by points, a comma before the fraction.
class CommaPunctuation : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

class CppCommaLocale {
public:
    CppCommaLocale() : m_before(std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation))) {}
    ~CppCommaLocale() { std::locale::global(m_before); }
    CppCommaLocale(const CppCommaLocale&) = delete;
    CppCommaLocale& operator=(const CppCommaLocale&) = delete;

private:
    std::locale m_before;
};

std::shared_ptr<void> CommaLocaleInCpp(const SimulatorClient& /*cloud*/) { return std::make_shared<CppCommaLocale>(); }

#if defined(VANTIX_TEST_LOCALES)
class CCommaLocale {
public:
    CCommaLocale() : m_path("LOCPATH", VANTIX_TEST_LOCALES) {
        if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) {
            throw std::runtime_error("the locale with a decimal comma is not there");
        }
    }
    ~CCommaLocale() { std::setlocale(LC_ALL, "C"); }
    CCommaLocale(const CCommaLocale&) = delete;
    CCommaLocale& operator=(const CCommaLocale&) = delete;

private:
    EnvironmentVariable m_path;
};

std::shared_ptr<void> CommaLocaleInC(const SimulatorClient& /*cloud*/) { return std::make_shared<CCommaLocale>(); }
#endif

#if defined(__linux__)
/// Leaves the process no descriptor while it exists.
class DescriptorsGone {
public:
    DescriptorsGone() {
        getrlimit(RLIMIT_NOFILE, &m_before);
        rlimit lowered = m_before;
        lowered.rlim_cur = ProcessUsage::Now().descriptors - 1;  // counting took one
        setrlimit(RLIMIT_NOFILE, &lowered);
    }
    ~DescriptorsGone() { setrlimit(RLIMIT_NOFILE, &m_before); }
    DescriptorsGone(const DescriptorsGone&) = delete;
    DescriptorsGone& operator=(const DescriptorsGone&) = delete;

private:
    rlimit m_before{};
};

std::shared_ptr<void> NoDescriptorLeft(const SimulatorClient& /*cloud*/) { return std::make_shared<DescriptorsGone>(); }

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

}  // namespace

std::vector<FaultRow> HostRows() {
    const Outcome same = {.isAsBefore = true};
    const Json fractions = {{"devicePort", 8000.75}, {"version", 1.9}, {"cmdPort", 12345}};
    std::vector<FaultRow> rows = {
        {.name = "DeadHttpsProxy", .condition = DeadHttpsProxy, .outcome = {.result = 100007, .requests = 0}},
        {.name = "DeadProxyForAll", .condition = DeadProxyForAll, .outcome = {.result = 100007, .requests = 0}},
        {.name = "NoThreadLeft",
         .condition = NoThreadLeft,
         .outcome = same,
         .task = Outcome{.result = -1, .requests = 0}},
        {.name = "ClockADayAhead", .condition = ClockADayAhead, .outcome = same},
        {.name = "ClockADayBehind", .condition = ClockADayBehind, .outcome = same},
        {.name = "CommaLocaleInCpp", .condition = CommaLocaleInCpp, .device = fractions, .outcome = same},
#if defined(VANTIX_TEST_LOCALES)
        {.name = "CommaLocaleInC", .condition = CommaLocaleInC, .device = fractions, .outcome = same},
#endif
    };
    for (FaultRow& row : LinuxRows()) {
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace vantix::test
