#include "Dissector.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <random>
#include <sstream>
#include <stdexcept>

#include <unistd.h>

#include "Toolkit/UTF8.h"
#include "support/Bits.h"

namespace yardsticks {

using tests::Bytes;
using tests::operator+;

namespace {

constexpr std::uint32_t c_userLinkType = 147;

/// A file that is gone with the object.
class TemporaryFile {
public:
    TemporaryFile() { close(mkstemp(m_Name.data())); }
    ~TemporaryFile() { std::remove(m_Name.data()); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    const char* Name() const { return m_Name.data(); }

private:
    std::string m_Name = "/tmp/yardsticks-XXXXXX";
};

/// A capture file, little-endian: a file header, then a record header before each packet.
void WriteCapture(const char* name, const std::vector<Bytes>& packets) {
    std::ofstream file(name, std::ios::binary);
    const auto put = [&file](std::initializer_list<std::uint32_t> words) {
        for (const std::uint32_t word : words)
            for (unsigned int shift = 0; shift < 32; shift += 8)
                file.put(static_cast<char>(word >> shift));
    };
    put({0xA1B2C3D4, 0x00040002, 0, 0, 65535, c_userLinkType});
    for (const Bytes& packet : packets) {
        const auto size = static_cast<std::uint32_t>(packet.size());
        put({0, 0, size, size});
        file.write(reinterpret_cast<const char*>(packet.data()), static_cast<std::streamsize>(packet.size()));
    }
    if (!file)
        throw std::runtime_error("the capture cannot be written");
}

/// Fields are named "layer_layer_field"; the short name is what is after the prefix. Parts of the layer
/// merge.
Fields ShortNames(const nlohmann::json& layer, const std::string& prefix) {
    Fields fields = Fields::object();
    for (const nlohmann::json& part : layer.is_array() ? layer : nlohmann::json::array({layer}))
        for (const auto& [name, value] : part.items())
            if (name.rfind(prefix, 0) == 0)
                fields[name.substr(prefix.size())] = value;
    return fields;
}

std::vector<Fields> Dissect(const std::vector<Bytes>& packets, const std::string& dissector,
                            const std::string& layer, const std::string& prefix) {
    const TemporaryFile capture;
    WriteCapture(capture.Name(), packets);
    const std::string command = std::string(TSHARK) + " -r " + capture.Name() +
                                " -o gsm_sms.reassemble:FALSE -o 'uat:user_dlts:\"User 0 (DLT=147)\",\"" +
                                dissector + "\",\"0\",\"\",\"0\",\"\"' -T ek -J " + layer + " 2>/dev/null";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string output;
    std::array<char, 65536> piece;
    while (const std::size_t read = std::fread(piece.data(), 1, piece.size(), pipe.get()))
        output.append(piece.data(), read);

    std::vector<Fields> messages;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        const nlohmann::json packet = nlohmann::json::parse(line);
        if (packet.contains("layers"))
            messages.push_back(ShortNames(packet["layers"].value(layer, nlohmann::json::object()), prefix));
    }
    if (messages.size() != packets.size())
        throw std::runtime_error("tshark read " + std::to_string(messages.size()) + " of " +
                                 std::to_string(packets.size()) + " messages");
    return messages;
}

/// An RP-DATA message of 3GPP TS 24.011 around a TPDU.
Bytes RpData(unsigned char type, const Bytes& origin, const Bytes& destination, const Bytes& tpdu) {
    Bytes message = {type, 1};
    for (const Bytes* const address : {&origin, &destination}) {
        message.push_back(static_cast<unsigned char>(address->size()));
        for (const unsigned char octet : *address)
            message.push_back(octet);
    }
    message.push_back(static_cast<unsigned char>(tpdu.size()));
    for (const unsigned char octet : tpdu)
        message.push_back(octet);
    return message;
}

const Bytes c_messageCentre = {0x91, 0x21, 0x43, 0x65, 0x87, 0x09, 0x21};

} // namespace

Bytes FromMobile(const Bytes& tpdu) {
    return RpData(0, {}, c_messageCentre, tpdu);
}

Bytes ToMobile(const Bytes& tpdu) {
    return RpData(1, c_messageCentre, {}, tpdu);
}

Bytes Report(const Bytes& tpdu, bool isToMobile, bool isError) {
    constexpr unsigned char c_userData = 0x41;
    const unsigned int direction = isToMobile ? 1 : 0;
    Bytes message = {static_cast<unsigned char>((isError ? 4U : 2U) | direction), 1};
    if (isError)
        message = message + Bytes{1, 0x16}; // RP-Cause
    return message + Bytes{c_userData, static_cast<unsigned char>(tpdu.size())} + tpdu;
}

std::vector<Fields> DissectSms(const std::vector<Bytes>& messages) {
    return Dissect(messages, "gsm_a_rp", "gsm_sms", "gsm_sms_gsm_sms_");
}

std::vector<Fields> DissectCellBroadcast(const std::vector<Bytes>& pages) {
    return Dissect(pages, "gsm_cbs", "gsm_cbs", "gsm_cbs_gsm_cbs_");
}

long Number(const Fields& fields, const std::string& name, std::size_t n) {
    Fields value = fields.value(name, Fields());
    if (value.is_array())
        value = Fields(value.at(n));
    if (value.is_boolean())
        return value.get<bool>() ? 1 : 0;
    return value.is_string() ? std::stol(value.get<std::string>(), nullptr, 0) : -1;
}

std::u32string CodePoints(const std::string& utf8) {
    const TString<wchar_t> text = Toolkit::UTF8::ToUNICODE(TString<char>(utf8));
    return {text.begin(), text.end()};
}

std::u32string Text(const Fields& fields, const std::string& name) {
    const Fields value = fields.value(name, Fields());
    return value.is_string() ? CodePoints(value.get<std::string>()) : std::u32string();
}

unsigned int MessageCount() {
    const char* const count = std::getenv("QX_CASES");
    return count != nullptr ? static_cast<unsigned int>(std::stoul(count)) : QX_DEFAULT_MESSAGES;
}

std::uint64_t Seed() {
    const char* const given = std::getenv("QX_SEED");
    static const std::uint64_t seed = given != nullptr ? std::stoull(given) : std::random_device()();
    std::cout << "[   SEED   ] QX_SEED=" << seed << ", " << MessageCount() << " messages" << std::endl;
    return seed;
}

} // namespace yardsticks
