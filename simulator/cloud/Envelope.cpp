#include "Envelope.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vantix::simulator {
namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 11> messages = {{
    {code::success, "Operation succeeded"},
    {code::sessionExpired, "The session is not valid or has expired"},
    {code::badParameter, "A parameter is missing or wrong"},
    {code::tokenExpired, "The access token is not valid or has expired"},
    {code::noDevice, "The device does not exist"},
    {code::deviceOffline, "The device is not online"},
    {code::noPermission, "The account has no right to this device"},
    {code::noChannel, "The channel does not exist"},
    {code::nothingFound, "Nothing of this kind exists"},
    {"49999", "The data is not consistent"},
    {code::serverFailed, "The service failed"},
}};

bool IsNumber(std::string_view text) {
    return !text.empty() && text.size() < 10 &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::string_view MessageOf(std::string_view code) {
    const auto* found =
        std::find_if(messages.begin(), messages.end(), [code](const auto& entry) { return entry.first == code; });
    return found == messages.end() ? "The request was refused" : found->second;
}

Json Wrap(Envelope envelope, std::string_view code, std::string_view message, const Json& payload) {
    Json response = Json::object();
    switch (envelope) {
        case Envelope::result: response["result"] = {{"code", code}, {"msg", message}}; break;
        case Envelope::resultCode:
            response["resultCode"] = code;
            response["resultDesc"] = message;
            break;
        case Envelope::meta:
            response["meta"] = {{"code", code}, {"message", message}};
            if (IsNumber(code)) {
                response["meta"]["code"] = ToNumber(code);
            }
            break;
    }
    response.update(payload, true);
    return response;
}

}  // namespace vantix::simulator
