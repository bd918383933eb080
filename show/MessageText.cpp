#include "show/MessageText.h"

#include <fmt/format.h>

#include "Messages/Words.h"
#include "show/Lines.h"
#include "show/Notes.h"
#include "show/Values.h"

namespace show {

namespace {

using Messages::Field;

/// In decimal for bits, else as octets.
std::string RawOf(const MessageField& field, const Message& message) {
    if (IsFlag(field.field))
        return std::to_string(std::get<unsigned int>(field.value));
    const bool isNumber = field.count == 1 && !std::holds_alternative<PlainOctets>(field.value) &&
                          !std::holds_alternative<const Messages::Address*>(field.value);
    return (isNumber ? "0x" : "") + Messages::ToHex(message.Octets(field.octet, field.count));
}

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

std::string ToText(const Message& message, const HostReading& host, std::string_view reportOn) {
    std::vector<Line> lines;
    Notes notes(message.reading.remarks, host);
    for (const MessageField& field : FieldsOf(message))
        lines.push_back({ShownNameOf(field.field), RawOf(field, message), MeaningOf(field, message),
                         notes.Take(field.field, field.octet, field.count)});
    AddText(message, notes, lines);
    if (!reportOn.empty())
        lines.push_back({"report on", "", std::string(reportOn), {}});
    notes.TakeRest(lines);
    return Aligned(lines);
}

std::string ToText(const HostReading& record) {
    std::vector<Line> lines = {{"result", record.isRejected ? "0" : "1", "", {}}};
    for (const RecordMember& member : record.members)
        lines.push_back({member.name, ValueText(member), "", {}});
    return Aligned(lines);
}

} // namespace show
