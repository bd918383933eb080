// A file descriptor that is read as it comes.
#ifndef QXPDU_DESCRIPTORBUFFER_H
#define QXPDU_DESCRIPTORBUFFER_H

#include <streambuf>
#include <vector>

namespace qxpdu {

/// Gives whole lines, a piece of one only at the end and where the line is too long to be kept. So in_avail()
/// tells whether a line can be read without waiting for it: it is 0 where none has come yet.
class DescriptorBuffer : public std::streambuf {
public:
    /// Ends early once the descriptor `stop` can be read; there is none where that is -1.
    explicit DescriptorBuffer(int descriptor, int stop);

protected:
    /// Throws std::system_error where the descriptor cannot be read to its end.
    int_type underflow() override;
    std::streamsize showmanyc() override;

private:
    bool GiveLines();
    void TakeBack();
    bool IsReady(int milliseconds);
    void Read();

    int m_Descriptor;
    int m_Stop;
    std::vector<char> m_Bytes;
    char* m_End; ///< of what has been read; from egptr() on it waits for a line feed
    bool m_HasEnded = false;
    int m_Error = 0; ///< that it ended with
};

} // namespace qxpdu

#endif
