#if !defined(_WIN32)

#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <map>
#include <new>
#include <utility>

#include "Scenarios.h"

namespace vantix::life {
namespace {

/// Lowers a limit of this process while it exists.
class Limit {
public:
    Limit(__rlimit_resource resource, rlim_t value) : m_resource(resource) {
        getrlimit(m_resource, &m_before);
        rlimit lowered = m_before;
        lowered.rlim_cur = value;
        setrlimit(m_resource, &lowered);
    }
    ~Limit() { setrlimit(m_resource, &m_before); }
    Limit(const Limit&) = delete;
    Limit& operator=(const Limit&) = delete;

private:
    __rlimit_resource m_resource;
    rlimit m_before{};
};

/// Bytes of addresses in use.
rlim_t AddressSpace() {
    std::FILE* file = std::fopen("/proc/self/statm", "r");
    unsigned long pages = 0;
    const bool isRead = file != nullptr && std::fscanf(file, "%lu", &pages) == 1;
    if (file != nullptr) {
        std::fclose(file);
    }
    return isRead ? pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) : 0;
}

// NOLINTBEGIN(cppcoreguidelines-no-malloc): it is malloc that is to have nothing left
/// Holds all memory that is to be had, large blocks first.
class Hoard {
public:
    Hoard() {
        for (const size_t size : {kLarge, size_t{1'024}, size_t{64}}) {
            while (void* block = std::malloc(size)) {
                *m_end = new (block) Block{nullptr};
                m_end = &(*m_end)->next;
            }
        }
    }
    ~Hoard() { Release(std::numeric_limits<size_t>::max()); }
    Hoard(const Hoard&) = delete;
    Hoard& operator=(const Hoard&) = delete;

    /// Gives back so many blocks, of 2 KiB first.
    void Release(size_t blocks) {
        for (; blocks > 0 && m_first != nullptr; --blocks) {
            std::free(std::exchange(m_first, m_first->next));
        }
    }

private:
    static constexpr size_t kLarge = 2'048;
    struct Block {
        Block* next;
    };
    Block* m_first = nullptr;
    Block** m_end = &m_first;
};
// NOLINTEND(cppcoreguidelines-no-malloc)

/// A handle of a host that has fetched once, destroyed at its end.
class WarmHandle {
public:
    WarmHandle(const Library& library, const Setting& setting) : m_library(library), m_center(library.Create()) {
        Configure(*m_center, setting);
        if (FetchNow(*m_center, setting) != 0) {
            std::exit(EXIT_FAILURE);
        }
    }
    ~WarmHandle() { m_library.Destroy(m_center); }
    WarmHandle(const WarmHandle&) = delete;
    WarmHandle& operator=(const WarmHandle&) = delete;

    IVantixDataCenter& operator*() const { return *m_center; }

private:
    const Library& m_library;
    IVantixDataCenter* m_center;
};

std::atomic<int> g_signals{0};

void Count(int /*signal*/) { ++g_signals; }

}  // namespace

int Fork(const Setting& setting) {
    const Library library(setting.libraryPath);
    const WarmHandle handle(library, setting);
    IVantixDataCenter& center = *handle;
    FetchLater(center, setting);
    for (int time = 0; time < 20; ++time) {
        const pid_t child = fork();
        if (child == 0) {
            std::_Exit(FetchNow(center, setting) == 0 && FetchLater(center, setting) == 0 ? EXIT_SUCCESS
                                                                                          : EXIT_FAILURE);
        }
        const int parents = FetchNow(center, setting);
        int status = -1;
        waitpid(child, &status, 0);
        if (child < 0 || parents != 0 || status != 0) {
            std::printf("parent %d, child's status %d\n", parents, status);
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}

int Signals(const Setting& setting) {
    const Library library(setting.libraryPath);
    const WarmHandle handle(library, setting);
    IVantixDataCenter& center = *handle;
    struct sigaction action {};
    action.sa_handler = &Count;
    sigaction(SIGALRM, &action, nullptr);
    const itimerval each{{0, 1'000}, {0, 1'000}};
    setitimer(ITIMER_REAL, &each, nullptr);
    int good = 0;
    for (int time = 0; time < 200; ++time) {
        good += FetchNow(center, setting) == 0 && FetchLater(center, setting) == 0 ? 1 : 0;
    }
    const itimerval never{};
    setitimer(ITIMER_REAL, &never, nullptr);
    std::printf("%d of 200 fetches good, %d signals\n", good, g_signals.load());
    return good == 200 && g_signals > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

int FewDescriptors(const Setting& setting) {
    const Library library(setting.libraryPath);
    const Limit limit(RLIMIT_NOFILE, 20);
    const WarmHandle handle(library, setting);
    IVantixDataCenter& center = *handle;
    for (int time = 0; time < 200; ++time) {
        if (FetchNow(center, setting) != 0 || FetchLater(center, setting) != 0) {
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}

int LittleMemory(const Setting& setting) {
    const Library library(setting.libraryPath);
    const WarmHandle handle(library, setting);
    IVantixDataCenter& center = *handle;
    std::map<int, int> codes;
    for (size_t left = 0; left <= 400; left += 2) {
        const Limit limit(RLIMIT_AS, AddressSpace() + (size_t{16} << 20U));
        Hoard hoard;
        hoard.Release(left);
        ++codes[FetchNow(center, setting)];
    }
    for (const auto& [code, times] : codes) {
        std::printf("%d: %d times\n", code, times);
    }
    const bool ranOut = codes.size() > 1 && codes.count(0) > 0;
    return ranOut && FetchNow(center, setting) == 0 && FetchLater(center, setting) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

int NoThread(const Setting& setting) {
    const Library library(setting.libraryPath);
    const WarmHandle handle(library, setting);
    IVantixDataCenter& center = *handle;
    int refused = 0;
    {
        const Limit limit(RLIMIT_AS, AddressSpace() + 1'024 * 1'024);  // a stack needs more
        refused = FetchLater(center, setting);
    }
    const int after = FetchLater(center, setting);
    std::printf("without a thread %d, then %d\n", refused, after);
    return refused == -1 && after == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace vantix::life

#endif
