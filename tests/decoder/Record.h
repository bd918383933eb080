// The record of SMS fields as text, member by member, and a record that shows what is written to it.
#ifndef TESTS_DECODER_RECORD_H
#define TESTS_DECODER_RECORD_H

#include <cstddef>
#include <cstdio>
#include <string>
#include <type_traits>
#include <vector>

#include "Encoding/PduCommon.h"
#include "Toolkit/UTF8.h"

namespace tests {

/// What MarkMembers() gives to every number; no field holds it.
constexpr int c_mark = 0x7E7E7E7E;

/// Shows each member but the character set, in the record's order: its name and its value.
template <class Record, class Use>
void ForEachMember(Record& record, Use&& use) {
    using Encoding::PduCommon;
    const auto show = [&](const char* name, auto member) { use(name, record.*member); };
    show("Smsc", &PduCommon::m_Smsc);
    show("Originator", &PduCommon::m_Originator);
    show("Recipient", &PduCommon::m_Recipient);
    show("SmscNpi", &PduCommon::m_SmscNpi);
    show("SmscTon", &PduCommon::m_SmscTon);
    show("NumberNpi", &PduCommon::m_NumberNpi);
    show("NumberTon", &PduCommon::m_NumberTon);
    show("SmsType", &PduCommon::m_SmsType);
    show("ReplyPath", &PduCommon::m_ReplyPath);
    show("HasUserDataHeader", &PduCommon::m_HasUserDataHeader);
    show("StatusReport", &PduCommon::m_StatusReport);
    show("ValidityFormat", &PduCommon::m_ValidityFormat);
    show("RejectDuplicates", &PduCommon::m_RejectDuplicates);
    show("MessageReference", &PduCommon::m_MessageReference);
    show("ProtocolId", &PduCommon::m_ProtocolId);
    show("DataCoding", &PduCommon::m_DataCoding);
    show("ValidityPeriod", &PduCommon::m_ValidityPeriod);
    show("ValidityTime", &PduCommon::m_ValidityTime);
    show("DischargeTime", &PduCommon::m_DischargeTime);
    show("ServiceCentreTime", &PduCommon::m_ServiceCentreTime);
    show("UserDataLength", &PduCommon::m_UserDataLength);
    show("Status", &PduCommon::m_Status);
    show("CodingGroup", &PduCommon::m_CodingGroup);
    show("Class", &PduCommon::m_Class);
    show("Alphabet", &PduCommon::m_Alphabet);
    show("Text", &PduCommon::m_Text);
    show("WorkText", &PduCommon::m_WorkText);
    show("ConcatReference", &PduCommon::m_ConcatReference);
    show("ConcatTotal", &PduCommon::m_ConcatTotal);
    show("ConcatSequence", &PduCommon::m_ConcatSequence);
}

/// Gives every member a value that no field has, "before" where the member is printed.
inline void MarkMembers(Encoding::PduCommon& record) {
    ForEachMember(record, [](const char*, auto& member) {
        using Member = std::decay_t<decltype(member)>;
        if constexpr (std::is_same_v<Member, TString<wchar_t>>)
            member = L"before";
        else if constexpr (std::is_class_v<Member>)
            member = Member();
        else
            member = static_cast<Member>(c_mark);
    });
}

inline std::string Print(int number) {
    return number == c_mark ? "before" : std::to_string(number);
}

/// UTF-8, control characters and surrogates in angle brackets.
inline std::string Print(const TString<wchar_t>& text) {
    std::string printed;
    for (const wchar_t character : text) {
        char number[16];
        std::snprintf(number, sizeof number, "<%02X>", static_cast<unsigned int>(character));
        const bool isPlain = character >= 0x20 && (character < 0xD800 || character > 0xDFFF);
        printed += isPlain ? Toolkit::UTF8::ToUTF8(TString<wchar_t>(1, character)) : std::string(number);
    }
    return printed;
}

inline std::string Print(const Toolkit::smart_ptr<Toolkit::DateTime>& time) {
    return time.get() == nullptr ? "before" : time->ToString();
}

/// "Name=value" for each member.
inline std::vector<std::string> Members(const Encoding::PduCommon& record) {
    std::vector<std::string> members;
    ForEachMember(record, [&members](const char* name, const auto& member) {
        members.push_back(std::string(name) + "=" + Print(member));
    });
    return members;
}

/// The members that differ, as `after` has them, a blank between two.
inline std::string Changes(const std::vector<std::string>& before, const std::vector<std::string>& after) {
    std::string changes;
    for (std::size_t i = 0; i < after.size(); ++i)
        if (after[i] != before[i])
            changes += (changes.empty() ? "" : " ") + after[i];
    return changes;
}

} // namespace tests

#endif
