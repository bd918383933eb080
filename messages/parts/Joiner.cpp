#include <algorithm>
#include <tuple>
#include <utility>

#include "Messages/Parts.h"
#include "alphabet/Text.h"
#include "tpdu/Rows.h"

namespace Messages {
namespace {

std::size_t OctetsOf(const JoinedPart& part) {
    return UserDataOf(part.tpdu)->octets.size();
}

DataCoding CodingOfPart(const Tpdu& tpdu) {
    const DataCoding* const coding = CodingOf(tpdu);
    return coding != nullptr ? *coding : DataCoding(TypeOf(tpdu) == TpduType::Command ? c_commandCoding : 0);
}

/// The content of parts side by side, which is decoded where they are not written alike.
class Content {
public:
    explicit Content(Joined& joined) : m_Joined(joined) {}

    void Add(const JoinedPart& part) {
        GoOnTo(part.number);
        const UserData& userData = *UserDataOf(part.tpdu);
        const DataCoding coding = CodingOfPart(part.tpdu);
        const bool isAlike = coding.alphabet == m_Coding.alphabet &&
                             coding.isCompressed == m_Coding.isCompressed && userData.tables == m_Tables;
        if (!isAlike)
            Flush();
        m_Coding = coding;
        m_Tables = userData.tables;
        Append(userData);
    }

    void Finish() {
        GoOnTo(m_Joined.total + 1);
        Flush();
    }

private:
    /// To the part of this number, after those that are missing before it.
    void GoOnTo(int number) {
        if (number > m_Next) {
            Flush();
            m_Joined.gaps.push_back({static_cast<std::uint8_t>(m_Next), static_cast<std::uint8_t>(number - 1),
                                     m_Joined.text.size(), m_Joined.data.size()});
        }
        m_Next = number + 1;
    }

    void Flush() {
        if (m_Coding.CountsSeptets())
            AppendSeptetText(m_Units, m_Tables, m_Joined.text);
        else if (IsUcs2Text())
            AppendUcs2Text(m_Units, m_Joined.text);
        else
            m_Joined.data.insert(m_Joined.data.end(), m_Units.begin(), m_Units.end());
        m_Units.clear();
    }

    void Append(const UserData& userData) {
        const OctetView content = userData.Content();
        if (!m_Coding.CountsSeptets()) {
            constexpr std::size_t unitOctets = 2;
            const OctetView whole = IsUcs2Text() ? content.Sub(0, userData.textUnits * unitOctets) : content;
            m_Units.insert(m_Units.end(), whole.begin(), whole.end());
            return;
        }
        const std::size_t at = m_Units.size();
        m_Units.resize(at + userData.textUnits);
        UnpackSeptets(content, userData.fillBits, userData.textUnits, m_Units.data() + at);
        HealCut(m_Units, at);
    }

    bool IsUcs2Text() const { return m_Coding.alphabet == Alphabet::Ucs2 && !m_Coding.isCompressed; }

