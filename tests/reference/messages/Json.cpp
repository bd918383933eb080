#include "Json.h"

#include <array>
#include <cstdio>
#include <stdexcept>

namespace plain {

namespace {

const std::array<const char*, 3> c_known = {"unknown", "yes", "no"};
const std::array<const char*, 3> c_directions = {"unknown", "to-mobile", "from-mobile"};

template <class Enumeration>
Enumeration WordOf(const Json& vector, const char* member, const std::array<const char*, 3>& words) {
    const std::string word = vector.value(member, "unknown");
    for (std::size_t i = 0; i < words.size(); ++i)
        if (word == words.at(i))
            return static_cast<Enumeration>(i);
    throw std::invalid_argument(std::string(member) + " is " + word);
}

Json AddressJson(const Address& address) {
    return {{address.ton == 5 ? "text" : "digits", address.text},
            {"ton", address.ton},
            {"npi", address.npi},
            {"length", address.length},
            {"octets", Hex(address.octets)}};
}

/// A service centre's address is of digits, whatever its type.
Json CentreJson(const Address& address) {
    return {{"digits", address.text},
            {"ton", address.ton},
            {"npi", address.npi},
            {"length", address.length},
            {"octets", Hex(address.octets)}};
}

std::string Iso8601(const Time& time) {
    const int zone = time.zone < 0 ? -time.zone : time.zone;
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d%c%02d:%02d", time.year, time.month,
                  time.day, time.hour, time.minute, time.second, time.zone < 0 ? '-' : '+', zone / 60,
                  zone % 60);
    return text.data();
}

Json ValidityJson(const Validity& validity) {
    Json json = {{"octets", Hex(validity.octets)}, {"kind", validity.kind}};
    if (validity.seconds)
        json["seconds"] = *validity.seconds;
    if (validity.time && validity.time->known)
        json["time"] = Iso8601(*validity.time);
    if (validity.singleShot)
        json["single-shot"] = true;
    return json;
}

Json CodingJson(const Coding& coding) {
    Json json = {{"alphabet", coding.alphabet}};
    if (coding.compressed)
        json["compressed"] = true;
    if (coding.messageClass >= 0)
        json["class"] = coding.messageClass;
    if (!coding.waiting.empty()) {
        json["waiting"] = coding.waiting;
        json["indication"] = coding.indication;
        json["sense"] = coding.sense;
    }
    if (coding.group == "automatic deletion")
        json["automatic-deletion"] = true;
    if (coding.reserved)
        json["reserved"] = true;
    return json;
}

Json HeaderJson(const Reading& reading) {
    Json json = {{"octets", Hex(reading.header)}, {"elements", ElementsJson(reading.elements)}};
    if (reading.ignoresHeader)
        json["ignored"] = true;
    if (reading.concatenation)
        json["concatenation"] = {{"reference", reading.concatenation->reference},
                                 {"total", reading.concatenation->total},
                                 {"part", reading.concatenation->part},
                                 {"bits", reading.concatenation->bits}};
    if (reading.ports)
        json["ports"] = {{"destination", reading.ports->destination},
                         {"source", reading.ports->source},
                         {"bits", reading.ports->bits}};
    if (reading.locking != 0)
        json["locking"] = reading.locking;
    if (reading.single != 0)
        json["single"] = reading.single;
    if (reading.fillBits != 0)
        json["fill-bits"] = reading.fillBits;
    return json;
}

Json RemarkJson(const Remark& remark) {
    Json json = {{"code", remark.code}, {"field", remark.field}, {"octet", remark.octet}};
    if (remark.number != 0)
        json["number"] = remark.number;
    if (remark.other != 0)
        json["other"] = remark.other;
    return json;
}

Json PlaceJson(const Place& place) {
    Json json = {{"field", place.field}, {"octet", place.octet}, {"count", place.count}};
    if (place.mask != 0xFF)
        json["mask"] = place.mask;
    return json;
}

const char* AddressField(const std::string& type) {
    if (type == "SMS-DELIVER")
        return "TP-OA";
    return type == "SMS-STATUS-REPORT" ? "TP-RA" : "TP-DA";
}

} // namespace

Json TimeJson(const Time& time) {
    Json json = {{"octets", Hex(time.octets)}};
    if (time.known)
        json["time"] = Iso8601(time);
    return json;
}

