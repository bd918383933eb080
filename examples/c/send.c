/* A text for a number, as many SMS-SUBMIT as it takes, as a modem is told: send NUMBER TEXT */
#include <stdio.h>
#include <string.h>

#include "Messages/qx_messages.h"

static void show(const qx_written* written) {
    size_t i;
    printf("AT+CMGS=%u\n", (unsigned)written->tpdu_octets);
    for (i = 0; i < written->octets.size; ++i)
        printf("%02X", written->octets.data[i]);
    printf("\n");
}

/* The text's parts, each with the modem's own service centre. */
static qx_result send(qx_writer* writer, const qx_address* to, const qx_cut_text* cut) {
    const qx_address service_centre = {.size = sizeof service_centre, .type_of_address = 0x80};
    size_t i;
    for (i = 0; i < cut->part_count; ++i) {
        const qx_message message = {.size = sizeof message,
                                    .type = QX_TYPE_SUBMIT,
                                    .party = to,
                                    .coding = cut->coding,
                                    .user_data = cut->parts[i]};
        const qx_written* written;
        const qx_result result = qx_write(writer, &message, &service_centre, &written);
        if (result != QX_OK) {
            fprintf(stderr, "%s\n", written != NULL ? written->fault->meaning.data : qx_result_text(result));
            return result;
        }
        show(written);
    }
    return QX_OK;
}

int main(int argc, char** argv) {
    const qx_cut_options options = {.size = sizeof options,
                                    .languages = 1 << QX_LANGUAGE_TURKISH | 1 << QX_LANGUAGE_SPANISH,
                                    .replaces_near = true,
                                    .has_reference = true, /* a random one where it is not told */
                                    .reference = 42};
    const qx_made* to;
    const qx_cut_text* cut;
    qx_maker* maker = qx_maker_new();
    qx_cutter* cutter = qx_cutter_new();
    qx_writer* writer = qx_writer_new();
    qx_result result = QX_ARGUMENT;
    if (argc != 3)
        fprintf(stderr, "usage: send NUMBER TEXT\n");
    else if ((result = qx_make_number(maker, argv[1], strlen(argv[1]), &to)) != QX_OK)
        fprintf(stderr, "%s: %s\n", argv[1], result == QX_FAULT ? "no number" : qx_result_text(result));
    else if ((result = qx_cut(cutter, argv[2], strlen(argv[2]), &options, &cut)) != QX_OK)
        fprintf(stderr, "%s\n", cut != NULL ? cut->fault->meaning.data : qx_result_text(result));
    else
        result = send(writer, to->address, cut);
    qx_writer_free(writer);
    qx_cutter_free(cutter);
    qx_maker_free(maker);
    return result != QX_OK;
}
