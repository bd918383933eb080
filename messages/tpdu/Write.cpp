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
    std::vector<std::uint8_t> octets;
    octets.reserve(lengthOctets + mostUnits);
    octets.push_back(static_cast<std::uint8_t>(units));
    if (header != 0)
        octets.push_back(static_cast<std::uint8_t>(elements.size()));
    octets.insert(octets.end(), elements.begin(), elements.end());
    const std::size_t contentAt = octets.size();
    if (coding.CountsSeptets()) {
        octets.resize(lengthOctets + OctetsOfSeptets(units));
        PackSeptets(content, FillBitsAfter(header), octets.data() + contentAt);
    } else {
        octets.insert(octets.end(), content.begin(), content.end());
    }
    UserData userData;
    UserDataKeeping keeping(userData);
    Walker(OctetView(octets), ReadOptions{}, keeping).WalkUserData(coding, header != 0);
    return userData;
}

} // namespace Messages
