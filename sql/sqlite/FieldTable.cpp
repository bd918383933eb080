#include "sql/sqlite/FieldTable.h"

#include <cstddef>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "sql/functions/Functions.h"
#include "sql/functions/Reader.h"

namespace sql {

namespace {

/// Inside a subquery, what is given is first looked for among these names: hidden ones are nobody else's.
constexpr const char* c_declaration =
    "CREATE TABLE x(name TEXT, value, meaning TEXT, octet INTEGER, length INTEGER, mask INTEGER, "
    "_pdu HIDDEN, _options HIDDEN)";

enum Column : int { Name, FieldValue, Meaning, Octet, Length, Mask, GivenPdu, GivenOptions };

/// Of xBestIndex: which of the arguments are told.
constexpr int c_hasPdu = 1;
constexpr int c_hasOptions = 2;
constexpr int c_isNullNone = 4; ///< by IS, of which NULL says that there are no options

struct Table : sqlite3_vtab {};

struct FreeValue {
    void operator()(sqlite3_value* value) const { sqlite3_value_free(value); }
};
using OwnValue = std::unique_ptr<sqlite3_value, FreeValue>;

struct Cursor : sqlite3_vtab_cursor {
    PduReader reader;
    std::vector<FieldRow> rows;
    OwnValue pdu;     ///< as it was given, where there are rows
    OwnValue options; ///< none where they were not given
    std::size_t row = 0;
};

Cursor& CursorOf(sqlite3_vtab_cursor* cursor) {
    return static_cast<Cursor&>(*cursor);
}

int Connect(sqlite3* database, void*, int, const char* const*, sqlite3_vtab** table, char**) {
    return Coded([&] {
        if (const int result = sqlite3_declare_vtab(database, c_declaration); result != SQLITE_OK)
            return result;
        sqlite3_vtab_config(database, SQLITE_VTAB_INNOCUOUS);
        *table = new Table{};
        return SQLITE_OK;
    });
}

int Disconnect(sqlite3_vtab* table) {
    delete static_cast<Table*>(table);
    return SQLITE_OK;
}

/// A plan has the arguments, or there is none; they are given in the order of their columns.
int FindPlan(sqlite3_vtab*, sqlite3_index_info* info) {
    int places[] = {-1, -1}; // of the constraints on the two arguments
    for (int i = 0; i < info->nConstraint; ++i) {
        const auto& constraint = info->aConstraint[i];
        const bool isGiven =
            constraint.op == SQLITE_INDEX_CONSTRAINT_EQ || constraint.op == SQLITE_INDEX_CONSTRAINT_IS;
        if (!isGiven || constraint.iColumn < GivenPdu)
            continue;
        if (!constraint.usable)
            return SQLITE_CONSTRAINT;
        places[constraint.iColumn - GivenPdu] = i;
    }
    int next = 0;
    for (const int place : places) {
        if (place < 0)
            continue;
        info->aConstraintUsage[place].argvIndex = ++next;
        info->aConstraintUsage[place].omit = 1;
    }
    constexpr double c_rows = 15; // about as many as a message has fields
    info->idxNum = (places[0] < 0 ? 0 : c_hasPdu) | (places[1] < 0 ? 0 : c_hasOptions);
    if (places[1] >= 0 && info->aConstraint[places[1]].op == SQLITE_INDEX_CONSTRAINT_IS)
        info->idxNum |= c_isNullNone;
    info->estimatedCost = c_rows;
    info->estimatedRows = static_cast<sqlite3_int64>(c_rows);
    return SQLITE_OK;
}

int Open(sqlite3_vtab*, sqlite3_vtab_cursor** cursor) {
    return Coded([&] {
        *cursor = new Cursor();
        return SQLITE_OK;
    });
}

int Close(sqlite3_vtab_cursor* cursor) {
    delete &CursorOf(cursor);
    return SQLITE_OK;
}

OwnValue Copied(sqlite3_value* value) {
    OwnValue copy(sqlite3_value_dup(value));
    if (copy == nullptr)
        throw std::bad_alloc();
    return copy;
}

void Fill(Cursor& cursor, int plan, sqlite3_value** arguments) {
    cursor.rows.clear();
    cursor.row = 0;
    if ((plan & c_hasPdu) == 0)
        throw Misuse(
            "sms_fields() takes a PDU; where that is a column of another table, and named as one of its "
            "own, the table's name comes first");
    const bool isNone = (plan & c_isNullNone) != 0 && sqlite3_value_type(arguments[1]) == SQLITE_NULL;
    const bool hasOptions = (plan & c_hasOptions) != 0 && !isNone;
    const std::optional<Question> question = QuestionIn(arguments, hasOptions);
    const show::Message* const message =
        question ? cursor.reader.Read(question->given, question->options) : nullptr;
    if (message == nullptr)
        return;
    cursor.pdu = Copied(arguments[0]);
    cursor.options = hasOptions ? Copied(arguments[1]) : nullptr;
    cursor.rows = FieldRowsOf(*message);
}

int Filter(sqlite3_vtab_cursor* cursor, int plan, const char*, int, sqlite3_value** arguments) {
    return Coded([&] {
        try {
            Fill(CursorOf(cursor), plan, arguments);
        } catch (const Misuse& misuse) {
            cursor->pVtab->zErrMsg = sqlite3_mprintf("%s", misuse.what());
            return SQLITE_ERROR;
        }
        return SQLITE_OK;
    });
}

int Next(sqlite3_vtab_cursor* cursor) {
    ++CursorOf(cursor).row;
    return SQLITE_OK;
}

int IsAtEnd(sqlite3_vtab_cursor* cursor) {
    return CursorOf(cursor).row >= CursorOf(cursor).rows.size() ? 1 : 0;
}

Value CellOf(const FieldRow& row, int column) {
    switch (column) {
    case Name:
        return std::string(row.name);
    case FieldValue:
        return row.value;
    case Meaning:
        return row.meaning.empty() ? Value() : row.meaning;
    case Octet:
        return std::int64_t{row.octet};
    case Length:
        return std::int64_t{row.length};
    default:
        return std::int64_t{row.mask};
    }
}

/// A statement may compare the arguments with something else as well.
void GiveArgument(const OwnValue& value, sqlite3_context* context) {
    if (value == nullptr)
        sqlite3_result_null(context);
    else
        sqlite3_result_value(context, value.get());
}

int GiveCell(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column) {
    const Cursor& at = CursorOf(cursor);
    return Coded([&] {
        if (column == GivenPdu || column == GivenOptions)
            GiveArgument(column == GivenPdu ? at.pdu : at.options, context);
        else
            SetResult(context, CellOf(at.rows[at.row], column));
        return SQLITE_OK;
    });
}

int GiveRowNumber(sqlite3_vtab_cursor* cursor, sqlite3_int64* number) {
    *number = static_cast<sqlite3_int64>(CursorOf(cursor).row);
    return SQLITE_OK;
}

/// Without xCreate it is there by its name alone, and no table can be made of it.
constexpr sqlite3_module ModuleOf() {
    sqlite3_module module{};
    module.xConnect = Connect;
    module.xDisconnect = Disconnect;
    module.xBestIndex = FindPlan;
    module.xOpen = Open;
    module.xClose = Close;
    module.xFilter = Filter;
    module.xNext = Next;
    module.xEof = IsAtEnd;
    module.xColumn = GiveCell;
    module.xRowid = GiveRowNumber;
    return module;
}

constexpr sqlite3_module c_module = ModuleOf();

} // namespace

int RegisterFieldTable(sqlite3* database) {
    return sqlite3_create_module_v2(database, "sms_fields", &c_module, nullptr, nullptr);
}

} // namespace sql
