#include "Simulator.h"

#include "control/Control.h"
#include "http/Server.h"

#include <optional>

namespace vantix::simulator {

struct Simulator::Parts {
    explicit Parts(const Options& options)
        : service(delays), control(service, [this] { return Statistics(); }), certificate(MakeCertificate()) {
        // The account names both addresses, which exist only when both servers listen; requests wait until then.
        const std::lock_guard lock(startup);
        b.emplace(
            options.bPort, certificate, [this](const Request& request) { return Serve(Domain::b, request); }, delays);
        c.emplace(
            options.cPort, certificate, [this](const Request& request) { return Serve(Domain::c, request); }, delays);
        controlServer.emplace(
            options.controlPort, std::nullopt, [this](const Request& request) { return ServeControl(request); },
            delays);
        service.CreateCloud(b->Address(), c->Address());
        control.SetAddress(controlServer->Address());
    }

    ~Parts() {
        delays.Stop();
        for (auto* server : {&controlServer, &c, &b}) {
            if (*server) {
                (*server)->Stop();
            }
        }
    }

    Parts(const Parts&) = delete;
    Parts& operator=(const Parts&) = delete;
    Parts(Parts&&) = delete;
    Parts& operator=(Parts&&) = delete;

    void WaitUntilStarted() { const std::lock_guard lock(startup); }

    Response Serve(Domain domain, const Request& request) {
        WaitUntilStarted();
        ++(domain == Domain::b ? bRequests : cRequests);
        return service.Handle(domain, request);
    }

    Response ServeControl(const Request& request) {
        WaitUntilStarted();
        return control.Handle(request);
    }

    Json Statistics() {
        const auto port = [](const Server& server, std::uint64_t requests) -> Json {
            return {{"requests", requests},
                    {"connectionsOpened", server.ConnectionsOpened()},
                    {"connectionsOpen", server.ConnectionsOpen()}};
        };
        return {{"B", port(*b, bRequests.load())},
                {"C", port(*c, cRequests.load())},
                {"journalDropped", service.GetJournal().Dropped()}};
    }

    RequestDelays delays;
    Service service;
    Control control;
    Certificate certificate;
    std::mutex startup;  ///< locked while the constructor runs
    std::atomic<std::uint64_t> bRequests{0};
    std::atomic<std::uint64_t> cRequests{0};
    std::optional<Server> b;
    std::optional<Server> c;
    std::optional<Server> controlServer;
};

Simulator::Simulator(const Options& options) : m_parts(std::make_unique<Parts>(options)) {}

Simulator::~Simulator() = default;

std::string Simulator::BDomain() const { return m_parts->b->Address(); }

std::string Simulator::CDomain() const { return m_parts->c->Address(); }

std::string Simulator::ControlAddress() const { return m_parts->controlServer->Address(); }

std::string Simulator::InfoJson() const { return Dump(m_parts->control.Info()); }

std::vector<ReceivedRequest> Simulator::Journal() const { return m_parts->service.GetJournal().Entries(); }

void Simulator::ClearJournal() { m_parts->service.GetJournal().Clear(); }

void Simulator::Reset() { m_parts->service.Reset(); }

}  // namespace vantix::simulator
