#include "Outgoing.h"

#include "Compose.h"

namespace plain {

namespace {

Octets PortElement(const PortPair& ports) {
    if (ports.isWide)
        return HeaderElement(0x05, Join({Word(ports.destination), Word(ports.source)}));
    return HeaderElement(0x04, Join({One(ports.destination), One(ports.source)}));
}

/// UTF-16, the high octet first.
Octets Units(const std::u32string& text) {
    Octets octets;
    for (const char32_t character : text) {
        const auto value = static_cast<int>(character);
        if (value < 0x10000)
            octets = Join({octets, Word(value)});
        else
            octets = Join({octets, Word(0xD800 + ((value - 0x10000) >> 10)),
                           Word(0xDC00 + ((value - 0x10000) & 0x3FF))});
    }
    return octets;
}

/// The elements of one part, in the order in which they are sent.
Octets ElementsOf(const Outgoing& outgoing, const Way& way, int part) {
    Octets elements;
    const int total = static_cast<int>(way.begins.size());
    if (total > 1 && outgoing.isWide)
        elements = HeaderElement(0x08, Join({Word(outgoing.reference), One(total), One(part)}));
    else if (total > 1)
        elements = HeaderElement(0x00, Join({One(outgoing.reference), One(total), One(part)}));
    if (outgoing.ports)
        elements = Join({elements, PortElement(*outgoing.ports)});
    elements = Join({elements, outgoing.elements});
    if (way.single != 0)
        elements = Join({elements, HeaderElement(0x24, One(way.single))});
    if (way.locking != 0)
        elements = Join({elements, HeaderElement(0x25, One(way.locking))});
    return elements;
}

} // namespace

std::optional<Sent> Send(const Outgoing& outgoing) {
    Space space;
    space.isWide = outgoing.isWide;
    space.elements = static_cast<int>(outgoing.elements.size());
    if (outgoing.ports)
        space.elements += outgoing.ports->isWide ? 6 : 4;
    const std::optional<Way> way = Cheapest(outgoing.text, outgoing.languages, space,
                                            outgoing.alphabet != "ucs2", outgoing.alphabet != "gsm7");
    if (!way || way->begins.size() > 255)
        return {};
    Sent sent{*way, way->isUcs2 ? 0x08 : 0x00, false, {}};
    if (outgoing.messageClass >= 0)
        sent.coding += 0x10 + outgoing.messageClass;
    for (std::size_t part = 0; part < way->begins.size(); ++part) {
        const std::size_t begin = way->begins[part];
        const std::size_t end = part + 1 < way->begins.size() ? way->begins[part + 1] : outgoing.text.size();
        const std::u32string text = outgoing.text.substr(begin, end - begin);
        const Octets elements = ElementsOf(outgoing, *way, static_cast<int>(part + 1));
        const Octets header = elements.empty() ? Octets{} : Header({elements});
        sent.hasHeader = !header.empty();
        sent.parts.push_back(way->isUcs2 ? OctetData(header, Units(text))
                                         : SeptetData(header, SeptetsIn(text, way->locking, way->single)));
    }
    return sent;
}

} // namespace plain
