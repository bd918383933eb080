// What a command works on: its arguments, or the lines of standard input.
#ifndef QXPDU_INPUTS_H
#define QXPDU_INPUTS_H

#include <cstddef>
#include <cstdint>
#include <istream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "stream/FileStream.h"
#include "stream/Input.h"

namespace qxpdu {

/// Where the inputs come from.
struct InputSources {
    const std::vector<std::string>& arguments;
    const std::vector<std::string>& files; ///< read after the arguments
    std::istream& in;
    int stop = -1; ///< a descriptor that ends the files once it can be read; none where that is -1
};

/// Gives the inputs one after the other, in memory bounded by the longest line allowed.
class Inputs {
public:
    static constexpr std::size_t MAX_LINE = 1U << 20; ///< bytes; of a longer line, little more is kept

    /// How a stream is cut into inputs.
    enum class Cut {
        Lines,
        LogLines, ///< carriage returns alone end lines as well where no line feed comes
        Whole     ///< the whole stream is one input, without its last line feed
    };

    /// Without arguments and files the inputs are those of `in`, and an argument or a file "-" stands for it
    /// as well. The sources outlive the inputs.
    Inputs(const InputSources& sources, Cut cut);

    /// Reads the next input; false when there is none. A line comes without its line feed.
    bool Next(Input& input);

    /// Whether the next input, or that there is none, can be told without waiting for it. Where the next one
    /// is of the next stream, that is opened.
    bool IsReady();

    /// Sources that could not be read to their end.
    const std::vector<std::string>& Unreadable() const { return m_Unreadable; }

    /// Streams that inputs have come from.
    std::size_t StreamsOpened() const { return m_StreamsOpened; }

    /// Lines and arguments given so far, and what the lines took.
    std::uint64_t Lines() const { return m_Lines; }
    std::uint64_t Bytes() const { return m_Bytes; }

private:
    void Open(std::istream& stream, std::string_view file);
    void OpenNext();
    void OpenFile(const std::string& name);
    void CloseStream();
    bool HasStreamEnded();
    bool NextLine(Input& input);
    bool NextOfStream(Input& input);
    bool ReadLine(std::string& line);

    InputSources m_Sources;
    Cut m_Cut;
    std::size_t m_Argument = 0; ///< arguments given so far
    std::size_t m_File = 0;     ///< files opened so far

    std::istream* m_Stream = nullptr; ///< that is being read
    std::unique_ptr<FileStream> m_OpenFile;
    std::string_view m_FileName;
    bool m_IsGiven = false;      ///< the whole of it
    std::string m_Rest;          ///< of the stream, after a carriage return that ended a line
    std::size_t m_LineFeeds = 0; ///< lines of the stream

    std::size_t m_StreamsOpened = 0;
    std::uint64_t m_Lines = 0;
    std::uint64_t m_Bytes = 0;
    std::vector<std::string> m_Unreadable;
};

} // namespace qxpdu

#endif
