// The vectors of cell broadcast beside the second reading.
#include <set>

#include <gtest/gtest.h>

#include "CellJson.h"
#include "CellVectors.h"
#include "VectorText.h"
#include "model/Codes.h"
#include "model/Tables.h"

namespace plain {
namespace {

TEST(CellVectors, ThoseByHandAreWhatTheSecondReadingSays) {
    const std::vector<Json> vectors = VectorsOf("cell-by-hand");
    EXPECT_GE(vectors.size(), 12U);
    for (const Json& vector : vectors) {
        EXPECT_EQ(vector.at("by"), "hand");
        EXPECT_EQ(Unordered(ToJson(ReadCell(CellInputOf(vector)))), Unordered(vector.at("means")))
            << vector.at("name");
    }
}

TEST(CellVectors, TheOthersAreAsTheSecondReadingWritesThem) {
    EXPECT_TRUE(VectorText(c_cellFile) == TextOf(CellVectors())) << "run write_vectors";
}

TEST(CellVectors, HaveANameEach) {
    std::set<std::string> names;
    for (const CellVector& vector : CellVectors()) {
        EXPECT_EQ(vector.clause.rfind("TS ", 0), 0U) << vector.name;
        EXPECT_TRUE(names.insert(vector.name).second) << vector.name << " stands twice";
    }
    EXPECT_GE(names.size(), 100U);
}

TEST(CellVectors, HaveEveryRowOfTheTables) {
    std::set<int> identifiers, codings, scopes, warnings;
    std::set<std::string> formats;
    for (const CellVector& vector : CellVectors()) {
        const CellReading reading = ReadCell(vector.input);
        formats.insert(reading.format);
        if (reading.identifier)
            identifiers.insert(*reading.identifier);
        if (reading.dcs)
            codings.insert(*reading.dcs);
        if (reading.serial)
            scopes.insert(*reading.serial >> 14);
        if (reading.warning)
            warnings.insert(reading.warning->type);
    }
    EXPECT_EQ(formats, (std::set<std::string>{"gsm", "umts", "etws"}));
    EXPECT_EQ(codings.size(), 256U);
    EXPECT_EQ(scopes.size(), 4U);
    for (const auto& [table, values] :
         {std::pair("cbs-message-identifiers", identifiers), std::pair("etws-warning-types", warnings)})
        for (Row& row : ReadTable(table))
            for (const char* end : {"from", "to"})
                EXPECT_TRUE(values.contains(std::stoi(row[end]))) << table << " " << row[end];
}

TEST(CellVectors, HaveEveryRemarkAndFault) {
    std::set<std::string_view> remarks, faults;
    for (const CellVector& vector : CellVectors()) {
        const CellReading reading = ReadCell(vector.input);
        for (const Remark& remark : reading.remarks)
            remarks.insert(remark.code);
        if (reading.fault)
            faults.insert(reading.fault->code);
    }
    for (const Name code : code::CELL_REMARKS)
        EXPECT_TRUE(remarks.contains(code)) << code;
    EXPECT_EQ(faults, (std::set<std::string_view>{code::EMPTY, code::FIELD_CUT}));
}

} // namespace
} // namespace plain
