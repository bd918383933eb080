#include "show/Notes.h"

#include <fmt/format.h>

#include "Messages/Words.h"
#include "show/Message.h"

namespace show {

namespace {

using Messages::Field;

/// Whether the member says something about the field.
bool IsAbout(const RecordMember& member, Field field) {
    const auto isParty = [](Field each) {
        return each == Field::OriginatingAddress || each == Field::DestinationAddress ||
               each == Field::RecipientAddress;
    };
    return AreOneField(member.field, field) || (isParty(member.field) && isParty(field));
}

} // namespace

std::string DifferenceText(const RecordMember& member) {
    return fmt::format("libQX_Encoding {} {}", member.name, ValueText(member));
}

std::vector<std::string> Notes::Take(Field field, std::uint32_t octet, std::uint32_t count) {
    std::vector<std::string> notes;
    for (std::size_t i = 0; i < m_Remarks.size(); ++i) {
        const Messages::Remark& remark = m_Remarks[i];
        const bool isHere =
            AreOneField(remark.field, field) && remark.octet >= octet && remark.octet < octet + count;
        if (isHere && !m_IsRemarkShown[i])
            Add(i, notes);
    }
    if (field != Field::UserData)
        TakeMembers(field, notes);
    return notes;
}

void Notes::TakeMembers(Field field, std::vector<std::string>& notes) {
    for (std::size_t i = 0; i < m_IsMemberShown.size(); ++i) {
        if (m_IsMemberShown[i] || !IsAbout(m_Host.members[i], field))
            continue;
        m_IsMemberShown[i] = true;
        notes.push_back("~ " + DifferenceText(m_Host.members[i]));
    }
}

void Notes::TakeRest(std::vector<Line>& lines) {
    if (lines.empty())
        return;
    std::vector<std::string>& notes = lines.back().notes;
    for (std::size_t i = 0; i < m_IsRemarkShown.size(); ++i) {
        if (!m_IsRemarkShown[i])
            Add(i, notes);
    }
    for (std::size_t i = 0; i < m_IsMemberShown.size(); ++i) {
        if (!m_IsMemberShown[i])
            notes.push_back("~ " + DifferenceText(m_Host.members[i]));
    }
    if (m_Host.isRejected)
        notes.push_back(fmt::format("~ {}", c_rejectedText));
}

void Notes::Add(std::size_t i, std::vector<std::string>& notes) {
    m_IsRemarkShown[i] = true;
    notes.push_back(fmt::format("! octet {}: {}", m_Remarks[i].octet, Messages::MeaningOf(m_Remarks[i])));
}

} // namespace show
