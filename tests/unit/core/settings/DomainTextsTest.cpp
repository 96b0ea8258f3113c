// Domains as texts: nothing is added to them or taken away, and what is handed out is the setting itself.

#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

using DomainTexts = FetchTest;

TEST_F(DomainTexts, SettingNothingIsLoggedAndChangesNothing) {
    core.setDomain("", "");
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::setDomain",
                                       "SetDomain OldAreaBDomain:https://b.example, szBDomain:, szCDomain:"));
    EXPECT_EQ(lines.Lines().size(), 1U);
    core.setPermissionMode(2);
    EXPECT_EQ(core.getDomain("OWN", 1), "https://b.example");
    EXPECT_EQ(core.getDomain("SHARED", 1), "https://c.example");
}

TEST_F(DomainTexts, AreStoredAsGiven) {
    core.setPermissionMode(2);
    for (const char* text : {"https://Domain.Example/", "https://domain.example//", "HTTPS://domain.example:443/a/../b",
                             "domain.example", "/", " https://domain.example ", "https://domain.example?x#y"}) {
        core.setDomain(text, "c");
        EXPECT_EQ(core.getDomain("OWN", 1), text);
        EXPECT_EQ(core.getDomainByToken("own-token"), text);
        core.setDomain("b", text);
        EXPECT_EQ(core.getDomain("SHARED", 1), text);
        EXPECT_EQ(core.getDomainByToken("shared-token"), text);
        core.setAuthAddr(text);
        EXPECT_EQ(core.getAuthAddr(), text);
    }
}

TEST_F(DomainTexts, AreHandedOutThemselves) {
    core.setPermissionMode(2);
    const std::string* const bDomain = &Parts().settings.AreaBDomain.Live();
    const std::string* const cDomain = &Parts().settings.CDomain.Live();
    EXPECT_EQ(&core.getDomain("OWN", 1), bDomain);
    EXPECT_EQ(&core.getDomain("SHARED", 1), cDomain);
    EXPECT_EQ(&core.getDomainByToken("own-token"), bDomain);
    EXPECT_EQ(&core.getDomainByToken("shared-token"), cDomain);
}

TEST_F(DomainTexts, ConsumerDomainThatIsNotSetIsReturnedEmpty) {
    Parts().settings.CDomain.Assign("");
    core.setPermissionMode(2);
    EXPECT_EQ(core.getDomain("SHARED", 1), "");
    EXPECT_EQ(core.getDomainByToken("shared-token"), "");
}

}  // namespace
}  // namespace vantix::test
