#include "Bridge.h"

#include <algorithm>
#include <array>

#include "BridgeParts.h"
#include "Json.h"
#include "Messages/Words.h"
#include "model/Codes.h"

namespace plain {

namespace {

using Messages::Field;

/// In the order of Messages::Field.
constexpr std::array<Name, 48> c_fields = {field::CENTRE,
                                           "TP-MTI",
                                           "TP-MMS",
                                           "TP-LP",
                                           "TP-RD",
                                           "TP-VPF",
                                           "TP-SRI",
                                           "TP-SRR",
                                           "TP-SRQ",
                                           "TP-UDHI",
                                           "TP-RP",
                                           field::UNUSED,
                                           "TP-MR",
                                           "TP-OA",
                                           "TP-DA",
                                           "TP-RA",
                                           "TP-PID",
                                           "TP-DCS",
                                           "TP-SCTS",
                                           "TP-DT",
                                           "TP-VP",
                                           "TP-ST",
                                           "TP-FCS",
                                           "TP-PI",
                                           "TP-CT",
                                           "TP-MN",
                                           "TP-CDL",
                                           "TP-CD",
                                           "TP-UDL",
                                           field::HEADER_LENGTH,
                                           field::HEADER_ELEMENT,
                                           field::IGNORED_HEADER,
                                           field::FILL_BITS,
                                           "TP-UD",
                                           field::SURPLUS,
                                           field::SERIAL_NUMBER,
                                           field::MESSAGE_IDENTIFIER,
                                           field::CELL_CODING,
                                           field::PAGE_PARAMETER,
                                           field::CELL_TYPE,
                                           field::PAGE_COUNT,
                                           field::PAGE_LANGUAGE,
                                           field::PAGE_CONTENT,
                                           field::PAGE_FILLING,
                                           field::PAGE_LENGTH,
                                           field::WARNING_TYPE,
                                           field::WARNING_TIME,
                                           field::WARNING_SIGNATURE};

} // namespace

Name NameOfField(Field field) {
    return c_fields.at(static_cast<std::size_t>(field));
}

namespace {

/// The fields of the first octet stand in a row.
bool IsOfFirstOctet(Field field) {
    return field >= Field::MessageType && field <= Field::ReplyPath;
}

Address PlainAddress(const Messages::Address& address) {
    return {address.text, address.typeOfAddress >> 4 & 7, address.typeOfAddress & 15, address.length, {}};
}

} // namespace

Time PlainTime(const Messages::Timestamp& time) {
    return {Octets(time.octets.begin(), time.octets.end()),
            time.isValid,
            time.year,
            time.month,
            time.day,
            time.hour,
            time.minute,
            time.second,
            15 * time.quarters};
}

namespace {

Coding PlainCoding(const Messages::DataCoding& coding) {
    static const std::array<const char*, 3> alphabets = {"gsm7", "octets", "ucs2"};
    static const std::array<const char*, 7> groups = {
        "general",         "automatic deletion", "reserved",        "message waiting",
        "message waiting", "message waiting",    "coding and class"};
    static const std::array<const char*, 4> indications = {"voicemail", "fax", "e-mail", "other"};
    Coding plain;
    plain.group = groups.at(static_cast<std::size_t>(coding.group));
    plain.alphabet = alphabets.at(static_cast<std::size_t>(coding.alphabet));
    plain.compressed = coding.isCompressed;
    if (coding.messageClass)
        plain.messageClass = *coding.messageClass;
    if (coding.waiting) {
        plain.waiting = coding.waiting->isStored ? "store" : "discard";
        plain.indication = indications.at(static_cast<std::size_t>(coding.waiting->type));
        plain.sense = coding.waiting->isActive ? "active" : "inactive";
    }
    plain.reserved = coding.isReserved;
    return plain;
}

std::string KindOf(const Messages::Validity& validity) {
    static const std::array<const char*, 4> formats = {"", "", "relative", "absolute"};
    static const std::array<const char*, 8> enhanced = {"none",     "relative", "seconds",  "clock",
                                                        "reserved", "reserved", "reserved", "reserved"};
    if (validity.format == Messages::ValidityFormat::Enhanced)
        return enhanced.at(static_cast<std::size_t>(validity.Enhanced()));
    return formats.at(static_cast<std::size_t>(validity.format));
}

std::optional<Validity> PlainValidity(const Messages::Validity& validity) {
    if (validity.format == Messages::ValidityFormat::None)
        return std::nullopt;
    Validity plain;
    plain.format = static_cast<int>(validity.format);
    const std::size_t size = validity.format == Messages::ValidityFormat::Relative ? 1 : 7;
    plain.octets.assign(validity.octets.begin(), validity.octets.begin() + static_cast<std::ptrdiff_t>(size));
    plain.kind = KindOf(validity);
    if (validity.Seconds())
        plain.seconds = static_cast<int>(*validity.Seconds());
    if (validity.format == Messages::ValidityFormat::Absolute)
        plain.time = PlainTime(validity.Absolute());
    plain.singleShot = validity.IsSingleShot();
    return plain;
}

std::vector<Named> FormattingValues(const Messages::TextFormatting& text) {
    std::vector<Named> values = {{"start", text.start},
                                 {"length", text.length},
                                 {"alignment", text.alignment},
                                 {"size", text.size},
                                 {"bold", text.isBold},
                                 {"italic", text.isItalic},
                                 {"underlined", text.isUnderlined},
                                 {"struck", text.isStruck}};
    if (text.colour) {
        values.push_back({"foreground", *text.colour & 15});
        values.push_back({"background", *text.colour >> 4});
    }
    return values;
}

/// What the library's functions make of an element's data.
void DecodeElement(Element& element, Messages::OctetView data) {
    using Messages::ElementId;
    const auto id = static_cast<ElementId>(element.identifier);
    const auto single = [&](const char* name) {
        if (const auto octet = Messages::ReadSingleOctet(data))
            element.values = {{name, *octet}};
    };
    switch (id) {
    case ElementId::Concatenation8:
    case ElementId::Concatenation16:
        if (const auto value =
                Messages::ReadConcatenation(static_cast<std::uint8_t>(element.identifier), data))
            element.values = {
                {"reference", value->reference}, {"total", value->total}, {"part", value->part}};
        break;
    case ElementId::Ports8:
    case ElementId::Ports16:
        if (const auto value = Messages::ReadPorts(static_cast<std::uint8_t>(element.identifier), data))
            element.values = {{"destination", value->destination}, {"source", value->originator}};
        break;
    case ElementId::SpecialMessageIndication:
        if (const auto value = Messages::ReadSpecialMessageIndication(data))
            element.values = {{"store", value->isStored},
                              {"profile", value->profile + 1},
                              {"extended", value->extendedType},
                              {"kind", value->type},
                              {"count", value->count}};
        break;
    case ElementId::TextFormatting:
        if (const auto value = Messages::ReadTextFormatting(data))
            element.values = FormattingValues(*value);
        break;
    case ElementId::PredefinedSound:
    case ElementId::PredefinedAnimation:
        if (const auto value = Messages::ReadPredefinedObject(data))
            element.values = {{"position", value->position}, {"number", value->number}};
        break;
    case ElementId::ObjectDistribution:
        if (const auto value = Messages::ReadObjectDistribution(data))
            element.values = {{"count", value->count}, {"forbidden", value->forbidsForwarding}};
        break;
    case ElementId::Hyperlink:
        if (const auto value = Messages::ReadHyperlink(data))
            element.values = {
                {"position", value->position}, {"title", value->titleLength}, {"url", value->urlLength}};
        break;
    case ElementId::ReplyAddress:
        if (const auto value = Messages::ReadReplyAddress(data))
            element.address = PlainAddress(*value);
        break;
    case ElementId::ServiceCentreControl:
        single("control");
        break;
    case ElementId::HeaderSource:
        single("source");
        break;
    case ElementId::UserPrompt:
        single("count");
        break;
    case ElementId::EmailHeader:
        single("length");
        break;
    case ElementId::SingleShift:
    case ElementId::LockingShift:
        single("language");
        break;
    default:
        break;
    }
}

/// Gathers the plain values out of the alternatives.
class Gatherer {
public:
    Gatherer(Reading& plain, std::string& contradictions)
        : m_Plain(plain), m_Contradictions(contradictions) {}

