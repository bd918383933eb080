#include "commands/CellPages.h"

#include <algorithm>
#include <optional>
#include <string>

#include <fmt/format.h>

#include "Messages/Read.h"
#include "characters/Hexadecimal.h"
#include "characters/InputError.h"
#include "commands/HostPage.h"
#include "commands/Joined.h"
#include "commands/Reading.h"
#include "show/BroadcastJson.h"
#include "show/BroadcastText.h"
#include "show/Columns.h"
#include "show/Json.h"
#include "show/Message.h"
#include "show/MessageJson.h"
#include "show/Plural.h"

namespace qxpdu {

namespace {

/// Empty where the length is as announced.
std::string WarningOfLength(const Input& input, std::size_t octets) {
    const auto announced = input.heading ? input.heading->length : std::nullopt;
    if (!announced || *announced == octets)
        return {};
    return fmt::format("{} announces {}, here are {}", input.heading->name,
                       show::Counted(*announced, "octet"), octets);
}

bool IsSoundPage(Messages::OctetView octets) {
    using Messages::RemarkCode;
    const Messages::CellReading reading = Messages::ReadCell(octets, Messages::CellFormat::GsmPage);
    return !reading.fault &&
           std::none_of(reading.remarks.begin(), reading.remarks.end(), [](const Messages::Remark& remark) {
               return remark.code == RemarkCode::PageParameterZero ||
                      remark.code == RemarkCode::PageBeyondTotal ||
                      remark.code == RemarkCode::ReservedDataCoding;
           });
}

/// With a service centre that the length counts, or without one.
bool IsSoundMessage(Messages::OctetView octets, const Heading& heading) {
    Messages::ReadOptions options;
    options.direction = heading.direction;
    return Messages::Read(octets, options).IsSound();
}

/// Not where there is no page at all: that is never joined.
bool IsPart(const show::Broadcast& broadcast) {
    const std::vector<Messages::CellPage>& pages = broadcast.reading.pages;
    return !pages.empty() && (pages.size() < broadcast.reading.total || pages.back().isCut);
}

void ShowDuplicate(const Input& input, const Messages::CellReading& reading, Console& console) {
    const std::vector<int> pages = show::NumbersOf(reading.pages);
    if (!console.WantsJsonLines())
        return console.Warning(NameOf(input), fmt::format("{} of {} {} come before", show::PagesText(pages),
                                                          reading.total, pages.size() == 1 ? "has" : "have"));
    show::Json object = ObjectFor(input);
    object["duplicate_pages"] = pages;
    console.Object(object);
}

/// Whether all pages are among those that the message has; a page beyond them is handed back at once.
bool HasSoundNumbers(const Messages::CellReading& reading) {
    return std::all_of(reading.pages.begin(), reading.pages.end(),
                       [&reading](const auto& page) { return page.number <= reading.total; });
}

/// Whether the message is nothing but what was read.
bool IsSame(const Messages::CellMessage& message, const Messages::CellReading& reading) {
    return message.serialNumber == reading.serialNumber &&
           message.messageIdentifier == reading.messageIdentifier && message.coding == reading.coding &&
           message.total == reading.total &&
           std::equal(
               message.pages.begin(), message.pages.end(), reading.pages.begin(), reading.pages.end(),
               [&](const auto& one, const auto& other) { return one.IsSameAs(other, message.coding); });
}

} // namespace

bool IsPageOfLog(const Input& input) {
    constexpr std::size_t c_pageOctets = 88;
    if (!input.heading || input.heading->kind == Heading::Kind::Page)
        return input.heading.has_value();
    if (!input.heading->isStored || input.heading->length != c_pageOctets)
        return false;
    const std::vector<unsigned char> octets = ReadHex(input.text);
    return octets.size() == c_pageOctets && !IsSoundMessage(octets, *input.heading) && IsSoundPage(octets);
}

show::Broadcast ReadBroadcast(Messages::CellFormat format, const Input& input, Console& console) {
    show::Broadcast broadcast;
    broadcast.octets = ReadHex(input.text);
    broadcast.reading = Messages::ReadCell(broadcast.octets, format);
    if (std::string warning = WarningOfLength(input, broadcast.octets.size()); !warning.empty())
        broadcast.warnings.push_back(std::move(warning));
    TellWarnings(broadcast.warnings, input, console);
    return broadcast;
}

show::ComparedBroadcast ReadCompared(Messages::CellFormat format, const Input& input, Console& console) {
    show::Broadcast broadcast = ReadBroadcast(format, input, console);
    show::HostReading host = show::CompareWithHost(broadcast);
    return {std::move(broadcast), std::move(host)};
}

void WarnOfText(const CellSettings& settings, const show::Broadcast& broadcast, const Input& input,
                Console& console) {
    const bool isPart = settings.join && IsPart(broadcast);
    for (const Messages::Remark& remark : broadcast.reading.remarks) {
        const bool isLeft =
            isPart && (show::MayBeHealed(remark) || remark.code == Messages::RemarkCode::PagesMissing);
        if (show::ConcernsText(remark, broadcast) && !isLeft)
            TellRemark(remark, settings.isStrict, input, console);
    }
}

Afterwards CellPages::Convert(const Input& input, Console& console) {
    if (m_Settings.asHost) {
        const std::vector<unsigned char> octets = ReadHex(input.text);
        ShowHostPage(input, octets, WarningOfLength(input, octets.size()), console);
        return {};
    }
    const auto compared =
        std::make_shared<const show::ComparedBroadcast>(ReadCompared(m_Settings.format, input, console));
    const show::Broadcast& broadcast = compared->broadcast;
    if (broadcast.reading.fault) {
        ShowFault(*broadcast.reading.fault, broadcast.warnings, compared->host, input, console);
        return {};
    }
    WarnOfText(m_Settings, broadcast, input, console);
    const bool isJoined = m_Settings.join && !broadcast.reading.pages.empty();
    if (!isJoined || m_Settings.each)
        Show(input, *compared, console);
    if (!isJoined)
        return {};
    return [this, input, compared](Console& later) { Take(input, compared, later); };
}

show::Row CellPages::ReadToRow(const Input& input, Console& console) const {
    const show::Broadcast broadcast = ReadBroadcast(m_Settings.format, input, console);
    if (broadcast.reading.fault)
        throw InputError(show::ToText(*broadcast.reading.fault));
    WarnOfText(m_Settings, broadcast, input, console);
    return show::RowOf(broadcast);
}

void CellPages::ShowIncomplete(Console& console) {
    while (const auto message = m_Joiner.TakeOldest())
        ShowJoined(WithSources(*message), m_Settings.isStrict, m_Settings.rows, console);
}

void CellPages::Show(const Input& input, const show::ComparedBroadcast& compared, Console& console) const {
    if (m_Settings.rows.AreWanted()) {
        show::Row row = show::RowOf(compared.broadcast);
        row[show::Column::Input] = NameOf(input);
        return ShowRow(m_Settings.rows, row, console);
    }
    if (!console.WantsJson())
        return console.Block(show::ToText(compared));
    show::JsonText object;
    Begin(object, input);
    show::Write(compared, object);
    console.Object(object);
}

void CellPages::ShowOlder(const Input& input, const show::ComparedBroadcast& compared,
                          Console& console) const {
    constexpr const char* c_words = "a newer update of the message has come before";
    if (!console.WantsJsonLines()) {
        console.Warning(NameOf(input), c_words);
        if (!m_Settings.each)
            Show(input, compared, console);
        return;
    }
    show::ComparedBroadcast older = compared;
    older.broadcast.warnings.emplace_back(c_words);
    Show(input, older, console);
}

show::JoinedBroadcast CellPages::WithSources(const Messages::CellMessage& message) {
    auto node = m_Sources.extract({message.serialNumber.value, message.messageIdentifier});
    std::vector<show::PageSource>& sources = node.mapped();
    std::sort(sources.begin(), sources.end(),
              [](const auto& one, const auto& other) { return one.FirstPage() < other.FirstPage(); });
    return {message, std::move(sources)};
}

void CellPages::Take(const Input& input, const Compared& compared, Console& console) {
    const Messages::CellReading& reading = compared->broadcast.reading;
    const Messages::CellTaken taken = m_Joiner.Take(reading);
    if (taken.isDuplicate)
        return ShowDuplicate(input, reading, console);
    const show::PageSource source{NameOf(input), input.source == Input::Source::Argument, input.number,
                                  input.file, compared};
    const auto show = [&](const show::JoinedBroadcast& joined) {
        if (!joined.message.IsComplete() || joined.sources.size() > 1)
            ShowJoined(joined, m_Settings.isStrict, m_Settings.rows, console);
        else if (!m_Settings.each)
            Show(input, *compared, console);
    };
    bool isHeld = true;
    for (const Messages::CellMessage& message : taken.givenUp) {
        const bool isItself = IsSame(message, reading);
        if (isItself && HasSoundNumbers(reading))
            return ShowOlder(input, *compared, console);
        show(isItself ? show::JoinedBroadcast{message, {source}} : WithSources(message));
        if (isItself)
            isHeld = false;
    }
    if (isHeld)
        m_Sources[{reading.serialNumber.value, reading.messageIdentifier}].push_back(source);
    if (taken.complete)
        show(WithSources(*taken.complete));
}

} // namespace qxpdu
