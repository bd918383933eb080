// libQX_Messages beside the second reading: on the vectors, and on random PDUs.

#include <gtest/gtest.h>

#include "../Cases.h"
#include "Bridge.h"
#include "Inputs.h"
#include "VectorText.h"
#include "Vectors.h"

namespace plain {
namespace {

using reference::Difference;
using reference::Random;

/// All of the cases of this program's random test.
constexpr auto c_allCases = static_cast<reference::Share>(100'000);

std::string DifferencesOn(const Input& input) {
    std::string contradictions;
    const Reading library = ReadByLibrary(input, contradictions);
    return contradictions + Differences(library, AsTheLibraryKeepsIt(Read(input)));
}

std::string Shown(const Input& input) {
    Json json = Json::object();
    AddInput(json, input);
    return json.dump();
}

TEST(LibraryBesideSecondReading, ReadsTheVectorsAlike) {
    for (const VectorFile& file : WrittenFiles())
        for (const Vector& vector : file.vectors)
            EXPECT_EQ(DifferencesOn(vector.input), "") << file.name << ": " << vector.name << "\n"
                                                       << Shown(vector.input);
}

TEST(LibraryBesideSecondReading, ReadsTheVectorsByHandAlike) {
    const std::vector<Json> vectors = VectorsOf("by-hand");
    for (const Json& vector : vectors)
        EXPECT_EQ(DifferencesOn(InputOf(vector)), "") << vector.at("name");
    EXPECT_GE(vectors.size(), 60U);
}

TEST(LibraryBesideSecondReading, ReadsRandomPdusAlike) {
    reference::RunCases(c_allCases, [](Random& random) -> Difference {
        const Input input = RandomInput(random);
        return reference::Between(DifferencesOn(input), Shown(input));
    });
}

} // namespace
} // namespace plain
