#include "c/Reader.h"

#include "c/Calls.h"

using namespace Messages;

namespace {

/// Hands out what `read()` returns, which reads with the reader: a joiner may take that from then on.
template <class Result, class Read>
qx_result HandRead(qx_reader* reader, const Result** handed, qx_reader::Kind kind, Read read) {
    return Handing(reader, handed, [&](qx_reader& used) {
        used.kind = qx_reader::Kind::Nothing; // until it is read
        const auto& reading = read(used);
        used.kind = kind;
        return used.results.Of(reading);
    });
}

CellFormat FormatOf(std::uint8_t format) {
    return Named(format, CellFormat::EtwsNotification);
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
    return HandRead(reader, reading, qx_reader::Kind::Message, [&](qx_reader& used) -> const Reading& {
        Read(GivenOctets(octets, count), ValueOf(options), used.reading);
        return used.reading;
    });
}

qx_result qx_read_hex(qx_reader* reader, const char* digits, size_t count, const qx_read_options* options,
                      const qx_reading** reading) {
    return HandRead(reader, reading, qx_reader::Kind::Message, [&](qx_reader& used) -> const Reading& {
        const std::string_view text = GivenText(digits, count);
        const ReadOptions known = ValueOf(options);
        if (FromHex(text, used.octets))
            Read(used.octets, known, used.reading);
        else
            used.reading = ReadHex(text, known);
        return used.reading;
    });
}

qx_result qx_read_cell(qx_reader* reader, const uint8_t* octets, size_t count, uint8_t format,
                       const qx_cell_reading** reading) {
    return HandRead(reader, reading, qx_reader::Kind::Cell, [&](qx_reader& used) -> const CellReading& {
        return used.cell = ReadCell(GivenOctets(octets, count), FormatOf(format));
    });
}

qx_result qx_read_cell_hex(qx_reader* reader, const char* digits, size_t count, uint8_t format,
                           const qx_cell_reading** reading) {
    return HandRead(reader, reading, qx_reader::Kind::Cell, [&](qx_reader& used) -> const CellReading& {
        return used.cell = ReadCellHex(GivenText(digits, count), FormatOf(format));
    });
}
