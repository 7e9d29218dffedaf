// SPDX-License-Identifier: MIT
//
// Looks at files for a host that must not wait for them. On a file system that does not answer, a system call
// may hold its thread for ever, and even the end of the process that the thread belongs to; so neither is the
// host's.
//
// Reads requests from the standard input, each "NUMBER PATH" and a zero byte, and writes NUMBER and a line
// end to the standard output once the file has answered, whatever the answer was. Each request has a thread
// of its own: what does not answer keeps no other waiting. An empty path needs no file and no thread, and is
// answered at once. Ends with its input.
#include <array>
#include <string>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

//! Does what reading a drawing will do: a status alone may come from the system's memory.
void lookAt(const std::string &path)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return;
    const int file = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (file < 0)
        return;
    char byte = 0;
    [[maybe_unused]] const ssize_t count = ::pread(file, &byte, 1, 0);
    ::close(file);
}

void answer(const std::string &number)
{
    const std::string line = number + '\n';
    // So short a write is never mixed with another thread's.
    [[maybe_unused]] const ssize_t written = ::write(STDOUT_FILENO, line.data(), line.size());
}

void take(const std::string &request)
{
    const std::size_t blank = request.find(' ');
    if (blank == std::string::npos)
        return;
    const std::string number = request.substr(0, blank);
    const std::string path = request.substr(blank + 1);
    if (path.empty()) {
        answer(number);
        return;
    }
    const auto lookAndAnswer = [number, path] {
        lookAt(path);
        answer(number);
    };
    try {
        std::thread(lookAndAnswer).detach();
    } catch (const std::system_error &) { // NOLINT(bugprone-empty-catch)
        // Too many files do not answer, and neither does this one, until it is asked for again.
    }
}

} // namespace

int main()
{
    constexpr std::size_t chunkSize = 65536; // bytes: as much as a pipe holds
    std::array<char, chunkSize> chunk = {};
    std::string input;
    for (;;) {
        const ssize_t size = ::read(STDIN_FILENO, chunk.data(), chunk.size());
        if (size <= 0)
            ::_exit(0); // without a word to the threads, which may never hear it
        input.append(chunk.data(), static_cast<std::size_t>(size));
        std::size_t start = 0;
        for (std::size_t end = 0; (end = input.find('\0', start)) != std::string::npos; start = end + 1)
            take(input.substr(start, end - start));
        input.erase(0, start);
    }
}
