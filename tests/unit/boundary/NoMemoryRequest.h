#pragma once

#include <string>

#include "support/FailingNew.h"
#include "support/RequestCase.h"
#include "tvllog/tvllog.h"
#include "unit/boundary/HandleTest.h"

namespace vantix::test {

/// A request of the tables whose memory runs out. Its server always returns the row's responses.
class NoMemoryRequest : public HandleTest, public testing::WithParamInterface<RequestCase> {
protected:
    NoMemoryRequest() {
        TVLLOG_SetCallback(nullptr);  // a capture of lines would allocate inside the library
        handle->setDomain("https://b.example", "https://c.example");
        handle->setAuthAddr("https://b.example");
        transport.Always([](const SentRequest& request) { return Respond(request); });
    }

    static const RequestCase& Row() { return GetParam(); }

    static ScriptedResponse Respond(const SentRequest& request) {
        const FailingNew::Suspended suspended;
        const auto isTo = [&](const char* path) { return request.url.find(path) != std::string::npos; };
        for (const auto* others : {&Row().before, &Row().after}) {
            for (const Exchange& exchange : *others) {
                if (isTo(exchange.path)) {
                    return {0, exchange.response};
                }
            }
        }
        return isTo(Row().path.c_str()) ? ScriptedResponse{0, Row().response} : ScriptedResponse{7, {}};
    }

    /// Puts everything back to where the row's call starts.
    void Prepare() {
        const FailingNew::Suspended suspended;
        PrepareFor(Row(), *handle);
        if (Row().operation == "getOneStreamToken") {
            handle->setAccessToken("another token");  // so that nothing queued is served
        }
    }
};

}  // namespace vantix::test
