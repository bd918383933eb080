#include "show/BroadcastText.h"

#include "Messages/Words.h"
#include "show/Lines.h"
#include "show/Message.h"
#include "show/Notes.h"
#include "show/Values.h"

namespace show {

namespace {

std::string RawOf(const BroadcastField& field, const Broadcast& broadcast) {
    return (field.IsNumber() ? "0x" : "") + Messages::ToHex(broadcast.Octets(field.octet, field.count));
}

Line ContentLine(const Messages::CellReading& reading) {
    if (reading.coding.HasText())
        return {"text", "", reading.text, {}};
    const std::vector<std::uint8_t> data = DataOf(reading.pages);
    return {"data", Messages::ToHex(data), DataText(data), {}};
}

} // namespace

std::string ToText(const ComparedBroadcast& compared) {
    const auto& [broadcast, host] = compared;
    std::vector<Line> lines;
    Notes notes(broadcast.reading.remarks, host);
    for (const BroadcastField& field : FieldsOf(broadcast))
        lines.push_back({ShownNameOf(field.field), RawOf(field, broadcast), MeaningOf(field, broadcast),
                         notes.Take(field.field, field.octet, field.count)});
    if (!broadcast.reading.warning)
        lines.push_back(ContentLine(broadcast.reading));
    notes.TakeRest(lines);
    return Aligned(lines);
}

} // namespace show
