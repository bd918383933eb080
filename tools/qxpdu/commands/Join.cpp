#include "commands/Join.h"

#include <algorithm>
#include <utility>

namespace qxpdu {

namespace {

std::string DigitsOf(const std::string& address) {
    return address.starts_with('+') ? address.substr(1) : address;
}

/// Puts parts together in their order.
class Joiner {
public:
    void Add(const PartContent& part) {
        m_IsInGap = false;
        if (!m_Run.units.empty() && !m_Run.IsAlike(part))
            EndRun();
        if (m_Run.units.empty())
            m_Run = {part.alphabet, part.tables, {}};
        if (EndsInEscape(m_Run) && BeginsWithEscape(part))
            m_Run.units.pop_back(); // networks send the escape in both
        m_Run.units.insert(m_Run.units.end(), part.units.begin(), part.units.end());
    }

    /// The part has not come.
    void Skip(int number) {
        EndRun();
        if (!m_IsInGap)
            m_Content.gaps.push_back({show::CharactersIn(m_Content.text), m_Content.data.size(), {}});
        m_Content.gaps.back().missing.push_back(number);
        m_IsInGap = true;
    }

    show::JoinedContent Finish() {
        EndRun();
        return std::move(m_Content);
    }

private:
    static bool BeginsWithEscape(const PartContent& part) {
        return part.alphabet == Messages::Alphabet::Gsm7 && !part.units.empty() &&
               part.units.front() == Messages::c_escapeSeptet;
    }

    /// Two escapes are a character, and end.
    static bool EndsInEscape(const PartContent& part) {
        if (part.alphabet != Messages::Alphabet::Gsm7)
            return false;
        const auto end = std::find_if(part.units.rbegin(), part.units.rend(),
                                      [](std::uint8_t septet) { return septet != Messages::c_escapeSeptet; });
        return (end - part.units.rbegin()) % 2 != 0;
    }

    void EndRun() {
        if (m_Run.alphabet == Messages::Alphabet::Gsm7)
            Messages::AppendSeptetText(m_Run.units, m_Run.tables, m_Content.text);
        else if (m_Run.alphabet == Messages::Alphabet::Ucs2)
            Messages::AppendUcs2Text(m_Run.units, m_Content.text);
        else
            m_Content.data.insert(m_Content.data.end(), m_Run.units.begin(), m_Run.units.end());
        m_Run.units.clear();
    }

    PartContent m_Run; ///< parts side by side
    show::JoinedContent m_Content;
    bool m_IsInGap = false;
};

} // namespace

show::JoinedContent ConcatenatedMessage::Content() const {
    Joiner joiner;
    for (int number = 1; number <= key.total; ++number) {
        const auto part = parts.find(number);
        if (part == parts.end())
            joiner.Skip(number);
        else
            joiner.Add(part->second.content);
    }
    return joiner.Finish();
}

show::JoinedMessage ConcatenatedMessage::Joined() const {
    show::JoinedMessage joined{key.hasWideReference, key.reference, key.total, {}, Content()};
    for (const auto& [number, part] : parts)
        joined.parts.push_back({number, part.source, part.isArgument, part.number, part.message, part.file});
    return joined;
}

ConcatenatedMessage* Concatenations::Store::Find(const ConcatenationKey& key) {
    const auto found = m_Index.find(key);
    return found == m_Index.end() ? nullptr : &*found->second;
}

ConcatenatedMessage& Concatenations::Store::Insert(ConcatenatedMessage message) {
    m_Parts += message.parts.size();
    m_Messages.push_back(std::move(message));
    m_Index[m_Messages.back().key] = std::prev(m_Messages.end());
    return m_Messages.back();
}

ConcatenatedMessage Concatenations::Store::Take(const ConcatenationKey& key) {
    const auto found = m_Index.find(key);
    ConcatenatedMessage message = std::move(*found->second);
    m_Messages.erase(found->second);
    m_Index.erase(found);
    m_Parts -= message.parts.size();
    return message;
}

std::optional<ConcatenatedMessage> Concatenations::Store::TakeOldest() {
    if (m_Messages.empty())
        return std::nullopt;
    return Take(ConcatenationKey(m_Messages.front().key));
}

Concatenations::Outcome Concatenations::Take(const ConcatenationKey& key, int number, MessagePart part) {
    Outcome outcome;
    for (Store* store : {&m_Open, &m_Complete}) {
        const ConcatenatedMessage* message = store->Find(key);
        if (message == nullptr || !message->parts.contains(number))
            continue;
        const MessagePart& before = message->parts.at(number);
        if (before.content == part.content && (store == &m_Open || before.time == part.time)) {
            outcome.duplicateOf = before.source;
            return outcome;
        }
        ConcatenatedMessage old = store->Take(key);
        if (store == &m_Open)
            outcome.messages.push_back(std::move(old));
    }
    ConcatenatedMessage* message = m_Open.Find(key);
    if (message == nullptr)
        message = &m_Open.Insert({key, {}});
    message->parts.emplace(number, std::move(part));
    m_Open.CountPart();
    if (message->IsComplete())
        Complete(key, outcome);
    else if (m_Open.IsOverfull())
        outcome.messages.push_back(*m_Open.TakeOldest());
    return outcome;
}

void Concatenations::Complete(const ConcatenationKey& key, Outcome& outcome) {
    outcome.messages.push_back(m_Open.Take(key));
    if (m_Complete.Find(key) != nullptr)
        m_Complete.Take(key);
    m_Complete.Insert(outcome.messages.back());
    while (m_Complete.IsOverfull())
        m_Complete.TakeOldest();
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
