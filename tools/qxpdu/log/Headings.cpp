#include "log/Headings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <utility>
#include <vector>

#include "characters/Letters.h"
#include "log/AwaitedPdu.h"

namespace qxpdu {

namespace {

using Messages::Direction;

/// What follows a name, as it has to be read.
enum class Form {
    Listed,       ///< index, stat, [alpha], length
    Read,         ///< [index,] stat, [alpha], length
    Delivered,    ///< [alpha], length
    Typed,        ///< length
    Written,      ///< length [, stat]
    Acknowledged, ///< n, length
    Reference,    ///< mr [, acknowledgement]
    Notice        ///< anything
};

struct Name {
    std::string_view text;
    char separator;
    Form form;
    Heading::Kind kind;
    Direction direction; ///< where no status tells
    bool isSent = false;
};

constexpr auto c_tpdu = Heading::Kind::Tpdu;
constexpr auto c_page = Heading::Kind::Page;
constexpr auto c_acknowledgement = Heading::Kind::Acknowledgement;

/// Those with "^" leave a message unread.
constexpr std::array c_names = {
    Name{"+CMGL", ':', Form::Listed, c_tpdu, Direction::Unknown},
    Name{"^SMGL", ':', Form::Listed, c_tpdu, Direction::Unknown},
    Name{"+CMGR", ':', Form::Read, c_tpdu, Direction::Unknown},
    Name{"^SMGR", ':', Form::Read, c_tpdu, Direction::Unknown},
    Name{"+CMT", ':', Form::Delivered, c_tpdu, Direction::ToMobile},
    Name{"+CDS", ':', Form::Delivered, c_tpdu, Direction::ToMobile},
    Name{"+CBM", ':', Form::Delivered, c_page, Direction::ToMobile},
    Name{"+CMGS", '=', Form::Typed, c_tpdu, Direction::FromMobile, true},
    Name{"+CMGW", '=', Form::Written, c_tpdu, Direction::FromMobile},
    Name{"+CMGC", '=', Form::Typed, c_tpdu, Direction::FromMobile, true},
    Name{"+CNMA", '=', Form::Acknowledged, c_acknowledgement, Direction::FromMobile},
    Name{"+CMGS", ':', Form::Reference, Heading::Kind::Reference, Direction::ToMobile},
    Name{"+CMGC", ':', Form::Reference, Heading::Kind::Reference, Direction::ToMobile},
    Name{"+CMGW", ':', Form::Notice, c_tpdu, Direction::Unknown},
    Name{"+CMTI", ':', Form::Notice, c_tpdu, Direction::Unknown},
    Name{"+CDSI", ':', Form::Notice, c_tpdu, Direction::Unknown},
    Name{"+CBMI", ':', Form::Notice, c_tpdu, Direction::Unknown},
};

/// What ends an answer, alone in its line or before a blank.
constexpr std::string_view c_ok = "OK";
constexpr std::string_view c_error = "ERROR";
constexpr std::array c_answers = {c_ok,
                                  c_error,
                                  std::string_view("+CME ERROR"),
                                  std::string_view("+CMS ERROR"),
                                  std::string_view("NO CARRIER"),
                                  std::string_view("NO ANSWER"),
                                  std::string_view("NO DIALTONE"),
                                  std::string_view("BUSY"),
                                  std::string_view("CONNECT")};

/// What modems say unasked without a colon.
constexpr std::array<std::string_view, 9> c_unasked = {"RING",      "RDY",        "SMS READY",
                                                       "SIM READY", "PB DONE",    "CALL READY",
                                                       "SMS DONE",  "POWER DOWN", "NORMAL POWER DOWN"};

/// What begins the names of commands and of what modems say: those of the standards, and of single makers.
constexpr std::string_view c_nameMarks = "+^%*#$_!&";
constexpr std::string_view c_command = "AT";
constexpr std::size_t c_mostDigits = 5; ///< of a value

struct Value {
    std::string_view text; ///< without its quotation marks
    bool isQuoted = false;

