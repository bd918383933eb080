// Pdu: its hexadecimal text and the operations that fill it. Input: the length of the text (two octets), the
// text, then operations: 0 Write of an octet, 1 Write of a run (length in two octets), 2 SetBytes (the same),
// 3 Clear, 4 a length set by hand (four octets).
#include <algorithm>
#include <array>

#include "Encoding/Pdu.h"
#include "Input.h"
#include "Property.h"

namespace {

using namespace Encoding;
using namespace fuzz;

/// What a PDU has to hold.
struct Model {
    std::array<unsigned char, Pdu::CAPACITY> octets{};
    unsigned int length = 0;

    void Put(const TString<char>& data, std::size_t at) {
        std::copy(data.begin(), data.end(), octets.begin() + static_cast<std::ptrdiff_t>(at));
    }
    void Write(const TString<char>& data) {
        if (!data.empty() && std::uint64_t{length} + data.size() <= Pdu::APPEND_LIMIT) {
            Put(data, length);
            length += static_cast<unsigned int>(data.size());
        }
    }
    void SetBytes(const TString<char>& data) {
        if (!data.empty() && data.size() <= Pdu::CAPACITY) {
            Put(data, 0);
            length = static_cast<unsigned int>(data.size());
        }
    }
};

unsigned int Digit(char character) {
    if (character >= '0' && character <= '9')
        return static_cast<unsigned int>(character - '0');
    const char upper = static_cast<char>(character & ~0x20);
    return upper >= 'A' && upper <= 'F' ? static_cast<unsigned int>(upper - 'A' + 10) : 0;
}

/// A NUL ends a pair: what is read before it counts.
Model FromHex(const TString<char>& hex) {
    Model model;
    model.length = static_cast<unsigned int>(std::min<std::size_t>(hex.size() / 2, Pdu::CAPACITY));
    for (std::size_t i = 0; i < model.length; ++i) {
        const char high = hex[2 * i];
        model.octets[i] =
            static_cast<unsigned char>(high == 0 ? 0 : Digit(high) << 4 | Digit(hex[2 * i + 1]));
    }
    return model;
}

void RequireSame(const Pdu& pdu, const Model& model) {
    Require(pdu.m_Length == model.length, "a PDU has the length that its operations gave it");
    Require(std::equal(model.octets.begin(), model.octets.end(), pdu.m_Bytes),
            "a PDU has the octets that its operations gave it");
}

void RequireText(const Pdu& pdu) {
    const TString<char> hex = pdu.GetString();
    const unsigned int shown = std::min(pdu.m_Length, Pdu::CAPACITY);
    Require(hex.size() == std::size_t{2} * shown, "two digits are written for each octet");
    Require(hex.find_first_not_of("0123456789ABCDEF") == TString<char>::npos, "digits are upper-case");
    const Pdu again(hex);
    Require(again.m_Length == shown && std::equal(pdu.m_Bytes, pdu.m_Bytes + shown, again.m_Bytes),
            "the text gives the PDU back");
}

void Operate(Input& input, Pdu& pdu, Model& model) {
    const auto octets = [](const TString<char>& data) {
        return reinterpret_cast<const unsigned char*>(data.data());
    };
    switch (input.Octet() % 5) {
    case 0: {
        const TString<char> octet(1, static_cast<char>(input.Octet()));
        pdu.Write(static_cast<unsigned char>(octet.front()));
        model.Write(octet);
        break;
    }
    case 1: {
        const TString<char> run = input.Octets(input.Word(2));
        pdu.Write(octets(run), static_cast<unsigned int>(run.size()));
        model.Write(run);
        break;
    }
    case 2: {
        const TString<char> run = input.Octets(input.Word(2));
        pdu.SetBytes(octets(run), static_cast<unsigned int>(run.size()));
        model.SetBytes(run);
        break;
    }
    case 3:
        pdu.Clear();
        model = Model();
        break;
    default:
        pdu.m_Length = model.length = input.Word(4);
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const TString<char> hex = input.Octets(input.Word(2));
    Pdu pdu(hex);
    Model model = FromHex(hex);
    RequireSame(pdu, model);
    RequireText(pdu);
    while (input.Left() > 0) {
        Operate(input, pdu, model);
        RequireSame(pdu, model);
    }
    RequireText(pdu);

    const Pdu copied(pdu.m_Bytes, std::min(pdu.m_Length, Pdu::CAPACITY));
    Require(copied.GetString() == pdu.GetString(), "a PDU made of octets holds them");
    return 0;
}
