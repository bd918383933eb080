#include "commands/Join.h"

#include <iterator>
#include <utility>

#include "show/CodeUnits.h"

namespace qxpdu {

namespace {

std::string DigitsOf(const std::string& address) {
    return address.starts_with('+') ? address.substr(1) : address;
}

// The tag of a part is its input: the number, the file from 1 where it stood in one, and whether it was an
// argument.
constexpr unsigned int c_fileShift = 40;
constexpr unsigned int c_argumentShift = 63;
constexpr std::uint64_t c_argument = std::uint64_t{1} << c_argumentShift;
constexpr std::uint64_t c_number = (std::uint64_t{1} << c_fileShift) - 1;

Messages::JoinLimits Limits() {
    Messages::JoinLimits limits;
    limits.messages = PartJoiner::MAX_MESSAGES;
    return limits; // no time goes by, so that none is too late
}

bool IsSame(const Messages::Tpdu& one, const Messages::Tpdu& other) {
    const Messages::Address* const party = Messages::PartyOf(one);
    return one.index() == other.index() &&
           Messages::UserDataOf(one)->octets == Messages::UserDataOf(other)->octets &&
           (party == nullptr || *party == *Messages::PartyOf(other));
}

show::JoinedContent ContentOf(const Messages::Joined& joined) {
    show::JoinedContent content{joined.text, joined.data, {}};
    for (const Messages::JoinedGap& gap : joined.gaps) {
        const std::string_view before = std::string_view(joined.text).substr(0, gap.textOffset);
        show::Gap& shown = content.gaps.emplace_back();
        shown.characters = show::CharactersIn(before);
        shown.octets = gap.dataOffset;
        for (int number = gap.first; number <= gap.last; ++number)
            shown.missing.push_back(number);
    }
    return content;
}

} // namespace

PartJoiner::PartJoiner() : m_Joiner(Limits()) {}

PartJoiner::Outcome PartJoiner::Take(const Input& input,
                                     const std::shared_ptr<const show::ComparedMessage>& compared) {
    const std::uint64_t tag = TagOf(input);
    m_Read.emplace(tag, compared);
    Outcome outcome;
    for (const Messages::Joined& joined : m_Joiner.Add(compared->message.reading, 0, tag)) {
        show::JoinedMessage message = WithSources(joined);
        if (joined.outcome == Messages::JoinOutcome::Duplicate)
            outcome.duplicateOf = NameOf(InputOf(joined.before));
        else
            outcome.messages.push_back(std::move(message));
    }
    return outcome;
}

std::vector<show::JoinedMessage> PartJoiner::TakeRest() {
    std::vector<show::JoinedMessage> rest;
    for (const Messages::Joined& joined : m_Joiner.Finish())
        rest.push_back(WithSources(joined));
    return rest;
}

std::uint64_t PartJoiner::TagOf(const Input& input) {
    if (!input.file.empty() && (m_Files.empty() || m_Files.back() != input.file))
        m_Files.push_back(input.file);
    return (input.source == Input::Source::Argument ? c_argument : 0) |
           (input.file.empty() ? 0 : std::uint64_t{m_Files.size()} << c_fileShift) |
           (input.number & c_number);
}

Input PartJoiner::InputOf(std::uint64_t tag) const {
    const bool isArgument = (tag & c_argument) != 0;
    const auto file = static_cast<std::size_t>((tag & ~c_argument) >> c_fileShift);
    return {isArgument ? Input::Source::Argument : Input::Source::Line,
            static_cast<std::size_t>(tag & c_number),
            {},
            std::nullopt,
            file == 0 ? std::string_view() : m_Files[file - 1]};
}

/// Several parts of one line have the same tag.
std::shared_ptr<const show::ComparedMessage> PartJoiner::TakeRead(const Messages::JoinedPart& part) {
    auto [read, end] = m_Read.equal_range(part.tag);
    while (std::next(read) != end && !IsSame(read->second->message.reading.tpdu, part.tpdu))
        ++read;
    auto compared = std::move(read->second);
    m_Read.erase(read);
    return compared;
}

show::JoinedMessage PartJoiner::WithSources(const Messages::Joined& joined) {
    const Messages::Concatenation& place = *Messages::UserDataOf(joined.parts.front().tpdu)->concatenation;
    show::JoinedMessage message{place.hasWideReference, place.reference, joined.total, {}, ContentOf(joined)};
    for (const Messages::JoinedPart& part : joined.parts) {
        const Input input = InputOf(part.tag);
        message.parts.push_back({part.number, NameOf(input), input.source == Input::Source::Argument,
                                 input.number, TakeRead(part), input.file});
    }
    return message;
}

void SentMessages::Add(const std::string& address, int reference, SentMessage message) {
    const Key key(DigitsOf(address), reference);
    if (const auto old = m_Sent.find(key); old != m_Sent.end()) {
        m_Order.erase(old->second.place);
        m_Sent.erase(old);
    }
    m_Order.push_back(key);
    m_Sent.emplace(key, Sent{message, std::prev(m_Order.end())});
    if (m_Sent.size() > MAX_MESSAGES) {
        m_Sent.erase(m_Order.front());
        m_Order.pop_front();
    }
}

std::optional<SentMessage> SentMessages::Find(const std::string& address, int reference) const {
    const auto found = m_Sent.find({DigitsOf(address), reference});
    return found == m_Sent.end() ? std::nullopt : std::optional(found->second.message);
}

} // namespace qxpdu
