#include "Vectors.h"

#include <algorithm>
#include <map>

#include "Compose.h"
#include "Json.h"
#include "model/Tables.h"

namespace plain {

namespace {

/// Gathers the vectors of one file. A TPDU to the mobile or from it stands without a service centre's
/// address.
class File {
public:
    explicit File(std::string name) : m_File{std::move(name), {}} {}

    void Deliver(const std::string& name, const std::string& clause, const Octets& tpdu) {
        Add(name, clause, {tpdu, Known::NO, Direction::TO_MOBILE, {}, Known::UNKNOWN});
    }
    void Submit(const std::string& name, const std::string& clause, const Octets& tpdu) {
        Add(name, clause, {tpdu, Known::NO, Direction::FROM_MOBILE, {}, Known::UNKNOWN});
    }
    void Add(const std::string& name, const std::string& clause, const Input& input) {
        m_File.vectors.push_back({name, clause, input});
    }
    VectorFile Take() { return std::move(m_File); }

private:
    VectorFile m_File;
};

std::string HexOf(int value) {
    return Hex(One(value));
}
int HexNumber(const std::string& text) {
    return std::stoi(text, nullptr, 16);
}

Octets DeliverOf(const Octets& address, int protocol, int coding, const Octets& time, const Octets& data,
                 int first = 0x04) {
    return Join({One(first), address, One(protocol), One(coding), time, data});
}
Octets DeliverOf(const Octets& data, int coding = 0, int first = 0x04) {
    return DeliverOf(SomeAddress(), 0, coding, SomeTime(), data, first);
}
Octets SubmitOf(int first, const Octets& validity, const Octets& data) {
    return Join({One(first), One(0x2A), SomeAddress(), One(0), One(0), validity, data});
}
Octets StatusReportOf(int status, const Octets& rest, int first = 0x06) {
    return Join({One(first), One(0x2A), SomeAddress(), SomeTime(), SomeTime(), One(status), rest});
}
Octets CommandOf(int type, const Octets& data, int first = 0x02) {
    return Join({One(first), One(0x2A), One(0), One(type), One(0x17), SomeAddress(), data});
}

constexpr int c_headed = 0x44; // a DELIVER with a header, no more messages

/// A message whose header is this, and whose text is four septets.
Octets HeadedDeliver(const Octets& header) {
    return DeliverOf(SeptetData(header, Plain("Test")), 0, c_headed);
}

/// The first and the last value of each row of a table of ranges, once where they are one.
struct End {
    int value;
    std::string name;
};
std::vector<End> Ends(const std::string& table) {
    std::vector<End> ends;
    for (Row& row : ReadTable(table)) {
        ends.push_back({HexNumber(row["from"]), row["name"]});
        if (row["to"] != row["from"])
            ends.push_back({HexNumber(row["to"]), row["name"]});
    }
    return ends;
}

// ---- alphabets
// -------------------------------------------------------------------------------------------------

Octets LanguageHeader(int locking, int single) {
    if (locking == 0 && single == 0)
        return {};
    if (locking == 0)
        return Header({HeaderElement(0x24, One(single))});
    if (single == 0)
        return Header({HeaderElement(0x25, One(locking))});
    return Header({HeaderElement(0x25, One(locking)), HeaderElement(0x24, One(single))});
}

Octets InLanguage(int locking, int single, const Septets& septets) {
    const Octets header = LanguageHeader(locking, single);
    return DeliverOf(SeptetData(header, septets), 0, header.empty() ? 0x04 : c_headed);
}

/// Pairs of an escape and each code of a half of a table.
Septets Pairs(int first, int last) {
    Septets septets;
    for (int code = first; code <= last; ++code)
        septets.insert(septets.end(), {0x1B, code});
    return septets;
}

VectorFile Alphabets() {
    File file("alphabets");
    std::map<int, std::string> names = {{0, "default"}};
    for (Row& row : ReadTable("languages"))
        names[std::stoi(row["value"])] = row["name"];

    Septets all; // the escape last, where it escapes nothing
    for (int code = 0; code < 128; ++code)
        if (code != 0x1B)
            all.push_back(code);
    all.push_back(0x1B);

    for (const auto& [language, alphabet] : TheTables().locking)
        file.Deliver(names[language] + ", every septet",
                     language == 0 ? "TS 23.038, 6.2.1" : "TS 23.038, A.3", InLanguage(language, 0, all));
    for (const auto& [language, alphabet] : TheTables().single) {
        const std::string clause = language == 0 ? "TS 23.038, 6.2.1.1" : "TS 23.038, A.2";
        file.Deliver(names[language] + " single shift, pairs 00 to 3F", clause,
                     InLanguage(0, language, Pairs(0, 0x3F)));
        file.Deliver(names[language] + " single shift, pairs 40 to 7F", clause,
                     InLanguage(0, language, Pairs(0x40, 0x7F)));
    }
    for (const auto& [language, alphabet] : TheTables().single)
        if (language != 0 && TheTables().locking.contains(language))
            file.Deliver(
                names[language] + ", both tables", "TS 23.038, 6.2.1.2.4",
                InLanguage(language, language, {0x41, 0x1B, 0x41, 0x10, 0x1B, 0x10, 0x1B, 0x7F, 0x61}));
    file.Deliver("locking shift of one language, single shift of another", "TS 23.038, 6.2.1.2.4",
                 InLanguage(6, 13, {0x05, 0x1B, 0x1C, 0x1B, 0x7F}));
    file.Deliver("two escapes show a space", "TS 23.038, 6.2.1.1",
                 InLanguage(0, 0, {0x41, 0x1B, 0x1B, 0x65, 0x42}));
    file.Deliver("three escapes and a code", "TS 23.038, 6.2.1.1",
                 InLanguage(0, 0, {0x1B, 0x1B, 0x1B, 0x65, 0x42}));
    file.Deliver("an escape at the end", "TS 23.038, 6.2.1.1", InLanguage(0, 0, {0x41, 0x1B}));
    file.Deliver("nothing but an escape", "TS 23.038, 6.2.1.1", InLanguage(0, 0, {0x1B}));
    return file.Take();
}

// ---- single values
// ---------------------------------------------------------------------------------------------

VectorFile DataCoding() {
    File file("data-coding");
    for (int value = 0; value < 256; ++value) {
        const Coding& coding = TheTables().coding.at(static_cast<std::size_t>(value));
        const bool septets = coding.alphabet == "gsm7" && !coding.compressed;
        const Octets data = septets ? SeptetData({}, Plain("Test")) : OctetData({}, FromHex("05D000E9"));
        file.Deliver("TP-DCS " + HexOf(value), "TS 23.038, 4", DeliverOf(data, value));
    }
    return file.Take();
}

VectorFile Values() {
    File file("values");
    for (const auto& [value, name] : Ends("protocol-identifiers"))
        file.Deliver("TP-PID " + HexOf(value) + ", " + name, "TS 23.040, 9.2.3.9",
                     DeliverOf(SomeAddress(), value, 0, SomeTime(), SomeData()));
    for (const auto& [value, name] : Ends("statuses"))
        file.Deliver("TP-ST " + HexOf(value) + ", " + name, "TS 23.040, 9.2.3.15", StatusReportOf(value, {}));
    for (const auto& [value, name] : Ends("failure-causes"))
        file.Add("TP-FCS " + HexOf(value) + ", " + name, "TS 23.040, 9.2.3.22",
                 {Join({One(0), One(value), One(0)}), Known::NO, Direction::FROM_MOBILE, {}, Known::YES});
    for (const auto& [value, name] : Ends("command-types"))
        file.Submit("TP-CT " + HexOf(value) + ", " + name, "TS 23.040, 9.2.3.19", CommandOf(value, One(0)));
    return file.Take();
}

// ---- addresses
// -------------------------------------------------------------------------------------------------

Octets FromSender(const Octets& address) {
    return DeliverOf(address, 0, 0, SomeTime(), SomeData());
}

VectorFile Addresses() {
    const std::string clause = "TS 23.040, 9.1.2.5";
    File file("addresses");
    for (int ton = 0; ton < 8; ++ton)
        if (ton != 5)
            file.Deliver("type of number " + std::to_string(ton), clause,
                         FromSender(DigitAddress("20471", 0x81 | ton << 4)));
    for (int npi = 0; npi < 16; ++npi)
        file.Deliver("numbering plan " + std::to_string(npi), clause,
                     FromSender(DigitAddress("20471", 0x90 | npi)));
    const std::string digits = "0123456789ABCDE0123456789";
    for (const int length : {0, 1, 2, 9, 15, 19, 20, 21, 25})
        file.Deliver(std::to_string(length) + " semi-octets", clause,
                     FromSender(DigitAddress(digits.substr(0, static_cast<std::size_t>(length)))));
    file.Deliver("a filler that is counted", clause, FromSender(FromHex("06912143F5")));
    file.Deliver("a filler before the last digit", clause, FromSender(FromHex("069121F345")));
    file.Deliver("a filler first of all", clause, FromSender(FromHex("0491FFFF")));
    file.Deliver("an odd number of digits without filler", clause, FromSender(FromHex("0591214365")));
    file.Deliver("bit 7 of the type is clear", clause, FromSender(DigitAddress("20471", 0x11)));
    for (int length = 0; length <= 11; ++length)
        file.Deliver("alphanumeric, " + std::to_string(length) + " characters", clause,
                     FromSender(LetterAddress(
                         Plain(std::string("Kilowatts11").substr(0, static_cast<std::size_t>(length))))));
    file.Deliver("alphanumeric, the default alphabet and its extension", clause,
                 FromSender(LetterAddress({0x00, 0x10, 0x1B, 0x65, 0x5B, 0x1B, 0x3C, 0x7F})));
    file.Deliver("alphanumeric, bits after the last character", clause, FromSender(FromHex("04D04160")));
    file.Deliver("alphanumeric, an escape at the end", clause, FromSender(LetterAddress({0x41, 0x42, 0x1B})));
    file.Deliver("alphanumeric, two escapes", clause, FromSender(LetterAddress({0x41, 0x1B, 0x1B, 0x42})));
    file.Deliver("alphanumeric, seven characters and filling counted as one more", clause,
                 FromSender(Join({One(14), One(0xD0), Packed(Plain("Sevenoo"))})));
    file.Deliver("alphanumeric, a last character @ that is no filling", clause,
                 FromSender(LetterAddress({0x41, 0x42, 0x00})));
    file.Deliver("alphanumeric, longer than an address may be", clause,
                 FromSender(LetterAddress(Plain("Thirteen char"))));
    const auto centre = [&](const std::string& name, const Octets& address) {
        file.Add(
            "service centre: " + name, "TS 24.011, 8.2.5.1",
            {Join({address, DeliverOf(SomeData())}), Known::YES, Direction::TO_MOBILE, {}, Known::UNKNOWN});
    };
    centre("none", One(0));
    centre("type alone", FromHex("0191"));
    centre("even number of digits", CentreAddress("4915550199"));
    centre("odd number of digits", CentreAddress("491555019"));
    centre("digits * # a b c", CentreAddress("1ABCDE2"));
    centre("alphanumeric is read as digits", CentreAddress("12345", 0xD0));
    centre("bit 7 of the type is clear", CentreAddress("4915550199", 0x11));
    centre("a filler before the last digit", FromHex("04912FF3F4"));
    centre("twenty digits", CentreAddress("01234567890123456789"));
    centre("more than twenty digits", CentreAddress("0123456789012345678901"));
    return file.Take();
}

// ---- times and validity
// ----------------------------------------------------------------------------------------

VectorFile Times() {
    const std::string clause = "TS 23.040, 9.2.3.11";
    File file("times");
    const auto add = [&](const std::string& name, const std::string& hex) {
        file.Deliver(name, clause, DeliverOf(SomeAddress(), 0, 0, FromHex(hex), SomeData()));
    };
    for (const auto& [name, zone] :
         std::initializer_list<std::pair<const char*, const char*>>{{"+00:00", "00"},
                                                                    {"-00:00", "08"},
                                                                    {"+05:30", "22"},
                                                                    {"-09:30", "8B"},
                                                                    {"+05:45", "32"},
                                                                    {"+14:00", "65"},
                                                                    {"-12:00", "8C"},
                                                                    {"the largest zone east", "97"},
                                                                    {"the largest zone west", "9F"},
                                                                    {"+06:00 in a digit above 9", "E1"},
                                                                    {"a digit F", "FF"}})
        add(std::string("zone ") + name, std::string("623041519062") + zone);
    add("the first second of a year", "62101000000000");
    add("the last second of a year", "99211332959500");
    add("29 February of a leap year", "42209200000000");
    add("29 February of another year", "52209200000000");
    add("29 February 2000", "00209200000000");
    add("31 April", "62401300000000");
    add("31 May", "62501300000000");
    add("month 0", "62004151906200");
    add("month 13", "62314151906200");
    add("day 0", "62300051906200");
    add("day 32", "62302351906200");
    add("hour 24", "62304142906200");
    add("minute 60", "62304151066200");
    add("second 60", "62304151900600");
    add("all zero", "00000000000000");
    add("zero but for the zone", "00000000000001");
    add("a digit above 9 in the year", "A2304151906200");
    add("a digit above 9 in the day", "623041F1906200");
    add("a digit above 9 makes the month 0", "62FF4151906200");
    add("two digits above 9", "6230415AB06200");
    file.Deliver("TP-DT out of range", "TS 23.040, 9.2.3.13",
                 Join({FromHex("062A"), SomeAddress(), SomeTime(), FromHex("62993141519062"), One(0)}));
    return file.Take();
}

VectorFile Validities() {
    File file("validity");
    const auto add = [&](const std::string& name, const std::string& clause, int format,
                         const std::string& hex) {
        file.Submit(name, clause, SubmitOf(0x01 | format << 3, FromHex(hex), SomeData()));
    };
    add("none", "TS 23.040, 9.2.3.3", 0, "");
    for (Row& row : ReadTable("relative-validity"))
        for (const char* end : {"from", "to"})
            add("relative " + row[end], "TS 23.040, 9.2.3.12.1", 2, row[end]);
    add("relative, the second value of a range", "TS 23.040, 9.2.3.12.1", 2, "91");
    add("absolute", "TS 23.040, 9.2.3.12.2", 3, "62304151906240");
    add("absolute, out of range", "TS 23.040, 9.2.3.12.2", 3, "62314151906240");
    add("absolute, all zero", "TS 23.040, 9.2.3.12.2", 3, "00000000000000");
    const std::string clause = "TS 23.040, 9.2.3.12.3";
    const auto enhanced = [&](const std::string& name, const std::string& hex) {
        add("enhanced: " + name, clause, 1, hex);
    };
    enhanced("none", "00000000000000");
    enhanced("relative", "01A80000000000");
    enhanced("seconds", "02FF0000000000");
    enhanced("seconds 0", "02000000000000");
    enhanced("hours, minutes, seconds", "03325495000000");
    enhanced("hour 24", "03420000000000");
    enhanced("minute 60", "03000600000000");
    enhanced("second 60", "03000006000000");
    enhanced("a digit above 9", "03A10000000000");
    for (int format = 4; format < 8; ++format)
        enhanced("reserved format " + std::to_string(format), HexOf(format) + "000000000000");
    enhanced("single shot", "40000000000000");
    enhanced("single shot, relative", "410B0000000000");
    enhanced("reserved bits", "31A80000000000");
    enhanced("another indicator", "8100A800000000");
    enhanced("two more indicators", "818000A8000000");
    enhanced("indicators to the end", "81808080808080");
    enhanced("no room after the indicators", "83808080000000");
    enhanced("unused octets", "00000000000001");
    enhanced("unused octets after a relative value", "01A80100000000");
    return file.Take();
}

// ---- headers
// ---------------------------------------------------------------------------------------------------

/// Octets of the least length that an element may have, with values that nothing is odd about.
Octets SomeContent(int identifier) {
    switch (identifier) {
    case 0x00:
        return FromHex("2A0302");
    case 0x08:
        return FromHex("012C0302");
    case 0x22:
        return FromHex("04812143");
    case 0x24:
    case 0x25:
        return One(3);
    default: {
        const std::size_t least = TheTables().elements.at(static_cast<std::size_t>(identifier)).least;
        Octets octets(least == 0 ? 2 : least);
        for (std::size_t i = 0; i < octets.size(); ++i)
            octets[i] = static_cast<std::uint8_t>(0x11 + i);
        return octets;
    }
    }
}

void AddElements(File& file) {
    for (const auto& [identifier, name] : Ends("header-elements")) {
        const Octets header = Header({HeaderElement(identifier, SomeContent(identifier))});
        const bool large = header.size() > 100; // no room for text
        file.Deliver("element " + HexOf(identifier) + ", " + name, "TS 23.040, 9.2.3.24",
                     DeliverOf(large ? OctetData(header, One(0x2A)) : SeptetData(header, Plain("Test")),
                               large ? 4 : 0, c_headed));
    }
    const auto add = [&](const std::string& name, const std::string& clause, int identifier,
                         const std::string& hex) {
        file.Deliver(name, "TS 23.040, 9.2.3.24" + clause,
                     HeadedDeliver(Header({HeaderElement(identifier, FromHex(hex))})));
    };
    for (int type = 0; type < 256; ++type) {
        const bool edge =
            type < 4 || (type & 0x1C) == 4 || type % 32 == 3 || type == 0xFF || (type % 4 == 3 && type < 32);
        if (edge)
            add("message waiting " + HexOf(type), ".2", 0x01, HexOf(type) + "05");
    }
    add("message waiting, none", ".2", 0x01, "8000");
    add("message waiting, 255", ".2", 0x01, "80FF");
    for (Row& row : ReadTable("ports"))
        for (const char* end : {"from", "to"}) {
            const int port = std::stoi(row[end]);
            const bool wide = row["element"] == "05";
            add("port " + row[end] + ", element " + row["element"], wide ? ".4" : ".3", wide ? 5 : 4,
                wide ? HexOf(port >> 8) + HexOf(port & 255) + "1F90" : HexOf(port) + "F1");
        }
    for (int bit = 0; bit < 8; ++bit)
        add("service-centre control, bit " + std::to_string(bit), ".5", 0x06, HexOf(1 << bit));
    for (const int source : {0, 1, 2, 3, 4, 255})
        add("source of the header " + std::to_string(source), ".6", 0x07, HexOf(source));
    for (const int mode : {0x00, 0x01, 0x02, 0x03, 0x04, 0x08, 0x0C, 0x10, 0x20, 0x40, 0x80})
        add("text formatting, mode " + HexOf(mode), ".10.1.1", 0x0A, "0104" + HexOf(mode));
    add("text formatting, colour", ".10.1.1", 0x0A, "010400A5");
    add("object distribution, forwarding allowed", ".10.1.16", 0x17, "0200");
    add("object distribution, forwarding forbidden", ".10.1.16", 0x17, "0201");
    add("hyperlink", ".11", 0x21, "01020416");
    add("reply address, digits", ".12", 0x22, "0591214365");
    add("reply address, letters", ".12", 0x22, "04D0C130");
    add("reply address, bit 7 of its type is clear", ".12", 0x22, "04112143");
}

void AddRules(File& file) {
    const std::string clause = "TS 23.040, 9.2.3.24";
    const auto add = [&](const std::string& name, std::initializer_list<Octets> elements) {
        file.Deliver(name, clause, HeadedDeliver(Header(elements)));
    };
    const Octets narrow = HeaderElement(0x00, FromHex("2A0302")),
                 wide = HeaderElement(0x08, FromHex("012C0201")),
                 narrowPorts = HeaderElement(0x04, FromHex("F0F1")),
                 widePorts = HeaderElement(0x05, FromHex("1F901F91"));
    add("no element", {});
    for (int length = 1; length <= 9; ++length)
        add("a header of " + std::to_string(length + 3) + " octets",
            {HeaderElement(0x80, Octets(static_cast<std::size_t>(length), 0x55))});
    add("concatenation twice: the last one holds", {narrow, HeaderElement(0x00, FromHex("2B0201"))});
    add("both concatenations: the last one holds", {narrow, wide});
    add("both concatenations the other way round", {wide, narrow});
    add("both ports: the last one holds", {narrowPorts, widePorts});
    add("both ports the other way round", {widePorts, narrowPorts});
    add("single shift twice: the last one holds", {HeaderElement(0x24, One(1)), HeaderElement(0x24, One(3))});
    add("an element that may stand many times",
        {HeaderElement(0x01, FromHex("0003")), HeaderElement(0x01, FromHex("8102"))});
    for (const char* invalid : {"2A0001", "2A0200", "2A0203"})
        add(std::string("concatenation ") + invalid + " is ignored", {HeaderElement(0x00, FromHex(invalid))});
    add("an earlier concatenation counts where a later one is ignored",
        {narrow, HeaderElement(0x08, FromHex("012C0203"))});
    add("an unknown single shift language", {HeaderElement(0x24, One(14))});
    add("an unknown locking shift language", {HeaderElement(0x25, One(255))});
    add("language 0", {HeaderElement(0x24, One(0)), HeaderElement(0x25, One(0))});
    add("Spanish has no locking shift table", {HeaderElement(0x25, One(2))});
    add("an earlier language counts where a later one is ignored",
        {HeaderElement(0x25, One(3)), HeaderElement(0x25, One(2))});
    for (int i = 0; i < 0x26; ++i) {
        const ElementRule& rule = TheTables().elements.at(static_cast<std::size_t>(i));
        if (rule.reserved)
            continue;
        if (rule.least > 0)
            add("element " + HexOf(i) + " too short",
                {HeaderElement(i, Octets(std::min<std::size_t>(rule.least - 1, 90), 1))});
        if (rule.most < 20)
            add("element " + HexOf(i) + " too long", {HeaderElement(i, Octets(rule.most + 1, 1))});
    }
    add("a reply address that does not fill its element", {HeaderElement(0x22, FromHex("0281214300"))});
    add("a reply address longer than its element", {HeaderElement(0x22, FromHex("06812143"))});
    add("an element of no octets", {HeaderElement(0x09, {})});
    const auto raw = [&](const std::string& name, const std::string& data, int coding) {
        file.Deliver(name, clause, DeliverOf(FromHex(data), coding, c_headed));
    };
    raw("an element overruns the header", "0C0400030A02A0B4B9", 0);
    raw("an element overruns the header, octets", "08040005010203FFFE", 4);
    raw("one octet is left over in the header", "0603000180AABB", 4);
    raw("an identifier alone", "0601000000AABB", 4);
    raw("a fill bit is set", "090500030102019169", 0);
    raw("the header is the whole user data", "0605000301020155", 4);
    raw("the header is longer than the user data", "05050003010201", 4);
    raw("the header is longer than the octets", "06050003", 4);
    raw("no room for the header's length", "00", 4);
    raw("no room for the header's length, septets", "00", 0);
    raw("TP-UDL counts the header's octets but not its last septet", "06050003010201", 0);
    raw("TP-UDL counts the header alone", "07050003010201AA", 0);
    raw("a header before UCS2", "08050003010201D83D", 8);
    raw("a header before UCS2, no unit whole", "07050003010201D8", 8);
    raw("a header before compressed text", "0A05000301020141424344", 0x20);
    raw("UDHL 0 before octets", "03004142", 4);
}

VectorFile Headers() {
    File file("headers");
    AddElements(file);
    AddRules(file);
    return file.Take();
}

// ---- user data
// -------------------------------------------------------------------------------------------------

VectorFile UserData() {
    File file("user-data");
    const auto add = [&](const std::string& name, int coding, const std::string& data) {
        file.Deliver(name, "TS 23.040, 9.2.3.24", DeliverOf(FromHex(data), coding));
    };
    for (const int coding : {0, 4, 8}) {
        const std::string alphabet = coding == 0 ? "septets" : coding == 4 ? "octets" : "UCS2";
        add(alphabet + ", none", coding, "00");
        add(alphabet + ", none and one octet left over", coding, "0041");
        add(alphabet + ", none of those announced", coding, "04");
        add(alphabet + ", one octet of those announced", coding, "0841");
        add(alphabet + ", three octets of those announced", coding, "08414243");
        add(alphabet + ", left over", coding, coding == 0 ? "01410042" : "020041BB");
    }
    for (int length = 1; length <= 17; ++length)
        file.Deliver(
            std::to_string(length) + " septets", "TS 23.038, 6.1.2.1",
            DeliverOf(SeptetData(
                {}, Plain(std::string("ABCDEFGHIJKLMNOPQ").substr(0, static_cast<std::size_t>(length))))));
    file.Deliver("seven septets and seven bits that are none", "TS 23.038, 6.1.2.1.1",
                 DeliverOf(FromHex("0741E19058341E01")));
    file.Deliver("160 septets", "TS 23.040, 9.2.3.16", DeliverOf(SeptetData({}, Septets(160, 0x61))));
    file.Deliver("140 octets", "TS 23.040, 9.2.3.16", DeliverOf(OctetData({}, Octets(140, 0xA5)), 4));
    file.Deliver("more than 160 septets", "TS 23.040, 9.2.3.16",
                 DeliverOf(SeptetData({}, Septets(168, 0x61))));
    file.Deliver("more than 140 octets", "TS 23.040, 9.2.3.16",
                 DeliverOf(OctetData({}, Octets(148, 0xA5)), 4));
    add("UCS2, a pair of halves", 8, "04D83DDE00");
    add("UCS2, the first pair and the last", 8, "08D800DC00DBFFDFFF");
    add("UCS2, a first half alone", 8, "04D83D0041");
    add("UCS2, a second half alone", 8, "04DE000041");
    add("UCS2, halves the wrong way round", 8, "04DE00D83D");
    add("UCS2, two first halves and a second", 8, "06D83DD83DDE00");
    add("UCS2, a first half at the end", 8, "040041D83D");
    add("UCS2, an odd octet", 8, "03004142");
    add("UCS2, an odd octet alone", 8, "0142");
    add("UCS2, a first half and an odd octet", 8, "03D83DDE");
    add("UCS2, noncharacters, NUL and a byte order mark", 8, "08FFFE0000FEFFFFFF");
    add("UCS2, edges of UTF-8's lengths", 8, "0C007F008007FF0800FFFDE000");
    return file.Take();
}

// ---- types
// -----------------------------------------------------------------------------------------------------

struct Sample {
    const char* name;
    Direction direction;
    Octets tpdu;
};

std::vector<Sample> AllTypes() {
    const Octets data = SomeData();
    return {
        {"SMS-DELIVER", Direction::TO_MOBILE, DeliverOf(data)},
        {"SMS-DELIVER-REPORT", Direction::FROM_MOBILE, Join({FromHex("00D3077F00"), data})},
        {"SMS-SUBMIT", Direction::FROM_MOBILE, SubmitOf(0x11, One(0xAA), data)},
        {"SMS-SUBMIT-REPORT", Direction::TO_MOBILE,
         Join({FromHex("01C107"), SomeTime(), FromHex("7F00"), data})},
        {"SMS-STATUS-REPORT", Direction::TO_MOBILE, StatusReportOf(0, Join({FromHex("077F00"), data}))},
        {"SMS-COMMAND", Direction::FROM_MOBILE, CommandOf(2, FromHex("03A1A2A3"))},
    };
}

void AddTypes(File& file) {
    const Octets centre = CentreAddress("4915550199");
    for (const auto& [name, direction, tpdu] : AllTypes()) {
        const Octets whole = Join({centre, tpdu});
        const auto add = [&, &name = name](const std::string& how, const Input& input) {
            file.Add(std::string(name) + how, "TS 23.040, 9.2.2", input);
        };
        add("", {tpdu, Known::NO, direction, {}, Known::UNKNOWN});
        add(", service centre", {whole, Known::YES, direction, {}, Known::UNKNOWN});
        add(", direction not told", {tpdu, Known::NO, Direction::UNKNOWN, {}, Known::UNKNOWN});
        add(", nothing told", {tpdu, Known::UNKNOWN, Direction::UNKNOWN, {}, Known::UNKNOWN});
        add(", service centre, nothing told",
            {whole, Known::UNKNOWN, Direction::UNKNOWN, {}, Known::UNKNOWN});
        add(", length tells of no service centre",
            {tpdu, Known::UNKNOWN, direction, tpdu.size(), Known::UNKNOWN});
        add(", length tells of a service centre",
            {whole, Known::UNKNOWN, direction, tpdu.size(), Known::UNKNOWN});
        add(", length tells nothing", {whole, Known::UNKNOWN, direction, tpdu.size() + 1, Known::UNKNOWN});
        add(", another length announced", {tpdu, Known::NO, direction, tpdu.size() + 1, Known::UNKNOWN});
        add(", one octet more", {Join({tpdu, One(0xEE)}), Known::NO, direction, {}, Known::UNKNOWN});
    }
}

void AddFirstOctets(File& file) {
    for (const auto& [name, direction, tpdu] : AllTypes())
        for (int bit = 2; bit < 8; ++bit) {
            Octets octets = tpdu;
            if (std::string(name) == "SMS-SUBMIT" && (bit == 3 || bit == 4))
                octets =
                    SubmitOf(0x01 | 1 << bit, bit == 3 ? FromHex("01A80000000000") : One(0xAA), SomeData());
            else
                octets[0] = static_cast<std::uint8_t>(octets[0] ^ 1U << bit);
            file.Add(std::string(name) + ", first octet " + HexOf(octets[0]), "TS 23.040, 9.2.3.1",
                     {octets, Known::NO, direction, {}, Known::UNKNOWN});
        }
    for (const Direction direction : {Direction::TO_MOBILE, Direction::FROM_MOBILE, Direction::UNKNOWN})
        file.Add(direction == Direction::UNKNOWN     ? "the reserved type, direction not told"
                 : direction == Direction::TO_MOBILE ? "the reserved type to the mobile"
                                                     : "the reserved type from the mobile",
                 "TS 23.040, 9.2.3.1",
                 {DeliverOf(SomeAddress(), 0, 0, SomeTime(), SomeData(), 0x07),
                  Known::NO,
                  direction,
                  {},
                  Known::UNKNOWN});
}

void AddReports(File& file) {
    const Octets data = SomeData();
    const auto report = [&](const std::string& name, const Octets& octets, Known cause) {
        file.Add(name, "TS 23.040, 9.2.2.1a", {octets, Known::NO, Direction::FROM_MOBILE, {}, cause});
    };
    for (const Known cause : {Known::UNKNOWN, Known::YES, Known::NO}) {
        const std::string told = cause == Known::UNKNOWN ? "not told"
                                 : cause == Known::YES   ? "told"
                                                         : "told that there is none";
        report("DELIVER-REPORT without TP-FCS, " + told, FromHex("000000"), cause);
        report("DELIVER-REPORT with TP-FCS, " + told, FromHex("00D300"), cause);
        report("DELIVER-REPORT, TP-PI extended, " + told, FromHex("0081007F"), cause);
    }
    for (int indicator = 0; indicator < 8; ++indicator) {
        Octets rest = One(indicator);
        if ((indicator & 1) != 0)
            rest = Join({rest, One(0x7F)});
        if ((indicator & 2) != 0)
            rest = Join({rest, One(0x04)});
        if ((indicator & 4) != 0)
            rest = Join({rest, (indicator & 2) != 0 ? FromHex("02A1A2") : data});
        report("DELIVER-REPORT, TP-PI " + HexOf(indicator), Join({One(0), rest}), Known::NO);
        file.Deliver("STATUS-REPORT, TP-PI " + HexOf(indicator), "TS 23.040, 9.2.2.3",
                     StatusReportOf(0, rest));
    }
    for (int bit = 3; bit < 7; ++bit)
        report("DELIVER-REPORT, reserved bit " + std::to_string(bit) + " of TP-PI",
               Join({One(0), One(1 << bit)}), Known::NO);
    report("TP-PI of three octets", FromHex("00818001207F"), Known::NO);
    report("only TP-FCS and TP-PI", FromHex("00FF00"), Known::UNKNOWN);
    file.Deliver("STATUS-REPORT that ends after TP-ST", "TS 23.040, 9.2.2.3", StatusReportOf(0x30, {}));
    file.Deliver(
        "STATUS-REPORT with a header", "TS 23.040, 9.2.2.3",
        StatusReportOf(
            0, Join({One(4), SeptetData(Header({HeaderElement(0x00, FromHex("2A0201"))}), Plain("Test"))}),
            0x46));
    file.Deliver("SUBMIT-REPORT without TP-FCS", "TS 23.040, 9.2.2.2a", Join({FromHex("0100"), SomeTime()}));
    file.Submit("COMMAND without data", "TS 23.040, 9.2.2.4", CommandOf(0, One(0)));
    file.Submit("COMMAND with a header", "TS 23.040, 9.2.2.4", CommandOf(0, FromHex("050306010141"), 0x42));
}

VectorFile Types() {
    File file("types");
    AddTypes(file);
    AddFirstOctets(file);
    AddReports(file);
    return file.Take();
}

/// Every type cut after every octet.
VectorFile Cuts() {
    File file("cuts");
    for (const auto& [name, direction, tpdu] : AllTypes())
        for (std::size_t length = 0; length < tpdu.size(); ++length)
            file.Add(std::string(name) + ", " + std::to_string(length) + " octets of " +
                         std::to_string(tpdu.size()),
                     "TS 23.040, 9.2.2",
                     {Octets(tpdu.begin(), tpdu.begin() + static_cast<std::ptrdiff_t>(length)),
                      Known::NO,
                      direction,
                      {},
                      Known::UNKNOWN});
    const Octets whole = Join({CentreAddress("4915550199"), DeliverOf(SomeData())});
    for (std::size_t length = 0; length <= 8; ++length)
        file.Add("service centre, " + std::to_string(length) + " octets", "TS 24.011, 8.2.5.1",
                 {Octets(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)),
                  Known::YES,
                  Direction::TO_MOBILE,
                  {},
                  Known::UNKNOWN});
    file.Add("nothing", "TS 23.040, 9.2.2", {});
    return file.Take();
}

} // namespace

std::vector<VectorFile> WrittenFiles() {
    return {Alphabets(),  DataCoding(), Values(),   Addresses(), Times(),
            Validities(), Headers(),    UserData(), Types(),     Cuts()};
}

std::string TextOf(const VectorFile& file) {
    std::string text;
    for (const Vector& vector : file.vectors) {
        Json json = {{"name", vector.name}, {"clause", vector.clause}, {"by", "reading"}};
        AddInput(json, vector.input);
        json["means"] = ToJson(Read(vector.input));
        text += json.dump() + "\n";
    }
    return text;
}

} // namespace plain
