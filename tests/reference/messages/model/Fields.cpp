#include "model/Fields.h"

#include <algorithm>
#include <array>

#include "model/Codes.h"
#include "model/Tables.h"
#include "model/Text.h"

namespace plain {

namespace {

constexpr int c_alphanumeric = 5;
constexpr int c_mostDigits = 20;

int Low(std::uint8_t octet) {
    return octet & 0x0F;
}
int High(std::uint8_t octet) {
    return octet >> 4;
}

Octets From(const Octets& octets, std::size_t first) {
    return {octets.begin() + static_cast<std::ptrdiff_t>(first), octets.end()};
}

bool IsReservedPlan(int plan) {
    static const std::vector<Row> plans = ReadTable("numbering-plans");
    return std::any_of(plans.begin(), plans.end(), [plan](const Row& row) {
        return plan >= std::stoi(row.at("from")) && plan <= std::stoi(row.at("to")) &&
               row.at("name").rfind("reserved", 0) == 0;
    });
}

void ReadTypeOfAddress(std::uint8_t octet, Address& address, Remarks& remarks) {
    address.ton = octet >> 4 & 0x07;
    address.npi = octet & 0x0F;
    if ((octet & 0x80) == 0)
        remarks(code::EXTENSION_BIT_CLEAR, 1);
    if (address.ton == 7)
        remarks(code::RESERVED_TYPE_OF_NUMBER, 1);
    if (IsReservedPlan(address.npi))
        remarks(code::RESERVED_NUMBERING_PLAN, 1, static_cast<std::size_t>(address.npi));
}

/// Digits of semi-octets; the first of the octets is the third of the field.
std::string Digits(const Octets& octets, int count, Remarks& remarks) {
    static const std::string characters = "0123456789*#abc";
    if (count % 2 != 0 && High(octets.back()) != 0x0F)
        remarks(code::FILLER_MISSING, 1 + octets.size(), static_cast<std::size_t>(High(octets.back())));
    std::string digits;
    for (int i = 0; i < count; ++i) {
        const auto at = static_cast<std::size_t>(i) / 2;
        const int digit = i % 2 == 0 ? Low(octets[at]) : High(octets[at]);
        if (digit == 0x0F) {
            if (i + 1 < count)
                remarks(code::FILLER_INSIDE, 2 + at, static_cast<std::size_t>(i));
            break;
        }
        digits += characters[static_cast<std::size_t>(digit)];
    }
    return digits;
}

std::string Letters(const Octets& octets, int length, Remarks& remarks) {
    const auto septets = static_cast<std::size_t>(length) * 4 / 7;
    Remarks onText = remarks.From(2);
    std::string text = SeptetText(octets, 0, septets, 0, 0,
                                  [&](std::string_view code, std::size_t bit, std::size_t number,
                                      std::size_t other) { onText(code, bit / 8, number, other); });
    // Eight septets fill seven octets: a sender of seven has seven bits over.
    if (septets > 0 && septets % 8 == 0) {
        const std::size_t last = septets / 8 * 7 - 1;
        if (octets[last] >> 1 == 0)
            remarks(code::POSSIBLE_FILLING, 2 + last);
    }
    for (std::size_t bit = 7 * septets; bit < 8 * octets.size(); ++bit)
        if ((octets[bit / 8] >> bit % 8 & 1) != 0) {
            remarks(code::ADDRESS_BITS_LEFT, 2 + 7 * septets / 8);
            break;
        }
    return text;
}

/// A number in two semi-octets, the tens first; those above 9 count 0.
int Decimal(const Octets& octets, std::size_t at, Remarks& remarks) {
    const int tens = Low(octets[at]), units = High(octets[at]);
    if (tens > 9 || units > 9)
        remarks(code::TIME_SEMI_OCTET, at, at);
    return (tens > 9 ? 0 : tens) * 10 + (units > 9 ? 0 : units);
}

/// Minutes east of UTC: quarters of an hour, the tens first, with the sign in the tens' highest bit.
int Zone(const Octets& octets, std::size_t at, Remarks& remarks) {
    const int tens = octets[at] & 0x07, units = High(octets[at]);
    if (units > 9)
        remarks(code::TIME_SEMI_OCTET, at, at);
    const int minutes = 15 * (tens * 10 + units);
    return (octets[at] & 0x08) != 0 ? -minutes : minutes;
}

int DaysOf(int month, int year) {
    if (month == 2)
        return year % 4 == 0 ? 29 : 28; // from 2000 to 2099
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

int ValueOf(const std::vector<Named>& values, std::string_view name) {
    for (const Named& value : values)
        if (value.first == name)
            return value.second;
    return 0;
}

bool AllZero(const Octets& octets) {
    return std::all_of(octets.begin(), octets.end(), [](std::uint8_t octet) { return octet == 0; });
}

int RelativeSeconds(int value) {
    for (const Relative& range : TheTables().relative)
        if (value >= range.from && value <= range.to)
            return 60 * (range.first + (value - range.from) * range.step);
    return 0;
}

void ReadEnhanced(const Octets& field, Validity& validity, Remarks& remarks) {
    static const std::array<const char*, 8> kinds = {"none",     "relative", "seconds",  "clock",
                                                     "reserved", "reserved", "reserved", "reserved"};
    const int indicator = field[0], format = indicator & 0x07;
    validity.singleShot = (indicator & 0x40) != 0;
    if ((indicator & 0x38) != 0 || format > 3)
        remarks(code::RESERVED_VALIDITY, 0, static_cast<std::size_t>(indicator));
    validity.kind = kinds.at(static_cast<std::size_t>(format));
    // What another indicator would say of the octets after it, the standard leaves to later editions.
    if ((indicator & 0x80) != 0) {
        remarks(code::VALIDITY_EXTENSION, 0, static_cast<std::size_t>(indicator));
        return;
    }
    std::size_t used = 1;
    switch (format) {
    case 1:
        validity.seconds = RelativeSeconds(field[1]);
        used = 2;
        break;
    case 2:
        if (field[1] == 0)
            remarks(code::VALIDITY_SECONDS_ZERO, 1);
        else
            validity.seconds = field[1];
        used = 2;
        break;
    case 3: {
        const int hours = Decimal(field, 1, remarks), minutes = Decimal(field, 2, remarks),
                  seconds = Decimal(field, 3, remarks);
        if (minutes > 59)
            remarks(code::TIME_OUT_OF_RANGE, 2, 2);
        if (seconds > 59)
            remarks(code::TIME_OUT_OF_RANGE, 3, 3);
        if (minutes <= 59 && seconds <= 59)
            validity.seconds = (hours * 60 + minutes) * 60 + seconds;
        used = 4;
        break;
    }
    default:
        break;
    }
    for (std::size_t i = used; i < field.size(); ++i)
        if (field[i] != 0) {
            remarks(code::VALIDITY_OCTETS_SET, i);
            break;
        }
}

/// What an element of the right length holds, as numbers; nothing where it is only octets.
std::vector<Named> ElementValues(int identifier, const Octets& octets) {
    const auto at = [&octets](std::size_t i) { return int{octets[i]}; };
    const auto two = [&octets](std::size_t i) { return octets[i] << 8 | octets[i + 1]; };
    switch (identifier) {
    case 0x00:
        return {{"reference", at(0)}, {"total", at(1)}, {"part", at(2)}};
    case 0x08:
        return {{"reference", two(0)}, {"total", at(2)}, {"part", at(3)}};
    case 0x01:
        return {{"store", at(0) >> 7},
                {"profile", (at(0) >> 5 & 3) + 1},
                {"extended", at(0) >> 2 & 7},
                {"kind", at(0) & 3},
                {"count", at(1)}};
    case 0x04:
        return {{"destination", at(0)}, {"source", at(1)}};
    case 0x05:
        return {{"destination", two(0)}, {"source", two(2)}};
    case 0x06:
        return {{"control", at(0)}};
    case 0x07:
        return {{"source", at(0)}};
    case 0x0A: {
        std::vector<Named> values = {{"start", at(0)},
                                     {"length", at(1)},
                                     {"alignment", at(2) & 3},
                                     {"size", at(2) >> 2 & 3},
                                     {"bold", at(2) >> 4 & 1},
                                     {"italic", at(2) >> 5 & 1},
                                     {"underlined", at(2) >> 6 & 1},
                                     {"struck", at(2) >> 7}};
        if (octets.size() == 4) {
            values.push_back({"foreground", at(3) & 15});
            values.push_back({"background", at(3) >> 4});
        }
        return values;
    }
    case 0x0B:
    case 0x0D:
        return {{"position", at(0)}, {"number", at(1)}};
    case 0x13:
        return {{"count", at(0)}};
    case 0x17:
        return {{"count", at(0)}, {"forbidden", at(1) & 1}};
    case 0x20:
        return {{"length", at(0)}};
    case 0x21:
        return {{"position", two(0)}, {"title", at(2)}, {"url", at(3)}};
    case 0x24:
    case 0x25:
        return {{"language", at(0)}};
    default:
        return {};
    }
}

/// Whether the elements fill the header to its last octet.
bool AddsUp(const Octets& header, Remarks& remarks) {
    std::size_t at = 0;
    while (at + 2 <= header.size()) {
        const std::size_t end = at + 2 + header[at + 1];
        if (end > header.size()) {
            remarks(code::HEADER_OVERRUN, at, end - header.size());
            return false;
        }
        at = end;
    }
    if (at < header.size())
        remarks(code::HEADER_LEFT_OVER, at, header.size() - at);
    return at == header.size();
}

/// Decodes one element, and takes from it what holds for the message: so the last of several does.
void ReadElement(Element& element, Reading& reading, Remarks remarks) {
    const auto identifier = static_cast<std::size_t>(element.identifier);
    const ElementRule& rule = TheTables().elements.at(identifier);
    const std::size_t size = element.octets.size();
    if (rule.reserved)
        remarks(code::RESERVED_ELEMENT, 0, identifier);
    bool fits = size >= rule.least && size <= rule.most;
    if (element.identifier == 0x22 && fits)
        fits = AddressOctets(element.octets[0]) == size;
    if (!fits) {
        remarks(code::ELEMENT_LENGTH, 0, identifier, size);
        return;
    }
    std::vector<Remark> unheard;
    element.values = ElementValues(element.identifier, element.octets);
    const auto value = [&element](std::string_view name) { return ValueOf(element.values, name); };
    switch (element.identifier) {
    case 0x00:
    case 0x08: {
        const int total = value("total"), part = value("part");
        if (total == 0 || part == 0 || part > total)
            remarks(code::CONCATENATION_INVALID, 0, static_cast<std::size_t>(part),
                    static_cast<std::size_t>(total));
        else
            reading.concatenation = {value("reference"), total, part, element.identifier == 0 ? 8 : 16};
        break;
    }
    case 0x04:
    case 0x05:
        reading.ports = {value("destination"), value("source"), element.identifier == 4 ? 8 : 16};
        break;
    case 0x22:
        // Of the address in it there are no remarks.
        element.address = ReadAddress(element.octets, Remarks(unheard, {}, 0));
        break;
    case 0x24:
    case 0x25: {
        const bool isSingle = element.identifier == 0x24;
        const int language = element.octets[0];
        const auto& tables = isSingle ? TheTables().single : TheTables().locking;
        const bool inSeptets = reading.coding.alphabet == "gsm7" && !reading.coding.compressed;
        if (language == 0 || !tables.contains(language))
            remarks(code::UNKNOWN_LANGUAGE, 0, static_cast<std::size_t>(language), identifier);
        else if (inSeptets)
            (isSingle ? reading.single : reading.locking) = language;
        break;
    }
    default:
        break;
    }
}

} // namespace

std::size_t AddressOctets(std::uint8_t length) {
    return std::size_t{2} + (std::size_t{length} + 1) / 2;
}

Address ReadAddress(const Octets& field, Remarks remarks) {
    Address address;
    address.length = field[0];
    address.octets = From(field, 2);
    ReadTypeOfAddress(field[1], address, remarks);
    if (address.length > c_mostDigits)
        remarks(code::ADDRESS_TOO_LONG, 0, field[0]);
    address.text = address.ton == c_alphanumeric ? Letters(address.octets, address.length, remarks)
                                                 : Digits(address.octets, address.length, remarks);
    return address;
}

Address ReadCentre(const Octets& field, Remarks remarks) {
    Address address;
    address.length = field[0];
    if (address.length == 0)
        return address;
    address.octets = From(field, 2);
    ReadTypeOfAddress(field[1], address, remarks);
    const int semiOctets = 2 * (address.length - 1);
    if (semiOctets > c_mostDigits)
        remarks(code::ADDRESS_TOO_LONG, 0, static_cast<std::size_t>(semiOctets));
    address.text = Digits(address.octets, semiOctets, remarks);
    return address;
}

Time ReadTime(const Octets& field, Remarks remarks) {
    Time time;
    time.octets = field;
    if (AllZero(field)) {
        remarks(code::TIME_ALL_ZERO, 0);
        return time;
    }
    const int year = 2000 + Decimal(field, 0, remarks), month = Decimal(field, 1, remarks),
              day = Decimal(field, 2, remarks), hour = Decimal(field, 3, remarks),
              minute = Decimal(field, 4, remarks), second = Decimal(field, 5, remarks);
    const int zone = Zone(field, 6, remarks);
    bool inRange = true;
    const auto check = [&](std::size_t octet, int value, int least, int most) {
        if (value < least || value > most) {
            remarks(code::TIME_OUT_OF_RANGE, octet, octet);
            inRange = false;
        }
    };
    check(1, month, 1, 12);
    check(2, day, 1, DaysOf(month, year));
    check(3, hour, 0, 23);
    check(4, minute, 0, 59);
    check(5, second, 0, 59);
    if (!inRange)
        return time;
    return {field, true, year, month, day, hour, minute, second, zone};
}

Validity ReadValidity(int format, const Octets& field, Remarks remarks) {
    Validity validity;
    validity.format = format;
    validity.octets = field;
    if (format == 2) {
        validity.kind = "relative";
        validity.seconds = RelativeSeconds(field[0]);
    } else if (format == 3) {
        validity.kind = "absolute";
        validity.time = ReadTime(field, remarks);
    } else if (format == 1) {
        ReadEnhanced(field, validity, remarks);
    }
    return validity;
}

void ReadHeader(const Octets& header, Reading& reading, Remarks remarks) {
    const auto place = [&](Name field, std::size_t at, std::size_t count) {
        reading.places.push_back({field, remarks.Base() + at, count});
    };
    reading.header = header;
    Remarks onElements = remarks.For(field::HEADER_ELEMENT);
    if (!AddsUp(header, onElements)) {
        reading.ignoresHeader = true;
        place(field::IGNORED_HEADER, 0, header.size());
        return;
    }
    std::size_t at = 0;
    while (at < header.size()) {
        const std::size_t length = header[at + 1];
        const auto first = header.begin() + static_cast<std::ptrdiff_t>(at + 2);
        place(field::HEADER_ELEMENT, at, 2 + length);
        Element element;
        element.identifier = header[at];
        element.octet = remarks.Base() + at;
        element.octets = Octets(first, first + static_cast<std::ptrdiff_t>(length));
        const ElementRule& rule = TheTables().elements.at(header[at]);
        const auto earlier = [&](int identifier) {
            return std::any_of(reading.elements.begin(), reading.elements.end(),
                               [&](const Element& other) { return other.identifier == identifier; });
        };
        Remarks onElement = remarks.For(field::HEADER_ELEMENT).From(at);
        if (rule.once && earlier(element.identifier))
            onElement(code::ELEMENT_REPEATED, 0, header[at]);
        if (rule.excludes >= 0 && earlier(rule.excludes))
            onElement(code::ELEMENTS_EXCLUSIVE, 0, header[at], static_cast<std::size_t>(rule.excludes));
        ReadElement(element, reading, onElement);
        reading.elements.push_back(element);
        at += 2 + length;
    }
}

} // namespace plain
