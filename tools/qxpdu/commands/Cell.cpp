// qxpdu cell
#include <utility>

#include <fmt/format.h>

#include "Encoding/CBMDecoder.h"
#include "characters/Hexadecimal.h"
#include "characters/InputError.h"
#include "commands/Cell.h"
#include "commands/CellPages.h"
#include "commands/Commands.h"
#include "commands/Options.h"
#include "show/CellMeanings.h"
#include "show/CodeUnits.h"
#include "show/Plural.h"
#include "show/Record.h"
#include "show/Values.h"

namespace qxpdu {

namespace {

using Encoding::CBMDecoder;
using Encoding::Pdu;

constexpr unsigned int c_headerLength = 6;

show::Entry SerialNumberEntry(unsigned int serialNumber, unsigned int messageIdentifier) {
    const show::SerialNumber serial = show::SplitSerialNumber(serialNumber);
    const auto scope = show::GeographicalScopeMeaning(serial.geographicalScope);
    std::string meaning =
        fmt::format("geographical scope {} ({}), message code {}, update number {}", serial.geographicalScope,
                    scope, serial.messageCode, serial.updateNumber);
    show::Json details = {{"geographical_scope", {{"raw", serial.geographicalScope}, {"meaning", scope}}},
                          {"message_code", serial.messageCode},
                          {"update_number", serial.updateNumber}};
    if (show::IsEtws(messageIdentifier)) {
        meaning += fmt::format(
            ", {}, {}", show::HasEmergencyAlert(serialNumber) ? "emergency alert" : "no emergency alert",
            show::HasPopup(serialNumber) ? "popup" : "no popup");
        details["emergency_alert"] = show::HasEmergencyAlert(serialNumber);
        details["popup"] = show::HasPopup(serialNumber);
    }
    return {"Serial number", show::RawWord(serialNumber), std::move(meaning), std::move(details)};
}

show::Entry MessageIdentifierEntry(unsigned int messageIdentifier) {
    return {"Message identifier", show::RawWord(messageIdentifier),
            std::string(show::MessageIdentifierMeaning(messageIdentifier))};
}

show::Entry DataCodingEntry(unsigned int dcs) {
    const show::CellCoding coding = show::CellCodingOf(dcs);
    return {"Data coding scheme", show::RawOctet(dcs),
            coding.isGsm7 ? coding.meaning : coding.meaning + "; the text is read as GSM 7-bit all the same"};
}

show::Entry PageParameterEntry(unsigned int pageParameter) {
    const show::PageNumber number = show::PageNumberOf(pageParameter);
    return {"Page parameter",
            show::RawOctet(pageParameter),
            fmt::format("page {} of {}", number.page, number.pages),
            {{"page", number.page}, {"pages", number.pages}}};
}

void ShowPage(const Input& input, const Pdu& pdu, const CBMDecoder& page, const std::string& text,
              const std::string& warning, Console& console) {
    std::vector<show::Entry> entries = {SerialNumberEntry(page.m_SerialNumber, page.m_MessageIdentifier),
                                        MessageIdentifierEntry(page.m_MessageIdentifier),
                                        DataCodingEntry(page.m_DataCodingScheme),
                                        PageParameterEntry(page.m_PageParameter)};
    if (!console.WantsJson()) {
        entries.push_back({"text", {}, text});
        return console.Block(show::ToText(entries));
    }
    show::Json object = ObjectFor(input);
    object["octets"] = pdu.GetString();
    for (const show::Entry& entry : entries)
        object[show::KeyOf(entry.name)] = show::ToJson(entry);
    if (!warning.empty())
        object["warnings"] = {warning};
    object["text"] = text;
    console.Object(object);
}

void ShowMessage(const CellMessage& message, Console& console) {
    std::vector<unsigned int> held;
    std::vector<unsigned int> missing;
    for (unsigned int page = 1; page <= message.key.pages; ++page)
        (message.texts.contains(page) ? held : missing).push_back(page);
    const show::Entry serialNumber =
        SerialNumberEntry(message.key.serialNumber, message.key.messageIdentifier);
    const show::Entry messageIdentifier = MessageIdentifierEntry(message.key.messageIdentifier);
    if (!console.WantsJson()) {
        std::string pages = fmt::format("{} of {}", fmt::join(held, ", "), message.key.pages);
        if (!missing.empty())
            pages += fmt::format("; missing {}", fmt::join(missing, ", "));
        return console.Block(show::ToText(
            {serialNumber, messageIdentifier, {"Pages joined", {}, pages}, {"text", {}, message.Text()}}));
    }
    console.Object({{"format", show::c_jsonFormat},
                    {show::KeyOf(serialNumber.name), show::ToJson(serialNumber)},
                    {show::KeyOf(messageIdentifier.name), show::ToJson(messageIdentifier)},
                    {"pages_joined", held},
                    {"pages_missing", missing},
                    {"text", message.Text()}});
}

/// Only what adds to the page itself is shown.
void ShowJoined(const std::optional<CellMessage>& message, Console& console) {
    if (message && message->texts.size() > 1)
        ShowMessage(*message, console);
}

/// What joining needs to know of a page.
struct PagePlace {
    CellMessageKey key;
    unsigned int page;
    std::string text;
};

/// Empty where the length is as announced.
std::string WarningOfLength(const Input& input, unsigned int octets) {
    if (!input.heading || input.heading->length == octets)
        return {};
    return fmt::format("{} announces {}, here are {}", input.heading->name,
                       show::Counted(input.heading->length.value_or(0), "octet"), octets);
}

struct Page {
    Toolkit::smart_ptr<Pdu> pdu;
    CBMDecoder fields;
    std::string text;
    std::string warning; ///< may be empty
};

Page ReadPage(const Input& input, Console& console) {
    const Toolkit::smart_ptr<Pdu> pdu = ReadPdu(input.text);
    if (pdu->m_Length < c_headerLength)
        throw InputError(
            fmt::format("{}, a page has {} at least", show::Counted(pdu->m_Length, "octet"), c_headerLength));
    CBMDecoder fields;
    fields.Decode(pdu);
    const std::string warning = WarningOfLength(input, pdu->m_Length);
    if (!warning.empty() && !console.WantsJsonLines())
        console.Warning(NameOf(input), warning);
    return {pdu, fields, show::ToUtf8(fields.m_Text), warning};
}

PagePlace Decode(const Input& input, Console& console) {
    const Page page = ReadPage(input, console);
    ShowPage(input, *page.pdu, page.fields, page.text, page.warning, console);
    const show::PageNumber number = show::PageNumberOf(page.fields.m_PageParameter);
    return {
        {page.fields.m_SerialNumber, page.fields.m_MessageIdentifier, number.pages}, number.page, page.text};
}

Afterwards DecodeAndJoin(CellPages& pages, const Input& input, Console& console) {
    if (input.heading && input.heading->kind != Heading::Kind::Page)
        return {}; // another message of the log
    PagePlace place = Decode(input, console);
    if (place.page > place.key.pages)
        return {};
    return [&pages, place = std::move(place)](Console& later) {
        ShowJoined(pages.Take(place.key, place.page, place.text), later);
    };
}

} // namespace

void ShowCellPage(const Input& input, Console& console) {
    Decode(input, console);
}

show::Row RowOfCellPage(const Input& input, Console& console) {
    using show::Column;
    const Page page = ReadPage(input, console);
    const show::PageNumber number = show::PageNumberOf(page.fields.m_PageParameter);
    const std::string octets = page.pdu->GetString();
    show::Row row;
    row[Column::Input] = NameOf(input);
    row[Column::Direction] = show::DirectionName(Messages::Direction::ToMobile);
    row[Column::Type] = "cell broadcast page";
    row[Column::Address] = fmt::format("{}", page.fields.m_MessageIdentifier);
    if (number.pages > 1)
        row[Column::Part] = fmt::format("{}/{}", number.page, number.pages);
    if (show::CellCodingOf(page.fields.m_DataCodingScheme).isGsm7)
        row[Column::Text] = page.text;
    else
        row[Column::Data] = octets.substr(std::size_t{2} * c_headerLength);
    row[Column::Octets] = octets;
    return row;
}

void AddCell(CLI::App& parent, Action& action) {
    CLI::App* command = parent.add_subcommand("cell", "Show the header and the text of cell broadcast pages");
    auto options = std::make_shared<ConversionOptions>();
    AddConversion(
        *command, *options, "PAGE",
        "Pages in hexadecimal, of 88 octets as a rule; without any, one a line from standard input");
    AddFiles(*command, *options);
    AddStreaming(*command, *options);
    command->footer(
        "A line for each field of the header: its value on the wire and its meaning by 3GPP TS 23.041. The\n"
        "text is always read as GSM 7-bit, as many characters as there are octets. The pages of one message\n"
        "are shown joined once the last of them has come, or in the end with what is missing; of messages\n"
        "waiting for pages, the oldest is given up when there are more than 256. With --json an object for\n"
        "each page, and one with \"pages_joined\" and \"pages_missing\" for each joined message.\n"
        "Standard input may be the log of a modem, with the pages after +CBM lines.\n"
        "\n"
        "Example:\n"
        "  qxpdu cell 403211120111C8329BFD06");
    command->callback([options, &action] {
        action = [options](const Streams& streams) {
            CellPages pages;
            return ConvertStream(options->Settings(), streams,
                                 {LineKind::Transcript,
                                  [&pages](const Input& input, Console& console) {
                                      return DecodeAndJoin(pages, input, console);
                                  },
                                  [&pages](Console& console) {
                                      while (const auto message = pages.TakeOldest())
                                          ShowJoined(message, console);
                                  }});
        };
    });
}

} // namespace qxpdu
