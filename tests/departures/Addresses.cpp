// Rows of docs/departures.md: addresses.
#include <gtest/gtest.h>

#include "departures/Messages.h"
#include "encoder/OpenEncoder.h"

namespace {

using namespace Encoding;
using tests::Decoded;
using tests::DeliverFrom;
using tests::MakePdu;
using tests::OpenEncoder;

/// The originating address of a message.
TString<wchar_t> From(const char* address) {
    const Decoded message(DeliverFrom(address));
    EXPECT_EQ(message.m_Result, 1) << address;
    EXPECT_EQ(message.m_Text, L"Hello") << address;
    return message.m_Originator;
}

/// The destination address that goes out for a number.
std::string AddressFor(const wchar_t* number) {
    OpenEncoder encoder;
    encoder.SetRecipient(number);
    encoder.SetText(L"hello");
    const std::string pdu = encoder.Pdu();
    const std::size_t before = std::string_view("00 01 00 ").size();
    return pdu.substr(before, pdu.size() - before - std::string_view(" 00 00 05 E8 32 9B FD 06").size());
}

TEST(Departures, AddressLetters) {
    EXPECT_EQ(From("02 D0 7B"), L"{"); // U+00E4 in the alphabet
    EXPECT_EQ(From("02 D0 02"), L"\x02");
}

TEST(Departures, AddressAt) {
    EXPECT_EQ(From("06 D0 61 80 18"), L"a"); // 61 00 62
}

TEST(Departures, AddressOverrun) {
    const Decoded message("04 06 D0 41 E1 10 7F 00 21 20 31 21 43 65 00 00 00"); // TP-PID 7F
    ASSERT_EQ(message.m_Result, 1);
    EXPECT_EQ(message.m_Originator, L"ABCx");
}

TEST(Departures, AddressSigns) {
    EXPECT_EQ(From("06 81 BA DC FE"), L":;<=>");
}

TEST(Departures, AddressCount) {
    EXPECT_EQ(From("03 81 21 43"), L"1234");
}

TEST(Departures, AddressFiller) {
    EXPECT_EQ(From("06 81 F1 43 65"), L"13456");
    EXPECT_EQ(From("04 81 1F 43"), L"?134");
}

TEST(Departures, AddressPlus) {
    EXPECT_EQ(From("04 91 21 43"), L"+1234");
}

TEST(Departures, AddressType) {
    for (const char* address : {"04 81 21 43", "04 A1 21 43", "04 B1 21 43", "04 C1 21 43", "04 E1 21 43"})
        EXPECT_EQ(Decoded(DeliverFrom(address)).m_NumberTon, TypeOfNumber::TON_UNKNOWN) << address;
    EXPECT_EQ(Decoded(DeliverFrom("04 91 21 43")).m_NumberTon, 2);
}

TEST(Departures, AddressPlan) {
    for (const char* address : {"04 80 21 43", "04 82 21 43", "04 85 21 43", "04 86 21 43", "04 8B 21 43"})
        EXPECT_EQ(Decoded(DeliverFrom(address)).m_NumberNpi, NumberingPlan::NPI_UNKNOWN) << address;
    EXPECT_EQ(Decoded(DeliverFrom("04 83 21 43")).m_NumberNpi, 2);
}

TEST(Departures, AddressBit) {
    EXPECT_EQ(From("04 11 21 43"), L"+1234");
}

TEST(Departures, AddressLength) {
    EXPECT_EQ(From("16 81 21 43 65 87 09 21 43 65 87 09 21"), L"1234567890123456789012");
    EXPECT_EQ(AddressFor(L"123456789012345678901"), "15 81 21 43 65 87 09 21 43 65 87 09 F1");
    const std::string address = AddressFor(std::wstring(300, L'1').c_str());
    EXPECT_EQ(address.substr(0, 5), "2C 81"); // 300 digits, of which the octet holds the low 8 bits
}

TEST(Departures, ServiceCentreLetters) {
    PduDecoder decoder;
    ASSERT_EQ(decoder.Decode(MakePdu("04 D0 41 E1 10" + DeliverFrom("04 81 21 43")), false, false), 1);
    EXPECT_EQ(decoder.m_Smsc, L"ABC "); // and a letter from the first octet, 04
}

TEST(Departures, FieldAtEnd) {
    EXPECT_EQ(Decoded("03 04 81 21 43").m_Result, 0);
    EXPECT_EQ(Decoded("03 04 81 21 43 00").m_Result, 1);
    PduDecoder decoder;
    Toolkit::smart_ptr<Toolkit::DateTime> time;
    EXPECT_EQ(decoder.ReadTimeStamp(MakePdu("21 20 31 21 43 65 00"), 0, time, false), 0xFFFFFFFF);
    EXPECT_EQ(decoder.ReadTimeStamp(MakePdu("21 20 31 21 43 65 00 00"), 0, time, false), 7U);
}

TEST(Departures, WrittenType) {
    EXPECT_EQ(AddressFor(L"+1234"), "04 91 21 43");
    EXPECT_EQ(AddressFor(L"1234"), "04 81 21 43");
}

TEST(Departures, WrittenSigns) {
    EXPECT_EQ(AddressFor(L"*12#a34"), "04 81 21 43");
}

TEST(Departures, NoDigits) {
    EXPECT_EQ(AddressFor(L"Shop"), "00 81");
    OpenEncoder encoder;
    encoder.SetSmsc(L"Shop", false);
    encoder.SetRecipient(L"1234");
    encoder.SetText(L"hello");
    EXPECT_EQ(encoder.Pdu(), "01 81 01 00 04 81 21 43 00 00 05 E8 32 9B FD 06");
}

TEST(Departures, NoDestination) {
    EXPECT_EQ(AddressFor(L""), "00 80");
}

TEST(Departures, LenientPlus) {
    OpenEncoder encoder;
    encoder.SetSmsc(L"+12", true);
    encoder.SetRecipient(L"1234");
    encoder.SetText(L"hello");
    EXPECT_EQ(encoder.Pdu(), "03 91 10 F2 01 00 04 81 21 43 00 00 05 E8 32 9B FD 06"); // the digits 012
}

} // namespace
