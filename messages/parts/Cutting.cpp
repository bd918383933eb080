#include <algorithm>
#include <tuple>

#include <unistd.h>

#include "Messages/Parts.h"
#include "Messages/Write.h"
#include "alphabet/Choosing.h"
#include "tpdu/Making.h"
#include "tpdu/Rows.h"

namespace Messages {
namespace {

constexpr std::size_t c_mostUserData = MostUserData(TpduType::DeliverReport, false);

/// TP-DCS of the general group.
DataCoding CodingOf(Alphabet alphabet, std::optional<std::uint8_t> messageClass) {
    constexpr unsigned int alphabetShift = 2;
    constexpr unsigned int hasClass = 0x10;
    const unsigned int of = static_cast<unsigned int>(alphabet) << alphabetShift;
    return DataCoding(static_cast<std::uint8_t>(messageClass ? of | hasClass | *messageClass : of));
}

std::size_t OwnElementOctets(const CutOptions& options) {
    constexpr std::size_t ports8 = 4;
    constexpr std::size_t ports16 = 6;
    const std::size_t ports = options.ports ? (options.ports->areWide ? ports16 : ports8) : 0;
    return ports + options.elements.size();
}

/// The elements of the header, in the order in which they are sent.
class Elements {
public:
    void Add(ElementId id, std::initializer_list<unsigned int> data) {
        Put(static_cast<unsigned int>(id));
        Put(static_cast<unsigned int>(data.size()));
        for (const unsigned int octet : data)
            Put(octet);
    }
    void Add(const Concatenation& one) {
        if (one.hasWideReference)
            Add(ElementId::Concatenation16, {High(one.reference), one.reference, one.total, one.part});
        else
            Add(ElementId::Concatenation8, {one.reference, one.total, one.part});
    }
    void Add(const Ports& ports) {
        if (ports.areWide)
            Add(ElementId::Ports16,
                {High(ports.destination), ports.destination, High(ports.originator), ports.originator});
        else
            Add(ElementId::Ports8, {ports.destination, ports.originator});
    }
    void Add(ElementId id, Language language) {
        if (language != Language::Default)
            Add(id, {static_cast<unsigned int>(language)});
    }
    void Append(const std::vector<std::uint8_t>& octets) {
        std::copy(octets.begin(), octets.end(), m_Octets.begin() + m_Count);
        m_Count += octets.size();
    }

    OctetView View() const { return {m_Octets.data(), m_Count}; }

private:
    static unsigned int High(std::uint16_t value) { return value >> 8U; }
    void Put(unsigned int octet) { m_Octets[m_Count++] = static_cast<std::uint8_t>(octet); }

    std::array<std::uint8_t, c_mostUserData> m_Octets; ///< no part has room for more
    std::size_t m_Count = 0;
};

/// Makes the parts once it is known where they begin.
class Cutter {
public:
    Cutter(const CutOptions& options, CutText& cut) : m_Options(options), m_Cut(cut) {}

    /// `make(part, elements)` makes the user data of the part with this number, from 0.
    template <class MakePart>
    void Make(MakePart make) {
        const std::size_t total = m_Cut.offsets.size();
        if (total > 1 && !FindReference())
            return;
        m_Cut.parts.reserve(total);
        for (std::size_t part = 0; part < total; ++part)
            m_Cut.parts.push_back(make(part, ElementsOf(part, total).View()));
    }

    /// Whether there may be so many parts.
    bool MayBe(std::size_t parts) {
        if (parts == c_noParts)
            Fail(CutFaultCode::NoRoom);
        else if (parts > c_mostParts)
            Fail(CutFaultCode::TooManyParts);
        return parts <= c_mostParts;
    }

    void Fail(CutFaultCode code, std::size_t offset = 0, char32_t character = 0) {
        m_Cut.fault = CutFault{code, offset, character};
    }

private:
    bool FindReference() {
        constexpr std::uint16_t mostNarrow = 0xFF;
        const bool isWide = m_Options.choice.room.hasWideReference;
        if (m_Options.reference) {
            m_Reference = *m_Options.reference;
            if (!isWide && m_Reference > mostNarrow)
                Fail(CutFaultCode::Reference);
        } else if (getentropy(&m_Reference, sizeof m_Reference) != 0) {
            Fail(CutFaultCode::NoRandom);
        } else if (!isWide) {
            m_Reference &= mostNarrow;
        }
        return !m_Cut.fault;
    }

    Elements ElementsOf(std::size_t part, std::size_t total) const {
        Elements elements;
        if (total > 1)
            elements.Add(Concatenation{m_Options.choice.room.hasWideReference, m_Reference,
                                       static_cast<std::uint8_t>(total),
                                       static_cast<std::uint8_t>(part + 1)});
        if (m_Options.ports)
            elements.Add(*m_Options.ports);
        elements.Append(m_Options.elements);
        elements.Add(ElementId::SingleShift, m_Cut.choice.tables.single);
        elements.Add(ElementId::LockingShift, m_Cut.choice.tables.locking);
        return elements;
    }

