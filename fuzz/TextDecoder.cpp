// TextDecoder. Input: the alphabet as a signed octet, flags (1 a log line is written; 2 and 4: octets of a
// character, 1, 2 or 4), the characters.
#include "Encoding/TextDecoder.h"
#include "Encoding/UCS2Encoding.h"
#include "Input.h"
#include "Property.h"
#include "Toolkit/ILogger.h"

namespace {

using namespace Encoding;
using namespace fuzz;

constexpr std::size_t c_longestText = 4096;

class Logger : public Toolkit::ILogger {
public:
    Logger() : ILogger(0) {}
    void Write(const TString<wchar_t>& text) override { m_Line += text; }
    TString<wchar_t> m_Line;
};

Logger& InstalledLogger() {
    static Logger* const logger = [] {
        auto* made = new Logger;
        *Toolkit::ILogger::s_pInstance = made;
        return made;
    }();
    return *logger;
}

TString<wchar_t> FromGsm(const TString<wchar_t>& text) {
    GSMCharSet charSet;
    TString<char> codes;
    for (const wchar_t character : text)
        codes.push_back(static_cast<char>(character));
    return charSet.GsmToUnicode(reinterpret_cast<const unsigned char*>(codes.data()),
                                static_cast<unsigned int>(codes.size()));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const int alphabet = static_cast<signed char>(input.Octet());
    const unsigned int flags = input.Octet();
    const bool isLogged = (flags & 1) != 0;
    const unsigned int characterSize = (flags & 4) != 0 ? 4 : (flags & 2) != 0 ? 2 : 1;
    const TString<wchar_t> text = input.Characters(c_longestText, characterSize);

    Logger& logger = InstalledLogger();
    logger.SetLevel(isLogged ? 2 : 1);
    logger.m_Line.clear();
    const TextDecoder decoder(text, alphabet);

    const bool isGsm = alphabet == 0 || alphabet == 4;
    Require(decoder.m_DecodedText == (isGsm ? FromGsm(text) : UCS2Encoding::ToUString(text)),
            "a text is decoded by its alphabet");
    Require(logger.m_Line.empty() == (text.empty() || !isLogged),
            "exactly a text that is not empty is logged");
    if (!logger.m_Line.empty()) {
        const TString<wchar_t>& end = Toolkit::ILogger::c_strLogToken3;
        Require(logger.m_Line.size() > end.size() + 8 * text.size() &&
                    logger.m_Line.compare(logger.m_Line.size() - end.size(), end.size(), end) == 0 &&
                    logger.m_Line.find(end) == logger.m_Line.size() - end.size(),
                "a line holds eight digits for each character, and ends once");
    }
    return 0;
}
