#pragma once

/// @file
/// Watches every call of libcurl that the transport makes, and the conversion of bodies, and lets any of them fail
/// (options.cmake).

#include <curl/curl.h>

#include <cstddef>
#include <string>
#include <vector>

namespace vantix::test {

/// While it exists, no transfer leaves the process: calls are recorded and handed on to libcurl, but for `perform`,
/// which delivers a scripted response. One at a time, on one thread. Without it libcurl is libcurl.
///
/// Calls are recorded as texts: "init"; an option by its name and value ("NOSIGNAL 1", "URL https://…"); "header LINE";
/// "form", "part", "part name N", "part data D", "part file PATH"; "perform"; "free headers", "free form", "cleanup".
class CurlSpy {
public:
    CurlSpy();
    ~CurlSpy();
    CurlSpy(const CurlSpy&) = delete;
    CurlSpy& operator=(const CurlSpy&) = delete;

    /// Forgets all calls, faults and the response.
    void Clear();
    /// What each transfer gets: libcurl's code, and a body in pieces.
    void Respond(CURLcode code, const std::vector<std::string>& pieces = {});

    /// From now on there is no handle to be had.
    void FailInit();
    /// Of the calls of one kind the n-th, counted from 1, fails.
    void FailOption(size_t n, CURLcode code);
    void FailHeader(size_t n);
    /// Forms and parts fail as null, names and data with a code.
    void FailFormCall(size_t n, CURLcode code);
    /// From now on there is no block of this size or a larger one for a body.
    void FailBlocksFrom(size_t size);
    /// From now on the conversion of a body to the code page gives this text.
    void ConvertTo(const std::string& text);

    /// All calls so far, in order.
    std::vector<std::string> Calls() const;
    /// How many calls begin with this text.
    size_t Count(const std::string& start) const;
    /// How many options were set, or tried to.
    size_t OptionCount() const;
    /// How many calls built a form.
    size_t FormCallCount() const;
    /// The texts that were converted to the code page.
    std::vector<std::string> Converted() const;

    /// What the last transfer would have sent, read when it was performed.
    std::string Url() const;
    std::string Method() const;
    std::string Body() const;
    std::vector<std::string> Headers() const;
    /// Handles, header lists and forms that were made and not yet released.
    int Unreleased() const;
};

}  // namespace vantix::test
