#include "model/Reading.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

#include "model/Codes.h"
#include "model/Fields.h"
#include "model/Tables.h"
#include "model/Text.h"

namespace plain {

namespace {

/// Thrown where the octets end inside a field that must be there.
struct Cut {
    Fault fault;
};

/// Reads one TPDU of a known type, front to back.
class Reader {
public:
    Reader(const Input& input, Reading& reading)
        : m_Input(input), m_Octets(input.octets), m_Reading(reading) {}

    void ReadCentre();
    /// Beside the announced one.
    void CompareLength();
    void ReadTpdu(const std::string& type);
    /// The fault where TP-MTI names no type, or there is none.
    void FindNoType();

private:
    std::size_t Left() const { return m_Octets.size() - m_At; }
    /// Remarks on the field that begins here.
    Remarks On(std::string_view field) { return Remarks(m_Reading.remarks, field, m_At); }
    Octets Take(std::string_view field, std::size_t count);
    /// The same without a place of its own.
    Octets TakeApart(std::string_view field, std::size_t count);
    int TakeOctet(std::string_view field) { return Take(field, 1)[0]; }
    /// A value for which the standard may have no meaning.
    int TakeValue(std::string_view field, std::string_view reserved);
    Address TakeAddress(std::string_view field);
    Time TakeTime(std::string_view field);

    void ReadFirst(const std::string& type);
    void ReadValidity();
    void ReadCause();
    void ReadIndicator();
    void ReadOptional();
    void ReadProtocol() { m_Reading.protocol = TakeValue("TP-PID", code::RESERVED_PROTOCOL); }
    void ReadCoding();
    void ReadUserData();
    void ReadCommandData();
    std::size_t MostOctets() const;
    void ReadContent(std::size_t announced, std::size_t wanted, std::string_view field);
    std::size_t ReadUserDataHeader(const Octets& octets, Remarks remarks);
    void ReadSeptets(const Octets& octets, std::size_t headerOctets, std::size_t announced, Remarks remarks);
    void ReadDeliver();
    void ReadDeliverReport();
    void ReadSubmit();
    void ReadSubmitReport();
    void ReadStatusReport();
    void ReadCommand();

