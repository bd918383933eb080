// Each remark and each fault, with its octet and its numbers, and what is read all the same.
#include <gtest/gtest.h>

#include "messages/Readings.h"

namespace {

using namespace Messages;
using tests::DeliverOctets;
using tests::FaultOf;
using tests::FromMobile;
using tests::ReadDeliver;
using tests::RemarksOf;
using tests::ToMobile;

TEST(Remarks, OfAddresses) {
    const struct {
        const char* octets;
        const char* party;
        const char* remarks;
    } cases[] = {
        {"0081", "", ""},
        {"0181F5", "5", ""},
        {"0281A1", "1*", ""},
        {"0681BADCE0", "*#ab0c", ""},
        {"0B912143658709F1", "+12345678901", ""},
        {"0B91214365870911", "+12345678901", "filler-missing 1 at 8"},
        {"0A9121F3658709", "+123", "filler-inside 3 at 4"},
        {"048121F3", "123", ""}, // the last one may be counted
        {"0381F1F3", "1", "filler-inside 1 at 3"},
        {"020121", "12", "extension-bit-clear at 2"},
        {"02F121", "12", "reserved-type-of-number at 2"},
        {"028121", "12", ""},
        {"028221", "12", "reserved-numbering-plan 2 at 2"},
        {"028F21", "12", "reserved-numbering-plan 15 at 2"},
        {"149121436587092143658709", "+12345678901234567890", ""},
        {"159121436587092143658709F1", "+123456789012345678901", "address-too-long 21 at 1"},
        // Names: seven semi-octets are four septets.
        {"07D0C2B07B0D", "Bank", ""},
        {"07D0C2B07BFD", "Bank", "address-bits-left at 6"},
        {"03D04100", "A", ""}, // five bits more than a septet
        {"03D0C100", "A", "address-bits-left at 3"},
        {"03D04101", "A", "address-bits-left at 3"},
        {"0DD0C2B07B1D140E01", "BankABC", ""},
        {"0ED0C2B07B1D140E01", "BankABC@", "possible-filling at 9"},
        {"0ED0C2B07B1D140E89", "BankABCD", ""},
        {"02D000", "@", ""}, // one septet cannot be filling
        {"06D0C14D19", "A€", ""},
        {"04D0C10D", "A", "escape-at-end at 3"},
        {"06D0C14D10", "AA", "unknown-escape 65 1 at 3"},
        {"06D0C14D03", "A", "control-escape 13 1 at 3"},
    };
    for (const auto& one : cases) {
        const Reading reading = ReadDeliver({.originator = one.octets});
        EXPECT_EQ(FaultOf(reading), "") << one.octets;
        EXPECT_EQ(RemarksOf(reading), one.remarks) << one.octets;
        EXPECT_EQ(std::get<Deliver>(reading.tpdu).originator.ToString(), one.party) << one.octets;
    }
}

TEST(Remarks, OfServiceCentres) {
    const struct {
        const char* octets;
        const char* number;
        const char* remarks;
    } cases[] = {
        {"00", "", ""},
        {"0191", "", ""},
        {"0791214365870921", "+123456789012", ""},
        {"07912143658709F1", "+12345678901", ""},
        {"079121436587F921", "+123456789", "filler-inside 9 at 6"},
        {"03D0C2B0", "2a0#", ""}, // digits whatever the type says
        {"021121", "+12", "extension-bit-clear at 1"},
        {"0B9121436587092143658709", "+12345678901234567890", ""},
        {"0C912143658709214365870921", "+1234567890123456789012", "address-too-long 22 at 0"},
    };
    for (const auto& one : cases) {
        const Reading reading =
            ReadHex(one.octets + DeliverOctets().Hex(),
                    {Presence::Yes, Direction::ToMobile, Presence::Unknown, std::nullopt});
        EXPECT_EQ(FaultOf(reading), "") << one.octets;
        EXPECT_EQ(RemarksOf(reading), one.remarks) << one.octets;
        ASSERT_TRUE(reading.serviceCentre);
        EXPECT_EQ(reading.serviceCentre->ToString(), one.number) << one.octets;
        EXPECT_EQ(std::get<Deliver>(reading.tpdu).userData.text, "Hello") << one.octets;
    }
}

TEST(Remarks, OfTimes) {
    const struct {
        const char* octets;
        const char* time;
        const char* remarks;
    } cases[] = {
        {"21203121436580", "2012-02-13T12:34:56+02:00", ""},
        {"00100000000000", "", "time-out-of-range 2 at 13"},
        {"00101000000000", "2000-01-01T00:00:00+00:00", ""},
        {"99211332959500", "2099-12-31T23:59:59+00:00", ""},
        {"00000000000000", "", "time-all-zero at 11"},
        {"00000000000001", "", "time-out-of-range 1 at 12, time-out-of-range 2 at 13"},
        {"21311321436580", "", "time-out-of-range 1 at 12"}, // month 13
        {"21011321436580", "2012-10-31T12:34:56+02:00", ""},
        {"21401321436580", "", "time-out-of-range 2 at 13"}, // 31 April
        {"21209221436580", "2012-02-29T12:34:56+02:00", ""},
        {"31209221436580", "", "time-out-of-range 2 at 13"}, // 29 February 2013
        {"21203142436580", "", "time-out-of-range 3 at 14"},
        {"21203121066580", "", "time-out-of-range 4 at 15"},
        {"21203121430680", "", "time-out-of-range 5 at 16"},
        {"2120312143658A", "2012-02-13T12:34:56-07:00", ""}, // the sign, and 28 quarters
        {"21203121436522", "2012-02-13T12:34:56+05:30", ""},
        {"21203121436569", "2012-02-13T12:34:56-04:00", ""}, // 16 quarters
        {"212031214365E1", "2012-02-13T12:34:56+06:00", "time-semi-octet 6 at 17"},
        {"F1203121436580", "2010-02-13T12:34:56+02:00", "time-semi-octet at 11"},
        {"212031214FF680", "", "time-semi-octet 4 at 15, time-semi-octet 5 at 16, time-out-of-range 5 at 16"},
    };
    for (const auto& one : cases) {
        const Reading reading = ReadDeliver({.timestamp = one.octets});
        EXPECT_EQ(FaultOf(reading), "") << one.octets;
        EXPECT_EQ(RemarksOf(reading), one.remarks) << one.octets;
        const Timestamp& time = std::get<Deliver>(reading.tpdu).timestamp;
        EXPECT_EQ(time.ToString(), one.time) << one.octets;
        EXPECT_EQ(ToHex({time.octets.data(), time.octets.size()}), one.octets);
    }
}

TEST(Remarks, OfValidityPeriods) {
    const struct {
        const char* first; ///< with TP-VPF
        const char* octets;
        std::optional<std::uint32_t> seconds;
        const char* remarks;
    } cases[] = {
        {"11", "00", 300, ""},
        {"11", "8F", 43200, ""},
        {"11", "90", 45000, ""},
        {"11", "A7", 86400, ""},
        {"11", "A8", 172800, ""},
        {"11", "C4", 2592000, ""},
        {"11", "C5", 3024000, ""},
        {"11", "FF", 38102400, ""},
        {"19", "21203121436580", std::nullopt, ""},
        {"19", "21203142436580", std::nullopt, "time-out-of-range 3 at 11"},
        {"09", "00000000000000", std::nullopt, ""},
        {"09", "010B0000000000", 3600, ""},
        {"09", "410B0000000000", 3600, ""},
        {"09", "02FF0000000000", 255, ""},
        {"09", "02000000000000", std::nullopt, "validity-seconds-zero at 9"},
        {"09", "03103254000000", 5025, ""}, // 01:23:45
        {"09", "03100600000000", std::nullopt, "time-out-of-range 2 at 10"},
        {"09", "03100006000000", std::nullopt, "time-out-of-range 3 at 11"},
        {"09", "03F10000000000", 36000, "time-semi-octet 1 at 9"},
        {"09", "04000000000000", std::nullopt, "reserved-validity 4 at 8"},
        {"09", "09050000000000", 1800, "reserved-validity 9 at 8"},
        {"09", "81010000000000", std::nullopt, "validity-extension 129 at 8"},
        {"09", "00010000000000", std::nullopt, "validity-octets-set at 9"},
        {"09", "010B0000000001", 3600, "validity-octets-set at 14"},
        {"09", "03000000000100", 0, "validity-octets-set at 13"},
    };
    for (const auto& one : cases) {
        const Reading reading =
            ReadHex(std::string(one.first) + "2A048110320000" + one.octets + "00", FromMobile());
        EXPECT_EQ(FaultOf(reading), "") << one.octets;
        EXPECT_EQ(RemarksOf(reading), one.remarks) << one.octets;
        EXPECT_EQ(std::get<Submit>(reading.tpdu).validity.Seconds(), one.seconds) << one.octets;
    }
}

TEST(Validity, AbsoluteAndSingleShot) {
    const Reading absolute = ReadHex("192A0481103200002120312143658000", FromMobile());
    EXPECT_EQ(std::get<Submit>(absolute.tpdu).validity.Absolute().ToString(), "2012-02-13T12:34:56+02:00");
    const Reading relative = ReadHex("112A0481103200004000", FromMobile());
    EXPECT_FALSE(std::get<Submit>(relative.tpdu).validity.Absolute().isValid);
    EXPECT_FALSE(std::get<Submit>(relative.tpdu).validity.IsSingleShot())
        << "bit 6 means it in the enhanced format";
    const Reading once = ReadHex("092A0481103200004000000000000000", FromMobile());
    EXPECT_TRUE(std::get<Submit>(once.tpdu).validity.IsSingleShot());
}

TEST(Remarks, OfUserDataThatTheOtherFieldsLeaveNoRoomFor) {
    const auto remarksOf = [](const char* length, std::size_t octets) {
        const std::string command = "022A00000B0B912143658709F1"; // a number of eleven digits
        return RemarksOf(ReadHex(command + length + std::string(octets * 2, 'A'), FromMobile()));
    };
    EXPECT_EQ(remarksOf("96", 150), "") << "164 octets in all";
    EXPECT_EQ(remarksOf("97", 151), "user-data-too-long 151 150 at 13");
}

TEST(Remarks, OfReservedValues) {
    EXPECT_EQ(RemarksOf(ReadDeliver({.first = "14"})), "unused-bits-set 16 at 0");
    EXPECT_EQ(RemarksOf(ReadDeliver({.protocol = "7F"})), "");
    EXPECT_EQ(RemarksOf(ReadDeliver({.protocol = "80"})), "reserved-protocol 128 at 9");
    EXPECT_EQ(RemarksOf(ReadDeliver({.coding = "0C"})), "reserved-data-coding 12 at 10");
    EXPECT_EQ(RemarksOf(ReadHex("062A04811032212031214365802120312143658080", ToMobile())),
              "reserved-status 128 at 20");
    EXPECT_EQ(RemarksOf(ReadHex("062A0481103221203121436580212031214365800078", ToMobile())),
              "reserved-parameter-bits 120 at 21");
    EXPECT_EQ(RemarksOf(ReadHex("008300", FromMobile())), "reserved-failure-cause 131 at 1");
    EXPECT_EQ(RemarksOf(ReadHex("022A0004000481103200", FromMobile())), "reserved-command-type 4 at 3");
    EXPECT_EQ(RemarksOf(ReadHex("022A0020000481103200", FromMobile())), "reserved-command-type 32 at 3");
    EXPECT_EQ(RemarksOf(ReadHex("022A00E0000481103200", FromMobile())), "");
    EXPECT_EQ(RemarksOf(ReadHex("9E2A0000000481103200", FromMobile())), "unused-bits-set 156 at 0");
}

TEST(Remarks, OfUserData) {
    const struct {
        const char* coding;
        const char* userData;
        const char* text;
        const char* remarks;
    } cases[] = {
        {"00", "00", "", ""},
        {"00", "05C8329BFD06", "Hello", ""},
        {"00", "05C8329BFD0E", "Hello", "spare-bits-set 1 at 23"},
        {"00", "05C8329BFD0600", "Hello", "surplus-octets 1 at 24"},
        {"00", "05C8329B", "Hel", "user-data-missing 5 3 at 18"},
        {"00", "05", "", "user-data-missing 5 at 18"},
        {"00", "01C1", "A", "spare-bits-set 1 at 19"},
        {"00", "0141", "A", ""},
        {"00", "02C10D", "A", "escape-at-end at 19"},
        {"00", "04C1CD4608", "A B", "unknown-escape 27 1 at 19"},
        {"00", "03C14D10", "AA", "unknown-escape 65 1 at 19"},
        {"00", "04C14D4308", "AB", "control-escape 13 1 at 19"},
        {"00", "03C14D19", "A€", ""},
        {"04", "02C1CD", "", ""},
        {"04", "03C1CD", "", "user-data-missing 3 2 at 18"},
        {"08", "0400410042", "AB", ""},
        {"08", "03004100", "A", "odd-octet at 21"},
        {"08", "0300411F", "A", "odd-octet 31 at 21"},
        {"08", "04D83DDE00", "😀", ""},
        {"08", "04D83D0041",
         "\xEF\xBF\xBD"
         "A",
         "unpaired-surrogate 55357 at 19"},
        {"08", "040041DE00",
         "A"
         "\xEF\xBF\xBD",
         "unpaired-surrogate 56832 1 at 21"},
        {"08", "0220AC", "€", ""},
        {"08", "0200E9", "é", ""},
        {"20", "02C1CD", "", "compressed at 19"},
        {"28", "0200E9", "", "compressed at 19"},
        {"2C", "0141", "A", "reserved-data-coding 44 at 10"}, // neither UCS2 nor compressed
    };
    for (const auto& one : cases) {
        const Reading reading = ReadDeliver({.userData = one.userData, .coding = one.coding});
        EXPECT_EQ(FaultOf(reading), "") << one.userData;
        EXPECT_EQ(RemarksOf(reading), one.remarks) << one.userData;
        EXPECT_EQ(std::get<Deliver>(reading.tpdu).userData.text, one.text) << one.userData;
    }
}

TEST(Remarks, OfHeaders) {
    const struct {
        const char* userData; ///< in the default alphabet
        const char* text;
        const char* remarks;
    } cases[] = {
        {"00", "", "header-missing at 0"},
        {"03", "", "user-data-missing 3 at 18, header-missing at 0"},
        {"03004010", "A", ""}, // no elements: six fill bits
        {"03007F10", "A", "fill-bits-set 63 at 20"},
        {"05027000"
         "1004",
         "A", ""},
        {"050202001004", "A", "reserved-element 2 at 20"},
        {"06032501010802", "A", ""},
        {"06032501013800", "ı", ""},
        {"0603250100"
         "0802",
         "A", "unknown-language 0 37 at 20"},
        {"060325010E3800", "ì", "unknown-language 14 37 at 20"},
        {"0603250102"
         "0802",
         "A", "unknown-language 2 37 at 20"}, // Spanish has no locking shift table
        {"0703240102D82400", "ç", ""},
        {"070324010ED82400", "Ç", "unknown-language 14 36 at 20, unknown-escape 9 at 23"},
        {"060A0000000000", "", "header-beyond-user-data 11 6 at 19"},
        {"06032502010802", "A", "header-overrun 1 at 20"},
        {"0603700011"
         "0802",
         "A", "header-left-over 1 at 22"},
        {"090624010124010341", "A", "element-repeated 36 at 23"},
        {"0F0B00032A03020804010203010401", "A", "elements-exclusive 8 at 25"},
        {"070400022A030401", "A", "element-length 0 2 at 20"},
        {"080500032A020382", "A", "concatenation-invalid 3 2 at 20"},
        {"080500032A020082", "A", "concatenation-invalid 0 2 at 20"},
        {"080500032A000182", "A", "concatenation-invalid 1 at 20"},
        {"080500032A000082", "A", "concatenation-invalid at 20"},
        {"0E0A00032A020100032B00030802", "A", "element-repeated at 25, concatenation-invalid 3 at 25"},
        {"070500032A030200", "", ""},
        {"0100", "", "header-not-counted 1 2 at 18"},
        {"020000", "", ""},
        {"060500032A0302", "", "header-not-counted 6 7 at 18"},
        {"07060804002A0302", "", "header-not-counted 7 8 at 18"},
        {"070500032A030201", "", "fill-bits-set 1 at 25"},
        {"070500032A030202", "", "spare-bits-set 1 at 25"},
    };
    for (const auto& one : cases) {
        const Reading reading = ReadDeliver({.userData = one.userData, .first = "44"});
        EXPECT_EQ(FaultOf(reading), "") << one.userData;
        EXPECT_EQ(RemarksOf(reading), one.remarks) << one.userData;
        EXPECT_EQ(std::get<Deliver>(reading.tpdu).userData.text, one.text) << one.userData;
    }
    EXPECT_EQ(RemarksOf(ReadHex("4000", FromMobile())), "header-missing at 0") << "without TP-UD";
}

TEST(Header, TheLastElementHoldsAndTheLastValidOneOfParts) {
    const auto read = [](const char* userData) {
        return std::get<Deliver>(ReadDeliver({.userData = userData, .first = "44"}).tpdu).userData;
    };
    EXPECT_EQ(read("0F0B00032A03020804010203010401").concatenation, (Concatenation{true, 0x0102, 3, 1}));
    EXPECT_EQ(read("0E0A00032A020100032B00030802").concatenation, (Concatenation{false, 42, 2, 1}));
    EXPECT_EQ(read("080500032A000182").concatenation, std::nullopt);
    EXPECT_EQ(read("070400022A030401").concatenation, std::nullopt);
    EXPECT_EQ(read("090624010124010341").tables.single, Language::Portuguese);
    EXPECT_EQ(read("090624010124010341").tables.locking, Language::Default);
    // Ports of both widths: UDHL 10, three fill bits.
    EXPECT_EQ(read("0E0A0402F0F105040B8423F00802").ports, (Ports{true, 0x0B84, 0x23F0}));
    EXPECT_EQ(read("0E0A05040B8423F00402F0F10802").ports, (Ports{false, 0xF0, 0xF1}));
}

TEST(Header, IsIgnoredWhereItDoesNotAddUp) {
    const Reading reading = ReadDeliver({.userData = "06032502010802", .first = "44"});
    const UserData& data = std::get<Deliver>(reading.tpdu).userData;
    EXPECT_TRUE(data.hasHeader);
    EXPECT_TRUE(data.isHeaderIgnored);
    EXPECT_TRUE(data.elements.empty());
    EXPECT_EQ(data.tables.locking, Language::Default);
    EXPECT_EQ(data.textOffset, 4);
    EXPECT_NE(tests::PlacesOf(reading).find(
                  "header length 19, ignored header 20+3, fill bits 23/07=0, TP-UD 23/F8=0+2"),
              std::string::npos)
        << tests::PlacesOf(reading);
}

TEST(Header, StandsBeforeOctetsAndUnitsWithoutFillBits) {
    const Reading octets = ReadDeliver({.userData = "04027000AA", .first = "44", .coding = "04"});
    EXPECT_EQ(RemarksOf(octets), "");
    EXPECT_EQ(ToHex(std::get<Deliver>(octets.tpdu).userData.Content()), "AA");
    const Reading units = ReadDeliver({.userData = "050270000041", .first = "44", .coding = "08"});
    EXPECT_EQ(RemarksOf(units), "");
    EXPECT_EQ(std::get<Deliver>(units.tpdu).userData.text, "A");
    EXPECT_EQ(std::get<Deliver>(units.tpdu).userData.fillBits, 0);
}

TEST(Remarks, OfTooMuchUserData) {
    const std::string octets150(300, '0');
    const std::string octets140(280, '0');
    EXPECT_EQ(RemarksOf(ReadDeliver({.userData = "8C" + octets140, .coding = "04"})), "");
    EXPECT_EQ(RemarksOf(ReadDeliver({.userData = "8D" + octets140 + "00", .coding = "04"})),
              "user-data-too-long 141 140 at 18");
    // What is left of 164 octets: 25 of the other fields, then 24, as there is no TP-PID.
    const std::string report = "062A048110322120312143658021203131436580";
    EXPECT_EQ(RemarksOf(ReadHex(report +
                                    "000700"
                                    "048B" +
                                    octets140.substr(2),
                                ToMobile())),
              "");
    EXPECT_EQ(RemarksOf(ReadHex(report +
                                    "00070004"
                                    "8C" +
                                    octets140,
                                ToMobile())),
              "user-data-too-long 140 139 at 24");
    EXPECT_EQ(RemarksOf(ReadHex(report +
                                    "000604"
                                    "8C" +
                                    octets140,
                                ToMobile())),
              "");
    EXPECT_EQ(RemarksOf(ReadHex("022A0000000481103296" + octets150, FromMobile())), "");
    EXPECT_EQ(RemarksOf(ReadHex("022A000000048110329D" + octets150 + "00000000000000", FromMobile())),
              "user-data-too-long 157 154 at 9");
    EXPECT_EQ(RemarksOf(ReadHex("000604"
                                "9F" +
                                    octets150 + "000000000000000000",
                                FromMobile())),
              "");
    EXPECT_EQ(RemarksOf(ReadHex("000604"
                                "A0" +
                                    octets150 + "00000000000000000000",
                                FromMobile())),
              "user-data-too-long 160 159 at 3");
    EXPECT_EQ(RemarksOf(ReadHex("00D30604"
                                "9F" +
                                    octets150 + "000000000000000000",
                                FromMobile())),
              "user-data-too-long 159 158 at 4");
    EXPECT_EQ(RemarksOf(ReadHex("010621203121436580"
                                "04"
                                "99" +
                                    octets150 + "000000",
                                ToMobile())),
              "user-data-too-long 153 152 at 10");
    EXPECT_EQ(RemarksOf(ReadHex("01C00621203121436580"
                                "04"
                                "98" +
                                    octets150 + "0000",
                                ToMobile())),
              "user-data-too-long 152 151 at 11");
}

TEST(Faults, WhereTheOctetsEnd) {
    const struct {
        const char* octets;
        const char* fault;
        const char* places; ///< the last one
    } cases[] = {
        {"", "empty TP-MTI at 0, 0 of 1", ""},
        {"04", "field-cut TP-OA at 1, 0 of 2", "TP-RP 0/80=0"},
        {"040B", "field-cut TP-OA at 1, 1 of 8", "TP-OA 1"},
        {"040B9121436587", "field-cut TP-OA at 1, 6 of 8", "TP-OA 1+6"},
        {"04028121", "field-cut TP-PID at 4, 0 of 1", "TP-OA 3 digits"},
        {"0402812100", "field-cut TP-DCS at 5, 0 of 1", "TP-PID 4"},
        {"040281210000", "field-cut TP-SCTS at 6, 0 of 7", "TP-DCS 5"},
        {"040281210000212031214365", "field-cut TP-SCTS at 6, 6 of 7", "TP-SCTS 6+6"},
        {"04028121000021203121436580", "field-cut TP-UDL at 13, 0 of 1", "TP-SCTS 6+7"},
    };
    for (const auto& one : cases) {
        const Reading reading = ReadHex(one.octets, ToMobile());
        EXPECT_EQ(FaultOf(reading), one.fault) << one.octets;
        EXPECT_FALSE(reading.IsSound());
        const std::string places = tests::PlacesOf(reading);
        const std::string_view last = one.places;
        EXPECT_TRUE(places.size() >= last.size() && places.substr(places.size() - last.size()) == last)
            << places;
    }
    const auto withCentre = [](const char* octets) {
        return FaultOf(
            ReadHex(octets, {Presence::Yes, Direction::ToMobile, Presence::Unknown, std::nullopt}));
    };
    EXPECT_EQ(withCentre("07912143"), "field-cut service centre at 0, 4 of 8");
    EXPECT_EQ(withCentre("00"), "field-cut TP-MTI at 1, 0 of 1");
    EXPECT_EQ(FaultOf(ReadHex("03", FromMobile())), "reserved-type TP-MTI at 0, 1 of 1");
    EXPECT_EQ(FaultOf(ReadHex("192A04811032000021203121", FromMobile())), "field-cut TP-VP at 8, 4 of 7");
    ReadOptions noCause = FromMobile();
    noCause.failureCause = Presence::No;
    EXPECT_EQ(FaultOf(ReadHex("0081", noCause)), "field-cut TP-PI at 1, 1 of 2");
    EXPECT_EQ(FaultOf(ReadHex("00", FromMobile())), "field-cut TP-PI at 1, 0 of 1");
    EXPECT_EQ(FaultOf(ReadHex("0001", FromMobile())), "field-cut TP-PID at 2, 0 of 1")
        << "TP-PI says that it is there";
}

TEST(Faults, WhatIsNoHexadecimal) {
    const struct {
        const char* digits;
        std::uint32_t pair;
    } cases[] = {{"0", 0}, {"0G", 0}, {"G0", 0}, {"04 0", 1}, {"040", 1}};
    for (const auto& [digits, pair] : cases) {
        const Reading reading = ReadHex(digits, ToMobile());
        ASSERT_TRUE(reading.fault) << digits;
        EXPECT_EQ(reading.fault->code, FaultCode::NotHexadecimal);
        EXPECT_EQ(reading.fault->octet, pair) << digits;
        EXPECT_EQ(reading.Type(), TpduType::None);
        EXPECT_TRUE(reading.places.empty());
    }
    EXPECT_EQ(ReadHex(DeliverOctets().Hex()).Type(), TpduType::Deliver);
    EXPECT_EQ(RemarksOf(ReadHex("0402812100002120312143658001c1", ToMobile())), "spare-bits-set 1 at 14")
        << "small letters";
}

} // namespace
