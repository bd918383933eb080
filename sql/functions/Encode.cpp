#include <fmt/format.h>

#include "Messages/Words.h"
#include "Messages/Write.h"
#include "sql/functions/Functions.h"

namespace sql {

namespace {

constexpr std::int64_t c_mostReference8 = 0xFF;
constexpr std::int64_t c_mostReference16 = 0xFFFF;

/// The same for the same message, and for others mostly another one: FNV-1a, folded to 8 bits.
std::uint16_t ReferenceFor(std::string_view number, std::string_view text) {
    constexpr std::uint32_t c_basis = 0x811C9DC5;
    constexpr std::uint32_t c_prime = 0x01000193;
    std::uint32_t hash = c_basis;
    for (const std::string_view piece : {number, text}) {
        for (const char character : piece)
            hash = (hash ^ static_cast<unsigned char>(character)) * c_prime;
    }
    return static_cast<std::uint16_t>((hash ^ hash >> 8U ^ hash >> 16U ^ hash >> 24U) & 0xFFU);
}

Messages::Address DestinationIn(std::string_view number) {
    Messages::Address address;
    if (const auto misfit = Messages::ToNumber(number, address))
        throw Misuse(fmt::format("octet {} of the number is of no digit", misfit->offset));
    if (address.text.empty())
        throw Misuse("the number has no digit");
    return address;
}

Messages::CutText Cut(std::string_view number, std::string_view text,
                      const std::optional<std::int64_t>& reference) {
    if (reference && (*reference < 0 || *reference > c_mostReference16))
        throw Misuse(fmt::format("the reference {} is none of 0 to {}", *reference, c_mostReference16));
    Messages::CutOptions options;
    options.reference = reference ? static_cast<std::uint16_t>(*reference) : ReferenceFor(number, text);
    options.choice.room.hasWideReference = *options.reference > c_mostReference8;
    Messages::CutText cut = Messages::CutIntoParts(text, options);
    if (cut.fault)
        throw Misuse(Messages::MeaningOf(*cut.fault));
    return cut;
}

} // namespace

std::string Encode(std::string_view number, std::string_view text, std::optional<std::int64_t> reference) {
    Messages::Submit submit;
    submit.destination = DestinationIn(number);
    Messages::CutText cut = Cut(number, text, reference);
    submit.coding = cut.coding;
    std::string array;
    for (Messages::UserData& part : cut.parts) {
        submit.userData = std::move(part);
        const Messages::Written written = Messages::Write(submit, Messages::Address{});
        if (written.fault)
            throw Misuse(Messages::MeaningOf(*written.fault));
        array += fmt::format(R"({}"{}")", array.empty() ? "[" : ",", Messages::ToHex(written.octets));
    }
    return array + ']';
}

} // namespace sql
