/// Texts of any content inside the engine text block form.
///
/// A name that ends its line cannot keep blanks at its ends, line ends or a length beyond the line
/// buffer. A text field can: it stands between quotes on as many lines as it needs, all with one
/// keyword, and its pieces are joined. Within quotes `\"`, `\\`, `\n` and `\r` stand for themselves
/// and `\u` with hexadecimal digits and `;` for any other character that a text file cannot hold.
#pragma once

#include "core/block_reader.h"
#include "core/block_writer.h"
#include "engine_core/wide_output.h"

/// Writes a text as lines of `keyword`; an empty one as none.
void SaveTextField(CFile_Saver* saver, const wchar_t* keyword, const wchar_t* text);

/// Gathers the lines of one keyword while a block is read.
class CTextField
{
  public:
    explicit CTextField(SKeyword newkeyword) : keyword(newkeyword)
    {
    }

    /// Takes the block's line when it is one of the field's, and removes it from the block.
    void Read(CBlockReader& block);

    /// Sets the text that was read, an empty one when there was none. Returns 0 when there was no memory.
    Result Finish(CSys_String& text);

  private:
    SKeyword keyword;
    CWideOutput output;
};
