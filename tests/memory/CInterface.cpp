// The C interface when memory runs out: the n-th allocation fails, for n = 1, 2, 3 … until the call gets
// through. Each time it says so and hands nothing out, no exception passes, and the handle can be used again.
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Messages/qx_messages.h"
#include "support/Allocations.h"

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

const struct Operation {
    const char* name;
    std::function<qx_result(const Handles&)> call;
} c_operations[] = {
    {"Read", ReadPart},
    {"ReadDigitsThatAreNone",
     [](const Handles& handles) {
         return Try<qx_reading>([&](const qx_reading** handed) {
             return qx_read_hex(handles.reader, "0G", 2, nullptr, handed);
         });
     }},
    {"ReadCell", ReadPage},
    {"MakeNumber",
     [](const Handles& handles) {
         return Try<qx_made>([&](const qx_made** handed) {
             return qx_make_number(handles.maker, c_number.data(), c_number.size(), handed);
         });
     }},
    {"MakeUserData",
     [](const Handles& handles) {
         return Try<qx_made>([&](const qx_made** handed) {
             return qx_make_user_data(handles.maker, 4, {nullptr, 0}, {c_content.data(), c_content.size()},
                                      handed);
         });
     }},
    {"Write",
     [](const Handles& handles) {
         qx_message message{};
         message.size = sizeof(message);
         message.type = QX_TYPE_DELIVER; // without a time: the fault has words
         return Try<qx_written>(
             [&](const qx_written** handed) { return qx_write(handles.writer, &message, nullptr, handed); });
     }},
    {"WriteCell",
     [](const Handles& handles) {
         qx_cell_draft draft{};
         draft.size = sizeof(draft);
         draft.format = QX_CELL_GSM_PAGE;
         draft.text = {c_longText.data(), c_longText.size()};
         return Try<qx_cell_written>(
             [&](const qx_cell_written** handed) { return qx_write_cell(handles.writer, &draft, handed); });
     }},
    {"Explain",
     [](const Handles& handles) {
         return Try<qx_explanation>([&](const qx_explanation** handed) {
             return qx_explain(handles.cutter, "5 \xE2\x82\xAC", 5, nullptr, handed);
         });
     }},
    {"Cut",
     [](const Handles& handles) {
         qx_cut_options options{};
         options.size = sizeof(options);
         options.replaces_near = true;
         return Try<qx_cut_text>([&](const qx_cut_text** handed) {
             return qx_cut(handles.cutter, c_quotation.data(), c_quotation.size(), &options, handed);
         });
     }},
    {"ReplaceNear",
     [](const Handles& handles) {
         return Try<qx_near_text>([&](const qx_near_text** handed) {
             return qx_replace_near(handles.cutter, "\xE2\x80\x9C", 3, 0, handed);
         });
     }},
};

TEST(EveryAllocationOfTheCInterface, FailsWithoutAnException) {
    for (const Operation& operation : c_operations) {
        SCOPED_TRACE(operation.name);
        unsigned long points = 0;
        for (bool isThrough = false; !isThrough; ++points) {
            const unsigned long open = tests::Allocations() - tests::Deallocations();
            {
                const Handles handles;
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
        EXPECT_GT(points, 1U) << "an operation that allocates nothing has no place here";
    }
}

TEST(EveryAllocationOfTheCInterface, FailsWhereAHandleIsMade) {
    const std::function<bool()> isMade[] = {
        [] {
            return std::unique_ptr<qx_reader, void (*)(qx_reader*)>(qx_reader_new(), qx_reader_free) !=
                   nullptr;
        },
        [] {
            return std::unique_ptr<qx_writer, void (*)(qx_writer*)>(qx_writer_new(), qx_writer_free) !=
                   nullptr;
        },
        [] {
            return std::unique_ptr<qx_maker, void (*)(qx_maker*)>(qx_maker_new(), qx_maker_free) != nullptr;
        },
        [] {
            return std::unique_ptr<qx_cutter, void (*)(qx_cutter*)>(qx_cutter_new(), qx_cutter_free) !=
                   nullptr;
        },
        [] {
            return std::unique_ptr<qx_joiner, void (*)(qx_joiner*)>(qx_joiner_new(nullptr), qx_joiner_free) !=
                   nullptr;
        },
        [] {
            return std::unique_ptr<qx_page_joiner, void (*)(qx_page_joiner*)>(qx_page_joiner_new(3),
                                                                              qx_page_joiner_free) != nullptr;
        },
    };
    for (const auto& make : isMade) {
        {
            const tests::FailAllocation fail(1);
            EXPECT_FALSE(make());
        }
        EXPECT_TRUE(make());
    }
}

/// How often a part with a tag was handed back.
void Count(const qx_joined_list* joined, std::vector<int>& back) {
    for (std::size_t i = 0; joined != nullptr && i < joined->message_count; ++i)
        for (std::size_t part = 0; part < joined->messages[i]->part_count; ++part)
            ++back.at(static_cast<std::size_t>(joined->messages[i]->parts[part]->tag));
}

TEST(EveryAllocationOfACJoiner, FailsAndNothingIsLost) {
    std::string first = c_part;
    first.replace(first.find("00032A0302"), 10, "00032A0301");
    bool isThrough = false;
    for (unsigned long points = 1; !isThrough; ++points) {
        const Handles handles;
        std::vector<int> back(3);
        const qx_joined_list* joined = nullptr;
        const qx_reading* reading = nullptr;
        qx_read_hex(handles.reader, first.data(), first.size(), nullptr, &reading);
        ASSERT_EQ(qx_joiner_add(handles.joiner, handles.reader, 0, 1, &joined), QX_OK);
        Count(joined, back);
        ReadPart(handles);
        {
            const tests::FailAllocation fail(points);
            const qx_result result = qx_joiner_add(handles.joiner, handles.reader, 0, 2, &joined);
            isThrough = !fail.Happened();
            ASSERT_EQ(result == QX_NO_MEMORY, !isThrough) << points;
        }
        Count(joined, back);
        ASSERT_EQ(qx_joiner_finish(handles.joiner, &joined), QX_OK);
        Count(joined, back);
        EXPECT_EQ(back[1], 1) << points;
        EXPECT_LE(back[2], 1) << points;
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

} // namespace
