/* PDUs in hexadecimal, one a line of standard input: who sent what, what is unusual about it, and where each field stands. */
#include <stdio.h>
#include <string.h>

#include "Messages/qx_messages.h"

/* A field's digits, or of a field that has only some bits of an octet these bits. */
static void show_place(const qx_place* place, const char* digits) {
    printf("  %3u ", (unsigned)place->octet);
    if (place->mask == 0xFF)
        printf("%.*s", (int)(2 * place->count), digits + 2 * place->octet);
    else
        printf("%.*s & %02X", (int)(2 * place->count), digits + 2 * place->octet, (unsigned)place->mask);
    printf("  %s, %s\n", qx_field_name(place->field), qx_field_description(place->field));
}

static void show_message(const qx_message* message) {
    printf("%s", qx_type_name(message->type));
    if (message->party != NULL)
        printf(" %s", message->party->written.data);
    if (message->timestamp != NULL) {
        char time[26];
        qx_timestamp_text(message->timestamp, time, sizeof time);
        printf(" %s", time);
    }
    if (message->user_data != NULL) { /* a text may hold NUL, so that its length counts */
        printf(": ");
        fwrite(message->user_data->text.data, 1, message->user_data->text.size, stdout);
    }
    printf("\n");
}

static void show(const qx_reading* reading, const char* digits) {
    size_t i;
    if (reading->fault != NULL)
        printf("%s: %s\n", reading->fault->name.data, reading->fault->meaning.data);
    else
        show_message(reading->message);
    for (i = 0; i < reading->remark_count; ++i)
        printf("  octet %u: %s\n", (unsigned)reading->remarks[i]->octet, reading->remarks[i]->meaning.data);
    for (i = 0; i < reading->place_count; ++i)
        show_place(reading->places[i], digits);
}

int main(void) {
    char line[1024];
    qx_reader* reader = qx_reader_new();
    qx_result result = reader != NULL ? QX_OK : QX_NO_MEMORY;
    while (result == QX_OK && fgets(line, sizeof line, stdin) != NULL) {
        const qx_reading* reading;
        result = qx_read_hex(reader, line, strcspn(line, "\r\n"), NULL, &reading);
        if (reading != NULL) {
            show(reading, line);
            result = QX_OK; /* a fault is the message's */
        }
    }
    if (result != QX_OK)
        fprintf(stderr, "%s\n", qx_result_text(result));
    qx_reader_free(reader);
    return result != QX_OK;
}
