// A file, a pipe with a name or a device that is read as it comes.
#ifndef QXPDU_FILESTREAM_H
#define QXPDU_FILESTREAM_H

#include <istream>
#include <string>

#include "stream/DescriptorBuffer.h"

namespace qxpdu {

/// Opening waits for nobody, not even for who writes to a pipe; the reading does, and ends early once the
/// descriptor `stop` can be read.
class FileStream : public std::istream {
public:
    FileStream(const std::string& name, int stop);
    ~FileStream() override;
    FileStream(const FileStream&) = delete;
    FileStream& operator=(const FileStream&) = delete;

    bool IsOpen() const { return m_Descriptor >= 0; }

private:
    int m_Descriptor;
    DescriptorBuffer m_Buffer;
};

} // namespace qxpdu

#endif
