#include "Bridge.h"

#include <iomanip>

namespace reference {

TString<wchar_t> Wide(const model::Text& text) {
    return {text.begin(), text.end()};
}

TString<char> Narrow(const model::Octets& octets) {
    return {octets.begin(), octets.end()};
}

model::Text TextOf(const std::wstring& text) {
    return {text.begin(), text.end()};
}

model::Octets OctetsOf(const std::string& text) {
    return {text.begin(), text.end()};
}

std::optional<model::Time> TimeOf(const Toolkit::smart_ptr<Toolkit::DateTime>& time) {
    if (time.get() == nullptr)
        return std::nullopt;
    model::Time result = {time->GetYear(),
                          time->GetMonth(),
                          time->GetDay(),
                          time->GetHour(),
                          time->GetMinute(),
                          time->GetSecond(),
                          {}};
    if (time->HasOffset())
        result.offset = time->GetOffset();
    return result;
}

Toolkit::smart_ptr<Encoding::Pdu> LibraryPdu(const model::Pdu& pdu) {
    Toolkit::smart_ptr<Encoding::Pdu> result(new Encoding::Pdu);
    std::memcpy(result->m_Bytes, pdu.m_Bytes.data(), pdu.m_Bytes.size());
    result->m_Length = pdu.m_Length;
    return result;
}

model::Pdu PduOf(const Encoding::Pdu& pdu) {
    model::Pdu result;
    std::memcpy(result.m_Bytes.data(), pdu.m_Bytes, result.m_Bytes.size());
    result.m_Length = pdu.m_Length;
    return result;
}

namespace {

/// Numbers in hexadecimal of so many digits at least, a blank between two.
template <class Numbers>
std::string HexList(const Numbers& numbers, int digits) {
    std::ostringstream stream;
    stream << '[' << std::hex << std::uppercase << std::setfill('0');
    const char* separator = "";
    for (const auto number : numbers) {
        stream << separator << std::setw(digits) << static_cast<std::uint32_t>(number);
        separator = " ";
    }
    stream << ']';
    return stream.str();
}

} // namespace

std::string Show(std::int64_t number) {
    return std::to_string(number);
}

std::string Show(const std::string& text) {
    return '"' + text + '"';
}

std::string Show(const model::Text& text) {
    return HexList(text, 4);
}

std::string Show(const model::Octets& octets) {
    return HexList(octets, 2);
}

std::string Show(const std::optional<model::Time>& time) {
    if (!time)
        return "none";
    std::ostringstream stream;
    stream << time->year << '-' << time->month << '-' << time->day << ' ' << time->hour << ':' << time->minute
           << ':' << time->second;
    if (time->offset)
        stream << " offset " << *time->offset;
    return stream.str();
}

std::string Show(const std::optional<std::uint32_t>& number) {
    return number ? Show(std::int64_t{*number}) : "none";
}

std::string Show(const model::Pdu& pdu) {
    std::size_t end = pdu.m_Bytes.size();
    while (end > 0 && end > pdu.m_Length && pdu.m_Bytes[end - 1] == 0)
        --end;
    return "length " + std::to_string(pdu.m_Length) + " " +
           Show(model::Octets(pdu.m_Bytes.begin(), pdu.m_Bytes.begin() + static_cast<std::ptrdiff_t>(end)));
}

std::string Lines(const model::Record& library, const model::Record& expected) {
    std::string lines;
#define QX_FIELD(name) lines += Line(#name, library.name, expected.name)
    QX_FIELD(smsc);
    QX_FIELD(originator);
    QX_FIELD(recipient);
    QX_FIELD(smscNpi);
    QX_FIELD(smscTon);
    QX_FIELD(numberNpi);
    QX_FIELD(numberTon);
    QX_FIELD(smsType);
    QX_FIELD(replyPath);
    QX_FIELD(hasUserDataHeader);
    QX_FIELD(statusReport);
    QX_FIELD(validityFormat);
    QX_FIELD(rejectDuplicates);
    QX_FIELD(messageReference);
    QX_FIELD(protocolId);
    QX_FIELD(dataCoding);
    QX_FIELD(validityPeriod);
    QX_FIELD(validityTime);
    QX_FIELD(dischargeTime);
    QX_FIELD(serviceCentreTime);
    QX_FIELD(userDataLength);
    QX_FIELD(status);
    QX_FIELD(codingGroup);
    QX_FIELD(messageClass);
    QX_FIELD(alphabet);
    QX_FIELD(text);
    QX_FIELD(workText);
    QX_FIELD(concatReference);
    QX_FIELD(concatTotal);
    QX_FIELD(concatSequence);
    return lines;
}

std::string Lines(const model::EncoderState& library, const model::EncoderState& expected) {
    std::string lines;
    QX_FIELD(smsc);
    QX_FIELD(originator);
    QX_FIELD(recipient);
    QX_FIELD(smscTon);
    QX_FIELD(numberTon);
    QX_FIELD(smsType);
    QX_FIELD(replyPath);
    QX_FIELD(statusReport);
    QX_FIELD(validityFormat);
    QX_FIELD(rejectDuplicates);
    QX_FIELD(messageReference);
    QX_FIELD(protocolId);
    QX_FIELD(validityPeriod);
    QX_FIELD(messageClass);
    QX_FIELD(alphabet);
    QX_FIELD(text);
    QX_FIELD(workText);
    QX_FIELD(concatReference);
    QX_FIELD(concatTotal);
    QX_FIELD(concatSequence);
    QX_FIELD(smscBytes);
    QX_FIELD(smscLenient);
    QX_FIELD(recipientBytes);
    QX_FIELD(originatorBytes);
    QX_FIELD(partCapacity);
    QX_FIELD(useConcatHeader);
    QX_FIELD(gsmLength);
    QX_FIELD(gsmBytes);
    QX_FIELD(referenceCounter);
    QX_FIELD(partBytes);
#undef QX_FIELD
    return lines;
}

} // namespace reference
