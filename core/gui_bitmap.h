/// Pictures of the user interface.
#pragma once

#include "core/sys_raw_data.h"
#include "core/system_objects.h"

/// A picture, held as the bytes of its file until the graphics system makes its own form of them.
/// Not for copying.
class ENGINE_CORE_API CGui_Bitmap : public CGraphics_System_Object
{
  public:
    CSys_RawData data;
    std::uint32_t width = 0;  ///< In pixels, as given to CreateFromParser.
    std::uint32_t height = 0; ///< In pixels, as given to CreateFromParser.

    ~CGui_Bitmap() override;

    /// Takes in what the parser has still to read, to be shown at the given size. Returns 0, the picture left
    /// without data, when there is nothing or no memory for it.
    virtual Result CreateFromParser(CFile_Parser* parser, unsigned long newwidth, unsigned long newheight);
};

/// A picture whose pixels may be loaded after it, piece by piece.
class ENGINE_CORE_API CGui_StreamableBitmap : public CGui_Bitmap
{
  public:
    ~CGui_StreamableBitmap() override;
};
