// What joins the parts of messages, and the pages of cell broadcast.
#include "c/Calls.h"
#include "c/HandedBack.h"
#include "c/Reader.h"

using namespace Messages;

struct qx_joiner {
    explicit qx_joiner(const JoinLimits& limits) : joiner(limits) {}

    Joiner joiner;
    HandedBack<std::vector<Joined>> handedBack;
    Results results;
};

struct qx_page_joiner {
    explicit qx_page_joiner(std::size_t messages) noexcept : joiner(messages) {}

    CellJoiner joiner;
    HandedBack<CellTaken> handedBack;
    Results results;
};

namespace {

/// A reader that has read such last.
const qx_reader& ReaderOf(const qx_reader* reader, qx_reader::Kind kind) {
    if (reader == nullptr || reader->kind != kind)
        throw Refusal();
    return *reader;
}

/// What is still to be told.
const qx_joined_list* Told(qx_joiner& joiner) {
    std::vector<const Joined*> messages;
    for (const std::vector<Joined>& batch : joiner.handedBack.Batches())
        for (const Joined& message : batch)
            messages.push_back(&message);
    auto* const result = joiner.results.Make<qx_joined_list>();
    joiner.results.ListBy(messages, [&](const Joined* message) { return joiner.results.Of(*message); })
        .To(result->messages, result->message_count);
    joiner.handedBack.Tell();
    return result;
}

/// The same of pages.
const qx_pages_taken* Told(qx_page_joiner& joiner) {
    std::vector<const qx_cell_message*> messages;
    for (const CellTaken& batch : joiner.handedBack.Batches()) {
        for (const CellMessage& message : batch.givenUp)
            messages.push_back(joiner.results.Of(message, true));
        if (batch.complete)
            messages.push_back(joiner.results.Of(*batch.complete, false));
    }
    auto* const result = joiner.results.Make<qx_pages_taken>();
    result->is_duplicate = joiner.handedBack.Batches().back().isDuplicate;
    joiner.results.ListBy(messages, [](const qx_cell_message* message) { return message; })
        .To(result->messages, result->message_count);
    joiner.handedBack.Tell();
    return result;
}

/// Hands out what `give(joiner)` gives, after what is still to be told.
template <class Handle, class Result, class Give>
qx_result HandBack(Handle* handle, const Result** handed, Give give) {
    return Handing(handle, handed, [&](Handle& used) {
        used.handedBack.Take([&] { return give(used.joiner); });
        return Told(used);
    });
}

JoinLimits LimitsOf(const qx_join_limits* given) {
    const qx_join_limits limits = GivenOrNothing(given);
    Require(limits.seconds >= 0);
    JoinLimits value;
    if (limits.messages != 0)
        value.messages = limits.messages;
    if (limits.octets != 0)
        value.octets = limits.octets;
    if (limits.seconds != 0)
        value.seconds = limits.seconds;
    return value;
}

} // namespace

qx_joiner* qx_joiner_new(const qx_join_limits* limits) {
    qx_joiner* joiner = nullptr;
    Guarded([&] {
        joiner = NewHandle<qx_joiner>(LimitsOf(limits));
        return QX_OK;
    });
    return joiner;
}

void qx_joiner_free(qx_joiner* joiner) {
    delete joiner;
}

qx_result qx_joiner_add(qx_joiner* joiner, const qx_reader* reader, int64_t now, uint64_t tag,
                        const qx_joined_list** joined) {
    return HandBack(joiner, joined, [&](Joiner& used) {
        const Reading& reading = ReaderOf(reader, qx_reader::Kind::Message).reading;
        Require(reading.Type() != TpduType::None);
        return used.Add(reading, now, tag);
    });
}

qx_result qx_joiner_expire(qx_joiner* joiner, int64_t now, const qx_joined_list** joined) {
    return HandBack(joiner, joined, [&](Joiner& used) { return used.Expire(now); });
}

qx_result qx_joiner_finish(qx_joiner* joiner, const qx_joined_list** joined) {
    return HandBack(joiner, joined, [](Joiner& used) { return used.Finish(); });
}

qx_page_joiner* qx_page_joiner_new(size_t messages) {
    return NewHandle<qx_page_joiner>(messages == 0 ? std::size_t{CellJoiner::c_messages} : messages);
}

void qx_page_joiner_free(qx_page_joiner* joiner) {
    delete joiner;
}

qx_result qx_page_joiner_take(qx_page_joiner* joiner, const qx_reader* reader, const qx_pages_taken** taken) {
    return HandBack(joiner, taken, [&](CellJoiner& used) {
        return used.Take(ReaderOf(reader, qx_reader::Kind::Cell).cell);
    });
}

qx_result qx_page_joiner_take_oldest(qx_page_joiner* joiner, const qx_pages_taken** taken) {
    return HandBack(joiner, taken, [](CellJoiner& used) {
        CellTaken oldest;
        if (auto message = used.TakeOldest())
            oldest.givenUp.push_back(std::move(*message));
        return oldest;
    });
}