    bool IsEmpty() const { return text.empty(); }
    bool IsNumber() const { return !isQuoted && !text.empty(); }
    unsigned int Number() const {
        unsigned int number = 0;
        std::from_chars(text.data(), text.data() + text.size(), number);
        return number;
    }
};

bool IsBlank(char character) {
    return character == ' ' || character == '\t';
}

std::size_t SkipBlanks(std::string_view line, std::size_t at) {
    while (at < line.size() && IsBlank(line[at]))
        ++at;
    return at;
}

/// Where the closing quotation mark stands; one that is doubled closes nothing.
std::size_t EndOfQuoted(std::string_view line, std::size_t at) {
    for (; at < line.size(); ++at) {
        if (line[at] != '"')
            continue;
        if (at + 1 == line.size() || line[at + 1] != '"')
            return at;
        ++at;
    }
    return std::string_view::npos;
}

/// Digits of the length that a PDU follows at once, where no line ends are printed; 0 where none does.
std::size_t LengthBeforePdu(std::string_view text) {
    constexpr std::size_t c_most = 3;
    for (std::size_t size = 1; size <= c_most && size < text.size() && IsDecimal(text[size - 1]); ++size) {
        Heading heading;
        heading.length = Value{text.substr(0, size)}.Number();
        const std::string_view rest = text.substr(size);
        const auto* const end = std::find_if_not(rest.begin(), rest.end(), IsHexDigit);
        const std::string_view digits = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
        if (AwaitedPdu(heading).IsWhole(digits))
            return size;
    }
    return 0;
}

/// The value at a place, and where it ends; nothing where something else stands there.
std::optional<std::pair<Value, std::size_t>> ReadValue(std::string_view line, std::size_t at) {
    if (at < line.size() && line[at] == '"') {
        const std::size_t end = EndOfQuoted(line, at + 1);
        if (end == std::string_view::npos)
            return std::nullopt;
        return std::pair(Value{line.substr(at + 1, end - at - 1), true}, end + 1);
    }
    std::size_t end = at;
    while (end < line.size() && IsAlphanumeric(line[end]))
        ++end;
    std::string_view text = line.substr(at, end - at);
    if (text.size() > c_mostDigits) {
        text = text.substr(0, LengthBeforePdu(text));
        end = at + text.size();
        if (text.empty())
            return std::nullopt;
    }
    if (!std::all_of(text.begin(), text.end(), IsDecimal))
        return std::nullopt;
    return std::pair(Value{text, false}, end);
}

struct Values {
    std::vector<Value> list;
    std::size_t end = 0; ///< after the last one
};

Values ReadValues(std::string_view line, std::size_t at) {
    Values values{{}, at};
    for (;;) {
        const auto read = ReadValue(line, SkipBlanks(line, at));
        if (!read)
            return values;
        values.list.push_back(read->first);
        values.end = read->second;
        const std::size_t comma = SkipBlanks(line, values.end);
        if (comma == line.size() || line[comma] != ',')
            return values;
        at = comma + 1;
    }
}

Direction DirectionOf(const Value& status) {
    constexpr unsigned int c_firstStored = 2; // 0 and 1 are received, 2 and 3 stored ones
    constexpr unsigned int c_last = 3;
    if (!status.IsNumber() || status.Number() > c_last)
        return Direction::Unknown;
    return status.Number() < c_firstStored ? Direction::ToMobile : Direction::FromMobile;
}

bool AnyQuoted(const std::vector<Value>& values) {
    return std::any_of(values.begin(), values.end(),
                       [](const Value& value) { return value.isQuoted && !value.IsEmpty(); });
}

/// Numbers before the first value that is none; the length, which is the last of all, is not counted.
std::size_t LeadingNumbers(const std::vector<Value>& values) {
    const auto last = values.end() - 1;
    return static_cast<std::size_t>(
        std::find_if(values.begin(), last, [](const Value& value) { return !value.IsNumber(); }) -
        values.begin());
}

/// Reads the values of one form into a mark that is still empty.
class Reader {
public:
    Reader(const Name& name, const std::vector<Value>& values, Mark& mark)
        : m_Name(name), m_Values(values), m_Mark(mark) {}

    void Read() {
        if (m_Values.empty() || (m_Values.size() == 1 && m_Values[0].IsEmpty() && !m_Values[0].isQuoted))
            return;
        switch (m_Name.form) {
        case Form::Listed:
        case Form::Read:
            return ReadStored();
        case Form::Delivered:
            return ReadDelivered();
        case Form::Typed:
            return m_Values.size() == 1 && m_Values[0].IsNumber() ? Follows(m_Values[0]) : TextMode();
        case Form::Written:
            return ReadWritten();
        case Form::Acknowledged:
            if (m_Values.size() == 2 && m_Values[1].IsNumber())
                Follows(m_Values[1]);
            return;
        case Form::Reference:
            return ReadReference();
        case Form::Notice:
            m_Mark.kind = Mark::Kind::Notice;
            return;
        }
    }

private:
    void TextMode() { m_Mark.kind = Mark::Kind::TextMode; }

