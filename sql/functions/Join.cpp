#include "sql/functions/Functions.h"

namespace sql {

namespace {

/// A group has no clock: its parts are as old as each other.
constexpr std::int64_t c_now = 0;

std::optional<std::string> TextOf(const Messages::Joined& message) {
    if (message.outcome != Messages::JoinOutcome::Complete)
        return std::nullopt;
    for (const Messages::JoinedPart& part : message.parts) {
        if (show::TextOf(part.tpdu) == nullptr)
            return std::nullopt;
    }
    return message.text;
}

} // namespace

void JoinedText::Take(const std::vector<Messages::Joined>& messages) {
    for (const Messages::Joined& message : messages) {
        if (message.outcome == Messages::JoinOutcome::Duplicate)
            continue;
        ++m_Count;
        m_Text = TextOf(message);
    }
}

void JoinedText::Add(const show::Message& message) {
    if (m_Count >= 2 || message.reading.fault || message.octets == m_Single)
        return;
    const std::vector<Messages::Joined> messages = m_Joiner.Add(message.reading, c_now);
    if (messages.size() == 1 && messages.front().total == 1)
        m_Single = message.octets;
    Take(messages);
}

Value JoinedText::Finish() {
    Take(m_Joiner.Finish());
    return m_Count == 1 && m_Text ? Value(std::move(*m_Text)) : Value();
}

} // namespace sql
