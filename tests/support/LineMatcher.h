#pragma once

#include <gmock/gmock.h>

#include <string>

#include "support/LogCapture.h"

namespace vantix::test {

/// Matches a line by all that a reader of the log goes by. Tag and message may be matchers themselves:
///
///     EXPECT_THAT(log.Lines(), Contains(Line(3, "INFO ", "SyncRequest", StartsWith("start Posts"))));
testing::Matcher<const LogLine&> Line(unsigned level, const std::string& word, const testing::Matcher<std::string>& tag,
                                      const testing::Matcher<std::string>& message);

}  // namespace vantix::test
