// What writes, and what makes the things that are written.
#include "c/Calls.h"

using namespace Messages;

struct qx_writer {
    Written written;
    CellWritten cell;
    Results results;
};

struct qx_maker {
    Address address;
    std::optional<UserData> userData;
    Results results;
};

namespace {

/// Makes an address by `make`, ToNumber() or ToName().
template <class Make>
qx_result MakeAddress(qx_maker* maker, const char* written, size_t size, const qx_made** made, Make make) {
    return Handing(maker, made, [&](qx_maker& used) {
        const auto misfit = make(GivenText(written, size), used.address);
        auto* const result = used.results.Make<qx_made>();
        result->misfit = used.results.Of(misfit);
        if (!misfit)
            result->address = used.results.Of(used.address);
        return result;
    });
}

/// Writes what was made, an optional value, to a structure of the caller's.
template <class Struct, class Value>
qx_result FillWith(Struct* filled, const std::optional<Value>& made) noexcept {
    return Guarded([&] {
        Given(filled);
        if (!made)
            return QX_FAULT;
        Fill(filled, StructOf(*made));
        return QX_OK;
    });
}

} // namespace

qx_writer* qx_writer_new(void) {
    return NewHandle<qx_writer>();
}

void qx_writer_free(qx_writer* writer) {
    delete writer;
}

qx_result qx_write(qx_writer* writer, const qx_message* message, const qx_address* service_centre,
                   const qx_written** written) {
    return Handing(writer, written, [&](qx_writer& used) {
        std::optional<Address> serviceCentre;
        if (service_centre != nullptr)
            serviceCentre = ValueOf(service_centre);
        Write(ValueOf(message), serviceCentre, used.written);
        return used.results.Of(used.written);
    });
}

qx_result qx_write_cell(qx_writer* writer, const qx_cell_draft* draft, const qx_cell_written** written) {
    return Handing(writer, written, [&](qx_writer& used) {
        used.cell = WriteCell(ValueOf(draft));
        return used.results.Of(used.cell);
    });
}

qx_maker* qx_maker_new(void) {
    return NewHandle<qx_maker>();
}

void qx_maker_free(qx_maker* maker) {
    delete maker;
}

qx_result qx_make_number(qx_maker* maker, const char* written, size_t size, const qx_made** made) {
    return MakeAddress(maker, written, size, made, ToNumber);
}

qx_result qx_make_name(qx_maker* maker, const char* written, size_t size, const qx_made** made) {
    return MakeAddress(maker, written, size, made, ToName);
}

qx_result qx_make_user_data(qx_maker* maker, uint8_t coding, qx_octets elements, qx_octets content,
                            const qx_made** made) {
    return Handing(maker, made, [&](qx_maker& used) {
        const DataCoding scheme(coding);
        const OctetView units = GivenOctets(content.data, content.size);
        Require(!scheme.CountsSeptets() ||
                std::all_of(units.begin(), units.end(), [](std::uint8_t septet) { return septet < 128; }));
        used.userData = MakeUserData(scheme, GivenOctets(elements.data, elements.size), units);
        auto* const result = used.results.Make<qx_made>();
        result->user_data = used.results.Of(used.userData);
        return result;
    });
}

qx_result qx_make_timestamp(int year, int month, int day, int hour, int minute, int second, int quarters,
                            qx_timestamp* timestamp) {
    return FillWith(timestamp, MakeTimestamp(year, month, day, hour, minute, second, quarters));
}

qx_result qx_make_unix_timestamp(int64_t unix_seconds, int quarters, qx_timestamp* timestamp) {
    return FillWith(timestamp, MakeTimestamp(unix_seconds, quarters));
}

qx_result qx_make_relative_validity(uint32_t seconds, qx_validity* validity) {
    return FillWith(validity, MakeRelativeValidity(seconds));
}

qx_result qx_make_enhanced_validity(uint32_t seconds, bool is_single_shot, qx_validity* validity) {
    return FillWith(validity, MakeEnhancedValidity(seconds, is_single_shot));
}

qx_result qx_make_absolute_validity(const qx_timestamp* until, qx_validity* validity) {
    return Guarded([&] {
        Given(validity);
        const Timestamp end = ValueOf(until);
        if (!IsTime(end))
            return QX_FAULT;
        qx_validity made = StructOf(MakeAbsoluteValidity(end));
        made.until = until;
        Fill(validity, made);
        return QX_OK;
    });
}

qx_result qx_make_coding(uint8_t value, qx_coding* coding) {
    return Guarded([&] {
        Given(coding);
        Fill(coding, StructOf(DataCoding(value)));
        return QX_OK;
    });
}
