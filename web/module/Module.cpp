// What JavaScript calls. It gives texts by address and size, in memory that it has from malloc().
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "log/Digits.h"
#include "log/LogReader.h"
#include "web/module/Names.h"
#include "web/module/Options.h"
#include "web/module/Session.h"

namespace qxpdu {

namespace {

/// As JavaScript reads it out of the memory, word by word.
struct Result {
    const char* output;
    std::size_t outputSize;
    const char* messages;
    std::size_t messagesSize;
    int status;
    int lacksNames; ///< 1 where there would be names of characters in it
};

/// Words that stand one after the other, each ended by a NUL.
std::vector<std::string> WordsIn(std::string_view text) {
    std::vector<std::string> words;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = text.find('\0', begin);
        words.emplace_back(text.substr(begin, end - begin));
        begin = end == std::string_view::npos ? text.size() : end + 1;
    }
    return words;
}

/// Commands are mostly run again and again with the same options.
const PreparedCommand& CommandFor(std::string_view words) {
    constexpr std::size_t c_mostKept = 32;
    static std::map<std::string, std::unique_ptr<PreparedCommand>, std::less<>> kept;
    auto found = kept.find(words);
    if (found == kept.end()) {
        if (kept.size() == c_mostKept)
            kept.clear();
        found = kept.emplace(words, std::make_unique<PreparedCommand>(WordsIn(words))).first;
    }
    return *found->second;
}

/// It stands until the next call; so does the session that it is of.
const Result* ResultOf(const Session& session) {
    static Result result;
    const std::string& output = session.Output();
    const std::string& messages = session.Messages();
    result = {output.data(),   output.size(),    messages.data(),
              messages.size(), session.Status(), WereNamesWanted() ? 1 : 0};
    return &result;
}

/// Of a command that cannot be run.
const Result* Refused(std::string message) {
    static std::string text;
    static Result result;
    text = std::move(message);
    result = {nullptr, 0, text.data(), text.size(), Console::WRONG_COMMAND_LINE, 0};
    return &result;
}

template <typename Work>
const Result* ResultUnlessRefused(const Session& session, Work work) {
    try {
        work();
        return ResultOf(session);
    } catch (const CommandLineError& error) {
        return Refused(error.what());
    }
}

} // namespace

extern "C" {

/// Runs a command on what its standard input would be.
[[clang::export_name("run")]] const Result* RunCommand(const char* words, std::size_t wordsSize,
                                                       const char* input, std::size_t inputSize) {
    static std::unique_ptr<Session> session;
    session = std::make_unique<Session>();
    return ResultUnlessRefused(*session, [&] {
        session->Run(CommandFor({words, wordsSize}), {input, inputSize});
    });
}

/// For a command whose input comes in pieces.
[[clang::export_name("open")]] Session* OpenSession() {
    return std::make_unique<Session>().release();
}

[[clang::export_name("begin")]] const Result* BeginCommand(Session* session, const char* words,
                                                           std::size_t wordsSize) {
    return ResultUnlessRefused(*session, [&] { session->Begin(CommandFor({words, wordsSize})); });
}

[[clang::export_name("take")]] const Result* TakePiece(Session* session, const char* piece, std::size_t size,
                                                       int isLast) {
    session->Take({piece, size}, isLast != 0);
    return ResultOf(*session);
}

[[clang::export_name("close")]] void CloseSession(Session* session) {
    const std::unique_ptr<Session> closed(session);
}

/// Whether somebody may have meant a line of the text as a PDU, or has it from a modem.
[[clang::export_name("mayHavePdu")]] int MayHavePdu(const char* text, std::size_t size) {
    const std::string_view all(text, size);
    for (std::size_t begin = 0; begin < size;) {
        const std::size_t end = std::min(all.find('\n', begin), size);
        const std::string line(all.substr(begin, end - begin));
        if (MayBePdu(line) || HasHeading(line))
            return 1;
        begin = end + 1;
    }
    return 0;
}

[[clang::export_name("setNames")]] void GiveNames(const char* rows, std::size_t size) {
    SetNames({rows, size});
}
}

} // namespace qxpdu
