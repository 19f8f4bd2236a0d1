/// Every text that the library reads, in one table: SFormat of a document says where its samples are, how its fields
/// are written in the form that Load reads, and what a random document must be like to come back.
#pragma once

#include "formats/modelbuild/model_from_ase.h"
#include "tests/hostile/ase_fields.h"
#include "tests/hostile/checker.h"
#include "tests/hostile/fields.h"
#include "tests/support/documents.h"

#include <algorithm>
#include <filesystem>

/// What formats have in common. ReadsItself: Save writes what Load reads.
template <class TDocument, CFiller::EStyle FloatStyle, bool ReadsItself> struct SFormatBase
{
    static constexpr CFiller::EStyle Floats = FloatStyle;
    static constexpr bool SavesWhatItLoads = ReadsItself;
    static constexpr std::size_t TrustedMemory = 0; ///< What a count may cost without any text behind it.

    static void Settle(TDocument&)
    {
    }

    static std::string Write(TDocument& document)
    {
        return SaveText(document);
    }

    static std::vector<std::string> GetOwnSamples()
    {
        return {};
    }
};

template <class TDocument> struct SFormat;

template <> struct SFormat<CFileFormat_Ase> : SFormatBase<CFileFormat_Ase, CFiller::Exact, false>
{
    static constexpr const char* Name = "Ase";
    static constexpr const char* Extensions[] = {".ase"};
    static constexpr std::size_t TrustedMemory = 65536 * sizeof(CAse::CASEMaterial);

    static std::string Write(CFileFormat_Ase& scene)
    {
        CTextWriter writer(true);
        Visit(writer, scene);
        return writer.GetText();
    }
};

template <> struct SFormat<CFileFormat_X> : SFormatBase<CFileFormat_X, CFiller::Exact, false>
{
    static constexpr const char* Name = "X";
    static constexpr const char* Extensions[] = {".x"};

    // A polygon has corners.
    static void Settle(CFileFormat_X& document)
    {
        for (CFileFormat_X::CXMesh& mesh : document.Meshes)
            for (CFileFormat_X::CXMesh::SXFace& face : mesh.Faces)
                if (face.Indices.NumItems == 0)
                    *face.Indices.Add() = 7;
    }

    static std::string Write(CFileFormat_X& document)
    {
        CFile_Saver saver;
        saver.OpenMemory();
        saver.Write(0, L"xof 0303txt 0032");
        for (CFileFormat_X::CXMesh& mesh : document.Meshes)
        {
            saver.Write(0, L"Mesh {");
            WriteVectors(saver, mesh.Vertices);
            saver.Write(0, L"%u;", mesh.Faces.NumItems);
            for (CFileFormat_X::CXMesh::SXFace& face : mesh.Faces)
            {
                std::wstring line = std::to_wstring(face.Indices.NumItems);
                for (const int corner : face.Indices)
                    line += (line.find(L';') == std::wstring::npos ? L';' : L',') + std::to_wstring(corner);
                saver.Write(0, L"%s;%s", line.c_str(), &face == mesh.Faces.GetLast() ? L";" : L",");
            }
            saver.Write(0, L"MeshNormals {");
            WriteVectors(saver, mesh.Normals);
            saver.Write(0, L"}");
            saver.Write(0, L"MeshTextureCoords {");
            saver.Write(0, L"%u;", mesh.TextureCoords.NumItems);
            for (const CMath_Vector3& uv : mesh.TextureCoords)
                WriteLine(&saver, L"%.9g;%.9g;,", uv.x, uv.y);
            saver.Write(0, L"}");
            saver.Write(0, L"}");
        }
        return saver.GetText();
    }

  private:
    static void WriteVectors(CFile_Saver& saver, TArray<CMath_Vector3>& vectors)
    {
        saver.Write(0, L"%u;", vectors.NumItems);
        for (const CMath_Vector3& vector : vectors)
            WriteLine(&saver, L"%.9g;%.9g;%.9g;%s", vector, &vector == vectors.GetLast() ? L";" : L",");
    }
};

