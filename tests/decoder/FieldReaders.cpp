// The address field and the time-stamp field.
#include <gtest/gtest.h>

#include "Encoding/PduDecoder.h"
#include "support/Bits.h"
#include "support/Octets.h"

namespace {

using namespace Encoding;
using tests::Bytes;
using tests::MakePdu;
using tests::operator+;
using tests::Octets;

constexpr unsigned int c_failed = 0xFFFFFFFF;

struct Address {
    TString<wchar_t> number = L"before";
    NumberingPlan::NPI npi = NumberingPlan::NPI_ERMES;
    TypeOfNumber::TON ton = TypeOfNumber::TON_RESERVED;
    unsigned int next = 0;
};

Address Read(const Toolkit::smart_ptr<Pdu>& pdu, unsigned int offset, bool semiOctets) {
    PduDecoder decoder;
    Address address;
    address.next = decoder.ReadNumber(pdu, offset, semiOctets, address.number, address.npi, address.ton);
    return address;
}

TEST(ReadNumber, ReadsAddresses) {
    const struct {
        const char* what;
        const char* octets;
        unsigned int offset;
        bool semiOctets;
        const wchar_t* number;
        int npi;
        int ton;
        unsigned int next;
    } rows[] = {
        {"service centre", "07 91 21 43 65 87 09 21 FF", 0, false, L"+123456789012", 1, 2, 8},
        {"service centre with filler", "03 91 21 F3 00", 0, false, L"+123", 1, 2, 4},
        {"service centre without digits", "01 81 00", 0, false, L"", 1, 1, 2},
        {"service centre of length 0", "00 04", 0, false, L"", 0, 1, 1},
        {"service centre of length 0 further on", "AA 00 91 21", 1, false, L"", 0, 1, 2},
        {"eleven digits", "0B 91 21 43 65 87 09 F1 00", 0, true, L"+12345678901", 1, 2, 8},
        {"four digits", "04 81 21 43 00", 0, true, L"1234", 1, 1, 4},
        {"three digits", "03 81 21 F3 00", 0, true, L"123", 1, 1, 4},
        {"no digits", "00 80 00", 0, true, L"", 0, 1, 2},
        {"no digits, international", "00 91 00", 0, true, L"+", 1, 2, 2},
        {"at an offset", "EE EE 04 81 21 43 00", 2, true, L"1234", 1, 1, 6},
        {"semi-octets above nine", "04 81 BA DC 00", 0, true, L":;<=", 1, 1, 4},
        {"semi-octets fourteen", "02 81 EE 00", 0, true, L">>", 1, 1, 3},
        {"low semi-octet fifteen", "04 81 1F 43 00", 0, true, L"?134", 1, 1, 4},
        {"filler inside does not end the number", "06 81 F1 43 65 00", 0, true, L"13456", 1, 1, 5},
        {"only fillers", "02 81 FF 00", 0, true, L"?", 1, 1, 3},
        {"bit 7 of the type is not examined", "02 11 21 00", 0, true, L"+12", 1, 2, 3},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const Address address = Read(MakePdu(row.octets), row.offset, row.semiOctets);
        EXPECT_EQ(address.next, row.next);
        EXPECT_EQ(address.number, row.number);
        EXPECT_EQ(address.npi, row.npi);
        EXPECT_EQ(address.ton, row.ton);
    }
}

TEST(ReadNumber, EveryTypeOfAddress) {
    const int tons[] = {1, 2, 1, 1, 1, 5, 1, 7};
    const int npis[] = {0, 1, 0, 2, 3, 0, 0, 0, 4, 5, 6, 0, 0, 0, 0, 7};
    for (unsigned int type = 0; type <= 0xFF; ++type) {
        SCOPED_TRACE(type);
        // 0x31 is the digits 1 and 3, and as a septet the character "1".
        const Bytes octets = {0x02, static_cast<unsigned char>(type), 0x31, 0x00, 0x00};
        const Address address = Read(MakePdu(octets), 0, true);
        EXPECT_EQ(address.ton, tons[type >> 4 & 7]);
        EXPECT_EQ(address.npi, npis[type & 0x0F]);
        const int bits = static_cast<int>(type >> 4 & 7);
        EXPECT_EQ(address.number, bits == 1 ? L"+13" : bits == 5 ? L"1" : L"13");
        EXPECT_EQ(address.next, 3U);
    }
}

TEST(ReadNumber, AlphanumericAddress) {
    const struct {
        const char* what;
        const char* octets;
        bool semiOctets;
        const wchar_t* number;
        unsigned int next;
    } rows[] = {
        {"three letters", "06 D0 41 E1 10 00 00", true, L"ABC", 5},
        {"by octets, as for a service centre", "04 D0 41 E1 10 00 00", false, L"ABC", 5},
        // "AB@D": the commercial at is septet 0
        {"ends at septet zero", "08 D0 41 21 80 08 00 00", true, L"AB", 6},
        {"begins with septet zero", "04 D0 80 20 00 00", true, L"", 4},
        // Septets 0x10 and 0x1B stay what they are, Delta and escape in the alphabet.
        {"is not looked up in the alphabet", "04 D0 90 0D 00 00", true, L"\x10\x1B", 4},
        // The octet after the field, 0x42, completes the fourth septet: bits 21 to 27 are 0x42 << 3 & 0x7F.
        {"takes one octet past the field", "06 D0 41 E1 10 42 00", true, L"ABC\x10", 5},
        {"has no octet of its own", "00 D0 41 00", true, L"A", 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const Address address = Read(MakePdu(row.octets), 0, row.semiOctets);
        EXPECT_EQ(address.number, row.number);
        EXPECT_EQ(address.ton, 5);
        EXPECT_EQ(address.npi, 0);
        EXPECT_EQ(address.next, row.next);
    }
}

TEST(ReadNumber, AlphanumericAddressOfEveryLength) {
    // After the field come zeros, so that what the walk takes there is the padding's zero or a zero septet.
    for (std::size_t letters = 1; letters <= 110; ++letters) {
        SCOPED_TRACE(letters);
        Bytes septets;
        TString<wchar_t> expected;
        for (std::size_t i = 0; i < letters; ++i) {
            septets.push_back(static_cast<unsigned char>('A' + i % 26));
            expected += static_cast<wchar_t>('A' + i % 26);
        }
        const Bytes packed = tests::LayBits(septets, 0);
        const Bytes field = Bytes{static_cast<unsigned char>(2 * packed.size()), 0xD0} + packed + Bytes(3);
        EXPECT_EQ(Read(MakePdu(field), 0, true).number, expected);
    }
}

TEST(ReadNumber, AlphanumericWalkGivesASeptetAnOctetAndOneMoreBehindEverySeven) {
    const struct {
        unsigned char
            octets; ///< the type octet and those after it; as many are walked from the first letter on
        std::size_t septets;
    } rows[] = {{1, 1},   {2, 2},   {6, 6},   {7, 7},     {8, 9},     {13, 14},   {14, 15},
                {15, 17}, {21, 23}, {22, 25}, {223, 254}, {224, 255}, {225, 255}, {255, 255}};
    for (const auto& row : rows) {
        SCOPED_TRACE(static_cast<int>(row.octets));
        const Address address = Read(MakePdu(Bytes{row.octets, 0xD0} + Bytes(300, 0xFF)), 0, false);
        EXPECT_EQ(address.number, TString<wchar_t>(row.septets, L'\x7F'));
        EXPECT_EQ(address.next, row.octets + 1U);
    }
}

/// Each semi-octet, and a filler in each of the octets of addresses of each length.
TEST(ReadNumber, EverySemiOctetAtEveryPlace) {
    for (std::size_t length = 1; length <= 13; ++length) {
        for (std::size_t place = 0; place < length; ++place) {
            for (unsigned int octet = 0; octet <= 0xFF; ++octet) {
                Bytes octets =
                    Bytes{static_cast<unsigned char>(length + 1), 0x81} + Bytes(length, 0x43) + Bytes{0x00};
                octets[2 + place] = static_cast<unsigned char>(octet);
                TString<wchar_t> number;
                for (std::size_t i = 1; i < length; ++i)
                    number += L"34";
                TString<wchar_t> pair(1, L"0123456789:;<=>?"[octet & 0x0F]);
                if (octet < 0xF0)
                    pair += L"0123456789:;<=>"[octet >> 4];
                number.insert(2 * place, pair);
                ASSERT_EQ(Read(MakePdu(octets), 0, false).number, number)
                    << octet << " at " << place << " of " << length;
            }
        }
    }
}

TEST(ReadNumber, LongestAddresses) {
    const Bytes digits = Bytes{0xFF, 0x91} + Bytes(254, 0x21) + Bytes{0x00};
    const Address address = Read(MakePdu(digits), 0, false);
    EXPECT_EQ(address.next, 256U);
    EXPECT_EQ(address.number.size(), 256U) << "the plus sign and 255 digits";
    EXPECT_EQ(address.number.substr(0, 3), L"+12");
    EXPECT_EQ(address.number.back(), L'1');

    const Bytes letters = Bytes{0xFF, 0xD0} + tests::LayBits(Bytes(300, 0x41), 0);
    EXPECT_EQ(Read(MakePdu(letters), 0, false).number, TString<wchar_t>(255, L'A'));

    for (unsigned char fillers = 1; fillers <= 9; ++fillers) { // the last digits do not fill a block
        const Bytes shifted = Bytes{0xFF, 0x91} + Bytes(fillers, 0xF9) + Bytes(254, 0x21) + Bytes{0x00};
        const TString<wchar_t> number = Read(MakePdu(shifted), 0, false).number;
        EXPECT_EQ(number.size(), 256U);
        EXPECT_EQ(number.substr(0, 4), fillers == 1 ? L"+912" : fillers == 2 ? L"+991" : L"+999");
        EXPECT_EQ(number.back(), fillers % 2 == 0 ? L'1' : L'2');
    }

    const Bytes semi = Bytes{0xFF, 0x81} + Bytes(127, 0x21) + Bytes{0xF3, 0x00};
    EXPECT_EQ(Read(MakePdu(semi), 0, true).number.size(), 255U);
    EXPECT_EQ(Read(MakePdu(semi), 0, true).next, 130U);
}

TEST(ReadNumber, FieldWhoseLastOctetIsThePdusLastReturnsItsLength) {
    const Address address = Read(MakePdu("04 81 21 43"), 0, true);
    EXPECT_EQ(address.next, 4U) << "which callers take for a failure";
    EXPECT_EQ(address.number, L"1234");
}

TEST(ReadNumber, FieldThatReachesPastThePduFailsWithItsOutputsReset) {
    const struct {
        const char* octets;
        unsigned int offset;
        bool semiOctets;
    } rows[] = {{"04 81 21", 0, true},
                {"07 91 21 43 65 87 09", 0, false},
                {"01", 0, false},
                {"00", 0, true},
                {"04 81 21 43", 4, true},
                {"04 81 21 43", 5, false},
                {"04 81", 0xFFFFFFFF, true},
                {"04 81", 0xFFFFFFFE, false},
                {"04 81", 0x80000000, true},
                {"04 81 21 43 00", 512, true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.octets);
        const Address address = Read(MakePdu(row.octets), row.offset, row.semiOctets);
        EXPECT_EQ(address.next, c_failed);
        EXPECT_EQ(address.number, L"");
        EXPECT_EQ(address.npi, 0);
        EXPECT_EQ(address.ton, 1);
    }
}

TEST(ReadNumber, NoPduTouchesNothing) {
    const Address address = Read(Toolkit::smart_ptr<Pdu>(), 0, true);
    EXPECT_EQ(address.next, c_failed);
    EXPECT_EQ(address.number, L"before");
    EXPECT_EQ(address.npi, NumberingPlan::NPI_ERMES);
    EXPECT_EQ(address.ton, TypeOfNumber::TON_RESERVED);
}

TEST(ReadNumber, OctetsOutsideTheArrayReadAsZero) {
    Toolkit::smart_ptr<Pdu> pdu = MakePdu(Bytes(512, 0x21));
    pdu->m_Length = 0xFFFFFFF0;
    pdu->m_Bytes[508] = 0x08;
    pdu->m_Bytes[509] = 0x81;
    const Address digits = Read(pdu, 508, true);
    EXPECT_EQ(digits.number, L"12120000");
    EXPECT_EQ(digits.next, 514U);
    for (unsigned int offset = 500; offset < 511;
         ++offset) { // eight octets of digits, fewer and fewer inside
        Toolkit::smart_ptr<Pdu> last = MakePdu(Bytes(512, 0x21));
        last->m_Length = 600;
        last->m_Bytes[offset] = 0x10;
        last->m_Bytes[offset + 1] = 0x81;
        TString<wchar_t> number(16, L'0');
        for (unsigned int i = 0; i < 8 && offset + 2 + i < 512; ++i)
            number.replace(2 * i, 2, L"12");
        EXPECT_EQ(Read(last, offset, true).number, number) << offset;
    }
    pdu->m_Bytes[509] = 0xD0;
    EXPECT_EQ(Read(pdu, 508, true).number, L"!B") << "0x21, 0x21 and zeros";
    EXPECT_EQ(Read(pdu, 512, true).next, 514U);
    EXPECT_EQ(Read(pdu, 0xFFFFFFE0, true).next, 0xFFFFFFE2);
    EXPECT_EQ(Read(pdu, 0xFFFFFFEE, true).next, 0xFFFFFFF0);
    EXPECT_EQ(Read(pdu, 0xFFFFFFEF, true).next, c_failed);
}

TEST(ReadNumber, HoldsAShareOfThePduAndGivesItBack) {
    const Toolkit::smart_ptr<Pdu> pdu = MakePdu("04 81 21 43 00");
    Read(pdu, 0, true);
    EXPECT_EQ(tests::CountOf(pdu), 1);
}

/// A time stamp read into a time that held 1999-01-01 before.
struct Time {
    Toolkit::smart_ptr<Toolkit::DateTime> time = new Toolkit::DateTime(1999, 1, 1, 0, 0, 0);
    unsigned int next = 0;
};

Time ReadTime(const Toolkit::smart_ptr<Pdu>& pdu, unsigned int offset, bool ignoreTimeZone = false) {
    PduDecoder decoder;
    Time time;
    time.next = decoder.ReadTimeStamp(pdu, offset, time.time, ignoreTimeZone);
    return time;
}

TEST(ReadTimeStamp, ReadsTimes) {
    const struct {
        const char* what;
        const char* octets;
        const char* time;
    } rows[] = {
        {"two hours east", "21 20 31 21 43 65 80 00", "2012-02-13T12:34:56+02:00"},
        {"no zone", "21 20 31 21 43 65 00 00", "2012-02-13T12:34:56"},
        {"six hours west", "21 20 31 21 43 65 4A 00", "2012-02-13T12:34:56-06:00"},
        {"half an hour is dropped", "21 20 31 21 43 65 22 00", "2012-02-13T12:34:56+05:00"},
        {"half an hour west is dropped", "21 20 31 21 43 65 2A 00", "2012-02-13T12:34:56-05:00"},
        {"one quarter west is no zone", "21 20 31 21 43 65 18 00", "2012-02-13T12:34:56"},
        {"minus nothing is no zone", "21 20 31 21 43 65 08 00", "2012-02-13T12:34:56"},
        {"one quarter east is zero hours", "21 20 31 21 43 65 10 00", "2012-02-13T12:34:56+00:00"},
        {"two quarters west are zero hours", "21 20 31 21 43 65 28 00", "2012-02-13T12:34:56+00:00"},
        {"month 0 and day 0 pass", "21 00 00 21 43 65 00 00", "2012-00-00T12:34:56"},
        {"hour 24 passes", "21 20 31 42 43 65 00 00", "2012-02-13T24:34:56"},
        {"month 12, day 31, 59:59", "99 21 13 32 95 95 00 00", "2099-12-31T23:59:59"},
        {"year above 99", "FF 10 10 00 00 00 00 00", "2165-01-01T00:00:00"},
        {"zone of semi-octets above nine", "21 20 31 21 43 65 F7 00", "2012-02-13T12:34:56+21:00"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const Time time = ReadTime(MakePdu(row.octets), 0);
        EXPECT_EQ(time.next, 7U);
        EXPECT_EQ(time.time->ToString(), row.time);
        EXPECT_EQ(tests::CountOf(time.time), 1);
    }
}

TEST(ReadTimeStamp, EveryTimeZoneOctet) {
    for (unsigned int zone = 0; zone <= 0xFF; ++zone) {
        const bool isNegative = zone & 8;
        const int magnitude = static_cast<int>((zone & 7) * 10 + (zone >> 4));
        const int quarters = isNegative ? -magnitude : magnitude;
        const Bytes octets = Octets("21 20 31 21 43 65") + Bytes{static_cast<unsigned char>(zone), 0};
        const Time time = ReadTime(MakePdu(octets), 0);
        EXPECT_EQ(time.time->HasOffset(), quarters != 0 && quarters != -1) << zone;
        EXPECT_EQ(time.time->GetOffset(), quarters / 4) << zone;
    }
}

TEST(ReadTimeStamp, IgnoredZoneIsNoZone) {
    for (const char* octets :
         {"21 20 31 21 43 65 80 00", "21 20 31 21 43 65 4A 00", "21 20 31 21 43 65 00 00"}) {
        const Time time = ReadTime(MakePdu(octets), 0, true);
        EXPECT_EQ(time.next, 7U);
        EXPECT_EQ(time.time->ToString(), "2012-02-13T12:34:56");
    }
}

TEST(ReadTimeStamp, TimeOutOfRangeIsSkippedAndTheOldOneStays) {
    for (const char* octets : {"21 31 31 21 43 65 80 00",  // month 13
                               "21 20 23 21 43 65 80 00",  // day 32
                               "21 20 31 52 43 65 80 00",  // hour 25
                               "21 20 31 21 06 65 80 00",  // minute 60
                               "21 20 31 21 43 06 80 00"}) // second 60
    {
        SCOPED_TRACE(octets);
        const Time time = ReadTime(MakePdu(octets), 0);
        EXPECT_EQ(time.next, 7U);
        EXPECT_EQ(time.time->ToString(), "1999-01-01T00:00:00");
    }
}

TEST(ReadTimeStamp, MustBeFollowedByAnOctet) {
    const Bytes octets = Octets("EE 21 20 31 21 43 65 80 00");
    EXPECT_EQ(ReadTime(MakePdu(octets), 1).next, 8U);
    for (std::size_t length = 0; length < 9; ++length) {
        const Time time =
            ReadTime(MakePdu(Bytes(octets.begin(), octets.begin() + static_cast<long>(length))), 1);
        EXPECT_EQ(time.next, c_failed) << length;
        EXPECT_EQ(time.time->GetYear(), 1999U);
    }
}

TEST(ReadTimeStamp, FailsWithoutPduAndPastItsEnd) {
    EXPECT_EQ(ReadTime(Toolkit::smart_ptr<Pdu>(), 0).next, c_failed);
    EXPECT_EQ(ReadTime(Toolkit::smart_ptr<Pdu>(), 0).time->GetYear(), 1999U);
    const Toolkit::smart_ptr<Pdu> pdu = MakePdu(Bytes(20, 0x11));
    for (const unsigned int offset : {13U, 20U, 512U, 0x7FFFFFFFU, 0xFFFFFFF8U, 0xFFFFFFF9U, 0xFFFFFFFFU})
        EXPECT_EQ(ReadTime(pdu, offset).next, c_failed) << offset;
    EXPECT_EQ(ReadTime(pdu, 12).next, 19U);
    EXPECT_EQ(tests::CountOf(pdu), 1);
}

TEST(ReadTimeStamp, OctetsOutsideTheArrayReadAsZero) {
    Toolkit::smart_ptr<Pdu> pdu = MakePdu(Bytes(512, 0x11));
    pdu->m_Length = 0xFFFFFFF0;
    EXPECT_EQ(ReadTime(pdu, 510).time->ToString(), "2011-11-00T00:00:00");
    EXPECT_EQ(ReadTime(pdu, 0xFFFFFF00).next, 0xFFFFFF07);
    EXPECT_EQ(ReadTime(pdu, 0xFFFFFF00).time->ToString(), "2000-00-00T00:00:00");
}

} // namespace
