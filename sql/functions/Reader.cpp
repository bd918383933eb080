#include "sql/functions/Reader.h"

#include <cstdint>
#include <vector>

#include <fmt/format.h>

#include "sql/functions/Options.h"

namespace sql {

namespace {

/// False where text is no hexadecimal digits.
bool TakeOctets(const Given& given, std::vector<std::uint8_t>& octets) {
    if (given.isText)
        return Messages::FromHex(given.content, octets);
    const auto* const begin = reinterpret_cast<const std::uint8_t*>(given.content.data());
    octets.assign(begin, begin + given.content.size());
    return true;
}

} // namespace

std::string TooLongText() {
    return fmt::format("over {} octets, which no message has", Given::c_mostOctets);
}

void PduReader::SetOptions(std::string_view options) {
    if (options == m_OptionWords)
        return;
    m_HasLast = false;
    const Messages::ReadOptions told = OptionsIn(options);
    m_OptionWords = options; // where there is no memory for them, both are as before
    m_Options = told;
}

bool PduReader::IsLast(const Given& given) const {
    return m_HasLast && m_IsLastText == given.isText && m_Last == given.content;
}

const show::Message* PduReader::Read(const Given& given, std::string_view options) {
    SetOptions(options);
    if (given.IsTooLong())
        return nullptr;
    if (IsLast(given))
        return &m_Message;
    m_HasLast = false;
    if (TakeOctets(given, m_Message.octets))
        Messages::Read(m_Message.octets, m_Options, m_Message.reading);
    else
        m_Message.reading = Messages::ReadHex(given.content, m_Options);
    m_Message.hasServiceCentre = show::HasServiceCentre(m_Message.reading);
    m_Last = given.content;
    m_IsLastText = given.isText;
    m_HasLast = true;
    return &m_Message;
}

std::optional<show::Broadcast> ReadBroadcast(const Given& given, std::string_view format) {
    const Messages::CellFormat told = CellFormatIn(format);
    if (given.IsTooLong())
        return std::nullopt;
    show::Broadcast broadcast;
    if (TakeOctets(given, broadcast.octets))
        broadcast.reading = Messages::ReadCell(broadcast.octets, told);
    else
        broadcast.reading = Messages::ReadCellHex(given.content, told);
    return broadcast;
}

} // namespace sql
