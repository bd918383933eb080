#include "show/Subfields.h"

#include <array>

#include "Messages/Words.h"
#include "show/Values.h"

namespace show {

namespace {

using Messages::ElementId;
using Messages::OctetView;

Subfields ConcatenationSubfields(std::uint8_t identifier, OctetView data) {
    const auto place = Messages::ReadConcatenation(identifier, data);
    if (!place)
        return {};
    const std::uint8_t width = place->hasWideReference ? 2 : 1;
    return {{"reference", width, place->reference}, {"total", 1, place->total}, {"part", 1, place->part}};
}

Subfields PortSubfields(std::uint8_t identifier, OctetView data) {
    const auto ports = Messages::ReadPorts(identifier, data);
    if (!ports)
        return {};
    const std::uint8_t width = ports->areWide ? 2 : 1;
    return {
        {"destination port", width, ports->destination, Messages::MeaningOfPort(*ports, ports->destination)},
        {"originator port", width, ports->originator, Messages::MeaningOfPort(*ports, ports->originator)}};
}

Subfields SpecialMessageSubfields(OctetView data) {
    const auto indication = Messages::ReadSpecialMessageIndication(data);
    if (!indication)
        return {};
    return {{"message kind", 1, data[0], {}, SpecialMessageBits(data[0])},
            {"message count", 1, indication->count}};
}

Subfields FormattingSubfields(OctetView data) {
    const auto formatting = Messages::ReadTextFormatting(data);
    if (!formatting)
        return {};
    Subfields subfields = {{"start", 1, formatting->start},
                           {"characters", 1, formatting->length},
                           {"style", 1, data[2], {}, TextFormattingBits(data[2])}};
    if (formatting->colour)
        subfields.push_back({"colour", 1, *formatting->colour, {}, ColourBits(*formatting->colour)});
    return subfields;
}

Subfields PredefinedObjectSubfields(OctetView data) {
    const auto object = Messages::ReadPredefinedObject(data);
    return object ? Subfields{{"position", 1, object->position}, {"number", 1, object->number}} : Subfields{};
}

Subfields ObjectDistributionSubfields(OctetView data) {
    const auto objects = Messages::ReadObjectDistribution(data);
    if (!objects)
        return {};
    return {{"objects", 1, objects->count},
            {"distribution", 1, data[1], {}, ObjectDistributionBits(data[1])}};
}

Subfields HyperlinkSubfields(OctetView data) {
    const auto link = Messages::ReadHyperlink(data);
    if (!link)
        return {};
    return {{"position", 2, link->position},
            {"characters of the title", 1, link->titleLength},
            {"characters of the link", 1, link->urlLength}};
}

std::string_view SourceMeaning(unsigned int source) {
    constexpr std::array<std::string_view, 4> c_sources = {"reserved", "sender", "receiver",
                                                           "service centre"};
    return c_sources[source < c_sources.size() ? source : 0];
}

std::string_view LanguageMeaning(unsigned int language) {
    const bool isKnown = language > 0 && language <= Messages::c_lastLanguage;
    return isKnown ? Messages::NameOf(static_cast<Messages::Language>(language)) : "reserved";
}

Subfields SingleOctetSubfields(ElementId identifier, OctetView data) {
    const auto octet = Messages::ReadSingleOctet(data);
    if (!octet)
        return {};
    switch (identifier) {
    case ElementId::ServiceCentreControl:
        return {{"control", 1, *octet, {}, ServiceCentreControlBits(*octet)}};
    case ElementId::HeaderSource:
        return {{"source", 1, *octet, SourceMeaning(*octet)}};
    case ElementId::UserPrompt:
        return {{"objects", 1, *octet}};
    case ElementId::EmailHeader:
        return {{"characters of the header", 1, *octet}};
    case ElementId::SingleShift:
    case ElementId::LockingShift:
        return {{"language", 1, *octet, LanguageMeaning(*octet)}};
    default:
        return {};
    }
}

/// "part 2", "language Turkish", "storage store, kind fax".
void AppendWords(const Subfield& subfield, std::string& words) {
    const auto add = [&words](std::string_view name, unsigned int value, std::string_view meaning) {
        if (!words.empty())
            words += ", ";
        words += name;
        words += ' ';
        words += std::to_string(value);
        if (!meaning.empty())
            words.append(" (").append(meaning).append(")");
    };
    for (const OctetBits& bits : subfield.bits)
        add(bits.name, bits.value, bits.meaning);
    if (subfield.bits.empty())
        add(subfield.name, subfield.value, subfield.meaning);
}

} // namespace

Subfields SubfieldsOf(const Messages::HeaderElement& element, OctetView data) {
    const auto identifier = static_cast<ElementId>(element.identifier);
    switch (identifier) {
    case ElementId::Concatenation8:
    case ElementId::Concatenation16:
        return ConcatenationSubfields(element.identifier, data);
    case ElementId::Ports8:
    case ElementId::Ports16:
        return PortSubfields(element.identifier, data);
    case ElementId::SpecialMessageIndication:
        return SpecialMessageSubfields(data);
    case ElementId::TextFormatting:
        return FormattingSubfields(data);
    case ElementId::PredefinedSound:
    case ElementId::PredefinedAnimation:
        return PredefinedObjectSubfields(data);
    case ElementId::ObjectDistribution:
        return ObjectDistributionSubfields(data);
    case ElementId::Hyperlink:
        return HyperlinkSubfields(data);
    default:
        return SingleOctetSubfields(identifier, data);
    }
}

std::string MeaningOf(const Messages::HeaderElement& element, OctetView data) {
    std::string words;
    for (const Subfield& subfield : SubfieldsOf(element, data))
        AppendWords(subfield, words);
    if (element.Is(ElementId::ReplyAddress)) {
        if (const auto address = Messages::ReadReplyAddress(data))
            words = MeaningOf(*address);
    }
    std::string meaning(Messages::NameOfElement(element.identifier));
    if (!words.empty())
        meaning.append(": ").append(words);
    return meaning;
}

std::string MeaningOfHeader(const std::vector<Messages::HeaderElement>& elements, OctetView userData,
                            bool isIgnored) {
    if (isIgnored)
        return "ignored";
    std::string lines;
    for (const Messages::HeaderElement& element : elements) {
        lines += lines.empty() ? "" : "\n";
        lines += MeaningOf(element, element.Data(userData));
    }
    return lines;
}

} // namespace show
