/// Everything that reads back what it saved: trees of each kind of element, graphs, channel lists and models. The
/// first byte draws which; the rest is the text.
#include "containers/channel_list.h"
#include "containers/graph.h"
#include "containers/tree.h"
#include "core/graphics_model.h"
#include "fuzz/fuzz.h"

namespace
{
template <class TDocument> void CheckText(const CInput& input)
{
    TDocument document;
    CheckSavedText(input, document);
}

constexpr void (*Checks[])(const CInput&) = {
    CheckText<TTree<CSys_String>>,
    CheckText<TGraph<CSys_DataNode>>,
    CheckText<TChannelList<float, 3>>,
    CheckText<TChannelList<float, 4>>,
    CheckText<CGraphics_Model>,
    CheckText<TTree<CSys_Text>>,
    CheckText<TTree<SGui_TreeData>>,
    CheckText<TTreeAudio<CAudio_Sound>>,
    CheckText<TTreeGui<CG_Renderer::CControlLayout>>,
    CheckText<TTreeGraphics<CEffects_System::CEffects_Flare>>,
    CheckText<TTreeGraphics<CEffects_System::CEffects_LibraryEffect>>,
};
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    return Watch(bytes, size,
                 [](CInput& input)
                 {
                     const auto check = input.Draw(Checks);
                     check(input.GetRest());
                 });
}
