#include "sql/functions/Functions.h"

namespace sql {

namespace {

using Messages::Field;

/// What a field is as a number or as a text; of one that is neither, its octets in hexadecimal.
struct ValueMaker {
    const show::MessageField& field;
    const show::Message& message;

    Value operator()(show::PlainOctets) const {
        const bool isWhole = field.field == Field::UserData && !message.reading.fault;
        const std::string* const text = isWhole ? show::TextOf(message.reading.tpdu) : nullptr;
        return text == nullptr ? Octets() : *text;
    }
    Value operator()(unsigned int value) const { return std::int64_t{value}; }
    Value operator()(const Messages::Address* address) const {
        return field.IsAbsent() ? Value() : address->ToString();
    }
    Value operator()(const Messages::Timestamp& time) const {
        return time.isValid ? time.ToString() : Octets();
    }
    Value operator()(const Messages::Validity* validity) const {
        if (const Messages::Timestamp until = validity->Absolute(); until.isValid)
            return until.ToString();
        const std::optional<std::uint32_t> seconds = validity->Seconds();
        return seconds ? std::int64_t{*seconds} : Octets();
    }
    Value operator()(const Messages::DataCoding* coding) const { return std::int64_t{coding->value}; }
    Value operator()(const Messages::UserData*) const { return Octets(); }

    Value Octets() const { return Messages::ToHex(message.Octets(field.octet, field.count)); }
};

} // namespace

std::vector<FieldRow> FieldRowsOf(const show::Message& message) {
    std::vector<FieldRow> rows;
    for (const show::MessageField& field : show::FieldsOf(message)) {
        rows.push_back({show::ShownNameOf(field.field), std::visit(ValueMaker{field, message}, field.value),
                        show::MeaningOf(field, message), field.octet, field.count, field.mask});
    }
    return rows;
}

} // namespace sql
