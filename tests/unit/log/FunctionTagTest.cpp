// How the compiler's name of a function becomes the tag of its lines.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "log/Logger.h"
#include "support/CleanSwitches.h"
#include "support/LogCapture.h"

#define TAG_OF_THIS (std::string(VANTIX_HERE.Tag().text))

std::string FreeAndGlobal() { return TAG_OF_THIS; }

namespace vantix::tagged {

struct Nothing {};

std::string Free() { return TAG_OF_THIS; }
std::string FreeWithArguments(const std::vector<std::string>& /*texts*/, void (* /*function*/)(int)) {
    return TAG_OF_THIS;
}
std::string FreeWithFunctionArgument(const std::function<int(const std::string&)>& /*function*/) { return TAG_OF_THIS; }
const std::string& FreeReturningReference() {
    static const std::string tag = TAG_OF_THIS;
    return tag;
}
const std::string* FreeReturningPointer() {
    static const std::string tag = TAG_OF_THIS;
    return &tag;
}
std::vector<std::pair<std::string, int>> FreeReturningTemplate() { return {{TAG_OF_THIS, 0}}; }
std::function<std::string(int)> FreeReturningFunction() {
    return [tag = TAG_OF_THIS](int) { return tag; };
}
decltype(auto) FreeReturningDeduced() { return TAG_OF_THIS; }
auto FreeReturningTrailing() -> std::string { return TAG_OF_THIS; }
static std::string FreeStatic() { return TAG_OF_THIS; }
template <class Value>
std::string FreeTemplate(const Value& /*value*/) {
    return TAG_OF_THIS;
}

namespace {
std::string Unnamed() { return TAG_OF_THIS; }
struct UnnamedClass {
    std::string Method() const { return TAG_OF_THIS; }
};
namespace inner {
std::string Deeper() { return TAG_OF_THIS; }
}  // namespace inner
}  // namespace

class CThing {
public:
    CThing() : built(TAG_OF_THIS) {}
    explicit CThing(int /*argument*/) : built(TAG_OF_THIS) {}
    explicit CThing(std::string* destroyed) : m_destroyed(destroyed) {}
    virtual ~CThing() {
        if (m_destroyed != nullptr) {
            *m_destroyed = TAG_OF_THIS;
        }
    }
    CThing(const CThing&) = delete;
    CThing& operator=(const CThing&) = delete;

    std::string method() { return TAG_OF_THIS; }
    std::string constMethod(int /*argument*/) const { return TAG_OF_THIS; }
    std::string noexceptMethod() noexcept { return TAG_OF_THIS; }
    static std::string staticMethod(const Nothing& /*argument*/) { return TAG_OF_THIS; }
    const std::string& methodReturningReference() {
        m_kept = TAG_OF_THIS;
        return m_kept;
    }
    template <class Value>
    std::string methodTemplate(Value /*value*/) {
        return TAG_OF_THIS;
    }
    virtual std::string virtualMethod() { return TAG_OF_THIS; }

    std::string lambda(int /*argument*/) {
        return [] { return TAG_OF_THIS; }();
    }
    std::string lambdaWithArguments() const {
        return [](const std::string& /*text*/, int /*number*/) { return TAG_OF_THIS; }("", 1);
    }
    std::string nestedLambda() {
        return [] { return [] { return TAG_OF_THIS; }(); }();
    }
    std::string mutableLambda() {
        return [n = 0]() mutable {
            ++n;
            return TAG_OF_THIS;
        }();
    }

    struct Inner {
        std::string method() const { return TAG_OF_THIS; }
    };

    std::string built;

private:
    std::string m_kept;
    std::string* m_destroyed = nullptr;
};

template <class Value>
struct CTemplate {
    std::string method() { return TAG_OF_THIS; }
};

std::string FreeLambda() {
    return [] { return TAG_OF_THIS; }();
}

}  // namespace vantix::tagged

