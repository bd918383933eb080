#include "show/compare/BroadcastComparison.h"

#include <algorithm>

#include "Encoding/CBMDecoder.h"
#include "show/CodeUnits.h"

namespace show {

namespace {

using Encoding::CBMDecoder;
using Messages::CellReading;
using Messages::Field;

/// A page as its decoder needs it; it throws for a shorter one.
constexpr std::size_t c_pageHead = 6;

/// A decoder as it is made; see NewDecoder() of messages.
CBMDecoder NewDecoder() {
    thread_local const CBMDecoder decoder;
    return decoder;
}

CBMDecoder Decode(const Broadcast& broadcast) {
    const auto length =
        static_cast<unsigned int>(std::min<std::size_t>(broadcast.octets.size(), Encoding::Pdu::CAPACITY));
    const Toolkit::smart_ptr<Encoding::Pdu> pdu(new Encoding::Pdu(broadcast.octets.data(), length));
    CBMDecoder decoder = NewDecoder();
    decoder.Decode(pdu);
    return decoder;
}

/// Page and pages by the standard; 0 where they are not told so.
int PageParameterOf(const CellReading& reading) {
    constexpr int c_pages = 0x10;
    const bool isPage = reading.format == Messages::CellFormat::GsmPage && !reading.pages.empty();
    return isPage ? c_pages * reading.pages.front().number + reading.total : 0;
}

/// A number of the header that is another.
void Compare(std::string_view name, Field field, int host, int sent, HostReading& reading) {
    if (host != sent)
        reading.members.push_back({name, field, host});
}

} // namespace

HostReading CompareWithHost(const Broadcast& broadcast) {
    HostReading host;
    host.isRejected = broadcast.octets.size() < c_pageHead;
    if (host.isRejected)
        return host;
    const CBMDecoder page = Decode(broadcast);
    const CellReading& sent = broadcast.reading;
    const int coding = sent.warning || sent.fault ? 0 : sent.coding.value;
    Compare("m_SerialNumber", Field::SerialNumber, page.m_SerialNumber, sent.serialNumber.value, host);
    Compare("m_MessageIdentifier", Field::MessageIdentifier, page.m_MessageIdentifier, sent.messageIdentifier,
            host);
    Compare("m_DataCodingScheme", Field::CellDataCoding, page.m_DataCodingScheme, coding, host);
    Compare("m_PageParameter", Field::PageParameter, page.m_PageParameter, PageParameterOf(sent), host);
    if (std::string text = ToUtf8(page.m_Text); text != sent.text)
        host.members.push_back({"m_Text", Field::PageContent, std::move(text)});
    return host;
}

} // namespace show
