#include "session/StandardError.h"

#include <fcntl.h>

#include <cstdint>
#include <string>

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#include <sanitizer/common_interface_defs.h>
#endif

namespace vantix::ctl {
namespace {

std::FILE* g_messages = nullptr;

#if defined(_WIN32)
constexpr const char* kNullDevice = "NUL";
int Duplicate(int descriptor) { return _dup(descriptor); }
void Redirect(int from, int to) { _dup2(from, to); }
int OpenNullDevice() { return _open(kNullDevice, _O_WRONLY); }
void Close(int descriptor) { _close(descriptor); }
std::FILE* OpenStream(int descriptor) { return _fdopen(descriptor, "w"); }
int DescriptorOf(std::FILE* stream) { return _fileno(stream); }
#else
constexpr const char* kNullDevice = "/dev/null";
int Duplicate(int descriptor) { return fcntl(descriptor, F_DUPFD_CLOEXEC, 3); }
void Redirect(int from, int to) { dup2(from, to); }
int OpenNullDevice() { return open(kNullDevice, O_WRONLY | O_CLOEXEC); }
void Close(int descriptor) { close(descriptor); }
std::FILE* OpenStream(int descriptor) { return fdopen(descriptor, "w"); }
int DescriptorOf(std::FILE* stream) { return fileno(stream); }
#endif

/// Lets a sanitizer's report reach the terminal in spite of the redirection.
void RedirectSanitizerReports([[maybe_unused]] int descriptor) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    // The interface takes the descriptor as a pointer.
    __sanitizer_set_report_fd(reinterpret_cast<void*>(static_cast<intptr_t>(descriptor)));
#endif
}

}  // namespace

StandardError::StandardError() : m_kept(Duplicate(DescriptorOf(stderr))) {
    std::fflush(stderr);
    const int nullDevice = OpenNullDevice();
    if (m_kept >= 0 && nullDevice >= 0) {
        g_messages = OpenStream(m_kept);
        RedirectSanitizerReports(m_kept);
        Redirect(nullDevice, DescriptorOf(stderr));
    }
    if (nullDevice >= 0) {
        Close(nullDevice);
    }
}

StandardError::~StandardError() {
    if (g_messages == nullptr) {
        return;
    }
    std::fflush(stderr);
    std::fflush(g_messages);
    Redirect(m_kept, DescriptorOf(stderr));
    RedirectSanitizerReports(DescriptorOf(stderr));
    std::fclose(g_messages);
    g_messages = nullptr;
}

std::FILE* StandardError::Stream() { return g_messages == nullptr ? stderr : g_messages; }

void PrintError(std::string_view message) {
    const std::string line = "vantixctl: " + std::string(message) + "\n";
    std::fflush(stdout);
    std::fputs(line.c_str(), StandardError::Stream());
    std::fflush(StandardError::Stream());
}

}  // namespace vantix::ctl
