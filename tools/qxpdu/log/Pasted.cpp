#include "log/Pasted.h"

#include <algorithm>
#include <optional>
#include <utility>

#include <fmt/format.h>

#include "show/Message.h"
#include "show/Plural.h"

namespace qxpdu {

namespace {

using Messages::Direction;
using Messages::Presence;
using Messages::Reading;
using Messages::ReadOptions;

constexpr std::uint8_t c_filling = 0xFF;

// The status of a SIM record: bit 0 says that it is used, the others, with 0, that it is free.
constexpr std::uint8_t c_used = 0x01;
constexpr std::uint8_t c_mostStatus = 0x1F;

bool IsFreeStatus(std::uint8_t octet) {
    return octet <= c_mostStatus && (octet & c_used) == 0;
}

/// Whether it is a record that no message stands in, with its status or without.
bool IsFreeRecord(const std::vector<std::uint8_t>& octets) {
    constexpr std::size_t c_shortest = 2;
    return octets.size() >= c_shortest && (octets[0] == c_filling || IsFreeStatus(octets[0])) &&
           std::all_of(octets.begin() + 1, octets.end(),
                       [](std::uint8_t octet) { return octet == c_filling; });
}

std::size_t TpduLength(const std::vector<std::uint8_t>& octets, bool hasServiceCentre) {
    const std::size_t offset = hasServiceCentre && !octets.empty() ? octets[0] + std::size_t{1} : 0;
    return octets.size() - std::min(octets.size(), offset);
}

std::string_view NameOf(Direction direction) {
    return direction == Direction::ToMobile ? "to the mobile" : "from the mobile";
}

std::size_t SurplusOf(const Reading& reading) {
    const auto surplus =
        std::find_if(reading.remarks.begin(), reading.remarks.end(), [](const Messages::Remark& remark) {
            return remark.code == Messages::RemarkCode::SurplusOctets;
        });
    return surplus == reading.remarks.end() ? 0 : surplus->number;
}

/// The reading that makes sense, of several.
class Sense {
public:
    Sense(std::vector<std::uint8_t> octets, const Told& told) : m_Told(told) {
        m_Pdu.octets = std::move(octets);
        m_Options.serviceCentre = told.serviceCentre;
        m_Options.direction = told.direction;
        if (told.heading != nullptr && m_Options.direction == Direction::Unknown)
            m_Options.direction = told.heading->direction;
        const bool isAcknowledgement =
            told.heading != nullptr && told.heading->kind == Heading::Kind::Acknowledgement;
        if (isAcknowledgement && m_Told.serviceCentre == Presence::Unknown)
            m_Told.serviceCentre = m_Options.serviceCentre = Presence::No;
    }

    PastedPdu Read() {
        if (m_Told.heading != nullptr && m_Told.heading->length)
            ReadAnnounced(*m_Told.heading->length);
        else
            ReadListed();
        if (!IsSound() && m_Told.direction != m_Options.direction)
            ReadOtherWay();
        if (!IsSound() && IsFreeRecord(m_Pdu.octets)) {
            m_Pdu.isFreeRecord = true;
            m_Pdu.warnings = {c_freeRecord};
            return std::move(m_Pdu);
        }
        if (!IsSound())
            ReadRecord();
        if (!IsSound() && m_Told.serviceCentre != Presence::Unknown)
            WarnOfServiceCentre();
        m_Pdu.hasServiceCentre = HasServiceCentre();
        return std::move(m_Pdu);
    }

private:
    bool IsSound() const { return m_Pdu.reading.IsSound(); }
    bool HasServiceCentre() const { return show::HasServiceCentre(m_Pdu.reading); }
    void Warn(std::string warning) { m_Pdu.warnings.push_back(std::move(warning)); }

    void ReadWith(const ReadOptions& options) { Messages::Read(m_Pdu.octets, options, m_Pdu.reading); }

    ReadOptions With(Presence serviceCentre) const {
        ReadOptions options = m_Options;
        options.serviceCentre = serviceCentre;
        return options;
    }

    void ReadListed() {
        ReadWith(m_Options);
        if (m_Told.serviceCentre == Presence::Unknown && !HasServiceCentre() && !m_Pdu.reading.fault)
            Warn("no service centre before the TPDU; --smsc no says so, --smsc yes reads one");
    }

