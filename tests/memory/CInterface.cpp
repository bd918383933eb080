// The C interface when memory runs out: the n-th allocation fails, for n = 1, 2, 3 … until the call gets
// through. Each time it says so and hands nothing out, no exception passes, and the handle can be used again.
#include <cstring>
#include <fstream>
#include <functional>
#include <memory>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Messages/Parts.h"
#include "Messages/Read.h"
#include "Messages/qx_messages.h"
#include "support/Allocations.h"
#include "support/Octets.h"

namespace {

/// A part of two, from a name, with all that a reading can hand out; a remark among it.
constexpr const char* c_part =
    "0B9121436587092143658709440ED0C2B07B1D140E890000212031214365802A0500032A03029065"
    "36FB0DBABFE56C320B1476934161361B7447BF41ECB4BD0C4ABB41693A";
constexpr const char* c_page = "402011129012050003010201416190BA0EE2BFE56C320B1476934161361B7447BF41";

/// Made before memory runs out, too.
/// @{
const std::string c_number(20, '1');
const std::string c_longText(99, 'a');
const std::string c_quotation = "\xE2\x80\x9C" + std::string(400, 'a');
const std::vector<std::uint8_t> c_content(99);
const std::vector<std::uint8_t> c_octets = tests::Octets(c_part);
const std::vector<std::uint8_t> c_pageOctets = tests::Octets(c_page);
/// @}

/// One of each handle. Made before memory runs out, as what a call leaves in them is used again.
struct Handles {
    qx_reader* reader = qx_reader_new();
    qx_writer* writer = qx_writer_new();
    qx_maker* maker = qx_maker_new();
    qx_cutter* cutter = qx_cutter_new();
    qx_joiner* joiner = qx_joiner_new(nullptr);
    qx_page_joiner* pages = qx_page_joiner_new(0);

