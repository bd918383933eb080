// Puts pages together.
#include <algorithm>
#include <utility>

#include "alphabet/Text.h"
#include "cell/Pages.h"

namespace Messages {
namespace {

/// Whether the text of one page goes on in the next.
bool GoesOn(const CellPage& page, const CellPage& next) {
    return !page.isCut && next.number == page.number + 1 && next.tables == page.tables;
}

void AppendSeptets(const CellPage& page, std::vector<std::uint8_t>& septets) {
    const std::size_t cut = septets.size();
    septets.resize(cut + page.textUnits);
    septets.resize(cut + UnpackSeptets(page.Content(), page.textBit, page.textUnits, septets.data() + cut));
    HealCut(septets, cut);
}

void AppendUnits(const CellPage& page, std::vector<std::uint8_t>& octets) {
    constexpr std::size_t unitOctets = 2;
    const OctetView units = page.Content().Sub(0, unitOctets * page.textUnits);
    octets.insert(octets.end(), units.begin(), units.end());
}

/// Whether both have a key, but for the update number.
bool AreUpdates(const CellMessage& message, const CellReading& reading) {
    return message.messageIdentifier == reading.messageIdentifier &&
           message.serialNumber.Scope() == reading.serialNumber.Scope() &&
           message.serialNumber.MessageCode() == reading.serialNumber.MessageCode();
}

/// Whether an update number comes after another one, of which the half after it are newer. REQUIRES that they
/// differ.
bool IsNewer(SerialNumber serial, SerialNumber than) {
    constexpr unsigned int count = 16;
    return (count + serial.UpdateNumber() - than.UpdateNumber()) % count <= count / 2;
}

/// Bits of a page up to the end of its text, or of its data.
std::size_t UsedBits(const CellPage& page, const CellCoding& coding) {
    const std::size_t unitBits = coding.CountsSeptets() ? c_septetBits
                                 : coding.HasText()     ? 2 * c_octetBits
                                                        : c_octetBits;
    return std::min(page.textOffset * c_octetBits + page.textBit + page.textUnits * unitBits,
                    page.octets.size() * c_octetBits);
}

const CellPage* PageOf(const CellMessage& message, std::uint8_t number) {
    const auto page = std::find_if(message.pages.begin(), message.pages.end(),
                                   [&](const CellPage& each) { return each.number == number; });
    return page == message.pages.end() ? nullptr : &*page;
}

/// Whether the pages may be of the message: none of them contradicts it.
bool MayBeOf(const CellMessage& message, const CellReading& reading) {
    return message.coding == reading.coding && message.total == reading.total &&
           std::none_of(reading.pages.begin(), reading.pages.end(), [&](const CellPage& page) {
               const CellPage* const held = PageOf(message, page.number);
               return held != nullptr && !held->isCut && !page.isCut && !held->IsSameAs(page, reading.coding);
           });
}

CellMessage MessageOf(const CellReading& reading) {
    return {reading.serialNumber, reading.messageIdentifier, reading.coding, reading.total, reading.pages};
}

/// Gives pages that were read by themselves the characters back that were taken for a language.
void SettleLanguages(CellMessage& message) {
    const CellPage& first = message.pages.front();
    const bool hasLanguages =
        message.coding.group == CellCodingGroup::LanguageInText && message.coding.alphabet == Alphabet::Ucs2;
    if (!hasLanguages || first.number != 1)
        return;
    for (auto page = message.pages.begin() + 1; page != message.pages.end(); ++page) {
        if (page->textOffset == 0 || BeginsAlike(*page, first))
            continue;
        page->language.clear();
        page->textOffset = 0;
        ++page->textUnits;
        page->text = JoinText({*page}, message.coding);
    }
}

/// Whether the message lacks the page, or has it cut alone.
bool Lacks(const CellMessage& message, const CellPage& page) {
    const CellPage* const held = PageOf(message, page.number);
    return held == nullptr || (held->isCut && !page.isCut);
}

/// The message with the pages that it lacks, in their order.
CellMessage With(CellMessage message, const CellReading& reading) {
    for (const CellPage& page : reading.pages) {
        if (!Lacks(message, page))
            continue;
        const auto at = std::find_if(message.pages.begin(), message.pages.end(),
                                     [&](const CellPage& each) { return each.number >= page.number; });
        if (at != message.pages.end() && at->number == page.number)
            *at = page;
        else
            message.pages.insert(at, page);
    }
    SettleLanguages(message);
    return message;
}

bool IsBeyondTotal(const CellReading& reading) {
    return std::any_of(reading.pages.begin(), reading.pages.end(),
                       [&](const CellPage& page) { return page.number > reading.total; });
}

} // namespace

std::string JoinText(const std::vector<CellPage>& pages, const CellCoding& coding) {
    std::string text;
    if (!coding.HasText())
        return text;
    std::vector<std::uint8_t> run; // of pages that go on in each other
    for (auto page = pages.begin(); page != pages.end(); ++page) {
        const bool isUcs2 = coding.alphabet == Alphabet::Ucs2;
        isUcs2 ? AppendUnits(*page, run) : AppendSeptets(*page, run);
        if (const auto next = page + 1; next != pages.end() && GoesOn(*page, *next))
            continue;
        isUcs2 ? AppendUcs2Text(run, text) : AppendSeptetText(run, page->tables, text);
        run.clear();
    }
    return text;
}

bool CellPage::IsSameAs(const CellPage& other, const CellCoding& coding) const noexcept {
    const std::size_t bits = UsedBits(*this, coding);
    if (number != other.number || bits != UsedBits(other, coding))
        return false;
    const std::size_t whole = bits / c_octetBits;
    const unsigned int lastBits = (1U << bits % c_octetBits) - 1;
    return std::equal(octets.begin(), octets.begin() + static_cast<std::ptrdiff_t>(whole),
                      other.octets.begin()) &&
           (lastBits == 0 || ((octets[whole] ^ other.octets[whole]) & lastBits) == 0);
}

bool CellMessage::IsComplete() const noexcept {
    return pages.size() == total && std::all_of(pages.begin(), pages.end(), [&](const CellPage& page) {
               return page.number <= total && !page.isCut;
           });
}

std::vector<std::uint8_t> CellMessage::Missing() const {
    std::vector<std::uint8_t> missing;
    for (std::uint8_t number = 1; number <= total; ++number)
        if (const CellPage* const page = PageOf(*this, number); page == nullptr || page->isCut)
            missing.push_back(number);
    return missing;
}

CellTaken CellJoiner::Take(const CellReading& reading) {
    CellTaken taken;
    if (reading.fault || reading.pages.empty())
        return taken;
    const auto held = std::find_if(m_Held.begin(), m_Held.end(),
                                   [&](const CellMessage& message) { return AreUpdates(message, reading); });
    const bool isHeld = held != m_Held.end();
    const bool isSameUpdate = isHeld && held->serialNumber == reading.serialNumber;
    if (IsBeyondTotal(reading) ||
        (isHeld && !isSameUpdate && !IsNewer(reading.serialNumber, held->serialNumber))) {
        taken.givenUp.push_back(MessageOf(reading));
        return taken;
    }

    // All memory is taken before anything changes.
    std::list<CellMessage> fresh;
    const bool isContinued = isSameUpdate && MayBeOf(*held, reading);
    if (isContinued && std::none_of(reading.pages.begin(), reading.pages.end(),
                                    [&](const CellPage& page) { return Lacks(*held, page); })) {
        taken.isDuplicate = true;
        return taken;
    }
    if (isContinued)
        fresh.push_back(With(*held, reading));
    else
        fresh.push_back(MessageOf(reading));
    CellMessage& message = fresh.front();
    if (message.IsComplete())
        taken.complete = message;
    taken.givenUp.reserve(2);
    if (isContinued) {
        *held = std::move(message);
        return taken;
    }
    if (isHeld) {
        if (!held->IsComplete())
            taken.givenUp.push_back(std::move(*held));
        m_Held.erase(held);
    }
    m_Held.splice(m_Held.end(), fresh);
    if (m_Held.size() > m_Most) {
        auto oldest = std::find_if(m_Held.begin(), m_Held.end(),
                                   [](const CellMessage& each) { return each.IsComplete(); });
        if (oldest == m_Held.end())
            oldest = m_Held.begin();
        if (!oldest->IsComplete())
            taken.givenUp.push_back(std::move(*oldest));
        m_Held.erase(oldest);
    }
    return taken;
}

std::optional<CellMessage> CellJoiner::TakeOldest() {
    const auto oldest = std::find_if(m_Held.begin(), m_Held.end(),
                                     [](const CellMessage& message) { return !message.IsComplete(); });
    if (oldest == m_Held.end())
        return std::nullopt;
    std::optional<CellMessage> message = std::move(*oldest);
    m_Held.erase(oldest);
    return message;
}

} // namespace Messages
