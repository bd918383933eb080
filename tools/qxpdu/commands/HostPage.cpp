#include "commands/HostPage.h"

#include <utility>
#include <vector>

#include <fmt/format.h>

#include "Encoding/CBMDecoder.h"
#include "characters/InputError.h"
#include "commands/Reading.h"
#include "show/CellMeanings.h"
#include "show/CodeUnits.h"
#include "show/Json.h"
#include "show/Plural.h"
#include "show/Record.h"

namespace qxpdu {

namespace {

using Encoding::CBMDecoder;
using Encoding::Pdu;

constexpr unsigned int c_headerLength = 6;

show::Entry SerialNumberEntry(unsigned int serialNumber, unsigned int messageIdentifier) {
    const show::SerialNumber serial = show::SplitSerialNumber(serialNumber);
    const auto scope = show::GeographicalScopeMeaning(serial.geographicalScope);
    std::string meaning =
        fmt::format("geographical scope {} ({}), message code {}, update number {}", serial.geographicalScope,
                    scope, serial.messageCode, serial.updateNumber);
    show::Json details = {{"geographical_scope", {{"raw", serial.geographicalScope}, {"meaning", scope}}},
                          {"message_code", serial.messageCode},
                          {"update_number", serial.updateNumber}};
    if (show::IsEtws(messageIdentifier)) {
        meaning += fmt::format(
            ", {}, {}", show::HasEmergencyAlert(serialNumber) ? "emergency alert" : "no emergency alert",
            show::HasPopup(serialNumber) ? "popup" : "no popup");
        details["emergency_alert"] = show::HasEmergencyAlert(serialNumber);
        details["popup"] = show::HasPopup(serialNumber);
    }
    return {"Serial number", show::RawWord(serialNumber), std::move(meaning), std::move(details)};
}

show::Entry MessageIdentifierEntry(unsigned int messageIdentifier) {
    return {"Message identifier", show::RawWord(messageIdentifier),
            std::string(show::MessageIdentifierMeaning(messageIdentifier))};
}

show::Entry DataCodingEntry(unsigned int dcs) {
    const show::CellCoding coding = show::CellCodingOf(dcs);
    return {"Data coding scheme", show::RawOctet(dcs),
            coding.isGsm7 ? coding.meaning : coding.meaning + "; the text is read as GSM 7-bit all the same"};
}

show::Entry PageParameterEntry(unsigned int pageParameter) {
    const show::PageNumber number = show::PageNumberOf(pageParameter);
    return {"Page parameter",
            show::RawOctet(pageParameter),
            fmt::format("page {} of {}", number.page, number.pages),
            {{"page", number.page}, {"pages", number.pages}}};
}

void ShowPage(const Input& input, const Pdu& pdu, const CBMDecoder& page, const std::string& text,
              const std::vector<std::string>& warnings, Console& console) {
    std::vector<show::Entry> entries = {SerialNumberEntry(page.m_SerialNumber, page.m_MessageIdentifier),
                                        MessageIdentifierEntry(page.m_MessageIdentifier),
                                        DataCodingEntry(page.m_DataCodingScheme),
                                        PageParameterEntry(page.m_PageParameter)};
    if (!console.WantsJson()) {
        entries.push_back({"text", {}, text});
        return console.Block(show::ToText(entries));
    }
    show::Json object = ObjectFor(input);
    object["octets"] = pdu.GetString();
    for (const show::Entry& entry : entries)
        object[show::KeyOf(entry.name)] = show::ToJson(entry);
    if (!warnings.empty())
        object["warnings"] = warnings;
    object["text"] = text;
    console.Object(object);
}

} // namespace

void ShowHostPage(const Input& input, Messages::OctetView octets, const std::string& warning,
                  Console& console) {
    if (octets.size() < c_headerLength)
        throw InputError(
            fmt::format("{}, a page has {} at least", show::Counted(octets.size(), "octet"), c_headerLength));
    std::vector<std::string> warnings;
    if (!warning.empty())
        warnings.push_back(warning);
    const Messages::OctetView taken = octets.Sub(0, Pdu::CAPACITY);
    if (taken.size() < octets.size())
        warnings.push_back(
            fmt::format("libQX_Encoding takes the first {} of {} octets", taken.size(), octets.size()));
    TellWarnings(warnings, input, console);
    const Toolkit::smart_ptr<Pdu> pdu = new Pdu(taken.data(), static_cast<unsigned int>(taken.size()));
    CBMDecoder fields;
    fields.Decode(pdu);
    ShowPage(input, *pdu, fields, show::ToUtf8(fields.m_Text), warnings, console);
}

} // namespace qxpdu
