/// The skin envelope document: which bones move which vertices of a skin.
#pragma once

#include "core/file_io_object.h"
#include "formats/envelope/envelope_bone.h"
#include "formats/envelope/envelope_records.h"
#include "formats/envelope/envelope_vertex.h"

/// A skin envelope file: bones with the shapes of their envelopes, the weights of every vertex, and the
/// vertices excluded from each bone.
///
/// Owns: every record. Copying copies them all, moving hands them over.
/// Shape: exclusionLists[i] belongs to the bone whose boneID was i in the text. Pruning renumbers bones and
///        weights, not these lists.
class ASSET_TOOLS_API CFileFormat_Envelope : public CFile_IOObject, public CFileFormat_EnvelopeRecords
{
  public:
    std::int32_t ver = 0; ///< Format version, as written.
    TArray<CEnvelopeBone> bones;
    std::int32_t nodeCount = 0;
    CSys_String baseNodeName; ///< The skinned node.
    TArray<CEnvelopeVertexData> vertices;
    TArray<CEnvelopeVertexExclusionList> exclusionLists;

    /// Reads the whole text and appends its records. Then, over everything the document holds, excluded
    /// vertices get the weight 0.0001 for their bone, and bones that no weight names are removed, the ids of
    /// the others closing up in bones and weights. Without memory for that last step nothing is removed.
    ///
    /// Lines stand in any order but for: a bone's or vertex's lines behind its heading, the number of weights
    /// before the weights, an exclusion count before the list. A line that is not known, or that has no
    /// record to go to, is skipped; a number that does not parse leaves its field. Decimal commas are read
    /// where exporters write them: in points and weights. A weight count is cut to 0 to 20. An excluded
    /// vertex whose number is missing is left out, and after 1,000 such the rest of the count is not tried,
    /// which Log hears at level 2. Costs time n log n in the length of the text, whatever the ids are.
    ///
    /// Prints what it excludes to the process's standard output and to Log at level 1. callback is not used.
    /// Always returns 1.
    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;

    /// Writes one empty block: an envelope cannot be written back. Returns 0 when it cannot be opened.
    Result Save(CFile_Saver* saver) override;

    /// Empties the document. Returns 1.
    virtual Result Destroy();
};
