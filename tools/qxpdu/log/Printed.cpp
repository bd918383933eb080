#include "log/Printed.h"

#include <algorithm>
#include <array>

#include "characters/Letters.h"

namespace qxpdu {

namespace {

struct Print {
    std::string_view printed; ///< letters in upper case, and found in either
    char meant;
};

/// Of those that begin alike the longer ones come first. What is printed in two pieces, as `\r\n`, gives two
/// line feeds, of which the second ends an empty line.
constexpr std::array c_prints = {
    // languages and debuggers
    Print{"\\R", '\n'},
    Print{"\\N", '\n'},
    Print{"\\T", ' '},
    Print{"\\\"", '"'},
    Print{"\\'", '\''},
    Print{"\\X0D", '\n'},
    Print{"\\X0A", '\n'},
    Print{"\\X1A", c_endOfTyping},
    Print{"\\U000D", '\n'},
    Print{"\\U000A", '\n'},
    Print{"\\U001A", c_endOfTyping},
    Print{"\\U0022", '"'},
    Print{"\\015", '\n'},
    Print{"\\012", '\n'},
    Print{"\\032", c_endOfTyping},
    Print{"\\013", '\n'}, // decimal
    Print{"\\010", '\n'},
    Print{"\\026", c_endOfTyping},
    Print{"\\13", '\n'},
    Print{"\\10", '\n'},
    Print{"\\26", c_endOfTyping},
    // the system log
    Print{"#015", '\n'},
    Print{"#012", '\n'},
    Print{"#032", c_endOfTyping},
    // terminals
    Print{"<CR><LF>", '\n'},
    Print{"<CR>", '\n'},
    Print{"<LF>", '\n'},
    Print{"<0D>", '\n'},
    Print{"<0A>", '\n'},
    Print{"<0X0D>", '\n'},
    Print{"<0X0A>", '\n'},
    Print{"<1A>", c_endOfTyping},
    Print{"<0X1A>", c_endOfTyping},
    Print{"<SUB>", c_endOfTyping},
    Print{"<CTRL-Z>", c_endOfTyping},
    Print{"<CTRL+Z>", c_endOfTyping},
    Print{"<CTRL Z>", c_endOfTyping},
    Print{"<CTRLZ>", c_endOfTyping},
    Print{"<^Z>", c_endOfTyping},
    Print{"[CR]", '\n'},
    Print{"[LF]", '\n'},
    Print{"[0D]", '\n'},
    Print{"[0A]", '\n'},
    Print{"[1A]", c_endOfTyping},
    Print{"[CTRL-Z]", c_endOfTyping},
    Print{"[CTRL+Z]", c_endOfTyping},
    Print{"{CR}", '\n'},
    Print{"{LF}", '\n'},
    Print{"{0D}", '\n'},
    Print{"{0A}", '\n'},
    Print{"$0D", '\n'},
    Print{"$0A", '\n'},
    Print{"^M", '\n'},
    Print{"^J", '\n'},
    Print{"^Z", c_endOfTyping},
    Print{"\xE2\x90\x8D", '\n'},          // U+240D
    Print{"\xE2\x90\x8A", '\n'},          // U+240A
    Print{"\xE2\x90\x9A", c_endOfTyping}, // U+241A
    Print{"\xE2\x86\xB5", '\n'},          // U+21B5
    // the web
    Print{"%0D", '\n'},
    Print{"%0A", '\n'},
    Print{"%1A", c_endOfTyping},
    Print{"&#13;", '\n'},
    Print{"&#10;", '\n'},
    Print{"&#XD;", '\n'},
    Print{"&#XA;", '\n'},
    Print{"&QUOT;", '"'},
    Print{"&NBSP;", ' '},
    Print{"&GT;", '>'},
    Print{"&LT;", '<'},
    Print{"<BR>", '\n'},
    Print{"<BR/>", '\n'},
    Print{"<BR />", '\n'},
    Print{"\xC2\xA0", ' '},      // U+00A0
    Print{"\xE2\x80\x8B", ' '},  // U+200B
    Print{"\xE2\x80\x98", '\''}, // U+2018
    Print{"\xE2\x80\x99", '\''}, // U+2019
    Print{"\xE2\x80\x9C", '"'},  // U+201C
    Print{"\xE2\x80\x9D", '"'},  // U+201D
    Print{"\r", '\n'},
};

constexpr std::string_view c_firsts = "\\#<[{$^%&\xE2\xC2\r";

/// "^MODE: 1" is no line end, but what a modem says.
bool IsName(std::string_view text, const Print& print) {
    const std::size_t next = print.printed.size();
    return print.printed[0] == '^' && next < text.size() && IsAlphanumeric(text[next]) &&
           !IsDecimal(text[next]);
}

const Print* PrintAt(std::string_view text) {
    if (c_firsts.find(text[0]) == std::string_view::npos)
        return nullptr;
    const auto* const print = std::find_if(c_prints.begin(), c_prints.end(), [text](const Print& candidate) {
        return BeginsWith(text, candidate.printed) && !IsName(text, candidate);
    });
    return print == c_prints.end() ? nullptr : print;
}

/// Characters of a terminal's control sequence, ECMA-48; 0 where none stands.
std::size_t ControlSequence(std::string_view text) {
    constexpr std::string_view c_introducer = "\x1B[";
    if (!text.starts_with(c_introducer))
        return 0;
    const auto* const end = std::find_if(text.begin() + c_introducer.size(), text.end(),
                                         [](char character) { return character >= '@' && character <= '~'; });
    return static_cast<std::size_t>(end - text.begin()) + (end == text.end() ? 0 : 1);
}

} // namespace

std::string Unprinted(std::string_view line) {
    std::string said;
    said.reserve(line.size());
    while (!line.empty()) {
        std::size_t taken = 1;
        if (const Print* print = PrintAt(line)) {
            // Where text was printed within text, the backslash is printed itself.
            if (print->printed[0] == '\\' && said.ends_with('\\'))
                said.erase(said.find_last_not_of('\\') + 1);
            said += print->meant;
            taken = print->printed.size();
        } else if (const std::size_t length = ControlSequence(line)) {
            taken = length;
        } else if (line[0] != '\0') {
            said += line[0];
        }
        line.remove_prefix(taken);
    }
    return said;
}

} // namespace qxpdu
