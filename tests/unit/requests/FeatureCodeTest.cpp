#include "requests/FeatureCode.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "cryptowrap/cryptowrap.h"
#include "support/CleanSwitches.h"
#include "support/LineMatcher.h"

namespace vantix {
namespace {

using testing::ElementsAre;

/// A machine that is made up.
struct Machine {
    std::string serial = "ABC";
    std::string mac = "00-11-22-33-44-55";
    bool hardwareFails = false;
    bool digestFails = false;
    int queries = 0;
    std::vector<std::string> digested;
    bool buffersWereZero = true;
};
Machine g_machine;

bool IsZero(const char* buffer, size_t size) {
    return std::all_of(buffer, buffer + size, [](char c) { return c == '\0'; });
}

int DiskSerial(char* serial, char* second) {
    ++g_machine.queries;
    g_machine.buffersWereZero = g_machine.buffersWereZero && IsZero(serial, 64) && IsZero(second, 64);
    if (g_machine.hardwareFails) {
        return -1;
    }
    std::snprintf(serial, 64, "%s", g_machine.serial.c_str());
    std::snprintf(second, 64, "not used");
    return 0;
}

int MacAddress(char* mac) {
    ++g_machine.queries;
    g_machine.buffersWereZero = g_machine.buffersWereZero && IsZero(mac, 48);
    if (g_machine.hardwareFails) {
        return -1;
    }
    std::snprintf(mac, 48, "%s", g_machine.mac.c_str());
    return 0;
}

int Digest(const void* data, unsigned length, char* digestText, unsigned* digestLength) {
    g_machine.digested.emplace_back(static_cast<const char*>(data), length);
    g_machine.buffersWereZero = g_machine.buffersWereZero && IsZero(digestText, 64);
    return g_machine.digestFails ? -1 : ssl_md5_digest(data, length, digestText, digestLength);
}

const HardwareSource kSource{DiskSerial, MacAddress, Digest};

constexpr const char* kCode = "a3d4512a48b1908a15222e4f630a88e6";
constexpr const char* kGbkText = "\xBB\xF1\xC8\xA1\xCC\xD8\xD5\xF7\xC2\xEB\xCA\xA7\xB0\xDC";

class FeatureCode : public testing::Test {
public:
    FeatureCode() {
        g_machine = Machine();
        ForgetFeatureCode();
    }
    ~FeatureCode() override { ForgetFeatureCode(); }
    FeatureCode(const FeatureCode&) = delete;
    FeatureCode& operator=(const FeatureCode&) = delete;

protected:
    test::CleanSwitches m_switches;
    test::LogCapture m_log;
};

using HDSign = FeatureCode;

TEST_F(HDSign, IsTheDigestOfSerialAndMac) {
    char buffer[64] = {};
    EXPECT_EQ(GetHDSign(buffer, kSource), 0);
    EXPECT_THAT(g_machine.digested, ElementsAre("ABC|00-11-22-33-44-55"));
    EXPECT_STREQ(buffer, kCode);
    EXPECT_TRUE(g_machine.buffersWereZero);
}

TEST_F(HDSign, LogsSixCharactersOfTheCode) {
    char buffer[64] = {};
    GetHDSign(buffer, kSource);
    EXPECT_THAT(m_log.Messages(), ElementsAre("serial:ABC ,mac:00-11-22-33-44-55 ,HDSign:a3d451***"));
    EXPECT_THAT(m_log.Lines().at(0), test::Line(3, "INFO ", "GetHDSign", testing::_));
    EXPECT_FALSE(m_log.Contains(std::string(kCode).substr(0, 7)));
}

TEST_F(HDSign, HardwareThatFailsStandsAsEmptyTexts) {
    g_machine.hardwareFails = true;
    char buffer[64] = {};
    EXPECT_EQ(GetHDSign(buffer, kSource), 0);
    EXPECT_THAT(g_machine.digested, ElementsAre("|"));
    EXPECT_STREQ(buffer, "b99834bc19bbad24580b3adfa04fb947");
    EXPECT_THAT(m_log.Messages(), ElementsAre("serial: ,mac: ,HDSign:b99834***"));
}

TEST_F(HDSign, AnEmptySerialLeavesTheBar) {
    g_machine.serial.clear();
    char buffer[64] = {};
    EXPECT_EQ(GetHDSign(buffer, kSource), 0);
    EXPECT_THAT(g_machine.digested, ElementsAre("|00-11-22-33-44-55"));
}

TEST_F(HDSign, TakesTheLongestTextsWhole) {
    g_machine.serial = std::string(63, 'S');
    g_machine.mac = std::string(47, 'M');
    char buffer[64] = {};
    EXPECT_EQ(GetHDSign(buffer, kSource), 0);
    EXPECT_THAT(g_machine.digested, ElementsAre(g_machine.serial + "|" + g_machine.mac));
}

TEST_F(HDSign, AFailedDigestIsMinusOneAndALine) {
    g_machine.digestFails = true;
    char buffer[64] = "as before";
    EXPECT_EQ(GetHDSign(buffer, kSource), -1);
    EXPECT_STREQ(buffer, "as before");
    EXPECT_THAT(m_log.Messages(),
                ElementsAre("Hdsign md5 failed. ssl_md5_digest failed. serial:ABC ,mac:00-11-22-33-44-55"));
    EXPECT_THAT(m_log.Lines().at(0), test::Line(5, "ERROR", "GetHDSign", testing::_));
}

TEST_F(HDSign, WithoutLinesItIsTheSame) {
    iLogLevel = level::kError + 1;
    char buffer[64] = {};
    EXPECT_EQ(GetHDSign(buffer, kSource), 0);
    EXPECT_STREQ(buffer, kCode);
    g_machine.digestFails = true;
    EXPECT_EQ(GetHDSign(buffer, kSource), -1);
    EXPECT_EQ(PublicGetHDSign(kSource), "");
    EXPECT_THAT(m_log.Messages(), testing::IsEmpty());
}

TEST_F(HDSign, ANullBufferIsMinusOne) {
    EXPECT_EQ(GetHDSign(nullptr, kSource), -1);
    EXPECT_EQ(g_machine.queries, 0);
}

TEST_F(FeatureCode, IsMadeOnceAndKept) {
    EXPECT_EQ(PublicGetHDSign(kSource), kCode);
    EXPECT_EQ(g_machine.queries, 2);
    g_machine.serial = "another disk";
    EXPECT_EQ(PublicGetHDSign(kSource), kCode);
    EXPECT_EQ(g_machine.queries, 2) << "the hardware is not asked again";
    EXPECT_EQ(m_log.Lines().size(), 1U);
}

TEST_F(FeatureCode, AfterAFailureTheNextRequestTriesAgain) {
    g_machine.digestFails = true;
    EXPECT_EQ(PublicGetHDSign(kSource), "");
    EXPECT_EQ(g_machine.queries, 2);
    EXPECT_EQ(PublicGetHDSign(kSource), "");
    EXPECT_EQ(g_machine.queries, 4);
    g_machine.digestFails = false;
    EXPECT_EQ(PublicGetHDSign(kSource), kCode);
    EXPECT_EQ(g_machine.queries, 6);
    EXPECT_EQ(PublicGetHDSign(kSource), kCode);
    EXPECT_EQ(g_machine.queries, 6);
}

TEST_F(FeatureCode, AFailureIsLoggedInTheLogsOwnCodePage) {
    g_machine.digestFails = true;
    PublicGetHDSign(kSource);
    EXPECT_THAT(m_log.Messages(),
                ElementsAre("Hdsign md5 failed. ssl_md5_digest failed. serial:ABC ,mac:00-11-22-33-44-55", kGbkText));
    EXPECT_THAT(m_log.Lines().at(1), test::Line(5, "ERROR", "PublicGetHDSign", testing::_));
}

TEST_F(FeatureCode, HardwareThatFailsIsNoFailure) {
    g_machine.hardwareFails = true;
    EXPECT_EQ(PublicGetHDSign(kSource), "b99834bc19bbad24580b3adfa04fb947");
    EXPECT_EQ(m_log.Lines().size(), 1U);
}

TEST_F(FeatureCode, ForgettingMakesItAnew) {
    EXPECT_EQ(PublicGetHDSign(kSource), kCode);
    ForgetFeatureCode();
    g_machine.hardwareFails = true;
    EXPECT_NE(PublicGetHDSign(kSource), kCode);
}

TEST_F(FeatureCode, OfThisMachineIsADigest) {
    const std::string code = PublicGetHDSign();
    EXPECT_EQ(code.size(), 32U);
    EXPECT_EQ(code.find_first_not_of("0123456789abcdef"), std::string::npos);
    EXPECT_EQ(PublicGetHDSign(), code);
}

TEST_F(FeatureCode, IsTheSameForThreadsThatAskAtOnce) {
    ForgetFeatureCode();
    std::vector<std::string> codes(8);
    std::vector<std::thread> threads;
    threads.reserve(codes.size());
    for (std::string& code : codes) {
        threads.emplace_back([&code] { code = PublicGetHDSign(); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const std::string& code : codes) {
        EXPECT_EQ(code, codes.front());
    }
    EXPECT_EQ(codes.front(), PublicGetHDSign());
}

}  // namespace
}  // namespace vantix