    void operator()(const std::monostate&) const {}
    void operator()(const Messages::Deliver& tpdu) const {
        Expect("TP-MMS", !tpdu.moreMessages);
        Expect("TP-LP", tpdu.loopPrevention);
        Expect("TP-SRI", tpdu.statusReportIndication);
        Expect("TP-RP", tpdu.replyPath);
        m_Plain.address = PlainAddress(tpdu.originator);
        m_Plain.protocol = tpdu.protocol;
        TakeCoding(tpdu.coding);
        m_Plain.time = PlainTime(tpdu.timestamp);
        TakeUserData(tpdu.userData);
    }
    void operator()(const Messages::DeliverReport& tpdu) const { TakeReport(tpdu); }
    void operator()(const Messages::Submit& tpdu) const {
        Expect("TP-RD", tpdu.rejectDuplicates);
        Expect("TP-SRR", tpdu.statusReportRequest);
        Expect("TP-RP", tpdu.replyPath);
        m_Plain.reference = tpdu.reference;
        m_Plain.address = PlainAddress(tpdu.destination);
        m_Plain.protocol = tpdu.protocol;
        TakeCoding(tpdu.coding);
        m_Plain.validity = PlainValidity(tpdu.validity);
        TakeUserData(tpdu.userData);
    }
    void operator()(const Messages::SubmitReport& tpdu) const {
        TakeReport(tpdu);
        m_Plain.time = PlainTime(tpdu.timestamp);
    }
    void operator()(const Messages::StatusReport& tpdu) const {
        Expect("TP-MMS", !tpdu.moreMessages);
        Expect("TP-LP", tpdu.loopPrevention);
        Expect("TP-SRQ", tpdu.isForCommand);
        m_Plain.reference = tpdu.reference;
        m_Plain.address = PlainAddress(tpdu.recipient);
        m_Plain.time = PlainTime(tpdu.timestamp);
        m_Plain.discharge = PlainTime(tpdu.discharge);
        m_Plain.status = tpdu.status;
        TakeOptional(tpdu);
    }
    void operator()(const Messages::Command& tpdu) const {
        Expect("TP-SRR", tpdu.statusReportRequest);
        m_Plain.reference = tpdu.reference;
        m_Plain.protocol = tpdu.protocol;
        m_Plain.command = tpdu.commandType;
        m_Plain.number = tpdu.messageNumber;
        m_Plain.address = PlainAddress(tpdu.destination);
        m_Plain.coding.group = "general";
        m_Plain.coding.alphabet = "octets";
        TakeUserData(tpdu.data);
    }

private:
    void Expect(const char* name, bool value) const {
        if (m_Plain.Flag(name) != (value ? 1 : 0))
            m_Contradictions += std::string(name) + " differs between the place and the member\n";
    }
    void TakeCoding(const Messages::DataCoding& coding) const {
        m_Plain.dataCoding = coding.value;
        m_Plain.coding = PlainCoding(coding);
    }
    template <class Tpdu>
    void TakeReport(const Tpdu& tpdu) const {
        if (tpdu.failureCause)
            m_Plain.failureCause = *tpdu.failureCause;
        TakeOptional(tpdu);
    }
    template <class Tpdu>
    void TakeOptional(const Tpdu& tpdu) const {
        m_Plain.coding = PlainCoding(Messages::DataCoding(0));
        if (tpdu.parameterIndicator)
            m_Plain.indicator = {*tpdu.parameterIndicator};
        if (tpdu.protocol)
            m_Plain.protocol = *tpdu.protocol;
        if (tpdu.coding)
            TakeCoding(*tpdu.coding);
        if (tpdu.userData)
            TakeUserData(*tpdu.userData);
    }
    void TakeUserData(const Messages::UserData& data) const;

