/// Graphs of data nodes with links.
///
/// A graph saves itself as one block of nodes:
///     {
///         addnode:
///         {
///             addlink: 1 2
///             addnodedata:
///             {
///                 the node's own lines
///             }
///             addextradata:
///                 whatever the owner's function writes
///         }
///     }
#pragma once

#include "core/block_reader.h"
#include "core/block_writer.h"
#include "core/core_templates.h"
#include "core/sys_data_node.h"

/// A pair of numbers that the graph stores without interpreting them; known as TKNode::SLink.
struct SNodeLink
{
    static constexpr std::uint32_t None = 0xFFFFFFFF;

    std::uint32_t first = None;
    std::uint32_t second = None;
    std::uint64_t linkData = 0; ///< For the owner's use.
};

extern template class ASSET_TOOLS_API TArray<SNodeLink>;

/// A node of a graph: a T with its links. Load and Save are T's and leave the links alone.
/// Owns its links. Copies duplicate them.
template <class T> class TKNode : public T, public TUserData
{
  public:
    using SLink = SNodeLink;

    TArray<SLink> links; ///< In the order added. Has room for 10 at first, then grows by its step.

    TKNode();
    TKNode(const TKNode& other);
    TKNode& operator=(const TKNode& other);
    ~TKNode() override;

    /// Appends a link; its linkData stays as the slot has it.
    /// isunique: with 1 nothing is added when a link of both numbers is there already, which takes time linear
    /// in their number; any other value adds always.
    /// Returns 1; 0, nothing changed, when there is no memory.
    Result AddLink(unsigned long first, unsigned long second, int isunique)
    {
        const auto newfirst = static_cast<std::uint32_t>(first);
        const auto newsecond = static_cast<std::uint32_t>(second);
        if (isunique == 1)
            for (const SLink& link : links)
                if (link.first == newfirst && link.second == newsecond)
                    return 1;
        SLink* const link = links.Add();
        if (link == nullptr)
            return 0;
        link->first = newfirst;
        link->second = newsecond;
        return 1;
    }

    /// Puts a link's numbers where the pointers that are not null point. For an index that no link has it
    /// puts SNodeLink::None there and returns 0.
    Result GetLink(unsigned long index, unsigned long* first, unsigned long* second) const
    {
        const bool isthere = index < links.GetNumItems();
        const SLink link = isthere ? *links[index] : SLink();
        if (first != nullptr)
            *first = link.first;
        if (second != nullptr)
            *second = link.second;
        return isthere ? 1 : 0;
    }

    /// Number of links.
    unsigned long GetNumItems() const
    {
        return links.GetNumItems();
    }

  private:
    static constexpr unsigned long RoomAtFirst = 10;
};

template <class T> TKNode<T>::TKNode()
{
    links.CreateMultiple(RoomAtFirst);
    links.Reset();
}

// Not in the class, where an instance would not export them.
template <class T> TKNode<T>::TKNode(const TKNode& other) = default;
template <class T> TKNode<T>& TKNode<T>::operator=(const TKNode& other) = default;
template <class T> TKNode<T>::~TKNode() = default;

/// A list of nodes, whose indices are their positions.
///
/// Owns:  its nodes, which keep their addresses until they are deleted; not what the contexts point to.
/// Load:  replaces the nodes. A link whose numbers do not parse is left out, and so is a node for which there
///        is no memory. Always returns 1.
/// Save:  returns 0 when the graph's own block cannot be opened.
/// Copy:  duplicates the nodes; functions and contexts are the same.
template <class T> class TGraph : public CFile_IOObject
{
  public:
    /// The owner's functions for a node's extra data: they read or write what stands behind the
    /// "addextradata:" line of the node at `index`, lines or a block. What they return is not used; what a
    /// loading function leaves unread of a block is passed over.
    using LoadExtraData = Result (*)(CFile_Parser* parser, std::uint32_t index, void* context);
    using SaveExtraData = Result (*)(CFile_Saver* saver, std::uint32_t index, void* context);

    TPArray<TKNode<T>> nodes;
    LoadExtraData loadExtraData = nullptr;
    SaveExtraData saveExtraData = nullptr; ///< Without it no "addextradata:" line is written.
    void* loadExtraDataContext = nullptr;
    void* saveExtraDataContext = nullptr;

    TGraph();
    TGraph(const TGraph& other);
    TGraph& operator=(const TGraph& other);
    ~TGraph() override;

    /// Deletes every node. Returns 1.
    Result Destroy()
    {
        return nodes.DeleteAll();
    }

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override
    {
        nodes.DeleteAll();
        CBlockReader block(parser, callback);
        while (block.NextLine())
            if (block.Is(L"addnode:") && nodes.Add() != nullptr)
                LoadLastNode(block);
        return 1;
    }

    Result Save(CFile_Saver* saver) override
    {
        CBlockWriter block(saver);
        if (!block.IsOpen())
            return 0;
        for (std::uint32_t i = 0; i < nodes.NumItems; ++i)
        {
            block.Write(L"addnode:");
            SaveNode(saver, i);
        }
        return 1;
    }

  private:
    // The owner's function may change the list of nodes, so the last one is asked for anew at each line.
    void LoadLastNode(CBlockReader& graph)
    {
        CBlockReader block(graph);
        while (block.NextLine())
        {
            TKNode<T>* const node = nodes.GetLast();
            std::uint32_t first = 0;
            std::uint32_t second = 0;
            if (block.Strip(L"addlink:") && node != nullptr && block.Scan(first) && block.Scan(second))
                node->AddLink(first, second, 0);
            if (block.Strip(L"addnodedata:") && node != nullptr)
                block.Load(*node);
            if (block.Is(L"addextradata:") && loadExtraData != nullptr)
                loadExtraData(block.GetParser(), nodes.NumItems - 1, loadExtraDataContext);
        }
    }

    void SaveNode(CFile_Saver* saver, std::uint32_t index)
    {
        CBlockWriter block(saver);
        if (!block.IsOpen())
            return;
        TKNode<T>& node = *nodes[index];
        for (const SNodeLink& link : node.links)
            block.Write(L"addlink: %d %d", static_cast<std::int32_t>(link.first),
                        static_cast<std::int32_t>(link.second));
        block.Save(L"addnodedata:", node);
        if (saveExtraData == nullptr)
            return;
        block.Write(L"addextradata:");
        saveExtraData(saver, index, saveExtraDataContext);
    }
};

template <class T> TGraph<T>::TGraph() = default;
template <class T> TGraph<T>::TGraph(const TGraph& other) = default;
template <class T> TGraph<T>& TGraph<T>::operator=(const TGraph& other) = default;
template <class T> TGraph<T>::~TGraph() = default;

extern template class ASSET_TOOLS_API TKNode<CSys_DataNode>;
extern template class ASSET_TOOLS_API TPArray<TKNode<CSys_DataNode>>;
extern template class ASSET_TOOLS_API TGraph<CSys_DataNode>;
