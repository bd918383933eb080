// What callers of the first header rely on: the members that each structure had, its size, and that what is
// added later begins after all of it.
#include <algorithm>
#include <array>
#include <cstring>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <new>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "Messages/qx_messages.h"

namespace {

/// What any member can begin with; each octet of an array counts as one.
struct Anything {
    int octet = 0;
    template <class Member>
    operator Member() const { // NOLINT(google-explicit-constructor): it stands for all members
        Member member;
        std::memset(&member, octet, sizeof(member));
        return member;
    }
};

template <class Struct, std::size_t... Members>
constexpr bool Has(std::index_sequence<Members...>) {
    return requires {
        Struct{(static_cast<void>(Members), Anything{})...};
    };
}

template <class Struct, std::size_t Count = 1>
constexpr std::size_t MembersOf() {
    if constexpr (Has<Struct>(std::make_index_sequence<Count + 1>()))
        return MembersOf<Struct, Count + 1>();
    else
        return Count;
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmissing-braces" // an array among the members has none here
/// The first octet that a member, from 0, has.
template <class Struct, std::size_t... Members>
std::size_t PlaceOf(std::size_t member, std::index_sequence<Members...>) {
    alignas(Struct) std::array<unsigned char, sizeof(Struct)> octets{};
    new (octets.data()) Struct{Anything{Members == member ? 1 : 0}...}; // in place, so that padding stays 0
    return static_cast<std::size_t>(std::find(octets.begin(), octets.end(), 1) - octets.begin());
}
#pragma GCC diagnostic pop

/// Whether no member after the first ones begins within the size of then.
template <class Struct>
bool GrowsAfter(std::size_t members, std::size_t size) {
    constexpr std::size_t all = MembersOf<Struct>();
    for (std::size_t later = members; later < all; ++later)
        if (PlaceOf<Struct>(later, std::make_index_sequence<all>()) < size)
            return false;
    return true;
}

struct Row {
    std::size_t members; ///< that the structure had at first
    std::size_t size;    ///< of then, where a pointer has 64 bits
    std::size_t sizeNow;
    std::size_t membersNow;
    bool growsAfter;
};

template <class Struct>
Row Now(std::size_t members, std::size_t size) {
    return {members, size, sizeof(Struct), MembersOf<Struct>(), GrowsAfter<Struct>(members, size)};
}

/// What each structure had at first. A row stays as it is for ever.
const std::map<std::string, Row> c_atFirst = {
    {"qx_misfit", Now<qx_misfit>(3, 24)},
    {"qx_address", Now<qx_address>(7, 56)},
    {"qx_timestamp", Now<qx_timestamp>(17, 32)},
    {"qx_validity", Now<qx_validity>(14, 32)},
    {"qx_coding", Now<qx_coding>(13, 24)},
    {"qx_concatenation", Now<qx_concatenation>(5, 16)},
    {"qx_ports", Now<qx_ports>(4, 16)},
    {"qx_special_message_indication", Now<qx_special_message_indication>(6, 16)},
    {"qx_text_formatting", Now<qx_text_formatting>(10, 24)},
    {"qx_predefined_object", Now<qx_predefined_object>(3, 16)},
    {"qx_object_distribution", Now<qx_object_distribution>(3, 16)},
    {"qx_hyperlink", Now<qx_hyperlink>(4, 16)},
    {"qx_element", Now<qx_element>(14, 104)},
    {"qx_user_data", Now<qx_user_data>(16, 112)},
    {"qx_message", Now<qx_message>(22, 80)},
    {"qx_place", Now<qx_place>(7, 24)},
    {"qx_remark", Now<qx_remark>(8, 56)},
    {"qx_fault", Now<qx_fault>(8, 56)},
    {"qx_reading", Now<qx_reading>(11, 80)},
    {"qx_read_options", Now<qx_read_options>(6, 16)},
    {"qx_write_fault", Now<qx_write_fault>(7, 56)},
    {"qx_written", Now<qx_written>(4, 40)},
    {"qx_made", Now<qx_made>(4, 32)},
    {"qx_cut_options", Now<qx_cut_options>(15, 64)},
    {"qx_choice", Now<qx_choice>(7, 40)},
    {"qx_costly_character", Now<qx_costly_character>(7, 40)},
    {"qx_explanation", Now<qx_explanation>(8, 64)},
    {"qx_replacement", Now<qx_replacement>(4, 40)},
    {"qx_near_text", Now<qx_near_text>(4, 40)},
    {"qx_cut_fault", Now<qx_cut_fault>(6, 64)},
    {"qx_cut_text", Now<qx_cut_text>(10, 88)},
    {"qx_join_limits", Now<qx_join_limits>(4, 32)},
    {"qx_joined_part", Now<qx_joined_part>(4, 32)},
    {"qx_joined_gap", Now<qx_joined_gap>(5, 32)},
    {"qx_joined", Now<qx_joined>(10, 88)},
    {"qx_joined_list", Now<qx_joined_list>(3, 24)},
    {"qx_serial_number", Now<qx_serial_number>(7, 24)},
    {"qx_cell_coding", Now<qx_cell_coding>(9, 32)},
    {"qx_page", Now<qx_page>(16, 120)},
    {"qx_etws_warning", Now<qx_etws_warning>(7, 40)},
    {"qx_cell_reading", Now<qx_cell_reading>(16, 144)},
    {"qx_cell_message", Now<qx_cell_message>(10, 96)},
    {"qx_pages_taken", Now<qx_pages_taken>(4, 32)},
    {"qx_cell_draft", Now<qx_cell_draft>(8, 56)},
    {"qx_cell_written", Now<qx_cell_written>(8, 72)},
};

TEST(Structures, AllHaveARow) {
    std::ifstream in(QX_C_HEADER);
    std::stringstream header;
    header << in.rdbuf();
    const std::string text = header.str();
    const std::regex begins(R"(typedef struct (qx_\w+) \{\s+size_t size;)");
    std::set<std::string> declared;
    for (std::sregex_iterator one(text.begin(), text.end(), begins), end; one != end; ++one)
        declared.insert((*one)[1]);
    std::set<std::string> rows;
    for (const auto& [name, row] : c_atFirst)
        rows.insert(name);
    EXPECT_EQ(rows, declared);
}

TEST(Structures, KeepWhatTheyHadAtFirst) {
    if (sizeof(void*) != 8)
        GTEST_SKIP() << "the sizes are those of 64 bits";
    for (const auto& [name, row] : c_atFirst) {
        EXPECT_GE(row.membersNow, row.members) << name;
        EXPECT_GE(row.sizeNow, row.size) << name;
        EXPECT_EQ(row.sizeNow == row.size, row.membersNow == row.members) << name;
        EXPECT_TRUE(row.growsAfter) << name << ": a later member lies in what was padding";
    }
}

TEST(Structures, MayNotGrowIntoTheirPadding) {
    struct AtFirst {
        std::uint32_t size;
        std::uint8_t last;
    };
    struct InPadding {
        std::uint32_t size;
        std::uint8_t last;
        std::uint8_t later;
    };
    struct AfterIt {
        std::uint32_t size;
        std::uint8_t last;
        std::uint32_t later;
    };
    struct OneInPaddingOneAfter {
        std::uint32_t size;
        std::uint8_t last;
        std::uint8_t later;
        std::uint32_t latest;
    };
    EXPECT_EQ(MembersOf<AtFirst>(), 2U);
    EXPECT_EQ(MembersOf<OneInPaddingOneAfter>(), 4U);
    EXPECT_TRUE(GrowsAfter<AtFirst>(2, 8));
    EXPECT_FALSE(GrowsAfter<InPadding>(2, 8));
    EXPECT_TRUE(GrowsAfter<AfterIt>(2, 8));
    EXPECT_FALSE(GrowsAfter<OneInPaddingOneAfter>(2, 8));
}

template <class Handle>
using Owned = std::unique_ptr<Handle, void (*)(Handle*)>;

/// All 0 but for its size.
template <class Struct>
Struct OfSize(std::size_t size) {
    Struct value{};
    value.size = size;
    return value;
}

/// Writes a message with what is given.
qx_result Written(const qx_message& message, const qx_address* serviceCentre = nullptr) {
    const Owned<qx_writer> writer(qx_writer_new(), qx_writer_free);
    const qx_written* written = nullptr;
    return qx_write(writer.get(), &message, serviceCentre, &written);
}

/// Writes an SMS-SUBMIT with this user data.
qx_result WrittenWith(const qx_user_data& userData) {
    auto message = OfSize<qx_message>(sizeof(qx_message));
    message.type = QX_TYPE_SUBMIT;
    message.user_data = &userData;
    return Written(message);
}

/// What a structure needs up to its last member of the first header, where a pointer has 64 bits, and a call
/// that takes one of such a size.
const struct {
    const char* name;
    std::size_t first;
    std::function<qx_result(std::size_t)> call;
} c_given[] = {
    {"qx_address", 56,
     [](std::size_t size) {
         const auto serviceCentre = OfSize<qx_address>(size);
         return Written(OfSize<qx_message>(sizeof(qx_message)), &serviceCentre);
     }},
    {"qx_timestamp", 32,
     [](std::size_t size) {
         auto time = OfSize<qx_timestamp>(size);
         return qx_make_timestamp(2026, 11, 22, 0, 0, 0, 0, &time);
     }},
    {"qx_validity", 32,
     [](std::size_t size) {
         auto validity = OfSize<qx_validity>(size);
         return qx_make_relative_validity(300, &validity);
     }},
    {"qx_coding", 21,
     [](std::size_t size) {
         auto coding = OfSize<qx_coding>(size);
         return qx_make_coding(0, &coding);
     }},
    {"qx_concatenation", 14,
     [](std::size_t size) {
         const auto concatenation = OfSize<qx_concatenation>(size);
         auto data = OfSize<qx_user_data>(sizeof(qx_user_data));
         data.concatenation = &concatenation;
         return WrittenWith(data);
     }},
    {"qx_ports", 14,
     [](std::size_t size) {
         const auto ports = OfSize<qx_ports>(size);
         auto data = OfSize<qx_user_data>(sizeof(qx_user_data));
         data.ports = &ports;
         return WrittenWith(data);
     }},
    {"qx_element", 98,
     [](std::size_t size) {
         const auto element = OfSize<qx_element>(size);
         const qx_element* const list = &element;
         auto data = OfSize<qx_user_data>(sizeof(qx_user_data));
         data.elements = &list;
         data.element_count = 1;
         return WrittenWith(data);
     }},
    {"qx_user_data", 112, [](std::size_t size) { return WrittenWith(OfSize<qx_user_data>(size)); }},
    {"qx_message", 80, [](std::size_t size) { return Written(OfSize<qx_message>(size)); }},
    {"qx_read_options", 16,
     [](std::size_t size) {
         const Owned<qx_reader> reader(qx_reader_new(), qx_reader_free);
         const auto options = OfSize<qx_read_options>(size);
         const qx_reading* reading = nullptr;
         return qx_read(reader.get(), nullptr, 0, &options, &reading);
     }},
    {"qx_cut_options", 58,
     [](std::size_t size) {
         const Owned<qx_cutter> cutter(qx_cutter_new(), qx_cutter_free);
         const auto options = OfSize<qx_cut_options>(size);
         const qx_cut_text* cut = nullptr;
         return qx_cut(cutter.get(), nullptr, 0, &options, &cut);
     }},
    {"qx_join_limits", 32,
     [](std::size_t size) {
         const auto limits = OfSize<qx_join_limits>(size);
         return Owned<qx_joiner>(qx_joiner_new(&limits), qx_joiner_free) ? QX_OK : QX_ARGUMENT;
     }},
    {"qx_cell_draft", 52,
     [](std::size_t size) {
         const Owned<qx_writer> writer(qx_writer_new(), qx_writer_free);
         const auto draft = OfSize<qx_cell_draft>(size);
         const qx_cell_written* written = nullptr;
         return qx_write_cell(writer.get(), &draft, &written);
     }},
};

TEST(Structures, AreTakenFromTheirFirstSizeOn) {
    for (const auto& row : c_given) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.call(0), QX_ARGUMENT);
        EXPECT_NE(row.call(c_atFirst.at(row.name).sizeNow), QX_ARGUMENT);
        if (sizeof(void*) == 8) {
            EXPECT_EQ(row.call(row.first - 1), QX_ARGUMENT);
            EXPECT_NE(row.call(row.first), QX_ARGUMENT);
        }
    }
}

} // namespace
