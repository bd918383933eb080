#include "stream/FileStream.h"

#include <fcntl.h>
#include <unistd.h>

namespace qxpdu {

FileStream::FileStream(const std::string& name, int stop)
    : std::istream(nullptr),
      m_Descriptor(open(name.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)),
      m_Buffer(m_Descriptor, stop) {
    rdbuf(&m_Buffer);
}

FileStream::~FileStream() {
    if (IsOpen())
        close(m_Descriptor);
}

} // namespace qxpdu
