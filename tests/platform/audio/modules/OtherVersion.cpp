// The program must never ask this module for a reader.

#include <cstdlib>

extern "C" {

const char *lyraboxDecodingVersion()
{
    return "0.0.0";
}

void *lyraboxMakeSongReader()
{
    std::abort();
}

} // extern "C"
