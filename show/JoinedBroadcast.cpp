#include "show/JoinedBroadcast.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "Messages/Words.h"
#include "show/BroadcastJson.h"
#include "show/Lines.h"
#include "show/Message.h"
#include "show/MessageJson.h"
#include "show/Notes.h"
#include "show/Values.h"

namespace show {

namespace {

using Messages::CellMessage;
using Messages::CellPage;

/// Those that have come whole.
std::vector<int> WholeOf(const CellMessage& message) {
    std::vector<int> numbers;
    for (const CellPage& page : message.pages)
        if (!page.isCut)
            numbers.push_back(page.number);
    return numbers;
}

std::vector<int> MissingOf(const CellMessage& message) {
    const std::vector<std::uint8_t> missing = message.Missing();
    return {missing.begin(), missing.end()};
}

std::string WordsOfPages(const CellMessage& message) {
    const std::vector<int> whole = WholeOf(message);
    const std::vector<int> missing = MissingOf(message);
    return fmt::format("{}{} of {}{}{}", whole.empty() ? "none" : "", fmt::join(whole, ", "), message.total,
                       missing.empty() ? "" : "; missing ", fmt::join(missing, ", "));
}

/// The text with a word for each gap. Pages beyond the total stand at the end.
std::string TextWithGaps(const CellMessage& message) {
    std::string text;
    std::vector<int> missing;
    std::vector<CellPage> run; // of pages without a gap
    const auto end = [&] {
        text += Messages::JoinText(run, message.coding);
        run.clear();
    };
    const int last = std::max<int>(message.total, message.pages.back().number);
    for (int number = 1; number <= last; ++number) {
        const auto page = std::find_if(message.pages.begin(), message.pages.end(),
                                       [number](const CellPage& each) { return each.number == number; });
        if (page == message.pages.end()) {
            end();
            if (number <= message.total)
                missing.push_back(number);
            continue;
        }
        if (!missing.empty())
            text += fmt::format("[{} missing]", PagesText(missing));
        missing.clear();
        run.push_back(*page);
        if (page->isCut) {
            end();
            text += fmt::format("[rest of page {} missing]", number);
        }
    }
    end();
    return missing.empty() ? text : text + fmt::format("[{} missing]", PagesText(missing));
}

std::size_t IndexOf(std::uint8_t number, const std::vector<CellPage>& pages) {
    const auto page = std::find_if(pages.begin(), pages.end(),
                                   [number](const CellPage& each) { return each.number == number; });
    return static_cast<std::size_t>(page - pages.begin());
}

/// Those of a source that the other pages do not heal.
std::vector<Messages::Remark> RemarksOn(const JoinedBroadcast& joined, const PageSource& source) {
    const Broadcast& broadcast = source.compared->broadcast;
    std::vector<Messages::Remark> remarks = broadcast.reading.remarks;
    std::erase_if(remarks, [&](const Messages::Remark& remark) {
        const CellPage* const page = PageAt(remark.octet, broadcast);
        if (page == nullptr)
            return false;
        const std::size_t index = IndexOf(page->number, joined.message.pages);
        const bool cameAgainWhole = page->isCut && !joined.message.pages[index].isCut;
        return cameAgainWhole || IsHealed(remark, index, joined.message.pages);
    });
    return remarks;
}

std::vector<std::string> NotesOf(const JoinedBroadcast& joined) {
    std::vector<std::string> notes;
    for (const PageSource& source : joined.sources) {
        for (const Messages::Remark& remark : RemarksOn(joined, source))
            notes.push_back(fmt::format("! {}: {}", source.name, ToText(remark)));
        for (const RecordMember& member : source.compared->host.members)
            notes.push_back(fmt::format("~ {}: {}", source.name, DifferenceText(member)));
    }
    return notes;
}

void WriteSource(const JoinedBroadcast& joined, const PageSource& source, JsonText& object) {
    object.Numbers("pages", NumbersOf(source.compared->broadcast.reading.pages));
    if (!source.file.empty())
        object.Member("file", source.file);
    object.Member(source.isArgument ? "argument" : "line", source.input);
    WriteWarnings(source.compared->broadcast.warnings, object);
    WriteRemarks(RemarksOn(joined, source), object);
    WriteDifferences(source.compared->host, false, object);
}

} // namespace

std::vector<int> NumbersOf(const std::vector<CellPage>& pages) {
    std::vector<int> numbers;
    std::transform(pages.begin(), pages.end(), std::back_inserter(numbers),
                   [](const CellPage& page) { return int{page.number}; });
    return numbers;
}

std::string PagesText(const std::vector<int>& numbers) {
    return fmt::format("{} {}", numbers.size() == 1 ? "page" : "pages", fmt::join(numbers, ", "));
}

std::vector<JoinedFlaw> FlawsOf(const JoinedBroadcast& joined) {
    std::vector<JoinedFlaw> flaws;
    if (const std::vector<int> missing = MissingOf(joined.message); !missing.empty())
        flaws.push_back({joined.sources.front().name,
                         fmt::format("{} of {} {} missing", PagesText(missing), joined.message.total,
                                     missing.size() == 1 ? "is" : "are")});
    for (const PageSource& source : joined.sources)
        for (const Messages::Remark& remark : RemarksOn(joined, source))
            if (MayBeHealed(remark))
                flaws.push_back({source.name, ToText(remark)});
    return flaws;
}

std::string ToText(const JoinedBroadcast& joined) {
    const CellMessage& message = joined.message;
    std::vector<std::string_view> sources;
    for (const PageSource& source : joined.sources)
        sources.push_back(source.name);
    std::vector<Line> lines = {{"Pages joined", "", WordsOfPages(message), {}},
                               {"from", "", fmt::format("{}", fmt::join(sources, ", ")), {}},
                               {ShownNameOf(Messages::Field::SerialNumber),
                                fmt::format("0x{:04X}", message.serialNumber.value),
                                Messages::MeaningOf(message.serialNumber, message.messageIdentifier),
                                {}},
                               {ShownNameOf(Messages::Field::MessageIdentifier),
                                fmt::format("0x{:04X}", message.messageIdentifier),
                                Messages::MeaningOfMessageIdentifier(message.messageIdentifier),
                                {}},
                               {ShownNameOf(Messages::Field::CellDataCoding),
                                fmt::format("0x{:02X}", message.coding.value),
                                Messages::MeaningOf(message.coding),
                                {}}};
    if (const std::string& language = message.pages.front().language; !language.empty())
        lines.push_back({"language", "", LanguageText(language), {}});
    if (message.coding.HasText()) {
        lines.push_back({"text", "", TextWithGaps(message), {}});
    } else {
        const std::vector<std::uint8_t> data = DataOf(message.pages);
        lines.push_back({"data", Messages::ToHex(data), DataText(data), {}});
    }
    lines.back().notes = NotesOf(joined);
    return Aligned(lines);
}

void Write(const JoinedBroadcast& joined, JsonText& object) {
    const CellMessage& message = joined.message;
    object.Array("joined", [&] {
        for (const PageSource& source : joined.sources)
            object.Element([&] { WriteSource(joined, source, object); });
    });
    WriteSerialNumber(message.serialNumber, message.messageIdentifier, object);
    WriteMessageIdentifier(message.messageIdentifier, object);
    WriteDataCoding(message.coding, object);
    const std::string_view language = message.pages.front().language;
    if (const std::string_view told = language.empty() ? message.coding.language : language; !told.empty())
        object.Member("language", told);
    object.Numbers("pages_joined", WholeOf(message));
    object.Numbers("pages_missing", MissingOf(message));
    if (message.coding.HasText())
        object.Member("text", std::string_view(message.Text()));
    else
        object.Octets("data", DataOf(message.pages));
}

} // namespace show
