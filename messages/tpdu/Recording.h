// Keeps what stands in a PDU.
#ifndef TPDU_RECORDING_H
#define TPDU_RECORDING_H

#include <string_view>

#include "Messages/Read.h"
#include "tpdu/Sinks.h"

namespace Messages {

/// Keeps what user data says, but for its text. REQUIRES that it is empty.
class UserDataHeadKeeping : public NoValues {
public:
    static constexpr bool c_takesText = false;

    explicit UserDataHeadKeeping(UserData& userData) : m_UserData(userData) {}

    static void OnPlace(const FieldPlace&) {}
    static void OnRemark(const Remark&) {}
    static void OnFault(const Fault&) {}

    void OnElement(const HeaderElement& element);
    void OnUserData(const UserDataHead& head);

protected:
    UserData& m_UserData;
};

/// The text as well.
class UserDataKeeping : public UserDataHeadKeeping {
public:
    static constexpr bool c_takesText = true;

    using UserDataHeadKeeping::UserDataHeadKeeping;
    void OnText(std::string_view text);
};

/// Makes a reading. REQUIRES one that is empty but for its addresses and its TPDU, whose memory is used
/// again.
class Recording {
public:
    static constexpr bool c_takesText = true;

    explicit Recording(Reading& reading) : m_Reading(reading) {}

    /// Takes away what is left of the reading before.
    void Finish();

    void OnPlace(const FieldPlace& place) { m_Reading.places.push_back(place); }
    void OnRemark(const Remark& remark) { m_Reading.remarks.push_back(remark); }
    void OnFault(const Fault& fault) { m_Reading.fault = fault; }

    void OnServiceCentre(std::uint8_t length, std::uint8_t typeOfAddress, std::string_view text);
    void OnType(TpduType type);
    void OnBits(Field field, std::uint8_t value);
    void OnOctet(Field field, std::uint8_t value);
    void OnAddress(std::uint8_t length, std::uint8_t typeOfAddress, std::string_view text);
    void OnTime(Field field, const Timestamp& time);
    void OnValidity(const Validity& validity);
    void OnUserDataThere();
    void OnElement(const HeaderElement& element);
    void OnUserData(const UserDataHead& head);
    void OnText(std::string_view text);

private:
    Reading& m_Reading;
    UserData m_FreshUserData; ///< empty, with the memory of the reading before, until user data is there
    UserData* m_UserData = nullptr;
    bool m_HasServiceCentre = false;
    bool m_HasType = false;
};

} // namespace Messages

#endif
