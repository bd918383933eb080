// The receiving side: PDUs in hexadecimal, one a line of standard input, become messages. Parts may come in
// any order, those of several messages mixed; a message is printed when its last part is there.
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <list>
#include <map>
#include <string>

#include "Encoding/PduDecoder.h"
#include "Toolkit/UTF8.h"

namespace {

using Encoding::DeliveryStatus;
using Encoding::MessageTypeIndicator;
using Encoding::PduDecoder;

/// The text in UTF-8. Wide text has one 16-bit unit a character, so that a character above U+FFFF comes as a
/// surrogate pair, which is put together here; half a pair becomes U+FFFD.
std::string ToUtf8(const TString<wchar_t>& units) {
    TString<wchar_t> text;
    for (const wchar_t unit : units) {
        const bool isSecond = unit >= 0xDC00 && unit <= 0xDFFF;
        if (isSecond && !text.empty() && text.back() >= 0xD800 && text.back() <= 0xDBFF)
            text.back() = 0x10000 + (text.back() - 0xD800) * 0x400 + (unit - 0xDC00);
        else
            text += unit;
    }
    return Toolkit::UTF8::ToUTF8(text);
}

std::string OtherSide(const PduDecoder& message) {
    return message.m_SmsType == MessageTypeIndicator::TP_MTI_SMS_DELIVER
               ? ToUtf8(message.m_Originator)
               : "to " + ToUtf8(message.m_Recipient);
}

struct Part {
    std::string pdu;
    TString<wchar_t> text;
};

/// What the parts of one message have in common, and those that have come.
struct Message {
    explicit Message(const PduDecoder& part)
        : otherSide(OtherSide(part)), reference(part.m_ConcatReference), total(part.m_ConcatTotal) {}

    bool Includes(const PduDecoder& part) const {
        return otherSide == OtherSide(part) && reference == part.m_ConcatReference &&
               total == part.m_ConcatTotal;
    }
    bool IsComplete() const { return static_cast<int>(parts.size()) == total; }

    std::string otherSide;
    int reference; ///< chosen by the sender
    int total;
    std::map<int, Part> parts;
};

/// Messages of several parts, oldest first. Complete ones are kept as well, so that a part that comes once
/// more is known. The limit keeps parts whose message never becomes complete from filling the memory.
using Messages = std::list<Message>;
constexpr std::size_t c_messagesKept = 100;

bool IsPart(const PduDecoder& message) {
    return message.m_ConcatTotal > 1 && message.m_ConcatSequence >= 1 &&
           message.m_ConcatSequence <= message.m_ConcatTotal;
}

/// The texts of the parts as one, which is converted only then: the halves of a surrogate pair may stand in
/// two parts. An extension character whose escape and code stand in two parts stays torn, since each of the
/// two was decoded by itself; docs/faq.md shows it, and what a sender does against it.
std::string Join(const Message& message) {
    TString<wchar_t> whole;
    for (const auto& [number, part] : message.parts)
        whole += part.text;
    return ToUtf8(whole);
}

/// What became of a message that was sent.
void PrintReport(const PduDecoder& report) {
    std::cout << OtherSide(report) << ": message " << report.m_MessageReference;
    if (report.m_Status == DeliveryStatus::ST_RECEIVED)
        std::cout << " has arrived\n";
    else
        std::cout << " has not arrived, status " << report.m_Status << '\n';
}

void Print(const PduDecoder& message) {
    std::cout << OtherSide(message) << ": " << ToUtf8(message.m_Text) << '\n';
}

void Forget(Messages& messages, Messages::const_iterator message) {
    if (!message->IsComplete())
        std::cout << message->otherSide << ": " << message->parts.size() << " of " << message->total
                  << " parts\n";
    messages.erase(message);
}

/// Adds the part to its message, which is printed when it becomes complete.
void Take(Messages& messages, const PduDecoder& part, const std::string& pdu) {
    auto message = std::find_if(messages.begin(), messages.end(),
                                [&](const Message& each) { return each.Includes(part); });
    const int number = part.m_ConcatSequence;
    if (message != messages.end() && message->IsComplete() && message->parts[number].pdu != pdu) {
        Forget(messages, message); // not that part once more: the sender's references have come round
        message = messages.end();
    }
    if (message == messages.end()) {
        if (messages.size() == c_messagesKept)
            Forget(messages, messages.begin());
        message = messages.insert(messages.end(), Message(part));
    }
    const bool isNew = message->parts.emplace(number, Part{pdu, part.m_Text}).second;
    if (isNew && message->IsComplete())
        std::cout << message->otherSide << ": " << Join(*message) << '\n';
}

} // namespace

int main() {
    Messages messages;
    for (std::string line; std::getline(std::cin, line);) {
        // A fresh decoder for each PDU: a member is written only when its field is present.
        PduDecoder decoded;
        const bool isDecoded = decoded.Decode(new Encoding::Pdu(TString<char>(line)), false, false) == 1;
        if (!isDecoded || decoded.m_SmsType == MessageTypeIndicator::TP_MTI_UNKNOWN)
            std::cout << "no short message: " << line << '\n';
        else if (decoded.m_SmsType == MessageTypeIndicator::TP_MTI_SMS_STATUS_REPORT)
            PrintReport(decoded);
        else if (IsPart(decoded))
            Take(messages, decoded, line);
        else
            Print(decoded);
    }
    while (!messages.empty())
        Forget(messages, messages.begin());
    if (!std::cout.flush()) {
        std::cerr << "standard output cannot be written\n";
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
