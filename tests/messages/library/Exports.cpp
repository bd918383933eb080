// What the built library shows to the dynamic linker, what it needs, and what it runs at load time.
#include <algorithm>
#include <set>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "support/Command.h"

namespace {

std::string Printed(const std::string& command) {
    const auto outcome = tests::RunCommand(command + " " + tests::Quoted({MESSAGES_LIBRARY}));
    EXPECT_EQ(outcome.status, 0) << command;
    return outcome.output;
}

/// The names that the library exports, without their arguments.
std::set<std::string> Exported() {
    std::set<std::string> names;
    std::istringstream lines(Printed(std::string(NM) + " -DC --defined-only"));
    for (std::string line; std::getline(lines, line);) {
        constexpr std::size_t digits = 2 * sizeof(void*); // then the type and the name, a blank between two
        if (line.size() <= digits + 3)
            continue;
        EXPECT_NE(line[digits + 1], 'u') << "unique linkage keeps dlclose from unloading: " << line;
        std::string name = line.substr(digits + 3);
        name.resize(std::min(name.find('('), name.size()));
        names.insert(name.substr(0, name.find('[')));
    }
    EXPECT_FALSE(names.empty());
    return names;
}

TEST(MessagesExports, AreThePublicOperations) {
#ifdef QX_SANITIZED
    GTEST_SKIP() << "sanitizers add names, and leave what is inlined elsewhere";
#endif
    const std::set<std::string> expected = {
        "Messages::Address::ToString",
        "Messages::AppendSeptetText",
        "Messages::AppendSeptets",
        "Messages::AppendUcs2",
        "Messages::AppendUcs2Text",
        "Messages::CellCoding::CellCoding",
        "Messages::CellJoiner::Take",
        "Messages::CellJoiner::TakeOldest",
        "Messages::CellMessage::IsComplete",
        "Messages::CellMessage::Missing",
        "Messages::CellPage::IsSameAs",
        "Messages::CellReading::Language",
        "Messages::Choose",
        "Messages::ClassOfStatus",
        "Messages::CodeOf",
        "Messages::CodingOf",
        "Messages::CutIntoParts",
        "Messages::DataCoding::DataCoding",
        "Messages::DescriptionOf",
        "Messages::Explain",
        "Messages::FromHex",
        "Messages::HasEmergencyAlert",
        "Messages::HasLockingTable",
        "Messages::HasPopup",
        "Messages::HasSingleShiftTable",
        "Messages::IsEtws",
        "Messages::JoinText",
        "Messages::Joiner::Add",
        "Messages::Joiner::Expire",
        "Messages::Joiner::Finish",
        "Messages::Joiner::Joiner",
        "Messages::LockingCharacter",
        "Messages::MakeAbsoluteValidity",
        "Messages::MakeEnhancedValidity",
        "Messages::MakeRelativeValidity",
        "Messages::MakeTimestamp",
        "Messages::MakeUserData",
        "Messages::MeaningOf",
        "Messages::MeaningOfClass",
        "Messages::MeaningOfCommandType",
        "Messages::MeaningOfFailureCause",
        "Messages::MeaningOfMessageIdentifier",
        "Messages::MeaningOfPort",
        "Messages::MeaningOfProtocol",
        "Messages::MeaningOfStatus",
        "Messages::NameOf",
        "Messages::NameOfCellLanguage",
        "Messages::NameOfElement",
        "Messages::NameOfNumberingPlan",
        "Messages::NameOfWarningType",
        "Messages::PackSeptets",
        "Messages::PartOffsets",
        "Messages::PartyOf",
        "Messages::Read",
        "Messages::ReadCell",
        "Messages::ReadCellHex",
        "Messages::ReadConcatenation",
        "Messages::ReadHex",
        "Messages::ReadHyperlink",
        "Messages::ReadObjectDistribution",
        "Messages::ReadPorts",
        "Messages::ReadPredefinedObject",
        "Messages::ReadReplyAddress",
        "Messages::ReadSingleOctet",
        "Messages::ReadSpecialMessageIndication",
        "Messages::ReadTextFormatting",
        "Messages::Reading::IsSound",
        "Messages::RelativeValiditySeconds",
        "Messages::ReplaceNear",
        "Messages::SingleShiftCharacter",
        "Messages::Timestamp::ToString",
        "Messages::Timestamp::UnixSeconds",
        "Messages::TimestampOf",
        "Messages::ToHex",
        "Messages::ToName",
        "Messages::ToNumber",
        "Messages::UnpackSeptets",
        "Messages::UserDataOf",
        "Messages::Validity::Absolute",
        "Messages::Validity::Seconds",
        "Messages::Visitor::OnFault",
        "Messages::Visitor::OnPlace",
        "Messages::Visitor::OnRemark",
        "Messages::Visitor::~Visitor",
        "Messages::Walk",
        "Messages::Write",
        "Messages::WriteCell",
    };
    const std::set<std::string> exported = Exported();
    for (const std::string& name : expected)
        EXPECT_EQ(exported.count(name), 1U) << name << " is missing";
    // Beside them the visitor's table and type, what a build keeps of values' own operations, and what the
    // standard library's headers mark.
    for (const std::string& name : exported) {
        const bool isOfTheStandardLibrary = name.find("std::") != std::string::npos;
        const bool isTheVisitors = name.find(" for Messages::") != std::string::npos;
        const bool isOfAValue =
            name.find("::operator=") != std::string::npos || name.find("::~") != std::string::npos ||
            name == "Messages::Reading::Reading" || name == "Messages::CellReading::CellReading" ||
            name == "Messages::CellMessage::CellMessage" || name == "Messages::CellPage::CellPage";
        EXPECT_TRUE(expected.count(name) != 0 || isOfTheStandardLibrary || isTheVisitors || isOfAValue)
            << name;
    }
}

TEST(MessagesLibrary, NeedsNeitherOfTheOthersAndHasASonameOfItsOwn) {
    const std::string sections = Printed(std::string(READELF) + " -dW");
    EXPECT_NE(sections.find("libQX_Messages.so.0]"), std::string::npos);
    EXPECT_EQ(sections.find("libQX_Encoding"), std::string::npos);
    EXPECT_EQ(sections.find("libQX_Toolkit"), std::string::npos);
}

#ifndef QX_SANITIZED // sanitizers run constructors of their own
TEST(MessagesLibrary, RunsNothingOfItsOwnAtLoadTime) {
    const std::string sections = Printed(std::string(READELF) + " -SW");
    std::istringstream line(sections.substr(sections.find(".init_array")));
    std::string name, type, address, offset, size;
    line >> name >> type >> address >> offset >> size;
    EXPECT_EQ(type, "INIT_ARRAY");
    EXPECT_EQ(std::stoul(size, nullptr, 16), sizeof(void*)) << "frame_dummy alone";
}
#endif

} // namespace
