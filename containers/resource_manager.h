/// Resource managers: engine resources of one kind behind handles, filed by name in a tree.
///
/// A manager fills a new resource with what a parser holds; each kind of manager has its own way, which
/// InitializeObject says. Filing, finding and removing handles is its user's business, through `handles`.
/// Nothing here takes the synchronizer: threads that share a manager need a lock of their callers.
#pragma once

#include "containers/graph.h"
#include "containers/tree.h"
#include "core/resource_handles.h"
#include "core/sys_synchronizer.h"

/// What all managers have in common.
/// Owns: its handles, and through them every resource, which goes with the manager whatever its count of
///       holders says. Cannot be copied, since handles cannot. Not to be destroyed through this base.
template <class X> class TResourceManager
{
  public:
    template <class TObject> using THandle = TResourceHandle<TObject>;
    template <class TObject> using THandleR = TResourceHandleR<TObject>;

    void* managerData = nullptr; ///< For the owner's use.
    CSys_Synchronizer synchronizer;
    TTree<THandle<X>> handles; ///< Saving it writes the names of folders and handles only.

    TResourceManager();
    TResourceManager(const TResourceManager&) = delete;
    TResourceManager& operator=(const TResourceManager&) = delete;
    ~TResourceManager();

    /// Fills a new resource from the parser, which stands where its data begin. Neither is owned.
    virtual Result InitializeObject(X* object, CFile_Parser* parser, unsigned long flags) = 0;
};

template <class X> TResourceManager<X>::TResourceManager() = default;
template <class X> TResourceManager<X>::~TResourceManager() = default;

/// Manages resources of the graphics system, which each of them is told.
template <class X> class TGraphicsResourceManager : public TResourceManager<X>, public CGraphics_System_Object
{
  public:
    std::uint32_t initializedCount = 0; ///< Calls of InitializeObject, failed ones included.

    TGraphicsResourceManager();
    ~TGraphicsResourceManager() override;

    /// Returns what the resource's CreateFromParser returns. A bitmap begins with 256 by 256 pixels, whatever
    /// the flags say, and 1 is returned.
    Result InitializeObject(X* object, CFile_Parser* parser, unsigned long flags) override
    {
        object->SetGraphicsSystem(GetGraphicsSystem());
        Result result = 1;
        if constexpr (std::is_base_of_v<CGui_Bitmap, X>)
            static_cast<CGui_Bitmap*>(object)->CreateFromParser(parser, BitmapSide, BitmapSide);
        else
            result = object->CreateFromParser(parser, flags);
        ++initializedCount;
        return result;
    }

  private:
    static constexpr unsigned long BitmapSide = 256;
};

template <class X> TGraphicsResourceManager<X>::TGraphicsResourceManager() = default;
template <class X> TGraphicsResourceManager<X>::~TGraphicsResourceManager() = default;

/// Manages sets of animations, each of which is told the animation system.
template <class X> class TAnimationResourceManager : public TResourceManager<X>, public CEngine_Animation_System_Object
{
  public:
    TAnimationResourceManager();

    /// Returns 1, whatever the set makes of its data.
    Result InitializeObject(X* object, CFile_Parser* parser, unsigned long flags) override
    {
        object->SetAnimationSystem(this->GetAnimationSystem());
        object->CreateFromParser(parser, flags);
        return 1;
    }
};

template <class X> TAnimationResourceManager<X>::TAnimationResourceManager() = default;

/// Manages files, held as parsers of their own text.
template <class X> class TFileResourceManager : public TResourceManager<X>
{
  public:
    TFileResourceManager();

    /// Gives the object what the parser has still to read, and the name of its file. Returns 1.
    Result InitializeObject(X* object, CFile_Parser* parser, unsigned long) override
    {
        object->Reset();
        object->DestroyData();
        object->Add(*parser);
        object->SetFilename(parser->GetFilename());
        return 1;
    }
};

template <class X> TFileResourceManager<X>::TFileResourceManager() = default;

/// Manages scripts, which the script system builds from graphs.
template <class X> class TScriptResourceManager : public TResourceManager<X>, public CEngine_Script_System_Object
{
  public:
    TScriptResourceManager();
    ~TScriptResourceManager() override;

    /// Returns what the script system makes of the graph that the parser holds; 0 without a script system,
    /// and then neither parser nor script is touched. The flags are not used.
    Result InitializeObject(X* object, CFile_Parser* parser, unsigned long) override
    {
        CEngine_ScriptSystem* const system = GetScriptSystem();
        if (system == nullptr)
            return 0;
        object->SetScriptSystem(system);
        TGraph<CSys_DataNode> graph;
        return graph.Load(parser, nullptr) == 1 ? system->CreateFromGraph(&graph, object, 0) : 0;
    }
};

template <class X> TScriptResourceManager<X>::TScriptResourceManager() = default;
template <class X> TScriptResourceManager<X>::~TScriptResourceManager() = default;

extern template class ASSET_TOOLS_API TResourceManager<CEngine_AnimationSet>;
extern template class ASSET_TOOLS_API TResourceManager<CEngine_Script>;
extern template class ASSET_TOOLS_API TResourceManager<CFile_Parser>;
extern template class ASSET_TOOLS_API TResourceManager<CGraphics_Font>;
extern template class ASSET_TOOLS_API TResourceManager<CGraphics_Material>;
extern template class ASSET_TOOLS_API TResourceManager<CGraphics_Model>;
extern template class ASSET_TOOLS_API TResourceManager<CGraphics_Texture>;
extern template class ASSET_TOOLS_API TResourceManager<CGraphics_VertexDeclaration>;
extern template class ASSET_TOOLS_API TResourceManager<CGui_StreamableBitmap>;

extern template class ASSET_TOOLS_API TGraphicsResourceManager<CGraphics_Font>;
extern template class ASSET_TOOLS_API TGraphicsResourceManager<CGraphics_Material>;
extern template class ASSET_TOOLS_API TGraphicsResourceManager<CGraphics_Model>;
extern template class ASSET_TOOLS_API TGraphicsResourceManager<CGraphics_Texture>;
extern template class ASSET_TOOLS_API TGraphicsResourceManager<CGraphics_VertexDeclaration>;
extern template class ASSET_TOOLS_API TGraphicsResourceManager<CGui_StreamableBitmap>;
extern template class ASSET_TOOLS_API TAnimationResourceManager<CEngine_AnimationSet>;
extern template class ASSET_TOOLS_API TFileResourceManager<CFile_Parser>;
extern template class ASSET_TOOLS_API TScriptResourceManager<CEngine_Script>;
