/// Trees of named folders and keys.
///
/// A tree saves itself as nested blocks, subfolders before keys:
///     {
///         addfolder: weapons
///         {
///             addkey: sword
///             {
///                 text: "A blade of steel."
///             }
///         }
///     }
/// The block behind an "addkey:" line is the element's own; elements that save nothing have none.
#pragma once

#include "containers/tree_elements.h"
#include "core/block_reader.h"
#include "core/block_writer.h"
#include "core/core_templates.h"
#include "core/system_objects.h"

#include <type_traits>

/// One named element: the key is itself a T, and loads, saves and copies as T does.
template <class T> class TTreeKey : public T
{
  public:
    CSys_String name;
    void* keyData = nullptr; ///< For the owner's use; copied with the key.

    TTreeKey();
    TTreeKey(const TTreeKey& other) = default;
    TTreeKey& operator=(const TTreeKey& other) = default;
    ~TTreeKey(); // NOLINT(modernize-use-override): whether T's is virtual is T's business
};

// Not in the class, where an instance would not export them; so below.
template <class T> TTreeKey<T>::TTreeKey() = default;
template <class T> TTreeKey<T>::~TTreeKey() = default;

/// A folder: subfolders and keys in the order in which they were added. Names need not differ.
///
/// Owns:  its subfolders and keys, which keep their addresses until it is destroyed.
/// Load:  appends what the block holds, nothing is emptied or merged; always returns 1. A name is the rest of
///        its line, so blanks at its ends and line ends in it are lost. Folders nested more than
///        MostNestedLevels deep are passed over.
/// Save:  writes subfolders, then keys. Returns 0 when the folder's own block cannot be opened.
/// Copy:  duplicates everything beneath, whose `parent` is then the copy; `parent` itself is copied as it is.
///        Folders of elements that cannot be copied (handles) cannot be copied either.
template <class T> class TTreeFolder : public CFile_IOObject
{
  public:
    CSys_String name;
    void* folderData = nullptr; ///< For the owner's use; copied with the folder.
    TPArray<TTreeFolder> folders;
    TPArray<TTreeKey<T>> keys;
    TTreeFolder* parent = nullptr; ///< The folder that holds this one; null for a root. Not owned.

    TTreeFolder();

    TTreeFolder(const TTreeFolder& other) requires std::is_copy_constructible_v<T> : CFile_IOObject(other)
    {
        CopyFrom(other);
    }

    /// The source may lie beneath this folder.
    TTreeFolder& operator=(const TTreeFolder& other) requires std::is_copy_constructible_v<T>
    {
        if (this != &other)
            CopyFrom(other);
        return *this;
    }

    ~TTreeFolder() override;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override
    {
        return LoadNested(parser, callback, 0);
    }

    Result Save(CFile_Saver* saver) override
    {
        CBlockWriter block(saver);
        if (!block.IsOpen())
            return 0;
        for (TTreeFolder* const folder : folders)
        {
            block.Write(L"addfolder: %s", folder->name);
            folder->Save(saver);
        }
        for (TTreeKey<T>* const key : keys)
        {
            block.Write(L"addkey: %s", key->name);
            if constexpr (HasOwnText)
                key->Save(saver);
        }
        return 1;
    }

    /// Load for a folder that has `level` folders around it.
    Result LoadNested(CFile_Parser* parser, CFile_IOCallback* callback, unsigned level)
    {
        CBlockReader block(parser, callback);
        while (block.NextLine())
        {
            if (block.Strip(L"addfolder:"))
                if (TTreeFolder* const folder = block.AddNested(folders, level))
                {
                    folder->parent = this;
                    block.Scan(folder->name);
                    folder->LoadNested(parser, callback, level + 1);
                }
            if (block.Strip(L"addkey:"))
                LoadNewKey(block);
            block.TakeBraceAsText();
        }
        return 1;
    }

  private:
    static constexpr bool HasOwnText = std::is_base_of_v<CFile_IOObject, T>;

    // Not inlined, since LoadNested calls itself: what this needs of the stack is needed once.
    [[gnu::noinline]] void LoadNewKey(CBlockReader& block)
    {
        TTreeKey<T>* const key = keys.Add();
        if (key == nullptr)
            return;
        block.Scan(key->name);
        if constexpr (HasOwnText)
            block.Load(*key);
    }

    // The source may go with what this folder holds, so everything is taken from it first.
    void CopyFrom(const TTreeFolder& other)
    {
        const CSys_String newname(other.name);
        TPArray<TTreeFolder> newfolders(other.folders);
        TPArray<TTreeKey<T>> newkeys(other.keys);
        folderData = other.folderData;
        parent = other.parent;
        name = newname;
        keys = std::move(newkeys);
        folders = std::move(newfolders);
        for (TTreeFolder* const folder : folders)
            folder->parent = this;
    }
};

