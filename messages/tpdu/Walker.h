// One walk over the octets of a PDU, by the row of fields of its type. A sink is told of each place, remark,
// fault and value as it is met.
#ifndef TPDU_WALKER_H
#define TPDU_WALKER_H

#include "tpdu/Addresses.h"
#include "tpdu/Headers.h"
#include "tpdu/Rows.h"
#include "tpdu/Times.h"

namespace Messages {

/// What a PDU is taken for.
struct Layout {
    bool hasServiceCentre = true;
    Direction direction = Direction::ToMobile;
};

/// The direction of the type that is tried first where none is given.
constexpr Direction LikelyDirection(std::uint8_t firstOctet) {
    constexpr TpduType likely[] = {TpduType::Deliver, TpduType::Submit, TpduType::StatusReport};
    const TpduType type = MeaningOfType(firstOctet, Direction::ToMobile).type;
    return std::find(std::begin(likely), std::end(likely), type) != std::end(likely) ? Direction::ToMobile
                                                                                     : Direction::FromMobile;
}

constexpr auto c_isReserved = [](const auto& row) { return Tables::IsReserved(row); };
constexpr auto c_reservedProtocols = Tables::ByOctet(Tables::c_protocols, c_isReserved);
constexpr auto c_reservedStatuses = Tables::ByOctet(Tables::c_statuses, c_isReserved);
constexpr auto c_reservedCauses = Tables::ByOctet(Tables::c_failureCauses, c_isReserved);
constexpr auto c_reservedPlans = Tables::ByOctet(Tables::c_numberingPlans, c_isReserved);
/// What the standard does not define is reserved as well.
constexpr auto c_reservedCommands =
    Tables::ByOctet(Tables::c_commandTypes, [](const Tables::CommandRow& row) {
        return Tables::IsReserved(row) || row.name == "undefined";
    });

template <class Sink>
class Walker : Telling<Sink> {
public:
    Walker(OctetView pdu, const ReadOptions& options, Sink& sink)
        : Telling<Sink>(sink), m_Pdu(pdu), m_Options(options) {}

    void Walk(const Layout& layout) {
        if (m_Pdu.empty())
            m_Sink.OnFault({FaultCode::Empty,
                            layout.hasServiceCentre ? Field::ServiceCentre : Field::MessageType, 0, 1, 0});
        else if (!layout.hasServiceCentre || ServiceCentre())
            ReadTpdu(layout.direction);
    }

    /// TP-UD of this TP-UDL, which is the whole. What depends on other fields is of no use.
    void WalkUserData(std::uint8_t length, const DataCoding& coding, bool hasHeader) {
        m_HasHeader = hasHeader;
        ReadUserDataOf(length, Field::UserDataLength, Field::UserData, coding,
                       RowOf(TpduType::Deliver, false));
    }

    /// TP-VP, which is the whole.
    void WalkValidity(ValidityFormat format) {
        m_ValidityFormat = format;
        ReadValidity(Field::ValidityPeriod);
    }

private:
    using Telling<Sink>::Count;
    using Telling<Sink>::Place;
    using Telling<Sink>::Note;
    using Telling<Sink>::NoteText;
    using Telling<Sink>::m_Sink;

    std::size_t Left() const { return m_Pdu.size() - m_At; }

    /// Whether a field's octets are there; otherwise the reading has ended.
    bool Has(Field field, std::size_t count) {
        const bool isThere = Left() >= count;
        if (!isThere)
            EndAt(field, count);
        return isThere;
    }

    /// At a field that is cut.
    void EndAt(Field field, std::size_t count) {
        Place(field, Piece::Whole, m_At, Left());
        m_Sink.OnFault({FaultCode::FieldCut, field, Count(m_At), Count(count), Count(Left())});
    }

    // Addresses.

    bool ServiceCentre() {
        constexpr std::size_t typeOctets = 1;
        constexpr std::size_t lengthOctets = 1;
        const std::uint8_t length = m_Pdu[m_At];
        if (!Has(Field::ServiceCentre, lengthOctets + length))
            return false;
        if (length == 0) {
            Place(Field::ServiceCentre, Piece::Length, m_At, lengthOctets);
            m_Sink.OnServiceCentre(0, c_typeExtension, {});
            m_At += lengthOctets;
            return true;
        }
        const std::uint8_t type = m_Pdu[m_At + lengthOctets];
        // Digits whatever the type says.
        const std::string_view text = AddressDigits(Field::ServiceCentre, TypeOfNumber::Unknown,
                                                    (length - typeOctets) * c_semiOctetsOfOctet);
        m_Sink.OnServiceCentre(length, type, text);
        m_At += lengthOctets + length;
        return true;
    }

