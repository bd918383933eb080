// The extension of SQLite: registers the functions with a connection.
#include <cstddef>
#include <memory>
#include <new>
#include <utility>

#include "sql/functions/Functions.h"
#include "sql/sqlite/Api.h"
#include "sql/sqlite/FieldTable.h"

SQLITE_EXTENSION_INIT1

namespace sql {

namespace {

/// What a connection holds for its functions. One thread at a time uses a connection.
struct Connection {
    PduReader reader;
};

/// A function as it is registered, with what it is called with.
template <class Function>
struct Registered {
    Function function;
    std::shared_ptr<Connection> connection;

    PduReader& Reader() const { return connection->reader; }
};

template <class Function>
const Registered<Function>& RegisteredOf(sqlite3_context* context) {
    return *static_cast<const Registered<Function>*>(sqlite3_user_data(context));
}

using ErrorFunction = Value (*)(PduReader& reader, const Given& given, std::string_view options);

Value CallBroadcastError(PduReader&, const Given& given, std::string_view format) {
    return BroadcastErrorOf(given, format);
}

Value ValueOf(const Registered<MessageFunction>& one, const Given& given, std::string_view options) {
    return Call(one.function, one.Reader(), given, options);
}

Value ValueOf(const Registered<BroadcastFunction>& one, const Given& given, std::string_view format) {
    return Call(one.function, given, format);
}

Value ValueOf(const Registered<ErrorFunction>& one, const Given& given, std::string_view options) {
    return one.function(one.Reader(), given, options);
}

/// A function of a PDU, or of a page, and its options.
template <class Function>
void CallScalar(sqlite3_context* context, int count, sqlite3_value** arguments) {
    Guarded(context, [&] {
        if (const std::optional<Question> question = QuestionIn(arguments, count > 1))
            SetResult(context, ValueOf(RegisteredOf<Function>(context), question->given, question->options));
    });
}

void CallEncode(sqlite3_context* context, int count, sqlite3_value** arguments) {
    Guarded(context, [&] {
        const std::optional<std::string_view> number = TextIn(arguments[0]);
        const std::optional<std::string_view> text = TextIn(arguments[1]);
        const std::optional<std::int64_t> reference = count > 2 ? NumberIn(arguments[2]) : std::nullopt;
        if (number && text && (count == 2 || reference))
            SetResult(context, Encode(*number, *text, reference));
    });
}

/// Of a group. SQLite has room for it, zeros at first.
struct Group {
    JoinedText* joined;
};

Group* GroupIn(sqlite3_context* context, bool isBegun) {
    return static_cast<Group*>(sqlite3_aggregate_context(context, isBegun ? sizeof(Group) : 0));
}

/// An aggregate has no function of its own to call.
using NoFunction = std::nullptr_t;

void StepJoin(sqlite3_context* context, int count, sqlite3_value** arguments) {
    Guarded(context, [&] {
        const std::optional<Question> question = QuestionIn(arguments, count > 1);
        Group* const group = GroupIn(context, true);
        if (group == nullptr)
            throw std::bad_alloc();
        if (group->joined == nullptr)
            group->joined = new JoinedText();
        if (!question)
            return;
        PduReader& reader = RegisteredOf<NoFunction>(context).Reader();
        if (const auto* message = reader.Read(question->given, question->options))
            group->joined->Add(*message);
    });
}

void FinishJoin(sqlite3_context* context) {
    Group* const group = GroupIn(context, false);
    if (group == nullptr || group->joined == nullptr)
        return; // without rows
    const std::unique_ptr<JoinedText> joined(std::exchange(group->joined, nullptr));
    Guarded(context, [&] { SetResult(context, joined->Finish()); });
}

constexpr int c_flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;

/// Registers functions until one cannot be.
class Registrar {
public:
    explicit Registrar(sqlite3* database)
        : m_Database(database), m_Connection(std::make_shared<Connection>()) {}

    template <class Function>
    void AddScalar(const char* name, Function function) {
        for (const int count : {1, 2})
            Add(name, count, function, CallScalar<Function>, nullptr, nullptr);
    }

    void AddEncode() {
        for (const int count : {2, 3})
            Add<NoFunction>("sms_encode", count, nullptr, CallEncode, nullptr, nullptr);
    }

    void AddJoin() {
        for (const int count : {1, 2})
            Add<NoFunction>("sms_join", count, nullptr, nullptr, StepJoin, FinishJoin);
    }

    int Result() const { return m_Result; }

private:
    using Called = void (*)(sqlite3_context*, int, sqlite3_value**);

    template <class Function>
    void Add(const char* name, int count, Function function, Called call, Called step,
             void (*finish)(sqlite3_context*)) {
        if (m_Result != SQLITE_OK)
            return;
        auto registered =
            std::make_unique<Registered<Function>>(Registered<Function>{function, m_Connection});
        const auto destroy = [](void* one) { delete static_cast<Registered<Function>*>(one); };
        // What cannot be registered is destroyed by SQLite as well.
        m_Result = sqlite3_create_function_v2(m_Database, name, count, c_flags, registered.release(), call,
                                              step, finish, destroy);
    }

    sqlite3* m_Database;
    std::shared_ptr<Connection> m_Connection;
    int m_Result = SQLITE_OK;
};

int Register(sqlite3* database) {
    Registrar registrar(database);
    for (const MessageFunction& function : c_messageFunctions)
        registrar.AddScalar(function.name, function);
    for (const BroadcastFunction& function : c_broadcastFunctions)
        registrar.AddScalar(function.name, function);
    registrar.AddScalar<ErrorFunction>("sms_error", ErrorOf);
    registrar.AddScalar<ErrorFunction>("cbs_error", CallBroadcastError);
    registrar.AddEncode();
    registrar.AddJoin();
    return registrar.Result() == SQLITE_OK ? RegisterFieldTable(database) : registrar.Result();
}

} // namespace

} // namespace sql

/// The name that SQLite makes of the file's.
extern "C" SQL_API int sqlite3_qxmessagessqlite_init(sqlite3* database, char**,
                                                     const sqlite3_api_routines* routines) {
    SQLITE_EXTENSION_INIT2(routines);
    const int result = sql::Coded([&] { return sql::Register(database); });
    // Stays for other connections, which may be opening now.
    return result == SQLITE_OK ? SQLITE_OK_LOAD_PERMANENTLY : result;
}
