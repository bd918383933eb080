// The sending side: text to PDUs, and these to a modem by AT+CMGS. Usage: send [DEVICE]
//
// Without a device the other end of a pseudo-terminal stands for the modem, on a thread of its own: it
// answers as a modem does, and refuses a PDU that is not as long as the command said.
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <future>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "Encoding/PduEncoder.h"

namespace {

constexpr char c_endOfPdu = '\x1A';
constexpr std::chrono::milliseconds c_modemTakes = std::chrono::seconds(10);
constexpr std::chrono::milliseconds c_networkTakes = std::chrono::seconds(60); // to take a message over

bool EndsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

/// Whether the last line is a refusal: "ERROR", or with its reason "+CMS ERROR: 38" or "+CME ERROR: 10". No
/// other line has that word; the echo of a PDU has no such letters.
bool IsRefusal(const std::string& text) {
    return EndsWith(text, "\r\n") && text.find("ERROR") != std::string::npos;
}

std::string LastLine(const std::string& text) {
    const std::string lines = text.substr(0, text.rfind("\r\n"));
    return lines.substr(lines.rfind('\n') + 1); // all of them when there is but one
}

/// Closes an open file, also when the constructor of what it belongs to throws.
class File {
public:
    explicit File(int descriptor) : m_Descriptor(descriptor) {}
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { close(m_Descriptor); }
    operator int() const { return m_Descriptor; }

private:
    int m_Descriptor;
};

/// A terminal in raw mode: what is written arrives unchanged, and nothing is echoed.
class Line {
public:
    explicit Line(int descriptor) : m_File(descriptor) {
        termios settings{};
        if (tcgetattr(descriptor, &settings) != 0)
            throw std::runtime_error("no terminal");
        cfmakeraw(&settings);
        tcsetattr(descriptor, TCSANOW, &settings);
    }

    /// Where the other end of a pseudo-terminal can be opened.
    std::string OtherEnd() const {
        std::array<char, 64> name{};
        if (grantpt(m_File) != 0 || unlockpt(m_File) != 0 || ptsname_r(m_File, name.data(), name.size()) != 0)
            throw std::runtime_error("no pseudo-terminal");
        return name.data();
    }

    void Write(const std::string& text) const {
        if (write(m_File, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
            throw std::runtime_error("the line does not take what is written");
    }

    /// What arrives up to and including `end`, or else a refusal; that nothing arrives in time is an error.
    std::string ReadTo(const std::string& end, std::chrono::milliseconds time = c_modemTakes) const {
        std::string text;
        while (!EndsWith(text, end) && !IsRefusal(text)) {
            pollfd ready{m_File, POLLIN, 0};
            char octet = 0;
            if (poll(&ready, 1, static_cast<int>(time.count())) != 1 || read(m_File, &octet, 1) != 1)
                throw std::runtime_error("no answer");
            text += octet;
        }
        return text;
    }

private:
    File m_File;
};

/// The modem's half of the dialogue, for so many messages.
void PlayModem(const Line& line, std::size_t messages) {
    line.ReadTo("AT+CMGF=0\r");
    line.Write("\r\nOK\r\n");
    for (std::size_t reference = 1; reference <= messages; ++reference) {
        line.ReadTo("AT+CMGS=");
        const unsigned long announced = std::stoul(line.ReadTo("\r"));
        line.Write("\r\n> ");
        const std::string pdu = line.ReadTo({c_endOfPdu});
        const unsigned long octets = (pdu.size() - 1) / 2;
        const unsigned long serviceCentre = 1 + std::stoul(pdu.substr(0, 2), nullptr, 16);
        if (octets - serviceCentre == announced)
            line.Write("\r\n+CMGS: " + std::to_string(reference) + "\r\n\r\nOK\r\n");
        else
            line.Write("\r\n+CMS ERROR: 304\r\n"); // invalid PDU mode parameter
    }
}

/// AT+CMGS wants the octets after the service-centre address, whose first octet is its length.
unsigned int TpduLength(const Encoding::Pdu& pdu) {
    return pdu.m_Length - 1U - pdu.m_Bytes[0];
}

void Expect(const Line& line, const std::string& answer, std::chrono::milliseconds time = c_modemTakes) {
    const std::string heard = line.ReadTo(answer, time);
    if (IsRefusal(heard))
        throw std::runtime_error("the modem refuses: " + LastLine(heard));
}

void Send(const Line& line, const std::vector<Toolkit::smart_ptr<Encoding::Pdu>>& pdus) {
    line.Write("AT+CMGF=0\r");
    Expect(line, "OK\r\n");
    for (const auto& pdu : pdus) {
        const std::string command = "AT+CMGS=" + std::to_string(TpduLength(*pdu));
        line.Write(command + '\r');
        Expect(line, "> ");
        line.Write(pdu->GetString() + c_endOfPdu);
        Expect(line, "OK\r\n", c_networkTakes);
        std::cout << command << ": sent\n";
    }
}

std::vector<Toolkit::smart_ptr<Encoding::Pdu>> Message() {
    TString<wchar_t> text;
    for (int line = 1; line <= 5; ++line)
        text += L"Line " + std::to_wstring(line) + L" of a message that is too long for one.\n";
    Encoding::PduEncoder encoder(Encoding::MessageTypeIndicator::TP_MTI_SMS_SUBMIT);
    encoder.SetRecipient(L"+4179123");
    encoder.SetText(text);
    std::vector<Toolkit::smart_ptr<Encoding::Pdu>> pdus;
    encoder.Encode(pdus);
    return pdus;
}

} // namespace

int main(int count, char** arguments) try {
    const auto pdus = Message();
    if (count > 1) {
        Send(Line(open(arguments[1], O_RDWR | O_NOCTTY)), pdus);
        return EXIT_SUCCESS;
    }
    const Line modem(posix_openpt(O_RDWR | O_NOCTTY));
    const std::string device = modem.OtherEnd();
    // Its failures are not asked for: the host hears no answer then, and says so.
    const auto dialogue = std::async(std::launch::async, [&] { PlayModem(modem, pdus.size()); });
    const Line host(open(device.c_str(), O_RDWR | O_NOCTTY)); // closed first, which ends the dialogue
    Send(host, pdus);
    return EXIT_SUCCESS;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return EXIT_FAILURE;
}
