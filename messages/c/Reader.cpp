#include "c/Reader.h"

#include "c/Calls.h"

using namespace Messages;

namespace {

const qx_reading* Tell(qx_reader& reader) {
    reader.kind = qx_reader::Kind::Message;
    return reader.results.Of(reader.reading);
}

const qx_cell_reading* TellCell(qx_reader& reader) {
    reader.kind = qx_reader::Kind::Cell;
    return reader.results.Of(reader.cell);
}

} // namespace

qx_reader* qx_reader_new(void) {
    return NewHandle<qx_reader>();
}

void qx_reader_free(qx_reader* reader) {
    delete reader;
}

qx_result qx_read(qx_reader* reader, const uint8_t* octets, size_t count, const qx_read_options* options,
                  const qx_reading** reading) {
    return Handing(reader, reading, [&](qx_reader& used) {
        used.kind = qx_reader::Kind::Nothing;
        Read(GivenOctets(octets, count), ValueOf(options), used.reading);
        return Tell(used);
    });
}

qx_result qx_read_hex(qx_reader* reader, const char* digits, size_t count, const qx_read_options* options,
                      const qx_reading** reading) {
    return Handing(reader, reading, [&](qx_reader& used) {
        used.kind = qx_reader::Kind::Nothing;
        const std::string_view text = GivenText(digits, count);
        const ReadOptions known = ValueOf(options);
        if (FromHex(text, used.octets))
            Read(used.octets, known, used.reading);
        else
            used.reading = ReadHex(text, known);
        return Tell(used);
    });
}

qx_result qx_read_cell(qx_reader* reader, const uint8_t* octets, size_t count, uint8_t format,
                       const qx_cell_reading** reading) {
    return Handing(reader, reading, [&](qx_reader& used) {
        used.kind = qx_reader::Kind::Nothing;
        used.cell = ReadCell(GivenOctets(octets, count), Named(format, CellFormat::EtwsNotification));
        return TellCell(used);
    });
}

qx_result qx_read_cell_hex(qx_reader* reader, const char* digits, size_t count, uint8_t format,
                           const qx_cell_reading** reading) {
    return Handing(reader, reading, [&](qx_reader& used) {
        used.kind = qx_reader::Kind::Nothing;
        used.cell = ReadCellHex(GivenText(digits, count), Named(format, CellFormat::EtwsNotification));
        return TellCell(used);
    });
}
