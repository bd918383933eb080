// The functions that a database gets. Each is pure: the same arguments give the same value.
#ifndef SQL_FUNCTIONS_H
#define SQL_FUNCTIONS_H

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Messages/Parts.h"
#include "show/Broadcast.h"
#include "show/Message.h"
#include "sql/functions/Reader.h"
#include "sql/functions/Values.h"

namespace sql {

/// One of a PDU and its options.
struct MessageFunction {
    const char* name;
    Value (*valueOf)(const show::Message& message); ///< of one without a fault
};

/// One of what cell broadcast sends and its format.
struct BroadcastFunction {
    const char* name;
    Value (*valueOf)(show::Broadcast& broadcast); ///< of one without a fault
};

extern const std::array<MessageFunction, 9> c_messageFunctions;
extern const std::array<BroadcastFunction, 2> c_broadcastFunctions;

/// NULL where the PDU is broken.
Value Call(const MessageFunction& function, PduReader& reader, const Given& given, std::string_view options);
Value Call(const BroadcastFunction& function, const Given& given, std::string_view format);

/// sms_error and cbs_error: why there is no message; NULL where there is one.
Value ErrorOf(PduReader& reader, const Given& given, std::string_view options);
Value BroadcastErrorOf(const Given& given, std::string_view format);

/// sms_encode: the PDUs of the SMS-SUBMITs that a text takes, as an array of JSON. Without a reference, parts
/// have one that is worked out from number and text. Throws Misuse where there are no PDUs.
std::string Encode(std::string_view number, std::string_view text, std::optional<std::int64_t> reference);

/// The array that an object of JSON has, which has but one.
std::string_view ArrayIn(std::string_view object);

/// One row of sms_fields.
struct FieldRow {
    std::string_view name; ///< "TP-OA"
    Value value;
    std::string meaning; ///< may be empty
    std::uint32_t octet; ///< the first one
    std::uint32_t length;
    std::uint8_t mask; ///< its bits of that octet
};

/// The fields as far as they are there; none of what is no PDU at all.
std::vector<FieldRow> FieldRowsOf(const show::Message& message);

/// sms_join.
class JoinedText {
public:
    /// Passes over what is broken, and over a message that came before, or a part of it.
    void Add(const show::Message& message);

    /// NULL unless it was one message, with all of its parts, and with a text.
    Value Finish();

private:
    void Take(const std::vector<Messages::Joined>& messages);

    Messages::Joiner m_Joiner;
    unsigned int m_Count = 0; ///< of messages; after the second one no more are looked at
    std::optional<std::string> m_Text;
    std::vector<std::uint8_t> m_Single; ///< the octets of a message of one part
};

} // namespace sql

#endif
