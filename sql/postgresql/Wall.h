/* What the glue to the server calls. The server leaves a C function by a jump, which no object of C++ may
 * see: so nothing here calls the server, no exception gets out, and what is handed out is plain memory, freed
 * by the caller before it calls the server, or by the server once the caller is left. */
#ifndef SQL_WALL_H
#define SQL_WALL_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef enum { QX_NULL, QX_NUMBER, QX_TEXT, QX_MISUSE, QX_NO_MEMORY } qx_kind;

/* Of QX_TEXT the text, of QX_MISUSE what is wrong, both in UTF-8 and without NUL, to be given to free(). */
typedef struct {
    qx_kind kind;
    int64_t number;
    char* text;
    size_t size;
} qx_value;

typedef struct {
    const char* data;
    size_t size;
} qx_view;

/* Octets, or text that is to be hexadecimal digits. */
typedef struct {
    qx_view content;
    bool is_text;
} qx_given;

/* Whether so many octets of content are too long to be read; `data` may be null then. */
bool qx_is_too_long(size_t size, bool is_text);

/* A function by its name in SQL, sms_text and the like; sms_fields gives an array of JSON. It is never freed;
 * null where there is no such function. */
typedef struct qx_function qx_function;
const qx_function* qx_find(const char* name);

qx_value qx_call(const qx_function* function, qx_given given, qx_view options);

/* sms_encode; `reference` may be null. */
qx_value qx_encode(qx_view number, qx_view text, const int64_t* reference);

/* sms_join of a group: begun, which gives null where there is no memory; given each PDU, which is QX_NULL
 * unless something is wrong; finished; and ended, which takes null as well. */
typedef struct qx_group qx_group;
qx_group* qx_begin_group(void);
qx_value qx_add_to_group(qx_group* group, qx_given given);
qx_value qx_finish_group(qx_group* group);
void qx_end_group(void* group);

#ifdef __cplusplus
}
#endif

#endif
