/// What asset_tool can take in: one adapter for each kind of input, and the table of them all.
#pragma once

#include "core/file_parser.h"
#include "core/file_saver.h"
#include "tools/json_writer.h"

#include <iosfwd>
#include <memory>
#include <span>
#include <string_view>

class CGraphics_Model;

/// A document or container of the library, in the form that the commands work on.
class CAsset
{
  public:
    CAsset() = default;
    CAsset(const CAsset&) = delete;
    CAsset& operator=(const CAsset&) = delete;
    virtual ~CAsset() = default;

    /// Reads the whole text. Fails only as the library does, which keeps what it can.
    virtual void Load(CFile_Parser& parser) = 0;

    /// Writes the engine text block form. Returns what the document's Save returns.
    virtual Result Save(CFile_Saver& saver) = 0;

    /// Appends what the asset makes of itself to an engine model, with `scale` model units for each of its own.
    /// Returns 0, the model untouched, for a kind that makes none.
    virtual Result BuildModel(CGraphics_Model& model, float scale)
    {
        (void)model;
        (void)scale;
        return 0;
    }

    /// Prints what a person wants to know at a glance, anything suspicious last.
    virtual void Describe(std::ostream& out) const = 0;

    /// Writes everything that was loaded, as the one value behind "document".
    virtual void WriteJson(CJsonWriter& json) const = 0;
};

/// What is alike in the adapters.
template <class TDocument> class TDocumentAsset : public CAsset
{
  public:
    void Load(CFile_Parser& parser) override
    {
        document.Load(&parser, nullptr);
    }

    Result Save(CFile_Saver& saver) override
    {
        return document.Save(&saver);
    }

  protected:
    TDocument document;
};

/// One kind of input.
struct SAssetFormat
{
    std::string_view name;                     ///< For --format and in JSON.
    std::string_view description;              ///< "an ASE scene"
    std::span<const std::string_view> endings; ///< Of file names, in small letters, with the point.

    /// Whether the text, of which at most `mostlines` lines are looked at, can be one of this kind.
    bool (*recognises)(CFile_Parser& parser, unsigned mostlines);
    std::unique_ptr<CAsset> (*make)();

    /// Why a text of this kind cannot be read all the same; null when it can. The parser is at its beginning
    /// again afterwards.
    const char* (*explainrefusal)(CFile_Parser& parser) = nullptr;
};

/// Every kind, in the order in which a text without a telling name is tried.
std::span<const SAssetFormat> GetAssetFormats();

/// The kind of that name; null when there is none.
const SAssetFormat* FindAssetFormat(std::string_view name);

/// The kind that a file's name and then its first lines tell; null when neither does. The parser is at its
/// beginning again afterwards.
const SAssetFormat* GuessAssetFormat(std::string_view filename, CFile_Parser& parser);

/// For SAssetFormat::recognises: whether one of the text's first `mostlines` lines begins with one of the
/// words. The parser is at its beginning again afterwards.
bool HasLineWithWord(CFile_Parser& parser, unsigned mostlines, std::span<const wchar_t* const> words);

// One entry of the table each, beside its adapter.
extern const SAssetFormat AseAssetFormat;
extern const SAssetFormat XAssetFormat;
extern const SAssetFormat EnvelopeAssetFormat;
extern const SAssetFormat TreeAssetFormat;
extern const SAssetFormat GraphAssetFormat;
extern const SAssetFormat Channels3AssetFormat;
extern const SAssetFormat Channels4AssetFormat;
