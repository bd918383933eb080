// What the encoder asks of the support library: the byte order for each character of a UCS2 part, and a share
// of the character set while it is in use.
#include <memory>
#include <new>

#include <gtest/gtest.h>

#include "Toolkit/SystemInfo.h"
#include "encoder/OpenEncoder.h"
#include "support/Allocations.h"
#include "support/Shares.h"

namespace {

using namespace Encoding;
using tests::OpenEncoder;
using tests::s_byteOrder;
using tests::Watch;

TEST(GetSubString, AsksForTheByteOrderOfEveryCharacterWithAShareHeld) {
    const int before = tests::CountOf(*Toolkit::SystemInfo::s_pInstance);
    OpenEncoder encoder;
    // The octets 11 22 33 44 in memory, whatever this host's byte order.
    TString<wchar_t> text(3, L'\0');
    auto* memory = reinterpret_cast<unsigned char*>(text.data());
    for (unsigned char i = 0; i < 12; ++i)
        memory[i] = static_cast<unsigned char>(0x11 * (i % 4 + 1));
    const struct {
        int endian;
        const char* octets;
    } rows[] = {{1, "33 44 33 44 33 44"}, {0, "22 11 22 11 22 11"}, {2, "22 11 22 11 22 11"}};
    for (const auto& row : rows) {
        s_byteOrder = {row.endian};
        unsigned int length = 0;
        unsigned char* octets = nullptr;
        ASSERT_EQ(encoder.GetSubString(text, 0, 3, &length, &octets), 1);
        const std::unique_ptr<unsigned char[]> owned(octets);
        EXPECT_EQ(tests::Hex(octets, length), row.octets);
        EXPECT_EQ(s_byteOrder.m_Asked, 3);
        EXPECT_EQ(s_byteOrder.m_FewestShares, before + 1);
        EXPECT_EQ(tests::CountOf(*Toolkit::SystemInfo::s_pInstance), before);
    }
    s_byteOrder = {};
}

TEST(GetSubString, TakesOneShareAtATimeAndGivesEachBack) {
    const int before = tests::CountOf(*Toolkit::SystemInfo::s_pInstance);
    OpenEncoder encoder;
    const Watch watch(*Toolkit::SystemInfo::s_pInstance);
    unsigned int length = 0;
    unsigned char* octets = nullptr;
    ASSERT_EQ(encoder.GetSubString(L"ABC", 1, 2, &length, &octets), 1);
    const std::unique_ptr<unsigned char[]> owned(octets);
    EXPECT_GT(watch.m_Locks, 0);
    EXPECT_EQ(watch.m_MostShares, before + 1);
    EXPECT_TRUE(watch.m_WaitedForever);
    EXPECT_EQ(tests::CountOf(*Toolkit::SystemInfo::s_pInstance), before);
}

TEST(GetSubString, AsksNothingWhereNothingIsCut) {
    OpenEncoder encoder;
    s_byteOrder = {};
    const Watch watch(*Toolkit::SystemInfo::s_pInstance);
    unsigned int length = 0;
    unsigned char* octets = nullptr;
    EXPECT_EQ(encoder.GetSubString(L"", 0, 1, &length, &octets), 0);
    EXPECT_EQ(encoder.GetSubString(L"AB", 2, 1, &length, &octets), 0);
    EXPECT_EQ(encoder.GetSubString(L"AB", 0, 0, &length, &octets), 0);
    const TString<wchar_t> text = L"AB";
    {
        const tests::FailAllocation fail(1);
        EXPECT_THROW(encoder.GetSubString(text, 0, 2, &length, &octets), std::bad_alloc);
    }
    EXPECT_EQ(s_byteOrder.m_Asked, 0);
    EXPECT_EQ(watch.m_Locks, 0);
}

TEST(Encode, AsksForTheByteOrderOfEachCharacterInUcs2Alone) {
    const struct {
        TString<wchar_t> text;
        int asked;
    } rows[] = {
        {L"hello", 0}, {TString<wchar_t>(70, L'\u4E2D'), 70}, {TString<wchar_t>(135, L'\u4E2D'), 135}};
    for (const auto& row : rows) {
        OpenEncoder encoder;
        encoder.SetText(row.text);
        s_byteOrder = {};
        encoder.Pdus();
        EXPECT_EQ(s_byteOrder.m_Asked, row.asked);
    }
}

TEST(PduEncoder, UsesItsCharacterSetThroughOneMoreShare) {
    const struct {
        const char* what;
        void (*use)(OpenEncoder&);
        bool takes;
    } rows[] = {
        {"FindTable", [](OpenEncoder& e) { EXPECT_EQ(e.FindTable(TranslateTable::GREEK), 0); }, true},
        {"AddTranslateTable", [](OpenEncoder& e) { e.AddTranslateTable(TranslateTable::GREEK); }, true},
        {"ClearTranslateTable", [](OpenEncoder& e) { e.ClearTranslateTable(); }, true},
        {"AddTranslateTable without memory",
         [](OpenEncoder& e) {
             const tests::FailAllocation fail(1);
             EXPECT_THROW(e.AddTranslateTable(TranslateTable::GREEK), std::bad_alloc);
         },
         true},
        {"GetPduCount", [](OpenEncoder& e) { EXPECT_EQ(e.GetPduCount(L"hello"), 1U); }, true},
        {"GetPduCount of no text", [](OpenEncoder& e) { EXPECT_EQ(e.GetPduCount(L""), 1U); }, false},
        {"Encode", [](OpenEncoder& e) { EXPECT_EQ(e.Pdu(), "00 01 00 00 80 00 00 02 E8 34"); }, true},
        {"SetText", [](OpenEncoder& e) { e.SetText(L"hello"); }, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        OpenEncoder encoder;
        encoder.SetText(L"hi");
        const Watch watch(encoder.m_CharSet);
        row.use(encoder);
        EXPECT_EQ(watch.m_Locks > 0, row.takes);
        EXPECT_EQ(watch.m_MostShares, row.takes ? 2 : 0);
        EXPECT_TRUE(watch.m_WaitedForever);
        EXPECT_EQ(tests::CountOf(encoder.m_CharSet), 1);
    }
}

} // namespace
