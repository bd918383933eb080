#include "CellJson.h"

namespace plain {

namespace {

Json CodingJson(const CellCoding& coding) {
    Json json = Json::object();
    if (!coding.alphabet.empty())
        json["alphabet"] = coding.alphabet;
    if (coding.compressed)
        json["compressed"] = true;
    if (coding.messageClass >= 0)
        json["class"] = coding.messageClass;
    if (!coding.language.empty())
        json["language"] = coding.language;
    if (coding.header)
        json["header"] = true;
    if (coding.reserved)
        json["reserved"] = true;
    return json;
}

Json PageJson(const CellPage& page) {
    Json json = {{"page", page.number}, {"octets", Hex(page.octets)}};
    if (page.ignoresHeader)
        json["ignored"] = true;
    if (!page.elements.empty())
        json["elements"] = ElementsJson(page.elements);
    if (page.locking != 0)
        json["locking"] = page.locking;
    if (page.single != 0)
        json["single"] = page.single;
    if (!page.language.empty())
        json["language"] = page.language;
    json["units"] = page.units;
    if (page.padding != 0)
        json["padding"] = page.padding;
    if (page.cut)
        json["cut"] = true;
    if (page.text)
        json["text"] = *page.text;
    if (page.data)
        json["data"] = Hex(*page.data);
    return json;
}

Json WarningJson(const CellWarning& warning) {
    Json json = {{"value", warning.value},
                 {"type", warning.type},
                 {"emergency", warning.emergency},
                 {"popup", warning.popup}};
    if (warning.time)
        json["time"] = TimeJson(*warning.time);
    if (!warning.signature.empty())
        json["signature"] = Hex(warning.signature);
    return json;
}

} // namespace

CellInput CellInputOf(const Json& vector) {
    return {FromHex(vector.at("octets").get<std::string>()), vector.value("format", "")};
}

void AddInput(Json& vector, const CellInput& input) {
    vector["octets"] = Hex(input.octets);
    if (!input.format.empty())
        vector["format"] = input.format;
}

Json ToJson(const CellReading& reading) {
    Json json = {{"format", reading.format}};
    if (reading.serial)
        json["serial"] = {{"value", *reading.serial},
                          {"scope", *reading.serial >> 14},
                          {"code", *reading.serial >> 4 & 0x3FF},
                          {"update", *reading.serial & 0x0F}};
    if (reading.emergency)
        json["serial"]["emergency"] = true;
    if (reading.popup)
        json["serial"]["popup"] = true;
    if (reading.identifier)
        json["identifier"] = *reading.identifier;
    if (reading.dcs) {
        json["dcs"] = *reading.dcs;
        json["coding"] = CodingJson(reading.coding);
    }
    if (reading.total) {
        json["total"] = *reading.total;
        json["pages"] = Json::array();
        for (const CellPage& page : reading.pages)
            json["pages"].push_back(PageJson(page));
    }
    if (reading.warning)
        json["warning"] = WarningJson(*reading.warning);
    AddFindings(json, reading.remarks, reading.fault, reading.places);
    return json;
}

} // namespace plain
