/// What the graphics system's resources have in common.
#pragma once

#include "core/sys_raw_data.h"
#include "core/system_objects.h"

/// A resource of the graphics system, held as the bytes of its file until the system makes its own form of them.
/// Not for copying.
class ENGINE_CORE_API CGraphics_Resource : public CGraphics_System_Object
{
  public:
    CSys_RawData data;
    std::uint32_t flags = 0; ///< As given to CreateFromParser.

    ~CGraphics_Resource() override;

    /// Takes in what the parser has still to read. Returns 0, the resource left without data, when there is
    /// nothing or no memory for it.
    virtual Result CreateFromParser(CFile_Parser* parser, unsigned long newflags);
};
