#include "Compose.h"

#include <algorithm>

#include "Json.h"

namespace plain {

namespace {

/// Digits in swapped semi-octets, filled up with F.
Octets SemiOctets(std::string digits) {
    if (digits.size() % 2 != 0)
        digits += 'F';
    for (std::size_t i = 0; i < digits.size(); i += 2)
        std::swap(digits[i], digits[i + 1]);
    return FromHex(digits);
}

} // namespace

Octets Join(std::initializer_list<Octets> pieces) {
    Octets octets;
    for (const Octets& piece : pieces)
        octets.insert(octets.end(), piece.begin(), piece.end());
    return octets;
}

Octets One(int octet) {
    return {static_cast<std::uint8_t>(octet)};
}

Octets Word(int value) {
    return {static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)};
}

Octets Packed(const Septets& septets, int fillBits) {
    const std::size_t bits = static_cast<std::size_t>(fillBits) + 7 * septets.size();
    Octets octets((bits + 7) / 8);
    std::size_t at = static_cast<std::size_t>(fillBits);
    for (const int septet : septets)
        for (int i = 0; i < 7; ++i, ++at)
            if ((septet >> i & 1) != 0)
                octets[at / 8] = static_cast<std::uint8_t>(octets[at / 8] | 1U << at % 8);
    return octets;
}

Septets Plain(const std::string& text) {
    return {text.begin(), text.end()};
}

Octets DigitAddress(const std::string& digits, int type) {
    return Join({One(static_cast<int>(digits.size())), One(type), SemiOctets(digits)});
}

Octets LetterAddress(const Septets& septets, int type) {
    const int semiOctets = (static_cast<int>(septets.size()) * 7 + 3) / 4;
    return Join({One(semiOctets), One(type), Packed(septets)});
}

Octets CentreAddress(const std::string& digits, int type) {
    const Octets semiOctets = SemiOctets(digits);
    return Join({One(static_cast<int>(semiOctets.size()) + 1), One(type), semiOctets});
}

Octets HeaderElement(int identifier, const Octets& octets) {
    return Join({One(identifier), One(static_cast<int>(octets.size())), octets});
}

Octets Header(std::initializer_list<Octets> elements) {
    const Octets octets = Join(elements);
    return Join({One(static_cast<int>(octets.size())), octets});
}

Octets SeptetData(const Octets& header, const Septets& septets) {
    const std::size_t headerSeptets = (8 * header.size() + 6) / 7;
    Octets octets = Packed(septets, static_cast<int>(7 * headerSeptets));
    std::copy(header.begin(), header.end(), octets.begin());
    return Join({One(static_cast<int>(headerSeptets + septets.size())), octets});
}

Octets OctetData(const Octets& header, const Octets& octets) {
    return Join({One(static_cast<int>(header.size() + octets.size())), header, octets});
}

Octets SomeTime() {
    return FromHex("62304151906240");
}
Octets SomeAddress() {
    return DigitAddress("4915550123");
}
Octets SomeData() {
    return SeptetData({}, Plain("Test"));
}

} // namespace plain
