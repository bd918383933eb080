// Reads values off the front of a fuzz input. What is missing at its end reads as 0 or as less.
#ifndef FUZZ_INPUT_H
#define FUZZ_INPUT_H

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "Encoding/Pdu.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

namespace fuzz {

class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : m_Data(data), m_Left(size) {}

    std::size_t Left() const { return m_Left; }

    std::uint8_t Octet() {
        if (m_Left == 0)
            return 0;
        --m_Left;
        return *m_Data++;
    }

    /// Most significant octet first.
    std::uint32_t Word(unsigned int octets) {
        std::uint32_t word = 0;
        for (unsigned int i = 0; i < octets; ++i)
            word = word << 8 | Octet();
        return word;
    }

    /// The next `most` octets, or those that are left.
    TString<char> Octets(std::size_t most) {
        const std::size_t count = std::min(most, m_Left);
        TString<char> octets(reinterpret_cast<const char*>(m_Data), count);
        m_Data += count;
        m_Left -= count;
        return octets;
    }

    /// The next `most` characters of `size` octets each, 1 to 4, or those that are left.
    TString<wchar_t> Characters(std::size_t most, unsigned int size) {
        TString<wchar_t> text;
        while (text.size() < most && m_Left >= size)
            text.push_back(static_cast<wchar_t>(Word(size)));
        return text;
    }

    /// The next `most` octets as a PDU, whose array is zero after them.
    Toolkit::smart_ptr<Encoding::Pdu> Pdu(std::size_t most = Encoding::Pdu::CAPACITY) {
        const TString<char> octets = Octets(std::min<std::size_t>(most, Encoding::Pdu::CAPACITY));
        return new Encoding::Pdu(reinterpret_cast<const unsigned char*>(octets.data()),
                                 static_cast<unsigned int>(octets.size()));
    }

private:
    const std::uint8_t* m_Data;
    std::size_t m_Left;
};

} // namespace fuzz

#endif
