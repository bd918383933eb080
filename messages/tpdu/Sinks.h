// Who is told of what stands in a PDU: whoever asks whether it is sound, a visitor, a reading.
#ifndef TPDU_SINKS_H
#define TPDU_SINKS_H

#include <string_view>

#include "Messages/Read.h"
#include "tpdu/Rows.h"

namespace Messages {

/// What a walk finds out of user data before its text.
struct UserDataHead {
    std::uint8_t length = 0;
    OctetView octets;
    bool hasHeader = false;
    bool isHeaderIgnored = false;
    std::optional<Concatenation> concatenation;
    std::optional<Ports> ports;
    SeptetTables tables;
    std::size_t textOffset = 0;
    unsigned int fillBits = 0;
    std::size_t textUnits = 0;
};

/// Takes no values.
struct NoValues {
    void OnServiceCentre(std::uint8_t, std::uint8_t, std::string_view) {}
    void OnType(TpduType) {}
    void OnBits(Field, std::uint8_t) {}
    void OnOctet(Field, std::uint8_t) {}
    void OnAddress(std::uint8_t, std::uint8_t, std::string_view) {}
    void OnTime(Field, const Timestamp&) {}
    void OnValidity(const Validity&) {}
    void OnUserDataThere() {}
    void OnElement(const HeaderElement&) {}
    void OnUserData(const UserDataHead&) {}
    void OnText(std::string_view) {}
};

constexpr bool IsUnsound(RemarkCode code) {
    switch (code) {
    case RemarkCode::SurplusOctets:
    case RemarkCode::ExtensionBitClear:
    case RemarkCode::AddressTooLong:
    case RemarkCode::TimeOutOfRange:
    case RemarkCode::UserDataMissing:
    case RemarkCode::HeaderMissing:
    case RemarkCode::HeaderBeyondUserData:
    case RemarkCode::HeaderOverrun:
    case RemarkCode::HeaderLeftOver:
        return true;
    default:
        return false;
    }
}

/// Finds out whether a reading is sound. Text has no say in that.
class Sounding : public NoValues {
public:
    static constexpr bool c_takesText = false;

    bool IsSound() const { return m_IsSound; }

    static void OnPlace(const FieldPlace&) {}
    void OnRemark(const Remark& remark) { m_IsSound = m_IsSound && !IsUnsound(remark.code); }
    void OnFault(const Fault&) { m_IsSound = false; }

private:
    bool m_IsSound = true;
};

/// Passes on what a visitor is told.
class Visiting : public NoValues {
public:
    static constexpr bool c_takesText = true;

    explicit Visiting(Visitor& visitor) : m_Visitor(visitor) {}

    void OnPlace(const FieldPlace& place) { m_Visitor.OnPlace(place); }
    void OnRemark(const Remark& remark) { m_Visitor.OnRemark(remark); }
    void OnFault(const Fault& fault) { m_Visitor.OnFault(fault); }

private:
    Visitor& m_Visitor;
};

} // namespace Messages

#endif