    /// A length that disagrees is told; then the octets decide.
    void ReadAnnounced(unsigned int length) {
        const std::size_t size = m_Pdu.octets.size();
        if (m_Told.serviceCentre == Presence::Unknown && length == size)
            return ReadOfWholeLength();
        if (m_Told.serviceCentre == Presence::Unknown && length == TpduLength(m_Pdu.octets, true))
            return ReadWith(With(Presence::Yes));
        ReadWith(m_Options);
        if (TpduLength(m_Pdu.octets, HasServiceCentre()) != length) {
            Warn(fmt::format("{} announces {}, here are {}", m_Told.heading->name,
                             show::Counted(length, "octet"), TpduLength(m_Pdu.octets, HasServiceCentre())));
        }
    }

    /// The announced length is that of all octets: no service centre, unless it was counted.
    void ReadOfWholeLength() {
        ReadWith(With(Presence::No));
        if (IsSound())
            return;
        ReadWith(With(Presence::Yes));
        if (!IsSound())
            return ReadWith(With(Presence::No));
        Warn(fmt::format("{} announces {}, the service centre counted", m_Told.heading->name,
                         show::Counted(*m_Told.heading->length, "octet")));
    }

    /// The heading may be wrong about the direction.
    void ReadOtherWay() {
        Reading told = m_Pdu.reading;
        ReadOptions options = With(HasServiceCentre() ? Presence::Yes : Presence::No);
        options.direction = Direction::Unknown;
        ReadWith(options);
        if (!IsSound()) {
            m_Pdu.reading = std::move(told);
            return;
        }
        Warn(fmt::format("{} stands before a message {}, here is one {}; --direction settles it",
                         m_Told.heading->name, NameOf(m_Options.direction), NameOf(m_Pdu.reading.direction)));
    }

    void ReadRecord() {
        PastedPdu before = m_Pdu;
        if (FindRecord())
            return;
        m_Pdu = std::move(before);
    }

    bool FindRecord() {
        const std::vector<std::uint8_t> octets = m_Pdu.octets;
        if (ReadFilled())
            return true;
        if (octets.empty() || octets[0] > c_mostStatus || m_Told.heading != nullptr)
            return false;
        m_Pdu.octets.assign(octets.begin() + 1, octets.end());
        if (!ReadFilled())
            return false;
        m_Pdu.warnings.insert(
            m_Pdu.warnings.begin(),
            fmt::format("the first octet, {:02X}, is left out: the status of a {}SIM record", octets[0],
                        IsFreeStatus(octets[0]) ? "free " : ""));
        return true;
    }

    /// Reads what is left without the filling after it, with and without a service centre.
    bool ReadFilled() {
        const std::vector<std::uint8_t> octets = m_Pdu.octets;
        for (const Presence presence : {Presence::Yes, Presence::No}) {
            if (m_Told.serviceCentre != Presence::Unknown && m_Told.serviceCentre != presence)
                continue;
            m_Pdu.octets = octets;
            ReadWith(With(presence));
            const std::size_t surplus = SurplusOf(m_Pdu.reading);
            if (!std::all_of(octets.end() - static_cast<std::ptrdiff_t>(surplus), octets.end(),
                             [](std::uint8_t octet) { return octet == c_filling; }))
                continue;
            m_Pdu.octets.resize(octets.size() - surplus);
            ReadWith(With(presence));
            if (!IsSound())
                continue;
            m_Pdu.warnings.clear();
            if (surplus != 0)
                Warn(fmt::format("{} FF after the TPDU left out", show::Counted(surplus, "octet")));
            return true;
        }
        return false;
    }

    void WarnOfServiceCentre() {
        const bool isTold = m_Told.serviceCentre == Presence::Yes;
        if (Messages::Read(m_Pdu.octets, With(isTold ? Presence::No : Presence::Yes)).IsSound())
            Warn(isTold ? "makes sense without a service centre: --smsc no"
                        : "makes sense with a service centre: --smsc yes");
    }

    PastedPdu m_Pdu;
    Told m_Told;
    ReadOptions m_Options;
};

} // namespace

PastedPdu ReadPasted(std::vector<std::uint8_t> octets, const Told& told) {
    return Sense(std::move(octets), told).Read();
}

} // namespace qxpdu
