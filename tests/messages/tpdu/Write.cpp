// Values written as PDUs, and what is refused.
#include <limits>

#include <gtest/gtest.h>

#include "Messages/Write.h"
#include "messages/Readings.h"

namespace {

using namespace Messages;

using Octets = std::vector<std::uint8_t>;

Octets OctetsOf(std::string_view digits) {
    Octets octets;
    EXPECT_TRUE(FromHex(digits, octets)) << digits;
    return octets;
}

Address NumberOf(std::string_view written) {
    Address address;
    EXPECT_FALSE(ToNumber(written, address));
    return address;
}

Address NameOf(std::string_view written) {
    Address address;
    EXPECT_FALSE(ToName(written, address));
    return address;
}

UserData TextOf(std::string_view text, std::string_view elements = "") {
    Octets septets;
    EXPECT_FALSE(AppendSeptets(text, {}, septets));
    return MakeUserData(DataCoding(0), OctetsOf(elements), septets).value();
}

UserData DataOf(std::string_view octets, std::string_view elements = "") {
    return MakeUserData(DataCoding(4), OctetsOf(elements), OctetsOf(octets)).value();
}

UserData OctetsOfCount(std::size_t count) {
    return MakeUserData(DataCoding(4), {}, Octets(count)).value();
}

const Timestamp c_time = *MakeTimestamp(2012, 2, 13, 12, 34, 56, 8);

/// The digits, or "CODE FIELD NUMBER OTHER" of the fault.
std::string Shown(const Written& written, std::size_t serviceCentreOctets = 0) {
    if (!written.fault) {
        EXPECT_EQ(written.tpduOctets, written.octets.size() - serviceCentreOctets);
        return ToHex(written.octets);
    }
    EXPECT_TRUE(written.octets.empty());
    EXPECT_EQ(written.tpduOctets, 0U);
    EXPECT_FALSE(MeaningOf(*written.fault).empty());
    return std::string(CodeOf(written.fault->code)) + ' ' +
           std::string(Messages::NameOf(written.fault->field)) + ' ' + std::to_string(written.fault->number) +
           ' ' + std::to_string(written.fault->other);
}

std::string WrittenOf(const Tpdu& tpdu) {
    return Shown(Write(tpdu));
}

Deliver SomeDeliver() {
    Deliver deliver;
    deliver.originator = NumberOf("+12345678901");
    deliver.timestamp = c_time;
    deliver.userData = TextOf("Hello");
    return deliver;
}

Submit SomeSubmit() {
    Submit submit;
    submit.destination = NumberOf("0123");
    submit.userData = TextOf("Hello");
    return submit;
}

StatusReport SomeStatusReport() {
    StatusReport report;
    report.reference = 42;
    report.recipient = NumberOf("0123");
    report.timestamp = c_time;
    report.discharge = c_time;
    return report;
}

// Every field of each type; the digits are those that the tests of Types.cpp read.

TEST(WriteDeliver, EveryField) {
    Deliver deliver = SomeDeliver();
    EXPECT_EQ(WrittenOf(deliver), "040B912143658709F100002120312143658005C8329BFD06");
    deliver.moreMessages = true;
    deliver.loopPrevention = true;
    deliver.statusReportIndication = true;
    deliver.replyPath = true;
    deliver.protocol = 0x3C;
    deliver.userData = TextOf("Hi", "00032A0302");
    EXPECT_EQ(WrittenOf(deliver), "E80B912143658709F13C0021203121436580090500032A03029069");
}

TEST(WriteSubmit, EveryField) {
    Submit submit = SomeSubmit();
    EXPECT_EQ(WrittenOf(submit), "010004811032000005C8329BFD06");
    submit.rejectDuplicates = true;
    submit.statusReportRequest = true;
    submit.replyPath = true;
    submit.reference = 42;
    submit.coding = DataCoding(4);
    submit.validity = *MakeRelativeValidity(3600);
    submit.userData = DataOf("AA");
    EXPECT_EQ(WrittenOf(submit), "B52A0481103200040B01AA");
    submit.validity = MakeAbsoluteValidity(c_time);
    EXPECT_EQ(WrittenOf(submit), "BD2A0481103200042120312143658001AA");
    submit.validity = *MakeEnhancedValidity(90);
    EXPECT_EQ(WrittenOf(submit), "AD2A048110320004025A000000000001AA");
    submit.validity = {};
    submit.userData = DataOf("AA", "0504138813AD");
    EXPECT_EQ(WrittenOf(submit), "E52A04811032000408060504138813ADAA");
}

TEST(WriteStatusReport, EveryField) {
    StatusReport report = SomeStatusReport();
    EXPECT_EQ(WrittenOf(report), "062A04811032212031214365802120312143658000");
    report.moreMessages = true;
    report.isForCommand = true;
    report.status = 0x46;
    report.protocol = 0x15;
    report.coding = DataCoding(4);
    report.userData = DataOf("AABB");
    EXPECT_EQ(WrittenOf(report), "222A0481103221203121436580212031214365804607150402AABB");
    report.coding.reset();
    report.protocol.reset();
    report.userData = TextOf("Hello");
    report.loopPrevention = true;
    EXPECT_EQ(WrittenOf(report), "2A2A048110322120312143658021203121436580460405C8329BFD06");
}

TEST(WriteStatusReport, HasTheParameterIndicatorThatItIsGiven) {
    StatusReport report = SomeStatusReport();
    report.parameterIndicator = 0;
    EXPECT_EQ(WrittenOf(report), "062A0481103221203121436580212031214365800000");
    report.parameterIndicator = 7;
    report.protocol = 0x15;
    EXPECT_EQ(WrittenOf(report), "062A048110322120312143658021203121436580000115") << "it says what follows";
}

TEST(WriteDeliverReport, WithAndWithoutAFailureCause) {
    DeliverReport report;
    EXPECT_EQ(WrittenOf(report), "0000");
    report.failureCause = 0xD3;
    EXPECT_EQ(WrittenOf(report), "00D300");
    report.protocol = 0;
    report.coding = DataCoding(4);
    report.userData = DataOf("0102", "7002AABB");
    EXPECT_EQ(WrittenOf(report), "40D307000407047002AABB0102");
}

TEST(WriteSubmitReport, WithAndWithoutAFailureCause) {
    SubmitReport report;
    report.timestamp = c_time;
    EXPECT_EQ(WrittenOf(report), "010021203121436580");
    report.failureCause = 0xC0;
    report.coding = DataCoding(8);
    EXPECT_EQ(WrittenOf(report), "01C0022120312143658008");
}

TEST(WriteCommand, EveryField) {
    Command command;
    command.statusReportRequest = true;
    command.reference = 42;
    command.commandType = 2;
    command.messageNumber = 17;
    command.destination = NumberOf("0123");
    EXPECT_EQ(WrittenOf(command), "222A0002110481103200");
    command.data = DataOf("F0", "060142");
    EXPECT_EQ(WrittenOf(command), "622A000211048110320503060142F0");
}

TEST(Write, NoMessageIsAFault) {
    EXPECT_EQ(WrittenOf(Tpdu()), "no-type TP-MTI 0 0");
}

TEST(Write, IntoAResultThatWasUsed) {
    Written written = Write(Tpdu());
    Write(SomeSubmit(), std::nullopt, written);
    EXPECT_EQ(Shown(written), "010004811032000005C8329BFD06");
    Write(Tpdu(), std::nullopt, written);
    EXPECT_EQ(Shown(written), "no-type TP-MTI 0 0");
}

// Service centre.

TEST(WriteServiceCentre, BeforeTheTpdu) {
    const Tpdu tpdu = DeliverReport{};
    EXPECT_EQ(Shown(Write(tpdu, Address{}), 1), "000000");
    EXPECT_EQ(Shown(Write(tpdu, NumberOf("+123456789012")), 8), "07912143658709210000");
    EXPECT_EQ(Shown(Write(tpdu, NumberOf("123")), 4), "038121F30000");
    Address typeAlone;
    typeAlone.length = 1;
    EXPECT_EQ(Shown(Write(tpdu, typeAlone), 2), "01800000");
    Address alphanumeric = NumberOf("12");
    alphanumeric.typeOfAddress = 0xD0;
    EXPECT_EQ(Shown(Write(tpdu, alphanumeric), 3), "02D0210000") << "digits whatever its type";
}

TEST(WriteServiceCentre, IsChecked) {
    const Tpdu tpdu = DeliverReport{};
    EXPECT_EQ(Shown(Write(tpdu, NumberOf("+123456789012345678901"))),
              "address-too-long service centre 21 20");
    EXPECT_EQ(Shown(Write(tpdu, NumberOf("+12345678901234567890")), 12), "0B91214365870921436587090000");
    Address name = NumberOf("12");
    name.text = "1é";
    EXPECT_EQ(Shown(Write(tpdu, name)), "address-character service centre 233 1");
    name.text = "12";
    name.typeOfAddress = 0x11;
    EXPECT_EQ(Shown(Write(tpdu, name)), "extension-bit-clear service centre 0 0");
    name.text = "1é";
    EXPECT_EQ(Shown(Write(tpdu, name)), "extension-bit-clear service centre 0 0") << "the first fault holds";
}

// Addresses.

std::string WrittenTo(const Address& address) {
    Submit submit = SomeSubmit();
    submit.destination = address;
    const std::string shown = WrittenOf(submit);
    return shown.substr(0, 4) == "0100" ? shown.substr(4, shown.size() - 4 - 16) : shown;
}

TEST(WriteAddress, Digits) {
    EXPECT_EQ(WrittenTo(NumberOf("")), "0081");
    EXPECT_EQ(WrittenTo(NumberOf("*#abc")), "0581BADCFE");
    EXPECT_EQ(WrittenTo(NumberOf("12345678901234567890")), "148121436587092143658709");
    EXPECT_EQ(WrittenTo(NumberOf("123456789012345678901")), "address-too-long TP-DA 21 20");
    Address counted = NumberOf("12345");
    counted.length = 6;
    EXPECT_EQ(WrittenTo(counted), "06812143F5") << "a filler that is counted";
    counted.text = "1234";
    counted.length = 5;
    EXPECT_EQ(WrittenTo(counted), "05812143FF");
    counted.length = 7;
    EXPECT_EQ(WrittenTo(counted), "04812143") << "a length that fits no more is worked out";
    counted.text = "12/34";
    EXPECT_EQ(WrittenTo(counted), "address-character TP-DA 47 2");
    counted.text = "12A";
    EXPECT_EQ(WrittenTo(counted), "address-character TP-DA 65 2") << "capital letters are no digits";
    counted.text = "12";
    counted.typeOfAddress = 0x7F;
    EXPECT_EQ(WrittenTo(counted), "extension-bit-clear TP-DA 0 0");
    Address twenty = NumberOf("12345678901234567890");
    twenty.length = 21;
    EXPECT_EQ(WrittenTo(twenty), "address-too-long TP-DA 21 20") << "a counted filler counts";
}

TEST(WriteAddress, Names) {
    EXPECT_EQ(WrittenTo(NameOf("")), "00D0");
    EXPECT_EQ(WrittenTo(NameOf("A")), "02D041");
    EXPECT_EQ(WrittenTo(NameOf("AB")), "04D04121");
    EXPECT_EQ(WrittenTo(NameOf("PayCard")), "0DD0D0707E18969301");
    EXPECT_EQ(WrittenTo(NameOf("ABCDEFGHIJK")), "14D041E19058341E9149E512");
    EXPECT_EQ(WrittenTo(NameOf("ABCDEFGHIJKL")), "address-too-long TP-DA 21 20");
    EXPECT_EQ(WrittenTo(NameOf("ABCDEFGHI€")), "14D041E19058341E91C94D19");
    Address longer = NameOf("A");
    longer.length = 3;
    EXPECT_EQ(WrittenTo(longer), "03D04100") << "a semi-octet more makes no septet more";
    longer.length = 4;
    EXPECT_EQ(WrittenTo(longer), "02D041");
    Address three = NameOf("ABC");
    three.length = 7;
    EXPECT_EQ(WrittenTo(three), "06D041E110") << "seven semi-octets would be four septets";
    longer.text = "aé😀";
    EXPECT_EQ(WrittenTo(longer), "address-character TP-DA 128512 3");
}

TEST(ToNumber, PassesOverWhatPeopleWriteBetween) {
    const Address number = NumberOf(" +49 (170) 12-34.56/7 ");
    EXPECT_EQ(number.ToString(), "+491701234567");
    EXPECT_EQ(number.typeOfAddress, 0x91);
    EXPECT_EQ(number.length, 12);
    EXPECT_EQ(NumberOf("0170").typeOfAddress, 0x81);
    EXPECT_EQ(NumberOf("+").ToString(), "");
}

TEST(ToNumber, LengthIsOneOctetHoweverManyDigitsThereAre) {
    for (const auto& [digits, length] :
         {std::pair(0, 0), {1, 1}, {254, 254}, {255, 255}, {256, 255}, {300, 255}}) {
        Messages::Address address;
        EXPECT_FALSE(ToNumber(std::string(static_cast<std::size_t>(digits), '1'), address)) << digits;
        EXPECT_EQ(address.length, length) << digits;
        EXPECT_EQ(address.text.size(), static_cast<std::size_t>(digits));
    }
    Messages::Address name;
    EXPECT_FALSE(Messages::ToName(std::string(147, 'a'), name)); // 1,029 bits are 258 semi-octets
    EXPECT_EQ(name.length, 255);
}

TEST(ToNumber, TellsTheFirstOtherCharacter) {
    const struct {
        const char* written;
        std::size_t offset;
        char32_t character;
    } cases[] = {{"12+3", 2, U'+'},      {"++1", 1, U'+'}, {"1é", 1, U'é'},  {"12x", 2, U'x'},
                 {"\xFF", 0, c_notUtf8}, {"(+1", 1, U'+'}, {"1,2", 1, U','}, {"A", 0, U'A'}};
    for (const auto& one : cases) {
        Address address = NumberOf("5");
        const auto misfit = ToNumber(one.written, address);
        ASSERT_TRUE(misfit) << one.written;
        EXPECT_EQ(misfit->offset, one.offset) << one.written;
        EXPECT_EQ(misfit->character, one.character) << one.written;
        EXPECT_EQ(address, NumberOf("5")) << "as it was";
    }
}

TEST(ToName, TellsTheFirstCharacterThatTheDefaultAlphabetLacks) {
    Address address = NumberOf("5");
    const auto misfit = ToName("Aş", address);
    ASSERT_TRUE(misfit);
    EXPECT_EQ(misfit->offset, 1U);
    EXPECT_EQ(misfit->character, U'ş');
    EXPECT_EQ(address, NumberOf("5"));
    EXPECT_EQ(NameOf("[A]").ToString(), "[A]");
    EXPECT_EQ(NameOf("[A]").length, 9) << "five septets";
}

// Times.

TEST(WriteTime, IsChecked) {
    Deliver deliver = SomeDeliver();
    deliver.timestamp = {};
    EXPECT_EQ(WrittenOf(deliver), "no-time TP-SCTS 0 0");
    deliver.timestamp.octets = c_time.octets;
    EXPECT_EQ(WrittenOf(deliver), "time-disagrees TP-SCTS 0 0");
    deliver.timestamp = c_time;
    deliver.timestamp.minute = 35;
    EXPECT_EQ(WrittenOf(deliver), "time-disagrees TP-SCTS 0 0");
    StatusReport report = SomeStatusReport();
    report.discharge.octets[1] = 0x31; // month 13
    EXPECT_EQ(WrittenOf(report), "no-time TP-DT 0 0");
}

TEST(MakeTimestamp, OfParts) {
    EXPECT_EQ(ToHex({c_time.octets.data(), 7}), "21203121436580");
    EXPECT_EQ(c_time.ToString(), "2012-02-13T12:34:56+02:00");
    EXPECT_EQ(MakeTimestamp(2099, 12, 31, 23, 59, 59, -79)->ToString(), "2099-12-31T23:59:59-19:45");
    EXPECT_EQ(MakeTimestamp(2000, 1, 1, 0, 0, 0, 79)->ToString(), "2000-01-01T00:00:00+19:45");
    EXPECT_EQ(MakeTimestamp(2024, 2, 29, 0, 0, 0)->ToString(), "2024-02-29T00:00:00+00:00");
    EXPECT_FALSE(MakeTimestamp(2023, 2, 29, 0, 0, 0));
    EXPECT_FALSE(MakeTimestamp(1999, 12, 31, 0, 0, 0));
    EXPECT_FALSE(MakeTimestamp(2100, 1, 1, 0, 0, 0));
    EXPECT_FALSE(MakeTimestamp(2024, 0, 1, 0, 0, 0));
    EXPECT_FALSE(MakeTimestamp(2024, 13, 1, 0, 0, 0));
    EXPECT_FALSE(MakeTimestamp(2024, 1, 0, 0, 0, 0));
    EXPECT_FALSE(MakeTimestamp(2024, 1, 1, 24, 0, 0));
    EXPECT_FALSE(MakeTimestamp(2024, 1, 1, 0, 60, 0));
    EXPECT_FALSE(MakeTimestamp(2024, 1, 1, 0, 0, 60));
    EXPECT_FALSE(MakeTimestamp(2024, 1, 1, 0, 0, -1));
    EXPECT_FALSE(MakeTimestamp(2024, 1, 1, 0, 0, 0, 80));
    EXPECT_FALSE(MakeTimestamp(2024, 1, 1, 0, 0, 0, -80));
    constexpr int least = std::numeric_limits<int>::min();
    EXPECT_FALSE(MakeTimestamp(least, 1, 1, 0, 0, 0));
    EXPECT_FALSE(MakeTimestamp(2024, 1, 1, 0, 0, 0, least));
    EXPECT_FALSE(MakeTimestamp(std::int64_t{1329129296}, least));
}

TEST(MakeTimestamp, OfUnixSeconds) {
    EXPECT_EQ(MakeTimestamp(std::int64_t{1329129296}, 8), c_time);
    EXPECT_EQ(MakeTimestamp(std::int64_t{946684800})->ToString(), "2000-01-01T00:00:00+00:00");
    EXPECT_FALSE(MakeTimestamp(std::int64_t{946684799}));
    EXPECT_EQ(MakeTimestamp(std::int64_t{946684799}, 1)->ToString(), "2000-01-01T00:14:59+00:15");
    EXPECT_EQ(MakeTimestamp(std::int64_t{4102444799})->ToString(), "2099-12-31T23:59:59+00:00");
    EXPECT_FALSE(MakeTimestamp(std::int64_t{4102444800}));
    EXPECT_FALSE(MakeTimestamp(std::numeric_limits<std::int64_t>::min()));
    EXPECT_FALSE(MakeTimestamp(std::numeric_limits<std::int64_t>::max()));
    EXPECT_FALSE(MakeTimestamp(std::numeric_limits<std::int64_t>::max(), 1));
    for (std::int64_t seconds = 946771200; seconds < 4102444800; seconds += 86399 * 7)
        ASSERT_EQ(MakeTimestamp(seconds, -20)->UnixSeconds(), seconds);
}

TEST(MakeRelativeValidity, IsTheShortestThatIsNotShorter) {
    const struct {
        std::uint32_t seconds;
        std::uint8_t octet;
    } cases[] = {{0, 0x00},       {300, 0x00},     {301, 0x01},     {43200, 0x8F},  {43201, 0x90},
                 {86400, 0xA7},   {86401, 0xA8},   {172800, 0xA8},  {172801, 0xA9}, {2592000, 0xC4},
                 {2592001, 0xC5}, {3024000, 0xC5}, {38102400, 0xFF}};
    for (const auto& one : cases) {
        const auto validity = MakeRelativeValidity(one.seconds);
        ASSERT_TRUE(validity) << one.seconds;
        EXPECT_EQ(validity->format, ValidityFormat::Relative);
        EXPECT_EQ(validity->octets[0], one.octet) << one.seconds;
        EXPECT_GE(validity->Seconds().value(), one.seconds);
    }
    EXPECT_FALSE(MakeRelativeValidity(38102401)) << "63 weeks are the longest";
}

TEST(MakeEnhancedValidity, IsAsExactAsItCanBe) {
    const struct {
        std::uint32_t seconds;
        const char* octets;
    } cases[] = {{1, "02010000000000"},      {255, "02FF0000000000"},    {256, "03004061000000"},
                 {359999, "03999595000000"}, {360000, "01AB0000000000"}, {38102400, "01FF0000000000"}};
    for (const auto& one : cases) {
        const auto validity = MakeEnhancedValidity(one.seconds);
        ASSERT_TRUE(validity) << one.seconds;
        EXPECT_EQ(validity->format, ValidityFormat::Enhanced);
        EXPECT_EQ(ToHex({validity->octets.data(), 7}), one.octets);
        EXPECT_FALSE(validity->IsSingleShot());
    }
    EXPECT_TRUE(MakeEnhancedValidity(1, true)->IsSingleShot());
    EXPECT_EQ(MakeEnhancedValidity(1, true)->Seconds(), 1U);
    EXPECT_FALSE(MakeEnhancedValidity(0));
    EXPECT_FALSE(MakeEnhancedValidity(38102401));
}

TEST(WriteValidity, IsChecked) {
    const struct {
        Validity validity;
        const char* fault;
    } cases[] = {{{ValidityFormat::Absolute, {}}, "no-time TP-VP 0 0"},
                 {{ValidityFormat::Enhanced, {0x04}}, "validity-invalid TP-VP 0 0"},
                 {{ValidityFormat::Enhanced, {0x08}}, "validity-invalid TP-VP 0 0"},
                 {{ValidityFormat::Enhanced, {0x0C}}, "validity-invalid TP-VP 0 0"},
                 {{ValidityFormat::Enhanced, {0x80}}, "validity-invalid TP-VP 0 0"},
                 {{ValidityFormat::Enhanced, {0x0A, 0}}, "validity-invalid TP-VP 0 0"}, // the first of two
                 {{ValidityFormat::Enhanced, {0x02, 0}}, "validity-invalid TP-VP 1 0"},
                 {{ValidityFormat::Enhanced, {0x02, 1, 1}}, "validity-invalid TP-VP 2 0"},
                 {{ValidityFormat::Enhanced, {0x03, 0x00, 0x06}}, "validity-invalid TP-VP 2 0"},
                 {{ValidityFormat::Enhanced, {0x03, 0xA0}}, "validity-invalid TP-VP 1 0"}};
    for (const auto& one : cases) {
        Submit submit = SomeSubmit();
        submit.validity = one.validity;
        EXPECT_EQ(WrittenOf(submit), one.fault);
    }
}

// Values.

TEST(Write, AReportsCauseCannotBeTakenForItsIndicator) {
    DeliverReport report;
    report.failureCause = 0x7F;
    EXPECT_EQ(WrittenOf(report), "failure-cause-too-low TP-FCS 127 0");
    report.failureCause = 0x80;
    EXPECT_EQ(WrittenOf(report), "008000");
}

TEST(Write, ReservedParameterBitsAreAFault) {
    DeliverReport report;
    report.parameterIndicator = 0x88;
    EXPECT_EQ(WrittenOf(report), "reserved-parameter-bits TP-PI 136 0");
}

// User data.

TEST(WriteUserData, HasTheSizeThatTheTypeAllows) {
    // Each type with an address of 20 digits or without one, and the most octets of user data.
    const Address longest = NumberOf("12345678901234567890");
    const auto most = [](auto tpdu, auto set) {
        for (std::size_t octets = 255;; --octets) {
            set(tpdu, OctetsOfCount(octets));
            const Written written = Write(tpdu);
            if (!written.fault)
                return octets;
            EXPECT_EQ(written.fault->code, WriteFaultCode::UserDataTooLong);
            EXPECT_EQ(written.fault->number, octets);
        }
    };
    const auto withUserData = [](auto& tpdu, UserData data) {
        tpdu.coding = DataCoding(4);
        tpdu.userData = std::move(data);
    };
    const auto withoutCoding = [](auto& tpdu, UserData data) {
        // Without TP-DCS the octets are septets.
        const std::size_t septets = data.octets.size() * 8 / 7;
        tpdu.userData = MakeUserData(DataCoding(0), {}, Octets(std::min<std::size_t>(septets, 255)));
        return tpdu.userData->octets.size();
    };
    Deliver deliver = SomeDeliver();
    deliver.originator = longest;
    EXPECT_EQ(most(deliver, withUserData), 140U);
    Submit submit = SomeSubmit();
    EXPECT_EQ(most(submit, withUserData), 140U);
    submit.destination = longest;
    submit.validity = MakeAbsoluteValidity(c_time);
    EXPECT_EQ(most(submit, withUserData), 140U) << "164 octets in all";
    StatusReport status = SomeStatusReport();
    status.recipient = longest;
    status.protocol = 0;
    EXPECT_EQ(most(status, withUserData), 131U);
    status.recipient = NumberOf("");
    EXPECT_EQ(most(status, withUserData), 141U);
    status.protocol.reset();
    EXPECT_EQ(most(status, withUserData), 142U);
    status.coding.reset();
    EXPECT_EQ(withoutCoding(status, OctetsOfCount(143)), 143U);
    EXPECT_FALSE(Write(status).fault);
    EXPECT_EQ(withoutCoding(status, OctetsOfCount(144)), 144U);
    EXPECT_EQ(WrittenOf(status), "user-data-too-long TP-UDL 144 143");
    DeliverReport deliverReport;
    EXPECT_EQ(most(deliverReport, withUserData), 159U);
    deliverReport.failureCause = 0xFF;
    EXPECT_EQ(most(deliverReport, withUserData), 158U);
    SubmitReport submitReport;
    submitReport.timestamp = c_time;
    EXPECT_EQ(most(submitReport, withUserData), 152U);
    submitReport.failureCause = 0xFF;
    EXPECT_EQ(most(submitReport, withUserData), 151U);
    Command command;
    const auto withData = [](Command& one, UserData data) { one.data = std::move(data); };
    EXPECT_EQ(most(command, withData), 156U);
    command.destination = longest;
    EXPECT_EQ(most(command, withData), 146U) << "164 octets in all";
}

TEST(WriteUserData, SaysWhatItsMembersSay) {
    Submit submit = SomeSubmit();
    submit.userData.text = "Hallo";
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0");
    submit.userData = {};
    submit.userData.text = "Hello";
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0") << "no octets at all";
    submit.userData = TextOf("Hello");
    submit.coding = DataCoding(4);
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0") << "octets have no text";
    submit.coding = DataCoding(8);
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0");
    submit = SomeSubmit();
    submit.userData = TextOf("Hello", "00032A0302");
    const UserData headed = submit.userData;
    submit.userData.concatenation->part = 3;
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0");
    submit.userData = headed;
    submit.userData.elements.clear();
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0");
    submit.userData = headed;
    submit.userData.elements.push_back(headed.elements[0]);
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0");
    submit.userData = headed;
    submit.userData.elements[0].identifier = 1;
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0");
    submit.userData = headed;
    ++submit.userData.elements[0].offset;
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0");
    submit.userData = headed;
    ++submit.userData.elements[0].length;
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0");
    submit.userData = headed;
    ++submit.userData.textOffset;
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0");
    submit.userData = headed;
    ++submit.userData.textUnits;
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0");
    submit.userData = headed;
    submit.userData.ports = Ports{};
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0");
    submit.userData = headed;
    submit.userData.tables.single = Language::Turkish;
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0");
    submit.userData.tables = {Language::Turkish, Language::Default};
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0");
    submit.userData = headed;
    submit.userData.hasHeader = false;
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0");
    submit.userData = headed;
    submit.userData.isHeaderIgnored = true;
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0");
    submit.userData = headed;
    submit.userData.fillBits = 0;
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0") << "6 octets and a bit are 7 septets";
    submit.userData = TextOf("Hello");
    submit.userData.fillBits = 5;
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0") << "nothing comes before the text";
    submit.userData = TextOf("Hello", "00032A03027F0155");
    ++submit.userData.elements[0].length;
    EXPECT_EQ(WrittenOf(submit), "text-disagrees TP-UDL 0 0") << "the second element makes up for nothing";
}

TEST(WriteUserData, HasTheOctetsThatItsLengthAnnounces) {
    Submit submit = SomeSubmit();
    submit.userData.length = 7;
    EXPECT_EQ(WrittenOf(submit), "user-data-length TP-UDL 7 5");
    submit.userData = TextOf("Hello");
    submit.userData.octets.push_back(0);
    EXPECT_EQ(WrittenOf(submit), "user-data-length TP-UDL 5 6");
    submit.userData = DataOf("AABB");
    submit.userData.length = 1;
    submit.coding = DataCoding(4);
    EXPECT_EQ(WrittenOf(submit), "user-data-length TP-UDL 1 2");
}

TEST(WriteUserData, HasAHeaderThatAddsUp) {
    const char* const headers[] = {
        "050003010201FF", // sound
        "050003010203FF", // part 3 of 2 is for the caller to say
        "050004010203FF", // the element overruns
        "040003010201FF", // likewise
        "060003010201FF", // one octet left over
        "0B0003010201FF", // beyond the user data
    };
    for (std::size_t i = 0; i < std::size(headers); ++i) {
        Submit submit = SomeSubmit();
        submit.coding = DataCoding(4);
        Reading reading = ReadHex("41000081000407" + std::string(headers[i]), tests::FromMobile());
        ASSERT_EQ(reading.Type(), TpduType::Submit);
        EXPECT_EQ(WrittenOf(reading.tpdu),
                  i < 2 ? "41000081000407" + std::string(headers[i]) : "header-invalid TP-UDL 0 0");
    }
    const Reading withEscape = ReadHex("4100008100000401006003", tests::FromMobile());
    EXPECT_EQ(withEscape.remarks.size(), 2U);
    EXPECT_EQ(WrittenOf(withEscape.tpdu), "header-invalid TP-UDL 0 0") << "nor does the text after it";
    const Reading missing = ReadHex("41000081000400", tests::FromMobile());
    EXPECT_EQ(WrittenOf(missing.tpdu), "01000081000400") << "no header, and none announced";
    Submit announced = SomeSubmit();
    announced.coding = DataCoding(4);
    announced.userData = {};
    announced.userData.hasHeader = true;
    EXPECT_EQ(WrittenOf(announced), "header-invalid TP-UDL 0 0");
}

TEST(MakeUserData, OfEachCoding) {
    const UserData septets = TextOf("Hi", "0504138813AD");
    EXPECT_EQ(ToHex(septets.octets), "060504138813ADC834");
    EXPECT_EQ(septets.length, 10);
    EXPECT_EQ(septets.text, "Hi");
    EXPECT_EQ(septets.ports, (Ports{true, 5000, 5037}));
    const UserData compressed = MakeUserData(DataCoding(0x20), {}, OctetsOf("0102")).value();
    EXPECT_EQ(compressed.length, 2);
    EXPECT_EQ(ToHex(compressed.octets), "0102");
    const UserData ucs2 = MakeUserData(DataCoding(8), {}, OctetsOf("20AC")).value();
    EXPECT_EQ(ucs2.text, "€");
    EXPECT_EQ(MakeUserData(DataCoding(0), {}, Octets(255))->length, 255);
    EXPECT_FALSE(MakeUserData(DataCoding(0), {}, Octets(256)));
    EXPECT_FALSE(MakeUserData(DataCoding(4), Octets(3), Octets(252)));
    EXPECT_TRUE(MakeUserData(DataCoding(4), Octets(3), Octets(251)));
    EXPECT_FALSE(MakeUserData(DataCoding(4), Octets(255), {}));
}

} // namespace
