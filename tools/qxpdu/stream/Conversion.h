// The work on one input after the other: what is read, where the results go, in which order.
#ifndef QXPDU_CONVERSION_H
#define QXPDU_CONVERSION_H

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "stream/Console.h"
#include "stream/InputReader.h"
#include "stream/Workers.h"

namespace qxpdu {

/// What the user wants of a conversion, whatever the command.
struct ConversionSettings {
    std::vector<std::string> arguments;
    std::vector<std::string> files;
    bool takesFiles = false; ///< so that a file may be meant where an argument names one
    Format format = Format::Text;
    bool lineBuffered = false;
    std::optional<bool> progress; ///< without it, as the streams suggest
    unsigned int threads = 1;
};

/// What is left to do on an input in the order of the inputs; may be empty.
using Afterwards = std::function<void(Console&)>;

/// The input has failed: an object in JSON Lines, else a message.
void Fail(Console& console, const Input& input, const std::string& message);

/// How inputs are converted. What `convert` throws as an InputError is reported by `fail`, and so is an input
/// that is no line at all; the other inputs are still converted. That of a Transcript owns what it works
/// with, as its input may come in pieces, after the call that began the work.
struct Converter {
    LineKind kind;
    std::function<Afterwards(const Input&, Console&)> convert; ///< runs beside itself on other inputs
    std::function<void(Console&)> finish = [](Console&) {};    ///< writes what is left in the end
    std::function<void(Console&, const Input&, const std::string&)> fail = Fail;
};

/// A conversion on its way, batch by batch. The streams outlive it.
class Conversion {
public:
    Conversion(ConversionSettings settings, const Streams& streams, Converter converter);
    ~Conversion();
    Conversion(const Conversion&) = delete;
    Conversion& operator=(const Conversion&) = delete;

    /// The work on the next batch; nothing at the end.
    BatchWork Take();

    /// The same where the input comes in pieces: nothing where the next piece has to come first.
    BatchWork TakeOfWhatCame();

    /// There are not as many as the user wants.
    void TellOfThreads(unsigned int threads);

    /// After all work: returns the exit status.
    int Finish();

private:
    class State;
    std::unique_ptr<State> m_State;
};

/// Converts all inputs; results have the order of the inputs. Returns the exit status.
int ConvertStream(const ConversionSettings& settings, const Streams& streams, const Converter& converter);

/// The same for conversions of which nothing is left to do afterwards.
int ConvertAll(const ConversionSettings& settings, const Streams& streams, LineKind kind,
               const std::function<void(const Input&, Console&)>& convert);

} // namespace qxpdu

#endif
