// The languages whose tables a text may be written with, by their codes.
#include "commands/Languages.h"

#include <gtest/gtest.h>

namespace {

using Messages::Language;
using qxpdu::CodesOf;
using qxpdu::FaultOfLanguages;
using qxpdu::LanguagesIn;
using Codes = std::vector<std::string>;

TEST(Languages, EachHasItsCode) {
    struct Row {
        const char* code;
        Language language;
    };
    const Row rows[] = {
        {"tr", Language::Turkish}, {"es", Language::Spanish},   {"pt", Language::Portuguese},
        {"bn", Language::Bengali}, {"gu", Language::Gujarati},  {"hi", Language::Hindi},
        {"kn", Language::Kannada}, {"ml", Language::Malayalam}, {"or", Language::Oriya},
        {"pa", Language::Punjabi}, {"ta", Language::Tamil},     {"te", Language::Telugu},
        {"ur", Language::Urdu},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(FaultOfLanguages(row.code), "");
        EXPECT_EQ(LanguagesIn(row.code).Bits(), Messages::Languages({row.language}).Bits()) << row.code;
        EXPECT_EQ(CodesOf({row.language}), Codes{row.code});
    }
    EXPECT_EQ(CodesOf(LanguagesIn("all")),
              (Codes{"tr", "es", "pt", "bn", "gu", "hi", "kn", "ml", "or", "pa", "ta", "te", "ur"}));
    EXPECT_EQ(CodesOf(LanguagesIn("ur,pt,tr")), (Codes{"tr", "pt", "ur"}));
    EXPECT_EQ(CodesOf(LanguagesIn("")), Codes{});
    EXPECT_EQ(CodesOf({}), Codes{});
}

TEST(Languages, ListSaysWhatIsWrongWithIt) {
    for (const char* const right : {"all", "tr,pt", "pt,tr,ur", "tr,tr"})
        EXPECT_EQ(FaultOfLanguages(right), "") << right;
    for (const char* const missing : {"", "tr,", ","})
        EXPECT_EQ(FaultOfLanguages(missing), "a language is missing") << missing;
    const std::string known = "' is no language with tables: tr, es, pt, bn, gu, hi, kn, ml, or, pa, ta, te, "
                              "ur or all";
    EXPECT_EQ(FaultOfLanguages("de"), "'de" + known);
    EXPECT_EQ(FaultOfLanguages("tr,de,en"), "'de" + known) << "the first";
    EXPECT_EQ(FaultOfLanguages("TR"), "'TR" + known);
    EXPECT_EQ(FaultOfLanguages("tr,all"), "'all" + known);
    EXPECT_EQ(FaultOfLanguages("tr,,pt"), "'" + known);
    EXPECT_EQ(FaultOfLanguages(",tr"), "'" + known);
}

} // namespace
