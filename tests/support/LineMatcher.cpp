#include "support/LineMatcher.h"

namespace vantix::test {

testing::Matcher<const LogLine&> Line(unsigned level, const std::string& word, const testing::Matcher<std::string>& tag,
                                      const testing::Matcher<std::string>& message) {
    return testing::AllOf(testing::Field("level", &LogLine::level, level),
                          testing::Property("Word", &LogLine::Word, word), testing::Property("Tag", &LogLine::Tag, tag),
                          testing::Property("Message", &LogLine::Message, message));
}

}  // namespace vantix::test
