#include "show/JoinedMessage.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "Messages/Words.h"
#include "show/Lines.h"
#include "show/MessageJson.h"
#include "show/Notes.h"
#include "show/Values.h"

namespace show {

namespace {

/// What the first part that has come says for all.
const Message& FirstOf(const JoinedMessage& joined) {
    return joined.parts.front().message->message;
}

std::vector<int> MissingOf(const JoinedMessage& joined) {
    std::vector<int> missing;
    for (const Gap& gap : joined.content.gaps)
        missing.insert(missing.end(), gap.missing.begin(), gap.missing.end());
    return missing;
}

/// The byte at which a character of a text in UTF-8 begins.
std::size_t ByteAt(std::string_view text, std::size_t character) {
    std::size_t byte = 0;
    for (; byte < text.size(); ++byte) {
        const bool begins = (static_cast<unsigned char>(text[byte]) & 0xC0) != 0x80;
        if (begins && character-- == 0)
            break;
    }
    return byte;
}

/// The text with a word for each gap.
std::string TextWithGaps(const JoinedContent& content) {
    std::string text = content.text;
    // NOLINTNEXTLINE(modernize-loop-convert): clang++ 14 does not get along with libstdc++'s views
    for (auto gap = content.gaps.rbegin(); gap != content.gaps.rend(); ++gap) {
        text.insert(ByteAt(text, gap->characters),
                    fmt::format("[{} {} missing]", gap->missing.size() == 1 ? "part" : "parts",
                                fmt::join(gap->missing, ", ")));
    }
    return text;
}

std::string PartsText(const JoinedMessage& joined) {
    std::vector<int> numbers;
    for (const JoinedPart& part : joined.parts)
        numbers.push_back(part.number);
    const std::vector<int> missing = MissingOf(joined);
    return fmt::format("{} of {}{}{}", fmt::join(numbers, ", "), joined.total,
                       missing.empty() ? "" : "; missing ", fmt::join(missing, ", "));
}

const Messages::UserData& UserDataOf(const JoinedPart& part) {
    return *Messages::UserDataOf(part.message->message.reading.tpdu);
}

/// Half a character: a surrogate, by its first bits.
enum class Half : std::uint32_t { High = 0xD800, Low = 0xDC00 };

bool IsHalf(const Messages::Remark& remark, Half half, std::size_t place) {
    return remark.code == Messages::RemarkCode::UnpairedSurrogate && remark.other == place &&
           (remark.number & 0xFC00U) == static_cast<std::uint32_t>(half);
}

bool HasHalfAt(const JoinedPart& part, Half half, std::size_t place) {
    const auto& remarks = part.message->message.reading.remarks;
    return std::any_of(remarks.begin(), remarks.end(),
                       [&](const Messages::Remark& remark) { return IsHalf(remark, half, place); });
}

std::size_t LastUnitOf(const JoinedPart& part) {
    return UserDataOf(part).textUnits - 1U;
}

/// Whether the part goes on with septets of the same tables.
bool GoesOn(const JoinedPart& part, const JoinedPart& after) {
    const Messages::DataCoding* const coding = Messages::CodingOf(after.message->message.reading.tpdu);
    return (coding == nullptr || coding->CountsSeptets()) && UserDataOf(after).textUnits != 0 &&
           UserDataOf(after).tables == UserDataOf(part).tables;
}

const JoinedPart* PartOf(const JoinedMessage& joined, int number) {
    const auto part = std::find_if(joined.parts.begin(), joined.parts.end(),
                                   [number](const JoinedPart& each) { return each.number == number; });
    return part == joined.parts.end() ? nullptr : &*part;
}

/// Whether a character that the part lacks the rest of is whole in the message.
bool IsHealed(const JoinedMessage& joined, const JoinedPart& part, const Messages::Remark& remark) {
    if (!MayBeHealed(remark))
        return false;
    const JoinedPart* const before = PartOf(joined, part.number - 1);
    const JoinedPart* const after = PartOf(joined, part.number + 1);
    if (remark.code == Messages::RemarkCode::EscapeAtEnd)
        return after != nullptr && GoesOn(part, *after);
    return (before != nullptr && IsHalf(remark, Half::Low, 0) &&
            HasHalfAt(*before, Half::High, LastUnitOf(*before))) ||
           (after != nullptr && IsHalf(remark, Half::High, LastUnitOf(part)) &&
            HasHalfAt(*after, Half::Low, 0));
}

std::vector<Messages::Remark> RemarksOn(const JoinedMessage& joined, const JoinedPart& part) {
    std::vector<Messages::Remark> remarks = part.message->message.reading.remarks;
    std::erase_if(remarks, [&](const Messages::Remark& remark) { return IsHealed(joined, part, remark); });
    return remarks;
}

/// What is unusual in the text of the parts, and where a host of libQX_Encoding gets another.
std::vector<std::string> NotesOf(const JoinedMessage& joined) {
    std::vector<std::string> notes;
    for (const JoinedPart& part : joined.parts) {
        const HostReading& host = part.message->host;
        for (const Messages::Remark& remark : RemarksOn(joined, part))
            notes.push_back(fmt::format("! {}: {}", part.source, ToText(remark)));
        for (const RecordMember& member : host.members)
            notes.push_back(fmt::format("~ {}: {}", part.source, DifferenceText(member)));
        if (host.isRejected)
            notes.push_back(fmt::format("~ {}: {}", part.source, c_rejectedText));
    }
    return notes;
}

} // namespace

bool MayBeHealed(const Messages::Remark& remark) {
    const bool isOfText =
        remark.field == Messages::Field::UserData || remark.field == Messages::Field::PageContent;
    return isOfText && (remark.code == Messages::RemarkCode::EscapeAtEnd ||
                        remark.code == Messages::RemarkCode::UnpairedSurrogate);
}

std::vector<JoinedFlaw> FlawsOf(const JoinedMessage& joined) {
    std::vector<JoinedFlaw> flaws;
    if (const std::vector<int> missing = MissingOf(joined); !missing.empty())
        flaws.push_back(
            {joined.parts.front().source,
             fmt::format("{} {} of {} {} missing", missing.size() == 1 ? "part" : "parts",
                         fmt::join(missing, ", "), joined.total, missing.size() == 1 ? "is" : "are")});
    for (const JoinedPart& part : joined.parts)
        for (const Messages::Remark& remark : RemarksOn(joined, part))
            if (MayBeHealed(remark))
                flaws.push_back({part.source, ToText(remark)});
    return flaws;
}

std::string ToText(const JoinedMessage& joined) {
    const Message& first = FirstOf(joined);
    std::vector<std::string_view> sources;
    for (const JoinedPart& part : joined.parts)
        sources.push_back(part.source);
    std::vector<Line> lines = {{"Parts joined", "", PartsText(joined), {}},
                               {"from", "", fmt::format("{}", fmt::join(sources, ", ")), {}}};
    if (const Messages::Address* address = Messages::PartyOf(first.reading.tpdu))
        lines.push_back({"address", "", MeaningOf(*address), {}});
    if (const Messages::Timestamp* time = Messages::TimestampOf(first.reading.tpdu);
        time != nullptr && time->isValid)
        lines.push_back({"time", "", TimeOf(*time, first), {}});
    lines.push_back({"reference", "", fmt::format("{}", joined.reference), {}});
    if (joined.content.HasText())
        lines.push_back({"text", "", TextWithGaps(joined.content), {}});
    if (!joined.content.data.empty())
        lines.push_back({"data", Messages::ToHex(joined.content.data), DataText(joined.content.data), {}});
    lines.back().notes = NotesOf(joined);
    return Aligned(lines);
}

void Write(const JoinedMessage& joined, JsonText& object) {
    const Message& first = FirstOf(joined);
    object.Array("joined", [&] {
        for (const JoinedPart& part : joined.parts) {
            object.Element([&] {
                object.Member("part", part.number);
                if (!part.file.empty())
                    object.Member("file", part.file);
                object.Member(part.isArgument ? "argument" : "line", part.input);
                WriteWarnings(part.message->message.warnings, object);
                WriteRemarks(RemarksOn(joined, part), object);
                WriteDifferences(part.message->host, false, object);
            });
        }
    });
    object.Member("type", Messages::NameOf(first.reading.Type()));
    WriteDirection(first.reading.direction, object);
    if (const Messages::Address* address = Messages::PartyOf(first.reading.tpdu))
        object.Object("address", [&] { WriteAddress(*address, object); });
    if (const Messages::Timestamp* time = Messages::TimestampOf(first.reading.tpdu);
        time != nullptr && time->isValid)
        object.Member("time", std::string_view(TimeOf(*time, first)));
    object.Member("reference", joined.reference);
    object.Member("reference_bits", joined.hasWideReference ? 16 : 8);
    object.Member("total", joined.total);
    object.Numbers("parts_missing", MissingOf(joined));
    if (!joined.content.gaps.empty()) {
        object.Array("gaps", [&] {
            for (const Gap& gap : joined.content.gaps) {
                object.Element([&] {
                    object.Member("position", joined.content.HasText() ? gap.characters : gap.octets);
                    object.Numbers("parts_missing", gap.missing);
                });
            }
        });
    }
    if (joined.content.HasText())
        object.Member("text", std::string_view(joined.content.text));
    if (!joined.content.data.empty())
        object.Octets("data", joined.content.data);
}

} // namespace show
