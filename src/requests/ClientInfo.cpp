#include "requests/ClientInfo.h"

#include "requests/FeatureCode.h"

namespace vantix {

ClientInfo::ClientInfo() : featureCode(PublicGetHDSign()) {}

void AddClientSet(ParamMap& params, const ClientInfo& client) {
    params.Add(kClientTypeKey, client.clientType);
    for (const ClientText& row : kClientTexts) {
        params.Add(row.key, client.*row.text);
    }
}

void AddHeaderSetA(ParamMap& headers, const ClientInfo& client, const std::string& sessionId) {
    headers.Add("sessionId", sessionId);
    headers.Add("osVersion", client.osVersion);
    headers.Add("netType", client.netType);
    headers.Add("osVersion", client.osVersion);  // added twice, sent once
    headers.Add("clientVersion", client.clientVersion);
    headers.Add("clientType", client.clientType);
    headers.Add("clientNo", kCustomerNumber);
}

void AddHeaderSetB(ParamMap& headers, const ClientInfo& client, const std::string& sessionId) {
    headers.Add("clientType", client.clientType);
    headers.Add("clientVersion", client.clientVersion);
    headers.Add("customno", kCustomerNumber);
    headers.Add("featureCode", client.featureCode);
    headers.Add("netType", client.netType);
    headers.Add("lang", kLanguage);
    headers.Add("sessionId", sessionId);
}

}  // namespace vantix
