#include "Messages/Read.h"

#include "tpdu/Octets.h"
#include "tpdu/Recording.h"
#include "tpdu/Walker.h"

namespace Messages {
namespace {

/// What a PDU is taken for, and whether anybody told where its service centre is.
struct Guess {
    Layout layout;
    bool isServiceCentreGuessed = false;
};

/// Octets before the TPDU.
std::size_t TpduOffset(OctetView pdu, bool hasServiceCentre) {
    return hasServiceCentre && !pdu.empty() ? 1U + pdu[0] : 0U;
}

/// What the caller, or an announced length, says of a service centre.
Presence ServiceCentreTold(OctetView pdu, const ReadOptions& options) {
    if (options.serviceCentre != Presence::Unknown || !options.announcedLength || pdu.empty())
        return options.serviceCentre;
    const std::size_t offset = TpduOffset(pdu, true);
    if (offset <= pdu.size() && *options.announcedLength == pdu.size() - offset)
        return Presence::Yes;
    return *options.announcedLength == pdu.size() ? Presence::No : Presence::Unknown;
}

bool IsSoundAs(OctetView pdu, const ReadOptions& options, const Layout& layout) {
    Sounding sounding;
    Walker(pdu, options, sounding).Walk(layout);
    return sounding.IsSound();
}

/// The direction of the type that is tried first.
Direction FirstDirection(OctetView pdu, const ReadOptions& options, bool hasServiceCentre) {
    if (options.direction != Direction::Unknown)
        return options.direction;
    const std::size_t offset = TpduOffset(pdu, hasServiceCentre);
    return offset < pdu.size() ? LikelyDirection(pdu[offset]) : Direction::ToMobile;
}

constexpr Direction Other(Direction direction) {
    return direction == Direction::ToMobile ? Direction::FromMobile : Direction::ToMobile;
}

std::optional<Layout> FindSound(OctetView pdu, const ReadOptions& options, bool hasServiceCentre) {
    const Layout first{hasServiceCentre, FirstDirection(pdu, options, hasServiceCentre)};
    if (IsSoundAs(pdu, options, first))
        return first;
    const Layout other{hasServiceCentre, Other(first.direction)};
    if (options.direction == Direction::Unknown && IsSoundAs(pdu, options, other))
        return other;
    return std::nullopt;
}

Guess GuessLayout(OctetView pdu, const ReadOptions& options) {
    const Presence told = ServiceCentreTold(pdu, options);
    const bool isGuessed = told == Presence::Unknown;
    if (!isGuessed && options.direction != Direction::Unknown)
        return {{told == Presence::Yes, options.direction}, false};
    if (told != Presence::No)
        if (const auto layout = FindSound(pdu, options, true))
            return {*layout, isGuessed};
    if (told != Presence::Yes)
        if (const auto layout = FindSound(pdu, options, false))
            return {*layout, isGuessed};
    const bool hasServiceCentre = told != Presence::No;
    return {{hasServiceCentre, FirstDirection(pdu, options, hasServiceCentre)}, isGuessed};
}

} // namespace

bool Reading::IsSound() const noexcept {
    return !fault && std::none_of(remarks.begin(), remarks.end(),
                                  [](const Remark& remark) { return IsUnsound(remark.code); });
}

void Read(OctetView pdu, const ReadOptions& options, Reading& reading) {
    constexpr std::size_t usualPlaces = 64;
    reading.places.clear();
    reading.places.reserve(usualPlaces);
    reading.remarks.clear();
    reading.fault.reset();
    const Guess guess = GuessLayout(pdu, options);
    reading.isServiceCentreGuessed = guess.isServiceCentreGuessed;
    Recording recording(reading);
    Walker(pdu, options, recording).Walk(guess.layout);
    recording.Finish();
    reading.direction = reading.Type() == TpduType::None ? options.direction : guess.layout.direction;
}

Reading Read(OctetView pdu, const ReadOptions& options) {
    Reading reading;
    Read(pdu, options, reading);
    return reading;
}

Visitor::~Visitor() = default;
void Visitor::OnPlace(const FieldPlace& /*place*/) {}
void Visitor::OnRemark(const Remark& /*remark*/) {}
void Visitor::OnFault(const Fault& /*fault*/) {}

void Walk(OctetView pdu, const ReadOptions& options, Visitor& visitor) {
    Visiting visiting(visitor);
    Walker(pdu, options, visiting).Walk(GuessLayout(pdu, options).layout);
}

Reading ReadHex(std::string_view digits, const ReadOptions& options) {
    std::vector<std::uint8_t> octets;
    const std::optional<std::size_t> none = ReadOctets(digits, octets);
    if (!none)
        return Read(octets, options);
    Reading reading;
    reading.fault =
        Fault{FaultCode::NotHexadecimal, Field::MessageType, static_cast<std::uint32_t>(*none), 1, 0};
    return reading;
}

} // namespace Messages
