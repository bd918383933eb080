/* The functions as the server calls them. */
#include "postgres.h"

#include "access/detoast.h"
#include "catalog/namespace.h"
#include "catalog/pg_type.h"
#include "fmgr.h"
#include "mb/pg_wchar.h"
#include "miscadmin.h"
#include "utils/array.h"
#include "utils/builtins.h"
#include "utils/memutils.h"

#include "sql/postgresql/Wall.h"

PG_MODULE_MAGIC;

static const qx_view c_none = {"", 0};

/* Whether the server's texts are in UTF-8, or in whatever encoding, SQL_ASCII, in which they stay in it. */
static bool
keeps_utf8(void)
{
    return GetDatabaseEncoding() == PG_UTF8 || GetDatabaseEncoding() == PG_SQL_ASCII;
}

/* A text in the server's encoding; null where that lacks a character of it. */
static struct varlena*
converted_of(struct varlena* text)
{
    const int size = (int) VARSIZE(text) - VARHDRSZ;
    const int room = size * MAX_CONVERSION_GROWTH + 1;
    const Oid conversion = FindDefaultConversionProc(PG_UTF8, GetDatabaseEncoding());
    struct varlena* converted;
    int taken;

    if (!OidIsValid(conversion))
        return NULL;
    converted = palloc(VARHDRSZ + (Size) room);
    taken = pg_do_encoding_conversion_buf(conversion, PG_UTF8, GetDatabaseEncoding(), (unsigned char*) VARDATA(text), size,
                                          (unsigned char*) VARDATA(converted), room, true);
    if (taken < size)
        return NULL;
    SET_VARSIZE(converted, VARHDRSZ + strlen(VARDATA(converted)));
    return converted;
}

/* What is handed out becomes the server's, and is freed before the server can be left by an error. */
static Datum
take(qx_value value, FunctionCallInfo fcinfo)
{
    struct varlena* text = NULL;
    char* misuse = NULL;

    if (value.kind == QX_NULL)
        PG_RETURN_NULL();
    if (value.kind == QX_NUMBER)
        PG_RETURN_INT32((int32) value.number);
    if (value.kind == QX_TEXT) {
        text = palloc_extended(VARHDRSZ + value.size, MCXT_ALLOC_NO_OOM);
        if (text != NULL) {
            SET_VARSIZE(text, VARHDRSZ + value.size);
            memcpy(VARDATA(text), value.text, value.size);
        }
    } else if (value.kind == QX_MISUSE) {
        misuse = palloc_extended(value.size + 1, MCXT_ALLOC_NO_OOM);
        if (misuse != NULL) {
            memcpy(misuse, value.text, value.size);
            misuse[value.size] = '\0';
        }
    }
    free(value.text);
    if (misuse != NULL)
        ereport(ERROR, (errcode(ERRCODE_INVALID_PARAMETER_VALUE),
                        errmsg("%s", pg_any_to_server(misuse, (int) value.size, PG_UTF8))));
    if (text == NULL)
        ereport(ERROR, (errcode(ERRCODE_OUT_OF_MEMORY), errmsg("out of memory")));
    if (!keeps_utf8())
        text = converted_of(text);
    if (text == NULL)
        PG_RETURN_NULL();
    PG_RETURN_TEXT_P(text);
}

static qx_view
view_of(const struct varlena* packed)
{
    const qx_view view = {VARDATA_ANY(packed), VARSIZE_ANY_EXHDR(packed)};

    return view;
}

/* An argument that is text, in UTF-8. */
static qx_view
utf8_of(const struct varlena* packed)
{
    qx_view view = view_of(packed);

    if (GetDatabaseEncoding() != PG_UTF8) {
        view.data = pg_server_to_any(view.data, (int) view.size, PG_UTF8);
        if (view.data != VARDATA_ANY(packed))
            view.size = strlen(view.data);
    }
    return view;
}

/* A PDU or a page. Of content that is too long only the length is asked for. */
static qx_given
given_of(Datum datum, bool is_text)
{
    qx_given given = {{NULL, toast_raw_datum_size(datum) - VARHDRSZ}, is_text};

    if (!qx_is_too_long(given.content.size, is_text))
        given.content = view_of(PG_DETOAST_DATUM_PACKED(datum));
    return given;
}

static Datum
run(const qx_function* function, bool is_text, FunctionCallInfo fcinfo)
{
    const qx_given given = given_of(PG_GETARG_DATUM(0), is_text);
    const qx_view options = PG_NARGS() > 1 ? utf8_of((struct varlena*) PG_GETARG_TEXT_PP(1)) : c_none;

    return take(qx_call(function, given, options), fcinfo);
}

