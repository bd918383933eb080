/// @file
/// Long texts: cut into the user data of messages, and joined again, 3GPP TS 23.040 clauses 9.2.3.24.1 and
/// 9.2.3.24.8.
///
/// \code
/// Messages::CutOptions options;
/// options.choice.languages = {Messages::Language::Turkish};
/// const Messages::CutText cut = Messages::CutIntoParts(text, options);
/// for (const Messages::UserData& part : cut.parts) {
///     submit.coding = cut.coding;
///     submit.userData = part;
///     Send(Messages::Write(submit, Messages::Address{}));
/// }
/// \endcode
#ifndef MESSAGES_PARTS_H
#define MESSAGES_PARTS_H

#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Messages/Alphabet.h"
#include "Messages/DataCoding.h"
#include "Messages/Export.h"
#include "Messages/Header.h"
#include "Messages/Octets.h"
#include "Messages/Read.h"

namespace Messages {

/// The most parts that a concatenation can count.
inline constexpr std::size_t c_mostParts = 255;

/// How a text is cut.
struct CutOptions {
    /// How it is written. Of `room`, the octets of elements are worked out, and there are at most 159 octets.
    ChoiceOptions choice;
    bool replacesNear = false; ///< puts those near characters in that make it cheaper
    std::optional<std::uint16_t> reference = std::nullopt; ///< of several parts; else a random one
    std::optional<Ports> ports = std::nullopt;             ///< in each part
    std::vector<std::uint8_t> elements; ///< more header elements, as they are sent, in each part
    std::optional<std::uint8_t> messageClass = std::nullopt; ///< 0 to 3
};

/// Why a text, or data, is not cut.
enum class CutFaultCode : std::uint8_t {
    NotUtf8,      ///< at `offset` of the text
    NoCharacter,  ///< what is allowed does not hold the character at `offset` of the text
    NoRoom,       ///< the header leaves no room for two units
    TooManyParts, ///< over 255
    Reference,    ///< over 255, for one of 8 bits
    NoRandom      ///< the system gives no random reference
};

/// Why a text is not cut.
struct CutFault {
    CutFaultCode code = CutFaultCode::NotUtf8; ///< what it is
    std::size_t offset = 0;                    ///< in the text, in octets, where the code says so
    char32_t character = 0;                    ///< that is not held
};

/// The parts of a text, or of data.
struct CutText {
    std::vector<UserData> parts;      ///< none where there is a fault
    DataCoding coding;                ///< TP-DCS of all parts
    Choice choice;                    ///< how the text is written
    std::vector<std::size_t> offsets; ///< where each part begins, in octets of `text`, or of the data
    std::string text;                 ///< as it is sent: with near characters, where they were put in
    std::vector<Replacement>
        replacements;              ///< near characters that were put in; offsets in the text as it was given
    std::optional<CutFault> fault; ///< why there are no parts
};

/// Cuts a text in UTF-8 into as many messages as it takes, one or more. A part ends before a pair that it has
/// no room for. A random reference comes from the system's random source. Failure: in the result;
/// std::bad_alloc alone is thrown.
MESSAGES_API CutText CutIntoParts(std::string_view text, const CutOptions& options = {});

/// The same of octets, in 8-bit data; how text would be written has no say.
MESSAGES_API CutText CutIntoParts(OctetView data, const CutOptions& options = {});

/// What a joiner may hold.
struct JoinLimits {
    std::size_t messages = 1024;                ///< whose parts are kept
    std::size_t octets = std::size_t{1} << 20U; ///< of their user data
    std::int64_t seconds = 86400;               ///< from the first part of a message until it is given up
};

/// Why a joiner hands a message back.
enum class JoinOutcome : std::uint8_t {
    Complete,  ///< all of its parts are there
    Duplicate, ///< the part came before, with the same octets: it alone
    Replaced,  ///< a part came again with other octets, and began a new message
    TimedOut,  ///< its time is over
    Displaced, ///< others needed the room
    Finished   ///< the caller wants no more
};

/// One part of a message.
struct JoinedPart {
    std::uint8_t number = 1; ///< from 1
    std::uint64_t tag = 0;   ///< that the caller gave
    Tpdu tpdu;               ///< as it was read
};

/// Neighbours that have not come.
struct JoinedGap {
    std::uint8_t first = 1;     ///< the number of the first of them
    std::uint8_t last = 1;      ///< that of the last
    std::size_t textOffset = 0; ///< where they belong in the text, in octets
    std::size_t dataOffset = 0; ///< where they belong in the data
};

/// A message, whole or as much of it as has come.
struct Joined {
    JoinOutcome outcome = JoinOutcome::Complete; ///< why it is handed back
    std::uint8_t total = 1;                      ///< parts that it has
    std::vector<JoinedPart> parts;               ///< that have come, by their numbers
    /// Of all parts that have come. Where neighbours are written alike, no pair is cut between them.
    std::string text;
    std::vector<std::uint8_t> data; ///< of the parts that are 8-bit data
    std::vector<JoinedGap> gaps;    ///< in their order; none of a duplicate
    std::uint64_t before = 0;       ///< of a duplicate: the tag of the part that came before
};

/// Joins the parts of long messages. Parts of one message have in common the direction, the other party's
/// number with its type, the reference with its width, and the number of parts.
///
/// Whatever is added is handed back once: at once where it is no part, with its message when that is complete
/// or given up. Messages that are complete are kept, as far as there is room, so that a part that comes again
/// is known.
///
/// Threads: one at a time. Throws std::bad_alloc alone; nothing that was added before is lost then, and what
/// was to be handed back is by the next call.
class Joiner {
public:
    /// With these limits.
    MESSAGES_API explicit Joiner(const JoinLimits& limits = {});

