// The functions in SQLite: what they give, and what they do with what is no PDU.
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <unistd.h>

#include <gtest/gtest.h>

#include "sql/Database.h"
#include "support/Allocations.h"

namespace {

using tests::Database;

struct Asked {
    const char* statement;
    const char* rows;
};

void PrintTo(const Asked& asked, std::ostream* stream) {
    *stream << asked.statement;
}

class Sqlite : public testing::TestWithParam<Asked> {};

TEST_P(Sqlite, Gives) {
    EXPECT_EQ(Database().Rows(GetParam().statement), GetParam().rows);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(OfAMessage, Sqlite, testing::Values(
    Asked{"SELECT sms_text('0791447700900000040C9144770009103200006211128051038002C834')", "Hi"},
    Asked{"SELECT sms_text(x'0791447700900000040C9144770009103200006211128051038002C834')", "Hi"},
    Asked{"SELECT sms_text('0791447700900000040c9144770009103200006211128051038002c834')", "Hi"},
    Asked{"SELECT sms_address('0791447700900000040C9144770009103200006211128051038002C834')", "+447700900123"},
    // 0x80: digits 0 and 8, eight quarters of an hour
    Asked{"SELECT sms_time('0791447700900000040C9144770009103200006211128051038002C834')", "2026-11-21T08:15:30+02:00"},
    // what unixepoch() makes of it is the same point in time
    Asked{"SELECT datetime(sms_time('0791447700900000040C9144770009103200006211128051038002C834'))", "2026-11-21 06:15:30"},
    Asked{"SELECT sms_type('0791447700900000040C9144770009103200006211128051038002C834')", "SMS-DELIVER"},
    Asked{"SELECT sms_error('0791447700900000040C9144770009103200006211128051038002C834')", "NULL"},
    Asked{"SELECT sms_remarks('0791447700900000040C9144770009103200006211128051038002C834')", "[]"},
    // neither of several parts nor one that has a text
    Asked{"SELECT sms_reference('0791447700900000040C9144770009103200006211128051038002C834'), sms_part('0791447700900000040C9144770009103200006211128051038002C834'), sms_parts('0791447700900000040C9144770009103200006211128051038002C834')", "NULL|NULL|NULL"},
    // 8-bit data
    Asked{"SELECT sms_text('00040C9144770009103200046211128051030002C834'), sms_json('00040C9144770009103200046211128051030002C834')->>'data'", "NULL|C834"},
    // a header 00 03 07 03 02 in UCS2: "cd"
    Asked{"SELECT sms_reference(pdu), sms_part(pdu), sms_parts(pdu), sms_text(pdu) FROM (SELECT '00440C91447700091032000862111280510300' || '0A' || '050003070302' || '00630064' AS pdu)", "7|2|3|cd"},
    // element 08: 16 bits
    Asked{"SELECT sms_reference('00440C91447700091032000862111280510300' || '0B' || '06080401070302' || '00630064')", "263"},
    // a month 13
    Asked{"SELECT sms_time('00040C9144770009103200006231128051030002C834'), sms_text('00040C9144770009103200006231128051030002C834'), sms_remarks('00040C9144770009103200006231128051030002C834')->>0->>'code'", "NULL|Hi|time-out-of-range"}));

INSTANTIATE_TEST_SUITE_P(OfOptions, Sqlite, testing::Values(
    Asked{"SELECT sms_type('040C9144770009103200006211128051030002C834', 'smsc=no')", "SMS-DELIVER"},
    Asked{"SELECT sms_error('040C9144770009103200006211128051030002C834', 'smsc=yes') IS NOT NULL", "1"},
    Asked{"SELECT sms_error('040C9144770009103200006211128051030002C834', ' smsc=yes,, direction=to-mobile ,')  IS NOT NULL", "1"},
    Asked{"SELECT sms_type('000000', 'smsc=yes,direction=from-mobile'), sms_type('000000', 'smsc=yes,direction=to-mobile')", "SMS-DELIVER-REPORT|NULL"},
    // what was read with other options is not taken again
    Asked{"SELECT sms_type('000000', 'direction=to-mobile'), sms_type('000000', 'direction=from-mobile'), sms_type('000000', 'direction=to-mobile')", "NULL|SMS-DELIVER-REPORT|NULL"},
    // nor what was text as a BLOB of the same octets
    Asked{"SELECT sms_error('00040C91'), sms_error(x'3030303430433931')", "octet 2: the octets end in TP-OA, which takes 8 octets: 2 are there|octet 0: the octets end in service centre, which takes 49 octets: 8 are there"},
    Asked{"SELECT sms_remarks('0000', 'direction=from-mobile length=5')->>0->>'code'", "length-disagrees"},
    Asked{"SELECT sms_text(x'00', 'smsc=maybe')", "error: 'smsc=maybe' is no option; there are smsc=yes|no, direction=to-mobile|from-mobile, failure-cause=yes|no and length=N"},
    // a long one is cut between two characters
    Asked{"SELECT sms_text(x'00', 'smsc=yes ' || printf('%.40c', 'x'))", "error: 'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx' is no option; there are smsc=yes|no, direction=to-mobile|from-mobile, failure-cause=yes|no and length=N"},
    Asked{"SELECT sms_text(x'00', printf('%.39c', 'x') || 'éx')", "error: 'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx...' is no option; there are smsc=yes|no, direction=to-mobile|from-mobile, failure-cause=yes|no and length=N"},
    Asked{"SELECT cbs_text(x'00', printf('%.1000000c', 'x'))", "error: 'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx...' is neither gsm, umts nor etws"},
    Asked{"SELECT sms_text(x'00', 'direction=up') IS 1", "error: 'direction=up' is no option; there are smsc=yes|no, direction=to-mobile|from-mobile, failure-cause=yes|no and length=N"},
    Asked{"SELECT sms_text(x'00', 'length=')", "error: 'length=' is no option; there are smsc=yes|no, direction=to-mobile|from-mobile, failure-cause=yes|no and length=N"},
    Asked{"SELECT sms_text(x'00', 'length=4294967296')", "error: 'length=4294967296' is no option; there are smsc=yes|no, direction=to-mobile|from-mobile, failure-cause=yes|no and length=N"},
    Asked{"SELECT sms_text(x'00', 'length=1x')", "error: 'length=1x' is no option; there are smsc=yes|no, direction=to-mobile|from-mobile, failure-cause=yes|no and length=N"},
    Asked{"SELECT sms_text(x'00', 'smsc')", "error: 'smsc' is no option; there are smsc=yes|no, direction=to-mobile|from-mobile, failure-cause=yes|no and length=N"},
    // the words of one statement do no harm to the next
    Asked{"SELECT sms_error(x'00', 'smsc=maybe'); SELECT sms_error('00040C9144770009103200006211128051030002C834')", "error: 'smsc=maybe' is no option; there are smsc=yes|no, direction=to-mobile|from-mobile, failure-cause=yes|no and length=NNULL"},
    // it may be told twice, but not in two ways
    Asked{"SELECT sms_type('000000', 'smsc=yes direction=to-mobile,smsc=no')", "error: 'smsc=no' is not what was told before it"},
    Asked{"SELECT sms_type('000000', 'direction=to-mobile direction=from-mobile') IS 1", "error: 'direction=from-mobile' is not what was told before it"},
    Asked{"SELECT sms_type('000000', 'failure-cause=no failure-cause=yes')", "error: 'failure-cause=yes' is not what was told before it"},
    Asked{"SELECT sms_type('000000', 'length=0 length=1')", "error: 'length=1' is not what was told before it"},
    Asked{"SELECT sms_type('000000', 'smsc=yes length=2 direction=from-mobile failure-cause=no smsc=yes length=2 direction=from-mobile failure-cause=no')", "SMS-DELIVER-REPORT"},
    // tabs and ends of lines are between words
    Asked{"SELECT sms_type('000000', char(10) || 'smsc=yes' || char(9) || 'smsc=yes' || char(13, 10) || 'direction=from-mobile' || char(10))", "SMS-DELIVER-REPORT"},
    // SQLite's errors end at a NUL
    Asked{"SELECT sms_type('00', 'smsc=' || char(0) || 'yes')", "error: 'smsc=\xEF\xBF\xBDyes' is no option; there are smsc=yes|no, direction=to-mobile|from-mobile, failure-cause=yes|no and length=N"},
    Asked{"SELECT cbs_text(x'00', 'page')", "error: 'page' is neither gsm, umts nor etws"}));

INSTANTIATE_TEST_SUITE_P(OfWhatIsNoPdu, Sqlite, testing::Values(
    Asked{"SELECT sms_text(NULL), sms_error(NULL), sms_json(NULL), cbs_text(NULL), cbs_error(NULL), sms_text(x'00', NULL)", "NULL|NULL|NULL|NULL|NULL|NULL"},
    Asked{"SELECT sms_encode(NULL, 'a'), sms_encode('1', NULL), sms_encode('1', 'a', NULL)", "NULL|NULL|NULL"},
    Asked{"SELECT sms_text('040C91'), sms_error('00040C91')", "NULL|octet 2: the octets end in TP-OA, which takes 8 octets: 2 are there"},
    Asked{"SELECT sms_error('')", "octet 0: there is not one octet"},
    Asked{"SELECT sms_error(x'')", "octet 0: there is not one octet"},
    Asked{"SELECT sms_error('0'), sms_error('0x00'), sms_error('00 00'), sms_text('0')", "octet 0: octet 0 is no pair of hexadecimal digits|octet 0: octet 0 is no pair of hexadecimal digits|octet 1: octet 1 is no pair of hexadecimal digits|NULL"},
    Asked{"SELECT sms_error('00' || char(0) || '0')", "octet 1: octet 1 is no pair of hexadecimal digits"},
    Asked{"SELECT sms_text(1)", "error: a PDU is a BLOB or hexadecimal text, and no number"},
    Asked{"SELECT sms_error(1.5)", "error: a PDU is a BLOB or hexadecimal text, and no number"},
    Asked{"SELECT cbs_text(1)", "error: a PDU is a BLOB or hexadecimal text, and no number"},
    Asked{"SELECT sms_join(1)", "error: a PDU is a BLOB or hexadecimal text, and no number"},
    Asked{"SELECT * FROM sms_fields(1)", "error: a PDU is a BLOB or hexadecimal text, and no number"},
    Asked{"SELECT sms_text(x'00', x'00')", "error: a BLOB where there should be text"},
    Asked{"SELECT sms_text()", "error: wrong number of arguments to function sms_text()"},
    Asked{"SELECT sms_text('', '', '')", "error: wrong number of arguments to function sms_text()"},
    Asked{"SELECT sms_join()", "error: wrong number of arguments to function sms_join()"},
    Asked{"SELECT sms_encode('1')", "error: wrong number of arguments to function sms_encode()"},
    Asked{"SELECT * FROM sms_fields('', '', '')", "error: too many arguments on sms_fields() - max 2"},
    Asked{"SELECT * FROM sms_fields", "error: sms_fields() takes a PDU; where that is a column of another table, and named as one of its own, the table's name comes first"},
    Asked{"SELECT (SELECT count(*) FROM sms_fields(value)) FROM json_each('[\"00040C91\"]')", "error: sms_fields() takes a PDU; where that is a column of another table, and named as one of its own, the table's name comes first"},
    Asked{"SELECT (SELECT count(*) FROM sms_fields(json_each.value)) FROM json_each('[\"00040C91\"]')", "8"},
    // up to 4,096 octets are read
    Asked{"SELECT sms_error(zeroblob(4096)), sms_error(zeroblob(4097)), sms_text(zeroblob(4097))", "NULL|over 4096 octets, which no message has|NULL"},
    Asked{"SELECT sms_type(hex(zeroblob(4096))) = sms_type(zeroblob(4096)), sms_error(hex(zeroblob(4097)))", "1|over 4096 octets, which no message has"},
    Asked{"SELECT sms_error(zeroblob(10000000)), sms_json(zeroblob(10000000)), cbs_error(zeroblob(10000000)), sms_join(zeroblob(10000000))", "over 4096 octets, which no message has|NULL|over 4096 octets, which no message has|NULL"},
    Asked{"SELECT count(*) FROM sms_fields(zeroblob(10000000))", "0"}));

INSTANTIATE_TEST_SUITE_P(OfPages, Sqlite, testing::Values(
    Asked{"SELECT cbs_text('403211120111C8329BFD06'), cbs_text(x'403211120111C8329BFD06'), cbs_error('403211120111C8329BFD06')", "Hello|Hello|NULL"},
    Asked{"SELECT cbs_json('403211120111C8329BFD06')->>'message_identifier'->>'raw'", "4370"},
    Asked{"SELECT cbs_text('4032'), cbs_json('4032'), cbs_error('4032')", "NULL|NULL|octet 2: the octets end in message identifier, which takes 2 octets: 0 are there"},
    Asked{"SELECT cbs_json('200011010300', 'etws')->>'type', cbs_json('200011010300')->>'type'", "ETWS primary notification|GSM page"},
    Asked{"SELECT cbs_text('200011010300', 'etws')", "NULL"}));

INSTANTIATE_TEST_SUITE_P(OfFields, Sqlite, testing::Values(
    Asked{"SELECT name, value, octet, length, mask FROM sms_fields('0791447700900000040C9144770009103200006211128051038002C834')",
          "service centre|+447700090000|0|8|255\n"
          "TP-MTI|0|8|1|3\n"
          "TP-MMS|1|8|1|4\n"
          "TP-LP|0|8|1|8\n"
          "TP-SRI|0|8|1|32\n"
          "TP-UDHI|0|8|1|64\n"
          "TP-RP|0|8|1|128\n"
          "TP-OA|+447700900123|9|8|255\n"
          "TP-PID|0|17|1|255\n"
          "TP-DCS|0|18|1|255\n"
          "TP-SCTS|2026-11-21T08:15:30+02:00|19|7|255\n"
          "TP-UDL|2|26|1|255\n"
          "TP-UD|Hi|27|2|255"},
    Asked{"SELECT meaning FROM sms_fields('00040C9144770009103200006211128051030002C834') WHERE name IN ('service centre', 'TP-PID', 'TP-UD')", "none\nmobile to mobile\nNULL"},
    Asked{"SELECT value FROM sms_fields('00040C9144770009103200006211128051030002C834') WHERE name = 'service centre'", "NULL"},
    Asked{"SELECT typeof(value) FROM sms_fields('00040C9144770009103200006211128051030002C834') WHERE name IN ('TP-PID', 'TP-OA')", "text\ninteger"},
    // a time that is none is its octets, and so are data and the header
    Asked{"SELECT value FROM sms_fields('00040C9144770009103200006231128051030002C834') WHERE name = 'TP-SCTS'", "62311280510300"},
    Asked{"SELECT value FROM sms_fields('00440C9144770009103200046211128051030008050003070302C834') WHERE name IN ('TP-UDH', 'TP-UD')", "050003070302\nC834"},
    Asked{"SELECT mask FROM sms_fields('00440C9144770009103200006211128051030009050003070302D069') WHERE name = 'TP-UD'", "254"},
    // validity: relative, 5 minutes; absolute
    Asked{"SELECT value FROM sms_fields('0011000C914477000910320000' || '00' || '02C834') WHERE name = 'TP-VP'", "300"},
    Asked{"SELECT value FROM sms_fields('0019000C914477000910320000' || '62111280510300' || '02C834') WHERE name = 'TP-VP'", "2026-11-21T08:15:30+00:00"},
    // what is there of a broken one
    Asked{"SELECT name, value, octet, length FROM sms_fields('00040C91') WHERE octet > 1", "TP-OA|0C91|2|2"},
    // the arguments are columns, too
    Asked{"SELECT count(*) FROM sms_fields WHERE _pdu IS '00040C91'; SELECT count(*) FROM sms_fields WHERE _pdu IS NULL; SELECT count(*) FROM sms_fields('00040C9144770009103200006211128051030002C834') WHERE _options IS NULL", "8\nerror: sms_fields() takes a PDU; where that is a column of another table, and named as one of its own, the table's name comes first13"},
    Asked{"SELECT count(*) FROM sms_fields WHERE _pdu IS '040C9144770009103200006211128051030002C834' AND _options IS 'smsc=no'", "12"},
    Asked{"SELECT count(*) FROM (SELECT nullif(1, 1) AS none), sms_fields('00040C91') WHERE _options IS none; SELECT count(*) FROM sms_fields('00040C91', NULL)", "8\n0"},
    Asked{"SELECT count(*) FROM sms_fields('00040C9144770009103200006211128051030002C834') WHERE _pdu = '00040C9144770009103200006211128051030002C834'", "13"},
    Asked{"SELECT count(*) FROM sms_fields('00040C9144770009103200006211128051030002C834') WHERE _pdu = x'00' OR _options = 'smsc=yes'", "0"},
    Asked{"SELECT DISTINCT _pdu, _options FROM sms_fields('00', 'smsc=yes')", "00|smsc=yes"},
    Asked{"SELECT DISTINCT typeof(_pdu), _options FROM sms_fields(x'00')", "blob|NULL"},
    // unused bits on both sides of TP-UDHI, as they stand in the octet
    Asked{"SELECT value, octet, length, mask FROM sms_fields('009000', 'direction=from-mobile') WHERE name = 'unused bits'", "144|1|1|188"},
    Asked{"SELECT count(*) FROM sms_fields('no digits')", "0"},
    Asked{"SELECT count(*) FROM sms_fields(NULL)", "0"},
    Asked{"SELECT count(*) FROM sms_fields(x'00', NULL)", "0"},
    // of many PDUs, the column that has them named before and after
    Asked{"CREATE TABLE t(pdu); INSERT INTO t VALUES ('00040C9144770009103200006211128051030002C834'), (NULL), ('00040C91'); SELECT t.rowid, count(f.name) FROM t LEFT JOIN sms_fields(pdu) f GROUP BY 1", "1|13\n2|0\n3|8"},
    Asked{"CREATE TABLE t(pdu); INSERT INTO t VALUES ('00040C9144770009103200006211128051030002C834'); SELECT (SELECT value FROM sms_fields(pdu) WHERE name = 'TP-UD') FROM t", "Hi"},
    Asked{"CREATE TABLE t(pdu); INSERT INTO t VALUES ('00040C9144770009103200006211128051030002C834'); SELECT f.value FROM sms_fields(t.pdu, 'smsc=yes') f, t WHERE f.name = 'TP-UD'", "Hi"},
    Asked{"SELECT value FROM sms_fields WHERE _pdu = '00040C9144770009103200006211128051030002C834' AND name = 'TP-UD'", "Hi"},
    Asked{"CREATE VIRTUAL TABLE v USING sms_fields", "error: no such module: sms_fields"}));

INSTANTIATE_TEST_SUITE_P(OfTexts, Sqlite, testing::Values(
    Asked{"SELECT sms_encode('+447700900123', 'Hi')", R"(["0001000C91447700091032000002C834"])"},
    Asked{"SELECT sms_encode('+44 7700 900-123', 'Hi')", R"(["0001000C91447700091032000002C834"])"},
    // any other type of number
    Asked{"SELECT sms_encode(123, 'Hi')", R"(["000100038121F3000002C834"])"},
    Asked{"SELECT sms_encode('+447700900123', 'x€')->>0", "0001000C91447700091032000003F84D19"},
    Asked{"SELECT sms_encode('+447700900123', 'Ж')->>0", "0001000C9144770009103200080204" "16"},
    Asked{"SELECT sms_encode('+447700900123', '')->>0", "0001000C91447700091032000000"},
    Asked{"SELECT sms_encode('+447700900123', printf('%.161c', 'a'), 5) LIKE '[\"0041000C91447700091032" "0000A0050003050201%\",\"0041000C914477000910320000" "0F050003050202%\"]'", "1"},
    Asked{"SELECT sms_encode('+447700900123', printf('%.161c', 'a'), 256) LIKE '%\"0041000C914477000910320000" "A0060804" "01000201%'", "1"},
    Asked{"SELECT sms_encode('+447700900123', printf('%.161c', 'a'), 255) LIKE '%050003FF0201%', sms_encode('+447700900123', printf('%.161c', 'a'), 0) LIKE '%050003000201%', sms_encode('+447700900123', printf('%.161c', 'a'), 65535) LIKE '%060804FFFF0201%'", "1|1|1"},
    // the same each time, so that it may stand in an index
    Asked{"SELECT sms_encode('+44', printf('%.161c', 'a')) = sms_encode('+44', printf('%.161c', 'a')), sms_encode('+44', printf('%.161c', 'a')) = replace(sms_encode('+45', printf('%.161c', 'a')), '02910054', '02910044')", "1|0"},
    Asked{"SELECT sms_encode('Bob', 'Hi')", "error: octet 0 of the number is of no digit"},
    Asked{"SELECT sms_encode('+', 'Hi')", "error: the number has no digit"},
    Asked{"SELECT sms_encode('1', CAST(x'ff' AS TEXT)) IS 1", "error: octet 0 of the text is not UTF-8"},
    Asked{"SELECT sms_encode('1', x'00')", "error: a BLOB where there should be text"},
    Asked{"SELECT sms_encode('1', 'a', '5')", "error: a reference is an integer"},
    Asked{"SELECT sms_encode('1', 'a', -1)", "error: the reference -1 is none of 0 to 65535"},
    Asked{"SELECT sms_encode('1', 'a', 65536)", "error: the reference 65536 is none of 0 to 65535"},
    Asked{"SELECT sms_encode('1', printf('%.99999c', 'a'))", "error: more than 255 parts"},
    Asked{"SELECT sms_encode('123456789012345678901', 'a')", "error: TP-DA takes 21 semi-octets, more than 20"}));

// The header 05 00 03, a reference, the number of parts and the part, and a text in UCS2.
INSTANTIATE_TEST_SUITE_P(OfGroups, Sqlite, testing::Values(
    Asked{"SELECT sms_join(pdu) FROM (SELECT NULL AS pdu WHERE 0)", "NULL"},
    Asked{"SELECT sms_join(NULL)", "NULL"},
    Asked{"SELECT sms_join('00040C9144770009103200006211128051030002C834')", "Hi"},
    Asked{"CREATE TABLE parts(pdu); WITH heads(head) AS (VALUES ('00440C91447700091032000862111280510300')) INSERT INTO parts SELECT head || '0A0500030703' || tail FROM heads, (SELECT '0200630064' AS tail UNION SELECT '0300650066' UNION SELECT '0100610062');"
          "SELECT sms_join(pdu) FROM parts; SELECT sms_join(pdu) FROM (SELECT pdu FROM parts ORDER BY pdu DESC);"
          // what is NULL or broken is passed over, a part that comes again is one
          "INSERT INTO parts VALUES (NULL), ('00'), ('no digits'); INSERT INTO parts SELECT pdu FROM parts; SELECT sms_join(pdu) FROM parts;"
          // of groups, and windows
          "SELECT sms_parts(pdu), sms_join(pdu) FROM parts GROUP BY 1;"
          "SELECT sms_part(pdu), sms_join(pdu) FROM parts GROUP BY 1;"
          "SELECT sms_join(pdu) FILTER (WHERE sms_part(pdu) IS NOT 2) FROM parts;"
          "SELECT sms_join(pdu) OVER () FROM parts",
          "abcdef\nabcdef\nabcdef\nNULL|NULL\n3|abcdef\nNULL|NULL\n1|NULL\n2|NULL\n3|NULL\nNULL\nerror: sms_join() may not be used as a window function"},
    // a single message that comes again is one, in digits or octets; with another time, or between two parts, it is another message
    Asked{"SELECT sms_join(column1) FROM (VALUES ('00040C9144770009103200006211128051030002C834'), ('00040C9144770009103200006211128051030002C834'), (x'00040C9144770009103200006211128051030002C834'))", "Hi"},
    Asked{"SELECT sms_join(column1) FROM (VALUES ('00040C9144770009103200006211128051030002C834'), ('00040C9144770009103200006211128051130002C834'), ('00040C9144770009103200006211128051030002C834'))", "NULL"},
    Asked{"SELECT sms_join(column1) FROM (VALUES ('00440C91447700091032000862111280510300080500030702010061'), ('00040C9144770009103200006211128051030002C834'), ('00440C91447700091032000862111280510300080500030702020062'))", "NULL"},
    // of a day: a message of two parts, one of them twice, two single messages, and one twice; by the query that the document has
    Asked{"CREATE TABLE archive(pdu); INSERT INTO archive VALUES ('00440C91447700091032000862111280510300080500030702010061'), ('00440C91447700091032000862111280510300080500030702020062'), ('00440C91447700091032000862111280510300080500030702020062'), ('00040C9144770009103200006211128051030002C834'), ('00040C9144770009103200006211128051130002C834'), ('00040C91447700091032000062111280512300014D'), ('00040C91447700091032000062111280512300014D');"
          "SELECT sms_address(pdu), sms_join(pdu) FROM archive GROUP BY sms_address(pdu), sms_reference(pdu), sms_parts(pdu), date(sms_time(pdu)), CASE WHEN sms_part(pdu) IS NULL THEN pdu END ORDER BY min(sms_time(pdu)), sms_parts(pdu)",
          "+447700900123|Hi\n+447700900123|ab\n+447700900123|Hi\n+447700900123|M"},
    // parts before and after midnight, by the day that begins at noon
    Asked{"SELECT sms_join(column1) FROM (VALUES ('00440C91447700091032000862111232959500080500030702010061'), ('00440C91447700091032000862112200000000080500030702020062')) GROUP BY date(sms_time(column1), '+12 hours')", "ab"},
    // two messages are none: of two references
    Asked{"SELECT sms_join(column1) FROM (VALUES ('00440C91447700091032000862111280510300080500030701010061'), ('00440C91447700091032000862111280510300080500030802010061'))", "NULL"},
    Asked{"SELECT sms_join(column1) FROM (VALUES ('00040C9144770009103200006211128051030002C834'), ('00440C91447700091032000862111280510300080500030802010061'))", "NULL"},
    // the part has come with another text: another message, too
    Asked{"SELECT sms_join(column1) FROM (VALUES ('00440C91447700091032000862111280510300080500030802010061'), ('00440C91447700091032000862111280510300080500030802010062'), ('00440C91447700091032000862111280510300080500030802020063'))", "NULL"},
    // data, and a report without user data
    Asked{"SELECT sms_join('00040C9144770009103200046211128051030002C834'), sms_join('00060B0C91447700091032621112805103006211128051030000')", "NULL|NULL"},
    Asked{"SELECT sms_join('040C9144770009103200006211128051030002C834', 'smsc=no'), sms_join('040C9144770009103200006211128051030002C834', NULL)", "Hi|NULL"}));
// clang-format on

/// A file that is deleted in the end.
class SqliteFile : public testing::Test {
protected:
    SqliteFile() : m_File(testing::TempDir() + "qx_sqlite_" + std::to_string(getpid()) + ".db") { Delete(); }
    ~SqliteFile() override { Delete(); }

    std::string m_File;

private:
    void Delete() const {
        for (const char* const end : {"", "-journal", "-wal", "-shm"})
            std::remove((m_File + end).c_str());
    }
};

constexpr const char* c_archive =
    "CREATE TABLE archive(pdu);"
    "INSERT INTO archive VALUES ('00040C9144770009103200006211128051030002C834'), ('00040C91');"
    "CREATE INDEX by_address ON archive(sms_address(pdu));"
    "CREATE TABLE texts(pdu, text AS (sms_text(pdu)) STORED);"
    "CREATE VIEW senders AS SELECT sms_address(pdu) AS sender FROM archive";
constexpr const char* c_insert =
    "INSERT INTO archive VALUES ('00040C9144770009103200006211128051030002C834')";

TEST_F(SqliteFile, AnIndexOnAnExpressionIsUsed) {
    const Database database(m_File);
    ASSERT_EQ(database.Rows(c_archive), "");
    EXPECT_EQ(database.Rows("SELECT sms_text(pdu) FROM archive WHERE sms_address(pdu) = '+447700900123'"),
              "Hi");
    EXPECT_NE(database.Rows("EXPLAIN QUERY PLAN SELECT 1 FROM archive WHERE sms_address(pdu) = '+44'")
                  .find("by_address"),
              std::string::npos);
    EXPECT_EQ(database.Rows(std::string(c_insert) +
                            "; SELECT count(*) FROM archive WHERE sms_address(pdu) LIKE '+44%'"),
              "2");
}

TEST_F(SqliteFile, AWriterWithoutTheExtensionFailsAndAReaderDoesNot) {
    ASSERT_EQ(Database(m_File).Rows(c_archive), "");
    const Database other(m_File, false);
    EXPECT_EQ(other.Rows("SELECT count(*) FROM archive"), "2");
    EXPECT_EQ(other.Rows(c_insert), "error: unknown function: sms_address()");
    EXPECT_EQ(other.Rows("SELECT count(*) FROM archive; PRAGMA integrity_check(1)").substr(0, 2), "2\n");
    EXPECT_EQ(Database(m_File).Rows(std::string(c_insert) + "; PRAGMA integrity_check"), "ok");
}

TEST_F(SqliteFile, AnUntrustedSchemaMayCallThem) {
    ASSERT_EQ(Database(m_File).Rows(c_archive), "");
    EXPECT_EQ(Database(m_File).Rows("PRAGMA trusted_schema = OFF; SELECT sender FROM senders"),
              "+447700900123\nNULL");
    EXPECT_EQ(Database(m_File).Rows("CREATE VIEW fields AS SELECT name FROM archive, sms_fields(pdu);"
                                    "PRAGMA trusted_schema = OFF; SELECT count(*) FROM fields"),
              "21");
}

TEST_F(SqliteFile, TextIsReadInAnyEncoding) {
    const Database database(m_File);
    EXPECT_EQ(database.Rows("PRAGMA encoding = 'UTF-16le'; CREATE TABLE t(pdu TEXT);"
                            "INSERT INTO t VALUES ('0004049144770008621112805103000216"
                            "04'), ('000404914477000862111280510300020416');"
                            "SELECT sms_text(pdu) FROM t WHERE rowid = 2;"
                            "SELECT value->>0 FROM (SELECT sms_encode('+4477', char(1046)) AS value)"),
              "Ж\n"
              "000100049144770008020416");
}

TEST_F(SqliteFile, ConnectionsInThreadsDoNotMeet) {
    ASSERT_EQ(Database(m_File).Rows(c_archive), "");
    std::atomic<int> good = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&, i] {
            const std::string number = "+4477009001" + std::to_string(10 + i);
            for (int round = 0; round < 20; ++round) {
                const Database database(m_File);
                const std::string rows = database.Rows(
                    "SELECT sms_address(value), sms_join(value) FROM json_each(sms_encode('" + number +
                    "', printf('%.400c', 'x'), 9)); SELECT count(*) FROM archive, sms_fields(pdu)");
                good += rows == number + "|" + std::string(400, 'x') + "\n21" ? 1 : 0;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(good, 80);
}

constexpr const char* c_everything =
    "SELECT sms_json(pdu), sms_remarks(pdu), sms_text(pdu), sms_address(pdu), sms_time(pdu), sms_type(pdu),"
    " sms_error(pdu || 'x'), sms_part(pdu), (SELECT count(*) FROM sms_fields(pdu, 'smsc=yes')), "
    "cbs_json(pdu), cbs_error(pdu),"
    " cbs_text(pdu), (SELECT sms_join(value) FROM json_each(sms_encode('+447700900123', printf('%.400c', "
    "'x'))))"
    " FROM (SELECT '00440C9144770009103200046231128051030008050003070302C834' AS pdu)";

/// Each allocation of the functions fails once: the statement does, and the next one is as if nothing had
/// been.
TEST(SqliteMemory, EveryAllocationOfTheFunctionsFails) {
    const Database database;
    const std::string expected = database.Rows(c_everything);
    ASSERT_NE(expected.substr(0, 6), "error:");
    bool hasHappened = true;
    unsigned int failed = 0;
    for (unsigned long n = 1; hasHappened && n < 5000; ++n) {
        std::string rows;
        rows.reserve(2 * expected.size()); // ours must not fail
        {
            const tests::FailAllocation failure(n);
            try {
                rows = database.Rows(c_everything);
            } catch (const std::bad_alloc&) { // in the test itself
            }
            hasHappened = failure.Happened();
        }
        failed += rows == "error: out of memory" ? 1 : 0;
        EXPECT_TRUE(!hasHappened || rows.empty() || rows == "error: out of memory") << n << rows;
    }
    EXPECT_GT(failed, 100U);
    EXPECT_EQ(database.Rows(c_everything), expected);
}

/// The same while it is loaded. What the libraries do when the loader brings them in is over by then: no
/// program goes on without memory for that.
TEST(SqliteMemory, EveryAllocationWhileLoadingFails) {
    const Database first;
    bool hasHappened = true;
    unsigned int failed = 0;
    for (unsigned long n = 1; hasHappened && n < 200; ++n) {
        Database database(":memory:", false);
        const tests::FailAllocation failure(n);
        try {
            database.Load();
        } catch (const std::exception&) {
            ++failed;
        }
        hasHappened = failure.Happened();
    }
    EXPECT_GT(failed, 10U);
    EXPECT_EQ(Database().Rows("SELECT sms_text('00040C9144770009103200006211128051030002C834')"), "Hi");
}

/// SQLite's own memory, of which there is more and more.
TEST(SqliteMemory, SqlitesOwnMemoryRunsOut) {
    const std::string expected = Database().Rows(c_everything);
    std::string rows;
    unsigned int failed = 0;
    for (sqlite3_int64 limit = 10000; rows != expected && limit < 2000000; limit += 2000) {
        sqlite3_hard_heap_limit64(sqlite3_memory_used() + limit);
        try {
            rows = Database().Rows(c_everything);
        } catch (const std::exception&) {
            rows.clear();
        }
        sqlite3_hard_heap_limit64(0);
        failed += rows != expected ? 1 : 0;
    }
    EXPECT_EQ(rows, expected);
    EXPECT_GT(failed, 3U);
}

/// The statement is over as soon as SQLite is asked between two rows.
TEST(SqliteMemory, AStatementCanBeCancelled) {
    const Database database;
    sqlite3_progress_handler(
        database.Handle(), 1000, [](void*) { return 1; }, nullptr);
    EXPECT_EQ(database.Rows("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT sms_join("
                            "'00040C9144770009103200006211128051030002C834') FROM n"),
              "error: interrupted");
    sqlite3_progress_handler(database.Handle(), 0, nullptr, nullptr);
    EXPECT_EQ(database.Rows("SELECT sms_text('00040C9144770009103200006211128051030002C834')"), "Hi");
}

/// A gigabyte in one value, as much as SQLite holds, is not read.
TEST(SqliteMemory, AGigabyteIsNoPdu) {
    constexpr std::size_t c_size = 1000000000;
    const std::unique_ptr<void, decltype(&std::free)> octets(std::calloc(c_size, 1), std::free);
    const Database database;
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database.Handle(),
                       "SELECT sms_error(?1), cbs_error(?1), sms_text(?1), sms_error(?2), sms_join(?2)", -1,
                       &statement, nullptr);
    sqlite3_bind_text64(statement, 1, static_cast<const char*>(octets.get()), c_size, SQLITE_STATIC,
                        SQLITE_UTF8);
    sqlite3_bind_zeroblob64(statement, 2, c_size);
    ASSERT_EQ(sqlite3_step(statement), SQLITE_ROW);
    for (const int column : {0, 1, 3})
        EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                     "over 4096 octets, which no message has");
    EXPECT_EQ(sqlite3_column_type(statement, 2), SQLITE_NULL);
    EXPECT_EQ(sqlite3_column_type(statement, 4), SQLITE_NULL);
    sqlite3_finalize(statement);
}

} // namespace