    bool ReadAddress(Field field) {
        const std::size_t digitOctets = Left() == 0 ? 0 : OctetsOfSemiOctets(m_Pdu[m_At]);
        if (!Has(field, c_addressHeadOctets + digitOctets))
            return false;
        const std::uint8_t length = m_Pdu[m_At];
        const std::uint8_t type = m_Pdu[m_At + 1];
        const std::string_view text = AddressDigits(field, Address{type, length, {}}.Type(), length);
        m_Sink.OnAddress(length, type, text);
        m_At += c_addressHeadOctets + digitOctets;
        return true;
    }

    std::string_view AddressDigits(Field field, TypeOfNumber readAs, std::size_t semiOctets) {
        const std::size_t typeAt = m_At + 1;
        const std::size_t digitsAt = m_At + 2;
        const OctetView octets = m_Pdu.Sub(digitsAt, OctetsOfSemiOctets(semiOctets));
        Place(field, Piece::Length, m_At, 1);
        Place(field, Piece::TypeOfAddress, typeAt, 1);
        Place(field, Piece::Digits, digitsAt, octets.size());
        const Address head{m_Pdu[typeAt], 0, {}};
        if ((head.typeOfAddress & c_typeExtension) == 0)
            Note(RemarkCode::ExtensionBitClear, field, typeAt);
        if (head.Type() == TypeOfNumber::Reserved)
            Note(RemarkCode::ReservedTypeOfNumber, field, typeAt);
        const auto plan = static_cast<std::size_t>(head.Plan());
        if (c_reservedPlans[plan])
            Note(RemarkCode::ReservedNumberingPlan, field, typeAt, plan);
        if (semiOctets > c_mostDigits)
            Note(RemarkCode::AddressTooLong, field, m_At, semiOctets);
        if constexpr (Sink::c_takesText)
            return m_Address.Write(
                readAs, octets, semiOctets,
                [&](RemarkCode code, std::size_t value, std::size_t place, std::size_t septetPlace = 0) {
                    NoteText(code, field, digitsAt + place / c_semiOctetsOfOctet, value, septetPlace);
                });
        return {};
    }

    // The TPDU.

    void ReadTpdu(Direction direction) {
        if (m_Options.announcedLength && *m_Options.announcedLength != Left())
            Note(RemarkCode::LengthDisagrees, Field::MessageType, m_At, *m_Options.announcedLength, Left());
        if (!Has(Field::MessageType, 1))
            return;
        const std::uint8_t first = m_Pdu[m_At];
        const TypeMeaning meaning = MeaningOfType(first, direction);
        if (meaning.type == TpduType::None) {
            Place(Field::MessageType, Piece::Whole, m_At, 1, c_messageTypeMask, first & c_messageTypeMask);
            m_Sink.OnFault({FaultCode::ReservedType, Field::MessageType, Count(m_At), 1, 1});
            return;
        }
        if (meaning.isReserved)
            Note(RemarkCode::ReservedType, Field::MessageType, m_At);
        else if (m_Options.direction == Direction::Unknown && direction != LikelyDirection(first))
            Note(RemarkCode::TypeGuessed, Field::MessageType, m_At);
        m_Sink.OnType(meaning.type);
        const TpduRow& row = RowOf(meaning.type, HasFailureCause());
        FirstOctet(row);
        for (const RowField& field : row.fields) {
            if (field.indicatedBy != 0 && (m_Indicator & field.indicatedBy) == 0)
                continue;
            if (field.mayEnd && Left() == 0)
                break;
            if (!ReadField(field, row))
                return;
        }
        End();
    }

    /// Whether a report has TP-FCS: what the caller says, else what stands after the first octet.
    bool HasFailureCause() const {
        constexpr std::uint8_t leastCause = 0x80;
        if (m_Options.failureCause != Presence::Unknown)
            return m_Options.failureCause == Presence::Yes;
        return Left() > 1 && m_Pdu[m_At + 1] >= leastCause;
    }

