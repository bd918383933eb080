#include "messages/Agreement.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <string_view>
#include <tuple>
#include <vector>

#include "Messages/Words.h"

namespace tests {
namespace {

using namespace Messages;

void Require(bool holds, const char* what, OctetView pdu) {
    if (holds)
        return;
    std::cerr << what << ": " << ToHex(pdu) << '\n';
    std::abort();
}

auto Members(const FieldPlace& place) {
    return std::tuple(place.field, place.piece, place.mask, place.value, place.octet, place.count);
}
auto Members(const Remark& remark) {
    return std::tuple(remark.code, remark.field, remark.octet, remark.number, remark.other);
}
auto Members(const Fault& fault) {
    return std::tuple(fault.code, fault.field, fault.octet, fault.expected, fault.found);
}

template <class Value>
bool AreSame(const std::vector<Value>& left, const std::vector<Value>& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const Value& one, const Value& other) { return Members(one) == Members(other); });
}

bool AreSame(const std::optional<Fault>& left, const std::optional<Fault>& right) {
    return left.has_value() == right.has_value() && (!left || Members(*left) == Members(*right));
}

bool AreSame(const UserData* left, const UserData* right) {
    if (left == nullptr || right == nullptr)
        return left == right;
    return left->octets == right->octets && left->text == right->text && left->length == right->length &&
           left->elements.size() == right->elements.size() && left->textUnits == right->textUnits &&
           left->concatenation == right->concatenation && left->ports == right->ports;
}

bool AreSame(const Reading& left, const Reading& right) {
    const Address* const party = PartyOf(left.tpdu);
    const Address* const other = PartyOf(right.tpdu);
    return left.Type() == right.Type() && left.direction == right.direction &&
           left.serviceCentre == right.serviceCentre && AreSame(left.places, right.places) &&
           AreSame(left.remarks, right.remarks) && AreSame(left.fault, right.fault) &&
           (party == nullptr) == (other == nullptr) && (party == nullptr || *party == *other) &&
           AreSame(UserDataOf(left.tpdu), UserDataOf(right.tpdu));
}

class Noting : public Visitor {
public:
    std::vector<FieldPlace> places;
    std::vector<Remark> remarks;
    std::optional<Fault> fault;

    void OnPlace(const FieldPlace& place) override { places.push_back(place); }
    void OnRemark(const Remark& remark) override { remarks.push_back(remark); }
    void OnFault(const Fault& one) override { fault = one; }
};

/// Each bit of each octet in one place. What follows a reserved type belongs to no field.
bool CoverAllOnce(const Reading& reading, std::size_t octets) {
    std::vector<unsigned int> covered(octets);
    for (const FieldPlace& place : reading.places) {
        for (std::uint32_t i = 0; i < place.count; ++i) {
            const unsigned int mask = i == 0 ? place.mask : 0xFFU;
            if (place.octet + i >= octets || (covered[place.octet + i] & mask) != 0)
                return false;
            covered[place.octet + i] |= mask;
        }
    }
    const bool isReserved = reading.fault && reading.fault->code == FaultCode::ReservedType;
    return isReserved ||
           std::all_of(covered.begin(), covered.end(), [](unsigned int bits) { return bits == 0xFF; });
}

bool IsUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto lead = static_cast<unsigned char>(text[at]);
        const std::size_t length = lead < 0x80    ? 1
                                   : lead >= 0xF0 ? 4
                                   : lead >= 0xE0 ? 3
                                   : lead >= 0xC2 ? 2
                                                  : 0;
        if (length == 0 || lead > 0xF4 || at + length > text.size())
            return false;
        std::uint32_t character = length == 1 ? lead : lead & (0x7FU >> length);
        for (std::size_t i = 1; i < length; ++i) {
            const auto next = static_cast<unsigned char>(text[at + i]);
            if ((next & 0xC0U) != 0x80)
                return false;
            character = character << 6U | (next & 0x3FU);
        }
        constexpr std::uint32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
        if (character < least[length] || character > 0x10FFFF || (character >= 0xD800 && character < 0xE000))
            return false;
        at += length;
    }
    return true;
}

void CheckTexts(const Reading& reading, OctetView pdu) {
    if (const Address* const party = PartyOf(reading.tpdu))
        Require(IsUtf8(party->text), "a name is UTF-8", pdu);
    if (const UserData* const data = UserDataOf(reading.tpdu)) {
        Require(IsUtf8(data->text), "text is UTF-8", pdu);
        Require(data->textOffset <= data->octets.size(), "text begins in the user data", pdu);
        for (const HeaderElement& element : data->elements)
            Require(element.Data(data->octets).size() == element.length, "elements lie in the user data",
                    pdu);
    }
    for (const Remark& remark : reading.remarks) {
        Require(remark.octet <= pdu.size(), "a remark is about an octet", pdu);
        Require(!MeaningOf(remark).empty(), "a remark has words", pdu);
    }
    if (reading.fault)
        Require(!MeaningOf(*reading.fault).empty(), "a fault has words", pdu);
}

ReadOptions OptionsOf(unsigned int way, OctetView pdu) {
    constexpr unsigned int three = 3;
    ReadOptions options;
    options.serviceCentre = static_cast<Presence>(way % three);
    options.direction = static_cast<Direction>(way / three % three);
    options.failureCause = static_cast<Presence>(way / (three * three) % three);
    if (options.failureCause == Presence::No)
        options.announcedLength = static_cast<std::uint32_t>(pdu.size());
    if (options.failureCause == Presence::Yes)
        options.announcedLength = 1;
    return options;
}

void CheckWay(OctetView pdu, unsigned int way) {
    const ReadOptions options = OptionsOf(way, pdu);
    const Reading reading = Read(pdu, options);
    Require(CoverAllOnce(reading, pdu.size()), "places cover all octets once", pdu);
    CheckTexts(reading, pdu);
    Require(!reading.IsSound() || reading.Type() != TpduType::None, "what is sound has a type", pdu);
    Reading used = Read(pdu, OptionsOf(way + 1, pdu));
    Read(pdu, options, used);
    Require(AreSame(reading, used), "a used reading becomes the same", pdu);
    Noting noting;
    Walk(pdu, options, noting);
    Require(AreSame(noting.places, reading.places) && AreSame(noting.remarks, reading.remarks) &&
                AreSame(noting.fault, reading.fault),
            "a walk tells what a reading gives", pdu);
}

} // namespace

void CheckAgreement(OctetView pdu, unsigned int way) {
    // A copy of its own, so that a sanitizer sees whatever is read after its end.
    const std::unique_ptr<std::uint8_t[]> copy(new std::uint8_t[pdu.size()]);
    std::copy(pdu.begin(), pdu.end(), copy.get());
    CheckWay({copy.get(), pdu.size()}, way);
}

void CheckAgreement(OctetView pdu) {
    for (unsigned int way = 0; way < c_ways; ++way)
        CheckAgreement(pdu, way);
}

} // namespace tests
