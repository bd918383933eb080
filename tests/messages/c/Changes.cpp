#include "messages/c/Changes.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

#include "Messages/qx_messages.h"
#include "messages/c/Require.h"

namespace tests {
namespace {

using namespace Messages;

using Reader = std::unique_ptr<qx_reader, void (*)(qx_reader*)>;
using Writer = std::unique_ptr<qx_writer, void (*)(qx_writer*)>;

/// A message with structures of its own, whose members may be changed.
class Changed {
public:
    explicit Changed(const qx_message& message)
        : m_Message(message),
          m_Party(Copy(m_Message.party)),
          m_Coding(Copy(m_Message.coding)),
          m_Time(Copy(m_Message.timestamp)),
          m_Discharge(Copy(m_Message.discharge)),
          m_Validity(Copy(m_Message.validity)),
          m_UserData(Copy(m_Message.user_data)) {
        m_Octets.assign(m_UserData.octets.data, m_UserData.octets.data + m_UserData.octets.size);
        m_UserData.octets.data = m_Octets.data();
    }
    Changed(const Changed&) = delete;
    Changed& operator=(const Changed&) = delete;

    void Change(unsigned int which, std::uint8_t value) {
        const bool isSet = (value & 1U) != 0;
        const qx_optional_octet octet{isSet, value};
        switch (which % c_changes) {
        case 0:
            m_Message.type = value % 7U;
            break;
        case 1:
            m_Message.more_messages = isSet;
            break;
        case 2:
            m_Message.loop_prevention = isSet;
            break;
        case 3:
            m_Message.reject_duplicates = isSet;
            break;
        case 4:
            m_Message.status_report_indication = isSet;
            break;
        case 5:
            m_Message.status_report_request = isSet;
            break;
        case 6:
            m_Message.is_for_command = isSet;
            break;
        case 7:
            m_Message.reply_path = isSet;
            break;
        case 8:
            m_Message.reference = value;
            break;
        case 9:
            m_Message.status = value;
            break;
        case 10:
            m_Message.command_type = value;
            break;
        case 11:
            m_Message.message_number = value;
            break;
        case 12:
            m_Message.failure_cause = octet;
            break;
        case 13:
            m_Message.parameter_indicator = octet;
            break;
        case 14:
            m_Message.protocol = octet;
            break;
        case 15:
            m_Message.party = isSet ? &m_Party : nullptr;
            break;
        case 16:
            m_Message.coding = isSet ? &m_Coding : nullptr;
            break;
        case 17:
            m_Message.timestamp = isSet ? &m_Time : nullptr;
            break;
        case 18:
            m_Message.discharge = isSet ? &m_Discharge : nullptr;
            break;
        case 19:
            m_Message.validity = isSet ? &m_Validity : nullptr;
            break;
        case 20:
            m_Message.user_data = isSet ? &m_UserData : nullptr;
            break;
        case 21:
            m_Party.type_of_address = value;
            break;
        case 22:
            m_Party.length = value;
            break;
        case 23:
            m_Party.text.size = std::min<std::size_t>(m_Party.text.size, value);
            break;
        case 24:
            m_Coding.value = value;
            break;
        case 25:
            qx_make_unix_timestamp(1577836800 + value * 86399, value % 64, &m_Time);
            break;
        case 26:
            qx_make_unix_timestamp(1577836800 + value * 86399, 0, &m_Discharge);
            break;
        case 27:
            m_Validity.format = value % 4U;
            break;
        case 28:
            m_Validity.octets[value % 7U] = value;
            break;
        case 29:
            m_UserData.length = value;
            break;
        case 30:
            m_UserData.octets.size = std::min<std::size_t>(m_UserData.octets.size, value);
            break;
        case 31:
            m_UserData.has_header = isSet;
            break;
        case 32:
            m_UserData.is_header_ignored = isSet;
            break;
        case 33:
            m_UserData.locking = value % 14U;
            break;
        case 34:
            m_UserData.single = value % 14U;
            break;
        case 35:
            m_UserData.text_offset = value;
            break;
        case 36:
            m_UserData.fill_bits = value;
            break;
        case 37:
            m_UserData.text_units = value;
            break;
        default:
            if (!m_Octets.empty())
                m_Octets[value % m_Octets.size()] ^= value;
        }
    }

