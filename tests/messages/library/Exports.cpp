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
        "qx_alphabet_name",
        "qx_cell_coding_meaning",
        "qx_cell_format_name",
        "qx_choose",
        "qx_class_meaning",
        "qx_coding_meaning",
        "qx_command_type_meaning",
        "qx_cut",
        "qx_cut_data",
        "qx_cutter_free",
        "qx_cutter_new",
        "qx_element_name",
        "qx_explain",
        "qx_failure_cause_meaning",
        "qx_field_description",
        "qx_field_name",
        "qx_join_outcome_meaning",
        "qx_join_outcome_name",
        "qx_joiner_add",
        "qx_joiner_expire",
        "qx_joiner_finish",
        "qx_joiner_free",
        "qx_joiner_new",
        "qx_language_name",
        "qx_make_absolute_validity",
        "qx_make_coding",
        "qx_make_enhanced_validity",
        "qx_make_name",
        "qx_make_number",
        "qx_make_relative_validity",
        "qx_make_timestamp",
        "qx_make_unix_timestamp",
        "qx_make_user_data",
        "qx_maker_free",
        "qx_maker_new",
        "qx_message_identifier_meaning",
        "qx_numbering_plan_name",
        "qx_page_joiner_free",
        "qx_page_joiner_new",
        "qx_page_joiner_take",
        "qx_page_joiner_take_oldest",
        "qx_port_meaning",
        "qx_protocol_meaning",
        "qx_read",
        "qx_read_cell",
        "qx_read_cell_hex",
        "qx_read_hex",
        "qx_reader_free",
        "qx_reader_new",
        "qx_replace_near",
        "qx_result_text",
        "qx_serial_number_meaning",
        "qx_status_class",
        "qx_status_meaning",
        "qx_timestamp_text",
        "qx_type_name",
        "qx_type_of_number_name",
        "qx_validity_meaning",
        "qx_version",
        "qx_waiting_type_name",
        "qx_warning_type_name",
        "qx_write",
        "qx_write_cell",
        "qx_writer_free",
        "qx_writer_new",
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
    EXPECT_NE(sections.find("libQX_Messages.so.1]"), std::string::npos);
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
