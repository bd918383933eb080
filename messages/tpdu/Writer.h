// One walk along the row of fields of a type, which writes them. The first field that cannot be written ends
// it.
#ifndef TPDU_WRITER_H
#define TPDU_WRITER_H

#include <tuple>

#include "Messages/Write.h"
#include "alphabet/Utf8.h"
#include "tpdu/Members.h"
#include "tpdu/Walker.h"

namespace Messages {

/// TP-MTI by type.
constexpr auto c_messageTypeOf = [] {
    std::array<std::uint8_t, std::size(c_typeNames)> values{};
    for (const Tables::MessageTypeRow& row : Tables::c_messageTypes)
        if (!row.isReserved)
            values.at(static_cast<std::size_t>(TypeNamed(row.name))) =
                static_cast<std::uint8_t>(row.value.value);
    return values;
}();

/// Finds out whether user data says what its members do, but for the text.
class UserDataCheck : public NoValues {
public:
    static constexpr bool c_takesText = false;

    explicit UserDataCheck(const UserData& userData) : m_UserData(userData) {}

    std::optional<WriteFaultCode> Fault() const {
        if (m_IsHeaderInvalid)
            return WriteFaultCode::HeaderInvalid;
        const bool isSame = m_IsSame && m_Elements == m_UserData.elements.size();
        return isSame ? std::nullopt : std::optional(WriteFaultCode::TextDisagrees);
    }

    static void OnPlace(const FieldPlace&) {}
    static void OnFault(const Messages::Fault&) {}
    void OnRemark(const Remark& remark) {
        m_IsHeaderInvalid |=
            remark.code == RemarkCode::HeaderMissing || remark.code == RemarkCode::HeaderBeyondUserData ||
            remark.code == RemarkCode::HeaderOverrun || remark.code == RemarkCode::HeaderLeftOver;
    }
    void OnElement(const HeaderElement& element) {
        const std::size_t i = m_Elements++;
        m_IsSame = m_IsSame && i < m_UserData.elements.size() &&
                   element.identifier == m_UserData.elements[i].identifier &&
                   element.offset == m_UserData.elements[i].offset &&
                   element.length == m_UserData.elements[i].length;
    }
    void OnUserData(const UserDataHead& head) {
        m_IsSame = m_IsSame && head.hasHeader == m_UserData.hasHeader &&
                   head.isHeaderIgnored == m_UserData.isHeaderIgnored &&
                   head.concatenation == m_UserData.concatenation && head.ports == m_UserData.ports &&
                   head.tables.locking == m_UserData.tables.locking &&
                   head.tables.single == m_UserData.tables.single &&
                   head.textOffset == m_UserData.textOffset && head.fillBits == m_UserData.fillBits &&
                   head.textUnits == m_UserData.textUnits;
    }

private:
    const UserData& m_UserData;
    std::size_t m_Elements = 0;
    bool m_IsSame = true;
    bool m_IsHeaderInvalid = false;
};

class Writer {
public:
    explicit Writer(Written& written) : m_Octets(written.octets), m_Fault(written.fault) {}

    void ServiceCentre(const Address& address) {
        const std::size_t digitOctets = OctetsOfSemiOctets(address.text.size());
        if (digitOctets == 0 && address.length == 0) {
            Put(0);
            return;
        }
        Put(1 + digitOctets);
        Put(address.typeOfAddress);
        CheckType(Field::ServiceCentre, address);
        Digits(Field::ServiceCentre, address.text, c_semiOctetsOfOctet * digitOctets);
    }

    template <class Type>
    void Tpdu(const Type& tpdu, TpduType type) {
        m_TpduAt = m_Octets.size();
        bool hasFailureCause = false;
        if constexpr (requires { tpdu.failureCause; })
            hasFailureCause = tpdu.failureCause.has_value();
        const TpduRow& row = RowOf(type, hasFailureCause);
        FirstOctet(tpdu, row);
        for (const RowField& field : row.fields) {
            if (m_Fault)
                return;
            if (IsThere(tpdu, field, row))
                WriteField(tpdu, field, row);
        }
    }

private:
    void Put(std::size_t octet) { m_Octets.push_back(static_cast<std::uint8_t>(octet)); }

