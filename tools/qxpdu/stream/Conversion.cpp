#include "stream/Conversion.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include <fmt/format.h>

#include "characters/InputError.h"
#include "show/Json.h"
#include "show/Plural.h"
#include "stream/Progress.h"
#include "stream/Writer.h"

namespace qxpdu {

namespace {

constexpr std::size_t c_batchInputs = 256;
constexpr std::size_t c_batchBytes = 1U << 16; ///< reached by the last input of a batch

/// Inputs that one worker converts at a time.
struct Batch {
    std::vector<Input> inputs;
    std::uint64_t lines; ///< read for them, chatter included
    std::uint64_t bytes;
    bool isFollowed; ///< by input that need not be waited for, or by the end
};

/// It may be a batch of none.
Batch ReadBatch(InputReader& reader, std::size_t mostInputs, WhenDry whenDry) {
    const std::uint64_t lines = reader.Lines();
    const std::uint64_t bytes = reader.Bytes();
    std::vector<Input> inputs;
    while (inputs.size() < mostInputs && reader.Bytes() - bytes < c_batchBytes) {
        Input input;
        if (!reader.Next(input, inputs.empty() ? whenDry : std::max(whenDry, WhenDry::Return)))
            break;
        inputs.push_back(std::move(input));
    }
    return {std::move(inputs), reader.Lines() - lines, reader.Bytes() - bytes, reader.IsReady()};
}

Inputs::Cut CutOf(LineKind kind) {
    if (kind == LineKind::Whole)
        return Inputs::Cut::Whole;
    return kind == LineKind::Transcript ? Inputs::Cut::LogLines : Inputs::Cut::Lines;
}

bool IsFile(const Input& input) {
    std::error_code failure;
    return input.source == Input::Source::Argument && std::filesystem::is_regular_file(input.text, failure);
}

constexpr std::size_t c_enoughResults = 1U << 15; ///< bytes

/// What an input gave; or several, one after the other, none of which but the last has anything to say on
/// standard error or leaves anything to do.
struct Outcome {
    Console console;
    Afterwards afterwards = {};

    bool TakesMore() const {
        return !afterwards && !console.HasMessages() && console.Results(false).size() < c_enoughResults;
    }
};

void CheckInput(const Input& input) {
    if (input.source != Input::Source::Argument && input.text.size() > Inputs::MAX_LINE)
        throw InputError(fmt::format("longer than {} bytes", Inputs::MAX_LINE));
    if (input.heading && input.text.empty() && input.heading->kind != Heading::Kind::Reference)
        throw InputError(fmt::format("no PDU follows {}", input.heading->name));
}

void Convert(const Input& input, const ConversionSettings& settings, const Converter& converter,
             Outcome& outcome) {
    constexpr const char* c_hint = "did you mean --file?";
    const std::size_t errors = outcome.console.Errors();
    const auto isFileMeant = [&] { return settings.takesFiles && IsFile(input); };
    try {
        CheckInput(input);
        outcome.afterwards = converter.convert(input, outcome.console);
        if (outcome.console.Errors() != errors && isFileMeant()) // its name may be hexadecimal
            outcome.console.Warning(NameOf(input), c_hint);
    } catch (const InputError& error) {
        converter.fail(outcome.console, input,
                       isFileMeant() ? fmt::format("{}; {}", error.what(), c_hint) : error.what());
    }
}

/// Passes on what inputs gave, one after the other.
class Output {
public:
    Output(const ConversionSettings& settings, const Streams& streams, bool flushLines)
        : m_OutIsTerminal(streams.outIsTerminal),
          m_Writer(streams, settings.format, flushLines),
          m_Progress(streams.err, settings.progress.value_or(streams.errIsTerminal && !streams.outIsTerminal),
                     settings.arguments.empty() && settings.files.empty() ? streams.inSize : std::nullopt,
                     settings.arguments.empty() ? "line" : "input") {}

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

class Conversion::State {
public:
    State(ConversionSettings settings, const Streams& streams, Converter converter)
        : m_Settings(std::move(settings)),
          m_Converter(std::move(converter)),
          m_FlushLines(m_Settings.lineBuffered || streams.outIsTerminal),
          m_Reader(Inputs({m_Settings.arguments, m_Settings.files, streams.in, streams.stop},
                          CutOf(m_Converter.kind)),
                   m_Converter.kind),
          m_Output(m_Settings, streams, m_FlushLines) {}

    /// Waits for input only where the results of all that came before are out.
    BatchWork Take() { return Take(m_AreAllOut ? WhenDry::Wait : WhenDry::Return); }

    BatchWork Take(WhenDry whenDry) {
        auto batch =
            std::make_shared<const Batch>(ReadBatch(m_Reader, m_FlushLines ? 1 : c_batchInputs, whenDry));
        m_AreAllOut = !batch->isFollowed;
        if (batch->inputs.empty() && (m_Reader.HasEnded() || whenDry == WhenDry::Stop))
            return nullptr;
        return [this, batch]() -> Delivery {
            auto results = std::make_shared<std::vector<Outcome>>(Convert(*batch));
            return [this, batch, results] { return m_Output.Write(*batch, *results); };
        };
    }

    void TellOfThreads(unsigned int threads) {
        Console console(m_Settings.format);
        console.Warning("--threads", fmt::format("{} could be started, {} asked for",
                                                 show::Counted(threads, "thread"), m_Settings.threads));
        m_Output.Write(console);
    }

    int Finish() {
        Console last(m_Settings.format);
        m_Converter.finish(last);
        for (const SourceNote& note : m_Reader.Notes())
            note.isError ? last.Error(note.source, note.text) : last.Warning(note.source, note.text);
        for (const std::string& source : m_Reader.Unreadable())
            last.Error(source, "cannot be read");
        m_Output.Write(last);
        return m_Output.Finish();
    }

private:
    std::vector<Outcome> Convert(const Batch& batch) const {
        std::vector<Outcome> results;
        for (const Input& input : batch.inputs) {
            if (m_FlushLines || results.empty() || !results.back().TakesMore())
                results.push_back({Console(m_Settings.format)});
            else
                results.back().console.ExpectResults(c_enoughResults);
            qxpdu::Convert(input, m_Settings, m_Converter, results.back());
        }
        return results;
    }

    ConversionSettings m_Settings;
    Converter m_Converter;
    bool m_FlushLines;
    InputReader m_Reader;
    Output m_Output;
    bool m_AreAllOut = false; ///< the results of all that has come
};

Conversion::Conversion(ConversionSettings settings, const Streams& streams, Converter converter)
    : m_State(std::make_unique<State>(std::move(settings), streams, std::move(converter))) {}

Conversion::~Conversion() = default;

BatchWork Conversion::Take() {
    return m_State->Take();
}

BatchWork Conversion::TakeOfWhatCame() {
    return m_State->Take(WhenDry::Stop);
}

void Conversion::TellOfThreads(unsigned int threads) {
    m_State->TellOfThreads(threads);
}

int Conversion::Finish() {
    return m_State->Finish();
}

int ConvertAll(const ConversionSettings& settings, const Streams& streams, LineKind kind,
               const std::function<void(const Input&, Console&)>& convert) {
    return ConvertStream(settings, streams, {kind, [convert](const Input& input, Console& console) {
                                                 convert(input, console);
                                                 return Afterwards();
                                             }});
}

void Fail(Console& console, const Input& input, const std::string& message) {
    if (!console.WantsJsonLines())
        return console.Error(NameOf(input), message);
    show::Json object = ObjectFor(input);
    object["error"] = message;
    console.Object(object);
    console.Failed();
}

} // namespace qxpdu
