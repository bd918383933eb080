// What the libraries and the tool are hardened with, read from their files as they were built.
#include <ostream>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "support/Command.h"

namespace {

struct File {
    const char* name;
    const char* path;
};

void PrintTo(const File& file, std::ostream* pStream) {
    *pStream << file.name;
}

class Hardening : public testing::TestWithParam<File> {
protected:
    /// What a program prints that reads such files.
    static std::string Read(const std::string& command) {
        const auto outcome = tests::RunCommand(command + " " + tests::Quoted({GetParam().path}));
        EXPECT_EQ(outcome.status, 0) << command;
        return outcome.output;
    }
    static bool Holds(const std::string& text, const char* part) {
        return text.find(part) != std::string::npos;
    }
};

TEST_P(Hardening, WhatIsRelocatedIsReadOnlyBeforeAnyOfItsCodeRuns) {
    EXPECT_TRUE(Holds(Read(READELF " -lW"), "GNU_RELRO"));
    EXPECT_TRUE(Holds(Read(READELF " -dW"), "BIND_NOW"));
}

TEST_P(Hardening, NothingCanBeWrittenAndExecuted) {
    EXPECT_FALSE(Holds(Read(READELF " -lW"), "RWE"));
}

TEST_P(Hardening, CodeStandsAtAnyAddress) {
    EXPECT_TRUE(Holds(Read(READELF " -hW"), "DYN ("));
    EXPECT_FALSE(Holds(Read(READELF " -dW"), "TEXTREL"));
}

TEST_P(Hardening, OverwrittenStackIsNoticed) {
    EXPECT_TRUE(Holds(Read(READELF " --dyn-syms -W"), " __stack_chk_fail"));
}

/// What calls functions that the C library has a checked form of, with lengths known when it runs. By which
/// of them a compiler fills the support library's strings is its own affair.
class Fortification : public Hardening {};

TEST_P(Fortification, LengthsThatAreKnownWhenItRunsAreChecked) {
    EXPECT_TRUE(std::regex_search(Read(READELF " --dyn-syms -W"), std::regex(" __[a-z]+_chk@")));
}

#ifdef HAS_BRANCH_TARGETS
TEST_P(Hardening, CallsThroughPointersReachTheBeginningsOfFunctionsOnly) {
    std::set<std::string> functions;
    std::istringstream symbols(Read(NM " --defined-only"));
    for (std::string line; std::getline(symbols, line);) {
        std::istringstream words(line);
        std::string address, type, name;
        if (words >> address >> type >> name && (type == "T" || type == "W"))
            functions.insert(name);
    }
    for (const char* const ofTheCompilers : {"_init", "_fini", "_start"})
        functions.erase(ofTheCompilers);

    std::size_t marked = 0;
    std::istringstream code(Read(OBJDUMP " -d --no-show-raw-insn"));
    for (std::string line; std::getline(code, line);) {
        const std::size_t name = line.find(" <");
        if (line.empty() || line.front() == ' ' || line.back() != ':' || name == std::string::npos ||
            functions.count(line.substr(name + 2, line.size() - name - 4)) == 0)
            continue;
        std::string first;
        std::getline(code, first);
        EXPECT_TRUE(Holds(first, "endbr")) << line << first;
        ++marked;
    }
    EXPECT_NE(marked, 0U);
}
#endif

constexpr File c_encoding{"Encoding", ENCODING_LIBRARY};
constexpr File c_messages{"Messages", MESSAGES_LIBRARY};
constexpr File c_toolkit{"Toolkit", TOOLKIT_LIBRARY};
constexpr File c_tool{"qxpdu", TOOL};
const auto c_nameOf = [](const auto& info) { return info.param.name; };

INSTANTIATE_TEST_SUITE_P(Built, Hardening, testing::Values(c_encoding, c_messages, c_toolkit, c_tool),
                         c_nameOf);
INSTANTIATE_TEST_SUITE_P(Built, Fortification, testing::Values(c_encoding, c_tool), c_nameOf);

} // namespace
