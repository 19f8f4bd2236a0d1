/// What the fuzz targets share: one document read from any bytes, and everything done with it that callers do.
#pragma once

#include "core/file_io_object.h"
#include "core/file_parser.h"
#include "core/file_saver.h"
#include "core/memory_manager.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <type_traits>

inline std::string FuzzSave(CFile_IOObject& document)
{
    CFile_Saver saver;
    saver.OpenMemory();
    document.Save(&saver);
    return saver.GetText();
}

/// Loads the bytes, copies what came out, saves both, and stops the fuzzer where they differ. The first byte says
/// which allocation fails: none when it is 0.
template <class TDocument> void FuzzDocument(const std::uint8_t* bytes, std::size_t size)
{
    if (size == 0)
        return;
    CSys_MemoryManager registry;
    MM = &registry;
    {
        TDocument document;
        CFile_Parser parser;
        parser.Open(bytes + 1, size - 1);
        if (bytes[0] != 0)
            FailAllocations(bytes[0] * std::uint64_t{4}, bytes[0] % 2 == 0 ? 1 : ~std::uint64_t{0} / 2);
        document.Load(&parser, nullptr);
        FailAllocations(0, 0);
        const std::string saved = FuzzSave(document);
        if constexpr (std::is_copy_constructible_v<TDocument>)
        {
            TDocument copy(document);
            if (FuzzSave(copy) != saved)
                std::abort();
        }
    }
    MM = nullptr;
    if (registry.GetNumAllocations() != 0 || registry.GetNumMistakes() != 0)
        std::abort();
}