    const Input& m_Input;
    const Octets& m_Octets;
    Reading& m_Reading;
    std::size_t m_At = 0;
};

Octets Reader::TakeApart(std::string_view field, std::size_t count) {
    if (Left() < count) {
        if (Left() > 0)
            m_Reading.places.push_back({field, m_At, Left()});
        throw Cut{{code::FIELD_CUT, field, m_At, count, Left()}};
    }
    const auto first = m_Octets.begin() + static_cast<std::ptrdiff_t>(m_At);
    m_At += count;
    return {first, first + static_cast<std::ptrdiff_t>(count)};
}

Octets Reader::Take(std::string_view field, std::size_t count) {
    const std::size_t at = m_At;
    Octets octets = TakeApart(field, count);
    m_Reading.places.push_back({field, at, count});
    return octets;
}

int Reader::TakeValue(std::string_view field, std::string_view reserved) {
    Remarks remarks = On(field);
    const int value = TakeOctet(field);
    if (TheTables().reserved.at(std::string(field)).at(static_cast<std::size_t>(value)))
        remarks(reserved, 0, static_cast<std::size_t>(value));
    return value;
}

Address Reader::TakeAddress(std::string_view field) {
    const Remarks remarks = On(field);
    return ReadAddress(Take(field, AddressOctets(Left() == 0 ? 0 : m_Octets[m_At])), remarks);
}

Time Reader::TakeTime(std::string_view field) {
    const Remarks remarks = On(field);
    return ReadTime(Take(field, 7), remarks);
}

void Reader::ReadCentre() {
    const Remarks remarks = On(field::CENTRE);
    const std::size_t length = Left() == 0 ? 0 : m_Octets[m_At];
    m_Reading.centre = plain::ReadCentre(Take(field::CENTRE, 1 + length), remarks);
}

void Reader::ReadFirst(const std::string& type) {
    Remarks remarks = On(field::UNUSED);
    const std::size_t at = m_At;
    const int first = TakeApart("TP-MTI", 1)[0];
    int unused = 0xFF;
    for (const Bits& bits : TheTables().first.at(type)) {
        const int mask = (2 << (bits.last - bits.first)) - 1;
        unused &= ~(mask << bits.first);
        m_Reading.first.push_back({bits.field, first >> bits.first & mask});
        m_Reading.places.push_back({bits.field, at, 1, mask << bits.first});
    }
    for (int bit = 0, run = 0; bit < 8; ++bit) {
        run |= unused & 1 << bit;
        const bool ends = (unused & 1 << (bit + 1)) == 0;
        if (run != 0 && ends)
            m_Reading.places.push_back({field::UNUSED, at, 1, std::exchange(run, 0)});
    }
    std::stable_sort(m_Reading.places.begin(), m_Reading.places.end(), [](const Place& a, const Place& b) {
        const auto lowest = [](int mask) { return mask & -mask; };
        return std::pair(a.octet, lowest(a.mask)) < std::pair(b.octet, lowest(b.mask));
    });
    if ((first & unused) != 0)
        remarks(code::UNUSED_BITS_SET, 0, static_cast<std::size_t>(first & unused));
}

void Reader::ReadValidity() {
    static constexpr std::array<std::size_t, 4> lengths = {0, 7, 1, 7};
    const int format = m_Reading.Flag("TP-VPF");
    if (format == 0)
        return;
    const Remarks remarks = On("TP-VP");
    m_Reading.validity =
        plain::ReadValidity(format, Take("TP-VP", lengths.at(static_cast<std::size_t>(format))), remarks);
}

void Reader::ReadCause() {
    const bool looksLike = Left() > 0 && m_Octets[m_At] >= 0x80;
    if (m_Input.failureCause == Known::YES || (m_Input.failureCause == Known::UNKNOWN && looksLike))
        m_Reading.failureCause = TakeValue("TP-FCS", code::RESERVED_FAILURE_CAUSE);
}

void Reader::ReadIndicator() {
    Remarks remarks = On("TP-PI");
    Octets& indicator = m_Reading.indicator;
    std::size_t count = 1; // an octet after each with the extension bit
    while (count <= Left() && (m_Octets[m_At + count - 1] & 0x80) != 0)
        ++count;
    const std::size_t at = m_At;
    indicator = TakeApart("TP-PI", count);
    for (std::size_t i = 0; i < count; ++i)
        m_Reading.places.push_back({"TP-PI", at + i, 1});
    if ((indicator[0] & 0x78) != 0)
        remarks(code::RESERVED_PARAMETER_BITS, 0, indicator[0] & 0x78);
    if (indicator.size() > 1)
        remarks(code::EXTENDED_PARAMETER_INDICATOR, 0, indicator.size());
}

void Reader::ReadOptional() {
    const int indicator = m_Reading.indicator[0];
    if ((indicator & 1) != 0)
        ReadProtocol();
    if ((indicator & 2) != 0)
        ReadCoding();
    if ((indicator & 4) != 0)
        ReadUserData();
}

void Reader::ReadCoding() {
    Remarks remarks = On("TP-DCS");
    const int value = TakeOctet("TP-DCS");
    m_Reading.dataCoding = value;
    m_Reading.coding = TheTables().coding.at(static_cast<std::size_t>(value));
    if (m_Reading.coding.reserved)
        remarks(code::RESERVED_DATA_CODING, 0, static_cast<std::size_t>(value));
}

/// The most octets of TP-UD or TP-CD: what the type allows, and what is left of the longest TPDU's 164.
std::size_t Reader::MostOctets() const {
    const std::size_t left = 164 - std::min<std::size_t>(164, m_At - *m_Reading.tpdu);
    const std::size_t error = m_Reading.failureCause ? 1 : 0;
    if (m_Reading.type == "SMS-DELIVER-REPORT")
        return std::min(left, 159 - error);
    if (m_Reading.type == "SMS-SUBMIT-REPORT")
        return std::min(left, 152 - error);
    if (m_Reading.type == "SMS-STATUS-REPORT")
        return left;
    return std::min<std::size_t>(left, m_Reading.type == "SMS-COMMAND" ? 156 : 140);
}

void Reader::ReadUserData() {
    const bool septets = m_Reading.coding.alphabet == "gsm7" && !m_Reading.coding.compressed;
    m_Reading.length = TakeOctet("TP-UDL");
    const auto announced = static_cast<std::size_t>(*m_Reading.length);
    ReadContent(announced, septets ? (announced * 7 + 7) / 8 : announced, "TP-UD");
}

void Reader::ReadCommandData() {
    m_Reading.length = TakeOctet("TP-CDL");
    const auto announced = static_cast<std::size_t>(*m_Reading.length);
    ReadContent(announced, announced, "TP-CD");
}

/// Header and text, or data, of TP-UD or TP-CD: `announced` septets or octets, which take `wanted` octets.
void Reader::ReadContent(std::size_t announced, std::size_t wanted, std::string_view field) {
    Remarks remarks = On(field);
    const std::size_t at = m_At, most = MostOctets();
    const Octets octets = TakeApart(field, std::min(wanted, Left()));
    m_Reading.userData = octets;
    const Coding& coding = m_Reading.coding;
    const bool septets = coding.alphabet == "gsm7" && !coding.compressed;
    Remarks onLength(m_Reading.remarks, field == "TP-CD" ? "TP-CDL" : "TP-UDL", at - 1);
    if (octets.size() < wanted)
        onLength(code::USER_DATA_MISSING, 0, announced, septets ? octets.size() * 8 / 7 : octets.size());
    if (octets.size() > most)
        onLength(code::USER_DATA_TOO_LONG, 0, octets.size(), most);

    const std::size_t headerOctets = ReadUserDataHeader(octets, remarks);
    const std::size_t rest = octets.size() - headerOctets;
    const std::size_t counted = septets ? (8 * headerOctets + 6) / 7 : headerOctets; // with the fill bits
    if (!m_Reading.headerIsBeyond && announced < counted)
        onLength(code::HEADER_NOT_COUNTED, 0, announced, counted);
    if (coding.compressed)
        remarks(code::COMPRESSED, headerOctets);
    if (coding.compressed || coding.alphabet == "octets" || m_Reading.headerIsBeyond) {
        m_Reading.data = Octets(octets.begin() + static_cast<std::ptrdiff_t>(headerOctets), octets.end());
        m_Reading.units = coding.alphabet == "ucs2" && !coding.compressed ? rest / 2 : rest;
    } else if (septets) {
        ReadSeptets(octets, headerOctets, announced, remarks);
    } else {
        m_Reading.text = UnitText(octets, headerOctets,
                                  [&](std::string_view code, std::size_t bit, std::size_t number,
                                      std::size_t other) { remarks(code, bit / 8, number, other); });
        m_Reading.units = rest / 2;
    }
    if (rest > 0)
        m_Reading.places.push_back({field, at + headerOctets, rest, 0xFF & ~((1 << m_Reading.fillBits) - 1)});
}

/// How many octets the header takes, of those that are there; 0 where there is none.
std::size_t Reader::ReadUserDataHeader(const Octets& octets, Remarks remarks) {
    m_Reading.hasHeader = m_Reading.Flag("TP-UDHI") != 0 && !octets.empty();
    if (!m_Reading.hasHeader)
        return 0;
    const std::size_t count = std::size_t{1} + octets[0], there = std::min(count, octets.size());
    const Octets header(octets.begin() + 1, octets.begin() + static_cast<std::ptrdiff_t>(there));
    m_Reading.places.push_back({field::HEADER_LENGTH, remarks.Base(), 1});
    if (there == count) {
        ReadHeader(header, m_Reading, remarks.From(1));
        return there;
    }
    remarks.For(field::HEADER_LENGTH)(code::HEADER_BEYOND_USER_DATA, 0, count, octets.size());
    m_Reading.header = header;
    m_Reading.ignoresHeader = m_Reading.headerIsBeyond = true;
    if (!header.empty())
        m_Reading.places.push_back({field::IGNORED_HEADER, remarks.Base() + 1, header.size()});
    return there;
}

void Reader::ReadSeptets(const Octets& octets, std::size_t headerOctets, std::size_t announced,
                         Remarks remarks) {
    const std::size_t headerSeptets = (8 * headerOctets + 6) / 7;
    const std::size_t start = 7 * headerSeptets, end = 7 * announced, bits = 8 * octets.size();
    if (headerOctets < octets.size() && start > 8 * headerOctets) {
        m_Reading.fillBits = static_cast<int>(start - 8 * headerOctets);
        const int mask = (1 << m_Reading.fillBits) - 1;
        m_Reading.places.push_back({field::FILL_BITS, remarks.Base() + headerOctets, 1, mask});
        if ((octets[headerOctets] & mask) != 0)
            remarks.For(field::FILL_BITS)(code::FILL_BITS_SET, headerOctets,
                                          octets[headerOctets] & static_cast<unsigned>(mask));
    }
    if (headerOctets < octets.size() && end < bits && octets.back() >> (8 - (bits - end)) != 0)
        remarks(code::SPARE_BITS_SET, octets.size() - 1,
                static_cast<std::size_t>(octets.back() >> (8 - (bits - end))));
    m_Reading.units =
        std::min(announced - std::min(announced, headerSeptets), (bits - std::min(start, bits)) / 7);
    m_Reading.text = SeptetText(octets, start, m_Reading.units, m_Reading.locking, m_Reading.single,
                                [&](std::string_view code, std::size_t bit, std::size_t number,
                                    std::size_t other) { remarks(code, bit / 8, number, other); });
}

void Reader::ReadDeliver() {
    m_Reading.address = TakeAddress("TP-OA");
    ReadProtocol();
    ReadCoding();
    m_Reading.time = TakeTime("TP-SCTS");
    ReadUserData();
}

void Reader::ReadDeliverReport() {
    ReadCause();
    ReadIndicator();
    ReadOptional();
}

void Reader::ReadSubmit() {
    m_Reading.reference = TakeOctet("TP-MR");
    m_Reading.address = TakeAddress("TP-DA");
    ReadProtocol();
    ReadCoding();
    ReadValidity();
    ReadUserData();
}

void Reader::ReadSubmitReport() {
    ReadCause();
    ReadIndicator();
    m_Reading.time = TakeTime("TP-SCTS");
    ReadOptional();
}

void Reader::ReadStatusReport() {
    m_Reading.reference = TakeOctet("TP-MR");
    m_Reading.address = TakeAddress("TP-RA");
    m_Reading.time = TakeTime("TP-SCTS");
    m_Reading.discharge = TakeTime("TP-DT");
    m_Reading.status = TakeValue("TP-ST", code::RESERVED_STATUS);
    if (Left() == 0)
        return;
    ReadIndicator();
    ReadOptional();
}

void Reader::ReadCommand() {
    m_Reading.reference = TakeOctet("TP-MR");
    ReadProtocol();
    m_Reading.command = TakeValue("TP-CT", code::RESERVED_COMMAND_TYPE);
    m_Reading.number = TakeOctet("TP-MN");
    m_Reading.address = TakeAddress("TP-DA");
    ReadCommandData();
}

void Reader::CompareLength() {
    if (m_Input.announced && *m_Input.announced != Left())
        On("TP-MTI")(code::LENGTH_DISAGREES, 0, *m_Input.announced, Left());
}

void Reader::FindNoType() {
    const std::size_t at = m_At;
    const int first = TakeApart("TP-MTI", 1)[0];
    m_Reading.tpdu = at;
    m_Reading.first = {{"TP-MTI", first & 3}};
    m_Reading.places.push_back({"TP-MTI", at, 1, 3});
    m_Reading.fault = {code::RESERVED_TYPE, "TP-MTI", at, 1, 1};
}

void Reader::ReadTpdu(const std::string& type) {
    const std::size_t at = m_At;
    m_Reading.type = type;
    m_Reading.tpdu = at;
    m_Reading.coding = TheTables().coding[0];
    if (type == "SMS-COMMAND")
        m_Reading.coding.alphabet = "octets";
    ReadFirst(type);
    if (type == "SMS-DELIVER")
        ReadDeliver();
    else if (type == "SMS-DELIVER-REPORT")
        ReadDeliverReport();
    else if (type == "SMS-SUBMIT")
        ReadSubmit();
    else if (type == "SMS-SUBMIT-REPORT")
        ReadSubmitReport();
    else if (type == "SMS-STATUS-REPORT")
        ReadStatusReport();
    else
        ReadCommand();
    if (m_Reading.Flag("TP-UDHI") != 0 && !m_Reading.hasHeader)
        m_Reading.remarks.push_back({code::HEADER_MISSING, "TP-UDHI", at});
    if (Left() > 0) {
        On(field::SURPLUS)(code::SURPLUS_OCTETS, 0, Left());
        m_Reading.places.push_back({field::SURPLUS, m_At, Left()});
    }
}

/// Where the TPDU begins; beyond the octets where there is none.
std::size_t TpduAt(const Octets& octets, bool centre) {
    return centre && !octets.empty() ? std::size_t{1} + octets[0] : 0;
}

/// Nothing missing, nothing left over, every address and time as it should be, and the header adds up.
bool IsSound(const Reading& reading) {
    static constexpr std::array unsound = {
        code::USER_DATA_MISSING,       code::SURPLUS_OCTETS,    code::EXTENSION_BIT_CLEAR,
        code::ADDRESS_TOO_LONG,        code::TIME_OUT_OF_RANGE, code::HEADER_MISSING,
        code::HEADER_BEYOND_USER_DATA, code::HEADER_OVERRUN,    code::HEADER_LEFT_OVER};
    return !reading.fault &&
           std::none_of(reading.remarks.begin(), reading.remarks.end(), [](const Remark& remark) {
               return std::find(unsound.begin(), unsound.end(), remark.code) != unsound.end();
           });
}

/// Reads with everything told but the length. Without a type, TP-MTI names none, or is not there.
Reading ReadAs(const Input& input, bool centre, const std::string& type) {
    Reading reading;
    Reader reader(input, reading);
    try {
        if (centre)
            reader.ReadCentre();
        reader.CompareLength();
        if (!type.empty())
            reader.ReadTpdu(type);
        else
            reader.FindNoType();
    } catch (const Cut& cut) {
        reading.fault = cut.fault;
    }
    return reading;
}

Reading ReadFrom(const Input& input, bool centre) {
    const std::size_t at = TpduAt(input.octets, centre);
    if (at >= input.octets.size())
        return ReadAs(input, centre, "");
    const int mti = input.octets[at] & 3;
    const auto& [toMobile, fromMobile] = TheTables().types.at(mti);
    Reading reading;
    if (input.direction != Direction::UNKNOWN) {
        reading = ReadAs(input, centre, input.direction == Direction::TO_MOBILE ? toMobile : fromMobile);
    } else {
        // A SUBMIT is likelier than a SUBMIT-REPORT.
        const std::string& likelier = mti == 1 ? fromMobile : toMobile;
        const std::string& other = mti == 1 ? toMobile : fromMobile;
        reading = ReadAs(input, centre, likelier);
        if (!IsSound(reading) && !other.empty()) {
            Reading second = ReadAs(input, centre, other);
            if (IsSound(second)) {
                reading = std::move(second);
                reading.remarks.push_back({code::TYPE_GUESSED, "TP-MTI", at});
            }
        }
    }
    if (mti == 3 && !reading.type.empty())
        reading.remarks.push_back({code::RESERVED_TYPE, "TP-MTI", at});
    return reading;
}

/// Whether an announced length tells that the service centre's address is there, or that it is not.
Known CentreByLength(const Input& input) {
    if (!input.announced)
        return Known::UNKNOWN;
    if (*input.announced == input.octets.size())
        return Known::NO;
    return TpduAt(input.octets, true) + *input.announced == input.octets.size() ? Known::YES : Known::UNKNOWN;
}

} // namespace

Reading Read(const Input& input) {
    if (input.octets.empty()) {
        Reading nothing;
        nothing.fault = {code::EMPTY, input.centre == Known::NO ? "TP-MTI" : field::CENTRE, 0, 1, 0};
        return nothing;
    }
    const Known centre = input.centre == Known::UNKNOWN ? CentreByLength(input) : input.centre;
    Reading reading;
    if (centre == Known::UNKNOWN) {
        reading = ReadFrom(input, true);
        if (!IsSound(reading)) {
            Reading without = ReadFrom(input, false);
            if (IsSound(without))
                reading = std::move(without);
        }
    } else {
        reading = ReadFrom(input, centre == Known::YES);
    }
    reading.isSound = IsSound(reading);
    std::sort(reading.remarks.begin(), reading.remarks.end(), [](const Remark& a, const Remark& b) {
        return std::tuple(a.octet, a.code, a.number) < std::tuple(b.octet, b.code, b.number);
    });
    return reading;
}

} // namespace plain
