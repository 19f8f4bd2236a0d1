/// Trees, graphs and channel lists for asset_tool.
#include "containers/channel_list.h"
#include "containers/graph.h"
#include "containers/tree.h"
#include "tools/asset.h"
#include "tools/describe.h"

#include <algorithm>
#include <cmath>
#include <ostream>
#include <set>
#include <string>
#include <vector>

using CFolder = TTreeFolder<CSys_String>;
using CKey = TTreeKey<CSys_String>;

static void WriteFields(CJsonWriter& json, const CKey& key)
{
    json.Field("name", key.name);
    json.Field("text", static_cast<const CSys_String&>(key));
}

static void WriteFields(CJsonWriter& json, const CFolder& folder)
{
    json.Field("name", folder.name);
    json.Field("folders", folder.folders);
    json.Field("keys", folder.keys);
}

static void WriteFields(CJsonWriter& json, const TTree<CSys_String>& tree)
{
    json.Field("root", tree.root);
}

static void WriteFields(CJsonWriter& json, const TKNode<CSys_DataNode>& node)
{
    json.Key("links");
    json.StartArray();
    for (const SNodeLink& link : node.links)
        json.Array(link.first, link.second);
    json.EndArray();
}

static void WriteFields(CJsonWriter& json, const TGraph<CSys_DataNode>& graph)
{
    json.Field("nodes", graph.nodes);
}

template <unsigned N> static void WriteFields(CJsonWriter& json, const SChannelNode<float, N>& node)
{
    json.Field("key", node.key);
    json.Key("value");
    json.StartArray();
    for (const float value : node.value)
        json.Value(value);
    json.EndArray();
}

template <unsigned N> static void WriteFields(CJsonWriter& json, const TChannelList<float, N>& list)
{
    json.Field("channelNodes", list.channelNodes);
}

