// What a TPDU says: the plain values of the second reading.
#ifndef TESTS_REFERENCE_MESSAGES_MODEL_READING_H
#define TESTS_REFERENCE_MESSAGES_MODEL_READING_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/Tables.h"

namespace plain {

using Octets = std::vector<std::uint8_t>;

enum class Known { UNKNOWN, YES, NO };
enum class Direction { UNKNOWN, TO_MOBILE, FROM_MOBILE };

struct Input {
    Octets octets;
    Known centre = Known::UNKNOWN; ///< whether the service centre's address comes first
    Direction direction = Direction::UNKNOWN;
    std::optional<std::size_t> announced; ///< length of the TPDU, as a modem announces it
    Known failureCause = Known::UNKNOWN;  ///< whether a report has TP-FCS
};

/// A number with a name of its own: the value of a flag, or what a header element holds.
using Named = std::pair<std::string, int>;

struct Address {
    std::string text; ///< digits, or the characters of an alphanumeric address, in UTF-8
    int ton = 0, npi = 0;
    int length = 0; ///< as announced: semi-octets, or octets of a service centre
    Octets octets;  ///< after the type-of-address octet
    bool operator==(const Address&) const = default;
};

struct Time {
    Octets octets;
    bool known = false; ///< without it there are only the octets
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    int zone = 0; ///< minutes east of UTC
    bool operator==(const Time&) const = default;
};

struct Validity {
    int format = 0; ///< TP-VPF
    Octets octets;
    std::string kind;           ///< none, relative, absolute, seconds, clock, reserved
    std::optional<int> seconds; ///< how long, of relative, seconds and clock
    std::optional<Time> time;
    bool singleShot = false;
    bool operator==(const Validity&) const = default;
};

struct Element {
    int identifier = 0;
    std::size_t octet = 0; ///< where its identifier stands
    Octets octets;
    std::vector<Named> values; ///< what it holds, where it is decoded
    std::optional<Address> address;
    bool operator==(const Element&) const = default;
};

struct Concatenation {
    int reference = 0, total = 0, part = 0;
    int bits = 0; ///< of the reference
    bool operator==(const Concatenation&) const = default;
};

struct Ports {
    int destination = 0, source = 0;
    int bits = 0; ///< of each
    bool operator==(const Ports&) const = default;
};

struct Remark {
    std::string_view code, field;
    std::size_t octet = 0;
    std::size_t number = 0, other = 0; ///< as Codes.h says
    auto operator<=>(const Remark&) const = default;
};

struct Fault {
    std::string_view code, field;
    std::size_t octet = 0;               ///< where the field begins
    std::size_t expected = 0, found = 0; ///< octets of the field
    bool operator==(const Fault&) const = default;
};

struct Place {
    std::string_view field;
    std::size_t octet = 0, count = 0;
    int mask = 0xFF; ///< its bits, where it is not whole octets
    bool operator==(const Place&) const = default;
};

struct Reading {
    std::string type;                ///< empty where there is none
    std::optional<std::size_t> tpdu; ///< where the TPDU begins
    std::optional<Address> centre;
    std::vector<Named> first; ///< the fields of the first octet
    std::optional<int> reference, failureCause, protocol, status, command, number;
    Octets indicator;               ///< TP-PI
    std::optional<Address> address; ///< TP-OA, TP-DA or TP-RA
    std::optional<int> dataCoding;
    Coding coding;
    std::optional<Time> time, discharge; ///< TP-SCTS, TP-DT
    std::optional<Validity> validity;
    std::optional<int> length;      ///< TP-UDL or TP-CDL
    std::optional<Octets> userData; ///< TP-UD or TP-CD, as far as it is there
    bool hasHeader = false;
    bool ignoresHeader = false;  ///< its elements do not add up, or it is longer than the user data
    bool headerIsBeyond = false; ///< it is longer than the user data
    Octets header;               ///< without its length
    std::vector<Element> elements;
    std::optional<Concatenation> concatenation;
    std::optional<Ports> ports;
    int locking = 0, single = 0; ///< languages; 0 is the default alphabet
    int fillBits = 0;
    std::size_t units = 0; ///< septets, UTF-16 units or octets after the header that are there
    std::optional<std::string> text;
    std::optional<Octets> data; ///< what is no text
    bool isSound =
        false; ///< nothing is wrong with addresses, times, lengths and header, and there is no fault
    std::vector<Remark> remarks;
    std::optional<Fault> fault;
    std::vector<Place> places;

    bool operator==(const Reading&) const = default;
    int Flag(std::string_view name) const {
        for (const Named& flag : first)
            if (flag.first == name)
                return flag.second;
        return 0;
    }
};

/// Reads octets of any number.
Reading Read(const Input& input);

} // namespace plain

#endif
