#include "commands/CellPages.h"

#include <algorithm>
#include <utility>

namespace qxpdu {

std::string CellMessage::Text() const {
    std::string text;
    for (const auto& [page, pageText] : texts)
        text += pageText;
    return text;
}

std::optional<CellMessage> CellPages::Take(const CellMessageKey& key, unsigned int page,
                                           const std::string& text) {
    auto message = std::find_if(m_Messages.begin(), m_Messages.end(),
                                [&key](const CellMessage& open) { return open.key == key; });
    if (message == m_Messages.end())
        message = m_Messages.insert(message, {key, {}});
    message->texts.emplace(page, text);
    if (message->IsComplete()) {
        CellMessage complete = std::move(*message);
        m_Messages.erase(message);
        return complete;
    }
    return m_Messages.size() > OPEN_MESSAGES ? TakeOldest() : std::nullopt;
}

std::optional<CellMessage> CellPages::TakeOldest() {
    if (m_Messages.empty())
        return std::nullopt;
    CellMessage oldest = std::move(m_Messages.front());
    m_Messages.pop_front();
    return oldest;
}

} // namespace qxpdu
