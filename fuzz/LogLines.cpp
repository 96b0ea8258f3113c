// The format of log lines and of messages. The first byte is threshold and level, the second one makes a text
// long: from 192 on it is lengthened to about the size of the line buffer.

#include "log/Logger.h"
#include "requests/MessageText.h"
#include "support/Inputs.h"
#include "support/Lines.h"
#include "support/Records.h"

namespace vantix::fuzz {
namespace {

/// A text of 40,959 or 40,960 characters ends the process: that is the contract. All other lengths are tried.
constexpr size_t kLongestLine = 40958;
constexpr size_t kShortestDropped = 40961;

/// A text; a long one fills `room` characters but for a few, or has a few more.
std::string TextOf(Input& input, size_t room) {
    const uint8_t length = input.Byte();
    std::string text(input.Rest().substr(0, input.Rest().find('\0')));
    if (length >= 192 && !text.empty()) {
        const size_t wanted = room - 32 + (length - 192U);
        while (text.size() < wanted) {
            text += std::string(text);
        }
        text.resize(wanted);
    }
    return text;
}

void Write(int level, const std::string& text) { VANTIX_LOG_INFO(VANTIX_HERE, level, "%s", text.c_str()); }

void WriteMessageLine(const std::string& text, int code) {
    LogError(VANTIX_HERE, BodyCodeText("label:%s error:%d"), text, code);
}

/// The only line that is written, without its level and its end.
std::string OnlyLine() {
    const std::string line = TakeLines().at(0);
    return line.substr(1, line.size() - 2);
}

/// What stands before the text in lines of `Write`, and in those of messages.
const std::string& Prefix() {
    static const std::string prefix = [] {
        const WritingLines writing(1);
        Write(1, "");
        return OnlyLine();
    }();
    return prefix;
}
const std::string& MessagePrefix() {
    static const std::string prefix = [] {
        const WritingLines writing(1);
        WriteMessageLine("", 0);
        const std::string line = OnlyLine();
        return line.substr(0, line.find("label:"));
    }();
    return prefix;
}

/// Whether a line of this text would end the process.
bool EndsTheProcess(const std::string& text) { return text.size() > kLongestLine && text.size() < kShortestDropped; }

/// What the sinks receive of a text: nothing of one that does not fit.
std::string Emitted(int level, const std::string& text) {
    return std::to_string(level) + (text.size() <= kLongestLine ? text + "\n" : "");
}

void WriteLine(const std::string& bytes) {
    Input input(bytes);
    const uint8_t levels = input.Byte();
    const int threshold = levels % 8;
    const int level = levels / 8 % 8;
    const std::string text = Prefix() + TextOf(input, kLongestLine - Prefix().size());
    if (EndsTheProcess(text)) {
        return;
    }
    const WritingLines writing(threshold);
    Write(level, text.substr(Prefix().size()));
    const std::vector<std::string> lines = TakeLines();
    Require(lines.size() == (level >= threshold ? 1U : 0U));
    Require(lines.empty() || lines[0] == Emitted(level, text));
}

void WriteMessage(const std::string& bytes) {
    Input input(bytes);
    const int code = input.Byte() - 128;
    const std::string text = TextOf(input, kLongestLine - MessagePrefix().size() - 16);
    const std::string all = MessagePrefix() + "label:" + text + " error:" + std::to_string(code);
    if (EndsTheProcess(all)) {
        return;
    }
    const WritingLines writing(level::kError);
    WriteMessageLine(text, code);
    const std::vector<std::string> lines = TakeLines();
    Require(lines.size() == 1 && lines[0] == Emitted(level::kError, all));
}

constexpr Reader kRows[] = {
    {"line", WriteLine},
    {"message", WriteMessage},
};

}  // namespace

constinit const std::span<const Reader> kReaders{kRows};

}  // namespace vantix::fuzz
