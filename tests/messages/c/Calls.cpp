// The C interface with values that were worked out by hand, and its rules: what is refused, how structures
// grow, who owns what.
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Messages/Octets.h"
#include "Messages/qx_messages.h"

namespace {

template <class Handle>
using Owned = std::unique_ptr<Handle, void (*)(Handle*)>;

std::string Text(qx_text text) {
    return {text.data, text.size};
}

std::string Hex(qx_octets octets) {
    return Messages::ToHex({octets.data, octets.size});
}

/// All 0 but for its size.
template <class Struct>
Struct Sized() {
    Struct value{};
    value.size = sizeof(value);
    return value;
}

class Calls : public testing::Test {
protected:
    const qx_reading* Read(const std::string& digits, qx_result expected = QX_OK) {
        const qx_reading* reading = nullptr;
        EXPECT_EQ(qx_read_hex(m_Reader.get(), digits.data(), digits.size(), nullptr, &reading), expected);
        return reading;
    }
    const qx_cell_reading* ReadCell(const std::string& digits, qx_result expected = QX_OK) {
        const qx_cell_reading* reading = nullptr;
        EXPECT_EQ(qx_read_cell_hex(m_Reader.get(), digits.data(), digits.size(), QX_CELL_UNKNOWN, &reading),
                  expected);
        return reading;
    }
    const qx_made* Number(const std::string& written, qx_result expected = QX_OK) {
        const qx_made* made = nullptr;
        EXPECT_EQ(qx_make_number(m_Maker.get(), written.data(), written.size(), &made), expected);
        return made;
    }
    const qx_cut_text* Cut(const std::string& text, const qx_cut_options* options,
                           qx_result expected = QX_OK) {
        const qx_cut_text* cut = nullptr;
        EXPECT_EQ(qx_cut(m_Cutter.get(), text.data(), text.size(), options, &cut), expected);
        return cut;
    }
    const qx_written* Write(const qx_message& message, const qx_address* serviceCentre,
                            qx_result expected = QX_OK) {
        const qx_written* written = nullptr;
        EXPECT_EQ(qx_write(m_Writer.get(), &message, serviceCentre, &written), expected);
        return written;
    }

