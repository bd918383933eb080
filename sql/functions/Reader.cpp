#include "sql/functions/Reader.h"

#include <fmt/format.h>

#include "sql/functions/Options.h"

namespace sql {

namespace {

Messages::OctetView OctetsOf(std::string_view content) {
    return {reinterpret_cast<const std::uint8_t*>(content.data()), content.size()};
}

bool HasServiceCentre(const Messages::Reading& reading) {
    const bool endsInIt = reading.fault && reading.fault->field == Messages::Field::ServiceCentre;
    return reading.serviceCentre || endsInIt;
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
    if (!given.isText)
        m_Message.octets.assign(OctetsOf(given.content).begin(), OctetsOf(given.content).end());
    if (given.isText && !Messages::FromHex(given.content, m_Message.octets))
        m_Message.reading = Messages::ReadHex(given.content, m_Options);
    else
        Messages::Read(m_Message.octets, m_Options, m_Message.reading);
    m_Message.hasServiceCentre = HasServiceCentre(m_Message.reading);
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
    if (!given.isText)
        broadcast.octets.assign(OctetsOf(given.content).begin(), OctetsOf(given.content).end());
    if (given.isText && !Messages::FromHex(given.content, broadcast.octets))
        broadcast.reading = Messages::ReadCellHex(given.content, told);
    else
        broadcast.reading = Messages::ReadCell(broadcast.octets, told);
    return broadcast;
}

} // namespace sql
