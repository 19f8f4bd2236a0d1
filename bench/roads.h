/// The roads whose speed is compared, ours and their peers'. Each does its work once and returns what it made,
/// so that checking and destroying it can stay outside of the time.
#pragma once

#include "core/file_parser.h"
#include "core/graphics_model.h"
#include "formats/ase/ase.h"
#include "formats/x/x.h"

#if defined(HAVE_ASSIMP)
#include <assimp/Importer.hpp>
#endif

#include <memory>
#include <string>

/// Makes the compiler believe that somebody looks at these bytes.
inline void Keep(const void* bytes)
{
    asm volatile("" : : "r"(bytes) : "memory");
}

template <class TDocument> void Load(TDocument& document, const std::string& text)
{
    CFile_Parser parser;
    parser.Open(text.data(), text.size());
    document.Load(&parser, nullptr);
}

template <class TDocument> std::unique_ptr<TDocument> LoadNew(const std::string& text)
{
    auto document = std::make_unique<TDocument>();
    Load(*document, text);
    return document;
}

/// A model with the document that it was built from.
struct SBuiltModel
{
    std::unique_ptr<CFileFormat_Ase> document = std::make_unique<CFileFormat_Ase>();
    std::unique_ptr<CGraphics_Model> model = std::make_unique<CGraphics_Model>();

    const CGraphics_Model& operator*() const
    {
        return *model;
    }
};

SBuiltModel BuildFromText(const std::string& text);
SBuiltModel BuildFromFile(const std::string& path);

#if defined(HAVE_ASSIMP)
/// The importer owns its scene. Nothing is done to it after the import.
std::unique_ptr<Assimp::Importer> ImportText(const std::string& text, const char* extension);
std::unique_ptr<Assimp::Importer> ImportFile(const std::string& path);
#endif

/// Finds every line end and widens every byte: what no reader into wide text can do without. Returns the
/// number of lines.
std::size_t WidenLines(const std::string& text);

/// Saves the document to nowhere. Returns the number of bytes.
std::size_t SaveText(CFileFormat_Ase& document);

/// Writes the lines of the document's meshes as SaveText does, with std::to_chars and nothing else.
std::size_t WriteWithToChars(const CFileFormat_Ase& document);

/// Faces that were read, 0 when what belongs to them did not come whole.
std::size_t CountFaces(const CFileFormat_Ase& document);
std::size_t CountFaces(const CFileFormat_X& document);
std::size_t CountFaces(const CGraphics_Model& model);
#if defined(HAVE_ASSIMP)
std::size_t CountFaces(const Assimp::Importer& importer);
#endif
