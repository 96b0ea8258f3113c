#pragma once

/// @file
/// Makes the outcome of an operation, by the way in which the operation returns. Each takes the call of the slot as a
/// callable; its signature stands before the description.

#include <vantix/IVantixDataCenter.h>

#include <future>
#include <string>
#include <string_view>

#include "Command.h"
#include "records/RecordJson.h"

namespace vantix::ctl {

/// A span of time that includes all recordings and alarms.
inline constexpr std::string_view kEarliest = "2000-01-01 00:00:00";
inline constexpr std::string_view kLatest = "2037-12-31 23:59:59";

}  // namespace vantix::ctl

namespace vantix::ctl::outcomes {

/// A value that is shown only with success.
inline Outcome WithValue(int code, Json value) {
    return {code, code == VANTIX_NOERROR ? std::move(value) : Json(nullptr)};
}

/// `int call()`: a return code alone.
template <class Function>
Outcome Code(const Function& call) {
    return {call(), nullptr};
}

/// `int call()`: a number, where only -1 means failure.
template <class Function>
Outcome Number(const Function& call) {
    const int number = call();
    return WithValue(number == VANTIX_ERROR ? VANTIX_ERROR : VANTIX_NOERROR, number);
}

/// `int call()`: 1 for yes, 0 for no, -1 for a failure.
template <class Function>
Outcome YesNo(const Function& call) {
    const int number = call();
    return WithValue(number == VANTIX_ERROR ? VANTIX_ERROR : VANTIX_NOERROR, number == 1);
}

/// `int call()`: 0 for yes, anything else for a failure.
template <class Function>
Outcome Granted(const Function& call) {
    return WithValue(call(), true);
}

/// A value of a call that cannot fail.
inline Outcome Value(Json value) { return {VANTIX_NOERROR, std::move(value)}; }

/// `void call()`: nothing.
template <class Function>
Outcome Done(const Function& call) {
    call();
    return {};
}

/// `int call(std::string&)`: a text.
template <class Function>
Outcome Text(const Function& call) {
    std::string text;
    const int code = call(text);
    return WithValue(code, text);
}

/// `int call(std::string&)`: a JSON text, which is parsed.
template <class Function>
Outcome JsonText(const Function& call) {
    std::string text;
    const int code = call(text);
    Json parsed = Parsed(text);
    Outcome outcome = WithValue(code, parsed.is_discarded() ? Json(text) : std::move(parsed));
    outcome.isServerResponse = true;
    return outcome;
}

/// `int call(Record&)`: a record.
template <class Record, class Function>
Outcome Filled(const Function& call) {
    Record record;
    const int code = call(record);
    return WithValue(code, ToJson(record));
}

/// `int call(Record&, std::future<int32_t>&)`: a record, from the cache or from a fetch, which is awaited.
template <class Record, class Function>
Outcome Awaited(const Function& call) {
    return Filled<Record>([&](Record& record) {
        std::future<int32_t> future;
        const int code = call(record, future);
        return future.valid() ? future.get() : code;
    });
}

}  // namespace vantix::ctl::outcomes