    /// The first fault holds.
    void Fail(WriteFaultCode code, Field field, std::size_t number = 0, std::size_t other = 0) {
        if (!m_Fault)
            m_Fault = {code, field, static_cast<std::uint32_t>(number), static_cast<std::uint32_t>(other)};
    }

    // Which fields there are.

    template <class Type>
    void FirstOctet(const Type& tpdu, const TpduRow& row) {
        unsigned int octet = 0;
        for (const BitField& bits : row.bits)
            octet |= BitsOf(tpdu, bits.field, row) << bits.shift;
        Put(octet);
    }

    template <class Type>
    static unsigned int BitsOf(const Type& tpdu, Field field, const TpduRow& row) {
        if (field == Field::MessageType)
            return c_messageTypeOf[static_cast<std::size_t>(row.type)];
        if (field == Field::UserDataHeaderIndicator) {
            const UserData* const userData = UserDataIn(tpdu);
            return userData != nullptr && userData->hasHeader ? 1 : 0;
        }
        if constexpr (requires { tpdu.validity; })
            if (field == Field::ValidityFormat)
                return static_cast<unsigned int>(tpdu.validity.format);
        bool isSet = false;
        VisitBits(tpdu, field, [&](bool member) { isSet = member != IsTrueAsZero(field); });
        return isSet ? 1 : 0;
    }

    template <class Type>
    static bool IsThere(const Type& tpdu, const RowField& field, const TpduRow& row) {
        if (field.indicatedBy != 0)
            return IsIndicated(tpdu, field);
        if constexpr (requires { tpdu.parameterIndicator; })
            if (field.mayEnd)
                return tpdu.parameterIndicator || IndicatorOf(tpdu, row) != 0;
        return true;
    }

    template <class Type>
    static bool IsIndicated(const Type& tpdu, const RowField& field) {
        if (field.coding == Coding::UserData)
            return UserDataIn(tpdu) != nullptr;
        bool isThere = false;
        VisitOctet(tpdu, field.field, [&](const auto& member) {
            if constexpr (requires { member.has_value(); })
                isThere = member.has_value();
        });
        return isThere;
    }

    /// TP-PI, whose bits say what follows.
    template <class Type>
    static unsigned int IndicatorOf(const Type& tpdu, const TpduRow& row) {
        unsigned int indicator = 0;
        for (const RowField& field : row.fields)
            if (field.indicatedBy != 0 && IsIndicated(tpdu, field))
                indicator |= field.indicatedBy;
        return indicator;
    }

    // How each is coded.

    template <class Type>
    void WriteField(const Type& tpdu, const RowField& field, const TpduRow& row) {
        switch (field.coding) {
        case Coding::Address:
            PartyAddress(field.field, *PartyIn(tpdu));
            return;
        case Coding::Time:
            VisitTime(tpdu, field.field, [&](const Timestamp& time) { Time(field.field, time); });
            return;
        case Coding::Validity:
            if constexpr (requires { tpdu.validity; })
                ValidityPeriod(field.field, tpdu.validity);
            return;
        case Coding::Indicator:
            Indicator(tpdu, field.field, row);
            return;
        case Coding::UserData:
            WriteUserData(field.field, *UserDataIn(tpdu), CodingIn(tpdu), row);
            return;
        case Coding::Command:
            WriteUserData(field.field, *UserDataIn(tpdu), DataCoding(c_commandCoding), row);
            return;
        default:
            Octet(tpdu, field.field);
        }
    }

    template <class Type>
    static DataCoding CodingIn(const Type& tpdu) {
        if constexpr (requires { tpdu.coding; })
            if (const DataCoding* const coding = PointerTo(tpdu.coding))
                return *coding;
        return {};
    }

    template <class Type>
    void Octet(const Type& tpdu, Field field) {
        VisitOctet(tpdu, field, [&](const auto& member) {
            if constexpr (requires { member->value; })
                Put(member->value);
            else if constexpr (requires { member.has_value(); })
                Put(*member);
            else if constexpr (requires { member.value; })
                Put(member.value);
            else
                Put(member);
        });
        constexpr std::uint8_t leastCause = 0x80;
        if (field == Field::FailureCause && m_Octets.back() < leastCause)
            Fail(WriteFaultCode::FailureCauseTooLow, field, m_Octets.back());
    }