Json ElementsJson(const std::vector<Element>& elements) {
    Json array = Json::array();
    for (const Element& element : elements) {
        Json json = {{"iei", element.identifier}, {"octet", element.octet}, {"octets", Hex(element.octets)}};
        for (const auto& [name, value] : element.values)
            json[name] = value;
        if (element.address)
            json["address"] = AddressJson(*element.address);
        array.push_back(json);
    }
    return array;
}

void AddFindings(Json& json, const std::vector<Remark>& remarks, const std::optional<Fault>& fault,
                 const std::vector<Place>& places) {
    json["remarks"] = Json::array();
    for (const Remark& remark : remarks)
        json["remarks"].push_back(RemarkJson(remark));
    if (fault)
        json["fault"] = {{"code", fault->code},
                         {"field", fault->field},
                         {"octet", fault->octet},
                         {"expected", fault->expected},
                         {"found", fault->found}};
    json["places"] = Json::array();
    for (const Place& place : places)
        json["places"].push_back(PlaceJson(place));
}

std::string Hex(const Octets& octets) {
    static const char* const digits = "0123456789ABCDEF";
    std::string text;
    for (const std::uint8_t octet : octets) {
        text += digits[octet >> 4];
        text += digits[octet & 15];
    }
    return text;
}

Octets FromHex(std::string_view hex) {
    Octets octets;
    if (hex.size() % 2 != 0)
        throw std::invalid_argument("half an octet: " + std::string(hex));
    for (std::size_t i = 0; i < hex.size(); i += 2)
        octets.push_back(static_cast<std::uint8_t>(std::stoi(std::string(hex.substr(i, 2)), nullptr, 16)));
    return octets;
}

Input InputOf(const Json& vector) {
    Input input;
    input.octets = FromHex(vector.at("octets").get<std::string>());
    input.centre = WordOf<Known>(vector, "service-centre", c_known);
    input.direction = WordOf<Direction>(vector, "direction", c_directions);
    input.failureCause = WordOf<Known>(vector, "failure-cause", c_known);
    if (vector.contains("announced"))
        input.announced = vector.at("announced").get<std::size_t>();
    return input;
}

void AddInput(Json& vector, const Input& input) {
    vector["octets"] = Hex(input.octets);
    vector["service-centre"] = c_known.at(static_cast<std::size_t>(input.centre));
    vector["direction"] = c_directions.at(static_cast<std::size_t>(input.direction));
    if (input.announced)
        vector["announced"] = *input.announced;
    if (input.failureCause != Known::UNKNOWN)
        vector["failure-cause"] = c_known.at(static_cast<std::size_t>(input.failureCause));
}

Json ToJson(const Reading& reading) {
    Json json = Json::object();
    const auto add = [&json](const char* name, const std::optional<int>& number) {
        if (number)
            json[name] = *number;
    };
    if (!reading.type.empty())
        json["type"] = reading.type;
    if (reading.tpdu)
        json["tpdu"] = *reading.tpdu;
    if (reading.centre)
        json["service-centre"] = CentreJson(*reading.centre);
    for (const auto& [name, value] : reading.first)
        json[name] = value;
    add("TP-MR", reading.reference);
    add("TP-FCS", reading.failureCause);
    if (!reading.indicator.empty())
        json["TP-PI"] = Hex(reading.indicator);
    if (reading.address)
        json[AddressField(reading.type)] = AddressJson(*reading.address);
    add("TP-PID", reading.protocol);
    add("TP-CT", reading.command);
    add("TP-MN", reading.number);
    add("TP-DCS", reading.dataCoding);
    if (reading.dataCoding)
        json["coding"] = CodingJson(reading.coding);
    if (reading.time)
        json["TP-SCTS"] = TimeJson(*reading.time);
    if (reading.discharge)
        json["TP-DT"] = TimeJson(*reading.discharge);
    add("TP-ST", reading.status);
    if (reading.validity)
        json["TP-VP"] = ValidityJson(*reading.validity);
    const bool command = reading.type == "SMS-COMMAND";
    add(command ? "TP-CDL" : "TP-UDL", reading.length);
    if (reading.userData)
        json[command ? "TP-CD" : "TP-UD"] = Hex(*reading.userData);
    if (reading.hasHeader)
        json["header"] = HeaderJson(reading);
    if (reading.text)
        json["text"] = *reading.text;
    if (reading.data)
        json["data"] = Hex(*reading.data);
    json["sound"] = reading.isSound;
    AddFindings(json, reading.remarks, reading.fault, reading.places);
    return json;
}

} // namespace plain
