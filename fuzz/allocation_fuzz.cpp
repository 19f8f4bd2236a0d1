/// Every reader while memory cannot be had. The first byte draws the reader, the next two which allocation fails,
/// the fourth whether all behind it fail too; the rest is the text.
#include "containers/channel_list.h"
#include "containers/graph.h"
#include "containers/tree.h"
#include "formats/modelbuild/model_from_ase.h"
#include "fuzz/fuzz.h"

namespace
{
template <class TDocument> void Work(std::string_view text, TDocument& document)
{
    CFile_Parser source;
    source.Open(text.data(), text.size());
    document.Load(&source, nullptr);
    source.Reset();
    CFile_Parser rest;
    rest.Add(source);
    TDocument copy(document);
    copy.Load(&rest, nullptr);
    copy = document;
    SaveText(copy);
    if constexpr (std::is_same_v<TDocument, CFileFormat_Ase>)
    {
        CGraphics_Model model;
        CreateModelFromASE(model, document, 0.5F);
        const CGraphics_Model modelcopy(model);
        SaveText(model);
    }
}

/// What came out of it must be whole: fit to be described, copied, loaded again and destroyed.
template <class TDocument> void CheckReader(std::string_view text, std::uint64_t successes, std::uint64_t failures)
{
    {
        TDocument document;
        LoadText(document, text);
        if (IsPadded(document))
            return;
        FailAllocations(~std::uint64_t{0}, 0);
        Work(text, document);
    }
    const std::uint64_t attempts = GetNumAllocationAttempts();
    FailAllocations(successes % (attempts + 1), failures);
    TDocument document;
    Work(text, document);
    FailAllocations(0, 0);
    TDocument copy(document);
    Check(Describe(copy) == Describe(document));
    LoadText(document, text);
}

constexpr void (*Checks[])(std::string_view, std::uint64_t, std::uint64_t) = {
    CheckReader<CFileFormat_Ase>,        CheckReader<CFileFormat_X>,         CheckReader<CFileFormat_Envelope>,
    CheckReader<TTree<CSys_String>>,     CheckReader<TGraph<CSys_DataNode>>, CheckReader<TChannelList<float, 3>>,
    CheckReader<TChannelList<float, 4>>, CheckReader<CGraphics_Model>,
};
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    return Watch(bytes, size,
                 [](CInput& input)
                 {
                     const auto check = input.Draw(Checks);
                     const unsigned successes = input.Take() | input.Take() << 8;
                     const std::uint64_t failures = input.Take() % 2 == 0 ? 1 : ~std::uint64_t{0} / 2;
                     check(input.GetRest().GetText(), successes, failures);
                 });
}