    Reading& m_Plain;
    std::string& m_Contradictions;
};

} // namespace

std::vector<Element> PlainElements(const std::vector<Messages::HeaderElement>& elements,
                                   const Octets& userData, std::size_t at, std::string& contradictions) {
    std::vector<Element> plain;
    for (const Messages::HeaderElement& element : elements) {
        const Messages::OctetView octets = element.Data(userData);
        Element one;
        one.identifier = element.identifier;
        one.octet = at + element.offset - 2;
        one.octets.assign(octets.begin(), octets.end());
        DecodeElement(one, octets);
        if (one.octets.size() != element.length)
            contradictions += "an element's data reaches beyond the user data\n";
        plain.push_back(std::move(one));
    }
    return plain;
}

std::vector<Remark> PlainRemarks(const std::vector<Messages::Remark>& remarks) {
    std::vector<Remark> plain;
    for (const Messages::Remark& remark : remarks)
        plain.push_back({Messages::CodeOf(remark.code), NameOfField(remark.field), remark.octet,
                         remark.number, remark.other});
    std::sort(plain.begin(), plain.end());
    return plain;
}

std::optional<Fault> PlainFault(const std::optional<Messages::Fault>& fault) {
    if (!fault)
        return std::nullopt;
    return Fault{Messages::CodeOf(fault->code), NameOfField(fault->field), fault->octet, fault->expected,
                 fault->found};
}

namespace {

void Gatherer::TakeUserData(const Messages::UserData& data) const {
    m_Plain.length = data.length;
    m_Plain.userData = data.octets;
    m_Plain.hasHeader = data.hasHeader;
    m_Plain.ignoresHeader = data.isHeaderIgnored;
    m_Plain.units = data.textUnits;
    m_Plain.fillBits = data.fillBits;
    m_Plain.locking = static_cast<int>(data.tables.locking);
    m_Plain.single = static_cast<int>(data.tables.single);
    if (data.concatenation)
        m_Plain.concatenation = {data.concatenation->reference, data.concatenation->total,
                                 data.concatenation->part, data.concatenation->hasWideReference ? 16 : 8};
    if (data.ports)
        m_Plain.ports = {data.ports->destination, data.ports->originator, data.ports->areWide ? 16 : 8};
    const bool beyond = data.hasHeader && !data.octets.empty() && data.octets[0] >= data.octets.size();
    m_Plain.headerIsBeyond = beyond;
    if (data.hasHeader && !data.octets.empty()) {
        const Messages::OctetView header = Messages::OctetView(data.octets).Sub(1, data.octets[0]);
        m_Plain.header.assign(header.begin(), header.end());
    }
    std::size_t at = 0; // of the user data
    for (const Place& place : m_Plain.places)
        if (place.field == field::HEADER_LENGTH)
            at = place.octet;
    m_Plain.elements = PlainElements(data.elements, data.octets, at, m_Contradictions);
    if (beyond || m_Plain.coding.compressed || m_Plain.coding.alphabet == "octets") {
        const Messages::OctetView content = data.Content();
        m_Plain.data = Octets(content.begin(), content.end());
        if (!data.text.empty())
            m_Contradictions += "text of what is none\n";
    } else {
        m_Plain.text = data.text;
    }
}

} // namespace

/// Places as the second reading has them: fields whole, and only where there is an octet.
std::vector<Place> PlainPlaces(const std::vector<Messages::FieldPlace>& places) {
    std::vector<Place> plain;
    bool continues = false; // the last one, by a further piece
    for (const Messages::FieldPlace& place : places) {
        const bool piece = place.piece != Messages::Piece::Whole;
        const bool begins = place.piece == Messages::Piece::Identifier ||
                            (place.piece == Messages::Piece::Length && place.field != Field::HeaderElement);
        if (piece && !begins && continues) {
            plain.back().count += place.count;
            continue;
        }
        continues = piece;
        plain.push_back({NameOfField(place.field), place.octet, place.count, place.mask});
    }
    plain.erase(
        std::remove_if(plain.begin(), plain.end(), [](const Place& place) { return place.count == 0; }),
        plain.end());
    return plain;
}

namespace {

/// What a fault leaves unread is missing in the second reading, and holds nothing in the library's.
void LeaveOutWhatIsUnread(Reading& plain) {
    const auto isRead = [&plain](std::initializer_list<Name> fields) {
        return std::any_of(plain.places.begin(), plain.places.end(), [&](const Place& place) {
            return place.field != plain.fault->field &&
                   std::find(fields.begin(), fields.end(), place.field) != fields.end();
        });
    };
    const auto check = [&](auto& member, std::initializer_list<Name> fields) {
        if (!isRead(fields))
            member.reset();
    };
    check(plain.centre, {field::CENTRE});
    check(plain.reference, {"TP-MR"});
    check(plain.failureCause, {"TP-FCS"});
    check(plain.protocol, {"TP-PID"});
    check(plain.status, {"TP-ST"});
    check(plain.command, {"TP-CT"});
    check(plain.number, {"TP-MN"});
    check(plain.address, {"TP-OA", "TP-DA", "TP-RA"});
    check(plain.dataCoding, {"TP-DCS"});
    check(plain.time, {"TP-SCTS"});
    check(plain.discharge, {"TP-DT"});
    check(plain.validity, {"TP-VP"});
    check(plain.length, {"TP-UDL", "TP-CDL"});
    check(plain.userData, {"TP-UDL", "TP-CDL"});
    check(plain.text, {"TP-UDL", "TP-CDL"});
    check(plain.data, {"TP-UDL", "TP-CDL"});
}

/// What a visitor is told has to be what a reading holds.
class Gathering : public Messages::Visitor {
public:
    void OnPlace(const Messages::FieldPlace& place) override {
        m_Heard.push_back({0, static_cast<std::uint32_t>(place.field),
                           static_cast<std::uint32_t>(place.piece), place.mask, place.value, place.octet,
                           place.count});
    }
    void OnRemark(const Messages::Remark& remark) override {
        m_Heard.push_back({1, static_cast<std::uint32_t>(remark.code),
                           static_cast<std::uint32_t>(remark.field), remark.octet, remark.number,
                           remark.other, 0});
    }
    void OnFault(const Messages::Fault& fault) override {
        m_Heard.push_back({2, static_cast<std::uint32_t>(fault.code), static_cast<std::uint32_t>(fault.field),
                           fault.octet, fault.expected, fault.found, 0});
    }
    /// Places, then remarks, then the fault, each in its order.
    std::vector<std::array<std::uint32_t, 7>> Heard() const {
        auto heard = m_Heard;
        std::stable_sort(heard.begin(), heard.end(),
                         [](const auto& a, const auto& b) { return a[0] < b[0]; });
        return heard;
    }

private:
    std::vector<std::array<std::uint32_t, 7>> m_Heard;
};

bool TellsTheSame(const Messages::Reading& reading, const Octets& octets,
                  const Messages::ReadOptions& options) {
    Gathering walked, kept;
    Messages::Walk(octets, options, walked);
    for (const auto& place : reading.places)
        kept.OnPlace(place);
    for (const auto& remark : reading.remarks)
        kept.OnRemark(remark);
    if (reading.fault)
        kept.OnFault(*reading.fault);
    return walked.Heard() == kept.Heard();
}

} // namespace

Messages::ReadOptions OptionsOf(const Input& input) {
    Messages::ReadOptions options;
    options.serviceCentre = static_cast<Messages::Presence>(input.centre);
    options.direction = static_cast<Messages::Direction>(input.direction);
    options.failureCause = static_cast<Messages::Presence>(input.failureCause);
    if (input.announced)
        options.announcedLength = static_cast<std::uint32_t>(*input.announced);
    return options;
}

Reading ReadByLibrary(const Input& input, std::string& contradictions) {
    const Messages::ReadOptions options = OptionsOf(input);
    // Memory of just this many octets, so that the sanitizers see a read after them.
    const Octets octets(input.octets);
    const Messages::Reading reading = Messages::Read(octets, options);
    if (!TellsTheSame(reading, octets, options))
        contradictions += "a visitor is told something else than the reading holds\n";
    static const std::array<const char*, 7> types = {"",           "SMS-DELIVER",       "SMS-DELIVER-REPORT",
                                                     "SMS-SUBMIT", "SMS-SUBMIT-REPORT", "SMS-STATUS-REPORT",
                                                     "SMS-COMMAND"};
    Reading plain;
    plain.isSound = reading.IsSound();
    plain.type = types.at(static_cast<std::size_t>(reading.Type()));
    if (reading.serviceCentre)
        plain.centre = PlainAddress(*reading.serviceCentre);
    for (const Messages::FieldPlace& place : reading.places)
        if (IsOfFirstOctet(place.field)) {
            plain.first.push_back({std::string(NameOfField(place.field)), place.value});
            plain.tpdu = place.octet;
        }
    plain.places = PlainPlaces(reading.places);
    std::visit(Gatherer(plain, contradictions), reading.tpdu);
    plain.remarks = PlainRemarks(reading.remarks);
    plain.fault = PlainFault(reading.fault);
    if (reading.fault)
        LeaveOutWhatIsUnread(plain);
    return plain;
}

Reading AsTheLibraryKeepsIt(Reading reading) {
    for (std::optional<Address>* address : {&reading.centre, &reading.address})
        if (*address)
            (*address)->octets.clear();
    for (Element& element : reading.elements)
        if (element.address)
            element.address->octets.clear();
    if (reading.indicator.size() > 1)
        reading.indicator.resize(1);
    std::sort(reading.remarks.begin(), reading.remarks.end());
    return reading;
}

namespace {

/// What stands in one of two lists and not in the other.
std::string OnlyIn(const char* name, const Json& one, const Json& other, const char* whose) {
    std::string lines;
    for (const Json& item : one)
        if (std::find(other.begin(), other.end(), item) == other.end())
            lines += std::string(name) + ", only " + whose + ": " + item.dump() + "\n";
    return lines;
}

} // namespace

std::string Differences(Json left, Json right) {
    std::string lines;
    for (const char* list : {"remarks", "places"}) {
        lines += OnlyIn(list, left.at(list), right.at(list), "the library's") +
                 OnlyIn(list, right.at(list), left.at(list), "the second reading's");
        if (left.at(list) != right.at(list) && lines.empty())
            lines += std::string(list) + " in another order or number\n";
        left.erase(list);
        right.erase(list);
    }
    for (const auto& [name, value] : left.items())
        if (!right.contains(name) || right.at(name) != value)
            lines += name + ": library " + value.dump() + ", second reading " +
                     (right.contains(name) ? right.at(name).dump() : std::string("nothing")) + "\n";
    for (const auto& [name, value] : right.items())
        if (!left.contains(name))
            lines += name + ": library nothing, second reading " + value.dump() + "\n";
    return lines;
}

std::string Differences(const Reading& library, const Reading& expected) {
    if (library == expected)
        return {};
    std::string lines = Differences(ToJson(library), ToJson(expected));
    if (library.units != expected.units)
        lines += "units: library " + std::to_string(library.units) + ", second reading " +
                 std::to_string(expected.units) + "\n";
    return lines.empty() ? "a member that has no JSON differs\n" : lines;
}

} // namespace plain
