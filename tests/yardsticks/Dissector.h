// What tshark's dissectors make of messages: one capture, one run of the program, the fields of each message.
#ifndef TESTS_YARDSTICKS_DISSECTOR_H
#define TESTS_YARDSTICKS_DISSECTOR_H

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "support/Octets.h"

namespace yardsticks {

/// The fields of one message by their short names, such as "tp-mr". A field that occurs several times is an
/// array.
using Fields = nlohmann::json;

/// A TPDU on its way to the message centre, and one that comes from it.
tests::Bytes FromMobile(const tests::Bytes& tpdu);
tests::Bytes ToMobile(const tests::Bytes& tpdu);
/// A report on its way: the acknowledgement of a message, or with TP-FCS an error.
tests::Bytes Report(const tests::Bytes& tpdu, bool isToMobile, bool isError);

std::vector<Fields> DissectSms(const std::vector<tests::Bytes>& messages);
std::vector<Fields> DissectCellBroadcast(const std::vector<tests::Bytes>& pages);

/// A number field, the n-th where it stands several times; -1 when it is not there.
long Number(const Fields& fields, const std::string& name, std::size_t n = 0);
/// The characters of a text.
std::u32string CodePoints(const std::string& utf8);
/// A text field; empty when it is not there.
std::u32string Text(const Fields& fields, const std::string& name);

/// How many messages a test makes: QX_CASES, or what is built in. The seed is QX_SEED, or one of its own that
/// is printed.
unsigned int MessageCount();
std::uint64_t Seed();

} // namespace yardsticks

#endif