    template <class Type>
    void Indicator(const Type& tpdu, Field field, const TpduRow& row) {
        if constexpr (requires { tpdu.parameterIndicator; }) {
            constexpr unsigned int reserved = c_reservedIndicatorBits | c_indicatorExtension;
            if (const unsigned int set = tpdu.parameterIndicator.value_or(0) & reserved; set != 0)
                Fail(WriteFaultCode::ReservedParameterBits, field, set);
            Put(IndicatorOf(tpdu, row));
        }
    }

    // Addresses.

    void CheckType(Field field, const Address& address) {
        if ((address.typeOfAddress & c_typeExtension) == 0)
            Fail(WriteFaultCode::ExtensionBitClear, field);
    }

    void PartyAddress(Field field, const Address& address) {
        CheckType(field, address);
        if (address.IsAlphanumeric())
            Name(field, address);
        else
            Number(field, address);
    }

    void Number(Field field, const Address& address) {
        const std::size_t digits = address.text.size();
        // A filler may be counted.
        const std::size_t semiOctets = address.length == digits + 1 ? digits + 1 : digits;
        Put(semiOctets);
        Put(address.typeOfAddress);
        Digits(field, address.text, c_semiOctetsOfOctet * OctetsOfSemiOctets(semiOctets));
        CheckLength(field, semiOctets);
    }

    void CheckLength(Field field, std::size_t semiOctets) {
        if (semiOctets > c_mostDigits)
            Fail(WriteFaultCode::AddressTooLong, field, semiOctets, c_mostDigits);
    }

    /// Fillers after the digits. REQUIRES room for an even number of semi-octets, and the digits among them.
    void Digits(Field field, std::string_view text, std::size_t room) {
        constexpr std::uint8_t fillers = 0xFF;
        const auto valueAt = [&](std::size_t place) -> unsigned int {
            return c_digitValues[static_cast<unsigned char>(text[place])];
        };
        const std::size_t at = m_Octets.size();
        m_Octets.resize(at + room / c_semiOctetsOfOctet, fillers);
        std::uint8_t* octet = m_Octets.data() + at;
        bool areDigits = true;
        std::size_t place = 0;
        for (; place + 1 < text.size(); place += c_semiOctetsOfOctet) {
            const unsigned int low = valueAt(place);
            const unsigned int high = valueAt(place + 1);
            *octet++ = static_cast<std::uint8_t>(high << c_semiOctetBits | low);
            areDigits &= low != c_filler && high != c_filler;
        }
        if (place < text.size()) {
            const unsigned int low = valueAt(place);
            *octet = static_cast<std::uint8_t>(c_filler << c_semiOctetBits | low);
            areDigits &= low != c_filler;
        }
        if (!areDigits)
            FailAtCharacter(field, text);
        if (field == Field::ServiceCentre)
            CheckLength(field, text.size());
    }

    /// At the first that is no digit.
    void FailAtCharacter(Field field, std::string_view text) {
        const std::size_t place = text.find_first_not_of(c_digits);
        Fail(WriteFaultCode::AddressCharacter, field, Characters(text.substr(place)).Next(), place);
    }

    void Name(Field field, const Address& address) {
        std::vector<std::uint8_t>& septets = m_Septets;
        if (const auto misfit = AppendSeptets(address.text, {}, septets)) {
            Fail(WriteFaultCode::AddressCharacter, field, misfit->character, misfit->offset);
            return;
        }
        // Where a semi-octet more makes no septet more, it may be counted.
        const std::size_t least = SemiOctetsOfName(septets.size());
        const bool isLonger =
            address.length == least + 1 && address.length * c_semiOctetBits / c_septetBits == septets.size();
        const std::size_t semiOctets = isLonger ? least + 1 : least;
        CheckLength(field, semiOctets);
        if (m_Fault)
            return;
        Put(semiOctets);
        Put(address.typeOfAddress);
        const std::size_t digitsAt = m_Octets.size();
        m_Octets.resize(digitsAt + OctetsOfSemiOctets(semiOctets));
        PackSeptets(septets, 0, m_Octets.data() + digitsAt);
    }

