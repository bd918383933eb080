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

int main(void) {
    char line[1024];
    qx_reader* reader = qx_reader_new();
    qx_joiner* joiner = qx_joiner_new(NULL);
    const qx_joined_list* joined;
    while (fgets(line, sizeof line, stdin) != NULL) {
        const qx_reading* reading;
        /* The clock is 0: nothing is given up for its age. */
        if (qx_read_hex(reader, line, strcspn(line, "\r\n"), NULL, &reading) == QX_OK &&
            qx_joiner_add(joiner, reader, 0, 0, &joined) == QX_OK)
            show(joined);
    }
    if (qx_joiner_finish(joiner, &joined) == QX_OK)
        show(joined);
    qx_joiner_free(joiner);
    qx_reader_free(reader);
    return 0;
}
