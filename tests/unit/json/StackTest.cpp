// How much stack the deepest text takes that the readers accept: the JSON libraries call themselves for each level.

#if !defined(_WIN32)

#include <gtest/gtest.h>
#include <pthread.h>

#include <string>

#include "json/Json11Reader.h"
#include "json/JsonCppReader.h"

namespace vantix::json {
namespace {

struct Reading {
    std::string text;
    bool isJsonCpps = false;
    bool isJson11s = false;
};

void* ReadWithBoth(void* argument) {
    auto* reading = static_cast<Reading*>(argument);
    reading->isJsonCpps = JsonCppDocument().Parse(reading->text);
    reading->isJson11s = Json11Document().Parse(reading->text);
    return nullptr;
}

/// Reads the text on a thread with this stack.
void ReadOnStack(Reading& reading, size_t bytes) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, bytes), 0);
    pthread_t thread{};
    ASSERT_EQ(pthread_create(&thread, &attributes, &ReadWithBoth, &reading), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

#if defined(__SANITIZE_THREAD__)
constexpr size_t kEnough = 4U << 20U;  // its frames are larger than those that hosts get
#else
constexpr size_t kEnough = 1U << 20U;
#endif

TEST(Stack, OfAMebibyteIsEnoughForTheDeepestText) {
    Reading deepest{.text = std::string(999, '[') + std::string(999, ']')};
    ReadOnStack(deepest, kEnough);
    EXPECT_TRUE(deepest.isJsonCpps);
    EXPECT_FALSE(deepest.isJson11s) << "it stops at 200 levels";
    Reading tooDeep{.text = std::string(100'000, '[')};
    ReadOnStack(tooDeep, kEnough);
    EXPECT_FALSE(tooDeep.isJsonCpps);
    EXPECT_FALSE(tooDeep.isJson11s);
}

}  // namespace
}  // namespace vantix::json

#endif