namespace
{
/// What is counted in a folder and all beneath it.
struct STreeCounts
{
    unsigned long folders = 0;
    unsigned long keys = 0;
    unsigned long levels = 0;
};

template <class TList> void CheckNames(const TList& list, const char* what, CSuspicions& suspicions)
{
    std::set<std::string> names;
    for (const auto* element : list)
        if (!names.insert(Name(element->name)).second)
            suspicions.Add(Name(element->name), std::string("several ") + what + " in one folder have this name");
}

/// Keeps its own list of the folders still to be counted, so that deep trees take no stack.
STreeCounts CountTree(const CFolder& top, CSuspicions& suspicions)
{
    struct SFolder
    {
        const CFolder* folder;
        unsigned long level;
    };
    STreeCounts counts;
    for (std::vector<SFolder> left = {{&top, 0}}; !left.empty();)
    {
        const auto [folder, level] = left.back();
        left.pop_back();
        counts.folders += folder->folders.GetNumItems();
        counts.keys += folder->keys.GetNumItems();
        counts.levels = std::max(counts.levels, level);
        CheckNames(folder->folders, "folders", suspicions);
        CheckNames(folder->keys, "keys", suspicions);
        for (unsigned long i = folder->folders.GetNumItems(); i-- > 0;)
            left.push_back({folder->folders[i], level + 1});
    }
    return counts;
}

void Print(std::ostream& out, const TTree<CSys_String>& tree)
{
    CSuspicions suspicions;
    const STreeCounts counts = CountTree(tree.root, suspicions);
    out << Count(counts.folders, "folder") << ", " << Count(counts.keys, "key") << ", " << Count(counts.levels, "level")
        << '\n';
    CSuspicions ignored;
    for (const CFolder* folder : tree.root.folders)
    {
        const STreeCounts beneath = CountTree(*folder, ignored);
        out << "  " << Name(folder->name) << ": " << Count(beneath.folders, "folder") << ", "
            << Count(beneath.keys, "key") << '\n';
    }
    suspicions.Print(out);
}

void Print(std::ostream& out, const TGraph<CSys_DataNode>& graph)
{
    CSuspicions suspicions;
    unsigned long links = 0;
    for (const TKNode<CSys_DataNode>* node : graph.nodes)
    {
        links += node->links.GetNumItems();
        for (const SNodeLink& link : node->links)
            if (link.first == SNodeLink::None || link.second == SNodeLink::None)
                suspicions.Add(Name(node->name), "a link has a number that was never set");
    }
    out << Count(graph.nodes.GetNumItems(), "node") << ", " << Count(links, "link") << '\n';
    suspicions.Print(out);
}

template <unsigned N> void Print(std::ostream& out, const TChannelList<float, N>& list)
{
    const auto& nodes = list.channelNodes;
    const unsigned long count = nodes.GetNumItems();
    out << Count(count, "node") << " of " << N << " channels";
    if (count != 0)
        out << ", keys " << nodes[0]->key << " to " << nodes[count - 1]->key;
    out << '\n';

    CSuspicions suspicions;
    for (unsigned long i = 0; i < count; ++i)
    {
        if (i != 0 && !(nodes[i - 1]->key < nodes[i]->key))
            suspicions.Add("keys", "one is not above the one before it");
        if (!std::isfinite(nodes[i]->key))
            suspicions.Add("keys", "one is not finite");
        for (unsigned channel = 0; channel < N; ++channel)
            if (!std::isfinite(nodes[i]->value[channel]))
                suspicions.Add("channel " + std::to_string(channel), "a value is not finite");
    }
    for (unsigned channel = 0; channel < N && count != 0; ++channel)
    {
        const auto [least, most] = std::minmax_element(nodes.begin(), nodes.end(),
                                                       [channel](const auto& a, const auto& b)
                                                       { return a.value[channel] < b.value[channel]; });
        out << "  channel " << channel << ": " << least->value[channel] << " to " << most->value[channel] << '\n';
    }
    suspicions.Print(out);
}

template <class TContainer> class TContainerAsset : public TDocumentAsset<TContainer>
{
  public:
    void Describe(std::ostream& out) const override
    {
        Print(out, this->document);
    }

    void WriteJson(CJsonWriter& json) const override
    {
        json.Value(this->document);
    }
};

template <class TContainer> std::unique_ptr<CAsset> Make()
{
    return std::make_unique<TContainerAsset<TContainer>>();
}

/// The first line inside the outermost block, or the first at all; empty when there is none.
CSys_String GetFirstLine(CFile_Parser& parser)
{
    wchar_t line[CFile_Parser::BlockLineCapacity];
    parser.Reset();
    parser.GetBlockLine(line);
    parser.Reset();
    return CSys_String(line);
}

/// Whether the text is "{" and "}" alone: every container saves itself so when it is empty.
bool IsEmptyBlock(CFile_Parser& parser)
{
    wchar_t line[CFile_Parser::BlockLineCapacity];
    parser.Reset();
    const bool isopened = parser.GetLine(line, CFile_Parser::BlockLineCapacity) == 1 && CompareStrings(line, L"{") == 1;
    const bool isclosed = parser.GetLine(line, CFile_Parser::BlockLineCapacity) == 1 && CompareStrings(line, L"}") == 1;
    parser.Reset();
    return isopened && isclosed;
}

/// Where the kind is told by name, any line of it will do, and so will an empty block; else the first line
/// has to tell one kind from the other.
template <class TTest>
bool Recognises(CFile_Parser& parser, unsigned mostlines, std::span<const wchar_t* const> words, TTest isfirst)
{
    if (mostlines == ~0U)
        return HasLineWithWord(parser, mostlines, words) || IsEmptyBlock(parser);
    const CSys_String line = GetFirstLine(parser);
    return std::any_of(words.begin(), words.end(),
                       [&](const wchar_t* word) { return RecognizeWord(word, line.Get()) != 0; }) &&
           isfirst(line.Get());
}

/// How many numbers stand behind the first word.
int CountNumbers(const wchar_t* line)
{
    int count = 0;
    float number = 0.0F;
    for (const wchar_t* at = FindWordEnd(line); ScanFloat(at, number);)
        ++count;
    return count;
}

bool RecognisesTree(CFile_Parser& parser, unsigned mostlines)
{
    static constexpr const wchar_t* words[] = {L"addfolder:", L"addkey:"};
    return Recognises(parser, mostlines, words, [](const wchar_t*) { return true; });
}

bool RecognisesGraph(CFile_Parser& parser, unsigned mostlines)
{
    static constexpr const wchar_t* words[] = {L"addnode:"};
    return Recognises(parser, mostlines, words, [](const wchar_t* line) { return CountNumbers(line) == 0; });
}

bool RecognisesChannels3(CFile_Parser& parser, unsigned mostlines)
{
    static constexpr const wchar_t* words[] = {L"addnode:"};
    return Recognises(parser, mostlines, words, [](const wchar_t* line) { return CountNumbers(line) == 4; });
}

bool RecognisesChannels4(CFile_Parser& parser, unsigned mostlines)
{
    static constexpr const wchar_t* words[] = {L"addnode:", L"addbnodes:"};
    return Recognises(parser, mostlines, words,
                      [](const wchar_t* line)
                      { return CountNumbers(line) == 5 || RecognizeWord(L"addbnodes:", line) != 0; });
}

constexpr std::string_view TreeEndings[] = {".tree"};
constexpr std::string_view GraphEndings[] = {".graph"};
constexpr std::string_view Channels3Endings[] = {".channels3"};
constexpr std::string_view Channels4Endings[] = {".channels4"};
} // namespace

const SAssetFormat TreeAssetFormat = {"tree", "a tree of texts", TreeEndings, RecognisesTree, Make<TTree<CSys_String>>};
const SAssetFormat GraphAssetFormat = {"graph", "a graph of data nodes", GraphEndings, RecognisesGraph,
                                       Make<TGraph<CSys_DataNode>>};
const SAssetFormat Channels3AssetFormat = {"channels3", "a list of three channels", Channels3Endings,
                                           RecognisesChannels3, Make<TChannelList<float, 3>>};
const SAssetFormat Channels4AssetFormat = {"channels4", "a list of four channels", Channels4Endings,
                                           RecognisesChannels4, Make<TChannelList<float, 4>>};
