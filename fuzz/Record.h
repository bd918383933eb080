// Tells which members of a record a decoder sets, and compares them.
#ifndef FUZZ_RECORD_H
#define FUZZ_RECORD_H

#include <array>

#include "Encoding/PduCommon.h"
#include "Property.h"

namespace fuzz {

using Time = Toolkit::smart_ptr<Toolkit::DateTime>;

inline bool SameTime(const Time& left, const Time& right) {
    if (left.get() == nullptr || right.get() == nullptr)
        return left.get() == right.get();
    return left->ToString() == right->ToString() && left->HasOffset() == right->HasOffset();
}

/// Calls `compare` with each member of the records, all of the same class.
template <class Compare, class... Records>
void ForEachMember(Compare&& compare, Records&... record) {
    compare(record.m_Smsc...);
    compare(record.m_Originator...);
    compare(record.m_Recipient...);
    compare(record.m_SmscNpi...);
    compare(record.m_SmscTon...);
    compare(record.m_NumberNpi...);
    compare(record.m_NumberTon...);
    compare(record.m_SmsType...);
    compare(record.m_ReplyPath...);
    compare(record.m_HasUserDataHeader...);
    compare(record.m_StatusReport...);
    compare(record.m_ValidityFormat...);
    compare(record.m_RejectDuplicates...);
    compare(record.m_MessageReference...);
    compare(record.m_ProtocolId...);
    compare(record.m_DataCoding...);
    compare(record.m_ValidityPeriod...);
    compare(record.m_ValidityTime...);
    compare(record.m_DischargeTime...);
    compare(record.m_ServiceCentreTime...);
    compare(record.m_UserDataLength...);
    compare(record.m_Status...);
    compare(record.m_CodingGroup...);
    compare(record.m_Class...);
    compare(record.m_Alphabet...);
    compare(record.m_Text...);
    compare(record.m_WorkText...);
    compare(record.m_ConcatReference...);
    compare(record.m_ConcatTotal...);
    compare(record.m_ConcatSequence...);
}

/// Values that no decoder produces, so that a member that keeps one was not set.
class Mark {
public:
    explicit Mark(int number) : m_Number(number) {}

    void operator()(TString<wchar_t>& text) const { text.assign(300, static_cast<wchar_t>(m_Number)); }
    void operator()(Time& time) const {
        time = new Toolkit::DateTime(static_cast<unsigned int>(m_Number), 99, 99, 0, 0, 0);
    }
    template <class Number>
    void operator()(Number& number) const {
        number = static_cast<Number>(m_Number);
    }

private:
    int m_Number;
};

struct Equal {
    bool operator()(const Time& left, const Time& right) const { return SameTime(left, right); }
    template <class Value>
    bool operator()(const Value& left, const Value& right) const {
        return left == right;
    }
};

inline void RequireSameRecord(const Encoding::PduCommon& left, const Encoding::PduCommon& right,
                              const char* property) {
    ForEachMember([property](const auto& a, const auto& b) { Require(Equal()(a, b), property); }, left,
                  right);
}

} // namespace fuzz

#endif