    const qx_message& Message() const { return m_Message; }

private:
    template <class Struct>
    static Struct Copy(const Struct*& member) {
        Struct copy{};
        copy.size = sizeof(copy);
        return member != nullptr ? *member : copy;
    }

    qx_message m_Message;
    qx_address m_Party;
    qx_coding m_Coding;
    qx_timestamp m_Time;
    qx_timestamp m_Discharge;
    qx_validity m_Validity;
    qx_user_data m_UserData;
    std::vector<std::uint8_t> m_Octets;
};

bool IsSame(qx_text left, qx_text right) {
    return std::string_view(left.data, left.size) == std::string_view(right.data, right.size);
}

void Compare(const qx_user_data& given, const qx_user_data& read) {
    Require(IsSame(given.text, read.text) && given.text_offset == read.text_offset &&
                given.fill_bits == read.fill_bits && given.text_units == read.text_units,
            "a text");
    Require(given.has_header == read.has_header && given.is_header_ignored == read.is_header_ignored &&
                given.locking == read.locking && given.single == read.single,
            "a header");
}

/// The members that a message keeps, whatever is worked out anew.
void Compare(const qx_message& given, const qx_message& read) {
    Require(given.type == read.type, "a type");
    if (given.party != nullptr && read.party != nullptr)
        Require(given.party->type_of_address == read.party->type_of_address &&
                    IsSame(given.party->text, read.party->text),
                "the other party");
    if (given.coding != nullptr && read.coding != nullptr)
        Require(given.coding->value == read.coding->value, "a coding");
    if (given.timestamp != nullptr && read.timestamp != nullptr)
        Require(given.timestamp->minute == read.timestamp->minute &&
                    given.timestamp->day == read.timestamp->day,
                "a time");
    if (given.user_data != nullptr && read.user_data != nullptr)
        Compare(*given.user_data, *read.user_data);
}

void CheckReadsAgain(const qx_message& given, qx_octets octets) {
    const Reader reader(qx_reader_new(), qx_reader_free);
    const Writer writer(qx_writer_new(), qx_writer_free);
    const qx_reading* reading = nullptr;
    const qx_written* written = nullptr;
    qx_read_options options{};
    options.size = sizeof(options);
    options.service_centre = QX_PRESENCE_NO;
    options.direction = given.type == QX_TYPE_DELIVER || given.type == QX_TYPE_SUBMIT_REPORT ||
                                given.type == QX_TYPE_STATUS_REPORT
                            ? QX_DIRECTION_TO_MOBILE
                            : QX_DIRECTION_FROM_MOBILE;
    options.failure_cause = given.failure_cause.has_value ? QX_PRESENCE_YES : QX_PRESENCE_NO;
    Require(qx_read(reader.get(), octets.data, octets.size, &options, &reading) == QX_OK, "what is written");
    Compare(given, *reading->message);
    Require(qx_write(writer.get(), reading->message, nullptr, &written) == QX_OK &&
                std::equal(octets.data, octets.data + octets.size, written->octets.data,
                           written->octets.data + written->octets.size),
            "what is written again");
}

} // namespace

void CheckCWritesWithChanges(OctetView pdu, OctetView changes) {
    const Reader reader(qx_reader_new(), qx_reader_free);
    const Writer writer(qx_writer_new(), qx_writer_free);
    const qx_reading* reading = nullptr;
    const qx_written* written = nullptr;
    qx_read(reader.get(), pdu.data(), pdu.size(), nullptr, &reading);
    if (reading == nullptr || reading->message == nullptr)
        return;
    Changed changed(*reading->message);
    for (std::size_t at = 0; at + 1 < changes.size(); at += 2)
        changed.Change(changes[at], changes[at + 1]);
    const qx_result result = qx_write(writer.get(), &changed.Message(), nullptr, &written);
    Require(result == QX_OK || result == QX_FAULT, "whether it can be written");
    if (result == QX_OK)
        CheckReadsAgain(changed.Message(), written->octets);
}

} // namespace tests
