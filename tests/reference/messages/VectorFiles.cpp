// The files in tests/vectors beside the second reading.
#include <algorithm>
#include <map>
#include <set>

#include <gtest/gtest.h>

#include "VectorText.h"
#include "Vectors.h"
#include "model/Codes.h"
#include "model/Tables.h"
#include "model/Text.h"

namespace plain {
namespace {

const std::vector<Json>& AllVectors() {
    static const std::vector<Json> all = [] {
        std::vector<Json> vectors = VectorsOf("by-hand");
        for (const VectorFile& file : WrittenFiles())
            for (Json& vector : VectorsOf(file.name))
                vectors.push_back(std::move(vector));
        return vectors;
    }();
    return all;
}

TEST(Vectors, ThoseByHandAreWhatTheSecondReadingSays) {
    const std::vector<Json> vectors = VectorsOf("by-hand");
    EXPECT_GE(vectors.size(), 60U);
    for (const Json& vector : vectors) {
        EXPECT_EQ(vector.at("by"), "hand");
        EXPECT_EQ(Unordered(ToJson(Read(InputOf(vector)))), Unordered(vector.at("means")))
            << vector.at("name");
    }
}

TEST(Vectors, TheOthersAreAsTheSecondReadingWritesThem) {
    for (const VectorFile& file : WrittenFiles())
        EXPECT_TRUE(VectorText(file.name) == TextOf(file)) << file.name << ".jsonl: run write_vectors";
}

TEST(Vectors, HaveANameEach) {
    std::set<std::string> names;
    for (const Json& vector : AllVectors()) {
        const std::string name = vector.at("name");
        EXPECT_FALSE(name.empty());
        EXPECT_EQ(vector.at("clause").get<std::string>().rfind("TS ", 0), 0U) << name;
        if (vector.at("by") == "reading") {
            EXPECT_TRUE(names.insert(name).second) << name << " stands twice";
        }
    }
    EXPECT_GE(names.size(), 400U);
}

/// Tells of rows of a table whose values, both ends of the range, no vector has.
void ExpectEnds(const std::string& table, const std::set<int>& values) {
    for (Row& row : ReadTable(table))
        for (const char* end : {"from", "to"})
            EXPECT_TRUE(values.contains(std::stoi(row[end], nullptr, 16))) << table << " " << row[end];
}

TEST(Vectors, HaveEveryRowOfTheTablesOfValues) {
    std::map<std::string, std::set<int>> values;
    std::set<int> elements, formats;
    for (const Json& vector : AllVectors()) {
        const Json& means = vector.at("means");
        for (const char* field : {"TP-PID", "TP-DCS", "TP-ST", "TP-FCS", "TP-CT", "TP-VPF"})
            if (means.contains(field))
                values[field].insert(means.at(field).get<int>());
        if (means.contains("TP-VP"))
            values[means.at("TP-VPF") == 2 ? "relative" : "enhanced"].insert(
                FromHex(means.at("TP-VP").at("octets").get<std::string>())[0]);
        if (means.contains("header"))
            for (const Json& element : means.at("header").at("elements"))
                elements.insert(element.at("iei").get<int>());
    }
    EXPECT_EQ(values["TP-DCS"].size(), 256U);
    EXPECT_EQ(values["TP-VPF"].size(), 4U);
    ExpectEnds("protocol-identifiers", values["TP-PID"]);
    ExpectEnds("statuses", values["TP-ST"]);
    ExpectEnds("failure-causes", values["TP-FCS"]);
    ExpectEnds("command-types", values["TP-CT"]);
    ExpectEnds("relative-validity", values["relative"]);
    ExpectEnds("header-elements", elements);
    for (int format = 0; format < 8; ++format)
        EXPECT_TRUE(values["enhanced"].contains(format)) << format;
}

/// The values of a member of the elements with an identifier.
std::set<int> ElementValues(int identifier, const char* member) {
    std::set<int> values;
    for (const Json& vector : AllVectors())
        if (vector.at("means").contains("header"))
            for (const Json& element : vector.at("means").at("header").at("elements"))
                if (element.at("iei") == identifier && element.contains(member))
                    values.insert(element.at(member).get<int>());
    return values;
}

TEST(Vectors, HaveEveryRowOfTheTablesOfElements) {
    const std::set<int> narrow = ElementValues(0x04, "destination"),
                        wide = ElementValues(0x05, "destination");
    for (Row& row : ReadTable("ports"))
        for (const char* end : {"from", "to"})
            EXPECT_TRUE((row["element"] == "04" ? narrow : wide).contains(std::stoi(row[end]))) << row[end];
    ExpectEnds("header-sources", ElementValues(0x07, "source"));
    const std::set<int> control = ElementValues(0x06, "control");
    for (int bit = 0; bit < 8; ++bit)
        EXPECT_TRUE(control.contains(1 << bit)) << bit;
    EXPECT_EQ(ElementValues(0x01, "store"), (std::set<int>{0, 1}));
    EXPECT_EQ(ElementValues(0x01, "profile"), (std::set<int>{1, 2, 3, 4}));
    EXPECT_EQ(ElementValues(0x01, "extended"), (std::set<int>{0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(ElementValues(0x01, "kind"), (std::set<int>{0, 1, 2, 3}));
    EXPECT_EQ(ElementValues(0x0A, "alignment"), (std::set<int>{0, 1, 2, 3}));
    EXPECT_EQ(ElementValues(0x0A, "size"), (std::set<int>{0, 1, 2, 3}));
    for (const char* flag : {"bold", "italic", "underlined", "struck"})
        EXPECT_EQ(ElementValues(0x0A, flag), (std::set<int>{0, 1})) << flag;
}

TEST(Vectors, HaveEveryFieldOfTheFirstOctetWithEveryValue) {
    std::map<std::string, std::set<int>> values; // by type and field
    for (const Json& vector : AllVectors()) {
        const Json& means = vector.at("means");
        for (const auto& [type, fields] : TheTables().first)
            for (const Bits& bits : fields)
                if (means.value("type", "") == type)
                    values[type + " " + bits.field].insert(means.at(bits.field).get<int>());
    }
    for (const auto& [type, fields] : TheTables().first)
        for (const Bits& bits : fields)
            if (bits.field != "TP-MTI") {
                EXPECT_EQ(values[type + " " + bits.field].size(), std::size_t{2} << (bits.last - bits.first))
                    << type << " " << bits.field;
            }
}

TEST(Vectors, HaveEveryTypeOfNumberAndNumberingPlan) {
    std::set<int> types, plans;
    for (const Json& vector : AllVectors())
        for (const char* field : {"TP-OA", "TP-DA", "TP-RA"})
            if (vector.at("means").contains(field)) {
                types.insert(vector.at("means").at(field).at("ton").get<int>());
                plans.insert(vector.at("means").at(field).at("npi").get<int>());
            }
    EXPECT_EQ(types.size(), 8U);
    EXPECT_EQ(plans.size(), 16U);
}

/// Every character of a table stands in the text of a vector that is written with it.
TEST(Vectors, HaveEveryCharacterOfEveryAlphabet) {
    std::map<int, std::string> locked, shifted;
    for (const Json& vector : VectorsOf("alphabets")) {
        const Json& means = vector.at("means");
        const Json header = means.value("header", Json::object());
        locked[header.value("locking", 0)] += means.at("text").get<std::string>();
        shifted[header.value("single", 0)] += means.at("text").get<std::string>();
    }
    const auto expect = [](const std::map<int, Alphabet>& tables, std::map<int, std::string>& texts) {
        for (const auto& [language, alphabet] : tables)
            for (const Cell& cell : alphabet)
                if (cell.kind == Cell::CHARACTER) {
                    std::string character;
                    Append(character, cell.character);
                    EXPECT_NE(texts[language].find(character), std::string::npos)
                        << language << " " << character;
                }
    };
    expect(TheTables().locking, locked);
    expect(TheTables().single, shifted);
}

TEST(Vectors, HaveEveryRemarkAndFault) {
    std::set<std::string> remarks, faults;
    for (const Json& vector : AllVectors()) {
        for (const Json& remark : vector.at("means").at("remarks"))
            remarks.insert(remark.at("code").get<std::string>());
        if (vector.at("means").contains("fault"))
            faults.insert(vector.at("means").at("fault").at("code").get<std::string>());
    }
    for (const Name code : code::REMARKS)
        EXPECT_TRUE(remarks.contains(std::string(code))) << code;
    for (const Name code : {code::EMPTY, code::FIELD_CUT, code::RESERVED_TYPE})
        EXPECT_TRUE(faults.contains(std::string(code))) << code;
}

} // namespace
} // namespace plain
