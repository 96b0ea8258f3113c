#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "support/LogCapture.h"

namespace vantix::test {

/// Matches a line by all that a reader of the log goes by. Tag and message may be matchers themselves.
testing::Matcher<const LogLine&> Line(unsigned level, const std::string& word, const testing::Matcher<std::string>& tag,
                                      const testing::Matcher<std::string>& message);

/// Matches lines of which exactly one has this message, and is like this:
///
///     EXPECT_THAT(log.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::getDomain", "Returning B domain"));
testing::Matcher<const std::vector<LogLine>&> HasLine(unsigned level, const std::string& word,
                                                      const testing::Matcher<std::string>& tag,
                                                      const testing::Matcher<std::string>& message);

}  // namespace vantix::test
