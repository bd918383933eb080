#include "commands/Join.h"

#include <utility>

namespace qxpdu {

namespace {

std::string DigitsOf(const std::string& address) {
    return address.starts_with('+') ? address.substr(1) : address;
}

} // namespace

std::vector<int> ConcatenatedMessage::Missing() const {
    std::vector<int> missing;
    for (int number = 1; number <= key.total; ++number) {
        if (!parts.contains(number))
            missing.push_back(number);
    }
    return missing;
}

std::wstring ConcatenatedMessage::Text() const {
    std::wstring text;
    int escapedBy = 0; ///< the part that ends in an escape
    for (const auto& [number, part] : parts) {
        const bool isHealed = escapedBy != 0 && escapedBy + 1 == number && part.afterEscape != 0;
        if (isHealed)
            text += part.afterEscape;
        text.append(part.text, isHealed ? 1 : 0);
        escapedBy = part.endsInEscape ? number : 0;
    }
    return text;
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

Concatenations::Taken Concatenations::Take(const ConcatenationKey& key, int number, MessagePart part) {
    Taken taken;
    for (Store* store : {&m_Open, &m_Complete}) {
        const ConcatenatedMessage* message = store->Find(key);
        if (message == nullptr || !message->parts.contains(number))
            continue;
        const MessagePart& before = message->parts.at(number);
        if (before.text == part.text && (store == &m_Open || before.time == part.time)) {
            taken.duplicateOf = before.source;
            return taken;
        }
        ConcatenatedMessage old = store->Take(key);
        if (store == &m_Open)
            taken.messages.push_back(std::move(old));
    }
    ConcatenatedMessage* message = m_Open.Find(key);
    if (message == nullptr)
        message = &m_Open.Insert({key, {}});
    message->parts.emplace(number, std::move(part));
    m_Open.CountPart();
    if (message->IsComplete())
        Complete(key, taken);
    else if (m_Open.IsOverfull())
        taken.messages.push_back(*m_Open.TakeOldest());
    return taken;
}

void Concatenations::Complete(const ConcatenationKey& key, Taken& taken) {
    taken.messages.push_back(m_Open.Take(key));
    if (m_Complete.Find(key) != nullptr)
        m_Complete.Take(key);
    m_Complete.Insert(taken.messages.back());
    while (m_Complete.IsOverfull())
        m_Complete.TakeOldest();
}

void SentMessages::Add(const std::string& address, int reference, std::size_t number) {
    const Key key(DigitsOf(address), reference);
    if (const auto old = m_Sent.find(key); old != m_Sent.end()) {
        m_Order.erase(old->second.place);
        m_Sent.erase(old);
    }
    m_Order.push_back(key);
    m_Sent.emplace(key, Sent{number, std::prev(m_Order.end())});
    if (m_Sent.size() > MAX_MESSAGES) {
        m_Sent.erase(m_Order.front());
        m_Order.pop_front();
    }
}

std::optional<std::size_t> SentMessages::Find(const std::string& address, int reference) const {
    const auto found = m_Sent.find({DigitsOf(address), reference});
    return found == m_Sent.end() ? std::nullopt : std::optional(found->second.number);
}

} // namespace qxpdu
