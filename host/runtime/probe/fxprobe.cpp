// SPDX-License-Identifier: MIT
//
// Accesses files for a host that must not wait for them. On a file system that does not respond, a system
// call may block its thread without end, and even the end of the process of that thread; so neither is the
// host's.
//
// Reads requests from the standard input, each "NUMBER PATH" and a zero byte, and writes NUMBER and a line
// end to the standard output twice: when it begins to access the file, so that a busy machine is not taken
// for an unresponsive file, and once the file has responded, whatever the response was. An empty path needs
// no file. Ends with its input, and at once where it cannot have a thread.
#include <algorithm>
#include <array>
#include <condition_variable>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <queue>
#include <string>
#include <system_error>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

//! Does what reading a drawing or a folder will do: a status alone may come from the system's memory.
void accessFile(const std::string &path)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        return;
    if (S_ISDIR(status.st_mode)) {
        std::error_code error;
        const std::filesystem::directory_iterator first(path, error);
        return;
    }
    if (!S_ISREG(status.st_mode))
        return;
    const int file = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (file < 0)
        return;
    char byte = 0;
    [[maybe_unused]] const ssize_t count = ::pread(file, &byte, 1, 0);
    ::close(file);
}

void write(const std::string &number)
{
    const std::string line = number + '\n';
    // So short a write is never mixed with another thread's.
    [[maybe_unused]] const ssize_t written = ::write(STDOUT_FILENO, line.data(), line.size());
}

struct Request
{
    std::string number;
    std::string path;
};

//! What is to be looked at, and the threads that do: one, and more once it is held up.
class Workers
{
public:
    //! \return whether there are so many threads more
    bool start(std::size_t count)
    {
        try {
            for (std::size_t i = 0; i < count; ++i) {
                std::thread([this] { work(); }).detach();
                ++m_threads;
            }
        } catch (const std::system_error &) {
            return false;
        }
        return true;
    }

    void add(Request request)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_waiting.push(std::move(request));
        m_added.notify_one();
    }

    //! How many requests no thread has taken yet.
    std::size_t waiting()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_waiting.size();
    }

    std::size_t threads() const { return m_threads; }

private:
    [[noreturn]] void work()
    {
        for (;;) {
            const Request request = take();
            write(request.number);
            if (!request.path.empty())
                accessFile(request.path);
            write(request.number);
        }
    }

    Request take()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_added.wait(lock, [this] { return !m_waiting.empty(); });
        Request request = std::move(m_waiting.front());
        m_waiting.pop();
        return request;
    }

    std::size_t m_threads = 0; //!< known to who starts them only
    std::mutex m_mutex;
    std::condition_variable m_added;
    std::queue<Request> m_waiting;
};

void take(const std::string &request, Workers &workers)
{
    const std::size_t blank = request.find(' ');
    if (blank != std::string::npos)
        workers.add({request.substr(0, blank), request.substr(blank + 1)});
}

} // namespace

int main()
{
    constexpr int moment = 10;               // milliseconds: a file that responds does it in far less
    constexpr std::size_t chunkSize = 65536; // bytes: as much as a pipe holds
    std::array<char, chunkSize> chunk = {};
    std::string input;
    auto &workers = *new Workers; // never deleted, as its threads may never end
    if (!workers.start(1))
        return EXIT_FAILURE;
    for (;;) {
        pollfd requests = {STDIN_FILENO, POLLIN, 0};
        if (::poll(&requests, 1, workers.waiting() > 0 ? moment : -1) == 0) {
            // The threads that exist may be blocked. Those that cannot be had now are tried again.
            workers.start(std::min(workers.threads(), workers.waiting()));
            continue;
        }
        const ssize_t size = ::read(STDIN_FILENO, chunk.data(), chunk.size());
        if (size <= 0)
            ::_exit(0); // without ending the threads, which may wait without end
        input.append(chunk.data(), static_cast<std::size_t>(size));
        std::size_t start = 0;
        for (std::size_t end = 0; (end = input.find('\0', start)) != std::string::npos; start = end + 1)
            take(input.substr(start, end - start), workers);
        input.erase(0, start);
    }
}
