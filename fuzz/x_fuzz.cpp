#include "formats/x/x.h"
#include "fuzz/fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    FuzzDocument<CFileFormat_X>(bytes, size);
    return 0;
}
