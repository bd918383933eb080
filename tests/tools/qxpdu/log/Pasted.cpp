// PDUs with and without a service centre, with right and wrong lengths, out of SIM records.
#include "log/Pasted.h"

#include <gtest/gtest.h>

#include "support/Octets.h"

namespace {

using Messages::Direction;
using Messages::Presence;
using Messages::TpduType;
using qxpdu::Heading;
using qxpdu::PastedPdu;
using Warnings = std::vector<std::string>;

const std::string c_serviceCentre = "0791214365870921";
const std::string c_hello = "040B912143658709F100002120312143658005C8329BFD06"; // 24 octets
const std::string c_submit = "01070491214300000161";                            // 10 octets
const std::string c_report = "060704912143212031214365802120312143658000";      // 21 octets

PastedPdu Read(const std::string& digits, const qxpdu::Told& told = {}) {
    return qxpdu::ReadPasted(tests::Octets(digits), told);
}

PastedPdu ReadAfter(const Heading& heading, const std::string& digits,
                    Presence serviceCentre = Presence::Unknown) {
    return Read(digits, {serviceCentre, Direction::Unknown, &heading});
}

Heading Announcing(unsigned int length, Direction direction = Direction::ToMobile) {
    Heading heading;
    heading.name = "+CMT";
    heading.length = length;
    heading.direction = direction;
    return heading;
}

std::string Filling(std::size_t octets) {
    std::string digits;
    while (octets-- > 0)
        digits += "FF";
    return digits;
}

TEST(Pasted, SoundReadingDecidesAboutTheServiceCentre) {
    const PastedPdu with = Read(c_serviceCentre + c_hello);
    EXPECT_TRUE(with.reading.serviceCentre);
    EXPECT_EQ(with.warnings, Warnings{});
    const PastedPdu without = Read(c_hello);
    EXPECT_FALSE(without.reading.serviceCentre);
    EXPECT_EQ(without.reading.Type(), TpduType::Deliver);
    EXPECT_EQ(without.warnings,
              Warnings{"no service centre before the TPDU; --smsc no says so, --smsc yes reads one"});
}

TEST(Pasted, OptionSettlesIt) {
    const PastedPdu no = Read(c_hello, {Presence::No, Direction::Unknown, nullptr});
    EXPECT_FALSE(no.reading.serviceCentre);
    EXPECT_EQ(no.warnings, Warnings{});
    const PastedPdu wrongNo = Read(c_serviceCentre + c_hello, {Presence::No, Direction::Unknown, nullptr});
    EXPECT_FALSE(wrongNo.reading.serviceCentre);
    EXPECT_EQ(wrongNo.warnings, Warnings{"makes sense with a service centre: --smsc yes"});
    const PastedPdu wrongYes = Read(c_hello, {Presence::Yes, Direction::Unknown, nullptr});
    EXPECT_FALSE(wrongYes.reading.IsSound());
    EXPECT_EQ(wrongYes.warnings, Warnings{"makes sense without a service centre: --smsc no"});
}

TEST(Pasted, AnnouncedLengthDecides) {
    EXPECT_EQ(ReadAfter(Announcing(24), c_serviceCentre + c_hello).warnings, Warnings{});
    const PastedPdu without = ReadAfter(Announcing(24), c_hello);
    EXPECT_FALSE(without.reading.serviceCentre);
    EXPECT_EQ(without.warnings, Warnings{});
}

TEST(Pasted, LengthThatCountsTheServiceCentreIsAWarning) {
    const PastedPdu pdu = ReadAfter(Announcing(32), c_serviceCentre + c_hello);
    EXPECT_TRUE(pdu.reading.serviceCentre);
    EXPECT_TRUE(pdu.reading.IsSound());
    EXPECT_EQ(pdu.warnings, Warnings{"+CMT announces 32 octets, the service centre counted"});
}

TEST(Pasted, WholeLengthIsThatOfATpduWhereBothReadingsAreSound) {
    const std::string both =
        "000281029100212031214365800810100000000000"; // 21 octets; a status report after the first
    EXPECT_TRUE(Read(both, {Presence::Yes, Direction::Unknown, nullptr}).reading.IsSound());
    const PastedPdu pdu = ReadAfter(Announcing(21), both);
    EXPECT_FALSE(pdu.reading.serviceCentre);
    EXPECT_EQ(pdu.reading.Type(), TpduType::Deliver);
    EXPECT_EQ(pdu.warnings, Warnings{});
    const PastedPdu settled = ReadAfter(Announcing(21), both, Presence::Yes);
    EXPECT_EQ(settled.reading.Type(), TpduType::StatusReport) << "the option settles it";
    EXPECT_EQ(settled.warnings, Warnings{"+CMT announces 21 octets, here are 20"});
}

TEST(Pasted, OptionHoldsWhateverLengthIsAnnounced) {
    const PastedPdu pdu = ReadAfter(Announcing(24), c_serviceCentre + c_hello, Presence::No);
    EXPECT_FALSE(pdu.hasServiceCentre);
    EXPECT_EQ(pdu.warnings, (Warnings{"+CMT announces 24 octets, here are 32",
                                      "makes sense with a service centre: --smsc yes"}));
}

TEST(Pasted, LengthThatDisagreesIsAWarning) {
    const PastedPdu less = ReadAfter(Announcing(1), c_serviceCentre + c_hello);
    EXPECT_TRUE(less.reading.IsSound());
    EXPECT_EQ(less.warnings, Warnings{"+CMT announces 1 octet, here are 24"});
    const PastedPdu more = ReadAfter(Announcing(25), c_hello);
    EXPECT_FALSE(more.reading.serviceCentre);
    EXPECT_EQ(more.warnings, Warnings{"+CMT announces 25 octets, here are 24"});
}

TEST(Pasted, HeadingTellsTheDirectionUnlessThatMakesNoSense) {
    const PastedPdu submit = ReadAfter(Announcing(10, Direction::FromMobile), "00" + c_submit);
    EXPECT_EQ(submit.reading.Type(), TpduType::Submit);
    EXPECT_EQ(submit.warnings, Warnings{});
    const PastedPdu deliver = ReadAfter(Announcing(24, Direction::FromMobile), c_serviceCentre + c_hello);
    EXPECT_EQ(deliver.reading.Type(), TpduType::Deliver);
    EXPECT_EQ(deliver.warnings,
              Warnings{"+CMT stands before a message from the mobile, here is one to the mobile; "
                       "--direction settles it"});
}

TEST(Pasted, AnnouncedLengthDecidesWhereTheHeadingIsWrongAboutTheDirection) {
    const std::string submit =
        "05910191F100000810100000000000"; // after 00 the first would be a DELIVER as well
    EXPECT_EQ(Read("00" + submit, {Presence::No, Direction::ToMobile, nullptr}).reading.Type(),
              TpduType::Deliver);
    const PastedPdu pdu = ReadAfter(Announcing(15), "00" + submit);
    EXPECT_TRUE(pdu.hasServiceCentre);
    EXPECT_EQ(pdu.reading.Type(), TpduType::Submit);
    EXPECT_EQ(pdu.warnings,
              Warnings{"+CMT stands before a message to the mobile, here is one from the mobile; "
                       "--direction settles it"});
}

TEST(Pasted, StatusAndFillingOfASimRecordAreLeftOut) {
    const std::string pdu = c_serviceCentre + c_hello;
    const PastedPdu record = Read("01" + pdu + Filling(143));
    EXPECT_EQ(record.octets, tests::Octets(pdu));
    EXPECT_TRUE(record.reading.IsSound());
    EXPECT_EQ(record.warnings, (Warnings{"the first octet, 01, is left out: the status of a SIM record",
                                         "143 octets FF after the TPDU left out"}));
    EXPECT_EQ(Read("03" + pdu).warnings,
              Warnings{"the first octet, 03, is left out: the status of a SIM record"});
    EXPECT_EQ(Read(pdu + "FF").warnings, Warnings{"1 octet FF after the TPDU left out"});
    EXPECT_EQ(Read("0700" + c_submit + Filling(2)).octets, tests::Octets("00" + c_submit));
}

TEST(Pasted, StatusIsAnyUpTo1FAndNoneAfterAHeading) {
    const std::string pdu = c_serviceCentre + c_hello;
    EXPECT_EQ(Read("1F" + pdu).warnings,
              Warnings{"the first octet, 1F, is left out: the status of a SIM record"});
    EXPECT_EQ(Read("1E" + pdu).warnings,
              Warnings{"the first octet, 1E, is left out: the status of a free SIM record"});
    EXPECT_EQ(Read("20" + pdu).octets, tests::Octets("20" + pdu));
    EXPECT_TRUE(Read("20" + pdu).hasServiceCentre) << "of 32 octets";
    EXPECT_EQ(ReadAfter(Announcing(24), "01" + pdu).octets, tests::Octets("01" + pdu));
}

TEST(Pasted, OptionSettlesWhatIsBeforeTheFillingToo) {
    EXPECT_EQ(Read(c_hello + "FFFF", {Presence::No, Direction::Unknown, nullptr}).octets,
              tests::Octets(c_hello));
    EXPECT_EQ(Read(c_hello + "FFFF", {Presence::Yes, Direction::Unknown, nullptr}).octets,
              tests::Octets(c_hello + "FFFF"));
    EXPECT_EQ(Read(c_serviceCentre + c_hello + "FF", {Presence::Yes, Direction::Unknown, nullptr}).octets,
              tests::Octets(c_serviceCentre + c_hello));
}

TEST(Pasted, OptionTellsTheDirectionWhateverTheHeading) {
    const Heading heading = Announcing(24, Direction::FromMobile);
    const PastedPdu pdu = Read(c_serviceCentre + c_hello, {Presence::Unknown, Direction::ToMobile, &heading});
    EXPECT_EQ(pdu.reading.Type(), TpduType::Deliver);
    EXPECT_EQ(pdu.warnings, Warnings{});
    const PastedPdu wrong =
        Read(c_serviceCentre + c_hello, {Presence::Unknown, Direction::FromMobile, &heading});
    EXPECT_NE(wrong.reading.Type(), TpduType::Deliver);
    EXPECT_EQ(wrong.warnings, Warnings{}) << "the user said so";
}

TEST(Pasted, AcknowledgementHasNoServiceCentre) {
    Heading heading;
    heading.kind = Heading::Kind::Acknowledgement;
    heading.direction = Direction::ToMobile;
    const std::string report = "010021203121436580"; // SMS-SUBMIT-REPORT
    const PastedPdu pdu = ReadAfter(heading, report);
    EXPECT_EQ(pdu.reading.Type(), TpduType::SubmitReport);
    EXPECT_FALSE(pdu.hasServiceCentre);
    EXPECT_EQ(pdu.warnings, Warnings{});
    EXPECT_EQ(ReadAfter(heading, "00" + report, Presence::Yes).reading.Type(), TpduType::SubmitReport)
        << "unless an option says so";
}

TEST(Pasted, RecordThatIsFreeHoldsNoMessage) {
    for (const std::string& digits : {"00" + Filling(175), Filling(176), Filling(175), "00" + Filling(1),
                                      Filling(2), "1E" + Filling(3)}) {
        for (const Presence presence : {Presence::Unknown, Presence::Yes, Presence::No}) {
            const PastedPdu record = Read(digits, {presence, Direction::Unknown, nullptr});
            EXPECT_TRUE(record.isFreeRecord) << digits;
            EXPECT_TRUE(record.hasServiceCentre) << digits;
            EXPECT_EQ(record.warnings, Warnings{"a free SIM record, without a message"}) << digits;
        }
    }
    for (const std::string& digits :
         {std::string("FF"), std::string("00"), "01" + Filling(175), "20" + Filling(175), "1F" + Filling(3),
          "FE" + Filling(175), "00" + Filling(174) + "FE", "00FE" + Filling(174),
          "00" + c_submit + Filling(165)})
        EXPECT_FALSE(Read(digits).isFreeRecord) << digits;
}

TEST(Pasted, MessageOfARecordThatWasFreedIsRead) {
    const PastedPdu record = Read("00" + c_serviceCentre + c_hello + Filling(143));
    EXPECT_FALSE(record.isFreeRecord);
    EXPECT_EQ(record.octets, tests::Octets(c_serviceCentre + c_hello));
    EXPECT_EQ(record.warnings, (Warnings{"the first octet, 00, is left out: the status of a free SIM record",
                                         "143 octets FF after the TPDU left out"}));
}

TEST(Pasted, OctetsThatAreNoRecordStay) {
    for (const std::string& digits : {c_serviceCentre + c_hello + "FE", c_serviceCentre + c_hello + "FFFE",
                                      "20" + c_serviceCentre + c_hello, Filling(176), std::string("01")}) {
        EXPECT_EQ(Read(digits).octets, tests::Octets(digits)) << digits;
    }
    EXPECT_EQ(Read("").octets.size(), 0U);
    EXPECT_TRUE(Read("").hasServiceCentre) << "it would come first";
    EXPECT_TRUE(Read("07").hasServiceCentre) << "its length at least";
    EXPECT_FALSE(Read("", {Presence::No, Direction::Unknown, nullptr}).hasServiceCentre);
    EXPECT_FALSE(Read(c_hello).hasServiceCentre);
}

} // namespace
