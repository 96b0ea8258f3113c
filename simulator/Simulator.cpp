#include "Simulator.h"

#include "control/Control.h"
#include "http/Server.h"

#include <optional>

namespace vantix::simulator {

struct Simulator::Parts {
    explicit Parts(const Options& options)
        : service(pause), control(service, [this] { return Statistics(); }), certificate(MakeCertificate()) {
        // Both addresses must be known before the account can name them, so requests wait at the door till then.
        std::unique_lock closed(door);
        b.emplace(
            options.bPort, certificate, [this](const Request& request) { return Serve(Domain::b, request); }, pause);
        c.emplace(
            options.cPort, certificate, [this](const Request& request) { return Serve(Domain::c, request); }, pause);
        controlServer.emplace(
            options.controlPort, std::nullopt, [this](const Request& request) { return ServeControl(request); }, pause);
        service.Open(b->Address(), c->Address());
        control.SetAddress(controlServer->Address());
    }

    ~Parts() {
        pause.Stop();
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

    void PassDoor() { const std::lock_guard wait(door); }

    Answer Serve(Domain domain, const Request& request) {
        PassDoor();
        ++(domain == Domain::b ? bRequests : cRequests);
        return service.Handle(domain, request);
    }

    Answer ServeControl(const Request& request) {
        PassDoor();
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
                {"journalDropped", service.JournalOf().Dropped()}};
    }

    Pause pause;
    Service service;
    Control control;
    Certificate certificate;
    std::mutex door;
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

std::vector<Exchange> Simulator::Journal() const { return m_parts->service.JournalOf().Entries(); }

void Simulator::ClearJournal() { m_parts->service.JournalOf().Clear(); }

void Simulator::Reset() { m_parts->service.Reset(); }

}  // namespace vantix::simulator
