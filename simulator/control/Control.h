#pragma once

#include "../cloud/Service.h"

#include <functional>

namespace vantix::simulator {

/// The control interface: one row of its table for each method and path. Safe from any thread.
class Control {
public:
    /// `service` must outlive it; `statistics` makes the response to GET /stats.
    Control(Service& service, std::function<Json()> statistics);

    Response Handle(const Request& request);

    /// The addresses and the account.
    Json Info();

    /// Sets the address of the control interface itself, which `Info` includes.
    void SetAddress(std::string address) { m_address = std::move(address); }

    Service& GetService() { return m_service; }
    [[nodiscard]] Json Statistics() const { return m_statistics(); }

private:
    Service& m_service;
    std::function<Json()> m_statistics;
    std::string m_address;
};

}  // namespace vantix::simulator