    /// Takes a message in, whose reading has a type. `now` are seconds of whatever clock the caller likes.
    MESSAGES_API std::vector<Joined> Add(const Reading& reading, std::int64_t now, std::uint64_t tag = 0);

    /// Gives up what has waited too long.
    MESSAGES_API std::vector<Joined> Expire(std::int64_t now);

    /// Gives up everything, the oldest first.
    MESSAGES_API std::vector<Joined> Finish();

private:
    struct Key {
        Direction direction = Direction::Unknown;
        std::uint8_t typeOfAddress = 0;
        std::string party;
        bool hasWideReference = false;
        std::uint16_t reference = 0;
        std::uint8_t total = 0;

        bool operator<(const Key& other) const noexcept;
    };
    struct Message {
        std::uint64_t order = 0;
        std::int64_t begun = 0;
        bool isComplete = false;
        std::vector<JoinedPart> parts;
    };
    using Store = std::map<Key, Message>;
    /// What is complete, which goes first, then the order.
    using Age = std::pair<bool, std::uint64_t>;
    static constexpr std::int64_t c_never = std::numeric_limits<std::int64_t>::max();

    void AddPart(const Key& key, JoinedPart part, std::int64_t now);
    Store::iterator Begin(const Key& key, std::int64_t now);
    void Complete(Store::iterator message);
    void GiveUpLate(std::int64_t now);
    void MakeRoom();
    void HandBack(const Key& key, const Message& message, JoinOutcome outcome);
    void Erase(Store::iterator message) noexcept;
    static Age AgeOf(const Message& message) noexcept { return {!message.isComplete, message.order}; }
    std::vector<Joined> Taken() noexcept;

    JoinLimits m_Limits;
    Store m_Messages;
    std::map<Age, Key> m_Ages;   ///< of each message
    std::vector<Joined> m_Ready; ///< to be handed back
    std::size_t m_Octets = 0;    ///< of user data in m_Messages
    std::uint64_t m_Order = 0;
    std::int64_t m_Earliest = c_never; ///< no message began before
};

} // namespace Messages

#endif
