#include "show/Columns.h"

#include <algorithm>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "Messages/Words.h"
#include "show/CodeUnits.h"
#include "show/Values.h"

namespace show {

namespace {

constexpr std::array<std::string_view, c_columnCount> c_names = {
    "input", "time",   "direction", "type", "address", "service-centre", "reference",
    "part",  "status", "alphabet",  "text", "data",    "octets",         "error"};

/// TP-MR, where the type has one.
std::optional<std::uint8_t> ReferenceOf(const Messages::Tpdu& tpdu) {
    if (const auto* submit = std::get_if<Messages::Submit>(&tpdu))
        return submit->reference;
    if (const auto* report = std::get_if<Messages::StatusReport>(&tpdu))
        return report->reference;
    if (const auto* command = std::get_if<Messages::Command>(&tpdu))
        return command->reference;
    return std::nullopt;
}

/// What all parts of a message have alike.
Row CommonOf(const Message& message) {
    const Messages::Reading& reading = message.reading;
    Row row;
    row[Column::Direction] = DirectionName(reading.direction);
    row[Column::Type] = Messages::NameOf(reading.Type());
    if (const Messages::Timestamp* time = Messages::TimestampOf(reading.tpdu))
        row[Column::Time] = TimeOf(*time, message);
    if (const Messages::Address* party = Messages::PartyOf(reading.tpdu))
        row[Column::Address] = party->ToString();
    if (reading.serviceCentre)
        row[Column::ServiceCentre] = reading.serviceCentre->ToString();
    if (const Messages::DataCoding* coding = Messages::CodingOf(reading.tpdu))
        row[Column::Alphabet] = Messages::NameOf(coding->alphabet);
    return row;
}

/// What all pages of a message have alike: it comes from its identifier.
Row CommonOf(Messages::CellFormat format, std::uint16_t messageIdentifier,
             const Messages::CellCoding& coding) {
    Row row;
    row[Column::Direction] = DirectionName(Messages::Direction::ToMobile);
    row[Column::Type] = Messages::NameOf(format);
    row[Column::Address] = fmt::format("{}", messageIdentifier);
    if (format != Messages::CellFormat::EtwsNotification && HasAlphabet(coding))
        row[Column::Alphabet] = Messages::NameOf(coding.alphabet);
    return row;
}

void SetContent(const std::vector<Messages::CellPage>& pages, std::string_view text,
                const Messages::CellCoding& coding, Row& row) {
    if (coding.HasText())
        row[Column::Text] = text;
    else
        row[Column::Data] = Messages::ToHex(DataOf(pages));
}

/// Each of the characters by an escape of two, whatever else by itself.
std::string Escaped(std::string_view value, std::string_view characters, std::string_view letters) {
    std::string escaped;
    for (const char character : value) {
        const std::size_t place = characters.find(character);
        if (place == std::string_view::npos) {
            escaped += character;
        } else {
            escaped += '\\';
            escaped += letters[place];
        }
    }
    return escaped;
}

/// "from +4179123", "to +4179123"; a report is about a message to somebody.
std::string PartyText(const Row& row) {
    const bool isRecipient = row[Column::Direction] == DirectionName(Messages::Direction::FromMobile) ||
                             !row[Column::Status].empty();
    const std::string_view word = isRecipient ? "to" : "from";
    const std::string& address = row[Column::Address];
    return address.empty() ? std::string() : fmt::format("{} {}", word, Printable(address));
}

/// What a message says: its text, its octets, or what became of another.
std::string ContentText(const Row& row) {
    for (const Column column : {Column::Text, Column::Data, Column::Status}) {
        if (!row[column].empty())
            return Printable(Escaped(row[column], "\n\r", "nr"));
    }
    return {};
}

} // namespace

std::optional<Column> ColumnOf(std::string_view name) {
    const auto* const found = std::find(c_names.begin(), c_names.end(), name);
    if (found == c_names.end())
        return std::nullopt;
    return static_cast<Column>(found - c_names.begin());
}

std::string_view NameOf(Column column) {
    return c_names.at(static_cast<std::size_t>(column));
}

std::string ColumnNames() {
    return fmt::format("{}", fmt::join(c_names, ", "));
}

Row RowOf(const Message& message) {
    const Messages::Tpdu& tpdu = message.reading.tpdu;
    Row row = CommonOf(message);
    row[Column::Octets] = Messages::ToHex(message.octets);
    if (const auto reference = ReferenceOf(tpdu))
        row[Column::Reference] = fmt::format("{}", *reference);
    if (const auto* report = std::get_if<Messages::StatusReport>(&tpdu))
        row[Column::Status] = Messages::MeaningOfStatus(report->status);
    if (const Messages::UserData* userData = Messages::UserDataOf(tpdu)) {
        if (const auto& place = userData->concatenation; place && place->total > 1)
            row[Column::Part] = fmt::format("{}/{}", place->part, place->total);
        if (IsData(message.reading.tpdu))
            row[Column::Data] = Messages::ToHex(userData->Content());
        else
            row[Column::Text] = userData->text;
    }
    return row;
}

Row RowOf(const JoinedMessage& joined) {
    Row row = CommonOf(joined.parts.front().message->message);
    std::vector<int> numbers;
    std::vector<std::string_view> sources;
    for (const JoinedPart& part : joined.parts) {
        numbers.push_back(part.number);
        sources.push_back(part.source);
    }
    row[Column::Input] = fmt::format("{}", fmt::join(sources, ", "));
    if (!joined.content.gaps.empty())
        row[Column::Part] = fmt::format("{}/{}", fmt::join(numbers, ","), joined.total);
    row[Column::Text] = joined.content.text;
    row[Column::Data] = Messages::ToHex(joined.content.data);
    return row;
}

Row RowOf(const Broadcast& broadcast) {
    const Messages::CellReading& reading = broadcast.reading;
    Row row = CommonOf(reading.format, reading.messageIdentifier, reading.coding);
    row[Column::Octets] = Messages::ToHex(broadcast.octets);
    SetContent(reading.pages, reading.text, reading.coding, row);
    if (reading.warning) {
        row[Column::Time] = reading.warning->time ? reading.warning->time->ToString() : std::string();
        row[Column::Text] = Messages::NameOfWarningType(reading.warning->type);
    } else if (reading.format == Messages::CellFormat::GsmPage && reading.total > 1) {
        row[Column::Part] = fmt::format("{}/{}", reading.pages.front().number, reading.total);
    }
    return row;
}

Row RowOf(const JoinedBroadcast& joined) {
    const Messages::CellMessage& message = joined.message;
    Row row = CommonOf(joined.sources.front().compared->broadcast.reading.format, message.messageIdentifier,
                       message.coding);
    std::vector<std::string_view> sources;
    for (const PageSource& source : joined.sources)
        sources.push_back(source.name);
    row[Column::Input] = fmt::format("{}", fmt::join(sources, ", "));
    if (!message.IsComplete()) {
        std::vector<int> numbers;
        for (const Messages::CellPage& page : message.pages)
            numbers.push_back(page.number);
        row[Column::Part] = fmt::format("{}/{}", fmt::join(numbers, ","), message.total);
    }
    SetContent(message.pages, message.Text(), message.coding, row);
    return row;
}

std::string BriefLine(const Row& row) {
    const std::string part = row[Column::Part].empty() ? "" : fmt::format("[{}]", row[Column::Part]);
    std::string line;
    for (const std::string& word : {row[Column::Time], PartyText(row), part, ContentText(row)}) {
        if (!word.empty())
            line += (line.empty() ? "" : " ") + word;
    }
    return line.empty() ? row[Column::Type] : line;
}

std::string TabEscaped(std::string_view value) {
    return Printable(Escaped(value, "\t\n\r\\", "tnr\\"));
}

std::string TabSeparated(const Row& row, const std::vector<Column>& columns) {
    std::vector<std::string> values(columns.size());
    std::transform(columns.begin(), columns.end(), values.begin(),
                   [&row](Column column) { return TabEscaped(row[column]); });
    return fmt::format("{}", fmt::join(values, "\t"));
}

std::string TabSeparatedNames(const std::vector<Column>& columns) {
    std::vector<std::string_view> names(columns.size());
    std::transform(columns.begin(), columns.end(), names.begin(), NameOf);
    return fmt::format("{}", fmt::join(names, "\t"));
}

} // namespace show