template <> struct SFormat<CFileFormat_Envelope> : SFormatBase<CFileFormat_Envelope, CFiller::Exact, false>
{
    static constexpr const char* Name = "Envelope";
    static constexpr const char* Extensions[] = {".envASCII", ".env"};

    // Loading sorts weights, weakens those of excluded vertices and takes out bones that no weight names: so they are
    // sorted, exclusions name no vertex, and every bone (the first even where there is none) is named by one.
    static void Settle(CFileFormat_Envelope& envelope)
    {
        for (std::uint32_t i = 0; i < std::max(envelope.bones.NumItems, 1U); ++i)
        {
            if (i < envelope.bones.NumItems)
                envelope.bones[i]->boneID = i;
            CEnvelope::CEnvelopeVertexData* const vertex = envelope.vertices.Add();
            vertex->vertexWeightCount = 1;
            vertex->vertexWeight[0] = {i, 1.0F};
        }
        for (CEnvelope::CEnvelopeVertexData& vertex : envelope.vertices)
            std::stable_sort(vertex.GetWeights().begin(), vertex.GetWeights().end(),
                             [](const auto& one, const auto& other) { return one.weight > other.weight; });
        for (CEnvelope::CEnvelopeVertexExclusionList& list : envelope.exclusionLists)
            for (unsigned long& index : list.excludedVerts)
                index = std::max(index & 0xFFFFFFFF, envelope.vertices.GetNumItems());
    }

    static std::string Write(CFileFormat_Envelope& envelope)
    {
        CTextWriter writer(false);
        Visit(writer, envelope);
        return writer.GetText();
    }
};

template <> struct SFormat<CTextTree> : SFormatBase<CTextTree, CFiller::Exact, true>
{
    static constexpr const char* Name = "Tree";
    static constexpr const char* Extensions[] = {".tree"};
};

template <> struct SFormat<CDataGraph> : SFormatBase<CDataGraph, CFiller::Exact, true>
{
    static constexpr const char* Name = "Graph";
    static constexpr const char* Extensions[] = {".graph"};
};

template <> struct SFormat<TChannelList<float, 3>> : SFormatBase<TChannelList<float, 3>, CFiller::SixDigits, true>
{
    static constexpr const char* Name = "Channels3";
    static constexpr const char* Extensions[] = {".channels3"};
};

template <> struct SFormat<TChannelList<float, 4>> : SFormatBase<TChannelList<float, 4>, CFiller::SixDigits, true>
{
    static constexpr const char* Name = "Channels4";
    static constexpr const char* Extensions[] = {".channels4"};

    static std::vector<std::string> GetOwnSamples()
    {
        return {"{\naddnode: 1 2 3 4 5\naddbnodes: 2\r\n"
                "}\n{\r\"1.00addnode: 2 2 2 2 2 2 2 2 2\n}\n}\n"
                "\r\naddnode: 1 2 3 4 5\n}\n"};
    }
};

template <> struct SFormat<CGraphics_Model> : SFormatBase<CGraphics_Model, CFiller::Exact, true>
{
    static constexpr const char* Name = "Model";
    static constexpr const char* Extensions[] = {"_model.txt"};
};

template <class TDocument> std::string Describe(TDocument&& document)
{
    CDescriber describer;
    Visit(describer, document);
    return describer.text;
}

/// Expects what holds of every document; returns how long its lists are.
template <class TDocument> std::map<std::wstring, std::uint32_t> Check(TDocument& document)
{
    CChecker checker;
    checker.Block(L"document", document);
    return checker.longest;
}

template <class TDocument>
void FillAtRandom(TDocument& document, unsigned seed, unsigned mostitems = 4, unsigned entries = 2)
{
    CFiller filler(seed, SFormat<TDocument>::Floats, std::is_same_v<TDocument, CFileFormat_Ase>, mostitems, entries);
    Visit(filler, document);
    SFormat<TDocument>::Settle(document);
}

/// The sample files of a format, what it has beside them, and a small text that says something in every list.
template <class TDocument> std::vector<std::string> GetSamples()
{
    using CFormat = SFormat<TDocument>;
    std::vector<std::string> samples = CFormat::GetOwnSamples();
    for (const auto& entry : std::filesystem::recursive_directory_iterator(SAMPLES_FOLDER))
        for (const char* const extension : CFormat::Extensions)
            if (const std::string name = entry.path().filename().string(); name.ends_with(extension))
                samples.push_back(ReadFile(entry.path().string()));
    EXPECT_FALSE(samples.empty());
    TDocument document;
    FillAtRandom(document, 5, 1);
    samples.push_back(CFormat::Write(document));
    return samples;
}

/// Runs a test for every format. What envelopes print is kept from the test's own messages.
template <class TDocument> class Every : public testing::Test
{
  protected:
    const std::vector<std::string> samples = GetSamples<TDocument>();

    void SetUp() override
    {
        testing::internal::CaptureStdout();
    }

    void TearDown() override
    {
        const std::string printed = testing::internal::GetCapturedStdout();
        if (HasFailure())
            std::printf("%s", printed.c_str());
    }
};

using CDocuments = testing::Types<CFileFormat_Ase, CFileFormat_X, CFileFormat_Envelope, CTextTree, CDataGraph,
                                  TChannelList<float, 3>, TChannelList<float, 4>, CGraphics_Model>;

struct SFormatNames
{
    template <class TDocument> static std::string GetName(int)
    {
        return SFormat<TDocument>::Name;
    }
};
