/// The X document: a mesh from a DirectX X file in its text form.
#pragma once

#include "formats/x/x_mesh.h"
#include "formats/x/x_records.h"

/// The mesh data of an X text; frames, templates, materials and every other block are passed over.
///
/// Owns: its meshes. Copying copies them, moving hands them over.
class ASSET_TOOLS_API CFileFormat_X : public CFile_IOObject, public CFileFormat_XRecords
{
  public:
    TArray<CXMesh> Meshes; ///< One at most after a Load, since a mesh reads to the end of the text.

    /// Replaces the meshes by that of the text from the parser's current line on: the first whose line
    /// begins with the word "Mesh". Only the text form is read: from a binary or compressed file there comes
    /// no mesh. Always returns 1.
    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;

    /// Writes the document in the engine text block form, without faces.
    Result Save(CFile_Saver* saver) override;

    /// Releases all meshes. Returns 1.
    virtual Result Destroy();
};
