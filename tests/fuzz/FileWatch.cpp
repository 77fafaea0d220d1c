#include "tests/fuzz/FileWatch.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdarg>

namespace {

FileWatch *&current()
{
    static FileWatch *watch = nullptr;
    return watch;
}

void note(const char *path)
{
    if (current() != nullptr) {
        current()->note(path);
    }
}

/// The C library's function of this name, which the one below stands in for.
template <typename Function>
Function next(Function /*sameType*/, const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

FileWatch::FileWatch()
{
    current() = this;
}

FileWatch::~FileWatch()
{
    current() = nullptr;
}

void FileWatch::note(const char *path)
{
    const std::string text = path;
    if (text.rfind("/usr/share/fonts/", 0) != 0) {
        noted.push_back(text);
    }
}

// Qt calls these, and finds the program's before the library's.
extern "C" {

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    note(path);
    static const auto function = next(&open64, "open64");
    return function(path, flags, mode);
}

int access(const char *path, int mode) noexcept
{
    note(path);
    static const auto function = next(&access, "access");
    return function(path, mode);
}

int statx(int directory, const char *path, int flags, unsigned int mask, struct statx *result) noexcept
{
    note(path);
    static const auto function = next(&statx, "statx");
    return function(directory, path, flags, mask, result);
}

int stat64(const char *path, struct stat64 *result) noexcept
{
    note(path);
    static const auto function = next(&stat64, "stat64");
    return function(path, result);
}
}
