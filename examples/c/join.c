/* PDUs in hexadecimal, one a line of standard input, that are parts of long messages in any order: the messages. */
#include <stdio.h>
#include <string.h>

#include "Messages/qx_messages.h"

static void show(const qx_joined_list* list) {
    size_t i;
    for (i = 0; i < list->message_count; ++i) {
        const qx_joined* joined = list->messages[i];
        const qx_address* from = joined->parts[0]->message->party;
        printf("%s: ", from != NULL ? from->written.data : "-");
        fwrite(joined->text.data, 1, joined->text.size, stdout);
        if (joined->part_count < joined->total)
            printf(" (%u of %u parts: %s)", (unsigned)joined->part_count, (unsigned)joined->total,
                   qx_join_outcome_meaning(joined->outcome));
        printf("\n");
    }
}

/* What can be read is added; the rest is passed over. */
static qx_result add(qx_joiner* joiner, qx_reader* reader, const char* line) {
    const qx_reading* reading;
    const qx_joined_list* joined;
    qx_result result = qx_read_hex(reader, line, strcspn(line, "\r\n"), NULL, &reading);
    if (result == QX_FAULT)
        return QX_OK;
    /* The clock is 0: nothing is given up for its age. */
    if (result == QX_OK && (result = qx_joiner_add(joiner, reader, 0, 0, &joined)) == QX_OK)
        show(joined);
    return result;
}

static qx_result join(qx_joiner* joiner, qx_reader* reader) {
    char line[1024];
    const qx_joined_list* joined;
    qx_result result = QX_OK;
    while (result == QX_OK && fgets(line, sizeof line, stdin) != NULL)
        result = add(joiner, reader, line);
    if (result == QX_OK && (result = qx_joiner_finish(joiner, &joined)) == QX_OK)
        show(joined);
    return result;
}

int main(void) {
    qx_reader* reader = qx_reader_new();
    qx_joiner* joiner = qx_joiner_new(NULL);
    qx_result result = reader != NULL && joiner != NULL ? join(joiner, reader) : QX_NO_MEMORY;
    if (result != QX_OK)
        fprintf(stderr, "%s\n", qx_result_text(result));
    qx_joiner_free(joiner);
    qx_reader_free(reader);
    return result != QX_OK;
}