    void Follows(const Value& length) {
        m_Mark.heading.length = length.Number();
        if (m_Mark.heading.length != 0U) // else of an empty place, after which nothing comes
            m_Mark.kind = Mark::Kind::Heading;
    }

    /// The status is the last of the numbers before the alphabetic name, of which a list has two.
    void ReadStored() {
        constexpr std::size_t c_most = 5; // index, stat, alpha, one that only some modems give, length
        const std::size_t leading = LeadingNumbers(m_Values);
        const std::size_t statusAt = m_Name.form == Form::Listed ? 2 : 1;
        if (leading < statusAt && AnyQuoted(m_Values))
            return TextMode();
        const bool isCut = m_Values.back().IsEmpty() && !AnyQuoted(m_Values); // by whom read it in pieces
        if (leading == 0 || isCut)
            return;
        if (m_Values.size() > c_most || !m_Values.back().IsNumber())
            return TextMode();
        if (leading >= statusAt)
            m_Mark.heading.direction = DirectionOf(m_Values[leading - 1]);
        Follows(m_Values.back());
    }

    void ReadDelivered() {
        constexpr std::size_t c_most = 3;
        const bool lacksName = m_Values.size() > 1 && m_Values[0].IsNumber();
        if (!m_Values.back().IsNumber() || m_Values.size() > c_most || lacksName)
            return TextMode();
        Follows(m_Values.back());
    }

    void ReadWritten() {
        constexpr std::size_t c_most = 2;
        if (!m_Values[0].IsNumber() || m_Values.size() > c_most)
            return TextMode();
        if (m_Values.size() == c_most && m_Values[1].IsNumber())
            m_Mark.heading.direction = DirectionOf(m_Values[1]);
        Follows(m_Values[0]);
    }

    void ReadReference() {
        if (!m_Values[0].IsNumber())
            return;
        m_Mark.kind = Mark::Kind::Heading;
        m_Mark.heading.reference = m_Values[0].Number();
        constexpr std::size_t c_fewest = 4; // the first octet, and a part of TP-SCTS
        if (m_Values.size() > 1 && m_Values[1].text.size() >= c_fewest && AreHexDigits(m_Values[1].text))
            m_Mark.heading.digits = m_Values[1].text;
    }

    const Name& m_Name;
    const std::vector<Value>& m_Values;
    Mark& m_Mark;
};

const Name* NameAt(std::string_view line, std::size_t at) {
    const auto* const name = std::find_if(c_names.begin(), c_names.end(), [&](const Name& candidate) {
        const std::size_t separator = SkipBlanks(line, at + candidate.text.size());
        return BeginsWith(line.substr(at), candidate.text) && separator < line.size() &&
               line[separator] == candidate.separator;
    });
    return name == c_names.end() ? nullptr : name;
}

Mark ReadMark(std::string_view line, std::size_t at, const Name& name) {
    Mark mark;
    const bool isCommand = name.separator == '=';
    mark.begin =
        isCommand && at >= c_command.size() && BeginsWith(line.substr(at - c_command.size()), c_command)
            ? at - c_command.size()
            : at;
    mark.heading.name = name.text;
    mark.heading.kind = name.kind;
    mark.heading.direction = name.direction;
    mark.heading.isTyped = isCommand;
    mark.heading.isStored = name.form == Form::Listed || name.form == Form::Read;
    mark.heading.isUnasked = name.form == Form::Delivered;
    mark.heading.isSent = name.isSent;
    const Values values = ReadValues(line, line.find(name.separator, at) + 1);
    mark.end = values.end;
    Reader(name, values.list, mark).Read();
    return mark;
}

bool IsAnyOf(std::string_view text, std::span<const std::string_view> words) {
    return std::any_of(words.begin(), words.end(), [text](std::string_view word) {
        return BeginsWith(text, word) &&
               (text.size() == word.size() || text[word.size()] == ' ' || text[word.size()] == ':');
    });
}

/// Whether it is one of these words with no other after it, but for a number: "CONNECT 9600".
bool IsOnlyAnyOf(std::string_view text, std::span<const std::string_view> words) {
    return std::any_of(words.begin(), words.end(), [text](std::string_view word) {
        return BeginsWith(text, word) &&
               std::none_of(text.begin() + word.size(), text.end(), [](char character) {
                   return IsAlphanumeric(character) && !IsDecimal(character);
               });
    });
}

/// "AT", "ATE0", "ATD…", "AT+CSQ"; "ATTACHED" is none.
bool IsCommand(std::string_view text) {
    if (!BeginsWith(text, c_command) || text.find(' ') != std::string_view::npos)
        return false;
    text.remove_prefix(c_command.size());
    return text.empty() || c_nameMarks.find(text[0]) != std::string_view::npos || text.size() == 1 ||
           (IsAlphanumeric(text[0]) && (!IsAlphanumeric(text[1]) || IsDecimal(text[1])));
}

/// "AT+" after anything that is no part of the word.
bool HasCommand(std::string_view line) {
    for (std::size_t mark = line.find_first_of(c_nameMarks); mark != std::string_view::npos;
         mark = line.find_first_of(c_nameMarks, mark + 1)) {
        if (mark >= 2 && BeginsWith(line.substr(mark - 2), c_command) &&
            (mark == 2 || !IsAlphanumeric(line[mark - 3])))
            return true;
    }
    return false;
}

/// "+CREG: 1". Before a mark that others write as well, "#Sent: today", the name is in capitals, and a number
/// or a string follows.
bool IsNamed(std::string_view text) {
    if (text.empty() || c_nameMarks.find(text[0]) == std::string_view::npos)
        return false;
    std::size_t end = 1;
    while (end < text.size() && IsAlphanumeric(text[end]))
        ++end;
    constexpr std::size_t c_shortest = 3; // with the mark
    if (end < c_shortest || IsDecimal(text[1]) || end == text.size() || text[end] != ':')
        return false;
    if (text[0] == '+' || text[0] == '^')
        return true;
    const std::size_t value = SkipBlanks(text, end + 1);
    const bool hasValue = value < text.size() && (IsDecimal(text[value]) || text[value] == '"');
    return hasValue && std::none_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(end),
                                    [](char character) { return character >= 'a' && character <= 'z'; });
}

/// Without blanks, quotation marks and arrows around it, but with the mark that begins a name.
std::string_view Said(std::string_view line) {
    const std::string_view core = Core(line);
    if (core.empty() || core.data() == line.data())
        return core;
    const char* const before = core.data() - 1;
    return c_nameMarks.find(*before) == std::string_view::npos ? core
                                                               : std::string_view(before, core.size() + 1);
}

} // namespace

