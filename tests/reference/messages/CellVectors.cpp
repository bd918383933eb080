#include "CellVectors.h"

#include <cstdio>

#include "CellJson.h"
#include "Compose.h"
#include "model/Tables.h"

namespace plain {

namespace {

constexpr std::size_t c_content = 82;

const std::string c_page = "TS 23.041, 9.4.1.2";
const std::string c_message = "TS 23.041, 9.4.2.2";
const std::string c_notification = "TS 23.041, 9.4.1.3";
const std::string c_coding = "TS 23.038, 5";

Octets Page(const Octets& content, int coding = 0x0F, int parameter = 0x11, int identifier = 50,
            int serial = 0x4120) {
    return Join({Word(serial), Word(identifier), One(coding), One(parameter), content});
}

/// Septets filled up with carriage returns to a whole page.
Octets Full(Septets septets) {
    septets.resize(93, 0x0D);
    return Packed(septets);
}

Octets Units(const std::u16string& text) {
    Octets octets;
    for (const char16_t unit : text) {
        octets.push_back(static_cast<std::uint8_t>(unit >> 8));
        octets.push_back(static_cast<std::uint8_t>(unit));
    }
    return octets;
}

/// One page of a UMTS message: 82 octets, and how many of them are used.
Octets Slot(Octets content, int used) {
    content.resize(c_content);
    content.push_back(static_cast<std::uint8_t>(used));
    return content;
}

Octets Message(int pages, const Octets& slots, int coding = 0x0F, int type = 1) {
    return Join({One(type), Word(4370), Word(0x7010), One(coding), One(pages), slots});
}

Octets Notification(int type, const Octets& security, int identifier = 4352, int serial = 0x3000) {
    return Join({Word(serial), Word(identifier), Word(type), security});
}

Octets Security(const Octets& time) {
    Octets signature(43);
    for (std::size_t i = 0; i < signature.size(); ++i)
        signature[i] = static_cast<std::uint8_t>(0xA0 + i);
    return Join({time, signature});
}

std::string HexName(int value) {
    char text[8];
    std::snprintf(text, sizeof text, "%02X", value);
    return text;
}

class Vectors {
public:
    void Add(const std::string& name, const std::string& clause, const Octets& octets,
             const std::string& format = "") {
        m_All.push_back({name, clause, {octets, format}});
    }
    std::vector<CellVector> Take() { return std::move(m_All); }

private:
    std::vector<CellVector> m_All;
};

void AddIdentifiers(Vectors& vectors) {
    for (Row& row : ReadTable("cbs-message-identifiers"))
        for (const char* end : {"from", "to"})
            if (end == std::string("from") || row["from"] != row["to"])
                vectors.Add("identifier " + row[end], "TS 23.041, 9.4.1.2.2",
                            Page(Packed(Plain("Test")), 0x01, 0x11, std::stoi(row[end]), 0xB5A7));
}

void AddCodings(Vectors& vectors) {
    // The octets make sense, or none, in every alphabet: a header, then letters.
    const Octets content = Join({FromHex("020000"), Units(u"Ab"), FromHex("61F1")});
    for (int coding = 0; coding < 256; ++coding)
        vectors.Add("data coding " + HexName(coding), c_coding, Page(content, coding));
}

void AddSerials(Vectors& vectors) {
    for (int scope = 0; scope < 4; ++scope)
        vectors.Add("scope " + std::to_string(scope), "TS 23.041, 9.4.1.2.1",
                    Page(Packed(Plain("Test")), 0x01, 0x11, 50, scope << 14 | 0x0015));
    for (const int serial : {0x0000, 0x1000, 0x2000, 0x3000, 0x000F, 0x3FF0, 0xFFFF})
        vectors.Add("serial number " + std::to_string(serial) + " of a warning", "TS 23.041, 9.4.1.2.1",
                    Page(Packed(Plain("Test")), 0x01, 0x11, 4353, serial));
}

void AddParameters(Vectors& vectors) {
    for (const int parameter : {0x00, 0x01, 0x10, 0x12, 0x22, 0x1F, 0xFF, 0x32, 0xF1})
        vectors.Add("page parameter " + HexName(parameter), "TS 23.041, 9.4.1.2.4",
                    Page(Packed(Plain("Test")), 0x01, parameter));
}

void AddLengths(Vectors& vectors) {
    for (std::size_t length = 0; length <= 8; ++length) {
        const Octets whole = Page(Packed(Plain("Test")));
        vectors.Add("a page of " + std::to_string(length) + " octets", c_page,
                    {whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)});
    }
    vectors.Add("93 septets", c_page, Page(Packed(Septets(93, 'x'))));
    vectors.Add("93 septets and five bits after them", c_page, Page(Octets(82, 0xFF), 0x0F));
    vectors.Add("41 units", c_page, Page(Units(std::u16string(41, u'ж')), 0x48));
    vectors.Add("82 octets of data", c_page, Page(Octets(82, 0xA5), 0x44));
    vectors.Add("one octet too many", c_page, Page(Octets(83, 0x11)));
    vectors.Add("two octets too many", c_page, Page(Units(std::u16string(42, u'ж')), 0x48));
    vectors.Add("one octet of text", c_page, Page(One('A')));
    vectors.Add("an odd octet", c_page, Page(FromHex("043F04"), 0x48));
}

void AddPadding(Vectors& vectors) {
    const std::string clause = "TS 23.038, 5";
    vectors.Add("padded with returns", clause, Page(Full(Plain("Alert"))));
    vectors.Add("a return in the text stays", clause, Page(Full(Plain("one\r\ntwo"))));
    vectors.Add("nothing but padding", clause, Page(Full({})));
    Septets zeros = Plain("Alert\r");
    zeros.resize(93);
    vectors.Add("a return and zeros", clause, Page(Packed(zeros)));
    zeros = Plain("Alert");
    zeros.resize(93);
    vectors.Add("nothing but zeros after the text", clause, Page(Packed(zeros)));
    for (const std::size_t count : {1U, 7U, 8U}) {
        zeros = Plain("Alert");
        zeros.resize(5 + count);
        vectors.Add(std::to_string(count) + " zeros", clause, Page(Packed(zeros)));
    }
    for (const std::size_t count : {1U, 2U, 7U}) {
        zeros = Septets(93 - count, 'x');
        zeros.resize(93);
        vectors.Add(std::to_string(count) + " zeros to the end of a page", clause, Page(Packed(zeros)));
    }
    vectors.Add("a return and an at sign before the padding", clause, Page(Full({'a', 0x0D, 0})));
    vectors.Add("a return and an at sign to the end of a page", clause,
                Page(Packed(Plain(std::string(91, 'x') + std::string("\r\0", 2)))));
    vectors.Add("zeros, returns and zeros", clause, Page(Packed({'a', 0, 0x0D, 0x0D, 0, 0})));
    vectors.Add("an at sign before the padding", clause, Page(Full({'a', 0, 0, 0x0D, 0x0D})));
    vectors.Add("an escape before the padding", clause, Page(Full({'a', 0x1B})));
    vectors.Add("two escapes before the padding", clause, Page(Full({'a', 0x1B, 0x1B})));
    vectors.Add("an escape before zeros", clause, Page(Packed({'a', 'b', 0x1B, 0, 0, 0, 0, 0, 0, 0, 0, 0})));
    vectors.Add("an escape at the end", clause, Page(Packed({'a', 0x1B})));
    vectors.Add("an escape without a character", clause, Page(Full({0x1B, 'a', 'b'})));
    vectors.Add("the euro sign", clause, Page(Full({0x1B, 0x65})));
    vectors.Add("UCS2 padded with returns", clause,
                Page(Units(u"Тревога" + std::u16string(34, u'\r')), 0x48));
    vectors.Add("UCS2 padded with zeros", clause, Page(Units(u"Тревога" + std::u16string(34, u'\0')), 0x48));
    vectors.Add("UCS2, a return in the text", clause, Page(Units(u"а\rб\r"), 0x48));
    vectors.Add("UCS2, two halves", clause, Page(FromHex("D83DDEA8"), 0x48));
    vectors.Add("UCS2, half a character", clause, Page(FromHex("0041D83D"), 0x48));
    vectors.Add("UCS2, a first unit of 0", clause, Page(FromHex("00000041"), 0x48));
}

void AddLanguages(Vectors& vectors) {
    vectors.Add("a language before septets", c_coding, Page(Full(Plain("en\rTake cover")), 0x10));
    vectors.Add("a language before septets, alone", c_coding, Page(Packed(Plain("fr\r")), 0x10));
    vectors.Add("a language in capitals", c_coding, Page(Full(Plain("EN\rTake cover")), 0x10));
    vectors.Add("no return after the letters", c_coding, Page(Full(Plain("enTake cover")), 0x10));
    vectors.Add("no letter first", c_coding, Page(Full(Plain("1n\rTake cover")), 0x10));
    vectors.Add("no letter second", c_coding, Page(Full(Plain("e{\rTake cover")), 0x10));
    vectors.Add("too short for a language", c_coding, Page(Packed(Plain("en")), 0x10));
    vectors.Add("a language on the second page", c_coding, Page(Full(Plain("en\rTake cover")), 0x10, 0x22));
    vectors.Add("no language on the second page", c_coding, Page(Full(Plain("Take cover")), 0x10, 0x22));
    const Octets ukrainian = Join({Packed(Plain("uk")), Units(u"Увага")});
    vectors.Add("a language before units", c_coding, Page(ukrainian, 0x11));
    vectors.Add("a language before units of the second page", c_coding, Page(ukrainian, 0x11, 0x22));
    vectors.Add("a language with bits after it", c_coding, Page(Join({FromHex("F27A"), Units(u"Да")}), 0x11));
    vectors.Add("units without a language", c_coding, Page(Units(u"Увага"), 0x11));
    vectors.Add("units without a language on the second page", c_coding, Page(Units(u"Увага"), 0x11, 0x22));
    vectors.Add("units like letters, but for the two bits after them", c_coding,
                Page(FromHex("F2BA0414"), 0x11));
    vectors.Add("a line break before units of the second page", c_coding,
                Page(Join({FromHex("0D0A"), Units(u"宮城")}), 0x11, 0x22));
    vectors.Add("a line break before units", c_coding, Page(Join({FromHex("0D0A"), Units(u"宮城")}), 0x11));
    vectors.Add("capitals before units of the second page", c_coding,
                Page(Join({Packed(Plain("UK")), Units(u"Увага")}), 0x11, 0x22));
    vectors.Add("one octet where a language belongs", c_coding, Page(One(0x61), 0x11));
    vectors.Add("one octet on the second page", c_coding, Page(One(0x61), 0x11, 0x22));
    vectors.Add("nothing where a language belongs", c_coding, Page({}, 0x11));
    vectors.Add("a language and nothing else", c_coding, Page(Packed(Plain("uk")), 0x11));
    vectors.Add("a language and an odd octet", c_coding, Page(Join({Packed(Plain("uk")), One(4)}), 0x11));
}

void AddHeaders(Vectors& vectors) {
    const std::string clause = "TS 23.038, 5";
    const auto headed = [](const Octets& header, const Septets& septets) {
        const int fill = static_cast<int>((7 - 8 * header.size() % 7) % 7);
        return Join({header, Packed(septets, fill)});
    };
    const Octets ports = Header({HeaderElement(0x05, FromHex("0B8423F0"))});
    vectors.Add("ports", clause, Page(headed(ports, Plain("Test")), 0x91));
    vectors.Add("ports before units", clause, Page(Join({ports, Units(u"Тест")}), 0x98));
    vectors.Add("ports before octets", clause, Page(Join({ports, FromHex("0102FF")}), 0x95));
    vectors.Add("Turkish single shift", clause,
                Page(headed(Header({HeaderElement(0x24, One(1))}), {0x1B, 'c', 0x1B, 's'}), 0x90));
    vectors.Add("Hindi locking shift", clause,
                Page(headed(Header({HeaderElement(0x25, One(6))}), {0x01, 0x02, 0x0B}), 0x90));
    vectors.Add("a septet without a character", clause,
                Page(headed(Header({HeaderElement(0x25, One(4))}), {0x0E}), 0x90));
    vectors.Add("escape and 0D in a single shift table", clause,
                Page(headed(Header({HeaderElement(0x24, One(2))}), {'a', 0x1B, 0x0D, 'b'}), 0x90));
    vectors.Add("a language that there is not", clause,
                Page(headed(Header({HeaderElement(0x24, One(99))}), Plain("Test")), 0x90));
    vectors.Add("a language before units, which have none", clause,
                Page(Join({Header({HeaderElement(0x25, One(1))}), Units(u"Да")}), 0x98));
    vectors.Add("fill bits", clause, Page(FromHex("0300010207C2"), 0x90));
    vectors.Add("an empty header", clause, Page(FromHex("00D4F2"), 0x90));
    vectors.Add("a header of one octet, alone", clause, Page(One(0), 0x90));
    vectors.Add("a header to the last octet", clause, Page(FromHex("0300010A"), 0x90));
    vectors.Add("a header beyond the page", clause, Page(FromHex("05000141"), 0x90));
    vectors.Add("a header beyond a page of units", clause, Page(FromHex("05000141"), 0x98));
    vectors.Add("no octet where a header belongs", clause, Page({}, 0x90));
    vectors.Add("an element that overruns", clause, Page(FromHex("030003AA414243"), 0x90));
    vectors.Add("octets left over in a header", clause, Page(FromHex("0400010155414243"), 0x90));
    vectors.Add("padding after a header", clause, Page(headed(ports, Plain("Test\r\r\r\r\r\r\r\r")), 0x90));
    vectors.Add("a part that cannot be", clause,
                Page(headed(Header({HeaderElement(0x00, FromHex("070203"))}), Plain("Test")), 0x90));
    vectors.Add(
        "an element twice", clause,
        Page(headed(Header({HeaderElement(0x00, FromHex("070201")), HeaderElement(0x00, FromHex("070202"))}),
                    Plain("Test")),
             0x90));
    vectors.Add("elements that exclude each other", clause,
                Page(headed(Header({HeaderElement(0x00, FromHex("070201")),
                                    HeaderElement(0x08, FromHex("00070202"))}),
                            Plain("Test")),
                     0x90));
    vectors.Add("a reserved element", clause,
                Page(headed(Header({HeaderElement(0x26, One(1))}), Plain("Test")), 0x90));
}

void AddMessages(Vectors& vectors) {
    const Octets one = Slot(Packed(Plain("Take cover")), 9);
    vectors.Add("one page", c_message, Message(1, one));
    vectors.Add("two pages", c_message,
                Message(2, Join({Slot(Packed(Septets(93, 'x')), 82), Slot(Packed(Plain("end")), 3)})));
    Octets fifteen;
    for (int page = 0; page < 15; ++page)
        fifteen =
            Join({fifteen, Slot(Packed(Plain("page " + std::string(1, static_cast<char>('a' + page)))), 6)});
    vectors.Add("fifteen pages", c_message, Message(15, fifteen));
    vectors.Add("units", c_message, Message(1, Slot(Units(u"Увага"), 10), 0x48));
    vectors.Add(
        "a language on each page", c_message,
        Message(2, Join({Slot(Packed(Plain("en\rone")), 6), Slot(Packed(Plain("en\rtwo")), 6)}), 0x10));
    vectors.Add("a language before units of each page", c_message,
                Message(2,
                        Join({Slot(Join({Packed(Plain("uk")), Units(u"Ув")}), 6),
                              Slot(Join({Packed(Plain("uk")), Units(u"ага")}), 8)}),
                        0x11));
    // U+6137 looks like "an" in septets, and U+0D0A is a letter of Malayalam.
    vectors.Add(
        "a character like a language on the second page", c_message,
        Message(2,
                Join({Slot(Join({Packed(Plain("ja")), Units(u"破る")}), 6), Slot(Units(u"\u6137\u0D0A"), 4)}),
                0x11));
    vectors.Add("a letter like a line break after a language", c_message,
                Message(2,
                        Join({Slot(Join({Packed(Plain("ml")), Units(u"\u0D0A")}), 4),
                              Slot(Units(u"\u0D0A\u0D05"), 4)}),
                        0x11));
    vectors.Add("a line break before units of each page", c_message,
                Message(2, Join({Slot(Units(u"\u0D0A地"), 4), Slot(Units(u"\u0D0A震"), 4)}), 0x11));
    vectors.Add(
        "a language after a first page without one", c_message,
        Message(2, Join({Slot(Units(u"地"), 2), Slot(Join({Packed(Plain("ja")), Units(u"震")}), 4)}), 0x11));
    vectors.Add("a header on each page", c_message,
                Message(2, Join({Slot(FromHex("03000102D4F2"), 6), Slot(FromHex("0300010299"), 5)}), 0x94));
    vectors.Add("data", c_message, Message(1, Slot(FromHex("00FF10"), 3), 0x44));
    vectors.Add("padded to its end", c_message, Message(1, Slot(Full(Plain("Take cover")), 82)));
    for (const int length : {0, 1, 81, 82, 83, 255})
        vectors.Add("page length " + std::to_string(length), c_message,
                    Message(1, Slot(Packed(Septets(93, 'x')), length)));
    for (const int count : {0, 16, 255})
        vectors.Add("number of pages " + std::to_string(count), c_message, Message(count, one), "umts");
    vectors.Add("sixteen pages announced and there", c_message, Message(16, Join({fifteen, one})), "umts");
    vectors.Add("another message type", c_message, Message(1, one, 0x0F, 2), "umts");
    vectors.Add("another message type, not told", c_message, Message(1, one, 0x0F, 2));
    vectors.Add("a page of two missing", c_message, Message(2, one), "umts");
    vectors.Add("a page of two missing, not told", c_message, Message(2, one));
    vectors.Add("half a page missing", c_message, Message(2, Join({one, FromHex("D4F29C")})), "umts");
    vectors.Add("only the page length missing", c_message, Message(2, Join({one, Octets(82, 0x11)})), "umts");
    vectors.Add("octets after the last page", c_message, Message(1, Join({one, FromHex("0102")})), "umts");
    vectors.Add("octets after the last page, not told", c_message, Message(1, Join({one, FromHex("0102")})));
    vectors.Add("no page, not told", c_message, Message(0, {}));
    const Octets head = Message(1, {});
    for (std::size_t length = 0; length <= head.size(); ++length)
        vectors.Add("a message of " + std::to_string(length) + " octets", c_message,
                    {head.begin(), head.begin() + static_cast<std::ptrdiff_t>(length)}, "umts");
}

void AddNotifications(Vectors& vectors) {
    for (Row& row : ReadTable("etws-warning-types"))
        for (const char* end : {"from", "to"})
            if (end == std::string("from") || row["from"] != row["to"])
                vectors.Add("warning type " + row[end], "TS 23.041, 9.3.24",
                            Notification(std::stoi(row[end]) << 9 | 0x0180, Security(SomeTime())));
    for (const int identifier : {4351, 4359, 4360})
        vectors.Add("56 octets with identifier " + std::to_string(identifier), c_notification,
                    Notification(0x0380, Security(SomeTime()), identifier));
    vectors.Add("told, with another identifier", c_notification,
                Notification(0x0380, Security(SomeTime()), 4370), "etws");
    vectors.Add("neither alert nor popup", c_notification, Notification(0x0200, Security(SomeTime())));
    vectors.Add("an alert", c_notification, Notification(0x0300, Security(SomeTime())));
    vectors.Add("a popup", c_notification, Notification(0x0280, Security(SomeTime())));
    vectors.Add("filling set", c_notification, Notification(0x0301, Security(SomeTime())));
    vectors.Add("a time of zeros", c_notification, Notification(0x0380, Security(Octets(7))));
    vectors.Add("a time out of range", c_notification,
                Notification(0x0380, Security(FromHex("62311280510300"))));
    vectors.Add("a time with a digit above 9", c_notification,
                Notification(0x0380, Security(FromHex("621112805103E1"))));
    vectors.Add("octets after a notification", c_notification,
                Notification(0x0380, Join({Security(SomeTime()), One(0x7F)})), "etws");
    vectors.Add("no security information", c_notification, Notification(0x0380, {}), "etws");
    vectors.Add("told to be a page", c_notification, Notification(0x0380, Security(SomeTime())), "gsm");
    const Octets whole = Notification(0x0380, Security(SomeTime()));
    for (const std::size_t length : {0U, 1U, 2U, 3U, 4U, 5U, 7U, 12U, 13U, 14U, 55U})
        vectors.Add("a notification of " + std::to_string(length) + " octets", c_notification,
                    {whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)}, "etws");
}

} // namespace

std::vector<CellVector> CellVectors() {
    Vectors vectors;
    AddIdentifiers(vectors);
    AddCodings(vectors);
    AddSerials(vectors);
    AddParameters(vectors);
    AddLengths(vectors);
    AddPadding(vectors);
    AddLanguages(vectors);
    AddHeaders(vectors);
    AddMessages(vectors);
    AddNotifications(vectors);
    return vectors.Take();
}

std::string TextOf(const std::vector<CellVector>& vectors) {
    std::string text;
    for (const CellVector& vector : vectors) {
        Json json = {{"name", vector.name}, {"clause", vector.clause}, {"by", "reading"}};
        AddInput(json, vector.input);
        json["means"] = ToJson(ReadCell(vector.input));
        text += json.dump() + "\n";
    }
    return text;
}

} // namespace plain
