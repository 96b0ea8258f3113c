// Memory that runs out at any place: nothing is thrown, and no record is a mixture.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "support/DetailResponse.h"
#include "support/FailingNew.h"
#include "support/Operations.h"
#include "tvllog/tvllog.h"
#include "unit/boundary/HandleTest.h"

namespace vantix::test {
namespace {

/// As the other tests of handles, but without a capture of lines, which would allocate inside the library.
class NoMemoryTest : public HandleTest {
protected:
    NoMemoryTest() {
        TVLLOG_SetCallback(nullptr);
        handle->setDomain("https://b.example", "https://c.example");
        handle->setAccessToken("a token that is no short string");
    }
    ~NoMemoryTest() override {
        ServePrefetchedToken("a token that is no short string");
        ServePrefetchedToken("another token that is no short string");
    }
    NoMemoryTest(const NoMemoryTest&) = delete;
    NoMemoryTest& operator=(const NoMemoryTest&) = delete;

    /// Makes the next response one that bears this mark, whatever was left of the script.
    void Script(const std::string& mark) {
        const FailingNew::Suspended suspended;
        transport.DropScript();
        transport.Respond(MarkedDetailResponse("C1", 1, mark).dump());
    }
    int Fetch() {
        DevChannelInfo channelInfo;
        DevDetailInfo detail;
        return handle->getDevDetailInfoSync("C1", 1, true, channelInfo, detail);
    }
    /// Fills the caches with the old records, then scripts new ones, whose texts are longer and need memory.
    void FillWithOld() {
        const FailingNew::Suspended suspended;
        Script("old");
        EXPECT_EQ(Fetch(), 0);
        Script("which is a good deal longer than the one before it, for it is new");
    }
    /// The marks of the records in the three caches.
    std::vector<std::set<std::string>> CachedMarks();
};

/// The marks that the texts of a record end in: one, unless the record is a mixture.
std::set<std::string> Marks(std::initializer_list<std::string> texts) {
    std::set<std::string> marks;
    for (const std::string& text : texts) {
        marks.insert(text.substr(text.rfind(' ') + 1));
    }
    return marks;
}

std::set<std::string> Marks(const DevChannelInfo& c) {
    return Marks({c.cameraId, c.capability, c.streamBizUrl,
                  c.videoQualityInfos.empty() ? "none" : c.videoQualityInfos[0].videoQualityName});
}

std::set<std::string> Marks(const DevDetailInfo& d) {
    return Marks({d.deviceIP, d.localIp, d.ppvsAddr, d.casIp, d.encryptPwd, d.vtmIp, d.ttsIp, d.supportExtShort,
                  d.gbJtTtsIP, d.publicKey, d.support_ecdh_v2,
                  d.vtmBackups.empty() ? "none" : d.vtmBackups[0].strVtmAddr});
}

std::vector<std::set<std::string>> NoMemoryTest::CachedMarks() {
    DevChannelInfo channelInfo;
    DevDetailInfo byChannel;
    DevDetailInfo bySerial;
    EXPECT_EQ(handle->getDevInfoCache("C1", 1, channelInfo, byChannel), 0);
    EXPECT_EQ(handle->getDevDetailInfoSync("C1", 1, false, channelInfo, bySerial), 0);
    return {Marks(channelInfo), Marks(byChannel), Marks(bySerial)};
}

TEST_F(NoMemoryTest, NoOperationThrowsWhicheverAllocationFails) {
    const Arguments arguments =
        Arguments::AllOf("C1-a-serial-that-is-no-short-string", "another token that is no short string",
                         R"([{"token":"a text that is JSON, too","deviceSerial":"S","channelNo":"1"}])", 1);
    transport.Always([](const SentRequest&) { return ScriptedResponse{0, MarkedDetailResponse("C1", 1, "x").dump()}; });
    for (const Operation& operation : Operations()) {
        if (std::string(operation.name) == "getServerInfoEx") {
            continue;  // takes a text by value: its copy is the caller's
        }
        SCOPED_TRACE(operation.name);
        size_t thrown = 0;
        WithEveryAllocationFailing(
            [&] {
                Outputs outputs;
                try {
                    Call(*handle, operation, arguments, outputs);
                } catch (const std::exception&) {
                    ++thrown;
                }
            },
            [](size_t /*n*/) { iLogLevel = level::kInfo; });
        EXPECT_EQ(thrown, 0U);
    }
}

TEST_F(NoMemoryTest, NothingIsSharedWhicheverAllocationFails) {
    handle->SetB2CTokens(
        R"([{"token":"a token that is no short string","deviceSerial":"S","channelNo":"1","isShared":0}])");
    const std::string token = "another token that is no short string";
    const std::string serial = "a serial that is no short string";
    size_t yes = 0;
    size_t failures = 0;
    WithEveryAllocationFailing(
        [&] {
            yes += handle->isB2CSharedToken(token) ? 1U : 0U;
            yes += handle->isB2CSharedChannel(serial, 1) ? 1U : 0U;
        },
        [&](size_t /*n*/) { failures += FailingNew::Fired() ? 1U : 0U; });
    EXPECT_EQ(yes, 0U);
    EXPECT_GT(failures, 0U);
}

TEST_F(NoMemoryTest, NextCallAfterAFailedOneSucceeds) {
    size_t failures = 0;
    WithEveryAllocationFailing(
        [&] {
            Script("first");
            failures += Fetch() != 0 ? 1U : 0U;
        },
        [&](size_t /*n*/) {
            Script("second");
            EXPECT_EQ(Fetch(), 0);
        });
    EXPECT_GT(failures, 10U);
}

#ifndef _WIN32  // where a body's memory does not fail
TEST_F(NoMemoryTest, EmptyBodyIsABlockThatMemoryMayLack) {
    transport.Always([](const SentRequest&) { return ScriptedResponse{0, ""}; });
    std::set<int> results{Fetch()};  // the first request of a process reads the feature code, too
    int result = 0;
    WithEveryAllocationFailing([&] { result = Fetch(); }, [&](size_t /*n*/) { results.insert(result); });
    EXPECT_THAT(results, testing::ElementsAre(-1, 100027, 300001));
}
#endif

TEST_F(NoMemoryTest, CachedRecordIsNeverAMixtureOfTwo) {
    const std::set<std::string> oldMark{"old"};
    const std::set<std::string> newMark{"new"};
    std::set<size_t> mixtures;  // by number of the allocation that failed
    WithEveryAllocationFailing(
        [&] {
            FillWithOld();
            Fetch();
        },
        [&](size_t n) {
            for (const auto& marks : CachedMarks()) {
                if (marks != oldMark && marks != newMark) {
                    mixtures.insert(n);
                }
            }
        });
    EXPECT_THAT(mixtures, testing::IsEmpty());
}

TEST_F(NoMemoryTest, FailedRefillLeavesAllThreeCachesAsTheyWere) {
    const std::set<std::string> oldMark{"old"};
    std::set<size_t> changes;  // by number of the allocation that failed
    int result = -1;
    WithEveryAllocationFailing(
        [&] {
            FillWithOld();
            result = Fetch();
        },
        [&](size_t n) {
            for (const auto& marks : CachedMarks()) {
                if (result != 0 && marks != oldMark) {
                    changes.insert(n);
                }
            }
        });
    EXPECT_THAT(changes, testing::IsEmpty());
}

TEST_F(NoMemoryTest, SettingIsOldOrNewWhenItsAllocationFails) {
    const std::string oldText = "the old text, which is no short string";
    const std::string newText = "the new text, which is longer and needs memory";
    WithEveryAllocationFailing(
        [&] {
            {
                const FailingNew::Suspended suspended;
                handle->setAccessToken(oldText);
            }
            handle->setAccessToken(newText);
        },
        [&](size_t /*n*/) {
            const std::string token = handle->getAccessToken();
            EXPECT_TRUE(token == oldText || token == newText) << token;
        });
}

}  // namespace
}  // namespace vantix::test
