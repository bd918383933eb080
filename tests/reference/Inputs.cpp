#include "Inputs.h"

#include <algorithm>

namespace reference {

using model::Octets;
using model::Text;

namespace {

void Append(Octets& octets, const Octets& more) {
    for (const std::uint8_t octet : more)
        octets.push_back(octet);
}

// ---- Texts

enum Kind { Gsm, Extension, Greek, Foreign, Surrogate, Control, BeyondUcs2, Anything, KindCount };

char32_t CharacterOf(Random& random, Kind kind) {
    static const std::u32string gsm = U"@£$¥èéùìòç\nØø\rÅåΔ_ΦΓΛΩΠΨΣΘΞÆæßÉ !\"#¤%&'()*+,-./0123456789:;<=>?"
                                      U"¡ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÑÜ§¿abcdefghijklmnopqrstuvwxyzäöñüà";
    static const std::u32string extension = U"\f^{}\\[~]|€";
    static const std::u32string foreign =
        U"\u00A0\u00A8\u00C7\u0060\u00FF\u0100\u0101\u0384\u0385\u4E2D\uFEFF\uFFFE\uFFFF"
        U"\u00B5\u00D7ŁŃćśż";
    switch (kind) {
    case Gsm:
        return gsm[random.Below(static_cast<std::uint32_t>(gsm.size()))];
    case Extension:
        return extension[random.Below(static_cast<std::uint32_t>(extension.size()))];
    case Greek:
        return random.Between(0x0380, 0x03CF);
    case Foreign:
        return foreign[random.Below(static_cast<std::uint32_t>(foreign.size()))];
    case Surrogate:
        return random.Between(0xD800, 0xDFFF);
    case Control:
        return random.Chance(90) ? random.Below(0x20) : random.Between(0x7F, 0x9F);
    case BeyondUcs2:
        // The low 16 bits are often those of an ordinary character.
        return random.Between(1, 0x7FFF) * 0x10000 + CharacterOf(random, random.Chance(70) ? Gsm : Foreign);
    default:
        return random.Below(0x10000);
    }
}

Kind RandomKind(Random& random) {
    return static_cast<Kind>(random.Below(KindCount));
}

std::uint32_t RandomTextLength(Random& random) {
    // Lengths around which a text needs one part more, in characters, septets and pairs of septets.
    static const std::vector<std::uint32_t> limits = {0,   1,   35,  67,  70,  76,  80,
                                                      134, 153, 160, 201, 268, 306, 459};
    const std::uint32_t roll = random.Below(100);
    if (roll < 45)
        return random.Below(40);
    if (roll < 85)
        return random.Of(limits) + random.Below(3);
    if (roll < 99)
        return random.Below(500);
    return random.Below(3000);
}

Text TextOfLength(Random& random, std::uint32_t length) {
    Text text;
    const std::uint32_t roll = random.Below(100);
    if (roll < 15) {
        const Kind kind = RandomKind(random);
        while (text.size() < length)
            text += CharacterOf(random, kind);
    } else if (roll < 70) {
        // GSM characters with at most one other kind strewn in.
        const Kind other = RandomKind(random);
        const unsigned int percent = random.Chance(30) ? 0 : random.Chance(50) ? 2 : 30;
        while (text.size() < length)
            text += CharacterOf(random, random.Chance(percent) ? other : Gsm);
    } else if (roll < 85) {
        while (text.size() < length)
            text += CharacterOf(random, random.Chance(50) ? Greek : random.Chance(80) ? Gsm : Extension);
    } else {
        while (text.size() < length)
            text += CharacterOf(random, RandomKind(random));
    }
    return text;
}

} // namespace

Text RandomText(Random& random) {
    return TextOfLength(random, RandomTextLength(random));
}

Text RandomShortText(Random& random) {
    return TextOfLength(random, random.Below(random.Chance(90) ? 24 : 200));
}

std::uint16_t RandomCharacter(Random& random) {
    return model::Low16(CharacterOf(random, RandomKind(random)));
}

Octets RandomGsmCodes(Random& random) {
    static const std::vector<std::uint8_t> extension = {0x0A, 0x14, 0x28, 0x29, 0x2F, 0x3C,
                                                        0x3D, 0x3E, 0x40, 0x65, 0x0D, 0x1B};
    Octets codes;
    const std::uint32_t length = random.Below(random.Chance(80) ? 24 : 200);
    const bool hasStray = random.Chance(25);
    while (codes.size() < length) {
        const std::uint32_t roll = random.Below(100);
        if (roll < 15)
            codes.push_back(0x1B);
        else if (roll < 35)
            codes.push_back(random.Of(extension));
        else if (roll < 45 && hasStray)
            codes.push_back(static_cast<std::uint8_t>(random.Between(0x80, 0xFF)));
        else
            codes.push_back(static_cast<std::uint8_t>(random.Below(0x80)));
    }
    return codes;
}

std::string RandomHexText(Random& random, std::uint32_t maxLength) {
    static const std::vector<std::string> sets = {"0123456789", "0123456789ABCDEF", "0123456789abcdef",
                                                  "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ",
                                                  "0123456789ABCDEFabcdef@`/:gG "};
    const std::string& set = random.Of(sets);
    const std::uint32_t length =
        random.Chance(60) ? random.Below(maxLength / 4 + 1) * 4 : random.Below(maxLength + 1);
    const unsigned int noise = random.Chance(70) ? 0 : 3;
    std::string text;
    while (text.size() < length)
        text += random.Chance(noise) ? static_cast<char>(random.Octet())
                                     : set[random.Below(static_cast<std::uint32_t>(set.size()))];
    return text;
}

Text RandomNumber(Random& random) {
    static const std::u32string others = U"+*# -()/.abcXYZ:;<=>?\u0660\uFF11\U00010030\0";
    const std::uint32_t roll = random.Below(100);
    const std::uint32_t length = roll < 80   ? random.Below(16)
                                 : roll < 95 ? random.Below(60)
                                             : random.Between(490, 530);
    const unsigned int strewn = random.Chance(50) ? 0 : 20;
    Text number;
    if (random.Chance(50))
        number += U'+';
    while (number.size() < length) {
        if (random.Chance(strewn))
            number +=
                random.Chance(40) ? U'+' : others[random.Below(static_cast<std::uint32_t>(others.size()))];
        else
            number += U'0' + random.Below(10);
    }
    return number;
}

std::vector<int> RandomTables(Random& random) {
    std::vector<int> tables;
    const std::uint32_t roll = random.Below(100);
    if (roll < 45)
        return tables;
    if (roll < 75)
        return {1};
    const std::uint32_t count = random.Below(4);
    while (tables.size() < count)
        tables.push_back(random.Chance(90) ? static_cast<int>(random.Below(3)) : random.Number());
    return tables;
}

// ---- PDUs

Octets RandomOctets(Random& random, std::uint32_t maxLength) {
    Octets octets(random.Below(maxLength + 1));
    for (std::uint8_t& octet : octets)
        octet = random.Octet();
    return octets;
}

model::Pdu PduOfOctets(Random& random, const Octets& octets) {
    model::Pdu pdu = model::Pdu::FromOctets(octets, static_cast<std::uint32_t>(octets.size()));
    if (random.Chance(10)) {
        for (std::size_t i = pdu.m_Length; i < pdu.m_Bytes.size(); ++i)
            pdu.m_Bytes[i] = random.Octet();
    }
    if (random.Chance(3)) {
        static const std::vector<std::uint32_t> lengths = {511,  512,        513,        600,
                                                           1500, 0x80000006, 0xFFFFFFFE, 0xFFFFFFFF};
        pdu.m_Length = random.Of(lengths);
    }
    return pdu;
}

namespace {

std::uint8_t SemiOctets(std::uint32_t number) {
    return static_cast<std::uint8_t>(number % 10 * 16 + number / 10);
}

/// Type of address and digits; the number of semi-octets that they hold.
struct Address {
    Octets octets;
    std::uint32_t semiOctets;
};

Address RandomAddress(Random& random) {
    static const std::vector<std::uint8_t> types = {0x91, 0x91, 0x91, 0x81, 0xA1, 0xD0, 0xD0, 0xF1,
                                                    0x83, 0x84, 0x98, 0x99, 0x9A, 0x9F, 0x50, 0x11};
    Address address;
    address.octets.push_back(random.Chance(90) ? random.Of(types) : random.Octet());
    const std::uint32_t roll = random.Below(100);
    address.semiOctets = roll < 70 ? random.Below(16) : roll < 92 ? random.Below(40) : random.Below(256);
    const bool isText = (address.octets[0] & 0x70) == 0x50;
    for (std::uint32_t i = 0; i < address.semiOctets; i += 2) {
        if (isText || random.Chance(5))
            address.octets.push_back(random.Chance(95) ? random.Octet() : std::uint8_t{0});
        else
            address.octets.push_back(static_cast<std::uint8_t>(random.Below(10) + random.Below(10) * 16));
    }
    if (address.semiOctets % 2 == 1 && !isText)
        address.octets.back() |= 0xF0;
    return address;
}

Octets AddressField(Random& random, bool semiOctets) {
    const Address address = RandomAddress(random);
    std::size_t length = semiOctets ? address.semiOctets : address.octets.size();
    if (random.Chance(3))
        length = random.Octet();
    Octets field = {model::Low8(static_cast<std::int64_t>(length))};
    if (semiOctets || random.Chance(90))
        Append(field, address.octets);
    else
        field[0] = 0; // no service centre
    return field;
}

Octets TimeStampField(Random& random) {
    Octets field = {SemiOctets(random.Below(100)),     SemiOctets(random.Between(0, 12)),
                    SemiOctets(random.Between(0, 31)), SemiOctets(random.Between(0, 24)),
                    SemiOctets(random.Below(60)),      SemiOctets(random.Below(60))};
    field.push_back(random.Chance(60) ? SemiOctets(random.Below(60)) : random.Octet());
    if (random.Chance(20))
        field[random.Below(7)] = random.Octet();
    if (random.Chance(5))
        field[random.Between(1, 5)] = SemiOctets(random.Of(std::vector<std::uint32_t>{13, 25, 32, 60, 99}));
    return field;
}

Octets InformationElement(Random& random) {
    static const std::vector<std::uint8_t> identifiers = {0x00, 0x00, 0x00, 0x08, 0x08, 0x01, 0x05, 0x24};
    const std::uint8_t identifier = random.Chance(95) ? random.Of(identifiers) : random.Octet();
    std::uint32_t length = identifier == 0x00   ? 3
                           : identifier == 0x08 ? 4
                           : identifier == 0x01 ? 2
                                                : random.Below(8);
    if (random.Chance(6))
        length = random.Below(8);
    Octets element = {identifier, static_cast<std::uint8_t>(length)};
    while (element.size() < length + 2)
        element.push_back(random.Chance(50) ? random.Octet() : static_cast<std::uint8_t>(random.Below(10)));
    return element;
}

Octets UserDataHeader(Random& random) {
    Octets elements;
    const std::uint32_t count = random.Chance(65) ? 1 : random.Below(4);
    for (std::uint32_t i = 0; i < count; ++i)
        Append(elements, InformationElement(random));
    std::size_t length = elements.size();
    if (random.Chance(6))
        length += random.Below(5);
    else if (random.Chance(6))
        length -= std::min<std::size_t>(length, random.Below(5));
    Octets header = {static_cast<std::uint8_t>(length)};
    Append(header, elements);
    return header;
}

/// TP-UDL and the user data, the header included.
Octets UserData(Random& random, bool hasHeader, bool is7Bit) {
    Octets data;
    if (hasHeader)
        data = UserDataHeader(random);
    Append(data, RandomOctets(random, random.Chance(70) ? 20 : 140));
    std::size_t length = is7Bit ? data.size() * 8 / 7 : data.size();
    if (random.Chance(10))
        length = random.Octet();
    else if (random.Chance(20))
        length += random.Below(3);
    else if (random.Chance(20))
        length -= std::min<std::size_t>(length, random.Below(9));
    Octets octets = {model::Low8(static_cast<std::int64_t>(length))};
    Append(octets, data);
    return octets;
}

std::uint8_t RandomDcs(Random& random) {
    static const std::vector<std::uint8_t> codings = {0x00, 0x00, 0x04, 0x08, 0x08, 0x0C, 0x10,
                                                      0x13, 0x15, 0x19, 0x20, 0x48, 0xC8, 0xD1,
                                                      0xE0, 0xE8, 0xF0, 0xF1, 0xF4, 0xF6};
    return random.Chance(75) ? random.Of(codings) : random.Octet();
}

Octets MessageOctets(Random& random, bool noSmsc) {
    Octets octets;
    if (!noSmsc)
        octets = AddressField(random, false);
    static const std::vector<std::uint8_t> types = {0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 3};
    const std::uint8_t type = random.Of(types);
    auto first = static_cast<std::uint8_t>((random.Octet() & 0xBC) | type);
    if (random.Chance(40))
        first |= 0x40;
    octets.push_back(first);

    const bool isDeliver = type == 0;
    const bool isSubmit = type == 1;
    if (isSubmit || type == 2)
        octets.push_back(random.Octet());
    Append(octets, AddressField(random, true));
    std::uint8_t dcs = 0;
    if (isSubmit || isDeliver) {
        dcs = RandomDcs(random);
        Append(octets, {random.Octet(), dcs});
    }
    if (isDeliver || type == 2)
        Append(octets, TimeStampField(random));
    if (type == 2) {
        static const std::vector<std::uint8_t> outcomes = {0x00, 0x02, 0x20, 0x25, 0x26,
                                                           0x40, 0x44, 0x49, 0x4A, 0x60};
        Append(octets, TimeStampField(random));
        octets.push_back(random.Chance(50) ? random.Of(outcomes)
                                           : static_cast<std::uint8_t>(random.Below(0x70)));
    }
    if (isSubmit && (first & 0x18) == 0x10)
        octets.push_back(random.Octet());
    if (isSubmit && (first & 0x18) == 0x18)
        Append(octets, TimeStampField(random));
    if (isSubmit || isDeliver || random.Chance(30))
        Append(octets, UserData(random, (first & 0x40) != 0, (dcs & 0x0C) == 0));
    return octets;
}

/// What a line or an attacker makes of a message.
void Alter(Random& random, Octets& octets) {
    const std::uint32_t roll = random.Below(100);
    if (roll < 62 || octets.empty())
        return;
    const auto size = static_cast<std::uint32_t>(octets.size());
    if (roll < 80) {
        octets.resize(random.Chance(50) ? random.Below(size + 1)
                                        : size - std::min(size, random.Between(1, 3)));
    } else if (roll < 92) {
        for (std::uint32_t flips = random.Between(1, 4); flips > 0; --flips)
            octets[random.Below(size)] ^= static_cast<std::uint8_t>(1U << random.Below(8));
    } else {
        Append(octets, RandomOctets(random, random.Chance(80) ? 4 : 400));
    }
}

} // namespace

Message RandomMessage(Random& random) {
    const bool noSmsc = random.Chance(40);
    Octets octets = MessageOctets(random, noSmsc);
    if (random.Chance(4))
        octets = RandomOctets(random, 200);
    else
        Alter(random, octets);
    return {PduOfOctets(random, octets), random.Chance(97) ? noSmsc : !noSmsc};
}

model::Pdu RandomAddressPdu(Random& random, std::uint32_t& offset, bool semiOctets) {
    Octets octets = RandomOctets(random, random.Chance(80) ? 12 : random.Chance(80) ? 100 : 600);
    offset = static_cast<std::uint32_t>(octets.size());
    Append(octets, AddressField(random, semiOctets));
    // The field is the last thing in the PDU, or not.
    if (random.Chance(70))
        Append(octets, RandomOctets(random, 4));
    Alter(random, octets);
    static const std::vector<std::uint32_t> farOffsets = {511,        512,        0x7FFFFFFF, 0x80000000,
                                                          0xFFFFFF00, 0xFFFFFFFE, 0xFFFFFFFF};
    if (random.Chance(4))
        offset = random.Chance(50) ? random.Of(farOffsets) : random.Below(600);
    return PduOfOctets(random, octets);
}

model::Pdu RandomTimeStampPdu(Random& random, std::uint32_t& offset) {
    Octets octets = RandomOctets(random, random.Chance(90) ? 20 : 600);
    offset = static_cast<std::uint32_t>(octets.size());
    Append(octets, TimeStampField(random));
    if (random.Chance(90))
        Append(octets, RandomOctets(random, 3));
    Alter(random, octets);
    static const std::vector<std::uint32_t> farOffsets = {505,        506,        512,       0x80000000,
                                                          0xFFFFFFF8, 0xFFFFFFF9, 0xFFFFFFFF};
    if (random.Chance(4))
        offset = random.Chance(50) ? random.Of(farOffsets) : random.Below(600);
    return PduOfOctets(random, octets);
}

model::Pdu RandomPage(Random& random) {
    // Septets laid bit by bit: a text between paddings.
    static const std::vector<std::uint8_t> paddings = {0x0D, 0x0A, 0x20, 0x0D, 0x1B, 0x41};
    const std::uint32_t length = random.Chance(50)   ? 88
                                 : random.Chance(90) ? random.Below(100)
                                                     : random.Below(530);
    const std::uint32_t septets = length * 8 / 7 + 1;
    Octets codes;
    const std::uint32_t leading = random.Chance(60) ? 0 : random.Below(6);
    while (codes.size() < leading)
        codes.push_back(random.Of(paddings));
    const std::uint32_t end = random.Chance(20) ? septets : random.Below(septets + 1);
    while (codes.size() < end)
        codes.push_back(
            static_cast<std::uint8_t>(random.Chance(80) ? random.Between(0x20, 0x7A) : random.Below(0x80)));
    const std::uint8_t padding = random.Of(paddings);
    const bool mixed = random.Chance(40);
    while (codes.size() < septets)
        codes.push_back(mixed ? random.Of(paddings) : padding);

    Octets page = RandomOctets(random, 0);
    page.resize(length);
    for (std::uint32_t i = 0; i < length; ++i)
        page[i] = i < 6 ? random.Octet() : std::uint8_t{0};
    for (std::uint32_t bit = 0; bit < 7 * septets && 6 + bit / 8 < length; ++bit) {
        if ((codes.at(bit / 7) >> (bit % 7) & 1) != 0)
            page[6 + bit / 8] |= static_cast<std::uint8_t>(1U << bit % 8);
    }
    return PduOfOctets(random, page);
}

} // namespace reference
