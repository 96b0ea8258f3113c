#include "soak/Generations.h"

namespace vantix::test {
namespace {

constexpr const char* kDevices[] = {"C10000001", "R20000016", "B30000003", "B30000004", "F50000005", "S60000006"};

/// Generations are numbers that fit into a port.
constexpr int kLastGeneration = 60000;

}  // namespace

std::string Mark(int generation, const std::string& owner) {
    return std::string("g").append(std::to_string(generation)).append(".").append(owner);
}

Publisher::Publisher(const SimulatorClient& cloud) : m_cloud(cloud) {
    for (const char* serial : kDevices) {
        m_cameras[serial] = cloud.Device(serial).at("cameras");
    }
}

void Publisher::PublishDevice(const std::string& serial) const {
    const int number = m_generation;
    const std::string mark = Mark(number, serial);
    const Json servers = {{{"ip", mark}, {"port", number}}};
    Json cameras = m_cameras.at(serial);
    for (Json& camera : cameras) {
        camera["cameraName"] = mark;
        camera["streamBizUrl"] = mark;
        camera["forceStreamType"] = number;
    }
    m_cloud.Put("/devices/" + serial, {{"deviceName", mark},
                                       {"device",
                                        {{"version", number},
                                         {"publicKey", mark},
                                         {"deviceIP", mark},
                                         {"localIp", mark},
                                         {"casIp", mark},
                                         {"vtmIp", mark},
                                         {"devicePort", number},
                                         {"cmdPort", number},
                                         {"casPort", number},
                                         {"vtmBackups", servers}}},
                                       {"cameras", cameras},
                                       {"p2p",
                                        {{"serverInfos", servers},
                                         {"defaultKey", mark},
                                         {"secretKey", mark},
                                         {"defaultKeyVer", std::to_string(number)},
                                         {"keyVersion", number},
                                         {"capability", {{"V3Talk", mark}}}}}});
}

void Publisher::PublishAccount() const {
    const int number = m_generation;
    const std::string servers = Mark(number, kServersOwner);
    const std::string config = Mark(number, kConfigOwner);
    const std::string bandwidth = Mark(number, kBandwidthOwner);
    const std::string message = Mark(number, kMessageOwner);
    m_cloud.Put("/account",
                {{"servers",
                  {{"stun1Addr", servers},
                   {"stun1Port", number},
                   {"stun2Addr", servers},
                   {"stun2Port", number},
                   {"ttsAddr", servers},
                   {"vtmAddr", servers},
                   {"vtmPort", number},
                   {"pushDasPort", number},
                   {"vtmBackups", {{{"addr", servers}, {"port", number}}}}}},
                 {"p2pUser", {{"data", Mark(number, kP2PUserOwner)}, {"version", number}, {"saltIndex", number}}},
                 {"config", {{"pushAddr", config}, {"pushAuthAddr", config}, {"dataCollect", number}}},
                 {"bandwidth", {{"id", bandwidth}, {"url", bandwidth}, {"publicKey", bandwidth}, {"version", number}}},
                 {"messages", {{{"msgSeq", "M0000001"}, {"msgType", message}, {"data", message}, {"sn", message}}}}});
}

void Publisher::PublishAll() {
    for (const char* serial : kDevices) {
        PublishDevice(serial);
    }
    PublishAccount();
}

void Publisher::PublishNext() {
    m_generation = m_generation % kLastGeneration + 1;
    m_part = (m_part + 1) % (std::size(kDevices) + 1);
    if (m_part < std::size(kDevices)) {
        PublishDevice(kDevices[m_part]);
    } else {
        PublishAccount();
    }
}

}  // namespace vantix::test
