// Values of libQX_Messages as the second reading has them, for messages and for cell broadcast.
#ifndef TESTS_REFERENCE_MESSAGES_BRIDGEPARTS_H
#define TESTS_REFERENCE_MESSAGES_BRIDGEPARTS_H

#include "Json.h"
#include "Messages/Read.h"
#include "model/Codes.h"

namespace plain {

Name NameOfField(Messages::Field field);
Time PlainTime(const Messages::Timestamp& time);
/// Places as the second reading has them: fields whole, and only where there is an octet.
std::vector<Place> PlainPlaces(const std::vector<Messages::FieldPlace>& places);
/// `at` is where the header's length stands among the octets.
std::vector<Element> PlainElements(const std::vector<Messages::HeaderElement>& elements,
                                   const Octets& userData, std::size_t at, std::string& contradictions);
/// Sorted.
std::vector<Remark> PlainRemarks(const std::vector<Messages::Remark>& remarks);
std::optional<Fault> PlainFault(const std::optional<Messages::Fault>& fault);

/// The members in which two readings differ, a line each; empty where they are the same.
std::string Differences(Json left, Json right);

} // namespace plain

#endif