/* A function is looked for once in a statement. */
static Datum
call(const char* name, bool is_text, FunctionCallInfo fcinfo)
{
    if (fcinfo->flinfo->fn_extra == NULL)
        fcinfo->flinfo->fn_extra = (void*) qx_find(name);
    return run((const qx_function*) fcinfo->flinfo->fn_extra, is_text, fcinfo);
}

/* Why there is no message; or that the server's encoding lacks a character of what the object has, so that other functions
 * give null. */
static Datum
call_error(const char* name, const char* object, bool is_text, FunctionCallInfo fcinfo)
{
    const Datum error = call(name, is_text, fcinfo);

    if (!fcinfo->isnull || keeps_utf8())
        return error;
    fcinfo->isnull = false;
    run(qx_find(object), is_text, fcinfo);
    if (!fcinfo->isnull)
        PG_RETURN_NULL();
    fcinfo->isnull = false;
    PG_RETURN_TEXT_P(cstring_to_text(
        psprintf("it has a character that the encoding of the database, %s, lacks", GetDatabaseEncodingName())));
}

/* One function of a bytea, and one of text. */
#define QX_FUNCTIONS_THAT(name, action)           \
    PG_FUNCTION_INFO_V1(name##_octets);           \
    PG_FUNCTION_INFO_V1(name##_digits);           \
    Datum name##_octets(PG_FUNCTION_ARGS)         \
    {                                             \
        const bool is_text = false;               \
        return action;                            \
    }                                             \
    Datum name##_digits(PG_FUNCTION_ARGS)         \
    {                                             \
        const bool is_text = true;                \
        return action;                            \
    }                                             \
    extern int name##_ends_here

#define QX_FUNCTIONS(name) QX_FUNCTIONS_THAT(name, call(#name, is_text, fcinfo))
#define QX_ERRORS(kind) QX_FUNCTIONS_THAT(kind##_error, call_error(#kind "_error", #kind "_json", is_text, fcinfo))

QX_FUNCTIONS(sms_text);
QX_FUNCTIONS(sms_address);
QX_FUNCTIONS(sms_time);
QX_FUNCTIONS(sms_type);
QX_FUNCTIONS(sms_reference);
QX_FUNCTIONS(sms_part);
QX_FUNCTIONS(sms_parts);
QX_FUNCTIONS(sms_json);
QX_FUNCTIONS(sms_remarks);
QX_ERRORS(sms);
QX_FUNCTIONS(sms_fields);
QX_FUNCTIONS(cbs_text);
QX_FUNCTIONS(cbs_json);
QX_ERRORS(cbs);

PG_FUNCTION_INFO_V1(sms_encode_json);
Datum
sms_encode_json(PG_FUNCTION_ARGS)
{
    const qx_view number = utf8_of((struct varlena*) PG_GETARG_TEXT_PP(0));
    const qx_view message = utf8_of((struct varlena*) PG_GETARG_TEXT_PP(1));
    const int64_t reference = PG_NARGS() > 2 ? PG_GETARG_INT32(2) : 0;

    return take(qx_encode(number, message, PG_NARGS() > 2 ? &reference : NULL), fcinfo);
}

/* A group may be left by an error, or because the statement is cancelled: then the server ends it. */
static Datum
join(bool are_text, FunctionCallInfo fcinfo)
{
    Datum* elements;
    bool* nulls;
    int count;
    qx_value value = {QX_NULL};
    MemoryContextCallback* const ending = palloc0(sizeof(*ending));

    deconstruct_array(PG_GETARG_ARRAYTYPE_P(0), are_text ? TEXTOID : BYTEAOID, -1, false, TYPALIGN_INT, &elements,
                      &nulls, &count);
    ending->func = qx_end_group;
    ending->arg = qx_begin_group();
    if (ending->arg == NULL)
        ereport(ERROR, (errcode(ERRCODE_OUT_OF_MEMORY), errmsg("out of memory")));
    MemoryContextRegisterResetCallback(CurrentMemoryContext, ending);
    for (int i = 0; i < count && value.kind == QX_NULL; i++) {
        CHECK_FOR_INTERRUPTS();
        if (!nulls[i])
            value = qx_add_to_group(ending->arg, given_of(elements[i], are_text));
    }
    if (value.kind == QX_NULL)
        value = qx_finish_group(ending->arg);
    qx_end_group(ending->arg);
    ending->arg = NULL;
    return take(value, fcinfo);
}

PG_FUNCTION_INFO_V1(sms_join_octets);
Datum
sms_join_octets(PG_FUNCTION_ARGS)
{
    return join(false, fcinfo);
}

PG_FUNCTION_INFO_V1(sms_join_digits);
Datum
sms_join_digits(PG_FUNCTION_ARGS)
{
    return join(true, fcinfo);
}