template <class T> TTreeFolder<T>::TTreeFolder() = default;
template <class T> TTreeFolder<T>::~TTreeFolder() = default;

/// A tree: a root folder, whose name is never written or read, with everything beneath it.
/// Load, Save and copies are the root folder's.
template <class T> class TTree : public CFile_IOObject
{
  public:
    using CTreeFolder = TTreeFolder<T>;
    using CTreeKey = TTreeKey<T>;

    CTreeFolder root;
    void* treeData = nullptr; ///< For the owner's use; copied with the tree.

    TTree();
    TTree(const TTree& other) = default;
    TTree& operator=(const TTree& other) = default;
    ~TTree() override;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override
    {
        return root.Load(parser, callback);
    }

    Result Save(CFile_Saver* saver) override
    {
        return root.Save(saver);
    }

    /// Changes nothing: the folders and keys go with the tree. Returns 1.
    Result Destroy()
    {
        return 1;
    }
};

template <class T> TTree<T>::TTree() = default;
template <class T> TTree<T>::~TTree() = default;

/// A tree that knows the audio system its elements play in.
template <class T> class TTreeAudio : public CAudio_System_Object, public TTree<T>
{
  public:
    TTreeAudio();
    TTreeAudio(const TTreeAudio& other) = default;
    TTreeAudio& operator=(const TTreeAudio& other) = default;
    ~TTreeAudio() override;
};

template <class T> TTreeAudio<T>::TTreeAudio() = default;
template <class T> TTreeAudio<T>::~TTreeAudio() = default;

/// A tree that knows the graphics system its elements are drawn with.
template <class T> class TTreeGraphics : public TTree<T>, public CGraphics_System_Object
{
  public:
    TTreeGraphics();
    TTreeGraphics(const TTreeGraphics& other) = default;
    TTreeGraphics& operator=(const TTreeGraphics& other) = default;
    ~TTreeGraphics() override;
};

template <class T> TTreeGraphics<T>::TTreeGraphics() = default;
template <class T> TTreeGraphics<T>::~TTreeGraphics() = default;

/// A tree of user-interface elements, which are drawn and heard. Known as CG_Renderer::TTreeGui.
template <class T> class TTreeGui : public TTree<T>, public CGraphics_System_Object, public CAudio_System_Object
{
  public:
    TTreeGui();
    TTreeGui(const TTreeGui& other) = default;
    TTreeGui& operator=(const TTreeGui& other) = default;
    ~TTreeGui() override;
};

template <class T> TTreeGui<T>::TTreeGui() = default;
template <class T> TTreeGui<T>::~TTreeGui() = default;

// The library holds every one of these once, for the elements that tree_elements.h lists. A list of keys or
// folders comes before the folder that holds it by value.
// NOLINTBEGIN(bugprone-macro-parentheses): types cannot stand in parentheses
#define ASSET_TOOLS_DECLARE_TREE(T)                                                                                    \
    extern template class ASSET_TOOLS_API TTreeKey<T>;                                                                 \
    extern template class ASSET_TOOLS_API TPArray<TTreeKey<T>>;                                                        \
    extern template class ASSET_TOOLS_API TPArray<TTreeFolder<T>>;                                                     \
    extern template class ASSET_TOOLS_API TTreeFolder<T>;                                                              \
    extern template class ASSET_TOOLS_API TTree<T>;
ASSET_TOOLS_TREE_ELEMENTS(ASSET_TOOLS_DECLARE_TREE)
#undef ASSET_TOOLS_DECLARE_TREE
// NOLINTEND(bugprone-macro-parentheses)

extern template class ASSET_TOOLS_API TTreeAudio<CAudio_Sound>;
extern template class ASSET_TOOLS_API TTreeGraphics<CEffects_System::CEffects_Flare>;
extern template class ASSET_TOOLS_API TTreeGraphics<CEffects_System::CEffects_LibraryEffect>;
extern template class ASSET_TOOLS_API TTreeGui<CG_Renderer::CControlLayout>;
