/// Reads the names that the built libraries export, and those that a caller has had to make itself.
#include "exported_names.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <set>
#include <sstream>

namespace
{
/// As nm writes them, but for the blank between two closing brackets.
std::string Tidy(std::string name)
{
    for (std::size_t at = name.find("> >"); at != std::string::npos; at = name.find("> >"))
        name.erase(at + 1, 1);
    return name;
}

/// The demangled names that a binary defines.
std::set<std::string> ListNames(const std::string& options, const std::string& binary)
{
    std::set<std::string> names;
    std::FILE* const pipe = popen((std::string(NM) + " -C --defined-only " + options + " " + binary).c_str(), "r");
    char line[4096];
    while (pipe != nullptr && std::fgets(line, sizeof(line), pipe) != nullptr)
    {
        std::string text(line);
        text.pop_back();
        if (text.size() > 19) // address, kind
            names.insert(Tidy(text.substr(19)));
    }
    if (pipe != nullptr)
        pclose(pipe);
    return names;
}

std::set<std::string> ListExports()
{
    std::set<std::string> names = ListNames("-D", ASSET_TOOLS_LIBRARY);
    names.merge(ListNames("-D", ENGINE_CORE_LIBRARY));
    return names;
}

std::string GetMemberName(const SArrayInstance& instance, const std::string& member)
{
    const std::string array = instance.array;
    const std::string type = array + "<" + instance.element + (array == "TPArray" ? ", 128u>" : ">");
    if (member == "C")
        return type + "::" + array + "()";
    if (member == "D")
        return type + "::~" + array + "()";
    if (member == "=")
        return type + "::operator=(" + type + " const&)";
    if (member == "[]")
        return type + "::operator[](unsigned long)";
    if (member == "GetNumItems")
        return type + "::GetNumItems() const";
    const bool takesnumber = member == "CreateMultiple" || member == "DeleteOrdered";
    return type + "::" + member + (takesnumber ? "(unsigned long)" : "()");
}

void AddLoadAndSave(std::set<std::string>& names, const std::string& type)
{
    names.insert(type + "::Load(CFile_Parser*, CFile_IOCallback*)");
    names.insert(type + "::Save(CFile_Saver*)");
}

void AddArray(std::set<std::string>& names, const SArrayInstance& instance)
{
    std::istringstream members(instance.members);
    for (std::string member; members >> member;)
        names.insert(GetMemberName(instance, member));
}

void AddTree(std::set<std::string>& names, const std::string& element)
{
    const std::string folder = "TTreeFolder<" + element + ">";
    const std::string key = "TTreeKey<" + element + ">";
    const std::string tree = "TTree<" + element + ">";
    AddArray(names, {"TPArray", folder.c_str(), WholeArray});
    AddArray(names, {"TPArray", key.c_str(), WholeArray});
    AddLoadAndSave(names, folder);
    AddLoadAndSave(names, tree);
    for (const std::string& member :
         {folder + "::TTreeFolder()", folder + "::~TTreeFolder()", key + "::TTreeKey()", key + "::~TTreeKey()",
          tree + "::TTree()", tree + "::~TTree()", tree + "::Destroy()"})
        names.insert(member);
}

void AddResourceKind(std::set<std::string>& names, const std::string& kind)
{
    const std::string handle = "TResourceHandle<" + kind + ">";
    const std::string manager = "TResourceManager<" + kind + ">";
    AddLoadAndSave(names, handle);
    for (const std::string& member :
         {handle + "::AddRef()", handle + "::Release()", handle + "::Destroy()", handle + "::TResourceHandle()",
          handle + "::~TResourceHandle()", manager + "::TResourceManager()", manager + "::~TResourceManager()"})
        names.insert(member);
}

/// The whole surface.
std::set<std::string> ListRequired()
{
    std::set<std::string> names;
    for (const SArrayInstance& instance : ArrayInstances)
        AddArray(names, instance);
    for (const char* element : TreeElements)
        AddTree(names, element);
    for (const char* kind : ResourceKinds)
        AddResourceKind(names, kind);
    for (const char* type : SavedClasses)
        AddLoadAndSave(names, type);
    for (const char* name : SingleNames)
        names.insert(name);
    return names;
}
} // namespace

TEST(Exports, HoldTheWholeSurface)
{
    const std::set<std::string> exports = ListExports();
    ASSERT_GT(exports.size(), 1000U) << "nm lists nothing";
    for (const std::string& name : ListRequired())
        EXPECT_EQ(exports.count(name), 1U) << name;
}

// What the library uses inside would bind the callers' own copies of it. The standard library's templates are
// marked for export by their own headers.
TEST(Exports, HideWhatIsInside)
{
    for (const std::string& name : ListExports())
        for (const char* hidden :
             {"CBlockReader::", "CBlockWriter::", "CWideOutput::", "CTextField::", "(anonymous namespace)::"})
            EXPECT_NE(name.rfind(hidden, 0), 0U) << name;
}

// The caller in consumer.cpp calls all of it and is built without inlining: what the library did not
// declare as its own would stand in the caller's binary.
TEST(Exports, CallerInstantiatesNothing)
{
    const std::set<std::string> names = ListNames("", CONSUMER);
    EXPECT_EQ(names.count("main"), 1U);
    for (const std::string& name : ListRequired())
        EXPECT_EQ(names.count(name), 0U) << name;
}