    void FirstOctet(const TpduRow& row) {
        const std::uint8_t octet = m_Pdu[m_At];
        for (const BitField& bits : row.bits) {
            const auto value = static_cast<std::uint8_t>((octet & bits.mask) >> bits.shift);
            Place(bits.field, Piece::Whole, m_At, 1, bits.mask, value);
            m_Sink.OnBits(bits.field, value);
            if (bits.field == Field::UserDataHeaderIndicator)
                m_HasHeader = value != 0;
            if (bits.field == Field::ValidityFormat)
                m_ValidityFormat = static_cast<ValidityFormat>(value);
        }
        m_FirstOctetAt = m_At++;
        if (const unsigned int unused = octet & row.unusedBits; unused != 0)
            Note(RemarkCode::UnusedBitsSet, Field::UnusedBits, m_FirstOctetAt, unused);
    }

    bool ReadField(const RowField& field, const TpduRow& row) {
        switch (field.coding) {
        case Coding::Address:
            return ReadAddress(field.field);
        case Coding::Time:
            return ReadTimestamp(field.field);
        case Coding::Validity:
            return ReadValidity(field.field);
        case Coding::Indicator:
            return ReadIndicator(field.field);
        case Coding::UserData:
            return ReadUserData(field.field, Field::UserData, m_Coding, row);
        case Coding::Command:
            return ReadUserData(field.field, Field::CommandData, DataCoding(c_commandCoding), row);
        default:
            return ReadOctet(field.field);
        }
    }

    void End() {
        if (m_HasHeader && !m_HasUserData)
            Note(RemarkCode::HeaderMissing, Field::UserDataHeaderIndicator, m_FirstOctetAt);
        if (Left() == 0)
            return;
        Note(RemarkCode::SurplusOctets, Field::Surplus, m_At, Left());
        Place(Field::Surplus, Piece::Whole, m_At, Left());
    }

    bool ReadOctet(Field field) {
        if (!Has(field, 1))
            return false;
        const std::uint8_t octet = m_Pdu[m_At];
        Place(field, Piece::Whole, m_At, 1);
        const auto noteIf = [&](bool isReserved, RemarkCode code) {
            if (isReserved)
                Note(code, field, m_At, octet);
        };
        if (field == Field::ProtocolIdentifier)
            noteIf(c_reservedProtocols[octet], RemarkCode::ReservedProtocol);
        else if (field == Field::Status)
            noteIf(c_reservedStatuses[octet], RemarkCode::ReservedStatus);
        else if (field == Field::FailureCause)
            noteIf(c_reservedCauses[octet], RemarkCode::ReservedFailureCause);
        else if (field == Field::CommandType)
            noteIf(c_reservedCommands[octet], RemarkCode::ReservedCommandType);
        else if (field == Field::DataCodingScheme) {
            m_Coding = DataCoding(octet);
            noteIf(m_Coding.isReserved, RemarkCode::ReservedDataCoding);
        }
        m_Sink.OnOctet(field, octet);
        ++m_At;
        return true;
    }

    bool ReadIndicator(Field field) {
        std::size_t count = 1;
        while (count <= Left() && (m_Pdu[m_At + count - 1] & c_indicatorExtension) != 0)
            ++count;
        if (!Has(field, count))
            return false;
        for (std::size_t i = 0; i < count; ++i)
            Place(field, Piece::Whole, m_At + i, 1);
        m_Indicator = m_Pdu[m_At];
        if (const unsigned int reserved = m_Indicator & c_reservedIndicatorBits; reserved != 0)
            Note(RemarkCode::ReservedParameterBits, field, m_At, reserved);
        if (count > 1)
            Note(RemarkCode::ExtendedParameterIndicator, field, m_At, count);
        m_Sink.OnOctet(field, m_Indicator);
        m_At += count;
        return true;
    }

    bool ReadTimestamp(Field field) {
        if (!Has(field, c_timeOctets))
            return false;
        Place(field, Piece::Whole, m_At, c_timeOctets);
        m_Sink.OnTime(field, ReadTimeAt(field));
        m_At += c_timeOctets;
        return true;
    }

    Timestamp ReadTimeAt(Field field) {
        return ReadTime(m_Pdu.Sub(m_At, c_timeOctets),
                        [&](RemarkCode code, std::size_t octet) { Note(code, field, m_At + octet, octet); });
    }

