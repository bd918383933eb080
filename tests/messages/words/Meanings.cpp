#include "Messages/Words.h"

#include <gtest/gtest.h>

namespace {

using namespace Messages;

TEST(MeaningOf, DataCodings) {
    const struct {
        std::uint8_t dcs;
        const char* meaning;
    } cases[] = {
        {0x00, "GSM 7-bit"},
        {0x04, "8-bit data"},
        {0x08, "UCS2"},
        {0x10, "GSM 7-bit, class 0: immediate display"},
        {0x3B, "UCS2, compressed, class 3: terminal equipment"},
        {0x0C, "GSM 7-bit, reserved"},
        {0x40, "GSM 7-bit, deleted after it is read"},
        {0xC8, "GSM 7-bit, voice mail waiting, message may be discarded"},
        {0xC1, "GSM 7-bit, no fax waiting, message may be discarded"},
        {0xDA, "GSM 7-bit, e-mail waiting, message kept"},
        {0xEB, "UCS2, other message waiting, message kept"},
        {0xF5, "8-bit data, class 1: mobile equipment"},
    };
    for (const auto& one : cases)
        EXPECT_EQ(MeaningOf(DataCoding(one.dcs)), one.meaning);
}

TEST(MeaningOf, Validities) {
    const struct {
        Validity validity;
        const char* meaning;
    } cases[] = {
        {{}, "none"},
        {{ValidityFormat::Relative, {0x00}}, "relative, 5 minutes"},
        {{ValidityFormat::Relative, {0x0B}}, "relative, 1 hour"},
        {{ValidityFormat::Relative, {0x90}}, "relative, 12 hours 30 minutes"},
        {{ValidityFormat::Relative, {0xA7}}, "relative, 1 day"},
        {{ValidityFormat::Relative, {0xA8}}, "relative, 2 days"},
        {{ValidityFormat::Relative, {0xAC}}, "relative, 6 days"},
        {{ValidityFormat::Relative, {0xB4}}, "relative, 2 weeks"},
        {{ValidityFormat::Relative, {0xB5}}, "relative, 15 days"},
        {{ValidityFormat::Relative, {0xFF}}, "relative, 63 weeks"},
        {{ValidityFormat::Absolute, {0x21, 0x20, 0x31, 0x21, 0x43, 0x65, 0x80}},
         "absolute, 2012-02-13T12:34:56+02:00"},
        {{ValidityFormat::Absolute, {}}, "absolute, no time"},
        {{ValidityFormat::Enhanced, {0x00}}, "enhanced, no period"},
        {{ValidityFormat::Enhanced, {0x41, 0x0B}}, "enhanced, 1 hour, single shot"},
        {{ValidityFormat::Enhanced, {0x02, 0x5A}}, "enhanced, 1 minute 30 seconds"},
        {{ValidityFormat::Enhanced, {0x03, 0x00, 0x00, 0x00}}, "enhanced, 0 seconds"},
    };
    for (const auto& one : cases)
        EXPECT_EQ(MeaningOf(one.validity), one.meaning);
}

} // namespace
