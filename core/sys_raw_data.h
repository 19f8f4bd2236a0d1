/// The bytes of a resource, as its file has them.
#pragma once

#include "core/core_base.h"

class CFile_Parser;

/// Owns its bytes. Not for copying.
class ENGINE_CORE_API CSys_RawData
{
  public:
    CSys_RawData() = default;
    CSys_RawData(const CSys_RawData&) = delete;
    CSys_RawData& operator=(const CSys_RawData&) = delete;
    ~CSys_RawData();

    /// Takes what the parser has still to read, in place of what it held. Returns 0, nothing held, when there
    /// is nothing to read or no memory for it.
    Result TakeRest(CFile_Parser* parser);

    /// Null when there are none; valid until the next TakeRest.
    const unsigned char* GetBytes() const
    {
        return bytes;
    }

    std::size_t GetSize() const
    {
        return size;
    }

  private:
    unsigned char* bytes = nullptr;
    std::size_t size = 0;
};