    Handles() = default;
    Handles(const Handles&) = delete;
    Handles& operator=(const Handles&) = delete;
    ~Handles() {
        qx_reader_free(reader);
        qx_writer_free(writer);
        qx_maker_free(maker);
        qx_cutter_free(cutter);
        qx_joiner_free(joiner);
        qx_page_joiner_free(pages);
    }
};

/// Calls, and holds what is handed out to what came of it.
template <class Result, class Call>
qx_result Try(Call call) {
    const Result* handed = nullptr;
    const qx_result result = call(&handed);
    EXPECT_EQ(handed == nullptr, result == QX_NO_MEMORY);
    return result;
}

qx_result ReadPart(const Handles& handles) {
    return Try<qx_reading>([&](const qx_reading** handed) {
        return qx_read_hex(handles.reader, c_part, std::strlen(c_part), nullptr, handed);
    });
}

qx_result ReadPage(const Handles& handles) {
    return Try<qx_cell_reading>([&](const qx_cell_reading** handed) {
        return qx_read_cell_hex(handles.reader, c_page, std::strlen(c_page), QX_CELL_GSM_PAGE, handed);
    });
}

/// One part of two, which the other one completes.
qx_result ReadPartOfTwo(const Handles& handles, char number) {
    std::string part = c_part;
    part.replace(part.find("00032A0302"), 10, std::string("00032A020") + number);
    return Try<qx_reading>([&](const qx_reading** handed) {
        return qx_read_hex(handles.reader, part.data(), part.size(), nullptr, handed);
    });
}

qx_result Join(const Handles& handles, std::uint64_t tag, std::vector<int>* complete = nullptr) {
    return Try<qx_joined_list>([&](const qx_joined_list** handed) {
        const qx_result result = qx_joiner_add(handles.joiner, handles.reader, 0, tag, handed);
        for (std::size_t i = 0; complete != nullptr && result == QX_OK && i < (*handed)->message_count; ++i)
            ++complete->at((*handed)->messages[i]->outcome);
        return result;
    });
}

qx_result TakePage(const Handles& handles) {
    return Try<qx_pages_taken>([&](const qx_pages_taken** handed) {
        return qx_page_joiner_take(handles.pages, handles.reader, handed);
    });
}

/// What a text takes that is made; 0 is what there is without memory.
template <class Put>
qx_result TryText(Put put) {
    static char text[400];
    const std::size_t size = put(text, sizeof(text));
    EXPECT_EQ(std::strlen(text), size);
    return size == 0 ? QX_NO_MEMORY : QX_OK;
}

template <class Handle, class Make>
qx_result TryNew(Make make, void (*free)(Handle*)) {
    const std::unique_ptr<Handle, void (*)(Handle*)> handle(make(), free);
    return handle ? QX_OK : QX_NO_MEMORY;
}

qx_cut_options CutOptions() {
    qx_cut_options options{};
    options.size = sizeof(options);
    options.replaces_near = true;
    options.has_reference = true;
    return options;
}

qx_timestamp Time() {
    qx_timestamp time{};
    time.size = sizeof(time);
    EXPECT_EQ(qx_make_timestamp(2026, 1, 3, 0, 0, 0, 0, &time), QX_OK);
    return time;
}

qx_validity Validity() {
    qx_validity validity{};
    validity.size = sizeof(validity);
    EXPECT_EQ(qx_make_relative_validity(10800, &validity), QX_OK);
    return validity;
}

void Nothing(const Handles&) {}

void PartIsRead(const Handles& handles) {
    ReadPart(handles);
}

void OnePartWaits(const Handles& handles) {
    ReadPartOfTwo(handles, '1');
    Join(handles, 1);
    ReadPartOfTwo(handles, '2');
}

void OnePageWaits(const Handles& handles) {
    ReadPage(handles);
    TakePage(handles);
}

/// A function of the header, called with what takes memory.
struct Operation {
    const char* name;
    void (*prepare)(const Handles&);
    std::function<qx_result(const Handles&)> call;
};

const Operation c_takesMemory[] = {
    {"qx_read", Nothing,
     [](const Handles& handles) {
         return Try<qx_reading>([&](const qx_reading** handed) {
             return qx_read(handles.reader, c_octets.data(), c_octets.size(), nullptr, handed);
         });
     }},
    {"qx_read_hex", Nothing, ReadPart},
    {"qx_read_hex", Nothing, // digits that are none
     [](const Handles& handles) {
         return Try<qx_reading>([&](const qx_reading** handed) {
             return qx_read_hex(handles.reader, "0G", 2, nullptr, handed);
         });
     }},
    {"qx_read_cell", Nothing,
     [](const Handles& handles) {
         return Try<qx_cell_reading>([&](const qx_cell_reading** handed) {
             return qx_read_cell(handles.reader, c_pageOctets.data(), c_pageOctets.size(), QX_CELL_GSM_PAGE,
                                 handed);
         });
     }},
    {"qx_read_cell_hex", Nothing, ReadPage},
    {"qx_make_number", Nothing,
     [](const Handles& handles) {
         return Try<qx_made>([&](const qx_made** handed) {
             return qx_make_number(handles.maker, c_number.data(), c_number.size(), handed);
         });
     }},
    {"qx_make_name", Nothing,
     [](const Handles& handles) {
         return Try<qx_made>([&](const qx_made** handed) {
             return qx_make_name(handles.maker, "A longer name than that", 11, handed);
         });
     }},
    {"qx_make_user_data", Nothing,
     [](const Handles& handles) {
         return Try<qx_made>([&](const qx_made** handed) {
             return qx_make_user_data(handles.maker, 4, {nullptr, 0}, {c_content.data(), c_content.size()},
                                      handed);
         });
     }},
    {"qx_write", Nothing,
     [](const Handles& handles) {
         qx_message message{};
         message.size = sizeof(message);
         message.type = QX_TYPE_DELIVER; // without a time: the fault has words
         return Try<qx_written>(
             [&](const qx_written** handed) { return qx_write(handles.writer, &message, nullptr, handed); });
     }},
    {"qx_write_cell", Nothing,
     [](const Handles& handles) {
         qx_cell_draft draft{};
         draft.size = sizeof(draft);
         draft.format = QX_CELL_GSM_PAGE;
         draft.text = {c_longText.data(), c_longText.size()};
         return Try<qx_cell_written>(
             [&](const qx_cell_written** handed) { return qx_write_cell(handles.writer, &draft, handed); });
     }},
    {"qx_choose", Nothing,
     [](const Handles& handles) {
         return Try<qx_explanation>([&](const qx_explanation** handed) {
             return qx_choose(handles.cutter, "5 \xE2\x82\xAC", 5, nullptr, handed);
         });
     }},
    {"qx_explain", Nothing,
     [](const Handles& handles) {
         return Try<qx_explanation>([&](const qx_explanation** handed) {
             return qx_explain(handles.cutter, "5 \xE2\x82\xAC", 5, nullptr, handed);
         });
     }},
    {"qx_replace_near", Nothing,
     [](const Handles& handles) {
         return Try<qx_near_text>([&](const qx_near_text** handed) {
             return qx_replace_near(handles.cutter, "\xE2\x80\x9C", 3, 0, handed);
         });
     }},
    {"qx_cut", Nothing,
     [](const Handles& handles) {
         const qx_cut_options options = CutOptions();
         return Try<qx_cut_text>([&](const qx_cut_text** handed) {
             return qx_cut(handles.cutter, c_quotation.data(), c_quotation.size(), &options, handed);
         });
     }},
    {"qx_cut_data", Nothing,
     [](const Handles& handles) {
         const qx_cut_options options = CutOptions();
         return Try<qx_cut_text>([&](const qx_cut_text** handed) {
             return qx_cut_data(handles.cutter, c_content.data(), c_content.size(), &options, handed);
         });
     }},
    {"qx_joiner_add", PartIsRead, [](const Handles& handles) { return Join(handles, 1); }},
    {"qx_joiner_add", OnePartWaits, [](const Handles& handles) { return Join(handles, 2); }},
    {"qx_joiner_expire", OnePartWaits,
     [](const Handles& handles) {
         return Try<qx_joined_list>(
             [&](const qx_joined_list** handed) { return qx_joiner_expire(handles.joiner, 86401, handed); });
     }},
    {"qx_joiner_finish", OnePartWaits,
     [](const Handles& handles) {
         return Try<qx_joined_list>(
             [&](const qx_joined_list** handed) { return qx_joiner_finish(handles.joiner, handed); });
     }},
    {"qx_page_joiner_take", [](const Handles& handles) { ReadPage(handles); }, TakePage},
    {"qx_page_joiner_take_oldest", OnePageWaits,
     [](const Handles& handles) {
         return Try<qx_pages_taken>([&](const qx_pages_taken** handed) {
             return qx_page_joiner_take_oldest(handles.pages, handed);
         });
     }},
    {"qx_reader_new", Nothing, [](const Handles&) { return TryNew(qx_reader_new, qx_reader_free); }},
    {"qx_writer_new", Nothing, [](const Handles&) { return TryNew(qx_writer_new, qx_writer_free); }},
    {"qx_maker_new", Nothing, [](const Handles&) { return TryNew(qx_maker_new, qx_maker_free); }},
    {"qx_cutter_new", Nothing, [](const Handles&) { return TryNew(qx_cutter_new, qx_cutter_free); }},
    {"qx_joiner_new", Nothing,
     [](const Handles&) { return TryNew([] { return qx_joiner_new(nullptr); }, qx_joiner_free); }},
    {"qx_page_joiner_new", Nothing,
     [](const Handles&) { return TryNew([] { return qx_page_joiner_new(3); }, qx_page_joiner_free); }},
    {"qx_timestamp_text", Nothing,
     [time = Time()](const Handles&) {
         return TryText([&](char* text, std::size_t room) { return qx_timestamp_text(&time, text, room); });
     }},
    {"qx_validity_meaning", Nothing,
     [validity = Validity()](const Handles&) {
         return TryText(
             [&](char* text, std::size_t room) { return qx_validity_meaning(&validity, text, room); });
     }},
    {"qx_coding_meaning", Nothing,
     [](const Handles&) {
         return TryText([](char* text, std::size_t room) { return qx_coding_meaning(0x10, text, room); });
     }},
    {"qx_cell_coding_meaning", Nothing,
     [](const Handles&) {
         return TryText([](char* text, std::size_t room) { return qx_cell_coding_meaning(0, text, room); });
     }},
    {"qx_message_identifier_meaning", Nothing,
     [](const Handles&) {
         return TryText(
             [](char* text, std::size_t room) { return qx_message_identifier_meaning(4370, text, room); });
     }},
    {"qx_serial_number_meaning", Nothing,
     [](const Handles&) {
         return TryText(
             [](char* text, std::size_t room) { return qx_serial_number_meaning(0x4020, 50, text, room); });
     }},
};

/// A function that takes no memory, and whether it does what it should.
struct Frugal {
    const char* name;
    bool (*call)();
};

bool IsText(const char* text) {
    return *text != '\0';
}

bool FreesNothing() {
    qx_reader_free(nullptr);
    qx_writer_free(nullptr);
    qx_maker_free(nullptr);
    qx_cutter_free(nullptr);
    qx_joiner_free(nullptr);
    qx_page_joiner_free(nullptr);
    return true;
}

const Frugal c_takesNone[] = {
    {"qx_reader_free", FreesNothing},
    {"qx_writer_free", FreesNothing},
    {"qx_maker_free", FreesNothing},
    {"qx_cutter_free", FreesNothing},
    {"qx_joiner_free", FreesNothing},
    {"qx_page_joiner_free", FreesNothing},
    {"qx_make_timestamp", [] { return Time().day == 3; }},
    {"qx_make_unix_timestamp",
     [] {
         qx_timestamp time = Time();
         return qx_make_unix_timestamp(1795248930, 0, &time) == QX_OK;
     }},
    {"qx_make_relative_validity", [] { return Validity().seconds == 10800; }},
    {"qx_make_enhanced_validity",
     [] {
         qx_validity validity = Validity();
         return qx_make_enhanced_validity(30, true, &validity) == QX_OK;
     }},
    {"qx_make_absolute_validity",
     [] {
         qx_validity validity = Validity();
         const qx_timestamp time = Time();
         return qx_make_absolute_validity(&time, &validity) == QX_OK;
     }},
    {"qx_make_coding",
     [] {
         qx_coding coding{};
         coding.size = sizeof(coding);
         return qx_make_coding(0xD8, &coding) == QX_OK;
     }},
    {"qx_result_text", [] { return IsText(qx_result_text(QX_NO_MEMORY)); }},
    {"qx_version", [] { return IsText(qx_version()); }},
    {"qx_type_name", [] { return IsText(qx_type_name(QX_TYPE_STATUS_REPORT)); }},
    {"qx_field_name", [] { return IsText(qx_field_name(QX_FIELD_WARNING_SIGNATURE)); }},
    {"qx_field_description", [] { return IsText(qx_field_description(QX_FIELD_WARNING_SIGNATURE)); }},
    {"qx_language_name", [] { return IsText(qx_language_name(QX_LANGUAGE_PORTUGUESE)); }},
    {"qx_alphabet_name", [] { return IsText(qx_alphabet_name(QX_ALPHABET_GSM7)); }},
    {"qx_type_of_number_name", [] { return IsText(qx_type_of_number_name(QX_NUMBER_NETWORK_SPECIFIC)); }},
    {"qx_numbering_plan_name", [] { return IsText(qx_numbering_plan_name(QX_PLAN_ISDN)); }},
    {"qx_protocol_meaning", [] { return IsText(qx_protocol_meaning(0x32)); }},
    {"qx_status_meaning", [] { return IsText(qx_status_meaning(0x46)); }},
    {"qx_status_class", [] { return IsText(qx_status_class(0x46)); }},
    {"qx_failure_cause_meaning", [] { return IsText(qx_failure_cause_meaning(0xD3)); }},
    {"qx_command_type_meaning", [] { return IsText(qx_command_type_meaning(2)); }},
    {"qx_element_name", [] { return IsText(qx_element_name(QX_ELEMENT_SPECIAL_MESSAGE_INDICATION)); }},
    {"qx_port_meaning", [] { return IsText(qx_port_meaning(true, 2948)); }},
    {"qx_class_meaning", [] { return IsText(qx_class_meaning(1)); }},
    {"qx_waiting_type_name", [] { return IsText(qx_waiting_type_name(QX_WAITING_VOICE)); }},
    {"qx_join_outcome_name", [] { return IsText(qx_join_outcome_name(QX_OUTCOME_DISPLACED)); }},
    {"qx_join_outcome_meaning", [] { return IsText(qx_join_outcome_meaning(QX_OUTCOME_DISPLACED)); }},
    {"qx_cell_format_name", [] { return IsText(qx_cell_format_name(QX_CELL_ETWS_NOTIFICATION)); }},
    {"qx_warning_type_name", [] { return IsText(qx_warning_type_name(0)); }},
};

TEST(EveryAllocationOfTheCInterface, IsOfAFunctionThatIsHere) {
    std::ifstream in(QX_C_HEADER);
    std::stringstream header;
    header << in.rdbuf();
    const std::string text = header.str();
    const std::regex declaration(R"(MESSAGES_API [^;(]*\b(qx_\w+)\()");
    std::set<std::string> declared;
    for (std::sregex_iterator one(text.begin(), text.end(), declaration), end; one != end; ++one)
        declared.insert((*one)[1]);
    std::set<std::string> called;
    for (const Operation& operation : c_takesMemory)
        called.insert(operation.name);
    for (const Frugal& operation : c_takesNone)
        called.insert(operation.name);
    EXPECT_EQ(called, declared);
}

TEST(EveryAllocationOfTheCInterface, FailsWithoutAnException) {
    for (const Operation& operation : c_takesMemory) {
        SCOPED_TRACE(operation.name);
        unsigned long points = 0;
        for (bool isThrough = false; !isThrough; ++points) {
            const unsigned long open = tests::Allocations() - tests::Deallocations();
            {
                const Handles handles;
                operation.prepare(handles);
                qx_result result = QX_OK;
                bool hasFailed = false;
                {
                    const tests::FailAllocation fail(points + 1);
                    result = operation.call(handles);
                    hasFailed = fail.Happened();
                }
                ASSERT_EQ(result == QX_NO_MEMORY, hasFailed) << points;
                isThrough = !hasFailed;
                EXPECT_NE(operation.call(handles), QX_NO_MEMORY) << "it can be used again";
            }
            // The allocation that failed was counted and never given back.
            ASSERT_EQ(tests::Allocations() - tests::Deallocations(), open + (isThrough ? 0 : 1));
        }
        EXPECT_GT(points, 1U) << "what allocates nothing stands in the other table";
    }
}

TEST(NoAllocation, IsMadeWhereNoneIsNeeded) {
    for (const Frugal& operation : c_takesNone) {
        const unsigned long before = tests::Allocations();
        EXPECT_TRUE(operation.call()) << operation.name;
        EXPECT_EQ(tests::Allocations(), before) << operation.name;
    }
}

TEST(EveryAllocationOfACJoiner, FailsAndNothingIsLost) {
    bool isThrough = false;
    for (unsigned long points = 1; !isThrough; ++points) {
        SCOPED_TRACE(points);
        const Handles handles;
        std::vector<int> outcomes(QX_OUTCOME_FINISHED + 1);
        ReadPartOfTwo(handles, '1');
        ASSERT_EQ(Join(handles, 1, &outcomes), QX_OK);
        ReadPartOfTwo(handles, '2');
        {
            const tests::FailAllocation fail(points);
            const qx_result result = Join(handles, 2, &outcomes);
            isThrough = !fail.Happened();
            ASSERT_EQ(result == QX_NO_MEMORY, !isThrough);
        }
        EXPECT_EQ(outcomes[QX_OUTCOME_COMPLETE], isThrough ? 1 : 0);
        ASSERT_EQ(Join(handles, 2, &outcomes), QX_OK);
        EXPECT_EQ(outcomes[QX_OUTCOME_COMPLETE], 1) << "whether the part had been taken in or not";
        const qx_joined_list* joined = nullptr;
        ASSERT_EQ(qx_joiner_finish(handles.joiner, &joined), QX_OK);
        EXPECT_EQ(joined->message_count, 0U);
    }
}

TEST(EveryAllocationOfACPageJoiner, FailsAndNothingIsLost) {
    std::string other = c_page;
    other.replace(other.find("9012"), 4, "9022");
    bool isThrough = false;
    for (unsigned long points = 1; !isThrough; ++points) {
        const Handles handles;
        const qx_pages_taken* taken = nullptr;
        const qx_cell_reading* reading = nullptr;
        ReadPage(handles);
        ASSERT_EQ(qx_page_joiner_take(handles.pages, handles.reader, &taken), QX_OK);
        ASSERT_EQ(taken->message_count, 0U);
        qx_read_cell_hex(handles.reader, other.data(), other.size(), QX_CELL_GSM_PAGE, &reading);
        {
            const tests::FailAllocation fail(points);
            const qx_result result = qx_page_joiner_take(handles.pages, handles.reader, &taken);
            isThrough = !fail.Happened();
            ASSERT_EQ(result == QX_NO_MEMORY, !isThrough) << points;
        }
        std::size_t complete = taken == nullptr ? 0 : taken->message_count;
        ASSERT_EQ(qx_page_joiner_take(handles.pages, handles.reader, &taken), QX_OK);
        complete += taken->message_count;
        EXPECT_EQ(complete, 1U) << points;
    }
}

/// A page that was taken in before memory ran out is a duplicate when it is given again.
TEST(EveryAllocationOfACPageJoiner, FailsAndTheLastPageSaysWhetherItIsADuplicate) {
    std::vector<bool> areDuplicates;
    bool isThrough = false;
    for (unsigned long points = 1; !isThrough; ++points) {
        const Handles handles;
        ReadPage(handles);
        {
            const tests::FailAllocation fail(points);
            isThrough = TakePage(handles) == QX_OK;
        }
        const qx_pages_taken* taken = nullptr;
        ASSERT_EQ(qx_page_joiner_take(handles.pages, handles.reader, &taken), QX_OK);
        areDuplicates.push_back(taken->is_duplicate);
    }
    ASSERT_GE(areDuplicates.size(), 3U);
    EXPECT_FALSE(areDuplicates.front()) << "memory ran out before it was taken in";
    EXPECT_TRUE(areDuplicates.end()[-2]) << "memory ran out after that";
    EXPECT_TRUE(areDuplicates.back());
}

TEST(NoAllocation, IsMadeByAReaderThatWasUsed) {
    const Handles handles;
    ReadPart(handles);
    ReadPart(handles);
    std::vector<std::uint8_t> octets = {0x04, 0x04, 0x91, 0x44, 0x97, 0x00, 0x00, 0x62, 0x11,
                                        0x12, 0x80, 0x51, 0x03, 0x00, 0x02, 0xC8, 0x34};
    const qx_reading* reading = nullptr;
    qx_read(handles.reader, octets.data(), octets.size(), nullptr, &reading);
    const unsigned long before = tests::Allocations();
    EXPECT_EQ(qx_read(handles.reader, octets.data(), octets.size(), nullptr, &reading), QX_OK);
    EXPECT_EQ(tests::Allocations(), before);
}

TEST(NoAllocation, IsKeptOfWhatAJoinerRefuses) {
    const Handles handles;
    const qx_joined_list* joined = nullptr;
    EXPECT_EQ(qx_joiner_add(handles.joiner, nullptr, 0, 0, &joined), QX_ARGUMENT);
    const unsigned long before = tests::Allocations();
    for (int time = 0; time < 9; ++time)
        EXPECT_EQ(qx_joiner_add(handles.joiner, nullptr, 0, 0, &joined), QX_ARGUMENT);
    EXPECT_EQ(tests::Allocations(), before);
}

TEST(Allocations, OfASmallReadingAreOneBlockForWhatIsHandedOut) {
    const Handles handles;
    unsigned long before = tests::AllocatedBytes();
    EXPECT_FALSE(Messages::ReadHex(c_part).fault);
    const unsigned long inCxx = tests::AllocatedBytes() - before;
    before = tests::AllocatedBytes();
    EXPECT_EQ(ReadPart(handles), QX_OK);
    EXPECT_LE(tests::AllocatedBytes() - before, inCxx + 4096 + c_octets.size());
}

/// Each block is larger than those before it together, so that there are few.
TEST(Allocations, OfALongTextAreFewBlocksForWhatIsHandedOut) {
    const std::string text(255 * std::size_t{153}, 'a');
    Messages::CutOptions options;
    options.reference = 0;
    unsigned long before = tests::Allocations();
    EXPECT_EQ(Messages::CutIntoParts(text, options).parts.size(), 255U);
    const unsigned long inCxx = tests::Allocations() - before;
    const Handles handles;
    const qx_cut_options known = CutOptions();
    const qx_cut_text* cut = nullptr;
    before = tests::Allocations();
    EXPECT_EQ(qx_cut(handles.cutter, text.data(), text.size(), &known, &cut), QX_OK);
    EXPECT_LE(tests::Allocations() - before, inCxx + 24);
}

} // namespace
