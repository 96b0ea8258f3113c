#pragma once

#include "../cloud/Service.h"

#include <functional>

namespace vantix::simulator {

/// The control interface: one row of its table for each method and path. Safe from any thread.
class Control {
public:
    /// Both must outlive it; `statistics` gives the answer to GET /stats.
    Control(Service& service, std::function<Json()> statistics);

    Answer Handle(const Request& request);

    /// The addresses and the account.
    Json Info();

    /// The address of the control interface itself, shown by `Info`.
    void SetAddress(std::string address) { m_address = std::move(address); }

    Service& ServiceOf() { return m_service; }
    [[nodiscard]] Json Statistics() const { return m_statistics(); }

private:
    Service& m_service;
    std::function<Json()> m_statistics;
    std::string m_address;
};

}  // namespace vantix::simulator
