/// Turns the lines of a skin envelope text into records.
#pragma once

#include "core/file_parser.h"
#include "formats/envelope/envelope.h"
#include "formats/envelope/envelope_line.h"

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
    void ReadLine(CEnvelopeLine& line);
    void ReadHeading(CEnvelopeLine& line);
    void ReadBoneLine(CEnvelopeLine& line);
    void ReadVertexLine(CEnvelopeLine& line);
    void ReadNodeLine(CEnvelopeLine& line);
    void ReadExclusionLine(CEnvelopeLine& line);
    void ReadPlainVertices();

    void BeginBone(CEnvelopeLine& line);
    void BeginVertex();
    void BeginExclusionList();
    void ReadExcludedVertices(CEnvelopeLine& line);
    bool ReadExcludedVertex(CEnvelopeLine& line);

    CFileFormat_Envelope& document;
    CFile_Parser* parser;

    // What the lines fill; null where none was begun in this text. The records move when their list grows,
    // which is when the next one is begun.
    CFileFormat_Envelope::CEnvelopeBone* bone = nullptr;
    CFileFormat_Envelope::CEnvelopeVertexData* vertex = nullptr;
    CFileFormat_Envelope::CEnvelopeVertexExclusionList* exclusions = nullptr;
    std::int32_t exclusioncount = 0;
};
