#include "show/MessageText.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>

#include "Messages/Words.h"
#include "show/CodeUnits.h"
#include "show/Lines.h"
#include "show/Values.h"

namespace show {

namespace {

using Messages::Field;

/// In decimal for bits, else as octets.
std::string RawOf(const MessageField& field, const Message& message) {
    if (IsFlag(field.field))
        return fmt::format("{}", std::get<unsigned int>(field.value));
    const bool isNumber = field.count == 1 && !std::holds_alternative<PlainOctets>(field.value) &&
                          !std::holds_alternative<const Messages::Address*>(field.value);
    return (isNumber ? "0x" : "") + Messages::ToHex(message.Octets(field.octet, field.count));
}

/// The notes that no line has taken yet.
class Notes {
public:
    Notes(const Message& message, const HostReading& host)
        : m_Message(message),
          m_Host(host),
          m_IsRemarkShown(message.reading.remarks.size()),
          m_IsMemberShown(host.members.size()) {}

    /// Those of a field.
    std::vector<std::string> Take(const MessageField& field) {
        std::vector<std::string> notes;
        for (std::size_t i = 0; i < m_IsRemarkShown.size(); ++i) {
            const Messages::Remark& remark = m_Message.reading.remarks[i];
            const bool isHere = AreOneField(remark.field, field.field) && remark.octet >= field.octet &&
                                remark.octet < field.octet + field.count;
            if (isHere && !m_IsRemarkShown[i])
                Add(i, notes);
        }
        if (field.field != Field::UserData)
            TakeMembers(field.field, notes);
        return notes;
    }

    void TakeMembers(Field field, std::vector<std::string>& notes) {
        for (std::size_t i = 0; i < m_IsMemberShown.size(); ++i) {
            if (m_IsMemberShown[i] || !IsAbout(m_Host.members[i], field))
                continue;
            m_IsMemberShown[i] = true;
            notes.push_back("~ " + DifferenceText(m_Host.members[i]));
        }
    }

    /// All others.
    std::vector<std::string> TakeRest() {
        std::vector<std::string> notes;
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
        return notes;
    }

private:
    void Add(std::size_t i, std::vector<std::string>& notes) {
        m_IsRemarkShown[i] = true;
        const Messages::Remark& remark = m_Message.reading.remarks[i];
        notes.push_back(fmt::format("! octet {}: {}", remark.octet, Messages::MeaningOf(remark)));
    }

    const Message& m_Message;
    const HostReading& m_Host;
    std::vector<bool> m_IsRemarkShown;
    std::vector<bool> m_IsMemberShown;
};

void AddText(const Message& message, Notes& notes, std::vector<Line>& lines) {
    const Messages::UserData* const userData = Messages::UserDataOf(message.reading.tpdu);
    if (userData == nullptr)
        return;
    if (const auto& place = userData->concatenation)
        lines.push_back({"part",
                         "",
                         fmt::format("{} of {}, reference {}", place->part, place->total, place->reference),
                         {}});
    if (userData->tables.locking != Messages::Language::Default)
        lines.push_back({"locking shift", "", std::string(Messages::NameOf(userData->tables.locking)), {}});
    if (userData->tables.single != Messages::Language::Default)
        lines.push_back({"single shift", "", std::string(Messages::NameOf(userData->tables.single)), {}});
    Line line{"text", "", userData->text, {}};
    if (IsData(message.reading.tpdu)) {
        const Messages::OctetView data = userData->Content();
        line = {"data", Messages::ToHex(data), DataText(data), {}};
    }
    notes.TakeMembers(Field::UserData, line.notes);
    lines.push_back(std::move(line));
}

} // namespace

bool IsAbout(const RecordMember& member, Field field) {
    const auto isParty = [](Field each) {
        return each == Field::OriginatingAddress || each == Field::DestinationAddress ||
               each == Field::RecipientAddress;
    };
    return AreOneField(member.field, field) || (isParty(member.field) && isParty(field));
}

std::string DifferenceText(const RecordMember& member) {
    return fmt::format("libQX_Encoding {} {}", member.name, ValueText(member));
}

std::string ToText(const Message& message, const HostReading& host, std::string_view reportOn) {
    std::vector<Line> lines;
    Notes notes(message, host);
    for (const MessageField& field : FieldsOf(message))
        lines.push_back(
            {ShownNameOf(field.field), RawOf(field, message), MeaningOf(field, message), notes.Take(field)});
    AddText(message, notes, lines);
    if (!reportOn.empty())
        lines.push_back({"report on", "", std::string(reportOn), {}});
    if (auto rest = notes.TakeRest(); !rest.empty() && !lines.empty())
        lines.back().notes.insert(lines.back().notes.end(), rest.begin(), rest.end());
    return Aligned(lines);
}

std::string ToText(const HostReading& record) {
    std::vector<Line> lines = {{"result", record.isRejected ? "0" : "1", "", {}}};
    for (const RecordMember& member : record.members)
        lines.push_back({member.name, ValueText(member), "", {}});
    return Aligned(lines);
}

} // namespace show
