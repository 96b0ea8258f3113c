// Handles are objects and nothing else: no list of them is kept, so one that the factory did not make works and is
// freed like any other.

#include <gtest/gtest.h>

#include "boundary/CVantixDataCenterWrapper.h"
#include "core/CVantixDataCenter.h"
#include "support/FailingNew.h"
#include "unit/boundary/HandleTest.h"

namespace vantix::test {
namespace {

using ForeignHandle = HandleTest;

TEST_F(ForeignHandle, WorksAndIsFreedLikeAnyOther) {
    CVantixDataCenter core;
    auto* foreign = new CVantixDataCenterWrapper(&core);
    foreign->setAppId("foreign");
    std::string appId;
    EXPECT_EQ(foreign->getAppId(appId), "foreign");
    const size_t before = FailingNew::Freed();
    DestroyVantixDataCenterInstance(foreign);
    EXPECT_EQ(FailingNew::Freed(), before + 1);
    EXPECT_EQ(core.getAppId(), "foreign");
    EXPECT_TRUE(lines.Lines().empty());
}

TEST_F(ForeignHandle, DestroyingNullFreesNothing) {
    const size_t before = FailingNew::Freed();
    DestroyVantixDataCenterInstance(nullptr);
    EXPECT_EQ(FailingNew::Freed(), before);
}

TEST_F(ForeignHandle, DomainsAreHandedOutThemselves) {
    handle->setDomain("https://first.example/", "");
    const std::string& byChannel = handle->getDomain("S", 1);
    const std::string& byToken = handle->getDomainByToken("token");
    EXPECT_EQ(&byChannel, &byToken);
    EXPECT_EQ(&byChannel, &handle->getDomain("T", 2));
    EXPECT_EQ(byChannel, "https://first.example/");
    handle->setDomain("https://second.example", "");
    EXPECT_EQ(byChannel, "https://second.example");
}

}  // namespace
}  // namespace vantix::test
