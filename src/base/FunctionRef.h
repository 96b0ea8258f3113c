#pragma once

#include <concepts>
#include <memory>
#include <type_traits>
#include <utility>

namespace vantix {

template <class Signature>
class FunctionRef;

/// A function, or an object to call that belongs to the caller: two pointers, nothing on the heap. For parameters
/// alone, since it is not valid longer than what it refers to.
template <class Result, class... Arguments>
class FunctionRef<Result(Arguments...)> {
public:
    // NOLINTBEGIN(google-explicit-constructor): a parameter takes whatever can be called
    FunctionRef(Result (*function)(Arguments...)) : m_target{.function = function}, m_call(&CallFunction) {}

    template <class Object>
    requires(std::is_class_v<Object> && !std::same_as<Object, FunctionRef> &&
             std::is_invocable_r_v<Result, const Object&, Arguments...>) FunctionRef(const Object& object)
        : m_target{.object = std::addressof(object)}, m_call(&CallObject<Object>) {}
    // NOLINTEND(google-explicit-constructor)

    Result operator()(Arguments... arguments) const { return m_call(m_target, std::forward<Arguments>(arguments)...); }

private:
    union Target {
        const void* object;
        Result (*function)(Arguments...);
    };

    static Result CallFunction(Target target, Arguments... arguments) {
        return target.function(std::forward<Arguments>(arguments)...);
    }
    template <class Object>
    static Result CallObject(Target target, Arguments... arguments) {
        return (*static_cast<const Object*>(target.object))(std::forward<Arguments>(arguments)...);
    }

    Target m_target;
    Result (*m_call)(Target target, Arguments... arguments);
};

}  // namespace vantix
