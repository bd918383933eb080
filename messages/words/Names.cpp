// Names of single values, out of the standards' tables where they have them.
#include "Messages/Words.h"

#include <array>

#include "tables/Values.h"
#include "tpdu/Fields.h"
#include "words/Findings.h"

namespace Messages {
namespace {

/// What programs know an enumerator by: FillerInside is filler-inside.
class KebabCase {
public:
    constexpr KebabCase() = default;
    constexpr explicit KebabCase(std::string_view enumerator) {
        for (const char letter : enumerator) {
            const bool isCapital = letter >= 'A' && letter <= 'Z';
            if (isCapital && m_Length != 0)
                m_Text.at(m_Length++) = '-';
            m_Text.at(m_Length++) = isCapital ? static_cast<char>(letter - 'A' + 'a') : letter;
        }
    }
    constexpr std::string_view View() const { return {m_Text.data(), m_Length}; }

private:
    std::array<char, 40> m_Text{};
    std::size_t m_Length = 0;
};

template <class Words, std::size_t Count>
constexpr std::array<KebabCase, Count> CodesOf(const Words (&words)[Count]) {
    std::array<KebabCase, Count> codes{};
    for (std::size_t i = 0; i < Count; ++i) {
        if (static_cast<std::size_t>(words[i].code) != i)
            throw std::invalid_argument("not in the order of the enumerators");
        codes[i] = KebabCase(words[i].enumerator);
    }
    return codes;
}
constexpr auto c_remarkCodes = CodesOf(c_remarkWords);
constexpr auto c_faultCodes = CodesOf(c_faultWords);
constexpr auto c_writeFaultCodes = CodesOf(c_writeFaultWords);
constexpr auto c_cutFaultCodes = CodesOf(c_cutFaultWords);
constexpr auto c_joinOutcomeCodes = CodesOf(c_joinOutcomeWords);

constexpr std::string_view c_outcomes[][2] = {
    {"completed", "completed"},
    {"trying", "temporary error, the service centre tries on"},
    {"permanent", "permanent error"},
    {"stopped", "temporary error, the service centre tries no more"},
};

} // namespace

std::string_view NameOf(TpduType type) noexcept {
    return c_typeNames[static_cast<std::size_t>(type)];
}

std::string_view NameOf(Field field) noexcept {
    return FactsOf(field).name;
}

std::string_view DescriptionOf(Field field) noexcept {
    return FactsOf(field).description;
}

std::string_view NameOf(Language language) noexcept {
    if (language == Language::Default)
        return "default alphabet";
    return Tables::c_languages[static_cast<std::size_t>(language) - 1].name;
}

std::string_view NameOf(Alphabet alphabet) noexcept {
    constexpr std::string_view names[] = {"GSM 7-bit", "8-bit data", "UCS2"};
    return names[static_cast<std::size_t>(alphabet)];
}

std::string_view NameOf(TypeOfNumber type) noexcept {
    return Tables::c_typesOfNumber[static_cast<std::size_t>(type)].name;
}

std::string_view NameOfNumberingPlan(std::uint8_t plan) noexcept {
    return Tables::RowWith(Tables::c_numberingPlans, plan).name;
}

std::string_view MeaningOfProtocol(std::uint8_t pid) noexcept {
    return Tables::RowWith(Tables::c_protocols, pid).name;
}

std::string_view MeaningOfStatus(std::uint8_t status) noexcept {
    return Tables::RowWith(Tables::c_statuses, status).name;
}

std::string_view ClassOfStatus(std::uint8_t status) noexcept {
    const std::string_view outcome = Tables::RowWith(Tables::c_statuses, status).outcome;
    for (const auto& [cell, words] : c_outcomes)
        if (cell == outcome)
            return words;
    return outcome;
}

std::string_view MeaningOfFailureCause(std::uint8_t cause) noexcept {
    return Tables::RowWith(Tables::c_failureCauses, cause).name;
}

std::string_view MeaningOfCommandType(std::uint8_t type) noexcept {
    return Tables::RowWith(Tables::c_commandTypes, type).name;
}

std::string_view NameOfElement(std::uint8_t identifier) noexcept {
    return Tables::RowWith(Tables::c_headerElements, identifier).name;
}

std::string_view MeaningOfPort(const Ports& ports, std::uint16_t port) noexcept {
    const auto element = static_cast<int>(ports.areWide ? ElementId::Ports16 : ElementId::Ports8);
    for (const Tables::PortRow& row : Tables::c_ports)
        if (row.element == element && port >= row.from && port <= row.to)
            return row.name;
    return {};
}

std::string_view MeaningOfClass(std::uint8_t messageClass) noexcept {
    return Tables::c_messageClasses[messageClass & 0x03U].name;
}

std::string_view NameOf(WaitingType type) noexcept {
    constexpr std::string_view names[] = {"voice", "fax", "e-mail", "other"};
    return names[static_cast<std::size_t>(type)];
}

std::string_view CodeOf(RemarkCode code) noexcept {
    return c_remarkCodes[static_cast<std::size_t>(code)].View();
}

std::string_view CodeOf(FaultCode code) noexcept {
    return c_faultCodes[static_cast<std::size_t>(code)].View();
}

std::string_view CodeOf(WriteFaultCode code) noexcept {
    return c_writeFaultCodes[static_cast<std::size_t>(code)].View();
}

std::string_view CodeOf(CutFaultCode code) noexcept {
    return c_cutFaultCodes[static_cast<std::size_t>(code)].View();
}

std::string_view CodeOf(JoinOutcome outcome) noexcept {
    return c_joinOutcomeCodes[static_cast<std::size_t>(outcome)].View();
}

} // namespace Messages
