// How a row's fault is brought about, and taken away again.

#include "faults/FaultFixture.h"
#include "support/Hex.h"

namespace vantix::test {
namespace {

/// JSON text of any bytes.
std::string Quoted(const std::string& bytes) {
    std::string quoted = "\"";
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || c == '"' || c == '\\') {
            constexpr char kDigits[] = "0123456789abcdef";
            quoted.append("\\u00").append(1, kDigits[byte >> 4U]).append(1, kDigits[byte & 0xFU]);
        } else {
            quoted += c;
        }
    }
    return quoted + '"';
}

/// The subject, for the row's own device.
Subject Asking(const FaultCase& fault) {
    Subject subject = fault.subject;
    subject.serial = fault.row.serial.value_or(subject.serial);
    return subject;
}

}  // namespace

std::string FaultFixture::ArrangeAddress(const FaultCase& fault) const {
    const FaultRow& row = fault.row;
    const Json port = row.portOf == nullptr ? row.port : row.portOf(fault.subject.body);
    std::string address = Filled(row.domain, Asking(fault), m_addresses);
    if (!port.is_null()) {
        address = Cloud().Fault(Filled(port, Asking(fault), m_addresses));
    }
    if (!address.empty()) {
        Center().setDomain(address, address);
    }
    return address;
}

void FaultFixture::ArrangeTokens(const std::vector<FaultCase>& faults) const {
    std::string tokens = AccountData().at("b2cTokens").dump();
    tokens.pop_back();
    bool isChanged = false;
    for (const FaultCase& fault : faults) {
        if (fault.row.serial && fault.subject.mode == 2) {
            isChanged = true;
            tokens.append(R"(,{"token":"b2c.other","isShared":)")
                .append(fault.subject.IsConsumer() ? "1" : "0")
                .append(R"(,"deviceSerial":)")
                .append(Quoted(*fault.row.serial))
                .append(R"(,"channelNo":")")
                .append(std::to_string(fault.row.channel.value_or(1)))
                .append("\"}");
        }
    }
    if (isChanged) {
        Center().SetB2CTokens(tokens + "]");
    }
}

void FaultFixture::ArrangeCredential(const FaultCase& fault) const {
    if (fault.row.credential && fault.subject.IsConsumer()) {
        Center().setSessionId(*fault.row.credential);
    } else if (fault.row.credential) {
        Center().setAccessToken(*fault.row.credential);
    }
}

void FaultFixture::ArrangeScripts(const FaultCase& fault) const {
    const Json scripts = fault.row.script.is_object() ? Json::array({fault.row.script}) : fault.row.script;
    for (const Json& script : scripts.is_null() ? Json::array() : scripts) {
        Json complete = {{"path", fault.subject.path}, {"times", 0}};
        complete.update(Filled(script, Asking(fault), m_addresses));
        if (complete.contains("bytes")) {
            complete["bodyHex"] = Hex(complete.at("bytes").get<std::string>());
            complete.erase("bytes");
        }
        Cloud().Script(complete);
    }
}

Arguments FaultFixture::Arrange(const FaultCase& fault) const {
    const FaultRow& row = fault.row;
    ArrangeScripts(fault);
    const std::string address = ArrangeAddress(fault);
    ArrangeCredential(fault);
    Arguments arguments = {.serial = Asking(fault).serial,
                           .ch = row.channel.value_or(1),
                           .force = true,
                           .url = address + "/upload",
                           .localPath = m_picture.Path()};
    if (row.time) {
        arguments.span = {*row.time, *row.time};
    }
    return arguments;
}

void FaultFixture::PutBack(const std::vector<FaultCase>& faults) {
    for (const FaultCase& fault : faults) {
        const FaultRow& row = fault.row;
        if (!fault.Expected().renewed.empty()) {
            continue;
        }
        if (row.credential && fault.subject.IsConsumer()) {
            EXPECT_EQ(Center().getSessionId(), *row.credential);
            Center().setSessionId(m_remembered.at("getSessionId ").at("live"));
        } else if (row.credential) {
            EXPECT_EQ(Center().getAccessToken(), *row.credential);
            Center().setAccessToken(Account("accessToken"));
        }
    }
    SetDeviceTokens();
    Center().setDomain(BDomain(), CDomain());
    Cloud().ForgetScript();
    Cloud().Delete("/faults");
}

size_t FaultFixture::Connections() const {
    size_t connections = 0;
    for (const Json& port : Cloud().Get("/faults")) {
        connections += port.at("connections").get<size_t>();
    }
    return connections;
}

}  // namespace vantix::test