namespace vantix::test {
namespace {

using namespace vantix::tagged;  // NOLINT(google-build-using-namespace): the subjects of this file

TEST(FunctionTag, FreeFunctionIsItsBareName) {
    EXPECT_EQ(FreeAndGlobal(), "FreeAndGlobal");
    EXPECT_EQ(Free(), "Free");
    EXPECT_EQ(FreeStatic(), "FreeStatic");
    EXPECT_EQ(FreeWithArguments({}, nullptr), "FreeWithArguments");
    EXPECT_EQ(FreeWithFunctionArgument({}), "FreeWithFunctionArgument");
    EXPECT_EQ(FreeTemplate(5), "FreeTemplate");
    EXPECT_EQ(FreeTemplate(std::vector<std::string>()), "FreeTemplate");
}

TEST(FunctionTag, ReturnTypeIsNoPartOfIt) {
    EXPECT_EQ(FreeReturningReference(), "FreeReturningReference");
    EXPECT_EQ(*FreeReturningPointer(), "FreeReturningPointer");
    EXPECT_EQ(FreeReturningTemplate().front().first, "FreeReturningTemplate");
    EXPECT_EQ(FreeReturningTrailing(), "FreeReturningTrailing");
}

TEST(FunctionTag, ReturnTypeWithParenthesesIsNoPartOfIt) {
    EXPECT_EQ(FreeReturningFunction()(0), "FreeReturningFunction");
}

TEST(FunctionTag, DeducedReturnTypeIsNoPartOfIt) { EXPECT_EQ(FreeReturningDeduced(), "FreeReturningDeduced"); }

TEST(FunctionTag, UnnamedNamespaceIsNoPartOfIt) {
    EXPECT_EQ(Unnamed(), "Unnamed");
    EXPECT_EQ(UnnamedClass().Method(), "UnnamedClass::Method");
    EXPECT_EQ(inner::Deeper(), "Deeper");
}

TEST(FunctionTag, MethodIsClassAndName) {
    CThing thing;
    EXPECT_EQ(thing.method(), "CThing::method");
    EXPECT_EQ(thing.constMethod(1), "CThing::constMethod");
    EXPECT_EQ(thing.noexceptMethod(), "CThing::noexceptMethod");
    EXPECT_EQ(CThing::staticMethod({}), "CThing::staticMethod");
    EXPECT_EQ(thing.methodReturningReference(), "CThing::methodReturningReference");
    EXPECT_EQ(thing.methodTemplate("text"), "CThing::methodTemplate");
    EXPECT_EQ(thing.virtualMethod(), "CThing::virtualMethod");
    EXPECT_EQ(CThing::Inner().method(), "CThing::Inner::method");
}

TEST(FunctionTag, ConstructorAndDestructorAreMethods) {
    EXPECT_EQ(CThing().built, "CThing::CThing");
    EXPECT_EQ(CThing(1).built, "CThing::CThing");
    std::string destroyed;
    std::make_unique<CThing>(&destroyed).reset();
    EXPECT_EQ(destroyed, "CThing::~CThing");
}

TEST(FunctionTag, MethodOfAClassTemplateKeepsClassAndName) {
    EXPECT_THAT(CTemplate<int>().method(), testing::StartsWith("CTemplate"));
    EXPECT_THAT(CTemplate<int>().method(), testing::EndsWith("::method"));
    EXPECT_THAT(CTemplate<std::vector<int>>().method(), testing::StartsWith("CTemplate"));
    EXPECT_THAT(CTemplate<std::vector<int>>().method(), testing::EndsWith("::method"));
}

TEST(FunctionTag, LambdaBeginsWithTheTagOfTheFunctionAroundIt) {
    CThing thing;
    EXPECT_THAT(thing.lambda(1), testing::StartsWith("CThing::lambda::"));
    EXPECT_THAT(thing.lambdaWithArguments(), testing::StartsWith("CThing::lambdaWithArguments::"));
    EXPECT_THAT(thing.nestedLambda(), testing::StartsWith("CThing::nestedLambda::"));
    EXPECT_THAT(thing.mutableLambda(), testing::StartsWith("CThing::mutableLambda::"));
    EXPECT_THAT(FreeLambda(), testing::StartsWith("FreeLambda::"));
}

/// Names as other compilers spell them.
std::string TagOf(const char* name) { return FunctionTag(name, tag_detail::FindTag(name)).text; }

struct Spelling {
    const char* name;
    const char* tag;
};

constexpr Spelling kSpellings[] = {
    // gcc.
    {"std::string vantix::CVantixDataCenter::getB2CTokens(const std::string&, int)", "CVantixDataCenter::getB2CTokens"},
    {"const std::__cxx11::basic_string<char>& vantix::CVantixDataCenter::getAccessToken()",
     "CVantixDataCenter::getAccessToken"},
    {"int vantix::{anonymous}::NotAvailable(const vantix::CallSite&)", "NotAvailable"},
    {"vantix::CVantixDataCenter::CVantixDataCenter()", "CVantixDataCenter::CVantixDataCenter"},
    {"vantix::CVantixDataCenter::getDevDetailInfo(const string&, int)::<lambda()>",
     "CVantixDataCenter::getDevDetailInfo::<lambda()>"},
    {"vantix::{anonymous}::Zone::mut()::<lambda()> mutable", "Zone::mut::<lambda()>"},
    {"vantix::{anonymous}::Zone::cref() const &::<lambda(const std::string&, int)>",
     "Zone::cref::<lambda(const std::string&, int)>"},
    {"vantix::Zone::t<std::map<int, int> >(std::map<int, int>)::<lambda(auto:11)> [with auto:11 = int]",
     "Zone::t<std::map<int, int> >::<lambda(auto:11)>"},
    {"void vantix::{anonymous}::Zone::t(T) [with T = std::map<int, int>]", "Zone::t"},
    {"std::map<int, T> vantix::Tp<std::map<int, int> >::method(std::map<int, T>) const",
     "Tp<std::map<int, int> >::method"},
    {"vantix::run()::<lambda()>::<lambda(int)>", "run::<lambda()>::<lambda(int)>"},
    {"vantix::run<std::string>(T)::<lambda()>", "run<std::string>::<lambda()>"},
    {"void vantix::{anonymous}::Zone::operator()(int) const", "Zone::operator()"},
    {"vantix::Alarm::operator bool()", "Alarm::operator bool"},
    {"decltype(auto) vantix::FreeReturningDeduced()", "FreeReturningDeduced"},
    {"const char *vantix::Named::name()", "Named::name"},
    {"auto vantix::Guarded<void(int)>::With(Use&&)", "Guarded<void(int)>::With"},
    {"void vantix::run(void (*)(int), int)::<lambda()>", "run::<lambda()>"},
    {"operator()", "operator()"},
    // clang.
    {"int vantix::(anonymous namespace)::NotAvailable(const CallSite &)", "NotAvailable"},
    {"auto vantix::CVantixDataCenter::getDevDetailInfo(const std::string &, int)::(anonymous class)::operator()() "
     "const",
     "CVantixDataCenter::getDevDetailInfo::(anonymous class)::operator()()"},
    {"const GuardedText &vantix::CVantixDataCenter::getDomain(const std::string &, int)",
     "CVantixDataCenter::getDomain"},
    {"auto vantix::Guarded<std::string>::With(Use &&) [Value = std::string, Use = (lambda at x.cpp:1:2)]",
     "Guarded<std::string>::With"},
    {"auto vantix::run()::(anonymous class)::operator()(int) const", "run::(anonymous class)::operator()(int)"},
    {"auto vantix::(anonymous namespace)::Zone::t(std::map<int, int>)::(anonymous class)::operator()(auto) const "
     "[auto:1 = int]",
     "Zone::t::(anonymous class)::operator()(auto)"},
    // The Windows compiler: no return type, no arguments.
    {"vantix::CVantixDataCenter::getDomain", "CVantixDataCenter::getDomain"},
    {"vantix::`anonymous-namespace'::NotAvailable", "NotAvailable"},
    {"vantix::GetServerInfoFromPlatform", "GetServerInfoFromPlatform"},
    {"GetServerInfoFromPlatform", "GetServerInfoFromPlatform"},
    {"vantix::CVantixDataCenter::getDevDetailInfo::<lambda_1>::operator ()",
     "CVantixDataCenter::getDevDetailInfo::<lambda_1>::operator ()"},
    {"vantix::CVantixDataCenter::getDevDetailInfo::<lambda_1>::operator()",
     "CVantixDataCenter::getDevDetailInfo::<lambda_1>::operator()"},
    {"vantix::CTemplate<std::vector<int,std::allocator<int> > >::method",
     "CTemplate<std::vector<int,std::allocator<int> > >::method"},
};

TEST(FunctionTag, SpellingsOfAllCompilersGiveTheSameTag) {
    for (const Spelling& spelling : kSpellings) {
        EXPECT_EQ(TagOf(spelling.name), spelling.tag) << spelling.name;
    }
}

TEST(FunctionTag, NamesThatAreNoneAreSurvived) {
    for (const char* name :
         {"", "(", ")", "()", "::", "a::", "::(", "((((", "))))", "<", ">", " ", "f(", "operator()"}) {
        EXPECT_LE(TagOf(name).size(), std::string(name).size()) << name;
    }
}

TEST(FunctionTag, OfANameThatNoCompilerWritesIsWhatStandsBeforeItsArguments) {
    EXPECT_EQ(TagOf("vantix::a:b(int)"), "a:b");
    EXPECT_EQ(TagOf("vantix::f(int){"), "f");
    EXPECT_EQ(TagOf("vantix::f(int)~"), "f");
}

TEST(FunctionTag, IsMadeAtCompileTime) {
    static constexpr FunctionTag kTag = CallSite("int vantix::CRequest::SyncRequest(const char*)", 1).Tag();
    static_assert(kTag.text[0] == 'C' && kTag.text[8] == ':' && kTag.text[9] == ':');
    EXPECT_STREQ(kTag.text, "CRequest::SyncRequest");
}

TEST(FunctionTag, LineBearsTheTagOfItsFunction) {
    const CleanSwitches clean;
    const LogCapture lines;
    VANTIX_LOG_INFO(VANTIX_HERE, 3, "statement");
    ASSERT_EQ(lines.Lines().size(), 1U);
    EXPECT_EQ(lines.Lines()[0].Tag(), "FunctionTag_LineBearsTheTagOfItsFunction_Test::TestBody");
}

}  // namespace
}  // namespace vantix::test