std::string_view Core(std::string_view text) {
    const auto* const begin = std::find_if(text.begin(), text.end(), IsAlphanumeric);
    const auto end = std::find_if(text.rbegin(), std::string_view::reverse_iterator(begin), IsAlphanumeric);
    return {begin, static_cast<std::size_t>(end.base() - begin)};
}

std::optional<Mark> FindMark(std::string_view line, std::size_t from) {
    for (std::size_t at = line.find_first_of("+^", from); at != std::string_view::npos;
         at = line.find_first_of("+^", at + 1)) {
        if (const Name* name = NameAt(line, at))
            return ReadMark(line, at, *name);
    }
    return std::nullopt;
}

bool EndsAnswer(std::string_view line) {
    const std::string_view said = Said(line);
    if (IsAnyOf(said, c_answers) || IsCommand(said))
        return true;
    // "12:00:01 <- OK": the answer is the last word, and what stands before it is no word.
    const std::size_t blank = said.find_last_of(" \t");
    if (blank == std::string_view::npos || blank == 0)
        return false;
    const std::string_view before = said.substr(0, said.find_last_not_of(" \t", blank) + 1);
    const bool isApart = !before.empty() && !IsAlphanumeric(before.back());
    const std::string_view last = Core(said.substr(blank));
    return isApart && (last == c_ok || last == c_error);
}

bool EndsInError(std::string_view line) {
    constexpr std::array c_errors = {c_error, std::string_view("+CME ERROR"), std::string_view("+CMS ERROR")};
    const std::string_view said = Said(line);
    return IsAnyOf(said, c_errors) || (EndsAnswer(line) && said.ends_with(c_error));
}

bool IsUnasked(std::string_view line) {
    const std::string_view said = Said(line);
    return IsNamed(said) || IsAnyOf(said, c_unasked);
}

bool IsComment(std::string_view line) {
    line.remove_prefix(SkipBlanks(line, 0));
    return line.starts_with("//") || (line.starts_with('#') && !IsNamed(line));
}

bool IsOfModem(std::string_view line) {
    if (IsComment(line))
        return false;
    if (FindMark(line, 0) || HasCommand(line))
        return true;
    const std::string_view said = Said(line);
    return IsOnlyAnyOf(said, c_answers) || IsOnlyAnyOf(said, c_unasked) || IsCommand(said) || IsNamed(said);
}

} // namespace qxpdu