    const CutOptions& m_Options;
    CutText& m_Cut;
    std::uint16_t m_Reference = 0;
};

TextRoom RoomFor(const CutOptions& options) {
    TextRoom room = options.choice.room;
    room.octets = std::min(room.octets, c_mostUserData);
    room.elementOctets = OwnElementOctets(options);
    return room;
}

Languages LanguagesOf(const ChoiceOptions& options) {
    return options.tables ? Languages{options.tables->locking, options.tables->single} : options.languages;
}

std::size_t Ucs2Units(std::string_view text) {
    std::size_t units = 0;
    for (Characters characters(text); !characters.AtEnd();)
        units += UnitsOf(characters.Next(), Choice{Alphabet::Ucs2, {}});
    return units;
}

/// Of a text that stays UCS2, leaves those replacements alone that make it shorter, and puts them in.
std::string ReplaceShorter(std::string_view text, std::vector<Replacement>& replacements) {
    const auto isNoShorter = [&](const Replacement& one) {
        return Ucs2Units(one.replacement) >= Ucs2Units(text.substr(one.offset, one.length));
    };
    replacements.erase(std::remove_if(replacements.begin(), replacements.end(), isNoShorter),
                       replacements.end());
    std::string shorter;
    std::size_t at = 0;
    for (const Replacement& one : replacements) {
        shorter.append(text.substr(at, one.offset - at)).append(one.replacement);
        at = one.offset + one.length;
    }
    return shorter.append(text.substr(at));
}

/// A misfit of the text with near characters as one of the text as it was given.
MisfitCharacter AsGiven(MisfitCharacter misfit, std::string_view text,
                        const std::vector<Replacement>& replacements) {
    for (const Replacement& one : replacements) {
        if (misfit.offset < one.offset)
            break;
        if (misfit.offset < one.offset + one.replacement.size()) // what is near does not fit either
            return {one.offset, Characters(text.substr(one.offset)).Next()};
        misfit.offset = misfit.offset - one.replacement.size() + one.length;
    }
    return misfit;
}

/// Chooses, and puts near characters in where that is cheaper or makes the text fit at all.
std::optional<MisfitCharacter> ChooseWithNear(SeenText& seen, const ChoiceOptions& options, CutText& cut) {
    const auto misfit = Choose(seen, options, cut.choice);
    const std::string_view text = seen.octets;
    std::vector<Replacement> replacements;
    std::string near = ReplaceNear(text, LanguagesOf(options), replacements);
    Choice choice;
    if (replacements.empty())
        return misfit;
    // Only characters that nothing holds were replaced, so that a text that fits has none of these.
    if (const auto nearMisfit = Choose(near, options, choice))
        return AsGiven(*nearMisfit, text, replacements);
    if (choice.alphabet == Alphabet::Ucs2) {
        near = ReplaceShorter(text, replacements);
        Choose(near, options, choice);
    }
    const bool isCheaper =
        std::tie(choice.parts, choice.octets) < std::tie(cut.choice.parts, cut.choice.octets);
    if (!misfit && !isCheaper)
        return misfit;
    cut.choice = choice;
    cut.text = std::move(near);
    seen = {cut.text};
    cut.replacements = std::move(replacements);
    return std::nullopt;
}

} // namespace

CutText CutIntoParts(std::string_view text, const CutOptions& options) {
    CutText cut;
    cut.text = text;
    ChoiceOptions how = options.choice;
    how.room = RoomFor(options);
    Cutter cutter(options, cut);
    SeenText seen{cut.text};
    const auto misfit = options.replacesNear ? ChooseWithNear(seen, how, cut) : Choose(seen, how, cut.choice);
    if (misfit) {
        const bool isUtf8 = misfit->character != c_notUtf8;
        cutter.Fail(isUtf8 ? CutFaultCode::NoCharacter : CutFaultCode::NotUtf8, misfit->offset,
                    isUtf8 ? misfit->character : 0);
        return cut;
    }
    cut.coding = CodingOf(cut.choice.alphabet, options.messageClass);
    if (!cutter.MayBe(cut.choice.parts))
        return cut;
    cut.offsets = PartOffsets(seen, cut.choice, how.room);
    const SeptetTables tables = cut.choice.tables;
    const bool isUcs2 = cut.choice.alphabet == Alphabet::Ucs2;
    const bool isItsOwnSeptets = seen.isPlain && !isUcs2 && HoldsPlain(tables.locking);
    std::vector<std::uint8_t> content;
    cutter.Make([&](std::size_t part, OctetView elements) {
        const std::size_t begin = cut.offsets[part];
        const std::size_t end = part + 1 < cut.offsets.size() ? cut.offsets[part + 1] : cut.text.size();
        const std::string_view own = seen.octets.substr(begin, end - begin);
        if (isItsOwnSeptets)
            return MakeUserDataOfText(cut.coding, elements, OctetsOf(own), tables, own);
        content.clear();
        if (isUcs2)
            AppendUcs2(own, content);
        else
            AppendSeptets(own, tables, content);
        return MakeUserDataOfText(cut.coding, elements, content, tables, own);
    });
    return cut;
}

CutText CutIntoParts(OctetView data, const CutOptions& options) {
    CutText cut;
    const TextRoom room = RoomFor(options);
    cut.choice = {Alphabet::Data, {}, data.size(), 1, 0};
    std::size_t& parts = cut.choice.parts;
    const std::size_t many = RoomOfMany(cut.choice, room).Units();
    if (!RoomOfOne(cut.choice, room).Holds(data.size()))
        parts = many == 0 ? c_noParts : (data.size() + many - 1) / many;
    cut.coding = CodingOf(Alphabet::Data, options.messageClass);
    Cutter cutter(options, cut);
    if (!cutter.MayBe(parts))
        return cut;
    for (std::size_t part = 0; part < parts; ++part)
        cut.offsets.push_back(part * many);
    cutter.Make([&](std::size_t part, OctetView elements) {
        const OctetView own = parts == 1 ? data : data.Sub(cut.offsets[part], many);
        return *MakeUserData(cut.coding, elements, own);
    });
    for (const UserData& part : cut.parts)
        cut.choice.octets += part.octets.size();
    return cut;
}

} // namespace Messages