    bool ReadValidity(Field field) {
        const auto octets = static_cast<std::size_t>(
            static_cast<int>(Tables::c_validityFormats[static_cast<std::size_t>(m_ValidityFormat)].octets));
        if (!Has(field, octets))
            return false;
        Validity validity;
        validity.format = m_ValidityFormat;
        std::copy_n(m_Pdu.begin() + m_At, octets, validity.octets.begin());
        Place(field, Piece::Whole, m_At, octets);
        if (m_ValidityFormat == ValidityFormat::Absolute)
            ReadTimeAt(field);
        else if (m_ValidityFormat == ValidityFormat::Enhanced)
            NoteEnhanced(field, validity);
        m_Sink.OnValidity(validity);
        m_At += octets;
        return true;
    }

    void NoteEnhanced(Field field, const Validity& validity) {
        constexpr std::uint8_t reservedBits = 0x38;
        const std::uint8_t indicator = validity.octets[0];
        const Tables::EnhancedValidityRow& row =
            Tables::c_enhancedValidity[static_cast<std::size_t>(validity.Enhanced())];
        if ((indicator & reservedBits) != 0 || Tables::IsReserved(row))
            Note(RemarkCode::ReservedValidity, field, m_At, indicator);
        // Of what follows another indicator nothing is known.
        if ((indicator & c_validityExtension) != 0) {
            Note(RemarkCode::ValidityExtension, field, m_At, indicator);
            return;
        }
        if (validity.Enhanced() == EnhancedValidity::Seconds && validity.octets[1] == 0)
            Note(RemarkCode::ValiditySecondsZero, field, m_At + 1);
        if (validity.Enhanced() == EnhancedValidity::Clock)
            NoteClock(field, validity);
        const std::ptrdiff_t used = 1 + static_cast<int>(row.octets);
        const auto* const unused = std::find_if(validity.octets.begin() + used, validity.octets.end(),
                                                [](std::uint8_t octet) { return octet != 0; });
        if (unused != validity.octets.end())
            Note(RemarkCode::ValidityOctetsSet, field,
                 m_At + static_cast<std::size_t>(unused - validity.octets.begin()));
    }

    void NoteClock(Field field, const Validity& validity) {
        for (std::size_t i = 1; i <= ClockPeriod::c_octets; ++i) {
            const SwappedPair pair(validity.octets[i]);
            if (!pair.IsDecimal())
                Note(RemarkCode::TimeSemiOctet, field, m_At + i, i);
            if (i > 1 && pair.Value() >= ClockPeriod::c_parts)
                Note(RemarkCode::TimeOutOfRange, field, m_At + i, i);
        }
    }

    // User data.

    bool ReadUserData(Field lengthField, Field field, const DataCoding& coding, const TpduRow& row) {
        if (!Has(lengthField, 1))
            return false;
        m_HasUserData = true;
        m_LengthAt = m_At++;
        Place(lengthField, Piece::Whole, m_LengthAt, 1);
        ReadUserDataOf(m_Pdu[m_LengthAt], lengthField, field, coding, row);
        return true;
    }

    void ReadUserDataOf(std::uint8_t length, Field lengthField, Field field, const DataCoding& coding,
                        const TpduRow& row) {
        UserDataHead head;
        head.length = length;
        const std::size_t announced = coding.CountsSeptets() ? OctetsOfSeptets(head.length) : head.length;
        head.octets = m_Pdu.Sub(m_At, announced);
        m_Sink.OnUserDataThere();
        if (head.octets.size() < announced)
            Note(RemarkCode::UserDataMissing, lengthField, m_LengthAt, head.length,
                 coding.CountsSeptets() ? SeptetsIn(head.octets.size(), 0) : head.octets.size());
        if (const std::size_t most = RoomForUserData(row, m_At - m_FirstOctetAt); head.octets.size() > most)
            Note(RemarkCode::UserDataTooLong, lengthField, m_LengthAt, head.octets.size(), most);
        head.hasHeader = m_HasHeader && !head.octets.empty();
        if (m_HasHeader && head.octets.empty())
            Note(RemarkCode::HeaderMissing, Field::UserDataHeaderIndicator, m_FirstOctetAt);
        if (head.hasHeader)
            HeaderReader(m_Sink, m_At, coding.CountsSeptets()).Read(head);
        ReadText(head, coding, field);
        m_At += head.octets.size();
    }

