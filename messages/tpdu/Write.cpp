#include "Messages/Write.h"

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

std::optional<UserData> MakeUserData(const DataCoding& coding, OctetView elements, OctetView content) {
    constexpr std::size_t mostUnits = 255;
    constexpr std::size_t lengthOctets = 1; // of TP-UDL
    const std::size_t header = HeaderOctets(elements.size());
    const std::size_t units = (coding.CountsSeptets() ? SeptetsOfHeader(header) : header) + content.size();
    if (units > mostUnits || elements.size() > mostUnits)
        return std::nullopt;

    // As it is sent, which a reader then makes values of.
    std::array<std::uint8_t, lengthOctets + mostUnits> octets;
    std::uint8_t* out = octets.data();
    *out++ = static_cast<std::uint8_t>(units);
    if (header != 0)
        *out++ = static_cast<std::uint8_t>(elements.size());
    out = std::copy(elements.begin(), elements.end(), out);
    if (coding.CountsSeptets())
        out += PackSeptets(content, FillBitsAfter(header), out);
    else
        out = std::copy(content.begin(), content.end(), out);
    UserData userData;
    UserDataKeeping keeping(userData);
    Walker({octets.data(), static_cast<std::size_t>(out - octets.data())}, ReadOptions{}, keeping)
        .WalkUserData(coding, header != 0);
    return userData;
}

} // namespace Messages
