#include "OutgoingVectors.h"

#include <initializer_list>

#include "Compose.h"
#include "model/Tables.h"
#include "model/Text.h"

namespace plain {

namespace {

const std::string c_septets = "TS 23.040, 9.2.3.24.1";
const std::string c_tables = "TS 23.038, 6.2.1.2";
const std::string c_header = "TS 23.040, 9.2.3.24";
const std::string c_coding = "TS 23.038, 4";

class Vectors {
public:
    void Add(const std::string& name, const std::string& clause, Outgoing outgoing) {
        m_Vectors.push_back({name, clause, std::move(outgoing)});
    }
    std::vector<OutgoingVector> Take() { return std::move(m_Vectors); }

private:
    std::vector<OutgoingVector> m_Vectors;
};

using Lengths = std::initializer_list<std::size_t>;

std::u32string Times(std::size_t count, char32_t character) {
    return std::u32string(count, character);
}

Outgoing Text(std::u32string text, std::vector<int> languages = {0}) {
    Outgoing outgoing;
    outgoing.text = std::move(text);
    outgoing.languages = std::move(languages);
    outgoing.reference = 0x2A;
    return outgoing;
}

Outgoing Wide(Outgoing outgoing) {
    outgoing.isWide = true;
    outgoing.reference = 0x1234;
    return outgoing;
}

Outgoing WithPorts(Outgoing outgoing, const PortPair& ports) {
    outgoing.ports = ports;
    return outgoing;
}

Outgoing Only(Outgoing outgoing, const std::string& alphabet) {
    outgoing.alphabet = alphabet;
    return outgoing;
}

Outgoing OfClass(Outgoing outgoing, int messageClass) {
    outgoing.messageClass = messageClass;
    return outgoing;
}

/// About every length at which a part more begins.
void AddLengths(Vectors& vectors) {
    for (const std::size_t length : Lengths{0, 1, 7, 8, 9, 80, 159, 160, 161, 306, 307, 459, 460}) {
        vectors.Add(std::to_string(length) + " septets", c_septets, Text(Times(length, 'a')));
        vectors.Add(std::to_string(length) + " septets, a reference of 16 bits", c_septets,
                    Wide(Text(Times(length, 'a'))));
    }
    for (const std::size_t length : Lengths{303, 304, 305})
        vectors.Add(std::to_string(length) + " septets, a reference of 16 bits", c_septets,
                    Wide(Text(Times(length, 'a'))));
    for (const std::size_t length : Lengths{1, 69, 70, 71, 132, 133, 134, 135, 201, 202}) {
        vectors.Add(std::to_string(length) + " characters", c_septets, Text(Times(length, U'Ж')));
        vectors.Add(std::to_string(length) + " characters, a reference of 16 bits", c_septets,
                    Wide(Text(Times(length, U'Ж'))));
    }
    vectors.Add("255 parts", c_septets, Text(Times(255 * 153, 'a')));
    vectors.Add("256 parts", c_septets, Text(Times(255 * 153 + 1, 'a')));
}

/// Pairs about the end of a part.
void AddPairs(Vectors& vectors) {
    for (const std::size_t length : Lengths{0, 151, 152, 153, 158, 159, 160}) {
        vectors.Add("an escape after " + std::to_string(length) + " septets", c_septets,
                    Text(Times(length, 'a') + U"€" + Times(10, 'b')));
        vectors.Add("an escape after " + std::to_string(length) + " septets, a reference of 16 bits",
                    c_septets, Wide(Text(Times(length, 'a') + U"€" + Times(10, 'b'))));
    }
    vectors.Add("escapes alone", c_septets, Text(Times(160, U'€')));
    for (const std::size_t length : Lengths{0, 65, 66, 67, 68, 69, 70}) {
        vectors.Add("surrogates after " + std::to_string(length) + " characters", c_septets,
                    Text(Times(length, U'Ж') + U"😀" + Times(3, U'я')));
        vectors.Add("surrogates after " + std::to_string(length) + " characters, a reference of 16 bits",
                    c_septets, Wide(Text(Times(length, U'Ж') + U"😀" + Times(3, U'я'))));
    }
    vectors.Add("surrogates alone", c_septets, Text(Times(70, U'😀')));
}

void AddLanguages(Vectors& vectors) {
    for (Row& row : ReadTable("languages")) {
        const int language = std::stoi(row["value"]);
        const std::string& name = row["name"];
        const auto& locking = TheTables().locking;
        const std::u32string single = CharactersOf(TheTables().single.at(language));
        vectors.Add(name + ": the single shift table", c_tables, Text(single, {0, language}));
        vectors.Add(name + ": the single shift table, not allowed", c_tables, Text(single));
        vectors.Add(name + ": a letter of the single shift table", c_tables,
                    Text(Times(60, 'a') + single.back(), {0, language}));
        if (!locking.contains(language))
            continue;
        const std::u32string letters = CharactersOf(locking.at(language));
        vectors.Add(name + ": the locking shift table", c_tables, Text(letters, {0, language}));
        vectors.Add(name + ": both tables", c_tables, Text(letters + single, {0, language}));
        vectors.Add(name + ": the locking shift table, in parts", c_tables,
                    Text(letters + letters, {0, language}));
        vectors.Add(name + ": the locking shift table, in parts, a reference of 16 bits", c_tables,
                    Wide(Text(letters + letters, {0, language})));
        vectors.Add(name + ": among all languages", c_tables,
                    Text(letters, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}));
        vectors.Add(name + ": UCS2 because of one character", c_tables, Text(letters + U"中", {0, language}));
    }
    vectors.Add("Turkish beside a letter that the locking shift table lacks", c_tables,
                Text(Times(60, U'è') + U"ş", {0, 1}));
    vectors.Add("Turkish and Spanish", c_tables, Text(Times(20, U'ş') + Times(20, U'Á'), {0, 1, 2}));
}

void AddHeaders(Vectors& vectors) {
    const PortPair narrow{240, 241, false};
    const PortPair wide{5000, 0x13AD, true};
    for (const std::u32string& text :
         {std::u32string(U"a"), Times(161, 'a'), std::u32string(U"Ж"), Times(71, U'Ж')}) {
        const std::string name = std::to_string(text.size()) + (text[0] == 'a' ? " septets" : " characters");
        vectors.Add("ports of 8 bits, " + name, c_header, WithPorts(Text(text), narrow));
        vectors.Add("ports of 16 bits, " + name, c_header, WithPorts(Text(text), wide));
        vectors.Add("both of 16 bits, " + name, c_header, WithPorts(Wide(Text(text)), wide));
        Outgoing more = Text(text);
        more.elements = FromHex("7001FF");
        vectors.Add("one more element, " + name, c_header, more);
        vectors.Add("one more element and ports, " + name, c_header, WithPorts(more, wide));
    }
    vectors.Add("ports, Turkish", c_header, WithPorts(Text(Times(150, U'ş'), {0, 1}), wide));
}

void AddCodings(Vectors& vectors) {
    for (int messageClass = 0; messageClass <= 3; ++messageClass) {
        const std::string name = "class " + std::to_string(messageClass);
        vectors.Add(name + ", septets", c_coding, OfClass(Text(U"a"), messageClass));
        vectors.Add(name + ", characters", c_coding, OfClass(Text(U"Ж"), messageClass));
    }
    vectors.Add("only UCS2", c_coding, Only(Text(U"a"), "ucs2"));
    vectors.Add("only septets", c_coding, Only(Text(U"a"), "gsm7"));
    vectors.Add("only septets, which lack a character", c_coding, Only(Text(U"aЖ"), "gsm7"));
    vectors.Add("only septets, which cost more", c_coding, Only(Text(Times(79, U'€') + U"abc"), "gsm7"));
}

Json InputJson(const OutgoingVector& vector) {
    const Outgoing& outgoing = vector.outgoing;
    Json json = {{"name", vector.name}, {"clause", vector.clause}, {"by", "reading"}};
    json["text"] = Utf8Of(outgoing.text);
    json["languages"] = std::vector<int>(outgoing.languages.begin() + 1, outgoing.languages.end());
    if (!outgoing.alphabet.empty())
        json["alphabet"] = outgoing.alphabet;
    json["reference"] = outgoing.reference;
    json["bits"] = outgoing.isWide ? 16 : 8;
    if (outgoing.ports)
        json["ports"] = {{"destination", outgoing.ports->destination},
                         {"source", outgoing.ports->source},
                         {"bits", outgoing.ports->isWide ? 16 : 8}};
    if (!outgoing.elements.empty())
        json["elements"] = Hex(outgoing.elements);
    if (outgoing.messageClass >= 0)
        json["class"] = outgoing.messageClass;
    return json;
}

/// Of sound UTF-8.
std::u32string CharactersOf(const std::string& utf8) {
    std::u32string text;
    for (const char one : utf8) {
        const auto octet = static_cast<unsigned char>(one);
        if (octet < 0x80)
            text += octet;
        else if (octet >= 0xC0)
            text += octet < 0xE0 ? octet & 0x1FU : octet < 0xF0 ? octet & 0x0FU : octet & 0x07U;
        else
            text.back() = text.back() << 6U | (octet & 0x3FU);
    }
    return text;
}

} // namespace

