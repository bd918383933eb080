/* What a program in C does with the library: its header is C99, and what it declares can be called. */
#include <stdio.h>
#include <string.h>

#include "Messages/qx_messages.h"

static int failures = 0;

static void check(bool holds, const char* what) {
    if (!holds) {
        printf("not so: %s\n", what);
        ++failures;
    }
}

static bool is_text(qx_text text, const char* expected) {
    return text.size == strlen(expected) && strcmp(text.data, expected) == 0;
}

static void read_a_message(void) {
    static const uint8_t octets[] = {0x00, 0x04, 0x0C, 0x91, 0x44, 0x77, 0x00, 0x09, 0x10, 0x32, 0x00,
                                     0x00, 0x62, 0x11, 0x12, 0x80, 0x51, 0x03, 0x00, 0x02, 0xC8, 0x34};
    qx_read_options options = {.size = sizeof options};
    const qx_reading* reading;
    qx_reader* reader = qx_reader_new();
    options.service_centre = QX_PRESENCE_YES;
    check(qx_read(reader, octets, sizeof octets, &options, &reading) == QX_OK, "it can be read");
    check(reading->message->type == QX_TYPE_DELIVER, "it is an SMS-DELIVER");
    check(is_text(reading->message->party->written, "+447700900123"), "the originator");
    check(is_text(reading->message->user_data->text, "Hi"), "the text");
    qx_reader_free(reader);
}

static void write_a_message(void) {
    static const uint8_t expected[] = {0x01, 0x00, 0x04, 0x91, 0x44, 0x97, 0x00, 0x00, 0x02, 0xC8, 0x34};
    const qx_made* to;
    const qx_cut_text* cut;
    const qx_written* written;
    qx_message message = {.size = sizeof message};
    qx_maker* maker = qx_maker_new();
    qx_cutter* cutter = qx_cutter_new();
    qx_writer* writer = qx_writer_new();
    check(qx_make_number(maker, "+4479", 5, &to) == QX_OK, "a number");
    check(qx_cut(cutter, "Hi", 2, NULL, &cut) == QX_OK && cut->part_count == 1, "one part");
    message.type = QX_TYPE_SUBMIT;
    message.party = to->address;
    message.coding = cut->coding;
    message.user_data = cut->parts[0];
    check(qx_write(writer, &message, NULL, &written) == QX_OK, "it can be written");
    check(written->octets.size == sizeof expected && memcmp(written->octets.data, expected, sizeof expected) == 0,
          "the octets");
    check(written->tpdu_octets == sizeof expected, "their number");
    qx_writer_free(writer);
    qx_cutter_free(cutter);
    qx_maker_free(maker);
}

static void join_pages(void) {
    const qx_cell_reading* page;
    const qx_pages_taken* taken;
    qx_reader* reader = qx_reader_new();
    qx_page_joiner* joiner = qx_page_joiner_new(0);
    check(qx_read_cell_hex(reader, "402000320111C834", 16, QX_CELL_GSM_PAGE, &page) == QX_OK, "a page");
    check(is_text(page->text, "Hi"), "the text of a page");
    check(qx_page_joiner_take(joiner, reader, &taken) == QX_OK && taken->message_count == 1, "a whole message");
    qx_page_joiner_free(joiner);
    qx_reader_free(reader);
}

int main(void) {
    qx_timestamp time = {.size = sizeof time};
    char text[26];
    read_a_message();
    write_a_message();
    join_pages();
    check(qx_make_timestamp(2026, 11, 21, 8, 15, 30, 4, &time) == QX_OK, "a time");
    check(qx_timestamp_text(&time, text, sizeof text) == 25 && strcmp(text, "2026-11-21T08:15:30+01:00") == 0,
          "its text");
    check(strcmp(qx_language_name(QX_LANGUAGE_TURKISH), "Turkish") == 0, "a name");
    check(strcmp(qx_result_text(QX_OK), "done") == 0, "a result");
    printf("%d failures\n", failures);
    return failures != 0;
}
