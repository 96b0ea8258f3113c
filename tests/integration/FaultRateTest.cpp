// The loopback cloud's faults by chance, and its journal taken piece by piece: what long runs rely on.

#include <string>
#include <vector>

#include "SampleAccount.h"
#include "support/CoreFixture.h"
#include "support/Operations.h"

namespace vantix::test {
namespace {

class FaultRateTest : public CoreFixture {
protected:
    void Set(double percent, int seed) const {
        Cloud().Put("/fault-rate", {{"percent", percent},
                                    {"seed", seed},
                                    {"faults",
                                     {{{"name", "busy"}, {"response", {{"path", "/api/user/*"}, {"code", "49999"}}}},
                                      {{"name", "page"}, {"response", {{"path", "*"}, {"status", 502}}}}}}});
    }
    /// Which of so many requests succeeded, as "1" and "0".
    std::string Series(int requests) const {
        std::string series;
        for (int i = 0; i < requests; ++i) {
            series += Call(Center(), "getUserId", {}) == 0 ? '1' : '0';
        }
        return series;
    }
};

TEST_F(FaultRateTest, HitsAllNoneOrAShareThatTheSeedChooses) {
    Set(100, 1);
    EXPECT_EQ(Series(10), "0000000000");
    Set(0, 1);
    EXPECT_EQ(Series(10), "1111111111");
    Set(50, 7);
    const std::string first = Series(40);
    EXPECT_NE(first.find('0'), std::string::npos);
    EXPECT_NE(first.find('1'), std::string::npos);
    Set(50, 7);
    EXPECT_EQ(Series(40), first);
    Set(50, 8);
    EXPECT_NE(Series(40), first);
    Cloud().Delete("/fault-rate");
    EXPECT_EQ(Series(3), "111");
}

TEST_F(FaultRateTest, ChoosesAmongThoseThatFitAndCountsThem) {
    Set(100, 3);
    EXPECT_EQ(Call(Center(), "getUserId", {}), 300001) << "only the page fits";
    for (int i = 0; i < 40; ++i) {
        const int code = Call(Center(), "getUsername", {});
        EXPECT_TRUE(code == 300001 || code == 349999) << code;
    }
    const Json report = Cloud().Get("/fault-rate");
    EXPECT_EQ(report.at("requests"), 41);
    const int busy = report.at("injected").at("busy");
    const int page = report.at("injected").at("page");
    EXPECT_GT(busy, 0);
    EXPECT_GT(page, 1);
    EXPECT_EQ(busy + page, 41);
}

TEST_F(FaultRateTest, ScriptComesFirstAndAResetEndsIt) {
    Set(100, 1);
    Cloud().Script({{"path", "/api/service/user/get"}, {"code", "20018"}});
    EXPECT_EQ(Call(Center(), "getUserId", {}), 320018);
    EXPECT_EQ(Cloud().Get("/fault-rate").at("requests"), 0);
    Cloud().Reset();
    EXPECT_EQ(Call(Center(), "getUserId", {}), 0);
}

TEST_F(FaultRateTest, SettingThatHasNoEffectIsRefused) {
    EXPECT_THROW(Cloud().Put("/fault-rate", {{"percent", 101}}), std::runtime_error);
    EXPECT_THROW(Cloud().Put("/fault-rate", {{"percent", 5}, {"faults", Json::array()}}), std::runtime_error);
    EXPECT_THROW(Cloud().Put("/fault-rate", {{"percent", 5}, {"faults", {{{"name", "x"}, {"response", {}}}}}}),
                 std::runtime_error);
}

TEST_F(FaultRateTest, JournalIsTakenPieceByPieceEachEntryOnce) {
    Series(3);
    const Json first = Cloud().Post("/journal/take", {{"most", 2}});
    EXPECT_EQ(first.size(), 2U);
    EXPECT_EQ(first.at(0).at("path"), "/api/service/user/get");
    EXPECT_EQ(Cloud().RequestCount(), 1U);
    EXPECT_EQ(Cloud().Post("/journal/take").size(), 1U);
    EXPECT_EQ(Cloud().Post("/journal/take").size(), 0U);
    EXPECT_THROW(Cloud().Post("/journal/take", {{"most", 0}}), std::runtime_error);
}

}  // namespace
}  // namespace vantix::test
