// Puts the parts of concatenated messages together.
#ifndef QXPDU_JOIN_H
#define QXPDU_JOIN_H

#include <cstddef>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "commands/Parts.h"
#include "show/JoinedMessage.h"

namespace qxpdu {

/// What the parts of one message have in common.
struct ConcatenationKey {
    int messageType; ///< TP-MTI
    std::string address;
    bool hasWideReference; ///< 16 bits
    int reference;
    int total; ///< number of parts

    bool operator<(const ConcatenationKey& other) const {
        return std::tie(messageType, address, hasWideReference, reference, total) <
               std::tie(other.messageType, other.address, other.hasWideReference, other.reference,
                        other.total);
    }
};

/// One part.
struct MessagePart {
    std::string source; ///< "line 3"
    std::size_t number; ///< of the line or argument
    PartContent content;
    std::string time; ///< TP-SCTS; empty in a message that goes out
    std::shared_ptr<const show::ComparedMessage> message = nullptr;
    bool isArgument = false;
    std::string_view file = {}; ///< that the line stands in
};

/// A message of which some parts have come.
struct ConcatenatedMessage {
    ConcatenationKey key;
    std::map<int, MessagePart> parts; ///< by their number, from 1

    bool IsComplete() const { return parts.size() == static_cast<std::size_t>(key.total); }

    /// What the parts that have come say, those that stand side by side as one text.
    show::JoinedContent Content() const;

    /// For a person or a program.
    show::JoinedMessage Joined() const;
};

/// Holds messages whose parts have not all come yet, and the last complete ones, whose parts may come again.
/// Each kind holds MAX_PARTS parts at most; then the oldest message goes.
class Concatenations {
public:
    static constexpr std::size_t MAX_PARTS = 4096;

    struct Outcome {
        std::vector<ConcatenatedMessage> messages; ///< complete now, or given up to make room
        std::optional<std::string> duplicateOf;    ///< the source of the same part, which came before
    };

    /// Takes part `number` in, 1 to key.total. Another text under a number that is there already begins a new
    /// message, and the old one is given up. Where the old one is complete, so does the same text of another
    /// time: messages whose references have come round may well begin alike.
    Outcome Take(const ConcatenationKey& key, int number, MessagePart part);

    /// Gives up the oldest message that waits for parts, if any.
    std::optional<ConcatenatedMessage> TakeOldest() { return m_Open.TakeOldest(); }

private:
    /// Messages in the order of their first parts.
    class Store {
    public:
        ConcatenatedMessage* Find(const ConcatenationKey& key);
        ConcatenatedMessage& Insert(ConcatenatedMessage message);
        void CountPart() { ++m_Parts; }
        ConcatenatedMessage Take(const ConcatenationKey& key);
        std::optional<ConcatenatedMessage> TakeOldest();
        bool IsOverfull() const { return m_Parts > MAX_PARTS; }

    private:
        std::list<ConcatenatedMessage> m_Messages;
        std::map<ConcatenationKey, std::list<ConcatenatedMessage>::iterator> m_Index;
        std::size_t m_Parts = 0;
    };

    void Complete(const ConcatenationKey& key, Outcome& outcome);

    Store m_Open;
    Store m_Complete;
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
