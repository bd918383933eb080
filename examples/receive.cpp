// The receiving side: PDUs in hexadecimal, one a line of standard input, become messages. Parts may come in
// any order, those of several messages mixed; a message is printed when its last part is there.
#include <iostream>
#include <map>
#include <string>
#include <tuple>

#include "Encoding/PduDecoder.h"
#include "Toolkit/UTF8.h"

namespace {

/// Whose message it is: the sender, the reference that the sender chose, and how many parts there are.
using Key = std::tuple<std::wstring, int, int>;

void Print(const TString<wchar_t>& sender, const TString<wchar_t>& text) {
    std::cout << Toolkit::UTF8::ToUTF8(sender) << ": " << Toolkit::UTF8::ToUTF8(text) << '\n';
}

bool IsPart(const Encoding::PduDecoder& message) {
    return message.m_ConcatTotal > 1 && message.m_ConcatSequence >= 1 &&
           message.m_ConcatSequence <= message.m_ConcatTotal;
}

} // namespace

int main() {
    std::map<Key, std::map<int, TString<wchar_t>>> incomplete;
    for (std::string line; std::getline(std::cin, line);) {
        // A fresh decoder for each PDU: a member is written only when its field is present.
        Encoding::PduDecoder message;
        if (message.Decode(new Encoding::Pdu(TString<char>(line)), false, false) != 1) {
            std::cout << "no short message: " << line << '\n';
            continue;
        }
        if (!IsPart(message)) {
            Print(message.m_Originator, message.m_Text);
            continue;
        }
        const Key key(message.m_Originator, message.m_ConcatReference, message.m_ConcatTotal);
        auto& parts = incomplete[key];
        parts.emplace(message.m_ConcatSequence, message.m_Text); // a part that comes twice counts once
        if (parts.size() != static_cast<std::size_t>(message.m_ConcatTotal))
            continue;
        TString<wchar_t> whole;
        for (const auto& part : parts)
            whole += part.second;
        Print(message.m_Originator, whole);
        incomplete.erase(key);
    }
    for (const auto& [key, parts] : incomplete)
        std::cout << Toolkit::UTF8::ToUTF8(std::get<0>(key)) << ": " << parts.size() << " of "
                  << std::get<2>(key) << " parts\n";
}
