#include "Messages/Write.h"

#include "tpdu/Making.h"
#include "tpdu/Recording.h"
#include "tpdu/Writer.h"

namespace Messages {
namespace {

void WriteTpdu(const Tpdu& tpdu, Written& written, Writer& writer) {
    std::visit(
        [&](const auto& one) {
            if constexpr (std::is_same_v<std::decay_t<decltype(one)>, std::monostate>)
                written.fault = WriteFault{};
            else
                writer.Tpdu(one, TypeOf(tpdu));
        },
        tpdu);
}

} // namespace

void Write(const Tpdu& tpdu, const std::optional<Address>& serviceCentre, Written& written) {
    written.octets.clear();
    written.octets.reserve(c_longestPdu);
    written.fault.reset();
    Writer writer(written);
    if (serviceCentre)
        writer.ServiceCentre(*serviceCentre);
    const std::size_t tpduAt = written.octets.size();
    if (!written.fault)
        WriteTpdu(tpdu, written, writer);
    if (written.fault)
        written.octets.clear();
    written.tpduOctets = written.fault ? 0 : written.octets.size() - tpduAt;
}

Written Write(const Tpdu& tpdu, const std::optional<Address>& serviceCentre) {
    Written written;
    Write(tpdu, serviceCentre, written);
    return written;
}

namespace {

/// Makes user data as it is sent, of which a reader then makes values. False where TP-UDL cannot count it.
template <class Keeping>
bool Make(const DataCoding& coding, OctetView elements, OctetView content, Keeping keeping) {
    const std::size_t header = HeaderOctets(elements.size());
    const std::size_t units = (coding.CountsSeptets() ? SeptetsOfHeader(header) : header) + content.size();
    if (units > c_mostUnits || elements.size() > c_mostUnits)
        return false;
    std::array<std::uint8_t, c_mostUnits> octets;
    std::uint8_t* out = octets.data();
    if (header != 0)
        *out++ = static_cast<std::uint8_t>(elements.size());
    out = std::copy(elements.begin(), elements.end(), out);
    if (coding.CountsSeptets())
        out += PackSeptets(content, FillBitsAfter(header), out);
    else
        out = std::copy(content.begin(), content.end(), out);
    Walker({octets.data(), static_cast<std::size_t>(out - octets.data())}, ReadOptions{}, keeping)
        .WalkUserData(static_cast<std::uint8_t>(units), coding, header != 0);
    return true;
}

} // namespace

std::optional<UserData> MakeUserData(const DataCoding& coding, OctetView elements, OctetView content) {
    std::optional<UserData> userData(std::in_place);
    if (!Make(coding, elements, content, UserDataKeeping(*userData)))
        userData.reset();
    return userData;
}

UserData MakeUserDataOfText(const DataCoding& coding, OctetView elements, OctetView content,
                            SeptetTables tables, std::string_view text) {
    UserData userData;
    Make(coding, elements, content, UserDataHeadKeeping(userData));
    if (userData.tables != tables)
        return *MakeUserData(coding, elements, content);
    userData.text = text;
    return userData;
}

} // namespace Messages
