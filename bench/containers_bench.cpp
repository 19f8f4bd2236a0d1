/// Containers: raw nodes beside a plain copy, lines of nodes, trees whose cost a key must not grow.
#include "bench.h"
#include "containers/channel_list.h"
#include "containers/tree.h"
#include "core/file_saver.h"

#include <cmath>
#include <cstring>
#include <memory>
#include <string>

namespace
{
using CChannels = TChannelList<float, 4>;
using CTree = TTree<CSys_String>;

CChannels::SData GetNode(std::size_t i)
{
    const auto key = static_cast<float>(i);
    return {key, {std::sin(key), std::cos(key), key * 0.25F, -key}};
}

std::string MakeRawNodes(std::size_t count)
{
    std::string text = "{\r\naddbnodes: " + std::to_string(count) + "\r\n";
    for (std::size_t i = 0; i < count; ++i)
    {
        const CChannels::SData node = GetNode(i);
        text.append(reinterpret_cast<const char*>(&node), sizeof(node));
    }
    return text + "\r\n}\r\n";
}

template <class TContainer> std::string Save(TContainer& container)
{
    CFile_Saver saver;
    saver.OpenMemory();
    container.Save(&saver);
    return saver.GetText();
}

bool HasEveryNode(CChannels& list, std::size_t count)
{
    const CChannels::SData last = GetNode(count - 1);
    return list.channelNodes.GetNumItems() == count && list.channelNodes.GetLast()->key == last.key &&
           list.channelNodes.GetLast()->value[3] == last.value[3];
}

void LoadRawNodes(benchmark::State& state, std::size_t count)
{
    const std::string text = MakeRawNodes(count);
    CChannels list;
    for (auto _ : state)
        Load(list, text);
    if (!FailUnless(state, HasEveryNode(list, count), "not every node was read"))
        CountBytes(state, count * sizeof(CChannels::SData));
}

/// A block is obtained, the bytes are copied into it, the block before it is released.
void CopyRawNodes(benchmark::State& state, std::size_t count)
{
    const std::string text = MakeRawNodes(count);
    const std::size_t size = count * sizeof(CChannels::SData);
    std::unique_ptr<char[]> copy;
    for (auto _ : state)
    {
        copy.reset();
        copy.reset(new char[size]);
        std::memcpy(copy.get(), text.data() + 20, size);
        benchmark::DoNotOptimize(copy.get());
    }
    CountBytes(state, size);
}

void LoadNodeLines(benchmark::State& state, std::size_t count)
{
    CChannels list;
    for (std::size_t i = 0; i < count; ++i)
        *list.channelNodes.Add() = GetNode(i);
    const std::string text = Save(list);
    for (auto _ : state)
        Load(list, text);
    if (!FailUnless(state, HasEveryNode(list, count), "not every node was read"))
        CountBytes(state, text.size());
}

void SaveNodeLines(benchmark::State& state, std::size_t count)
{
    CChannels list;
    Load(list, MakeRawNodes(count));
    std::size_t size = 0;
    for (auto _ : state)
        size = Save(list).size();
    CountBytes(state, size);
}

/// A hundred keys to a folder, twenty folders to a folder.
void FillTree(CTree::CTreeFolder& folder, std::size_t& keys)
{
    for (unsigned i = 0; i < 100 && keys != 0; ++i, --keys)
    {
        CTree::CTreeKey* const key = folder.keys.Add();
        key->name.Write(L"key %u", i);
        *static_cast<CSys_String*>(key) = L"a text of ordinary length";
    }
    for (unsigned i = 0; i < 20 && keys != 0; ++i)
    {
        CTree::CTreeFolder* const inner = folder.folders.Add();
        inner->name.Write(L"folder %u", i);
        std::size_t share = std::min<std::size_t>(keys, std::max<std::size_t>(keys / (20 - i), 100));
        keys -= share;
        FillTree(*inner, share);
        keys += share;
    }
}

std::size_t CountKeys(const CTree::CTreeFolder& folder)
{
    std::size_t count = folder.keys.GetNumItems();
    for (const CTree::CTreeFolder* const inner : folder.folders)
        count += CountKeys(*inner);
    return count;
}

/// Load, save and destroy; the time a key must not grow with their number.
void LoadAndSaveTree(benchmark::State& state, std::size_t count)
{
    CTree tree;
    std::size_t left = count;
    FillTree(tree.root, left);
    const std::string text = Save(tree);
    {
        CTree loaded;
        Load(loaded, text);
        if (FailUnless(state, CountKeys(loaded.root) == count && Save(loaded) == text, "the tree did not come back"))
            return;
    }
    for (auto _ : state)
    {
        CTree loaded;
        Load(loaded, text);
        benchmark::DoNotOptimize(Save(loaded).size());
    }
    CountBytes(state, text.size());
    state.counters["time/key"] = benchmark::Counter(
        static_cast<double>(count), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
} // namespace

void RegisterContainerBenchmarks()
{
    constexpr SBenchSize counts[] = {{"small", 10'000}, {"100k", 100'000}, {"1M", 1'000'000}};
    constexpr SBenchmark benchmarks[] = {
        {"LoadRawNodes", LoadRawNodes},   {"CopyRawNodes", CopyRawNodes},       {"LoadNodeLines", LoadNodeLines},
        {"SaveNodeLines", SaveNodeLines}, {"LoadAndSaveTree", LoadAndSaveTree},
    };
    RegisterEach(benchmarks, counts);
}
