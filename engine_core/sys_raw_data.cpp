#include "core/sys_raw_data.h"

#include "core/file_parser.h"
#include "core/memory_manager.h"

CSys_RawData::~CSys_RawData()
{
    ReleaseBlock(bytes);
}

Result CSys_RawData::TakeRest(CFile_Parser* parser)
{
    ReleaseBlock(bytes);
    const std::size_t wanted = parser->GetSize() - parser->GetOffset();
    bytes = wanted == 0 ? nullptr : static_cast<unsigned char*>(ObtainBlock(wanted));
    size = bytes == nullptr ? 0 : parser->Read(bytes, wanted);
    return size != 0 ? 1 : 0;
}
