#include "requests/ClientInfo.h"

#include <gtest/gtest.h>

#include <string>

#include "support/CleanSwitches.h"
#include "support/FixedFeatureCode.h"

namespace vantix {
namespace {

class Client : public testing::Test {
protected:
    test::CleanSwitches m_switches;
    test::FixedFeatureCode m_featureCode;
};

ParamMap HeadersOfSetA(const ClientInfo& client, const std::string& sessionId) {
    ParamMap headers;
    AddHeaderSetA(headers, client, sessionId);
    return headers;
}

ParamMap HeadersOfSetB(const ClientInfo& client, const std::string& sessionId) {
    ParamMap headers;
    AddHeaderSetB(headers, client, sessionId);
    return headers;
}

TEST_F(Client, SaysWhoSends) {
    const ClientInfo client;
    EXPECT_EQ(client.clientType, 19);
    EXPECT_EQ(client.featureCode, "f-code");
    EXPECT_EQ(client.osVersion, "wins");
    EXPECT_EQ(client.clientVersion, "v5.25.0");
    EXPECT_EQ(client.sdkVersion, "v5.25.0.20260515");
    EXPECT_EQ(client.netType, "UNKNOWN");
    EXPECT_STREQ(kCustomerNumber, "100002");
    EXPECT_STREQ(kLanguage, "EN");
}

TEST_F(Client, TheParameterSetHasSixMembers) {
    ParamMap params;
    AddClientSet(params, ClientInfo());
    EXPECT_EQ(params.Serialize(),
              "clientType=19&clientVersion=v5.25.0&featureCode=f-code&netType=UNKNOWN&osVersion=wins"
              "&sdkVersion=v5.25.0.20260515");
}

TEST_F(Client, TheParameterSetJoinsWhatIsThere) {
    ParamMap params;
    params.Add("accessToken", "at.1");
    params.Add("osVersion", "mine");
    AddClientSet(params, ClientInfo());
    EXPECT_EQ(params.Serialize(),
              "accessToken=at.1&clientType=19&clientVersion=v5.25.0&featureCode=f-code&netType=UNKNOWN"
              "&osVersion=mine&sdkVersion=v5.25.0.20260515");
}

TEST_F(Client, AnEmptyFeatureCodeIsStillSent) {
    ClientInfo client;
    client.featureCode.clear();
    ParamMap params;
    AddClientSet(params, client);
    EXPECT_EQ(params.Find("featureCode"), "");
    EXPECT_EQ(HeadersOfSetB(client, "s").Find("featureCode"), "");
}

TEST_F(Client, HeaderSetAHasNeitherFeatureCodeNorLanguage) {
    const ParamMap headers = HeadersOfSetA(ClientInfo(), "session.1");
    EXPECT_EQ(headers.Serialize(),
              "clientNo=100002&clientType=19&clientVersion=v5.25.0&netType=UNKNOWN&osVersion=wins&sessionId=session.1");
}

TEST_F(Client, HeaderSetBHasBothAndTheOtherNameOfTheCustomer) {
    const ParamMap headers = HeadersOfSetB(ClientInfo(), "session.1");
    EXPECT_EQ(headers.Serialize(),
              "clientType=19&clientVersion=v5.25.0&customno=100002&featureCode=f-code&lang=EN&netType=UNKNOWN"
              "&sessionId=session.1");
}

TEST_F(Client, AnEmptySessionIsAHeaderToo) {
    EXPECT_EQ(HeadersOfSetA(ClientInfo(), "").Find("sessionId"), "");
    EXPECT_EQ(HeadersOfSetB(ClientInfo(), "").Find("sessionId"), "");
}

}  // namespace
}  // namespace vantix
