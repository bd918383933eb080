#include "characters/Hexadecimal.h"

#include <gtest/gtest.h>

#include "characters/InputError.h"

namespace {

using Octets = std::vector<unsigned char>;

TEST(ReadHex, DigitsAreReadHoweverTheyArePasted) {
    const Octets octets = {0x07, 0x91, 0xAB};
    for (const char* text : {"0791AB",
                             "0791ab",
                             " 0791AB\t",
                             "07 91 AB",
                             "07\t91\tAB",
                             "07  91 AB",
                             "0 791A B",
                             "0791\nAB",
                             "0791AB\r\n",
                             "0x0791AB",
                             "0X07 0x91 0xab",
                             "0x07,0x91,0xAB",
                             "{0x07, 0x91, 0xAB}",
                             "[07, 91, AB]",
                             "07:91:AB",
                             "07-91-AB",
                             "07:91\nAB",
                             "-07: 91: AB-",
                             "0791,AB",
                             "\"0791AB\"",
                             "'0791AB'",
                             "`0791AB`",
                             "\"0791AB\",",
                             "'0791AB';",
                             "0791AB,",
                             "0791AB;",
                             "\xEF\xBB\xBF"
                             "0791AB",
                             "b'0791AB'",
                             "x'0791AB'",
                             "X'0791AB'",
                             "B\"0791AB\"",
                             "\\x07\\x91\\xAB",
                             "<0791AB>",
                             "(0791AB)",
                             "> 0791AB\x1A",
                             "PDU: 0791AB",
                             "pdu=0791AB",
                             "SMS PDU: 07 91 AB",
                             "sms_pdu: 0791AB",
                             "'pdu': '0791AB'",
                             "PDU: b'0791AB'",
                             "  b'0791AB'",
                             "0x07:0x91:0xAB",
                             "\n07:91:AB",
                             "07:91\n  AB",
                             "07:91 \n AB",
                             "\"pdu\": \"0791AB\"",
                             "\xC2\xA0"
                             "0791"
                             "\xE2\x80\x8B"
                             "AB",
                             "\xE2\x80\x9C"
                             "0791AB"
                             "\xE2\x80\x9D",
                             "\xE2\x80\x98"
                             "0791AB"
                             "\xE2\x80\x99",
                             "\xC2\xAB"
                             "0791AB"
                             "\xC2\xBB"})
        EXPECT_EQ(qxpdu::ReadHex(text), octets) << text;
}

TEST(ReadHex, WhatMightBeMistakenIsRefusedWithItsPlace) {
    const struct {
        const char* text;
        const char* message;
    } rows[] = {
        {"", "no hexadecimal digits"},
        {" '' ", "no hexadecimal digits"},
        {"079", "odd number of hexadecimal digits, 3"},
        {"07 9", "odd number of hexadecimal digits, 3"},
        {"b'", "no hexadecimal digits"},
        {"b", "odd number of hexadecimal digits, 1"},
        {"_: 07", "character 1, '_', is no hexadecimal digit"},
        {"07:91 AB", "colons or hyphens stand between some of the octets, but not all"},
        {"07:91:AB 21", "colons or hyphens stand between some of the octets, but not all"},
        {"0G", "character 2, 'G', is no hexadecimal digit"},
        {"07 91 hello", "character 7, 'h', is no hexadecimal digit"},
        {"7:91", "character 2, ':', stands inside an octet"},
        {"0x7, 0x91", "character 4, ',', stands inside an octet"},
        {"10:00:00 0791AB", "colons or hyphens stand between some of the octets, but not all"},
        {"10:00:00 07 91 AB", "colons or hyphens stand between some of the octets, but not all"},
        {"2026-11-22 0791AB", "colons or hyphens stand between some of the octets, but not all"},
        {"07 91: 21", "colons or hyphens stand between some of the octets, but not all"},
        {"0791:21", "colons or hyphens stand between some of the octets, but not all"},
        {"07:91AB", "colons or hyphens stand between some of the octets, but not all"},
        {"07,9-1", "character 5, '-', stands inside an octet"},
        {"070x91", "character 4, 'x', is no hexadecimal digit"},
        {"abc: 07", "character 4, ':', stands inside an octet"},
        {"PDU 07", "character 1, 'P', is no hexadecimal digit"},
        {"P.D.U: 07", "character 1, 'P', is no hexadecimal digit"},
        {"07\x01'", "character 3, 0x01, is no hexadecimal digit"},
        {"07*'", "character 3, '*', is no hexadecimal digit"},
        {"07.91", "character 3, '.', is no hexadecimal digit"},
        {"modem.log", "character 1, 'm', is no hexadecimal digit"},
    };
    for (const auto& row : rows) {
        try {
            qxpdu::ReadHex(row.text);
            ADD_FAILURE() << row.text;
        } catch (const qxpdu::InputError& error) {
            EXPECT_STREQ(error.what(), row.message) << row.text;
        }
    }
}

TEST(Trimmed, BlanksAroundAreLeftOut) {
    const struct {
        const char* text;
        const char* trimmed;
    } rows[] = {{"", ""}, {" \t\r", ""}, {"a", "a"}, {" a b\t", "a b"}, {"\ra\r", "a"}, {"\na", "\na"}};
    for (const auto& row : rows)
        EXPECT_EQ(qxpdu::Trimmed(row.text), row.trimmed);
}

} // namespace
