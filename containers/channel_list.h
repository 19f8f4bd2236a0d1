/// Channel lists: keys with the values of several channels at each.
///
/// A list saves itself as one line a node, the key first:
///     {
///         addnode: 0.500000 1.000000 2.000000 3.000000
///     }
/// Lists of four channels read raw nodes too: behind a line "addbnodes: COUNT" and its line end of two bytes
/// stand COUNT times five floats of 32 bits, little-endian, the key first.
#pragma once

#include "core/block_reader.h"
#include "core/block_writer.h"
#include "core/core_templates.h"
#include "core/plain_lines.h"

#include <bit>
#include <type_traits>

/// A key and the values of the channels there; known as TChannelList::SData.
template <class T, unsigned N> struct SChannelNode
{
    T key;
    T value[N];
};

extern template class ASSET_TOOLS_API TArray<SChannelNode<float, 3>>;
extern template class ASSET_TOOLS_API TArray<SChannelNode<float, 4>>;

/// A list of nodes in the order of the text; keys need not be sorted.
///
/// Load:  replaces the nodes; always returns 1. Numbers that do not parse are 0, and so are those behind them
///        on the line. Raw nodes replace all nodes before them. A raw count that the text cannot hold adds
///        nothing and goes to Log; reading goes on behind its line.
/// Save:  writes text lines, with six decimals, whatever form was read. Returns 0 when the block cannot be
///        opened.
/// Copy:  duplicates the nodes.
template <class T, unsigned N> class TChannelList : public CFile_IOObject
{
    static_assert(std::is_same_v<T, float>, "The saved forms hold numbers of 32 bits.");
    static_assert(N == 3 || N == 4, "The saved forms have three or four channels.");

  public:
    using SData = SChannelNode<T, N>;

    TArray<SData> channelNodes;

    TChannelList();
    TChannelList(const TChannelList& other);
    TChannelList& operator=(const TChannelList& other);
    ~TChannelList() override;

    /// Empties the list and releases its storage. Returns 1.
    Result DeleteAll()
    {
        return channelNodes.DeleteAll();
    }

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override
    {
        return LoadHelper<T, N>(parser, callback);
    }

    Result Save(CFile_Saver* saver) override
    {
        CBlockWriter block(saver);
        if (!block.IsOpen())
            return 0;
        for (const SData& node : channelNodes)
            if constexpr (N == 3)
                block.Write(L"addnode: %f %f %f %f", node.key, node.value[0], node.value[1], node.value[2]);
            else
                block.Write(L"addnode: %f %f %f %f %f", node.key, node.value[0], node.value[1], node.value[2],
                            node.value[3]);
        return 1;
    }

    /// What Load does; the arguments are the list's own. The callback is not used.
    template <class TValue, unsigned Count> Result LoadHelper(CFile_Parser* parser, CFile_IOCallback* callback);

  private:
    static constexpr SKeyword RawKeyword = L"addbnodes:";

    /// Takes a node from a line; false when the line is of another kind.
    template <class TLine> static bool ScanNode(TLine& line, SData& node)
    {
        if (!line.BeginsWith(L"addnode:"))
            return false;
        line.StripWord();
        bool isread = line.Scan(node.key);
        for (T& value : node.value)
            isread = isread && line.Scan(value);
        return true;
    }

    void LoadRawNodes(CBlockReader& block)
    {
        static_assert(sizeof(SData) == (N + 1) * sizeof(float), "Raw nodes stand without padding.");
        static_assert(std::endian::native == std::endian::little, "Raw nodes are read as they stand.");
        constexpr std::size_t lineend = 2;

        CFile_Parser& parser = *block.GetParser();
        const wchar_t* number = block.GetRest() + RawKeyword.length;
        std::uint32_t count = 0;
        ScanInteger(number, count);
        const std::size_t first = parser.GetOffset() + lineend;
        const std::size_t behind = parser.GetSize() < first ? 0 : parser.GetSize() - first;
        if (count > behind / sizeof(SData))
        {
            parser.Report(2, L"%u raw nodes are more than the text holds, they are left out", count);
            return;
        }
        parser.SetOffset(first);
        if (count != 0 && channelNodes.CreateMultiple(count) == 1)
            parser.Read(channelNodes.GetArray(), count * sizeof(SData));
        else
            parser.SetOffset(first + count * sizeof(SData)); // without memory the bytes are not lines either
    }
};

// Not in the class, where an instance would not export them.
template <class T, unsigned N> TChannelList<T, N>::TChannelList() = default;
template <class T, unsigned N> TChannelList<T, N>::TChannelList(const TChannelList& other) = default;
template <class T, unsigned N> TChannelList<T, N>& TChannelList<T, N>::operator=(const TChannelList& other) = default;
template <class T, unsigned N> TChannelList<T, N>::~TChannelList() = default;

template <class T, unsigned N>
template <class TValue, unsigned Count>
Result TChannelList<T, N>::LoadHelper(CFile_Parser* parser, CFile_IOCallback*)
{
    static_assert(std::is_same_v<TValue, T> && Count == N, "A list loads nodes of its own kind only.");
    channelNodes.DeleteAll();
    const auto scan = [](auto& line, SData& node) { return ScanNode(line, node); };
    const auto keep = [this](const SData& node)
    {
        if (SData* const slot = channelNodes.Add())
            *slot = node;
    };
    CBlockReader block(parser);
    while (block.NextLine())
    {
        SData node = {};
        if (scan(block, node))
            keep(node);
        else if (N == 4 && block.BeginsWith(RawKeyword))
            LoadRawNodes(block);
        ReadPlainEntries<SData>(block, scan, keep);
    }
    return 1;
}

extern template class ASSET_TOOLS_API TChannelList<float, 3>;
extern template class ASSET_TOOLS_API TChannelList<float, 4>;
extern template ASSET_TOOLS_API Result TChannelList<float, 3>::LoadHelper<float, 3>(CFile_Parser*, CFile_IOCallback*);
extern template ASSET_TOOLS_API Result TChannelList<float, 4>::LoadHelper<float, 4>(CFile_Parser*, CFile_IOCallback*);
