#include "requests/TimeText.h"

#include <gtest/gtest.h>

namespace vantix {
namespace {

TEST(TimeText, OnlyTheFirstBlankIsEscaped) {
    struct Row {
        const char* text;
        const char* escaped;
    };
    constexpr Row kRows[] = {
        {"2026-05-15 10:20:30", "2026-05-15%2010:20:30"},
        {"2026-05-15 10:20:30 PM", "2026-05-15%2010:20:30 PM"},
        {"2026-05-15T10:20:30", "2026-05-15T10:20:30"},
        {" lead", "%20lead"},
        {"trail ", "trail%20"},
        {"  ", "%20 "},
        {" ", "%20"},
        {"", ""},
        {"tab\tstays", "tab\tstays"},
        {"a&b+c%20d", "a&b+c%20d"},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(WithFirstBlankEscaped(row.text), row.escaped);
    }
}

}  // namespace
}  // namespace vantix
