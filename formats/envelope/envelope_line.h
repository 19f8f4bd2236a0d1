/// The lines of a skin envelope text: a keyword and what stands behind it.
#pragma once

#include "core/numbers.h"
#include "core/plain_lines.h"
#include "formats/envelope/envelope_vertex.h"

/// A line in a buffer. What does not parse leaves its place alone, and so do the numbers behind it.
class CEnvelopeLine
{
  public:
    using SWeight = CFileFormat_EnvelopeRecords::CEnvelopeVertexData::SWeight;

    /// text: the caller's; decimal commas in it become points where they are read.
    explicit CEnvelopeLine(wchar_t* text);

    /// What is left of the line.
    const wchar_t* GetRest() const
    {
        return rest;
    }

    /// Whether the line's first word is the keyword, which is then removed with the blanks behind it.
    bool Strip(SKeyword keyword);

    /// Removes the first word and the blanks behind it.
    void StripWord();

    void Scan(std::int32_t& value);
    void Scan(std::uint32_t& value);
    void Scan(float& value);
    void Scan(CMath_Vector3& vector);
    void Scan(CSys_String& text);

    /// Reads "bone,weight" and removes its word. Always true.
    bool ScanWeight(SWeight& pair);

    /// Reads what is behind the keyword; false when the line does not begin with it.
    template <class T> bool Read(SKeyword keyword, T& value)
    {
        if (!Strip(keyword))
            return false;
        Scan(value);
        return true;
    }

  private:
    wchar_t* rest;
    std::size_t wordlength; ///< Of the line's first word.
};

/// The lines of vertices that follow the parser's last line, where they stand in the text, as long as they are
/// plain and have decimal points. An operation that meets something else returns false.
class CPlainEnvelopeLines : public CPlainLines
{
  public:
    using CPlainLines::CPlainLines;

    template <class T> bool Read(SKeyword keyword, T& value)
    {
        return Strip(keyword) && Scan(value);
    }

    bool ScanWeight(CEnvelopeLine::SWeight& pair)
    {
        std::int32_t bone = 0;
        if (!Scan(bone))
            return false;
        pair.bone = static_cast<std::uint32_t>(bone);
        return Take(',') && IsInWord() && Scan(pair.weight);
    }
};
