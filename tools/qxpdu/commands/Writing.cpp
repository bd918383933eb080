#include "commands/Writing.h"

#include <algorithm>

#include <fmt/format.h>

#include "Messages/Words.h"
#include "commands/Languages.h"
#include "commands/Numbers.h"
#include "show/Json.h"

namespace qxpdu {

std::string FaultOfAlphabet(const std::string& name) {
    return AlphabetNamed(name) ? "" : fmt::format("{} is neither gsm nor ucs2", name);
}

std::optional<Messages::Alphabet> AlphabetNamed(const std::string& name) {
    if (name == "gsm")
        return Messages::Alphabet::Gsm7;
    return name == "ucs2" ? std::optional(Messages::Alphabet::Ucs2) : std::nullopt;
}

std::string FaultOfPortsWithBits(const WritingOptions& options) {
    constexpr int c_maxOctet = 0xFF;
    if (!options.portBits.empty() && options.ports.empty())
        return "--port-bits: --port is required";
    const std::optional<Messages::Ports> ports = PortsIn(options.ports, options.portBits);
    if (ports && !ports->areWide && std::max(ports->destination, ports->originator) > c_maxOctet)
        return fmt::format("--port: {} takes --port-bits 16", options.ports);
    return {};
}

Messages::CutOptions CuttingOf(const WritingOptions& options) {
    Messages::CutOptions cutting;
    cutting.choice.languages = LanguagesIn(options.languages);
    cutting.choice.alphabet = AlphabetNamed(options.alphabet);
    cutting.choice.room.hasWideReference = options.concatBits == "16";
    cutting.ports = PortsIn(options.ports, options.portBits);
    cutting.replacesNear = options.replacesNear;
    return cutting;
}

void AddTables(const Messages::SeptetTables& tables, show::Json& object) {
    if (tables.locking != Messages::Language::Default)
        object["locking_shift"] = Messages::NameOf(tables.locking);
    if (tables.single != Messages::Language::Default)
        object["single_shift"] = Messages::NameOf(tables.single);
}

} // namespace qxpdu
