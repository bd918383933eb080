// The vectors of texts that are sent beside the second reading.
#include <set>

#include <gtest/gtest.h>

#include "OutgoingVectors.h"
#include "VectorText.h"

namespace plain {
namespace {

TEST(OutgoingVectors, ThoseByHandAreWhatTheSecondReadingSends) {
    const std::vector<Json> vectors = VectorsOf("outgoing-by-hand");
    EXPECT_GE(vectors.size(), 10U);
    for (const Json& vector : vectors) {
        EXPECT_EQ(vector.at("by"), "hand");
        EXPECT_EQ(Unordered(ToJson(Send(OutgoingOf(vector)))), Unordered(vector.at("sent")))
            << vector.at("name");
    }
}

TEST(OutgoingVectors, TheOthersAreAsTheSecondReadingWritesThem) {
    EXPECT_TRUE(VectorText(c_outgoingFile) == TextOf(OutgoingVectors())) << "run write_vectors";
    for (const Json& vector : VectorsOf(c_outgoingFile))
        EXPECT_EQ(Unordered(ToJson(Send(OutgoingOf(vector)))), Unordered(vector.at("sent")))
            << vector.at("name");
}

TEST(OutgoingVectors, HaveANameEach) {
    std::set<std::string> names;
    for (const OutgoingVector& vector : OutgoingVectors()) {
        EXPECT_EQ(vector.clause.rfind("TS ", 0), 0U) << vector.name;
        EXPECT_TRUE(names.insert(vector.name).second) << vector.name << " stands twice";
    }
    EXPECT_GE(names.size(), 200U);
}

TEST(OutgoingVectors, TakeEveryTable) {
    std::set<int> locking, single;
    for (const OutgoingVector& vector : OutgoingVectors()) {
        const std::optional<Sent> sent = Send(vector.outgoing);
        if (sent && !sent->way.isUcs2) {
            locking.insert(sent->way.locking);
            single.insert(sent->way.single);
        }
    }
    EXPECT_EQ(locking.size(), 13U);
    EXPECT_EQ(single.size(), 14U);
}

} // namespace
} // namespace plain