std::string Utf8Of(const std::u32string& text) {
    std::string utf8;
    for (const char32_t character : text)
        Append(utf8, character);
    return utf8;
}

std::vector<OutgoingVector> OutgoingVectors() {
    Vectors vectors;
    AddLengths(vectors);
    AddPairs(vectors);
    AddLanguages(vectors);
    AddHeaders(vectors);
    AddCodings(vectors);
    return vectors.Take();
}

Outgoing OutgoingOf(const Json& vector) {
    Outgoing outgoing;
    outgoing.text = CharactersOf(vector.at("text").get<std::string>());
    for (const int language : vector.at("languages"))
        outgoing.languages.push_back(language);
    outgoing.alphabet = vector.value("alphabet", "");
    outgoing.reference = vector.at("reference");
    outgoing.isWide = vector.at("bits") == 16;
    if (vector.contains("ports")) {
        const Json& ports = vector["ports"];
        outgoing.ports = PortPair{ports.at("destination"), ports.at("source"), ports.at("bits") == 16};
    }
    outgoing.elements = FromHex(vector.value("elements", ""));
    outgoing.messageClass = vector.value("class", -1);
    return outgoing;
}

Json ToJson(const std::optional<Sent>& sent) {
    if (!sent)
        return nullptr;
    Json parts = Json::array();
    for (const Octets& part : sent->parts)
        parts.push_back(Hex(part));
    return {{"TP-DCS", sent->coding},
            {"TP-UDHI", sent->hasHeader ? 1 : 0},
            {"units", sent->way.units},
            {"parts", parts}};
}

std::string TextOf(const std::vector<OutgoingVector>& vectors) {
    std::string text;
    for (const OutgoingVector& vector : vectors) {
        Json json = InputJson(vector);
        json["sent"] = ToJson(Send(vector.outgoing));
        text += json.dump() + '\n';
    }
    return text;
}

} // namespace plain
