// The vectors through SQLite, in SQL.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "sql/Database.h"
#include "support/Command.h"

namespace {

using tests::Database;

/// A connection with the table vectors(line).
class SqliteVectors : public testing::Test {
protected:
    SqliteVectors() {
        m_Database.Rows("CREATE TABLE vectors(line TEXT); BEGIN");
        sqlite3_stmt* insert = nullptr;
        sqlite3_prepare_v2(m_Database.Handle(), "INSERT INTO vectors VALUES (?)", -1, &insert, nullptr);
        for (const auto& entry : std::filesystem::directory_iterator(QX_VECTORS)) {
            if (entry.path().extension() == ".jsonl")
                Insert(entry.path(), insert);
        }
        sqlite3_finalize(insert);
        m_Database.Rows("COMMIT");
    }

    Database m_Database;

private:
    static void Insert(const std::filesystem::path& file, sqlite3_stmt* insert) {
        std::ifstream lines(file);
        for (std::string line; std::getline(lines, line);) {
            sqlite3_bind_text(insert, 1, line.data(), static_cast<int>(line.size()), SQLITE_TRANSIENT);
            sqlite3_step(insert);
            sqlite3_reset(insert);
        }
    }
};

TEST_F(SqliteVectors, NothingDiffers) {
    std::ostringstream statements;
    statements << std::ifstream(QX_STATEMENTS).rdbuf();
    EXPECT_EQ(m_Database.Rows(statements.str()), "");
}

TEST_F(SqliteVectors, APduIsTheSameAsABlob) {
    // Octets cannot be made of digits in this SQLite but in a statement.
    std::string statements = m_Database.Rows(
        "SELECT 'SELECT octets FROM (SELECT x''' || octets || ''' AS pdu, ''' || octets || ''' AS octets) "
        "WHERE sms_text(pdu) IS NOT sms_text(octets) OR sms_error(pdu) IS NOT sms_error(octets) "
        "OR cbs_text(pdu) IS NOT cbs_text(octets);' FROM (SELECT line->>'octets' AS octets FROM vectors) "
        "WHERE octets IS NOT NULL");
    ASSERT_GE(std::count(statements.begin(), statements.end(), '\n'), 1700);
    EXPECT_EQ(m_Database.Rows(statements), "");
}

TEST_F(SqliteVectors, SentTextsBecomeTheseOctets) {
    EXPECT_EQ(
        m_Database.Rows("CREATE TABLE sent AS SELECT line->>'text' AS text, line->>'reference' AS "
                        "reference, line->'sent' AS sent FROM vectors WHERE line->>'languages' = '[]' "
                        "AND line->>'alphabet' IS NULL AND line->>'ports' IS NULL AND line->>'elements' "
                        "IS NULL AND line->>'class' IS NULL AND line->>'sent' IS NOT NULL AND "
                        "(line->>'reference' > 255) = (line->>'bits' = 16);"
                        "SELECT count(*) FROM sent HAVING count(*) < 90"),
        "");
    EXPECT_EQ(
        m_Database.Rows(
            "SELECT text, pdu.value, part.value FROM sent, json_each(sms_encode('+447700900123', text, "
            "reference)) AS pdu, json_each(sent.sent->'parts') AS part WHERE pdu.key = part.key AND "
            "pdu.value <> printf('00%s000C91447700091032'||'00%02X%s', CASE sent->>'TP-UDHI' WHEN 1 THEN "
            "'41' ELSE '01' END, sent->>'TP-DCS', part.value)"),
        "");
    EXPECT_EQ(m_Database.Rows("SELECT text FROM sent WHERE json_array_length(sent->'parts') <> "
                              "json_array_length(sms_encode('+447700900123', text, reference))"),
              "");
    EXPECT_EQ(m_Database.Rows("SELECT text FROM sent WHERE text <> (SELECT sms_join(value) FROM "
                              "json_each(sms_encode('+447700900123', text, reference)))"),
              "");
}

/// A row of the tool's, of what is broken as well. Where it warns, it may have read something else; what is
/// longer than 512 octets it does not read.
TEST_F(SqliteVectors, ColumnsAreWhatTheToolWrites) {
    unsigned int compared = 0;
    for (const std::string serviceCentre : {"no", "yes"}) {
        const auto column = [&](const std::string& name) {
            return "replace(replace(replace(replace(coalesce(sms_" + name + "(pdu, 'smsc=" + serviceCentre +
                   R"('), ''), '\', '\\'), char(9), '\t'), char(10), '\n'), char(13), '\r'))";
        };
        const std::string row = "SELECT " + column("time") + " || char(9) || " + column("type") +
                                " || char(9) || " + column("address") + " || char(9) || " + column("text") +
                                " || char(9) || " + column("error");
        const std::string from = " FROM (SELECT DISTINCT line->>'octets' AS pdu FROM vectors) WHERE "
                                 "length(pdu) BETWEEN 2 AND 1024";
        const std::string pdus = m_Database.Rows("SELECT pdu" + from);
        std::istringstream told(m_Database.Rows(row + from));
        const std::string tool = "printf '" + pdus + "\\n' | " QXPDU_COMMAND " decode --smsc " +
                                 serviceCentre + " --columns time,type,address,text,error --each-line";
        std::istringstream written(tests::RunCommand(tool + " 2>/dev/null").output);
        const std::string warnings = '\n' + tests::RunCommand(tool + " 2>&1 >/dev/null").output;
        std::size_t line = 0;
        for (std::string ours, theirs; std::getline(told, ours);) {
            ASSERT_TRUE(std::getline(written, theirs));
            const bool isWarned =
                warnings.find("\nqxpdu: line " + std::to_string(++line) + ':') != std::string::npos;
            if (isWarned || theirs.find("\\u") != std::string::npos)
                continue;
            ASSERT_EQ(ours, theirs);
            ++compared;
        }
    }
    EXPECT_GE(compared, 1800U);
}

/// The tool says in which line, and warns of what people paste, which SQL has not; where it warns, it may
/// have read something else.
TEST_F(SqliteVectors, JsonIsWhatTheToolWrites) {
    m_Database.Rows(
        "CREATE TABLE sound AS SELECT line->>'octets' AS pdu, CASE WHEN line->>'service-centre' "
        "IS NOT NULL THEN 'decode --smsc ' || (line->>'service-centre') "
        "WHEN line->>'format' IS NOT NULL THEN 'cell --type ' || (line->>'format') ELSE 'cell' "
        "END AS command FROM vectors WHERE line->'means'->>'fault' IS NULL AND line->>'octets' <> ''");
    struct Way {
        std::string command;
        std::string function;
        std::string options;
    };
    const Way c_ways[] = {{"decode --smsc no", "sms_json", "smsc=no"},
                          {"decode --smsc yes", "sms_json", "smsc=yes"},
                          {"cell", "cbs_json", ""},
                          {"cell --type gsm", "cbs_json", "gsm"},
                          {"cell --type umts", "cbs_json", "umts"},
                          {"cell --type etws", "cbs_json", "etws"}};
    unsigned int compared = 0;
    for (const auto& [command, function, options] : c_ways) {
        const std::string json = function + "(pdu, '" + options + "')";
        const std::string from = " FROM sound WHERE command = '" + command + "' AND " + json + " IS NOT NULL";
        const std::string pdus = m_Database.Rows("SELECT pdu" + from);
        std::istringstream told(m_Database.Rows("SELECT " + json + from));
        std::istringstream written(
            tests::RunCommand("printf '" + pdus + "\n' | " QXPDU_COMMAND " " + command + " --jsonl").output);
        for (std::string ours, theirs; std::getline(told, ours);) {
            ASSERT_TRUE(std::getline(written, theirs)) << command;
            if (theirs.find("\"warnings\":") != std::string::npos || theirs.find("\\u") != std::string::npos)
                continue;
            const std::size_t line = theirs.find("\"line\":");
            theirs.erase(line, theirs.find(',', line) + 1 - line);
            ASSERT_EQ(ours, theirs);
            ++compared;
        }
    }
    EXPECT_GE(compared, 1300U);
}

} // namespace
