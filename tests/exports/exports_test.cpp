/// Reads the names that the built libraries export, and those that a caller has had to make itself. That the libraries
/// export all that callers use is shown by consumer.cpp, which would not link.
#include <gtest/gtest.h>

#include <cstdio>
#include <set>
#include <string>

namespace
{
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
            names.insert(text.substr(19));
    }
    if (pipe != nullptr)
        pclose(pipe);
    return names;
}
} // namespace

// What the library uses inside would bind the callers' own copies of it. The standard library's templates are
// marked for export by their own headers.
TEST(Exports, HideWhatIsInside)
{
    std::set<std::string> exports = ListNames("-D", ASSET_TOOLS_LIBRARY);
    exports.merge(ListNames("-D", ENGINE_CORE_LIBRARY));
    ASSERT_GT(exports.size(), 1000U) << "nm lists nothing";
    for (const std::string& name : exports)
        for (const char* hidden :
             {"CBlockReader::", "CBlockWriter::", "CWideOutput::", "CTextField::", "(anonymous namespace)::"})
            EXPECT_NE(name.rfind(hidden, 0), 0U) << name;
}

// The caller in consumer.cpp is built without inlining: what the library did not declare as its own would stand in the
// caller's binary. The destructors of two managers are the compiler's everywhere.
TEST(Exports, CallerInstantiatesNothing)
{
    const std::set<std::string> names = ListNames("", CONSUMER);
    EXPECT_EQ(names.count("main"), 1U);
    for (const std::string& name : names)
    {
        const std::size_t begin = name.starts_with("int ") ? 4 : 0; // the result of a function template
        const bool isinstance = name.compare(begin, 1, "T") == 0 && name.find("::") != std::string::npos;
        const bool istrivial = (name.starts_with("TAnimationResourceManager<") || name.starts_with("TFileResource")) &&
                               name.find(">::~") != std::string::npos;
        EXPECT_TRUE(!isinstance || istrivial) << name;
    }
}
