// The tool's map of the octets of a PDU, and the two readings side by side. Input: flags (1 the TPDU alone,
// 2 times without zone, 4 and 8 the direction), the PDU.
#include <nlohmann/json.hpp>

#include "Input.h"
#include "Property.h"
#include "show/MapJson.h"
#include "show/MapProperties.h"
#include "show/MapText.h"
#include "show/MessageJson.h"
#include "show/MessageText.h"

namespace {

using namespace fuzz;

show::Message ReadMessage(unsigned int flags, const Encoding::Pdu& pdu) {
    constexpr Messages::Direction directions[] = {Messages::Direction::Unknown, Messages::Direction::ToMobile,
                                                  Messages::Direction::FromMobile,
                                                  Messages::Direction::Unknown};
    show::Message message;
    message.octets.assign(pdu.m_Bytes, pdu.m_Bytes + pdu.m_Length);
    message.hasServiceCentre = (flags & 1) == 0;
    message.isZoneIgnored = (flags & 2) != 0;
    message.reading = Messages::Read(
        message.octets, {message.hasServiceCentre ? Messages::Presence::Yes : Messages::Presence::No,
                         directions[flags >> 2 & 3]});
    return message;
}

void RequireMapped(const show::Message& message) {
    const std::vector<show::OctetRow> rows = show::MapOctets(message);
    Require(tests::HasEveryOctetOnce(rows, message.octets.size()), "the rows hold the whole PDU");
    const bool isWhole = !message.reading.fault;
    for (const show::OctetRow& row : rows)
        Require(tests::HasEveryBitOnce(row, message.octets[row.octet], isWhole), "the bits make the octet");
    const Messages::UserData* const userData = Messages::UserDataOf(message.reading.tpdu);
    if (userData != nullptr && isWhole)
        Require(tests::TextOf(rows) == userData->text, "map and reading have the same text");
}

void RequireJson(show::JsonText& object) {
    Require(nlohmann::json::accept(object.Finish()), "an object is JSON");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const unsigned int flags = input.Octet();
    const Toolkit::smart_ptr<Encoding::Pdu> pdu = input.Pdu();
    const show::Message message = ReadMessage(flags, *pdu);
    RequireMapped(message);

    const show::HostReading host = CompareWithHost(message);
    Require(!host.isRejected || host.members.empty(), "what is rejected has no members that differ");
    Require(ReadAsHost(message).isRejected == host.isRejected, "both readings of the host are the same");
    show::JsonText map;
    WriteMap(message, host, map);
    RequireJson(map);
    Require(!MapText(message, host, show::Painter(false)).empty() || message.octets.empty(),
            "octets have rows");
    if (message.reading.fault)
        return 0;
    show::JsonText object;
    Write(message, host, std::nullopt, object);
    RequireJson(object);
    Require(!ToText(message, host, "").empty(), "a message has lines");
    return 0;
}
