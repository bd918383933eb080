// Puts the parts of concatenated messages together.
#ifndef QXPDU_JOIN_H
#define QXPDU_JOIN_H

#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Messages/Parts.h"
#include "show/JoinedMessage.h"
#include "stream/Input.h"

namespace qxpdu {

/// Puts parts together, and knows where each came from. Of more than MAX_MESSAGES messages, or more octets
/// than JoinLimits has, the oldest goes; those that are complete go first.
class PartJoiner {
public:
    static constexpr std::size_t MAX_MESSAGES = 4096;

    struct Outcome {
        std::vector<show::JoinedMessage> messages; ///< complete now, or given up
        std::optional<std::string> duplicateOf;    ///< where the same part was, which came before
    };

    PartJoiner();

    /// Takes a part in.
    Outcome Take(const Input& input, const std::shared_ptr<const show::ComparedMessage>& compared);

    /// Gives up all messages that wait for parts, the oldest first.
    std::vector<show::JoinedMessage> TakeRest();

private:
    std::uint64_t TagOf(const Input& input);
    Input InputOf(std::uint64_t tag) const;
    std::shared_ptr<const show::ComparedMessage> TakeRead(const Messages::JoinedPart& part);
    show::JoinedMessage WithSources(const Messages::Joined& joined);

    Messages::Joiner m_Joiner;
    std::multimap<std::uint64_t, std::shared_ptr<const show::ComparedMessage>> m_Read; ///< by the tag
    std::vector<std::string_view> m_Files;                                             ///< those of the tags
};

/// Where a message that went out stands.
struct SentMessage {
    std::size_t number = 0; ///< of the line or argument
    std::string_view file;  ///< that the line stands in
};

/// Remembers which messages went out, so that status reports find theirs: the last MAX_MESSAGES. A plus sign
/// makes no difference between addresses, as a service centre may add it.
class SentMessages {
public:
    static constexpr std::size_t MAX_MESSAGES = 4096;

    void Add(const std::string& address, int reference, SentMessage message);

    /// The last message that went out so.
    std::optional<SentMessage> Find(const std::string& address, int reference) const;

private:
    using Key = std::pair<std::string, int>;
    struct Sent {
        SentMessage message;
        std::list<Key>::iterator place;
    };

    std::list<Key> m_Order; ///< oldest first
    std::map<Key, Sent> m_Sent;
};

} // namespace qxpdu

#endif
