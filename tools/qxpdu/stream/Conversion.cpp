#include "stream/Conversion.h"

#include <memory>
#include <utility>

#include <fmt/format.h>

#include "characters/Hexadecimal.h"
#include "characters/InputError.h"
#include "log/Transcript.h"
#include "stream/Progress.h"
#include "stream/Workers.h"
#include "stream/Writer.h"

namespace qxpdu {

namespace {

constexpr std::size_t c_batchInputs = 256;
constexpr std::size_t c_batchBytes = 1U << 16; ///< reached by the last input of a batch
constexpr unsigned int c_maxThreads = 256;

/// Inputs that one worker converts at a time.
struct Batch {
    std::vector<Input> inputs;
    std::uint64_t lines = 0; ///< read for them, chatter included
    std::uint64_t bytes = 0;
};

/// Finds the inputs in what the user gave.
class Reader {
public:
    Reader(std::vector<std::string> arguments, LineKind kind, const Streams& streams)
        : m_Inputs(std::move(arguments), streams.in, kind == LineKind::Whole), m_Kind(kind) {}

    Batch Next(std::size_t mostInputs) {
        const std::uint64_t lines = m_Inputs.Lines();
        const std::uint64_t bytes = m_Inputs.Bytes();
        Batch batch;
        for (Input input;
             batch.inputs.size() < mostInputs && m_Inputs.Bytes() - bytes < c_batchBytes && NextInput(input);)
            batch.inputs.push_back(std::move(input));
        batch.lines = m_Inputs.Lines() - lines;
        batch.bytes = m_Inputs.Bytes() - bytes;
        return batch;
    }

    bool HasFailed() const { return m_Inputs.HasFailed(); }

private:
    bool NextInput(Input& input) {
        while (m_Inputs.Next(input)) {
            if (input.source != Input::Source::Line || IsInput(input))
                return true;
        }
        if (!m_Transcript.Finish())
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
};

struct Converted {
    Console console;
    Afterwards afterwards;
};

Converted Convert(const Input& input, Format format, const Converter& converter) {
    Converted converted{Console(format), {}};
    try {
        if (input.source != Input::Source::Argument && input.text.size() > Inputs::MAX_LINE)
            throw InputError(fmt::format("longer than {} bytes", Inputs::MAX_LINE));
        if (input.heading && input.text.empty())
            throw InputError(fmt::format("no PDU follows {}", input.heading->name));
        converted.afterwards = converter.convert(input, converted.console);
    } catch (const InputError& error) {
        Fail(converted.console, input, error.what());
    }
    return converted;
}

/// Passes on what inputs gave, one after the other.
class Delivering {
public:
    Delivering(const ConversionOptions& options, const Streams& streams, bool flushLines)
        : m_OutIsTerminal(streams.outIsTerminal),
          m_Writer(streams, options.ResultFormat(), flushLines),
          m_Progress(streams.err, options.progress.value_or(streams.errIsTerminal && !streams.outIsTerminal),
                     streams.inSize) {}

    void Write(const Console& console) {
        if (m_OutIsTerminal || console.HasMessages())
            m_Progress.Clear();
        m_Writer.Write(console);
    }

    /// False when nobody wants any more.
    bool Write(const Batch& batch, std::vector<Converted>& results) {
        for (auto& [console, afterwards] : results) {
            if (afterwards)
                afterwards(console);
            Write(console);
        }
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

Format ConversionOptions::ResultFormat() const {
    if (jsonLines)
        return Format::JsonLines;
    return json ? Format::JsonArray : Format::Text;
}

void AddConversion(CLI::App& command, ConversionOptions& options, const std::string& name,
                   const std::string& description) {
    options.inputs =
        command.add_option(name, description)->expected(CLI::detail::expected_max_vector_size)->type_name("");
    AddJson(command, options);
}

CLI::Option* AddJson(CLI::App& command, ConversionOptions& options) {
    return command.add_flag("--json", options.json, "Write the results as a JSON array");
}

std::string FaultOfDecimal(const std::string& text) {
    return text.size() > 1 && text.front() == '0' ? text + " is not decimal without leading zeros" : "";
}

void AddStreaming(CLI::App& command, ConversionOptions& options) {
    command
        .add_flag("--jsonl", options.jsonLines,
                  "Write the results as JSON Lines, an object for each input, failed ones included")
        ->excludes(command.get_option("--json"));
    command.add_option("-j,--threads", options.threads, "Work on N threads; the order stays")
        ->check(FaultOfDecimal)
        ->check(CLI::Range(1U, c_maxThreads).description(""))
        ->type_name("N");
    command.add_flag("--line-buffered", options.lineBuffered,
                     "Write each result as soon as it is there, as on a terminal");
    CLI::Option* progress = command.add_flag_callback(
        "--progress", [&options] { options.progress = true; },
        "Show lines, rate and errors on standard error; by themselves they are shown where that is a "
        "terminal "
        "and results go elsewhere");
    command
        .add_flag_callback(
            "--no-progress", [&options] { options.progress = false; }, "Do not show them")
        ->excludes(progress);
}

int ConvertStream(const ConversionOptions& options, const Streams& streams, const Converter& converter) {
    const bool flushLines = options.lineBuffered || streams.outIsTerminal;
    const Format format = options.ResultFormat();
    Reader reader(ValuesOf(options.inputs), converter.kind, streams);
    Delivering delivering(options, streams, flushLines);
    const auto convert = [&](const Batch& batch) {
        std::vector<Converted> results;
        results.reserve(batch.inputs.size());
        for (const Input& input : batch.inputs)
            results.push_back(Convert(input, format, converter));
        return results;
    };
    const Taking take = [&]() -> BatchWork {
        auto batch = std::make_shared<const Batch>(reader.Next(flushLines ? 1 : c_batchInputs));
        if (batch->inputs.empty())
            return nullptr;
        return [&, batch]() -> Delivery {
            auto results = std::make_shared<std::vector<Converted>>(convert(*batch));
            return [&, batch, results] { return delivering.Write(*batch, *results); };
        };
    };
    WorkInOrder(take, options.threads);
    Console last(format);
    converter.finish(last);
    if (reader.HasFailed())
        last.Error("standard input", "cannot be read");
    delivering.Write(last);
    return delivering.Finish();
}

int ConvertAll(const ConversionOptions& options, const Streams& streams, LineKind kind,
               const std::function<void(const Input&, Console&)>& convert) {
    return ConvertStream(options, streams, {kind, [&convert](const Input& input, Console& console) {
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
