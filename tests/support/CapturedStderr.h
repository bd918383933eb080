// What the process writes to file descriptor 2.
#ifndef TESTS_SUPPORT_CAPTUREDSTDERR_H
#define TESTS_SUPPORT_CAPTUREDSTDERR_H

#include <cstdio>
#include <stdexcept>
#include <string>

#include <unistd.h>

namespace tests {

/// Sends file descriptor 2 to a file of its own for as long as it lives.
class CapturedStderr {
public:
    CapturedStderr() : m_File(std::tmpfile()), m_Saved(dup(STDERR_FILENO)) {
        if (m_File == nullptr || m_Saved < 0 || dup2(fileno(m_File), STDERR_FILENO) < 0)
            throw std::runtime_error("standard error cannot be captured");
    }
    ~CapturedStderr() {
        dup2(m_Saved, STDERR_FILENO);
        close(m_Saved);
        std::fclose(m_File);
    }
    CapturedStderr(const CapturedStderr&) = delete;
    CapturedStderr& operator=(const CapturedStderr&) = delete;

    /// Everything written so far.
    std::string Text() const {
        std::string text;
        char piece[4096];
        ssize_t count = 0;
        while ((count = pread(fileno(m_File), piece, sizeof piece, static_cast<off_t>(text.size()))) > 0)
            text.append(piece, static_cast<std::size_t>(count));
        return text;
    }

private:
    std::FILE* m_File;
    int m_Saved;
};

} // namespace tests

#endif
