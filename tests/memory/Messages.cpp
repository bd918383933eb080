// Reading and writing by the standards when memory runs out: the n-th allocation fails, for n = 1, 2, 3 …
// until the operation gets through. Each time it ends with std::bad_alloc, and what it worked on can be used
// again. And what takes no memory at all.
#include <functional>
#include <new>
#include <string>

#include <gtest/gtest.h>

#include "Messages/Cell.h"
#include "Messages/Parts.h"
#include "Messages/Read.h"
#include "Messages/Words.h"
#include "Messages/Write.h"
#include "support/Allocations.h"

namespace {

using namespace Messages;

/// A name, a header, and a text longer than a string holds by itself.
const char* const c_deliver =
    "0B9121436587092143658709440ED0C2B07B1D140E890000212031214365802A0500032A03029065"
    "36FB0DBABFE56C320B1476934161361B7447BF41ECB4BD0C4ABB41693A";
/// A number longer than that, and octets.
const char* const c_statusReport =
    "00262A1491214365870921436587092120312143658021203131436580460604051234567890";

/// A page of two with a header, and a text longer than a string holds by itself.
const char* const c_page = "402011129012050003010201416190BA0EE2BFE56C320B1476934161361B7447BF41";

const struct Operation {
    const char* name;
    std::function<void(Reading&)> use;
} c_operations[] = {
    {"Deliver", [](Reading& reading) { reading = ReadHex(c_deliver); }},
    {"StatusReport", [](Reading& reading) { reading = ReadHex(c_statusReport); }},
    {"UsedReading",
     [](Reading& reading) {
         std::vector<std::uint8_t> octets;
         FromHex(c_deliver, octets);
         Read(octets, {}, reading);
     }},
    {"SeptetText",
     [](Reading&) {
         std::string text;
         AppendSeptetText(std::vector<std::uint8_t>(99, 0x04), {}, text);
     }},
    {"Ucs2Text",
     [](Reading&) {
         std::string text;
         AppendUcs2Text(std::vector<std::uint8_t>(99, 0x04), text);
     }},
    {"Septets",
     [](Reading&) {
         std::vector<std::uint8_t> septets;
         AppendSeptets("Grüße", {}, septets);
     }},
    {"Ucs2",
     [](Reading&) {
         std::vector<std::uint8_t> octets;
         AppendUcs2("Grüße", octets);
     }},
    {"Write",
     [](Reading&) {
         Deliver deliver;
         ToName("Grüße", deliver.originator);
         deliver.timestamp = *MakeTimestamp(2026, 3, 14, 15, 9, 26);
         deliver.userData = *MakeUserData(deliver.coding, std::vector<std::uint8_t>{0x24, 1, 1},
                                          std::vector<std::uint8_t>(99));
         EXPECT_FALSE(Write(deliver, Address{}).fault);
     }},
    {"ReplaceNear",
     [](Reading&) {
         std::vector<Replacement> replacements;
         ReplaceNear("“A quotation that no string holds by itself”", {}, replacements);
     }},
    {"PartOffsets",
     [](Reading&) {
         Choice choice;
         const std::string_view text = "A text";
         Choose(text, {}, choice);
         EXPECT_EQ(PartOffsets(text, choice, {}).size(), 1U);
     }},
    {"Explain",
     [](Reading&) {
         Explanation explanation;
         EXPECT_FALSE(Explain("5 \u20AC", {}, explanation));
     }},
    {"CutText",
     [](Reading&) {
         CutOptions options;
         options.reference = 1;
         options.replacesNear = true;
         EXPECT_FALSE(CutIntoParts("“" + std::string(160, 'a') + "”", options).fault);
     }},
    {"CutData",
     [](Reading&) {
         CutOptions options;
         options.ports = Ports{true, 1, 2};
         EXPECT_FALSE(CutIntoParts(OctetView(std::vector<std::uint8_t>(160)), options).fault);
     }},
    {"Joiner",
     [](Reading&) {
         Joiner joiner;
         const Reading part = ReadHex(c_deliver);
         EXPECT_TRUE(joiner.Add(part, 0).empty());
         EXPECT_EQ(joiner.Finish().size(), 1U);
     }},
    {"CellPage",
     [](Reading&) {
         const CellReading page = ReadCellHex(c_page);
         EXPECT_FALSE(page.fault);
         EXPECT_EQ(page.pages.at(0).elements.size(), 1U);
     }},
    {"CellNotification",
     [](Reading&) {
         const CellReading reading = ReadCellHex("300011000180" + std::string(100, '1'));
         EXPECT_EQ(reading.warning->signature.size(), 43U);
     }},
    {"CellJoiner",
     [](Reading&) {
         CellJoiner joiner;
         EXPECT_FALSE(joiner.Take(ReadCellHex(c_page)).complete);
         EXPECT_EQ(joiner.TakeOldest()->Missing().size(), 1U);
     }},
    {"WriteCell",
     [](Reading&) {
         CellDraft draft;
         draft.text = "A warning that no string holds by itself, in Łódź";
         draft.language = "pl";
         EXPECT_EQ(WriteCell(draft).pages, 2U);
         draft.format = CellFormat::UmtsMessage;
         EXPECT_EQ(WriteCell(draft).octets.size(), 1U);
     }},
    {"Number",
     [](Reading&) {
         Address address;
         ToNumber("+12345678901234567890", address);
     }},
    {"Hexadecimal", [](Reading&) { ToHex(std::vector<std::uint8_t>(99)); }},
    {"Words",
     [](Reading&) {
         MeaningOf(DataCoding(0xC8));
         MeaningOf(Validity{ValidityFormat::Relative, {0x90}});
         MeaningOf(Remark{RemarkCode::ElementsExclusive, Field::HeaderElement, 0, 4, 5});
         MeaningOf(WriteFault{WriteFaultCode::AddressTooLong, Field::RecipientAddress, 21, 20});
         MeaningOf(CutFault{CutFaultCode::NoCharacter, 1, 0x1F600});
         MeaningOf(Fault{FaultCode::FieldCut, Field::ServiceCentreTimestamp, 0, 7, 0});
         MeaningOf(GeographicalScope::ImmediateCell);
         MeaningOf(SerialNumber{0x4020}, 4352);
         MeaningOf(CellCoding(0x5F));
         MeaningOfMessageIdentifier(4370);
     }},
};

TEST(EveryAllocationOfMessages, Fails) {
    for (const Operation& operation : c_operations) {
        SCOPED_TRACE(operation.name);
        unsigned long points = 0;
        for (bool isThrough = false; !isThrough; ++points) {
            const unsigned long open = tests::Allocations() - tests::Deallocations();
            {
                Reading reading;
                bool isRefused = false;
                {
                    const tests::FailAllocation fail(points + 1);
                    try {
                        operation.use(reading);
                    } catch (const std::bad_alloc&) {
                        isRefused = true;
                    }
                    ASSERT_EQ(isRefused, fail.Happened()) << "the failure reaches the host";
                }
                isThrough = !isRefused;
                if (isRefused) {
                    operation.use(reading);
                    EXPECT_FALSE(reading.fault);
                }
            }
            // The allocation that failed was counted and never given back.
            ASSERT_EQ(tests::Allocations() - tests::Deallocations(), open + (isThrough ? 0 : 1));
        }
        EXPECT_GT(points, 1U) << "an operation that allocates nothing has no place here";
    }
}

TEST(EveryAllocationOfAJoiner, FailsAndNothingThatWasAddedIsLost) {
    std::string first = c_deliver;
    first.replace(first.find("00032A0302"), 10, "00032A0301");
    bool isThrough = false;
    for (unsigned long points = 1; !isThrough; ++points) {
        Joiner joiner;
        ASSERT_TRUE(joiner.Add(ReadHex(first), 0, 1).empty());
        const Reading second = ReadHex(c_deliver);
        {
            const tests::FailAllocation fail(points);
            try {
                joiner.Add(second, 0, 2);
            } catch (const std::bad_alloc&) {
            }
            isThrough = !fail.Happened();
        }
        std::vector<Joined> left = joiner.Finish();
        ASSERT_EQ(left.size(), 1U) << points;
        ASSERT_GE(left[0].parts.size(), 1U) << points;
        EXPECT_EQ(left[0].parts[0].tag, 1U) << points;
        EXPECT_EQ(left[0].parts.size() == 2, left[0].parts.back().tag == 2) << points;
    }
}

TEST(EveryAllocationOfACellJoiner, FailsAndNothingHasChanged) {
    std::string other = c_page;
    other.replace(other.find("9012"), 4, "9022");
    bool isThrough = false;
    for (unsigned long points = 1; !isThrough; ++points) {
        CellJoiner joiner;
        ASSERT_FALSE(joiner.Take(ReadCellHex(c_page)).complete);
        const CellReading second = ReadCellHex(other);
        {
            const tests::FailAllocation fail(points);
            try {
                EXPECT_TRUE(joiner.Take(second).complete) << points;
            } catch (const std::bad_alloc&) {
            }
            isThrough = !fail.Happened();
        }
        const CellTaken again = joiner.Take(second);
        EXPECT_EQ(again.isDuplicate, isThrough) << points;
        EXPECT_EQ(again.complete.has_value(), !isThrough) << points;
        EXPECT_TRUE(again.givenUp.empty()) << points;
    }
}

TEST(NoAllocation, IsMadeByAReadingThatWasUsedOrByAWalk) {
    // A report has room for user data only where it has some.
    const char* const c_deliverReport = "0000070000A0C8329BFD06DDDF723619C8329BFD06DDDF723619";
    for (const char* const digits : {c_deliver, c_statusReport, c_deliverReport}) {
        SCOPED_TRACE(digits);
        std::vector<std::uint8_t> octets;
        ASSERT_TRUE(FromHex(digits, octets));
        ReadOptions options;
        options.serviceCentre = Presence::Yes;
        options.direction = digits == c_deliverReport ? Direction::FromMobile : Direction::ToMobile;
        Reading reading;
        Read(octets, options, reading);
        Visitor visitor;
        const unsigned long before = tests::Allocations();
        Read(octets, options, reading);
        Walk(octets, options, visitor);
        EXPECT_EQ(tests::Allocations(), before);
        EXPECT_FALSE(UserDataOf(reading.tpdu)->octets.empty());
        EXPECT_FALSE(reading.fault);
    }
}

TEST(NoAllocation, IsMadeByAResultThatWasUsed) {
    const Reading reading = ReadHex(c_statusReport);
    Written written = Write(reading.tpdu, reading.serviceCentre);
    const unsigned long before = tests::Allocations();
    Write(reading.tpdu, reading.serviceCentre, written);
    EXPECT_EQ(tests::Allocations(), before);
    EXPECT_EQ(ToHex(written.octets), c_statusReport);
}

} // namespace
