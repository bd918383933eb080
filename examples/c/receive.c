/* PDUs in hexadecimal, one a line of standard input: who sent what, and what is unusual about it. */
#include <stdio.h>
#include <string.h>

#include "Messages/qx_messages.h"

static void show(const qx_reading* reading) {
    const qx_message* message = reading->message;
    size_t i;
    if (reading->fault != NULL) {
        printf("%s: %s\n", reading->fault->name.data, reading->fault->meaning.data);
        return;
    }
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
    for (i = 0; i < reading->remark_count; ++i)
        printf("  octet %u: %s\n", (unsigned)reading->remarks[i]->octet, reading->remarks[i]->meaning.data);
}

int main(void) {
    char line[1024];
    qx_reader* reader = qx_reader_new();
    if (reader == NULL)
        return 1;
    while (fgets(line, sizeof line, stdin) != NULL) {
        const qx_reading* reading;
        const qx_result result = qx_read_hex(reader, line, strcspn(line, "\r\n"), NULL, &reading);
        if (reading == NULL) {
            fprintf(stderr, "%s\n", qx_result_text(result));
            break;
        }
        show(reading);
    }
    qx_reader_free(reader);
    return 0;
}