    void ReadText(UserDataHead& head, const DataCoding& coding, Field field) {
        const std::size_t textAt = m_At + head.textOffset;
        const OctetView octets = head.octets.Sub(head.textOffset);
        if (coding.CountsSeptets()) {
            ReadSeptets(head, octets, textAt, field);
            return;
        }
        Place(field, Piece::Whole, textAt, octets.size());
        if (coding.isCompressed)
            Note(RemarkCode::Compressed, field, textAt);
        const bool isUcs2 = coding.alphabet == Alphabet::Ucs2 && !coding.isCompressed;
        head.textUnits = isUcs2 ? octets.size() / 2 : octets.size();
        m_Sink.OnUserData(head);
        if (isUcs2)
            ShowUcs2(octets, textAt, field);
    }

    void ReadSeptets(UserDataHead& head, OctetView octets, std::size_t textAt, Field field) {
        head.fillBits = head.hasHeader && !octets.empty() ? FillBitsAfter(head.textOffset) : 0;
        const auto fillMask = static_cast<std::uint8_t>((1U << head.fillBits) - 1);
        if (head.fillBits != 0) {
            Place(Field::FillBits, Piece::Whole, textAt, 1, fillMask);
            if ((octets[0] & fillMask) != 0)
                Note(RemarkCode::FillBitsSet, Field::FillBits, textAt, octets[0] & fillMask);
        }
        Place(field, Piece::Whole, textAt, octets.size(), static_cast<std::uint8_t>(~fillMask));
        const std::size_t before = SeptetsOfHeader(head.textOffset);
        if (head.length < before && head.octets[0] < head.textOffset) // all of the header is there
            Note(RemarkCode::HeaderNotCounted, Field::UserDataLength, m_LengthAt, head.length, before);
        const std::size_t announced = head.length > before ? head.length - before : 0;
        head.textUnits = std::min(announced, SeptetsIn(octets.size(), head.fillBits));
        m_Sink.OnUserData(head);
        if constexpr (Sink::c_takesText)
            ShowSeptets(octets, head, textAt, field);
        NoteSpareBits(head, field);
    }

    void NoteSpareBits(const UserDataHead& head, Field field) {
        const std::size_t bits = head.length * c_septetBits;
        const std::size_t octets = head.octets.size();
        if (octets <= head.textOffset || octets * c_octetBits < bits)
            return;
        const std::size_t spare = octets * c_octetBits - bits;
        const unsigned int set = head.octets[octets - 1] >> (c_octetBits - spare);
        if (set != 0)
            Note(RemarkCode::SpareBitsSet, field, m_At + octets - 1, set);
    }

    void ShowSeptets(OctetView octets, const UserDataHead& head, std::size_t textAt, Field field) {
        std::array<std::uint8_t, c_mostUnits> septets;
        UnpackSeptets(octets, head.fillBits, head.textUnits, septets.data());
        const char* const end =
            WriteSeptetText({septets.data(), head.textUnits}, head.tables, m_Text.data(),
                            [&](RemarkCode code, std::size_t septet, std::size_t place) {
                                const std::size_t octet =
                                    textAt + (head.fillBits + place * c_septetBits) / c_octetBits;
                                NoteText(code, field, octet, septet, place);
                            });
        m_Sink.OnText({m_Text.data(), static_cast<std::size_t>(end - m_Text.data())});
    }

    void ShowUcs2(OctetView octets, std::size_t textAt, Field field) {
        if constexpr (Sink::c_takesText) {
            const char* const end = WriteUcs2Text(octets, m_Text.data(),
                                                  [&](RemarkCode code, std::size_t unit, std::size_t place) {
                                                      Note(code, field, textAt + 2 * place, unit, place);
                                                  });
            m_Sink.OnText({m_Text.data(), static_cast<std::size_t>(end - m_Text.data())});
        }
        if (octets.size() % 2 != 0)
            Note(RemarkCode::OddOctet, field, textAt + octets.size() - 1, octets[octets.size() - 1]);
    }

    OctetView m_Pdu;
    const ReadOptions& m_Options;
    std::size_t m_At = 0; ///< the next octet

    // What later fields depend on.
    std::size_t m_FirstOctetAt = 0;
    std::size_t m_LengthAt = 0; ///< of TP-UDL
    bool m_HasHeader = false;
    bool m_HasUserData = false;
    ValidityFormat m_ValidityFormat = ValidityFormat::None;
    std::uint8_t m_Indicator = 0;
    DataCoding m_Coding;

    AddressText m_Address;
    TextOfUnits m_Text;
};

} // namespace Messages

#endif
