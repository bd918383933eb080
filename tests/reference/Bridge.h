// The library's values as the model has them, and both as text.
#ifndef TESTS_REFERENCE_BRIDGE_H
#define TESTS_REFERENCE_BRIDGE_H

#include <cstring>
#include <optional>
#include <sstream>
#include <string>

#include "Encoding/Pdu.h"
#include "Toolkit/DateTime.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "model/Decoder.h"
#include "model/Encoder.h"
#include "model/Pdu.h"
#include "model/Types.h"

namespace reference {

TString<wchar_t> Wide(const model::Text& text);
TString<char> Narrow(const model::Octets& octets);
model::Text TextOf(const std::wstring& text);
model::Octets OctetsOf(const std::string& text);
std::optional<model::Time> TimeOf(const Toolkit::smart_ptr<Toolkit::DateTime>& time);
Toolkit::smart_ptr<Encoding::Pdu> LibraryPdu(const model::Pdu& pdu);
model::Pdu PduOf(const Encoding::Pdu& pdu);

std::string Show(std::int64_t number);
std::string Show(const std::string& text);     ///< quoted, as it stands
std::string Show(const model::Text& text);     ///< code units in hexadecimal
std::string Show(const model::Octets& octets); ///< in hexadecimal
std::string Show(const std::optional<model::Time>& time);
std::string Show(const std::optional<std::uint32_t>& number);
std::string Show(const model::Pdu& pdu); ///< the length, and the octets to it or to the last that is not zero

/// A line for a value on which library and model differ, none otherwise.
template <class T>
std::string Line(const char* name, const T& library, const T& expected) {
    if (library == expected)
        return {};
    return std::string(name) + ": library " + Show(library) + ", model " + Show(expected) + "\n";
}

std::string Lines(const model::Record& library, const model::Record& expected);
std::string Lines(const model::EncoderState& library, const model::EncoderState& expected);

} // namespace reference

#endif
