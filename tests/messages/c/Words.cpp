// Words from C beside those from C++, for every number.
#include <string>

#include <gtest/gtest.h>

#include "Messages/Cell.h"
#include "Messages/Words.h"
#include "Messages/qx_messages.h"

namespace {

using namespace Messages;

/// What a text takes, with room for all of it.
template <class Put>
std::string Made(Put put) {
    std::string text(400, '-');
    text.resize(put(text.data(), text.size()));
    return text;
}

/// The same words for each enumerator up to `last`, and none beyond. That C sees no more than the text says
/// that there is a NUL after it.
template <class Enum, class Name>
void ExpectNames(const char* (*c)(std::uint8_t), Enum last, Name name) {
    for (unsigned int number = 0; number < 256; ++number) {
        const bool isNamed = number <= static_cast<unsigned int>(last);
        EXPECT_EQ(c(static_cast<std::uint8_t>(number)),
                  isNamed ? std::string(name(static_cast<Enum>(number))) : "")
            << number;
    }
}

TEST(WordsFromC, AreThoseOfEnumerators) {
    ExpectNames(qx_type_name, TpduType::Command, [](TpduType type) { return NameOf(type); });
    ExpectNames(qx_field_name, Field::WarningSignature, [](Field field) { return NameOf(field); });
    ExpectNames(qx_field_description, Field::WarningSignature, DescriptionOf);
    ExpectNames(qx_language_name, Language::Urdu, [](Language language) { return NameOf(language); });
    ExpectNames(qx_alphabet_name, Alphabet::Ucs2, [](Alphabet alphabet) { return NameOf(alphabet); });
    ExpectNames(qx_type_of_number_name, TypeOfNumber::Reserved,
                [](TypeOfNumber type) { return NameOf(type); });
    ExpectNames(qx_numbering_plan_name, std::uint8_t{15}, NameOfNumberingPlan);
    ExpectNames(qx_class_meaning, std::uint8_t{3}, MeaningOfClass);
    ExpectNames(qx_waiting_type_name, WaitingType::Other, [](WaitingType type) { return NameOf(type); });
    ExpectNames(qx_join_outcome_name, JoinOutcome::Finished,
                [](JoinOutcome outcome) { return CodeOf(outcome); });
    ExpectNames(qx_join_outcome_meaning, JoinOutcome::Finished,
                [](JoinOutcome outcome) { return MeaningOf(outcome); });
    ExpectNames(qx_cell_format_name, CellFormat::EtwsNotification,
                [](CellFormat format) { return NameOf(format); });
    ExpectNames(qx_warning_type_name, std::uint8_t{127}, NameOfWarningType);
}

TEST(WordsFromC, AreThoseOfOctets) {
    constexpr std::uint8_t last = 255;
    ExpectNames(qx_protocol_meaning, last, MeaningOfProtocol);
    ExpectNames(qx_status_meaning, last, MeaningOfStatus);
    ExpectNames(qx_status_class, last, ClassOfStatus);
    ExpectNames(qx_failure_cause_meaning, last, MeaningOfFailureCause);
    ExpectNames(qx_command_type_meaning, last, MeaningOfCommandType);
    ExpectNames(qx_element_name, last, NameOfElement);
    for (unsigned int octet = 0; octet < 256; ++octet) {
        const auto coding = static_cast<std::uint8_t>(octet);
        EXPECT_EQ(Made([&](char* text, std::size_t room) { return qx_coding_meaning(coding, text, room); }),
                  MeaningOf(DataCoding(coding)));
        EXPECT_EQ(
            Made([&](char* text, std::size_t room) { return qx_cell_coding_meaning(coding, text, room); }),
            MeaningOf(CellCoding(coding)));
    }
}

TEST(WordsFromC, AreThoseOfWords) {
    EXPECT_STREQ(qx_port_meaning(true, 2948), std::string(MeaningOfPort({true, 0, 0}, 2948)).c_str());
    EXPECT_STREQ(qx_port_meaning(false, 256), "");
    EXPECT_EQ(
        Made([](char* text, std::size_t room) { return qx_message_identifier_meaning(4352, text, room); }),
        MeaningOfMessageIdentifier(4352));
    EXPECT_EQ(
        Made([](char* text, std::size_t room) { return qx_serial_number_meaning(0x4020, 50, text, room); }),
        MeaningOf(SerialNumber{0x4020}, 50));
}

} // namespace
