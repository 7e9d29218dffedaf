// SPDX-License-Identifier: MIT
//
// A file system that shows a folder and does not respond while the file SWITCH exists, like a server that is
// down. Prints a line once it is mounted.
//   stuck_mount FOLDER SWITCH MOUNT-POINT
// Programming interface: https://libfuse.github.io/doxygen/
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <string>

#include <dirent.h>
#include <fcntl.h>
#include <fuse3/fuse.h>
#include <fuse3/fuse_lowlevel.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::string shown;
std::string lever;

std::string waited(const char *path)
{
    constexpr timespec pause = {0, 2'000'000}; // ns
    fuse_session *const session = fuse_get_session(fuse_get_context()->fuse);
    while (::access(lever.c_str(), F_OK) == 0 && !fuse_session_exited(session))
        ::nanosleep(&pause, nullptr);
    return shown + path;
}

int failure(int result)
{
    return result < 0 ? -errno : result;
}

void *begin(fuse_conn_info * /*connection*/, fuse_config *configuration)
{
    // No caching by the system, so that every request is sent to this program.
    configuration->attr_timeout = 0;
    configuration->entry_timeout = 0;
    configuration->negative_timeout = 0;
    configuration->direct_io = 1;
    std::puts("mounted");
    std::fflush(stdout);
    return nullptr;
}

int attributes(const char *path, struct stat *status, fuse_file_info * /*file*/)
{
    return failure(::lstat(waited(path).c_str(), status));
}

int openFile(const char *path, fuse_file_info *file)
{
    const int descriptor = ::open(waited(path).c_str(), file->flags | O_CLOEXEC);
    file->fh = static_cast<std::uint64_t>(descriptor);
    return descriptor < 0 ? -errno : 0;
}

int readFile(const char *path, char *buffer, std::size_t size, off_t offset, fuse_file_info *file)
{
    waited(path);
    return failure(static_cast<int>(::pread(static_cast<int>(file->fh), buffer, size, offset)));
}

int closeFile(const char * /*path*/, fuse_file_info *file)
{
    return failure(::close(static_cast<int>(file->fh)));
}

int listFolder(const char *path, void *buffer, fuse_fill_dir_t fill, off_t /*offset*/,
               fuse_file_info * /*folder*/, fuse_readdir_flags /*flags*/)
{
    DIR *const folder = ::opendir(waited(path).c_str());
    if (!folder)
        return -errno;
    while (const dirent *entry =
               ::readdir(folder)) { // NOLINT(concurrency-mt-unsafe): of this thread's own folder
        struct stat kind = {};
        kind.st_mode = static_cast<mode_t>(DTTOIF(entry->d_type));
        fill(buffer, entry->d_name, &kind, 0, {});
    }
    ::closedir(folder);
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 4) {
        std::fputs("usage: stuck_mount FOLDER SWITCH MOUNT-POINT\n", stderr);
        return 2;
    }
    shown = argv[1];
    lever = argv[2];
    ::prctl(PR_SET_PDEATHSIG, SIGTERM); // unmounts; a test that crashed leaves nothing mounted
    fuse_operations operations = {};
    operations.init = begin;
    operations.getattr = attributes;
    operations.open = openFile;
    operations.read = readFile;
    operations.release = closeFile;
    operations.readdir = listFolder;
    std::string foreground = "-f";
    char *arguments[] = {argv[0], foreground.data(), argv[3], nullptr};
    return fuse_main(3, arguments, &operations, nullptr);
}
