/// Turns the lines of a skin envelope text into records.
#pragma once

#include "core/file_parser.h"
#include "core/word_helpers.h"
#include "formats/envelope/envelope.h"

/// Appends the records of one text to a document. The text has no sections: every keyword is known on any
/// line, and fills the bone, vertex or exclusion list that was begun last.
class CEnvelopeReader
{
  public:
    CEnvelopeReader(CFileFormat_Envelope& newdocument, CFile_Parser* newparser)
        : document(newdocument), parser(newparser)
    {
    }

    /// Reads to the end of the text; nothing when there is no memory for a line.
    void Read();

  private:
    void ReadLine();
    void ReadHeading();
    void ReadBoneLine();
    void ReadVertexLine();
    void ReadNodeLine();
    void ReadExclusionLine();

    void BeginBone();
    void BeginVertex();
    void BeginExclusionList();
    void ReadWeightCount();
    void ReadWeights();
    void ReadExcludedVertices();
    bool ReadExcludedVertex();

    bool Strip(SKeyword keyword);
    void StripWord();
    template <class T> bool Read(SKeyword keyword, T& value);

    void Scan(std::int32_t& value);
    void Scan(std::uint32_t& value);
    void Scan(float& value);
    void Scan(CMath_Vector3& vector);
    void Scan(CSys_String& text);

    CFileFormat_Envelope& document;
    CFile_Parser* parser;
    wchar_t* rest = nullptr;    ///< What is left of the line.
    std::size_t wordlength = 0; ///< Of the line's first word.

    // What the lines fill; null where none was begun in this text. The records move when their list grows,
    // which is when the next one is begun.
    CFileFormat_Envelope::CEnvelopeBone* bone = nullptr;
    CFileFormat_Envelope::CEnvelopeVertexData* vertex = nullptr;
    CFileFormat_Envelope::CEnvelopeVertexExclusionList* exclusions = nullptr;
    std::int32_t exclusioncount = 0;
};