    Owned<qx_reader> m_Reader{qx_reader_new(), qx_reader_free};
    Owned<qx_writer> m_Writer{qx_writer_new(), qx_writer_free};
    Owned<qx_maker> m_Maker{qx_maker_new(), qx_maker_free};
    Owned<qx_cutter> m_Cutter{qx_cutter_new(), qx_cutter_free};
    Owned<qx_joiner> m_Joiner{qx_joiner_new(nullptr), qx_joiner_free};
    Owned<qx_page_joiner> m_Pages{qx_page_joiner_new(0), qx_page_joiner_free};
};

/// SMS-DELIVER of +447700900123, 2026-11-21T08:15:30Z, "Hi".
const std::string c_deliver = "00040C9144770009103200006211128051030002C834";

TEST_F(Calls, ReadADeliver) {
    const qx_reading* const reading = Read(c_deliver);
    ASSERT_NE(reading, nullptr);
    EXPECT_TRUE(reading->is_sound);
    EXPECT_EQ(reading->fault, nullptr);
    EXPECT_EQ(reading->direction, QX_DIRECTION_TO_MOBILE);
    ASSERT_NE(reading->service_centre, nullptr);
    EXPECT_EQ(Text(reading->service_centre->text), "");
    const qx_message& message = *reading->message;
    EXPECT_EQ(message.type, QX_TYPE_DELIVER);
    EXPECT_EQ(Text(message.party->written), "+447700900123");
    EXPECT_EQ(Text(message.party->text), "447700900123");
    EXPECT_EQ(message.party->type, QX_NUMBER_INTERNATIONAL);
    EXPECT_EQ(message.party->plan, QX_PLAN_ISDN);
    EXPECT_EQ(message.timestamp->year, 2026);
    EXPECT_EQ(message.timestamp->unix_seconds, 1795248930); // 20778 days, 8 h 15 min 30 s
    EXPECT_EQ(Text(message.user_data->text), "Hi");
    EXPECT_EQ(message.discharge, nullptr);
    EXPECT_EQ(message.validity, nullptr);
    EXPECT_FALSE(message.failure_cause.has_value);
    EXPECT_TRUE(message.protocol.has_value);
    EXPECT_EQ(reading->places[0]->field, QX_FIELD_SERVICE_CENTRE);
}

TEST_F(Calls, TellOfAFaultWithWhatWasReadBefore) {
    const qx_reading* const reading = Read(c_deliver.substr(0, 24), QX_FAULT);
    ASSERT_NE(reading, nullptr);
    ASSERT_NE(reading->fault, nullptr);
    EXPECT_EQ(Text(reading->fault->name), "field-cut");
    EXPECT_EQ(Text(reading->fault->meaning), "the octets end in TP-SCTS, which takes 7 octets: 0 are there");
    EXPECT_EQ(Text(reading->message->party->written), "+447700900123");
    EXPECT_EQ(Read("0G", QX_FAULT)->fault->code, QX_FAULT_NOT_HEXADECIMAL);
    EXPECT_EQ(Read("", QX_FAULT)->message, nullptr);
}

TEST_F(Calls, TellOfRemarksInWords) {
    const qx_reading* const reading = Read(c_deliver + "0000");
    ASSERT_EQ(reading->remark_count, 1U);
    EXPECT_EQ(reading->remarks[0]->code, QX_REMARK_SURPLUS_OCTETS);
    EXPECT_EQ(reading->remarks[0]->number, 2U);
    EXPECT_EQ(Text(reading->remarks[0]->name), "surplus-octets");
    EXPECT_EQ(Text(reading->remarks[0]->meaning), "2 octets after the TPDU");
}

TEST_F(Calls, KeepNulInTexts) {
    const qx_cut_text* const cut = Cut(std::string("a\0b", 3), nullptr);
    EXPECT_EQ(cut->coding->alphabet, QX_ALPHABET_UCS2);
    EXPECT_EQ(Hex(cut->parts[0]->octets), "006100000062");
    EXPECT_EQ(Text(cut->parts[0]->text), std::string("a\0b", 3));
}

TEST_F(Calls, WriteASubmit) {
    const qx_made* const to = Number("+44 7700 900123");
    const qx_cut_text* const cut = Cut("Hi", nullptr);
    ASSERT_EQ(cut->part_count, 1U);
    auto validity = Sized<qx_validity>();
    ASSERT_EQ(qx_make_relative_validity(10800, &validity), QX_OK); // 3 hours: 35 times 5 minutes, and 5
    auto message = Sized<qx_message>();
    message.type = QX_TYPE_SUBMIT;
    message.status_report_request = true;
    message.reference = 7;
    message.party = to->address;
    message.coding = cut->coding;
    message.validity = &validity;
    message.user_data = cut->parts[0];
    auto none = Sized<qx_address>();
    none.type_of_address = 0x80;
    const qx_written* const written = Write(message, &none);
    ASSERT_NE(written, nullptr);
    EXPECT_EQ(Hex(written->octets), "0031070C9144770009103200002302C834");
    EXPECT_EQ(written->tpdu_octets, 16U);
    EXPECT_EQ(Hex(Write(message, nullptr)->octets), "31070C9144770009103200002302C834");
}

TEST_F(Calls, WriteEveryTypeAsItWasRead) {
    static constexpr struct {
        std::uint8_t type;
        std::uint8_t direction;
        const char* digits;
    } rows[] = {
        {QX_TYPE_DELIVER, QX_DIRECTION_TO_MOBILE, "00040C9144770009103200006211128051030002C834"},
        {QX_TYPE_DELIVER_REPORT, QX_DIRECTION_FROM_MOBILE, "00000200"},
        {QX_TYPE_SUBMIT, QX_DIRECTION_FROM_MOBILE, "0031070C9144770009103200002302C834"},
        {QX_TYPE_SUBMIT_REPORT, QX_DIRECTION_TO_MOBILE, "00010062111280510300"},
        {QX_TYPE_STATUS_REPORT, QX_DIRECTION_TO_MOBILE,
         "0006070C91447700091032621112805103006211128051030000"},
        {QX_TYPE_COMMAND, QX_DIRECTION_FROM_MOBILE, "0002070000000C9144770009103200"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.digits);
        auto options = Sized<qx_read_options>();
        options.service_centre = QX_PRESENCE_YES;
        options.direction = row.direction;
        const qx_reading* reading = nullptr;
        ASSERT_EQ(qx_read_hex(m_Reader.get(), row.digits, std::strlen(row.digits), &options, &reading),
                  QX_OK);
        EXPECT_EQ(reading->message->type, row.type);
        EXPECT_TRUE(reading->is_sound);
        EXPECT_EQ(Hex(Write(*reading->message, reading->service_centre)->octets), row.digits);
    }
}

TEST_F(Calls, WriteASubmitReport) {
    auto time = Sized<qx_timestamp>();
    ASSERT_EQ(qx_make_timestamp(2026, 11, 21, 8, 15, 30, 0, &time), QX_OK);
    auto message = Sized<qx_message>();
    message.type = QX_TYPE_SUBMIT_REPORT;
    message.timestamp = &time;
    const qx_written* const written = Write(message, nullptr);
    EXPECT_EQ(Hex(written->octets), "010062111280510300");
    auto options = Sized<qx_read_options>();
    options.direction = QX_DIRECTION_TO_MOBILE;
    options.service_centre = QX_PRESENCE_NO;
    const qx_reading* reading = nullptr;
    const std::string digits = Hex(written->octets);
    ASSERT_EQ(qx_read_hex(m_Reader.get(), digits.data(), digits.size(), &options, &reading), QX_OK);
    EXPECT_EQ(reading->message->type, QX_TYPE_SUBMIT_REPORT);
    EXPECT_EQ(Hex(Write(*reading->message, nullptr)->octets), "010062111280510300");
}

TEST_F(Calls, WriteWhatIsNotGivenAsZero) {
    auto message = Sized<qx_message>();
    message.type = QX_TYPE_SUBMIT;
    message.party = Number("+4479")->address;
    message.protocol = {false, 0x41};
    EXPECT_EQ(Hex(Write(message, nullptr)->octets), "0100049144970000"
                                                    "00");
    message.protocol = {true, 0x41};
    EXPECT_EQ(Hex(Write(message, nullptr)->octets), "0100049144974100"
                                                    "00");
}

TEST_F(Calls, WorkOutWhatSaysThatAnotherFieldIsThere) {
    auto time = Sized<qx_timestamp>();
    ASSERT_EQ(qx_make_timestamp(2026, 11, 21, 8, 15, 30, 0, &time), QX_OK);
    auto coding = Sized<qx_coding>();
    coding.value = 0xF1;
    auto message = Sized<qx_message>();
    message.type = QX_TYPE_SUBMIT_REPORT;
    message.timestamp = &time;
    message.parameter_indicator = {true, 0x07};
    EXPECT_EQ(Hex(Write(message, nullptr)->octets), "010062111280510300");
    message.coding = &coding;
    message.parameter_indicator = {false, 0};
    EXPECT_EQ(Hex(Write(message, nullptr)->octets), "010262111280510300F1");
}

TEST_F(Calls, WorkOutTheLengthOfAnAddress) {
    auto to = Sized<qx_address>();
    to.type_of_address = 0x91;
    to.text = {"4479", 4};
    auto message = Sized<qx_message>();
    message.type = QX_TYPE_SUBMIT;
    message.party = &to;
    EXPECT_EQ(Hex(Write(message, nullptr)->octets), "010004914497000000");
}

TEST_F(Calls, RefuseATimeWhoseMembersDisagree) {
    auto time = Sized<qx_timestamp>();
    ASSERT_EQ(qx_make_timestamp(2026, 11, 21, 8, 15, 30, 0, &time), QX_OK);
    auto message = Sized<qx_message>();
    message.type = QX_TYPE_SUBMIT_REPORT;
    message.timestamp = &time;
    const auto isTaken = [&](const auto& change) {
        const qx_timestamp before = time;
        change();
        const qx_written* written = nullptr;
        const qx_result result = qx_write(m_Writer.get(), &message, nullptr, &written);
        time = before;
        EXPECT_TRUE(result == QX_OK || written->fault->code == QX_WRITE_FAULT_TIME_DISAGREES);
        return result == QX_OK;
    };
    EXPECT_FALSE(isTaken([&] { time.is_valid = false; }));
    EXPECT_FALSE(isTaken([&] { time.year = 2025; }));
    EXPECT_FALSE(isTaken([&] { time.month = 10; }));
    EXPECT_FALSE(isTaken([&] { time.day = 20; }));
    EXPECT_FALSE(isTaken([&] { time.hour = 7; }));
    EXPECT_FALSE(isTaken([&] { time.minute = 14; }));
    EXPECT_FALSE(isTaken([&] { time.second = 29; }));
    EXPECT_FALSE(isTaken([&] { time.quarters = 1; }));
    EXPECT_TRUE(isTaken([&] { time.unix_seconds = 0; }));
}

TEST_F(Calls, RefuseUserDataWhoseMembersDisagree) {
    auto data = *Cut("Hi", nullptr)->parts[0];
    auto message = Sized<qx_message>();
    message.type = QX_TYPE_SUBMIT;
    message.party = Number("+4479")->address;
    message.user_data = &data;
    EXPECT_NE(Write(message, nullptr), nullptr);
    const auto refuses = [&](const auto& change) {
        const qx_user_data before = data;
        change();
        const qx_written* const written = Write(message, nullptr, QX_FAULT);
        data = before;
        ASSERT_NE(written->fault, nullptr);
        EXPECT_EQ(written->fault->code, QX_WRITE_FAULT_TEXT_DISAGREES);
    };
    const auto concatenation = qx_concatenation{sizeof(qx_concatenation), false, 1, 2, 1};
    const auto ports = qx_ports{sizeof(qx_ports), true, 2948, 0};
    auto element = Sized<qx_element>();
    const qx_element* const elements = &element;
    refuses([&] { data.is_header_ignored = true; });
    refuses([&] { data.elements = &elements, data.element_count = 1; });
    refuses([&] { data.concatenation = &concatenation; });
    refuses([&] { data.ports = &ports; });
    refuses([&] { data.locking = QX_LANGUAGE_TURKISH; });
    refuses([&] { data.single = QX_LANGUAGE_TURKISH; });
    refuses([&] { data.text_offset = 1; });
    refuses([&] { data.fill_bits = 5; });
    refuses([&] { data.text_units = 1; });
    refuses([&] { data.text = {"Ho", 2}; });
    data.content = {};
    EXPECT_NE(Write(message, nullptr), nullptr) << "it is told alone";
}

TEST_F(Calls, MaskTheFirstOctetOfAPlaceAlone) {
    // A header of 6 octets, a fill bit, "Hi".
    const qx_reading* const reading = Read("0044049144970000621112805103000905000301"
                                           "02019069");
    ASSERT_TRUE(reading->is_sound);
    ASSERT_GE(reading->place_count, 2U);
    const qx_place& fill = *reading->places[reading->place_count - 2];
    EXPECT_EQ(fill.field, QX_FIELD_FILL_BITS);
    EXPECT_EQ(fill.octet, 22U);
    EXPECT_EQ(fill.mask, 0x01);
    EXPECT_EQ(fill.count, 1U);
    const qx_place& text = *reading->places[reading->place_count - 1];
    EXPECT_EQ(text.field, QX_FIELD_USER_DATA);
    EXPECT_EQ(text.octet, 22U);
    EXPECT_EQ(text.mask, 0xFE);
    EXPECT_EQ(text.count, 2U);
}

TEST_F(Calls, TellWhyNothingIsWritten) {
    auto message = Sized<qx_message>();
    message.type = QX_TYPE_DELIVER;
    message.party = Number("+4479")->address;
    const qx_written* const written = Write(message, nullptr, QX_FAULT);
    ASSERT_NE(written, nullptr);
    EXPECT_EQ(written->octets.size, 0U);
    EXPECT_EQ(written->fault->code, QX_WRITE_FAULT_NO_TIME);
    EXPECT_EQ(written->fault->field, QX_FIELD_SERVICE_CENTRE_TIMESTAMP);
    EXPECT_EQ(Text(written->fault->name), "no-time");
    message.type = QX_TYPE_NONE;
    EXPECT_EQ(Write(message, nullptr, QX_FAULT)->fault->code, QX_WRITE_FAULT_NO_TYPE);
}

TEST_F(Calls, MakeNumbersAndNames) {
    EXPECT_EQ(Text(Number("+44 (7700) 900-123")->address->text), "447700900123");
    const qx_made* made = Number("44x", QX_FAULT);
    EXPECT_EQ(made->address, nullptr);
    EXPECT_EQ(made->misfit->offset, 2U);
    EXPECT_EQ(made->misfit->character, static_cast<std::uint32_t>('x'));
    ASSERT_EQ(qx_make_name(m_Maker.get(), "Info", 4, &made), QX_OK);
    EXPECT_EQ(made->address->type, QX_NUMBER_ALPHANUMERIC);
    EXPECT_EQ(Text(made->address->written), "Info");
    ASSERT_EQ(qx_make_name(m_Maker.get(), "\xD0\x98", 2, &made), QX_FAULT);
    EXPECT_EQ(made->misfit->character, 0x418U);
}

TEST_F(Calls, MakeUserData) {
    const std::uint8_t port[] = {0x05, 0x04, 0x0B, 0x84, 0x23, 0xF0};
    const std::uint8_t content[] = {0xFF, 0x00};
    const qx_made* made = nullptr;
    ASSERT_EQ(qx_make_user_data(m_Maker.get(), 4, {port, sizeof(port)}, {content, sizeof(content)}, &made),
              QX_OK);
    EXPECT_EQ(Hex(made->user_data->octets), "0605040B8423F0FF00");
    EXPECT_EQ(made->user_data->ports->destination, 2948);
    EXPECT_EQ(Hex(made->user_data->content), "FF00");
    EXPECT_EQ(qx_make_user_data(m_Maker.get(), 0, {nullptr, 0}, {content, sizeof(content)}, &made),
              QX_ARGUMENT)
        << "a septet of 255";
    EXPECT_EQ(made, nullptr);
    const std::uint8_t last = 127;
    const std::uint8_t beyond = 128;
    ASSERT_EQ(qx_make_user_data(m_Maker.get(), 0, {nullptr, 0}, {&last, 1}, &made), QX_OK);
    EXPECT_EQ(Text(made->user_data->text), "\xC3\xA0") << "à";
    EXPECT_EQ(qx_make_user_data(m_Maker.get(), 0, {nullptr, 0}, {&beyond, 1}, &made), QX_ARGUMENT);
    const std::vector<std::uint8_t> many(300);
    EXPECT_EQ(qx_make_user_data(m_Maker.get(), 4, {nullptr, 0}, {many.data(), many.size()}, &made), QX_FAULT);
    EXPECT_EQ(made->user_data, nullptr);
}

TEST_F(Calls, MakeTimesAndValidities) {
    auto time = Sized<qx_timestamp>();
    char text[26];
    ASSERT_EQ(qx_make_timestamp(2026, 11, 21, 8, 15, 30, -14, &time), QX_OK);
    EXPECT_EQ(qx_timestamp_text(&time, text, sizeof(text)), 25U);
    EXPECT_STREQ(text, "2026-11-21T08:15:30-03:30");
    EXPECT_EQ(qx_timestamp_text(&time, text, 5), 25U);
    EXPECT_STREQ(text, "2026") << "as far as there is room";
    EXPECT_EQ(qx_timestamp_text(&time, text, 1), 25U);
    EXPECT_STREQ(text, "") << "room for the NUL alone";
    EXPECT_EQ(qx_timestamp_text(&time, nullptr, 0), 25U);
    EXPECT_EQ(qx_make_timestamp(2026, 2, 29, 0, 0, 0, 0, &time), QX_FAULT);
    ASSERT_EQ(qx_make_unix_timestamp(1795248930, 4, &time), QX_OK);
    EXPECT_EQ(time.hour, 9);
    EXPECT_EQ(qx_make_unix_timestamp(-1, 0, &time), QX_FAULT);

    auto validity = Sized<qx_validity>();
    ASSERT_EQ(qx_make_absolute_validity(&time, &validity), QX_OK);
    EXPECT_EQ(validity.format, QX_VALIDITY_ABSOLUTE);
    EXPECT_EQ(validity.until, &time);
    EXPECT_EQ(qx_make_absolute_validity(nullptr, &validity), QX_ARGUMENT);
    EXPECT_EQ(qx_make_absolute_validity(&time, nullptr), QX_ARGUMENT);
    const auto none = Sized<qx_timestamp>();
    EXPECT_EQ(qx_make_absolute_validity(&none, &validity), QX_FAULT);
    EXPECT_EQ(qx_timestamp_text(&none, text, sizeof(text)), 0U);
    EXPECT_STREQ(text, "");
    const auto refuses = [&](const auto& change) {
        qx_timestamp wrong = time;
        change(wrong);
        EXPECT_EQ(qx_make_absolute_validity(&wrong, &validity), QX_FAULT);
        EXPECT_EQ(qx_timestamp_text(&wrong, text, sizeof(text)), 0U);
    };
    refuses([](qx_timestamp& wrong) { wrong.year = 1999; });
    refuses([](qx_timestamp& wrong) { wrong.year = 2100; });
    refuses([](qx_timestamp& wrong) { wrong.month = 0; });
    refuses([](qx_timestamp& wrong) { wrong.month = 13; });
    refuses([](qx_timestamp& wrong) { wrong.day = 0; });
    refuses([](qx_timestamp& wrong) { wrong.day = 32; });
    refuses([](qx_timestamp& wrong) { wrong.hour = 24; });
    refuses([](qx_timestamp& wrong) { wrong.minute = 60; });
    refuses([](qx_timestamp& wrong) { wrong.second = 60; });
    refuses([](qx_timestamp& wrong) { wrong.quarters = -86; });
    refuses([](qx_timestamp& wrong) { wrong.quarters = 86; });
    EXPECT_EQ(qx_timestamp_text(&time, nullptr, 26), 0U);
    EXPECT_EQ(validity.until, &time) << "nothing was written since";
    const auto takes = [&](const char* expected, const auto& change) {
        qx_timestamp bound = time; // 2026-11-21T09:15:30+01:00
        change(bound);
        EXPECT_EQ(qx_make_absolute_validity(&bound, &validity), QX_OK);
        EXPECT_EQ(qx_timestamp_text(&bound, text, sizeof(text)), 25U);
        EXPECT_STREQ(text, expected);
    };
    takes("2000-11-21T09:15:30+01:00", [](qx_timestamp& bound) { bound.year = 2000; });
    takes("2099-11-21T09:15:30+01:00", [](qx_timestamp& bound) { bound.year = 2099; });
    takes("2026-01-21T09:15:30+01:00", [](qx_timestamp& bound) { bound.month = 1; });
    takes("2026-12-21T09:15:30+01:00", [](qx_timestamp& bound) { bound.month = 12; });
    takes("2026-11-01T09:15:30+01:00", [](qx_timestamp& bound) { bound.day = 1; });
    takes("2026-12-31T09:15:30+01:00", [](qx_timestamp& bound) { bound.month = 12, bound.day = 31; });
    takes("2026-11-21T00:15:30+01:00", [](qx_timestamp& bound) { bound.hour = 0; });
    takes("2026-11-21T23:15:30+01:00", [](qx_timestamp& bound) { bound.hour = 23; });
    takes("2026-11-21T09:00:30+01:00", [](qx_timestamp& bound) { bound.minute = 0; });
    takes("2026-11-21T09:59:30+01:00", [](qx_timestamp& bound) { bound.minute = 59; });
    takes("2026-11-21T09:15:00+01:00", [](qx_timestamp& bound) { bound.second = 0; });
    takes("2026-11-21T09:15:59+01:00", [](qx_timestamp& bound) { bound.second = 59; });
    takes("2026-11-21T09:15:30-21:15", [](qx_timestamp& bound) { bound.quarters = -85; });
    takes("2026-11-21T09:15:30+21:15", [](qx_timestamp& bound) { bound.quarters = 85; });
    ASSERT_EQ(qx_make_enhanced_validity(30, true, &validity), QX_OK);
    EXPECT_EQ(validity.enhanced, QX_ENHANCED_SECONDS);
    EXPECT_TRUE(validity.is_single_shot);
    EXPECT_EQ(validity.seconds, 30U);
    EXPECT_EQ(qx_make_enhanced_validity(0, false, &validity), QX_FAULT);
    EXPECT_EQ(qx_make_relative_validity(UINT32_MAX, &validity), QX_FAULT);

    auto coding = Sized<qx_coding>();
    ASSERT_EQ(qx_make_coding(0xD8, &coding), QX_OK);
    EXPECT_TRUE(coding.has_waiting && coding.waiting_is_stored && coding.waiting_is_active);
    EXPECT_EQ(coding.waiting_type, QX_WAITING_VOICE);
}

TEST_F(Calls, ChooseAndExplain) {
    auto options = Sized<qx_cut_options>();
    options.languages = 1U << QX_LANGUAGE_TURKISH;
    const std::string text = "A\xC4\x9Fr\xC4\xB1"; // Ağrı
    const qx_explanation* explained = nullptr;
    ASSERT_EQ(qx_choose(m_Cutter.get(), text.data(), text.size(), &options, &explained), QX_OK);
    ASSERT_EQ(explained->choice_count, 1U);
    EXPECT_EQ(explained->choices[0]->alphabet, QX_ALPHABET_GSM7);
    EXPECT_EQ(explained->choices[0]->locking, QX_LANGUAGE_TURKISH);
    EXPECT_EQ(explained->choices[0]->units, 4U);
    EXPECT_EQ(explained->choices[0]->octets, 8U) << "a header of 4 octets, 3 fill bits and 28 bits";
    ASSERT_EQ(qx_explain(m_Cutter.get(), text.data(), text.size(), &options, &explained), QX_OK);
    EXPECT_GT(explained->choice_count, 1U);
    ASSERT_EQ(explained->character_count, 2U);
    EXPECT_EQ(explained->characters[0]->character, 0x11FU);
    EXPECT_EQ(explained->characters[0]->single, 1U << QX_LANGUAGE_DEFAULT | 1U << QX_LANGUAGE_TURKISH);

    options.alphabet = {true, QX_ALPHABET_GSM7};
    options.languages = 0;
    ASSERT_EQ(qx_choose(m_Cutter.get(), text.data(), text.size(), &options, &explained), QX_FAULT);
    EXPECT_EQ(explained->misfit->offset, 1U);
    EXPECT_EQ(explained->choice_count, 0U);
}

TEST_F(Calls, ReplaceNearCharacters) {
    const qx_near_text* near = nullptr;
    const std::string text = "\xE2\x80\x9CHi\xE2\x80\x9D";
    ASSERT_EQ(qx_replace_near(m_Cutter.get(), text.data(), text.size(), 0, &near), QX_OK);
    EXPECT_EQ(Text(near->text), "\"Hi\"");
    ASSERT_EQ(near->replacement_count, 2U);
    EXPECT_EQ(near->replacements[1]->offset, 5U);
    EXPECT_EQ(near->replacements[1]->length, 3U);
    EXPECT_EQ(Text(near->replacements[1]->replacement), "\"");
    ASSERT_EQ(qx_replace_near(m_Cutter.get(), text.data(), 3, 0, &near), QX_OK);
    EXPECT_EQ(near->replacement_count, 1U) << "those of the call before are gone";
}

TEST_F(Calls, CutInTwoAndJoin) {
    auto options = Sized<qx_cut_options>();
    options.has_reference = true;
    options.reference = 42;
    const std::string text(161, 'a');
    const qx_cut_text* const cut = Cut(text, &options);
    ASSERT_EQ(cut->part_count, 2U);
    EXPECT_EQ(cut->offsets[1], 153U);
    EXPECT_EQ(Hex(cut->parts[1]->octets).substr(0, 12), "0500032A0202");
    EXPECT_EQ(cut->parts[1]->concatenation->part, 2);

    const qx_made* const from = Number("4479");
    auto time = Sized<qx_timestamp>();
    qx_make_timestamp(2026, 11, 21, 8, 15, 30, 0, &time);
    const qx_joined_list* joined = nullptr;
    for (std::size_t part = 2; part-- != 0;) {
        auto message = Sized<qx_message>();
        message.type = QX_TYPE_DELIVER;
        message.party = from->address;
        message.timestamp = &time;
        message.user_data = cut->parts[part];
        Read(Hex(Write(message, &*from->address)->octets));
        ASSERT_EQ(qx_joiner_add(m_Joiner.get(), m_Reader.get(), 0, part, &joined), QX_OK);
        EXPECT_EQ(joined->message_count, part == 0 ? 1U : 0U);
    }
    EXPECT_EQ(joined->messages[0]->outcome, QX_OUTCOME_COMPLETE);
    EXPECT_EQ(Text(joined->messages[0]->text), text);
    EXPECT_EQ(joined->messages[0]->parts[1]->tag, 1U);
    ASSERT_EQ(qx_joiner_finish(m_Joiner.get(), &joined), QX_OK);
    EXPECT_EQ(joined->message_count, 0U);
}

TEST_F(Calls, CutData) {
    const std::uint8_t data[] = {1, 2, 3};
    const qx_cut_text* cut = nullptr;
    ASSERT_EQ(qx_cut_data(m_Cutter.get(), data, sizeof(data), nullptr, &cut), QX_OK);
    EXPECT_EQ(Hex(cut->parts[0]->octets), "010203");
    EXPECT_EQ(cut->coding->alphabet, QX_ALPHABET_DATA);
}

TEST_F(Calls, TakeTheRoomThatIsTold) {
    auto options = Sized<qx_cut_options>();
    const auto partsOf = [&](std::size_t septets) -> std::size_t {
        const std::string text(septets, 'a');
        const qx_explanation* chosen = nullptr;
        qx_choose(m_Cutter.get(), text.data(), text.size(), &options, &chosen);
        return chosen == nullptr ? 0 : chosen->choices[0]->parts;
    };
    EXPECT_EQ(partsOf(160), 1U);
    options.element_octets = 20; // which leave 136 septets
    EXPECT_EQ(partsOf(160), 2U);
    options.element_octets = 0;
    options.octets = 159; // 181 septets and 5 bits
    EXPECT_EQ(partsOf(181), 1U);
    EXPECT_EQ(partsOf(182), 2U);
}

TEST_F(Calls, TellWhyATextIsNotCut) {
    const qx_cut_text* const cut = Cut("a\xFF", nullptr, QX_FAULT);
    EXPECT_EQ(cut->part_count, 0U);
    EXPECT_EQ(cut->fault->code, QX_CUT_FAULT_NOT_UTF8);
    EXPECT_EQ(cut->fault->offset, 1U);
    EXPECT_EQ(Text(cut->fault->name), "not-utf8");
    EXPECT_EQ(cut->coding->value, 0);
    EXPECT_EQ(cut->choice->units, 0U);
    EXPECT_EQ(cut->choice->parts, 0U);

    const std::string many(255U * 67 + 1, 'a');
    auto options = Sized<qx_cut_options>();
    options.alphabet = {true, QX_ALPHABET_UCS2};
    const qx_cut_text* const tooLong = Cut(many, &options, QX_FAULT);
    EXPECT_EQ(tooLong->fault->code, QX_CUT_FAULT_TOO_MANY_PARTS);
    EXPECT_EQ(tooLong->part_count, 0U);
    EXPECT_EQ(tooLong->coding->value, 0x08);
    EXPECT_EQ(tooLong->choice->units, 255U * 67 + 1);
    EXPECT_EQ(tooLong->choice->parts, 256U);
}

TEST_F(Calls, ReadWriteAndJoinPages) {
    auto draft = Sized<qx_cell_draft>();
    draft.format = QX_CELL_GSM_PAGE;
    draft.serial_number = 0x4020;
    draft.message_identifier = 50;
    const std::string text(94, 'a'); // a page has 93 septets
    draft.text = {text.data(), text.size()};
    draft.language = {"en", 2};
    const qx_cell_written* written = nullptr;
    ASSERT_EQ(qx_write_cell(m_Writer.get(), &draft, &written), QX_OK);
    EXPECT_EQ(written->fault, QX_DRAFT_FAULT_NONE);
    ASSERT_EQ(written->octets_count, 2U);
    EXPECT_EQ(written->octets[0].size, 88U);
    EXPECT_EQ(written->coding->value, 0x01);
    const qx_pages_taken* taken = nullptr;
    for (std::size_t page = 0; page < 2; ++page) {
        const qx_cell_reading* const reading = ReadCell(Hex(written->octets[page]));
        EXPECT_EQ(reading->serial->message_code, 2);
        EXPECT_EQ(reading->serial->scope, QX_SCOPE_NETWORK);
        EXPECT_EQ(reading->pages[0]->number, page + 1);
        EXPECT_EQ(Text(reading->language), "en");
        ASSERT_EQ(qx_page_joiner_take(m_Pages.get(), m_Reader.get(), &taken), QX_OK);
    }
    ASSERT_EQ(taken->message_count, 1U);
    EXPECT_FALSE(taken->messages[0]->is_given_up);
    EXPECT_EQ(Text(taken->messages[0]->text), text);
    draft.language = {"e", 1};
    ASSERT_EQ(qx_write_cell(m_Writer.get(), &draft, &written), QX_FAULT);
    EXPECT_EQ(written->fault, QX_DRAFT_FAULT_NO_SUCH_LANGUAGE);
    EXPECT_NE(Text(written->meaning), "");
    EXPECT_EQ(written->octets_count, 0U);
}

TEST_F(Calls, GiveUpTheOldestPage) {
    ReadCell("402000320012C834");
    const qx_pages_taken* taken = nullptr;
    ASSERT_EQ(qx_page_joiner_take(m_Pages.get(), m_Reader.get(), &taken), QX_OK);
    EXPECT_EQ(taken->message_count, 0U);
    ASSERT_EQ(qx_page_joiner_take_oldest(m_Pages.get(), &taken), QX_OK);
    ASSERT_EQ(taken->message_count, 1U);
    EXPECT_TRUE(taken->messages[0]->is_given_up);
    EXPECT_EQ(Hex(taken->messages[0]->missing), "02");
    ASSERT_EQ(qx_page_joiner_take_oldest(m_Pages.get(), &taken), QX_OK);
    EXPECT_EQ(taken->message_count, 0U);
}

TEST_F(Calls, RefuseNoHandleAndNoPlaceForTheResult) {
    const qx_reading* reading = Read(c_deliver);
    EXPECT_EQ(qx_read(nullptr, nullptr, 0, nullptr, &reading), QX_ARGUMENT);
    EXPECT_EQ(reading, nullptr);
    EXPECT_EQ(qx_read(m_Reader.get(), nullptr, 0, nullptr, nullptr), QX_ARGUMENT);
    EXPECT_EQ(qx_read(m_Reader.get(), nullptr, 1, nullptr, &reading), QX_ARGUMENT);
    EXPECT_EQ(qx_read_hex(m_Reader.get(), nullptr, 1, nullptr, &reading), QX_ARGUMENT);
    EXPECT_EQ(qx_read(m_Reader.get(), nullptr, 0, nullptr, &reading), QX_FAULT) << "no octets, no address";
    EXPECT_EQ(qx_make_timestamp(2026, 1, 1, 0, 0, 0, 0, nullptr), QX_ARGUMENT);
    EXPECT_EQ(qx_timestamp_text(nullptr, nullptr, 0), 0U);
    for (const auto free : {+[] { qx_reader_free(nullptr); }, +[] { qx_writer_free(nullptr); },
                            +[] { qx_maker_free(nullptr); }, +[] { qx_cutter_free(nullptr); },
                            +[] { qx_joiner_free(nullptr); }, +[] { qx_page_joiner_free(nullptr); }})
        free();
}

/// Refuses no handle and no place for the result.
template <class Handle, class Result, class Call>
void ExpectRefusals(const Owned<Handle>& handle, Call call) {
    const Result* result = nullptr;
    Handle* const noHandle = nullptr;
    const Result** const noPlace = nullptr;
    EXPECT_EQ(call(noHandle, &result), QX_ARGUMENT);
    EXPECT_EQ(call(handle.get(), noPlace), QX_ARGUMENT);
    EXPECT_EQ(call(noHandle, noPlace), QX_ARGUMENT);
}

TEST_F(Calls, RefuseNoHandleAndNoPlaceEverywhere) {
    ExpectRefusals<qx_reader, qx_reading>(
        m_Reader, [](auto* handle, auto* place) { return qx_read(handle, nullptr, 0, nullptr, place); });
    ExpectRefusals<qx_reader, qx_reading>(
        m_Reader, [](auto* handle, auto* place) { return qx_read_hex(handle, nullptr, 0, nullptr, place); });
    ExpectRefusals<qx_reader, qx_cell_reading>(
        m_Reader, [](auto* handle, auto* place) { return qx_read_cell(handle, nullptr, 0, 0, place); });
    ExpectRefusals<qx_reader, qx_cell_reading>(
        m_Reader, [](auto* handle, auto* place) { return qx_read_cell_hex(handle, nullptr, 0, 0, place); });
    const auto message = Sized<qx_message>();
    ExpectRefusals<qx_writer, qx_written>(
        m_Writer, [&](auto* handle, auto* place) { return qx_write(handle, &message, nullptr, place); });
    const auto draft = Sized<qx_cell_draft>();
    ExpectRefusals<qx_writer, qx_cell_written>(
        m_Writer, [&](auto* handle, auto* place) { return qx_write_cell(handle, &draft, place); });
    ExpectRefusals<qx_maker, qx_made>(
        m_Maker, [](auto* handle, auto* place) { return qx_make_number(handle, "1", 1, place); });
    ExpectRefusals<qx_maker, qx_made>(
        m_Maker, [](auto* handle, auto* place) { return qx_make_name(handle, "a", 1, place); });
    ExpectRefusals<qx_maker, qx_made>(
        m_Maker, [](auto* handle, auto* place) { return qx_make_user_data(handle, 0, {}, {}, place); });
    ExpectRefusals<qx_cutter, qx_explanation>(
        m_Cutter, [](auto* handle, auto* place) { return qx_choose(handle, "a", 1, nullptr, place); });
    ExpectRefusals<qx_cutter, qx_explanation>(
        m_Cutter, [](auto* handle, auto* place) { return qx_explain(handle, "a", 1, nullptr, place); });
    ExpectRefusals<qx_cutter, qx_near_text>(
        m_Cutter, [](auto* handle, auto* place) { return qx_replace_near(handle, "a", 1, 0, place); });
    ExpectRefusals<qx_cutter, qx_cut_text>(
        m_Cutter, [](auto* handle, auto* place) { return qx_cut(handle, "a", 1, nullptr, place); });
    ExpectRefusals<qx_cutter, qx_cut_text>(
        m_Cutter, [](auto* handle, auto* place) { return qx_cut_data(handle, nullptr, 0, nullptr, place); });
    Read(c_deliver);
    ExpectRefusals<qx_joiner, qx_joined_list>(m_Joiner, [this](auto* handle, auto* place) {
        return qx_joiner_add(handle, m_Reader.get(), 0, 0, place);
    });
    ExpectRefusals<qx_joiner, qx_joined_list>(
        m_Joiner, [](auto* handle, auto* place) { return qx_joiner_expire(handle, 0, place); });
    ExpectRefusals<qx_joiner, qx_joined_list>(
        m_Joiner, [](auto* handle, auto* place) { return qx_joiner_finish(handle, place); });
    ReadCell("402000320012C834");
    ExpectRefusals<qx_page_joiner, qx_pages_taken>(m_Pages, [this](auto* handle, auto* place) {
        return qx_page_joiner_take(handle, m_Reader.get(), place);
    });
    ExpectRefusals<qx_page_joiner, qx_pages_taken>(
        m_Pages, [](auto* handle, auto* place) { return qx_page_joiner_take_oldest(handle, place); });
}

TEST_F(Calls, RefuseNumbersWithoutAName) {
    const qx_reading* reading = nullptr;
    for (std::uint8_t qx_read_options::*const member :
         {&qx_read_options::service_centre, &qx_read_options::direction, &qx_read_options::failure_cause}) {
        auto options = Sized<qx_read_options>();
        options.*member = 3;
        EXPECT_EQ(qx_read(m_Reader.get(), nullptr, 0, &options, &reading), QX_ARGUMENT);
        options.*member = 2;
        EXPECT_EQ(qx_read(m_Reader.get(), nullptr, 0, &options, &reading), QX_FAULT);
    }
    const qx_cell_reading* cell = nullptr;
    EXPECT_EQ(qx_read_cell(m_Reader.get(), nullptr, 0, 4, &cell), QX_ARGUMENT);
    const auto refuses = [this](const auto& change) {
        auto options = Sized<qx_cut_options>();
        change(options);
        EXPECT_EQ(Cut("a", &options, QX_ARGUMENT), nullptr);
    };
    refuses([](qx_cut_options& options) { options.languages = 1U << 14; });
    refuses([](qx_cut_options& options) { options.alphabet = {true, QX_ALPHABET_DATA}; });
    refuses([](qx_cut_options& options) { options.alphabet = {true, 3}; });
    refuses([](qx_cut_options& options) { options.has_tables = true, options.locking = 14; });
    refuses([](qx_cut_options& options) { options.has_tables = true, options.single = 14; });
    refuses([](qx_cut_options& options) { options.octets = 160; });
    refuses([](qx_cut_options& options) { options.message_class = {true, 4}; });
    refuses([](qx_cut_options& options) { options.elements.size = 1; });
    auto message = Sized<qx_message>();
    message.type = 7;
    EXPECT_EQ(Write(message, nullptr, QX_ARGUMENT), nullptr);
    message.type = QX_TYPE_SUBMIT;
    auto validity = Sized<qx_validity>();
    validity.format = 4;
    message.validity = &validity;
    EXPECT_EQ(Write(message, nullptr, QX_ARGUMENT), nullptr);
    auto draft = Sized<qx_cell_draft>();
    draft.format = 4;
    const qx_cell_written* written = nullptr;
    EXPECT_EQ(qx_write_cell(m_Writer.get(), &draft, &written), QX_ARGUMENT);
    draft.format = QX_CELL_GSM_PAGE;
    draft.alphabet = {true, 3};
    EXPECT_EQ(qx_write_cell(m_Writer.get(), &draft, &written), QX_ARGUMENT);
}

TEST_F(Calls, RefuseUserDataWithHoles) {
    auto data = Sized<qx_user_data>();
    auto message = Sized<qx_message>();
    message.type = QX_TYPE_SUBMIT;
    message.user_data = &data;
    data.element_count = 1;
    EXPECT_EQ(Write(message, nullptr, QX_ARGUMENT), nullptr);
    const qx_element* const none = nullptr;
    data.elements = &none;
    EXPECT_EQ(Write(message, nullptr, QX_ARGUMENT), nullptr);
    data.element_count = 0;
    data.single = 14;
    EXPECT_EQ(Write(message, nullptr, QX_ARGUMENT), nullptr);
}

TEST_F(Calls, RefuseToJoinWhatWasNotRead) {
    const qx_joined_list* joined = nullptr;
    const qx_pages_taken* taken = nullptr;
    EXPECT_EQ(qx_joiner_add(m_Joiner.get(), nullptr, 0, 0, &joined), QX_ARGUMENT);
    EXPECT_EQ(qx_joiner_add(m_Joiner.get(), m_Reader.get(), 0, 0, &joined), QX_ARGUMENT)
        << "nothing was read";
    EXPECT_EQ(qx_page_joiner_take(m_Pages.get(), nullptr, &taken), QX_ARGUMENT);
    Read("", QX_FAULT);
    EXPECT_EQ(qx_joiner_add(m_Joiner.get(), m_Reader.get(), 0, 0, &joined), QX_ARGUMENT) << "no type";
    Read(c_deliver);
    EXPECT_EQ(qx_page_joiner_take(m_Pages.get(), m_Reader.get(), &taken), QX_ARGUMENT);
    EXPECT_EQ(qx_joiner_add(m_Joiner.get(), m_Reader.get(), 0, 0, &joined), QX_OK);
    EXPECT_EQ(joined->message_count, 1U);
    ReadCell("402000320011C834");
    EXPECT_EQ(qx_joiner_add(m_Joiner.get(), m_Reader.get(), 0, 0, &joined), QX_ARGUMENT);
    EXPECT_EQ(joined, nullptr);
    const qx_cell_reading* cell = nullptr;
    EXPECT_EQ(qx_read_cell(m_Reader.get(), nullptr, 1, QX_CELL_UNKNOWN, &cell), QX_ARGUMENT);
    EXPECT_EQ(qx_page_joiner_take(m_Pages.get(), m_Reader.get(), &taken), QX_ARGUMENT)
        << "the page of before is not taken again";
    Read(c_deliver);
    const qx_reading* reading = nullptr;
    EXPECT_EQ(qx_read(m_Reader.get(), nullptr, 1, nullptr, &reading), QX_ARGUMENT);
    EXPECT_EQ(qx_joiner_add(m_Joiner.get(), m_Reader.get(), 0, 0, &joined), QX_ARGUMENT) << "nor the message";
}

TEST_F(Calls, TakeLimitsOfJoiners) {
    auto limits = Sized<qx_join_limits>();
    limits.seconds = -1;
    EXPECT_EQ(qx_joiner_new(&limits), nullptr);
    limits.seconds = 5;
    const Owned<qx_joiner> joiner(qx_joiner_new(&limits), qx_joiner_free);
    ASSERT_NE(joiner, nullptr);
    limits.size = 1;
    EXPECT_EQ(qx_joiner_new(&limits), nullptr);
    // The first part of two.
    Read("0044049144970004621112805103000805000301"
         "0201C834");
    const qx_joined_list* joined = nullptr;
    ASSERT_EQ(qx_joiner_add(joiner.get(), m_Reader.get(), 10, 3, &joined), QX_OK);
    EXPECT_EQ(joined->message_count, 0U);
    ASSERT_EQ(qx_joiner_expire(joiner.get(), 15, &joined), QX_OK);
    EXPECT_EQ(joined->message_count, 0U);
    ASSERT_EQ(qx_joiner_expire(joiner.get(), 16, &joined), QX_OK);
    ASSERT_EQ(joined->message_count, 1U);
    EXPECT_EQ(joined->messages[0]->outcome, QX_OUTCOME_TIMED_OUT);
    ASSERT_EQ(joined->messages[0]->gap_count, 1U);
    EXPECT_EQ(joined->messages[0]->gaps[0]->first, 2);
}

/// The first part of two, under a reference, of four octets of text.
std::string FirstPart(const std::string& reference) {
    return "00440491449700046211128051030009050003" + reference + "0201" + "C834C834";
}

TEST_F(Calls, TakeLimitsOfMessagesAndOfOctets) {
    auto messages = Sized<qx_join_limits>();
    messages.messages = 1;
    auto octets = Sized<qx_join_limits>();
    octets.octets = 15; // of the user data of one part, but not of two
    for (const qx_join_limits* const limits : {&messages, &octets}) {
        const Owned<qx_joiner> joiner(qx_joiner_new(limits), qx_joiner_free);
        const qx_joined_list* joined = nullptr;
        Read(FirstPart("01"));
        ASSERT_EQ(qx_joiner_add(joiner.get(), m_Reader.get(), 0, 0, &joined), QX_OK);
        EXPECT_EQ(joined->message_count, 0U);
        Read(FirstPart("02"));
        ASSERT_EQ(qx_joiner_add(joiner.get(), m_Reader.get(), 0, 0, &joined), QX_OK);
        ASSERT_EQ(joined->message_count, 1U);
        EXPECT_EQ(joined->messages[0]->outcome, QX_OUTCOME_DISPLACED);
    }
    messages.messages = 2;
    const Owned<qx_joiner> joiner(qx_joiner_new(&messages), qx_joiner_free);
    const qx_joined_list* joined = nullptr;
    for (const char* const reference : {"01", "02"}) {
        Read(FirstPart(reference));
        ASSERT_EQ(qx_joiner_add(joiner.get(), m_Reader.get(), 0, 0, &joined), QX_OK);
        EXPECT_EQ(joined->message_count, 0U);
    }
}

TEST_F(Calls, JoinWhatIsCutOff) {
    const qx_joined_list* joined = nullptr;
    Read(c_deliver.substr(0, 24), QX_FAULT);
    ASSERT_EQ(qx_joiner_add(m_Joiner.get(), m_Reader.get(), 0, 0, &joined), QX_OK);
    ASSERT_EQ(joined->message_count, 1U) << "before its user data: it is no part";
    EXPECT_EQ(Text(joined->messages[0]->parts[0]->message->party->written), "+447700900123");
    const std::string part = FirstPart("01");
    Read(part.substr(0, part.size() - 4)); // two octets of data are there
    ASSERT_EQ(qx_joiner_add(m_Joiner.get(), m_Reader.get(), 0, 0, &joined), QX_OK);
    EXPECT_EQ(joined->message_count, 0U);
    ASSERT_EQ(qx_joiner_finish(m_Joiner.get(), &joined), QX_OK);
    ASSERT_EQ(joined->message_count, 1U);
    EXPECT_EQ(Hex(joined->messages[0]->data), "C834");
}

TEST_F(Calls, TakeTheLimitOfAPageJoiner) {
    for (const std::size_t messages : {std::size_t{1}, std::size_t{2}}) {
        const Owned<qx_page_joiner> joiner(qx_page_joiner_new(messages), qx_page_joiner_free);
        const qx_pages_taken* taken = nullptr;
        ReadCell("402000320012C834");
        ASSERT_EQ(qx_page_joiner_take(joiner.get(), m_Reader.get(), &taken), QX_OK);
        ReadCell("403000320012C834");
        ASSERT_EQ(qx_page_joiner_take(joiner.get(), m_Reader.get(), &taken), QX_OK);
        EXPECT_EQ(taken->message_count, messages == 1 ? 1U : 0U);
    }
}

TEST_F(Calls, TakeTheTablesThatAreTold) {
    auto options = Sized<qx_cut_options>();
    options.alphabet = {true, QX_ALPHABET_GSM7};
    options.has_tables = true;
    options.locking = QX_LANGUAGE_TURKISH;
    EXPECT_EQ(Hex(Cut("a", &options)->parts[0]->octets).substr(0, 8), "03250101");
    options.locking = QX_LANGUAGE_DEFAULT;
    options.single = QX_LANGUAGE_TURKISH;
    EXPECT_EQ(Hex(Cut("a", &options)->parts[0]->octets).substr(0, 8), "03240101");
}

TEST_F(Calls, TakeTheMembersOfADraft) {
    auto draft = Sized<qx_cell_draft>();
    draft.format = QX_CELL_UMTS_MESSAGE;
    draft.message_identifier = 50;
    draft.text = {"Hi", 2};
    const qx_cell_written* written = nullptr;
    ASSERT_EQ(qx_write_cell(m_Writer.get(), &draft, &written), QX_OK);
    ASSERT_EQ(written->octets_count, 1U);
    EXPECT_EQ(written->pages, 1U);
    EXPECT_EQ(Hex(written->octets[0]).substr(0, 18), "0100320000"
                                                     "0F01C834");
    EXPECT_EQ(written->octets[0].size, 90U)
        << "type, identifiers, coding, number of pages, page and its length";
    draft.alphabet = {true, QX_ALPHABET_UCS2};
    ASSERT_EQ(qx_write_cell(m_Writer.get(), &draft, &written), QX_OK);
    EXPECT_EQ(written->coding->value, 0x48);
    draft.message_class = {true, 2};
    ASSERT_EQ(qx_write_cell(m_Writer.get(), &draft, &written), QX_OK);
    EXPECT_EQ(written->coding->value, 0x5A);
    draft.alphabet = {true, QX_ALPHABET_GSM7};
    draft.text = {"a\xD0\x96", 3};
    ASSERT_EQ(qx_write_cell(m_Writer.get(), &draft, &written), QX_FAULT);
    ASSERT_NE(written->misfit, nullptr);
    EXPECT_EQ(written->misfit->offset, 1U);
    EXPECT_EQ(written->misfit->character, 0x416U);
}

TEST_F(Calls, TakeStructuresOfOtherSizes) {
    // A caller with a header of later: more members than the library knows.
    struct {
        qx_read_options known;
        std::uint64_t later;
    } larger{Sized<qx_read_options>(), ~0ULL};
    larger.known.size = sizeof(larger);
    const qx_reading* reading = nullptr;
    EXPECT_EQ(qx_read_hex(m_Reader.get(), c_deliver.data(), c_deliver.size(), &larger.known, &reading),
              QX_OK);
    larger.known.size = sizeof(larger.known) - 1;
    EXPECT_EQ(qx_read_hex(m_Reader.get(), c_deliver.data(), c_deliver.size(), &larger.known, &reading),
              QX_ARGUMENT);
    // What is filled in keeps to what there is of it.
    struct {
        qx_timestamp known;
        std::uint64_t later;
    } filled{Sized<qx_timestamp>(), 5};
    filled.known.size = sizeof(filled);
    ASSERT_EQ(qx_make_timestamp(2026, 1, 1, 0, 0, 0, 0, &filled.known), QX_OK);
    EXPECT_EQ(filled.later, 5U);
    EXPECT_EQ(filled.known.size, sizeof(qx_timestamp));
    filled.known.size = 0;
    EXPECT_EQ(qx_make_timestamp(2026, 1, 1, 0, 0, 0, 0, &filled.known), QX_ARGUMENT);
}

/// What is handed out does not fit the first block of memory, nor the second.
TEST_F(Calls, HandOutAsMuchAsThereIs) {
    std::string many;
    for (int i = 0; i < 255; ++i)
        many += std::string(153, 'a');
    const qx_cut_text* const cut = Cut(many, nullptr);
    ASSERT_EQ(cut->part_count, 255U);
    for (std::size_t i = 0; i < 255; ++i) {
        EXPECT_EQ(cut->parts[i]->concatenation->part, i + 1);
        EXPECT_EQ(Text(cut->parts[i]->text), std::string(153, 'a'));
    }
    EXPECT_EQ(Cut("Hi", nullptr)->part_count, 1U);
}

/// One list is larger than any block of memory before it.
TEST_F(Calls, HandOutALongList) {
    std::string text;
    for (unsigned int character = 0x4E00; character < 0x4E00 + 3000; ++character)
        for (const unsigned int octet :
             {0xE0U | character >> 12U, 0x80U | (character >> 6U & 0x3FU), 0x80U | (character & 0x3FU)})
            text += static_cast<char>(octet);
    const qx_explanation* explained = nullptr;
    ASSERT_EQ(qx_explain(m_Cutter.get(), text.data(), text.size(), nullptr, &explained), QX_OK);
    ASSERT_EQ(explained->character_count, 3000U);
    EXPECT_EQ(explained->characters[0]->character, 0x4E00U);
    EXPECT_EQ(explained->characters[2999]->character, 0x4E00U + 2999);
    EXPECT_EQ(explained->characters[2999]->offset, 3U * 2999);
}

TEST(ResultText, IsThereForEachResult) {
    EXPECT_STREQ(qx_result_text(QX_OK), "done");
    EXPECT_STREQ(qx_result_text(QX_NO_MEMORY), "there was no memory");
    EXPECT_STRNE(qx_result_text(QX_FAULT), "");
    EXPECT_STRNE(qx_result_text(QX_ARGUMENT), "");
    EXPECT_STREQ(qx_result_text(4), "");
    EXPECT_STREQ(qx_result_text(-1), "");
    EXPECT_EQ(std::string(qx_version()).rfind("1.", 0), 0U);
}

} // namespace