    // Times.

    static auto MembersOf(const Timestamp& time) {
        return std::tuple(time.isValid, time.year, time.month, time.day, time.hour, time.minute, time.second,
                          time.quarters);
    }

    void Time(Field field, const Timestamp& time) {
        const Timestamp told = ReadTime({time.octets.data(), c_timeOctets}, [](auto...) {});
        if (!told.isValid)
            Fail(WriteFaultCode::NoTime, field);
        else if (MembersOf(told) != MembersOf(time))
            Fail(WriteFaultCode::TimeDisagrees, field);
        m_Octets.insert(m_Octets.end(), time.octets.begin(), time.octets.end());
    }

    void ValidityPeriod(Field field, const Validity& validity) {
        const Tables::ValidityFormatRow& row =
            Tables::c_validityFormats[static_cast<std::size_t>(validity.format) & 0x03U];
        if (validity.format == ValidityFormat::Absolute && !validity.Absolute().isValid)
            Fail(WriteFaultCode::NoTime, field);
        if (validity.format == ValidityFormat::Enhanced)
            CheckEnhanced(field, validity);
        m_Octets.insert(m_Octets.end(), validity.octets.begin(),
                        validity.octets.begin() + static_cast<int>(row.octets));
    }

    void CheckEnhanced(Field field, const Validity& validity) {
        // By the reader, which finds whatever is reserved.
        Flaws flaws;
        Walker(OctetView(validity.octets.data(), validity.octets.size()), ReadOptions{}, flaws)
            .WalkValidity(validity.format);
        if (flaws.octet)
            Fail(WriteFaultCode::ValidityInvalid, field, *flaws.octet);
    }

    /// The octet of the first remark.
    struct Flaws : NoValues {
        static constexpr bool c_takesText = false;
        std::optional<std::uint32_t> octet;

        static void OnPlace(const FieldPlace&) {}
        static void OnFault(const Messages::Fault&) {}
        void OnRemark(const Remark& remark) {
            if (!octet)
                octet = remark.octet;
        }
    };

    // User data.

    void WriteUserData(Field field, const UserData& userData, const DataCoding& coding, const TpduRow& row) {
        Put(userData.length);
        const std::size_t announced =
            coding.CountsSeptets() ? OctetsOfSeptets(userData.length) : userData.length;
        const std::size_t octets = userData.octets.size();
        const std::size_t most = RoomForUserData(row, m_Octets.size() - m_TpduAt);
        if (octets > most)
            Fail(WriteFaultCode::UserDataTooLong, field, octets, most);
        else if (octets != announced)
            Fail(WriteFaultCode::UserDataLength, field, announced, octets);
        else if (const auto fault = FaultOf(userData, coding))
            Fail(*fault, field);
        m_Octets.insert(m_Octets.end(), userData.octets.begin(), userData.octets.end());
    }

    static std::optional<WriteFaultCode> FaultOf(const UserData& userData, const DataCoding& coding) {
        UserDataCheck check(userData);
        Walker(userData.octets, ReadOptions{}, check)
            .WalkUserData(userData.length, coding, userData.hasHeader);
        if (const auto fault = check.Fault())
            return fault;
        return SaysText(userData, coding) ? std::nullopt : std::optional(WriteFaultCode::TextDisagrees);
    }

    /// Whether the text is what the octets say. REQUIRES that everything else is.
    static bool SaysText(const UserData& userData, const DataCoding& coding) {
        if (coding.CountsSeptets()) {
            std::array<std::uint8_t, c_mostUnits> septets;
            UnpackSeptets(userData.Content(), userData.fillBits, userData.textUnits, septets.data());
            return IsTextOfSeptets(userData.text, {septets.data(), userData.textUnits}, userData.tables);
        }
        if (coding.alphabet == Alphabet::Ucs2 && !coding.isCompressed)
            return IsTextOfUcs2(userData.text, userData.Content());
        return userData.text.empty();
    }

    std::vector<std::uint8_t>& m_Octets;
    std::optional<WriteFault>& m_Fault;
    std::size_t m_TpduAt = 0;
    std::vector<std::uint8_t> m_Septets; ///< of a name
};

} // namespace Messages

#endif
