// A library that is preloaded into the program. It makes reading the file that LYRABOX_SLOW_FILE
// names as slow as from a slow disk, or all files of a folder if the name ends with a slash.

#include <cstdlib>
#include <cstring>
#include <ctime>

#include <dlfcn.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

constexpr long nanosecondsPerRead = 300'000'000;

void waitForTheDisk(int descriptor)
{
    const char *slow = std::getenv("LYRABOX_SLOW_FILE");
    if (slow == nullptr)
        return;
    char link[32] = "/proc/self/fd/";
    char *end = link + std::strlen(link);
    char digits[12];
    int count = 0;
    for (int rest = descriptor; rest > 0 || count == 0; rest /= 10)
        digits[count++] = static_cast<char>('0' + rest % 10);
    while (count > 0)
        *end++ = digits[--count];
    *end = '\0';
    char path[4096];
    const ssize_t length = readlink(link, path, sizeof path - 1);
    if (length < 0)
        return;
    path[length] = '\0';
    const timespec delay{0, nanosecondsPerRead};
    const std::size_t named = std::strlen(slow);
    const bool isFolder = named > 0 && slow[named - 1] == '/';
    if (isFolder ? std::strncmp(path, slow, named) == 0 : std::strcmp(path, slow) == 0)
        nanosleep(&delay, nullptr);
}

using Read = ssize_t (*)(int, void *, size_t, off_t);

ssize_t readSlowly(const char *name, int descriptor, void *buffer, size_t size, off_t offset)
{
    waitForTheDisk(descriptor);
    return reinterpret_cast<Read>(dlsym(RTLD_NEXT, name))(descriptor, buffer, size, offset);
}

} // namespace

extern "C" ssize_t pread(int descriptor, void *buffer, size_t size, off_t offset)
{
    return readSlowly("pread", descriptor, buffer, size, offset);
}

extern "C" ssize_t pread64(int descriptor, void *buffer, size_t size, off64_t offset)
{
    return readSlowly("pread64", descriptor, buffer, size, offset);
}
