// What is encoded and decoded: the same in every program here.
#ifndef BENCH_TEXTS_H
#define BENCH_TEXTS_H

#include <string>

#include "Codec.h"

namespace bench {

inline std::u16string Letters(std::size_t count) {
    std::u16string text;
    for (std::size_t i = 0; i < count; ++i)
        text += static_cast<char16_t>(u'a' + i % 26);
    return text;
}

/// Septets laid side by side, `startBit` bits above the low end of the first octet.
inline Octets Pack(const std::u16string& septets, std::size_t startBit) {
    Octets octets((startBit + 7 * septets.size() + 7) / 8);
    for (std::size_t i = 0; i < 7 * septets.size(); ++i) {
        const std::size_t bit = startBit + i;
        octets[bit / 8] =
            static_cast<unsigned char>(octets[bit / 8] | (septets[i / 7] >> (i % 7) & 1) << (bit % 8));
    }
    return octets;
}

inline Octets BigEndian(const std::u16string& text) {
    Octets octets;
    for (const char16_t unit : text) {
        octets.push_back(static_cast<unsigned char>(unit >> 8));
        octets.push_back(static_cast<unsigned char>(unit));
    }
    return octets;
}

/// UTF-8 of a text without surrogates, and back.
inline std::string ToUtf8(const std::u16string& text) {
    std::string utf8;
    for (const unsigned int unit : text) {
        if (unit >= 0x800)
            utf8 += static_cast<char>(0xE0 | unit >> 12);
        if (unit >= 0x80)
            utf8 += static_cast<char>(unit >= 0x800 ? 0x80 | (unit >> 6 & 0x3F) : 0xC0 | unit >> 6);
        utf8 += static_cast<char>(unit >= 0x80 ? 0x80 | (unit & 0x3F) : unit);
    }
    return utf8;
}

inline std::u16string FromUtf8(const std::string& utf8) {
    std::u16string text;
    for (const char character : utf8) {
        const auto octet = static_cast<unsigned char>(character);
        if (octet < 0x80 || octet >= 0xC0)
            text += static_cast<char16_t>(octet < 0x80 ? octet : octet & (octet < 0xE0 ? 0x1F : 0x0F));
        else
            text.back() = static_cast<char16_t>(text.back() << 6 | (octet & 0x3F));
    }
    return text;
}

inline std::string ToHexadecimal(const Octets& octets) {
    std::string digits;
    for (const unsigned char octet : octets)
        for (const int digit : {octet >> 4, octet & 0x0F})
            digits += "0123456789ABCDEF"[digit];
    return digits;
}

inline Octets FromHexadecimal(const std::string& digits) {
    Octets octets;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        octets.push_back(static_cast<unsigned char>(std::stoi(digits.substr(i, 2), nullptr, 16)));
    return octets;
}

inline const std::u16string c_gsm160 = Letters(160);
inline const std::u16string c_gsm1000 = Letters(1000);
inline const std::u16string c_ucs70(70, u'\u4E2D');

/// From +12345678901 by way of +123456789012.
inline Octets Deliver(unsigned char dcs, unsigned char udl, const Octets& userData,
                      unsigned char first = 0x04) {
    Octets pdu = {0x07, 0x91, 0x21, 0x43, 0x65, 0x87, 0x09, 0x21, first, 0x0B, 0x91, 0x21, 0x43, 0x65,
                  0x87, 0x09, 0xF1, 0x00, dcs,  0x21, 0x20, 0x31, 0x21,  0x43, 0x65, 0x80, udl};
    for (const unsigned char octet : userData)
        pdu.push_back(octet);
    return pdu;
}

/// The works: W1 and W2 are decoded, W3 to W5 encoded.
inline Octets Deliver160() {
    return Deliver(0x00, 160, Pack(c_gsm160, 0));
}
inline Octets DeliverUcs2() {
    return Deliver(0x08, 140, BigEndian(c_ucs70));
}

} // namespace bench

#endif
