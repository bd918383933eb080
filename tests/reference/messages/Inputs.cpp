#include "Inputs.h"

#include <algorithm>

#include "Compose.h"
#include "model/Tables.h"

namespace plain {

namespace {

using reference::Random;

int Uniform(Random& random, int low, int high) {
    return static_cast<int>(
        random.Between(static_cast<std::uint32_t>(low), static_cast<std::uint32_t>(high)));
}

Octets RandomOctets(Random& random, int most) {
    Octets octets(random.Below(static_cast<std::uint32_t>(most) + 1));
    for (std::uint8_t& octet : octets)
        octet = random.Octet();
    return octets;
}

// ---- addresses
// -------------------------------------------------------------------------------------------------

int RandomType(Random& random) {
    if (random.Chance(60))
        return random.Chance(70) ? 0x91 : 0x81;
    return random.Chance(90) ? 0x80 | Uniform(random, 0, 127) : Uniform(random, 0, 127);
}

/// Digits, a letter or a filler among them now and then.
std::string RandomDigits(Random& random, int count) {
    std::string digits;
    for (int i = 0; i < count; ++i)
        digits += "0123456789ABCDEF"[random.Below(random.Chance(95) ? 10 : 16)];
    return digits;
}

int RandomSeptet(Random& random) {
    if (random.Chance(60))
        return Uniform(random, 0x20, 0x7F);
    return random.Chance(30) ? 0x1B : Uniform(random, 0, 0x7F);
}

Septets RandomSeptets(Random& random, int count) {
    Septets septets;
    for (int i = 0; i < count; ++i)
        septets.push_back(RandomSeptet(random));
    if (count > 0 && random.Chance(5))
        septets.back() = random.Chance(50) ? 0 : 0x1B;
    return septets;
}

Octets RandomAddress(Random& random) {
    if (random.Chance(20)) {
        Octets address =
            LetterAddress(RandomSeptets(random, Uniform(random, 0, random.Chance(90) ? 11 : 30)), 0xD0);
        if (random.Chance(10))
            address[0] = static_cast<std::uint8_t>(2 * (address.size() - 2)); // counted as whole octets
        return address;
    }
    const int count = random.Chance(90) ? Uniform(random, 3, 14) : Uniform(random, 0, 40);
    Octets address = DigitAddress(RandomDigits(random, count), RandomType(random));
    if (count % 2 != 0 && random.Chance(5))
        address.back() = random.Octet();
    return address;
}

Octets RandomCentre(Random& random) {
    if (random.Chance(10))
        return One(0);
    const int count = random.Chance(90) ? Uniform(random, 8, 14) : Uniform(random, 0, 26);
    return CentreAddress(RandomDigits(random, count), RandomType(random));
}

// ---- times
// -----------------------------------------------------------------------------------------------------

std::uint8_t Swapped(int number) {
    return static_cast<std::uint8_t>(number % 10 << 4 | number / 10);
}

Octets RandomTime(Random& random) {
    if (random.Chance(3))
        return Octets(7);
    Octets time = {
        Swapped(Uniform(random, 0, 99)),
        Swapped(Uniform(random, 1, 12)),
        Swapped(Uniform(random, 1, random.Chance(95) ? 28 : 31)),
        Swapped(Uniform(random, 0, 23)),
        Swapped(Uniform(random, 0, 59)),
        Swapped(Uniform(random, 0, 59)),
        static_cast<std::uint8_t>(Swapped(Uniform(random, 0, 56)) | (random.Chance(30) ? 8U : 0U))};
    while (random.Chance(8))
        time[random.Below(7)] = random.Octet();
    return time;
}

Octets RandomValidity(Random& random, int format) {
    if (format == 0)
        return {};
    if (format == 2)
        return One(random.Octet());
    if (format == 3)
        return RandomTime(random);
    Octets validity(7);
    validity[0] = static_cast<std::uint8_t>(
        random.Chance(70) ? Uniform(random, 0, 3) | Uniform(random, 0, 1) << 6 : Uniform(random, 0, 255));
    for (std::size_t i = 1; i < 7; ++i)
        if (random.Chance(i <= 3 ? 70 : 5))
            validity[i] = random.Chance(80) ? Swapped(Uniform(random, 0, i == 1 ? 25 : 62)) : random.Octet();
    return validity;
}

// ---- user data
// -------------------------------------------------------------------------------------------------

Octets RandomElement(Random& random) {
    static const std::vector<int> decoded = {0x00, 0x01, 0x04, 0x05, 0x06, 0x07, 0x08, 0x0A, 0x0B,
                                             0x0D, 0x13, 0x17, 0x20, 0x21, 0x22, 0x23, 0x24, 0x25};
    const int identifier = random.Chance(85) ? random.Of(decoded) : Uniform(random, 0, 255);
    const ElementRule& rule = TheTables().elements.at(static_cast<std::size_t>(identifier));
    Octets octets;
    if (random.Chance(8)) {
        octets = RandomOctets(random, 8);
    } else if (identifier == 0x22) {
        octets = RandomAddress(random);
    } else if ((identifier == 0x24 || identifier == 0x25) && random.Chance(90)) {
        octets = One(Uniform(random, 0, 15));
    } else {
        octets = RandomOctets(random, 6);
        octets.resize(std::clamp<std::size_t>(octets.size(), rule.least,
                                              std::min<std::size_t>(rule.most, rule.least + 8)));
        if ((identifier == 0x00 || identifier == 0x08) && random.Chance(80)) {
            const int total = Uniform(random, 1, 6);
            octets.end()[-2] = static_cast<std::uint8_t>(total);
            octets.back() = static_cast<std::uint8_t>(Uniform(random, 1, total));
        }
    }
    return HeaderElement(identifier, octets);
}

Octets RandomHeader(Random& random) {
    Octets elements;
    for (int count = random.Chance(60) ? 1 : Uniform(random, 0, 5); count > 0; --count)
        elements = Join({elements, RandomElement(random)});
    if (random.Chance(5) && !elements.empty())
        elements[random.Below(static_cast<std::uint32_t>(elements.size()))] = random.Octet();
    if (random.Chance(3))
        elements.push_back(random.Octet());
    int length = static_cast<int>(elements.size());
    if (random.Chance(3))
        length = Uniform(random, 0, 255);
    return Join({One(length), elements});
}

Octets RandomUnits(Random& random, int count) {
    Octets octets;
    for (int i = 0; i < count; ++i) {
        const int kind = Uniform(random, 0, 99);
        const int unit = kind < 50   ? Uniform(random, 0x20, 0x7E)
                         : kind < 70 ? Uniform(random, 0, 0xFFFF)
                         : kind < 85 ? Uniform(random, 0xD800, 0xDBFF)
                                     : Uniform(random, 0xDC00, 0xDFFF);
        octets.push_back(static_cast<std::uint8_t>(unit >> 8));
        octets.push_back(static_cast<std::uint8_t>(unit));
    }
    return octets;
}

/// TP-UDL and TP-UD in a coding.
Octets RandomData(Random& random, int coding, bool headed) {
    const Octets header = headed ? RandomHeader(random) : Octets();
    const Coding& rule = TheTables().coding.at(static_cast<std::size_t>(coding));
    Octets data;
    if (rule.alphabet == "gsm7" && !rule.compressed)
        data = SeptetData(header, RandomSeptets(random, Uniform(random, 0, random.Chance(90) ? 40 : 170)));
    else if (rule.alphabet == "ucs2")
        data = OctetData(header, RandomUnits(random, Uniform(random, 0, random.Chance(90) ? 20 : 75)));
    else
        data = OctetData(header, RandomOctets(random, random.Chance(90) ? 30 : 150));
    if (random.Chance(5))
        data[0] = random.Octet();
    if (data.size() > 1 && random.Chance(3))
        data.back() = random.Octet();
    return data;
}

int RandomCoding(Random& random) {
    static const std::vector<int> common = {0x00, 0x00, 0x00, 0x04, 0x08, 0x08, 0x10, 0x18, 0xF1};
    return random.Chance(60) ? random.Of(common) : Uniform(random, 0, 255);
}

int RandomProtocol(Random& random) {
    return random.Chance(60) ? 0 : Uniform(random, 0, 255);
}

/// TP-PI and what it tells of.
Octets RandomOptional(Random& random, bool headed, const Octets& between) {
    const int indicator = random.Chance(90) ? Uniform(random, 0, 7) : Uniform(random, 0, 255);
    Octets octets = One(indicator);
    for (int last = indicator; (last & 0x80) != 0; octets.push_back(static_cast<std::uint8_t>(last)))
        last = random.Chance(80) ? Uniform(random, 0, 127) : Uniform(random, 128, 255);
    octets = Join({octets, between});
    const int coding = (indicator & 2) != 0 ? RandomCoding(random) : 0;
    if ((indicator & 1) != 0)
        octets.push_back(static_cast<std::uint8_t>(RandomProtocol(random)));
    if ((indicator & 2) != 0)
        octets.push_back(static_cast<std::uint8_t>(coding));
    if ((indicator & 4) != 0)
        octets = Join({octets, RandomData(random, coding, headed)});
    return octets;
}

Octets RandomCause(Random& random) {
    if (random.Chance(50))
        return {};
    return One(random.Chance(95) ? Uniform(random, 0x80, 0xFF) : Uniform(random, 0, 0x7F));
}

// ---- types
// -----------------------------------------------------------------------------------------------------

/// A first octet of this TP-MTI; bits that the type does not use are rarely set.
int RandomFirst(Random& random, int type, int unused) {
    int first = type | Uniform(random, 0, 255) << 2;
    if (!random.Chance(5))
        first &= ~unused;
    if (random.Chance(60))
        first &= ~0x40;
    return first & 0xFF;
}

Octets RandomDeliver(Random& random) {
    const int first = RandomFirst(random, random.Chance(97) ? 0 : 3, 0x10), coding = RandomCoding(random);
    return Join({One(first), RandomAddress(random), One(RandomProtocol(random)), One(coding),
                 RandomTime(random), RandomData(random, coding, (first & 0x40) != 0)});
}

Octets RandomSubmit(Random& random) {
    const int first = RandomFirst(random, 1, 0), coding = RandomCoding(random);
    return Join({One(first), One(random.Octet()), RandomAddress(random), One(RandomProtocol(random)),
                 One(coding), RandomValidity(random, first >> 3 & 3),
                 RandomData(random, coding, (first & 0x40) != 0)});
}

Octets RandomStatusReport(Random& random) {
    const int first = RandomFirst(random, 2, 0x90);
    const Octets fixed = Join({One(first), One(random.Octet()), RandomAddress(random), RandomTime(random),
                               RandomTime(random), One(random.Octet())});
    return random.Chance(40) ? fixed : Join({fixed, RandomOptional(random, (first & 0x40) != 0, {})});
}

Octets RandomCommand(Random& random) {
    const int first = RandomFirst(random, 2, 0x9C);
    const Octets header = (first & 0x40) != 0 ? RandomHeader(random) : Octets();
    Octets data = OctetData(header, RandomOctets(random, 20));
    if (random.Chance(5))
        data[0] = random.Octet();
    return Join({One(first), One(random.Octet()), One(RandomProtocol(random)),
                 One(random.Chance(70) ? Uniform(random, 0, 3) : Uniform(random, 0, 255)),
                 One(random.Octet()), RandomAddress(random), data});
}

Octets RandomReport(Random& random, int type) {
    const int first = RandomFirst(random, type, 0xBC);
    const Octets time = type == 1 ? RandomTime(random) : Octets();
    return Join({One(first), RandomCause(random), RandomOptional(random, (first & 0x40) != 0, time)});
}

/// Makes something wrong of octets.
void Damage(Random& random, Octets& octets) {
    const auto anywhere = [&] { return random.Below(static_cast<std::uint32_t>(octets.size())); };
    switch (random.Below(4)) {
    case 0:
        octets.resize(random.Below(static_cast<std::uint32_t>(octets.size()) + 1));
        break;
    case 1:
        octets = Join({octets, RandomOctets(random, 5)});
        break;
    case 2:
        for (std::uint32_t flips = random.Between(1, 4); flips > 0 && !octets.empty(); --flips)
            octets[anywhere()] ^= static_cast<std::uint8_t>(1U << random.Below(8));
        break;
    default:
        if (!octets.empty())
            octets[anywhere()] = random.Octet();
    }
}

Known RandomlyTold(Random& random, bool truth) {
    if (random.Chance(30))
        return Known::UNKNOWN;
    return (random.Chance(95) ? truth : !truth) ? Known::YES : Known::NO;
}

} // namespace

Octets RandomTpdu(Random& random, Direction& direction) {
    switch (random.Below(10)) {
    case 0:
        direction = Direction::FROM_MOBILE;
        return RandomReport(random, 0);
    case 1:
        direction = Direction::TO_MOBILE;
        return RandomReport(random, 1);
    case 2:
        direction = Direction::TO_MOBILE;
        return RandomStatusReport(random);
    case 3:
        direction = Direction::FROM_MOBILE;
        return RandomCommand(random);
    case 4:
    case 5:
    case 6:
        direction = Direction::FROM_MOBILE;
        return RandomSubmit(random);
    default:
        direction = Direction::TO_MOBILE;
        return RandomDeliver(random);
    }
}

Input RandomInput(Random& random) {
    Input input;
    Direction direction = Direction::TO_MOBILE;
    Octets tpdu = random.Chance(96) ? RandomTpdu(random, direction) : RandomOctets(random, 60);
    const bool centre = random.Chance(50);
    input.octets = centre ? Join({RandomCentre(random), tpdu}) : tpdu;
    const std::size_t length = tpdu.size();
    for (std::uint32_t times = random.Chance(30) ? random.Between(1, 3) : 0; times > 0; --times)
        Damage(random, input.octets);
    input.centre = RandomlyTold(random, centre);
    if (random.Chance(60))
        input.direction = direction;
    else if (random.Chance(20))
        input.direction = direction == Direction::TO_MOBILE ? Direction::FROM_MOBILE : Direction::TO_MOBILE;
    if (random.Chance(20))
        input.announced = random.Chance(80) ? length : random.Below(200);
    if (random.Chance(20))
        input.failureCause = random.Chance(50) ? Known::YES : Known::NO;
    return input;
}

} // namespace plain