    Joined& m_Joined;
    int m_Next = 1; ///< the number of the part after those that were added
    DataCoding m_Coding;
    SeptetTables m_Tables;
    std::vector<std::uint8_t> m_Units;
};

Joined Join(std::vector<JoinedPart> parts, std::uint8_t total, JoinOutcome outcome) {
    Joined joined;
    joined.outcome = outcome;
    joined.total = total;
    joined.parts = std::move(parts);
    if (UserDataOf(joined.parts.front().tpdu) == nullptr)
        return joined; // no part of anything
    Content content(joined);
    for (const JoinedPart& part : joined.parts)
        content.Add(part);
    content.Finish();
    return joined;
}

Joined Duplicate(JoinedPart part, std::uint8_t total, const JoinedPart& before) {
    std::vector<JoinedPart> parts;
    parts.push_back(std::move(part));
    Joined joined = Join(std::move(parts), total, JoinOutcome::Duplicate);
    joined.gaps.clear();
    joined.before = before.tag;
    return joined;
}

const JoinedPart* FindPart(const std::vector<JoinedPart>& parts, std::uint8_t number) {
    const auto found =
        std::find_if(parts.begin(), parts.end(), [&](const JoinedPart& one) { return one.number == number; });
    return found == parts.end() ? nullptr : &*found;
}

/// Whether a part is one that came before. References come round, so one like that of a message that is
/// complete has to be of the same time.
bool ComesAgain(const JoinedPart& before, const JoinedPart& part, bool isComplete) {
    if (UserDataOf(before.tpdu)->octets != UserDataOf(part.tpdu)->octets)
        return false;
    const Timestamp* const time = TimestampOf(before.tpdu);
    const Timestamp* const again = TimestampOf(part.tpdu);
    return !isComplete || time == nullptr || again == nullptr || *time == *again;
}

bool IsLate(std::int64_t begun, std::int64_t now, std::int64_t seconds) {
    return now > begun && static_cast<std::uint64_t>(now) - static_cast<std::uint64_t>(begun) >
                              static_cast<std::uint64_t>(std::max<std::int64_t>(seconds, 0));
}

} // namespace

bool Joiner::Key::operator<(const Key& other) const noexcept {
    const auto members = [](const Key& key) {
        return std::tie(key.reference, key.total, key.direction, key.typeOfAddress, key.hasWideReference,
                        key.party);
    };
    return members(*this) < members(other);
}

Joiner::Joiner(const JoinLimits& limits) : m_Limits(limits) {}

std::vector<Joined> Joiner::Add(const Reading& reading, std::int64_t now, std::uint64_t tag) {
    GiveUpLate(now);
    const UserData* const userData = UserDataOf(reading.tpdu);
    if (userData == nullptr || !userData->concatenation) {
        m_Ready.push_back(Join({{1, tag, reading.tpdu}}, 1, JoinOutcome::Complete));
        return Taken();
    }
    const Concatenation& place = *userData->concatenation;
    Key key{reading.direction, 0, {}, place.hasWideReference, place.reference, place.total};
    if (const Address* const party = PartyOf(reading.tpdu)) {
        key.typeOfAddress = party->typeOfAddress;
        key.party = party->text;
    }
    AddPart(key, {place.part, tag, reading.tpdu}, now);
    return Taken();
}

void Joiner::AddPart(const Key& key, JoinedPart part, std::int64_t now) {
    auto message = m_Messages.find(key);
    if (message != m_Messages.end()) {
        const JoinedPart* const same = FindPart(message->second.parts, part.number);
        if (same != nullptr && ComesAgain(*same, part, message->second.isComplete)) {
            m_Ready.push_back(Duplicate(std::move(part), key.total, *same));
            Complete(message);
            return;
        }
        if (same != nullptr) {
            HandBack(key, message->second, JoinOutcome::Replaced);
            Erase(message);
            message = m_Messages.end();
        }
    }
    if (message == m_Messages.end())
        message = Begin(key, now);
    const std::size_t octets = OctetsOf(part);
    std::vector<JoinedPart>& others = message->second.parts;
    const auto after = std::find_if(others.begin(), others.end(),
                                    [&](const JoinedPart& one) { return one.number > part.number; });
    others.insert(after, std::move(part)); // has room, and takes no memory
    m_Octets += octets;
    Complete(message);
    MakeRoom();
}

Joiner::Store::iterator Joiner::Begin(const Key& key, std::int64_t now) {
    Message begun{m_Order, now, false, {}};
    begun.parts.reserve(key.total);
    std::map<Age, Key> age;
    age.try_emplace(AgeOf(begun), key);
    const auto message = m_Messages.try_emplace(key, std::move(begun)).first; // the last that takes memory
    m_Ages.merge(age);
    ++m_Order;
    m_Earliest = std::min(m_Earliest, now);
    return message;
}

void Joiner::Complete(Store::iterator message) {
    if (message->second.parts.size() != message->first.total)
        return;
    HandBack(message->first, message->second, JoinOutcome::Complete);
    auto age = m_Ages.extract(AgeOf(message->second));
    message->second.isComplete = true;
    age.key() = AgeOf(message->second);
    m_Ages.insert(std::move(age));
}

void Joiner::HandBack(const Key& key, const Message& message, JoinOutcome outcome) {
    if (!message.isComplete)
        m_Ready.push_back(Join(message.parts, key.total, outcome));
}

void Joiner::Erase(Store::iterator message) noexcept {
    for (const JoinedPart& part : message->second.parts)
        m_Octets -= OctetsOf(part);
    m_Ages.erase(AgeOf(message->second));
    m_Messages.erase(message);
}

void Joiner::MakeRoom() {
    while (m_Messages.size() > m_Limits.messages || m_Octets > m_Limits.octets) {
        const auto oldest = m_Messages.find(m_Ages.begin()->second);
        HandBack(oldest->first, oldest->second, JoinOutcome::Displaced);
        Erase(oldest);
    }
}

void Joiner::GiveUpLate(std::int64_t now) {
    if (!IsLate(m_Earliest, now, m_Limits.seconds))
        return;
    std::int64_t earliest = c_never;
    for (auto one = m_Messages.begin(); one != m_Messages.end();) {
        const auto next = std::next(one);
        if (IsLate(one->second.begun, now, m_Limits.seconds)) {
            HandBack(one->first, one->second, JoinOutcome::TimedOut);
            Erase(one);
        } else {
            earliest = std::min(earliest, one->second.begun);
        }
        one = next;
    }
    m_Earliest = earliest;
}

std::vector<Joined> Joiner::Expire(std::int64_t now) {
    GiveUpLate(now);
    return Taken();
}

std::vector<Joined> Joiner::Finish() {
    while (!m_Ages.empty()) {
        const auto oldest = m_Messages.find(m_Ages.begin()->second);
        HandBack(oldest->first, oldest->second, JoinOutcome::Finished);
        Erase(oldest);
    }
    return Taken();
}

std::vector<Joined> Joiner::Taken() noexcept {
    return std::exchange(m_Ready, {});
}

} // namespace Messages
