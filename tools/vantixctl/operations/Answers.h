#pragma once

/// @file
/// The shapes in which operations answer. Each takes the call of the slot as a callable.

#include <vantix/IVantixDataCenter.h>

#include <future>
#include <string>
#include <string_view>

#include "Command.h"
#include "records/RecordJson.h"

namespace vantix::ctl {

/// Times that leave nothing out.
inline constexpr std::string_view kEarliest = "2000-01-01 00:00:00";
inline constexpr std::string_view kLatest = "2037-12-31 23:59:59";

}  // namespace vantix::ctl

namespace vantix::ctl::answers {

/// A value that is only handed out with a success.
inline Outcome WithValue(int code, Json value) {
    return {code, code == VANTIX_NOERROR ? std::move(value) : Json(nullptr)};
}

/// `int call()`: a return code alone.
template <class Function>
Outcome Code(const Function& call) {
    return {call(), nullptr};
}

/// `int call()`: a number, of which only -1 means failure.
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

/// Something that cannot fail.
inline Outcome Plain(Json value) { return {VANTIX_NOERROR, std::move(value)}; }

/// `void call()`.
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

/// `int call(std::string&)`: a JSON text, handed on as what it means.
template <class Function>
Outcome JsonText(const Function& call) {
    std::string text;
    const int code = call(text);
    Json parsed = Parsed(text);
    Outcome outcome = WithValue(code, parsed.is_discarded() ? Json(text) : std::move(parsed));
    outcome.isAnswer = true;
    return outcome;
}

/// `int call(Record&)`: a record.
template <class Record, class Function>
Outcome Filled(const Function& call) {
    Record record;
    const int code = call(record);
    return WithValue(code, ToJson(record));
}

/// `int call(Record&, std::future<int32_t>&)`: a record, from the cache or from a fetch that is waited for.
template <class Record, class Function>
Outcome Awaited(const Function& call) {
    return Filled<Record>([&](Record& record) {
        std::future<int32_t> future;
        const int code = call(record, future);
        return future.valid() ? future.get() : code;
    });
}

}  // namespace vantix::ctl::answers
