#include "stream/Conversion.h"

#include <memory>
#include <utility>

#include <fmt/format.h>

#include "characters/Hexadecimal.h"
#include "characters/InputError.h"
#include "log/Transcript.h"
#include "show/Plural.h"
#include "stream/Progress.h"
#include "stream/Workers.h"
#include "stream/Writer.h"

namespace qxpdu {

namespace {

constexpr std::size_t c_batchInputs = 256;
constexpr std::size_t c_batchBytes = 1U << 16; ///< reached by the last input of a batch

/// Inputs that one worker converts at a time.
struct Batch {
    std::vector<Input> inputs;
    std::uint64_t lines = 0; ///< read for them, chatter included
    std::uint64_t bytes = 0;
    bool isFollowed = true; ///< by input that need not be waited for, or by the end
};

/// Finds the inputs in what the user gave.
class Reader {
public:
    Reader(std::vector<std::string> arguments, LineKind kind, const Streams& streams)
        : m_Inputs(std::move(arguments), streams.in, kind == LineKind::Whole), m_Kind(kind) {}

    /// Waits for input only where the results of all that came before are out; then it may be a batch of
    /// none.
    Batch Next(std::size_t mostInputs) {
        const std::uint64_t lines = m_Inputs.Lines();
        const std::uint64_t bytes = m_Inputs.Bytes();
        Batch batch;
        for (Input input; batch.inputs.size() < mostInputs && m_Inputs.Bytes() - bytes < c_batchBytes &&
                          NextInput(input, m_MayWait && batch.inputs.empty());)
            batch.inputs.push_back(std::move(input));
        batch.lines = m_Inputs.Lines() - lines;
        batch.bytes = m_Inputs.Bytes() - bytes;
        batch.isFollowed = m_HasEnded || m_Inputs.IsReady();
        m_MayWait = !batch.isFollowed;
        return batch;
    }

    bool HasEnded() const { return m_HasEnded; }
    bool HasFailed() const { return m_Inputs.HasFailed(); }

private:
    bool NextInput(Input& input, bool mayWait) {
        do {
            if (!mayWait && !m_Inputs.IsReady())
                return false;
            if (!m_Inputs.Next(input))
                return NextOrphan(input);
        } while (input.source == Input::Source::Line && !IsInput(input));
        return true;
    }

    /// At the end.
    bool NextOrphan(Input& input) {
        m_HasEnded = !m_Transcript.Finish();
        if (m_HasEnded)
            return false;
        MakeOrphan(input);
        return true;
    }

    bool IsInput(Input& line) {
        if (m_Kind == LineKind::Hex)
            return !Trimmed(line.text).empty();
        if (m_Kind == LineKind::Message && line.text.ends_with('\r'))
            line.text.pop_back();
        if (m_Kind != LineKind::Transcript)
            return true;
        switch (m_Transcript.Take(line.text, line.number)) {
        case Transcript::Line::Pdu:
            line.heading = m_Transcript.LastHeading();
            return true;
        case Transcript::Line::Orphan:
            MakeOrphan(line);
            return true;
        case Transcript::Line::Chatter:
            break;
        }
        return false;
    }

    /// The heading stands for the PDU that is missing.
    void MakeOrphan(Input& input) const {
        input = {Input::Source::Line, m_Transcript.LastHeading()->line, {}, m_Transcript.LastHeading()};
    }

    Inputs m_Inputs;
    LineKind m_Kind;
    Transcript m_Transcript;
    bool m_MayWait = false; ///< nothing has been kept back
    bool m_HasEnded = false;
};

struct Outcome {
    Console console;
    Afterwards afterwards;
};

Outcome Convert(const Input& input, Format format, const Converter& converter) {
    Outcome outcome{Console(format), {}};
    try {
        if (input.source != Input::Source::Argument && input.text.size() > Inputs::MAX_LINE)
            throw InputError(fmt::format("longer than {} bytes", Inputs::MAX_LINE));
        if (input.heading && input.text.empty())
            throw InputError(fmt::format("no PDU follows {}", input.heading->name));
        outcome.afterwards = converter.convert(input, outcome.console);
    } catch (const InputError& error) {
        Fail(outcome.console, input, error.what());
    }
    return outcome;
}

/// Passes on what inputs gave, one after the other.
class Output {
public:
    Output(const ConversionSettings& settings, const Streams& streams, bool flushLines)
        : m_OutIsTerminal(streams.outIsTerminal),
          m_Writer(streams, settings.format, flushLines),
          m_Progress(streams.err, settings.progress.value_or(streams.errIsTerminal && !streams.outIsTerminal),
                     streams.inSize) {}

    void Write(const Console& console) {
        if (m_OutIsTerminal || console.HasMessages())
            m_Progress.Clear();
        m_Writer.Write(console);
    }

    /// False when nobody wants any more.
    bool Write(const Batch& batch, std::vector<Outcome>& results) {
        for (auto& [console, afterwards] : results) {
            if (afterwards)
                afterwards(console);
            Write(console);
        }
        if (!batch.isFollowed)
            m_Writer.Flush();
        m_Progress.Add(batch.lines, batch.bytes, m_Writer.Errors());
        return !m_Writer.IsBroken();
    }

    int Finish() {
        m_Progress.Finish();
        return m_Writer.Finish();
    }

private:
    bool m_OutIsTerminal;
    Writer m_Writer;
    Progress m_Progress;
};

} // namespace

int ConvertStream(const ConversionSettings& settings, const Streams& streams, const Converter& converter) {
    const bool flushLines = settings.lineBuffered || streams.outIsTerminal;
    Reader reader(settings.arguments, converter.kind, streams);
    Output output(settings, streams, flushLines);
    const auto convert = [&](const Batch& batch) {
        std::vector<Outcome> results;
        results.reserve(batch.inputs.size());
        for (const Input& input : batch.inputs)
            results.push_back(Convert(input, settings.format, converter));
        return results;
    };
    const BatchSource take = [&]() -> BatchWork {
        auto batch = std::make_shared<const Batch>(reader.Next(flushLines ? 1 : c_batchInputs));
        if (batch->inputs.empty() && reader.HasEnded())
            return nullptr;
        return [&, batch]() -> Delivery {
            auto results = std::make_shared<std::vector<Outcome>>(convert(*batch));
            return [&, batch, results] { return output.Write(*batch, *results); };
        };
    };
    if (streams.endInputOnSignal && converter.kind != LineKind::Whole)
        streams.endInputOnSignal(); // the half of a text is none
    WorkInOrder(take, settings.threads, [&](unsigned int threads) {
        Console console(settings.format);
        console.Warning("--threads", fmt::format("{} could be started, {} asked for",
                                                 Counted(threads, "thread"), settings.threads));
        output.Write(console);
    });
    Console last(settings.format);
    converter.finish(last);
    if (reader.HasFailed())
        last.Error("standard input", "cannot be read");
    output.Write(last);
    return output.Finish();
}

int ConvertAll(const ConversionSettings& settings, const Streams& streams, LineKind kind,
               const std::function<void(const Input&, Console&)>& convert) {
    return ConvertStream(settings, streams, {kind, [&convert](const Input& input, Console& console) {
                                                 convert(input, console);
                                                 return Afterwards();
                                             }});
}

void Fail(Console& console, const Input& input, const std::string& message) {
    if (!console.WantsJsonLines())
        return console.Error(NameOf(input), message);
    Json object = ObjectFor(input);
    object["error"] = message;
    console.Object(object);
    console.Failed();
}

} // namespace qxpdu
