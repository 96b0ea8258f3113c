#include "support/LineMatcher.h"

namespace vantix::test {

using testing::Contains;
using testing::Property;

testing::Matcher<const LogLine&> Line(unsigned level, const std::string& word, const testing::Matcher<std::string>& tag,
                                      const testing::Matcher<std::string>& message) {
    return testing::AllOf(testing::Field("level", &LogLine::level, level), Property("Word", &LogLine::Word, word),
                          Property("Tag", &LogLine::Tag, tag), Property("Message", &LogLine::Message, message));
}

testing::Matcher<const std::vector<LogLine>&> HasLine(unsigned level, const std::string& word,
                                                      const testing::Matcher<std::string>& tag,
                                                      const testing::Matcher<std::string>& message) {
    return testing::AllOf(Contains(Line(level, word, tag, message)),
                          Contains(Property("Message", &LogLine::Message, message)).Times(1));
}

}  // namespace vantix::test
