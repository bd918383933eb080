// PDUs to read, and readings put in a line.
#ifndef MESSAGES_READINGS_H
#define MESSAGES_READINGS_H

#include <string>
#include <string_view>

#include "Messages/Read.h"
#include "Messages/Words.h"

namespace tests {

/// An SMS-DELIVER, all of whose fields can be others. Octets: first 0, TP-OA 1 to 8, TP-PID 9, TP-DCS 10,
/// TP-SCTS 11 to 17, TP-UDL 18.
struct DeliverOctets {
    std::string userData = "05C8329BFD06"; ///< TP-UDL and TP-UD
    std::string first = "04";
    std::string originator = "0B912143658709F1";
    std::string protocol = "00";
    std::string coding = "00";
    std::string timestamp = "21203121436580";

    std::string Hex() const { return first + originator + protocol + coding + timestamp + userData; }
};

inline std::string Times(std::size_t count, std::string_view text) {
    std::string all;
    while (count-- != 0)
        all += text;
    return all;
}

inline Messages::ReadOptions ToMobile() {
    return {Messages::Presence::No, Messages::Direction::ToMobile, Messages::Presence::Unknown, std::nullopt};
}

inline Messages::ReadOptions FromMobile() {
    return {Messages::Presence::No, Messages::Direction::FromMobile, Messages::Presence::Unknown,
            std::nullopt};
}

inline Messages::Reading ReadDeliver(const DeliverOctets& octets) {
    return Messages::ReadHex(octets.Hex(), ToMobile());
}

/// "filler-inside 3 at 5": the code, its numbers up to the last that is not 0, and the octet.
inline std::string InALine(const Messages::Remark& remark) {
    std::string line(Messages::CodeOf(remark.code));
    if (remark.number != 0 || remark.other != 0)
        line += ' ' + std::to_string(remark.number);
    if (remark.other != 0)
        line += ' ' + std::to_string(remark.other);
    return line + " at " + std::to_string(remark.octet);
}

/// All remarks, with commas between them.
inline std::string RemarksOf(const Messages::Reading& reading) {
    std::string all;
    for (const Messages::Remark& remark : reading.remarks)
        all += (all.empty() ? "" : ", ") + InALine(remark);
    return all;
}

/// "field-cut TP-SCTS at 11, 3 of 7"; empty without a fault.
inline std::string FaultOf(const Messages::Reading& reading) {
    if (!reading.fault)
        return {};
    return std::string(CodeOf(reading.fault->code)) + ' ' + std::string(NameOf(reading.fault->field)) +
           " at " + std::to_string(reading.fault->octet) + ", " + std::to_string(reading.fault->found) +
           " of " + std::to_string(reading.fault->expected);
}

/// "TP-MTI 0/03=0, TP-OA 1 length, …": octet, then the mask and value of bits, the count of octets above one,
/// and the piece.
inline std::string PlacesOf(const Messages::Reading& reading) {
    static constexpr const char* pieces[] = {"", " length", " type", " digits", " identifier", " content"};
    std::string all;
    for (const Messages::FieldPlace& place : reading.places) {
        all += (all.empty() ? "" : ", ") + std::string(Messages::NameOf(place.field)) + ' ' +
               std::to_string(place.octet);
        if (place.mask != 0xFF)
            all += '/' + Messages::ToHex({&place.mask, 1}) + '=' + std::to_string(place.value);
        if (place.count != 1)
            all += '+' + std::to_string(place.count);
        all += pieces[static_cast<int>(place.piece)];
    }
    return all;
}

} // namespace tests

#endif
