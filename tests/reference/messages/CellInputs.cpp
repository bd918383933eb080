#include "CellInputs.h"

#include <algorithm>

#include "Compose.h"

namespace plain {

namespace {

using reference::Random;

Octets RandomOctets(Random& random, std::size_t count) {
    Octets octets(count);
    for (std::uint8_t& octet : octets)
        octet = random.Octet();
    return octets;
}

Octets RandomIdentifier(Random& random) {
    const std::uint32_t identifier = random.Chance(40) ? random.Between(4340, 4440) : random.Below(65536);
    return {static_cast<std::uint8_t>(identifier >> 8), static_cast<std::uint8_t>(identifier)};
}

std::uint8_t RandomCoding(Random& random) {
    static const std::vector<int> likely = {0x00, 0x01, 0x0F, 0x10, 0x11, 0x40, 0x44,
                                            0x48, 0x59, 0x90, 0x91, 0x94, 0x98, 0x9B};
    return random.Chance(80) ? static_cast<std::uint8_t>(random.Of(likely)) : random.Octet();
}

Septets RandomSeptets(Random& random, std::uint32_t most) {
    static const std::vector<int> odd = {0x1B, 0x0D, 0x00, 0x0A};
    Septets septets(random.Below(most + 1));
    for (int& septet : septets)
        septet = random.Chance(80) ? static_cast<int>(random.Between(0x20, 0x7F)) : random.Of(odd);
    return septets;
}

Octets RandomHeader(Random& random) {
    static const std::vector<int> identifiers = {0x00, 0x04, 0x05, 0x08, 0x24, 0x25, 0x26, 0x70};
    Octets elements;
    for (std::uint32_t count = random.Below(3); count != 0; --count) {
        const int identifier = random.Of(identifiers);
        const Octets data = identifier == 0x24 || identifier == 0x25 ? One(static_cast<int>(random.Below(16)))
                                                                     : RandomOctets(random, random.Below(5));
        elements = Join({elements, HeaderElement(identifier, data)});
    }
    const std::size_t length = random.Chance(90) ? elements.size() : random.Octet();
    return Join({One(static_cast<int>(length)), elements});
}

Octets RandomUnits(Random& random, std::uint32_t most) {
    Octets octets(2 * random.Below(most + 1));
    for (std::size_t i = 0; i < octets.size(); i += 2) {
        octets[i] = random.Chance(60) ? 0x04 : static_cast<std::uint8_t>(0xD8 + random.Below(8));
        octets[i + 1] = random.Octet();
    }
    return octets;
}

/// At most 82 octets.
Octets RandomContent(Random& random, std::uint8_t coding) {
    Octets content;
    if (coding >= 0x90 && coding <= 0x9F)
        content = RandomHeader(random);
    if (random.Chance(10)) {
        content = Join({content, RandomOctets(random, random.Below(83))});
    } else if (coding == 0x11 || coding == 0x48 || coding == 0x59 || coding == 0x98 || coding == 0x9B) {
        if (coding == 0x11 && random.Chance(70))
            content = Packed(
                {static_cast<int>(random.Between('`', '{')), static_cast<int>(random.Between('`', '{'))});
        content = Join({content, RandomUnits(random, 41)});
    } else {
        Septets septets = RandomSeptets(random, 93);
        if (coding == 0x10 && random.Chance(70)) {
            const Septets language = {static_cast<int>(random.Between('@', '{')),
                                      static_cast<int>(random.Between('@', '{')), 0x0D};
            septets.insert(septets.begin(), language.begin(), language.end());
        }
        content = Join({content, Packed(septets, static_cast<int>((7 - 8 * content.size() % 7) % 7))});
    }
    if (random.Chance(50)) {
        static const std::vector<int> fillings = {0x0D, 0x00, 0x2B};
        const auto filling = static_cast<std::uint8_t>(random.Of(fillings));
        if (filling == 0x0D)
            content = Join({content, Packed(Septets(random.Below(94), 0x0D))});
        else
            content.resize(std::max<std::size_t>(content.size(), random.Below(83)), filling);
    }
    content.resize(std::min<std::size_t>(content.size(), 82));
    return content;
}

Octets RandomPage(Random& random) {
    const std::uint8_t coding = RandomCoding(random);
    const int parameter = random.Chance(70) ? 0x11 : static_cast<int>(random.Octet());
    return Join({RandomOctets(random, 2), RandomIdentifier(random), One(coding), One(parameter),
                 RandomContent(random, coding)});
}

Octets RandomMessage(Random& random) {
    const std::uint8_t coding = RandomCoding(random);
    const std::uint32_t pages = random.Chance(90) ? random.Between(1, 4) : random.Below(18);
    Octets octets = Join({One(1), RandomIdentifier(random), RandomOctets(random, 2), One(coding),
                          One(static_cast<int>(pages))});
    for (std::uint32_t page = 0; page < pages; ++page) {
        Octets content = RandomContent(random, coding);
        const std::size_t used = random.Chance(90) ? content.size() : random.Octet();
        content.resize(82, random.Chance(50) ? 0x00 : 0x2B);
        octets = Join({octets, content, One(static_cast<int>(used))});
    }
    return octets;
}

Octets RandomNotification(Random& random) {
    Octets time = SomeTime();
    if (random.Chance(30))
        time = RandomOctets(random, 7);
    const int low = random.Chance(90) ? 0x80 : static_cast<int>(random.Octet());
    return Join({RandomOctets(random, 2), Octets{0x11, static_cast<std::uint8_t>(random.Below(9))},
                 One(static_cast<int>(random.Below(random.Chance(80) ? 16 : 256))), One(low), time,
                 RandomOctets(random, 43)});
}

} // namespace

CellInput RandomCellInput(Random& random) {
    static const std::vector<std::string> formats = {"gsm", "umts", "etws"};
    const std::string format = random.Of(formats);
    CellInput input;
    input.octets = format == "gsm"    ? RandomPage(random)
                   : format == "umts" ? RandomMessage(random)
                                      : RandomNotification(random);
    if (random.Chance(3))
        input.octets = RandomOctets(random, random.Below(200));
    if (random.Chance(15))
        input.octets.resize(random.Below(static_cast<std::uint32_t>(input.octets.size()) + 1));
    else if (random.Chance(5))
        input.octets = Join({input.octets, RandomOctets(random, 1 + random.Below(100))});
    if (!input.octets.empty() && random.Chance(10))
        input.octets[random.Below(static_cast<std::uint32_t>(input.octets.size()))] = random.Octet();
    if (random.Chance(60))
        input.format = random.Chance(90) ? format : random.Of(formats);
    return input;
}

} // namespace plain
