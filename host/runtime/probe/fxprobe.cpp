// SPDX-License-Identifier: MIT
//
// Accesses files for a host that must not wait for them. On a file system that does not respond, a system
// call may block its thread forever, and prevent the process from ending. Therefore this is a process of its
// own.
//
// Reads requests from the standard input, each "NUMBER PATH" and a zero byte. Writes NUMBER and a line end to
// the standard output twice: when it begins to access the file, so that a busy machine is not mistaken for an
// unresponsive file, and when the file has responded, even with an error. An empty path accesses no file.
// Ends at the end of its input, or immediately if it cannot create a thread.
#include <algorithm>
#include <array>
#include <chrono>
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

//! Accesses the file as reading a drawing or a folder does. The status alone may be cached by the system.
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
    // A write this short is atomic, so the threads' lines are not mixed.
    [[maybe_unused]] const ssize_t written = ::write(STDOUT_FILENO, line.data(), line.size());
}

struct Request
{
    std::string number;
    std::string path;
};

//! The waiting requests, and the threads that handle them: one, and more if threads are blocked.
class Workers
{
public:
    //! Starts count more threads.
    //! \return false if the system refuses one
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

    //! The number of requests that no thread has taken yet.
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

    std::size_t m_threads = 0; //!< only used by the main thread
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
    constexpr std::chrono::milliseconds moment(10); // files that respond take far less
    constexpr std::size_t chunkSize = 65536;        // bytes, the capacity of a pipe
    std::array<char, chunkSize> chunk = {};
    std::string input;
    auto &workers = *new Workers; // never deleted, as its threads may never end
    if (!workers.start(1))
        return EXIT_FAILURE;
    for (;;) {
        pollfd requests = {STDIN_FILENO, POLLIN, 0};
        if (::poll(&requests, 1, workers.waiting() > 0 ? int(moment.count()) : -1) == 0) {
            // All threads may be blocked. If no more can be started now, the next pass tries again.
            workers.start(std::min(workers.threads(), workers.waiting()));
            continue;
        }
        const ssize_t size = ::read(STDIN_FILENO, chunk.data(), chunk.size());
        if (size <= 0)
            ::_exit(0); // without waiting for the threads, which may be blocked forever
        input.append(chunk.data(), static_cast<std::size_t>(size));
        std::size_t start = 0;
        for (std::size_t end = 0; (end = input.find('\0', start)) != std::string::npos; start = end + 1)
            take(input.substr(start, end - start), workers);
        input.erase(0, start);
    }
}
