#include "commands/Parts.h"

#include "show/Message.h"

namespace qxpdu {

bool PartContent::IsAlike(const PartContent& other) const {
    return alphabet == other.alphabet && tables == other.tables;
}

bool PartContent::operator==(const PartContent& other) const {
    return IsAlike(other) && units == other.units;
}

PartContent ContentOf(const Messages::Tpdu& tpdu) {
    const Messages::UserData* const userData = Messages::UserDataOf(tpdu);
    if (userData == nullptr)
        return {};
    const Messages::DataCoding* const coding = Messages::CodingOf(tpdu);
    const Messages::OctetView octets = userData->Content();
    if (show::IsData(tpdu))
        return {Messages::Alphabet::Data, {}, {octets.begin(), octets.end()}};
    if (coding != nullptr && coding->alphabet == Messages::Alphabet::Ucs2)
        return {Messages::Alphabet::Ucs2, {}, {octets.begin(), octets.end()}};
    PartContent content{Messages::Alphabet::Gsm7, userData->tables, {}};
    content.units.resize(userData->textUnits);
    content.units.resize(
        Messages::UnpackSeptets(octets, userData->fillBits, content.units.size(), content.units.data()));
    return content;
}

} // namespace qxpdu
